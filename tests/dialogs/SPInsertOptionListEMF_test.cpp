#include "dialogs/SPInsertOptionListEMF.h"
#include "dialogs/inserts_fixture.h"
#include "dialogs/inserts_tables.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;

class InsertOptions : public InsertsDialogTest {
  protected:
    static bool offersBeforePageOne(platform::View& in) {
        return options(in).menu().itemAtIndex(1)->isEnabled();
    }
};

TEST_F(InsertOptions, BeforePageOneIsOfferedUnlessThereIsAFrontCover) {
    open();
    for (const auto& [held, offered] : std::vector<std::pair<RecordList, bool>>{
             {{}, true},
             {{cover_back()}, true},
             {{cover_front()}, false},
             {{cover_front(), cover_back()}, false},
             {{exception("1"), insert_after(2)}, true},
         }) {
        hold(held);
        add([&](Window& inserts) {
            EXPECT_EQ(offersBeforePageOne(inserts), offered) << held.size();
            EXPECT_TRUE(options(inserts).menu().itemAtIndex(0)->isEnabled());
            restore(inserts);
            EXPECT_EQ(offersBeforePageOne(inserts), offered) << "after the defaults";
            cancel(inserts);
        });
    }
}

TEST_F(InsertOptions, GoingBackAndForthEmptiesThePagesOnTheWay) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("3"));
        chooseAfter(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "3") << "the item was chosen already";
        chooseBeforePageOne(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "");
        EXPECT_FALSE(pages(inserts).isEnabled());
        EXPECT_FALSE(pages(inserts).type("5"));
        chooseAfter(inserts);
        EXPECT_TRUE(pages(inserts).isEnabled());
        EXPECT_EQ(pages(inserts).shownText(), "");
        cancel(inserts);
    });
}

TEST_F(InsertOptions, ChoosingBeforePageOneAgainLeavesThePages) {
    open();
    add([&](Window& inserts) {
        chooseBeforePageOne(inserts);
        pages(inserts).setStringValue("7");
        chooseBeforePageOne(inserts);
        EXPECT_EQ(pages(inserts).shownText(), "7");
        cancel(inserts);
    });
}

TEST_F(InsertOptions, WhileSeveralAreEditedPagesStayDisabledWhateverIsAskedFirst) {
    open({insert_after(3), insert_after(5)});
    edit({0, 1}, [&](Window& inserts) {
        auto& list = *dialog->getSPInstOptionListCtlPtr();
        auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        for (const bool inUse : {true, false}) {
            dialog->ChangeActivedStatus(inUse);
            text.SetToEnable();
            list.SetUIValueToIniData();
            list.DoControlConstrain();
            EXPECT_FALSE(text.BEnable()) << inUse;
        }
        dialog->ChangeActivedStatus(true);
        EXPECT_FALSE(list.BEnable());
        EXPECT_TRUE(list.SetDefaultValueToUI());
        EXPECT_FALSE(list.BEnable());
        EXPECT_TRUE(list.SetControlValueToDefault());
        EXPECT_TRUE(list.BEnable());
        cancel(inserts);
    });
}

TEST_F(InsertOptions, OutOfUseEveryAskingSetsThePageText) {
    open({insert_after(3)});
    edit({0}, [&](Window& inserts) {
        auto& list = *dialog->getSPInstOptionListCtlPtr();
        auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        text.SetToDisable();
        list.DoControlConstrain();
        EXPECT_FALSE(text.BEnable()) << "the item is the same and the dialog in use";
        dialog->ChangeActivedStatus(false);
        list.DoControlConstrain();
        EXPECT_TRUE(text.BEnable());
        options(inserts).selectItemAtIndex(1);
        list.DoControlConstrain();
        EXPECT_FALSE(text.BEnable());
        dialog->ChangeActivedStatus(true);
        cancel(inserts);
    });
}

TEST_F(InsertOptions, AfterSeveralTheListIsFreeAgain) {
    open({insert_after(3), insert_after(5)});
    edit({0, 1}, [&](Window& inserts) { ok(inserts); });
    edit({0}, [&](Window& inserts) {
        EXPECT_TRUE(options(inserts).isEnabled());
        EXPECT_TRUE(pages(inserts).isEnabled());
        cancel(inserts);
    });
}

TEST(InsertOptionsAlone, WithoutViewOrWindowNothingHappens) {
    SPInsertOptionListEMF list;
    list.CreateControl(nullptr, &insertOptionLboxIniData, &SPInstOptionListCnstrnInfoPtr, nullptr, {});
    EXPECT_EQ(list.GetOptionSelection(), -1);
    EXPECT_FALSE(list.BEnable());
    EXPECT_FALSE(list.SetControlValueToUI());
    EXPECT_TRUE(list.SetDefaultValueToUI());
    EXPECT_TRUE(list.SetControlValueToDefault());
    list.UpdateBeforePageOneStatus();
    EXPECT_TRUE(list.UIEventHandler());
    EXPECT_EQ(list.DoControlConstrain(), 0);
}

} // namespace
} // namespace specialpages::test
