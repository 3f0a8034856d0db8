#include "records/list_buttons.h"
#include "records/list_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::IsEmpty;

/// All buttons of the list, registered under their tags.
class ListButtons : public ListTest {
  protected:
    ListButtons() {
        make(covers, coversView, specialPagesAddCoversButID);
        make(inserts, insertsView, specialPagesAddInsertsButID);
        make(exceptions, exceptionsView, specialPagesAddExceptionsButID);
        make(up, upView, specialPagesSPUpButID);
        make(down, downView, specialPagesSPDownButID);
        make(edit, editView, specialPagesSPEditButID);
        make(remove, removeView, specialPagesSPDeleteButID);
        make(removeAll, removeAllView, specialPagesSPDeleteAllButID);
        make(undo, undoView, specialPagesSPUndoButID);
        pane.undo = &undo;
        pane.SetControlEventHandler();
        pane.SetCurrentValueToUI();
    }
    template <typename Control>
    void make(Control& control, platform::Button& view, ControlTag tag) {
        view.setTag(tag);
        control.CreateControl(&view, nullptr);
        pane.RunTimeAddNewControl(&control);
    }

    platform::Button coversView, insertsView, exceptionsView, upView, downView, editView, removeView,
        removeAllView, undoView;
    SPAddCoversButCtrlEMF covers;
    SPAddInsertButCtrlEMF inserts;
    SPAddExceptionsButCtrlEMF exceptions;
    SPUpButCtrlEMF up;
    SPDownButCtrlEMF down;
    SPEditButCtrlEMF edit;
    SPDeleteButCtrlEMF remove;
    SPDeleteAllButCtrlEMF removeAll;
    SPUndoButCtrlEMF undo;
};

TEST_F(ListButtons, AnEmptyListLeavesOnlyTheAddButtons) {
    EXPECT_TRUE(coversView.isEnabled());
    EXPECT_TRUE(insertsView.isEnabled());
    EXPECT_TRUE(exceptionsView.isEnabled());
    for (const platform::Button* view :
         {&upView, &downView, &editView, &removeView, &removeAllView, &undoView}) {
        EXPECT_FALSE(view->isEnabled()) << view->tag();
    }
}

TEST_F(ListButtons, AddingTellsTheListAndOpensTheDialog) {
    ASSERT_TRUE(insertsView.click());
    EXPECT_EQ(list.getSummaryScrollViewStatus(), kSummaryAdding);
    EXPECT_EQ(pane.dialogs[1].openings, 1);
    ASSERT_TRUE(coversView.click());
    ASSERT_TRUE(exceptionsView.click());
    EXPECT_EQ(pane.dialogs[0].openings, 1);
    EXPECT_EQ(pane.dialogs[2].openings, 1);
}

TEST_F(ListButtons, AddingWithoutDialogsOpensNothing) {
    pane.haveDialogs = false;
    EXPECT_TRUE(insertsView.click());
    EXPECT_EQ(pane.dialogs[1].openings, 0);
}

TEST_F(ListButtons, UpAndDownStayWithinOnePageOfInserts) {
    fill({insert_after(3, 1), insert_after(3, 2), insert_after(8)});
    table.userSelects({1});
    EXPECT_TRUE(upView.isEnabled());
    EXPECT_FALSE(downView.isEnabled());
    table.userSelects({2});
    EXPECT_FALSE(upView.isEnabled());
    EXPECT_FALSE(downView.isEnabled());
}

TEST_F(ListButtons, EditNeedsOneKind) {
    fill({cover_front(), insert_after(3)});
    table.userSelects({0, 1});
    EXPECT_FALSE(editView.isEnabled());
    EXPECT_TRUE(removeView.isEnabled());
    table.userSelects({1});
    ASSERT_TRUE(editView.click());
    EXPECT_EQ(list.getSummaryScrollViewStatus(), kSummaryEditing);
    EXPECT_EQ(pane.dialogs[1].openings, 1);
}

TEST_F(ListButtons, TheLimitOf250DisablesAddingButNotEditing) {
    RecordList many;
    for (int i = 0; i < 249; ++i) {
        many.push_back(insert_after(3, i + 1));
    }
    fill(many);
    EXPECT_TRUE(insertsView.isEnabled());
    many.push_back(insert_after(3, 250));
    fill(many);
    EXPECT_FALSE(insertsView.isEnabled());
    EXPECT_TRUE(exceptionsView.isEnabled());
    table.userSelects({5});
    EXPECT_TRUE(editView.isEnabled());
    for (SpecialPageRecord& record : many) {
        record = exception("9");
    }
    fill(many);
    EXPECT_TRUE(insertsView.isEnabled());
    EXPECT_FALSE(exceptionsView.isEnabled());
}

TEST_F(ListButtons, DeletingAsksFirstAndWithWhatIsDeleted) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({0});
    pane.agrees = false;
    removeView.click();
    EXPECT_EQ(pane.asked, 0);
    EXPECT_EQ(list.allItemCount(), 2U);
    removeAllView.click();
    EXPECT_EQ(pane.asked, 1);
    EXPECT_EQ(list.allItemCount(), 2U);
    EXPECT_EQ(pane.changes, 0);
    pane.agrees = true;
    removeView.click();
    EXPECT_EQ(list.allItemCount(), 1U);
}

TEST_F(ListButtons, CoversAreDeletedTogether) {
    fill({cover_front(), insert_after(3), cover_back()});
    table.userSelects({2});
    removeView.click();
    EXPECT_EQ(stored(), RecordList{insert_after(3)});
}

TEST_F(ListButtons, DeletingEveryRowDisablesWhatNeedsRows) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({0, 1});
    removeView.click();
    for (const platform::Button* view : {&upView, &downView, &editView, &removeView, &removeAllView}) {
        EXPECT_FALSE(view->isEnabled()) << view->tag();
    }
    EXPECT_TRUE(undoView.isEnabled());
}

TEST_F(ListButtons, UndoAfterDeleteAllBringsListAndSelectionBack) {
    fill({insert_after(3), insert_after(4), exception("9")});
    table.userSelects({1});
    removeAllView.click();
    ASSERT_TRUE(undoView.isEnabled());
    ASSERT_TRUE(undoView.click());
    EXPECT_EQ(stored(), (RecordList{insert_after(3), insert_after(4), exception("9")}));
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{1});
    EXPECT_FALSE(undoView.isEnabled());
    EXPECT_FALSE(undoView.click()) << "a press cannot be undone";
}

TEST_F(ListButtons, UndoAfterAnEditBringsBackTheMarksThatASelectionLeftBehind) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({1});
    table.deselectAll();
    ASSERT_EQ(marked(), RowSet{1});
    list.setSummaryScrollViewStatus(kSummaryEditing); // as a double click on no row does
    removeAllView.click();
    undoView.click();
    EXPECT_EQ(stored(), (RecordList{insert_after(3), insert_after(4)}));
    EXPECT_EQ(marked(), RowSet{1});
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{});
}

TEST_F(ListButtons, AfterUndoTheMarksAreThoseOfTheSelectedRows) {
    fill({insert_after(3), insert_after(4)});
    const RecordList backup{test::marked(insert_after(3)), insert_after(4)};
    const RowSet second{1};
    list.undoRequest(&backup, &second);
    EXPECT_EQ(table.selectedRowIndexes(), second);
    EXPECT_EQ(marked(), second);
}

TEST_F(ListButtons, OnlyTheLatestChangeCanBeUndone) {
    fill({insert_after(3, 1), insert_after(3, 2), insert_after(3, 3)});
    list.setSummaryScrollViewStatus(kSummaryAdding);
    table.userSelects({2});
    upView.click();
    upView.click();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 3), insert_after(3, 1), insert_after(3, 2)}));
    undoView.click();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 1), insert_after(3, 3), insert_after(3, 2)}));
}

TEST_F(ListButtons, BringingThePaneInLineLeavesNothingToUndo) {
    fill({insert_after(3), insert_after(4)});
    removeAllView.click();
    EXPECT_TRUE(undoView.isEnabled());
    pane.SetCurrentValueToUI();
    EXPECT_FALSE(undoView.isEnabled());
}

TEST_F(ListButtons, AButtonWithoutAPaneDoesNothing) {
    platform::Button view;
    SPDeleteAllButCtrlEMF alone;
    alone.CreateControl(&view, nullptr);
    EXPECT_TRUE(alone.UIEventHandler());
    EXPECT_EQ(alone.Update(), 0);
    EXPECT_FALSE(view.isEnabled());
    SPUndoButCtrlEMF undoAlone;
    undoAlone.CreateControl(&view, nullptr);
    undoAlone.undoEnable();
    EXPECT_TRUE(view.isEnabled());
    EXPECT_TRUE(undoAlone.UIEventHandler());
    EXPECT_FALSE(view.isEnabled());
}

TEST_F(ListButtons, AnUnchangedStateIsNotAnnounced) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({0});
    int announced = 0;
    for (platform::Button* view :
         {&upView, &downView, &editView, &removeView, &removeAllView, &insertsView}) {
        view->addObserver([&](platform::View&, platform::ViewChange) { ++announced; });
    }
    table.userSelects({1});
    EXPECT_EQ(announced, 0);
}

} // namespace
} // namespace specialpages::test
