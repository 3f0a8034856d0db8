#include "records/page_text_check.h"
#include "support/input_filter.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace specialpages {
namespace {

constexpr InsertPageLimit kAdding{.status = 1};
constexpr bool kAfter = false;
constexpr bool kBefore = true;

PageText field(std::string_view text, const TextEditFilterData& filter, bool enabled = true) {
    return {text, static_cast<std::int32_t>(text.size()), enabled, &filter};
}

std::int32_t insert_warning(std::string_view text, bool beforePageOne = kAfter,
                            const InsertPageLimit& limit = kAdding, bool enabled = true) {
    InsertPages pages;
    return InvalidateInsertText(field(text, SPInstPageNumEditFilterData, enabled), beforePageOne, false,
                                limit, pages);
}

std::int32_t exception_warning(std::string_view text, bool enabled = true) {
    ExceptionPages pages;
    return InvalidateExceptionText(field(text, pageDefineFilterData, enabled), text, pages);
}

TEST(InsertPageText, ShowsTheMessageOfEachFailure) {
    EXPECT_EQ(insert_warning("3, 7-9"), 0);
    for (const char* text : {"", " ", "1, ,2", "65001", "1-2-3", "-", "1a"}) {
        EXPECT_EQ(insert_warning(text), 1) << text;
    }
    EXPECT_EQ(insert_warning("5-"), 2);
    EXPECT_EQ(insert_warning("9-7"), 3);
}

TEST(InsertPageText, TakesOverThePagesOfAValidText) {
    InsertPages pages;
    EXPECT_EQ(InvalidateInsertText(field("0-3", SPInstPageNumEditFilterData), kAfter, true, kAdding, pages),
              0);
    EXPECT_EQ(pages.m_aSortedPageArray, (PageRanges{{1, 3}}));
    EXPECT_EQ(pages.m_strArranged, "0-3,");
}

TEST(InsertPageText, IsAtMost99ColumnsLongAfterThePages) {
    const std::string longest = std::string(98, ' ') + "3";
    EXPECT_EQ(insert_warning(longest), 0);
    EXPECT_EQ(insert_warning(" " + longest), 1);
    EXPECT_EQ(insert_warning(" " + longest, kAfter, kAdding, false), 0);
    EXPECT_EQ(insert_warning(" " + longest, kBefore), 0);
}

TEST(InsertPageText, LengthIsCountedInColumns) {
    PageText text = field("3", SPInstPageNumEditFilterData);
    text.length = 100;
    EXPECT_FALSE(PreInvalidateInsertText(text, kAfter));
    text.length = 99;
    EXPECT_TRUE(PreInvalidateInsertText(text, kAfter));
    text.length = -1;
    EXPECT_FALSE(PreInvalidateInsertText(text, kBefore));
}

TEST(InsertPageText, BeforePageOneIsNotReadButForItsCharacters) {
    EXPECT_EQ(insert_warning("", kBefore), 0);
    EXPECT_EQ(insert_warning("9-7", kBefore), 0);
    EXPECT_EQ(insert_warning("1,,-", kBefore), 0);
    EXPECT_EQ(insert_warning("x", kBefore), 1);
}

TEST(InsertPageText, BeforePageOneIsPageZeroAlone) {
    InsertPages pages;
    const auto text = field("3,4", SPInstPageNumEditFilterData);
    EXPECT_EQ(InvalidateInsertText(text, kAfter, false, kAdding, pages), 0);
    const InsertPageLimit full{.status = 1, .held = 250};
    EXPECT_EQ(InvalidateInsertText(text, kBefore, false, full, pages), 2);
    EXPECT_EQ(InvalidateInsertText(text, kBefore, false, kAdding, pages), 0);
    EXPECT_EQ(pages.m_aSortedPageArray, (PageRanges{{0, 0}}));
}

TEST(InsertPageText, AFullListTakesNoMoreButLetsOneBeReplaced) {
    EXPECT_EQ(insert_warning("3", kAfter, {.status = 1, .held = 250}), 2);
    EXPECT_EQ(insert_warning("3", kAfter, {.status = 2, .held = 250}), 0);
    EXPECT_EQ(insert_warning("3,4", kAfter, {.status = 2, .held = 250}), 2);
    EXPECT_EQ(insert_warning("3,4", kAfter, {.status = 2, .held = 250}, false), 0);
    EXPECT_EQ(insert_warning("", kBefore, {.status = 2, .held = 250}), 0);
    EXPECT_EQ(insert_warning("", kBefore, {.status = 2, .held = 251}), 2);
}

TEST(InsertPageText, WithoutAFilterTheStagesRefuse) {
    InsertPages pages;
    PageText text = field("1a", SPInstPageNumEditFilterData);
    text.filter = nullptr;
    EXPECT_TRUE(PreInvalidateInsertText(text, kAfter));
    EXPECT_EQ(InvalidateInsertText(text, kAfter, false, kAdding, pages), 1);
}

TEST(ExceptionPageText, ShowsTheMessageOfEachFailure) {
    EXPECT_EQ(exception_warning("5-7, 9"), 0);
    for (const char* text : {"", " ", "0", "0-3", "1, ,2", "65001", "-", "1;3"}) {
        EXPECT_EQ(exception_warning(text), 1) << text;
    }
    EXPECT_EQ(exception_warning("5-3"), 3);
    EXPECT_EQ(exception_warning("1-"), 0);
}

TEST(ExceptionPageText, TooManySetsAreTooLongFirst) {
    std::string sets_251;
    for (int i = 0; i < 251; ++i) {
        sets_251 += "1,";
    }
    EXPECT_EQ(exception_warning(sets_251), 1);
    EXPECT_EQ(exception_warning(sets_251, false), 0); // no limit on a disabled view
}

TEST(ExceptionPageText, TooManySetsHaveTheirMessageWhenTheLengthAllowsThem) {
    std::string sets_251;
    for (int i = 0; i < 251; ++i) {
        sets_251 += "1,";
    }
    auto text = field(sets_251, pageDefineFilterData);
    text.length = 99;
    ExceptionPages pages;
    EXPECT_EQ(InvalidateExceptionText(text, sets_251, pages), 2);
}

TEST(ExceptionPageText, IsOneTo99ColumnsLong) {
    const std::string longest = std::string(98, ' ') + "3";
    EXPECT_EQ(exception_warning(longest), 0);
    EXPECT_EQ(exception_warning(" " + longest), 1);
    EXPECT_EQ(exception_warning(" " + longest, false), 0);
    auto text = field("3", pageDefineFilterData);
    text.length = 0;
    EXPECT_FALSE(PreInvalidateExceptionText(text, "3"));
    text.viewEnabled = false;
    EXPECT_TRUE(PreInvalidateExceptionText(text, "3"));
    EXPECT_FALSE(PreInvalidateExceptionText(field("", pageDefineFilterData, false), ""));
}

TEST(ExceptionPageText, LooksAtTheCharactersOfTheDataBlock) {
    const auto text = field("3", pageDefineFilterData);
    EXPECT_TRUE(PreInvalidateExceptionText(text, "4"));
    EXPECT_FALSE(PreInvalidateExceptionText(text, "x"));
    EXPECT_TRUE(PreInvalidateExceptionText(field("x", pageDefineFilterData), "3"));
}

} // namespace
} // namespace specialpages
