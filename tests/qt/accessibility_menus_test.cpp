// What assistive tools are told of a pop-up button, its menu and the items, and what they can do with them.
#include "qt/PopUpWidget.h"
#include "qt/QtDriver.h"
#include "qt/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QPushButton>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string name_of(const QAccessibleInterface& object) {
    return object.text(QAccessible::Name).toStdString();
}

std::vector<std::string> actions_of(QAccessibleInterface& object) {
    std::vector<std::string> names;
    for (const QString& name : object.actionInterface()->actionNames()) {
        names.push_back(name.toStdString());
    }
    return names;
}

/// A pop-up button with the menu: Auto, a line, Si&ze > A4, A3 (disabled), B5 (hidden); and Booklet, checked.
class AccessibleMenus : public ::testing::Test {
  protected:
    enum Item { automatic, line, size, booklet };
    enum SizeItem { a4, a3, b5 };

    AccessibleMenus() {
        popUp_.setHandlers({nullptr, [this](QMenu& menu) { fill(menu); }, nullptr});
        popUp_.showSelection(0, QStringLiteral("Auto"));
        window_.resize(300, 200);
        popUp_.setGeometry(10, 10, 120, 30);
        other_.setGeometry(10, 60, 120, 30);
        window_.show();
        activate(window_);
    }
    void fill(QMenu& menu) {
        add(menu, "Auto");
        menu.addSeparator();
        QMenu& sizes = *menu.addMenu(QStringLiteral("Si&ze"));
        add(sizes, "A4");
        QAction& disabled = add(sizes, "A3");
        disabled.setEnabled(false);
        disabled.setStatusTip(QStringLiteral("Not with covers."));
        add(sizes, "B5").setVisible(false);
        QAction& checked = add(menu, "&Booklet");
        checked.setCheckable(true);
        checked.setChecked(true);
    }
    QAction& add(QMenu& menu, const char* title) {
        QAction& action = *menu.addAction(QString::fromLatin1(title));
        QObject::connect(&action, &QAction::triggered, &menu, [this, title] { picked_.emplace_back(title); });
        return action;
    }

    static QAccessibleInterface& of(QObject& object) {
        return *QAccessible::queryAccessibleInterface(&object);
    }
    QAccessibleInterface& button() { return of(popUp_); }
    QMenu& menu() { return *popUp_.openMenu(); }
    QMenu& sizes() { return *menu().actions().at(size)->menu(); }
    QAccessibleInterface& item(Item place) { return *of(menu()).child(place); }
    QAccessibleInterface& sizeItem(SizeItem place) { return *of(sizes()).child(place); }
    void openSizes() {
        go_to(menu(), *menu().actions().at(size));
        QTest::keyClick(menu().windowHandle(), Qt::Key_Right);
    }

    DrivenFace face_; // which has the menus described
    QWidget window_;
    PopUpWidget popUp_{&window_};
    QPushButton other_{&window_};
    std::vector<std::string> picked_;
};

TEST_F(AccessibleMenus, AButtonHasItsMenuBelowItAsLongAsThatIsOpen) {
    EXPECT_EQ(button().childCount(), 0);
    EXPECT_EQ(button().child(0), nullptr);
    EXPECT_EQ(button().indexOfChild(nullptr), -1);
    EXPECT_EQ(button().childAt(20, 20), nullptr);
    popUp_.showPopup();
    EXPECT_EQ(button().childCount(), 1);
    ASSERT_EQ(button().child(0), &of(menu()));
    EXPECT_EQ(button().child(1), nullptr);
    EXPECT_EQ(button().child(-1), nullptr);
    EXPECT_EQ(button().indexOfChild(&of(menu())), 0);
    EXPECT_EQ(button().indexOfChild(&of(other_)), -1);
    EXPECT_EQ(button().indexOfChild(nullptr), -1);
    const QPoint inside = menu().mapToGlobal(QPoint(2, 2));
    EXPECT_EQ(button().childAt(inside.x(), inside.y()), &of(menu()));
    EXPECT_EQ(button().childAt(inside.x() - 100, inside.y()), nullptr);
    popUp_.hidePopup();
    EXPECT_EQ(button().childCount(), 0);
}

TEST_F(AccessibleMenus, AButtonIsExpandedWhileItsMenuIsOpen) {
    EXPECT_TRUE(button().state().hasPopup);
    EXPECT_TRUE(button().state().expandable);
    EXPECT_FALSE(button().state().expanded);
    popUp_.showPopup();
    EXPECT_TRUE(button().state().expanded);
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, AButtonSaysWhatItShowsAndElseItsOwnName) {
    popUp_.setAccessibleName(QStringLiteral("Paper"));
    popUp_.setToolTip(QStringLiteral("Not with covers."));
    EXPECT_EQ(name_of(button()), "Auto");
    EXPECT_EQ(button().text(QAccessible::Value), "Auto");
    EXPECT_EQ(button().text(QAccessible::Description), "Not with covers.");
    popUp_.showSelection(-1, {});
    EXPECT_EQ(name_of(button()), "Paper");
}

TEST_F(AccessibleMenus, AButtonIsOpenedClosedAndFocusedByItsActions) {
    QAccessibleActionInterface& actions = *button().actionInterface();
    EXPECT_THAT(actions_of(button()), ElementsAre("ShowMenu", "Press", "SetFocus"));
    for (const char* const name : {"ShowMenu", "Press"}) {
        actions.doAction(QString::fromLatin1(name));
        EXPECT_NE(popUp_.openMenu(), nullptr) << name;
        actions.doAction(QString::fromLatin1(name));
        EXPECT_EQ(popUp_.openMenu(), nullptr) << name;
    }
    other_.setFocus();
    actions.doAction(QStringLiteral("SetFocus"));
    EXPECT_EQ(window_.focusWidget(), &popUp_);
    EXPECT_EQ(popUp_.openMenu(), nullptr);
}

TEST_F(AccessibleMenus, ADisabledButtonHasNoActions) {
    popUp_.setEnabled(false);
    EXPECT_THAT(actions_of(button()), IsEmpty());
    button().actionInterface()->doAction(QStringLiteral("ShowMenu"));
    EXPECT_EQ(popUp_.openMenu(), nullptr);
}

TEST_F(AccessibleMenus, AMenuHasItsItemsInTheirOrder) {
    popUp_.showPopup();
    QAccessibleInterface& told = of(menu());
    ASSERT_EQ(told.childCount(), 4);
    EXPECT_EQ(told.child(-1), nullptr);
    EXPECT_EQ(told.child(4), nullptr);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(told.child(i)->object(), menu().actions().at(i));
        EXPECT_EQ(told.child(i), told.child(i)) << "it is made once";
        EXPECT_EQ(told.indexOfChild(told.child(i)), i);
        EXPECT_EQ(told.child(i)->parent(), &told);
        EXPECT_EQ(told.child(i)->window(), menu().windowHandle());
        EXPECT_TRUE(told.child(i)->isValid());
    }
    EXPECT_EQ(told.indexOfChild(&of(other_)), -1);
    const QRect booklets = menu().actionGeometry(menu().actions().at(booklet));
    EXPECT_EQ(item(booklet).rect(), booklets.translated(menu().mapToGlobal(QPoint(0, 0))));
    const QPoint on = menu().mapToGlobal(booklets.center());
    EXPECT_EQ(told.childAt(on.x(), on.y()), &item(booklet));
    EXPECT_EQ(told.childAt(on.x() - 1000, on.y()), nullptr);
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, AMenuBelongsToTheItemOrTheButtonThatOpensIt) {
    popUp_.showPopup();
    EXPECT_EQ(of(menu()).parent(), &button());
    EXPECT_EQ(of(sizes()).parent(), &item(size));
    EXPECT_EQ(name_of(of(menu())), "Auto") << "as its button";
    EXPECT_EQ(name_of(of(sizes())), "Size") << "as its item, without the mark of the letter";
    sizes().setAccessibleName(QStringLiteral("Sizes of paper"));
    sizes().setToolTip(QStringLiteral("All of them"));
    EXPECT_EQ(name_of(of(sizes())), "Sizes of paper");
    EXPECT_EQ(of(sizes()).text(QAccessible::Description), "All of them");
    QMenu alone;
    EXPECT_EQ(name_of(of(alone)), "");
    EXPECT_EQ(of(alone).parent(), nullptr);
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, AnItemHasTheMenuThatItOpensBelowIt) {
    popUp_.showPopup();
    EXPECT_EQ(item(automatic).childCount(), 0);
    EXPECT_EQ(item(automatic).child(0), nullptr);
    EXPECT_EQ(item(automatic).indexOfChild(&of(sizes())), -1);
    QAccessibleInterface& opener = item(size);
    EXPECT_EQ(opener.childCount(), 1);
    EXPECT_EQ(opener.child(0), &of(sizes()));
    EXPECT_EQ(opener.child(1), nullptr);
    EXPECT_EQ(opener.indexOfChild(&of(sizes())), 0);
    EXPECT_EQ(opener.indexOfChild(&of(menu())), -1);
    openSizes();
    ASSERT_TRUE(sizes().isVisible());
    const QPoint inside = sizes().mapToGlobal(QPoint(2, 2));
    EXPECT_EQ(opener.childAt(inside.x(), inside.y()), &of(sizes()));
    EXPECT_EQ(opener.childAt(inside.x() - 1000, inside.y()), nullptr);
    EXPECT_EQ(item(automatic).childAt(inside.x(), inside.y()), nullptr);
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, ItemsTellTheirNamesRolesAndReasons) {
    popUp_.showPopup();
    EXPECT_EQ(item(automatic).role(), QAccessible::MenuItem);
    EXPECT_EQ(item(line).role(), QAccessible::Separator);
    EXPECT_EQ(item(size).role(), QAccessible::MenuItem);
    EXPECT_EQ(item(booklet).role(), QAccessible::CheckBox);
    menu().actions().at(size)->setCheckable(true);
    EXPECT_EQ(item(size).role(), QAccessible::MenuItem) << "whose mark is that of an item below";
    EXPECT_EQ(name_of(item(booklet)), "Booklet");
    EXPECT_EQ(name_of(sizeItem(a3)), "A3");
    EXPECT_EQ(sizeItem(a3).text(QAccessible::Description), "Not with covers.");
    EXPECT_EQ(sizeItem(a3).text(QAccessible::Help), "");
    EXPECT_EQ(sizeItem(a4).text(QAccessible::Description), "");
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, ItemsTellWhetherTheyAreMarkedSeenAndOpened) {
    popUp_.showPopup();
    for (const Item place : {automatic, size, booklet}) {
        const QAccessible::State state = item(place).state();
        EXPECT_TRUE(state.focusable) << place;
        EXPECT_TRUE(state.selectable) << place;
        EXPECT_FALSE(state.disabled) << place;
        EXPECT_FALSE(state.invisible) << place;
        EXPECT_EQ(state.checkable != 0, menu().actions().at(place)->isCheckable()) << place;
        EXPECT_EQ(state.checked != 0, place == booklet || menu().actions().at(place)->isChecked()) << place;
        EXPECT_EQ(state.hasPopup != 0, place == size) << place;
        EXPECT_EQ(state.expandable != 0, place == size) << place;
        EXPECT_FALSE(state.expanded) << place;
    }
    EXPECT_TRUE(item(booklet).state().checkable);
    EXPECT_FALSE(item(size).state().checkable);
    EXPECT_TRUE(sizeItem(a4).state().invisible) << "the menu is closed";
    openSizes();
    EXPECT_TRUE(item(size).state().expanded);
    EXPECT_TRUE(item(size).state().focused);
    EXPECT_FALSE(item(automatic).state().focused);
    EXPECT_FALSE(sizeItem(a4).state().invisible);
    EXPECT_TRUE(sizeItem(b5).state().invisible) << "the item is hidden";
    EXPECT_TRUE(sizeItem(a3).state().disabled);
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, ItemsArePressedOrOpenedUnlessTheyCannotBe) {
    popUp_.showPopup();
    EXPECT_THAT(actions_of(item(automatic)), ElementsAre("Press"));
    EXPECT_THAT(actions_of(item(line)), IsEmpty());
    EXPECT_THAT(actions_of(item(size)), ElementsAre("ShowMenu"));
    EXPECT_THAT(actions_of(sizeItem(a3)), IsEmpty());
    sizeItem(a3).actionInterface()->doAction(QStringLiteral("Press"));
    EXPECT_THAT(picked_, IsEmpty());
    EXPECT_NE(popUp_.openMenu(), nullptr) << "nothing was done";
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, PressingAnItemPicksItAndClosesAllMenus) {
    popUp_.showPopup();
    openSizes();
    const QPointer<QMenu> top = &menu();
    const QPointer<QMenu> below = &sizes();
    sizeItem(a4).actionInterface()->doAction(QStringLiteral("Press"));
    EXPECT_THAT(picked_, ElementsAre("A4"));
    EXPECT_FALSE(below != nullptr && below->isVisible());
    EXPECT_FALSE(top != nullptr && top->isVisible());
    EXPECT_EQ(popUp_.openMenu(), nullptr);
}

TEST_F(AccessibleMenus, AnItemMayEndItsMenu) {
    auto ended = std::make_unique<QMenu>();
    QAction outside(QStringLiteral("Close"));
    ended->addAction(&outside);
    QObject::connect(&outside, &QAction::triggered, [&] { ended.reset(); });
    QAccessibleInterface* const told = of(*ended).child(0);
    const QAccessible::Id id = QAccessible::uniqueId(told);
    told->actionInterface()->doAction(QStringLiteral("Press"));
    EXPECT_EQ(ended, nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr) << "nothing is told of an item without its menu";
}

TEST_F(AccessibleMenus, AnItemThatIsGoneIsNotValid) {
    QMenu menu;
    auto gone = std::make_unique<QAction>(QStringLiteral("Gone"));
    menu.addAction(gone.get());
    const QAccessible::Id id = QAccessible::uniqueId(of(menu).child(0));
    ASSERT_NE(QAccessible::accessibleInterface(id), nullptr);
    gone.reset();
    const QAccessibleInterface* const told = QAccessible::accessibleInterface(id);
    EXPECT_TRUE(told == nullptr || !told->isValid());
    EXPECT_EQ(of(menu).childCount(), 0);
}

TEST_F(AccessibleMenus, OpeningAnItemShowsItsMenuWithTheFirstItemActive) {
    popUp_.showPopup();
    item(size).actionInterface()->doAction(QStringLiteral("ShowMenu"));
    settle();
    EXPECT_EQ(menu().activeAction(), menu().actions().at(size));
    EXPECT_TRUE(sizes().isVisible());
    EXPECT_EQ(sizes().activeAction(), sizes().actions().at(a4));
    popUp_.hidePopup();
}

TEST_F(AccessibleMenus, AnItemWithoutAMenuOrInAClosedOneIsNotOpened) {
    popUp_.showPopup();
    item(automatic).actionInterface()->doAction(QStringLiteral("ShowMenu"));
    settle();
    EXPECT_THAT(picked_, IsEmpty());
    EXPECT_NE(popUp_.openMenu(), nullptr);
    popUp_.hidePopup();
    settle();
    const std::unique_ptr<QMenu> closed(popUp_.makeMenu());
    QAction& opener = *closed->actions().at(size);
    of(*closed).child(size)->actionInterface()->doAction(QStringLiteral("ShowMenu"));
    settle();
    EXPECT_FALSE(opener.menu()->isVisible());
    EXPECT_EQ(closed->activeAction(), nullptr);
}

} // namespace
} // namespace specialpages::qt::testing
