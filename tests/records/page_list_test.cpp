#include "records/page_list.h"

#include <gtest/gtest.h>

#include <clocale>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

using Texts = std::vector<std::string>;

constexpr InsertPageLimit kAdding{.status = 1};
constexpr InsertPageLimit kNoLimit{};

/// What the inserts read: the code, the normal form and the pages as texts.
struct Read {
    std::int32_t code = 0;
    std::string arranged;
    Texts pages;

    bool operator==(const Read&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Read& read) {
    out << read.code << " \"" << read.arranged << "\"";
    for (const auto& page : read.pages) {
        out << ' ' << page;
    }
    return out;
}

Read inserts(std::string_view text, bool frontCover = false) {
    InsertPages list;
    const auto code = ValidatePageList(text, frontCover, kAdding, list);
    return {code, list.m_strArranged, code == 0 ? page_texts(list.m_aSortedPageArray) : Texts{}};
}

Read exceptions(std::string_view text) {
    ExceptionPages list;
    const auto code = ValidatePageList(text, true, list);
    return {code, list.m_strArranged, page_texts(list.m_idxNumberSet)};
}

Read refused(std::int32_t code) {
    return {code, "", {}};
}

std::string normal_form(std::string_view text) {
    std::string normal;
    EXPECT_EQ(ValidatePageList_getStrWithoutSpace(text, kInsertPageList, normal), 0) << text;
    return normal;
}

std::string arranged_set(std::string pageSet, const PageListReading& reading = kInsertPageList) {
    const auto code = ArrangePageSet(pageSet, reading);
    return code == 0 ? pageSet : std::to_string(code);
}

std::string repeated(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

// Characters.

TEST(PageList, SortsCharactersIntoClasses) {
    for (const char16_t digit : {u'0', u'5', u'9'}) {
        EXPECT_EQ(CheckWordType(digit), 1);
    }
    EXPECT_EQ(CheckWordType(u' '), 2);
    EXPECT_EQ(CheckWordType(u','), 3);
    EXPECT_EQ(CheckWordType(u'-'), 4);
    EXPECT_EQ(CheckWordType(u'a'), 5);
    EXPECT_EQ(CheckWordType(u'z'), 5);
    EXPECT_EQ(CheckWordType(u'A'), 6);
    EXPECT_EQ(CheckWordType(u'Z'), 6);
    for (const char16_t other : {u'/', u':', u'@', u'[', u'`', u'{', u'\0', u'\t', u'\n', u'.', u'\u00A0',
                                 u'\uFF11', u'\u3000', u'\u2013', u'\uFFFF'}) {
        EXPECT_EQ(CheckWordType(other), 7) << static_cast<int>(other);
    }
    EXPECT_EQ(CheckWordType(std::nullopt), -50);
}

// Stage 1.

TEST(PageList, DropsSpacesButBetweenNumbers) {
    EXPECT_EQ(normal_form("1 2"), "1,2,");
    EXPECT_EQ(normal_form("1    2"), "1,2,");
    EXPECT_EQ(normal_form("1 - 3"), "1-3,");
    EXPECT_EQ(normal_form("1- 2"), "1-2,");
    EXPECT_EQ(normal_form("1 -2"), "1-2,");
    EXPECT_EQ(normal_form("1 - 3 4"), "1-3,4,");
    EXPECT_EQ(normal_form("1 , 2"), "1,2,");
    EXPECT_EQ(normal_form("  12 "), "12,");
    EXPECT_EQ(normal_form("- 5"), "-5,");
}

TEST(PageList, DropsLeadingAndRepeatedCommas) {
    EXPECT_EQ(normal_form(",1"), "1,");
    EXPECT_EQ(normal_form(",,, 1"), "1,");
    EXPECT_EQ(normal_form(" ,1"), "1,");
    EXPECT_EQ(normal_form("1,,2"), "1,2,");
    EXPECT_EQ(normal_form("1,,,,2,,"), "1,2,");
    EXPECT_EQ(normal_form("1,"), "1,");
    EXPECT_EQ(normal_form("1,-"), "1,-,");
}

TEST(PageList, ASpaceEndsTheRepeatOfCommas) {
    EXPECT_EQ(normal_form("1, ,2"), "1,,2,");
    EXPECT_EQ(normal_form("1, ,"), "1,,");
}

TEST(PageList, OnlyExceptionsRefuseABlankTextInTheFirstStage) {
    for (const char* text : {" ", "   ", ",", ",,,", " , "}) {
        EXPECT_EQ(normal_form(text), "") << text;
        std::string untouched = "as it was";
        EXPECT_EQ(ValidatePageList_getStrWithoutSpace(text, kExceptionPageList, untouched), -3001);
        EXPECT_EQ(untouched, "as it was");
    }
}

TEST(PageList, TheFirstStageRefusesNullEmptyAndForeignTexts) {
    for (const auto& reading : {kInsertPageList, kExceptionPageList}) {
        std::string untouched = "as it was";
        EXPECT_EQ(ValidatePageList_getStrWithoutSpace(std::nullopt, reading, untouched), -50);
        EXPECT_EQ(ValidatePageList_getStrWithoutSpace("", reading, untouched), -3001);
        EXPECT_EQ(ValidatePageList_getStrWithoutSpace("1a", reading, untouched), -3004);
        EXPECT_EQ(ValidatePageList_getStrWithoutSpace("1;3", reading, untouched), -3004);
        EXPECT_EQ(untouched, "as it was");
    }
}

// One page set.

TEST(PageList, WritesOutTheOpenEndsOfAPageSet) {
    EXPECT_EQ(arranged_set("7"), "7");
    EXPECT_EQ(arranged_set("7-9"), "7-9");
    EXPECT_EQ(arranged_set("-5"), "1-5");
    EXPECT_EQ(arranged_set("5-"), "5-65000");
    EXPECT_EQ(arranged_set("-5", kExceptionPageList), "1-5");
    EXPECT_EQ(arranged_set("65000-", kExceptionPageList), "65000-65000");
    EXPECT_EQ(arranged_set("007"), "007");
}

TEST(PageList, RefusesAPageSetThatIsNone) {
    EXPECT_EQ(arranged_set(""), "-3000");
    EXPECT_EQ(arranged_set("1 2"), "-3000");
    EXPECT_EQ(arranged_set("1,2"), "-3000");
    EXPECT_EQ(arranged_set("1x"), "-3004");
    EXPECT_EQ(arranged_set("X"), "-3004");
    EXPECT_EQ(arranged_set("1.5"), "-3004");
    EXPECT_EQ(arranged_set("1-2-3"), "-3006");
    EXPECT_EQ(arranged_set("--"), "-3006");
    EXPECT_EQ(arranged_set("-5-"), "-3006");
    EXPECT_EQ(arranged_set("-"), "-3007");
}

TEST(PageList, TheFirstFaultOfAPageSetDecides) {
    EXPECT_EQ(arranged_set("1-2-x"), "-3006");
    EXPECT_EQ(arranged_set("1x-2-3"), "-3004");
    EXPECT_EQ(arranged_set("70000-5"), "-3008");
    EXPECT_EQ(arranged_set("9-7"), "-3009");
}

TEST(PageList, PagesLieWithinTheRangeOfTheReading) {
    EXPECT_EQ(arranged_set("0"), "0");
    EXPECT_EQ(arranged_set("65000"), "65000");
    EXPECT_EQ(arranged_set("65001"), "-3008");
    EXPECT_EQ(arranged_set("5-65001"), "-3008");
    EXPECT_EQ(arranged_set("-65001"), "-3008");
    EXPECT_EQ(arranged_set("65001-"), "-3008");
    EXPECT_EQ(arranged_set("0", kExceptionPageList), "-3008");
    EXPECT_EQ(arranged_set("-0", kExceptionPageList), "-3008");
    EXPECT_EQ(arranged_set("0-", kExceptionPageList), "-3008");
    EXPECT_EQ(arranged_set("1", kExceptionPageList), "1");
}

TEST(PageList, NumbersPast32BitsSaturate) {
    for (const char* number : {"2147483648", "4294967296", "4294967297", "18446744073709551617"}) {
        EXPECT_EQ(arranged_set(number), "-3008") << number;
        EXPECT_EQ(arranged_set(std::string("1-") + number), "-3008") << number;
    }
    EXPECT_EQ(arranged_set(std::string(99, '9')), "-3008");
    EXPECT_EQ(arranged_set(std::string(98, '0') + "7"), std::string(98, '0') + "7");
}

TEST(PageList, ARefusedPageSetIsLeftAlone) {
    std::string pageSet = "-65001";
    EXPECT_EQ(ArrangePageSet(pageSet, kInsertPageList), -3008);
    EXPECT_EQ(pageSet, "-65001");
}

// Stage 2.

TEST(PageList, TheSecondStageSplitsAtCommas) {
    std::string arranged;
    Texts sets;
    EXPECT_EQ(ValidatePageList_getArrangedStr("3,-2,7-,", kInsertPageList, {}, arranged, sets), 0);
    EXPECT_EQ(arranged, "3,1-2,7-65000,");
    EXPECT_EQ(sets, (Texts{"3", "1-2", "7-65000"}));
}

TEST(PageList, TheSecondStageLeavesItsResultsAloneOnFailure) {
    std::string arranged = "old";
    Texts sets{"old"};
    EXPECT_EQ(ValidatePageList_getArrangedStr("", kInsertPageList, {}, arranged, sets), -3001);
    EXPECT_EQ(ValidatePageList_getArrangedStr("1,,2,", kInsertPageList, {}, arranged, sets), -3000);
    EXPECT_EQ(ValidatePageList_getArrangedStr("1,2,3,", kInsertPageList, 2, arranged, sets), -3010);
    EXPECT_EQ(arranged, "old");
    EXPECT_EQ(sets, Texts{"old"});
}

TEST(PageList, TheLimitOnPageSetsComesBeforeTheSetItself) {
    std::string arranged;
    Texts sets;
    EXPECT_EQ(ValidatePageList_getArrangedStr("1,2,9-7,", kExceptionPageList, 2, arranged, sets), -3010);
    EXPECT_EQ(ValidatePageList_getArrangedStr("1,9-7,3,", kExceptionPageList, 2, arranged, sets), -3009);
    EXPECT_EQ(ValidatePageList_getArrangedStr("1,2,", kExceptionPageList, 2, arranged, sets), 0);
}

// Stage 3.

TEST(PageList, ExpandsOnePageSet) {
    PageRanges numbers;
    EXPECT_EQ(GetNumberArray(numbers, "3", false), 0);
    EXPECT_EQ(GetNumberArray(numbers, "1-2", false), 0);
    EXPECT_EQ(GetNumberArray(numbers, "9-7", false), 0);
    EXPECT_EQ(numbers, (PageRanges{{3, 3}, {1, 2}}));
}

TEST(PageList, LeavesOutPageZeroWhenAFrontCoverExists) {
    PageRanges numbers;
    EXPECT_EQ(GetNumberArray(numbers, "0", true), 0);
    EXPECT_EQ(numbers, PageRanges{});
    EXPECT_EQ(GetNumberArray(numbers, "0-3", true), 0);
    EXPECT_EQ(numbers, (PageRanges{{1, 3}}));
    EXPECT_EQ(GetNumberArray(numbers, "0-0", true), 0);
    EXPECT_EQ(numbers, (PageRanges{{1, 3}}));
    EXPECT_EQ(GetNumberIndexSet(numbers, "0"), 0);
    EXPECT_EQ(numbers, (PageRanges{{1, 3}, {0, 0}}));
}

TEST(PageList, RefusesToExpandWhatIsNoPageSet) {
    PageRanges numbers;
    for (const bool frontCover : {false, true}) {
        EXPECT_EQ(GetNumberArray(numbers, "1a", frontCover), -3004);
        EXPECT_EQ(GetNumberArray(numbers, "1 2", frontCover), -3000);
        EXPECT_EQ(GetNumberArray(numbers, "1-2-3", frontCover), -3000);
        EXPECT_EQ(GetNumberArray(numbers, "", frontCover), -3000);
    }
    EXPECT_EQ(GetNumberIndexSet(numbers, "1a"), -3004);
    EXPECT_EQ(GetNumberIndexSet(numbers, ","), -3000);
    EXPECT_EQ(numbers, PageRanges{});
}

TEST(PageList, TheThirdStageAnswersForTheLastSetOnly) {
    PageRanges numbers;
    EXPECT_EQ(ValidatePageList_getNumberArray({}, false, numbers), -3000);
    EXPECT_EQ(ValidatePageList_getNumberIndexSet({}, numbers), -3000);
    EXPECT_EQ(ValidatePageList_getNumberArray({"x", "3"}, false, numbers), 0);
    EXPECT_EQ(numbers, (PageRanges{{3, 3}}));
    EXPECT_EQ(ValidatePageList_getNumberIndexSet({"4", "x"}, numbers), -3004);
    EXPECT_EQ(numbers, (PageRanges{{3, 3}, {4, 4}}));
}

// Inserts.

TEST(InsertPageList, KeepsTheOrderAndTheRepeatsOfTheText) {
    EXPECT_EQ(inserts("3"), (Read{0, "3,", {"3"}}));
    EXPECT_EQ(inserts("3,1,2"), (Read{0, "3,1,2,", {"3", "1", "2"}}));
    EXPECT_EQ(inserts("3,3"), (Read{0, "3,3,", {"3", "3"}}));
    EXPECT_EQ(inserts("7-9"), (Read{0, "7-9,", {"7", "8", "9"}}));
    EXPECT_EQ(inserts("7-9, 8 7-7"), (Read{0, "7-9,8,7-7,", {"7", "8", "9", "8", "7"}}));
    EXPECT_EQ(inserts("007"), (Read{0, "007,", {"7"}}));
}

TEST(InsertPageList, ReadsSpacesAndCommasAsTheGrammarTells) {
    EXPECT_EQ(inserts("1 2"), (Read{0, "1,2,", {"1", "2"}}));
    EXPECT_EQ(inserts("1 - 2"), (Read{0, "1-2,", {"1", "2"}}));
    EXPECT_EQ(inserts("1- 2"), (Read{0, "1-2,", {"1", "2"}}));
    EXPECT_EQ(inserts("1,,2"), (Read{0, "1,2,", {"1", "2"}}));
    EXPECT_EQ(inserts(",1"), (Read{0, "1,", {"1"}}));
    EXPECT_EQ(inserts("1,"), (Read{0, "1,", {"1"}}));
    EXPECT_EQ(inserts("1, ,2"), refused(-3000));
}

TEST(InsertPageList, OpensRangesAtBothEnds) {
    EXPECT_EQ(inserts("-5"), (Read{0, "1-5,", {"1", "2", "3", "4", "5"}}));
    EXPECT_EQ(inserts("64999-"), (Read{0, "64999-65000,", {"64999", "65000"}}));
    EXPECT_EQ(inserts("65000"), (Read{0, "65000,", {"65000"}}));
}

TEST(InsertPageList, AnOpenStartUpToPageZeroIsValidAndNamesNoPage) {
    EXPECT_EQ(inserts("-0"), (Read{0, "1-0,", {}}));
}

TEST(InsertPageList, TakesPageZeroOnlyWithoutAFrontCover) {
    EXPECT_EQ(inserts("0"), (Read{0, "0,", {"0"}}));
    EXPECT_EQ(inserts("0", true), (Read{0, "0,", {}}));
    EXPECT_EQ(inserts("0-3"), (Read{0, "0-3,", {"0", "1", "2", "3"}}));
    EXPECT_EQ(inserts("0-3", true), (Read{0, "0-3,", {"1", "2", "3"}}));
    EXPECT_EQ(inserts("000,5", true), (Read{0, "000,5,", {"5"}}));
}

TEST(InsertPageList, RefusesWithTheCodeOfTheFault) {
    EXPECT_EQ(inserts(""), refused(-3001));
    EXPECT_EQ(inserts("   "), refused(-3001));
    EXPECT_EQ(inserts(",,,"), refused(-3001));
    EXPECT_EQ(inserts("1;2"), refused(-3004));
    EXPECT_EQ(inserts("1-2-3"), refused(-3006));
    EXPECT_EQ(inserts("-"), refused(-3007));
    EXPECT_EQ(inserts("65001"), refused(-3008));
    EXPECT_EQ(inserts("9-7"), refused(-3009));
    EXPECT_EQ(inserts("1--2"), refused(-3006));
    EXPECT_EQ(inserts("1- -2"), refused(-3006));
    EXPECT_EQ(inserts(",-,"), refused(-3007));
}

TEST(InsertPageList, TheEarliestSetThatIsWrongDecides) {
    EXPECT_EQ(inserts("9-7,65001"), refused(-3009));
    EXPECT_EQ(inserts("65001,9-7"), refused(-3008));
    EXPECT_EQ(inserts("65001,a"), refused(-3004)); // characters are looked at first
}

TEST(InsertPageList, RefusesEveryCharacterBeyondTheGrammar) {
    for (const std::string text : {"\xEF\xBC\x91", "1\xE3\x80\x80-", "\xE2\x80\x93", "1\t2", "1\n", "\xFF",
                                   "1.5", "+1", "1_2", "x", "Z"}) {
        EXPECT_EQ(inserts(text), refused(-3004)) << text;
        EXPECT_EQ(exceptions(text), refused(-3004)) << text;
    }
    EXPECT_EQ(inserts(std::string_view("1\0002", 3)), refused(-3004));
}

TEST(InsertPageList, LimitsThePagesAfterExpansion) {
    InsertPages list;
    EXPECT_EQ(ValidatePageList("1-250", false, kAdding, list), 0);
    EXPECT_EQ(page_count(list.m_aSortedPageArray), 250);
    EXPECT_EQ(ValidatePageList("1-251", false, kAdding, list), -3010);
    EXPECT_EQ(ValidatePageList("5-", false, kAdding, list), -3010);
    EXPECT_EQ(page_count(list.m_aSortedPageArray), 64996);
    EXPECT_EQ(ValidatePageList(repeated("1,", 251), false, kAdding, list), -3010);
    EXPECT_EQ(ValidatePageList("0-250", false, kAdding, list), -3010);
    EXPECT_EQ(ValidatePageList("0-250", true, kAdding, list), 0);
}

TEST(InsertPageList, TheLimitCountsTheInsertsOfTheDialog) {
    InsertPages list;
    EXPECT_EQ(ValidatePageList("7", false, {.status = 1, .held = 249}, list), 0);
    EXPECT_EQ(ValidatePageList("7", false, {.status = 1, .held = 250}, list), -3010);
    EXPECT_EQ(ValidatePageList("7", false, {.status = 2, .held = 250}, list), 0);
    EXPECT_EQ(ValidatePageList("7,8", false, {.status = 2, .held = 250}, list), -3010);
    EXPECT_EQ(ValidatePageList("7,8", false, {.status = 2, .held = 250, .viewEnabled = false}, list), 0);
    EXPECT_EQ(ValidatePageList("7", false, {.status = 1, .held = 250, .viewEnabled = false}, list), -3010);
    EXPECT_EQ(ValidatePageList("1-", false, {.status = 0, .held = 250}, list), 0);
}

TEST(InsertPageList, NoPageIsTooManyOnlyPastTheLimit) {
    InsertPages list;
    EXPECT_EQ(ValidatePageList("0", true, {.status = 1, .held = 250}, list), 0);
    EXPECT_EQ(ValidatePageList("0", true, {.status = 1, .held = 251}, list), -3010);
}

TEST(InsertPageList, LimitsAsToldInEachStatus) {
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(250, {.status = 1}));
    EXPECT_TRUE(IsRecordExceedMaxWithAddition(251, {.status = 1}));
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(2, {.status = 1, .held = 1, .maxPageDefineNum = 3}));
    EXPECT_TRUE(IsRecordExceedMaxWithAddition(3, {.status = 1, .held = 1, .maxPageDefineNum = 3}));
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(251, {.status = 2}));
    EXPECT_TRUE(IsRecordExceedMaxWithAddition(252, {.status = 2}));
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(252, {.status = 2, .viewEnabled = false}));
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(99999, {.status = 0}));
    EXPECT_FALSE(IsRecordExceedMaxWithAddition(99999, {.status = 3}));
}

TEST(InsertPageList, AFailureBeforeTheNormalFormKeepsTheOldPages) {
    InsertPages list;
    ASSERT_EQ(ValidatePageList("3", false, kAdding, list), 0);
    const auto old = list;
    for (const char* text : {"", " ", "x", "9-7", "65001", "-"}) {
        EXPECT_NE(ValidatePageList(text, false, kAdding, list), 0) << text;
        EXPECT_EQ(list, old) << text;
    }
    EXPECT_EQ(ValidatePageList(std::nullopt, false, kAdding, list), -50);
    EXPECT_EQ(list, old);
}

TEST(InsertPageList, TooManyPagesAreKeptAsTheyWereRead) {
    InsertPages list;
    ASSERT_EQ(ValidatePageList("3", false, kAdding, list), 0);
    EXPECT_EQ(ValidatePageList("1-251", false, kAdding, list), -3010);
    EXPECT_EQ(list.m_strArranged, "1-251,");
    EXPECT_EQ(list.m_aSortedPageArray, (PageRanges{{1, 251}}));
}

TEST(InsertPageList, BeforePageOneIsOnePageHoweverOftenItIsChosen) {
    InsertPages list;
    ASSERT_EQ(ValidatePageList("3,4", false, kAdding, list), 0);
    choose_before_page_one(list);
    choose_before_page_one(list);
    EXPECT_EQ(page_texts(list.m_aSortedPageArray), Texts{"0"});
}

TEST(InsertPageList, TheWorstTextOfAFieldCostsNoMoreThanItsRanges) {
    const auto worst = repeated("1-,", 33);
    ASSERT_EQ(worst.size(), 99U);
    InsertPages list;
    EXPECT_EQ(ValidatePageList(worst, false, kNoLimit, list), 0);
    EXPECT_EQ(page_count(list.m_aSortedPageArray), 33 * 65000);
    EXPECT_EQ(list.m_aSortedPageArray.size(), 33U);
    EXPECT_EQ(inserts(worst).code, -3010);
    EXPECT_EQ(inserts(repeated("-", 99)), refused(-3006));
    EXPECT_EQ(inserts(repeated("1,", 49)).pages.size(), 49U);
}

TEST(InsertPageList, AMillionPageSetsAreRefusedAfterOneReading) {
    InsertPages list;
    EXPECT_EQ(ValidatePageList(repeated("1-,", 1000000), false, kAdding, list), -3010);
    EXPECT_EQ(page_count(list.m_aSortedPageArray), std::int64_t{1000000} * 65000);
}

TEST(InsertPageList, ReadsTheSameInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "tr_TR.UTF-8", "C.UTF-8", "C"}) {
        std::setlocale(LC_ALL, locale); // not every machine has every locale
        EXPECT_EQ(inserts("1 - 3, 1000"), (Read{0, "1-3,1000,", {"1", "2", "3", "1000"}}));
        EXPECT_EQ(inserts("1.000"), refused(-3004));
    }
    std::setlocale(LC_ALL, before.c_str());
}

// Exceptions.

TEST(ExceptionPageList, ReadsASetInAscendingOrder) {
    EXPECT_EQ(exceptions("5"), (Read{0, "5,", {"5"}}));
    EXPECT_EQ(exceptions("5-7"), (Read{0, "5-7,", {"5", "6", "7"}}));
    EXPECT_EQ(exceptions("7-9,8-10,3"), (Read{0, "7-9,8-10,3,", {"3", "7", "8", "9", "10"}}));
    EXPECT_EQ(exceptions("7,7"), (Read{0, "7,7,", {"7"}}));
    EXPECT_EQ(exceptions("9 1"), (Read{0, "9,1,", {"1", "9"}}));
}

TEST(ExceptionPageList, OpensRangesAtBothEnds) {
    EXPECT_EQ(exceptions("-3"), (Read{0, "1-3,", {"1", "2", "3"}}));
    EXPECT_EQ(exceptions("65000-"), (Read{0, "65000-65000,", {"65000"}}));
    ExceptionPages list;
    EXPECT_EQ(ValidatePageList("1-", true, list), 0);
    EXPECT_EQ(page_count(list.m_idxNumberSet), 65000);
    EXPECT_EQ(list.m_idxNumberSet, (PageRanges{{1, 65000}}));
}

TEST(ExceptionPageList, RefusesPageZero) {
    EXPECT_EQ(exceptions("0"), refused(-3008));
    EXPECT_EQ(exceptions("0-3"), refused(-3008));
    EXPECT_EQ(exceptions("-0"), refused(-3008));
    EXPECT_EQ(exceptions("1"), (Read{0, "1,", {"1"}}));
}

TEST(ExceptionPageList, RefusesWithTheCodeOfTheFault) {
    EXPECT_EQ(exceptions(""), refused(-3001));
    EXPECT_EQ(exceptions("  "), refused(-3001));
    EXPECT_EQ(exceptions("1, ,2"), refused(-3000));
    EXPECT_EQ(exceptions("5-3"), refused(-3009));
    EXPECT_EQ(exceptions("1-2-3"), refused(-3006));
    EXPECT_EQ(exceptions("-"), refused(-3007));
    EXPECT_EQ(exceptions("65001"), refused(-3008));
}

TEST(ExceptionPageList, LimitsThePageSetsBeforeExpansion) {
    const auto sets_250 = repeated("1,", 250);
    const auto sets_251 = sets_250 + "1";
    ASSERT_EQ(sets_251.size(), 501U);
    EXPECT_EQ(exceptions(sets_250), (Read{0, sets_250, {"1"}}));
    EXPECT_EQ(exceptions(sets_251), refused(-3010));
    EXPECT_EQ(inserts(sets_251).code, -3010);
    EXPECT_EQ(exceptions(sets_250 + "9-7"), refused(-3010));
}

TEST(ExceptionPageList, ADisabledViewHasNoLimit) {
    ExceptionPages list;
    EXPECT_EQ(ValidatePageList(repeated("1,", 5000), false, list), 0);
    EXPECT_EQ(list.m_idxNumberSet, (PageRanges{{1, 1}}));
}

TEST(ExceptionPageList, AFailureKeepsTheOldPages) {
    ExceptionPages list;
    ASSERT_EQ(ValidatePageList("3", true, list), 0);
    const auto old = list;
    EXPECT_EQ(ValidatePageList("9-7", true, list), -3009);
    EXPECT_EQ(ValidatePageList(repeated("1,", 251), true, list), -3010);
    EXPECT_EQ(ValidatePageList(std::nullopt, true, list), -50);
    EXPECT_EQ(list, old);
}

// Messages.

TEST(PageListMessages, TellTheThreeFailuresApart) {
    EXPECT_EQ(page_list_warning(0), 0);
    EXPECT_EQ(page_list_warning(-3010), 2);
    EXPECT_EQ(page_list_warning(-3009), 3);
    for (const std::int32_t code : {-50, -3000, -3001, -3004, -3006, -3007, -3008}) {
        EXPECT_EQ(page_list_warning(code), 1) << code;
    }
}

TEST(PageListMessages, HaveTheKeysOfTheirDialog) {
    EXPECT_EQ(page_list_message_key(kInsertPageList, 1), "Warning44");
    EXPECT_EQ(page_list_message_key(kInsertPageList, 2), "Warning47");
    EXPECT_EQ(page_list_message_key(kInsertPageList, 3), "Warning49");
    EXPECT_EQ(page_list_message_key(kInsertPageList, 4), "Warning44");
    EXPECT_EQ(page_list_message_key(kExceptionPageList, 1), "Warning46");
    EXPECT_EQ(page_list_message_key(kExceptionPageList, 2), "Warning48");
    EXPECT_EQ(page_list_message_key(kExceptionPageList, 3), "Warning50");
    EXPECT_EQ(page_list_message_key(kExceptionPageList, 0), "Warning46");
}

} // namespace
} // namespace specialpages
