#include "records/page_ranges.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace specialpages {
namespace {

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(PageRanges, CountsEveryPageWithItsRepeats) {
    EXPECT_EQ(page_count({}), 0);
    EXPECT_EQ(page_count({{3, 3}, {7, 9}, {3, 3}}), 5);
    EXPECT_EQ(page_count({{0, kHighest}, {0, kHighest}}), 2 * (std::int64_t{kHighest} + 1));
}

TEST(PageRanges, FindsThePageAtAPlaceInReadingOrder) {
    const PageRanges ranges{{7, 9}, {3, 3}};
    EXPECT_EQ(page_at(ranges, 0), 7);
    EXPECT_EQ(page_at(ranges, 2), 9);
    EXPECT_EQ(page_at(ranges, 3), 3);
    EXPECT_EQ(page_at(ranges, 4), std::nullopt);
    EXPECT_EQ(page_at(ranges, -1), std::nullopt);
    EXPECT_EQ(page_at({}, 0), std::nullopt);
    EXPECT_EQ(page_at({{1, kHighest}}, kHighest - 1), kHighest);
}

TEST(PageRanges, WritesEachPageAsDecimalText) {
    EXPECT_EQ(page_texts({{9, 11}, {0, 0}}), (std::vector<std::string>{"9", "10", "11", "0"}));
    EXPECT_EQ(page_texts({{kHighest, kHighest}}), std::vector<std::string>{"2147483647"});
    EXPECT_TRUE(page_texts({}).empty());
}

TEST(PageRanges, ASetJoinsWhatOverlapsOrTouches) {
    EXPECT_EQ(page_set({{8, 10}, {3, 3}, {7, 9}}), (PageRanges{{3, 3}, {7, 10}}));
    EXPECT_EQ(page_set({{4, 4}, {3, 3}, {6, 6}}), (PageRanges{{3, 4}, {6, 6}}));
    EXPECT_EQ(page_set({{1, 9}, {2, 3}, {10, 10}}), (PageRanges{{1, 10}}));
    EXPECT_EQ(page_set({{5, kHighest}, {kHighest, kHighest}}), (PageRanges{{5, kHighest}}));
    EXPECT_EQ(page_set({}), PageRanges{});
}

TEST(PageRanges, TakesPagesOutOfASet) {
    const PageRanges set{{3, 9}, {12, 20}};
    EXPECT_EQ(pages_without(set, {}), set);
    EXPECT_EQ(pages_without(set, {{3, 3}, {5, 6}, {9, 9}}), (PageRanges{{4, 4}, {7, 8}, {12, 20}}));
    EXPECT_EQ(pages_without(set, {{1, 2}, {8, 14}, {30, 40}}), (PageRanges{{3, 7}, {15, 20}}));
    EXPECT_EQ(pages_without(set, {{1, kHighest}}), PageRanges{});
    EXPECT_EQ(pages_without({{1, kHighest}}, {{kHighest, kHighest}}), (PageRanges{{1, kHighest - 1}}));
    EXPECT_EQ(pages_without({}, set), PageRanges{});
}

TEST(PageRanges, AreWrittenAsARecordsPage) {
    EXPECT_EQ(page_range_text({5, 5}), "5");
    EXPECT_EQ(page_range_text({5, 7}), "5-7");
}

} // namespace
} // namespace specialpages
