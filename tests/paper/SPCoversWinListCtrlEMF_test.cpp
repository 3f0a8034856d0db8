#include "paper/SPCoversWinListCtrlEMF.h"
#include "paper/covers_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;

class PrintingLists : public CoversTest {
  protected:
    PrintingLists() {
        ppd.constraint("PageSize", "A3", "Duplex", "DuplexTumble")
            .constraint("MediaType", "Thick", "Duplex", "DuplexNoTumble")
            .constraint("NVMediaColor", "Blue", "Duplex", "None")
            .constraint("NVMediaColor", "Blue", "Duplex", "DuplexTumble");
    }
};

TEST_F(PrintingLists, OpenOnTheDefaults) {
    open();
    EXPECT_EQ(options.selectedPosition(), 0);
    EXPECT_EQ(front.printed(), 0);
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2, 3));
}

TEST_F(PrintingLists, TakeTheRecordsPositions) {
    records = {cover("1", "4").with(RecordKey::printingoptions, "3"),
               cover("0", "4").with(RecordKey::printingoptions, "1")};
    open();
    EXPECT_EQ(options.selectedPosition(), 4);
    EXPECT_EQ(front.printed(), 1);
    EXPECT_EQ(back.printed(), 3);
}

TEST_F(PrintingLists, ReadTheCoverOptionOfTheFirstRecord) {
    records = {cover("1", "3"), cover("0", "4")};
    open();
    EXPECT_EQ(options.selectedPosition(), 3);
    records.clear();
    options.SetControlValueToUI();
    EXPECT_EQ(options.selectedPosition(), 0);
    pane.records = nullptr;
    optionView.selectItemAtIndex(2);
    options.SetControlValueToUI();
    EXPECT_EQ(options.selectedPosition(), 0) << "no records, so the default";
}

TEST_F(PrintingLists, IgnoreARecordedPositionThatThereIsNot) {
    records = {cover("0", "77").with(RecordKey::printingoptions, "9")};
    open();
    EXPECT_EQ(options.selectedPosition(), 0);
    EXPECT_EQ(front.printed(), 0);
}

TEST_F(PrintingLists, HaveNoValueWithoutAView) {
    SPCoversWinListCtrlEMF lone;
    lone.CreateControl(nullptr, &kPrintingIniData, nullptr, nullptr, {}, "Duplex", {}, 0);
    EXPECT_FALSE(lone.SetControlValueToUI());
    EXPECT_EQ(lone.selectedPosition(), -1);
    EXPECT_EQ(lone.Update(), 0);
    EXPECT_EQ(lone.DoSelfUpdate(), 0);
    lone.doConstraintWithInterposer(true);
    EXPECT_FALSE(lone.isMenuItemConflicted("Duplex:None", ppd.file(), false));
}

TEST_F(PrintingLists, TheirItemsFollowSizeAndTypeOfTheirOwnSide) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 3));
    EXPECT_EQ(front.printing.menu().itemAtIndex(2)->toolTip(), "Not with Paper Size: A3");
    EXPECT_THAT(back.printable(), ElementsAre(0, 1, 2, 3));
    ASSERT_TRUE(back.pick({kType, 2}));
    EXPECT_THAT(back.printable(), ElementsAre(0, 1, 2));
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 3));
    EXPECT_TRUE(front.list.isMenuItemConflicted("Duplex:DuplexTumble", ppd.file(), false));
    EXPECT_TRUE(front.list.isMenuItemConflicted("Duplex:DuplexTumble", ppd.file(), true));
    EXPECT_FALSE(front.list.isMenuItemConflicted("Duplex:DuplexNoTumble", ppd.file(), false));
}

TEST_F(PrintingLists, TheirOwnTestAsksNoColorAndSkipsNoChange) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({kColor, 2}));
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2, 3));
    front.paper.setSelectedMenuItemIndexByType(2, -1);
    front.paper.setSelectedMenuItemIndexByType(4, 99);
    EXPECT_FALSE(front.list.isMenuItemConflicted("Duplex:DuplexTumble", ppd.file(), false));
    front.list.UpdateConflictsFromPPD();
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2, 3));
}

TEST_F(PrintingLists, TheRecheckOfThePanelAsksTheColorToo) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    front.paper.setSelectedMenuItemIndexByType(3, 1);
    front.paper.updateSelectionArray();
    front.list.UpdateConflictsPanelControlFromPPD(ppd.file());
    EXPECT_THAT(front.printable(), ElementsAre(0)) << "each item has a choice that Blue forbids";
    front.list.UpdateConflictsFromPPD();
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2, 3));
}

TEST_F(PrintingLists, WithAnInterposerOnlyBlankIsLeft) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({5}));
    EXPECT_THAT(front.printable(), ElementsAre(0));
    EXPECT_THAT(back.printable(), ElementsAre(0, 1, 2, 3));
    front.list.UpdateConflictsPanelControlFromPPD(ppd.file());
    EXPECT_THAT(front.printable(), ElementsAre(0)) << "a re-check does not give them back";
    ASSERT_TRUE(front.pick({kSize, 1}));
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 3));
}

TEST_F(PrintingLists, EnableByTheirOwnPositions) {
    open();
    for (const std::int64_t position : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{4}}) {
        front.list.enabledSubMenuByIndex(position, false);
    }
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2, 3));
    front.list.enabledSubMenuByIndex(3, false);
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 2));
    front.printing.menu().itemAtIndex(0)->setEnabled(false);
    front.list.doConstraintWithInterposer(false);
    EXPECT_THAT(front.printable(), ElementsAre(1, 2, 3)) << "position 0 stays as it was";
}

TEST_F(PrintingLists, WithoutAPpdTheItemsStayAsTheyAre) {
    open();
    front.list.enabledSubMenuByIndex(2, false);
    pane.SetCurrentPPD(nullptr);
    front.list.UpdateConflictsFromPPD();
    EXPECT_THAT(front.printable(), ElementsAre(0, 1, 3));
}

TEST_F(PrintingLists, ThePaperNeverDisablesCoverOptions) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.pick({kSize, 1}));
    options.UpdateConflictsPanelControlFromPPD(ppd.file());
    options.UpdateConflictsFromPPD();
    for (std::int64_t i = 0; i < optionView.numberOfItems(); ++i) {
        EXPECT_TRUE(optionView.menu().itemAtIndex(i)->isEnabled()) << i;
    }
    EXPECT_FALSE(options.getCurrentDuplexArray());
}

TEST_F(PrintingLists, SameCoversArePrintedAlike) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::same));
    ASSERT_TRUE(front.print(3));
    EXPECT_EQ(back.printed(), 3);
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(1));
    EXPECT_EQ(back.printed(), 3);
}

TEST_F(PrintingLists, NoCoversTakesThemBackToTheDefault) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(3));
    ASSERT_TRUE(back.print(2));
    ASSERT_TRUE(choose_covers(CoverOption::none));
    EXPECT_EQ(front.printed(), 0);
    EXPECT_EQ(back.printed(), 0);
}

TEST_F(PrintingLists, FallBackToSideOneWhenTheirItemIsForbidden) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(3));
    ASSERT_TRUE(front.pick({kType, 2}));
    EXPECT_FALSE(front.printing.menu().itemAtIndex(3)->isEnabled());
    EXPECT_EQ(front.printed(), 3) << "the paper menu's event updates no printing list";
    ASSERT_TRUE(back.print(1));
    EXPECT_EQ(front.printed(), 1) << "the next event of a printing list does";
    EXPECT_EQ(back.printed(), 1);
}

TEST_F(PrintingLists, AFallBackCountsAsTheirEvent) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(3));
    ASSERT_TRUE(front.pick({kType, 2}));
    ASSERT_TRUE(back.print(1));
    ASSERT_EQ(front.printed(), 1);
    EXPECT_EQ(held<std::int32_t>(front.list.GetValueFromUIDataBlk()), 2);
    ASSERT_TRUE(front.pick({kType, 4}));
    front.item(5).setEnabled(true);
    ASSERT_TRUE(front.print(3));
    EXPECT_FALSE(front.item(5).isEnabled()) << "the item it fell back from is a change again";
}

TEST_F(PrintingLists, ADisabledListDoesNotFallBack) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(3));
    ASSERT_TRUE(front.pick({kType, 2}));
    front.printing.setEnabled(false);
    ASSERT_TRUE(back.print(1));
    EXPECT_EQ(front.printed(), 3);
}

TEST_F(PrintingLists, AForbiddenSideOneEndsTheFallBackAllTheSame) {
    PpdBuilder strict;
    describe_paper(strict)
        .constraint("MediaType", "Thick", "Duplex", "DuplexNoTumble")
        .constraint("MediaType", "Thick", "Duplex", "None");
    const CompiledPpd index(strict);
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(front.print(3));
    pane.SetxppdPtr(index.index);
    pane.SetCurrentPPD(strict.file());
    ASSERT_TRUE(front.pick({kType, 2}));
    pane.rechecks = 0;
    ASSERT_TRUE(back.print(1));
    EXPECT_EQ(front.printed(), 1);
    EXPECT_FALSE(front.printing.menu().itemAtIndex(1)->isEnabled());
    EXPECT_LT(pane.rechecks, 20) << "it does not go round";
}

} // namespace
} // namespace specialpages::test
