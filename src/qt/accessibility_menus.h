// Pop-up buttons and their menus to assistive tools: each item with its check mark and its sub-menu, and a
// disabled one with the reason why.
#pragma once

class QAccessibleInterface;
class QMenu;

namespace specialpages::qt {

class PopUpWidget;

/// For a factory of accessible interfaces, whose table owns what it is given.
QAccessibleInterface* describe_menu(QMenu& menu);
QAccessibleInterface* describe_pop_up(PopUpWidget& popUp);

} // namespace specialpages::qt
