// Which items of a paper menu are allowed, seen at the menu.
#include "paper/SPTwoSidePrintListCtrlEMF.h"
#include "paper/paper_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MenuConflicts : public PaperMenuTest {
  protected:
    MenuConflicts() {
        ppd.constraint("PageSize", "A3", "MediaType", "Thick")
            .constraint("MediaType", "Thick", "PageSize", "A3")
            .constraint("MediaType", "Thick", "PageSize", "Custom")
            .constraint("NVMediaColor", "Blue", "PageSize", "Letter")
            .constraint("Duplex", "DuplexTumble", "MediaType", "Transparency");
    }
    void recheck() { menu.UpdateSelfConflictsFromPPD(ppd.file()); }
    SPSelectPaperListCtrlEMF menu;
};

TEST_F(MenuConflicts, ForbiddenItemsAreDisabledAndSayWhy) {
    open(menu);
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_THAT(disabled(kSize), ElementsAre("A3"));
    EXPECT_EQ(item(kSize, 1).toolTip(), "Not with Paper Type: Thick 1");
    EXPECT_FALSE(pick({kSize, 1}));
    ASSERT_TRUE(pick({kType, 4}));
    EXPECT_THAT(disabled(kSize), IsEmpty());
    EXPECT_EQ(item(kSize, 1).toolTip(), "");
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_THAT(disabled(kType), ElementsAre("Thick"));
    EXPECT_EQ(item(kType, 2).toolTip(), "Not with Paper Size: A3");
}

TEST_F(MenuConflicts, TheCurrentColorForbidsNoSize) {
    open(menu);
    ASSERT_TRUE(pick({kColor, 2}));
    EXPECT_THAT(disabled(kSize), IsEmpty());
}

TEST_F(MenuConflicts, TabStockAloneDisablesTheCustomSize) {
    open(menu);
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_TRUE(item(kSize, 4).isEnabled()) << "Thick forbids it, but constraints have no say";
    EXPECT_TRUE(menu.isMenuItemConflicted("PageSize:Custom", ppd.file(), false));
    ASSERT_TRUE(pick({kType, 3}));
    EXPECT_FALSE(item(kSize, 4).isEnabled());
    EXPECT_EQ(item(kSize, 4).toolTip(), "Not with Paper Type: Tab Stock 1");
    ASSERT_TRUE(pick({kType, 4}));
    EXPECT_TRUE(item(kSize, 4).isEnabled());
    EXPECT_EQ(item(kSize, 4).toolTip(), "");
}

TEST_F(MenuConflicts, TabStockCountsWithoutIndexOrPpd) {
    open(menu);
    ASSERT_TRUE(pick({kType, 2}));
    ASSERT_THAT(disabled(kSize), ElementsAre("A3"));
    pane.SetxppdPtr(nullptr);
    recheck();
    EXPECT_THAT(disabled(kSize), IsEmpty());
    menu.setSelectedMenuItemIndexByType(4, 2);
    menu.UpdateSelfConflictsFromPPD(nullptr);
    EXPECT_THAT(disabled(kSize), ElementsAre("Custom"));
    EXPECT_EQ(item(kSize, 4).toolTip(), "") << "the PPD's words are not at hand";
}

TEST_F(MenuConflicts, NoChangeAsksTheSelectedRecords) {
    open(menu);
    ASSERT_TRUE(pick({1}));
    EXPECT_THAT(disabled(kSize), IsEmpty());
    select_records({with_paper(exception("1"), 1, 0, 0), with_paper(exception("2"), 1, 1, 1),
                    with_paper(exception("3"), 1, 0, 4)},
                   2);
    recheck();
    EXPECT_THAT(disabled(kSize), ElementsAre("A3", "Letter"));
    EXPECT_EQ(item(kSize, 1).toolTip(), "Not with Paper Type: Thick 1");
    EXPECT_EQ(item(kSize, 3).toolTip(), "Not with Paper Color: Light Blue");
    EXPECT_TRUE(menu.isMenuItemConflicted("PageSize:A3", ppd.file(), false));
    EXPECT_FALSE(menu.isMenuItemConflicted("PageSize:A3", ppd.file(), true));
    select_records({with_paper(exception("1"), -1, 99, 99)}, 1);
    recheck();
    EXPECT_THAT(disabled(kSize), IsEmpty());
}

TEST_F(MenuConflicts, TheNoChangeItemOfAMenuIsNeverTouched) {
    open(menu);
    item(kSize, 0).setEnabled(false);
    recheck();
    EXPECT_FALSE(item(kSize, 0).isEnabled());
    item(kSize, 0).setEnabled(true);
    recheck();
    EXPECT_TRUE(item(kSize, 0).isEnabled());
}

TEST_F(MenuConflicts, ANoChangeItemFurtherDownStandsForTheRecordsPositions) {
    open(menu);
    platform::MenuItem& later = item(kType).submenu()->addItemWithTitle("No Change");
    later.setRepresentedObject(kNoChangeKey);
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_TRUE(later.isEnabled()) << "no record is selected";
    select_records({with_paper(exception("1"), 0, 0, 1), with_paper(exception("2"), 0, 0, 2)}, 2);
    menu.SetControlValueToUI();
    recheck();
    EXPECT_FALSE(later.isEnabled()) << "position 2 is Thick, which A3 forbids";
    EXPECT_EQ(later.toolTip(), "Not with Paper Size: A3");
    select_records({with_paper(exception("1"), 0, 0, 1), with_paper(exception("2"), 0, 0, 99)}, 2);
    menu.SetControlValueToUI();
    recheck();
    EXPECT_TRUE(later.isEnabled()) << "position 1 is Stationary, and there is no position 99";
}

TEST_F(MenuConflicts, CoilPunchDisablesTheInterposerForGood) {
    open(menu);
    recheck();
    EXPECT_TRUE(item(5).isEnabled());
    ppd.mark("NVNumPunchHoles", "CoilPunch");
    recheck();
    EXPECT_FALSE(item(5).isEnabled());
    EXPECT_EQ(item(5).toolTip(), "Not with Punch: Coil Punch");
    ppd.mark("NVNumPunchHoles", "None");
    recheck();
    EXPECT_FALSE(item(5).isEnabled()) << "a re-check never enables it";
    menu.enabledSubMenuByIndex(4, true);
    recheck();
    EXPECT_TRUE(item(5).isEnabled());
    EXPECT_EQ(item(5).toolTip(), "");
}

TEST_F(MenuConflicts, ThePanelsPpdDecidesOverTheInterposer) {
    ppd.mark("NVNumPunchHoles", "CoilPunch");
    open(menu);
    pane.SetCurrentPPD(nullptr);
    recheck();
    EXPECT_TRUE(item(5).isEnabled());
}

TEST_F(MenuConflicts, AMenuWithoutChoicesIsPassedOver) {
    PpdBuilder poor;
    poor.option("MediaType").choices({"Stationary", "Thick"});
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), poor.file()));
    item(kSize, 0).setEnabled(false);
    menu.UpdateSelfConflictsFromPPD(poor.file());
    EXPECT_FALSE(item(kSize, 0).isEnabled());
    EXPECT_TRUE(item(kType, 2).isEnabled());
}

TEST_F(MenuConflicts, WithoutBundleTheReasonIsThePpdsWordsAlone) {
    open(menu);
    pane.setBundle(nullptr);
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_EQ(item(kSize, 1).toolTip(), "Paper Type: Thick 1");
}

/// The menu of exceptions with its sidedness list.
class MenuBesideSidedness : public MenuConflicts {
  protected:
    MenuBesideSidedness() {
        sides.setTag(kSidednessTag);
        for (const char* title : {"No Change", "1-sided", "2-sided", "Short edge"}) {
            sides.addItemWithTitle(title);
        }
    }
    void open_both() {
        sidedness.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex",
                                twoSidePrintGetDuplexChoiceArray, kMenuTag);
        pane.RunTimeAddNewControl(&sidedness);
        open(menu, nullptr, kSidednessTag);
    }
    platform::PopUpButton sides;
    SPTwoSidePrintListCtrlEMF sidedness;
};

TEST_F(MenuBesideSidedness, TheChosenSidednessForbids) {
    open_both();
    sides.selectItemAtIndex(1);
    recheck();
    EXPECT_THAT(disabled(kType), IsEmpty());
    sides.selectItemAtIndex(2);
    recheck();
    EXPECT_THAT(disabled(kType), ElementsAre("Transparency"));
    EXPECT_EQ(item(kType, 4).toolTip(), "Not with 2-Sided Printing: Short Edge");
    sides.selectItemAtIndex(3);
    recheck();
    EXPECT_THAT(disabled(kType), IsEmpty());
    sides.selectItemAtIndex(-1);
    recheck();
    EXPECT_THAT(disabled(kType), IsEmpty());
}

TEST_F(MenuBesideSidedness, UnchangedSidednessIsThatOfTheRecords) {
    open_both();
    sides.selectItemAtIndex(0);
    select_records({exception("1").with(RecordKey::twoSidePrint, "1"),
                    exception("2").with(RecordKey::twoSidePrint, "2")},
                   1);
    recheck();
    EXPECT_THAT(disabled(kType), IsEmpty());
    select_records({exception("1").with(RecordKey::twoSidePrint, "1"),
                    exception("2").with(RecordKey::twoSidePrint, "2")},
                   2);
    recheck();
    EXPECT_THAT(disabled(kType), ElementsAre("Transparency"));
    EXPECT_TRUE(menu.isMenuItemConflicted("MediaType:Transparency", ppd.file(), false));
    EXPECT_FALSE(menu.isMenuItemConflicted("MediaType:Transparency", ppd.file(), true));
}

TEST_F(MenuBesideSidedness, AnUnknownTagMeansNoSidedness) {
    open_both();
    sides.selectItemAtIndex(2);
    sides.setTag(1);
    recheck();
    EXPECT_THAT(disabled(kType), IsEmpty());
}

TEST_F(MenuBesideSidedness, AdvancedGetsTheSidednessList) {
    open_both();
    ASSERT_TRUE(pick({6}));
    EXPECT_EQ(advancedWindow.sidedness, &sidedness);
}

TEST_F(MenuBesideSidedness, AChoiceInEitherRechecksBoth) {
    ppd.constraint("MediaType", "Transparency", "Duplex", "DuplexTumble");
    open_both();
    sidedness.setTargetandAction();
    ASSERT_TRUE(sides.pick(std::vector<std::int64_t>{2}));
    EXPECT_THAT(disabled(kType), ElementsAre("Transparency"));
    sides.selectItemAtIndex(1);
    ASSERT_TRUE(pick({kType, 2}));
    ASSERT_TRUE(pick({kType, 4}));
    EXPECT_FALSE(sides.menu().itemAtIndex(2)->isEnabled());
    EXPECT_EQ(sides.menu().itemAtIndex(2)->toolTip(), "Not with Paper Type: Transparency");
    EXPECT_TRUE(sides.menu().itemAtIndex(3)->isEnabled());
}

} // namespace
} // namespace specialpages::test
