#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<const char*, 5> kKeys{"No Covers String", "Front Only String", "Back Only String",
                                           "Front and Back Same String", "Front and Back Different String"};
constexpr PopupIniData kIniData{.defaultItem = 1, .initial = -1, .menuKeys = kKeys};

/// The list of cover options with the six controls that it disables, by its real tables.
class CoverOptions : public ::testing::Test {
  protected:
    CoverOptions()
        : disable{{204, 206, 209, 211, 203, 208}, {209, 211, 208}, {204, 206, 203}, {209, 211}, {}},
          update{{206, 204, 211, 209, 203, 208},
                 {203, 208, 206, 211},
                 {203, 208, 206, 211},
                 {206, 211, 209, 203, 208},
                 {203, 208, 206, 211}},
          record{.disable = disable.all(), .hide = {}, .update = update.all()} {
        view.setTag(201);
        list.CreateControl(&view, &kIniData, &record, nullptr, {});
        panel.RunTimeAddNewControl(&list);
        for (ControlTag tag : {203, 204, 206, 208, 209, 211}) {
            views.push_back(std::make_unique<TaggedView>(tag));
            auto control = std::make_unique<Counted>(updates);
            control->CreateControl(views.back().get());
            panel.RunTimeAddNewControl(control.get());
            controls.push_back(std::move(control));
        }
        list.InitializeCtrl(nullptr, nullptr);
        list.setTargetandAction();
        list.SetUIValueToIniData();
        list.SetControlValueToDefault();
        list.SetControlValueToUI();
        list.SimulationUIEventHandler();
        updates.clear();
    }

    /// Writes down the tag when it is updated.
    class Counted : public BaseControlEMFSpecialPages {
      public:
        explicit Counted(std::vector<ControlTag>& updates) : updates_(updates) {}
        std::int32_t Update() override {
            updates_.push_back(ControlPtr->tag());
            return 0;
        }

      private:
        std::vector<ControlTag>& updates_;
    };

    std::vector<ControlTag> disabled() const {
        std::vector<ControlTag> tags;
        for (const auto& view_ : views) {
            if (!view_->isEnabled()) {
                tags.push_back(view_->tag());
            }
        }
        return tags;
    }
    void pick(std::int64_t position) {
        const std::array<std::int64_t, 1> path{position};
        ASSERT_TRUE(view.pick(path));
    }

    Rows disable;
    Rows update;
    ConstraintRecord record;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    std::vector<std::unique_ptr<TaggedView>> views;
    std::vector<std::unique_ptr<Counted>> controls;
    std::vector<ControlTag> updates;
    TestPanel panel;
};

TEST_F(CoverOptions, TheFirstSimulationDisablesTheRowOfTheDefaultAndUndoesNone) {
    EXPECT_THAT(disabled(), ElementsAre(203, 204, 206, 208, 209, 211));
    for (const auto& control : controls) {
        EXPECT_EQ(control->constrainCount(), 1);
    }
}

TEST_F(CoverOptions, FromNoneToFrontOnlyFreesTheFrontAlone) {
    pick(1);
    EXPECT_THAT(updates, ElementsAre(203, 208, 206, 211));
    EXPECT_THAT(disabled(), ElementsAre(208, 209, 211));
    EXPECT_EQ(controls[0]->constrainCount(), 0);
    EXPECT_EQ(controls[5]->constrainCount(), 1);
}

TEST_F(CoverOptions, FromSameToDifferentFreesTheBackAndDisablesNothing) {
    pick(3);
    EXPECT_THAT(disabled(), ElementsAre(209, 211));
    pick(4);
    EXPECT_THAT(disabled(), IsEmpty());
    for (const auto& control : controls) {
        EXPECT_EQ(control->constrainCount(), 0);
    }
}

TEST_F(CoverOptions, TheSameItemAgainFiresNothing) {
    pick(1);
    updates.clear();
    pick(1);
    EXPECT_THAT(updates, IsEmpty());
    EXPECT_EQ(controls[5]->constrainCount(), 1);
}

TEST_F(CoverOptions, NoSelectionCountsAsItemOne) {
    pick(4);
    view.selectItemAtIndex(-1);
    list.SimulationUIEventHandler();
    EXPECT_THAT(disabled(), ElementsAre(203, 204, 206, 208, 209, 211));
    EXPECT_EQ(list.GetCurrentControlArrayNumber(), -1);
}

TEST_F(CoverOptions, TwoListsThatDisableOneFieldMustBothLetItGo) {
    platform::PopUpButton other;
    other.setTag(299);
    PopupControlEMFSpecialPages second;
    second.CreateControl(&other, &kIniData, &record, nullptr, {});
    panel.RunTimeAddNewControl(&second);
    second.InitializeCtrl(nullptr, nullptr);
    second.SetUIValueToIniData();
    other.selectItemAtIndex(3);
    second.SimulationUIEventHandler();
    pick(4);
    EXPECT_THAT(disabled(), ElementsAre(209, 211));
    other.selectItemAtIndex(4);
    second.SimulationUIEventHandler();
    EXPECT_THAT(disabled(), IsEmpty());
}

TEST_F(CoverOptions, AnItemPastTheRowsHasNoEffect) {
    const Rows one{{203}};
    const ConstraintRecord shortRecord{.disable = one.all(), .hide = one.all(), .update = one.all()};
    PopupControlEMFSpecialPages brief;
    platform::PopUpButton other;
    brief.CreateControl(&other, &kIniData, &shortRecord, nullptr, {});
    panel.RunTimeAddNewControl(&brief);
    brief.InitializeCtrl(nullptr, nullptr);
    brief.SetUIValueToIniData();
    other.selectItemAtIndex(4);
    brief.SimulationUIEventHandler();
    EXPECT_EQ(controls[0]->constrainCount(), 1) << "still the first list's";
    EXPECT_EQ(controls[0]->hideCount(), 0);
}

TEST(PopupControl, HidesBeforeItShowsAndAnOldItemOfZeroIsNoRow) {
    const Rows hide{{11}, {12}};
    const ConstraintRecord record{.disable = {}, .hide = hide.all(), .update = {}};
    TestPanel panel;
    platform::PopUpButton view;
    view.setTag(1);
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, &record, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    TaggedView first(11);
    TaggedView second(12);
    BaseControlEMFSpecialPages a;
    BaseControlEMFSpecialPages b;
    a.CreateControl(&first);
    b.CreateControl(&second);
    panel.RunTimeAddNewControl(&a);
    panel.RunTimeAddNewControl(&b);
    list.InitializeCtrl(nullptr, nullptr);
    view.selectItemAtIndex(0);
    list.DoControlHideConstrain();
    EXPECT_EQ(a.hideCount(), 1);
    EXPECT_EQ(b.hideCount(), 0);
    list.GetValueFromUI();
    view.selectItemAtIndex(1);
    list.DoControlHideConstrain();
    EXPECT_EQ(a.hideCount(), 0);
    EXPECT_EQ(b.hideCount(), 1);
    EXPECT_FALSE(first.isHidden());
    EXPECT_TRUE(second.isHidden());
}

TEST(PopupControl, AKeyWithoutATranslationShowsItself) {
    const platform::testing::TemporaryDirectory directory;
    write_bundle(directory.path(), "com.example.popup");
    platform::testing::write_test_file(directory.path() / "en.lproj" / "Localizable.strings",
                                       "\"Front Only String\" = \"Front only\";");
    const auto bundle = platform::Bundle::load(directory.path());
    ASSERT_NE(bundle, nullptr);
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    EXPECT_FALSE(view.menu().autoenablesItems());
    ASSERT_TRUE(list.InitializeMenu(bundle.get(), nullptr));
    ASSERT_TRUE(list.InitializeMenu(bundle.get(), nullptr)) << "the menu is made anew, not longer";
    ASSERT_EQ(view.numberOfItems(), 5);
    EXPECT_EQ(view.menu().itemAtIndex(0)->title(), "No Covers String");
    EXPECT_EQ(view.menu().itemAtIndex(1)->title(), "Front only");
    EXPECT_EQ(view.menu().itemAtIndex(1)->representedObject(), "Front Only String");
}

TEST(PopupControl, AnItemOfZeroSelectsNothingAsItsValueAndTheFirstFromOutside) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), -1);
    EXPECT_TRUE(list.SetExternalValueToUI(0, 4));
    EXPECT_EQ(view.indexOfSelectedItem(), 0);
    EXPECT_FALSE(list.SetExternalValueToUI(std::string("2"), 1));
}

TEST(PopupControl, ValueGoesFromViewToTicketTextAndBack) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    list.InitializeCtrl(nullptr, nullptr);
    view.selectItemAtIndex(2);
    ASSERT_NE(list.GetValueFromUI(), nullptr);
    std::string text;
    EXPECT_TRUE(list.ConvertToTickectData(text));
    EXPECT_EQ(text, "0") << "nothing is committed yet";
    list.SetValueFromUIToControl();
    EXPECT_TRUE(list.ConvertToTickectData(text));
    EXPECT_EQ(text, "3");
    EXPECT_TRUE(list.ConvertFromPreferenceString("5"));
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), 4);
}

TEST(PopupControl, ReadsItsValueFromThePrintSettings) {
    constexpr AccessInfo kAccess{.ticketKey = "com.example.item", .preferenceKey = nullptr};
    platform::PrintSettings settings;
    TestPanel panel;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, &kAccess, {});
    EXPECT_FALSE(list.GetValueToPreset()) << "no panel";
    panel.RunTimeAddNewControl(&list);
    EXPECT_FALSE(list.GetValueToPreset()) << "no settings";
    panel.SetCurrentPMPrintSettings(&settings);
    EXPECT_FALSE(list.GetValueToPreset()) << "no value";
    settings.setValue("com.example.item", "4", false);
    EXPECT_FALSE(list.GetValueToPreset()) << "no data block";
    list.InitializeCtrl(nullptr, nullptr);
    EXPECT_TRUE(list.GetValueToPreset());
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(4));
}

TEST(PopupControl, EverythingToleratesAMissingViewAndTable) {
    PopupControlEMFSpecialPages list;
    list.CreateControl(nullptr, nullptr, nullptr, nullptr, {});
    EXPECT_TRUE(list.InitializeCtrl(nullptr, nullptr)) << "without a table there is no menu to make";
    EXPECT_FALSE(list.SetControlValueToUI());
    EXPECT_EQ(list.GetValueFromUI(), nullptr);
    list.SetValueFromUIToControl();
    EXPECT_TRUE(list.SimulationUIEventHandler());
    EXPECT_TRUE(list.SetControlValueToDefault());
    EXPECT_FALSE(list.isChoiceConflicted("A:x", "B", "y", nullptr));
    list.CreateControl(nullptr, &kIniData, nullptr, nullptr, {});
    EXPECT_FALSE(list.InitializeMenu(nullptr, nullptr));
    EXPECT_FALSE(list.InitializeCtrl(nullptr, nullptr));
}

TEST(PopupControl, AsksThePanelsIndexForConflicts) {
    PpdBuilder ppd;
    ppd.option("A").choices({"w", "x"}).option("B").choices({"w", "y"}).constraint("A", "x", "B", "y");
    TestPanel panel;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, nullptr, nullptr, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "x", ppd.file())) << "no index";
    auto index = std::make_shared<ConstraintIndex>();
    const std::vector<std::string> keywords{"A", "B"};
    compile_constraints(ppd.file(), index.get(), keywords);
    panel.SetxppdPtr(index);
    EXPECT_TRUE(list.isChoiceConflicted("B:y", "A", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "w", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("A:x", "B", "y", ppd.file()));
}

} // namespace
} // namespace specialpages::test
