#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/print/PrintSession.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_builder.h"
#include "testing/ScriptedFace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::Application;
using platform::ScriptedFace;
using platform::Window;
using test::EventRecordingControl;
using test::Journal;
using test::LocalizedBundle;
using test::NumberControl;
using test::NumberView;
using test::PpdBuilder;
using test::RecordingControl;
using test::RecordingWindow;
using test::TaggedView;
using test::TestPanel;
using testing::ElementsAre;
using testing::IsEmpty;

// Building.

class PopupWindow : public testing::Test {
  protected:
    PopupWindow() { popup_.CreatePanel(&window_, "Covers Title"); }

    LocalizedBundle bundle_{{"Covers Title", "Covers"}};
    Window window_;
    PopupWinInPanelEMFSpecialPages popup_;
};

TEST_F(PopupWindow, IsNotInUseAtTheStart) {
    EXPECT_EQ(popup_.window(), &window_);
    EXPECT_FALSE(popup_.IsActived());
    popup_.ChangeActivedStatus();
    EXPECT_TRUE(popup_.IsActived());
    popup_.ChangeActivedStatus(false);
    EXPECT_FALSE(popup_.IsActived());
    popup_.ChangeActivedStatus(true);
    popup_.CreatePanel(&window_, nullptr);
    EXPECT_FALSE(popup_.IsActived());
    EXPECT_EQ(PopupWinInPanelEMFSpecialPages::ReleaseWindow(), 0);
}

TEST_F(PopupWindow, TakesItsTitleFromTheDefaultTable) {
    EXPECT_EQ(popup_.InitializeUserPaneTitle(bundle_.get()), 1);
    EXPECT_EQ(window_.title(), "Covers");
}

TEST_F(PopupWindow, HasNoTitleWithoutBundleKeyOrWindow) {
    window_.setTitle("before");
    EXPECT_EQ(popup_.InitializeUserPaneTitle(nullptr), 0);
    EXPECT_EQ(popup_.ReInitializeUserPaneTitle(), 0) << "no bundle is stored yet";
    popup_.CreatePanel(&window_, nullptr);
    EXPECT_EQ(popup_.InitializeUserPaneTitle(bundle_.get()), 0);
    EXPECT_EQ(window_.title(), "before");
    popup_.CreatePanel(nullptr, "Covers Title");
    EXPECT_EQ(popup_.InitializeUserPaneTitle(bundle_.get()), 0);
}

TEST_F(PopupWindow, AnUntranslatedTitleSaysSo) {
    popup_.CreatePanel(&window_, "Inserts Title");
    EXPECT_EQ(popup_.InitializeUserPaneTitle(bundle_.get()), 1);
    EXPECT_EQ(window_.title(), "no translation");
}

TEST_F(PopupWindow, InitializesTitleAndControlsBeforeItStoresTheBundle) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    RecordingControl installable(journal, "i", nullptr);
    RecordingWindow child(journal, "w");
    popup_.RunTimeAddNewControl(&control);
    popup_.RunTimeAddNewInstallableControl(&installable);
    popup_.RunTimeAddNewWindow(&child);
    std::vector<platform::Bundle*> bundles;
    std::string titleSeen;
    control.onInitialize = [&](RecordingControl&) {
        bundles.push_back(popup_.GetPDEBundleRef());
        titleSeen = window_.title();
    };
    EXPECT_EQ(popup_.InitializeUserPane(bundle_.get(), nullptr), 0);
    EXPECT_THAT(journal, ElementsAre("c.InitializeCtrl", "c.setTargetandAction"))
        << "no child window and no installable control is reached";
    EXPECT_EQ(titleSeen, "Covers");
    EXPECT_THAT(bundles, ElementsAre(nullptr));
    EXPECT_EQ(popup_.GetPDEBundleRef(), bundle_.get());
    EXPECT_EQ(popup_.GetCurrentPPD(), nullptr) << "the host's PPD comes by another way";
}

TEST_F(PopupWindow, ReInitializingRebuildsControlsThenTitleThenEvents) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    popup_.RunTimeAddNewControl(&control);
    popup_.InitializeUserPane(bundle_.get(), nullptr);
    journal.clear();
    window_.setTitle("old");
    EXPECT_EQ(popup_.ReInitializeUserPane(), 0);
    EXPECT_THAT(journal, ElementsAre("c.ReInitializeCtrl", "c.ResetStatus", "c.setTargetandAction"));
    EXPECT_EQ(window_.title(), "Covers");
}

/// Tells which bundle and PPD it was initialised with.
class ArgumentControl : public BaseControlEMFSpecialPages {
  public:
    explicit ArgumentControl(platform::View* view) { CreateControl(view); }
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override {
        given.emplace_back(bundle, withPPD);
        return true;
    }
    std::vector<std::pair<platform::Bundle*, ppd_file_s*>> given;
};

TEST_F(PopupWindow, HandsBundleAndPPDToItsControlsAtEveryOpening) {
    TaggedView view(1);
    ArgumentControl control(&view);
    popup_.RunTimeAddNewControl(&control);
    PpdBuilder ppd;
    popup_.InitializeUserPane(bundle_.get(), ppd.file());
    popup_.ReInitializeUserPane();
    const std::pair<platform::Bundle*, ppd_file_s*> expected(bundle_.get(), ppd.file());
    EXPECT_THAT(control.given, ElementsAre(expected, expected));
}

TEST_F(PopupWindow, NamesItsTableAfterTheFirstPPDWithAnIndex) {
    PpdBuilder without;
    PpdBuilder valueless;
    valueless.attribute("NVLocalizableFileIndex", "", std::nullopt);
    PpdBuilder first;
    first.attribute("NVLocalizableFileIndex", "", "01");
    PpdBuilder second;
    second.attribute("NVLocalizableFileIndex", "", "02");
    EXPECT_EQ(popup_.localizeTableName(), std::nullopt);
    popup_.InitializeUserPane(bundle_.get(), nullptr);
    popup_.InitializeUserPane(bundle_.get(), without.file());
    popup_.InitializeUserPane(bundle_.get(), valueless.file());
    EXPECT_EQ(popup_.localizeTableName(), std::nullopt);
    popup_.InitializeUserPane(bundle_.get(), first.file());
    EXPECT_EQ(popup_.localizeTableName(), "Localizable01");
    popup_.InitializeUserPane(bundle_.get(), second.file());
    EXPECT_EQ(popup_.localizeTableName(), "Localizable01");
}

TEST_F(PopupWindow, TheTitleIgnoresTheTableOfThePPD) {
    test::write_file(bundle_.path() / "en.lproj" / "Localizable01.strings",
                     "\"Covers Title\" = \"of the other table\";\n");
    PpdBuilder ppd;
    ppd.attribute("NVLocalizableFileIndex", "", "01");
    popup_.InitializeUserPane(bundle_.get(), ppd.file());
    EXPECT_EQ(window_.title(), "Covers");
}

TEST_F(PopupWindow, AsksItsParentForThePrinter) {
    EXPECT_EQ(popup_.GetCurrentPrinterString(), std::nullopt);
    TestPanel panel;
    platform::PrintSession session;
    session.currentPrinter = platform::Printer{"Printer-1"};
    panel.RunTimeAddNewWindow(&popup_);
    EXPECT_EQ(popup_.GetCurrentPrinterString(), std::nullopt);
    panel.SetCurrentPrintSettings(nullptr, nullptr, nullptr, &session);
    EXPECT_EQ(popup_.GetCurrentPrinterString(), "Printer-1");
    session.currentPrinter = platform::Printer{"Printer-2"};
    panel.SetCurrentPrinterString(&session);
    EXPECT_EQ(popup_.GetCurrentPrinterString(), "Printer-2") << "its own copy does not count";
    popup_.SetParenetPane(nullptr);
    EXPECT_EQ(popup_.GetCurrentPrinterString(), std::nullopt);
}

TEST_F(PopupWindow, SynchronisingReadsEveryViewAndCommitsNothing) {
    Journal journal;
    TaggedView view(1);
    NumberView numberView(2);
    NumberControl number(&numberView, 0);
    RecordingControl viewless(journal, "c", &view);
    popup_.RunTimeAddNewControl(&viewless);
    popup_.RunTimeAddNewControl(&number);
    viewless.SetControlPtr(nullptr);
    popup_.InitializeUserPane(nullptr, nullptr);
    journal.clear();
    numberView.setIntValue(6);
    EXPECT_EQ(popup_.SycValueFromUI(), 0);
    EXPECT_EQ(number.ui(), 6);
    EXPECT_EQ(number.data(), 0);
    EXPECT_THAT(journal, IsEmpty()) << "a control without a view is not asked";
}

// The modal run.

TEST_F(PopupWindow, WithoutAWindowOpensNothing) {
    Journal journal;
    TaggedView view(1);
    RecordingControl control(journal, "c", &view);
    popup_.CreatePanel(nullptr, "Covers Title");
    popup_.RunTimeAddNewControl(&control);
    ScriptedFace face;
    EXPECT_EQ(popup_.ActivateWindow(), 0);
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_EQ(popup_.DeactivateWindow(), 0);
}

TEST_F(PopupWindow, OpeningRebuildsResetsAndReplaysBeforeTheRun) {
    Journal journal;
    TaggedView view(1);
    EventRecordingControl control(journal, "c", &view);
    popup_.RunTimeAddNewControl(&control);
    ScriptedFace face;
    face.then([&](Window& window) {
        EXPECT_EQ(&window, &window_);
        EXPECT_TRUE(window_.isOpen());
        EXPECT_EQ(Application::shared().frontWindow(), &window_);
        journal.emplace_back("run");
        popup_.DeactivateWindow();
        EXPECT_FALSE(window_.isOpen());
    });
    EXPECT_EQ(popup_.ActivateWindow(), 0);
    EXPECT_THAT(journal, ElementsAre("c.ReInitializeCtrl", "c.ResetStatus", "c.setTargetandAction",
                                     "c.SetUIValueToIniData", "c.SetControlValueToUI",
                                     "c.SimulationUIEventHandler", "run"));
    EXPECT_EQ(Application::shared().modalDepth(), 0U);
}

TEST_F(PopupWindow, DeactivatingOutsideARunJustCloses) {
    window_.open();
    EXPECT_EQ(popup_.DeactivateWindow(), 0);
    EXPECT_FALSE(window_.isOpen());
    EXPECT_EQ(popup_.DeactivateWindow(), 0);
}

/// The frame that the OK button of every dialog has.
class OKButton : public BaseControlEMFSpecialPages {
  public:
    explicit OKButton(PopupWinInPanelEMFSpecialPages& popup) : popup_(popup) {}
    bool UIEventHandler() override {
        popup_.SycValueFromUI();
        for (BaseControlEMFSpecialPages* control : popup_.getCtrlGroupArrayRef()) {
            if (!control->InvalidateData()) {
                return false;
            }
        }
        popup_.SetValueFromUIToControl();
        popup_.ChangeActivedStatus(false);
        popup_.DeactivateWindow();
        return true;
    }

  private:
    PopupWinInPanelEMFSpecialPages& popup_;
};

class CancelButton : public BaseControlEMFSpecialPages {
  public:
    explicit CancelButton(PopupWinInPanelEMFSpecialPages& popup) : popup_(popup) {}
    bool UIEventHandler() override {
        popup_.ChangeActivedStatus(false);
        popup_.DeactivateWindow();
        return true;
    }

  private:
    PopupWinInPanelEMFSpecialPages& popup_;
};

class DefaultsButton : public BaseControlEMFSpecialPages {
  public:
    explicit DefaultsButton(PopupWinInPanelEMFSpecialPages& popup) : popup_(popup) {}
    bool UIEventHandler() override {
        popup_.SetDefaultValueToUI();
        return true;
    }

  private:
    PopupWinInPanelEMFSpecialPages& popup_;
};

/// A dialog with three numbers (defaults 10, 20, 30) and the three buttons.
class Dialog : public testing::Test {
  protected:
    Dialog() {
        for (const auto& view : {first_, second_, third_, ok_, cancel_, defaults_}) {
            window_.addSubview(view);
        }
        window_.setCancelButton(cancel_.get());
        popup_.CreatePanel(&window_, nullptr);
        for (NumberControl* number : {&one_, &two_, &three_}) {
            popup_.RunTimeAddNewControl(number);
        }
        add(okControl_, ok_.get());
        add(cancelControl_, cancel_.get());
        add(defaultsControl_, defaults_.get());
        popup_.InitializeUserPane(nullptr, nullptr);
        popup_.GetValueFromPreset();
    }
    void add(BaseControlEMFSpecialPages& control, platform::View* view) {
        control.CreateControl(view);
        popup_.RunTimeAddNewControl(&control);
    }
    void open() {
        popup_.ChangeActivedStatus();
        popup_.ActivateWindow();
    }
    std::vector<std::int32_t> committed() const { return {one_.data(), two_.data(), three_.data()}; }
    std::vector<std::int32_t> shown() const { return {one_.shown(), two_.shown(), three_.shown()}; }

    std::shared_ptr<NumberView> first_ = std::make_shared<NumberView>(1);
    std::shared_ptr<NumberView> second_ = std::make_shared<NumberView>(2);
    std::shared_ptr<NumberView> third_ = std::make_shared<NumberView>(3);
    std::shared_ptr<NumberView> ok_ = std::make_shared<NumberView>(4);
    std::shared_ptr<NumberView> cancel_ = std::make_shared<NumberView>(5);
    std::shared_ptr<NumberView> defaults_ = std::make_shared<NumberView>(6);
    Window window_;
    PopupWinInPanelEMFSpecialPages popup_;
    /// A number whose blocks survive a reopening, as those of a pop-up do.
    class KeptNumber : public NumberControl {
      public:
        using NumberControl::NumberControl;
        bool ReInitializeCtrl(platform::Bundle*, ppd_file_s*) override { return true; }
    };
    KeptNumber one_{first_.get(), 10};
    KeptNumber two_{second_.get(), 20};
    KeptNumber three_{third_.get(), 30};
    OKButton okControl_{popup_};
    CancelButton cancelControl_{popup_};
    DefaultsButton defaultsControl_{popup_};
    ScriptedFace face_;
};

TEST_F(Dialog, OKCommitsWhatTheUserChoseAndCloses) {
    face_.then([&](Window&) {
        EXPECT_EQ(shown(), (std::vector<std::int32_t>{10, 20, 30}));
        EXPECT_TRUE(popup_.IsActived());
        first_->choose(11);
        third_->setIntValue(33);
        EXPECT_EQ(committed(), (std::vector<std::int32_t>{10, 20, 30}));
        EXPECT_TRUE(ok_->click());
        EXPECT_FALSE(window_.isOpen());
    });
    open();
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{11, 20, 33}));
    EXPECT_FALSE(popup_.IsActived());
}

TEST_F(Dialog, ARefusingControlLeavesItOpenAndNothingCommitted) {
    three_.acceptable = [](std::int32_t value) {
        return value <= 30;
    };
    face_.then([&](Window&) {
        first_->choose(11);
        second_->choose(22);
        third_->choose(31);
        ok_->click();
        EXPECT_TRUE(window_.isOpen());
        EXPECT_TRUE(popup_.IsActived());
        EXPECT_EQ(committed(), (std::vector<std::int32_t>{10, 20, 30}));
        third_->choose(29);
        ok_->click();
        EXPECT_FALSE(window_.isOpen());
    });
    open();
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{11, 22, 29}));
}

TEST_F(Dialog, CancelLosesWhatWasTypedAndTheNextOpeningShowsTheCommittedState) {
    face_.then([&](Window&) {
        first_->choose(11);
        second_->choose(22);
        EXPECT_TRUE(cancel_->click());
    });
    open();
    EXPECT_FALSE(popup_.IsActived());
    EXPECT_FALSE(window_.isOpen());
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{10, 20, 30}));
    face_.then([&](Window&) {
        EXPECT_EQ(shown(), (std::vector<std::int32_t>{10, 20, 30}));
        cancel_->click();
    });
    open();
}

TEST_F(Dialog, ARunThatIsGivenUpIsCancelled) {
    face_.then([&](Window&) { first_->choose(11); });
    open();
    EXPECT_FALSE(popup_.IsActived());
    EXPECT_FALSE(window_.isOpen());
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{10, 20, 30}));
}

TEST_F(Dialog, DefaultsAreShownAndCommittedByOKOnly) {
    one_.GetControlBlkPtr() = 1;
    face_.then([&](Window&) {
        EXPECT_EQ(shown(), (std::vector<std::int32_t>{1, 20, 30}));
        second_->choose(2);
        EXPECT_TRUE(defaults_->click());
        EXPECT_EQ(shown(), (std::vector<std::int32_t>{10, 20, 30}));
        EXPECT_EQ(committed(), (std::vector<std::int32_t>{1, 20, 30}));
        EXPECT_TRUE(window_.isOpen());
        cancel_->click();
    });
    open();
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{1, 20, 30}));
    face_.then([&](Window&) {
        defaults_->click();
        ok_->click();
    });
    open();
    EXPECT_EQ(committed(), (std::vector<std::int32_t>{10, 20, 30}));
}

TEST_F(Dialog, EachOpeningStartsFromClearedCountsAndTheSentinel) {
    two_.Disable();
    two_.Disable();
    std::vector<std::int32_t> oldValues;
    one_.onSelfUpdate = [&] {
        oldValues.push_back(one_.ui());
    };
    face_.then([&](Window&) {
        EXPECT_EQ(two_.constrainCount(), 0);
        EXPECT_TRUE(second_->isEnabled());
        EXPECT_THAT(oldValues, ElementsAre(-1));
        first_->choose(11);
        EXPECT_THAT(oldValues, ElementsAre(-1, -1));
        first_->choose(12);
        EXPECT_THAT(oldValues, ElementsAre(-1, -1, 11));
        cancel_->click();
    });
    open();
    oldValues.clear();
    face_.then([&](Window&) {
        EXPECT_THAT(oldValues, ElementsAre(-1));
        cancel_->click();
    });
    open();
}

} // namespace
} // namespace specialpages
