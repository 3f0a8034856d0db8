#include "platform/foundation/text_columns.h"

#include <gtest/gtest.h>

#include <string>

namespace specialpages::platform {
namespace {

TEST(TextColumns, ALetterIsOne) {
    EXPECT_EQ(text_columns(""), 0U);
    EXPECT_EQ(text_columns("Cover 1"), 7U);
    EXPECT_EQ(text_columns("Einlegeblätter…"), 15U);
}

TEST(TextColumns, AnEastAsianCharacterIsTwo) {
    EXPECT_EQ(text_columns("表紙"), 4U);
    EXPECT_EQ(text_columns("用紙：A4"), 8U);
    EXPECT_EQ(text_columns("インチ"), 6U);
    EXPECT_EQ(text_columns("ｲﾝﾁ"), 3U); // half-width
}

TEST(TextColumns, MarksAndControlsTakeNone) {
    EXPECT_EQ(text_columns("e\u0301"), 1U);
    EXPECT_EQ(text_columns("a\tb\n"), 2U);
    EXPECT_EQ(text_columns("a\u200Db"), 2U);
}

TEST(TextColumns, NoBreakSpacesAreSpaces) {
    EXPECT_EQ(text_columns("a\u00A0b\u202F?"), 5U);
}

TEST(TextColumns, IllFormedBytesCountOneEach) {
    EXPECT_EQ(text_columns("a\xFF"), 2U);
    EXPECT_EQ(text_columns("\xE8\xA1"), 2U); // a character's head at the end
    EXPECT_EQ(text_columns(std::string(1000, '\x80')), 1000U);
}

} // namespace
} // namespace specialpages::platform
