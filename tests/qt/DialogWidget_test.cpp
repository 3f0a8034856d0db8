// A window of the pane by itself: its keys, its close box, and the line at its foot.
#include "qt/DialogWidget.h"
#include "qt/StatusLine.h"
#include "qt/events.h"

#include <gtest/gtest.h>

#include <QGridLayout>
#include <QPushButton>
#include <QStatusTipEvent>
#include <QVBoxLayout>
#include <QWindow>

namespace specialpages::qt::testing {
namespace {

bool send_tip(QWidget& widget, const char* sentence) {
    QStatusTipEvent tip(QString::fromUtf8(sentence));
    return QApplication::sendEvent(&widget, &tip);
}

/// A dialog with a field above its button, which counts what it is asked.
class DialogWidgetTest : public ::testing::Test {
  protected:
    DialogWidgetTest() {
        rows_.setContentsMargins(12, 10, 14, 20);
        rows_.addWidget(&field_);
        rows_.addWidget(&button_);
        button_.setAutoDefault(false);
        dialog_.setHandlers([this] { ++accepted_; }, [this] { ++cancelled_; });
    }
    void show() {
        dialog_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog_));
        activate(dialog_);
    }

    DialogWidget dialog_{nullptr};
    QVBoxLayout rows_{&dialog_};
    QWidget field_;
    QPushButton button_;
    int accepted_ = 0;
    int cancelled_ = 0;
};

TEST(DialogWidget, StandsOverItsOpenerAndLeavesTheOtherWidgetsWithoutWindows) {
    QWidget opener;
    QWidget part(&opener);
    QWidget beside(&part);
    DialogWidget dialog(&part);
    opener.show();
    dialog.standOver(opener);
    ASSERT_NE(dialog.windowHandle(), nullptr);
    EXPECT_EQ(dialog.windowHandle()->transientParent(), opener.windowHandle());
    EXPECT_EQ(part.internalWinId(), 0U);
    EXPECT_EQ(beside.internalWinId(), 0U);
    dialog.show();
    EXPECT_EQ(dialog.windowHandle()->transientParent(), opener.windowHandle()) << "once it is shown";
    EXPECT_EQ(beside.internalWinId(), 0U);
}

TEST_F(DialogWidgetTest, TheStatusLineStandsBelowTheButtonsInHalfOfTheirMargin) {
    dialog_.addStatusLine();
    ASSERT_NE(dialog_.statusLine(), nullptr);
    ASSERT_EQ(rows_.count(), 4);
    EXPECT_EQ(rows_.itemAt(0)->widget(), &field_);
    ASSERT_NE(rows_.itemAt(1)->spacerItem(), nullptr);
    EXPECT_EQ(rows_.itemAt(1)->spacerItem()->sizeHint().height(), 6);
    EXPECT_EQ(rows_.itemAt(2)->widget(), &button_);
    EXPECT_EQ(rows_.itemAt(3)->widget(), dialog_.statusLine());
    EXPECT_EQ(rows_.contentsMargins(), QMargins(12, 10, 14, 10));
}

TEST_F(DialogWidgetTest, ThereIsOneStatusLineHoweverOftenItIsAsked) {
    dialog_.addStatusLine();
    const StatusLine* const line = dialog_.statusLine();
    dialog_.addStatusLine();
    EXPECT_EQ(dialog_.statusLine(), line);
    EXPECT_EQ(rows_.count(), 4);
    EXPECT_EQ(rows_.contentsMargins().bottom(), 10);
}

TEST_F(DialogWidgetTest, TheStatusLineComesBelowTheOneRowThatThereIs) {
    DialogWidget single(nullptr);
    QVBoxLayout rows(&single);
    QPushButton only;
    rows.addWidget(&only);
    single.addStatusLine();
    ASSERT_EQ(rows.count(), 3);
    EXPECT_NE(rows.itemAt(0)->spacerItem(), nullptr);
    EXPECT_EQ(rows.itemAt(1)->widget(), &only);
    EXPECT_EQ(rows.itemAt(2)->widget(), single.statusLine());
}

TEST_F(DialogWidgetTest, ADialogThatHasNoRowsGetsNoStatusLine) {
    DialogWidget bare(nullptr);
    bare.addStatusLine();
    EXPECT_EQ(bare.statusLine(), nullptr);
    const QGridLayout grid(&bare);
    bare.addStatusLine();
    EXPECT_EQ(bare.statusLine(), nullptr);
}

TEST_F(DialogWidgetTest, TheStatusLineTakesTheTipsOfEverythingInTheDialog) {
    EXPECT_FALSE(send_tip(button_, "Not with covers.")) << "there is no line for it";
    dialog_.addStatusLine();
    show();
    EXPECT_FALSE(dialog_.statusLine()->isVisible()) << "nothing is said";
    EXPECT_TRUE(send_tip(button_, "Not with covers."));
    EXPECT_EQ(dialog_.statusLine()->sentence(), "Not with covers.");
    EXPECT_TRUE(dialog_.statusLine()->isVisible());
    EXPECT_TRUE(send_tip(field_, ""));
    EXPECT_EQ(dialog_.statusLine()->sentence(), "");
}

TEST_F(DialogWidgetTest, ReturnAndEnterAreItsAcceptingAndEscapeItsCancelling) {
    show();
    press_key(dialog_, Qt::Key_Return);
    EXPECT_EQ(accepted_, 1);
    press_key(dialog_, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(accepted_, 2);
    EXPECT_EQ(cancelled_, 0);
    press_key(dialog_, Qt::Key_Escape);
    EXPECT_EQ(cancelled_, 1);
    press_key(dialog_, Qt::Key_A);
    EXPECT_EQ(accepted_, 2);
    EXPECT_EQ(cancelled_, 1);
    EXPECT_TRUE(dialog_.isVisible()) << "it never closes itself";
}

TEST_F(DialogWidgetTest, TheCloseBoxAsksAndClosesOnlyWhatWasHiddenByTheAnswer) {
    show();
    EXPECT_FALSE(dialog_.close());
    EXPECT_EQ(cancelled_, 1);
    EXPECT_TRUE(dialog_.isVisible());
    dialog_.setHandlers(nullptr, [this] {
        ++cancelled_;
        dialog_.hide();
    });
    EXPECT_TRUE(dialog_.close());
    EXPECT_EQ(cancelled_, 2);
    EXPECT_FALSE(dialog_.isVisible());
    EXPECT_TRUE(dialog_.close());
    EXPECT_EQ(cancelled_, 2) << "it is closed already";
}

TEST_F(DialogWidgetTest, WithoutHandlersNothingIsAnswered) {
    dialog_.setHandlers(nullptr, nullptr);
    show();
    press_key(dialog_, Qt::Key_Return);
    press_key(dialog_, Qt::Key_Escape);
    EXPECT_FALSE(dialog_.close());
    EXPECT_TRUE(dialog_.isVisible());
}

TEST_F(DialogWidgetTest, AClickBesideTheControlsTakesTheKeyboardFromThem) {
    field_.setFocusPolicy(Qt::StrongFocus);
    field_.setMinimumSize(40, 20);
    show();
    field_.setFocus();
    ASSERT_EQ(dialog_.focusWidget(), &field_);
    click(dialog_, QPoint(2, 2));
    EXPECT_EQ(dialog_.focusWidget(), &dialog_);
}

} // namespace
} // namespace specialpages::qt::testing
