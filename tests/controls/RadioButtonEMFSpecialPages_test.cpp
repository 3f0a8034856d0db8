#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/Button.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::test {
namespace {

constexpr RadioIniData kOff{.defaultState = 0, .initial = -1, .titleKey = nullptr};
constexpr RadioIniData kOn{.defaultState = 1, .initial = -1, .titleKey = nullptr};

/// Inches and millimetres: each hides its own fields while it is off, and its update row names the sister.
class UnitRadios : public ::testing::Test {
  protected:
    UnitRadios()
        : inchesView(platform::ViewKind::radio), millimetresView(platform::ViewKind::radio),
          hideInches{{712}}, hideMillimetres{{713}}, updateInches{{717}}, updateMillimetres{{716}},
          inchesRecord{.disable = {}, .hide = hideInches.all(), .update = updateInches.all()},
          millimetresRecord{.disable = {}, .hide = hideMillimetres.all(), .update = updateMillimetres.all()} {
        group.RadioGroup();
        make(inches, inchesView, 716, kOff, inchesRecord);
        make(millimetres, millimetresView, 717, kOn, millimetresRecord);
        field(inchField, inchControl, 712);
        field(millimetreField, millimetreControl, 713);
    }

    void make(RadioButtonEMFSpecialPages& radio, platform::Button& view, ControlTag tag,
              const RadioIniData& ini, const ConstraintRecord& record) {
        view.setTag(tag);
        radio.RadioButton(&view, &ini, &record, nullptr, {});
        group.RunTimeAddNewControl(&radio);
        panel.RunTimeAddNewControl(&radio);
        // Blocks without a title to translate.
        radio.GetControlBlkPtr() = 0;
        radio.GetValueFromUIDataBlk() = 0;
        radio.setTargetandAction();
    }
    void field(TaggedView& view, BaseControlEMFSpecialPages& control, ControlTag) {
        control.CreateControl(&view);
        panel.RunTimeAddNewControl(&control);
    }
    void open() {
        panel.SetUIDataToIniData();
        inches.SetControlValueToDefault();
        millimetres.SetControlValueToDefault();
        panel.SetCurrentValueToUI();
    }

    platform::Button inchesView, millimetresView;
    TaggedView inchField{712}, millimetreField{713};
    Rows hideInches, hideMillimetres, updateInches, updateMillimetres;
    ConstraintRecord inchesRecord, millimetresRecord;
    RadioGroupEMFSpecialPages group;
    RadioButtonEMFSpecialPages inches, millimetres;
    BaseControlEMFSpecialPages inchControl, millimetreControl;
    TestPanel panel;
};

TEST_F(UnitRadios, OpeningHidesTheFieldsOfTheUnitThatIsOff) {
    open();
    EXPECT_TRUE(inchField.isHidden());
    EXPECT_FALSE(millimetreField.isHidden());
    EXPECT_EQ(group.GetcurRadio(), 1);
}

TEST_F(UnitRadios, ChoosingOneClearsTheSisterAndSwapsTheFields) {
    open();
    ASSERT_TRUE(inchesView.click());
    EXPECT_EQ(inchesView.intValue(), 1);
    EXPECT_EQ(millimetresView.intValue(), 0);
    EXPECT_EQ(group.GetcurRadio(), 0);
    EXPECT_FALSE(inchField.isHidden());
    EXPECT_TRUE(millimetreField.isHidden());
    ASSERT_TRUE(millimetresView.click());
    EXPECT_TRUE(inchField.isHidden());
    EXPECT_FALSE(millimetreField.isHidden());
}

TEST_F(UnitRadios, ChoosingTheOneThatIsOnChangesNothing) {
    open();
    ASSERT_TRUE(millimetresView.click());
    EXPECT_EQ(millimetresView.intValue(), 1);
    EXPECT_EQ(inchesView.intValue(), 0);
    EXPECT_EQ(inchControl.hideCount(), 1);
}

TEST_F(UnitRadios, AGroupWhereNoneIsOnTakesTheFirstWithoutSettingItsView) {
    group.RadioGroup();
    group.RunTimeAddNewControl(&inches);
    group.RunTimeAddNewControl(&millimetres);
    EXPECT_EQ(group.GetcurRadio(), -1);
    millimetres.SimulationUIEventHandler();
    EXPECT_EQ(group.GetcurRadio(), 0);
    EXPECT_EQ(inchesView.intValue(), 0);
}

TEST_F(UnitRadios, TheCurrentIndexStaysInsideTheGroup) {
    group.SetcurRadio(1);
    group.SetcurRadio(2);
    EXPECT_EQ(group.GetcurRadio(), 1);
    group.SetcurRadio(-1);
    EXPECT_EQ(group.GetcurRadio(), 1);
}

TEST_F(UnitRadios, TheSisterIsTheFirstWithAnotherTag) {
    EXPECT_EQ(inches.GetRadioIndex(), 0);
    EXPECT_EQ(millimetres.GetRadioIndex(), 1);
    EXPECT_EQ(inches.GetAnotherRadioCtrlFromGroup(), &millimetres);
    EXPECT_EQ(millimetres.GetAnotherRadioCtrlFromGroup(), &inches);
    millimetresView.setTag(716);
    EXPECT_EQ(inches.GetAnotherRadioCtrlFromGroup(), &millimetres) << "all have the same tag: the last one";
}

TEST_F(UnitRadios, BelowSystem10_8ARadioThatIsOffIsNotClearedAgain) {
    const auto runsItsConstraints = [this](const char* release, std::int32_t version) {
        const KernelRelease kernel(release);
        EXPECT_EQ(system_version(), version);
        group.SetcurRadio(0);
        millimetresView.setIntValue(0);
        millimetres.GetValueFromUIDataBlk() = 1;
        EXPECT_EQ(millimetres.Update(), 0);
        return millimetres.GetValueFromUIDataBlk() == ValueBlock(0);
    };
    EXPECT_FALSE(runsItsConstraints("11.15.0", 4223));
    EXPECT_TRUE(runsItsConstraints("12.0.0", 4224));
}

TEST_F(UnitRadios, TheCurrentRadioIsNotClearedByAnUpdateOnAnySystem) {
    for (const char* release : {"11.15.0", "12.0.0"}) {
        const KernelRelease kernel(release);
        group.SetcurRadio(1);
        millimetresView.setIntValue(1);
        millimetres.Update();
        EXPECT_EQ(millimetresView.intValue(), 1) << release;
    }
}

TEST_F(UnitRadios, AnEventBringsTheUIBlockOfEveryButtonUpToDate) {
    open();
    millimetres.GetValueFromUIDataBlk() = 7;
    ASSERT_TRUE(inchesView.click());
    EXPECT_EQ(inches.GetValueFromUIDataBlk(), ValueBlock(1));
    EXPECT_EQ(millimetres.GetValueFromUIDataBlk(), ValueBlock(0));
}

TEST_F(UnitRadios, ASimulationReadsItsOwnButtonAlone) {
    open();
    inches.GetValueFromUIDataBlk() = 7;
    EXPECT_TRUE(millimetres.SimulationUIEventHandler());
    EXPECT_EQ(inches.GetValueFromUIDataBlk(), ValueBlock(7));
    EXPECT_EQ(millimetres.GetValueFromUIDataBlk(), ValueBlock(1));
    EXPECT_EQ(group.GetcurRadio(), 1) << "a group that has a current button keeps it";
}

TEST_F(UnitRadios, AButtonThatIsNotInTheGroupLeavesTheCurrentOne) {
    group.SetcurRadio(1);
    platform::Button view(platform::ViewKind::radio);
    view.setTag(998);
    RadioButtonEMFSpecialPages outsider;
    outsider.RadioButton(&view, nullptr, nullptr, nullptr, {});
    outsider.SetCtrlGrp(&group);
    EXPECT_EQ(outsider.GetRadioIndex(), -1);
    outsider.SetGrpcurRadio();
    EXPECT_EQ(group.GetcurRadio(), 1);
}

TEST_F(UnitRadios, APositiveCommittedStateMakesTheButtonCurrentAndZeroDoesNot) {
    inches.GetControlBlkPtr() = 0;
    EXPECT_TRUE(inches.SetControlValueToUI());
    EXPECT_EQ(group.GetcurRadio(), -1);
    inches.GetControlBlkPtr() = -1;
    EXPECT_TRUE(inches.SetControlValueToUI());
    EXPECT_EQ(group.GetcurRadio(), -1);
    millimetres.GetControlBlkPtr() = 1;
    EXPECT_TRUE(millimetres.SetControlValueToUI());
    EXPECT_EQ(group.GetcurRadio(), 1);
    EXPECT_EQ(millimetresView.intValue(), 1);
}

TEST_F(UnitRadios, TheGroupReadsAllItsButtonsAndHasNoValue) {
    inchesView.setIntValue(1);
    millimetresView.setIntValue(1);
    EXPECT_EQ(group.GetValueFromUI(), nullptr);
    EXPECT_EQ(inches.GetValueFromUIDataBlk(), ValueBlock(1));
    EXPECT_EQ(millimetres.GetValueFromUIDataBlk(), ValueBlock(1));
    EXPECT_EQ(group.buttons().size(), 2U);
    EXPECT_EQ(group.RunTimeAddNewControl(nullptr), 2) << "no button is no member";
    EXPECT_EQ(group.buttons().size(), 2U);
}

TEST_F(UnitRadios, ValuesFromOutside) {
    EXPECT_TRUE(millimetres.SetExternalValueToUI(1, 4));
    EXPECT_EQ(group.GetcurRadio(), 1);
    millimetresView.setEnabled(false);
    EXPECT_FALSE(millimetres.SetExternalValueToUI(0, 4)) << "a disabled view";
    EXPECT_EQ(millimetresView.intValue(), 0);
    EXPECT_TRUE(inches.setExternalValueToData(1, 4, 7)) << "whatever the value type";
    EXPECT_EQ(inches.GetControlBlkPtr(), ValueBlock(1));
    EXPECT_EQ(group.GetcurRadio(), 0);
}

TEST(RadioButton, WithoutAViewTheBlockIsAnsweredAsItIs) {
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(nullptr, nullptr, nullptr, nullptr, {});
    EXPECT_EQ(radio.GetValueFromUI(), nullptr);
    EXPECT_TRUE(radio.InitializeCtrl(nullptr, nullptr)) << "without a table it counts as done";
    radio.GetValueFromUIDataBlk() = 1;
    ASSERT_NE(radio.GetValueFromUI(), nullptr);
    EXPECT_EQ(*radio.GetValueFromUI(), ValueBlock(1));
    EXPECT_EQ(radio.Update(), 0);
    EXPECT_EQ(radio.GetRadioIndex(), -1);
    EXPECT_EQ(radio.GetAnotherRadioCtrlFromGroup(), nullptr);
    EXPECT_TRUE(radio.UIEventHandler());
    EXPECT_FALSE(radio.SetControlValueToUI());
    EXPECT_FALSE(radio.SetExternalValueToUI(1, 4));
}

TEST(RadioButton, DisablesBeforeItEnables) {
    const Rows rows{{5}, {5}};
    const ConstraintRecord record{.disable = rows.all(), .hide = {}, .update = {}};
    TestPanel panel;
    platform::Button view(platform::ViewKind::radio);
    view.setTag(1);
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(&view, &kOff, &record, nullptr, {});
    panel.RunTimeAddNewControl(&radio);
    TaggedView field(5);
    BaseControlEMFSpecialPages control;
    control.CreateControl(&field);
    panel.RunTimeAddNewControl(&control);
    radio.GetValueFromUIDataBlk() = 0;
    int announced = 0;
    control.Disable();
    field.addObserver([&](platform::View&, platform::ViewChange) { ++announced; });
    view.setIntValue(1);
    radio.DoControlConstrain();
    EXPECT_EQ(control.constrainCount(), 1);
    EXPECT_EQ(announced, 0) << "the count goes up first, so that the view never comes on in between";
}

TEST(RadioButton, ShowsTheLocalizedTitleOfItsTable) {
    const LocalizedBundle bundle{{"SP Inches", "Zoll"}};
    constexpr RadioIniData kInches{.defaultState = 0, .initial = -1, .titleKey = "SP Inches"};
    constexpr RadioIniData kOther{.defaultState = 0, .initial = -1, .titleKey = "SP Other"};
    platform::Button view(platform::ViewKind::radio);
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(&view, &kInches, nullptr, nullptr, {});
    EXPECT_EQ(radio.GetDataBlkSize(), 4U) << "from here on";
    EXPECT_FALSE(radio.GetControlBlkPtr());
    EXPECT_TRUE(radio.InitializeCtrl(bundle.get(), nullptr));
    EXPECT_EQ(view.title(), "Zoll");
    EXPECT_EQ(radio.GetControlBlkPtr(), ValueBlock(0));
    EXPECT_EQ(radio.GetValueFromUIDataBlk(), ValueBlock(0));
    radio.RadioButton(&view, &kOther, nullptr, nullptr, {});
    EXPECT_TRUE(radio.InitializeCtrl(bundle.get(), nullptr));
    EXPECT_EQ(view.title(), "no translation");
}

TEST(RadioButton, WithoutATitleToShowIsNotReady) {
    const LocalizedBundle bundle;
    constexpr RadioIniData kInches{.defaultState = 0, .initial = -1, .titleKey = "SP Inches"};
    platform::Button view(platform::ViewKind::radio);
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(&view, &kInches, nullptr, nullptr, {});
    EXPECT_FALSE(radio.InitializeCtrl(nullptr, nullptr)) << "no bundle";
    radio.RadioButton(nullptr, &kInches, nullptr, nullptr, {});
    EXPECT_FALSE(radio.InitializeCtrl(bundle.get(), nullptr)) << "no view";
    radio.RadioButton(&view, &kOff, nullptr, nullptr, {});
    EXPECT_FALSE(radio.InitializeCtrl(bundle.get(), nullptr)) << "no key";
    EXPECT_FALSE(radio.GetControlBlkPtr());
}

TEST(RadioButton, ReadsItsStateFromThePrintSettingsAndShowsIt) {
    constexpr AccessInfo kAccess{.ticketKey = "com.example.state", .preferenceKey = nullptr};
    platform::PrintSettings settings;
    TestPanel panel;
    platform::Button view(platform::ViewKind::radio);
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(&view, nullptr, nullptr, &kAccess, {});
    EXPECT_FALSE(radio.GetValueToPreset()) << "no panel";
    panel.RunTimeAddNewControl(&radio);
    EXPECT_FALSE(radio.GetValueToPreset()) << "no settings";
    panel.SetCurrentPMPrintSettings(&settings);
    EXPECT_FALSE(radio.GetValueToPreset()) << "no value";
    settings.setValue("com.example.state", "1", false);
    EXPECT_FALSE(radio.GetValueToPreset()) << "no data block";
    EXPECT_EQ(view.intValue(), 0);
    ASSERT_TRUE(radio.InitializeCtrl(nullptr, nullptr));
    EXPECT_TRUE(radio.GetValueToPreset());
    EXPECT_EQ(radio.GetControlBlkPtr(), ValueBlock(1));
    EXPECT_EQ(view.intValue(), 1);
    settings.setValue("com.example.state", std::vector<std::string>{"0"}, false);
    EXPECT_FALSE(radio.GetValueToPreset()) << "an array is no number";
    settings.setValue("com.example.state", "off", false);
    EXPECT_TRUE(radio.GetValueToPreset());
    EXPECT_EQ(radio.GetControlBlkPtr(), ValueBlock(0)) << "a text without digits is 0";
}

TEST(RadioButton, WithoutBlocksAnswersFalseOrNull) {
    platform::Button view(platform::ViewKind::radio);
    RadioButtonEMFSpecialPages radio;
    radio.RadioButton(&view, &kOn, nullptr, nullptr, {});
    EXPECT_FALSE(radio.SetControlValueToUI());
    EXPECT_EQ(radio.GetValueFromUI(), nullptr);
    EXPECT_TRUE(radio.setExternalValueToData(1, 4, 2));
    EXPECT_FALSE(radio.GetControlBlkPtr());
    EXPECT_TRUE(radio.UIEventHandler());
    EXPECT_TRUE(radio.SimulationUIEventHandler());
    std::string text = "as it was";
    EXPECT_FALSE(radio.ConvertToTickectData(text));
    EXPECT_FALSE(radio.ConvertToPreferenceString(text));
    EXPECT_FALSE(radio.ConvertFromPreferenceString("1"));
    EXPECT_EQ(text, "as it was");
    EXPECT_FALSE(radio.SetExternalValueToUI(std::string("1"), 1)) << "a text is no state";
    EXPECT_EQ(radio.GetDefaultDataBlk(), ControlValue(1));
    EXPECT_EQ(radio.GetIniDataBlk(), ControlValue(-1));
}

} // namespace
} // namespace specialpages::test
