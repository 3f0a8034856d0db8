#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/control_fixtures.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::LocalizedBundle;
using test::NumberView;
using test::TaggedView;

class BaseButton : public testing::Test {
  protected:
    LocalizedBundle bundle_{{"SP Cancel Btn", "Abbrechen …"}};
    NumberView view_{1};
    BaseButtonEMFSpecialPages button_;
};

TEST_F(BaseButton, ShowsTheLocalizedTitle) {
    button_.CreateControl(&view_, "SP Cancel Btn");
    EXPECT_EQ(view_.title(), "");
    EXPECT_TRUE(button_.InitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(view_.title(), "Abbrechen …");
}

TEST_F(BaseButton, AKeyWithoutTranslationSaysSo) {
    button_.CreateControl(&view_, "SP Other Btn");
    EXPECT_TRUE(button_.InitializeTitle(bundle_.get()));
    EXPECT_EQ(view_.title(), "no translation");
}

TEST_F(BaseButton, WithoutAKeyAnswersFalseAndKeepsItsTitle) {
    view_.setTitle("of the nib");
    button_.CreateControl(&view_, nullptr);
    EXPECT_FALSE(button_.InitializeTitle(bundle_.get()));
    EXPECT_FALSE(button_.InitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(view_.title(), "of the nib");
}

TEST_F(BaseButton, WithoutBundleOrViewAnswersFalse) {
    button_.CreateControl(&view_, "SP Cancel Btn");
    EXPECT_FALSE(button_.InitializeTitle(nullptr));
    EXPECT_EQ(view_.title(), "");
    button_.CreateControl(nullptr, "SP Cancel Btn");
    EXPECT_FALSE(button_.InitializeTitle(bundle_.get()));
    TaggedView noButton(2);
    button_.CreateControl(&noButton, "SP Cancel Btn");
    EXPECT_FALSE(button_.InitializeTitle(bundle_.get()));
}

TEST_F(BaseButton, IsTitledAnewWhenADialogReopens) {
    button_.CreateControl(&view_, "SP Cancel Btn");
    view_.setTitle("old");
    EXPECT_TRUE(button_.ReInitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(view_.title(), "Abbrechen …");
    EXPECT_FALSE(button_.ReInitializeCtrl(nullptr, nullptr));
}

TEST_F(BaseButton, HasNoValue) {
    button_.CreateControl(&view_, "SP Cancel Btn");
    button_.InitializeCtrl(bundle_.get(), nullptr);
    EXPECT_FALSE(button_.GetControlBlkPtr());
    EXPECT_FALSE(button_.GetValueFromUIDataBlk());
    EXPECT_EQ(button_.GetValueFromUI(), nullptr);
}

} // namespace
} // namespace specialpages
