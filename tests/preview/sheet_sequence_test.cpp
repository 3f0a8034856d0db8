#include "preview/sheet_sequence.h"
#include "preview/sheet_texts.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace specialpages::preview {
namespace {

using specialpages::test::cover_back;
using specialpages::test::cover_front;
using specialpages::test::exception;
using specialpages::test::from_interposer;
using specialpages::test::insert_after;
using specialpages::test::insert_before_page_one;
using test::texts_of;
using Texts = std::vector<std::string>;
using Notes = std::vector<SheetNote>;

SpecialPageRecord printed(const SpecialPageRecord& cover, int option) {
    return cover.with(RecordKey::printingoptions, std::to_string(option));
}
SpecialPageRecord sided(const std::string& pages, int twoSidePrint) {
    return exception(pages).with(RecordKey::twoSidePrint, std::to_string(twoSidePrint));
}
SheetSequence on_one_side(const RecordList& records, std::int64_t pages) {
    return sheet_sequence(records, {pages, Sides::one});
}
SheetSequence on_two_sides(const RecordList& records, std::int64_t pages) {
    return sheet_sequence(records, {pages, Sides::longEdge});
}
SheetSequence of_unknown_length(const RecordList& records) {
    return sheet_sequence(records, {});
}

TEST(SheetSequence, PlainPagesAreOneRun) {
    EXPECT_EQ(texts_of(on_one_side({}, 24)), (Texts{"pages 1-24 x24"}));
    EXPECT_EQ(texts_of(on_two_sides({}, 24)), (Texts{"pages 1-24 x12 long"}));
    EXPECT_EQ(texts_of(on_two_sides({}, 23)), (Texts{"pages 1-23 x12 long"}));
}

TEST(SheetSequence, NoPagesLeaveCoversAndInsertsBeforePageOne) {
    EXPECT_EQ(texts_of(on_one_side({}, 0)), Texts{});
    const SheetSequence sequence = on_one_side({printed(cover_front(), 1), insert_before_page_one(2),
                                                insert_after(1), exception("1-2"), printed(cover_back(), 3)},
                                               0);
    EXPECT_EQ(texts_of(sequence), (Texts{"front #0 -", "insert #1 x2", "back #4 -"}));
    EXPECT_EQ(sequence.notes, (Notes{{2, NoteReason::pastEnd}, {3, NoteReason::pastEnd}}));
    EXPECT_EQ(sheet_count(sequence), 4);
}

TEST(SheetSequence, ANegativeNumberOfPagesIsNone) {
    EXPECT_EQ(on_one_side({insert_before_page_one()}, -3), on_one_side({insert_before_page_one()}, 0));
}

TEST(SheetSequence, AMillionPagesCostAsMuchAsTheirSpecialPages) {
    const SheetSequence sequence = on_two_sides({insert_after(500'001)}, 1'000'000);
    EXPECT_EQ(texts_of(sequence),
              (Texts{"pages 1-500001 x250001 long", "insert #0 x1", "pages 500002-1000000 x250000 long"}));
    EXPECT_EQ(sheet_count(sequence), 500'002);
}

TEST(SheetSequence, AnInsertAfterAnOddPageEndsTheTwoSidedSheet) {
    const SheetSequence sequence = on_two_sides({insert_after(3)}, 6);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-3 x2 long", "insert #0 x1", "pages 4-6 x2 long"}));
    EXPECT_EQ(sheet_faces(sequence.runs[0], 1), (SheetFaces{3, 0}));
    EXPECT_EQ(sheet_faces(sequence.runs[2], 0), (SheetFaces{4, 5}));
    EXPECT_EQ(sheet_faces(sequence.runs[2], 1), (SheetFaces{6, 0}));
}

TEST(SheetSequence, AnInsertAfterAnEvenPageLeavesTheSheetsWhole) {
    EXPECT_EQ(texts_of(on_two_sides({insert_after(4)}, 6)),
              (Texts{"pages 1-4 x2 long", "insert #0 x1", "pages 5-6 x1 long"}));
}

TEST(SheetSequence, InsertsAfterOnePageKeepTheOrderOfTheList) {
    EXPECT_EQ(texts_of(on_one_side({insert_after(2, 3), insert_after(2, 1), insert_after(2, 2)}, 2)),
              (Texts{"pages 1-2 x2", "insert #0 x3", "insert #1 x1", "insert #2 x2"}));
}

TEST(SheetSequence, AListOutOfOrderGivesSheetsInOrder) {
    EXPECT_EQ(texts_of(on_one_side({cover_back(), insert_after(4), insert_after(1), cover_front()}, 5)),
              (Texts{"front #3 -", "pages 1-1 x1", "insert #2 x1", "pages 2-4 x3", "insert #1 x1",
                     "pages 5-5 x1", "back #0 -"}));
}

TEST(SheetSequence, AnInsertAfterTheLastPageStandsBeforeTheBackCover) {
    EXPECT_EQ(texts_of(on_one_side({insert_after(2), cover_back()}, 2)),
              (Texts{"pages 1-2 x2", "insert #0 x1", "back #1 -"}));
}

TEST(SheetSequence, AnInsertPastTheLastPageIsNotedAndNotDrawn) {
    const SheetSequence sequence = on_one_side({insert_after(2), insert_after(3), cover_back()}, 2);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-2 x2", "insert #0 x1", "back #2 -"}));
    EXPECT_EQ(sequence.notes, (Notes{{1, NoteReason::pastEnd}}));
}

TEST(SheetSequence, AnInsertOfNoSheetIsNoted) {
    for (const int sheets : {0, -4}) {
        const SheetSequence sequence = on_one_side({insert_after(1, sheets)}, 2);
        EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-2 x2"}));
        EXPECT_EQ(sequence.notes, (Notes{{0, NoteReason::noSheets}}));
    }
}

TEST(SheetSequence, AnInsertIsPlacedByItsPageWhateverItsOptionSays) {
    EXPECT_EQ(texts_of(on_one_side({insert_after(2).with(RecordKey::insertoption, "1")}, 3)),
              (Texts{"pages 1-2 x2", "insert #0 x1", "pages 3-3 x1"}));
}

TEST(SheetSequence, BlankCoversTakeNoPages) {
    EXPECT_EQ(texts_of(on_one_side({cover_front(), cover_back()}, 3)),
              (Texts{"front #0 -", "pages 1-3 x3", "back #1 -"}));
}

TEST(SheetSequence, PrintedCoversTakeTheFirstAndTheLastPages) {
    EXPECT_EQ(texts_of(on_one_side({printed(cover_front(), 1), printed(cover_back(), 1)}, 5)),
              (Texts{"front #0 1", "pages 2-4 x3", "back #1 5"}));
    EXPECT_EQ(texts_of(on_one_side({printed(cover_front(), 2), printed(cover_back(), 2)}, 5)),
              (Texts{"front #0 -/1", "pages 2-4 x3", "back #1 -/5"}));
    EXPECT_EQ(texts_of(on_one_side({printed(cover_front(), 3), printed(cover_back(), 3)}, 5)),
              (Texts{"front #0 1/2", "pages 3-3 x1", "back #1 4/5"}));
}

TEST(SheetSequence, TheFrontCoverIsServedFirstWhenPagesRunOut) {
    const RecordList both{printed(cover_front(), 3), printed(cover_back(), 3)};
    EXPECT_EQ(texts_of(on_one_side(both, 4)), (Texts{"front #0 1/2", "back #1 3/4"}));
    EXPECT_EQ(texts_of(on_one_side(both, 3)), (Texts{"front #0 1/2", "back #1 3/-"}));
    EXPECT_EQ(texts_of(on_one_side(both, 2)), (Texts{"front #0 1/2", "back #1 -"}));
    EXPECT_EQ(texts_of(on_one_side(both, 1)), (Texts{"front #0 1/-", "back #1 -"}));
}

TEST(SheetSequence, ACoverFromTheInterposerIsNeverPrinted) {
    EXPECT_EQ(texts_of(on_one_side({from_interposer(printed(cover_front(), 3))}, 2)),
              (Texts{"front #0 -", "pages 1-2 x2"}));
}

TEST(SheetSequence, ACoverPrintedInAWayThatThereIsNotIsBlank) {
    for (const int option : {-1, 4}) {
        EXPECT_EQ(texts_of(on_one_side({printed(cover_front(), option)}, 1)),
                  (Texts{"front #0 -", "pages 1-1 x1"}));
    }
}

TEST(SheetSequence, InsertsAfterPagesOfACoverStandNextToIt) {
    EXPECT_EQ(texts_of(on_one_side({printed(cover_front(), 3), insert_before_page_one(), insert_after(1),
                                    insert_after(2), insert_after(5), printed(cover_back(), 3)},
                                   6)),
              (Texts{"front #0 1/2", "insert #1 x1", "insert #2 x1", "insert #3 x1", "pages 3-4 x2",
                     "insert #4 x1", "back #5 5/6"}));
}

TEST(SheetSequence, ACoversPaperHoldsForItsPages) {
    const SheetSequence sequence =
        on_one_side({printed(cover_front(), 1), exception("1"), sided("2-3", 1)}, 3);
    EXPECT_EQ(texts_of(sequence), (Texts{"front #0 1", "exception #2 2-3 x2"}));
    EXPECT_EQ(sequence.notes, (Notes{{1, NoteReason::onCover}}));
}

TEST(SheetSequence, ASecondCoverOfASideIsNoted) {
    const SheetSequence sequence = on_one_side({cover_front(), cover_front(), cover_back(), cover_back()}, 1);
    EXPECT_EQ(texts_of(sequence), (Texts{"front #0 -", "pages 1-1 x1", "back #2 -"}));
    EXPECT_EQ(sequence.notes, (Notes{{1, NoteReason::named}, {3, NoteReason::named}}));
}

TEST(SheetSequence, ACoverOfNoSideIsNoted) {
    const SheetSequence sequence = on_one_side({cover_front().with(RecordKey::page, "2")}, 1);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-1 x1"}));
    EXPECT_EQ(sequence.notes, (Notes{{0, NoteReason::noPages}}));
}

TEST(SheetSequence, ExceptionsBeginAndEndWithASheetOfTheirOwn) {
    EXPECT_EQ(texts_of(on_two_sides({sided("4-5", 2)}, 8)),
              (Texts{"pages 1-3 x2 long", "exception #0 4-5 x1 long", "pages 6-8 x2 long"}));
}

TEST(SheetSequence, ExceptionsHaveSidesOfTheirOwn) {
    EXPECT_EQ(texts_of(on_two_sides({sided("1-2", 1), sided("5-7", 3)}, 7)),
              (Texts{"exception #0 1-2 x2", "pages 3-4 x1 long", "exception #1 5-7 x2 short"}));
    EXPECT_EQ(texts_of(on_one_side({sided("2-4", 2)}, 5)),
              (Texts{"pages 1-1 x1", "exception #0 2-4 x2 long", "pages 5-5 x1"}));
}

TEST(SheetSequence, SidesThatNoDialogMakesAreTheJobs) {
    EXPECT_EQ(texts_of(on_two_sides({sided("1-2", 0)}, 2)), (Texts{"exception #0 1-2 x1 long"}));
    EXPECT_EQ(texts_of(on_one_side({sided("1-2", 7)}, 2)), (Texts{"exception #0 1-2 x2"}));
}

TEST(SheetSequence, AnInsertInAnExceptionEndsItsSheetAndTheExceptionGoesOn) {
    EXPECT_EQ(
        texts_of(on_one_side({sided("2-6", 2), insert_after(4)}, 6)),
        (Texts{"pages 1-1 x1", "exception #0 2-4 x2 long", "insert #1 x1", "exception #0 5-6 x1 long"}));
}

TEST(SheetSequence, NeighbouringExceptionsStayApart) {
    EXPECT_EQ(texts_of(on_one_side({sided("1-2", 1), sided("3", 1)}, 3)),
              (Texts{"exception #0 1-2 x2", "exception #1 3-3 x1"}));
}

TEST(SheetSequence, APageThatTwoExceptionsNameIsTheFirstOnes) {
    const SheetSequence sequence =
        on_one_side({sided("4-6", 1), sided("2-9", 1), sided("5", 1), sided("8-10", 1)}, 12);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-1 x1", "exception #1 2-3 x2", "exception #0 4-6 x3",
                                         "exception #1 7-9 x3", "exception #3 10-10 x1", "pages 11-12 x2"}));
    EXPECT_EQ(sequence.notes, (Notes{{2, NoteReason::named}}));
}

TEST(SheetSequence, AnExceptionWhosePagesOfItsOwnArePastTheEndIsNotedSo) {
    const SheetSequence sequence = on_one_side({sided("2-9", 1), sided("5-12", 1)}, 9);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-1 x1", "exception #0 2-9 x8"}));
    EXPECT_EQ(sequence.notes, (Notes{{1, NoteReason::pastEnd}}));
}

TEST(SheetSequence, ExceptionsPastTheEndAreNoted) {
    const SheetSequence sequence = on_one_side({sided("3-7", 1), sided("9-10", 1)}, 4);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-2 x2", "exception #0 3-4 x2"}));
    EXPECT_EQ(sequence.notes, (Notes{{0, NoteReason::partlyPastEnd}, {1, NoteReason::pastEnd}}));
}

TEST(SheetSequence, AnExceptionUpToThePanesLastPageMeansAllThatFollow) {
    const SheetSequence sequence = on_one_side({sided("3-65000", 1)}, 4);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-2 x2", "exception #0 3-4 x2"}));
    EXPECT_EQ(sequence.notes, Notes{});
    EXPECT_EQ(texts_of(on_one_side({sided("3-65000", 1)}, 70'000)),
              (Texts{"pages 1-2 x2", "exception #0 3-65000 x64998", "pages 65001-70000 x5000"}));
}

TEST(SheetSequence, ExceptionsMayLeaveAnEndOpen) {
    EXPECT_EQ(texts_of(on_one_side({sided("-2", 1), sided("4-", 1)}, 6)),
              (Texts{"exception #0 1-2 x2", "pages 3-3 x1", "exception #1 4-6 x3"}));
    EXPECT_EQ(on_one_side({sided("4-", 1)}, 6).notes, Notes{});
}

TEST(SheetSequence, PagesThatCannotBeReadAreNoted) {
    for (const char* pages : {"", "0", "7-5", "-", "x", "0-3", "1--3"}) {
        const SheetSequence sequence = on_one_side({sided(pages, 1)}, 3);
        EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-3 x3"})) << pages;
        EXPECT_EQ(sequence.notes, (Notes{{0, NoteReason::noPages}})) << pages;
    }
}

TEST(SheetSequence, NumbersBeyondAllPagesSaturate) {
    const SheetSequence sequence = on_one_side({sided("2-99999999999", 1), insert_after(2147483647)}, 3);
    EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-1 x1", "exception #0 2-3 x2"}));
    EXPECT_EQ(sequence.notes, (Notes{{1, NoteReason::pastEnd}}));
}

TEST(SheetSequence, RecordsOfNoKnownKindAreLeftOut) {
    EXPECT_EQ(on_one_side({SpecialPageRecord()}, 1), on_one_side({}, 1));
    EXPECT_EQ(on_one_side({specialpages::test::unknown_kind()}, 1), on_one_side({}, 1));
}

TEST(SheetSequence, OfUnknownLengthPagesStandAsFarAsTheyAreNamed) {
    EXPECT_EQ(texts_of(of_unknown_length({})), (Texts{"pages 1.. x?"}));
    const SheetSequence sequence = of_unknown_length(
        {printed(cover_front(), 3), insert_after(4, 2), sided("6-7", 2), printed(cover_back(), 1)});
    EXPECT_EQ(texts_of(sequence), (Texts{"front #0 1/2", "pages 3-4 x2", "insert #1 x2", "pages 5-5 x1",
                                         "exception #2 6-7 x1 long", "pages 8.. x?", "back #3 -"}));
    EXPECT_EQ(sequence.runs.back().printing, CoverPrinting::sideOne)
        << "printed, nobody knows with which page";
    EXPECT_EQ(sequence.notes, Notes{});
    EXPECT_EQ(sheet_count(sequence), std::nullopt);
}

TEST(SheetSequence, OfUnknownLengthAnOpenExceptionIsTheRest) {
    for (const char* pages : {"5-", "5-65000"}) {
        const SheetSequence sequence = of_unknown_length({sided(pages, 2), insert_after(8)});
        EXPECT_EQ(texts_of(sequence), (Texts{"pages 1-4 x4", "exception #0 5-8 x2 long", "insert #1 x1",
                                             "exception #0 9.. x? long"}));
    }
    EXPECT_EQ(texts_of(of_unknown_length({sided("1-", 1)})), (Texts{"exception #0 1.. x?"}));
}

TEST(SheetSequence, OfUnknownLengthAPrintedFrontCoverHasItsPages) {
    EXPECT_EQ(texts_of(of_unknown_length({printed(cover_front(), 1)})),
              (Texts{"front #0 1", "pages 2.. x?"}));
}

TEST(SheetFaces, PlacesOutsideTheRunAreBlank) {
    const SheetSequence sequence = on_two_sides({insert_after(4)}, 4);
    EXPECT_EQ(sheet_faces(sequence.runs[0], -1), SheetFaces{});
    EXPECT_EQ(sheet_faces(sequence.runs[0], 1), (SheetFaces{3, 4}));
    EXPECT_EQ(sheet_faces(sequence.runs[0], 2), SheetFaces{});
    EXPECT_EQ(sheet_faces(sequence.runs[1], 0), SheetFaces{}) << "an insert";
}

TEST(SheetFaces, AnOpenRunHasPagesAtEveryPlace) {
    const SheetSequence sequence = sheet_sequence({}, {std::nullopt, Sides::longEdge});
    EXPECT_EQ(sheet_faces(sequence.runs[0], 1000), (SheetFaces{2001, 2002}));
}

TEST(SheetRows, SelectionGoesBothWays) {
    const SheetSequence sequence = on_one_side({cover_front(), sided("2-6", 2), insert_after(4)}, 8);
    // front, pages 1, exception 2-4, insert, exception 5-6, pages 7-8
    EXPECT_EQ(runs_of_rows(sequence, {1}), (std::set<std::size_t>{2, 4}));
    EXPECT_EQ(runs_of_rows(sequence, {0, 2}), (std::set<std::size_t>{0, 3}));
    EXPECT_EQ(runs_of_rows(sequence, {9}), std::set<std::size_t>{});
    EXPECT_EQ(rows_of_runs(sequence, {1, 2, 3, 99}), (std::set<std::size_t>{1, 2}));
}

} // namespace
} // namespace specialpages::preview
