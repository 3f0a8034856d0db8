#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/Window.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_builder.h"
#include "testing/EmptyHub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::Journal;
using test::LocalizedBundle;
using test::LogLines;
using test::NumberControl;
using test::NumberView;
using test::PluginBundle;
using test::PpdBuilder;
using test::RecordingWindow;
using test::session_of;
using test::TaggedView;
using test::TestHost;
using test::TestPanel;
using testing::ElementsAre;
using testing::IsEmpty;

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

class HubPanel : public TestPanel {
  public:
    explicit HubPanel(SpecialPagesHub& hub) : hub_(hub) {}
    SpecialPagesHub* hub() override { return &hub_; }

  private:
    SpecialPagesHub& hub_;
};

TEST(PanelSettings, TheHubIsThatOfTheOutermostPanel) {
    test::EmptyHub hub;
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
    void write(const std::string& contents) { test::write_test_file(bundle_.path() / "Pane.nib", contents); }
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
