// A model's menu as a menu of Qt.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace specialpages::platform {
class Menu;
}

namespace specialpages::qt {

/// Positions from the top menu down, hidden items counted.
using MenuPath = std::vector<std::int64_t>;

/// Fills the empty menu with the model's items and, nested, their sub-menus. A disabled item has its reason
/// as tool tip, status text and accessible description. `picked` is called for an item that a user picks.
void fill_menu(QMenu& menu, const platform::Menu& model, const MenuPath& above,
               const std::function<void(const MenuPath& path)>& picked);

/// The tag of an item that fill_menu made.
std::int32_t item_tag(const QAction& action);
/// Whether the model enables the item: a hidden action is disabled for Qt whatever the model says.
bool item_enabled(const QAction& action);

} // namespace specialpages::qt
