#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/TextField.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::TextColor;
using platform::TextField;
using platform::ViewKind;
using test::KernelRelease;
using test::LocalizedBundle;
using test::TaggedView;

class StaticText : public testing::Test {
  protected:
    StaticText() { control_.CreateControl(&view_, nullptr, nullptr, {}, "Cover Title"); }

    LocalizedBundle bundle_{{"Cover Title", "Front cover:"}};
    TextField view_{ViewKind::staticText};
    StaticTextEditControlEMFSpecialPages control_;
};

TEST_F(StaticText, ShowsItsLocalizedText) {
    EXPECT_TRUE(control_.InitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(view_.stringValue(), "Front cover:");
    view_.setStringValue("changed");
    EXPECT_TRUE(control_.ReInitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(view_.stringValue(), "Front cover:");
}

TEST_F(StaticText, AKeyWithoutTranslationSaysSo) {
    control_.CreateControl(&view_, nullptr, nullptr, {}, "Unknown");
    EXPECT_TRUE(control_.InitializeTitle(bundle_.get()));
    EXPECT_EQ(view_.stringValue(), "no translation");
}

TEST_F(StaticText, WithoutABundleAnswersTrueAndKeepsItsText) {
    view_.setStringValue("of the nib");
    EXPECT_TRUE(control_.InitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(view_.stringValue(), "of the nib");
    control_.CreateControl(&view_, nullptr, nullptr, {}, nullptr);
    EXPECT_TRUE(control_.InitializeTitle(nullptr)) << "with or without a key";
}

TEST_F(StaticText, WithoutAKeyAnswersFalse) {
    control_.CreateControl(&view_, nullptr, nullptr, {}, nullptr);
    view_.setStringValue("of the nib");
    EXPECT_FALSE(control_.InitializeTitle(bundle_.get()));
    EXPECT_EQ(view_.stringValue(), "of the nib");
}

TEST_F(StaticText, TakesATextFromOutside) {
    EXPECT_TRUE(control_.SetExternalValueToUI(ControlValue{"210.0 mm"}, 8));
    EXPECT_EQ(view_.stringValue(), "210.0 mm");
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{5}, 4)) << "a number is no text";
    EXPECT_EQ(view_.stringValue(), "210.0 mm");
}

TEST_F(StaticText, WithoutATextViewShowsNothing) {
    TaggedView noText(1);
    control_.CreateControl(&noText, nullptr, nullptr, {}, "Cover Title");
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{"x"}, 1));
    EXPECT_FALSE(control_.InitializeTitle(bundle_.get()));
    control_.CreateControl(nullptr, nullptr, nullptr, {}, "Cover Title");
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{"x"}, 1));
    control_.Disable();
    EXPECT_EQ(control_.constrainCount(), 1);
}

TEST_F(StaticText, ShowsByItsColourWhetherItIsEnabled) {
    const auto step = [&](void (BaseControlEMFSpecialPages::*operation)(), std::int32_t count, bool enabled) {
        (control_.*operation)();
        EXPECT_EQ(control_.constrainCount(), count);
        EXPECT_EQ(view_.isEnabled(), enabled);
        EXPECT_EQ(view_.textColor(), enabled ? TextColor::controlTextColor : TextColor::lightGrayColor);
    };
    EXPECT_EQ(view_.textColor(), TextColor::controlTextColor);
    step(&BaseControlEMFSpecialPages::Disable, 1, false);
    step(&BaseControlEMFSpecialPages::Disable, 2, false);
    step(&BaseControlEMFSpecialPages::Enable, 1, false);
    step(&BaseControlEMFSpecialPages::Enable, 0, true);
    step(&BaseControlEMFSpecialPages::Enable, -1, true);
    step(&BaseControlEMFSpecialPages::Disable, 0, true);
    step(&BaseControlEMFSpecialPages::Disable, 1, false);
    step(&BaseControlEMFSpecialPages::ResetStatus, 0, true);
}

TEST_F(StaticText, IsHiddenByCountAndNotForThePPD) {
    control_.PPDCtrlHide();
    EXPECT_FALSE(view_.isHidden());
    control_.Hide();
    EXPECT_TRUE(view_.isHidden());
    control_.PPDCtrlShow();
    EXPECT_TRUE(view_.isHidden());
    EXPECT_EQ(control_.hideCount(), 1);
}

// The version.

class VersionText : public testing::Test {
  protected:
    /// A bundle with that version in its information.
    static std::shared_ptr<platform::Bundle> bundle(const test::TemporaryDirectory& directory,
                                                    const std::string& entries) {
        test::write_file(directory.path() / "Info.plist",
                         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" +
                             entries + "</dict></plist>\n");
        return platform::Bundle::load(directory.path());
    }
    std::shared_ptr<platform::Bundle> versionBundle(const std::string& version) {
        return bundle(directory_, "<key>CFBundleVersion</key><string>" + version + "</string>");
    }

    test::TemporaryDirectory directory_;
    TextField view_{ViewKind::staticText};
    VersionStringSTextEMFSpecialPages control_;
};

TEST_F(VersionText, InitializingHidesItAndSetsNoText) {
    control_.CreateControl(&view_, "Version", true);
    view_.setStringValue("of the nib");
    EXPECT_TRUE(control_.InitializeCtrl(versionBundle("1.0").get(), nullptr));
    EXPECT_TRUE(view_.isHidden());
    EXPECT_EQ(view_.stringValue(), "of the nib");
}

TEST_F(VersionText, ReInitializingReadsTheBundle) {
    control_.CreateControl(&view_, "Version", true);
    EXPECT_TRUE(control_.ReInitializeCtrl(versionBundle("1.5.2 Build 13").get(), nullptr));
    EXPECT_EQ(view_.stringValue(), "Ver.1.5.2.13");
    EXPECT_TRUE(view_.isHidden());
}

TEST_F(VersionText, EndsWithAPointWithoutTheConstraintFile) {
    control_.CreateControl(&view_, "Version", false);
    EXPECT_TRUE(control_.InitializeTitle(versionBundle("2.0 Build 1").get()));
    EXPECT_EQ(view_.stringValue(), "Ver.2.0.1.");
}

TEST_F(VersionText, WithoutAVersionKeepsItsText) {
    control_.CreateControl(&view_, "Version", true);
    view_.setStringValue("old");
    EXPECT_FALSE(control_.InitializeTitle(nullptr));
    const auto without = bundle(directory_, "<key>CFBundleIdentifier</key><string>x</string>");
    ASSERT_NE(without, nullptr);
    EXPECT_FALSE(control_.InitializeTitle(without.get()));
    EXPECT_EQ(view_.stringValue(), "old");
}

TEST_F(VersionText, AResetHidesItBelow10_7AndShowsItFromThereOn) {
    control_.CreateControl(&view_, "Version", true);
    control_.Disable();
    control_.Hide();
    {
        const KernelRelease below("10.15.0");
        control_.ResetStatus();
        EXPECT_TRUE(view_.isHidden());
        EXPECT_EQ(control_.hideCount(), 0);
        EXPECT_EQ(control_.constrainCount(), 0);
        EXPECT_TRUE(view_.isEnabled());
    }
    const KernelRelease from("11.0.0");
    control_.ResetStatus();
    EXPECT_FALSE(view_.isHidden());
}

TEST_F(VersionText, WithoutAViewDoesNothing) {
    control_.CreateControl(nullptr, "Version", true);
    EXPECT_TRUE(control_.InitializeCtrl(nullptr, nullptr));
    EXPECT_FALSE(control_.InitializeTitle(versionBundle("1.0").get()));
    const KernelRelease below("10.8.0");
    control_.ResetStatus();
    EXPECT_EQ(control_.GetControlPtr(), nullptr);
}

} // namespace
} // namespace specialpages
