// With a list of five hundred records: which widgets a user's event writes to, and how often. What the mirror
// says of itself is held against what Qt painted.
#include "platform/toolkit/PopUpButton.h"
#include "qt/TableWidget.h"
#include "qt/qt_fixture.h"
#include "testing/record_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QEvent>
#include <QPlainTextEdit>
#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace specialpages::qt::testing {
namespace {

using platform::ViewChange;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

using Names = std::set<std::string>;
using Counts = std::map<std::string, int>;

void until_idle() {
    do {
        settle();
    } while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
}

/// The widgets that Qt paints, in the order of the first time.
class Painted : public QObject {
  public:
    Painted() { qApp->installEventFilter(this); }

    /// By their views' names, a part without a name under that of the widget that it is a part of. What only
    /// lies behind another that was painted is left out.
    Names names() const {
        Names all;
        for (const QWidget* const widget : widgets_) {
            const bool behind = std::any_of(widgets_.begin(), widgets_.end(), [&](const QWidget* other) {
                return other != widget && widget->isAncestorOf(other);
            });
            const QWidget* named = widget;
            while (named->parentWidget() != nullptr &&
                   (named->objectName().isEmpty() || named->objectName().startsWith(QLatin1String("qt_")))) {
                named = named->parentWidget();
            }
            if (!behind) {
                all.insert(named->objectName().toStdString());
            }
        }
        return all;
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            widgets_.insert(static_cast<QWidget*>(watched));
        }
        return false;
    }

  private:
    std::set<const QWidget*> widgets_;
};

/// What an event of a user did to the widgets.
struct Touched {
    Counts written; ///< how often the mirror wrote to each
    Names painted;
};

class TouchedWidgets : public QtPaneTest {
  protected:
    void SetUp() override {
        open(test::record_settings(test::records_to_move(500)));
        ASSERT_EQ(table().model()->rowCount(), 500);
        until_idle();
    }

    TableWidget& table() { return widget<TableWidget>("SPSummaryInfoTableView"); }
    QString cell(int row, int column) { return table().model()->index(row, column).data().toString(); }
    void select(int row) { drive({R"({"do":"selectRows","tag":104,"rows":[)" + std::to_string(row) + "]}"}); }

    platform::PopUpButton& papers() {
        constexpr std::int32_t kPapersTag = 3210;
        return dynamic_cast<platform::PopUpButton&>(
            *platform::Application::shared().frontWindow()->viewWithTag(kPapersTag));
    }
    bool chooseColor(std::int64_t item) { return papers().pick(std::vector<std::int64_t>{3, item}); }

    /// While `act` runs and until nothing is left to do.
    Touched touchedBy(const std::function<void()>& act) {
        until_idle();
        Touched touched;
        const Painted painted;
        pane_->widget().mirror().setTouchObserver(
            [&](QWidget& widget, ViewChange) { ++touched.written[widget.objectName().toStdString()]; });
        act();
        until_idle();
        pane_->widget().mirror().setTouchObserver(nullptr);
        touched.painted = painted.names();
        return touched;
    }
};

TEST_F(TouchedWidgets, ChoosingAPaperWritesTheTextThatShowsIt) {
    select(249);
    inDialog("SPEditButton", [&](QDialog&) {
        const auto& setup = widget<QPlainTextEdit>("spInstPaperView");
        const QString before = setup.toPlainText();
        const Touched touched = touchedBy([&] { EXPECT_TRUE(chooseColor(3)); });
        EXPECT_NE(setup.toPlainText(), before);
        EXPECT_THAT(touched.written, UnorderedElementsAre(Pair("spInstPaperView", 1)));
        EXPECT_THAT(touched.painted, UnorderedElementsAre("spInstPaperView"));
    });
}

TEST_F(TouchedWidgets, ChoosingThePaperThatIsChosenWritesNothing) {
    select(249);
    inDialog("SPEditButton", [&](QDialog&) {
        ASSERT_TRUE(chooseColor(3));
        const Touched touched = touchedBy([&] { EXPECT_TRUE(chooseColor(3)); });
        EXPECT_THAT(touched.written, IsEmpty());
        EXPECT_THAT(touched.painted, IsEmpty());
    });
}

TEST_F(TouchedWidgets, OkWritesTheTableAndTheButtonsThatChange) {
    select(249);
    Touched touched;
    inDialog("SPEditButton", [&](QDialog&) {
        ASSERT_TRUE(chooseColor(3));
        touched = touchedBy([&] { click(widget<QWidget>("spInstOKButton")); });
    });
    // The rows and the end of their selection, which takes three buttons along; the dialog closes.
    EXPECT_THAT(touched.written,
                UnorderedElementsAre(Pair("SPSummaryInfoTableView", 2), Pair("SPDownButton", 1),
                                     Pair("SPEditButton", 1), Pair("SPDeleteButton", 1),
                                     Pair("SPUndoButton", 1), Pair("InsertWindowRef", 1)));
    // With them the strip, the button that was pressed, and the list that lost the keyboard to it.
    EXPECT_THAT(touched.painted, UnorderedElementsAre("SPSummaryInfoTableView", "SPDownButton",
                                                      "SPEditButton", "SPDeleteButton", "SPUndoButton",
                                                      "SheetStrip", "spInstOKButton", "spInstOptionList"));
}

TEST_F(TouchedWidgets, SelectingTheNextRecordWritesTheTableAndTheTwoButtonsThatChange) {
    select(249);
    const Touched touched = touchedBy([&] { select(250); });
    EXPECT_THAT(touched.written, UnorderedElementsAre(Pair("SPSummaryInfoTableView", 1),
                                                      Pair("SPUpButton", 1), Pair("SPDownButton", 1)));
    EXPECT_THAT(touched.painted,
                UnorderedElementsAre("SPSummaryInfoTableView", "SPUpButton", "SPDownButton", "SheetStrip"));
}

TEST_F(TouchedWidgets, MovingARecordWritesTheTableAndTheButtonsThatChange) {
    select(250);
    const QString moved = cell(250, 2);
    const QString other = cell(249, 2);
    const Touched touched = touchedBy([&] { press_key(table(), Qt::Key_Up, Qt::AltModifier); });
    ASSERT_NE(moved, other);
    EXPECT_EQ(cell(249, 2), moved);
    EXPECT_EQ(cell(250, 2), other);
    // The selection goes along with the record, the rows change, and the selection ends: "Down" is allowed
    // in between.
    EXPECT_THAT(touched.written,
                UnorderedElementsAre(Pair("SPSummaryInfoTableView", 3), Pair("SPUpButton", 1),
                                     Pair("SPDownButton", 2), Pair("SPEditButton", 1),
                                     Pair("SPDeleteButton", 1), Pair("SPUndoButton", 1)));
    EXPECT_THAT(touched.painted,
                UnorderedElementsAre("SPSummaryInfoTableView", "SPUpButton", "SPDownButton", "SPEditButton",
                                     "SPDeleteButton", "SPUndoButton", "SheetStrip"));
}

} // namespace
} // namespace specialpages::qt::testing
