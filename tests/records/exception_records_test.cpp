#include "records/exception_records.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using test::exception;
using test::marked;
using test::unmarked;

constexpr std::int64_t kAdding = 1;
constexpr std::int64_t kEditing = 2;

/// The paper of the test records; other sizes tell settings apart.
ExceptionSettings paper_size(std::int32_t size) {
    return {.paper = {.size = size, .color = 0, .type = 0, .interposer = false, .custom = {}},
            .twoSidePrint = 2};
}
ExceptionSettings no_change(std::int32_t sides = 0) {
    return {.paper = {.size = -1, .color = -1, .type = -1, .interposer = false, .custom = {}},
            .twoSidePrint = sides};
}
SpecialPageRecord sized(const std::string& pages, std::int32_t size) {
    return exception(pages).with(RecordKey::pagesize, std::to_string(size));
}
SpecialPageRecord sided(const std::string& pages, std::int32_t sides) {
    return exception(pages).with(RecordKey::twoSidePrint, std::to_string(sides));
}

ExceptionRequest request(std::int64_t status, RecordList selected, PageRanges pages,
                         ExceptionSettings asked) {
    return {.status = status,
            .selected = std::move(selected),
            .pages = std::move(pages),
            .asked = std::move(asked),
            .customSize = false,
            .defaults = paper_size(0)};
}
ExceptionRequest add(PageRanges pages, ExceptionSettings asked = paper_size(0)) {
    return request(kAdding, {}, std::move(pages), std::move(asked));
}

RecordList after_ok(const RecordList& records, const ExceptionRequest& asked) {
    const auto result = exceptions_after_ok(rows_of(records), asked);
    EXPECT_FALSE(result.tooMany);
    EXPECT_EQ(rows_of(result.records), joined(result.rows));
    return result.records;
}

// Add.

TEST(ExceptionRecords, AddFormsRecordsOfPagesAndRanges) {
    EXPECT_EQ(after_ok({}, add({{3, 3}, {7, 9}})),
              (RecordList{unmarked(exception("3")), unmarked(exception("7-9"))}));
}

TEST(ExceptionRecords, AddingPagesOfTheSamePaperChangesNothing) {
    EXPECT_EQ(after_ok({exception("5-7")}, add({{5, 6}})), RecordList{unmarked(exception("5-7"))});
}

TEST(ExceptionRecords, AddingPagesOfAnotherPaperSplits) {
    EXPECT_EQ(after_ok({exception("5-7")}, add({{5, 6}}, paper_size(3))),
              (RecordList{unmarked(sized("5-6", 3)), unmarked(exception("7"))}));
    EXPECT_EQ(after_ok({exception("5-7")}, add({{6, 6}}, paper_size(3))),
              (RecordList{unmarked(exception("5")), unmarked(sized("6", 3)), unmarked(exception("7"))}));
}

TEST(ExceptionRecords, SidesAloneKeepThePaperAndSplit) {
    EXPECT_EQ(after_ok({sized("5-7", 4)}, add({{6, 6}}, no_change(3))),
              (RecordList{unmarked(sized("5", 4)), unmarked(sized("6", 4).with(RecordKey::twoSidePrint, "3")),
                          unmarked(sized("7", 4))}));
    EXPECT_EQ(after_ok({sized("5-7", 4)}, add({{6, 6}}, no_change(2))),
              RecordList{unmarked(sized("5-7", 4))});
}

TEST(ExceptionRecords, AddingThePageBetweenTwoJoinsAllThree) {
    EXPECT_EQ(after_ok({exception("5"), exception("7")}, add({{6, 6}})),
              RecordList{unmarked(exception("5-7"))});
}

TEST(ExceptionRecords, ANewPageNeverHoldsNoChange) {
    auto asked = add({{5, 5}}, no_change());
    asked.defaults = {.paper = {.size = 4, .color = 5, .type = 6, .custom = {}}, .twoSidePrint = 1};
    EXPECT_EQ(after_ok({}, asked), RecordList{unmarked(test::with_paper(sided("5", 1), 4, 5, 6))});
}

TEST(ExceptionRecords, AFixedSizeBringsTheDefaultLengths) {
    auto asked = add({{5, 6}}, paper_size(3));
    asked.asked.paper.custom = {.width = "1.0", .length = "2.0", .longmeasure = 0};
    const auto custom = sized("5", 9).with(RecordKey::width, "7.0");
    EXPECT_EQ(after_ok({custom}, asked), RecordList{unmarked(sized("5-6", 3))});
    asked.customSize = true;
    EXPECT_EQ(after_ok({custom}, asked), RecordList{unmarked(sized("5-6", 3)
                                                                 .with(RecordKey::width, "1.0")
                                                                 .with(RecordKey::length, "2.0")
                                                                 .with(RecordKey::longmeasure, "0"))});
}

TEST(ExceptionRecords, AnUndecidedCustomSizeStaysWhereThereIsOne) {
    auto asked = add({{5, 6}}, paper_size(9));
    asked.customSize = true;
    asked.asked.paper.custom = {.width = "-1", .length = "-1", .longmeasure = -1};
    EXPECT_EQ(after_ok({sized("5", 9).with(RecordKey::width, "7.0")}, asked),
              (RecordList{unmarked(sized("5", 9).with(RecordKey::width, "7.0")), unmarked(sized("6", 9))}));
}

TEST(ExceptionRecords, WidthsThatDifferByTextStayApart) {
    EXPECT_EQ(after_ok({exception("5").with(RecordKey::width, "210"), exception("6")}, add({})),
              (RecordList{unmarked(exception("5").with(RecordKey::width, "210")), unmarked(exception("6"))}));
}

TEST(ExceptionRecords, AddMarksWhatBeginsWhereASelectedExceptionBegan) {
    const RecordList records{exception("3"), exception("5-7"), exception("9")};
    const auto asked =
        request(kAdding, {test::insert_after(3), exception("5-7"), exception("9")}, {{8, 8}}, paper_size(0));
    EXPECT_EQ(after_ok(records, asked), (RecordList{unmarked(exception("3")), marked(exception("5-9"))}));
    const auto split = request(kAdding, {exception("5-7")}, {{5, 5}}, paper_size(1));
    EXPECT_EQ(after_ok(records, split), (RecordList{unmarked(exception("3")), marked(sized("5", 1)),
                                                    unmarked(exception("6-7")), unmarked(exception("9"))}));
}

// Edit.

TEST(ExceptionRecords, EditingOneGivesUpThePagesThatAreNotTypedAgain) {
    const auto asked = request(kEditing, {exception("3-6")}, {{4, 5}}, paper_size(0));
    EXPECT_EQ(after_ok({exception("3-6")}, asked), RecordList{unmarked(exception("4-5"))});
    const auto moved = request(kEditing, {exception("3-6")}, {{10, 11}}, paper_size(1));
    EXPECT_EQ(after_ok({exception("3-6"), exception("8")}, moved),
              (RecordList{unmarked(exception("8")), unmarked(sized("10-11", 1))}));
    const auto single = request(kEditing, {exception("8")}, {{9, 9}}, paper_size(0));
    EXPECT_EQ(after_ok({exception("8")}, single), RecordList{unmarked(exception("9"))});
}

TEST(ExceptionRecords, EditingOneWithoutPagesGivesAllUp) {
    EXPECT_EQ(after_ok({exception("3-6"), exception("8")},
                       request(kEditing, {exception("3-6")}, {}, paper_size(0))),
              RecordList{unmarked(exception("8"))});
}

TEST(ExceptionRecords, EditingSeveralGivesUpNone) {
    const RecordList records{exception("3"), exception("5-6")};
    EXPECT_EQ(after_ok(records, request(kEditing, records, {{5, 5}}, paper_size(1))),
              (RecordList{unmarked(exception("3")), unmarked(sized("5", 1)), unmarked(exception("6"))}));
}

TEST(ExceptionRecords, EditingMarksNothing) {
    EXPECT_EQ(
        after_ok({marked(exception("3"))}, request(kEditing, {exception("3")}, {{3, 3}}, paper_size(0))),
        RecordList{unmarked(exception("3"))});
}

TEST(ExceptionRecords, EditingTheWholeJobToItsSecondPageOn) {
    const auto asked = request(kEditing, {exception("1-65000")}, {{2, 65000}}, paper_size(0));
    EXPECT_EQ(after_ok({exception("1-65000")}, asked), RecordList{unmarked(exception("2-65000"))});
}

TEST(ExceptionRecords, OnlyAddAndEditGiveUpOrMark) {
    const auto asked = request(0, {exception("3")}, {{4, 4}}, paper_size(0));
    EXPECT_EQ(after_ok({exception("3")}, asked), RecordList{unmarked(exception("3-4"))});
}

TEST(ExceptionRecords, AHandMadeRecordWithoutPagesGivesUpNone) {
    const auto asked = request(kEditing, {exception("9-7")}, {{4, 4}}, paper_size(0));
    EXPECT_EQ(after_ok({exception("9-7"), exception("8")}, asked),
              (RecordList{unmarked(exception("4")), unmarked(exception("8"))}));
}

// Limit.

PageRanges every_other_page(int count) {
    PageRanges pages;
    for (std::int32_t i = 0; i < count; ++i) {
        pages.push_back({2 * i + 1, 2 * i + 1});
    }
    return pages;
}

TEST(ExceptionRecords, TwoHundredAndFiftyRecordsAreTheLimit) {
    const auto full = exceptions_after_ok({}, add(every_other_page(250)));
    EXPECT_FALSE(full.tooMany);
    EXPECT_EQ(full.records.size(), 250U);
    const auto more = exceptions_after_ok(full.rows, add({{1000, 1000}}));
    EXPECT_TRUE(more.tooMany);
    EXPECT_EQ(more.records.size(), 251U);
    EXPECT_EQ(full.rows.size(), 250U); // what the dialog goes back to
    EXPECT_FALSE(exceptions_after_ok(full.rows, add({{2, 2}})).tooMany);
    EXPECT_TRUE(exceptions_after_ok(full.rows, add({{1, 1}, {600, 600}}, paper_size(1))).tooMany);
}

TEST(ExceptionRecords, TheLimitCountsRecordsAndNotPages) {
    const auto whole = exceptions_after_ok({}, add({{1, 65000}}));
    EXPECT_FALSE(whole.tooMany);
    EXPECT_EQ(whole.records, RecordList{unmarked(exception("1-65000"))});
    EXPECT_EQ(exceptions_after_ok(whole.rows, add(every_other_page(125), paper_size(1))).records.size(),
              250U);
    EXPECT_TRUE(exceptions_after_ok(whole.rows, add(every_other_page(126), paper_size(1))).tooMany);
}

// What the dialog shows.

TEST(ShownExceptions, OneRecordIsShownAsItIs) {
    const auto record = test::with_paper(exception("5-7"), 1, 2, 3);
    EXPECT_EQ(shown_exceptions({record}), (ShownExceptions{"5-7", settings_of(record)}));
    EXPECT_EQ(shown_exceptions({}), ShownExceptions{});
}

TEST(ShownExceptions, DifferencesAreUndecided) {
    const auto shown = shown_exceptions({test::with_paper(exception("3"), 1, 2, 3),
                                         test::with_paper(exception("7-9"), 1, 5, 3),
                                         test::with_paper(sided("11", 3), 1, 2, 4)});
    EXPECT_EQ(shown.pageText, "3,7-9,11");
    EXPECT_EQ(shown.settings, (ExceptionSettings{.paper = {.size = 1, .color = -1, .type = -1, .custom = {}},
                                                 .twoSidePrint = 0}));
}

TEST(ShownExceptions, SidesThatDifferStayNoChange) {
    EXPECT_EQ(shown_exceptions({sided("3", 1), sided("4", 2), sided("5", 1)}).settings.twoSidePrint, 0);
    EXPECT_EQ(shown_exceptions({sided("3", 3), sided("4", 3)}).settings.twoSidePrint, 3);
}

TEST(ShownExceptions, TheInterposerOnSomeKeepsTheCommonLengths) {
    const auto interposer = test::from_interposer(exception("4"));
    for (const RecordList& records : {RecordList{exception("3"), interposer}, {interposer, exception("3")}}) {
        EXPECT_EQ(shown_exceptions(records).settings,
                  (ExceptionSettings{.paper = {.size = -1, .color = -1, .type = -1, .custom = {}},
                                     .twoSidePrint = 2}));
    }
}

TEST(ShownExceptions, LengthsAndUnitsNarrowAsForInserts) {
    const auto inches = exception("4").with(RecordKey::longmeasure, "0");
    EXPECT_EQ(shown_exceptions({exception("3"), inches}).settings.paper.custom,
              (CustomSize{.width = "-1", .length = "-1", .longmeasure = -1}));
    EXPECT_EQ(shown_exceptions({exception("3"), exception("4").with(RecordKey::width, "1.0")})
                  .settings.paper.custom,
              (CustomSize{.width = "-1", .length = "297.0", .longmeasure = 1}));
}

} // namespace
} // namespace specialpages
