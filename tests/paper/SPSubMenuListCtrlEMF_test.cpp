#include "paper/SPAddExceptSubMenuListCtrlEMF.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/paper_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr PaperChoice kDefaults{1, 0, 0, false};

/// A menu of the inserts' kind, opened on the small printer.
class PaperMenu : public PaperMenuTest {
  protected:
    SPSelectPaperListCtrlEMF menu;
};

TEST_F(PaperMenu, HasSevenItemsWithThreeSubMenus) {
    open(menu);
    EXPECT_THAT(top_titles(),
                ElementsAre("Select Paper", "No Change", "Size", "Color", "Type", "Tray 8", "Advanced…"));
    EXPECT_THAT(titles(kSize), ElementsAre("No Change", "A3", "A4", "US Letter", "Custom…"));
    EXPECT_THAT(titles(kColor), ElementsAre("No Change", "White", "Light Blue"));
    EXPECT_THAT(titles(kType),
                ElementsAre("No Change", "-Plain", "Thick 1", "Tab Stock 1", "Transparency", "Tab Stock 2"));
    EXPECT_EQ(item(kColor, 2).tag(), 3002);
    EXPECT_EQ(item(kType, 0).tag(), 4000);
    EXPECT_EQ(item(kType, 0).representedObject(), "No Change Option String");
    EXPECT_EQ(item(kSize, 4).representedObject(), "Custom");
    for (const std::int64_t top : {kSize, kColor, kType}) {
        EXPECT_FALSE(item(top).submenu()->autoenablesItems());
    }
}

TEST_F(PaperMenu, BeginsWithTheDefaults) {
    open(menu);
    EXPECT_EQ(paper_of(menu), kDefaults);
    EXPECT_EQ(menu.defaultPaper(), kDefaults) << "the first type, though its item is hidden";
    EXPECT_EQ(menu.getCustomPageWidth(), "210.0");
    EXPECT_EQ(menu.getCustomPageLength(), "297.0");
    EXPECT_EQ(menu.getCustomPageSizeLongMeasure(), 1);
    EXPECT_EQ(menu.transparencyIndex(), 3);
    EXPECT_EQ(menu.clearIndex(), -1);
    EXPECT_EQ(menu.GetWndType(), kInsertsWndType);
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 0);
    EXPECT_THAT(menu.getPpdKeyArray(),
                ElementsAre("PageSize", "NVMediaColor", "MediaType", "NVUncollateSeparator",
                            "NVSeparatorsCoversTray", "NVNumPunchHoles"));
    EXPECT_THAT(menu.getCurrentSelections(),
                ElementsAre("A4", "White", "Stationary", "NULL", "NULL", "NULL"));
}

TEST_F(PaperMenu, BeforeItIsInitialisedHoldsNoChange) {
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kCoversWndType, std::nullopt);
    EXPECT_EQ(paper_of(menu), PaperChoice{});
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), -2);
    EXPECT_THAT(menu.getPpdKeyArray(), IsEmpty());
    EXPECT_FALSE(menu.doTabStockSetCheckByIndex(0));
}

TEST_F(PaperMenu, ANullKeyIsTheEmptyOne) {
    menu.CreateControl(&popup, nullptr, nullptr, nullptr, &kPaperMenuIniData, nullptr, nullptr, {},
                       kCoversWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), nullptr));
    EXPECT_EQ(item(kSize).submenu()->numberOfItems(), 1U);
}

TEST_F(PaperMenu, KeepsTheLocalisedInterposerTextWhenThePpdHasNoneOfItsOwn) {
    PpdBuilder other;
    describe_paper(other).option("NVUncollateSeparator").choice("Tray1", "Tray 1");
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), other.file()));
    EXPECT_EQ(item(5).title(), "Interposer");
    EXPECT_TRUE(item(5).isHidden()) << "no tray option and no finisher";
}

TEST_F(PaperMenu, HidesTheInterposerAtEachRebuild) {
    ppd.option("NVFinisher").choices({"None"});
    open(menu);
    EXPECT_FALSE(item(5).isHidden());
    PpdBuilder without;
    describe_paper(without).option("NVSeparatorsCoversTray", "False").choices({"True", "False"});
    ASSERT_TRUE(menu.ReInitializeCtrl(bundle.get(), without.file()));
    EXPECT_TRUE(item(5).isHidden());
    ASSERT_TRUE(menu.ReInitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_FALSE(item(5).isHidden());
}

TEST_F(PaperMenu, ARebuildForgetsTabStockAndCustomSizes) {
    open(menu);
    EXPECT_TRUE(menu.doTabStockSetCheckByIndex(2));
    EXPECT_TRUE(menu.doTabStockSetCheckByIndex(4));
    EXPECT_FALSE(menu.doTabStockSetCheckByIndex(3));
    EXPECT_FALSE(menu.doTabStockSetCheckByIndex(-1));
    EXPECT_TRUE(menu.doCustomSizeSetCheckByIndex(3));
    EXPECT_FALSE(menu.doCustomSizeSetCheckByIndex(2));
    PpdBuilder plain;
    plain.option("PageSize", "A4").choices({"A4"}).option("MediaType").choices({"Thick"});
    ASSERT_TRUE(menu.ReInitializeCtrl(bundle.get(), plain.file()));
    EXPECT_FALSE(menu.doTabStockSetCheckByIndex(2));
    EXPECT_FALSE(menu.doCustomSizeSetCheckByIndex(3));
    EXPECT_EQ(menu.transparencyIndex(), -1);
    EXPECT_EQ(item(kSize, 1).title(), "Custom…") << "the last size has the custom title all the same";
}

TEST_F(PaperMenu, ARebuildShowsNoChangeAgain) {
    open(menu);
    menu.SetDefaultValueToUI();
    EXPECT_TRUE(item(1).isHidden());
    ASSERT_TRUE(menu.ReInitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_FALSE(item(1).isHidden());
    EXPECT_TRUE(item(kType, 1).isHidden());
}

TEST_F(PaperMenu, NeedsIniDataViewAndFiveItems) {
    set_ppd();
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", nullptr, nullptr, nullptr, {},
                       kInsertsWndType, std::nullopt);
    EXPECT_FALSE(menu.InitializeCtrl(bundle.get(), ppd.file()));
    menu.CreateControl(nullptr, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    EXPECT_FALSE(menu.InitializeCtrl(bundle.get(), ppd.file()));
    static constexpr std::array<const char*, 4> kFour{"Select Paper String", "No Change Option String",
                                                      "Size String", "Color String"};
    static constexpr PopupIniData kFourIniData{.menuKeys = kFour};
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kFourIniData, nullptr, nullptr, {},
                       kInsertsWndType, std::nullopt);
    EXPECT_FALSE(menu.InitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_EQ(menu.getSubMenuRef(2), nullptr);
    EXPECT_EQ(paper_of(menu), kDefaults);
    static constexpr std::array<const char*, 5> kFive{"Select Paper String", "No Change Option String",
                                                      "Size String", "Color String", "Type String"};
    static constexpr PopupIniData kFiveIniData{.menuKeys = kFive};
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kFiveIniData, nullptr, nullptr, {},
                       kInsertsWndType, std::nullopt);
    EXPECT_TRUE(menu.InitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_NE(menu.getSubMenuRef(4), nullptr);
}

TEST_F(PaperMenu, IsWordedByTheBundleAtHandBeforeThePanelKnowsItsOwn) {
    pane.setBundle(nullptr);
    open(menu);
    EXPECT_THAT(titles(kSize), ElementsAre("No Change", "A3", "A4", "US Letter", "Custom…"));
}

TEST_F(PaperMenu, WithoutBundleOrPpdStandsEmpty) {
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(nullptr, nullptr));
    EXPECT_THAT(titles(kSize), ElementsAre("no translation"));
    EXPECT_EQ(item(5).title(), "NVUncollateSeparator-INT");
    menu.UpdateSelfConflictsFromPPD(nullptr);
    menu.doControlAction(0, MenuActionSender::popUp);
    EXPECT_TRUE(item(kSize, 0).isEnabled());
}

// Looking items up.

TEST_F(PaperMenu, ItemsAreLookedUpBehindNoChange) {
    open(menu);
    EXPECT_EQ(menu.getSelectedMenuItemTitle(kSize, 2), "US Letter");
    EXPECT_EQ(menu.getSelectedMenuItemChoice(kSize, 2), "Letter");
    EXPECT_EQ(menu.getSelectedMenuItemRef(kSize, 2), &item(kSize, 3));
    for (const std::int64_t index :
         {std::int64_t{-1}, std::int64_t{-7}, std::int64_t{4}, std::int64_t{1} << 40}) {
        EXPECT_EQ(menu.getSelectedMenuItemTitle(kSize, index), std::nullopt) << index;
        EXPECT_EQ(menu.getSelectedMenuItemChoice(kSize, index), std::nullopt) << index;
        EXPECT_EQ(menu.getSelectedMenuItemRef(kSize, index), nullptr) << index;
    }
    EXPECT_EQ(menu.getSelectedMenuItemTitle(1, 0), std::nullopt) << "no sub-menu";
    EXPECT_EQ(menu.getSelectedMenuItemTitle(9, 0), std::nullopt) << "no such position";
    EXPECT_EQ(menu.getSubMenuRef(-1), nullptr);
}

TEST_F(PaperMenu, ColorsBehindAnyAreLookedUpOneOff) {
    PpdBuilder colors;
    colors.option("NVMediaColor", "White").choices({"White", "Any", "Blue", "Red"});
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), colors.file()));
    menu.setTargetandAction();
    ASSERT_TRUE(pick({kColor, 2}));
    EXPECT_EQ(menu.getSelectedMenuItemIndexByType(3), 2) << "the tag has the PPD's index";
    EXPECT_EQ(menu.getSelectedMenuItemChoice(kColor, 2), "Red") << "but Blue was picked";
    EXPECT_EQ(menu.getSelectedMenuItemChoice(kColor, 3), std::nullopt);
}

TEST_F(PaperMenu, IndexesAreReadAndWrittenByType) {
    open(menu);
    menu.setSelectedMenuItemIndexByType(2, 3);
    menu.setSelectedMenuItemIndexByType(3, 1);
    menu.setSelectedMenuItemIndexByType(4, -1);
    menu.setSelectedMenuItemIndexByType(5, 7);
    menu.setSelectedMenuItemIndexByType(0, 7);
    EXPECT_EQ(paper_of(menu), (PaperChoice{3, 1, -1, false}));
    EXPECT_EQ(menu.getSelectedMenuItemIndexByType(2), 3);
    EXPECT_EQ(menu.getSelectedMenuItemIndexByType(3), 1);
    EXPECT_EQ(menu.getSelectedMenuItemIndexByType(4), -1);
    EXPECT_EQ(menu.getSelectedMenuItemIndexByType(1), -1);
    EXPECT_THAT(checked(kSize), ElementsAre(4));
    EXPECT_THAT(checked(kType), ElementsAre(0));
}

TEST_F(PaperMenu, TopLevelItemsAreEnabledByIndex) {
    open(menu);
    menu.enabledSubMenuByIndex(1, false);
    EXPECT_FALSE(item(2).isEnabled());
    EXPECT_FALSE(menu.isEnabledSubMenuByIndex(1));
    EXPECT_TRUE(menu.isEnabledSubMenuByIndex(2));
    menu.enabledSubMenuByIndex(99, false);
    menu.enabledSubMenuByIndex(-9, false);
    EXPECT_TRUE(menu.isEnabledSubMenuByIndex(99)) << "an item that is not there counts as enabled";
    menu.enabledSubMenuByIndex(1, true);
    EXPECT_TRUE(item(2).isEnabled());
}

TEST_F(PaperMenu, CustomSizeTextsAreBoundedAndIgnoreNull) {
    open(menu);
    menu.setCustomPageWidth("100.0");
    menu.setCustomPageLength("148.0");
    menu.setCustomPageWidth(nullptr);
    menu.setCustomPageLength(nullptr);
    menu.setCustomPageSizeLongMeasure(0);
    EXPECT_EQ(menu.getCustomPageWidth(), "100.0");
    EXPECT_EQ(menu.getCustomPageLength(), "148.0");
    EXPECT_EQ(menu.getCustomPageSizeLongMeasure(), 0);
    menu.setCustomPageWidth(std::string(300, '1').c_str());
    EXPECT_EQ(menu.getCustomPageWidth(), std::string(255, '1'));
    menu.setDefaultCustomValue();
    EXPECT_EQ(menu.getCustomPageWidth(), "210.0");
    EXPECT_EQ(menu.getCustomPageLength(), "297.0");
    EXPECT_EQ(menu.getCustomPageSizeLongMeasure(), 1);
}

TEST_F(PaperMenu, TakesTheJobsSetting) {
    ppd.mark("PageSize", "Letter").mark("NVMediaColor", "Blue").mark("MediaType", "Transparency");
    open(menu);
    menu.SetSubMenuToJobSettingByIndex(1);
    EXPECT_EQ(paper_of(menu), (PaperChoice{2, 0, 0, false}));
    menu.SetSubMenuToJobSettingByIndex(2);
    menu.SetSubMenuToJobSettingByIndex(3);
    EXPECT_EQ(paper_of(menu), (PaperChoice{2, 1, 3, false}));
    EXPECT_THAT(checked(kSize), ElementsAre(3));
    menu.SetSubMenuToJobSettingByIndex(0);
    menu.SetSubMenuToJobSettingByIndex(4);
    EXPECT_EQ(paper_of(menu), (PaperChoice{2, 1, 3, false}));
}

TEST_F(PaperMenu, WithoutAMarkTheIndexStaysAndNoChangeIsChecked) {
    open(menu);
    menu.SetSubMenuToJobSettingByIndex(1);
    EXPECT_EQ(paper_of(menu), kDefaults);
    EXPECT_THAT(checked(kSize), ElementsAre(0));
    EXPECT_THAT(checked(kColor), ElementsAre(1)) << "the others stay";
}

// Events.

TEST_F(PaperMenu, ASubMenuItemSetsItsIndexAlone) {
    open(menu);
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 0, 0, false}));
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 1);
    ASSERT_TRUE(pick({kColor, 2}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 1, 0, false}));
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 2);
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 1, 1, false}));
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 3);
    EXPECT_THAT(menu.getCurrentSelections(), ElementsAre("A3", "Blue", "Thick", "NULL", "NULL", "NULL"));
    EXPECT_EQ(popup.indexOfSelectedItem(), 0) << "the pop-up's own selection stays";
    EXPECT_THAT(checked(kType), ElementsAre(2));
}

TEST_F(PaperMenu, NoChangeOfASubMenuTouchesThatPartAndTheInterposerOnly) {
    open(menu);
    ASSERT_TRUE(pick({5}));
    ASSERT_TRUE(menu.getInterPoser());
    menu.doControlAction(2000, MenuActionSender::subMenuItem);
    EXPECT_EQ(paper_of(menu), (PaperChoice{-1, 0, 0, false}));
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 1);
}

TEST_F(PaperMenu, NoChangeAtTheTopClearsAll) {
    open(menu);
    ASSERT_TRUE(pick({5}));
    ASSERT_TRUE(pick({1}));
    EXPECT_EQ(paper_of(menu), PaperChoice{});
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), 0);
    EXPECT_THAT(menu.getCurrentSelections(), ElementsAre("NULL", "NULL", "NULL", "NULL", "NULL", "NULL"));
}

TEST_F(PaperMenu, TheInterposerHoldsTheDefaults) {
    open(menu);
    ASSERT_TRUE(pick({kSize, 1}));
    ASSERT_TRUE(pick({5}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{1, 0, 0, true}));
    ASSERT_TRUE(pick({kColor, 2}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{1, 1, 0, false})) << "a choice clears the interposer";
}

TEST_F(PaperMenu, TheTitleItemChangesNothing) {
    open(menu);
    ASSERT_TRUE(pick({kSize, 1}));
    ASSERT_TRUE(pick({0}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 0, 0, false}));
    EXPECT_EQ(menu.GetCurrentControlArrayNumber(), -1);
}

TEST_F(PaperMenu, TellsItsOwnActionFromASubMenuItemWithTheSameTag) {
    popup.setTag(2001);
    open(menu);
    ASSERT_TRUE(pick({1}));
    EXPECT_EQ(paper_of(menu), PaperChoice{}) << "the pop-up's own event";
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, -1, -1, false})) << "the item with tag 2001";
}

TEST_F(PaperMenu, TheCustomSizeOpensItsWindow) {
    open(menu);
    PaperChoice during;
    customSizeWindow.onOpen = [&] {
        during = paper_of(menu);
    };
    ASSERT_TRUE(pick({kSize, 4}));
    EXPECT_EQ(customSizeWindow.openings, 1);
    EXPECT_EQ(customSizeWindow.given, &menu);
    EXPECT_EQ(during.size, 3) << "the index is set before the window runs";
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_EQ(customSizeWindow.openings, 1);
}

TEST_F(PaperMenu, ATypeOfTabStockOpensTheSmallWindowBesideExceptions) {
    GivenTabStockWindow large;
    GivenTabStockWindow small;
    pane.tabStock = &large;
    pane.tabStockSub = &small;
    open(menu);
    ASSERT_TRUE(pick({kType, 3}));
    EXPECT_EQ(paper_of(menu).type, 2);
    EXPECT_EQ(small.openings, 1);
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_EQ(small.openings, 1) << "any other type opens nothing";
    ASSERT_TRUE(pick({kType, 5}));
    EXPECT_EQ(small.openings, 2);
    ASSERT_TRUE(pick({kType, 5}));
    EXPECT_EQ(small.openings, 3) << "picked again, it can be changed";
    menu.setSelectedMenuItemIndexByType(4, 2);
    menu.doControlAction(4003, MenuActionSender::fallback);
    EXPECT_EQ(paper_of(menu).type, 2);
    EXPECT_EQ(small.openings, 3) << "only a user's pick does";
    EXPECT_EQ(large.openings, 0);
}

TEST_F(PaperMenu, ATypeOfTabStockOpensTheLargeWindowInExceptions) {
    GivenTabStockWindow large;
    GivenTabStockWindow small;
    pane.tabStock = &large;
    pane.tabStockSub = &small;
    open(menu, nullptr, std::nullopt, kExceptionsWndType);
    ASSERT_TRUE(pick({kType, 3}));
    EXPECT_EQ(large.openings, 1);
    EXPECT_EQ(small.openings, 0);
}

TEST_F(PaperMenu, WindowsThatAreNotThereAreNotOpened) {
    open(menu);
    pane.customSize = nullptr;
    pane.advanced = nullptr;
    ASSERT_TRUE(pick({kSize, 4}));
    ASSERT_TRUE(pick({6}));
    pane.haveHub = false;
    ASSERT_TRUE(pick({kSize, 4}));
    ASSERT_TRUE(pick({6}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{3, 0, 0, false}));
    PopupWinInPanelEMFSpecialPages plain;
    pane.haveHub = true;
    pane.advanced = &plain;
    ASSERT_TRUE(pick({6})) << "a window that plays no such part";
}

TEST_F(PaperMenu, AdvancedHandsThePaperOver) {
    open(menu);
    ASSERT_TRUE(pick({5}));
    advancedWindow.onOpen = [&] {
        menu.setSelectedMenuItemIndexByType(2, 2);
    };
    ASSERT_TRUE(pick({6}));
    EXPECT_EQ(advancedWindow.paper, (PaperChoice{1, 0, 0, true}));
    EXPECT_EQ(advancedWindow.given, &menu);
    EXPECT_EQ(advancedWindow.sidedness, nullptr) << "this menu has no sidedness list";
    EXPECT_EQ(advancedWindow.openings, 1);
    EXPECT_EQ(menu.getCurrentSelections().front(), "Letter") << "what the window set is taken up";
}

TEST_F(PaperMenu, TransparencyTakesTheColorClear) {
    PpdBuilder clear;
    clear.option("PageSize", "A4")
        .choices({"A4"})
        .option("NVMediaColor", "White")
        .choices({"White", "Clear"})
        .option("MediaType", "Thick")
        .choices({"Stationary", "Thick", "Transparency"});
    menu.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kInsertsWndType, std::nullopt);
    ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), clear.file()));
    menu.setTargetandAction();
    ASSERT_TRUE(pick({kType, 3}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 1, 2, false}));
    ASSERT_TRUE(pick({kType, 2}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 1, 1, false})) << "nothing takes it back";
    ASSERT_TRUE(pick({kType, 3}));
    ASSERT_TRUE(pick({kColor, 1}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 0, 2, false})) << "a color chosen later stands";
    ASSERT_TRUE(pick({kSize, 1}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{0, 0, 2, false}));
}

TEST_F(PaperMenu, TransparencyWithoutAClearColorLeavesTheColor) {
    open(menu);
    ASSERT_TRUE(pick({kColor, 2}));
    ASSERT_TRUE(pick({kType, 4}));
    EXPECT_EQ(paper_of(menu), (PaperChoice{1, 1, 3, false}));
}

TEST_F(PaperMenu, EachEventRechecksThePanelAndUpdatesItsRow) {
    const Rows update{{1}, {2}, {3}, {4}, {5}, {6}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    std::vector<ControlTag> updates;
    std::vector<std::unique_ptr<UpdateRecorder>> recorders;
    for (ControlTag tag = 1; tag <= 6; ++tag) {
        recorders.push_back(std::make_unique<UpdateRecorder>(updates, tag));
        pane.RunTimeAddNewControl(recorders.back().get());
    }
    open(menu, &record);
    pane.rechecks = 0;
    ASSERT_TRUE(pick({kSize, 1}));
    ASSERT_TRUE(pick({kSize, 1}));
    ASSERT_TRUE(pick({kType, 2}));
    ASSERT_TRUE(pick({5}));
    ASSERT_TRUE(pick({1}));
    ASSERT_TRUE(pick({0}));
    ASSERT_TRUE(pick({6}));
    EXPECT_THAT(updates, ElementsAre(2, 2, 4, 5, 1, 6)) << "also for the same item; the title has no row";
    EXPECT_EQ(pane.rechecks, 7);
}

TEST_F(PaperMenu, UpdateGoesBackToTheDefaults) {
    open(menu);
    ASSERT_TRUE(pick({5}));
    pane.rechecks = 0;
    menu.Update();
    EXPECT_EQ(paper_of(menu), kDefaults);
    EXPECT_EQ(pane.rechecks, 1);
}

// Values.

TEST_F(PaperMenu, NoChangeIsOfferedOnlyWhileSomePartIsUnchanged) {
    open(menu);
    menu.SetControlValueToUI();
    EXPECT_TRUE(item(1).isHidden());
    for (const std::int64_t top : {kSize, kColor, kType}) {
        EXPECT_TRUE(item(top, 0).isHidden()) << top;
    }
    menu.setSelectedMenuItemIndexByType(3, -1);
    menu.SetControlValueToUI();
    EXPECT_FALSE(item(1).isHidden());
    for (const std::int64_t top : {kSize, kColor, kType}) {
        EXPECT_FALSE(item(top, 0).isHidden()) << top;
    }
    EXPECT_TRUE(item(kType, 1).isHidden()) << "the first type stays hidden";
}

TEST_F(PaperMenu, TheDefaultInTheViewHidesNoChange) {
    open(menu);
    menu.setSelectedMenuItemIndexByType(2, -1);
    menu.setInterPoser(true);
    popup.selectItemAtIndex(5);
    menu.SetDefaultValueToUI();
    EXPECT_TRUE(item(1).isHidden());
    EXPECT_TRUE(item(kSize, 0).isHidden());
    EXPECT_EQ(paper_of(menu), kDefaults);
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
}

TEST_F(PaperMenu, TheDefaultOfTheValueHidesNothing) {
    open(menu);
    menu.setSelectedMenuItemIndexByType(2, -1);
    menu.setInterPoser(true);
    menu.SetControlValueToDefault();
    EXPECT_FALSE(item(1).isHidden());
    EXPECT_EQ(paper_of(menu), kDefaults);
}

TEST_F(PaperMenu, OfExceptionsNeverOffersTheInterposer) {
    SPAddExceptSubMenuListCtrlEMF exceptions;
    open(exceptions);
    EXPECT_TRUE(item(5).isHidden());
    ASSERT_TRUE(exceptions.ReInitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_TRUE(item(5).isHidden());
    EXPECT_THAT(titles(kSize), ElementsAre("No Change", "A3", "A4", "US Letter", "Custom…"));
}

// The value as dialogs take it.

TEST_F(PaperMenu, HandsItsValueOutAndTakesItBack) {
    open(menu);
    PaperControlValue value;
    EXPECT_FALSE(menu.getControlValue(nullptr));
    EXPECT_FALSE(menu.setControlValue(nullptr));
    EXPECT_EQ(paper_of(menu), kDefaults);
    const PaperControlValue given{2, -1, 3, 1};
    EXPECT_TRUE(menu.setControlValue(&given));
    EXPECT_TRUE(menu.getControlValue(&value));
    EXPECT_EQ(value, given);
    EXPECT_THAT(checked(kSize), ElementsAre(3));
}

TEST_F(PaperMenu, SelectionIsTheChoicesOrTheRecordsIndexes) {
    open(menu);
    select_records({with_paper(exception("1"), 2, 1, 3), with_paper(exception("2"), 0, 0, 0)}, 2);
    EXPECT_EQ(menu.getCurrentSelectionArray(), (PaperSelectionArray{{{"A4"}, {"White"}, {"Stationary"}}}));
    ASSERT_TRUE(pick({kColor, 0}));
    EXPECT_EQ(menu.getCurrentSelectionArray(), (PaperSelectionArray{{{"A4"}, {"1", "0"}, {"Stationary"}}}));
    ASSERT_TRUE(pick({1}));
    EXPECT_EQ(menu.getCurrentSelectionArray(), (PaperSelectionArray{{{"2", "0"}, {"1", "0"}, {"3", "0"}}}));
    select_records({}, 0);
    EXPECT_EQ(menu.getCurrentSelectionArray(), (PaperSelectionArray{}));
    pane.list = nullptr;
    EXPECT_EQ(menu.getCurrentSelectionArray(), (PaperSelectionArray{}));
}

TEST_F(PaperMenu, AnIndexPastTheMenuIsTheEmptyChoice) {
    open(menu);
    menu.setSelectedMenuItemIndexByType(2, 99);
    menu.updateSelectionArray();
    EXPECT_EQ(menu.getCurrentSelections().front(), "");
    EXPECT_EQ(menu.getCurrentSelectionArray()[0], (std::vector<std::string>{""}));
    EXPECT_THAT(checked(kSize), IsEmpty());
}

TEST_F(PaperMenu, WithoutAPpdTheSelectionsAreThePaperAlone) {
    open(menu);
    pane.SetCurrentPPD(nullptr);
    menu.updateSelectionArray();
    EXPECT_THAT(menu.getCurrentSelections(), ElementsAre("A4", "White", "Stationary"));
    EXPECT_EQ(menu.getPpdKeyArray().size(), 6U);
    menu.UpdateSelfConflictsFromPPD(ppd.file());
    EXPECT_THAT(disabled(kSize), IsEmpty());
}

} // namespace
} // namespace specialpages::test
