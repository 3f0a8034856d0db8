// Pop-up buttons and their menus.
#pragma once

#include "platform/toolkit/View.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace specialpages::platform {

class Menu;
class PopUpButton;

/// One item of a menu, owned by it. Changes are announced by the pop-up that shows the menu, as
/// ViewChange::items.
class SPECIALPAGES_PLATFORM_API MenuItem {
  public:
    explicit MenuItem(std::string title) : title_(std::move(title)) {}
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    std::int32_t tag() const { return tag_; }
    void setTag(std::int32_t tag);
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    /// The check mark.
    bool state() const { return state_; }
    void setState(bool on);
    bool isSeparator() const { return separator_; }
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip);
    /// A text that program code attaches to the item; empty optional when none was set.
    const std::optional<std::string>& representedObject() const { return representedObject_; }
    void setRepresentedObject(std::optional<std::string> object);
    /// What picking the item runs in place of the pop-up's own action.
    void setTargetAction(const void* target, std::function<void(MenuItem& sender)> action);
    const void* target() const { return target_; }
    const std::function<void(MenuItem& sender)>& action() const { return action_; }
    Menu* submenu() const { return submenu_.get(); }
    /// Takes the menu over and answers it; null puts in an empty menu.
    Menu& setSubmenu(std::unique_ptr<Menu> submenu);
    Menu* menu() const { return menu_; }

    static std::unique_ptr<MenuItem> separatorItem();

  private:
    friend class Menu;
    void changed();
    std::string title_;
    std::int32_t tag_ = 0;
    bool enabled_ = true;
    bool hidden_ = false;
    bool state_ = false;
    bool separator_ = false;
    std::string toolTip_;
    std::optional<std::string> representedObject_;
    const void* target_ = nullptr;
    std::function<void(MenuItem& sender)> action_;
    std::unique_ptr<Menu> submenu_;
    Menu* menu_ = nullptr;
};

class SPECIALPAGES_PLATFORM_API Menu {
  public:
    Menu() = default;
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    std::size_t numberOfItems() const { return items_.size(); }
    /// Null when the index is negative or past the end.
    MenuItem* itemAtIndex(std::int64_t index) const;
    /// The first item with that tag, not looking into sub-menus; null when there is none.
    MenuItem* itemWithTag(std::int32_t tag) const;
    /// -1 when the item is not in this menu.
    std::int64_t indexOfItem(const MenuItem* item) const;
    /// Takes the item over and answers it. Not null.
    MenuItem& addItem(std::unique_ptr<MenuItem> item);
    MenuItem& addItemWithTitle(std::string title);
    /// Nothing when the index is negative or past the end. A pop-up whose selected item goes selects its
    /// first one.
    void removeItemAtIndex(std::int64_t index);
    void removeAllItems();
    /// The item of the menu above that opens this one; null at the top.
    MenuItem* supermenuItem() const { return supermenuItem_; }
    bool autoenablesItems() const { return autoenables_; }
    /// Kept for the program's sake: the headless menu never enables an item by itself.
    void setAutoenablesItems(bool autoenables) { autoenables_ = autoenables; }

  private:
    friend class MenuItem;
    friend class PopUpButton;
    void changed();
    std::int64_t ownersSelection() const;
    void changed(std::int64_t newSelection);
    std::vector<std::unique_ptr<MenuItem>> items_;
    MenuItem* supermenuItem_ = nullptr;
    PopUpButton* owner_ = nullptr;
    bool autoenables_ = true;
};

class SPECIALPAGES_PLATFORM_API PopUpButton : public View {
  public:
    PopUpButton();

    Menu& menu() { return menu_; }
    const Menu& menu() const { return menu_; }
    void removeAllItems();
    MenuItem& addItemWithTitle(std::string title);
    std::int64_t numberOfItems() const;
    /// 0-based position among all items, hidden ones included; -1 when none is selected. The first item that
    /// is added to an empty pop-up becomes the selected one; an emptied pop-up has none.
    std::int64_t indexOfSelectedItem() const { return selected_; }
    /// By program: no action fires. -1 selects nothing; any other index without an item changes nothing.
    /// ViewChange::value announces another index, also when the items around the selected one make it.
    void selectItemAtIndex(std::int64_t index);
    MenuItem* selectedItem() const;
    std::string titleOfSelectedItem() const;
    void setAutoenablesItems(bool autoenables) { menu_.setAutoenablesItems(autoenables); }

    /// The user picks the item at `path` (position in the top menu, then in its sub-menu, ...). A top item
    /// becomes the selected one; then its own action fires, or the pop-up's when it has none. An item of a
    /// sub-menu fires in the same way and leaves the selection to the action. False, and nothing happens,
    /// when the pop-up does not accept events or an item on the way is missing, hidden, disabled, a
    /// separator, or the last one has a sub-menu.
    bool pick(std::span<const std::int64_t> path);

  private:
    friend class Menu;
    void itemsChanged(std::int64_t newSelection);
    Menu menu_;
    std::int64_t selected_ = -1;
};

} // namespace specialpages::platform
