#include "qt/menus.h"

#include "platform/toolkit/PopUpButton.h"
#include "qt/text.h"
#include "qt/tips.h"

#include <QMenu>
#include <QToolTip>
#include <QVariant>

namespace specialpages::qt {

namespace {

constexpr const char* kEnabled = "itemEnabled";

void describe(QAction& action, const platform::MenuItem& item) {
    action.setText(literal_label(item.title()));
    action.setCheckable(item.state());
    action.setChecked(item.state());
    action.setEnabled(item.isEnabled());
    action.setVisible(!item.isHidden());
    action.setData(item.tag());
    action.setProperty(kEnabled, item.isEnabled());
    // Without a text of its own a tool tip would repeat the title.
    action.setToolTip(literal_tip(item.toolTip()));
    action.setStatusTip(shown_text(item.toolTip()));
}

} // namespace

void fill_menu(QMenu& menu, const platform::Menu& model, const MenuPath& above,
               const std::function<void(const MenuPath& path)>& picked) {
    menu.setToolTipsVisible(true);
    for (std::size_t i = 0; i < model.numberOfItems(); ++i) {
        const platform::MenuItem& item = *model.itemAtIndex(static_cast<std::int64_t>(i));
        MenuPath path = above;
        path.push_back(static_cast<std::int64_t>(i));
        if (item.isSeparator()) {
            menu.addSeparator();
            continue;
        }
        if (item.submenu() != nullptr) {
            auto* const below = new QMenu(&menu);
            below->setStyle(menu.style());
            fill_menu(*below, *item.submenu(), path, picked);
            describe(*menu.addMenu(below), item);
            continue;
        }
        QAction& action = *menu.addAction(QString());
        describe(action, item);
        QObject::connect(&action, &QAction::triggered, &menu, [picked, path] { picked(path); });
    }
}

std::int32_t item_tag(const QAction& action) {
    return action.data().toInt();
}

bool item_enabled(const QAction& action) {
    return action.property(kEnabled).toBool();
}

} // namespace specialpages::qt
