#include "qt/accessibility_menus.h"

#include "qt/PopUpWidget.h"
#include "qt/text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QCoreApplication>
#include <QHash>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

namespace specialpages::qt {

namespace {

/// Closes the menu with all that it was opened from: what an item does may be a whole dialog, which could not
/// be reached below an open menu.
void close_menus(QMenu& menu) {
    QMenu* top = &menu;
    while (auto* const above = qobject_cast<QMenu*>(top->parentWidget())) {
        top = above;
    }
    top->close();
}

/// One item of a menu. As of every such description, nothing but isValid() may be asked once the item is
/// gone.
class ItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    ItemAccessible(QMenu& menu, QAction& action) : menu_(&menu), action_(&action) {}

    bool isValid() const override { return menu_ != nullptr && action_ != nullptr; }
    QObject* object() const override { return action_; }
    QWindow* window() const override { return menu_ == nullptr ? nullptr : menu_->windowHandle(); }

    int childCount() const override { return action_->menu() != nullptr ? 1 : 0; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && action_->menu() != nullptr
                   ? QAccessible::queryAccessibleInterface(action_->menu())
                   : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return action_->menu() != nullptr && child->object() == action_->menu() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* const below = child(0);
        return below != nullptr && below->rect().contains(x, y) ? below : nullptr;
    }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(menu_); }

    QString text(QAccessible::Text text) const override {
        switch (text) {
        case QAccessible::Name:
            return plain_label(action_->text());
        case QAccessible::Description:
            return action_->isEnabled() ? QString() : action_->statusTip();
        default:
            return {};
        }
    }
    void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
    QRect rect() const override {
        return menu_->actionGeometry(action_).translated(menu_->mapToGlobal(QPoint(0, 0)));
    }
    QAccessible::Role role() const override {
        if (action_->isSeparator()) {
            return QAccessible::Separator;
        }
        return action_->menu() == nullptr && action_->isCheckable() ? QAccessible::CheckBox
                                                                    : QAccessible::MenuItem;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.disabled = !action_->isEnabled();
        state.focusable = true;
        state.selectable = true;
        state.invisible = !action_->isVisible() || !menu_->isVisible();
        state.checkable = action_->isCheckable();
        state.checked = action_->isChecked();
        state.hasPopup = action_->menu() != nullptr;
        state.expandable = state.hasPopup;
        state.expanded = state.hasPopup && action_->menu()->isVisible();
        state.focused = menu_->activeAction() == action_;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        if (!action_->isEnabled() || action_->isSeparator()) {
            return {};
        }
        return {action_->menu() != nullptr ? showMenuAction() : pressAction()};
    }
    void doAction(const QString& name) override {
        if (!action_->isEnabled()) {
            return;
        }
        if (name == pressAction()) {
            // What the item does may end the menu, and with it this description.
            const QPointer<QMenu> menu = menu_;
            action_->trigger();
            if (menu != nullptr) {
                close_menus(*menu);
            }
        } else if (name == showMenuAction() && action_->menu() != nullptr && menu_->isVisible()) {
            // As with the keyboard; later, since a reader's call is not to wait for what it shows.
            menu_->setActiveAction(action_);
            QCoreApplication::postEvent(menu_,
                                        new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
        }
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

  private:
    QPointer<QMenu> menu_;
    QPointer<QAction> action_;
};

/// A menu: its items in order, hidden ones too, which say that they are invisible.
class MenuAccessible : public QAccessibleWidget {
  public:
    explicit MenuAccessible(QMenu& menu) : QAccessibleWidget(&menu, QAccessible::PopupMenu) {}
    ~MenuAccessible() override {
        for (const QAccessible::Id id : items_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return static_cast<int>(menu().actions().size()); }
    QAccessibleInterface* child(int index) const override {
        QAction* const action = index < 0 ? nullptr : menu().actions().value(index);
        if (action == nullptr) {
            return nullptr;
        }
        if (const auto known = items_.constFind(action); known != items_.constEnd()) {
            return QAccessible::accessibleInterface(*known);
        }
        auto* const item = new ItemAccessible(menu(), *action);
        items_[action] = QAccessible::registerAccessibleInterface(item);
        return item;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* const action = qobject_cast<QAction*>(child->object());
        return static_cast<int>(menu().actions().indexOf(action));
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAction* const action = menu().actionAt(menu().mapFromGlobal(QPoint(x, y)));
        return child(static_cast<int>(menu().actions().indexOf(action)));
    }
    QString text(QAccessible::Text text) const override {
        QString own = QAccessibleWidget::text(text);
        if (text != QAccessible::Name || !own.isEmpty()) {
            return own;
        }
        const QString item = plain_label(menu().menuAction()->text());
        QAccessibleInterface* const from = item.isEmpty() ? parent() : nullptr;
        return from == nullptr ? item : from->text(QAccessible::Name);
    }
    /// The item that opens it, or what the menu belongs to.
    QAccessibleInterface* parent() const override {
        const auto* const above = qobject_cast<const QMenu*>(menu().parentWidget());
        QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(menu().parentWidget());
        return above == nullptr || told == nullptr
                   ? told
                   : told->child(static_cast<int>(above->actions().indexOf(menu().menuAction())));
    }

  private:
    QMenu& menu() const { return *static_cast<QMenu*>(object()); }
    mutable QHash<QAction*, QAccessible::Id> items_;
};

/// A pop-up button: what is below it is its menu, as long as that is open. Qt tells of the list that a plain
/// combo box would open instead, and nobody finds the items of the menu, or why one is disabled.
class PopUpAccessible : public QAccessibleWidget {
  public:
    explicit PopUpAccessible(PopUpWidget& popUp) : QAccessibleWidget(&popUp, QAccessible::ComboBox) {}

    int childCount() const override { return popUp().openMenu() != nullptr ? 1 : 0; }
    QAccessibleInterface* child(int index) const override {
        QMenu* const menu = popUp().openMenu();
        return index == 0 && menu != nullptr ? QAccessible::queryAccessibleInterface(menu) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const QMenu* const menu = popUp().openMenu();
        return menu != nullptr && child != nullptr && child->object() == menu ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* const menu = child(0);
        return menu != nullptr && menu->rect().contains(x, y) ? menu : nullptr;
    }
    /// As of every combo box here: what it shows; what it is for says the label that it belongs to.
    QString text(QAccessible::Text text) const override {
        const QString shown = popUp().currentText();
        const bool asked = text == QAccessible::Name || text == QAccessible::Value;
        return asked && !shown.isEmpty() ? shown : QAccessibleWidget::text(text);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = popUp().openMenu() != nullptr;
        return state;
    }
    QStringList actionNames() const override {
        return popUp().isEnabled() ? QStringList{showMenuAction(), pressAction(), setFocusAction()}
                                   : QStringList{};
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (popUp().openMenu() != nullptr) {
            popUp().hidePopup();
        } else if (popUp().isEnabled()) {
            popUp().showPopup();
        }
    }

  private:
    PopUpWidget& popUp() const { return *static_cast<PopUpWidget*>(object()); }
};

} // namespace

QAccessibleInterface* describe_menu(QMenu& menu) {
    return new MenuAccessible(menu);
}

QAccessibleInterface* describe_pop_up(PopUpWidget& popUp) {
    return new PopUpAccessible(popUp);
}

} // namespace specialpages::qt
