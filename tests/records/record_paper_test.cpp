#include "records/record_builder.h"
#include "records/record_paper.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

const CustomSize kUndecidedSize{.width = "-1", .length = "-1", .longmeasure = -1};

SpecialPageRecord sized(const std::string& width, const std::string& length, const std::string& unit) {
    return test::insert_after(3)
        .with(RecordKey::width, width)
        .with(RecordKey::length, length)
        .with(RecordKey::longmeasure, unit);
}

TEST(RecordPaper, ReadsTheEntriesAsNumbers) {
    const auto paper =
        paper_of(test::from_interposer(test::with_paper(sized("100.0", "148.5", "0"), 3, 4, 5)));
    EXPECT_EQ(paper, (RecordPaper{.size = 3,
                                  .color = 4,
                                  .type = 5,
                                  .interposer = true,
                                  .custom = {.width = "100.0", .length = "148.5", .longmeasure = 0}}));
}

TEST(RecordPaper, OnlyTheExactWordIsTheInterposer) {
    for (const char* text : {"TRUE", "1", "", "true "}) {
        EXPECT_FALSE(paper_of(test::insert_after(3).with(RecordKey::interposer, text)).interposer) << text;
    }
}

TEST(RecordPaper, AnUndecidedSizeInARecordBecomesTheDefault) {
    EXPECT_EQ(paper_of(sized("-1", "-1", "-1")).custom, CustomSize{});
    EXPECT_EQ(paper_of(sized("-1", "100.0", "0")).custom,
              (CustomSize{.width = "210.0", .length = "100.0", .longmeasure = 0}));
}

TEST(RecordPaper, IsWrittenBackAsItWasRead) {
    const auto record = test::with_paper(sized("100.0", "148.5", "0"), 3, 4, 5);
    EXPECT_EQ(with_paper_of(test::insert_after(3), paper_of(record)), record);
}

TEST(RecordPaper, AnyDecidedPartOrTheInterposerChoosesPaper) {
    EXPECT_FALSE(chooses_paper({}));
    EXPECT_FALSE(chooses_paper({.custom = {.width = "1.0", .length = "1.0", .longmeasure = 0}}));
    EXPECT_TRUE(chooses_paper({.size = 0, .custom = {}}));
    EXPECT_TRUE(chooses_paper({.color = 0, .custom = {}}));
    EXPECT_TRUE(chooses_paper({.type = 0, .custom = {}}));
    EXPECT_TRUE(chooses_paper({.interposer = true, .custom = {}}));
}

TEST(RecordPaper, EachUndecidedPartOfASizeIsTakenFromTheOther) {
    const CustomSize other{.width = "1.0", .length = "2.0", .longmeasure = 0};
    EXPECT_EQ(decided(kUndecidedSize, other), other);
    EXPECT_EQ(decided({.width = "-1", .length = "9.0", .longmeasure = 1}, other),
              (CustomSize{.width = "1.0", .length = "9.0", .longmeasure = 1}));
    EXPECT_EQ(decided({.width = "9.0", .length = "-1", .longmeasure = -1}, other),
              (CustomSize{.width = "9.0", .length = "2.0", .longmeasure = 0}));
}

TEST(RecordPaper, NarrowsASizeToWhatRecordsShare) {
    CustomSize running{.width = "1.0", .length = "2.0", .longmeasure = 0};
    narrow(running, {.width = "1.0", .length = "2.0", .longmeasure = 0});
    EXPECT_EQ(running, (CustomSize{.width = "1.0", .length = "2.0", .longmeasure = 0}));
    narrow(running, {.width = "1.00", .length = "2.0", .longmeasure = 0});
    EXPECT_EQ(running, (CustomSize{.width = "-1", .length = "2.0", .longmeasure = 0}));
    narrow(running, {.width = "1.0", .length = "3.0", .longmeasure = 0});
    EXPECT_EQ(running, (CustomSize{.width = "-1", .length = "-1", .longmeasure = 0}));
    narrow(running, {.width = "1.0", .length = "2.0", .longmeasure = 1});
    EXPECT_EQ(running, kUndecidedSize);
    narrow(running, {.width = "1.0", .length = "2.0", .longmeasure = 0});
    EXPECT_EQ(running, kUndecidedSize);
}

TEST(RecordPaper, AUnitThatDiffersLeavesTheWholeSizeUndecided) {
    CustomSize running{.width = "1.0", .length = "2.0", .longmeasure = 0};
    narrow(running, {.width = "1.0", .length = "2.0", .longmeasure = 1});
    EXPECT_EQ(running, kUndecidedSize);
}

} // namespace
} // namespace specialpages
