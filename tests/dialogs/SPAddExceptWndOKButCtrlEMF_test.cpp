// What OK of the exceptions dialog makes of the list: merged, split, joined, given up or refused.
#include "dialogs/exceptions_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExceptionsOk : public ExceptionsDialogTest {
  protected:
    /// Adds pages with that color or those sides on top of what the dialog opens with.
    void addColored(const std::string& pages, std::int32_t color) {
        add([&](User& user) {
            EXPECT_TRUE(user.type(pages));
            EXPECT_TRUE(user.paper(kColorMenu, color));
            user.ok();
        });
    }
    /// Edits the pages of one row.
    void editPages(std::size_t row, const std::string& pages) {
        edit({row}, [&](User& user) {
            EXPECT_TRUE(user.type(pages));
            user.ok();
        });
    }
    void undo() { press(specialPagesSPUndoButID); }
    /// Single exceptions at the odd pages from 1 on.
    static Texts odd_pages(int count) {
        Texts saved;
        for (int i = 0; i < count; ++i) {
            saved.push_back(plain_exception(std::to_string(2 * i + 1)));
        }
        return saved;
    }
    Texts marks() const {
        Texts texts;
        for (const SpecialPageRecord& record : list->records()) {
            texts.push_back(record.text(RecordKey::selected));
        }
        return texts;
    }
};

TEST_F(ExceptionsOk, AddsARangeWithTheDefaults) {
    open();
    addPages("5-7");
    ASSERT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
    const SpecialPageRecord& record = list->records()[0];
    EXPECT_EQ(record.text(RecordKey::type), "2");
    EXPECT_EQ(record.text(RecordKey::interposer), "false");
    EXPECT_EQ(record.text(RecordKey::width), "210.0");
    EXPECT_EQ(record.text(RecordKey::length), "297.0");
    EXPECT_EQ(record.text(RecordKey::longmeasure), "1");
    EXPECT_EQ(record.text(RecordKey::selected), "false");
    EXPECT_FALSE(dialog->IsActived());
    EXPECT_THAT(face.alerts(), IsEmpty());
}

TEST_F(ExceptionsOk, PagesOfTheSamePaperJoinTheRangeThatHasThem) {
    open({plain_exception("5-7")});
    addPages("5,6");
    EXPECT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
}

TEST_F(ExceptionsOk, PagesOfAnotherPaperSplitTheRangeThatHasThem) {
    open({plain_exception("5-7")});
    addColored("5,6", kBlue);
    EXPECT_THAT(exceptions(), ElementsAre("5-6 2/1/0 1", "7 2/0/0 1"));
}

TEST_F(ExceptionsOk, OtherSidesWithoutAChoiceOfPaperKeepThePaperAndSplit) {
    open({"2,5-7,11,4,1,false,1,210.0,297.0,1"});
    add([&](User& user) {
        EXPECT_TRUE(user.type("6"));
        user.item(1).setHidden(false); // it is only offered while something is undecided
        EXPECT_TRUE(user.top(1));
        EXPECT_TRUE(user.sides(kLongEdgeItem));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("5 11/1/4 1", "6 11/1/4 2", "7 11/1/4 1"));
}

TEST_F(ExceptionsOk, AMissingPageBetweenEqualNeighboursJoinsThem) {
    open({plain_exception("5"), plain_exception("7")});
    addPages("6");
    EXPECT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
}

TEST_F(ExceptionsOk, NeighboursThatDifferInSidesStayApart) {
    open({sided_exception("5", 2), sided_exception("7", 3)});
    addPages("6");
    EXPECT_THAT(exceptions(), ElementsAre("5 2/0/0 2", "6 2/0/0 1", "7 2/0/0 3"));
}

TEST_F(ExceptionsOk, EditingOneGivesUpThePagesThatAreNotTypedAgain) {
    open({plain_exception("3-6")});
    editPages(0, "4-5");
    EXPECT_THAT(exceptions(), ElementsAre("4-5 2/0/0 1"));
}

TEST_F(ExceptionsOk, EditingOneMovesItToOtherPages) {
    open({plain_exception("3-6"), colored_exception("9", kBlue)});
    editPages(0, "20");
    EXPECT_THAT(exceptions(), ElementsAre("9 2/1/0 1", "20 2/0/0 1"));
}

TEST_F(ExceptionsOk, EditingASinglePageKeepsItWhenItIsTypedAgain) {
    open({plain_exception("3")});
    editPages(0, "3,8");
    EXPECT_THAT(exceptions(), ElementsAre("3 2/0/0 1", "8 2/0/0 1"));
    editPages(1, "9");
    EXPECT_THAT(exceptions(), ElementsAre("3 2/0/0 1", "9 2/0/0 1"));
}

TEST_F(ExceptionsOk, EditingOneOverTheOthersTakesTheirPages) {
    open({plain_exception("3"), colored_exception("5-9", kBlue)});
    editPages(0, "4-6");
    EXPECT_THAT(exceptions(), ElementsAre("4-6 2/0/0 1", "7-9 2/1/0 1"));
}

TEST_F(ExceptionsOk, EditingSeveralGivesUpNoPage) {
    open({plain_exception("3"), plain_exception("7-9"), colored_exception("12", kBlue)});
    edit({0, 1}, [&](User& user) {
        EXPECT_FALSE(user.type("3"));
        // Even with a page text that leaves pages out.
        user.field().setStringValue("3");
        EXPECT_TRUE(user.paper(kTypeMenu, kFine));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("3 2/0/4 1", "7-9 2/0/0 1", "12 2/1/0 1"));
}

TEST_F(ExceptionsOk, EditingSeveralKeepsWhatIsLeftOnNoChange) {
    open({"2,3,2,0,1,false,1,210.0,297.0,1", "2,7-9,11,0,2,false,2,210.0,297.0,1"});
    edit({0, 1}, [&](User& user) {
        EXPECT_TRUE(user.paper(kTypeMenu, kFine));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("3 2/1/4 1", "7-9 11/2/4 2"));
}

TEST_F(ExceptionsOk, EditingSeveralWithNothingChangedLeavesTheRecords) {
    open({"2,3,33,0,1,false,1,120.0,200.0,1", "2,7-9,33,4,2,false,2,130.0,200.0,0"});
    edit({0, 1}, [](User& user) { user.ok(); });
    EXPECT_THAT(exceptions(), ElementsAre("3 33/1/0 1", "7-9 33/2/4 2"));
    EXPECT_EQ(list->records()[0].text(RecordKey::width), "120.0");
    EXPECT_EQ(list->records()[1].text(RecordKey::width), "130.0");
    EXPECT_EQ(list->records()[0].text(RecordKey::longmeasure), "1");
    EXPECT_EQ(list->records()[1].text(RecordKey::longmeasure), "0");
}

TEST_F(ExceptionsOk, EditingSeveralTakesTheDialogsSides) {
    open({sided_exception("3", 1), sided_exception("7-9", 2)});
    edit({0, 1}, [&](User& user) {
        EXPECT_TRUE(user.sides(kShortEdgeItem));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("3 2/0/0 3", "7-9 2/0/0 3"));
}

TEST_F(ExceptionsOk, EditingManyIsNotBoundByTheLengthOfTheirPageText) {
    open(odd_pages(250));
    platform::RowSet all;
    for (std::size_t row = 0; row < 250; ++row) {
        all.insert(row);
    }
    edit(all, [&](User& user) {
        EXPECT_GT(user.field().stringValue().size(), 900U);
        EXPECT_TRUE(user.paper(kColorMenu, kBlue));
        user.ok();
        EXPECT_FALSE(user.isOpen());
    });
    ASSERT_EQ(exceptions().size(), 250U);
    EXPECT_EQ(exceptions().front(), "1 2/1/0 1");
    EXPECT_EQ(exceptions().back(), "499 2/1/0 1");
}

TEST_F(ExceptionsOk, WidthsAreEqualAsTexts) {
    open({"2,5,33,0,0,false,1,210.0,297.0,1", "2,6,33,0,0,false,1,210,297.0,1"});
    addPages("20");
    EXPECT_THAT(pages(), ElementsAre("5", "6", "20"));
}

TEST_F(ExceptionsOk, ASizeThatIsNotCustomTakesTheDefaultLengths) {
    open({"2,5,33,0,0,false,1,120.0,200.0,0"});
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.paper(kSizeMenu, kLetter));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("5 11/0/0 1"));
    EXPECT_EQ(list->records()[0].text(RecordKey::width), "210.0");
    EXPECT_EQ(list->records()[0].text(RecordKey::length), "297.0");
    EXPECT_EQ(list->records()[0].text(RecordKey::longmeasure), "1");
    EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "210.0");
}

TEST_F(ExceptionsOk, ACustomSizeIsCopiedToTheNewPages) {
    open({"2,5,33,0,0,false,1,120.0,200.0,0"});
    select({0});
    addPages("9");
    EXPECT_THAT(exceptions(), ElementsAre("5 33/0/0 1", "9 33/0/0 1"));
    EXPECT_EQ(list->records()[1].text(RecordKey::width), "120.0");
    EXPECT_EQ(list->records()[1].text(RecordKey::length), "200.0");
    EXPECT_EQ(list->records()[1].text(RecordKey::longmeasure), "0");
}

TEST_F(ExceptionsOk, AWrongTextKeepsTheDialogOpenUntilItIsPutRight) {
    open({plain_exception("5-7")});
    add([&](User& user) {
        user.ok();
        EXPECT_TRUE(user.type("9-8"));
        user.ok();
        EXPECT_TRUE(user.type("0"));
        user.ok();
        EXPECT_TRUE(user.isOpen());
        EXPECT_TRUE(dialog->IsActived());
        EXPECT_EQ(alerts(), (Texts{words("Warning46"), words("Warning50"), words("Warning46")}));
        EXPECT_THAT(pages(), ElementsAre("5-7"));
        EXPECT_TRUE(user.type("9"));
        user.ok();
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(face.alerts().size(), 3U);
    EXPECT_THAT(pages(), ElementsAre("5-7", "9"));
}

TEST_F(ExceptionsOk, ARefusalCommitsNoControl) {
    open({plain_exception("5-7")});
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.sides(kShortEdgeItem));
        EXPECT_TRUE(user.type("-"));
        user.ok();
        for (const BaseControlEMFSpecialPages* control : dialog->getCtrlGroupArrayRef()) {
            if (control->GetControlPtr()->tag() == spExceptionWnd2SidePopupBtnID) {
                auto* sides = const_cast<BaseControlEMFSpecialPages*>(control);
                EXPECT_EQ(sides->GetControlBlkPtr(), ControlValue{2});
            }
        }
    });
    EXPECT_EQ(alerts(), Texts{words("Warning46")});
    EXPECT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
}

TEST_F(ExceptionsOk, A251stRecordIsRefusedAndTheRowsStay) {
    open(odd_pages(249));
    auto* addButton = pane->panelView()->viewWithTag(specialPagesAddExceptionsButID);
    EXPECT_TRUE(addButton->isEnabled());
    add([&](User& user) {
        const ExceptionRows before = dialog->getAddExceptSetting();
        const PageRanges pagesBefore = dialog->getAddExceptPageNumber();
        EXPECT_TRUE(user.type("600,602"));
        user.ok();
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(alerts(), Texts{words("Warning48")});
        EXPECT_EQ(dialog->getAddExceptSetting(), before);
        EXPECT_EQ(dialog->getAddExceptPageNumber(), pagesBefore);
        EXPECT_EQ(dialog->getArrangedAddExceptionsRecordRef().size(), 251U);
        EXPECT_EQ(list->records().size(), 249U);
        EXPECT_FALSE(pane->panelView()->viewWithTag(specialPagesSPUndoButID)->isEnabled());
        EXPECT_EQ(user.window().firstResponder(), &user.field());
        EXPECT_TRUE(user.type("600"));
        user.ok();
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(list->records().size(), 250U);
    EXPECT_EQ(pages().back(), "600");
    EXPECT_FALSE(addButton->isEnabled());
    undo();
    EXPECT_TRUE(addButton->isEnabled());
}

TEST_F(ExceptionsOk, AfterARefusalCancelLeavesTheListAndTheNextOpeningReadsItAnew) {
    open(odd_pages(249));
    add([&](User& user) {
        EXPECT_TRUE(user.type("600,602"));
        user.ok();
        user.cancel();
    });
    EXPECT_EQ(list->records().size(), 249U);
    add([&](User&) { EXPECT_EQ(dialog->getArrangedAddExceptionsRecordRef(), list->records()); });
}

TEST_F(ExceptionsOk, AnEditThatSplitsIntoTooManyIsRefused) {
    open(odd_pages(250));
    edit({249}, [&](User& user) {
        EXPECT_TRUE(user.type("600,602"));
        user.ok();
        EXPECT_TRUE(user.isOpen());
        EXPECT_TRUE(user.type("600"));
        user.ok();
    });
    EXPECT_EQ(alerts(), Texts{words("Warning48")});
    EXPECT_EQ(list->records().size(), 250U);
    EXPECT_EQ(pages().back(), "600");
}

TEST_F(ExceptionsOk, JoiningRecordsMakesRoom) {
    open(odd_pages(250));
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.type("1-600"));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("1-600 2/0/0 1"));
}

TEST_F(ExceptionsOk, AllPagesAreOneException) {
    open();
    addPages("1-");
    EXPECT_THAT(exceptions(), ElementsAre("1-65000 2/0/0 1"));
    editPages(0, "2-");
    EXPECT_THAT(exceptions(), ElementsAre("2-65000 2/0/0 1"));
    addColored("30000", kBlue);
    EXPECT_THAT(exceptions(), ElementsAre("2-29999 2/0/0 1", "30000 2/1/0 1", "30001-65000 2/0/0 1"));
}

TEST_F(ExceptionsOk, UndoAfterOkBringsTheListBack) {
    open({plain_exception("5-7"), colored_exception("9", kBlue)});
    const Texts before = exceptions();
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.type("1-3"));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("1-3 2/0/0 1", "9 2/1/0 1"));
    undo();
    EXPECT_EQ(exceptions(), before);
    EXPECT_EQ(table().selectedRowIndexes(), (platform::RowSet{0}));
    EXPECT_FALSE(pane->panelView()->viewWithTag(specialPagesSPUndoButID)->isEnabled());
}

TEST_F(ExceptionsOk, EvenAnOkThatChangesNothingCanBeUndone) {
    open({plain_exception("5-7")});
    edit({0}, [](User& user) { user.ok(); });
    EXPECT_TRUE(pane->panelView()->viewWithTag(specialPagesSPUndoButID)->isEnabled());
    undo();
    EXPECT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
}

TEST_F(ExceptionsOk, AddingMarksTheRecordsThatBeginWhereASelectedOneBegan) {
    open({plain_exception("3-4"), plain_exception("8-9"), plain_exception("12")});
    select({0, 2});
    addPages("11,20");
    EXPECT_THAT(pages(), ElementsAre("3-4", "8-9", "11-12", "20"));
    EXPECT_THAT(marks(), ElementsAre("true", "false", "false", "false"));
    EXPECT_EQ(table().selectedRowIndexes(), (platform::RowSet{0}));
}

TEST_F(ExceptionsOk, EditingLeavesNoRecordSelected) {
    open({plain_exception("3-4"), plain_exception("8-9")});
    editPages(1, "8");
    EXPECT_THAT(marks(), Each("false"));
    EXPECT_THAT(table().selectedRowIndexes(), IsEmpty());
}

TEST_F(ExceptionsOk, CoversAndInsertsStayInTheirPlaces) {
    open({kFrontCover, plain_exception("2"), "1,3,0,1,2,0,0,false,210.0,297.0,1",
          "0,1,0,2,0,0,false,2,210.0,297.0,1"});
    addPages("3,9");
    EXPECT_THAT(exceptions(), ElementsAre("type 0", "2-3 2/0/0 1", "type 1", "9 2/0/0 1", "type 0"));
}

TEST_F(ExceptionsOk, OverlappingSavedRecordsLeaveEachPageToTheFirstThatNamesIt) {
    open({colored_exception("5-8", kBlue), plain_exception("7-9"), colored_exception("6", kBuff)});
    add([&](User& user) {
        EXPECT_EQ(dialog->getAddExceptPageNumber(), (PageRanges{{5, 9}}));
        EXPECT_TRUE(user.type("20"));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("5-8 2/1/0 1", "9 2/0/0 1", "20 2/0/0 1"));
}

TEST_F(ExceptionsOk, EditingAnOverlappingRecordGivesUpItsPagesWhoeverHadThem) {
    open({colored_exception("5-8", kBlue), plain_exception("7-9")});
    editPages(1, "7");
    EXPECT_THAT(exceptions(), ElementsAre("5-6 2/1/0 1", "7 2/0/0 1"));
}

TEST_F(ExceptionsOk, SavedRecordsThatNameNoPageAreDropped) {
    open({plain_exception("9-7"), plain_exception("0"), plain_exception("x"), plain_exception("4")});
    addPages("20");
    EXPECT_THAT(exceptions(), ElementsAre("4 2/0/0 1", "20 2/0/0 1"));
}

TEST_F(ExceptionsOk, APageTextThatNoPersonTypedIsRefusedAsSuch) {
    open({plain_exception("0-3"), plain_exception("9-7")});
    edit({0}, [](User& user) {
        EXPECT_EQ(user.field().stringValue(), "0-3");
        user.ok();
        EXPECT_TRUE(user.isOpen());
    });
    edit({1}, [](User& user) { user.ok(); });
    EXPECT_EQ(alerts(), (Texts{words("Warning46"), words("Warning50")}));
}

TEST_F(ExceptionsOk, SavedSidesThatNoItemHasStayWhenTheyAreNotChanged) {
    open({sided_exception("3", 0), sided_exception("5", 9), sided_exception("7", -1)});
    for (const std::size_t row : {0U, 1U, 2U}) {
        edit({row}, [](User& user) { user.ok(); });
    }
    EXPECT_THAT(exceptions(), ElementsAre("3 2/0/0 0", "5 2/0/0 9", "7 2/0/0 -1"));
}

TEST_F(ExceptionsOk, ANewPageNeverTakesNoChange) {
    open({"2,5,-1,-1,-1,false,0,210.0,297.0,1"});
    select({0});
    add([&](User& user) {
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), 0);
        EXPECT_EQ(user.paperText(), words("No Change Infomation"));
        EXPECT_TRUE(user.type("9"));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("5 -1/-1/-1 0", "9 2/0/0 1"));
}

TEST_F(ExceptionsOk, SavingAndRestoringKeepsWhatOkMade) {
    open({plain_exception("5-7")});
    addColored("6,20-30", kBlue);
    const Texts made = exceptions();
    EXPECT_THAT(made, ElementsAre("5 2/0/0 1", "6 2/1/0 1", "7 2/0/0 1", "20-30 2/1/0 1"));
    ASSERT_TRUE(pane->saveValuesAndReturnError(nullptr));
    EXPECT_EQ(get("NPIFCommandTicket_3"), "2,20-30,2,0,1,false,1,210.0,297.0,1");
    EXPECT_EQ(get("NPIFExceptionCountTicket"), "4");
    ASSERT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_EQ(exceptions(), made);
}

TEST_F(ExceptionsOk, TheSetupColumnNamesTheExceptions) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.type("5-7"));
        EXPECT_TRUE(user.paper(kColorMenu, kBlue));
        EXPECT_TRUE(user.sides(kLongEdgeItem));
        user.ok();
    });
    EXPECT_EQ(table().text(0, 0), "5-7");
    EXPECT_EQ(table().text(0, 1), "Exception");
    EXPECT_EQ(table().text(0, 2), "2-sided, long edge; A4, Blue, Plain");
}

TEST_F(ExceptionsOk, ADoubleClickEdits) {
    open({plain_exception("5-7")});
    select({0});
    then([&](User& user) {
        EXPECT_EQ(user.title(), "Edit Exceptions");
        EXPECT_TRUE(user.type("6"));
        user.ok();
    });
    EXPECT_TRUE(table().doubleClick());
    EXPECT_THAT(pages(), ElementsAre("6"));
}

TEST_F(ExceptionsOk, EnteringAHundredTimesEndsInOneRecord) {
    open();
    for (int i = 0; i < 50; ++i) {
        addPages(std::to_string(2 * i + 1));
    }
    EXPECT_EQ(list->records().size(), 50U);
    for (int i = 0; i < 50; ++i) {
        addPages(std::to_string(2 * i + 2));
    }
    EXPECT_THAT(exceptions(), ElementsAre("1-100 2/0/0 1"));
}

} // namespace
} // namespace specialpages::test
