#include "records/list_moves.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using test::cover_back;
using test::cover_front;
using test::exception;
using test::insert_after;
using test::insert_before_page_one;
using test::marked;
using test::unmarked;

const std::size_t kPastEveryEnd = std::numeric_limits<std::size_t>::max();

// May swap

TEST(ListMoves, OnlyInsertsAtOnePageWithOneOptionMaySwap) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(8)};
    EXPECT_TRUE(may_swap(list, 0));
    EXPECT_FALSE(may_swap(list, 1));
}

TEST(ListMoves, NothingSwapsPastTheEnd) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2)};
    EXPECT_FALSE(may_swap(list, 1));
    EXPECT_FALSE(may_swap(list, 2));
    EXPECT_FALSE(may_swap(list, kPastEveryEnd));
    EXPECT_FALSE(may_swap({}, 0));
    EXPECT_FALSE(may_swap(RecordList{insert_after(3)}, 0));
}

TEST(ListMoves, CoversAndExceptionsNeverSwap) {
    EXPECT_FALSE(may_swap(RecordList{cover_front(), insert_after(0)}, 0));
    EXPECT_FALSE(may_swap(RecordList{exception("3"), insert_after(3)}, 0));
    EXPECT_FALSE(may_swap(RecordList{insert_after(3), exception("3")}, 0));
    EXPECT_FALSE(may_swap(RecordList{exception("3"), exception("3")}, 0));
    EXPECT_FALSE(may_swap(RecordList{cover_back(), cover_back()}, 0));
}

TEST(ListMoves, PageAndOptionAreComparedAsTexts) {
    const auto three = insert_after(3);
    EXPECT_FALSE(may_swap(RecordList{three, three.with(RecordKey::page, "03")}, 0));
    EXPECT_FALSE(may_swap(RecordList{three, three.with(RecordKey::insertoption, "00")}, 0));
    EXPECT_FALSE(may_swap(RecordList{insert_after(0), insert_before_page_one()}, 0));
    EXPECT_TRUE(may_swap(RecordList{insert_before_page_one(1), insert_before_page_one(2)}, 0));
}

// Up and Down are enabled

TEST(ListMoves, InAPairOfInsertsTheLowerMayMoveUpAndNotDown) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(8)};
    EXPECT_TRUE(may_move_up(list, {1}));
    EXPECT_FALSE(may_move_down(list, {1}));
    EXPECT_FALSE(may_move_up(list, {0}));
    EXPECT_TRUE(may_move_down(list, {0}));
}

TEST(ListMoves, AnInsertAloneAtItsPageMovesNowhere) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(8)};
    EXPECT_FALSE(may_move_up(list, {2}));
    EXPECT_FALSE(may_move_down(list, {2}));
}

TEST(ListMoves, NothingSelectedMovesNowhere) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2)};
    EXPECT_FALSE(may_move_up(list, {}));
    EXPECT_FALSE(may_move_down(list, {}));
    EXPECT_FALSE(may_move_up({}, {}));
    EXPECT_FALSE(may_move_down({}, {}));
}

TEST(ListMoves, OneRowThatMayNotMoveHoldsTheWholeSelection) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(3, 3), exception("5")};
    EXPECT_TRUE(may_move_up(list, {1, 2}));
    EXPECT_FALSE(may_move_up(list, {0, 1}));
    EXPECT_FALSE(may_move_up(list, {1, 3}));
    EXPECT_TRUE(may_move_down(list, {0, 1}));
    EXPECT_FALSE(may_move_down(list, {1, 2}));
    EXPECT_FALSE(may_move_down(list, {0, 3}));
}

TEST(ListMoves, SelectedRowsPastTheEndCountAsNotSelected) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2)};
    EXPECT_TRUE(may_move_up(list, {1, 2}));
    EXPECT_FALSE(may_move_up(list, {2}));
    EXPECT_FALSE(may_move_down(list, {kPastEveryEnd}));
    EXPECT_EQ(move_up(list, {kPastEveryEnd}), (Moved{list, {}}));
    EXPECT_EQ(move_down(list, {2, kPastEveryEnd}), (Moved{list, {}}));
    EXPECT_EQ(delete_rows(list, {2}), list);
    EXPECT_EQ(mark_rows(list, {2}), list);
    EXPECT_FALSE(may_edit(list, {2}));
    EXPECT_EQ(cover_to_pull_in(RecordList{cover_front(), cover_back()}, {2}), std::nullopt);
}

// Up and Down

TEST(ListMoves, ASelectedInsertMovesUpAndStaysSelected) {
    const RecordList list{cover_front(), insert_after(3, 1), insert_after(3, 2)};
    EXPECT_EQ(move_up(list, {2}), (Moved{{cover_front(), insert_after(3, 2), insert_after(3, 1)}, {1}}));
}

TEST(ListMoves, ASelectedInsertMovesDownAndStaysSelected) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(8)};
    EXPECT_EQ(move_down(list, {0}), (Moved{{insert_after(3, 2), insert_after(3, 1), insert_after(8)}, {1}}));
}

TEST(ListMoves, AdjacentInsertsMoveUpAsABlock) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(3, 3), insert_after(3, 4)};
    EXPECT_EQ(
        move_up(list, {1, 2}),
        (Moved{{insert_after(3, 2), insert_after(3, 3), insert_after(3, 1), insert_after(3, 4)}, {0, 1}}));
}

TEST(ListMoves, AdjacentInsertsMoveDownAsABlock) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(3, 3), insert_after(3, 4)};
    EXPECT_EQ(
        move_down(list, {1, 2}),
        (Moved{{insert_after(3, 1), insert_after(3, 4), insert_after(3, 2), insert_after(3, 3)}, {2, 3}}));
}

TEST(ListMoves, SeparateRowsMoveEachByOne) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2), insert_after(3, 3), insert_after(3, 4)};
    EXPECT_EQ(
        move_up(list, {1, 3}),
        (Moved{{insert_after(3, 2), insert_after(3, 1), insert_after(3, 4), insert_after(3, 3)}, {0, 2}}));
    EXPECT_EQ(
        move_down(list, {0, 2}),
        (Moved{{insert_after(3, 2), insert_after(3, 1), insert_after(3, 4), insert_after(3, 3)}, {1, 3}}));
}

TEST(ListMoves, MovingNothingChangesNothing) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2)};
    EXPECT_EQ(move_up(list, {}), (Moved{list, {}}));
    EXPECT_EQ(move_down(list, {}), (Moved{list, {}}));
    EXPECT_EQ(move_up({}, {0}), (Moved{{}, {}}));
}

TEST(ListMoves, ARowAtTheEdgeStaysWhereItIsAndSelected) {
    const RecordList list{insert_after(3, 1), insert_after(3, 2)};
    EXPECT_EQ(move_up(list, {0}), (Moved{list, {0}}));
    EXPECT_EQ(move_down(list, {1}), (Moved{list, {1}}));
}

RC_GTEST_PROP(ListMovesProperty, MovingUpAndThenDownGivesTheListAndTheSelectionBack, ()) {
    RecordList list;
    const auto pages = *rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 3));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        list.push_back(insert_after(pages[i], static_cast<std::int32_t>(i) + 1));
    }
    std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) {
        return a.integer(RecordKey::page) < b.integer(RecordKey::page);
    });
    RowSet rows;
    for (std::size_t row = 1; row < list.size(); ++row) {
        if (may_swap(list, row - 1) && *rc::gen::arbitrary<bool>()) {
            rows.insert(row);
        }
    }
    RC_PRE(!rows.empty());
    RC_ASSERT(may_move_up(list, rows));

    const auto up = move_up(list, rows);
    RC_ASSERT(up.selection.size() == rows.size());
    RC_ASSERT(may_move_down(up.records, up.selection));
    for (const auto row : rows) {
        RC_ASSERT(up.records[row - 1] == list[row]);
    }
    RC_ASSERT(move_down(up.records, up.selection) == (Moved{list, rows}));
}

// Edit

TEST(ListMoves, RecordsOfOneKindMayBeEditedTogether) {
    const RecordList list{cover_front(), insert_after(3), insert_after(8), exception("9"), cover_back()};
    EXPECT_TRUE(may_edit(list, {0}));
    EXPECT_TRUE(may_edit(list, {0, 4}));
    EXPECT_TRUE(may_edit(list, {1, 2}));
    EXPECT_FALSE(may_edit(list, {0, 1}));
    EXPECT_FALSE(may_edit(list, {2, 3}));
    EXPECT_FALSE(may_edit(list, {}));
    EXPECT_FALSE(may_edit({}, {0}));
}

TEST(ListMoves, KindsAreComparedAsTextsBeforeAnEdit) {
    EXPECT_FALSE(may_edit(RecordList{insert_after(3), insert_after(4).with(RecordKey::type, "01")}, {0, 1}));
}

// Delete

TEST(ListMoves, TheRecordBelowADeletedRowIsMarked) {
    const RecordList list{insert_after(1), marked(insert_after(2)), insert_after(3)};
    EXPECT_EQ(delete_rows(list, {1}), (RecordList{insert_after(1), marked(insert_after(3))}));
}

TEST(ListMoves, TheRecordAboveADeletedLastRowIsMarked) {
    const RecordList list{insert_after(1), insert_after(2), insert_after(3)};
    EXPECT_EQ(delete_rows(list, {2}), (RecordList{insert_after(1), marked(insert_after(2))}));
}

TEST(ListMoves, DeletingABlockMarksTheRecordBelowItOnly) {
    const RecordList list{insert_after(1), insert_after(2), insert_after(3), insert_after(4)};
    EXPECT_EQ(delete_rows(list, {1, 2}), (RecordList{insert_after(1), marked(insert_after(4))}));
    EXPECT_EQ(delete_rows(list, {2, 3}), (RecordList{insert_after(1), marked(insert_after(2))}));
}

TEST(ListMoves, DeletingSeparateRowsMarksANeighbourOfEach) {
    const RecordList list{insert_after(1), insert_after(2), insert_after(3), insert_after(4),
                          insert_after(5)};
    EXPECT_EQ(delete_rows(list, {0, 3}),
              (RecordList{marked(insert_after(2)), insert_after(3), marked(insert_after(5))}));
}

TEST(ListMoves, DeletingBothCoversMarksTheEndsOfWhatRemains) {
    const RecordList list{cover_front(), insert_after(1), insert_after(2), cover_back()};
    EXPECT_EQ(delete_rows(list, {0, 3}), (RecordList{marked(insert_after(1)), marked(insert_after(2))}));
}

TEST(ListMoves, DeletingKeepsTheMarksOfOtherRecords) {
    const RecordList list{marked(insert_after(1)), insert_after(2), unmarked(insert_after(3)),
                          unmarked(insert_after(4))};
    EXPECT_EQ(delete_rows(list, {1}),
              (RecordList{marked(insert_after(1)), marked(insert_after(3)), unmarked(insert_after(4))}));
}

TEST(ListMoves, DeletingEveryRowLeavesNothing) {
    EXPECT_EQ(delete_rows({insert_after(1), insert_after(2)}, {0, 1}), RecordList{});
    EXPECT_EQ(delete_rows({insert_after(1)}, {0}), RecordList{});
}

TEST(ListMoves, DeletingNothingMarksNothing) {
    const RecordList list{insert_after(1), insert_after(2)};
    EXPECT_EQ(delete_rows(list, {}), list);
    EXPECT_EQ(delete_rows({}, {0}), RecordList{});
}

RC_GTEST_PROP(ListMovesProperty, DeletingLeavesExactlyTheUnselectedRecordsInOrder, ()) {
    const auto count = *rc::gen::inRange<std::int32_t>(0, 10);
    const auto drawn = *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, 12));
    const RowSet selected{drawn.begin(), drawn.end()};
    RecordList list;
    RecordList kept;
    for (std::int32_t i = 0; i < count; ++i) {
        list.push_back(unmarked(insert_after(i + 1)));
        if (!selected.contains(static_cast<std::size_t>(i))) {
            kept.push_back(list.back());
        }
    }
    const auto left = delete_rows(list, selected);
    RC_ASSERT(unmark_all(left) == kept);
    RC_ASSERT(marked_rows(left).empty() == (kept.empty() || kept.size() == list.size()));
}

// Marks

TEST(ListMoves, MarksExactlyTheSelectedRecords) {
    const RecordList list{marked(insert_after(1)), insert_after(2), unmarked(insert_after(3))};
    EXPECT_EQ(mark_rows(list, {1, 2}),
              (RecordList{unmarked(insert_after(1)), marked(insert_after(2)), marked(insert_after(3))}));
}

TEST(ListMoves, WithNothingSelectedTheMarksStay) {
    const RecordList list{marked(insert_after(1)), insert_after(2)};
    EXPECT_EQ(mark_rows(list, {}), list);
    EXPECT_EQ(mark_rows({}, {0}), RecordList{});
}

TEST(ListMoves, UnmarkingGivesARecordThatWasReadBackItsMark) {
    EXPECT_EQ(unmark_all({insert_after(1), marked(insert_after(2)), unmarked(insert_after(3))}),
              (RecordList{unmarked(insert_after(1)), unmarked(insert_after(2)), unmarked(insert_after(3))}));
    EXPECT_EQ(unmark_all({}), RecordList{});
}

TEST(ListMoves, OnlyTheTextTrueIsAMark) {
    const RecordList list{marked(insert_after(1)), insert_after(2), unmarked(insert_after(3)),
                          insert_after(4).with(RecordKey::selected, "1"), marked(insert_after(5))};
    EXPECT_EQ(marked_rows(list), (RowSet{0, 4}));
    EXPECT_EQ(marked_rows({}), RowSet{});
}

TEST(ListMoves, MarkedRowsAreTheRowsThatWereMarked) {
    const RecordList list{insert_after(1), insert_after(2), insert_after(3), insert_after(4)};
    EXPECT_EQ(marked_rows(mark_rows(list, {0, 3})), (RowSet{0, 3}));
    EXPECT_EQ(marked_rows(mark_rows(mark_rows(list, {0, 3}), {1})), RowSet{1});
}

// The two covers

TEST(ListMoves, ASelectedFrontCoverPullsInTheBackCover) {
    const RecordList list{cover_front(), insert_after(3), cover_back()};
    EXPECT_EQ(cover_to_pull_in(list, {0}), 2U);
    EXPECT_EQ(cover_to_pull_in(list, {0, 1}), 2U);
}

TEST(ListMoves, ASelectedBackCoverPullsInTheFrontCover) {
    const RecordList list{cover_front(), insert_after(3), cover_back()};
    EXPECT_EQ(cover_to_pull_in(list, {2}), 0U);
    EXPECT_EQ(cover_to_pull_in(list, {1, 2}), 0U);
}

TEST(ListMoves, CoversThatAreBothSelectedPullInNothing) {
    EXPECT_EQ(cover_to_pull_in(RecordList{cover_front(), cover_back()}, {0, 1}), std::nullopt);
}

TEST(ListMoves, ALoneCoverPullsInNothing) {
    EXPECT_EQ(cover_to_pull_in(RecordList{cover_front(), insert_after(3)}, {0}), std::nullopt);
    EXPECT_EQ(cover_to_pull_in(RecordList{insert_after(3), cover_back()}, {1}), std::nullopt);
    EXPECT_EQ(cover_to_pull_in(RecordList{cover_front()}, {0}), std::nullopt);
}

TEST(ListMoves, SelectedInsertsAndExceptionsPullInNoCover) {
    const RecordList list{cover_front(), insert_after(1), exception("3"), cover_back()};
    EXPECT_EQ(cover_to_pull_in(list, {1, 2}), std::nullopt);
    EXPECT_EQ(cover_to_pull_in(list, {}), std::nullopt);
    EXPECT_EQ(cover_to_pull_in({}, {0}), std::nullopt);
}

TEST(ListMoves, ABackCoverThatIsNotLastIsNotPulledIn) {
    EXPECT_EQ(cover_to_pull_in(RecordList{cover_front(), cover_back(), insert_after(3)}, {0}), std::nullopt);
    EXPECT_EQ(cover_to_pull_in(RecordList{insert_after(3), cover_front(), cover_back()}, {2}), std::nullopt);
}

TEST(ListMoves, TheRuleOfTheFrontCoverEndsTheQuestionEvenWhenItAddsNothing) {
    // Two front covers, as only a hand-made ticket has: the second is the first selected record.
    const RecordList list{cover_front(), cover_front(), cover_back()};
    EXPECT_EQ(cover_to_pull_in(list, {1}), 2U);
    EXPECT_EQ(cover_to_pull_in(list, {1, 2}), std::nullopt);
}

} // namespace
} // namespace specialpages
