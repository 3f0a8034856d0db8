#include "records/exception_rows.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::exception;
using test::marked;
using test::unmarked;

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
const CustomSize kUndecidedSize{.width = "-1", .length = "-1", .longmeasure = -1};

/// Settings told apart by the size; those of the test records are paper_size(0, 2).
ExceptionSettings paper_size(std::int32_t size, std::int32_t sides = 2) {
    return {.paper = {.size = size, .color = 0, .type = 0, .interposer = false, .custom = {}},
            .twoSidePrint = sides};
}
ExceptionSettings no_change() {
    return {.paper = {.size = -1, .color = -1, .type = -1, .interposer = false, .custom = {}},
            .twoSidePrint = 0};
}
SpecialPageRecord sized(const std::string& pages, std::int32_t size) {
    return exception(pages).with(RecordKey::pagesize, std::to_string(size));
}

// From records.

TEST(ExceptionRows, ARecordGivesARowForItsPages) {
    EXPECT_EQ(rows_of({exception("5"), sized("7-9", 3)}),
              (ExceptionRows{{{5, 5}, paper_size(0)}, {{7, 9}, paper_size(3)}}));
    EXPECT_EQ(rows_of({}), ExceptionRows{});
}

TEST(ExceptionRows, TakeEverySettingOfTheRecord) {
    const SpecialPageRecord record{
        {RecordKey::type, "2"},         {RecordKey::page, "5"},        {RecordKey::pagesize, "1"},
        {RecordKey::pagecolor, "2"},    {RecordKey::pagetype, "3"},    {RecordKey::interposer, "true"},
        {RecordKey::twoSidePrint, "3"}, {RecordKey::width, "100.0"},   {RecordKey::length, "50.0"},
        {RecordKey::longmeasure, "0"},  {RecordKey::selected, "false"}};
    const ExceptionRows rows{{{5, 5},
                              {.paper = {.size = 1,
                                         .color = 2,
                                         .type = 3,
                                         .interposer = true,
                                         .custom = {.width = "100.0", .length = "50.0", .longmeasure = 0}},
                               .twoSidePrint = 3}}};
    EXPECT_EQ(rows_of({record}), rows);
    EXPECT_EQ(formed_records(rows, {}), RecordList{record});
}

TEST(ExceptionRows, RecordsOutOfOrderGiveRowsInOrder) {
    EXPECT_EQ(rows_of({sized("7-9", 3), exception("5")}),
              (ExceptionRows{{{5, 5}, paper_size(0)}, {{7, 9}, paper_size(3)}}));
}

TEST(ExceptionRows, OverlappingRecordsLeaveAPageToTheFirstThatNamesIt) {
    EXPECT_EQ(rows_of({sized("4-6", 1), sized("5-9", 2)}),
              (ExceptionRows{{{4, 6}, paper_size(1)}, {{7, 9}, paper_size(2)}}));
    EXPECT_EQ(rows_of({sized("5-6", 1), sized("1-9", 2)}),
              (ExceptionRows{{{1, 4}, paper_size(2)}, {{5, 6}, paper_size(1)}, {{7, 9}, paper_size(2)}}));
    EXPECT_EQ(rows_of({sized("1-9", 2), sized("5-6", 1)}), (ExceptionRows{{{1, 9}, paper_size(2)}}));
    EXPECT_EQ(rows_of({sized("5", 1), sized("5", 2)}), (ExceptionRows{{{5, 5}, paper_size(1)}}));
}

TEST(ExceptionRows, TouchingRecordsStayTwoRows) {
    EXPECT_EQ(rows_of({sized("5-6", 1), sized("7-8", 2)}),
              (ExceptionRows{{{5, 6}, paper_size(1)}, {{7, 8}, paper_size(2)}}));
    EXPECT_EQ(pages_of(rows_of({sized("5-6", 1), sized("7-8", 2)})), (PageRanges{{5, 8}}));
}

TEST(ExceptionRows, HandMadePagesThatAreNoneHaveNoRows) {
    for (const char* page : {"0", "", "abc", "9-7", "-", "5--3", "-0"}) {
        EXPECT_EQ(rows_of({exception(page)}), ExceptionRows{}) << page;
    }
    EXPECT_EQ(pages_of(rows_of({exception("0-3")})), (PageRanges{{1, 3}}));
    EXPECT_EQ(pages_of(rows_of({exception("-3")})), (PageRanges{{1, 3}}));
}

TEST(ExceptionRows, AHugeHandMadeRangeIsOneRow) {
    const auto rows = rows_of({exception("1-99999999999"), sized("2147483647", 1)});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].pages, (PageRange{1, kHighest}));
    EXPECT_EQ(formed_records(rows, {}), RecordList{unmarked(exception("1-2147483647"))});
}

// Merging.

TEST(ExceptionSettingsMerge, WithoutAPaperOnlyTheSidesChange) {
    const ExceptionSettings old{.paper = {.size = 4,
                                          .color = 5,
                                          .type = 6,
                                          .interposer = true,
                                          .custom = {.width = "1.0", .length = "2.0", .longmeasure = 0}},
                                .twoSidePrint = 2};
    auto asked = no_change();
    EXPECT_EQ(merged_settings(old, asked), old);
    asked.twoSidePrint = 3;
    auto expected = old;
    expected.twoSidePrint = 3;
    EXPECT_EQ(merged_settings(old, asked), expected);
}

TEST(ExceptionSettingsMerge, WithoutASizeTheOldSizeStaysWithItsLengths) {
    const ExceptionSettings old{.paper = {.size = 4,
                                          .color = 5,
                                          .type = 6,
                                          .interposer = true,
                                          .custom = {.width = "1.0", .length = "2.0", .longmeasure = 0}},
                                .twoSidePrint = 2};
    auto asked = no_change();
    asked.paper.color = 8;
    auto expected = old;
    expected.paper.color = 8;
    expected.paper.interposer = false; // the dialog's, as it chooses paper
    EXPECT_EQ(merged_settings(old, asked), expected);
    asked.paper.color = -1;
    asked.paper.type = 9;
    expected = old;
    expected.paper.type = 9;
    expected.paper.interposer = false;
    EXPECT_EQ(merged_settings(old, asked), expected);
}

TEST(ExceptionSettingsMerge, ASizeBringsItsDecidedLengths) {
    const ExceptionSettings old{.paper = {.size = 4,
                                          .color = 5,
                                          .type = 6,
                                          .interposer = false,
                                          .custom = {.width = "1.0", .length = "2.0", .longmeasure = 0}},
                                .twoSidePrint = 2};
    auto asked = no_change();
    asked.paper.size = 9;
    asked.paper.custom = kUndecidedSize;
    auto expected = old;
    expected.paper.size = 9;
    EXPECT_EQ(merged_settings(old, asked), expected);
    asked.paper.custom = {.width = "7.0", .length = "-1", .longmeasure = 1};
    expected.paper.custom = {.width = "7.0", .length = "2.0", .longmeasure = 1};
    EXPECT_EQ(merged_settings(old, asked), expected);
}

TEST(ExceptionSettingsMerge, TheInterposerAloneChoosesPaper) {
    auto asked = no_change();
    asked.paper.interposer = true;
    auto expected = paper_size(4);
    expected.paper.interposer = true;
    EXPECT_EQ(merged_settings(paper_size(4), asked), expected);
}

TEST(ExceptionSettingsNew, NothingStaysUndecided) {
    const ExceptionSettings defaults{.paper = {.size = 4, .color = 5, .type = 6, .custom = {}},
                                     .twoSidePrint = 1};
    EXPECT_EQ(new_settings(no_change(), defaults), defaults);
    auto asked = no_change();
    asked.paper.type = 2;
    asked.paper.custom = kUndecidedSize;
    asked.twoSidePrint = 3;
    EXPECT_EQ(
        new_settings(asked, defaults),
        (ExceptionSettings{.paper = {.size = 4, .color = 5, .type = 2, .custom = {}}, .twoSidePrint = 3}));
}

TEST(ExceptionSettingsNew, MissingDefaultsAreTheFirstChoiceAndOneSided) {
    EXPECT_EQ(new_settings(no_change(), no_change()), paper_size(0, 1));
    auto nothing = no_change();
    nothing.paper.custom = kUndecidedSize;
    EXPECT_EQ(new_settings(nothing, nothing), paper_size(0, 1));
}

// Typed pages.

TEST(ExceptionRows, PagesWithoutARowGetNewOnes) {
    const ExceptionRows rows{{{5, 5}, paper_size(0)}};
    EXPECT_EQ(with_settings(rows, {{3, 3}, {7, 9}}, paper_size(1), paper_size(0)),
              (ExceptionRows{{{3, 3}, paper_size(1)}, {{5, 5}, paper_size(0)}, {{7, 9}, paper_size(1)}}));
}

TEST(ExceptionRows, PagesWithARowAreMerged) {
    const ExceptionRows rows{{{5, 9}, paper_size(4, 2)}};
    auto asked = no_change();
    asked.twoSidePrint = 3;
    EXPECT_EQ(
        with_settings(rows, {{6, 7}}, asked, paper_size(0)),
        (ExceptionRows{{{5, 5}, paper_size(4, 2)}, {{6, 7}, paper_size(4, 3)}, {{8, 9}, paper_size(4, 2)}}));
}

TEST(ExceptionRows, ATypedRangeMayBeginInARowAndEndOutsideAny) {
    const ExceptionRows rows{{{5, 6}, paper_size(4)}, {{7, 8}, paper_size(5)}, {{20, 20}, paper_size(6)}};
    auto asked = no_change();
    asked.twoSidePrint = 3;
    EXPECT_EQ(with_settings(rows, {{6, 10}}, asked, paper_size(0, 1)),
              (ExceptionRows{{{5, 5}, paper_size(4)},
                             {{6, 6}, paper_size(4, 3)},
                             {{7, 8}, paper_size(5, 3)},
                             {{9, 10}, paper_size(0, 3)},
                             {{20, 20}, paper_size(6)}}));
}

TEST(ExceptionRows, NoTypedPagesChangeNothing) {
    const ExceptionRows rows{{{5, 6}, paper_size(4)}};
    EXPECT_EQ(with_settings(rows, {}, paper_size(1), paper_size(0)), rows);
    EXPECT_EQ(without_pages(rows, {}), rows);
    EXPECT_EQ(with_settings({}, {}, paper_size(1), paper_size(0)), ExceptionRows{});
}

TEST(ExceptionRows, PagesThatAreGivenUpLeaveTheirRows) {
    const ExceptionRows rows{{{5, 9}, paper_size(4)}, {{12, 12}, paper_size(5)}};
    EXPECT_EQ(without_pages(rows, {{1, 5}, {7, 7}, {12, 30}}),
              (ExceptionRows{{{6, 6}, paper_size(4)}, {{8, 9}, paper_size(4)}}));
    EXPECT_EQ(without_pages(rows, {{1, kHighest}}), ExceptionRows{});
}

// Records again.

TEST(ExceptionRows, NeighboursOfEqualSettingsJoin) {
    EXPECT_EQ(formed_records({{{5, 5}, paper_size(0)}, {{6, 6}, paper_size(0)}, {{7, 9}, paper_size(0)}}, {}),
              RecordList{unmarked(exception("5-9"))});
}

TEST(ExceptionRows, AGapKeepsEqualSettingsApart) {
    EXPECT_EQ(formed_records({{{5, 5}, paper_size(0)}, {{7, 7}, paper_size(0)}}, {}),
              (RecordList{unmarked(exception("5")), unmarked(exception("7"))}));
}

TEST(ExceptionRows, EverySettingKeepsNeighboursApart) {
    std::vector<ExceptionSettings> others(9, paper_size(0));
    others[0].paper.size = 1;
    others[1].paper.color = 1;
    others[2].paper.type = 1;
    others[3].paper.interposer = true;
    others[4].twoSidePrint = 1;
    others[5].paper.custom.width = "210";
    others[6].paper.custom.length = "297";
    others[7].paper.custom.longmeasure = 0;
    others[8].paper.custom.width = "";
    for (std::size_t i = 0; i < others.size(); ++i) {
        EXPECT_EQ(joined({{{5, 5}, paper_size(0)}, {{6, 6}, others[i]}}).size(), 2U) << i;
    }
}

TEST(ExceptionRows, TheRecordThatBeginsAtAMarkedPageIsMarked) {
    const ExceptionRows rows{{{3, 3}, paper_size(0)}, {{5, 7}, paper_size(0)}, {{8, 8}, paper_size(1)}};
    EXPECT_EQ(formed_records(rows, {{5, 5}, {7, 8}}),
              (RecordList{unmarked(exception("3")), marked(exception("5-7")), marked(sized("8", 1))}));
    EXPECT_EQ(formed_records(rows, {{6, 6}}),
              (RecordList{unmarked(exception("3")), unmarked(exception("5-7")), unmarked(sized("8", 1))}));
    EXPECT_EQ(formed_records({}, {{5, 5}}), RecordList{});
}

} // namespace
} // namespace specialpages
