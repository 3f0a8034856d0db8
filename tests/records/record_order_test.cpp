#include "records/record_builder.h"
#include "records/record_order.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::cover_back;
using test::cover_front;
using test::exception;
using test::insert_after;
using test::insert_before_page_one;
using test::unknown_kind;

TEST(RecordOrder, PutsTheFrontCoverFirstAndTheBackCoverLast) {
    EXPECT_EQ(merge_covers({insert_after(3), exception("5")}, {cover_front(), cover_back()}),
              (RecordList{cover_front(), insert_after(3), exception("5"), cover_back()}));
}

TEST(RecordOrder, PlacesCoversByTheirPageWhateverOrderTheyComeIn) {
    EXPECT_EQ(merge_covers({insert_after(3)}, {cover_back(), cover_front()}),
              (RecordList{cover_front(), insert_after(3), cover_back()}));
}

TEST(RecordOrder, DropsCoversThatAreNeitherFrontNorBack) {
    EXPECT_EQ(merge_covers({insert_after(3)}, {cover_front().with(RecordKey::page, "2")}),
              RecordList{insert_after(3)});
    EXPECT_EQ(merge_covers({}, {cover_front().with(RecordKey::page, "-1")}), RecordList{});
}

TEST(RecordOrder, NoCoversLeaveTheStoreAsItIs) {
    EXPECT_EQ(merge_covers({insert_after(3)}, {}), RecordList{insert_after(3)});
    EXPECT_EQ(merge_covers({}, {}), RecordList{});
}

TEST(RecordOrder, AnEmptyStoreTakesTheInsertsWhole) {
    const RecordList inserts{insert_after(3), insert_after(8)};
    EXPECT_EQ(merge_inserts({}, inserts), inserts);
    EXPECT_EQ(merge_inserts(inserts, {}), inserts);
}

TEST(RecordOrder, AllInsertsGoDirectlyAfterALoneFrontCover) {
    EXPECT_EQ(merge_inserts({cover_front()}, {insert_after(1), insert_after(3), insert_after(9)}),
              (RecordList{cover_front(), insert_after(1), insert_after(3), insert_after(9)}));
}

TEST(RecordOrder, AllInsertsGoBeforeALoneBackCover) {
    EXPECT_EQ(merge_inserts({cover_back()}, {insert_before_page_one(), insert_after(3)}),
              (RecordList{insert_before_page_one(), insert_after(3), cover_back()}));
}

TEST(RecordOrder, InsertsStandBetweenTheTwoCovers) {
    EXPECT_EQ(merge_inserts({cover_front(), cover_back()}, {insert_after(1), insert_after(2)}),
              (RecordList{cover_front(), insert_after(1), insert_after(2), cover_back()}));
}

TEST(RecordOrder, InsertsStandOnBothSidesOfAnException) {
    EXPECT_EQ(merge_inserts({cover_front(), exception("5-7")}, {insert_after(3), insert_after(9)}),
              (RecordList{cover_front(), insert_after(3), exception("5-7"), insert_after(9)}));
}

TEST(RecordOrder, AnInsertInsideAnExceptionsRangeStandsAfterIt) {
    EXPECT_EQ(merge_inserts({exception("5-7")}, {insert_after(6)}),
              (RecordList{exception("5-7"), insert_after(6)}));
}

TEST(RecordOrder, AtEqualPagesTheExceptionComesFirstWhicheverIsMergedLast) {
    const RecordList expected{exception("5-7"), insert_after(5)};
    EXPECT_EQ(merge_inserts({exception("5-7")}, {insert_after(5)}), expected);
    EXPECT_EQ(merge_exceptions({insert_after(5)}, {exception("5-7")}), expected);
}

TEST(RecordOrder, AnInsertOnePageBelowAnExceptionStandsBeforeItWhicheverIsMergedLast) {
    const RecordList expected{insert_after(4), exception("5-7")};
    EXPECT_EQ(merge_inserts({exception("5-7")}, {insert_after(4)}), expected);
    EXPECT_EQ(merge_exceptions({insert_after(4)}, {exception("5-7")}), expected);
}

TEST(RecordOrder, InsertsBeforePageOneStandBeforeEveryExceptionWhicheverIsMergedLast) {
    const RecordList expected{insert_before_page_one(4), insert_before_page_one(5), exception("1"),
                              insert_after(1), cover_back()};
    EXPECT_EQ(merge_inserts({exception("1"), cover_back()},
                            {insert_before_page_one(4), insert_before_page_one(5), insert_after(1)}),
              expected);
    EXPECT_EQ(merge_exceptions(
                  {insert_before_page_one(4), insert_before_page_one(5), insert_after(1), cover_back()},
                  {exception("1")}),
              expected);
}

TEST(RecordOrder, InsertsAtOnePageKeepTheOrderInWhichTheyCome) {
    EXPECT_EQ(merge_inserts({exception("2"), exception("4")},
                            {insert_after(3, 9), insert_after(3, 1), insert_after(3, 5)}),
              (RecordList{exception("2"), insert_after(3, 9), insert_after(3, 1), insert_after(3, 5),
                          exception("4")}));
}

TEST(RecordOrder, PagesAreComparedAsNumbersNotAsTexts) {
    EXPECT_EQ(merge_inserts({exception("10-12")}, {insert_after(9)}),
              (RecordList{insert_after(9), exception("10-12")}));
    EXPECT_EQ(merge_exceptions({insert_after(9)}, {exception("10")}),
              (RecordList{insert_after(9), exception("10")}));
}

TEST(RecordOrder, ExceptionsGoAfterAFrontAndBeforeABackCover) {
    EXPECT_EQ(merge_exceptions({cover_front()}, {exception("1"), exception("2-3")}),
              (RecordList{cover_front(), exception("1"), exception("2-3")}));
    EXPECT_EQ(merge_exceptions({cover_back()}, {exception("1"), exception("2-3")}),
              (RecordList{exception("1"), exception("2-3"), cover_back()}));
    EXPECT_EQ(merge_exceptions({}, {exception("1")}), RecordList{exception("1")});
    EXPECT_EQ(merge_exceptions({cover_front()}, {}), RecordList{cover_front()});
}

TEST(RecordOrder, ExceptionsGoBehindInsertsBeforePageOneEvenAtTheListsEnd) {
    EXPECT_EQ(merge_exceptions({insert_before_page_one()}, {exception("1"), exception("2")}),
              (RecordList{insert_before_page_one(), exception("1"), exception("2")}));
}

TEST(RecordOrder, ExceptionsPastTheLastInsertAreAppended) {
    EXPECT_EQ(merge_exceptions({insert_after(2), insert_after(4)},
                               {exception("1"), exception("3"), exception("5"), exception("7-9")}),
              (RecordList{exception("1"), insert_after(2), exception("3"), insert_after(4), exception("5"),
                          exception("7-9")}));
}

TEST(RecordOrder, RebuildingTheInsertsKeepsCoversAtTheEndsAndExceptionsWhereTheyWere) {
    const RecordList list{cover_front(), insert_after(2), exception("5-7"), insert_after(9), cover_back()};
    EXPECT_EQ(merge_inserts(without_type(list, RecordType::insert), {insert_after(7), insert_after(8)}),
              (RecordList{cover_front(), exception("5-7"), insert_after(7), insert_after(8), cover_back()}));
}

TEST(RecordOrder, RemovingATypeKeepsTheOthersInOrder) {
    const RecordList list{cover_front(), insert_after(2), exception("5-7"), insert_after(9), cover_back()};
    EXPECT_EQ(without_type(list, RecordType::cover),
              (RecordList{insert_after(2), exception("5-7"), insert_after(9)}));
    EXPECT_EQ(without_type(list, RecordType::insert),
              (RecordList{cover_front(), exception("5-7"), cover_back()}));
    EXPECT_EQ(without_type(list, RecordType::exception),
              (RecordList{cover_front(), insert_after(2), insert_after(9), cover_back()}));
    EXPECT_EQ(without_type({unknown_kind()}, RecordType::insert), RecordList{unknown_kind()});
}

TEST(RecordOrder, StepsOverRecordsForWhichNoRuleHoldsAndLosesNone) {
    // As a hand-made ticket may hold them: an unknown kind, a cover at page 2, an insert among inserts.
    const auto odd_cover = cover_front().with(RecordKey::page, "2");
    EXPECT_EQ(merge_inserts({unknown_kind(), odd_cover, insert_after(1)}, {insert_after(3), insert_after(5)}),
              (RecordList{unknown_kind(), odd_cover, insert_after(1), insert_after(3), insert_after(5)}));
    EXPECT_EQ(merge_exceptions({unknown_kind(), exception("9")}, {exception("3")}),
              (RecordList{unknown_kind(), exception("9"), exception("3")}));
}

TEST(RecordOrder, AnInsertWithAnUnknownOptionGoesBeforeTheBackCoverOnly) {
    const auto odd = insert_after(1).with(RecordKey::insertoption, "7");
    EXPECT_EQ(merge_inserts({exception("5"), cover_back()}, {odd}),
              (RecordList{exception("5"), odd, cover_back()}));
    EXPECT_EQ(merge_exceptions({odd, insert_after(9)}, {exception("1")}),
              (RecordList{odd, exception("1"), insert_after(9)}));
}

TEST(RecordOrder, AFrontCoverInTheMiddleNeitherDoublesNorLosesInserts) {
    EXPECT_EQ(merge_inserts({exception("5"), cover_front()}, {insert_after(3), insert_after(6)}),
              (RecordList{insert_after(3), exception("5"), cover_front(), insert_after(6)}));
}

TEST(RecordOrder, DropsInsertsAtPageZeroWhateverTheirOption) {
    EXPECT_EQ(without_before_page_one({cover_front(), insert_before_page_one(), insert_after(0),
                                       insert_after(1), exception("1"), insert_before_page_one(2)}),
              (RecordList{cover_front(), insert_after(1), exception("1")}));
    EXPECT_EQ(without_before_page_one({}), RecordList{});
}

TEST(RecordOrder, AnswersTheRecordsOfEachKindInListOrder) {
    const RecordList list{cover_front(),      insert_after(3, 2), exception("5"),
                          insert_after(3, 1), unknown_kind(),     cover_back()};
    EXPECT_EQ(records_of_type(list, 0), (RecordList{cover_front(), cover_back()}));
    EXPECT_EQ(records_of_type(list, 1), (RecordList{insert_after(3, 2), insert_after(3, 1)}));
    EXPECT_EQ(records_of_type(list, 2), RecordList{exception("5")});
    EXPECT_EQ(records_of_type(list, 3), list);
}

TEST(RecordOrder, KindsOtherThanZeroToThreeHaveNoRecords) {
    const RecordList list{cover_front(), insert_after(3), unknown_kind().with(RecordKey::type, "4"),
                          unknown_kind().with(RecordKey::type, "-1")};
    EXPECT_EQ(records_of_type(list, 4), RecordList{});
    EXPECT_EQ(records_of_type(list, -1), RecordList{});
}

TEST(RecordOrder, NumbersSelectedRowsAmongTheirOwnKind) {
    const RecordList list{cover_front(), insert_after(1), insert_after(2), exception("3")};
    EXPECT_EQ(selected_within_type(list, {2}, RecordType::insert), RowSet{1});
    EXPECT_EQ(selected_within_type(list, {2}, RecordType::cover), RowSet{});
    EXPECT_EQ(selected_within_type(list, {0, 1, 2, 3}, RecordType::insert), (RowSet{0, 1}));
    EXPECT_EQ(selected_within_type(list, {0, 1, 2, 3}, RecordType::exception), RowSet{0});
}

TEST(RecordOrder, SelectedRowsPastTheEndCountForNoKind) {
    EXPECT_EQ(selected_within_type({insert_after(1)}, {1, 99}, RecordType::insert), RowSet{});
    EXPECT_EQ(selected_within_type({}, {0}, RecordType::insert), RowSet{});
    EXPECT_EQ(selected_within_type({insert_after(1)}, {}, RecordType::insert), RowSet{});
}

TEST(RecordOrder, ReadsAnExceptionsPages) {
    const auto pages = [](const char* text) {
        return page_range(exception(text));
    };
    EXPECT_EQ(pages("9"), (PageRange{9, 9}));
    EXPECT_EQ(pages("5-7"), (PageRange{5, 7}));
    EXPECT_EQ(pages("5-"), (PageRange{5, 0}));
    EXPECT_EQ(pages("-7"), (PageRange{0, 7}));
    EXPECT_EQ(pages("5-7-9"), (PageRange{5, 7}));
    EXPECT_EQ(pages("-"), (PageRange{0, 0}));
    EXPECT_EQ(pages(""), (PageRange{0, 0}));
    EXPECT_EQ(pages("x"), (PageRange{0, 0}));
    EXPECT_EQ(first_page(exception("12-20")), 12);
    EXPECT_EQ(first_page(exception("12")), 12);
    EXPECT_EQ(first_page(SpecialPageRecord{}), 0);
}

TEST(RecordOrder, ComparesRecordsByTheIntegerOfAnEntry) {
    EXPECT_EQ(pageNumCompareDict(insert_after(9), insert_after(10), RecordKey::page), -1);
    EXPECT_EQ(pageNumCompareDict(insert_after(10), insert_after(9), RecordKey::page), 1);
    EXPECT_EQ(pageNumCompareDict(insert_after(9, 1), insert_after(9, 2), RecordKey::page), 0);
    EXPECT_EQ(pageNumCompareDict(insert_after(9, 1), insert_after(9, 2), RecordKey::insertquantity), -1);
    EXPECT_EQ(pageNumCompareDict(insert_after(0), SpecialPageRecord{}, RecordKey::page), 0);
}

TEST(RecordOrder, ComparesTheEndsOfTheIntegersWithoutOverflow) {
    EXPECT_EQ(numCompare("-2147483648", "2147483647"), -1);
    EXPECT_EQ(numCompare("2147483647", "-2147483648"), 1);
}

TEST(RecordOrder, ComparesTextsByTheirIntegers) {
    EXPECT_EQ(numCompare("9", "10"), -1);
    EXPECT_EQ(numCompare("10", "9"), 1);
    EXPECT_EQ(numCompare("5-7", "5"), 0);
    EXPECT_EQ(numCompare("", "x"), 0);
}

TEST(RecordOrder, ComparesArraysByTheIntegerOfTheirFirstText) {
    using Row = std::vector<std::string>;
    EXPECT_EQ(pageNumCompare(Row{"9", "1"}, Row{"10", "0"}), -1);
    EXPECT_EQ(pageNumCompare(Row{"10"}, Row{"9"}), 1);
    EXPECT_EQ(pageNumCompare(Row{"3", "1"}, Row{"3", "2"}), 0);
    EXPECT_EQ(pageNumCompare(Row{}, Row{"0"}), 0);
    EXPECT_EQ(pageNumCompare(Row{}, Row{"1"}), -1);
}

} // namespace
} // namespace specialpages
