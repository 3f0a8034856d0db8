#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/Button.h"

#include <gtest/gtest.h>

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
    ~UnitRadios() override { ResetGestalt_ALT(); }

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
    for (const char* release : {"11.4.0", "12.0.0"}) {
        platform::set_kernel_release_source([release] { return std::string(release); });
        ResetGestalt_ALT();
        group.SetcurRadio(0);
        millimetresView.setIntValue(0);
        millimetres.GetValueFromUIDataBlk() = 1;
        millimetres.Update();
        const bool simulated = millimetres.GetValueFromUIDataBlk() == ValueBlock(0);
        EXPECT_EQ(simulated, system_version() >= 4224) << release;
    }
    platform::set_kernel_release_source(nullptr);
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

} // namespace
} // namespace specialpages::test
