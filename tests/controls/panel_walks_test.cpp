// The walks of BasePrintPanelEMFSpecialPages: whom they visit, in which order, and where they stop.
#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "ppd/ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace specialpages {
namespace {

using test::EventRecordingControl;
using test::Journal;
using test::LocalizedBundle;
using test::NumberControl;
using test::NumberView;
using test::PpdBuilder;
using test::RecordingControl;
using test::RecordingWindow;
using test::TaggedView;
using test::TestHost;
using test::TestPanel;
using testing::ElementsAre;

struct Walk {
    const char* operation; ///< what the members are sent
    std::int32_t (*run)(TestPanel&);
    bool reachesControls;
    bool reachesWindows;
    bool answersTheWindows; ///< the first non-zero answer of a window; otherwise 0 always
};

// The name of a walk is enough for a test's report.
void PrintTo(const Walk& walk, std::ostream* out) {
    *out << walk.operation;
}

const Walk kWalks[] = {
    {"Open", [](TestPanel& p) { return p.Open(); }, true, true, false},
    {"Close", [](TestPanel& p) { return p.Close(); }, true, true, false},
    {"GetSummaryText", [](TestPanel& p) { return p.GetSummaryText(nullptr, nullptr); }, true, true, false},
    {"InitializeCtrl", [](TestPanel& p) { return p.InitializeUserPaneControl(nullptr, nullptr); }, true,
     false, false},
    {"InitializeUserPane", [](TestPanel& p) { return p.InitilaizeChildWindow(nullptr, nullptr); }, false,
     true, false},
    {"setTargetandAction", [](TestPanel& p) { return p.SetControlEventHandler(); }, true, false, false},
    {"UpdateConflictsPanelControlFromPPD",
     [](TestPanel& p) { return p.UpdateConflictsPanelControlFromPPD(nullptr); }, true, false, false},
    {"SetValueToPreference", [](TestPanel& p) { return p.SetValueToPreference(); }, true, true, true},
    {"SetValueToPreferenceWithPrinterSettings",
     [](TestPanel& p) { return p.SetValueToPreferenceWithPrinterSettings(); }, true, true, true},
    {"GetValueFromPreference", [](TestPanel& p) { return p.GetValueFromPreference(); }, true, true, false},
    {"GetValueFromPreferenceWithPrinterSettings",
     [](TestPanel& p) { return p.GetValueFromPreferenceWithPrinterSettings(); }, true, true, false},
    {"SetValueToTicket", [](TestPanel& p) { return p.SetValueToTicket(nullptr, false); }, true, true, false},
    {"SetValueToTicket_encryptArray",
     [](TestPanel& p) {
         const std::vector<platform::View*> none;
         return p.SetValueToTicket(nullptr, false, &none);
     },
     true, true, false},
};

class PanelWalk : public testing::TestWithParam<Walk> {
  protected:
    PanelWalk() : first_(journal_, "c1", &view_), second_(journal_, "c2", &view_) {}
    void fill() {
        panel_.RunTimeAddNewControl(&first_);
        panel_.addEmptyEntries();
        panel_.RunTimeAddNewControl(&second_);
        for (RecordingWindow* window : {&firstWindow_, &secondWindow_, &thirdWindow_}) {
            panel_.RunTimeAddNewWindow(window);
        }
    }
    Journal controls() const {
        const std::string operation = GetParam().operation;
        return GetParam().reachesControls ? Journal{"c1." + operation, "c2." + operation} : Journal{};
    }

    Journal journal_;
    TestPanel panel_;
    TaggedView view_{1};
    RecordingControl first_;
    RecordingControl second_;
    RecordingWindow firstWindow_{journal_, "w1"};
    RecordingWindow secondWindow_{journal_, "w2"};
    RecordingWindow thirdWindow_{journal_, "w3"};
};

TEST_P(PanelWalk, OfAnEmptyPanelAnswersZero) {
    EXPECT_EQ(GetParam().run(panel_), 0);
}

TEST_P(PanelWalk, VisitsControlsAndThenWindowsInOrderAndSkipsEmptyEntries) {
    fill();
    EXPECT_EQ(GetParam().run(panel_), 0) << "whatever the controls answered";
    Journal expected = controls();
    if (GetParam().reachesWindows) {
        for (const char* window : {"w1.", "w2.", "w3."}) {
            expected.push_back(window + std::string(GetParam().operation));
        }
    }
    EXPECT_EQ(journal_, expected);
}

TEST_P(PanelWalk, StopsAtTheFirstWindowThatAnswersNonZero) {
    fill();
    secondWindow_.status = 7;
    thirdWindow_.status = 9;
    EXPECT_EQ(GetParam().run(panel_), GetParam().answersTheWindows ? 7 : 0);
    Journal expected = controls();
    if (GetParam().reachesWindows) {
        for (const char* window : {"w1.", "w2."}) {
            expected.push_back(window + std::string(GetParam().operation));
        }
    }
    EXPECT_EQ(journal_, expected);
}

INSTANTIATE_TEST_SUITE_P(AllWalks, PanelWalk, testing::ValuesIn(kWalks),
                         [](const testing::TestParamInfo<Walk>& walk) {
                             return std::string(walk.param.operation);
                         });

/// Walks that send more than one operation, or ones of another name, to their members.
class PanelWalkOfSeveral : public testing::Test {
  protected:
    PanelWalkOfSeveral() : first_(journal_, "c1", &view_), second_(journal_, "c2", &view_) {
        panel_.RunTimeAddNewControl(&first_);
        panel_.RunTimeAddNewControl(&second_);
        panel_.RunTimeAddNewWindow(&firstWindow_);
        panel_.RunTimeAddNewWindow(&secondWindow_);
    }

    Journal journal_;
    TestPanel panel_;
    TaggedView view_{1};
    EventRecordingControl first_;
    EventRecordingControl second_;
    RecordingWindow firstWindow_{journal_, "w1"};
    RecordingWindow secondWindow_{journal_, "w2"};
};

TEST_F(PanelWalkOfSeveral, SetUIDataToIniDataReachesControlsAndWindows) {
    EXPECT_EQ(panel_.SetUIDataToIniData(), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.SetUIValueToIniData", "c2.SetUIValueToIniData",
                                      "w1.SetUIDataToIniData", "w2.SetUIDataToIniData"));
    journal_.clear();
    firstWindow_.status = 1;
    EXPECT_EQ(panel_.SetUIDataToIniData(), 0);
    EXPECT_THAT(journal_,
                ElementsAre("c1.SetUIValueToIniData", "c2.SetUIValueToIniData", "w1.SetUIDataToIniData"));
}

TEST_F(PanelWalkOfSeveral, SetDefaultValueToUIIsOnePassWithoutWindows) {
    EXPECT_EQ(panel_.SetDefaultValueToUI(), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.SetDefaultValueToUI", "c1.SimulationUIEventHandler",
                                      "c2.SetDefaultValueToUI", "c2.SimulationUIEventHandler"));
}

TEST_F(PanelWalkOfSeveral, SetCurrentValueToUIIsTwoPassesAndThenWindows) {
    EXPECT_EQ(panel_.SetCurrentValueToUI(), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.SetControlValueToUI", "c2.SetControlValueToUI",
                                      "c1.SimulationUIEventHandler", "c2.SimulationUIEventHandler",
                                      "w1.SetCurrentValueToUI", "w2.SetCurrentValueToUI"));
    journal_.clear();
    firstWindow_.status = 1;
    EXPECT_EQ(panel_.SetCurrentValueToUI(), 0);
    EXPECT_EQ(journal_.size(), 5U);
    EXPECT_EQ(journal_.back(), "w1.SetCurrentValueToUI");
}

TEST_F(PanelWalkOfSeveral, SetValueFromUIToControlCommitsOnlyWhatHasAValue) {
    second_.hasValue = true;
    EXPECT_EQ(panel_.SetValueFromUIToControl(), 0);
    EXPECT_THAT(journal_,
                ElementsAre("c1.GetValueFromUI", "c2.GetValueFromUI", "c2.SetValueFromUIToControl"));
}

TEST_F(PanelWalkOfSeveral, GetValueFromPresetFallsBackToTheDefault) {
    first_.presetAnswer = false;
    EXPECT_TRUE(panel_.GetValueFromPreset());
    EXPECT_THAT(journal_,
                ElementsAre("c1.GetValueToPreset", "c1.SetControlValueToDefault", "c2.GetValueToPreset",
                            "w1.GetValueFromPreset", "w2.GetValueFromPreset"));
}

TEST_F(PanelWalkOfSeveral, GetValueFromPresetStopsAtTheFirstWindowThatAnswersFalse) {
    firstWindow_.status = 1;
    EXPECT_TRUE(panel_.GetValueFromPreset()) << "true all the same";
    EXPECT_THAT(journal_, ElementsAre("c1.GetValueToPreset", "c2.GetValueToPreset", "w1.GetValueFromPreset"));
}

TEST_F(PanelWalkOfSeveral, PreferencesFallBackToTheDefault) {
    second_.preferenceAnswer = false;
    panel_.GetValueFromPreference();
    EXPECT_THAT(journal_, ElementsAre("c1.GetValueFromPreference", "c2.GetValueFromPreference",
                                      "c2.SetControlValueToDefault", "w1.GetValueFromPreference",
                                      "w2.GetValueFromPreference"));
    journal_.clear();
    panel_.GetValueFromPreferenceWithPrinterSettings();
    EXPECT_THAT(journal_,
                ElementsAre("c1.GetValueFromPreferenceWithPrinterSettings",
                            "c2.GetValueFromPreferenceWithPrinterSettings", "c2.SetControlValueToDefault",
                            "w1.GetValueFromPreferenceWithPrinterSettings",
                            "w2.GetValueFromPreferenceWithPrinterSettings"));
}

TEST_F(PanelWalkOfSeveral, TicketsWithoutAnArrayOfViewsArePlainOnControls) {
    panel_.SetValueToTicket(nullptr, false, nullptr);
    EXPECT_THAT(journal_,
                ElementsAre("c1.SetValueToTicket", "c2.SetValueToTicket", "w1.SetValueToTicket_encryptArray",
                            "w2.SetValueToTicket_encryptArray"));
}

TEST_F(PanelWalkOfSeveral, ReInitializeResetsEachControlAfterItsContents) {
    EXPECT_EQ(panel_.ReInitializeUserPaneControl(nullptr, nullptr), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.ReInitializeCtrl", "c1.ResetStatus", "c2.ReInitializeCtrl",
                                      "c2.ResetStatus"));
}

TEST_F(PanelWalkOfSeveral, ConstrainReachesInstallableControlsOnly) {
    RecordingControl installable(journal_, "i", nullptr);
    panel_.RunTimeAddNewInstallableControl(&installable);
    EXPECT_EQ(panel_.ConstrainPanelControlFromPPD(nullptr), 0);
    EXPECT_THAT(journal_, ElementsAre("i.ConstrainPanelControlFromPPD"));
}

TEST_F(PanelWalkOfSeveral, ConflictsLeaveWindowsUntouched) {
    TestPanel window;
    RecordingControl inside(journal_, "inside", &view_);
    window.RunTimeAddNewControl(&inside);
    panel_.RunTimeAddNewWindow(&window);
    panel_.UpdateConflictsPanelControlFromPPD(nullptr);
    EXPECT_THAT(journal_, ElementsAre("c1.UpdateConflictsPanelControlFromPPD",
                                      "c2.UpdateConflictsPanelControlFromPPD"));
}

TEST_F(PanelWalkOfSeveral, ResetControlStatusSkipsControlsWithoutAView) {
    first_.SetControlPtr(nullptr);
    EXPECT_EQ(panel_.ResetControlStatus(), 0);
    EXPECT_THAT(journal_, ElementsAre("c2.ResetStatus", "w1.ResetControlStatus", "w2.ResetControlStatus"));
    journal_.clear();
    EXPECT_EQ(panel_.ResetCurrentControlStatus(), 0);
    EXPECT_THAT(journal_, ElementsAre("c2.ResetStatus"));
}

TEST_F(PanelWalkOfSeveral, ResetControlStatusConstrainsOnlyWithASessionAndItsPPD) {
    PpdBuilder ppd;
    TestHost host(ppd.file());
    platform::PrintSession session;
    RecordingControl installable(journal_, "i", nullptr);
    panel_.RunTimeAddNewInstallableControl(&installable);
    firstWindow_.status = 1;

    panel_.initWithCallback(&host);
    panel_.ResetControlStatus();
    EXPECT_THAT(journal_, ElementsAre("c1.ResetStatus", "c2.ResetStatus", "w1.ResetControlStatus"));

    journal_.clear();
    panel_.SetCurrentPrintSession(&session);
    EXPECT_EQ(panel_.ResetControlStatus(), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.ResetStatus", "c2.ResetStatus", "w1.ResetControlStatus",
                                      "i.ConstrainPanelControlFromPPD"));
}

TEST_F(PanelWalkOfSeveral, InitializeUserPaneMakesControlsReadyBeforeWindowsStart) {
    LocalizedBundle bundle;
    RecordingControl installable(journal_, "i", nullptr);
    panel_.RunTimeAddNewInstallableControl(&installable);
    platform::Bundle* seen = nullptr;
    first_.onInitialize = [&](RecordingControl& control) {
        seen = control.parentPanel()->GetPDEBundleRef();
    };
    EXPECT_EQ(panel_.InitializeUserPane(bundle.get(), nullptr), 0);
    EXPECT_THAT(journal_, ElementsAre("c1.InitializeCtrl", "c2.InitializeCtrl", "c1.setTargetandAction",
                                      "c2.setTargetandAction", "w1.InitializeUserPane",
                                      "w2.InitializeUserPane", "i.ConstrainPanelControlFromPPD"));
    EXPECT_EQ(seen, bundle.get()) << "the bundle is stored first";
}

// What simulations see.

TEST(PanelValues, DefaultsAreSimulatedBeforeTheNextControlHasItsOwn) {
    TestPanel panel;
    NumberView firstView(1);
    NumberView secondView(2);
    NumberControl first(&firstView, 10);
    NumberControl second(&secondView, 20);
    panel.RunTimeAddNewControl(&first);
    panel.RunTimeAddNewControl(&second);
    panel.InitializeUserPane(nullptr, nullptr);
    panel.GetValueFromPreset();
    std::vector<std::pair<std::int32_t, std::int32_t>> seen;
    const auto look = [&] {
        seen.emplace_back(first.shown(), second.shown());
    };
    first.onSelfUpdate = look;
    second.onSelfUpdate = look;

    firstView.setIntValue(1);
    secondView.setIntValue(2);
    panel.SetDefaultValueToUI();
    EXPECT_THAT(seen, ElementsAre(std::pair(10, 2), std::pair(10, 20)));

    seen.clear();
    firstView.setIntValue(1);
    secondView.setIntValue(2);
    panel.SetCurrentValueToUI();
    EXPECT_THAT(seen, ElementsAre(std::pair(10, 20), std::pair(10, 20)))
        << "with current values all views are right before the first simulation";
}

TEST(PanelValues, DefaultsLeaveDataBlocksAndWindowsUntouched) {
    TestPanel panel;
    TestPanel window;
    NumberView view(1);
    NumberView windowView(2);
    NumberControl control(&view, 10);
    NumberControl inside(&windowView, 20);
    panel.RunTimeAddNewControl(&control);
    window.RunTimeAddNewControl(&inside);
    panel.RunTimeAddNewWindow(&window);
    panel.InitializeUserPane(nullptr, nullptr);
    panel.SetDefaultValueToUI();
    EXPECT_EQ(control.shown(), 10);
    EXPECT_EQ(control.data(), 0);
    EXPECT_EQ(inside.shown(), 0);
}

TEST(PanelValues, CommitReachesThePanelOnly) {
    TestPanel panel;
    TestPanel window;
    NumberView view(1);
    NumberView windowView(2);
    NumberControl control(&view, 10);
    NumberControl inside(&windowView, 20);
    panel.RunTimeAddNewControl(&control);
    window.RunTimeAddNewControl(&inside);
    panel.RunTimeAddNewWindow(&window);
    panel.InitializeUserPane(nullptr, nullptr);
    view.setIntValue(4);
    windowView.setIntValue(5);
    panel.SetValueFromUIToControl();
    EXPECT_EQ(control.data(), 4);
    EXPECT_EQ(inside.data(), 0);
    EXPECT_EQ(inside.ui(), 0);
}

} // namespace
} // namespace specialpages
