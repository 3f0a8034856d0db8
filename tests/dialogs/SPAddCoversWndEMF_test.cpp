#include "dialogs/SPAddCoversWndEMF.h"
#include "dialogs/covers_fixture.h"
#include "dialogs/covers_tables.h"
#include "records/record_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace specialpages::test {
namespace {

using platform::Window;

/// What a record says, in short: page, printing, size, color, type, interposer, option, selected.
std::string brief(const SpecialPageRecord& record) {
    std::string text;
    for (const RecordKey key :
         {RecordKey::page, RecordKey::printingoptions, RecordKey::pagesize, RecordKey::pagecolor,
          RecordKey::pagetype, RecordKey::interposer, RecordKey::coversoption, RecordKey::selected}) {
        text += (text.empty() ? "" : ",") + record.text(key);
    }
    return text;
}
std::vector<std::string> brief(const RecordList& records) {
    std::vector<std::string> all;
    for (const SpecialPageRecord& record : records) {
        all.push_back(brief(record));
    }
    return all;
}
using Brief = std::vector<std::string>;

class CoversDialog : public CoversDialogTest {};

TEST_F(CoversDialog, AddsAFrontCoverWithTheDialogsDefaults) {
    open();
    add([&](Window& covers) {
        EXPECT_EQ(covers.title(), "Add Covers");
        EXPECT_TRUE(dialog->IsActived());
        option(covers, CoverOption::frontOnly);
        ok(covers);
    });
    EXPECT_FALSE(dialog->IsActived());
    EXPECT_EQ(brief(records()), (Brief{"0,0,2,0,0,false,1,false"}));
    EXPECT_EQ(records()[0].text(RecordKey::width), "210.0");
    EXPECT_EQ(records()[0].text(RecordKey::length), "297.0");
    EXPECT_EQ(records()[0].text(RecordKey::longmeasure), "1");
}

TEST_F(CoversDialog, CancelLeavesTheListAsItWas) {
    open({cover_front()});
    RecordList before;
    edit([&](Window& covers) {
        before = records();
        EXPECT_EQ(covers.title(), "Edit Covers");
        option(covers, CoverOption::different);
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kColor, "Blue"));
        cancel(covers);
    });
    EXPECT_FALSE(dialog->IsActived());
    EXPECT_EQ(brief(records()), brief(before));
    edit([&](Window& covers) {
        EXPECT_EQ(popup(covers, spCoversWndCoverOptionListID).indexOfSelectedItem(), 1);
        cancel(covers);
    });
}

TEST_F(CoversDialog, EscapeIsCancel) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        EXPECT_TRUE(covers.performCancel());
    });
    EXPECT_TRUE(records().empty());
    EXPECT_FALSE(dialog->IsActived());
}

TEST_F(CoversDialog, NoCoversRemovesTheCoversAndCanBeUndone) {
    open({cover_front(), insert_after(3)});
    const auto before = brief(records());
    edit([&](Window& covers) {
        option(covers, CoverOption::none);
        ok(covers);
    });
    EXPECT_EQ(records().size(), 1U);
    EXPECT_TRUE(records()[0].is(RecordType::insert));
    click(*pane->panelView(), specialPagesSPUndoButID);
    EXPECT_EQ(records().size(), before.size());
    EXPECT_TRUE(records()[0].is(RecordType::cover));
}

TEST_F(CoversDialog, NoCoversWhereThereWereNoneIsNoChange) {
    open({insert_after(3)});
    add([&](Window& covers) { ok(covers); });
    EXPECT_EQ(records().size(), 1U);
    EXPECT_FALSE(pane->panelView()->viewWithTag(specialPagesSPUndoButID)->isEnabled())
        << "nothing was backed up";
    add([&](Window& covers) {
        option(covers, CoverOption::backOnly);
        ok(covers);
    });
    EXPECT_TRUE(pane->panelView()->viewWithTag(specialPagesSPUndoButID)->isEnabled());
}

TEST_F(CoversDialog, SameGivesBothCoversTheFrontsPaperAndPrinting) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::same);
        EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {1}));
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kColor, "Blue"));
        EXPECT_EQ(text(covers, spCoversWndBackCoverPageViewID),
                  text(covers, spCoversWndFrontCoverPageViewID));
        EXPECT_EQ(popup(covers, spCoversWndBackPrintingOptionListID).indexOfSelectedItem(), 1);
        ok(covers);
    });
    EXPECT_EQ(brief(records()), (Brief{"0,1,2,1,0,false,3,false", "1,1,2,1,0,false,3,false"}));
}

TEST_F(CoversDialog, DifferentTakesEachSidesOwnPaper) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::different);
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kColor, "Blue"));
        EXPECT_TRUE(pickPart(covers, spCoversWndBackCoverPageListID, kSize, "A3"));
        EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {3}));
        ok(covers);
    });
    EXPECT_EQ(brief(records()), (Brief{"0,3,2,1,0,false,4,false", "1,0,0,0,0,false,4,false"}));
}

TEST_F(CoversDialog, ASideThatStillExistsKeepsItsSelection) {
    open({cover_front(), insert_after(3)});
    auto* table = dynamic_cast<platform::TableView*>(pane->panelView()->viewWithTag(104));
    ASSERT_TRUE(table->userSelects({0}));
    add([&](Window& covers) {
        option(covers, CoverOption::different);
        ok(covers);
    });
    EXPECT_EQ(brief(list->records().front()), "0,0,0,0,0,false,4,true");
    EXPECT_EQ(brief(list->records().back()), "1,0,2,0,0,false,4,true") << "pulled in by the selection";
    EXPECT_EQ(table->selectedRowIndexes(), (RowSet{0, 2})) << "a selected cover pulls the other one in";
    add([&](Window& covers) {
        option(covers, CoverOption::backOnly);
        ok(covers);
    });
    EXPECT_EQ(brief(list->records().back()), "1,0,2,0,0,false,2,true");
}

TEST_F(CoversDialog, AnEditEndsWithNothingSelected) {
    open({cover_front()});
    edit([&](Window& covers) { ok(covers); });
    auto* table = dynamic_cast<platform::TableView*>(pane->panelView()->viewWithTag(104));
    EXPECT_TRUE(table->selectedRowIndexes().empty());
    EXPECT_EQ(records()[0].text(RecordKey::selected), "false");
}

TEST_F(CoversDialog, AFrontCoverRemovesTheInsertsBeforePageOneAndABackCoverDoesNot) {
    const RecordList inserts{insert("0", "1", 1), insert_after(3)};
    open(inserts);
    add([&](Window& covers) {
        option(covers, CoverOption::backOnly);
        ok(covers);
    });
    EXPECT_EQ(records().size(), 3U);
    for (const CoverOption front : {CoverOption::frontOnly, CoverOption::same, CoverOption::different}) {
        const RowSet none;
        list->undoRequest(&inserts, &none);
        add([&](Window& covers) {
            option(covers, front);
            ok(covers);
        });
        EXPECT_EQ(records_of_type(records(), 1).size(), 1U) << static_cast<int>(front);
    }
}

TEST_F(CoversDialog, UndoTakesTheFrontCoverBackTogetherWithWhatItRemoved) {
    const RecordList inserts{insert("0", "1", 1), insert_after(3)};
    open(inserts);
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        ok(covers);
    });
    ASSERT_EQ(records().size(), 2U);
    EXPECT_TRUE(is_front_cover(records()[0]));
    EXPECT_EQ(records()[1].text(RecordKey::page), "3");
    click(*pane->panelView(), specialPagesSPUndoButID);
    ASSERT_EQ(records().size(), 2U);
    EXPECT_EQ(records()[0].text(RecordKey::insertoption), "1");
    EXPECT_EQ(records()[0].text(RecordKey::page), "0");
    EXPECT_EQ(records()[1].text(RecordKey::page), "3");
}

TEST_F(CoversDialog, APrintedCoverHasTheJobsSizeAndNoInterposer) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kSize, "A3"));
        EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {1}));
        const platform::Menu& menu = popup(covers, spCoversWndFrontCoverPageListID).menu();
        EXPECT_FALSE(menu.itemAtIndex(kSize)->isEnabled());
        EXPECT_FALSE(menu.itemAtIndex(kInterposer)->isEnabled());
        EXPECT_FALSE(pickPart(covers, spCoversWndFrontCoverPageListID, kSize, "A3"));
        ok(covers);
    });
    EXPECT_EQ(brief(records()), (Brief{"0,1,2,0,0,false,1,false"})) << "A4, the size of the job";
}

TEST_F(CoversDialog, AnInterposerCoverCannotBePrintedOn) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        EXPECT_TRUE(pick(covers, spCoversWndFrontCoverPageListID, {kInterposer}));
        for (const std::int64_t printing : {1, 2, 3}) {
            EXPECT_FALSE(pick(covers, spCoversWndFrontPrintingOptionListID, {printing})) << printing;
        }
        EXPECT_EQ(text(covers, spCoversWndFrontCoverPageViewID), "Interposer (Tray 8)\n");
        ok(covers);
    });
    EXPECT_EQ(brief(records()), (Brief{"0,0,2,0,0,true,1,false"}));
}

TEST_F(CoversDialog, RestoreShowsTheDefaultsAndCommitsNothing) {
    open({cover_front().with(RecordKey::pagecolor, "1")});
    edit([&](Window& covers) {
        click(covers, spCoversWndDefaultsButtonID);
        EXPECT_EQ(popup(covers, spCoversWndCoverOptionListID).indexOfSelectedItem(), 0);
        EXPECT_FALSE(covers.viewWithTag(spCoversWndFrontCoverPageListID)->isEnabled());
        EXPECT_EQ(text(covers, spCoversWndFrontCoverPageViewID), "");
        cancel(covers);
    });
    EXPECT_EQ(records()[0].text(RecordKey::pagecolor), "1");
}

/// How often each view was disabled, less how often it was enabled again.
std::vector<std::int32_t> counts(SPAddCoversWndEMF& dialog) {
    std::vector<std::int32_t> all;
    for (const ControlTag tag : spCoversNoCoversDisableCtrlArray) {
        all.push_back(dialog.GetPanelControl(tag)->constrainCount());
    }
    return all;
}

TEST_F(CoversDialog, CountersFollowTheOptionEventByEvent) {
    using Counts = std::vector<std::int32_t>; // front paper, front printing, back paper, back printing, views
    open();
    add([&](Window& covers) {
        EXPECT_EQ(counts(*dialog), (Counts{1, 1, 1, 1, 1, 1})) << "opened without covers";
        option(covers, CoverOption::frontOnly);
        EXPECT_EQ(counts(*dialog), (Counts{0, 0, 1, 1, 0, 1}));
        option(covers, CoverOption::backOnly);
        EXPECT_EQ(counts(*dialog), (Counts{1, 1, 0, 0, 1, 0}));
        option(covers, CoverOption::same);
        EXPECT_EQ(counts(*dialog), (Counts{0, 0, 1, 1, 0, 0}));
        option(covers, CoverOption::same);
        EXPECT_EQ(counts(*dialog), (Counts{0, 0, 1, 1, 0, 0})) << "the same item again";
        option(covers, CoverOption::different);
        EXPECT_EQ(counts(*dialog), (Counts{0, 0, 0, 0, 0, 0}));
        option(covers, CoverOption::none);
        EXPECT_EQ(counts(*dialog), (Counts{1, 1, 1, 1, 1, 1}));
        cancel(covers);
    });
    add([&](Window& covers) {
        EXPECT_EQ(counts(*dialog), (Counts{1, 1, 1, 1, 1, 1})) << "each opening begins anew";
        cancel(covers);
    });
}

TEST_F(CoversDialog, TabStockValueFollowsThePaneAndGoesBackWithOK) {
    open();
    EXPECT_EQ(dialog->getTabStockValue(), 3);
    pane->setTabStockValue(7);
    add([&](Window& covers) {
        EXPECT_EQ(dialog->getTabStockValue(), 7);
        dialog->setTabStockValue(5);
        cancel(covers);
    });
    EXPECT_EQ(pane->getTabStockValue(), 7);
    add([&](Window& covers) {
        dialog->setTabStockValue(9);
        ok(covers);
    });
    EXPECT_EQ(pane->getTabStockValue(), 9);
}

TEST_F(CoversDialog, CustomSizesAreAskedBySide) {
    open();
    dialog->getSPCoverWndFrontSelectPaperListPtr();
    EXPECT_EQ(dialog->getCoversCustomPageWidthByType(0), "210.0");
    EXPECT_EQ(dialog->getCoversCustomPageLengthByType(1), "297.0");
    EXPECT_EQ(dialog->getCoversCustomPageSizeLongMeasure(0), 1);
    for (const std::int32_t neither : {-1, 2}) {
        EXPECT_EQ(dialog->getCoversCustomPageWidthByType(neither), std::nullopt);
        EXPECT_EQ(dialog->getCoversCustomPageLengthByType(neither), std::nullopt);
        EXPECT_EQ(dialog->getCoversCustomPageSizeLongMeasure(neither), 2);
    }
}

TEST_F(CoversDialog, TheRecordsOfASavedJobComeBackIntoTheDialog) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::different);
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kColor, "Blue"));
        EXPECT_TRUE(pick(covers, spCoversWndBackCoverPageListID, {kInterposer}));
        ok(covers);
    });
    const auto saved = brief(records());
    EXPECT_TRUE(pane->saveValuesAndReturnError(nullptr));
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    edit([&](Window& covers) {
        EXPECT_EQ(popup(covers, spCoversWndCoverOptionListID).indexOfSelectedItem(), 4);
        EXPECT_EQ(text(covers, spCoversWndBackCoverPageViewID), "Interposer (Tray 8)\n");
        ok(covers);
    });
    EXPECT_EQ(records().size(), saved.size());
    EXPECT_EQ(records()[0].text(RecordKey::pagecolor), "1");
    EXPECT_EQ(records()[1].text(RecordKey::interposer), "true");
}

TEST(CoversDialogAlone, DoesNothingWithoutWindowPaneOrList) {
    SPAddCoversWndEMF dialog;
    dialog.CreatePanel(nullptr, "Add Covers Windows");
    EXPECT_EQ(dialog.controlCount(), 0);
    EXPECT_EQ(dialog.ActivateWindow(), 0);
    EXPECT_EQ(dialog.option(), CoverOption::none);
    EXPECT_FALSE(dialog.doTabStockSetCheckByIndex(0));
    EXPECT_EQ(dialog.paperTitles(), nullptr);
    dialog.commitRecords();
    Window window;
    dialog.CreatePanel(&window, "Add Covers Windows");
    EXPECT_EQ(dialog.ActivateWindow(), 0) << "without a pane";
    EXPECT_FALSE(window.isOpen());
    SPAddCoversWndOKButCtrlEMF ok;
    EXPECT_TRUE(ok.UIEventHandler());
    EXPECT_FALSE(ok.coverRecordIsChagned());
}

TEST(CoversTables, EveryTagOfARowIsAControlOfTheWindow) {
    std::set<ControlTag> tags;
    const auto collect = [&tags](const ConstraintRecord& record) {
        for (const ConstraintRows rows : {record.disable, record.hide, record.update}) {
            for (const ConstraintRow row : rows) {
                tags.insert(row.begin(), row.end());
            }
        }
    };
    collect(spCoversOptionLboxCnstrnInfoPtr);
    collect(spCoversFrontPrintingCnstrnInfo);
    collect(spCoversBackPrintingCnstrnInfo);
    collect(spCoversFrontPaperCnstrnInfo);
    collect(spCoversBackPaperCnstrnInfo);
    EXPECT_THAT(tags, ::testing::ElementsAre(203, 204, 206, 208, 209, 211));
}

} // namespace
} // namespace specialpages::test
