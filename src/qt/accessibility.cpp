#include "qt/accessibility.h"

#include "qt/text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QHash>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>

namespace specialpages::qt {

namespace {

/// One item of a menu.
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
            action_->trigger();
        } else if (name == showMenuAction() && action_->menu() != nullptr) {
            menu_->setActiveAction(action_);
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
        const QString own = QAccessibleWidget::text(text);
        return text == QAccessible::Name && own.isEmpty() ? plain_label(menu().menuAction()->text()) : own;
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(menu().parentWidget());
    }

  private:
    QMenu& menu() const { return *static_cast<QMenu*>(object()); }
    mutable QHash<QAction*, QAccessible::Id> items_;
};

/// A radio button: Qt takes one that leaves the others to the model for a check box.
class RadioAccessible : public QAccessibleWidget {
  public:
    explicit RadioAccessible(QRadioButton& radio) : QAccessibleWidget(&radio, QAccessible::RadioButton) {}

    QString text(QAccessible::Text text) const override {
        // Not the title of the group that it may stand in, which is what any other widget would be called.
        const QString own = radio().accessibleName();
        if (text == QAccessible::Name) {
            return own.isEmpty() ? plain_label(radio().text()) : own;
        }
        return QAccessibleWidget::text(text);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = radio().isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return radio().isEnabled() ? QStringList{pressAction(), setFocusAction()} : QStringList{};
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            radio().click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    QRadioButton& radio() const { return *static_cast<QRadioButton*>(object()); }
};

QAccessibleInterface* describe(const QString& className, QObject* object) {
    if (className == QLatin1String("QRadioButton")) {
        return new RadioAccessible(*qobject_cast<QRadioButton*>(object));
    }
    auto* const menu = className == QLatin1String("QMenu") ? qobject_cast<QMenu*>(object) : nullptr;
    return menu == nullptr ? nullptr : new MenuAccessible(*menu);
}

} // namespace

void install_accessibility() {
    QAccessible::installFactory(describe);
}

} // namespace specialpages::qt
