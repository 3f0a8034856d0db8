// Why an item cannot be chosen, said at the foot of the dialog.
#include "qt/PopUpWidget.h"
#include "qt/StatusLine.h"
#include "qt/pane_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QPushButton>
#include <QToolTip>
#include <functional>

namespace specialpages::qt::testing {
namespace {

using ::testing::UnorderedElementsAre;

TEST(StatusLineTest, EndsALongSentenceInDotsAndKeepsItWholeForOthers) {
    QWidget window;
    StatusLine line(&window);
    const QString sentence = QString(QStringLiteral("because of something ")).repeated(40);
    line.resize(200, 20);
    line.say(sentence);
    window.show();
    EXPECT_TRUE(line.isVisible());
    EXPECT_TRUE(line.text().endsWith(QChar(0x2026))) << line.text().toStdString();
    EXPECT_LE(line.fontMetrics().horizontalAdvance(line.text()), 200);
    EXPECT_EQ(line.sentence(), sentence);
    EXPECT_EQ(line.toolTip(), sentence);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&line)->text(QAccessible::Name), sentence);
    line.resize(line.fontMetrics().horizontalAdvance(sentence) + 10, 20);
    EXPECT_EQ(line.text(), sentence) << "there is room for it now";
    EXPECT_EQ(line.toolTip(), "");
    line.say({});
    EXPECT_FALSE(line.isVisible());
    EXPECT_EQ(line.text(), "");
}

TEST(StatusLineTest, ShowsASentenceAsItIsWritten) {
    StatusLine line(nullptr);
    line.resize(200, 20);
    const QImage nothing = line.grab().toImage();
    line.say("<i></i>");
    EXPECT_NE(line.grab().toImage(), nothing) << "as markup it would show nothing";
}

/// Counts the events that come to a widget.
class EventCount : public QObject {
  public:
    int of(const std::function<void()>& act) {
        count_ = 0;
        act();
        return count_;
    }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override {
        ++count_;
        return false;
    }

  private:
    int count_ = 0;
};

TEST(StatusLineTest, IsLeftAloneWhenTheSameIsSaidAgain) {
    StatusLine line(nullptr);
    EventCount events;
    line.installEventFilter(&events);
    EXPECT_GT(events.of([&] { line.say("Not with covers."); }), 0);
    EXPECT_EQ(events.of([&] { line.say("Not with covers."); }), 0) << "a reader would read it out again";
    EXPECT_GT(events.of([&] { line.say({}); }), 0);
}

class ReasonsInDialogs : public PaneWindowsTest {
  protected:
    /// Opens the menu at its sub-menu by the keyboard and answers the sub-menu.
    static QMenu* openPart(PopUpWidget& popup, int part) {
        popup.setFocus();
        press_key(popup, Qt::Key_Space);
        QMenu* const menu = popup.openMenu();
        if (menu == nullptr || !go_to(*menu, *menu->actions().at(part))) {
            return nullptr;
        }
        QTest::keyClick(menu->windowHandle(), Qt::Key_Right);
        return menu->actions().at(part)->menu();
    }
    static std::vector<std::pair<const QWidget*, QRect>> places(QDialog& dialog) {
        std::vector<std::pair<const QWidget*, QRect>> all;
        for (const QWidget* const child : dialog.findChildren<QWidget*>()) {
            if (child->window() == &dialog) {
                all.emplace_back(child, child->geometry());
            }
        }
        return all;
    }
    static constexpr int kColor = 3;
    static constexpr int kBlue = 2;
    static constexpr int kClear = 12;
    static constexpr const char* kReason = "Not with Paper Type: Plain";
};

TEST_F(ReasonsInDialogs, AreSaidOfAnItemThatTheKeyboardIsOn) {
    open();
    inWindow(windowOf("inserts"), [&](DialogWidget& dialog) {
        ASSERT_NE(dialog.statusLine(), nullptr);
        auto& popup = widget<PopUpWidget>("spInstSelePaper");
        const auto before = places(dialog);
        const QSize size = dialog.size();
        QMenu* const colors = openPart(popup, kColor);
        ASSERT_NE(colors, nullptr);
        ASSERT_TRUE(go_to(*colors, *colors->actions().at(kClear))) << "a disabled item is reached by keys";
        EXPECT_EQ(dialog.statusLine()->sentence(), kReason);
        EXPECT_EQ(dialog.statusLine()->text(), kReason) << "there is room for it";
        EXPECT_TRUE(dialog.statusLine()->isVisible());
        EXPECT_EQ(QToolTip::text(), kReason);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(dialog.statusLine())->text(QAccessible::Name),
                  kReason);
        settle();
        EXPECT_EQ(dialog.size(), size) << "nothing jumps";
        EXPECT_EQ(places(dialog), before);
        ASSERT_TRUE(go_to(*colors, *colors->actions().at(kBlue)));
        EXPECT_EQ(dialog.statusLine()->sentence(), "") << "that one can be chosen";
        ASSERT_TRUE(go_to(*colors, *colors->actions().at(kClear)));
        EXPECT_EQ(dialog.statusLine()->sentence(), kReason);
        QTest::keyClick(colors->windowHandle(), Qt::Key_Return);
        EXPECT_NE(popup.openMenu(), nullptr) << "it is not chosen";
        QTest::keyClick(colors->windowHandle(), Qt::Key_Escape);
        QTest::keyClick(popup.openMenu()->windowHandle(), Qt::Key_Escape);
        settle();
        EXPECT_EQ(popup.openMenu(), nullptr);
        EXPECT_EQ(dialog.statusLine()->sentence(), "") << "the menu is closed";
        EXPECT_FALSE(dialog.statusLine()->isVisible());
        EXPECT_TRUE(dialog.isVisible()) << "Escape was the menu's";
    });
}

TEST_F(ReasonsInDialogs, AreSaidOfAnItemThatTheMouseIsOn) {
    open();
    inWindow(windowOf("exceptions"), [&](DialogWidget& dialog) {
        auto& popup = widget<PopUpWidget>("spExceptionsPaperList");
        QMenu* const colors = openPart(popup, kColor);
        ASSERT_NE(colors, nullptr);
        const auto over = [&](int item) {
            QTest::mouseMove(colors->windowHandle(),
                             colors->actionGeometry(colors->actions().at(item)).center());
            settle();
        };
        over(kBlue);
        EXPECT_EQ(dialog.statusLine()->sentence(), "");
        over(kClear);
        EXPECT_EQ(dialog.statusLine()->sentence(), kReason);
        QTest::mouseClick(colors->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          colors->actionGeometry(colors->actions().at(kClear)).center());
        EXPECT_EQ(widget<PopUpWidget>("spExceptionsPaperList").shownIndex(), 0);
        over(kBlue);
        EXPECT_EQ(dialog.statusLine()->sentence(), "");
        over(kClear);
        popup.hidePopup();
        settle();
        EXPECT_EQ(dialog.statusLine()->sentence(), "");
    });
}

TEST_F(ReasonsInDialogs, AreSaidOfAListThatIsItselfDisabledAndTellsWhy) {
    open();
    inDialog("SPAddCoversButton", [&](QDialog& dialog) {
        auto& line = *dynamic_cast<DialogWidget&>(dialog).statusLine();
        auto& popup = widget<PopUpWidget>("spCoversFrontCoverPageList");
        ASSERT_FALSE(popup.isEnabled()) << "there are no covers";
        const auto over = [&](QWidget& widget) {
            QTest::mouseMove(dialog.windowHandle(), widget.mapTo(&dialog, widget.rect().center()));
            settle();
        };
        auto& cancel = widget<QPushButton>("spCoversCancelButton");
        over(popup);
        EXPECT_EQ(line.sentence(), "") << "it has no reason";
        over(cancel);
        popup.setToolTip("There is no front cover.");
        over(popup);
        EXPECT_EQ(line.sentence(), "There is no front cover.");
        over(cancel);
        EXPECT_EQ(line.sentence(), "");
        popup.setEnabled(true);
        over(popup);
        EXPECT_EQ(line.sentence(), "") << "a tool tip is no reason then";
    });
}

TEST_F(ReasonsInDialogs, HaveTheirRoomInEachDialogThatHasAPaperMenu) {
    open(host::read_settings_file(kHandbook));
    std::vector<std::string> with;
    for (const PaneWindow& window : pane_windows()) {
        inWindow(window, [&](DialogWidget& dialog) {
            if (dialog.statusLine() != nullptr) {
                with.emplace_back(window.word);
                settle();
                EXPECT_GE(dialog.statusLine()->sizeHint().height(), dialog.fontMetrics().height());
            }
        });
    }
    EXPECT_THAT(with, UnorderedElementsAre("covers", "inserts", "exceptions", "advanced"));
}

} // namespace
} // namespace specialpages::qt::testing
