#include "qt/SheetStrip.h"
#include "qt/events.h"
#include "qt/strip_application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QScrollBar>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::qt {
namespace {

using preview::JobGlance;
using preview::SheetCell;
using preview::SheetKind;
using testing::click_at;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::press_key;

/// Pages, and every third sheet an insert of row 0, 1, 2, ...
JobGlance glance_of(std::size_t cells) {
    JobGlance glance;
    glance.name = "Sheets of the job";
    glance.paper.width = 21000;
    glance.paper.length = 29700;
    for (std::size_t i = 0; i < cells; ++i) {
        SheetCell cell;
        cell.run = i;
        cell.paper = glance.paper;
        cell.sentence = "Sheet " + std::to_string(i);
        if (i % 3 == 2) {
            cell.kind = SheetKind::insert;
            cell.row = i / 3;
            cell.paper.look.rgb = 0xBCD9F2;
        } else {
            cell.firstPage = static_cast<std::int64_t>(i) + 1;
            cell.lastPage = cell.firstPage;
            cell.printed = true;
        }
        glance.cells.push_back(cell);
    }
    return glance;
}

class Strip : public ::testing::Test {
  protected:
    Strip() {
        testing::need_application();
        strip = std::make_unique<SheetStrip>();
        QObject::connect(strip.get(), &SheetStrip::rowsSelected,
                         [this](const Rows& rows) { told.push_back(rows); });
        QObject::connect(strip.get(), &SheetStrip::editRequested, [this] { ++edits; });
        strip->resize(400, 150);
        strip->setGlance(glance_of(30));
        strip->show();
        QCoreApplication::processEvents();
    }
    bool press(int key) { return press_key(*strip, key); }
    bool seen(std::size_t cell) const {
        const QRect place = strip->cellRect(cell);
        return place.left() >= 0 && place.right() < strip->viewport()->width();
    }

    std::unique_ptr<SheetStrip> strip;
    std::vector<Rows> told;
    int edits = 0;
};

TEST_F(Strip, KeysWalkTheSheetsAndSelectTheirRecords) {
    EXPECT_TRUE(press(Qt::Key_Home));
    EXPECT_EQ(strip->currentCell(), 0U);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(strip->currentCell(), 2U);
    EXPECT_EQ(strip->selectedRows(), Rows{0});
    press(Qt::Key_Right);
    EXPECT_EQ(strip->selectedRows(), Rows{}) << "a plain page has no record";
    press(Qt::Key_Left);
    EXPECT_THAT(told, ElementsAre(Rows{0}, Rows{}, Rows{0}));
}

TEST_F(Strip, HomeAndEndGoToTheEndsAndScroll) {
    press(Qt::Key_End);
    EXPECT_EQ(strip->currentCell(), 29U);
    EXPECT_TRUE(seen(29));
    EXPECT_FALSE(seen(0));
    press(Qt::Key_Right);
    EXPECT_EQ(strip->currentCell(), 29U) << "there is nothing behind the last";
    press(Qt::Key_Home);
    EXPECT_EQ(strip->currentCell(), 0U);
    EXPECT_TRUE(seen(0));
    press(Qt::Key_Left);
    EXPECT_EQ(strip->currentCell(), 0U);
}

TEST_F(Strip, EnterEditsARecordAndLeavesPlainPagesToTheDialog) {
    press(Qt::Key_Home);
    EXPECT_FALSE(press(Qt::Key_Return));
    EXPECT_EQ(edits, 0);
    strip->goTo(2);
    EXPECT_TRUE(press(Qt::Key_Return));
    EXPECT_TRUE(press(Qt::Key_Enter));
    EXPECT_EQ(edits, 2);
}

TEST_F(Strip, OtherKeysAreNotTaken) {
    EXPECT_FALSE(press(Qt::Key_A));
    EXPECT_FALSE(press(Qt::Key_Escape));
    strip->setGlance({});
    EXPECT_FALSE(press(Qt::Key_Right));
    EXPECT_EQ(strip->currentCell(), std::nullopt);
}

TEST_F(Strip, AClickSelectsTheSheetUnderIt) {
    click_at(*strip->viewport(), strip->cellRect(2).center());
    EXPECT_EQ(strip->currentCell(), 2U);
    EXPECT_THAT(told, ElementsAre(Rows{0}));
    click_at(*strip->viewport(), strip->cellRect(1).center());
    EXPECT_THAT(told, ElementsAre(Rows{0}, Rows{}));
    click_at(*strip->viewport(), QPoint(1, 1));
    EXPECT_EQ(strip->currentCell(), 1U) << "beside the sheets nothing happens";
}

TEST_F(Strip, AClickWithControlTakesRecordsAlong) {
    click_at(*strip->viewport(), strip->cellRect(2).center());
    strip->horizontalScrollBar()->setValue(strip->cellRect(5).left());
    click_at(*strip->viewport(), strip->cellRect(5).center(), Qt::ControlModifier);
    EXPECT_EQ(strip->selectedRows(), (Rows{0, 1}));
    click_at(*strip->viewport(), strip->cellRect(5).center(), Qt::ControlModifier);
    EXPECT_EQ(strip->selectedRows(), Rows{0});
}

TEST_F(Strip, ADoubleClickEditsARecord) {
    click_at(*strip->viewport(), strip->cellRect(1).center(), Qt::NoModifier, QEvent::MouseButtonDblClick);
    EXPECT_EQ(edits, 0);
    click_at(*strip->viewport(), strip->cellRect(2).center(), Qt::NoModifier, QEvent::MouseButtonDblClick);
    EXPECT_EQ(edits, 1);
}

TEST_F(Strip, FollowsTheTableWithoutAnEcho) {
    strip->setSelectedRows({9});
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(strip->currentCell(), 29U);
    EXPECT_TRUE(seen(29)) << "what is selected comes into sight";
    strip->setSelectedRows({});
    EXPECT_EQ(strip->selectedRows(), Rows{});
    EXPECT_EQ(strip->currentCell(), 29U);
    strip->setSelectedRows({77});
    EXPECT_EQ(strip->currentCell(), 29U) << "a record without sheets";
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Strip, AnotherJobKeepsTheSelectionAndTheCurrentSheet) {
    strip->goTo(5);
    told.clear();
    strip->setGlance(glance_of(12));
    EXPECT_EQ(strip->currentCell(), 5U);
    EXPECT_EQ(strip->selectedRows(), Rows{1});
    strip->setGlance(glance_of(3));
    EXPECT_EQ(strip->currentCell(), 2U);
    strip->setGlance(glance_of(0));
    EXPECT_EQ(strip->currentCell(), std::nullopt);
    EXPECT_THAT(told, IsEmpty());
    strip->goTo(0);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Strip, FindsSheetsByPlaceAlsoWhenScrolled) {
    for (const int value : {0, 300, strip->horizontalScrollBar()->maximum()}) {
        strip->horizontalScrollBar()->setValue(value);
        for (std::size_t cell = 0; cell < 30; ++cell) {
            EXPECT_EQ(strip->cellAt(strip->cellRect(cell).center()), cell);
        }
    }
    EXPECT_TRUE(strip->cellRect(30).isEmpty());
    EXPECT_EQ(strip->cellAt({100000, 20}), std::nullopt);
    EXPECT_EQ(strip->cellAt({-100000, 20}), std::nullopt);
}

/// How many pixels have about that color.
int pixels_like(const QImage& image, QRgb color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            count += std::abs(qRed(pixel) - qRed(color)) < 6 && std::abs(qGreen(pixel) - qGreen(color)) < 6 &&
                             std::abs(qBlue(pixel) - qBlue(color)) < 6
                         ? 1
                         : 0;
        }
    }
    return count;
}

TEST_F(Strip, PaintsPaperAsPaperOnTheGroundOfThePalette) {
    for (const QColor base : {QColor(Qt::white), QColor(30, 32, 36)}) {
        QPalette palette = strip->palette();
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, base == QColor(Qt::white) ? Qt::black : Qt::white);
        palette.setColor(QPalette::Highlight, QColor(61, 123, 224));
        strip->setPalette(palette);
        strip->setSelectedRows({});
        const QImage plain = strip->grab().toImage();
        EXPECT_GT(pixels_like(plain, qRgb(0xBC, 0xD9, 0xF2)), 1000) << "blue paper";
        EXPECT_GT(pixels_like(plain, base.rgb()), 3000) << "the ground";
        EXPECT_GT(pixels_like(plain, qRgb(0x14, 0x97, 0x8A)), 50) << "the insert's mark";
        strip->setSelectedRows({0});
        const QImage selected = strip->grab().toImage();
        const QRgb tint = base == QColor(Qt::white) ? qRgb(197, 215, 246) : qRgb(39, 59, 92);
        EXPECT_GT(pixels_like(selected, tint), pixels_like(plain, tint) + 500) << "the tint of the selection";
    }
}

TEST_F(Strip, GrowsWithItsFont) {
    const int before = strip->sizeHint().height();
    QFont font = strip->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    strip->setFont(font);
    EXPECT_GT(strip->sizeHint().height(), before * 3 / 2);
    EXPECT_LT(before, 200) << "beside the pane there is little room";
}

TEST_F(Strip, AManySheetsJobIsPlannedAndPainted) {
    strip->setGlance(glance_of(3000));
    press(Qt::Key_End);
    EXPECT_TRUE(seen(2999));
    EXPECT_FALSE(strip->grab().isNull());
}

class StripRead : public Strip {
  protected:
    QAccessibleInterface& list() { return *QAccessible::queryAccessibleInterface(strip.get()); }
};

TEST_F(StripRead, IsAListOfSentences) {
    EXPECT_EQ(list().role(), QAccessible::List);
    EXPECT_EQ(list().text(QAccessible::Name), "Sheets of the job");
    ASSERT_EQ(list().childCount(), 30);
    for (int i = 0; i < 30; ++i) {
        QAccessibleInterface* const item = list().child(i);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->role(), QAccessible::ListItem);
        EXPECT_EQ(item->text(QAccessible::Name), QString("Sheet %1").arg(i));
        EXPECT_EQ(item->text(QAccessible::Description), "");
        EXPECT_EQ(item->parent(), &list());
        EXPECT_EQ(list().indexOfChild(item), i);
        EXPECT_EQ(list().child(i), item) << "the same each time";
        EXPECT_EQ(item->childCount(), 0);
    }
    EXPECT_EQ(list().child(30), nullptr);
    EXPECT_EQ(list().child(-1), nullptr);
    EXPECT_EQ(list().indexOfChild(&list()), -1);
}

TEST_F(StripRead, ItemsSayWhetherTheyAreSelectedAndSeen) {
    strip->setSelectedRows({0});
    EXPECT_TRUE(list().child(2)->state().selected);
    EXPECT_TRUE(list().child(2)->state().selectable);
    EXPECT_FALSE(list().child(1)->state().selectable) << "a plain page";
    EXPECT_FALSE(list().child(5)->state().selected);
    EXPECT_FALSE(list().child(0)->state().offscreen);
    EXPECT_TRUE(list().child(29)->state().offscreen);
    strip->setEnabled(false);
    EXPECT_TRUE(list().child(2)->state().disabled);
}

TEST_F(StripRead, ItemsCanBePressed) {
    QAccessibleInterface* const item = list().child(5);
    QAccessibleActionInterface* const action = item->actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction("no such action");
    EXPECT_THAT(told, IsEmpty());
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(told, ElementsAre(Rows{1}));
    EXPECT_EQ(strip->currentCell(), 5U);
}

TEST_F(StripRead, ItemsOfAShorterJobAreInvalidAndComeBack) {
    QAccessibleInterface* const item = list().child(20);
    EXPECT_TRUE(item->isValid());
    strip->setGlance(glance_of(3));
    EXPECT_FALSE(item->isValid());
    EXPECT_TRUE(item->state().invalid);
    EXPECT_EQ(item->text(QAccessible::Name), "");
    EXPECT_EQ(list().childCount(), 3);
    EXPECT_EQ(list().child(20), nullptr);
    strip->setGlance(glance_of(21));
    EXPECT_EQ(list().child(20), item);
    EXPECT_TRUE(item->isValid());
}

TEST_F(StripRead, ASheetIsFoundByItsPlaceOnTheScreen) {
    const QRect place = list().child(1)->rect();
    EXPECT_EQ(list().childAt(place.center().x(), place.center().y()), list().child(1));
    EXPECT_EQ(list().childAt(-5000, -5000), nullptr);
}

TEST_F(StripRead, TheFocusedChildIsTheCurrentSheet) {
    strip->clearFocus();
    EXPECT_EQ(list().focusChild(), nullptr);
    press(Qt::Key_Home);
    testing::activate(*strip);
    strip->setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(strip->hasFocus());
    EXPECT_EQ(list().focusChild(), list().child(0));
    press(Qt::Key_Right);
    EXPECT_EQ(list().focusChild(), list().child(1));
    EXPECT_TRUE(list().child(1)->state().focused);
}

} // namespace
} // namespace specialpages::qt
