#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/number_pair_fixtures.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

#include <clocale>

namespace specialpages {
namespace {

using platform::ScriptedFace;
using test::kMM;
using test::kMMStepper;
using test::kNoKeys;
using test::kNoSuchTag;
using test::Rows;
using test::TextView;
using test::TwoUnits;
using Texts = std::vector<std::string>;

class NumberField : public testing::Test {
  protected:
    ScriptedFace face_;
    TwoUnits pane_;
};

TEST_F(NumberField, KeepsACopyOfItsRange) {
    EditValueRangeData range{3, 4};
    SPInchMMTextEditCtrlEMF field;
    field.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, nullptr, &range);
    range.maximum = 99;
    EXPECT_EQ(field.getRangeDataPtr()->minimum, 3);
    EXPECT_EQ(field.getRangeDataPtr()->maximum, 4);
    field.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, nullptr, nullptr);
    EXPECT_EQ(field.getRangeDataPtr()->maximum, 0);
}

TEST_F(NumberField, InstallsTheFormatterOfThePair) {
    TextView view(1);
    SPInchMMTextEditCtrlEMF field;
    field.CreateControl(&view, &kMM.field, nullptr, &kNoKeys, {}, &SPCustomSizeWidthMMFilterData, nullptr,
                        &kMM.range);
    field.InitializeCtrl(nullptr, nullptr);
    EXPECT_NE(dynamic_cast<SPInchMMTextEditFormatterEMF*>(view.formatter()), nullptr);
    field.CreateControl(&view, nullptr, nullptr, &kNoKeys, {}, &SPCustomSizeWidthMMFilterData, nullptr,
                        nullptr);
    field.InitializeCtrl(nullptr, nullptr);
    EXPECT_EQ(view.formatter(), nullptr) << "none without a table";
}

TEST_F(NumberField, FindsItsStepperAndItsTwin) {
    EXPECT_EQ(pane_.mm.GetLittleArrayForNumberEdit(), &pane_.mmStepper);
    EXPECT_EQ(pane_.mm.GetTextEditForNumberEdit(), &pane_.inch);
    EXPECT_EQ(pane_.inch.GetTextEditForNumberEdit(), &pane_.mm);
}

TEST_F(NumberField, FindsNobodyOutsideAPanelOrARow) {
    const Rows rows{{kMMStepper}, {kNoSuchTag, kMMStepper}};
    const ConstraintRecord stepperOnly{{}, {}, rows.all()};
    const ConstraintRecord wrong{{}, {}, rows.all().subspan(1)};
    SPInchMMTextEditCtrlEMF field;
    field.CreateControl(nullptr, nullptr, &stepperOnly, nullptr, {}, nullptr, nullptr, nullptr);
    EXPECT_EQ(field.GetLittleArrayForNumberEdit(), nullptr) << "no panel";
    field.SetParenetPanel(&pane_.panel);
    EXPECT_EQ(field.GetLittleArrayForNumberEdit(), &pane_.mmStepper);
    EXPECT_EQ(field.GetTextEditForNumberEdit(), nullptr) << "no second tag";
    field.CreateControl(nullptr, nullptr, &wrong, nullptr, {}, nullptr, nullptr, nullptr);
    field.SetParenetPanel(&pane_.panel);
    EXPECT_EQ(field.GetLittleArrayForNumberEdit(), nullptr) << "no such control";
    EXPECT_EQ(field.GetTextEditForNumberEdit(), nullptr) << "a stepper is no field";
    field.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, nullptr, nullptr);
    field.SetParenetPanel(&pane_.panel);
    EXPECT_EQ(field.GetTextEditForNumberEdit(), nullptr) << "no record";
}

TEST_F(NumberField, AnEmptyNumberFieldShowsTheMessage) {
    pane_.mmView->setStringValue("");
    EXPECT_FALSE(pane_.mm.InvalidateData());
    ASSERT_EQ(face_.alerts().size(), 1U);
    EXPECT_EQ(face_.alerts()[0].informativeText, "Not this width.");
    EXPECT_EQ(pane_.window.firstResponder(), pane_.mmView.get());
}

TEST_F(NumberField, AnEmptyNumberFieldPassesWhenOnlyErrorsAreAskedFor) {
    pane_.mmView->setStringValue("");
    EXPECT_TRUE(pane_.mm.InvalidateDataAndReturnError());
    EXPECT_TRUE(face_.alerts().empty());
}

TEST_F(NumberField, TheLengthIsTestedByOneCheckOnly) {
    pane_.mmView->setStringValue("0210.00"); // seven columns
    EXPECT_TRUE(pane_.mm.InvalidateDataAndReturnError());
    EXPECT_FALSE(pane_.mm.InvalidateData());
    EXPECT_EQ(face_.alerts().size(), 1U);
    pane_.mmView->setStringValue("0210.0");
    EXPECT_TRUE(pane_.mm.InvalidateData()) << "exactly the maximum";
}

TEST_F(NumberField, ANumberOutsideTheRangeIsRefusedOnce) {
    pane_.mmView->setStringValue("330.1");
    EXPECT_FALSE(pane_.mm.InvalidateDataAndReturnError());
    EXPECT_FALSE(pane_.mm.InvalidateData());
    EXPECT_EQ(face_.alerts().size(), 1U);
    pane_.mmView->setStringValue("330.0");
    EXPECT_TRUE(pane_.mm.InvalidateData());
    EXPECT_TRUE(pane_.mm.InvalidateDataAndReturnError());
}

TEST_F(NumberField, WhatRefusesBeforehandRefusesInBothChecks) {
    pane_.mmView->setStringValue("");
    pane_.mm.preInvalidateAnswer = false;
    EXPECT_FALSE(pane_.mm.InvalidateDataAndReturnError()) << "an empty field too";
    pane_.mmView->setStringValue("210.0");
    EXPECT_FALSE(pane_.mm.InvalidateData());
}

TEST_F(NumberField, ADisabledFieldWithInvalidTextPasses) {
    pane_.mmView->setStringValue("1");
    EXPECT_FALSE(pane_.mm.InvalidateDataAndReturnError());
    pane_.mm.Disable();
    EXPECT_TRUE(pane_.mm.InvalidateData());
    EXPECT_TRUE(pane_.mm.InvalidateDataAndReturnError());
    EXPECT_TRUE(face_.alerts().empty());
}

TEST_F(NumberField, AHiddenFieldWithInvalidTextPasses) {
    pane_.mmView->setStringValue("1");
    pane_.mm.Hide();
    EXPECT_TRUE(pane_.mm.InvalidateData());
    EXPECT_TRUE(pane_.mm.InvalidateDataAndReturnError());
}

TEST_F(NumberField, WithoutATableThereIsNothingToObjectTo) {
    TextView view(1);
    SPInchMMTextEditCtrlEMF field;
    field.CreateControl(&view, nullptr, nullptr, &kNoKeys, {}, nullptr, nullptr, nullptr);
    EXPECT_TRUE(field.InvalidateData()) << "no block either";
    field.InitializeCtrl(nullptr, nullptr);
    view.setStringValue("anything");
    EXPECT_TRUE(field.InvalidateData());
    EXPECT_TRUE(field.IsNumberValid("anything"));
}

TEST_F(NumberField, LeavingItUpdatesItselfAndThenItsNeighbours) {
    pane_.mmView->setStringValue("210.0");
    pane_.clearJournals();
    pane_.mm.OnLostFocus();
    EXPECT_EQ(pane_.mm.journal, Texts{"update"});
    EXPECT_EQ(pane_.inch.journal, Texts{"update"});
}

TEST_F(NumberField, WhatIsTypedReachesStepperAndHiddenTwin) {
    EXPECT_TRUE(pane_.mmView->type("150.0"));
    EXPECT_EQ(pane_.mm.GetUIData(), "150.0");
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1500);
    EXPECT_EQ(pane_.inchView->shownText(), "5.91");
    EXPECT_EQ(pane_.inch.GetUIData(), "5.91");
    EXPECT_EQ(pane_.inchStepperView->intValue(), 591);
}

TEST_F(NumberField, WhatIsTypedStandsAsItWasTyped) {
    EXPECT_TRUE(pane_.mmView->type("150"));
    EXPECT_EQ(pane_.mmView->stringValue(), "150") << "no neighbour prints it anew";
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1500);
}

TEST_F(NumberField, AnInvalidTextReachesNobody) {
    pane_.mmView->setStringValue("150.0");
    pane_.clearJournals();
    EXPECT_TRUE(pane_.mmView->type("999.9"));
    EXPECT_EQ(pane_.mmView->stringValue(), "999.9") << "it stands until the dialog is to close";
    EXPECT_EQ(pane_.mm.GetUIData(), "150.0");
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1500);
    EXPECT_TRUE(pane_.mm.journal.empty());
    EXPECT_EQ(pane_.inch.journal, Texts{"update"}) << "from the raw text, which is the old one";
    EXPECT_EQ(pane_.inchView->shownText(), "5.91");
}

TEST_F(NumberField, WhatAProgramSetsReachesStepperAndTwinToo) {
    EXPECT_TRUE(pane_.mm.SetExternalValueToUI(ControlValue{"150.0"}, 5));
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1500);
    EXPECT_EQ(pane_.inchView->shownText(), "5.91");
}

TEST_F(NumberField, TwinsThatAnswerEachOtherEndAfterOneAnswer) {
    pane_.mm.updatesWhileShown = true;
    pane_.inch.updatesWhileShown = true;
    EXPECT_TRUE(pane_.mmView->type("210.0"));
    EXPECT_EQ(pane_.mm.journal, (Texts{"raw 210.0", "update"}));
    EXPECT_EQ(pane_.inch.journal, (Texts{"update", "raw 8.27", "update"}))
        << "once more as the field is left";
    EXPECT_EQ(pane_.mmView->stringValue(), "210.0") << "8.27 inches would be 210.1";
    EXPECT_EQ(pane_.mmStepperView->intValue(), 2100);
    EXPECT_EQ(pane_.mm.uiText(), "210.0");
}

TEST_F(NumberField, TheSameTextTwiceTellsNobodyAgain) {
    EXPECT_TRUE(pane_.mmView->type("150.0"));
    pane_.clearJournals();
    EXPECT_TRUE(pane_.mmView->type("150.0"));
    EXPECT_TRUE(pane_.mm.journal.empty());
    EXPECT_TRUE(pane_.mm.SetExternalValueToUI(ControlValue{"150.0"}, 5));
    EXPECT_TRUE(pane_.mm.journal.empty());
}

TEST_F(NumberField, AFieldThatIsReopenedTellsItsTextAgain) {
    EXPECT_TRUE(pane_.mm.SetExternalValueToUI(ControlValue{"150.0"}, 5));
    pane_.mmStepperView->setIntValue(1000);
    pane_.mm.ReInitializeCtrl(nullptr, nullptr);
    EXPECT_TRUE(pane_.mm.SetExternalValueToUI(ControlValue{"150.0"}, 5));
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1500);
}

TEST_F(NumberField, NumbersDoNotDependOnTheProcessLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const bool comma = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    EXPECT_TRUE(pane_.mmView->type("150.5"));
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(pane_.mmStepperView->intValue(), 1505) << (comma ? "under a comma locale" : "");
}

TEST_F(NumberField, AValidatedFieldDoesNotStopTheOthersOfItsWindow) {
    pane_.mmView->setStringValue("1");
    pane_.inchView->setStringValue("99");
    EXPECT_TRUE(pane_.inch.InvalidateData()) << "hidden";
    EXPECT_FALSE(pane_.mm.InvalidateData());
    EXPECT_EQ(face_.alerts().size(), 1U);
}

} // namespace
} // namespace specialpages
