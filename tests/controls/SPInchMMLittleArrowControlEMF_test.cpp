#include "controls/SPInchMMLittleArrowControlEMF.h"
#include "controls/number_pair_fixtures.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::ScriptedFace;
using test::kMM;
using test::kMMField;
using test::kMMStepper;
using test::kNoKeys;
using test::kNoSuchTag;
using test::Rows;
using test::StepperView;
using test::TwoUnits;
using Texts = std::vector<std::string>;

class PairStepper : public testing::Test {
  protected:
    PairStepper() {
        pane_.mm.SetExternalValueToUI(ControlValue{"210.0"}, 5);
        pane_.clearJournals();
    }
    ScriptedFace face_;
    TwoUnits pane_;
};

TEST_F(PairStepper, AClickReachesItsFieldAndTheHiddenTwin) {
    EXPECT_TRUE(pane_.mmStepperView->step(2101));
    EXPECT_EQ(pane_.mmView->shownText(), "210.1");
    EXPECT_EQ(pane_.mm.GetUIData(), "210.1");
    EXPECT_EQ(pane_.mmStepperView->intValue(), 2101);
    EXPECT_EQ(pane_.inchView->shownText(), "8.27");
    EXPECT_EQ(pane_.mmStepper.getLastValue(), 2101);
    EXPECT_EQ(face_.beeps(), 0);
}

TEST_F(PairStepper, AClickAtTheMaximumBeepsAndLeavesTheLastValue) {
    EXPECT_TRUE(pane_.mmStepperView->step(3300));
    ASSERT_EQ(pane_.mmStepper.getLastValue(), 3300);
    pane_.clearJournals();
    EXPECT_TRUE(pane_.mmStepperView->step(3301));
    EXPECT_EQ(face_.beeps(), 1);
    EXPECT_EQ(pane_.mmStepper.getLastValue(), 3300);
    EXPECT_EQ(pane_.mmView->shownText(), "330.0");
    EXPECT_TRUE(pane_.mm.journal.empty());
}

TEST_F(PairStepper, AClickOutsideTheTableBeepsWhateverTheViewAllows) {
    pane_.mmStepperView->setRange(0, 9999);
    EXPECT_TRUE(pane_.mmStepperView->step(3301));
    EXPECT_EQ(face_.beeps(), 1);
    EXPECT_EQ(pane_.mmStepper.getLastValue(), 2100);
    EXPECT_EQ(pane_.mmView->shownText(), "210.0");
    EXPECT_TRUE(pane_.mmStepperView->step(999));
    EXPECT_EQ(face_.beeps(), 2);
}

TEST_F(PairStepper, AClickOnTheLastValueBeeps) {
    EXPECT_TRUE(pane_.mmStepperView->step(2100)) << "the default counts as the last value";
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(PairStepper, AnInvalidFieldStopsTheClickWithItsMessageAndNoBeep) {
    pane_.mmView->setStringValue("1");
    EXPECT_TRUE(pane_.mmStepperView->step(2101));
    EXPECT_EQ(face_.beeps(), 0);
    ASSERT_EQ(face_.alerts().size(), 1U);
    EXPECT_EQ(face_.alerts()[0].informativeText, "Not this width.");
    EXPECT_EQ(pane_.mmStepper.getLastValue(), 2100);
    EXPECT_EQ(pane_.mmView->shownText(), "1");
}

TEST_F(PairStepper, TheClickCountsAlthoughTheFieldWasBeingEdited) {
    ASSERT_TRUE(pane_.mmView->editText("150.0"));
    EXPECT_TRUE(pane_.mmStepperView->step(2101));
    EXPECT_EQ(pane_.mmStepperView->intValue(), 2101);
    EXPECT_EQ(pane_.mmView->shownText(), "210.1");
}

TEST_F(PairStepper, SimulatesItsEventWhenItShowsItsValue) {
    pane_.mmStepper.setExternalValueToData(ControlValue{1500}, 4, 2);
    EXPECT_TRUE(pane_.mmStepper.SetControlValueToUI());
    EXPECT_EQ(pane_.mmView->shownText(), "150.0");
    EXPECT_EQ(pane_.inchView->shownText(), "5.91");
    EXPECT_EQ(pane_.mmStepper.getLastValue(), 2100) << "only a click moves it";
}

TEST_F(PairStepper, FindsItsField) {
    EXPECT_EQ(pane_.mmStepper.GetNumberEditFromLittleArrow(), &pane_.mm);
    const Rows rows{{}, {kNoSuchTag}, {kMMStepper}};
    for (std::size_t row = 0; row < 3; ++row) {
        const ConstraintRecord record{{}, {}, rows.all().subspan(row)};
        SPInchMMLittleArrowControlEMF stepper;
        stepper.CreateControl(nullptr, nullptr, &record, nullptr, {}, nullptr, {});
        EXPECT_EQ(stepper.GetNumberEditFromLittleArrow(), nullptr) << "no panel";
        stepper.SetParenetPanel(&pane_.panel);
        EXPECT_EQ(stepper.GetNumberEditFromLittleArrow(), nullptr) << row;
    }
    SPInchMMLittleArrowControlEMF noRecord;
    noRecord.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, {});
    noRecord.SetParenetPanel(&pane_.panel);
    EXPECT_EQ(noRecord.GetNumberEditFromLittleArrow(), nullptr);
}

TEST_F(PairStepper, AsksTheControlsOfItsArrayUntilOneRefuses) {
    SPInchMMLittleArrowControlEMF stepper;
    const Rows rows{{kMMStepper, kMMField}, {kMMField, kNoSuchTag}, {kNoSuchTag, kMMField}};
    const auto ask = [&](ConstraintRow array) {
        stepper.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, array);
        stepper.SetParenetPanel(&pane_.panel);
        return stepper.InvalidateRelateControlData();
    };
    EXPECT_TRUE(ask({})) << "an empty array";
    EXPECT_TRUE(ask(rows.at(0)));
    EXPECT_FALSE(ask(rows.at(1))) << "a tag without a control";
    pane_.mmView->setStringValue("1");
    EXPECT_FALSE(ask(rows.at(2)));
    EXPECT_TRUE(face_.alerts().empty()) << "nobody is asked after the first that refuses";
    EXPECT_FALSE(ask(rows.at(0)));
    EXPECT_EQ(face_.alerts().size(), 1U);
    stepper.SetParenetPanel(nullptr);
    EXPECT_FALSE(stepper.InvalidateRelateControlData()) << "no panel";
}

TEST_F(PairStepper, WithoutATableOrAViewAClickDoesNothing) {
    StepperView view(1);
    SPInchMMLittleArrowControlEMF stepper;
    stepper.CreateControl(&view, nullptr, nullptr, &kNoKeys, {}, nullptr, {});
    stepper.setTargetandAction();
    EXPECT_TRUE(view.step(5)) << "no block";
    stepper.InitializeCtrl(nullptr, nullptr);
    EXPECT_TRUE(view.step(6)) << "no table";
    stepper.CreateControl(nullptr, &kMM.stepper, nullptr, &kNoKeys, {}, nullptr, {});
    stepper.InitializeCtrl(nullptr, nullptr);
    EXPECT_FALSE(stepper.SetControlValueToUI());
    stepper.RequestControlAction(nullptr);
    EXPECT_EQ(stepper.getLastValue(), 2100);
    EXPECT_EQ(face_.beeps(), 0);
}

} // namespace
} // namespace specialpages
