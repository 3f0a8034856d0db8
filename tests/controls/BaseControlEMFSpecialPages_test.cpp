#include "controls/BaseControlEMFSpecialPages.h"
#include "controls/control_fixtures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::Journal;
using test::NumberControl;
using test::NumberView;
using test::RecordingControl;
using test::Rows;
using test::TaggedView;
using test::TestPanel;
using test::TextValueControl;
using testing::ElementsAre;

/// A control of the base class itself.
class PlainControl : public BaseControlEMFSpecialPages {
  public:
    explicit PlainControl(platform::View* view) { CreateControl(view); }
};

// The neutral answers.

TEST(BaseControl, WithoutTablesAnswersNeutrally) {
    TaggedView view(7);
    PlainControl control(&view);
    EXPECT_EQ(control.GetControlPtr(), &view);
    EXPECT_EQ(control.Open(), 0);
    EXPECT_EQ(control.Close(), 0);
    EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
    EXPECT_TRUE(control.ReInitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(control.ConstrainPanelControlFromPPD(nullptr), 0);
    EXPECT_EQ(control.UpdateConflictsPanelControlFromPPD(nullptr), 0);
    EXPECT_EQ(control.GetValueFromUI(), nullptr);
    EXPECT_EQ(control.GetValueFromControl(), nullptr);
    EXPECT_FALSE(control.GetValueToPreset());
    EXPECT_TRUE(control.SetControlValueToUI());
    EXPECT_TRUE(control.SetUIValueToIniData());
    EXPECT_TRUE(control.SetControlValueToDefault());
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_TRUE(control.SetControlData(ControlValue{1}));
    EXPECT_TRUE(control.SetExternalValueToUI(ControlValue{1}, 4));
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{1}, 4, 2));
    EXPECT_FALSE(control.GetDefaultDataBlk());
    EXPECT_EQ(control.GetDefaultDataSize(), 0U);
    EXPECT_FALSE(control.GetIniDataBlk());
    EXPECT_EQ(control.GetIniDataSize(), 0U);
    EXPECT_TRUE(control.InvalidateData());
    EXPECT_TRUE(control.InvalidateDataAndReturnError());
    EXPECT_TRUE(control.InvalidateDataOnCancel());
    EXPECT_TRUE(control.PreInvalidateData());
    EXPECT_TRUE(control.PreInvalidateDataOnCancel());
    EXPECT_TRUE(control.InvalidateDataOnPrintCommand());
    EXPECT_FALSE(control.IsOutputNullToTicket());
    EXPECT_EQ(control.GetSummaryText(nullptr, nullptr), 0);
    EXPECT_TRUE(control.UIEventHandler());
    EXPECT_TRUE(control.SimulationUIEventHandler());
    EXPECT_EQ(control.DoControlUpdateConstrain(), 0);
    EXPECT_EQ(control.DoSelfUpdate(), 0);
    EXPECT_EQ(control.DoControlHideConstrain(), 0);
    EXPECT_EQ(control.DoControlConstrain(), 0);
    EXPECT_EQ(control.Update(), 0);
    EXPECT_EQ(control.GetCurrentControlArrayNumber(), 0);
    EXPECT_FALSE(control.GetControlBlkPtr());
    EXPECT_FALSE(control.GetValueFromUIDataBlk());
    EXPECT_EQ(control.GetDataBlkSize(), 0U);
}

TEST(BaseControl, WithoutAViewDoesNothingAndStillCounts) {
    NumberControl control(nullptr, 5);
    control.InitializeCtrl(nullptr, nullptr);
    control.setTargetandAction();
    control.Disable();
    control.Hide();
    EXPECT_EQ(control.constrainCount(), 1);
    EXPECT_EQ(control.hideCount(), 1);
    control.PPDCtrlHide();
    control.PPDCtrlShow();
    control.ResetStatus();
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_EQ(control.hideCount(), 0);
    EXPECT_FALSE(control.SetControlValueToUI());
    EXPECT_TRUE(control.SetDefaultValueToUI());
    control.RequestControlAction(nullptr);
    EXPECT_EQ(control.ui(), 0);
}

TEST(BaseControl, CreatingAnewPutsEveryFieldToItsStart) {
    NumberView first(1);
    NumberView second(2);
    const Rows rows{{1}};
    const ConstraintRecord record{.disable = rows.all(), .hide = {}, .update = {}};
    NumberControl control(&first, 5);
    control.InitializeCtrl(nullptr, nullptr);
    control.setTables(&record);
    control.setPPDChoices(PPDChoices(2));
    control.Disable();
    control.Hide();

    control.CreateControl(&second);
    EXPECT_EQ(control.GetControlPtr(), &second);
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_EQ(control.hideCount(), 0);
    EXPECT_EQ(control.GetDataBlkSize(), 0U);
    EXPECT_FALSE(control.GetControlBlkPtr());
    EXPECT_FALSE(control.GetValueFromUIDataBlk());
    EXPECT_TRUE(control.getPPDChoices().empty());
    EXPECT_EQ(control.getPPDOptions(), nullptr);

    TestPanel panel;
    NumberView neighbourView(1);
    NumberControl neighbour(&neighbourView, 0);
    panel.RunTimeAddNewControl(&neighbour);
    panel.RunTimeAddNewControl(&control);
    control.DisableControlConstrains();
    EXPECT_EQ(neighbour.constrainCount(), 0) << "the constraint record is gone";
}

// The value blocks.

TEST(BaseControl, BlocksDoNotExistUntilTheControlIsInitialized) {
    NumberView view(1);
    NumberControl control(&view, 5);
    EXPECT_FALSE(control.GetControlBlkPtr());
    EXPECT_TRUE(control.SetControlValueToDefault());
    EXPECT_TRUE(control.SetUIValueToIniData());
    EXPECT_FALSE(control.GetControlBlkPtr());
    EXPECT_FALSE(control.GetValueFromUIDataBlk());
    EXPECT_EQ(control.GetDataBlkSize(), 0U);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_EQ(view.intValue(), 0) << "no default is shown without a data block";
}

TEST(BaseControl, UIBlockIsCommittedOnlyWithASize) {
    NumberView view(1);
    NumberControl control(&view, 5);
    control.InitializeCtrl(nullptr, nullptr);
    control.GetValueFromUIDataBlk() = 9;
    control.setDataBlkSize(0);
    control.SetValueFromUIToControl();
    EXPECT_EQ(control.data(), 0);
    control.setDataBlkSize(4);
    control.SetValueFromUIToControl();
    EXPECT_EQ(control.data(), 9);
}

TEST(BaseControl, CommitNeedsBothBlocks) {
    NumberView view(1);
    NumberControl control(&view, 5);
    control.setDataBlkSize(4);
    control.GetValueFromUIDataBlk() = 9;
    control.SetValueFromUIToControl();
    EXPECT_FALSE(control.GetControlBlkPtr()) << "a missing data block is not made";
    control.GetControlBlkPtr() = 3;
    control.GetValueFromUIDataBlk().reset();
    control.SetValueFromUIToControl();
    EXPECT_EQ(control.data(), 3);
}

TEST(BaseControl, DefaultWithoutATableLeavesTheBlockAloneAndAnswersTrue) {
    NumberView view(1);
    NumberControl control(&view, std::nullopt);
    control.InitializeCtrl(nullptr, nullptr);
    control.GetControlBlkPtr() = 3;
    view.setIntValue(8);
    EXPECT_TRUE(control.SetControlValueToDefault());
    EXPECT_EQ(control.data(), 3);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_EQ(view.intValue(), 8);
}

TEST(BaseControl, DefaultShownInTheViewIsNotCommitted) {
    NumberView view(1);
    NumberControl control(&view, 5);
    control.InitializeCtrl(nullptr, nullptr);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_EQ(view.intValue(), 5);
    EXPECT_EQ(control.data(), 0);
    EXPECT_EQ(control.ui(), 0);
}

TEST(BaseControl, AControlWithoutInitialDataKeepsItsUIBlock) {
    TextValueControl control;
    control.GetValueFromUIDataBlk() = std::string("typed");
    control.setDataBlkSize(5);
    EXPECT_TRUE(control.SetUIValueToIniData());
    EXPECT_EQ(control.GetValueFromUIDataBlk(), ControlValue{"typed"});
    EXPECT_EQ(control.GetDataBlkSize(), 5U);
}

TEST(BaseControl, ExternalValueIsStoredByItsType) {
    TaggedView view(1);
    PlainControl control(&view);
    control.GetControlBlkPtr() = 1;
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{-7}, 4, 2));
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{-7});
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{"abcdef"}, 3, 0));
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{"abc"});
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{"xy"}, 40, 0));
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{"xy"});
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{"gone"}, 0, 0));
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{""});
}

TEST(BaseControl, ExternalValueOfAnotherTypeChangesNothing) {
    TaggedView view(1);
    PlainControl control(&view);
    control.GetControlBlkPtr() = 1;
    for (const std::int32_t type : {1, -1, 3}) {
        EXPECT_TRUE(control.setExternalValueToData(ControlValue{9}, 4, type));
        EXPECT_TRUE(control.setExternalValueToData(ControlValue{"text"}, 4, type));
        EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{1}) << type;
    }
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{"text"}, 4, 2));
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{9}, 4, 0));
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{1}) << "the value is not of the type that is told";
}

TEST(BaseControl, ExternalValueWithoutABlockMakesNone) {
    TaggedView view(1);
    PlainControl control(&view);
    EXPECT_TRUE(control.setExternalValueToData(ControlValue{9}, 4, 2));
    EXPECT_FALSE(control.GetControlBlkPtr());
}

TEST(BaseControl, LifeOfAValue) {
    TestPanel panel;
    NumberView view(1);
    NumberControl control(&view, /*standard=*/2, /*initial=*/-1);
    static constexpr AccessInfo kAccess{"ticket", nullptr};
    control.setTables(nullptr, &kAccess);
    panel.RunTimeAddNewControl(&control);
    std::vector<std::pair<std::int32_t, std::int32_t>> oldAndNew;
    control.onSelfUpdate = [&] {
        oldAndNew.emplace_back(control.ui(), view.intValue());
    };

    EXPECT_FALSE(control.GetControlBlkPtr()) << "created: no blocks yet";

    control.InitializeCtrl(nullptr, nullptr);
    control.setTargetandAction();
    EXPECT_EQ(control.data(), 0);
    EXPECT_EQ(control.ui(), 0);
    EXPECT_EQ(control.GetDataBlkSize(), 4U);

    control.SetUIValueToIniData();
    EXPECT_EQ(control.ui(), -1) << "the view never had a value";
    EXPECT_EQ(control.data(), 0);

    EXPECT_FALSE(control.GetValueToPreset());
    control.SetControlValueToDefault();
    EXPECT_EQ(control.data(), 2);
    EXPECT_EQ(view.intValue(), 0);

    control.SetControlValueToUI();
    EXPECT_EQ(view.intValue(), 2);
    EXPECT_EQ(control.ui(), -1);

    control.SimulationUIEventHandler();
    EXPECT_THAT(oldAndNew, ElementsAre(std::pair(-1, 2)));

    view.choose(4);
    EXPECT_THAT(oldAndNew, ElementsAre(std::pair(-1, 2), std::pair(-1, 4)))
        << "during the event the UI block lags behind the view";
    EXPECT_EQ(control.ui(), 4) << "afterwards it is up to date";
    EXPECT_EQ(control.data(), 2) << "nothing is committed while the user works";

    view.choose(5);
    EXPECT_EQ(oldAndNew.back(), std::pair(4, 5));

    panel.SetValueFromUIToControl();
    EXPECT_EQ(control.data(), 5);

    platform::PrintSettings settings;
    EXPECT_TRUE(control.SetValueToTicket(&settings, false));
    EXPECT_EQ(test::settings_text(settings, "ticket"), "5");
}

// Validation on the print command.

TEST(BaseControl, PrintCommandAsksForThePreliminaryCheckFirst) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    EXPECT_TRUE(control.InvalidateDataOnPrintCommand());
    EXPECT_THAT(journal, ElementsAre("c.PreInvalidateData", "c.InvalidateData"));
}

TEST(BaseControl, PrintCommandDoesNotInvalidateWhenThePreliminaryCheckFails) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    control.preInvalidateAnswer = false;
    EXPECT_FALSE(control.InvalidateDataOnPrintCommand());
    EXPECT_THAT(journal, ElementsAre("c.PreInvalidateData"));
}

TEST(BaseControl, PrintCommandAnswersWhatTheCheckAnswers) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    control.invalidateAnswer = false;
    EXPECT_FALSE(control.InvalidateDataOnPrintCommand());
}

// One event.

TEST(BaseControl, AnEventRunsItsFourStepsInOrder) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    const auto steps = ElementsAre("c.DoControlUpdateConstrain", "c.DoSelfUpdate", "c.DoControlHideConstrain",
                                   "c.DoControlConstrain");
    EXPECT_TRUE(control.UIEventHandler());
    EXPECT_THAT(journal, steps);
    journal.clear();
    EXPECT_TRUE(control.SimulationUIEventHandler());
    EXPECT_THAT(journal, steps);
}

TEST(BaseControl, TheViewsActionHandlesTheEventAndThenReadsTheView) {
    Journal journal;
    NumberView view(1);
    test::EventRecordingControl control(journal, "c", &view);
    control.BaseControlEMFSpecialPages::setTargetandAction();
    EXPECT_EQ(view.target(), &control);
    EXPECT_TRUE(view.click());
    EXPECT_THAT(journal, ElementsAre("c.UIEventHandler", "c.GetValueFromUI"));
}

TEST(BaseControl, AValueSetByProgramIsNoEvent) {
    NumberView view(1);
    NumberControl control(&view, 5);
    control.InitializeCtrl(nullptr, nullptr);
    control.setTargetandAction();
    int events = 0;
    control.onSelfUpdate = [&] {
        ++events;
    };
    control.SetDefaultValueToUI();
    control.SetExternalValueToUI(ControlValue{3}, 4);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(control.ui(), 0);
}

TEST(BaseControl, ADisabledOrHiddenControlTakesNoEvents) {
    NumberView view(1);
    NumberControl control(&view, 5);
    control.InitializeCtrl(nullptr, nullptr);
    control.setTargetandAction();
    control.Disable();
    EXPECT_FALSE(view.click());
    control.Enable();
    control.Hide();
    EXPECT_FALSE(view.click());
    control.Show();
    EXPECT_TRUE(view.click());
}

} // namespace
} // namespace specialpages
