// The strip of sheets to assistive tools: a list with an item a sheet.
#include "qt/SheetStrip.h"
#include "qt/text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <map>

namespace specialpages::qt {

namespace {

class SheetItem final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    SheetItem(SheetStrip& strip, std::size_t cell) : strip_(strip), cell_(cell) {}

    bool isValid() const override { return cell_ < strip_.glance().cells.size(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return strip_.window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&strip_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? shown_text(strip_.glance().cells[cell_].sentence)
                                                      : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const QRect place = strip_.cellRect(cell_);
        return {strip_.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.focusable = true;
        state.disabled = !strip_.isEnabled();
        if (!isValid()) {
            return state;
        }
        const auto& row = strip_.glance().cells[cell_].row;
        state.selectable = row.has_value();
        state.selected = row && strip_.selectedRows().contains(*row);
        state.focused = strip_.hasFocus() && strip_.currentCell() == cell_;
        state.offscreen = !strip_.viewport()->rect().intersects(strip_.cellRect(cell_));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == setFocusAction()) {
            strip_.setFocus(Qt::OtherFocusReason);
        }
        if (action == pressAction() || action == setFocusAction()) {
            strip_.goTo(cell_);
        }
    }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

  private:
    SheetStrip& strip_;
    std::size_t cell_;
};

class SheetList final : public QAccessibleWidget {
  public:
    explicit SheetList(SheetStrip& strip) : QAccessibleWidget(&strip, QAccessible::List), strip_(strip) {}
    ~SheetList() override {
        for (const auto& [cell, id] : items_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
    SheetList(const SheetList&) = delete;
    SheetList& operator=(const SheetList&) = delete;

    int childCount() const override { return static_cast<int>(strip_.glance().cells.size()); }

    /// Made when it is asked for: a job may have many sheets, and few of them are ever heard.
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        const auto [place, isNew] = items_.try_emplace(index, 0);
        if (isNew) {
            // Owned by the table of interfaces until it is deleted by its id.
            place->second = QAccessible::registerAccessibleInterface(
                new SheetItem(strip_, static_cast<std::size_t>(index)));
        }
        return QAccessible::accessibleInterface(place->second);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const auto cell = strip_.cellAt(strip_.viewport()->mapFromGlobal(QPoint(x, y)));
        return cell ? child(static_cast<int>(*cell)) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [cell, id] : items_) {
            if (QAccessible::accessibleInterface(id) == wanted) {
                return cell;
            }
        }
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        const auto cell = strip_.currentCell();
        return cell && strip_.hasFocus() ? child(static_cast<int>(*cell)) : nullptr;
    }

  private:
    SheetStrip& strip_;
    mutable std::map<int, QAccessible::Id> items_;
};

QAccessibleInterface* make_sheet_list(const QString& /*className*/, QObject* object) {
    auto* const strip = qobject_cast<SheetStrip*>(object);
    return strip == nullptr ? nullptr : new SheetList(*strip);
}

} // namespace

void install_sheet_strip_accessibility() {
    QAccessible::installFactory(make_sheet_list);
}

} // namespace specialpages::qt
