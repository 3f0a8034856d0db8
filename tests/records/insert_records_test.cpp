#include "records/insert_records.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::insert_after;
using test::insert_before_page_one;
using test::unmarked;

constexpr std::int32_t kCustomIndex = 9;
const CustomSize kUndecidedSize{.width = "-1", .length = "-1", .longmeasure = -1};

bool is_custom(std::int32_t size) {
    return size == kCustomIndex;
}

/// A dialog with the paper of the test records.
InsertRequest request(std::int64_t status, PageRanges pages, RowSet selected = {}) {
    return {.status = status,
            .selected = std::move(selected),
            .optionEnabled = true,
            .frontCover = false,
            .pages = std::move(pages),
            .values = {.option = 0,
                       .quantity = 1,
                       .paper = {.size = 0, .color = 0, .type = 0, .interposer = false, .custom = {}}},
            .isCustomSize = is_custom};
}
InsertRequest add(PageRanges pages) {
    return request(1, std::move(pages));
}
InsertRequest add_before_page_one() {
    auto asked = add({{0, 0}});
    asked.values.option = 1;
    return asked;
}
InsertRequest edit(RowSet selected, PageRanges pages) {
    return request(2, std::move(pages), std::move(selected));
}
/// Several records: the option is disabled and nothing is decided but the quantity.
InsertRequest edit_several(RowSet selected) {
    auto asked = edit(std::move(selected), {{7, 7}, {8, 8}});
    asked.optionEnabled = false;
    asked.values = {.option = 0, .quantity = 5, .paper = {.custom = kUndecidedSize}};
    return asked;
}

RecordList after_ok(const RecordList& inserts, const InsertRequest& asked) {
    const auto result = inserts_after_ok(inserts, asked);
    EXPECT_TRUE(result.has_value());
    return result.value_or(RecordList{});
}

SpecialPageRecord custom(const SpecialPageRecord& record, const std::string& width, const std::string& length,
                         const std::string& unit) {
    return record.with(RecordKey::pagesize, std::to_string(kCustomIndex))
        .with(RecordKey::width, width)
        .with(RecordKey::length, length)
        .with(RecordKey::longmeasure, unit);
}

// Add.

TEST(InsertRecords, AddMakesOneUnmarkedRecordAPage) {
    EXPECT_EQ(after_ok({}, add({{3, 3}, {7, 9}})),
              (RecordList{unmarked(insert_after(3)), unmarked(insert_after(7)), unmarked(insert_after(8)),
                          unmarked(insert_after(9))}));
}

TEST(InsertRecords, AddTakesEveryValueOfTheDialog) {
    auto asked = add({{3, 3}});
    asked.values = {.option = 0,
                    .quantity = 12,
                    .paper = {.size = 4,
                              .color = 5,
                              .type = 6,
                              .interposer = true,
                              .custom = {.width = "100.0", .length = "148.0", .longmeasure = 0}}};
    EXPECT_EQ(after_ok({}, asked), (RecordList{{{RecordKey::type, "1"},
                                                {RecordKey::page, "3"},
                                                {RecordKey::insertoption, "0"},
                                                {RecordKey::insertquantity, "12"},
                                                {RecordKey::pagesize, "4"},
                                                {RecordKey::pagecolor, "5"},
                                                {RecordKey::pagetype, "6"},
                                                {RecordKey::interposer, "true"},
                                                {RecordKey::width, "100.0"},
                                                {RecordKey::length, "148.0"},
                                                {RecordKey::longmeasure, "0"},
                                                {RecordKey::selected, "false"}}}));
}

TEST(InsertRecords, AddSortsByPageAndKeepsTheOrderOfEqualPages) {
    const RecordList old{insert_after(3, 1), insert_after(3, 2), insert_after(10, 3)};
    auto asked = add({{10, 10}, {3, 3}, {3, 3}, {1, 1}});
    asked.values.quantity = 9;
    const auto added = [](std::int32_t page) {
        return unmarked(insert_after(page, 9));
    };
    EXPECT_EQ(after_ok(old, asked), (RecordList{added(1), insert_after(3, 1), insert_after(3, 2), added(3),
                                                added(3), insert_after(10, 3), added(10)}));
}

TEST(InsertRecords, ManyRecordsAtOnePageKeepTheirOrder) {
    RecordList old;
    RecordList sorted;
    for (std::int32_t i = 0; i < 250; ++i) {
        old.push_back(insert_after(9 - i % 3, i + 1));
    }
    for (const std::int32_t first : {2, 1, 0}) {
        for (std::int32_t i = first; i < 250; i += 3) {
            sorted.push_back(old[static_cast<std::size_t>(i)]);
        }
    }
    EXPECT_EQ(after_ok(old, add({})), sorted);
}

TEST(InsertRecords, PagesAreComparedAsNumbers) {
    EXPECT_EQ(after_ok({insert_after(10), insert_after(9)}, add({})),
              (RecordList{insert_after(9), insert_after(10)}));
}

TEST(InsertRecords, BeforePageOneIsOneRecordAtPageZero) {
    EXPECT_EQ(after_ok({insert_after(3)}, add_before_page_one()),
              (RecordList{unmarked(insert_before_page_one()), insert_after(3)}));
}

TEST(InsertRecords, BeforePageOneIsDroppedInSilenceBesideAFrontCover) {
    auto asked = add_before_page_one();
    asked.frontCover = true;
    EXPECT_EQ(after_ok({insert_after(3)}, asked), RecordList{insert_after(3)});
}

TEST(InsertRecords, PageZeroAmongPagesGoesBeforePageOne) {
    EXPECT_EQ(after_ok({}, add({{0, 1}})),
              (RecordList{unmarked(insert_before_page_one()), unmarked(insert_after(1))}));
    auto covered = add({{0, 1}});
    covered.frontCover = true;
    EXPECT_EQ(after_ok({}, covered), RecordList{unmarked(insert_after(1))});
}

TEST(InsertRecords, AddNeverHoldsAnUndecidedSize) {
    auto asked = add({{3, 3}});
    asked.values.paper.custom = kUndecidedSize;
    EXPECT_EQ(after_ok({}, asked), RecordList{unmarked(insert_after(3))});
    auto before = add_before_page_one();
    before.values.paper.custom = kUndecidedSize;
    EXPECT_EQ(after_ok({}, before), RecordList{unmarked(insert_before_page_one())});
}

TEST(InsertRecords, AddWithoutPagesAddsNothing) {
    EXPECT_EQ(after_ok({insert_after(3)}, add({})), RecordList{insert_after(3)});
}

TEST(InsertRecords, AnyOtherStatusDoesNothing) {
    for (const std::int64_t status : {0, 3, -1}) {
        EXPECT_EQ(inserts_after_ok({insert_after(3)}, request(status, {{4, 4}})), std::nullopt) << status;
    }
}

// Edit one.

TEST(InsertRecords, OneRecordBecomesAsManyAsThereArePages) {
    EXPECT_EQ(
        after_ok({insert_after(1), insert_after(4), insert_after(9)}, edit({1}, {{3, 3}, {5, 5}})),
        (RecordList{insert_after(1), unmarked(insert_after(3)), unmarked(insert_after(5)), insert_after(9)}));
}

TEST(InsertRecords, OneRecordThatBecomesSeveralKeepsItsUndecidedSize) {
    auto asked = edit({0}, {{3, 4}});
    asked.values.paper.size = kCustomIndex;
    asked.values.paper.custom = kUndecidedSize;
    const auto made = [](std::int32_t page) {
        return unmarked(custom(insert_after(page), "100.0", "50.0", "0"));
    };
    EXPECT_EQ(after_ok({custom(insert_after(9), "100.0", "50.0", "0")}, asked),
              (RecordList{made(3), made(4)}));
}

TEST(InsertRecords, EditWithNothingSelectedRemovesNothing) {
    EXPECT_EQ(after_ok({insert_after(4)}, edit({}, {{3, 3}, {5, 5}})),
              (RecordList{unmarked(insert_after(3)), insert_after(4), unmarked(insert_after(5))}));
    EXPECT_EQ(after_ok({insert_after(4)}, edit({}, {{3, 3}})), RecordList{insert_after(4)});
    EXPECT_EQ(after_ok({insert_after(4)}, edit({7}, {{3, 3}})), RecordList{insert_after(4)});
    EXPECT_EQ(after_ok({}, edit({0}, {{3, 4}})),
              (RecordList{unmarked(insert_after(3)), unmarked(insert_after(4))}));
}

TEST(InsertRecords, OneRecordMovesToItsNewPage) {
    EXPECT_EQ(after_ok({insert_after(1), insert_after(4)}, edit({0}, {{6, 6}})),
              (RecordList{insert_after(4), unmarked(insert_after(6))}));
}

TEST(InsertRecords, OneRecordGoesBeforePageOneWithAnEmptyList) {
    auto asked = edit({0}, {});
    asked.values.option = 1;
    EXPECT_EQ(after_ok({insert_after(4)}, asked), RecordList{unmarked(insert_before_page_one())});
    asked.values.option = 0; // as a text that is valid and names no page
    EXPECT_EQ(after_ok({insert_after(4)}, asked), RecordList{unmarked(insert_before_page_one())});
}

TEST(InsertRecords, OneRecordBeforePageOneGoesAfterAPage) {
    EXPECT_EQ(after_ok({insert_before_page_one()}, edit({0}, {{2, 2}})),
              RecordList{unmarked(insert_after(2))});
}

TEST(InsertRecords, AnEditThatTheFrontCoverRefusesLeavesTheRecord) {
    auto asked = edit({0}, {});
    asked.frontCover = true;
    asked.values.quantity = 7;
    EXPECT_EQ(after_ok({insert_after(4)}, asked), RecordList{insert_after(4)});
}

TEST(InsertRecords, AFixedSizeGetsTheDefaultCustomSize) {
    auto asked = edit({0}, {{4, 4}});
    asked.values.paper.size = 2;
    asked.values.paper.custom = {.width = "100.0", .length = "50.0", .longmeasure = 0};
    EXPECT_EQ(after_ok({custom(insert_after(4), "1.0", "2.0", "0")}, asked),
              RecordList{unmarked(insert_after(4).with(RecordKey::pagesize, "2"))});
}

TEST(InsertRecords, WithoutACustomSizeInThePpdEverySizeIsFixed) {
    auto asked = edit({0}, {{4, 4}});
    asked.isCustomSize = nullptr;
    asked.values.paper.size = kCustomIndex;
    asked.values.paper.custom = {.width = "100.0", .length = "50.0", .longmeasure = 0};
    EXPECT_EQ(after_ok({insert_after(4)}, asked),
              RecordList{unmarked(insert_after(4).with(RecordKey::pagesize, "9"))});
}

// Edit several.

TEST(InsertRecords, SeveralKeepTheirPagesOptionsAndPaper) {
    const RecordList old{insert_before_page_one(), test::with_paper(insert_after(4), 2, 3, 4),
                         test::from_interposer(insert_after(6)), insert_after(8)};
    EXPECT_EQ(after_ok(old, edit_several({0, 1, 2})),
              (RecordList{unmarked(insert_before_page_one(5)),
                          unmarked(test::with_paper(insert_after(4, 5), 2, 3, 4)),
                          unmarked(test::from_interposer(insert_after(6, 5))), insert_after(8)}));
}

TEST(InsertRecords, SeveralTakeTheDecidedPartsOfThePaper) {
    const RecordList old{test::with_paper(insert_after(4), 2, 3, 4),
                         test::from_interposer(test::with_paper(insert_after(6), 5, 6, 7))};
    auto asked = edit_several({0, 1});
    asked.values.paper.color = 8;
    EXPECT_EQ(after_ok(old, asked), (RecordList{unmarked(test::with_paper(insert_after(4, 5), 2, 8, 4)),
                                                unmarked(test::with_paper(insert_after(6, 5), 5, 8, 7))}));
    asked.values.paper = {.interposer = true, .custom = kUndecidedSize};
    EXPECT_EQ(after_ok(old, asked),
              (RecordList{unmarked(test::from_interposer(test::with_paper(insert_after(4, 5), 2, 3, 4))),
                          unmarked(test::from_interposer(test::with_paper(insert_after(6, 5), 5, 6, 7)))}));
}

TEST(InsertRecords, SeveralTakeTheDecidedCustomSize) {
    auto asked = edit_several({0, 1});
    asked.values.paper.custom = {.width = "70.0", .length = "80.0", .longmeasure = 0};
    const RecordList old{custom(insert_after(4), "1.0", "2.0", "1"),
                         custom(insert_after(6), "3.0", "4.0", "1")};
    EXPECT_EQ(after_ok(old, asked), (RecordList{unmarked(custom(insert_after(4, 5), "70.0", "80.0", "0")),
                                                unmarked(custom(insert_after(6, 5), "70.0", "80.0", "0"))}));
}

TEST(InsertRecords, SeveralKeepWhatIsUndecidedOfTheirCustomSize) {
    const RecordList old{custom(insert_after(4), "1.0", "2.0", "1"),
                         custom(insert_after(6), "3.0", "4.0", "0")};
    EXPECT_EQ(after_ok(old, edit_several({0, 1})),
              (RecordList{unmarked(custom(insert_after(4, 5), "1.0", "2.0", "1")),
                          unmarked(custom(insert_after(6, 5), "3.0", "4.0", "0"))}));
    auto asked = edit_several({0, 1});
    asked.values.paper.custom.length = "9.0";
    EXPECT_EQ(after_ok(old, asked), (RecordList{unmarked(custom(insert_after(4, 5), "1.0", "9.0", "1")),
                                                unmarked(custom(insert_after(6, 5), "3.0", "9.0", "0"))}));
}

TEST(InsertRecords, AFixedSizeAmongSeveralDoesNotTouchTheCustomSizesBehindIt) {
    const RecordList old{insert_after(4).with(RecordKey::width, "55.0"),
                         custom(insert_after(6), "3.0", "4.0", "0")};
    EXPECT_EQ(
        after_ok(old, edit_several({0, 1})),
        (RecordList{unmarked(insert_after(4, 5)), unmarked(custom(insert_after(6, 5), "3.0", "4.0", "0"))}));
}

TEST(InsertRecords, AHandMadeUndecidedSizeBecomesTheDefault) {
    auto asked = edit_several({0});
    asked.pages = {{4, 4}};
    EXPECT_EQ(after_ok({custom(insert_after(4), "-1", "-1", "-1")}, asked),
              RecordList{unmarked(custom(insert_after(4, 5), "210.0", "297.0", "1"))});
}

TEST(InsertRecords, WithTheOptionEnabledEachTakesItsPageOfTheList) {
    auto asked = edit({0, 1, 2}, {{7, 8}});
    EXPECT_EQ(after_ok({insert_after(1), insert_after(2), insert_after(3)}, asked),
              (RecordList{unmarked(insert_after(3)), unmarked(insert_after(7)), unmarked(insert_after(8))}));
}

// What the dialog shows.

TEST(ShownInserts, OneRecordIsShownAsItIs) {
    const auto record = test::with_paper(custom(insert_after(7, 4), "1.0", "2.0", "0"), 9, 2, 3);
    EXPECT_EQ(shown_inserts({record}), (ShownInserts{"7", {0, 4, paper_of(record)}}));
    EXPECT_EQ(shown_inserts({insert_before_page_one(2)}).pageText, "");
    EXPECT_EQ(shown_inserts({insert_before_page_one(2)}).values.option, 1);
}

TEST(ShownInserts, DifferencesAreUndecided) {
    const auto shown = shown_inserts({test::with_paper(insert_after(3, 1), 1, 2, 3),
                                      test::with_paper(insert_after(8, 2), 1, 5, 3),
                                      test::with_paper(insert_after(9, 1), 1, 2, 4)});
    EXPECT_EQ(shown.pageText, "3,8,9");
    EXPECT_EQ(shown.values,
              (InsertValues{
                  .option = 0, .quantity = -1, .paper = {.size = 1, .color = -1, .type = -1, .custom = {}}}));
}

TEST(ShownInserts, BeforePageOneAddsNothingToTheText) {
    const auto shown = shown_inserts({insert_before_page_one(), insert_after(3), insert_after(4)});
    EXPECT_EQ(shown.pageText, "3,4");
    EXPECT_EQ(shown.values.option, -1);
    EXPECT_EQ(shown_inserts({insert_after(3), insert_before_page_one()}).pageText, "3,");
}

TEST(ShownInserts, TheInterposerOnSomeLeavesNoPaperInCommon) {
    const RecordPaper nothing{.custom = kUndecidedSize};
    const auto plain = insert_after(3);
    const auto interposer = test::from_interposer(insert_after(4));
    EXPECT_EQ(shown_inserts({plain, interposer}).values.paper, nothing);
    EXPECT_EQ(shown_inserts({interposer, plain}).values.paper, nothing);
    EXPECT_TRUE(shown_inserts({interposer, interposer}).values.paper.interposer);
    EXPECT_EQ(shown_inserts({interposer, interposer}).values.paper.size, 0);
}

TEST(ShownInserts, AnEmptySelectionShowsNothing) {
    EXPECT_EQ(shown_inserts({}), ShownInserts{});
}

// The stages by their own names.

TEST(AddObjectToArray, RefusesWhatIsMissing) {
    RecordList array{insert_after(3)};
    const auto complete = unmarked(insert_after(5));
    EXPECT_EQ(AddObjectToArray(nullptr, false, 0, complete, false), -50);
    EXPECT_EQ(AddObjectToArray(&array, true, 1, complete, false), -50);
    EXPECT_EQ(AddObjectToArray(&array, false, 0, insert_after(5), false), -50); // no mark
    EXPECT_EQ(AddObjectToArray(&array, false, 0, {}, false), -50);
    EXPECT_EQ(array, RecordList{insert_after(3)});
}

TEST(AddObjectToArray, AddsOrReplaces) {
    RecordList array{insert_after(3)};
    const auto record = unmarked(insert_after(5));
    EXPECT_EQ(AddObjectToArray(&array, false, 7, record, true), 0);
    EXPECT_EQ(array, (RecordList{insert_after(3), record}));
    EXPECT_EQ(AddObjectToArray(&array, true, 0, record, true), 0);
    EXPECT_EQ(array, (RecordList{record, record}));
}

TEST(AddObjectToArray, ForcesTheOptionOfPageZero) {
    RecordList array;
    const auto record = unmarked(insert_after(0));
    EXPECT_EQ(AddObjectToArray(&array, false, 0, record, true), 0);
    EXPECT_EQ(array, RecordList{});
    EXPECT_EQ(AddObjectToArray(&array, false, 0, record, false), 0);
    EXPECT_EQ(array, RecordList{unmarked(insert_before_page_one())});
}

TEST(InsertRecords, FindsTheRecordAtAPage) {
    const RecordList records{insert_after(3), insert_after(8), insert_after(8)};
    std::size_t index = 99;
    EXPECT_TRUE(ISRecordedCurrentPage(records, "08", &index));
    EXPECT_EQ(index, 1U);
    EXPECT_TRUE(ISRecordedCurrentPage(records, "3", nullptr));
    EXPECT_FALSE(ISRecordedCurrentPage(records, "4", &index));
    EXPECT_EQ(index, 1U);
}

TEST(InsertRecords, KnowsAFrontCoverFromABackCover) {
    EXPECT_TRUE(has_front_cover({test::cover_back(), test::cover_front()}));
    EXPECT_FALSE(has_front_cover({test::cover_back(), insert_before_page_one()}));
    EXPECT_FALSE(has_front_cover({}));
}

} // namespace
} // namespace specialpages
