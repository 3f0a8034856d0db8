// How controls disable, hide and update each other: the counts of BaseControlEMFSpecialPages, its rows and
// its chains of updates.
#include "controls/BaseControlEMFSpecialPages.h"
#include "controls/control_fixtures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace specialpages {
namespace {

using test::LogLines;
using test::NumberControl;
using test::NumberView;
using test::Rows;
using test::TestPanel;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ConstraintCount, WorkedRunOfDisableAndEnable) {
    NumberView view(1);
    NumberControl control(&view, 0);
    const auto step = [&](void (BaseControlEMFSpecialPages::*operation)(), std::int32_t count, bool enabled) {
        (control.*operation)();
        EXPECT_EQ(control.constrainCount(), count);
        EXPECT_EQ(view.isEnabled(), enabled);
        EXPECT_EQ(control.hideCount(), 0);
        EXPECT_FALSE(view.isHidden());
    };
    step(&BaseControlEMFSpecialPages::Disable, 1, false);
    step(&BaseControlEMFSpecialPages::Disable, 2, false);
    step(&BaseControlEMFSpecialPages::Enable, 1, false);
    step(&BaseControlEMFSpecialPages::Enable, 0, true);
    step(&BaseControlEMFSpecialPages::Enable, -1, true);
    step(&BaseControlEMFSpecialPages::Disable, 0, true);
    step(&BaseControlEMFSpecialPages::Disable, 1, false);
}

TEST(ConstraintCount, WorkedRunOfHideAndShow) {
    NumberView view(1);
    NumberControl control(&view, 0);
    const auto step = [&](void (BaseControlEMFSpecialPages::*operation)(), std::int32_t count, bool hidden) {
        (control.*operation)();
        EXPECT_EQ(control.hideCount(), count);
        EXPECT_EQ(view.isHidden(), hidden);
        EXPECT_EQ(control.constrainCount(), 0);
        EXPECT_TRUE(view.isEnabled());
    };
    step(&BaseControlEMFSpecialPages::Hide, 1, true);
    step(&BaseControlEMFSpecialPages::Hide, 2, true);
    step(&BaseControlEMFSpecialPages::Show, 1, true);
    step(&BaseControlEMFSpecialPages::Show, 0, false);
    step(&BaseControlEMFSpecialPages::Show, -1, false);
    step(&BaseControlEMFSpecialPages::Show, -2, false);
    step(&BaseControlEMFSpecialPages::Hide, -1, false);
    step(&BaseControlEMFSpecialPages::Hide, 0, false);
    step(&BaseControlEMFSpecialPages::Hide, 1, true);
}

TEST(ConstraintCount, EnableAtOneOrBelowEnablesAViewThatWasDisabledDirectly) {
    NumberView view(1);
    NumberControl control(&view, 0);
    view.setEnabled(false);
    control.Enable();
    EXPECT_EQ(control.constrainCount(), -1);
    EXPECT_TRUE(view.isEnabled());
    view.setEnabled(false);
    control.Enable();
    EXPECT_EQ(control.constrainCount(), -2);
    EXPECT_TRUE(view.isEnabled());
}

TEST(ConstraintCount, AfterAResetOneEnableLeavesTheNextDisableWithoutEffect) {
    NumberView view(1);
    NumberControl control(&view, 0);
    control.Disable();
    control.Disable();
    control.ResetStatus();
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_TRUE(view.isEnabled());
    control.Enable();
    EXPECT_EQ(control.constrainCount(), -1);
    EXPECT_TRUE(view.isEnabled());
    control.Disable();
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_TRUE(view.isEnabled());
}

TEST(ConstraintCount, ResetClearsBothCountsAndEnablesAndShowsTheView) {
    NumberView view(1);
    NumberControl control(&view, 0);
    control.Disable();
    control.Hide();
    control.Hide();
    control.ResetStatus();
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_EQ(control.hideCount(), 0);
    EXPECT_TRUE(view.isEnabled());
    EXPECT_FALSE(view.isHidden());
    view.setEnabled(false);
    view.setHidden(true);
    control.ResetStatus();
    EXPECT_TRUE(view.isEnabled()) << "whatever the counts were";
    EXPECT_FALSE(view.isHidden());
}

TEST(ConstraintCount, HidingForThePPDLeavesTheCountAlone) {
    NumberView view(1);
    NumberControl control(&view, 0);
    control.PPDCtrlHide();
    EXPECT_TRUE(view.isHidden());
    EXPECT_EQ(control.hideCount(), 0);
    control.PPDCtrlShow();
    EXPECT_FALSE(view.isHidden());
    control.Hide();
    control.PPDCtrlShow();
    EXPECT_FALSE(view.isHidden());
    EXPECT_EQ(control.hideCount(), 1);
}

// Rows.

/// Some NumberControls on one panel, found by their tags.
class Neighbours {
  public:
    explicit Neighbours(const std::vector<ControlTag>& tags) {
        for (const ControlTag tag : tags) {
            add(tag);
        }
    }
    NumberControl& add(ControlTag tag) {
        views_.push_back(std::make_unique<NumberView>(tag));
        controls_.push_back(std::make_unique<NumberControl>(views_.back().get(), 0));
        panel.RunTimeAddNewControl(controls_.back().get());
        return *controls_.back();
    }
    NumberControl& at(ControlTag tag) { return dynamic_cast<NumberControl&>(*panel.GetPanelControl(tag)); }
    bool enabled(ControlTag tag) { return at(tag).GetControlPtr()->isEnabled(); }
    bool hidden(ControlTag tag) { return at(tag).GetControlPtr()->isHidden(); }
    std::vector<std::int32_t> counts(const std::vector<ControlTag>& tags) {
        std::vector<std::int32_t> counts;
        counts.reserve(tags.size());
        for (const ControlTag tag : tags) {
            counts.push_back(at(tag).constrainCount());
        }
        return counts;
    }

    TestPanel panel;

  private:
    std::vector<std::unique_ptr<NumberView>> views_;
    std::vector<std::unique_ptr<NumberControl>> controls_;
};

TEST(ConstraintRows, AnUnresolvedTagIsSkippedAndTheOthersAreReached) {
    Neighbours neighbours({1, 2, 3});
    const Rows rows{{2, 99, 3}};
    neighbours.at(1).DisableControlConstrains(rows.at(0));
    EXPECT_EQ(neighbours.counts({1, 2, 3}), (std::vector<std::int32_t>{0, 1, 1}));
    neighbours.at(1).EnableControlConstrains(rows.at(0));
    EXPECT_EQ(neighbours.counts({1, 2, 3}), (std::vector<std::int32_t>{0, 0, 0}));
}

TEST(ConstraintRows, AControlDroppedForItsMissingViewIsNotReached) {
    Neighbours neighbours({1, 3});
    NumberControl dropped(nullptr, 0);
    neighbours.panel.RunTimeAddNewControl(&dropped);
    const Rows rows{{2, 3}};
    neighbours.at(1).DisableControlConstrains(rows.at(0));
    EXPECT_EQ(dropped.constrainCount(), 0);
    EXPECT_EQ(neighbours.at(3).constrainCount(), 1);
}

TEST(ConstraintRows, TwoControlsDisablingOneFieldMustBothEnableIt) {
    Neighbours neighbours({1, 2, 3});
    const Rows rows{{3}};
    neighbours.at(1).DisableControlConstrains(rows.at(0));
    neighbours.at(2).DisableControlConstrains(rows.at(0));
    EXPECT_EQ(neighbours.at(3).constrainCount(), 2);
    neighbours.at(1).EnableControlConstrains(rows.at(0));
    EXPECT_FALSE(neighbours.enabled(3));
    neighbours.at(2).EnableControlConstrains(rows.at(0));
    EXPECT_TRUE(neighbours.enabled(3));
    EXPECT_EQ(neighbours.at(3).constrainCount(), 0);
}

TEST(ConstraintRows, HideAndShowReachTheHideCounts) {
    Neighbours neighbours({1, 2, 3});
    const Rows rows{{2, 3}};
    neighbours.at(1).HideControlConstrains(rows.at(0));
    EXPECT_TRUE(neighbours.hidden(2));
    EXPECT_TRUE(neighbours.hidden(3));
    EXPECT_EQ(neighbours.at(2).hideCount(), 1);
    EXPECT_EQ(neighbours.at(2).constrainCount(), 0);
    neighbours.at(1).ShowControlConstrains(rows.at(0));
    EXPECT_FALSE(neighbours.hidden(2));
    EXPECT_EQ(neighbours.at(3).hideCount(), 0);
}

TEST(ConstraintRows, AnEmptyRowOrNoPanelDoesNothing) {
    Neighbours neighbours({1, 2});
    const Rows rows{{2}};
    neighbours.at(1).DisableControlConstrains(ConstraintRow{});
    neighbours.at(1).HideControlConstrains(ConstraintRow{});
    EXPECT_EQ(neighbours.at(2).constrainCount(), 0);
    NumberView view(5);
    NumberControl alone(&view, 0);
    alone.DisableControlConstrains(rows.at(0));
    alone.ShowControlConstrains(rows.at(0));
    EXPECT_EQ(neighbours.at(2).constrainCount(), 0);
    EXPECT_EQ(neighbours.at(2).hideCount(), 0);
}

TEST(ConstraintRows, ATagTwiceInARowCountsTwice) {
    Neighbours neighbours({1, 2});
    const Rows rows{{2, 2}};
    neighbours.at(1).DisableControlConstrains(rows.at(0));
    EXPECT_EQ(neighbours.at(2).constrainCount(), 2);
}

TEST(ConstraintRows, WithoutArgumentTheRowOfThePresentValueIsTaken) {
    Neighbours neighbours({1, 2, 3, 4, 5});
    const Rows disable{{2}, {3}};
    const Rows hide{{4}, {5}};
    const ConstraintRecord record{.disable = disable.all(), .hide = hide.all(), .update = {}};
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    control.arrayNumber = 1;
    control.DisableControlConstrains();
    control.HideControlConstrains();
    EXPECT_EQ(neighbours.counts({2, 3, 4, 5}), (std::vector<std::int32_t>{0, 1, 0, 0}));
    EXPECT_FALSE(neighbours.hidden(4));
    EXPECT_TRUE(neighbours.hidden(5));
    control.EnableControlConstrains();
    control.ShowControlConstrains();
    EXPECT_EQ(neighbours.at(3).constrainCount(), 0);
    EXPECT_EQ(neighbours.at(5).hideCount(), 0);
    EXPECT_FALSE(neighbours.hidden(5));
    control.arrayNumber = 0;
    control.DisableControlConstrains();
    control.HideControlConstrains();
    EXPECT_EQ(neighbours.counts({2, 3, 4, 5}), (std::vector<std::int32_t>{1, 0, 0, 0}));
    EXPECT_TRUE(neighbours.hidden(4));
}

TEST(ConstraintRows, AValueOutsideTheTableDisablesAndHidesNothing) {
    Neighbours neighbours({1, 2});
    const Rows rows{{2}};
    const ConstraintRecord record{.disable = rows.all(), .hide = rows.all(), .update = {}};
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{1}, std::int64_t{1} << 40}) {
        control.arrayNumber = number;
        control.DisableControlConstrains();
        control.EnableControlConstrains();
        control.EnableControlConstrains();
        control.HideControlConstrains();
        control.ShowControlConstrains();
        control.ShowControlConstrains();
        EXPECT_EQ(neighbours.at(2).constrainCount(), 0) << number;
        EXPECT_EQ(neighbours.at(2).hideCount(), 0) << number;
    }
}

TEST(ConstraintRows, AControlWithoutRecordTouchesNobody) {
    Neighbours neighbours({1, 2});
    NumberControl& control = neighbours.at(1);
    control.DisableControlConstrains();
    control.EnableControlConstrains();
    control.HideControlConstrains();
    control.ShowControlConstrains();
    EXPECT_EQ(control.DoControlUpdateConstrain(), 0);
    EXPECT_EQ(neighbours.at(2).constrainCount(), 0);
    EXPECT_EQ(neighbours.at(2).updates, 0);
}

TEST(ConstraintRows, CoverOptionFromNoCoversToFrontOnly) {
    const std::vector<ControlTag> all{204, 206, 209, 211, 203, 208};
    Neighbours neighbours(all);
    NumberControl& option = neighbours.add(202);
    const Rows disable{{204, 206, 209, 211, 203, 208}, {209, 211, 208}, {204, 206, 203}, {209, 211}, {}};
    option.DisableControlConstrains(disable.at(0));
    EXPECT_EQ(neighbours.counts(all), (std::vector<std::int32_t>{1, 1, 1, 1, 1, 1}));

    option.EnableControlConstrains(disable.at(0));
    EXPECT_EQ(neighbours.counts(all), (std::vector<std::int32_t>{0, 0, 0, 0, 0, 0}));
    for (const ControlTag tag : all) {
        EXPECT_TRUE(neighbours.enabled(tag)) << tag;
    }
    option.DisableControlConstrains(disable.at(1));
    EXPECT_EQ(neighbours.counts(all), (std::vector<std::int32_t>{0, 0, 1, 1, 0, 1}));
    for (const ControlTag tag : {209, 211, 208}) {
        EXPECT_FALSE(neighbours.enabled(tag)) << tag;
    }
    for (const ControlTag tag : {204, 206, 203}) {
        EXPECT_TRUE(neighbours.enabled(tag)) << tag;
    }
}

TEST(ConstraintRows, CoverOptionFromSameToDifferentCoversDisablesNothing) {
    const std::vector<ControlTag> all{204, 206, 209, 211, 203, 208};
    Neighbours neighbours(all);
    NumberControl& option = neighbours.add(202);
    const Rows disable{{204, 206, 209, 211, 203, 208}, {209, 211, 208}, {204, 206, 203}, {209, 211}};
    option.DisableControlConstrains(row_at(disable.all(), 3));
    EXPECT_EQ(neighbours.counts(all), (std::vector<std::int32_t>{0, 0, 1, 1, 0, 0}));
    option.EnableControlConstrains(row_at(disable.all(), 3));
    option.DisableControlConstrains(row_at(disable.all(), 4));
    EXPECT_EQ(neighbours.counts(all), (std::vector<std::int32_t>{0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(neighbours.enabled(209));
    EXPECT_TRUE(neighbours.enabled(211));
}

// Updates.

TEST(UpdateRows, ReachTheControlsOfTheRowInOrder) {
    Neighbours neighbours({1, 2, 3, 4});
    const Rows update{{2}, {4, 99, 3}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    std::vector<ControlTag> order;
    for (const ControlTag tag : {2, 3, 4}) {
        neighbours.at(tag).onUpdate = [&order, tag] {
            order.push_back(tag);
        };
    }
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    control.arrayNumber = 1;
    EXPECT_EQ(control.DoControlUpdateConstrain(), 0);
    EXPECT_THAT(order, ElementsAre(4, 3));
    EXPECT_EQ(neighbours.counts({2, 3, 4}), (std::vector<std::int32_t>{0, 0, 0}));
}

TEST(UpdateRows, ANegativeNumberTakesTheFirstRow) {
    Neighbours neighbours({1, 2, 3});
    const Rows update{{2}, {3}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    control.arrayNumber = -1;
    control.DoControlUpdateConstrain();
    EXPECT_EQ(neighbours.at(2).updates, 1);
    EXPECT_EQ(neighbours.at(3).updates, 0);
}

TEST(UpdateRows, ANumberPastTheTableUpdatesNothing) {
    Neighbours neighbours({1, 2});
    const Rows update{{2}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    control.arrayNumber = 1;
    control.DoControlUpdateConstrain();
    EXPECT_EQ(neighbours.at(2).updates, 0);
}

TEST(UpdateRows, WithoutAPanelNothingIsUpdated) {
    const Rows update{{1}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    NumberView view(1);
    NumberControl alone(&view, 0);
    alone.setTables(&record);
    EXPECT_EQ(alone.DoControlUpdateConstrain(), 0);
    EXPECT_EQ(alone.updates, 0);
}

/// Two controls, each with a row that names the other; an update simulates an event.
class UpdateCycle : public testing::Test {
  protected:
    UpdateCycle() : neighbours_({1, 2}) {}
    void wire(const ConstraintRecord& first, const ConstraintRecord& second) {
        neighbours_.at(1).setTables(&first);
        neighbours_.at(2).setTables(&second);
        for (const ControlTag tag : {1, 2}) {
            neighbours_.at(tag).onUpdate = [this, tag] {
                neighbours_.at(tag).SimulationUIEventHandler();
            };
        }
    }
    int updates() { return neighbours_.at(1).updates + neighbours_.at(2).updates; }

    Neighbours neighbours_;
    LogLines log_;
    static constexpr const char* kCutOff =
        "SpecialPagesPDE : controls update each other without an end; the chain is cut off";
};

TEST_F(UpdateCycle, IsCutOffWithALogLine) {
    const Rows toSecond{{2}};
    const Rows toFirst{{1}};
    const ConstraintRecord first{.disable = {}, .hide = {}, .update = toSecond.all()};
    const ConstraintRecord second{.disable = {}, .hide = {}, .update = toFirst.all()};
    wire(first, second);
    neighbours_.at(1).UIEventHandler();
    EXPECT_EQ(kMaxUpdateDepth, 64);
    EXPECT_EQ(neighbours_.at(1).updates, 32);
    EXPECT_EQ(neighbours_.at(2).updates, 32);
    EXPECT_THAT(log_.all(), ElementsAre(kCutOff));

    neighbours_.at(1).UIEventHandler();
    EXPECT_EQ(updates(), 128) << "the next event starts afresh";
    EXPECT_THAT(log_.all(), ElementsAre(kCutOff, kCutOff));
}

TEST_F(UpdateCycle, ThatBranchesIsCutOffAsAWhole) {
    const Rows both{{1, 2}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = both.all()};
    wire(record, record);
    neighbours_.at(1).UIEventHandler();
    EXPECT_EQ(updates(), 64);
    EXPECT_THAT(log_.all(), ElementsAre(kCutOff));
}

TEST_F(UpdateCycle, RunsTheOtherStepsOfEveryEventAllTheSame) {
    const Rows self{{1}};
    const ConstraintRecord first{.disable = {}, .hide = {}, .update = self.all()};
    const ConstraintRecord second{};
    wire(first, second);
    int selfUpdates = 0;
    neighbours_.at(1).onSelfUpdate = [&] {
        ++selfUpdates;
    };
    neighbours_.at(1).UIEventHandler();
    EXPECT_EQ(neighbours_.at(1).updates, 64);
    EXPECT_EQ(selfUpdates, 65);
}

TEST(UpdateRows, AChainThatEndsIsNotCutOff) {
    std::vector<ControlTag> tags(kMaxUpdateDepth + 1);
    std::iota(tags.begin(), tags.end(), 1);
    Neighbours neighbours(tags);
    std::vector<std::unique_ptr<Rows>> rows;
    std::vector<ConstraintRecord> records(tags.size());
    for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
        rows.push_back(std::make_unique<Rows>(std::initializer_list<std::vector<ControlTag>>{{tags[i + 1]}}));
        records[i].update = rows.back()->all();
        NumberControl& control = neighbours.at(tags[i]);
        control.setTables(&records[i]);
        control.onUpdate = [&control] {
            control.SimulationUIEventHandler();
        };
    }
    const LogLines log;
    neighbours.at(1).UIEventHandler();
    EXPECT_EQ(neighbours.at(tags.back()).updates, 1);
    EXPECT_THAT(log.all(), IsEmpty());
}

TEST(UpdateRows, ARowIsTakenForTheValueThatTheViewHasNow) {
    Neighbours neighbours({1, 2, 3});
    const Rows update{{2}, {3}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    NumberControl& control = neighbours.at(1);
    control.setTables(&record);
    control.DoControlUpdateConstrain();
    control.arrayNumber = 1;
    control.DoControlUpdateConstrain();
    EXPECT_EQ(neighbours.at(2).updates, 1);
    EXPECT_EQ(neighbours.at(3).updates, 1);
}

} // namespace
} // namespace specialpages
