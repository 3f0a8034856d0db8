// The mirror between views and widgets: what is touched, what a user's keys do, and nothing is sent back.
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "qt/FieldWidget.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/qt_fixture.h"
#include "qt/text.h"
#include "testing/record_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFocusEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QTimer>
#include <QToolTip>
#include <map>
#include <set>
#include <string>

namespace specialpages::qt::testing {
namespace {

using platform::View;
using platform::ViewChange;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MirrorTest : public QtPaneTest {
  protected:
    View& model(std::int32_t tag) {
        View* const view = platform::Application::shared().frontWindow()->viewWithTag(tag);
        if (view == nullptr) {
            throw std::runtime_error("no view " + std::to_string(tag));
        }
        return *view;
    }

    /// The names of all widgets that are touched while `act` runs, with how often.
    std::map<std::string, int> touchedBy(const std::function<void()>& act) {
        std::map<std::string, int> touched;
        pane_->widget().mirror().setTouchObserver(
            [&](QWidget& widget, ViewChange) { ++touched[widget.objectName().toStdString()]; });
        act();
        pane_->widget().mirror().setTouchObserver(nullptr);
        return touched;
    }
};

TEST_F(MirrorTest, ChoosingAPaperWithFiveHundredRecordsTouchesOnlyWhatChanged) {
    open(test::record_settings(test::records_to_move(500)));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    ASSERT_EQ(table.model()->rowCount(), 500);
    drive({R"({"do":"selectRows","tag":104,"rows":[250]})"});
    inDialog("SPEditButton", [&](QDialog& dialog) {
        // What the model announces, of every view of both windows.
        const auto announced = std::make_shared<std::set<std::string>>();
        const std::function<void(View&)> watch = [&](View& view) {
            view.addObserver([announced](View& changed, ViewChange) { announced->insert(changed.name()); });
            for (const auto& below : view.subviews()) {
                watch(*below);
            }
        };
        watch(*platform::Application::shared().frontWindow());
        watch(pane_->host().window());
        auto& paper = dynamic_cast<platform::PopUpButton&>(model(3210));
        const std::string color = paper.menu().itemAtIndex(3)->submenu()->itemAtIndex(3)->title();
        const auto& setup = widget<QPlainTextEdit>("spInstPaperView");
        ASSERT_FALSE(setup.toPlainText().contains(shown_text(color))) << "it is chosen already";
        const auto touched = touchedBy([&] { ASSERT_TRUE(paper.pick(std::vector<std::int64_t>{3, 3})); });
        EXPECT_THAT(touched, ElementsAre(std::pair<const std::string, int>("spInstPaperView", 1)));
        for (const auto& [name, count] : touched) {
            EXPECT_TRUE(announced->contains(name)) << name;
        }
        EXPECT_EQ(dialog.objectName(), "InsertWindowRef");
        EXPECT_TRUE(setup.toPlainText().contains(shown_text(color)));
    });
}

TEST_F(MirrorTest, AValueThatIsThereTouchesNothing) {
    open(host::read_settings_file(kHandbook));
    EXPECT_THAT(touchedBy([&] {
                    auto& button = dynamic_cast<platform::Button&>(model(100));
                    button.setTitle(std::string(button.title()));
                    button.setEnabled(true);
                }),
                IsEmpty());
    EXPECT_THAT(touchedBy([&] { model(100).setEnabled(false); }),
                ElementsAre(std::pair<const std::string, int>("SPAddCoversButton", 1)));
    EXPECT_FALSE(widget<QWidget>("SPAddCoversButton").isEnabled());
}

TEST_F(MirrorTest, WhatTheModelChangesIsNotSentBack) {
    open(host::read_settings_file(kHandbook));
    auto& table = dynamic_cast<platform::TableView&>(model(104));
    int announced = 0;
    const int observer = table.addObserver(
        [&](View&, ViewChange change) { announced += change == ViewChange::selection ? 1 : 0; });
    table.selectRowIndexes({1, 3}, platform::ExtendingSelection::no);
    settle();
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(widget<TableWidget>("SPSummaryInfoTableView").selectedRowSet(), (platform::RowSet{1, 3}));
    table.removeObserver(observer);
}

TEST_F(MirrorTest, AnAmpersandOfATextStays) {
    open();
    dynamic_cast<platform::Button&>(model(100)).setTitle("Covers & more");
    EXPECT_EQ(widget<QAbstractButton>("SPAddCoversButton").text(), "&Covers && more");
    dynamic_cast<platform::TextField&>(model(103)).setStringValue("A & B");
    EXPECT_EQ(widget<QLabel>("SPSummaryTitleStaticEdit").text(), "A && &B");
}

TEST_F(MirrorTest, AToolTipsMarkupIsSaidAsItStands) {
    open();
    QWidget& button = widget<QWidget>("SPUndoButton");
    platform::View* const view =
        pane_->host().panel()->panelView()->viewWithTag(button.property("tag").toInt());
    ASSERT_NE(view, nullptr);
    view->setToolTip("Not with <b>Blue</b>");
    EXPECT_EQ(button.toolTip(), "<p>Not with &lt;b&gt;Blue&lt;/b&gt;</p>");
}

TEST_F(MirrorTest, TheTablesKeysPressThePanesButtons) {
    open(host::read_settings_file(kHandbook));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    const auto pages = [&] {
        std::vector<std::string> texts;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            texts.push_back(table.model()->index(row, 0).data().toString().toStdString() + " " +
                            table.model()->index(row, 2).data().toString().left(1).toStdString());
        }
        return texts;
    };
    const auto before = pages();
    // The two inserts after page 12: the second goes up, and down again.
    drive({R"({"do":"selectRows","tag":104,"rows":[4]})"});
    press_key(table, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(pages().at(3), "12 3");
    drive({R"({"do":"selectRows","tag":104,"rows":[3]})"});
    press_key(table, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(pages(), before);
    // A cover does not move, whatever key is pressed.
    drive({R"({"do":"selectRows","tag":104,"rows":[0]})"});
    press_key(table, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(pages(), before);
    press_key(table, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.selectedRowSet().size(), 7U);
}

TEST_F(MirrorTest, DeleteAsksAndControlZBringsBack) {
    open(host::read_settings_file(kHandbook));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    drive({R"({"do":"selectRows","tag":104,"rows":[1]})"});
    bool asked = false;
    face_.setRun([&](const std::function<bool()>& stopped) {
        asked = true;
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(dialog->objectName(), "WarningWindowRef");
        press_key(*dialog, Qt::Key_Return);
        EXPECT_TRUE(stopped());
        if (!stopped()) {
            face_.giveUp();
        }
    });
    press_key(table, Qt::Key_Delete);
    EXPECT_TRUE(asked);
    EXPECT_EQ(table.model()->rowCount(), 6);
    face_.setRun(nullptr);
    press_key(table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(table.model()->rowCount(), 7);
}

TEST_F(MirrorTest, EnterEditsTheSelectedRecordAndEscapeLeavesIt) {
    open(host::read_settings_file(kHandbook));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    drive({R"({"do":"selectRows","tag":104,"rows":[2]})"});
    std::string opened;
    face_.setRun([&](const std::function<bool()>&) {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        opened = dialog->objectName().toStdString();
        press_key(*dialog, Qt::Key_Escape);
    });
    press_key(table, Qt::Key_Return);
    EXPECT_EQ(opened, "spAddExceptionsWindow");
    EXPECT_EQ(platform::Application::shared().modalDepth(), 0U);
}

TEST_F(MirrorTest, ARefusedKeyLeavesTextCursorAndSelection) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        auto& field = widget<FieldWidget>("spInstPageNumEdit");
        click(field, QPoint(4, field.height() / 2));
        for (const char key : {'3', ',', '7'}) {
            QTest::keyClick(dialog.windowHandle(), key);
        }
        EXPECT_EQ(field.text(), "3,7");
        press_key(field, Qt::Key_Left);
        face_.beeps = 0;
        QTest::keyClick(dialog.windowHandle(), 'x');
        EXPECT_EQ(field.text(), "3,7");
        EXPECT_EQ(field.cursorPosition(), 2);
        EXPECT_EQ(face_.beeps, 1);
        field.setSelection(0, 2);
        QTest::keyClick(dialog.windowHandle(), 'x');
        EXPECT_EQ(field.text(), "3,7");
        EXPECT_EQ(field.selectedText(), "3,");
        QTest::keyClick(dialog.windowHandle(), '5');
        EXPECT_EQ(field.text(), "57");
    });
}

TEST_F(MirrorTest, TheFieldThatRefusedHasTheKeyboardAndItsTextSelected) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        auto& field = widget<FieldWidget>("spInstPageNumEdit");
        click(field, QPoint(4, field.height() / 2));
        for (const char key : {'9', '-', '7'}) {
            QTest::keyClick(dialog.windowHandle(), key);
        }
        press_key(dialog, Qt::Key_Return);
        ASSERT_EQ(face_.alerts.size(), 1U);
        EXPECT_EQ(face_.alerts[0].rfind("A range of pages runs backward", 0), 0U) << face_.alerts[0];
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.focusWidget(), &field);
        EXPECT_EQ(field.selectedText(), "9-7");
    });
}

TEST_F(MirrorTest, AFieldOfAWindowThatComesBackIsNotEnteredAnew) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog&) {
        auto& field = widget<FieldWidget>("spInstPageNumEdit");
        click(field, QPoint(4, field.height() / 2));
        platform::Window& window = *platform::Application::shared().frontWindow();
        const platform::View* const entered = window.firstResponder();
        ASSERT_NE(entered, nullptr);
        EXPECT_EQ(entered->name(), "spInstPageNumEdit");
        window.makeFirstResponder(nullptr);
        const auto send = [&](QEvent::Type type, Qt::FocusReason reason) {
            QFocusEvent event(type, reason);
            QApplication::sendEvent(&field, &event);
        };
        send(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        send(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        EXPECT_EQ(window.firstResponder(), nullptr);
        send(QEvent::FocusOut, Qt::PopupFocusReason);
        send(QEvent::FocusIn, Qt::TabFocusReason);
        EXPECT_EQ(window.firstResponder(), entered);
    });
}

TEST_F(MirrorTest, TheCloseBoxCancels) {
    open();
    bool ran = false;
    face_.setRun([&](const std::function<bool()>& stopped) {
        ran = true;
        QApplication::activeModalWidget()->close();
        EXPECT_TRUE(stopped());
    });
    click(widget<QWidget>("SPAddExceptionsButton"));
    EXPECT_TRUE(ran);
    EXPECT_EQ(platform::Application::shared().modalDepth(), 0U);
    EXPECT_EQ(widget<TableWidget>("SPSummaryInfoTableView").model()->rowCount(), 0);
}

TEST_F(MirrorTest, QuittingGivesUpEveryRun) {
    open();
    int depth = 0;
    face_.setRun([&](const std::function<bool()>&) {
        if (++depth == 1) {
            dynamic_cast<platform::PopUpButton&>(model(3210)).pick(std::vector<std::int64_t>{6});
        } else {
            EXPECT_EQ(platform::Application::shared().modalDepth(), 2U);
            QCoreApplication::exit(0);
        }
    });
    click(widget<QWidget>("SPAddInsertsButton"));
    EXPECT_EQ(depth, 2);
    EXPECT_EQ(platform::Application::shared().modalDepth(), 0U);
    EXPECT_FALSE(widget<QWidget>("InsertWindowRef").isVisible());
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    QApplication::exec(); // without an application that runs, the quitting would last
}

TEST_F(MirrorTest, AWindowBehindADialogGetsNoEvents) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog&) {
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          widget<QWidget>("SPAddExceptionsButton").mapTo(window_.get(), QPoint(5, 5)));
        EXPECT_EQ(platform::Application::shared().modalDepth(), 1U);
    });
}

TEST_F(MirrorTest, ADisabledItemTellsWhyUnderTheKeyboardToo) {
    open();
    inDialog("SPAddCoversButton", [&](QDialog&) {
        auto& options = widget<PopUpWidget>("spCoversOptionsList");
        options.setFocus();
        press_key(options, Qt::Key_Down); // the front cover alone
        EXPECT_EQ(options.shownIndex(), 1);
        auto& popup = widget<PopUpWidget>("spCoversFrontCoverPageList");
        click(popup);
        QMenu* const menu = popup.openMenu();
        ASSERT_NE(menu, nullptr);
        bool found = false;
        for (QAction* const part : menu->actions()) {
            for (QAction* const item :
                 part->menu() == nullptr ? QList<QAction*>() : part->menu()->actions()) {
                if (!found && item->isVisible() && !item->isEnabled()) {
                    found = true;
                    EXPECT_TRUE(part->menu()->toolTipsVisible());
                    EXPECT_FALSE(item->toolTip().isEmpty());
                    EXPECT_EQ(item->toolTip(), item->statusTip());
                    go_to(*menu, *part);
                    QTest::keyClick(menu->windowHandle(), Qt::Key_Right);
                    go_to(*part->menu(), *item);
                    EXPECT_EQ(QToolTip::text().toStdString(), item->statusTip().toStdString());
                }
            }
        }
        EXPECT_TRUE(found);
        popup.hidePopup();
    });
}

TEST_F(MirrorTest, HelpOpensOverTheDialogWithItsLinks) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        click(widget<QWidget>("spInstHelpButton"));
        HelpViewer* const help = pane_->widget().help();
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->isVisible());
        EXPECT_EQ(help->parentWidget(), &dialog);
        EXPECT_EQ(help->windowTitle(), "Special Pages Help");
        EXPECT_EQ(help->browser().source().fileName(), "SpecialPagesInsert_Default01.htm");
        EXPECT_FALSE(help->browser().isBackwardAvailable());
        help->browser().setSource(QUrl("SpecialPagesMain_Default01.htm"));
        EXPECT_NE(help->browser().toPlainText().indexOf("Special pages"), -1);
        EXPECT_TRUE(help->browser().isBackwardAvailable());
        help->close();
        EXPECT_FALSE(help->isVisible());
    });
}

TEST_F(MirrorTest, IconsAreThePicturesOfTheBundle) {
    open();
    auto& icon = widget<IconWidget>("SPAddCoverIconView");
    EXPECT_EQ(icon.picture().filename(), "AddCovers.bmp");
    EXPECT_EQ(icon.sizeHint(), QSize(64, 64));
    const QImage drawn = icon.grab().toImage();
    std::set<QRgb> colors;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            colors.insert(drawn.pixel(x, y));
        }
    }
    EXPECT_GT(colors.size(), 20U) << "nothing was drawn";
}

} // namespace
} // namespace specialpages::qt::testing
