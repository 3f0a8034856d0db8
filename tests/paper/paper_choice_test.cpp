#include "paper/paper_choice.h"
#include "paper/paper_ppd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PaperChoice, IsCompleteOnlyWithAllThreeParts) {
    EXPECT_FALSE(PaperChoice{}.complete());
    EXPECT_TRUE((PaperChoice{0, 0, 0, false}.complete()));
    EXPECT_FALSE((PaperChoice{kNoChange, 0, 0, false}.complete()));
    EXPECT_FALSE((PaperChoice{0, kNoChange, 0, false}.complete()));
    EXPECT_FALSE((PaperChoice{0, 0, kNoChange, false}.complete()));
}

TEST(PaperChoice, PartsAreNumberedByTheirPositionInTheMenu) {
    EXPECT_EQ(paper_part(2), PaperPart::size);
    EXPECT_EQ(paper_part(3), PaperPart::color);
    EXPECT_EQ(paper_part(4), PaperPart::type);
    for (const std::int64_t number : {-1, 0, 1, 5, 6, 2000}) {
        EXPECT_EQ(paper_part(number), std::nullopt) << number;
    }
    PaperChoice paper{1, 2, 3, false};
    EXPECT_EQ(paper.of(PaperPart::size), 1);
    EXPECT_EQ(paper.of(PaperPart::color), 2);
    EXPECT_EQ(paper.of(PaperPart::type), 3);
    paper.of(PaperPart::color) = 7;
    EXPECT_EQ(paper, (PaperChoice{1, 7, 3, false}));
}

TEST(PaperChoice, TagsSayMenuAndIndex) {
    EXPECT_EQ(tag_base(PaperPart::size), 2000);
    EXPECT_EQ(tag_base(PaperPart::color), 3000);
    EXPECT_EQ(tag_base(PaperPart::type), 4000);
    for (const auto& [tag, position, index] :
         std::vector<std::array<std::int32_t, 3>>{{2000, 2, -1}, {2001, 2, 0}, {3002, 3, 1}, {4045, 4, 44}}) {
        EXPECT_EQ(read_tag(tag).position, position) << tag;
        EXPECT_EQ(read_tag(tag).index, index) << tag;
    }
}

TEST(PaperChoice, DefaultsAreThePpdsSizeAndColorButAlwaysStationary) {
    PpdBuilder ppd;
    describe_paper(ppd);
    EXPECT_EQ(default_paper(ppd.file(), paper_keys()), (PaperChoice{1, 0, 0, false}));
}

TEST(PaperChoice, WithoutStationaryTheDefaultTypeIsOnePastTheLast) {
    PpdBuilder ppd;
    ppd.option("PageSize", "Nowhere").choices({"A4"}).option("MediaType", "Thick").choices({"Thick", "Thin"});
    const PaperChoice paper = default_paper(ppd.file(), paper_keys());
    EXPECT_EQ(paper.size, -1) << "the default is none of the choices";
    EXPECT_EQ(paper.color, -1) << "there is no such option";
    EXPECT_EQ(paper.type, 2);
}

TEST(PaperChoice, WithoutAPpdTheDefaultTypeIsTheFirst) {
    EXPECT_EQ(default_paper(nullptr, paper_keys()), (PaperChoice{-1, -1, 0, false}));
}

TEST(PaperChoice, TabStockStandsInDescendingOrder) {
    PpdBuilder ppd;
    describe_paper(ppd);
    ppd.option("Tricky").choices({"tabbedpaper", "TabbedPaper", "XTabbedPaper1", "TabbedPaperOther"});
    EXPECT_THAT(tab_stock_indexes(&ppd.find("MediaType")), ElementsAre("4", "2"));
    EXPECT_THAT(tab_stock_indexes(&ppd.find("Tricky")), ElementsAre("3", "1"));
    EXPECT_THAT(tab_stock_indexes(&ppd.find("Duplex")), IsEmpty());
    EXPECT_THAT(tab_stock_indexes(nullptr), IsEmpty());
}

TEST(PaperChoice, OnlyTheLastCustomCountsAndItsWordIsExact) {
    PpdBuilder ppd;
    ppd.option("PageSize")
        .choices({"Custom", "A4", "Custom", "custom", "Custom.A4"})
        .option("Plain")
        .choices({"A4", "Letter"});
    EXPECT_THAT(custom_size_indexes(&ppd.find("PageSize")), ElementsAre("2"));
    EXPECT_THAT(custom_size_indexes(&ppd.find("Plain")), IsEmpty());
    EXPECT_THAT(custom_size_indexes(nullptr), IsEmpty());
}

TEST(PaperChoice, AnIndexIsFoundAsDecimalText) {
    const std::vector<std::string> indexes{"12", "2", "-1"};
    EXPECT_TRUE(holds_index(indexes, 12));
    EXPECT_TRUE(holds_index(indexes, 2));
    EXPECT_FALSE(holds_index(indexes, 1));
    EXPECT_FALSE(holds_index(indexes, -1)) << "a negative index is in no array";
    EXPECT_FALSE(holds_index(indexes, std::numeric_limits<std::int32_t>::min()));
    EXPECT_FALSE(holds_index({}, 0));
}

TEST(PaperChoice, TheMarkedIndexFollowsTheMarks) {
    PpdBuilder ppd;
    describe_paper(ppd);
    EXPECT_EQ(marked_choice_index(ppd.file(), "PageSize"), std::nullopt);
    ppd.mark("PageSize", "Letter");
    EXPECT_EQ(marked_choice_index(ppd.file(), "PageSize"), 2);
    EXPECT_EQ(marked_choice_index(ppd.file(), "Missing"), std::nullopt);
    EXPECT_EQ(marked_choice_index(nullptr, "PageSize"), std::nullopt);
}

TEST(PaperChoice, PpdTextsAreUtf8AndEndAtACharacter) {
    EXPECT_EQ(ppd_text("Größe"), "Größe");
    EXPECT_EQ(ppd_text(""), "");
    const std::string whole = "Gr\xC3\xB6\xC3\x9F"
                              "e";
    EXPECT_EQ(ppd_text(whole.substr(0, 3)), "Gr") << "half an o with dots";
    EXPECT_EQ(ppd_text("\xF0\x9F\x98"), "");
    EXPECT_EQ(ppd_text("caf\xE9 bar"), "café bar") << "read as Latin 1";
}

} // namespace
} // namespace specialpages::test
