#include "paper/duplex_choices.h"
#include "paper/paper_ppd.h"
#include "records/record_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;

std::vector<std::vector<std::string>> texts(DuplexChoiceTable table) {
    std::vector<std::vector<std::string>> all;
    for (const DuplexChoices& choices : table) {
        all.emplace_back(choices.begin(), choices.end());
    }
    return all;
}

TEST(DuplexTables, PairTwoSidedItemsWithTheChoicesThatTheProgramHas) {
    EXPECT_THAT(texts(twoSidePrintGetDuplexChoiceArray),
                ElementsAre(ElementsAre("NULL"), ElementsAre("None"), ElementsAre("DuplexTumble"),
                            ElementsAre("DuplexNoTumble")));
    EXPECT_THAT(texts(printingOptionGetDuplexChoiceArray),
                ElementsAre(ElementsAre("None"), ElementsAre("None"),
                            ElementsAre("DuplexTumble", "DuplexNoTumble"),
                            ElementsAre("DuplexTumble", "DuplexNoTumble")));
    EXPECT_THAT(printingOptionPPDOptionChoice,
                ElementsAre(::testing::StrEq("None"), ::testing::StrEq("None"),
                            ::testing::StrEq("DuplexTumble"), ::testing::StrEq("DuplexNoTumble")));
    EXPECT_EQ(twoSidePrintGetDuplexChoiceArray.size(), exceptionTowSidePrintIniMenu.size());
    EXPECT_EQ(printingOptionGetDuplexChoiceArray.size(), printingOptionListIniMenu.size());
}

TEST(DuplexTables, AnswerNothingOutsideTheirPositions) {
    EXPECT_EQ(duplex_choices_at(twoSidePrintGetDuplexChoiceArray, -1), std::nullopt);
    EXPECT_EQ(duplex_choices_at(twoSidePrintGetDuplexChoiceArray, 4), std::nullopt);
    EXPECT_EQ(duplex_choices_at({}, 0), std::nullopt);
    EXPECT_THAT(duplex_choices_at(twoSidePrintGetDuplexChoiceArray, 3),
                ::testing::Optional(ElementsAre(::testing::StrEq("DuplexNoTumble"))));
}

class DuplexItem : public ::testing::Test {
  protected:
    DuplexItem() {
        describe_paper(ppd)
            .constraint("PageSize", "A3", "Duplex", "DuplexTumble")
            .constraint("NVMediaColor", "Blue", "Duplex", "DuplexTumble")
            .constraint("MediaType", "Thick", "Duplex", "DuplexNoTumble")
            .constraint("Duplex", "None", "PageSize", "A3");
        compiled = std::make_unique<CompiledPpd>(ppd);
    }
    std::string reason(std::int64_t position, const PaperSelectionArray& paper) {
        return named(duplex_item_conflict(
            ppd.file(), compiled->index.get(), "Duplex",
            printingOptionGetDuplexChoiceArray[static_cast<std::size_t>(position)], paper_keys(), paper));
    }
    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
};

TEST_F(DuplexItem, IsForbiddenByEachPartOfThePaper) {
    EXPECT_EQ(reason(2, {{{"A3"}, {}, {}}}), "PageSize:A3");
    EXPECT_EQ(reason(2, {{{}, {"Blue"}, {}}}), "NVMediaColor:Blue");
    EXPECT_EQ(reason(2, {{{}, {}, {"Thick"}}}), "MediaType:Thick");
    EXPECT_EQ(reason(2, {{{"A4"}, {"White"}, {"Stationary"}}}), "");
}

TEST_F(DuplexItem, NamesTheFirstPartInTheOrderSizeColorType) {
    EXPECT_EQ(reason(3, {{{"A3"}, {"Blue"}, {"Thick"}}}), "PageSize:A3");
    EXPECT_EQ(reason(3, {{{"A4"}, {"Blue"}, {"Thick"}}}), "NVMediaColor:Blue");
}

TEST_F(DuplexItem, LooksAtEveryEntryOfAPart) {
    EXPECT_EQ(reason(2, {{{"A4", "Letter", "A3"}, {}, {}}}), "PageSize:A3");
}

TEST_F(DuplexItem, IndexesOfRecordsForbidNothing) {
    EXPECT_EQ(reason(2, {{{"0", "1", "2"}, {"0", "1"}, {"0", "1"}}}), "");
}

TEST_F(DuplexItem, ReadsTheConstraintFromTheDuplexSideOnly) {
    EXPECT_EQ(reason(1, {{{"A3"}, {}, {}}}), "") << "None forbids A3, not A3 None";
}

TEST_F(DuplexItem, WithoutPpdIndexOrChoicesNothingIsForbidden) {
    const PaperSelectionArray paper{{{"A3"}, {}, {}}};
    EXPECT_EQ(named(duplex_item_conflict(nullptr, compiled->index.get(), "Duplex",
                                         printingOptionTwoSidedChoice, paper_keys(), paper)),
              "");
    EXPECT_EQ(named(duplex_item_conflict(ppd.file(), nullptr, "Duplex", printingOptionTwoSidedChoice,
                                         paper_keys(), paper)),
              "");
    EXPECT_EQ(
        named(duplex_item_conflict(ppd.file(), compiled->index.get(), "Duplex", {}, paper_keys(), paper)),
        "");
}

TEST_F(DuplexItem, ForbiddingChoiceComparesExactly) {
    const auto asked = [&](const char* key, const char* option, const char* choice) {
        return named(forbidding_choice(ppd.file(), compiled->index.get(), key, option, choice));
    };
    EXPECT_EQ(asked("Duplex:DuplexTumble", "PageSize", "A3"), "PageSize:A3");
    EXPECT_EQ(asked("Duplex:DuplexTumble", "PageSize", "a3"), "");
    EXPECT_EQ(asked("Duplex:DuplexTumble", "pagesize", "A3"), "");
    EXPECT_EQ(asked("duplex:DuplexTumble", "PageSize", "A3"), "");
}

} // namespace
} // namespace specialpages::test
