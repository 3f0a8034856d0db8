#include "dialogs/cover_records.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

CoverSide front_side() {
    return {1, {2, 3, 4, 0}, "210.0", "297.0", 1, "true"};
}
CoverSide back_side() {
    return {3, {5, 6, 7, 1}, "100.0", "200.0", 0, "false"};
}
const SpecialPageRecord kFront{
    {RecordKey::page, "0"},           {RecordKey::type, "0"},         {RecordKey::printingoptions, "1"},
    {RecordKey::pagesize, "2"},       {RecordKey::pagecolor, "3"},    {RecordKey::pagetype, "4"},
    {RecordKey::interposer, "false"}, {RecordKey::coversoption, "1"}, {RecordKey::width, "210.0"},
    {RecordKey::length, "297.0"},     {RecordKey::longmeasure, "1"},  {RecordKey::selected, "true"},
};
const SpecialPageRecord kBack{
    {RecordKey::page, "1"},          {RecordKey::type, "0"},         {RecordKey::printingoptions, "3"},
    {RecordKey::pagesize, "5"},      {RecordKey::pagecolor, "6"},    {RecordKey::pagetype, "7"},
    {RecordKey::interposer, "true"}, {RecordKey::coversoption, "2"}, {RecordKey::width, "100.0"},
    {RecordKey::length, "200.0"},    {RecordKey::longmeasure, "0"},  {RecordKey::selected, "false"},
};

TEST(CoverRecords, NoneForNoCovers) {
    EXPECT_EQ(cover_records(CoverOption::none, front_side(), back_side()), RecordList{});
}

TEST(CoverRecords, OneForOneSide) {
    EXPECT_EQ(cover_records(CoverOption::frontOnly, front_side(), back_side()), RecordList{kFront});
    EXPECT_EQ(cover_records(CoverOption::backOnly, front_side(), back_side()), RecordList{kBack});
}

TEST(CoverRecords, SameTakesTheFrontsPaperForBothAndEachItsOwnSelection) {
    const auto front = kFront.with(RecordKey::coversoption, "3");
    const auto back = front.with(RecordKey::page, "1").with(RecordKey::selected, "false");
    EXPECT_EQ(cover_records(CoverOption::same, front_side(), back_side()), (RecordList{back, front}));
}

TEST(CoverRecords, DifferentAddsTheBackFirst) {
    EXPECT_EQ(
        cover_records(CoverOption::different, front_side(), back_side()),
        (RecordList{kBack.with(RecordKey::coversoption, "4"), kFront.with(RecordKey::coversoption, "4")}));
}

TEST(CoverRecords, NoneForANumberThatIsNoOption) {
    EXPECT_EQ(cover_records(static_cast<CoverOption>(-1), front_side(), back_side()), RecordList{});
    EXPECT_EQ(cover_records(static_cast<CoverOption>(5), front_side(), back_side()), RecordList{});
}

TEST(CoverRecords, SelectionIsKeptBySide) {
    const auto both = cover_selection(
        {cover_back().with(RecordKey::selected, "true"), cover_front().with(RecordKey::selected, "x")});
    EXPECT_EQ(both.front, "x");
    EXPECT_EQ(both.back, "true");
    const auto none = cover_selection({cover_front(), cover("7", "0").with(RecordKey::selected, "true")});
    EXPECT_EQ(none.front, "false") << "a record without the text";
    EXPECT_EQ(none.back, "false") << "a side without a record";
}

} // namespace
} // namespace specialpages::test
