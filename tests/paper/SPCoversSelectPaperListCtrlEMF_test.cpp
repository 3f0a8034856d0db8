#include "paper/SPCoversSelectPaperListCtrlEMF.h"
#include "paper/covers_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;

class CoverPaper : public CoversTest {
  protected:
    CoverPaper() {
        ppd.constraint("PageSize", "A3", "MediaType", "Thick")
            .constraint("PageSize", "A3", "MediaType", "Stationary");
    }
    static SpecialPageRecord front_cover() { return with_paper(cover("0", "4"), 2, 1, 3); }
};

TEST_F(CoverPaper, TakesItsRecord) {
    records = {with_paper(cover("1", "4"), 1, 0, 1)
                   .with(RecordKey::width, "100.0")
                   .with(RecordKey::length, "150.5")
                   .with(RecordKey::longmeasure, "0"),
               front_cover()};
    open();
    EXPECT_EQ(front.chosen(), (PaperChoice{2, 1, 3, false}));
    EXPECT_EQ(front.paper.getCustomPageWidth(), "210.0");
    EXPECT_EQ(front.paper.getCustomPageSizeLongMeasure(), 1);
    EXPECT_EQ(back.chosen(), (PaperChoice{1, 0, 1, false}));
    EXPECT_EQ(back.paper.getCustomPageWidth(), "100.0");
    EXPECT_EQ(back.paper.getCustomPageLength(), "150.5");
    EXPECT_EQ(back.paper.getCustomPageSizeLongMeasure(), 0);
}

TEST_F(CoverPaper, WithoutARecordHasTheDefaultsAndTheWindowsCustomSize) {
    open();
    EXPECT_EQ(front.chosen(), (PaperChoice{1, 0, 0, false}));
    EXPECT_EQ(front.paper.getCustomPageWidth(), "148.0");
    EXPECT_EQ(front.paper.getCustomPageLength(), "209.9");
    pane.customSize = nullptr;
    front.paper.setCustomPageSizeLongMeasure(0);
    front.paper.SetControlValueToUI();
    EXPECT_EQ(front.paper.getCustomPageWidth(), "210.0");
    EXPECT_EQ(front.paper.getCustomPageSizeLongMeasure(), 1);
    pane.records = nullptr;
    EXPECT_TRUE(front.paper.SetControlValueToUI());
}

TEST_F(CoverPaper, ReadsTheInterposerOnlyFromTrueAndFalse) {
    records = {front_cover().with(RecordKey::interposer, "true")};
    open();
    EXPECT_TRUE(front.chosen().interposer);
    EXPECT_FALSE(back.chosen().interposer);
    records = {front_cover().with(RecordKey::interposer, "TRUE")};
    front.paper.SetControlValueToUI();
    EXPECT_TRUE(front.chosen().interposer) << "anything else leaves it";
    records = {front_cover().with(RecordKey::interposer, "false")};
    front.paper.SetControlValueToUI();
    EXPECT_FALSE(front.chosen().interposer);
    records = {front_cover().with(RecordKey::interposer, "")};
    front.paper.SetControlValueToUI();
    EXPECT_FALSE(front.chosen().interposer);
}

TEST_F(CoverPaper, NeverOffersNoChangeOnceLoaded) {
    open();
    for (Side* side : {&front, &back}) {
        EXPECT_TRUE(side->item(1).isHidden());
        for (const std::int64_t top : {kSize, kColor, kType}) {
            EXPECT_TRUE(side->item(top, 0).isHidden()) << top;
        }
    }
    records = {with_paper(cover("0", "1"), -1, -1, -1)};
    front.paper.SetControlValueToUI();
    EXPECT_TRUE(front.item(1).isHidden()) << "whatever a damaged record says";
}

TEST_F(CoverPaper, ItsDefaultInTheViewHidesNothing) {
    open();
    ASSERT_TRUE(front.paper.ReInitializeCtrl(bundle.get(), ppd.file()));
    front.paper.setSelectedMenuItemIndexByType(2, 0);
    front.paper.SetDefaultValueToUI();
    EXPECT_FALSE(front.item(1).isHidden());
    EXPECT_EQ(front.chosen(), (PaperChoice{1, 0, 0, false}));
    EXPECT_EQ(front.paper.getCurrentSelections().front(), "A4");
}

TEST_F(CoverPaper, ALoadedTypeIsCheckedWithItsOwnSize) {
    // The size before, A3, forbids the type of the record.
    records = {with_paper(cover("0", "4"), 1, 0, 1)};
    open();
    front.paper.setSelectedMenuItemIndexByType(2, 0);
    front.paper.updateSelectionArray();
    show();
    EXPECT_EQ(front.chosen(), (PaperChoice{1, 0, 1, false}));
}

TEST_F(CoverPaper, APrintedCoverHasTheJobsSize) {
    ppd.mark("PageSize", "Letter");
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_EQ(front.chosen().size, 0);
    ASSERT_TRUE(front.print(1));
    EXPECT_EQ(front.chosen().size, 2);
    EXPECT_FALSE(front.item(kSize).isEnabled());
    EXPECT_FALSE(front.item(5).isEnabled());
    EXPECT_TRUE(back.item(kSize).isEnabled());
    EXPECT_TRUE(back.item(5).isEnabled());
    EXPECT_EQ(front.paper.getCurrentSelections().front(), "Letter");
    ASSERT_TRUE(front.print(0));
    EXPECT_TRUE(front.item(kSize).isEnabled());
    EXPECT_TRUE(front.item(5).isEnabled());
    EXPECT_EQ(front.chosen().size, 2) << "the size is not taken back";
}

TEST_F(CoverPaper, CoilPunchKeepsTheInterposerDisabled) {
    ppd.mark("NVNumPunchHoles", "CoilPunch");
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    EXPECT_FALSE(front.item(5).isEnabled());
    ASSERT_TRUE(front.print(1));
    ASSERT_TRUE(front.print(0));
    EXPECT_FALSE(front.item(5).isEnabled());
    EXPECT_EQ(front.item(5).toolTip(), "Not with Punch: Coil Punch");
    EXPECT_TRUE(front.item(kSize).isEnabled());
}

TEST_F(CoverPaper, SameCoversShareThePaper) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::same));
    ASSERT_TRUE(front.pick({kType, 4}));
    ASSERT_TRUE(front.pick({kColor, 2}));
    EXPECT_EQ(back.chosen(), (PaperChoice{1, 1, 3, false}));
    EXPECT_EQ(back.paper.getCurrentSelections()[2], "Transparency");
    ASSERT_TRUE(front.pick({5}));
    EXPECT_TRUE(back.chosen().interposer);
    EXPECT_THAT(back.printable(), ElementsAre(0));
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({kType, 2}));
    EXPECT_TRUE(back.chosen().interposer) << "no longer shared";
}

TEST_F(CoverPaper, FallsBackToTheFirstAllowedTypeBehindTheHiddenOne) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_EQ(front.chosen().type, 0);
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_EQ(front.chosen(), (PaperChoice{0, 0, 2, false})) << "Stationary and Thick are forbidden with A3";
    EXPECT_FALSE(front.item(kType, 1).isEnabled());
    EXPECT_EQ(back.chosen().type, 0);
    EXPECT_EQ(front.paper.getCurrentSelections()[2], "TabbedPaper1");
    EXPECT_EQ(tabStockWindow.openings, 0) << "no user picked it";
    EXPECT_FALSE(front.item(kSize, 4).isEnabled()) << "and tab stock has no custom size";
}

TEST_F(CoverPaper, NeverFallsBackToTheHiddenType) {
    ppd.constraint("NVRegionalPaperSetting", "Metric", "MediaType", "Transparency")
        .option("NVRegionalPaperSetting", "All")
        .choices({"All", "Metric"});
    ppd.mark("NVRegionalPaperSetting", "Metric");
    records = {with_paper(cover("0", "4"), 1, 0, 3)};
    open();
    EXPECT_TRUE(front.item(kType, 1).isEnabled()) << "the hidden type is allowed";
    EXPECT_EQ(front.chosen().type, 1);
}

TEST_F(CoverPaper, StaysWhereNoTypeIsAllowed) {
    for (const char* type : {"TabbedPaper1", "Transparency", "TabbedPaper2"}) {
        ppd.constraint("PageSize", "A3", "MediaType", type);
    }
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    pane.rechecks = 0;
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_EQ(front.chosen(), (PaperChoice{0, 0, 0, false}));
    EXPECT_LT(pane.rechecks, 20) << "and does not go round";
}

TEST_F(CoverPaper, AFallBackThatForbidsItselfRunsOnce) {
    PpdBuilder odd;
    describe_paper(odd).constraint("PageSize", "A3", "MediaType", "Stationary");
    for (const char* type : {"Thick", "TabbedPaper1", "Transparency", "TabbedPaper2"}) {
        odd.constraint("MediaType", type, "MediaType", type);
    }
    const CompiledPpd index(odd);
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    pane.SetCurrentPPD(odd.file());
    pane.SetxppdPtr(index.index);
    pane.rechecks = 0;
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_GE(front.chosen().type, 1);
    EXPECT_LT(pane.rechecks, 40);
}

TEST_F(CoverPaper, NoChangeOfTheTypeFallsBackToNothing) {
    open();
    front.paper.setSelectedMenuItemIndexByType(4, -1);
    front.item(kType, 0).setEnabled(false);
    front.paper.UpdateConflictsPanelControlFromPPD(ppd.file());
    EXPECT_EQ(front.chosen().type, -1);
}

TEST_F(CoverPaper, OutsideACoversWindowUpdatesItselfAlone) {
    PaperPane plain;
    platform::PopUpButton popup;
    popup.setTag(spCoversWndFrontCoverPageListID);
    SPCoversSelectPaperListCtrlEMF lone;
    lone.CreateControl(&popup, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData, nullptr, nullptr,
                       {}, kCoversWndType, spCoversWndFrontPrintingOptionListID);
    plain.RunTimeAddNewControl(&lone);
    ASSERT_TRUE(lone.InitializeCtrl(bundle.get(), nullptr));
    EXPECT_EQ(lone.Update(), 0);
    EXPECT_TRUE(lone.SetControlValueToUI());
    EXPECT_TRUE(lone.UIEventHandler());
    lone.doCoversSelectPaperListPPDConstraint();
    EXPECT_TRUE(lone.isEnabledSubMenuByIndex(1));
}

} // namespace
} // namespace specialpages::test
