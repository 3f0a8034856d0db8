#include "platform/print/PageFormat.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

TEST(PageFormat, GivesTheUnadjustedPaperRectangle) {
    const PageFormat format{{-18.5, -9, 823.25, 586}};
    PMRect rect;
    EXPECT_EQ(PMGetUnadjustedPaperRect(&format, rect), noErr);
    EXPECT_EQ(rect.top, -18.5);
    EXPECT_EQ(rect.left, -9);
    EXPECT_EQ(rect.bottom, 823.25);
    EXPECT_EQ(rect.right, 586);
}

TEST(PageFormat, IsAnEmptyRectangleUntilSet) {
    PMRect rect{1, 2, 3, 4};
    const PageFormat format;
    EXPECT_EQ(PMGetUnadjustedPaperRect(&format, rect), noErr);
    EXPECT_EQ(rect.top, 0);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.bottom, 0);
    EXPECT_EQ(rect.right, 0);
}

TEST(PageFormat, ANullFormatIsAWrongArgumentAndLeavesTheRectangle) {
    PMRect rect{1, 2, 3, 4};
    EXPECT_EQ(PMGetUnadjustedPaperRect(nullptr, rect), paramErr);
    EXPECT_EQ(rect.top, 1);
    EXPECT_EQ(rect.left, 2);
    EXPECT_EQ(rect.bottom, 3);
    EXPECT_EQ(rect.right, 4);
}

} // namespace
} // namespace specialpages::platform
