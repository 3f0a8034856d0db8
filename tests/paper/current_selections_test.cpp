#include "paper/current_selections.h"
#include "paper/paper_ppd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using Keywords = std::vector<std::string>;

const std::array<std::string, 3> kPaper{"A4", "White", "Thick"};

TEST(CurrentSelectionKeys, BeginWithThePaperAndLeaveOutWhatItIs) {
    PpdBuilder ppd;
    describe_paper(ppd);
    const Keywords list{"NVStaple", "MediaType", "Duplex", "PageSize", "InputSlot", "nvMediaColor", "nvFold"};
    EXPECT_THAT(current_selection_keys(ppd.file(), paper_keys(), list),
                ElementsAre("PageSize", "NVMediaColor", "MediaType", "NVStaple", "NVFold"));
}

TEST(CurrentSelectionKeys, OfAnotherMakersPpdKeepTheirCase) {
    PpdBuilder ppd;
    ppd.attribute("Manufacturer", "", "Other");
    EXPECT_THAT(current_selection_keys(ppd.file(), paper_keys(), Keywords{"nvMediaColor", "nvFold"}),
                ElementsAre("PageSize", "NVMediaColor", "MediaType", "nvMediaColor", "nvFold"));
}

TEST(CurrentSelectionKeys, StandWithoutAPpd) {
    EXPECT_THAT(current_selection_keys(nullptr, paper_keys(), Keywords{"NVFold", "Duplex"}),
                ElementsAre("PageSize", "NVMediaColor", "MediaType", "NVFold"));
}

TEST(CurrentSelections, WithoutAPpdAreThePaperAlone) {
    EXPECT_THAT(current_selections(nullptr, paper_keys(), Keywords{"NVFold"}, kPaper),
                ElementsAre("A4", "White", "Thick"));
}

class Selections : public ::testing::Test {
  protected:
    Selections() {
        describe_paper(ppd)
            .option("NVFold", "None")
            .choices({"None", "Half"})
            .option("NVStaple", "None")
            .choices({"None", "Left"})
            .option("PageRegion", "Letter")
            .choices({"A4", "Letter"})
            .option("ManualFeed", "True")
            .choices({"True", "False"})
            .option("Collate", "False")
            .choices({"True", "False"});
    }
    std::vector<std::string> others(const Keywords& list) {
        auto all = current_selections(ppd.file(), paper_keys(), list, kPaper);
        EXPECT_EQ(all.size(), current_selection_keys(ppd.file(), paper_keys(), list).size());
        return {all.begin() + 3, all.end()};
    }
    PpdBuilder ppd;
};

TEST_F(Selections, AreTheMarkedChoices) {
    ppd.mark("NVFold", "Half").mark("NVStaple", "None");
    EXPECT_THAT(others({"NVFold", "NVStaple"}), ElementsAre("Half", "None"));
}

TEST_F(Selections, AnUnmarkedOptionHasTheValueOfTheOneBeforeIt) {
    ppd.mark("NVStaple", "Left");
    EXPECT_THAT(others({"NVFold", "NVStaple", "NVFold", "Missing"}),
                ElementsAre("NULL", "Left", "Left", "Left"));
}

TEST_F(Selections, TheValueRunsOnOverOptionsThatAreLeftOut) {
    ppd.mark("NVStaple", "Left").mark("Duplex", "DuplexTumble").mark("MediaType", "Thick");
    EXPECT_THAT(others({"NVStaple", "Duplex", "MediaType", "NVFold"}), ElementsAre("Left", "Left"));
}

TEST_F(Selections, SomeOptionsHaveAValueUnmarked) {
    EXPECT_THAT(others({"PageRegion", "ManualFeed", "Collate"}), ElementsAre("Letter", "NULL", "True"));
    EXPECT_THAT(others({"Collate", "NVFold"}), ElementsAre("True", "True")) << "they run on too";
    ppd.mark("ManualFeed", "False").mark("Collate", "False").mark("PageRegion", "A4");
    EXPECT_THAT(others({"PageRegion", "ManualFeed", "Collate"}), ElementsAre("A4", "False", "False"));
}

TEST_F(Selections, AMissingPageRegionLeavesTheValueAsItIs) {
    PpdBuilder without;
    without.option("NVFold").choices({"None", "Half"});
    without.mark("NVFold", "Half");
    EXPECT_THAT(current_selections(without.file(), paper_keys(), Keywords{"NVFold", "PageRegion"}, kPaper),
                ElementsAre("A4", "White", "Thick", "Half", "Half"));
}

TEST_F(Selections, KeywordsAreAskedWithTheVendorPrefixPutRight) {
    ppd.mark("NVFold", "Half");
    EXPECT_THAT(others({"nvFold"}), ElementsAre("Half"));
}

TEST_F(Selections, NoChangeAndMissingChoicesOfThePaperPassThrough) {
    EXPECT_THAT(current_selections(ppd.file(), paper_keys(), {}, {"NULL", "", "NULL"}),
                ElementsAre("NULL", "", "NULL"));
}

} // namespace
} // namespace specialpages::test
