#include "controls/control_fixtures.h"
#include "dialogs/SPWarningWndEMF.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::Application;
using platform::ScriptedFace;
using platform::TextField;
using platform::ViewKind;
using platform::Window;
using test::LocalizedBundle;
using test::NumberView;
using test::PluginBundle;
using test::TestPanel;

class WarningWindow : public testing::Test {
  protected:
    WarningWindow() {
        icon_->setTag(spWarningWndIconID);
        title_->setTag(spWarningWndTitleID);
        message_->setTag(spWarningWndMessageID);
        for (const std::shared_ptr<platform::View>& view :
             std::initializer_list<std::shared_ptr<platform::View>>{icon_, title_, message_, ok_, cancel_}) {
            window_.addSubview(view);
        }
        window_.setCancelButton(cancel_.get());
        window_.setTitle("of the nib");
    }
    void build() {
        warning_.CreatePanel(&window_, nullptr);
        panel_.RunTimeAddNewWindow(&warning_);
        panel_.InitializeUserPane(bundle_.get(), nullptr);
    }

    LocalizedBundle bundle_{{"Delete Special Pages Title", "Delete special pages"},
                            {"Delete Selected Special Pages", "Delete the selected pages?"},
                            {"Delete All Special Pages", "Delete all pages?"},
                            {"SP Warning OK Btn", "OK"},
                            {"SP Warning Cancel Btn", "Cancel"}};
    std::shared_ptr<platform::IconView> icon_ = std::make_shared<platform::IconView>();
    std::shared_ptr<TextField> title_ = std::make_shared<TextField>(ViewKind::staticText);
    std::shared_ptr<TextField> message_ = std::make_shared<TextField>(ViewKind::staticText);
    std::shared_ptr<NumberView> ok_ = std::make_shared<NumberView>(spWarningWndOKButID);
    std::shared_ptr<NumberView> cancel_ = std::make_shared<NumberView>(spWarningWndCancelButID);
    Window window_;
    TestPanel panel_;
    SPWarningWndEMF warning_;
};

TEST_F(WarningWindow, ShowsItsTextsAndLeavesTheTitleBarEmpty) {
    build();
    EXPECT_EQ(warning_.controlCount(), 5);
    EXPECT_EQ(window_.title(), "");
    EXPECT_EQ(title_->stringValue(), "Delete special pages");
    EXPECT_EQ(message_->stringValue(), "Delete the selected pages?");
    EXPECT_EQ(ok_->title(), "OK");
    EXPECT_EQ(cancel_->title(), "Cancel");
}

TEST_F(WarningWindow, ShowsTheWarningSignOfThePanesBundle) {
    LocalizedBundle own;
    const PluginBundle plugin(own.shared());
    warning_.CreatePanel(&window_, nullptr);
    EXPECT_TRUE(icon_->image().empty()) << "nothing is drawn before the window is initialized";
    warning_.InitializeUserPane(bundle_.get(), nullptr);
    EXPECT_EQ(icon_->image(), own.get()->CFBundleCopyBundleURL() / "Warning.bmp");
    warning_.setWarningStrWindow(1);
    EXPECT_EQ(icon_->image(), own.get()->CFBundleCopyBundleURL() / "Warning.bmp");
}

TEST_F(WarningWindow, RegistersItsControlsAsTheTagsAscend) {
    build();
    std::vector<ControlTag> tags;
    for (const auto* control : warning_.getCtrlGroupArrayRef()) {
        tags.push_back(control->GetControlPtr()->tag());
    }
    EXPECT_EQ(tags, (std::vector<ControlTag>{801, 802, 803, 804, 805}));
}

TEST_F(WarningWindow, DoesWithoutItsSign) {
    icon_->setTag(0);
    build();
    EXPECT_EQ(warning_.controlCount(), 4);
    EXPECT_EQ(message_->stringValue(), "Delete the selected pages?");
    const auto other = std::make_shared<NumberView>(spWarningWndIconID);
    window_.addSubview(other);
    SPWarningWndEMF again;
    again.CreatePanel(&window_, nullptr);
    EXPECT_EQ(again.controlCount(), 4) << "a view of another kind is no sign";
}

TEST_F(WarningWindow, TheTitleBarStaysEmptyWhateverKeyIsGiven) {
    warning_.CreatePanel(&window_, "Delete Special Pages Title");
    warning_.InitializeUserPane(bundle_.get(), nullptr);
    EXPECT_EQ(window_.title(), "");
    window_.setTitle("again");
    warning_.ReInitializeUserPaneTitle();
    EXPECT_EQ(window_.title(), "");
}

TEST_F(WarningWindow, AsksAboutTheSelectedOrAllPages) {
    build();
    warning_.setWarningStrWindow(1);
    EXPECT_EQ(message_->stringValue(), "Delete all pages?");
    warning_.setWarningStrWindow(0);
    EXPECT_EQ(message_->stringValue(), "Delete the selected pages?");
}

TEST_F(WarningWindow, AnyOtherKindChangesNothing) {
    build();
    warning_.setWarningStrWindow(1);
    for (const std::int32_t kind : {-1, 2, 2147483647}) {
        warning_.setWarningStrWindow(kind);
        EXPECT_EQ(message_->stringValue(), "Delete all pages?") << kind;
    }
}

TEST_F(WarningWindow, AQuestionWithoutABundleOrAMessageControlChangesNothing) {
    warning_.CreatePanel(&window_, nullptr);
    message_->setStringValue("of the nib");
    warning_.setWarningStrWindow(1);
    EXPECT_EQ(message_->stringValue(), "of the nib");
    message_->setTag(0);
    build();
    EXPECT_EQ(warning_.controlCount(), 4);
    warning_.setWarningStrWindow(1);
    EXPECT_EQ(message_->stringValue(), "of the nib");
}

TEST_F(WarningWindow, AQuestionWithoutTranslationSaysSo) {
    LocalizedBundle other;
    warning_.CreatePanel(&window_, nullptr);
    warning_.InitializeUserPane(other.get(), nullptr);
    warning_.setWarningStrWindow(1);
    EXPECT_EQ(message_->stringValue(), "no translation");
}

TEST_F(WarningWindow, StatusIsCancelBeforeTheFirstShowing) {
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 1);
    warning_.setWarningWndExitStatus(0);
    warning_.CreatePanel(&window_, nullptr);
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 1);
}

TEST_F(WarningWindow, EachButtonSetsTheStatusAndEndsTheRun) {
    build();
    ScriptedFace face;
    face.then([&](Window& window) {
        EXPECT_EQ(&window, &window_);
        EXPECT_TRUE(ok_->click());
        EXPECT_FALSE(window_.isOpen());
    });
    EXPECT_EQ(warning_.ActivateWindow(), 0);
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 0);
    face.then([&](Window&) { EXPECT_TRUE(cancel_->click()); });
    EXPECT_EQ(warning_.ActivateWindow(), 0);
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 1);
    EXPECT_FALSE(window_.isOpen());
    EXPECT_EQ(Application::shared().modalDepth(), 0U);
}

TEST_F(WarningWindow, EscapeIsTheCancelButton) {
    build();
    warning_.setWarningWndExitStatus(0);
    ScriptedFace face;
    face.then([](Window& window) { EXPECT_TRUE(window.performCancel()); });
    warning_.ActivateWindow();
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 1);
}

TEST_F(WarningWindow, EscapeCancelsAfterEachEarlierAnswer) {
    build();
    ScriptedFace face;
    face.then([&](Window&) { ok_->click(); });
    warning_.ActivateWindow();
    ASSERT_EQ(warning_.getWarningWndExitStatus(), 0);
    for (int showing = 0; showing < 3; ++showing) {
        face.then([](Window& window) { EXPECT_TRUE(window.performCancel()); });
        warning_.ActivateWindow();
        EXPECT_EQ(warning_.getWarningWndExitStatus(), 1) << showing;
        EXPECT_FALSE(window_.isOpen());
    }
}

TEST_F(WarningWindow, ClosedByOtherMeansItReportsItsLastAnswer) {
    build();
    ScriptedFace face;
    face.then([&](Window&) { ok_->click(); });
    warning_.ActivateWindow();
    face.then([&](Window&) { warning_.DeactivateWindow(); });
    warning_.ActivateWindow();
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 0);
}

TEST_F(WarningWindow, OpeningRebuildsNothing) {
    build();
    warning_.setWarningStrWindow(1);
    ScriptedFace face;
    face.then([&](Window&) {
        EXPECT_EQ(message_->stringValue(), "Delete all pages?");
        cancel_->click();
    });
    warning_.ActivateWindow();
}

TEST_F(WarningWindow, WithoutAWindowIsNeverShown) {
    warning_.CreatePanel(nullptr, nullptr);
    EXPECT_EQ(warning_.controlCount(), 0);
    const ScriptedFace face;
    EXPECT_EQ(warning_.ActivateWindow(), 0);
    EXPECT_EQ(warning_.InitializeUserPaneTitle(bundle_.get()), 0);
    EXPECT_EQ(warning_.InitializeUserPane(bundle_.get(), nullptr), 0);
    warning_.setWarningStrWindow(0);
    EXPECT_EQ(warning_.getWarningWndExitStatus(), 1);
}

TEST_F(WarningWindow, ItsButtonsOutsideAWarningWindowDoNothing) {
    NumberView view(1);
    SPWarningWndOKButCtrlEMF agree;
    SPWarningWndCancelButCtrlEMF cancel;
    agree.CreateControl(&view, nullptr);
    cancel.CreateControl(&view, nullptr);
    EXPECT_TRUE(agree.UIEventHandler());
    panel_.RunTimeAddNewControl(&cancel);
    EXPECT_TRUE(cancel.UIEventHandler());
    EXPECT_EQ(Application::shared().modalDepth(), 0U);
}

} // namespace
} // namespace specialpages
