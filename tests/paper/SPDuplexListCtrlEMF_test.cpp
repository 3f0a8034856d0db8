#include "paper/SPDuplexListCtrlEMF.h"
#include "paper/SPTwoSidePrintListCtrlEMF.h"
#include "paper/paper_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::StrEq;

class SidednessOfPaper : public PaperMenuTest {
  protected:
    SidednessOfPaper() {
        ppd.constraint("PageSize", "A3", "Duplex", "DuplexTumble")
            .constraint("PageSize", "A3", "Duplex", "None")
            .constraint("PageSize", "A3", "Duplex", "DuplexNoTumble")
            .constraint("NVMediaColor", "Blue", "Duplex", "DuplexNoTumble")
            .constraint("MediaType", "Thick", "Duplex", "DuplexTumble")
            .constraint("Duplex", "DuplexTumble", "MediaType", "Transparency");
        sides.setTag(kSidednessTag);
    }
    void open_both(ControlTag related = kMenuTag, int items = 4) {
        for (int i = 0; i < items; ++i) {
            sides.addItemWithTitle(std::to_string(i));
        }
        lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                            related);
        pane.RunTimeAddNewControl(&lists);
        open(menu);
    }
    void choose(std::int32_t size, std::int32_t color, std::int32_t type) {
        const PaperControlValue value{size, color, type, 0};
        menu.setControlValue(&value);
        menu.updateSelectionArray();
        lists.UpdateConflictsPanelControlFromPPD(ppd.file());
    }
    std::vector<std::int64_t> disabled_sides() {
        std::vector<std::int64_t> all;
        for (std::int64_t i = 0; i < sides.numberOfItems(); ++i) {
            if (!sides.menu().itemAtIndex(i)->isEnabled()) {
                all.push_back(i);
            }
        }
        return all;
    }
    platform::PopUpButton sides;
    SPDuplexListCtrlEMF lists;
    SPSelectPaperListCtrlEMF menu;
};

TEST_F(SidednessOfPaper, EachPartOfThePaperForbids) {
    open_both();
    choose(1, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
    choose(1, 1, 0);
    EXPECT_THAT(disabled_sides(), ElementsAre(3));
    EXPECT_EQ(sides.menu().itemAtIndex(3)->toolTip(), "Not with Paper Color: Light Blue");
    choose(1, 0, 1);
    EXPECT_THAT(disabled_sides(), ElementsAre(2));
    choose(1, 0, 3);
    EXPECT_THAT(disabled_sides(), IsEmpty()) << "that constraint is the other direction";
    EXPECT_EQ(sides.menu().itemAtIndex(2)->toolTip(), "");
}

TEST_F(SidednessOfPaper, PositionZeroStaysAsItWas) {
    open_both();
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), ElementsAre(1, 2, 3));
    sides.menu().itemAtIndex(0)->setEnabled(false);
    choose(1, 0, 0);
    EXPECT_THAT(disabled_sides(), ElementsAre(0));
}

TEST_F(SidednessOfPaper, RecordsIndexesForbidNothing) {
    open_both();
    select_records({with_paper(exception("1"), 0, 1, 1)}, 1);
    choose(-1, -1, -1);
    EXPECT_THAT(disabled_sides(), IsEmpty());
}

TEST_F(SidednessOfPaper, NeedsARelatedPaperMenuAndTwoItems) {
    open_both(0);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
    lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                        999);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
    lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                        kSidednessTag);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty()) << "a control that is no paper menu";
    lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                        kMenuTag);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), ElementsAre(1, 2, 3));
}

TEST_F(SidednessOfPaper, OneItemIsLeftAlone) {
    open_both(kMenuTag, 1);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
}

TEST_F(SidednessOfPaper, ItemsPastTheTableAreAllowed) {
    open_both(kMenuTag, 6);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), ElementsAre(1, 2, 3));
}

TEST_F(SidednessOfPaper, WithoutKeyTablePpdOrIndexNothingIsForbidden) {
    open_both();
    pane.SetxppdPtr(nullptr);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
    pane.SetxppdPtr(compiled->index);
    lists.UpdateConflictsPanelControlFromPPD(nullptr);
    EXPECT_THAT(disabled_sides(), IsEmpty());
    lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, nullptr, {}, kMenuTag);
    choose(0, 0, 0);
    EXPECT_THAT(disabled_sides(), IsEmpty());
}

TEST_F(SidednessOfPaper, AnswersTheChoicesOfAPosition) {
    open_both();
    sides.selectItemAtIndex(2);
    EXPECT_THAT(lists.getCurrentDuplexArray(), Optional(ElementsAre(StrEq("DuplexTumble"))));
    EXPECT_THAT(lists.getDuplexArrayFromIndex(0), Optional(ElementsAre(StrEq("NULL"))));
    EXPECT_FALSE(lists.getDuplexArrayFromIndex(4));
    EXPECT_FALSE(lists.getDuplexArrayFromIndex(-1));
    sides.selectItemAtIndex(-1);
    EXPECT_FALSE(lists.getCurrentDuplexArray());
    lists.CreateControl(&sides, nullptr, nullptr, nullptr, {}, nullptr, {}, 0);
    sides.selectItemAtIndex(1);
    EXPECT_FALSE(lists.getCurrentDuplexArray()) << "no table";
    lists.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                        0);
    EXPECT_FALSE(lists.getCurrentDuplexArray()) << "no view";
    EXPECT_EQ(lists.UpdateConflictsPanelControlFromPPD(ppd.file()), 0);
}

TEST_F(SidednessOfPaper, AnEventRechecksBeforeTheBaseForm) {
    std::vector<ControlTag> updates;
    UpdateRecorder neighbour(updates, 500);
    pane.RunTimeAddNewControl(&neighbour);
    static constexpr std::array<const char*, 4> kKeys{"a", "b", "c", "d"};
    static constexpr PopupIniData kIniData{.menuKeys = kKeys};
    const Rows update{{}, {}, {500}, {}};
    const ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    lists.CreateControl(&sides, &kIniData, &record, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray,
                        kMenuTag);
    pane.RunTimeAddNewControl(&lists);
    ASSERT_TRUE(lists.InitializeCtrl(bundle.get(), ppd.file()));
    lists.setTargetandAction();
    open(menu);
    pane.rechecks = 0;
    ASSERT_TRUE(sides.pick(std::vector<std::int64_t>{2}));
    EXPECT_EQ(pane.rechecks, 1);
    EXPECT_THAT(updates, ElementsAre(500));
    ASSERT_TRUE(sides.pick(std::vector<std::int64_t>{2}));
    EXPECT_EQ(pane.rechecks, 2);
    EXPECT_THAT(updates, ElementsAre(500)) << "the same item updates nothing";
}

TEST(TwoSidePrintList, OffersNoChangeOnlyWithStatusOne) {
    platform::PopUpButton sides;
    sides.addItemWithTitle("No Change");
    sides.addItemWithTitle("1-sided");
    sides.selectItemAtIndex(1);
    SPTwoSidePrintListCtrlEMF list;
    list.CreateControl(&sides, nullptr, nullptr, nullptr, {}, "Duplex", twoSidePrintGetDuplexChoiceArray, 0);
    const auto hidden = [&] {
        EXPECT_TRUE(list.SetControlValueToUI());
        return sides.menu().itemAtIndex(0)->isHidden();
    };
    EXPECT_TRUE(hidden());
    list.setSelectStatus(1);
    EXPECT_TRUE(sides.menu().itemAtIndex(0)->isHidden()) << "shown by the next value only";
    EXPECT_FALSE(hidden());
    for (const std::int32_t status : {2, 0, -1}) {
        list.setSelectStatus(status);
        EXPECT_TRUE(hidden()) << status;
    }
    EXPECT_EQ(sides.indexOfSelectedItem(), 1);
}

TEST(TwoSidePrintList, ToleratesAMissingViewAndAnEmptyMenu) {
    SPTwoSidePrintListCtrlEMF list;
    list.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, "Duplex", {}, 0);
    EXPECT_FALSE(list.SetControlValueToUI());
    platform::PopUpButton empty;
    list.CreateControl(&empty, nullptr, nullptr, nullptr, {}, "Duplex", {}, 0);
    EXPECT_TRUE(list.SetControlValueToUI());
}

} // namespace
} // namespace specialpages::test
