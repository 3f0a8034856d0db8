#include "controls/SPIconViewCtrlEMF.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/IconView.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::LocalizedBundle;
using test::PluginBundle;
using test::TaggedView;

TEST(IconViewControl, GivesTheViewItsTag) {
    platform::IconView view;
    view.setTag(3);
    SPIconViewCtrlEMF control;
    control.CreateControl(&view, 12, "AddCovers.bmp");
    EXPECT_EQ(view.tag(), 12);
    EXPECT_EQ(control.GetControlPtr(), &view);
    EXPECT_TRUE(view.image().empty()) << "nothing is drawn before the control is initialized";
}

TEST(IconViewControl, ShowsThePictureOfThePanesBundle) {
    LocalizedBundle own;
    LocalizedBundle given;
    const PluginBundle plugin(own.shared());
    platform::IconView view;
    SPIconViewCtrlEMF control;
    control.CreateControl(&view, 12, "AddCovers.bmp");
    EXPECT_TRUE(control.InitializeCtrl(given.get(), nullptr));
    EXPECT_EQ(view.image(), own.get()->CFBundleCopyBundleURL() / "AddCovers.bmp");
}

TEST(IconViewControl, WithoutAPaneBundleShowsNothing) {
    LocalizedBundle given;
    const PluginBundle none(nullptr);
    platform::IconView view;
    SPIconViewCtrlEMF control;
    control.CreateControl(&view, 12, "AddCovers.bmp");
    EXPECT_TRUE(control.InitializeCtrl(given.get(), nullptr));
    EXPECT_TRUE(view.image().empty());
}

TEST(IconViewControl, ToleratesAMissingViewAndAnotherKind) {
    LocalizedBundle own;
    const PluginBundle plugin(own.shared());
    SPIconViewCtrlEMF control;
    control.CreateControl(nullptr, 12, "AddCovers.bmp");
    EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
    TaggedView other(1);
    control.CreateControl(&other, 13, "AddCovers.bmp");
    EXPECT_EQ(other.tag(), 13);
    EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
}

} // namespace
} // namespace specialpages
