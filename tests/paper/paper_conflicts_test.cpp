#include "paper/current_selections.h"
#include "paper/paper_conflicts.h"
#include "paper/paper_ppd.h"

#include <gtest/gtest.h>

#include <memory>

namespace specialpages::test {
namespace {

/// A printer in which everything forbids something, and a situation that starts without any conflict.
class ItemConflict : public ::testing::Test {
  protected:
    ItemConflict() {
        describe_paper(ppd)
            .option("NVFold", "None")
            .choices({"None", "Half", "NULL"})
            .option("NVRegionalPaperSetting", "All", "Region")
            .choices({"All", "Metric"})
            .option("NVSwitchPaperSize", "Off")
            .choices({"Off", "A4Letter"})
            .constraint("PageSize", "A3", "MediaType", "Thick")
            .constraint("MediaType", "Thick", "PageSize", "A3")
            .constraint("NVMediaColor", "Blue", "PageSize", "A3")
            .constraint("NVRegionalPaperSetting", "Metric", "PageSize", "Letter")
            .constraint("NVSwitchPaperSize", "A4Letter", "PageSize", "Letter")
            .constraint("NVFold", "Half", "PageSize", "Letter")
            .constraint("NVFold", "NULL", "NVMediaColor", "Blue")
            .constraint("Duplex", "DuplexTumble", "MediaType", "Transparency")
            .constraint("Duplex", "DuplexNoTumble", "MediaType", "TabbedPaper1")
            .constraint("PageSize", "A3", "PageSize", "A3");
        compiled = std::make_unique<CompiledPpd>(ppd);
        optionKeys = current_selection_keys(ppd.file(), paper_keys(), nxPPDKeywordList());
        situation.ppd = ppd.file();
        situation.index = compiled->index.get();
        situation.keys = paper_keys();
        situation.menuChoices = {{{"A3", "A4", "Letter", "Custom"},
                                  {"White", "Blue"},
                                  {"Stationary", "Thick", "TabbedPaper1", "Transparency", "TabbedPaper2"}}};
        choose("A4", "White", "Stationary");
    }

    void choose(const std::string& size, const std::string& color, const std::string& type) {
        selections = current_selections(ppd.file(), paper_keys(), nxPPDKeywordList(), {size, color, type});
    }
    void choose_nothing() { choose("NULL", "NULL", "NULL"); }
    std::string reason(std::string_view key, bool isNoChangeChoice = false) {
        situation.optionKeys = optionKeys;
        situation.selections = selections;
        situation.records = records;
        return named(PaperConflicts(situation, isNoChangeChoice).reason(key));
    }

    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
    std::vector<std::string> optionKeys;
    std::vector<std::string> selections;
    std::vector<SelectedPaper> records;
    PaperSituation situation;
};

TEST_F(ItemConflict, SizeAndTypeForbidEachOther) {
    EXPECT_EQ(reason("MediaType:Thick"), "");
    choose("A3", "White", "Stationary");
    EXPECT_EQ(reason("MediaType:Thick"), "PageSize:A3");
    choose("A4", "White", "Thick");
    EXPECT_EQ(reason("PageSize:A3"), "MediaType:Thick");
    EXPECT_EQ(reason("PageSize:A4"), "");
}

TEST_F(ItemConflict, TheCurrentColorForbidsNothing) {
    choose("A4", "Blue", "Stationary");
    EXPECT_EQ(reason("PageSize:A3"), "");
}

TEST_F(ItemConflict, ARecordsColorForbidsWhereNoChangeIsChosen) {
    choose("A4", "NULL", "Stationary");
    records = {{0, 0, 0, 0}, {0, 1, 0, 0}};
    EXPECT_EQ(reason("PageSize:A3"), "NVMediaColor:Blue");
    records = {{0, 0, 0, 0}};
    EXPECT_EQ(reason("PageSize:A3"), "");
}

TEST_F(ItemConflict, OfTheMarkedOptionsOnlyRegionAndSwitchForbid) {
    ppd.mark("NVFold", "Half");
    choose("A4", "White", "Stationary");
    EXPECT_EQ(reason("PageSize:Letter"), "");
    ppd.mark("NVSwitchPaperSize", "A4Letter");
    choose("A4", "White", "Stationary");
    EXPECT_EQ(reason("PageSize:Letter"), "NVSwitchPaperSize:A4Letter");
    ppd.mark("NVRegionalPaperSetting", "Metric");
    choose("A4", "White", "Stationary");
    EXPECT_EQ(reason("PageSize:Letter"), "NVRegionalPaperSetting:Metric") << "it comes first in the PPD";
}

TEST_F(ItemConflict, TheMarkedPaperOfTheJobDoesNotCount) {
    ppd.mark("MediaType", "Thick").mark("Duplex", "DuplexTumble");
    choose("A4", "White", "Stationary");
    EXPECT_EQ(reason("PageSize:A3"), "");
    EXPECT_EQ(reason("MediaType:Transparency"), "");
}

TEST_F(ItemConflict, NoChangeAsksTheSelectedRecords) {
    choose_nothing();
    EXPECT_EQ(reason("PageSize:A3"), "");
    records = {{1, 0, 0, 1}, {1, 0, 1, 1}};
    EXPECT_EQ(reason("PageSize:A3"), "MediaType:Thick");
    EXPECT_EQ(reason("PageSize:A3", true), "") << "an item that means no change asks no record";
}

TEST_F(ItemConflict, ARecordThatNamesNoItemForbidsNothing) {
    choose_nothing();
    for (const std::int32_t index : {-1, 5, 4711, std::int32_t{-2147483647}}) {
        records = {{index, index, index, index}};
        EXPECT_EQ(reason("PageSize:A3"), "") << index;
    }
    records = {{-1, -1, -1, -1}, {-1, -1, 1, -1}};
    EXPECT_EQ(reason("PageSize:A3"), "MediaType:Thick") << "the next record is asked all the same";
}

TEST_F(ItemConflict, AnUnmarkedOptionIsTestedAsNullOnceThereAreRecords) {
    choose("A4", "White", "Stationary");
    EXPECT_EQ(selections[3], "NULL") << "NVFold is unmarked";
    EXPECT_EQ(reason("NVMediaColor:Blue"), "");
    records = {{1, 0, 0, 0}};
    EXPECT_EQ(reason("NVMediaColor:Blue"), "NVFold:NULL");
    EXPECT_EQ(reason("NVMediaColor:Blue", true), "");
}

TEST_F(ItemConflict, AMissingChoiceForbidsNothing) {
    choose("", "", "");
    records = {{0, 1, 1, 2}};
    EXPECT_EQ(reason("PageSize:A3"), "") << "it is not NULL, so that no record is asked either";
}

TEST_F(ItemConflict, AChoiceThatForbidsItselfIsOneOfItsReasons) {
    choose("A3", "White", "Thick");
    EXPECT_EQ(reason("PageSize:A3"), "PageSize:A3") << "the size stands before the type";
    choose("A4", "White", "Thick");
    EXPECT_EQ(reason("PageSize:A3"), "MediaType:Thick");
}

TEST_F(ItemConflict, TheSidednessForbidsByEachOfItsChoices) {
    situation.sidedness = {printingOptionTwoSidedChoice, printingOptionGetDuplexChoiceArray};
    EXPECT_EQ(reason("MediaType:Transparency"), "Duplex:DuplexTumble");
    EXPECT_EQ(reason("MediaType:TabbedPaper1"), "Duplex:DuplexNoTumble");
    EXPECT_EQ(reason("MediaType:TabbedPaper1", true), "Duplex:DuplexNoTumble")
        << "only records are left out for a no change item";
    situation.sidedness->current = printingOptionNoTwoSidedChoice;
    EXPECT_EQ(reason("MediaType:Transparency"), "");
}

TEST_F(ItemConflict, WithoutATableOrAnyChoiceTheSidednessForbidsNothing) {
    situation.sidedness = {std::nullopt, {}};
    EXPECT_EQ(reason("MediaType:Transparency"), "");
    situation.sidedness = {DuplexChoices{}, twoSidePrintGetDuplexChoiceArray};
    records = {{0, 0, 0, 2}};
    EXPECT_EQ(reason("MediaType:Transparency"), "");
}

TEST_F(ItemConflict, UnchangedSidednessIsThatOfTheRecords) {
    situation.sidedness = {twoSidePrintNoChangeDuplexChoice, twoSidePrintGetDuplexChoiceArray};
    EXPECT_EQ(reason("MediaType:Transparency"), "");
    records = {{0, 0, 0, 1}, {0, 0, 0, 2}};
    EXPECT_EQ(reason("MediaType:Transparency"), "Duplex:DuplexTumble");
    EXPECT_EQ(reason("MediaType:Transparency", true), "");
    EXPECT_EQ(reason("MediaType:TabbedPaper1"), "");
    records = {{0, 0, 0, 3}, {0, 0, 0, -1}, {0, 0, 0, 4}};
    EXPECT_EQ(reason("MediaType:TabbedPaper1"), "Duplex:DuplexNoTumble");
}

TEST_F(ItemConflict, ThePaperIsAskedBeforeTheSidedness) {
    PpdBuilder both;
    describe_paper(both)
        .constraint("Duplex", "DuplexTumble", "PageSize", "A3")
        .constraint("MediaType", "Thick", "PageSize", "A3");
    const CompiledPpd index(both);
    situation.ppd = both.file();
    situation.index = index.index.get();
    situation.sidedness = {printingOptionTwoSidedChoice, {}};
    optionKeys = {"PageSize", "NVMediaColor", "MediaType"};
    selections = {"A4", "White", "Thick"};
    EXPECT_EQ(reason("PageSize:A3"), "MediaType:Thick");
    selections = {"A4", "White", "Stationary"};
    EXPECT_EQ(reason("PageSize:A3"), "Duplex:DuplexTumble");
}

TEST_F(ItemConflict, AllNoChangeWithoutRecordsIsFree) {
    choose_nothing();
    situation.sidedness = {twoSidePrintNoChangeDuplexChoice, twoSidePrintGetDuplexChoiceArray};
    for (const char* key :
         {"PageSize:A3", "MediaType:Thick", "MediaType:Transparency", "NVMediaColor:Blue"}) {
        EXPECT_EQ(reason(key), "") << key;
    }
}

TEST_F(ItemConflict, ListsOfUnequalLengthAreWalkedToTheShorter) {
    choose("A4", "White", "Thick");
    selections.resize(2);
    EXPECT_EQ(reason("PageSize:A3"), "");
    choose("A4", "White", "Thick");
    optionKeys.resize(2);
    EXPECT_EQ(reason("PageSize:A3"), "");
    optionKeys.clear();
    selections.clear();
    EXPECT_EQ(reason("PageSize:A3"), "");
}

TEST_F(ItemConflict, WithoutPpdOrIndexNothingConflicts) {
    choose("A4", "White", "Thick");
    ASSERT_EQ(reason("PageSize:A3"), "MediaType:Thick");
    situation.ppd = nullptr;
    EXPECT_EQ(reason("PageSize:A3"), "");
    situation.ppd = ppd.file();
    situation.index = nullptr;
    EXPECT_EQ(reason("PageSize:A3"), "");
}

TEST_F(ItemConflict, NamesAreComparedExactly) {
    choose("A4", "White", "thick");
    EXPECT_EQ(reason("PageSize:A3"), "");
    choose("A4", "White", "Thick");
    EXPECT_EQ(reason("PageSize:a3"), "");
    EXPECT_EQ(reason("pagesize:A3"), "");
    EXPECT_EQ(reason(""), "");
}

TEST_F(ItemConflict, APlacePastItsOptionOrGroupDoesNotStandForTheNextOne) {
    PpdBuilder groups;
    groups.group("First").option("PageSize").choices({"A4", "A3"});
    groups.group("Second").option("MediaType").choices({"Stationary", "Thick"});
    groups.option("Duplex").choices({"None", "DuplexTumble"});
    ConstraintIndex index;
    index.insert("PageSize:A3", {0, 1, 1}); // would be MediaType, were there one list of options
    index.insert("PageSize:A3", {0, 0, 3}); // would be Thick, were there one list of choices
    index.insert("PageSize:A3", {1, 1, 1});
    situation.ppd = groups.file();
    situation.index = &index;
    situation.sidedness = {printingOptionTwoSidedChoice, {}};
    optionKeys = {"PageSize", "NVMediaColor", "MediaType"};
    selections = {"A4", "White", "Thick"};
    EXPECT_EQ(reason("PageSize:A3"), "Duplex:DuplexTumble");
}

TEST_F(ItemConflict, EntriesThatPointOutsideThePpdAreIgnored) {
    choose("A4", "White", "Thick");
    compiled->index->insert("PageSize:B5", {9, 0, 0});
    compiled->index->insert("PageSize:B5", {0, 99, 0});
    compiled->index->insert("PageSize:B5", {0, 2, 99});
    compiled->index->insert("PageSize:B5", {65535, 65535, 65535});
    EXPECT_EQ(reason("PageSize:B5"), "");
    compiled->index->insert("PageSize:B5", {0, 2, 1});
    EXPECT_EQ(reason("PageSize:B5"), "MediaType:Thick");
}

} // namespace
} // namespace specialpages::test
