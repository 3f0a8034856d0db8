// A field by itself, whose model refuses what it is told to: cursor and selection come back with the text.
#include "qt/FieldWidget.h"
#include "qt/events.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

namespace specialpages::qt::testing {
namespace {

class FieldWidgetTest : public ::testing::Test {
  protected:
    FieldWidgetTest() {
        field_.setHandlers({[this] { entered(); }, [this](const QString& text) { edited(text); },
                            [this] {
                                ++left_;
                                inUseWhenLeft_ = field_.isInUse();
                            }});
    }
    void entered() {
        ++entered_;
        inUseWhenEntered_ = field_.isInUse();
    }
    void edited(const QString& text) {
        asked_ = text;
        inUseWhenEdited_ = field_.isInUse();
        field_.showText(refuses_ ? model_ : model_ = text);
    }
    /// As a model does that has this text.
    void put(const QString& text) {
        model_ = text;
        field_.showText(text);
    }
    /// Drops the text before all others.
    void drop(const char* text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(QPoint(0, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&field_, &enter);
        QDropEvent event(QPoint(0, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&field_, &event);
    }
    void focus(QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&field_, &event);
    }

    FieldWidget field_{nullptr};
    QString model_;
    bool refuses_ = true;
    QString asked_; ///< what the last edit would have made
    int entered_ = 0;
    int left_ = 0;
    bool inUseWhenEntered_ = false;
    bool inUseWhenEdited_ = false;
    bool inUseWhenLeft_ = false;
};

TEST_F(FieldWidgetTest, ARefusedKeyLeavesASelectionOfOneCharacter) {
    put("3,7");
    field_.setSelection(1, 1);
    QTest::keyClick(&field_, 'x');
    EXPECT_EQ(asked_, "3x7");
    EXPECT_EQ(field_.text(), "3,7");
    EXPECT_EQ(field_.selectionStart(), 1);
    EXPECT_EQ(field_.selectedText(), ",");
}

TEST_F(FieldWidgetTest, ARefusedKeyLeavesASelectionAsItWasMadeFromEitherEnd) {
    put("3,7-9");
    field_.setSelection(1, 3);
    QTest::keyClick(&field_, 'x');
    EXPECT_EQ(field_.selectedText(), ",7-");
    EXPECT_EQ(field_.cursorPosition(), 4);
    field_.setSelection(4, -3);
    QTest::keyClick(&field_, 'x');
    EXPECT_EQ(field_.selectedText(), ",7-");
    EXPECT_EQ(field_.cursorPosition(), 1);
}

TEST_F(FieldWidgetTest, ARefusedTextOfAnInputMethodLeavesTheCursor) {
    put("3,7");
    field_.setCursorPosition(1);
    QInputMethodEvent event;
    event.setCommitString("x");
    QApplication::sendEvent(&field_, &event);
    EXPECT_EQ(asked_, "3x,7");
    EXPECT_EQ(field_.text(), "3,7");
    EXPECT_EQ(field_.cursorPosition(), 1);
}

TEST_F(FieldWidgetTest, ARefusedDropLeavesTheCursorWhereItWasDragged) {
    put("3,7");
    drop("x");
    EXPECT_EQ(asked_, "x3,7");
    EXPECT_EQ(field_.text(), "3,7");
    EXPECT_EQ(field_.cursorPosition(), 0);
}

TEST_F(FieldWidgetTest, ARefusedEntryOfTheFieldsMenuLeavesTheSelection) {
    put("3,7");
    field_.setSelection(0, 2);
    QTest::mouseClick(&field_, Qt::RightButton); // brings the menu
    field_.cut();
    EXPECT_EQ(asked_, "7");
    EXPECT_EQ(field_.text(), "3,7");
    EXPECT_EQ(field_.selectedText(), "3,");
}

TEST_F(FieldWidgetTest, AnotherTextThanBeforeHasTheCursorAtItsEndAndNothingSelected) {
    refuses_ = false;
    put("3,7");
    field_.setSelection(0, 2);
    QTest::keyClick(&field_, '5');
    ASSERT_EQ(field_.text(), "57");
    put("100-200");
    EXPECT_EQ(field_.cursorPosition(), 7);
    EXPECT_EQ(field_.selectedText(), "");
}

TEST_F(FieldWidgetTest, ATextThatIsShownLeavesCursorAndSelectionAndIsNoEdit) {
    put("3,7");
    field_.setSelection(0, 2);
    put("3,7");
    EXPECT_EQ(field_.selectedText(), "3,");
    put("8");
    EXPECT_EQ(asked_, "");
}

TEST_F(FieldWidgetTest, HasItsTextSelectedFromTheTabKeyUntilItIsLeft) {
    put("3,7");
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    EXPECT_EQ(field_.selectedText(), "3,7");
    focus(QEvent::FocusOut, Qt::TabFocusReason);
    EXPECT_EQ(field_.selectedText(), "");
}

TEST_F(FieldWidgetTest, IsInUseWhileTheUserEntersAndEditsIt) {
    EXPECT_FALSE(field_.isInUse());
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    EXPECT_TRUE(inUseWhenEntered_);
    EXPECT_FALSE(field_.isInUse());
    QTest::keyClick(&field_, 'x');
    EXPECT_TRUE(inUseWhenEdited_);
    EXPECT_FALSE(field_.isInUse());
    focus(QEvent::FocusOut, Qt::TabFocusReason);
    EXPECT_EQ(left_, 1);
    EXPECT_FALSE(inUseWhenLeft_) << "who left it can be brought back";
}

TEST_F(FieldWidgetTest, StaysInUseWhenItIsEnteredDuringAnEdit) {
    bool after = false;
    field_.setHandlers({[this] { entered(); },
                        [&](const QString&) {
                            focus(QEvent::FocusIn, Qt::TabFocusReason);
                            after = field_.isInUse();
                        },
                        nullptr});
    QTest::keyClick(&field_, 'x');
    EXPECT_EQ(entered_, 1);
    EXPECT_TRUE(after);
    EXPECT_FALSE(field_.isInUse());
}

TEST_F(FieldWidgetTest, IsNeitherLeftNorEnteredByAMenuOrAnotherWindow) {
    for (const Qt::FocusReason away : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        for (const Qt::FocusReason back : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
            focus(QEvent::FocusOut, away);
            focus(QEvent::FocusIn, back);
        }
    }
    EXPECT_EQ(left_, 0);
    EXPECT_EQ(entered_, 0);
    focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(entered_, 1) << "it had come back already";
    focus(QEvent::FocusOut, Qt::MouseFocusReason);
    EXPECT_EQ(left_, 1);
    focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(entered_, 2) << "it was left before";
}

TEST_F(FieldWidgetTest, ReturnAndEnterAreTheWindows) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, "\r");
        QApplication::sendEvent(&field_, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    QApplication::sendEvent(&field_, &event);
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(asked_, "a");
}

TEST_F(FieldWidgetTest, WithoutHandlersIsAPlainField) {
    field_.setHandlers({});
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    QTest::keyClick(&field_, 'x');
    EXPECT_EQ(field_.text(), "x");
    focus(QEvent::FocusOut, Qt::TabFocusReason);
}

} // namespace
} // namespace specialpages::qt::testing
