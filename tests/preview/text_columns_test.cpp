#include "preview/text_columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::preview {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PreviewColumns, EastAsianCharactersCountTwo) {
    EXPECT_EQ(text_columns(""), 0);
    EXPECT_EQ(text_columns("Front"), 5);
    EXPECT_EQ(text_columns("Vorderes Deckblatt für Ämter"), 28);
    EXPECT_EQ(text_columns("表紙"), 4);
    EXPECT_EQ(text_columns("2 × A5…"), 7) << "signs are narrow";
}

TEST(PreviewColumns, ScriptsAreWideFromHangulOnAndSignsNarrowUpToTheIdeographs) {
    EXPECT_EQ(text_columns("\u10FF"), 1);
    EXPECT_EQ(text_columns("\u1100"), 2);
    EXPECT_EQ(text_columns("\u1FFF"), 2);
    EXPECT_EQ(text_columns("\u2000"), 1);
    EXPECT_EQ(text_columns("\u2E7F"), 1);
    EXPECT_EQ(text_columns("\u2E80"), 2);
    EXPECT_EQ(text_columns("\U0001F600"), 2);
}

TEST(PreviewColumns, IllFormedTextIsWalkedToItsEnd) {
    EXPECT_EQ(text_columns("\xFF\xFE"), text_columns("\xFF") + text_columns("\xFE"));
    EXPECT_EQ(text_columns("\x80\x80\x80\x80\x80\x80\x80"), 1);
    EXPECT_GT(text_columns("a\xE3"), 1);
    EXPECT_EQ(text_columns("\xF8\x88\x80\x80\x80"), 1) << "five bytes are no character";
}

TEST(PreviewColumns, AShortTextStaysAsItIs) {
    EXPECT_EQ(shortened("Front", 5), "Front");
    EXPECT_EQ(shortened("", 0), "");
}

TEST(PreviewColumns, ALongTextEndsWithAnEllipsis) {
    EXPECT_EQ(shortened("Double Postcard", 8), "Double…") << "without the blank before it";
    EXPECT_EQ(shortened("Double Postcard", 10), "Double Po…");
    EXPECT_EQ(shortened("a bcd", 3), "a…");
    EXPECT_EQ(shortened("  abc", 2), " …") << "one character stays, whatever it is";
    EXPECT_EQ(shortened("表紙表紙", 5), "表紙…");
    EXPECT_EQ(shortened("Front", 1), "F…") << "one character at least";
    EXPECT_EQ(shortened("Front", -7), "F…");
}

TEST(PreviewColumns, LinesBreakAtBlanks) {
    EXPECT_THAT(wrapped("", 10), IsEmpty());
    EXPECT_THAT(wrapped("one two", 10), ElementsAre("one two"));
    EXPECT_THAT(wrapped("one two three", 8), ElementsAre("one two", "three"));
    EXPECT_THAT(wrapped("one two three", 7), ElementsAre("one two", "three")) << "a blank at the edge";
    EXPECT_THAT(wrapped("表紙表紙表", 4), ElementsAre("表紙", "表紙", "表")) << "no blanks to break at";
    EXPECT_THAT(wrapped("a bcd", 3), ElementsAre("a", "bcd")) << "after one letter";
    EXPECT_THAT(wrapped(" abc", 2), ElementsAre(" a", "bc")) << "never an empty line";
    EXPECT_THAT(wrapped("abc", 0), ElementsAre("a", "b", "c"));
}

} // namespace
} // namespace specialpages::preview
