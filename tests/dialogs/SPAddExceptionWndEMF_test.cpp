// Opening the exceptions dialog, filling it, and leaving it: what it shows in each situation.
#include "dialogs/SPAddExceptionWndEMF.h"
#include "dialogs/SPAdvSeleWndEMF.h"
#include "dialogs/exceptions_fixture.h"
#include "paper/SPAddExceptSubMenuListCtrlEMF.h"
#include "paper/SPTwoSidePrintListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "platform/services/help_viewer.h"
#include "records/exception_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExceptionsDialog : public ExceptionsDialogTest {
  protected:
    SPAddExceptSubMenuListCtrlEMF& menu() { return *dialog->getAddExceptSelectPaperList(); }
    /// Size, color and type of the paper menu.
    std::vector<std::int32_t> chosen() {
        return {menu().getSelectedMenuItemIndexByType(2), menu().getSelectedMenuItemIndexByType(3),
                menu().getSelectedMenuItemIndexByType(4)};
    }
    ControlValue committedSides() {
        return dialog->getAddExceptTwoSidePrintList()->GetControlBlkPtr().value_or(ControlValue{-99});
    }
    static bool noChangeIsOffered(User& user) {
        const bool top = !user.item(1).isHidden();
        for (const std::int64_t part : {kSizeMenu, kColorMenu, kTypeMenu}) {
            EXPECT_EQ(!user.item(part, -1).isHidden(), top) << part;
        }
        return top;
    }
};

const std::string kPlainView = "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n";
const std::string kJobView = "Paper Size: A4\nPaper Color: White\nPaper Type: Plain";

TEST_F(ExceptionsDialog, OpensEmptyWithTheDefaultsForTheFirstException) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(dialog->IsActived());
        EXPECT_EQ(user.title(), "Add Exceptions");
        EXPECT_EQ(user.text(spExceptionWndPageSTxtCtrlID), "Page(s):");
        EXPECT_EQ(user.text(spExceptionWndJobSTxtCtrlID), words("Job Setting Reference View Title"));
        EXPECT_EQ(user.text(spExceptionWnd2SideSTxtCtrlID), "2-sided printing:");
        EXPECT_EQ(user.text(spExceptionWndPageRuleSTxtCtrlID), words("Add Page Rule Description"));
        EXPECT_EQ(user.text(spExceptionWndPaperSTxtCtrlID), words("Add Insert Paper View Title"));
        EXPECT_EQ(user.field().stringValue(), "");
        EXPECT_TRUE(user.field().isEnabled());
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kA4, kWhite, kPlain}));
        EXPECT_EQ(user.paperText(), kPlainView);
        EXPECT_EQ(user.text(spExceptWndJobSettingRefViewID), kJobView);
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kOneSidedItem);
        EXPECT_FALSE(noChangeIsOffered(user));
        EXPECT_TRUE(user.side(0).isHidden());
        EXPECT_TRUE(user.item(5).isHidden()) << "an exception never comes from the interposer";
        EXPECT_THAT(dialog->getAddExceptSetting(), IsEmpty());
        EXPECT_THAT(dialog->getAddExceptPageNumber(), IsEmpty());
    });
    EXPECT_FALSE(dialog->IsActived());
}

TEST_F(ExceptionsDialog, TheAdvancedWindowBringsItsPaperViewInLine) {
    open();
    add([&](User& user) {
        EXPECT_EQ(user.paperText().find("Blue"), std::string::npos);
        // No event of the menu follows: the window that changed the paper has to say so.
        dialog->getAddExceptSelectPaperList()->setSelectedMenuItemIndexByType(3, kBlue);
        auto* advanced = dynamic_cast<SPAdvSeleWndEMF*>(pane->getAdvSeleWndPtr());
        ASSERT_NE(advanced, nullptr);
        advanced->SetSubMenuList(dialog->getAddExceptSelectPaperList());
        advanced->updateOpenersViews();
        EXPECT_NE(user.paperText().find("Paper Color: Blue\n"), std::string::npos);
        user.cancel();
    });
}

TEST_F(ExceptionsDialog, ItemsOfTheTwoSideListAreNamedByTheirKeys) {
    open();
    add([](User& user) {
        Texts titles;
        for (std::int64_t i = 0; i < user.sidesList().numberOfItems(); ++i) {
            titles.push_back(user.side(i).title());
        }
        EXPECT_THAT(titles, ElementsAre("No Change", "1-sided", "2-sided, long edge", "2-sided, short edge"));
    });
}

TEST_F(ExceptionsDialog, AddingWithOneExceptionSelectedCopiesItsPaperAndNotItsPages) {
    open({"2,5-7,11,4,1,false,3,120.5,200.0,0"});
    select({0});
    add([&](User& user) {
        EXPECT_EQ(user.title(), "Add Exceptions");
        EXPECT_EQ(user.field().stringValue(), "");
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kLetter, kBlue, kFine}));
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "120.5");
        EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "200.0");
        EXPECT_EQ(menu().getCustomPageSizeLongMeasure(), 0);
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kShortEdgeItem);
        EXPECT_EQ(committedSides(), ControlValue{4});
        EXPECT_TRUE(user.side(0).isHidden());
        EXPECT_FALSE(noChangeIsOffered(user));
        EXPECT_EQ(user.paperText(), "Paper Size: Letter\nPaper Color: Blue\nPaper Type: Fine\n");
    });
}

TEST_F(ExceptionsDialog, AddingWithAnythingElseSelectedStartsFromTheDefaults) {
    open({kFrontCover, "2,5,11,4,1,false,3,120.5,200.0,0", "1,9,0,1,11,4,1,false,120.5,200.0,0",
          "2,12,11,4,1,false,3,120.5,200.0,0"});
    for (const platform::RowSet& rows :
         {platform::RowSet{}, platform::RowSet{0}, platform::RowSet{2}, platform::RowSet{1, 3}}) {
        if (rows.empty()) {
            table().deselectAll();
        } else {
            select(rows);
        }
        add([&](User& user) {
            EXPECT_EQ(user.field().stringValue(), "");
            EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kA4, kWhite, kPlain}));
            EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "210.0");
            EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "297.0");
            EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kOneSidedItem);
            EXPECT_EQ(committedSides(), ControlValue{2});
            EXPECT_TRUE(user.side(0).isHidden());
        });
    }
}

TEST_F(ExceptionsDialog, EditingOneShowsItsPagesPaperAndSides) {
    open({"2,5-7,33,4,1,false,2,120.5,200.0,0"});
    edit({0}, [&](User& user) {
        EXPECT_EQ(user.title(), "Edit Exceptions");
        EXPECT_EQ(user.field().stringValue(), "5-7");
        EXPECT_TRUE(user.field().isEnabled());
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kCustom, kBlue, kFine}));
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "120.5");
        EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "200.0");
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kLongEdgeItem);
        EXPECT_EQ(committedSides(), ControlValue{3});
        EXPECT_TRUE(user.side(0).isHidden());
        EXPECT_FALSE(noChangeIsOffered(user));
        EXPECT_EQ(dialog->getAddExceptSetting(), (ExceptionRows{{{5, 7}, settings_of(list->records()[0])}}));
        EXPECT_EQ(dialog->getAddExceptPageNumber(), (PageRanges{{5, 7}}));
        EXPECT_EQ(dialog->getArrangedAddExceptionsRecordRef(), list->records());
    });
}

TEST_F(ExceptionsDialog, EditingSeveralShowsWhatTheyHaveInCommon) {
    open({"2,3,2,4,1,false,1,210.0,297.0,1", "2,7-9,2,4,2,false,2,210.0,297.0,1"});
    edit({0, 1}, [&](User& user) {
        EXPECT_EQ(user.field().stringValue(), "3,7-9");
        EXPECT_FALSE(user.field().isEnabled());
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kA4, -1, kFine}));
        EXPECT_TRUE(noChangeIsOffered(user));
        EXPECT_EQ(user.paperText(), "Paper Size: A4\nPaper Type: Fine\n");
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), 0);
        EXPECT_EQ(committedSides(), ControlValue{1});
        EXPECT_FALSE(user.side(0).isHidden());
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "210.0");
    });
}

TEST_F(ExceptionsDialog, EditingSeveralOfNothingInCommonShowsNoChange) {
    open({"2,3,2,4,1,false,1,210.0,297.0,1", "2,9,11,0,2,false,1,210.0,297.0,1"});
    edit({0, 1}, [&](User& user) {
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{-1, -1, -1}));
        EXPECT_EQ(user.paperText(), words("No Change Infomation"));
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kOneSidedItem);
        EXPECT_TRUE(user.side(0).isHidden());
    });
}

TEST_F(ExceptionsDialog, EditingSeveralOfDifferentCustomSizesLeavesTheSizeUndecided) {
    open({"2,3,33,0,0,false,1,120.0,200.0,1", "2,9,33,0,0,false,1,130.0,200.0,1",
          "2,12,33,0,0,false,1,120.0,200.0,0"});
    edit({0, 1}, [&](User&) {
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "-1");
        EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "200.0");
        EXPECT_EQ(menu().getCustomPageSizeLongMeasure(), 1);
    });
    edit({0, 2}, [&](User&) {
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "-1");
        EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "-1");
        EXPECT_EQ(menu().getCustomPageSizeLongMeasure(), -1);
    });
}

TEST_F(ExceptionsDialog, AnInterposerThatDiffersLeavesPaperUndecidedAndTheCustomSizeAlone) {
    open({"2,3,2,4,1,true,1,120.0,200.0,1", "2,9,2,4,1,false,1,120.0,200.0,1"});
    edit({0, 1}, [&](User&) {
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{-1, -1, -1}));
        EXPECT_FALSE(menu().getInterPoser());
        EXPECT_EQ(dialog->getExceptionsCustomPageWidth(), "120.0");
        EXPECT_EQ(dialog->getExceptionsCustomPageLength(), "200.0");
    });
}

TEST_F(ExceptionsDialog, EachOpeningStartsFromTheRecordsAndNotFromTheLastOne) {
    open({colored_exception("3", kBlue), sided_exception("9", 2)});
    edit({0, 1}, [](User& user) { EXPECT_FALSE(user.side(0).isHidden()); });
    edit({1}, [&](User& user) {
        EXPECT_TRUE(user.field().isEnabled());
        EXPECT_TRUE(user.type("44"));
        EXPECT_TRUE(user.paper(kTypeMenu, kFine));
        EXPECT_TRUE(user.sides(kShortEdgeItem));
        user.cancel();
    });
    edit({0}, [&](User& user) {
        EXPECT_EQ(user.field().stringValue(), "3");
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kA4, kBlue, kPlain}));
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kOneSidedItem);
        EXPECT_TRUE(user.side(0).isHidden());
        EXPECT_FALSE(noChangeIsOffered(user));
    });
    EXPECT_THAT(exceptions(), ElementsAre("3 2/1/0 1", "9 2/0/0 2"));
}

TEST_F(ExceptionsDialog, CancelAndEscapeLeaveTheListAndTheUndoAlone) {
    open({plain_exception("5-7")});
    auto* undo = pane->panelView()->viewWithTag(specialPagesSPUndoButID);
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.type("1-100"));
        user.cancel();
        EXPECT_FALSE(user.isOpen());
        EXPECT_FALSE(dialog->IsActived());
    });
    edit({0}, [&](User& user) {
        EXPECT_TRUE(user.type("1-100"));
        EXPECT_TRUE(user.window().performCancel());
    });
    EXPECT_THAT(exceptions(), ElementsAre("5-7 2/0/0 1"));
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_FALSE(dialog->IsActived());
}

TEST_F(ExceptionsDialog, DefaultsShowTheDefaultPaperAndSidesAndCommitNothing) {
    open({"2,5-7,11,4,1,false,3,210.0,297.0,1"});
    edit({0}, [&](User& user) {
        user.defaults();
        EXPECT_EQ(user.field().stringValue(), "");
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kA4, kWhite, kPlain}));
        EXPECT_EQ(user.paperText(), kPlainView);
        EXPECT_EQ(user.text(spExceptWndJobSettingRefViewID), kJobView);
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kOneSidedItem);
        EXPECT_EQ(committedSides(), ControlValue{4});
        EXPECT_TRUE(user.isOpen());
    });
    EXPECT_THAT(exceptions(), ElementsAre("5-7 11/1/4 3"));
}

TEST_F(ExceptionsDialog, PaperDisablesTheSidesThatItForbids) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.side(kLongEdgeItem).isEnabled());
        EXPECT_TRUE(user.paper(kTypeMenu, kPlainOneSide));
        EXPECT_TRUE(user.side(kOneSidedItem).isEnabled());
        for (const std::int64_t item : {kLongEdgeItem, kShortEdgeItem}) {
            EXPECT_FALSE(user.side(item).isEnabled());
            EXPECT_EQ(user.side(item).toolTip(), "Not with Paper Type: Plain, 1 Side Only");
            EXPECT_FALSE(user.sides(item));
        }
        user.defaults();
        for (const std::int64_t item : {kLongEdgeItem, kShortEdgeItem}) {
            EXPECT_TRUE(user.side(item).isEnabled());
            EXPECT_EQ(user.side(item).toolTip(), "");
        }
    });
}

TEST_F(ExceptionsDialog, SidesDisableThePaperThatTheyForbid) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.item(kTypeMenu, kPlainOneSide).isEnabled());
        EXPECT_TRUE(user.sides(kLongEdgeItem));
        EXPECT_FALSE(user.item(kTypeMenu, kPlainOneSide).isEnabled());
        EXPECT_EQ(user.item(kTypeMenu, kPlainOneSide).toolTip(), "Not with 2-Sided Printing: Short Edge");
        user.defaults();
        EXPECT_TRUE(user.item(kTypeMenu, kPlainOneSide).isEnabled());
    });
}

TEST_F(ExceptionsDialog, OpensWithTheConflictsOfTheEditedException) {
    open({"2,5,2,1,0,false,1,210.0,297.0,1"});
    edit({0}, [](User& user) {
        EXPECT_FALSE(user.side(kLongEdgeItem).isEnabled());
        EXPECT_TRUE(user.side(kOneSidedItem).isEnabled());
    });
}

TEST_F(ExceptionsDialog, EveryChoiceOfPaperShowsInThePaperView) {
    open({plain_exception("5"), colored_exception("9", kBlue)});
    edit({0, 1}, [&](User& user) {
        EXPECT_EQ(user.paperText(), "Paper Size: A4\nPaper Type: Plain\n");
        EXPECT_TRUE(user.paper(kColorMenu, kBuff));
        EXPECT_EQ(user.paperText(), "Paper Size: A4\nPaper Color: Buff\nPaper Type: Plain\n");
        EXPECT_TRUE(user.paper(kSizeMenu, -1));
        EXPECT_EQ(user.paperText(), "Paper Color: Buff\nPaper Type: Plain\n");
        EXPECT_TRUE(user.top(1));
        EXPECT_EQ(user.paperText(), words("No Change Infomation"));
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{-1, -1, -1}));
    });
}

TEST_F(ExceptionsDialog, CancelledWindowsBehindCustomAndAdvancedLeaveThePaper) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.type("5"));
        const auto cancels = [](platform::Window& behind) {
            EXPECT_TRUE(behind.performCancel());
        };
        face.then(cancels);
        EXPECT_TRUE(user.paper(kSizeMenu, kCustom));
        face.then(cancels);
        EXPECT_TRUE(user.top(6));
        EXPECT_EQ(chosen(), (std::vector<std::int32_t>{kCustom, kWhite, kPlain}));
        user.ok();
    });
    EXPECT_THAT(exceptions(), ElementsAre("5 33/0/0 1"));
    EXPECT_EQ(list->records()[0].text(RecordKey::width), "210.0");
    EXPECT_EQ(list->records()[0].text(RecordKey::length), "297.0");
}

/// The window behind "Advanced": it writes down what it is told.
class ToldAdvancedWindow : public PopupWinInPanelEMFSpecialPages, public AdvancedPaperWindow {
  public:
    void SetSubMenuList(SPSubMenuListCtrlEMF* menu) override { given = menu; }
    void SetPaperSize(std::int32_t, std::int32_t, std::int32_t, bool) override {}
    void setDuplexControl(SidednessList* list) override { sidedness = list; }
    void SetSizeStatus(std::int32_t status) override { size = status; }
    void SetColorStatus(std::int32_t status) override { color = status; }
    void SetTypeStatus(std::int32_t status) override { type = status; }

    SPSubMenuListCtrlEMF* given = nullptr;
    SidednessList* sidedness = nullptr;
    std::int32_t size = -99;
    std::int32_t color = -99;
    std::int32_t type = -99;
};

TEST_F(ExceptionsDialog, TellsTheAdvancedWindowInWhichPartsTheEditedExceptionsDiffer) {
    ToldAdvancedWindow advanced;
    open({plain_exception("3"), colored_exception("9", kBlue)});
    ASSERT_TRUE(pane->connectObject("SPAdvSeleWndPtr", advanced));
    add([&](User& user) {
        EXPECT_EQ(advanced.size, -99) << "nothing is edited";
        EXPECT_TRUE(user.top(6));
        EXPECT_EQ(advanced.given, &menu());
        EXPECT_EQ(advanced.sidedness, dialog->getAddExceptTwoSidePrintList());
    });
    edit({0, 1}, [&](User&) {
        EXPECT_EQ(advanced.size, 0);
        EXPECT_EQ(advanced.color, -1);
        EXPECT_EQ(advanced.type, 0);
    });
    edit({1}, [&](User&) { EXPECT_EQ(advanced.color, 0); });
}

TEST_F(ExceptionsDialog, HelpOpensItsPage) {
    open();
    std::string opened;
    auto before = platform::setHelpOpener([&](std::string_view, std::string_view page, std::string_view) {
        opened = page;
        return platform::noErr;
    });
    add([](User& user) { user.press(spExceptionWndHelpBtnID); });
    platform::setHelpOpener(before);
    EXPECT_EQ(opened, "SpecialPagesException_Default01.htm");
}

TEST_F(ExceptionsDialog, TakesTheTabValuesOfThePaneAndHandsThemBackAtOkOnly) {
    open();
    EXPECT_EQ(dialog->getTabStockValue(), 3);
    EXPECT_EQ(dialog->getTabMarginListValue(), 1);
    EXPECT_EQ(dialog->getTabMarginValue(), 127);
    pane->setTabStockValue(5);
    pane->setTabMarginListValue(2);
    pane->setTabMarginValue(64);
    const auto change = [&](User& user) {
        EXPECT_EQ(dialog->getTabStockValue(), 5);
        EXPECT_EQ(dialog->getTabMarginListValue(), 2);
        EXPECT_EQ(dialog->getTabMarginValue(), 64);
        dialog->setTabStockValue(7);
        dialog->setTabMarginListValue(1);
        dialog->setTabMarginValue(99);
        EXPECT_TRUE(user.type("5"));
    };
    add([&](User& user) {
        change(user);
        user.cancel();
    });
    EXPECT_EQ(pane->getTabStockValue(), 5);
    add([&](User& user) {
        change(user);
        user.ok();
    });
    EXPECT_EQ(pane->getTabStockValue(), 7);
    EXPECT_EQ(pane->getTabMarginListValue(), 1);
    EXPECT_EQ(pane->getTabMarginValue(), 99);
}

TEST_F(ExceptionsDialog, ATableThatIsMissingLeavesTheControlsAsTheyAre) {
    open({colored_exception("5", kBlue)});
    platform::View* const view = list->GetControlPtr();
    edit({0}, [](User& user) { EXPECT_EQ(user.field().stringValue(), "5"); });
    list->SetControlPtr(nullptr);
    list->setSummaryScrollViewStatus(kSummaryAdding);
    then([&](User& user) { EXPECT_EQ(user.field().stringValue(), "5"); });
    dialog->ActivateWindow();
    list->SetControlPtr(view);
}

TEST_F(ExceptionsDialog, WithoutAWindowOrAPaneItNeverOpens) {
    SPAddExceptionWndEMF alone;
    alone.CreatePanel(nullptr, "Add Exceptions Windows");
    EXPECT_EQ(alone.controlCount(), 0);
    EXPECT_EQ(alone.ActivateWindow(), 0);
    platform::Window bare;
    alone.CreatePanel(&bare, "Add Exceptions Windows");
    EXPECT_EQ(alone.ActivateWindow(), 0);
    alone.openForRecords();
    EXPECT_FALSE(alone.IsActived());
    EXPECT_FALSE(bare.isOpen());
    // Without controls there is nothing to fill, to read or to hand over.
    alone.setRelatedControlWithRecords({});
    alone.RestoreDefaultValue();
    alone.recheckConflicts();
    alone.resetUserPaneTitle(1);
    EXPECT_TRUE(alone.everyControlIsValid());
    EXPECT_TRUE(alone.resolveTypedPages());
    alone.commitRecords();
    EXPECT_THAT(alone.getArrangedAddExceptionsRecordRef(), IsEmpty());
    EXPECT_EQ(alone.recordsForList(), &alone.getArrangedAddExceptionsRecordRef());
    EXPECT_EQ(alone.paperTitles(), nullptr);
    EXPECT_FALSE(alone.doTabStockSetCheckByIndex(0));
    EXPECT_EQ(alone.getExceptionsCustomPageWidth(), std::nullopt);
    EXPECT_EQ(alone.getExceptionsCustomPageLength(), std::nullopt);
}

TEST_F(ExceptionsDialog, ItsButtonsOutsideItDoNothing) {
    SPAddExceptWndOKButCtrlEMF accept;
    SPRestoreButtonEMF restore;
    EXPECT_FALSE(accept.UIEventHandler());
    EXPECT_TRUE(restore.UIEventHandler());
}

TEST_F(ExceptionsDialog, TitleFollowsTheStatusAndStaysForAnyOther) {
    open();
    dialog->resetUserPaneTitle(2);
    EXPECT_EQ(dialog->window()->title(), "Edit Exceptions");
    for (const std::int64_t status : {0, 3, -1}) {
        dialog->resetUserPaneTitle(status);
        EXPECT_EQ(dialog->window()->title(), "Edit Exceptions");
    }
    dialog->resetUserPaneTitle(1);
    EXPECT_EQ(dialog->window()->title(), "Add Exceptions");
}

TEST_F(ExceptionsDialog, NamesTheTypesThatAreTabStock) {
    open();
    constexpr std::int32_t kTabStock1 = 36;
    EXPECT_TRUE(dialog->doTabStockSetCheckByIndex(kTabStock1));
    EXPECT_FALSE(dialog->doTabStockSetCheckByIndex(kTabStock1 - 1));
    EXPECT_FALSE(dialog->doTabStockSetCheckByIndex(-1));
}

TEST_F(ExceptionsDialog, ANegativeTwoSideValueLeavesTheListAlone) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.sides(kLongEdgeItem));
        ShownExceptions shown;
        shown.settings.twoSidePrint = -1;
        dialog->setRelatedControlWithRecords(shown);
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), kLongEdgeItem);
        shown.settings.twoSidePrint = 0;
        dialog->setRelatedControlWithRecords(shown);
        EXPECT_EQ(user.sidesList().indexOfSelectedItem(), 0);
    });
}

} // namespace
} // namespace specialpages::test
