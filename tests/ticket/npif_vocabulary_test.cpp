#include "ticket/npif_vocabulary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

using ::testing::ElementsAre;

TEST(NPIFVocabulary, HasTheWordsOfTrayPrintingAndSides) {
    EXPECT_EQ(TrayInterposer, "interposer");
    EXPECT_THAT(CoverTypeNPIFComm, ElementsAre("print-none", "print-front", "print-back", "print-both"));
    EXPECT_THAT(SidesNPIFComm, ElementsAre("one-sided", "two-sided-long-edge", "two-sided-short-edge"));
}

TEST(NPIFVocabulary, TablesBeginAndEndAsTheyShould) {
    EXPECT_EQ(MediaColorNPIFComm.size(), 18U);
    EXPECT_EQ(MediaColorNPIFComm.front().keyword, "White");
    EXPECT_EQ(MediaColorNPIFComm.at(8).keyword, "Pink");
    EXPECT_EQ(MediaColorNPIFComm.at(9).keyword, "Red");
    EXPECT_EQ(MediaColorNPIFComm.back().keyword, "Other");
    EXPECT_EQ(MediaTypeNPIFComm.size(), 46U);
    EXPECT_EQ(MediaTypeNPIFComm.front().keyword, "Stationary");
    EXPECT_EQ(MediaTypeNPIFComm.at(22).keyword, "PrePrintedThickPaper2S1");
    EXPECT_EQ(MediaTypeNPIFComm.at(23).keyword, "PrePrintedThickPaper3");
    EXPECT_EQ(MediaTypeNPIFComm.back().keyword, "CustomSizedPaper5");
    EXPECT_EQ(MediaSizeNPIFComm.size(), 48U);
    EXPECT_EQ(MediaSizeNPIFComm.front().keyword, "A3");
    EXPECT_EQ(MediaSizeNPIFComm.at(17).keyword, "DoublePostcardRotated");
    EXPECT_EQ(MediaSizeNPIFComm.at(18).keyword, "NV4x6");
    EXPECT_EQ(MediaSizeNPIFComm.at(32).keyword, "NV16-KAI-GCO");
    EXPECT_EQ(MediaSizeNPIFComm.at(33).keyword, "NR4x6");
    EXPECT_EQ(MediaSizeNPIFComm.back().keyword, "NR16-KAI-GCO");
}

TEST(NPIFVocabulary, ReachesTheLastRowOfEachTable) {
    EXPECT_EQ(media_color_word("Other"), "other");
    EXPECT_EQ(media_type_word("CustomSizedPaper5"), "USER5");
    EXPECT_EQ(media_size("NR16-KAI-GCO"), (SheetSize{"19500", "27000"}));
}

TEST(NPIFVocabulary, ColourWordsAreTheKeywordsInLowerCaseButForSix) {
    const std::map<std::string_view, std::string_view> irregular{
        {"Clear", "no-color"},   {"Custom1", "custom_1"}, {"Custom2", "custom_2"},
        {"Custom3", "custom_3"}, {"Custom4", "custom_4"}, {"Custom5", "custom_5"}};
    for (const auto& [keyword, word] : MediaColorNPIFComm) {
        if (const auto found = irregular.find(keyword); found != irregular.end()) {
            EXPECT_EQ(word, found->second);
        } else {
            std::string lower{keyword};
            lower.front() = static_cast<char>(lower.front() - 'A' + 'a');
            EXPECT_EQ(word, lower);
        }
        EXPECT_EQ(media_color_word(keyword), word);
    }
}

TEST(NPIFVocabulary, IrregularTypeWordsGoOutAsTheyAre) {
    EXPECT_EQ(media_type_word("Stationary"), "NORMAL");
    EXPECT_EQ(media_type_word("StationaryBack"), "NORMALREV");
    EXPECT_EQ(media_type_word("StationaryBackS1"), "USEDS1");
    EXPECT_EQ(media_type_word("FinePaper"), "HIGHQUALITY");
    EXPECT_EQ(media_type_word("FinePaperS1"), "FINES1");
    EXPECT_EQ(media_type_word("ThickPaperS1"), "THICK1S");
    EXPECT_EQ(media_type_word("ThickPaper2"), "SUPERTHICK");
    EXPECT_EQ(media_type_word("ThickPaper3S1"), "THICK3S1");
    EXPECT_EQ(media_type_word("CoatingPaper1B"), "COATEDPAPERB");
    EXPECT_EQ(media_type_word("ThinPaper"), "THIN");
}

TEST(NPIFVocabulary, TheFirstOfTwoRowsOfOneKeywordWins) {
    EXPECT_EQ(media_type_word("PrePrintedPlainPaperS1"), "PREPRINTEDS1");
    EXPECT_EQ(MediaTypeNPIFComm.at(17).keyword, "PrePrintedPlainPaperS1");
    EXPECT_EQ(MediaTypeNPIFComm.at(17).word, "PREPRINTEDS1");
    EXPECT_EQ(MediaTypeNPIFComm.at(27).keyword, "PrePrintedPlainPaperS1");
    EXPECT_EQ(MediaTypeNPIFComm.at(27).word, "PREPRINTED_S1");
}

TEST(NPIFVocabulary, EveryOtherRowIsReachedByItsKeyword) {
    for (std::size_t row = 0; row < MediaTypeNPIFComm.size(); ++row) {
        if (row != 27) {
            EXPECT_EQ(media_type_word(MediaTypeNPIFComm.at(row).keyword), MediaTypeNPIFComm.at(row).word);
        }
    }
    for (const auto& sheet : MediaSizeNPIFComm) {
        EXPECT_EQ(media_size(sheet.keyword), (SheetSize{sheet.x, sheet.y}));
    }
}

TEST(NPIFVocabulary, TypeWordsAreAllDifferent) {
    std::set<std::string_view> words;
    for (const auto& row : MediaTypeNPIFComm) {
        EXPECT_TRUE(words.insert(row.word).second) << row.word;
    }
}

TEST(NPIFVocabulary, OnlyTheTwoTabStocksHoldTheWordsOfATab) {
    std::vector<std::string_view> tabs;
    for (const auto& row : MediaTypeNPIFComm) {
        if (row.word.find("TAB") != std::string_view::npos ||
            row.word.find("COATING") != std::string_view::npos) {
            tabs.push_back(row.word);
        }
    }
    EXPECT_THAT(tabs, ElementsAre("TABTHICK1", "TABTHICK2"));
}

TEST(NPIFVocabulary, MeasuresSheetsInHundredthsOfAMillimetre) {
    EXPECT_EQ(media_size("A4"), (SheetSize{"21000", "29700"}));
    EXPECT_EQ(media_size("Letter"), (SheetSize{"21590", "27940"}));
    EXPECT_EQ(media_size("Executive"), (SheetSize{"18420", "26670"}));
    EXPECT_EQ(media_size("FanFoldGermanLegal"), (SheetSize{"21590", "33020"}));
    EXPECT_EQ(media_size("DoublePostcardRotated"), (SheetSize{"14800", "20000"}));
    EXPECT_EQ(media_size("NV846x124"), (SheetSize{"21500", "31500"}));
    EXPECT_EQ(media_size("NVA4Cover"), (SheetSize{"22300", "29700"}));
    EXPECT_EQ(media_size("NRPostcard"), (SheetSize{"10000", "14800"}));
}

TEST(NPIFVocabulary, EverySheetIsLongerThanWide) {
    for (const auto& sheet : MediaSizeNPIFComm) {
        EXPECT_EQ(sheet.x.size(), 5U) << sheet.keyword;
        EXPECT_EQ(sheet.y.size(), 5U) << sheet.keyword;
        EXPECT_LT(sheet.x, sheet.y) << sheet.keyword;
    }
}

TEST(NPIFVocabulary, TheLastFifteenSizesComeOnceWithEachPrefix) {
    for (std::size_t row = 18; row < 33; ++row) {
        const auto& nv = MediaSizeNPIFComm.at(row);
        const auto& nr = MediaSizeNPIFComm.at(row + 15);
        EXPECT_EQ(nv.keyword.substr(0, 2), "NV");
        EXPECT_EQ(nr.keyword.substr(0, 2), "NR");
        EXPECT_EQ(nv.keyword.substr(2), nr.keyword.substr(2));
        EXPECT_EQ(nv.x, nr.x) << nv.keyword;
        EXPECT_EQ(nv.y, nr.y) << nv.keyword;
    }
}

TEST(NPIFVocabulary, OnlyOneSizeHoldsTheTwoCharactersOfA5) {
    EXPECT_EQ(
        std::count_if(MediaSizeNPIFComm.begin(), MediaSizeNPIFComm.end(),
                      [](const auto& sheet) { return sheet.keyword.find("A5") != std::string_view::npos; }),
        1);
    EXPECT_EQ(media_size("A5"), (SheetSize{"14800", "21000"}));
}

TEST(NPIFVocabulary, KeywordsMatchWholeAndWithTheirCase) {
    EXPECT_EQ(media_color_word("white"), std::nullopt);
    EXPECT_EQ(media_color_word("Whit"), std::nullopt);
    EXPECT_EQ(media_color_word("White "), std::nullopt);
    EXPECT_EQ(media_type_word("ThickPaper2S"), std::nullopt);
    EXPECT_EQ(media_type_word("NORMAL"), std::nullopt);
    EXPECT_EQ(media_size("a4"), std::nullopt);
    EXPECT_EQ(media_size("A4.Fullbleed"), std::nullopt);
    EXPECT_EQ(media_size("4x6"), std::nullopt);
}

TEST(NPIFVocabulary, AnEmptyKeywordHasNoWordInAnyTable) {
    EXPECT_EQ(media_color_word(""), std::nullopt);
    EXPECT_EQ(media_type_word(""), std::nullopt);
    EXPECT_EQ(media_size(""), std::nullopt);
    EXPECT_EQ(media_size({}), std::nullopt);
}

TEST(NPIFVocabulary, CustomIsNoSizeOfTheTable) {
    EXPECT_EQ(media_size("Custom"), std::nullopt);
}

} // namespace
} // namespace specialpages
