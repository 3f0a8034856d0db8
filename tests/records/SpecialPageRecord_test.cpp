#include "records/SpecialPageRecord.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <set>
#include <string>

namespace specialpages {
namespace {

TEST(SpecialPageRecord, NamesEveryKeyAsTheTicketsAndDictionariesDo) {
    const std::vector<std::string_view> expected{
        "type",           "page",         "printingoptions", "coversoption", "insertoption",
        "insertquantity", "twoSidePrint", "pagesize",        "pagecolor",    "pagetype",
        "interposer",     "width",        "length",          "longmeasure",  "selected"};
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
        names.push_back(record_key_name(static_cast<RecordKey>(i)));
    }
    EXPECT_EQ(names, expected);
}

TEST(SpecialPageRecord, HasNoEntryAtFirst) {
    const SpecialPageRecord record;
    for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
        const auto key = static_cast<RecordKey>(i);
        EXPECT_EQ(record.find(key), nullptr) << record_key_name(key);
        EXPECT_EQ(record.text(key), "");
        EXPECT_EQ(record.integer(key), 0);
        EXPECT_FALSE(record.is_true(key));
    }
}

TEST(SpecialPageRecord, TellsAnEmptyTextFromAMissingEntry) {
    const SpecialPageRecord record{{RecordKey::width, ""}};
    ASSERT_NE(record.find(RecordKey::width), nullptr);
    EXPECT_EQ(*record.find(RecordKey::width), "");
    EXPECT_EQ(record.find(RecordKey::length), nullptr);
    EXPECT_NE(record, SpecialPageRecord{});
}

TEST(SpecialPageRecord, ChangeMakesAChangedCopyAndLeavesTheOriginal) {
    const auto original = test::insert_after(3);
    const auto changed = original.with(RecordKey::page, "8");
    EXPECT_EQ(original.text(RecordKey::page), "3");
    EXPECT_EQ(changed.text(RecordKey::page), "8");
    EXPECT_EQ(changed.with(RecordKey::page, "3"), original);
}

TEST(SpecialPageRecord, LastOfTwoEntriesForOneKeyHolds) {
    const SpecialPageRecord record{{RecordKey::page, "1"}, {RecordKey::page, "2"}};
    EXPECT_EQ(record.text(RecordKey::page), "2");
}

TEST(SpecialPageRecord, TakesEachKeysTextFromItsPositionAndDropsSurplusTexts) {
    const std::vector keys{RecordKey::page, RecordKey::type};
    EXPECT_EQ(SpecialPageRecord(keys, {"5-7", "2", "surplus"}),
              (SpecialPageRecord{{RecordKey::type, "2"}, {RecordKey::page, "5-7"}}));
}

TEST(SpecialPageRecord, ReadsIntegersFromTheHeadOfTheText) {
    const auto integer = [](const char* text) {
        return SpecialPageRecord{{RecordKey::page, text}}.integer(RecordKey::page);
    };
    EXPECT_EQ(integer("12"), 12);
    EXPECT_EQ(integer("5-7"), 5);
    EXPECT_EQ(integer("-1"), -1);
    EXPECT_EQ(integer("007"), 7);
    EXPECT_EQ(integer("210.9"), 210);
    EXPECT_EQ(integer("x5"), 0);
    EXPECT_EQ(integer(""), 0);
    EXPECT_EQ(integer("99999999999"), 2147483647);
}

TEST(SpecialPageRecord, KnowsItsKindByTheIntegerOfItsType) {
    EXPECT_TRUE(test::cover_front().is(RecordType::cover));
    EXPECT_TRUE(test::insert_after(1).is(RecordType::insert));
    EXPECT_TRUE(test::exception("1").is(RecordType::exception));
    EXPECT_FALSE(test::exception("1").is(RecordType::insert));
    EXPECT_EQ(test::unknown_kind().type(), 3);
    EXPECT_FALSE(test::unknown_kind().is(RecordType::cover));
}

TEST(SpecialPageRecord, OnlyTheExactWordIsTrue) {
    const auto is_true = [](const char* text) {
        return SpecialPageRecord{{RecordKey::interposer, text}}.is_true(RecordKey::interposer);
    };
    EXPECT_TRUE(is_true("true"));
    EXPECT_FALSE(is_true("false"));
    EXPECT_FALSE(is_true("TRUE"));
    EXPECT_FALSE(is_true("true "));
    EXPECT_FALSE(is_true("1"));
    EXPECT_FALSE(is_true(""));
}

TEST(SpecialPageRecord, IsUnmarkedWhenItWasReadBackWithoutAMark) {
    const auto read_back = test::insert_after(3);
    EXPECT_EQ(read_back.find(RecordKey::selected), nullptr);
    EXPECT_FALSE(read_back.is_true(RecordKey::selected));
    EXPECT_TRUE(test::marked(read_back).is_true(RecordKey::selected));
}

} // namespace
} // namespace specialpages
