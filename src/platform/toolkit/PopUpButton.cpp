#include "platform/toolkit/PopUpButton.h"

#include <algorithm>
#include <cassert>

namespace specialpages::platform {

void MenuItem::changed() {
    if (menu_ != nullptr) {
        menu_->changed();
    }
}

void MenuItem::setTitle(std::string title) {
    if (title_ != title) {
        title_ = std::move(title);
        changed();
    }
}

void MenuItem::setTag(std::int32_t tag) {
    if (tag_ != tag) {
        tag_ = tag;
        changed();
    }
}

void MenuItem::setEnabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        changed();
    }
}

void MenuItem::setHidden(bool hidden) {
    if (hidden_ != hidden) {
        hidden_ = hidden;
        changed();
    }
}

void MenuItem::setState(bool on) {
    if (state_ != on) {
        state_ = on;
        changed();
    }
}

void MenuItem::setToolTip(std::string toolTip) {
    if (toolTip_ != toolTip) {
        toolTip_ = std::move(toolTip);
        changed();
    }
}

void MenuItem::setRepresentedObject(std::optional<std::string> object) {
    if (representedObject_ != object) {
        representedObject_ = std::move(object);
        changed();
    }
}

void MenuItem::setTargetAction(const void* target, std::function<void(MenuItem& sender)> action) {
    target_ = action ? target : nullptr;
    action_ = std::move(action);
}

Menu& MenuItem::setSubmenu(std::unique_ptr<Menu> submenu) {
    submenu_ = submenu != nullptr ? std::move(submenu) : std::make_unique<Menu>();
    submenu_->supermenuItem_ = this;
    changed();
    return *submenu_;
}

std::unique_ptr<MenuItem> MenuItem::separatorItem() {
    auto item = std::make_unique<MenuItem>(std::string());
    item->separator_ = true;
    return item;
}

MenuItem* Menu::itemAtIndex(std::int64_t index) const {
    const bool there = index >= 0 && index < static_cast<std::int64_t>(items_.size());
    return there ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

MenuItem* Menu::itemWithTag(std::int32_t tag) const {
    const auto item = std::ranges::find(items_, tag, [](const auto& each) { return each->tag(); });
    return item == items_.end() ? nullptr : item->get();
}

std::int64_t Menu::indexOfItem(const MenuItem* item) const {
    const auto place = std::ranges::find(items_, item, [](const auto& each) { return each.get(); });
    return place == items_.end() ? -1 : place - items_.begin();
}

MenuItem& Menu::addItem(std::unique_ptr<MenuItem> item) {
    assert(item != nullptr);
    MenuItem& added = *item;
    added.menu_ = this;
    items_.push_back(std::move(item));
    changed(items_.size() == 1 ? 0 : ownersSelection());
    return added;
}

MenuItem& Menu::addItemWithTitle(std::string title) {
    return addItem(std::make_unique<MenuItem>(std::move(title)));
}

void Menu::removeItemAtIndex(std::int64_t index) {
    if (itemAtIndex(index) == nullptr) {
        return;
    }
    items_.erase(items_.begin() + index);
    const std::int64_t selected = ownersSelection();
    if (items_.empty()) {
        changed(-1);
    } else if (selected == index) {
        changed(0);
    } else {
        changed(selected > index ? selected - 1 : selected);
    }
}

void Menu::removeAllItems() {
    if (!items_.empty()) {
        items_.clear();
        changed(-1);
    }
}

std::int64_t Menu::ownersSelection() const {
    return owner_ != nullptr ? owner_->indexOfSelectedItem() : -1;
}

void Menu::changed(std::int64_t newSelection) {
    if (owner_ != nullptr) {
        owner_->itemsChanged(newSelection);
    } else if (supermenuItem_ != nullptr) {
        supermenuItem_->changed();
    }
}

void Menu::changed() {
    changed(ownersSelection());
}

PopUpButton::PopUpButton() : View(ViewKind::popup) {
    menu_.owner_ = this;
}

void PopUpButton::removeAllItems() {
    menu_.removeAllItems();
}

MenuItem& PopUpButton::addItemWithTitle(std::string title) {
    return menu_.addItemWithTitle(std::move(title));
}

std::int64_t PopUpButton::numberOfItems() const {
    return static_cast<std::int64_t>(menu_.numberOfItems());
}

void PopUpButton::itemsChanged(std::int64_t newSelection) {
    const bool moved = std::exchange(selected_, newSelection) != newSelection;
    announce(ViewChange::items);
    if (moved) {
        announce(ViewChange::value);
    }
}

void PopUpButton::selectItemAtIndex(std::int64_t index) {
    if (index < -1 || index >= numberOfItems() || index == selected_) {
        return;
    }
    selected_ = index;
    announce(ViewChange::value);
}

MenuItem* PopUpButton::selectedItem() const {
    return menu_.itemAtIndex(selected_);
}

std::string PopUpButton::titleOfSelectedItem() const {
    const MenuItem* item = selectedItem();
    return item != nullptr ? item->title() : std::string();
}

bool PopUpButton::pick(std::span<const std::int64_t> path) {
    if (!acceptsEvents()) {
        return false;
    }
    const Menu* menu = &menu_;
    MenuItem* item = nullptr;
    for (const std::int64_t index : path) {
        item = menu != nullptr ? menu->itemAtIndex(index) : nullptr;
        if (item == nullptr || item->isHidden() || !item->isEnabled() || item->isSeparator()) {
            return false;
        }
        menu = item->submenu();
    }
    if (item == nullptr || menu != nullptr) {
        return false;
    }
    // A copy, since the action may fill the menu anew while it runs.
    const auto action = item->action();
    if (path.size() == 1) {
        selectItemAtIndex(path.front());
    }
    if (action) {
        action(*item);
    } else {
        sendAction();
    }
    return true;
}

} // namespace specialpages::platform
