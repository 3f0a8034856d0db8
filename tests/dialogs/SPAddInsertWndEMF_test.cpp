#include "dialogs/SPAddInsertWndEMF.h"
#include "dialogs/inserts_fixture.h"
#include "platform/services/help_viewer.h"
#include "records/insert_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InsertsDialog : public InsertsDialogTest {};

// Add.

TEST_F(InsertsDialog, AddsOneInsertForEachPageOfTheText) {
    open();
    add([&](Window& inserts) {
        EXPECT_EQ(inserts.title(), "Add Inserts");
        EXPECT_TRUE(dialog->IsActived());
        EXPECT_TRUE(pages(inserts).type("3, 7-9"));
        EXPECT_TRUE(quantity(inserts).type("12"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_FALSE(dialog->IsActived());
    EXPECT_EQ(briefRecords(), (Brief{"3,0,12" + kDefaultPaper, "7,0,12" + kDefaultPaper,
                                     "8,0,12" + kDefaultPaper, "9,0,12" + kDefaultPaper}));
    EXPECT_EQ(face.beeps(), 0);
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(InsertsDialog, SortsTheNewInsertsAndKeepsRepeats) {
    open({insert_after(5)});
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("9,3,3"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1" + kDefaultPaper, "3,0,1" + kDefaultPaper,
                                     "5,0,1 0,0,0,false 210.0,297.0,1 false", "9,0,1" + kDefaultPaper}));
}

TEST_F(InsertsDialog, ANewInsertComesAfterThoseOfTheSamePage) {
    open({insert_after(3, 7)});
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("3"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,7 0,0,0,false 210.0,297.0,1 false", "3,0,1" + kDefaultPaper}));
}

TEST_F(InsertsDialog, AddsOneInsertBeforePageOne) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("3"));
        chooseBeforePageOne(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "");
        EXPECT_FALSE(pages(inserts).isEnabled());
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"0,1,1" + kDefaultPaper}));
}

TEST_F(InsertsDialog, PageZeroAmongPagesIsAnInsertBeforePageOne) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("5,0"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"0,1,1" + kDefaultPaper, "5,0,1" + kDefaultPaper}));
}

TEST_F(InsertsDialog, BesideAFrontCoverPageZeroIsDroppedInSilence) {
    open({cover_front()});
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("0-2"));
        ok(inserts);
    });
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("0"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), IsEmpty());
    ASSERT_EQ(records().size(), 3U);
    EXPECT_TRUE(records()[0].is(RecordType::cover));
    EXPECT_EQ(brief(records()[1]), "1,0,1" + kDefaultPaper);
    EXPECT_EQ(brief(records()[2]), "2,0,1" + kDefaultPaper);
}

TEST_F(InsertsDialog, BesideAFrontCoverAnInsertBeforePageOneIsNotAdded) {
    open({cover_front()});
    add([&](Window& inserts) {
        EXPECT_FALSE(options(inserts).menu().itemAtIndex(1)->isEnabled());
        EXPECT_FALSE(options(inserts).pick(std::vector<std::int64_t>{1}));
        options(inserts).selectItemAtIndex(1); // reached anyway
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), IsEmpty());
    ASSERT_EQ(records().size(), 1U);
    EXPECT_TRUE(records()[0].is(RecordType::cover));
}

TEST_F(InsertsDialog, AddsInTheChosenPaper) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pickPaper(inserts, kSize, "A3"));
        EXPECT_TRUE(pickPaper(inserts, kColor, "Blue"));
        EXPECT_TRUE(pickPaper(inserts, kType, "ThickPaper"));
        EXPECT_EQ(paperShown(inserts), "Paper Size: A3\nPaper Color: Blue\nPaper Type: Thick 1\n");
        EXPECT_TRUE(pages(inserts).type("4"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"4,0,1 0,1,8,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, AddsFromTheInterposer) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(popup(inserts, SPInstWndSelePaperTagID).pick(std::vector<std::int64_t>{kInterposer}));
        EXPECT_TRUE(pages(inserts).type("4"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"4,0,1 2,0,0,true 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, AddBeginsWithTheOneSelectedInsert) {
    open({from_interposer(insert_after(4)), with_paper(insert_after(6, 9), 2, 1, 8)});
    select({1});
    add([&](Window& inserts) {
        EXPECT_EQ(inserts.title(), "Add Inserts");
        EXPECT_EQ(pages(inserts).shownText(), "6");
        EXPECT_EQ(quantity(inserts).shownText(), "9");
        EXPECT_EQ(stepper(inserts).intValue(), 9);
        EXPECT_EQ(paperShown(inserts), "Paper Size: A4\nPaper Color: Blue\nPaper Type: Thick 1\n");
        EXPECT_TRUE(pages(inserts).type("8"));
        ok(inserts);
    });
    ASSERT_EQ(records().size(), 3U);
    EXPECT_EQ(brief(records()[1]), "6,0,9 2,1,8,false 210.0,297.0,1 true") << "still selected";
    EXPECT_EQ(brief(records()[2]), "8,0,9 2,1,8,false 210.0,297.0,1 false");
}

TEST_F(InsertsDialog, AddBeginsWithTheOneSelectedInsertBeforePageOne) {
    open({insert_before_page_one(3)});
    select({0});
    add([&](Window& inserts) {
        EXPECT_EQ(options(inserts).indexOfSelectedItem(), 1);
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_EQ(pages(inserts).shownText(), "0");
        EXPECT_EQ(quantity(inserts).shownText(), "3");
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"0,1,3 0,0,0,false 210.0,297.0,1 true", "0,1,3 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, AddBeginsWithTheDefaultsForAnyOtherSelection) {
    open({cover_front(), insert_after(4, 5), insert_after(6, 9)});
    for (const platform::RowSet& rows : {platform::RowSet{}, platform::RowSet{0}, platform::RowSet{1, 2}}) {
        select(rows);
        add([&](Window& inserts) {
            EXPECT_EQ(pages(inserts).shownText(), "");
            EXPECT_TRUE(pages(inserts).isEnabled());
            EXPECT_TRUE(options(inserts).isEnabled());
            EXPECT_EQ(options(inserts).indexOfSelectedItem(), 0);
            EXPECT_EQ(quantity(inserts).shownText(), "1");
            EXPECT_EQ(stepper(inserts).intValue(), 1);
            EXPECT_EQ(paperShown(inserts), "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n");
            cancel(inserts);
        });
    }
}

TEST_F(InsertsDialog, TheDefaultsFollowWhatTheDialogShowedBefore) {
    open({insert_before_page_one(77)});
    edit({0}, [&](Window& inserts) { cancel(inserts); });
    select({});
    add([&](Window& inserts) {
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_EQ(options(inserts).indexOfSelectedItem(), 0);
        EXPECT_TRUE(pages(inserts).isEnabled());
        EXPECT_TRUE(pages(inserts).type("2"));
        ok(inserts);
    });
    ASSERT_EQ(records().size(), 2U);
    EXPECT_EQ(brief(records()[1]), "2,0,1" + kDefaultPaper);
}

TEST_F(InsertsDialog, CancelAndEscapeLeaveTheListAsItWas) {
    open({insert_after(3, 2)});
    RecordList before;
    edit({0}, [&](Window& inserts) {
        before = records();
        EXPECT_EQ(inserts.title(), "Edit Inserts");
        EXPECT_TRUE(pages(inserts).type("9"));
        EXPECT_TRUE(quantity(inserts).type("55"));
        cancel(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_EQ(records(), before);
    EXPECT_FALSE(dialog->IsActived());
    edit({0}, [&](Window& inserts) {
        EXPECT_EQ(pages(inserts).shownText(), "3");
        EXPECT_EQ(quantity(inserts).shownText(), "2");
        EXPECT_TRUE(pages(inserts).type("9"));
        EXPECT_TRUE(inserts.performCancel());
    });
    EXPECT_EQ(records(), before);
    EXPECT_FALSE(canPress(specialPagesSPUndoButID));
}

TEST_F(InsertsDialog, UndoAfterOkBringsTheListBack) {
    open({insert_after(3, 2), insert_after(4, 2)});
    const RecordList before = records();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("1-3"));
        ok(inserts);
    });
    EXPECT_EQ(records().size(), 5U);
    undo();
    EXPECT_EQ(briefRecords().size(), before.size());
    EXPECT_EQ(brief(records()[0]).substr(0, 5), "3,0,2");
    EXPECT_EQ(brief(records()[1]).substr(0, 5), "4,0,2");
}

TEST_F(InsertsDialog, OkCountsAsAChangeAlsoWhenNothingIsDifferent) {
    open({insert_after(3, 2)});
    EXPECT_FALSE(canPress(specialPagesSPUndoButID));
    edit({0}, [&](Window& inserts) { ok(inserts); });
    EXPECT_TRUE(canPress(specialPagesSPUndoButID));
    EXPECT_EQ(briefRecords(), (Brief{"3,0,2 0,0,0,false 210.0,297.0,1 false"}));
}

// Edit of one insert.

TEST_F(InsertsDialog, EditOfOneShowsIt) {
    open({insert_after(3), with_paper(insert_after(7, 12), 2, 1, 8)});
    edit({1}, [&](Window& inserts) {
        EXPECT_EQ(inserts.title(), "Edit Inserts");
        EXPECT_EQ(pages(inserts).shownText(), "7");
        EXPECT_TRUE(pages(inserts).isEnabled());
        EXPECT_TRUE(options(inserts).isEnabled());
        EXPECT_EQ(quantity(inserts).shownText(), "12");
        EXPECT_EQ(stepper(inserts).intValue(), 12);
        EXPECT_EQ(paperShown(inserts), "Paper Size: A4\nPaper Color: Blue\nPaper Type: Thick 1\n");
        cancel(inserts);
    });
}

TEST_F(InsertsDialog, EditOfOneReplacesItInItsPlace) {
    open({insert_after(3, 5), insert_after(7), insert_after(9)});
    edit({1}, [&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("3"));
        EXPECT_TRUE(quantity(inserts).type("6"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,5 0,0,0,false 210.0,297.0,1 false", "3,0,6 0,0,0,false 210.0,297.0,1 false",
                     "9,0,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfOneWithTwoPagesMakesTwoOfIt) {
    open({insert_after(4, 8), insert_after(9)});
    edit({0}, [&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("3,5"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,8 0,0,0,false 210.0,297.0,1 false", "5,0,8 0,0,0,false 210.0,297.0,1 false",
                     "9,0,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfOneCanMoveItBeforePageOne) {
    open({insert_after(4, 8)});
    edit({0}, [&](Window& inserts) {
        chooseBeforePageOne(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "");
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"0,1,8 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfOneCanMoveItBehindAPage) {
    open({insert_before_page_one(8)});
    edit({0}, [&](Window& inserts) {
        EXPECT_EQ(options(inserts).indexOfSelectedItem(), 1);
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_EQ(pages(inserts).shownText(), "");
        chooseAfter(inserts);
        EXPECT_TRUE(pages(inserts).isEnabled());
        EXPECT_TRUE(pages(inserts).type("4"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"4,0,8 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditFindsTheInsertAmongOtherRecords) {
    open({cover_front(), exception("2"), insert_after(2), exception("5"), insert_after(8, 3), cover_back()});
    edit({4}, [&](Window& inserts) {
        EXPECT_EQ(pages(inserts).shownText(), "8");
        EXPECT_TRUE(pages(inserts).type("1"));
        ok(inserts);
    });
    ASSERT_EQ(records().size(), 6U);
    EXPECT_EQ(brief(records()[1]), "1,0,3 0,0,0,false 210.0,297.0,1 false");
    EXPECT_EQ(records()[2].text(RecordKey::page), "2");
    EXPECT_TRUE(records()[2].is(RecordType::exception));
    EXPECT_EQ(brief(records()[3]).substr(0, 5), "2,0,1");
}

// Edit of several inserts.

TEST_F(InsertsDialog, EditOfSeveralKeepsTheirPagesAndOptions) {
    open({insert_before_page_one(2), insert_after(3, 2), insert_after(8, 2)});
    edit({0, 1, 2}, [&](Window& inserts) {
        EXPECT_FALSE(options(inserts).isEnabled());
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_EQ(pages(inserts).shownText(), "3,8");
        EXPECT_EQ(quantity(inserts).shownText(), "2");
        EXPECT_FALSE(pages(inserts).type("1"));
        EXPECT_TRUE(quantity(inserts).type("4"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"0,1,4 0,0,0,false 210.0,297.0,1 false", "3,0,4 0,0,0,false 210.0,297.0,1 false",
                     "8,0,4 0,0,0,false 210.0,297.0,1 false"}));
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(InsertsDialog, EditOfSeveralBeforePageOneKeepsThemThere) {
    open({insert_before_page_one(2), insert_before_page_one(5)});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_EQ(options(inserts).indexOfSelectedItem(), 1);
        EXPECT_EQ(pages(inserts).shownText(), "");
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"0,1,1 0,0,0,false 210.0,297.0,1 false", "0,1,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfSeveralShowsNoChangeForWhatDiffersAndEachKeepsItsOwn) {
    open({with_paper(insert_after(3, 2), 0, 1, 0), with_paper(insert_after(8, 7), 2, 1, 0)});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_EQ(paperShown(inserts), "Paper Color: Blue\nPaper Type: Plain\n");
        const auto* sizes = popup(inserts, SPInstWndSelePaperTagID).menu().itemAtIndex(kSize)->submenu();
        EXPECT_TRUE(sizes->itemAtIndex(0)->state());
        EXPECT_FALSE(sizes->itemAtIndex(0)->isHidden());
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_TRUE(quantity(inserts).type("6"));
        EXPECT_TRUE(pickPaper(inserts, kColor, "Pink"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,6 0,8,0,false 210.0,297.0,1 false", "8,0,6 2,8,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfSeveralCanGiveThemOneSize) {
    open({with_paper(insert_after(3), 0, 0, 0), with_paper(insert_after(8), 2, 0, 0)});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_TRUE(pickPaper(inserts, kSize, "B4"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,1 1,0,0,false 210.0,297.0,1 false", "8,0,1 1,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfSeveralLeavesTheInterposerToThoseThatHaveIt) {
    open({insert_after(3), from_interposer(insert_after(8))});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_EQ(paperShown(inserts), message("No Change Infomation"));
        EXPECT_TRUE(quantity(inserts).type("2"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,2 0,0,0,false 210.0,297.0,1 false", "8,0,2 0,0,0,true 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfSeveralCanSendAllToTheInterposer) {
    open({insert_after(3), with_paper(insert_after(8), 2, 1, 8)});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_TRUE(popup(inserts, SPInstWndSelePaperTagID).pick(std::vector<std::int64_t>{kInterposer}));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(),
              (Brief{"3,0,1 2,0,0,true 210.0,297.0,1 false", "8,0,1 2,0,0,true 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, EditOfSeveralOfManyPagesIsNotHeldToTheLengthOfTheText) {
    RecordList many = inserts_after_each(250);
    open(many);
    platform::RowSet rows;
    for (std::size_t row = 0; row < many.size(); ++row) {
        rows.insert(row);
    }
    edit(rows, [&](Window& inserts) {
        EXPECT_GT(pages(inserts).shownText().size(), 99U);
        EXPECT_TRUE(quantity(inserts).type("3"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), IsEmpty());
    ASSERT_EQ(records().size(), 250U);
    EXPECT_EQ(brief(records()[0]), "1,0,3 0,0,0,false 210.0,297.0,1 false");
    EXPECT_EQ(brief(records()[249]), "250,0,3 0,0,0,false 210.0,297.0,1 false");
}

// Defaults.

TEST_F(InsertsDialog, DefaultsShowTheDefaultOfEveryControlAndCommitNothing) {
    open({with_paper(insert_before_page_one(9), 0, 1, 8)});
    edit({0}, [&](Window& inserts) {
        restore(inserts);
        EXPECT_EQ(options(inserts).indexOfSelectedItem(), 0);
        EXPECT_TRUE(pages(inserts).isEnabled());
        EXPECT_EQ(pages(inserts).shownText(), "");
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_EQ(stepper(inserts).intValue(), 1);
        EXPECT_EQ(paperShown(inserts), "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n");
        EXPECT_EQ(field(inserts, SPInstWndJobSetRefTagID).shownText(),
                  "Paper Size: A4\nPaper Color: White\nPaper Type: Plain");
        cancel(inserts);
    });
    EXPECT_EQ(brief(records()[0]).substr(0, 13), "0,1,9 0,1,8,f");
}

TEST_F(InsertsDialog, DefaultsAllowAgainWhatTheChoicesBeforeForbade) {
    open();
    add([&](Window& inserts) {
        const auto clear = [&] {
            return popup(inserts, SPInstWndSelePaperTagID)
                .menu()
                .itemAtIndex(kColor)
                ->submenu()
                ->itemAtIndex(position(inserts, kColor, "Clear"))
                ->isEnabled();
        };
        const bool before = clear();
        EXPECT_TRUE(pickPaper(inserts, kType, "Transparency"));
        EXPECT_NE(clear(), before);
        restore(inserts);
        EXPECT_EQ(clear(), before);
        cancel(inserts);
    });
}

TEST_F(InsertsDialog, DefaultsWhileSeveralAreEditedLeaveTheirPagesAndOptions) {
    open({insert_after(3, 5), insert_before_page_one(5).with(RecordKey::page, "0")});
    hold({insert_before_page_one(5), insert_after(3, 5)});
    edit({0, 1}, [&](Window& inserts) {
        restore(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "3");
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_FALSE(options(inserts).isEnabled());
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"0,1,1" + kDefaultPaper, "3,0,1" + kDefaultPaper}));
}

// What OK refuses.

TEST_F(InsertsDialog, AFailedOkLeavesEverythingAndAGoodOneFollows) {
    open({insert_after(9)});
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("9-7"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        EXPECT_TRUE(dialog->IsActived());
        EXPECT_EQ(inserts.firstResponder(), &pages(inserts));
        EXPECT_EQ(records().size(), 1U);
        EXPECT_TRUE(pages(inserts).type("7-8"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning49")));
    EXPECT_EQ(face.alerts()[0].messageText, "");
    EXPECT_EQ(face.alerts()[0].buttonTitle, "OK");
    EXPECT_EQ(briefRecords(), (Brief{"7,0,1" + kDefaultPaper, "8,0,1" + kDefaultPaper,
                                     "9,0,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(InsertsDialog, OnlyTheFirstControlThatRefusesWarns) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("9-7"));
        EXPECT_TRUE(quantity(inserts).type("0"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        EXPECT_THAT(warnings(), ElementsAre(message("Warning45")));
        EXPECT_TRUE(quantity(inserts).type("1"));
        ok(inserts);
        EXPECT_THAT(warnings(), ElementsAre(message("Warning45"), message("Warning49")));
        cancel(inserts);
    });
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(InsertsDialog, AFailedOkBeforePageOneAndAnotherLeaveOnePageZero) {
    open(inserts_after_each(250));
    list->setSummaryScrollViewStatus(kSummaryAdding);
    face.then([&](Window& inserts) {
        chooseBeforePageOne(inserts);
        ok(inserts);
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        const PageRanges zero{{0, 0}};
        EXPECT_EQ(dialog->getSPInstPageNumEditCtlPtr()->GetSortedPageArray(), zero);
        cancel(inserts);
    });
    dialog->ActivateWindow();
    EXPECT_THAT(warnings(), ElementsAre(message("Warning47"), message("Warning47")));
    EXPECT_EQ(records().size(), 250U);
}

TEST_F(InsertsDialog, APageListOfAFailedOkIsGoneBeforePageOne) {
    open(inserts_after_each(249));
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("300,301"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        chooseBeforePageOne(inserts);
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning47")));
    ASSERT_EQ(records().size(), 250U);
    EXPECT_EQ(brief(records()[0]), "0,1,1" + kDefaultPaper);
}

TEST_F(InsertsDialog, TheListTakes250InsertsAndTheAddButtonNoMore) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("1-251"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        EXPECT_TRUE(pages(inserts).type("1-249"));
        ok(inserts);
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning47")));
    EXPECT_EQ(records().size(), 249U);
    EXPECT_TRUE(canPress(specialPagesAddInsertsButID));
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("1,2"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        EXPECT_TRUE(pages(inserts).type("500"));
        ok(inserts);
    });
    EXPECT_EQ(face.alerts().size(), 2U);
    EXPECT_EQ(records().size(), 250U);
    EXPECT_FALSE(canPress(specialPagesAddInsertsButID));
    undo();
    EXPECT_TRUE(canPress(specialPagesAddInsertsButID));
}

TEST_F(InsertsDialog, With250InsertsOneCanBeEditedIntoOneButNotIntoTwo) {
    open(inserts_after_each(250));
    edit({0}, [&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("300,301"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        EXPECT_TRUE(pages(inserts).type("300"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning47")));
    EXPECT_EQ(records().size(), 250U);
    EXPECT_EQ(records()[249].text(RecordKey::page), "300");
}

TEST_F(InsertsDialog, WithNoTaskOkDoesNothing) {
    open({insert_after(3)});
    list->setSummaryScrollViewStatus(kSummaryIdle);
    face.then([&](Window& inserts) {
        EXPECT_EQ(inserts.title(), "Add Inserts") << "the nib's";
        EXPECT_TRUE(pages(inserts).type("5"));
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        cancel(inserts);
    });
    dialog->ActivateWindow();
    EXPECT_EQ(records().size(), 1U);
    EXPECT_FALSE(canPress(specialPagesSPUndoButID));
}

TEST_F(InsertsDialog, EditingWithNothingSelectedAddsThePages) {
    open({insert_after(3)});
    list->setSummaryScrollViewStatus(kSummaryEditing);
    face.then([&](Window& inserts) {
        EXPECT_EQ(pages(inserts).shownText(), "");
        EXPECT_TRUE(pages(inserts).type("5,6"));
        ok(inserts);
    });
    dialog->ActivateWindow();
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1 0,0,0,false 210.0,297.0,1 false", "5,0,1" + kDefaultPaper,
                                     "6,0,1" + kDefaultPaper}));
}

// Custom sizes.

class CustomInserts : public InsertsDialogTest {
  protected:
    static SpecialPageRecord custom(const SpecialPageRecord& record, const std::string& width,
                                    const std::string& length, const std::string& unit) {
        return record.with(RecordKey::width, width)
            .with(RecordKey::length, length)
            .with(RecordKey::longmeasure, unit);
    }
    /// Index of the PPD's custom size.
    std::string customIndex() {
        std::int64_t index = -1;
        add([&](Window& inserts) {
            index = position(inserts, kSize, "Custom") - 1;
            cancel(inserts);
        });
        EXPECT_GT(index, 0);
        return std::to_string(index);
    }
};

TEST_F(CustomInserts, ACustomSizeSurvivesAnEdit) {
    open();
    const std::string index = customIndex();
    hold({custom(insert_after(3).with(RecordKey::pagesize, index), "150.0", "333.3", "0")});
    edit({0}, [&](Window& inserts) {
        EXPECT_EQ(dialog->getInsertsCustomPageWidth(), "150.0");
        EXPECT_EQ(dialog->getInsertsCustomPageLength(), "333.3");
        EXPECT_EQ(dialog->getInsertsCustomPageSizeLongMeasure(), 0);
        EXPECT_TRUE(quantity(inserts).type("2"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,2 " + index + ",0,0,false 150.0,333.3,0 false"}));
}

TEST_F(CustomInserts, AFixedSizeTakesTheDefaultCustomSize) {
    open();
    const std::string index = customIndex();
    hold({custom(insert_after(3).with(RecordKey::pagesize, index), "150.0", "333.3", "0")});
    edit({0}, [&](Window& inserts) {
        EXPECT_TRUE(pickPaper(inserts, kSize, "A3"));
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST_F(CustomInserts, CustomSizesThatDifferStayEachRecordsOwn) {
    open();
    const std::string index = customIndex();
    const auto one = insert_after(3).with(RecordKey::pagesize, index);
    const auto other = insert_after(5).with(RecordKey::pagesize, index);
    hold({custom(one, "150.0", "333.3", "1"), custom(other, "160.0", "333.3", "1")});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_EQ(dialog->getInsertsCustomPageWidth(), "-1");
        EXPECT_EQ(dialog->getInsertsCustomPageLength(), "333.3");
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1 " + index + ",0,0,false 150.0,333.3,1 false",
                                     "5,0,1 " + index + ",0,0,false 160.0,333.3,1 false"}));
    hold({custom(one, "150.0", "333.3", "0"), custom(other, "160.0", "300.0", "1")});
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_EQ(dialog->getInsertsCustomPageWidth(), "-1");
        EXPECT_EQ(dialog->getInsertsCustomPageLength(), "-1");
        EXPECT_EQ(dialog->getInsertsCustomPageSizeLongMeasure(), -1);
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1 " + index + ",0,0,false 150.0,333.3,0 false",
                                     "5,0,1 " + index + ",0,0,false 160.0,300.0,1 false"}));
}

// Help.

TEST_F(InsertsDialog, HelpOpensThePageOfTheInserts) {
    open();
    std::vector<std::string> opened;
    const auto before =
        platform::setHelpOpener([&](std::string_view, std::string_view page, std::string_view) {
            opened.emplace_back(page);
            return platform::noErr;
        });
    add([&](Window& inserts) {
        click(inserts, SPInstWndHelpBtnTagID);
        EXPECT_TRUE(inserts.isOpen());
        cancel(inserts);
    });
    platform::setHelpOpener(before);
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_NE(opened[0].find("SpecialPagesInsert_Default01.htm"), std::string::npos) << opened[0];
}

// The window's own operations.

TEST_F(InsertsDialog, FindsTheInsertAtAPage) {
    open({insert_after(3), insert_after(5), insert_after(5)});
    add([&](Window& inserts) {
        const auto* button =
            dynamic_cast<SPAddInsertWndOKButCtrlEMF*>(dialog->GetPanelControl(SPInstWndOKBtnTagID));
        ASSERT_NE(button, nullptr);
        std::size_t index = 9;
        EXPECT_TRUE(button->ISRecordedCurrentPage("5", &index));
        EXPECT_EQ(index, 1U);
        EXPECT_FALSE(button->ISRecordedCurrentPage("4", &index));
        EXPECT_EQ(index, 1U);
        EXPECT_TRUE(button->ISRecordedCurrentPage("03", nullptr));
        cancel(inserts);
    });
}

TEST_F(InsertsDialog, HoldsAWorkingCopyWhileItIsOpen) {
    open({insert_after(3), cover_back()});
    add([&](Window& inserts) {
        ASSERT_EQ(dialog->getInsertDataRecordsPtr()->size(), 1U);
        EXPECT_EQ(dialog->getInsertDataRecordsPtr()->front().text(RecordKey::selected), "false");
        EXPECT_EQ(dialog->getSortedInsertDataRecordPtr()->size(), 1U);
        dialog->replaceOneInsertDataRecord(insert_after(8), 0);
        dialog->replaceOneInsertDataRecord(insert_after(8), 1);
        EXPECT_EQ(*dialog->getInsertDataRecordsPtr(), RecordList{insert_after(8)});
        dialog->removeAllInsertDataRecords();
        EXPECT_THAT(*dialog->getInsertDataRecordsPtr(), IsEmpty());
        EXPECT_EQ(records().size(), 2U);
        cancel(inserts);
    });
    add([&](Window& inserts) {
        EXPECT_EQ(dialog->getInsertDataRecordsPtr()->size(), 1U);
        cancel(inserts);
    });
}

TEST_F(InsertsDialog, TheTabStockValueGoesInAndOut) {
    open();
    EXPECT_EQ(dialog->getTabStockValue(), 3);
    pane->setTabStockValue(5);
    add([&](Window& inserts) {
        EXPECT_EQ(dialog->getTabStockValue(), 5);
        dialog->setTabStockValue(7);
        cancel(inserts);
    });
    EXPECT_EQ(pane->getTabStockValue(), 5);
    add([&](Window& inserts) {
        dialog->setTabStockValue(8);
        EXPECT_TRUE(pages(inserts).type("1"));
        ok(inserts);
    });
    EXPECT_EQ(pane->getTabStockValue(), 8);
}

TEST_F(InsertsDialog, ShowsRecordsThatNoDialogMakesAsFarAsItCan) {
    const std::string huge = "2147483647";
    const std::string paper = " 0,0,0,false 210.0,297.0,1 false";
    struct Odd {
        SpecialPageRecord record;
        std::string pages;
        std::int32_t quantity;
        Brief afterOk; ///< empty: refused
    };
    open();
    for (const Odd& odd : {
             Odd{insert(huge, huge, 2147483647), huge, 9999, {}},
             Odd{insert("-2", "-5", -5), "-2", 1, {"1,0,1" + paper, "2,0,1" + paper}},
             Odd{insert("abc", "x", 0), "", 1, {}},
             Odd{insert("9", "-1", -1).with(RecordKey::width, "-1").with(RecordKey::longmeasure, "-1"),
                 "9",
                 1,
                 {"9,0,1" + paper}},
             Odd{SpecialPageRecord{{RecordKey::type, "1"}}, "", 1, {}},
         }) {
        SCOPED_TRACE(odd.record.text(RecordKey::page));
        hold({odd.record});
        edit({0}, [&](Window& inserts) {
            EXPECT_EQ(options(inserts).indexOfSelectedItem(), 0);
            EXPECT_EQ(pages(inserts).shownText(), odd.pages);
            EXPECT_EQ(stepper(inserts).intValue(), odd.quantity);
            EXPECT_EQ(quantity(inserts).shownText(), std::to_string(odd.quantity));
            ok(inserts);
            EXPECT_EQ(inserts.isOpen(), odd.afterOk.empty());
            if (inserts.isOpen()) {
                EXPECT_EQ(warnings().back(), message("Warning44"));
                cancel(inserts);
            }
        });
        if (!odd.afterOk.empty()) {
            EXPECT_EQ(briefRecords(), odd.afterOk);
        }
        hold({odd.record, odd.record});
        edit({0, 1}, [&](Window& inserts) {
            EXPECT_FALSE(pages(inserts).isEnabled());
            ok(inserts);
            if (inserts.isOpen()) {
                cancel(inserts);
            }
        });
        EXPECT_EQ(records().size(), 2U);
        EXPECT_EQ(records()[0].text(RecordKey::page), odd.record.text(RecordKey::page));
    }
}

TEST_F(InsertsDialog, CancelInTheAdvancedWindowLeavesTheInsertAsItWas) {
    open({insert_after(3)});
    edit({0}, [&](Window& inserts) {
        face.then([](Window& advanced) {
            EXPECT_EQ(advanced.name(), "SPAdvSeleWndRef");
            EXPECT_EQ(platform::Application::shared().modalDepth(), 2U);
            EXPECT_TRUE(advanced.performCancel());
        });
        EXPECT_TRUE(popup(inserts, SPInstWndSelePaperTagID).pick(std::vector<std::int64_t>{6}));
        EXPECT_EQ(platform::Application::shared().modalDepth(), 1U);
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"3,0,1 0,0,0,false 210.0,297.0,1 false"}));
}

TEST(InsertsWithoutANib, DoesNothingWithoutWindowPaneOrList) {
    SPAddInsertWndEMF dialog;
    dialog.CreatePanel(nullptr, "Add Inserts Windows");
    EXPECT_EQ(dialog.controlCount(), 0);
    EXPECT_EQ(dialog.ActivateWindow(), 0);
    EXPECT_FALSE(dialog.IsActived());
    EXPECT_EQ(dialog.getStatus(), 0);
    EXPECT_FALSE(dialog.severalAreEdited());
    EXPECT_EQ(dialog.getInsertsCustomPageWidth(), std::nullopt);
    EXPECT_EQ(dialog.getInsertsCustomPageLength(), std::nullopt);
    EXPECT_EQ(dialog.getInsertsCustomPageSizeLongMeasure(), 2);
    EXPECT_EQ(dialog.paperTitles(), nullptr);
    EXPECT_FALSE(dialog.doTabStockSetCheckByIndex(0));
    dialog.RestoreDefaultValue();
    dialog.setRelatedCtrlWithRecordsPage("3", {});
    Window window;
    dialog.CreatePanel(&window, "Add Inserts Windows");
    EXPECT_EQ(dialog.controlCount(), 0) << "no view has a tag";
    EXPECT_EQ(dialog.ActivateWindow(), 0) << "no pane";
    EXPECT_FALSE(window.isOpen());
    SPAddInsertWndOKButCtrlEMF button;
    EXPECT_FALSE(button.UIEventHandler());
    EXPECT_FALSE(button.ISRecordedCurrentPage("1", nullptr));
}

} // namespace
} // namespace specialpages::test
