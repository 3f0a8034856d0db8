#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/text_fixtures.h"

#include <gtest/gtest.h>

#include <limits>

namespace specialpages {
namespace {

using test::held;
using test::kNoKeys;
using test::kTicketKey;
using test::StepperView;
using test::TaggedView;
using test::TestPanel;

constexpr LittleArrayIniData kWidth{2100, -1, 1000, 3300, 5};

class LittleArray : public testing::Test {
  protected:
    LittleArray() {
        control_.LittleArrayControl(&view_, &kWidth, nullptr, &kTicketKey, {}, "Width Title");
        control_.InitializeCtrl(nullptr, nullptr);
        panel_.RunTimeAddNewControl(&control_);
    }
    std::int32_t data() { return held<std::int32_t>(control_.GetControlBlkPtr()); }
    std::int32_t ui() { return held<std::int32_t>(control_.GetValueFromUIDataBlk()); }
    void setData(std::int32_t value) { control_.setExternalValueToData(ControlValue{value}, 4, 2); }

    StepperView view_{13};
    LittleArrayEMFSpecialPages control_;
    TestPanel panel_;
};

TEST_F(LittleArray, BeginsWithTheDefaultAsItsLastValue) {
    LittleArrayEMFSpecialPages fresh;
    fresh.LittleArrayControl(&view_, &kWidth, nullptr, nullptr, {}, nullptr);
    EXPECT_EQ(fresh.getLastValue(), 2100);
    EXPECT_EQ(fresh.GetDataBlkSize(), 4U);
    fresh.LittleArrayControl(&view_, nullptr, nullptr, nullptr, {}, nullptr);
    EXPECT_EQ(fresh.getLastValue(), 0);
}

TEST_F(LittleArray, GivesItsViewTheRangeAndTheStepOfTheTable) {
    EXPECT_EQ(view_.minValue(), 1000.0);
    EXPECT_EQ(view_.maxValue(), 3300.0);
    EXPECT_EQ(view_.increment(), 5);
    EXPECT_EQ(data(), 0);
    EXPECT_EQ(ui(), 0);
}

TEST_F(LittleArray, ReInitializingMakesBlocksAndRangeAnew) {
    setData(2000);
    view_.setIntValue(2500);
    control_.GetValueFromUI();
    view_.setRange(0, 1);
    EXPECT_TRUE(control_.ReInitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(data(), 0);
    EXPECT_EQ(ui(), 0);
    EXPECT_EQ(view_.maxValue(), 3300.0);
}

TEST_F(LittleArray, ValueGoesToTheViewAndBack) {
    setData(1500);
    EXPECT_TRUE(control_.SetControlValueToUI());
    EXPECT_EQ(view_.intValue(), 1500);
    EXPECT_TRUE(control_.SetExternalValueToUI(ControlValue{1600}, 4));
    EXPECT_EQ(view_.intValue(), 1600);
    const ValueBlock* block = control_.GetValueFromUI();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(held<std::int32_t>(*block), 1600);
    EXPECT_EQ(data(), 1500);
    control_.SetValueFromUIToControl();
    EXPECT_EQ(data(), 1600);
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{"1700"}, 4)) << "a text is no number";
    EXPECT_EQ(view_.intValue(), 1600);
}

TEST_F(LittleArray, TakesDefaultAndInitialValueFromTheTable) {
    EXPECT_TRUE(control_.SetControlValueToDefault());
    EXPECT_EQ(data(), 2100);
    EXPECT_TRUE(control_.SetUIValueToIniData());
    EXPECT_EQ(ui(), -1);
}

TEST_F(LittleArray, ShowingTheDefaultChangesNoView) {
    view_.setIntValue(1800);
    EXPECT_TRUE(control_.GetValueFromUI() != nullptr);
    setData(1800);
    EXPECT_TRUE(control_.SetDefaultValueToUI());
    EXPECT_EQ(view_.intValue(), 1800);
    EXPECT_EQ(data(), 1800);
    EXPECT_EQ(control_.getLastValue(), 2100);
}

TEST_F(LittleArray, ReadsItsValueFromThePrintSettings) {
    platform::PrintSettings settings;
    ASSERT_EQ(platform::PMPrintSettingsSetValue(&settings, kTicketKey.ticketKey, std::string("1234"), false),
              platform::noErr);
    EXPECT_FALSE(control_.GetValueToPreset()) << "no settings yet";
    panel_.SetCurrentPMPrintSettings(&settings);
    EXPECT_TRUE(control_.GetValueToPreset());
    EXPECT_EQ(data(), 1234);
    EXPECT_EQ(view_.intValue(), 1234);
    EXPECT_EQ(control_.getLastValue(), 1234);
}

TEST_F(LittleArray, APresetWithoutKeyOrBlockIsRefused) {
    platform::PrintSettings settings;
    platform::PMPrintSettingsSetValue(&settings, kTicketKey.ticketKey, std::string("1234"), false);
    panel_.SetCurrentPMPrintSettings(&settings);
    control_.LittleArrayControl(&view_, &kWidth, nullptr, &kTicketKey, {}, nullptr);
    control_.SetParenetPanel(&panel_);
    EXPECT_FALSE(control_.GetValueToPreset()) << "no block";
    control_.LittleArrayControl(&view_, &kWidth, nullptr, &kNoKeys, {}, nullptr);
    control_.SetParenetPanel(&panel_);
    control_.InitializeCtrl(nullptr, nullptr);
    EXPECT_FALSE(control_.GetValueToPreset()) << "no key";
    EXPECT_EQ(control_.getLastValue(), 2100);
}

TEST_F(LittleArray, WritesATicketOnlyFromWithinItsRange) {
    platform::PrintSettings settings;
    for (const std::int32_t refused : {999, 3301, -1, std::numeric_limits<std::int32_t>::min()}) {
        setData(refused);
        EXPECT_FALSE(control_.SetValueToTicket(&settings, false)) << refused;
        EXPECT_EQ(test::settings_text(settings, kTicketKey.ticketKey), "(none)");
    }
    setData(1000);
    EXPECT_TRUE(control_.SetValueToTicket(&settings, false));
    EXPECT_EQ(test::settings_text(settings, kTicketKey.ticketKey), "1000");
    setData(3300);
    EXPECT_TRUE(control_.SetValueToTicket(&settings, false, {}));
    EXPECT_EQ(test::settings_text(settings, kTicketKey.ticketKey), "3300");
}

TEST_F(LittleArray, ConvertsAsPlainDecimalText) {
    std::string text;
    setData(-12);
    EXPECT_TRUE(control_.ConvertToPreferenceString(text));
    EXPECT_EQ(text, "-12");
    EXPECT_TRUE(control_.ConvertFromPreferenceString("77x"));
    EXPECT_EQ(data(), 77);
    EXPECT_TRUE(control_.ConvertToTickectData(text));
    EXPECT_EQ(text, "77");
}

TEST_F(LittleArray, PutsItsValueIntoTheSummaryInTenths) {
    SummaryText summary;
    std::vector<std::string> order;
    setData(2105);
    EXPECT_EQ(control_.GetSummaryText(&summary, &order), 0);
    EXPECT_EQ(summary, (SummaryText{{"Width Title", "210.5"}}));
    EXPECT_EQ(order, std::vector<std::string>{"Width Title"});
}

TEST_F(LittleArray, SaysNothingInTheSummaryWhileHiddenOrDisabledOrWithoutContainers) {
    SummaryText summary;
    std::vector<std::string> order;
    EXPECT_EQ(control_.GetSummaryText(nullptr, &order), 0);
    EXPECT_EQ(control_.GetSummaryText(&summary, nullptr), 0);
    control_.Hide();
    control_.GetSummaryText(&summary, &order);
    control_.Show();
    control_.Disable();
    control_.GetSummaryText(&summary, &order);
    control_.LittleArrayControl(&view_, &kWidth, nullptr, nullptr, {}, nullptr);
    control_.InitializeCtrl(nullptr, nullptr);
    control_.GetSummaryText(&summary, &order);
    EXPECT_TRUE(summary.empty());
    EXPECT_TRUE(order.empty());
}

TEST_F(LittleArray, WithoutAStepperOrTablesNothingHappens) {
    TaggedView noStepper(1);
    for (platform::View* view :
         {static_cast<platform::View*>(&noStepper), static_cast<platform::View*>(nullptr)}) {
        LittleArrayEMFSpecialPages control;
        control.LittleArrayControl(view, nullptr, nullptr, nullptr, {}, nullptr);
        EXPECT_EQ(control.GetValueFromUI(), nullptr);
        EXPECT_FALSE(control.SetControlValueToUI()) << "no block";
        EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
        EXPECT_TRUE(control.ReInitializeCtrl(nullptr, nullptr));
        EXPECT_FALSE(control.SetControlValueToUI()) << "no view";
        EXPECT_EQ(control.GetValueFromUI(), nullptr);
        EXPECT_TRUE(control.SetDefaultValueToUI());
        EXPECT_TRUE(control.SetControlValueToDefault());
        EXPECT_EQ(held<std::int32_t>(control.GetControlBlkPtr()), 0);
        platform::PrintSettings settings;
        EXPECT_FALSE(control.SetValueToTicket(&settings, false));
    }
}

TEST_F(LittleArray, WithoutATableTheRangeOfTheViewStands) {
    view_.setRange(1, 7);
    control_.LittleArrayControl(&view_, nullptr, nullptr, &kTicketKey, {}, nullptr);
    control_.InitializeCtrl(nullptr, nullptr);
    EXPECT_EQ(view_.maxValue(), 7.0);
    platform::PrintSettings settings;
    setData(99);
    EXPECT_TRUE(control_.SetValueToTicket(&settings, false)) << "no range to be outside of";
}

} // namespace
} // namespace specialpages
