#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "controls/control_fixtures.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PrintSession.h"
#include "platform/toolkit/Window.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace specialpages {
namespace {

using test::EventRecordingControl;
using test::Journal;
using test::LocalizedBundle;
using test::LogLines;
using test::NumberControl;
using test::NumberView;
using test::PluginBundle;
using test::PpdBuilder;
using test::RecordingControl;
using test::RecordingWindow;
using test::TaggedView;
using test::TestPanel;
using testing::ElementsAre;
using testing::IsEmpty;

class TestHost : public platform::PDEPluginCallback {
  public:
    explicit TestHost(ppd_file_s* ppd = nullptr) : ppd_(ppd) {}
    ppd_file_s* ppdFile() override { return ppd_; }
    platform::PrintSettings* printSettings() override { return nullptr; }
    platform::PrintSession* printSession() override { return nullptr; }
    platform::PageFormat* pageFormat() override { return nullptr; }

  private:
    ppd_file_s* ppd_;
};

platform::PrintSession session_of(std::string printer) {
    platform::PrintSession session;
    session.currentPrinter = platform::Printer{std::move(printer)};
    return session;
}

// Registration.

TEST(PanelRegistry, AnswersTheIndexAndTellsTheParent) {
    TestPanel panel;
    NumberView firstView(1);
    NumberView secondView(2);
    NumberControl first(&firstView, 0);
    NumberControl second(&secondView, 0);
    EXPECT_EQ(panel.RunTimeAddNewControl(&first), 0);
    EXPECT_EQ(panel.RunTimeAddNewControl(&second), 1);
    EXPECT_EQ(panel.controlCount(), 2);
    EXPECT_EQ(first.parentPanel(), &panel);
    EXPECT_THAT(panel.getCtrlGroupArrayRef(), ElementsAre(&first, &second));
}

TEST(PanelRegistry, LeavesOutAControlWithoutAView) {
    TestPanel panel;
    NumberView firstView(1);
    NumberView lastView(2);
    NumberControl first(&firstView, 0);
    NumberControl dropped(nullptr, 0);
    NumberControl last(&lastView, 0);
    EXPECT_EQ(panel.RunTimeAddNewControl(&first), 0);
    EXPECT_EQ(panel.RunTimeAddNewControl(&dropped), 1) << "the count, unchanged";
    EXPECT_EQ(panel.controlCount(), 1);
    EXPECT_EQ(dropped.parentPanel(), nullptr);
    EXPECT_EQ(panel.RunTimeAddNewControl(&last), 1) << "the index that the dropped one would have had";
    EXPECT_EQ(panel.controlCount(), 2);
    EXPECT_EQ(panel.RunTimeAddNewControl(nullptr), 2);
    EXPECT_EQ(panel.controlCount(), 2);
}

/// Tells when it ends.
class MortalControl : public BaseControlEMFSpecialPages {
  public:
    MortalControl(platform::View* view, int& ended) : ended_(ended) { CreateControl(view); }
    ~MortalControl() override { ++ended_; }

  private:
    int& ended_;
};

TEST(PanelRegistry, DestroysAnOwnControlWithoutAViewAtOnce) {
    int ended = 0;
    TaggedView view(1);
    TestPanel panel;
    MortalControl* field = nullptr;
    EXPECT_EQ(panel.RunTimeAddNewControl(std::make_unique<MortalControl>(&view, ended), field), 0);
    EXPECT_NE(field, nullptr);
    EXPECT_EQ(panel.RunTimeAddNewControl(std::make_unique<MortalControl>(nullptr, ended), field), 1);
    EXPECT_EQ(field, nullptr) << "the reference to a dropped control is void";
    EXPECT_EQ(ended, 1);
}

TEST(PanelRegistry, OwnsTheControlsMadeInCode) {
    int ended = 0;
    TaggedView view(1);
    {
        TestPanel panel;
        MortalControl* field = nullptr;
        panel.RunTimeAddNewControl(std::make_unique<MortalControl>(&view, ended), field);
        EXPECT_EQ(panel.GetPanelControl(1), field);
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST(PanelRegistry, TakesInstallableControlsWithoutAView) {
    TestPanel panel;
    NumberControl first(nullptr, 0);
    NumberControl second(nullptr, 0);
    EXPECT_EQ(panel.RunTimeAddNewInstallableControl(&first), 0);
    EXPECT_EQ(panel.RunTimeAddNewInstallableControl(&second), 1);
    EXPECT_EQ(panel.RunTimeAddNewInstallableControl(nullptr), 2);
    EXPECT_EQ(panel.installableControlCount(), 2);
    EXPECT_EQ(panel.controlCount(), 0);
    EXPECT_EQ(first.parentPanel(), &panel);
}

TEST(PanelRegistry, TakesWindowsWithoutAViewAndTellsTheParent) {
    Journal journal;
    TestPanel panel;
    RecordingWindow first(journal, "w1");
    RecordingWindow second(journal, "w2");
    EXPECT_EQ(panel.RunTimeAddNewWindow(&first), 0);
    EXPECT_EQ(panel.RunTimeAddNewWindow(&second), 1);
    EXPECT_EQ(panel.RunTimeAddNewWindow(nullptr), 2);
    EXPECT_EQ(panel.windowCount(), 2);
    EXPECT_EQ(first.GetParentWnd(), &panel);
    EXPECT_EQ(panel.GetParentWnd(), nullptr);
}

TEST(PanelRegistry, CreatingThePanelAnewEmptiesIt) {
    Journal journal;
    TestPanel panel;
    NumberView view(1);
    NumberControl control(&view, 0);
    RecordingWindow window(journal, "w");
    platform::PrintSession session = session_of("p");
    TestHost host;
    platform::PrintSettings settings;
    panel.RunTimeAddNewControl(&control);
    panel.RunTimeAddNewInstallableControl(&control);
    panel.RunTimeAddNewWindow(&window);
    panel.SetCurrentPrintSettings(&settings, nullptr, &host, &session);
    platform::Window ownWindow;
    panel.CreatePanel(&ownWindow);
    EXPECT_EQ(panel.window(), &ownWindow);
    EXPECT_EQ(panel.controlCount(), 0);
    EXPECT_EQ(panel.installableControlCount(), 0);
    EXPECT_EQ(panel.windowCount(), 0);
    EXPECT_EQ(panel.GetPanelControl(1), nullptr);
    EXPECT_EQ(panel.GetCurrentPMPrintSettings(), nullptr);
    EXPECT_EQ(panel.GetCurrentPrinterString(), std::nullopt);
    EXPECT_EQ(panel.GetPDEBundleRef(), nullptr);
    EXPECT_EQ(panel.GetCurrentPDECallbackObj(), &host) << "the host object stays";
}

// Lookup.

TEST(PanelLookup, AnUnknownTagIsNobodys) {
    TestPanel panel;
    EXPECT_EQ(panel.GetPanelControl(1), nullptr);
    NumberView view(1);
    NumberControl control(&view, 0);
    panel.RunTimeAddNewControl(&control);
    EXPECT_EQ(panel.GetPanelControl(2), nullptr);
    EXPECT_EQ(panel.GetPanelControl(1), &control);
}

TEST(PanelLookup, TheFirstOfTwoViewsWithOneTagWins) {
    TestPanel panel;
    NumberView firstView(1);
    NumberView secondView(1);
    NumberControl first(&firstView, 0);
    NumberControl second(&secondView, 0);
    panel.RunTimeAddNewControl(&first);
    panel.RunTimeAddNewControl(&second);
    EXPECT_EQ(panel.GetPanelControl(1), &first);
}

TEST(PanelLookup, GoesFromControlsToInstallableControlsToWindowsInTurn) {
    TestPanel panel;
    TestPanel firstWindow;
    TestPanel secondWindow;
    NumberView view(1);
    NumberControl control(&view, 0);
    NumberControl installable(&view, 0);
    NumberControl inFirst(&view, 0);
    NumberControl inSecond(&view, 0);
    panel.RunTimeAddNewWindow(&firstWindow);
    panel.RunTimeAddNewWindow(&secondWindow);
    secondWindow.RunTimeAddNewControl(&inSecond);
    EXPECT_EQ(panel.GetPanelControl(1), &inSecond);
    firstWindow.RunTimeAddNewControl(&inFirst);
    EXPECT_EQ(panel.GetPanelControl(1), &inFirst);
    panel.RunTimeAddNewInstallableControl(&installable);
    EXPECT_EQ(panel.GetPanelControl(1), &installable);
    panel.RunTimeAddNewControl(&control);
    EXPECT_EQ(panel.GetPanelControl(1), &control);
    EXPECT_EQ(secondWindow.GetPanelControl(1), &inSecond) << "a window looks into itself only";
}

TEST(PanelLookup, LooksIntoWindowsOfWindows) {
    TestPanel panel;
    TestPanel window;
    TestPanel inner;
    NumberView view(1);
    NumberControl control(&view, 0);
    inner.RunTimeAddNewControl(&control);
    window.RunTimeAddNewWindow(&inner);
    panel.RunTimeAddNewWindow(&window);
    EXPECT_EQ(panel.GetPanelControl(1), &control);
}

TEST(PanelLookup, SkipsControlsThatHaveLostTheirView) {
    TestPanel panel;
    NumberView view(1);
    NumberControl first(&view, 0);
    NumberControl second(&view, 0);
    NumberControl viewless(nullptr, 0);
    panel.RunTimeAddNewControl(&first);
    panel.RunTimeAddNewControl(&second);
    panel.RunTimeAddNewInstallableControl(&viewless);
    panel.addEmptyEntries();
    first.SetControlPtr(nullptr);
    EXPECT_EQ(panel.GetPanelControl(1), &second);
    EXPECT_EQ(panel.GetPanelControl(0), nullptr) << "no view is not tag 0";
}

// Walks.

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

// Settings, session and printer.

TEST(PanelSettings, AreStoredAndHandedToEveryWindow) {
    Journal journal;
    TestPanel panel;
    RecordingWindow window(journal, "w");
    panel.RunTimeAddNewWindow(&window);
    PpdBuilder ppd;
    TestHost host;
    platform::PrintSettings settings;
    platform::PrintSession session = session_of("Printer-1");
    EXPECT_EQ(panel.GetCurrentPrinterString(), std::nullopt);
    EXPECT_TRUE(panel.SetCurrentPrintSettings(&settings, ppd.file(), &host, &session));
    EXPECT_EQ(panel.GetCurrentPMPrintSettings(), &settings);
    EXPECT_EQ(panel.GetCurrentPPD(), ppd.file());
    EXPECT_EQ(panel.GetCurrentPDECallbackObj(), &host);
    EXPECT_EQ(panel.GetCurrentPrinterString(), "Printer-1");
    EXPECT_EQ(panel.GetCurrentPrintSession(), nullptr) << "the session is not stored";
    EXPECT_EQ(window.GetCurrentPMPrintSettings(), &settings);
    EXPECT_EQ(window.GetCurrentPPD(), ppd.file());
    EXPECT_EQ(window.GetCurrentPrinterString(), "Printer-1");
}

TEST(PanelSettings, RenewThePrinterInsteadOfAppendingIt) {
    TestPanel panel;
    platform::PrintSession first = session_of("one");
    platform::PrintSession second = session_of("two");
    panel.SetCurrentPrintSettings(nullptr, nullptr, nullptr, &first);
    EXPECT_TRUE(panel.SetCurrentPrintSettings(nullptr, nullptr, nullptr, &second));
    EXPECT_EQ(panel.GetCurrentPrinterString(), "two");
}

TEST(PanelSettings, WithoutAPrinterTheAnswerIsFalseAndWindowsAreNotTold) {
    Journal journal;
    TestPanel panel;
    RecordingWindow window(journal, "w");
    panel.RunTimeAddNewWindow(&window);
    platform::PrintSettings settings;
    platform::PrintSession good = session_of("one");
    platform::PrintSession empty;
    panel.SetCurrentPrintSettings(nullptr, nullptr, nullptr, &good);
    journal.clear();
    EXPECT_FALSE(panel.SetCurrentPrintSettings(&settings, nullptr, nullptr, &empty));
    EXPECT_EQ(panel.GetCurrentPMPrintSettings(), &settings) << "what was given is stored all the same";
    EXPECT_EQ(panel.GetCurrentPrinterString(), "") << "the string was emptied first";
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_FALSE(panel.SetCurrentPrintSettings(&settings, nullptr, nullptr, nullptr));
    EXPECT_THAT(journal, IsEmpty());
}

TEST(PanelSettings, StopAtTheFirstWindowThatAnswersFalse) {
    Journal journal;
    TestPanel panel;
    RecordingWindow first(journal, "w1", 1);
    RecordingWindow second(journal, "w2");
    panel.RunTimeAddNewWindow(&first);
    panel.RunTimeAddNewWindow(&second);
    platform::PrintSession session = session_of("one");
    EXPECT_FALSE(panel.SetCurrentPrintSettings(nullptr, nullptr, nullptr, &session));
    EXPECT_THAT(journal, ElementsAre("w1.SetCurrentPrintSettings"));
}

TEST(PanelSettings, SetCurrentPrinterStringStoresTheSession) {
    TestPanel panel;
    platform::PrintSession session = session_of("one");
    platform::PrintSession empty;
    EXPECT_TRUE(panel.SetCurrentPrinterString(&session));
    EXPECT_EQ(panel.GetCurrentPrintSession(), &session);
    EXPECT_EQ(panel.GetCurrentPrinterString(), "one");
    EXPECT_FALSE(panel.SetCurrentPrinterString(&empty));
    EXPECT_EQ(panel.GetCurrentPrintSession(), &empty);
    EXPECT_EQ(panel.GetCurrentPrinterString(), "");
}

TEST(PanelSettings, PPDOfTheSessionNeedsSessionAndHost) {
    PpdBuilder ppd;
    TestHost host(ppd.file());
    platform::PrintSession session;
    TestPanel panel;
    EXPECT_EQ(panel.GetPPDRefFromCurrentPrintSession(), nullptr);
    panel.SetCurrentPDECallbackObj(&host);
    EXPECT_EQ(panel.GetPPDRefFromCurrentPrintSession(), nullptr);
    panel.SetCurrentPrintSession(&session);
    EXPECT_EQ(panel.GetPPDRefFromCurrentPrintSession(), ppd.file());
    panel.SetCurrentPDECallbackObj(nullptr);
    EXPECT_EQ(panel.GetPPDRefFromCurrentPrintSession(), nullptr);
}

TEST(PanelSettings, DictionariesAreSharedWithEveryWindow) {
    TestPanel panel;
    TestPanel window;
    TestPanel inner;
    window.RunTimeAddNewWindow(&inner);
    panel.RunTimeAddNewWindow(&window);
    const auto own = std::make_shared<const PreferenceDictionary>(PreferenceDictionary{{"a", "1"}});
    const auto anyUser = std::make_shared<const PreferenceDictionary>();
    EXPECT_EQ(panel.getPreferenceDictionaryRef(), nullptr);
    panel.setPreferDictionary(own, anyUser);
    for (const TestPanel* each : {&panel, &window, &inner}) {
        EXPECT_EQ(each->getPreferenceDictionaryRef(), own.get());
        EXPECT_EQ(each->getPreferenceDictionaryAnyUserRef(), anyUser.get());
    }
    panel.setPreferDictionary(nullptr, nullptr);
    EXPECT_EQ(inner.getPreferenceDictionaryRef(), nullptr);
}

TEST(PanelSettings, PlainAnswersOfAFreshPanel) {
    TestPanel panel;
    EXPECT_TRUE(panel.getGroupNameStrArrayRef().empty());
    EXPECT_TRUE(panel.getCtrlGroupArrayRef().empty());
    EXPECT_EQ(BasePrintPanelEMFSpecialPages::GetPrinterSupporttedListRef(), nullptr);
    EXPECT_EQ(BasePrintPanelEMFSpecialPages::GetErrMsgPanel(), nullptr);
    EXPECT_EQ(panel.Getxppd(), nullptr);
    EXPECT_EQ(panel.hub(), nullptr);
    EXPECT_EQ(panel.window(), nullptr);
    PpdBuilder ppd;
    platform::PrintSettings settings;
    platform::Window window;
    panel.SetCurrentPPD(ppd.file());
    panel.SetCurrentPMPrintSettings(&settings);
    panel.SetPanelControlPtr(&window);
    EXPECT_EQ(panel.GetCurrentPPD(), ppd.file());
    EXPECT_EQ(panel.GetCurrentPMPrintSettings(), &settings);
    EXPECT_EQ(panel.window(), &window);
}

/// A hub without anything behind its roads.
class EmptyHub : public SpecialPagesHub {
  public:
    platform::View* getSpecialPagesViewPtr() override { return nullptr; }
    platform::View* getSpecialPagesView() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddCoversWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddInsertWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddExceptionsWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getTabStockWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getTabStockSubWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getCustomSizeWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getAdvSeleWndPtr() override { return nullptr; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return nullptr; }
    SPUndoButCtrlEMF* getSPUndoButtonPtr() override { return nullptr; }
    RecordDialog* recordDialog(std::int32_t) override { return nullptr; }
    std::int32_t getTabStockValue() const override { return 0; }
    void setTabStockValue(std::int32_t) override {}
    std::int32_t getTabMarginListValue() const override { return 0; }
    void setTabMarginListValue(std::int32_t) override {}
    std::int32_t getTabMarginValue() const override { return 0; }
    void setTabMarginValue(std::int32_t) override {}
    void toMakeChange() override {}
    bool sureToMakeChange(std::int32_t) override { return false; }
};

class HubPanel : public TestPanel {
  public:
    explicit HubPanel(SpecialPagesHub& hub) : hub_(hub) {}
    SpecialPagesHub* hub() override { return &hub_; }

  private:
    SpecialPagesHub& hub_;
};

TEST(PanelSettings, TheHubIsThatOfTheOutermostPanel) {
    EmptyHub hub;
    HubPanel panel(hub);
    TestPanel window;
    TestPanel inner;
    window.RunTimeAddNewWindow(&inner);
    EXPECT_EQ(inner.hub(), nullptr);
    panel.RunTimeAddNewWindow(&window);
    EXPECT_EQ(inner.hub(), &hub);
}

TEST(PanelSettings, TheConstraintIndexIsSharedWithEveryWindow) {
    Journal journal;
    TestPanel panel;
    RecordingWindow refusing(journal, "w", 1);
    TestPanel window;
    TestPanel inner;
    window.RunTimeAddNewWindow(&inner);
    panel.RunTimeAddNewWindow(&refusing);
    panel.RunTimeAddNewWindow(&window);
    const auto index = std::make_shared<ConstraintIndex>();
    panel.SetxppdPtr(index);
    for (BasePrintPanelEMFSpecialPages* each : {static_cast<BasePrintPanelEMFSpecialPages*>(&panel),
                                                static_cast<BasePrintPanelEMFSpecialPages*>(&refusing),
                                                static_cast<BasePrintPanelEMFSpecialPages*>(&window),
                                                static_cast<BasePrintPanelEMFSpecialPages*>(&inner)}) {
        EXPECT_EQ(each->Getxppd(), index);
    }
    const auto next = std::make_shared<ConstraintIndex>();
    panel.SetxppdPtr(next);
    EXPECT_EQ(inner.Getxppd(), next);
    panel.SetxppdPtr(nullptr);
    EXPECT_EQ(inner.Getxppd(), nullptr);
}

// The nib.

class PanelNib : public testing::Test {
  protected:
    void write(const std::string& contents) { test::write_file(bundle_.path() / "Pane.nib", contents); }
    static constexpr const char* kNib =
        R"(<ui version="4.0"><class>Pane</class><widget class="QWidget" name="Pane">)"
        R"(<widget class="QPushButton" name="button"/></widget></ui>)";

    LocalizedBundle bundle_;
    LogLines log_;
    TestPanel panel_;
};

TEST_F(PanelNib, IsNotThereWithoutABundle) {
    const PluginBundle none(nullptr);
    EXPECT_FALSE(panel_.loadNibNamed("Pane"));
    EXPECT_THAT(log_.all(), ElementsAre("SpecialPagesPDE : nib Pane is not in the bundle"));
}

TEST_F(PanelNib, ThatIsMissingIsLogged) {
    const PluginBundle own(bundle_.shared());
    EXPECT_FALSE(panel_.loadNibNamed("Pane"));
    EXPECT_THAT(log_.all(), ElementsAre("SpecialPagesPDE : nib Pane is not in the bundle"));
}

TEST_F(PanelNib, ThatIsMalformedIsLoggedAndCanBeLoadedLater) {
    const PluginBundle own(bundle_.shared());
    write("<ui");
    EXPECT_FALSE(panel_.loadNibNamed("Pane"));
    ASSERT_EQ(log_.all().size(), 1U);
    EXPECT_THAT(log_.all()[0],
                testing::StartsWith("SpecialPagesPDE : " + (bundle_.path() / "Pane.nib").string() + ": "));
    write(kNib);
    EXPECT_TRUE(panel_.loadNibNamed("Pane"));
}

TEST_F(PanelNib, IsLoadedOnce) {
    const PluginBundle own(bundle_.shared());
    write(kNib);
    EXPECT_TRUE(panel_.loadNibNamed("Pane"));
    std::filesystem::remove(bundle_.path() / "Pane.nib");
    EXPECT_TRUE(panel_.loadNibNamed("Pane"));
    EXPECT_TRUE(panel_.loadNibNamed("Another")) << "one nib stays loaded, whatever is asked for then";
    EXPECT_THAT(log_.all(), IsEmpty());
}

TEST(PanelOutlets, ABasePanelKnowsNone) {
    TestPanel panel;
    TaggedView view(1);
    NumberControl control(nullptr, 0);
    EXPECT_FALSE(panel.connectOutlet("SpecialPagesView", view));
    EXPECT_EQ(panel.instantiate("SPSummaryScrollViewCtrl"), nullptr);
    EXPECT_FALSE(panel.connectObject("summaryScrollViewCtrlPtr", control));
}

} // namespace
} // namespace specialpages
