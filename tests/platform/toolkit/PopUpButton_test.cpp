#include "ChangeLog.h"
#include "platform/toolkit/PopUpButton.h"

#include <gtest/gtest.h>

#include <limits>

namespace specialpages::platform {
namespace {

using Path = std::vector<std::int64_t>;

/// "A4", "Letter" with a sub-menu ("Plain", "Tab"), a separator, "None".
struct PaperMenu {
    PaperMenu() {
        popup.addItemWithTitle("A4");
        MenuItem& letter = popup.addItemWithTitle("Letter");
        submenu = &letter.setSubmenu(std::make_unique<Menu>());
        submenu->addItemWithTitle("Plain");
        submenu->addItemWithTitle("Tab");
        popup.menu().addItem(MenuItem::separatorItem());
        popup.addItemWithTitle("None");
        popup.setTargetAction(this, [this](View&) { ++fired; });
    }
    PopUpButton popup;
    Menu* submenu;
    int fired = 0;
};

TEST(PopUpButton, BeginsEmptyWithNothingSelected) {
    PopUpButton popup;
    EXPECT_EQ(popup.kind(), ViewKind::popup);
    EXPECT_EQ(popup.numberOfItems(), 0);
    EXPECT_EQ(popup.indexOfSelectedItem(), -1);
    EXPECT_EQ(popup.selectedItem(), nullptr);
    EXPECT_EQ(popup.titleOfSelectedItem(), "");
}

TEST(PopUpButton, SelectsTheFirstItemThatIsAdded) {
    PopUpButton popup;
    ChangeLog log(popup);
    popup.addItemWithTitle("One");
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(popup.titleOfSelectedItem(), "One");
    EXPECT_EQ(log.take(), (Changes{ViewChange::items, ViewChange::value}));
    popup.addItemWithTitle("Two");
    EXPECT_EQ(popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(log.take(), Changes{ViewChange::items});
}

TEST(PopUpButton, HasNothingSelectedOnceItIsEmptied) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    paper.popup.removeAllItems();
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), -1);
    EXPECT_EQ(log.take(), (Changes{ViewChange::items, ViewChange::value}));
    paper.popup.removeAllItems();
    EXPECT_EQ(log.take(), Changes{});
    paper.popup.addItemWithTitle("New");
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
}

TEST(PopUpButton, KeepsNothingSelectedWhenItemsAreAddedLater) {
    PopUpButton popup;
    popup.addItemWithTitle("One");
    popup.selectItemAtIndex(-1);
    popup.addItemWithTitle("Two");
    EXPECT_EQ(popup.indexOfSelectedItem(), -1);
    popup.menu().removeItemAtIndex(0);
    EXPECT_EQ(popup.indexOfSelectedItem(), -1);
}

TEST(PopUpButton, SelectsByProgramWithoutAnAction) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    paper.popup.selectItemAtIndex(3);
    EXPECT_EQ(paper.popup.titleOfSelectedItem(), "None");
    paper.popup.selectItemAtIndex(3);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
    paper.popup.selectItemAtIndex(-1);
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), -1);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
    EXPECT_EQ(paper.fired, 0);
}

TEST(PopUpButton, SelectsHiddenAndDisabledItemsByProgram) {
    PaperMenu paper;
    paper.popup.menu().itemAtIndex(3)->setHidden(true);
    paper.popup.menu().itemAtIndex(3)->setEnabled(false);
    paper.popup.selectItemAtIndex(3);
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 3);
}

TEST(PopUpButton, AnIndexWithoutAnItemChangesNothing) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    paper.popup.selectItemAtIndex(4);
    paper.popup.selectItemAtIndex(-2);
    paper.popup.selectItemAtIndex(std::numeric_limits<std::int64_t>::max());
    paper.popup.selectItemAtIndex(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(log.take(), Changes{});
}

TEST(PopUpButton, TheSelectionStaysOnItsItemWhenOneBeforeItGoes) {
    PaperMenu paper;
    paper.popup.selectItemAtIndex(3);
    ChangeLog log(paper.popup);
    paper.popup.menu().removeItemAtIndex(0);
    EXPECT_EQ(paper.popup.titleOfSelectedItem(), "None");
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 2);
    EXPECT_EQ(log.take(), (Changes{ViewChange::items, ViewChange::value}));
    paper.popup.selectItemAtIndex(0);
    log.take();
    paper.popup.menu().removeItemAtIndex(2);
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(log.take(), Changes{ViewChange::items});
}

TEST(PopUpButton, SelectsTheFirstItemWhenTheSelectedOneGoes) {
    PaperMenu paper;
    paper.popup.selectItemAtIndex(3);
    paper.popup.menu().removeItemAtIndex(3);
    EXPECT_EQ(paper.popup.titleOfSelectedItem(), "A4");
    PopUpButton single;
    single.addItemWithTitle("One");
    single.menu().removeItemAtIndex(0);
    EXPECT_EQ(single.indexOfSelectedItem(), -1);
}

TEST(PopUpButton, PickingATopItemSelectsItThenFires) {
    PaperMenu paper;
    std::int64_t seen = -1;
    paper.popup.setTargetAction(&paper, [&](View& sender) {
        EXPECT_EQ(&sender, &paper.popup);
        seen = paper.popup.indexOfSelectedItem();
    });
    EXPECT_TRUE(paper.popup.pick(Path{3}));
    EXPECT_EQ(seen, 3);
    seen = -1;
    EXPECT_TRUE(paper.popup.pick(Path{3}));
    EXPECT_EQ(seen, 3) << "picking the selected item fires again";
}

TEST(PopUpButton, AnItemsOwnActionRunsInPlaceOfThePopUps) {
    PaperMenu paper;
    MenuItem* none = paper.popup.menu().itemAtIndex(3);
    const MenuItem* sender = nullptr;
    none->setTargetAction(&paper, [&](MenuItem& from) { sender = &from; });
    EXPECT_EQ(none->target(), &paper);
    EXPECT_TRUE(paper.popup.pick(Path{3}));
    EXPECT_EQ(sender, none);
    EXPECT_EQ(paper.fired, 0);
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 3);
    none->setTargetAction(&paper, nullptr);
    EXPECT_EQ(none->target(), nullptr);
    EXPECT_TRUE(paper.popup.pick(Path{3}));
    EXPECT_EQ(paper.fired, 1);
}

TEST(PopUpButton, ASubMenuItemLeavesTheSelectionToItsAction) {
    PaperMenu paper;
    EXPECT_TRUE(paper.popup.pick(Path{1, 1}));
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(paper.fired, 1) << "without an action of its own the pop-up's fires";
    paper.submenu->itemAtIndex(1)->setTargetAction(&paper, [&](MenuItem& sender) {
        EXPECT_EQ(sender.menu()->supermenuItem(), paper.popup.menu().itemAtIndex(1));
        paper.popup.selectItemAtIndex(1);
    });
    EXPECT_TRUE(paper.popup.pick(Path{1, 1}));
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 1);
    EXPECT_EQ(paper.fired, 1);
}

TEST(PopUpButton, RefusesPathsThatAUserCannotTake) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    EXPECT_FALSE(paper.popup.pick(Path{}));
    EXPECT_FALSE(paper.popup.pick(Path{-1}));
    EXPECT_FALSE(paper.popup.pick(Path{4}));
    EXPECT_FALSE(paper.popup.pick(Path{1})) << "it opens a sub-menu";
    EXPECT_FALSE(paper.popup.pick(Path{2})) << "a separator";
    EXPECT_FALSE(paper.popup.pick(Path{0, 0})) << "it has no sub-menu";
    EXPECT_FALSE(paper.popup.pick(Path{1, 2}));
    EXPECT_FALSE(paper.popup.pick(Path{1, 0, 0}));
    EXPECT_EQ(log.take(), Changes{});
    EXPECT_EQ(paper.fired, 0);
}

TEST(PopUpButton, RefusesHiddenAndDisabledItemsOnTheWay) {
    PaperMenu paper;
    Menu& menu = paper.popup.menu();
    menu.itemAtIndex(3)->setEnabled(false);
    EXPECT_FALSE(paper.popup.pick(Path{3}));
    menu.itemAtIndex(3)->setEnabled(true);
    menu.itemAtIndex(3)->setHidden(true);
    EXPECT_FALSE(paper.popup.pick(Path{3}));
    menu.itemAtIndex(1)->setEnabled(false);
    EXPECT_FALSE(paper.popup.pick(Path{1, 0}));
    menu.itemAtIndex(1)->setEnabled(true);
    menu.itemAtIndex(1)->setHidden(true);
    EXPECT_FALSE(paper.popup.pick(Path{1, 0}));
    menu.itemAtIndex(1)->setHidden(false);
    paper.submenu->itemAtIndex(0)->setEnabled(false);
    EXPECT_FALSE(paper.popup.pick(Path{1, 0}));
    EXPECT_EQ(paper.fired, 0);
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
}

TEST(PopUpButton, RefusesPicksWhenItTakesNoEvents) {
    PaperMenu paper;
    paper.popup.setEnabled(false);
    EXPECT_FALSE(paper.popup.pick(Path{3}));
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
    EXPECT_EQ(paper.fired, 0);
}

TEST(PopUpButton, AnItemsActionMayFillTheMenuAnew) {
    PopUpButton popup;
    MenuItem& item = popup.addItemWithTitle("Old");
    item.setTargetAction(&popup,
                         [&popup, title = std::string("New, and longer than a small text")](MenuItem&) {
                             popup.removeAllItems();
                             popup.addItemWithTitle(title);
                         });
    EXPECT_TRUE(popup.pick(Path{0}));
    EXPECT_EQ(popup.titleOfSelectedItem(), "New, and longer than a small text");
}

TEST(PopUpButton, AnnouncesEachChangeOfAnItemOnce) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    MenuItem& item = *paper.popup.menu().itemAtIndex(0);
    const auto changeTwice = [&](auto change) {
        change();
        EXPECT_EQ(log.take(), Changes{ViewChange::items});
        change();
        EXPECT_EQ(log.take(), Changes{});
    };
    changeTwice([&] { item.setTitle("A3"); });
    changeTwice([&] { item.setTag(4); });
    changeTwice([&] { item.setEnabled(false); });
    changeTwice([&] { item.setHidden(true); });
    changeTwice([&] { item.setState(true); });
    changeTwice([&] { item.setToolTip("tip"); });
    changeTwice([&] { item.setRepresentedObject("object"); });
    EXPECT_EQ(item.title(), "A3");
    EXPECT_EQ(item.tag(), 4);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.isHidden());
    EXPECT_TRUE(item.state());
    EXPECT_EQ(item.toolTip(), "tip");
    EXPECT_EQ(item.representedObject(), "object");
}

TEST(PopUpButton, AnnouncesChangesInSubMenus) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    paper.submenu->itemAtIndex(0)->setState(true);
    EXPECT_EQ(log.take(), Changes{ViewChange::items});
    Menu& deep = paper.submenu->itemAtIndex(1)->setSubmenu(nullptr);
    EXPECT_EQ(log.take(), Changes{ViewChange::items});
    deep.addItemWithTitle("Deep");
    EXPECT_EQ(log.take(), Changes{ViewChange::items}) << "the first item below selects nothing above";
    deep.removeAllItems();
    EXPECT_EQ(log.take(), Changes{ViewChange::items});
    EXPECT_EQ(paper.popup.indexOfSelectedItem(), 0);
}

TEST(PopUpButton, AMenuOutsideAPopUpAnnouncesNothing) {
    Menu menu;
    MenuItem& item = menu.addItemWithTitle("One");
    item.setTitle("Two");
    EXPECT_EQ(menu.itemAtIndex(0)->title(), "Two");
    EXPECT_EQ(menu.supermenuItem(), nullptr);
}

TEST(PopUpButton, FindsItemsByIndexTagAndIdentity) {
    PaperMenu paper;
    Menu& menu = paper.popup.menu();
    EXPECT_EQ(menu.numberOfItems(), 4U);
    EXPECT_EQ(menu.itemAtIndex(-1), nullptr);
    EXPECT_EQ(menu.itemAtIndex(4), nullptr);
    menu.itemAtIndex(3)->setTag(8);
    paper.submenu->itemAtIndex(0)->setTag(9);
    EXPECT_EQ(menu.itemWithTag(8), menu.itemAtIndex(3));
    EXPECT_EQ(menu.itemWithTag(0), menu.itemAtIndex(0));
    EXPECT_EQ(menu.itemWithTag(9), nullptr) << "sub-menus are not looked into";
    EXPECT_EQ(menu.indexOfItem(menu.itemAtIndex(2)), 2);
    EXPECT_EQ(menu.indexOfItem(paper.submenu->itemAtIndex(0)), -1);
    EXPECT_EQ(menu.indexOfItem(nullptr), -1);
    EXPECT_TRUE(menu.itemAtIndex(2)->isSeparator());
    EXPECT_EQ(menu.itemAtIndex(1)->submenu(), paper.submenu);
    EXPECT_EQ(menu.itemAtIndex(1)->menu(), &menu);
}

TEST(PopUpButton, RemovingAnItemThatIsNotThereChangesNothing) {
    PaperMenu paper;
    ChangeLog log(paper.popup);
    paper.popup.menu().removeItemAtIndex(-1);
    paper.popup.menu().removeItemAtIndex(4);
    EXPECT_EQ(paper.popup.numberOfItems(), 4);
    EXPECT_EQ(log.take(), Changes{});
}

TEST(PopUpButton, KeepsTheProgramsWordOnAutomaticEnabling) {
    PopUpButton popup;
    EXPECT_TRUE(popup.menu().autoenablesItems());
    popup.setAutoenablesItems(false);
    EXPECT_FALSE(popup.menu().autoenablesItems());
}

} // namespace
} // namespace specialpages::platform
