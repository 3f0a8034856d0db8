#include "controls/control_tables.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

namespace specialpages {
namespace {

constexpr std::array<ControlTag, 2> kFirst{204, 206};
constexpr std::array<ControlTag, 1> kThird{211};
constexpr std::array<ConstraintRow, 3> kRows{ConstraintRow(kFirst), ConstraintRow(), ConstraintRow(kThird)};

TEST(ControlTables, RowsAreFoundByTheirNumber) {
    EXPECT_EQ(row_at(kRows, 0).data(), kFirst.data());
    EXPECT_EQ(row_at(kRows, 0).size(), 2U);
    EXPECT_EQ(row_at(kRows, 2).data(), kThird.data());
    EXPECT_EQ(row_at(kRows, 2).size(), 1U);
}

TEST(ControlTables, AnAbsentRowIsEmpty) {
    EXPECT_TRUE(row_at(kRows, 1).empty());
}

TEST(ControlTables, ANumberOutsideTheTableIsNoRow) {
    EXPECT_TRUE(row_at(kRows, -1).empty());
    EXPECT_TRUE(row_at(kRows, 3).empty());
    EXPECT_TRUE(row_at(kRows, std::numeric_limits<std::int64_t>::max()).empty());
    EXPECT_TRUE(row_at(kRows, std::numeric_limits<std::int64_t>::min()).empty());
    EXPECT_TRUE(row_at({}, 0).empty());
}

TEST(ControlTables, AreDeclaredWithoutCode) {
    static constexpr ConstraintRecord kRecord{.disable = kRows, .hide = {}, .update = {}};
    static constexpr AccessInfo kAccess{"ticket", nullptr};
    static_assert(row_at(kRecord.disable, 2)[0] == 211);
    static_assert(row_at(kRecord.update, 0).empty());
    EXPECT_STREQ(kAccess.ticketKey, "ticket");
    EXPECT_EQ(kAccess.preferenceKey, nullptr);
}

} // namespace
} // namespace specialpages
