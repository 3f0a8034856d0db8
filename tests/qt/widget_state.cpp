#include "qt/widget_state.h"

#include "qt/FieldWidget.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/menus.h"
#include "qt/text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <map>
#include <memory>

namespace specialpages::qt::testing {

using nlohmann::ordered_json;

namespace {

void collect(QWidget& widget, std::map<std::int32_t, QWidget*>& found) {
    for (QObject* const child : widget.children()) {
        auto* const below = qobject_cast<QWidget*>(child);
        if (below == nullptr || below->isWindow()) {
            continue;
        }
        const std::int32_t tag = below->property("tag").toInt();
        if (tag != 0) {
            found.try_emplace(tag, below);
        }
        collect(*below, found);
    }
}

ordered_json items_of(const QMenu& menu) {
    ordered_json items = ordered_json::array();
    for (const QAction* const action : menu.actions()) {
        ordered_json item{{"title", plain_label(action->text()).toStdString()},
                          {"enabled", action->isVisible() ? action->isEnabled() : item_enabled(*action)},
                          {"hidden", !action->isVisible()},
                          {"tag", item_tag(*action)}};
        if (action->isChecked()) {
            item["state"] = "on";
        }
        if (!action->isEnabled() && !action->toolTip().isEmpty() && !action->statusTip().isEmpty()) {
            item["reason"] = action->statusTip().toStdString();
        }
        if (action->menu() != nullptr) {
            item["menu"] = items_of(*action->menu());
        }
        items.push_back(std::move(item));
    }
    return items;
}

void add_table(ordered_json& state, const TableWidget& table) {
    const QAbstractItemModel& model = *table.model();
    state["columns"] = ordered_json::array();
    for (int column = 0; column < model.columnCount(); ++column) {
        state["columns"].push_back(model.headerData(column, Qt::Horizontal).toString().toStdString());
    }
    state["rows"] = ordered_json::array();
    for (int row = 0; row < model.rowCount(); ++row) {
        ordered_json cells = ordered_json::array();
        for (int column = 0; column < model.columnCount(); ++column) {
            cells.push_back(model.index(row, column).data().toString().toStdString());
        }
        state["rows"].push_back(std::move(cells));
    }
    state["selected"] = table.selectedRowSet();
}

void add_kind(ordered_json& state, QWidget& widget) {
    if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
        state["title"] = plain_label(button->text()).toStdString();
        state["value"] = button->isChecked() ? 1 : 0;
    } else if (auto* const popup = dynamic_cast<PopUpWidget*>(&widget)) {
        state["value"] = popup->shownIndex();
        const std::unique_ptr<QMenu> menu(popup->makeMenu());
        state["items"] = items_of(*menu);
    } else if (auto* const field = dynamic_cast<FieldWidget*>(&widget)) {
        state["text"] = field->text().toStdString();
    } else if (auto* const text = qobject_cast<QPlainTextEdit*>(&widget)) {
        state["text"] = text->toPlainText().toStdString();
    } else if (auto* const stepper = dynamic_cast<StepperWidget*>(&widget)) {
        state["value"] = stepper->value();
        state["min"] = stepper->minimum();
        state["max"] = stepper->maximum();
    } else if (auto* const table = dynamic_cast<TableWidget*>(&widget)) {
        add_table(state, *table);
    } else if (auto* const label = qobject_cast<QLabel*>(&widget);
               label != nullptr && dynamic_cast<IconWidget*>(&widget) == nullptr) {
        state["text"] = label->buddy() != nullptr ? plain_label(label->text()).toStdString()
                                                  : label->text().toStdString();
    }
}

} // namespace

std::string class_of(QWidget& widget) {
    if (qobject_cast<QRadioButton*>(&widget) != nullptr) {
        return "radio";
    }
    if (qobject_cast<QAbstractButton*>(&widget) != nullptr) {
        return "button";
    }
    if (dynamic_cast<PopUpWidget*>(&widget) != nullptr) {
        return "popup";
    }
    if (dynamic_cast<FieldWidget*>(&widget) != nullptr) {
        return "field";
    }
    if (dynamic_cast<IconWidget*>(&widget) != nullptr) {
        return "icon";
    }
    if (qobject_cast<QLabel*>(&widget) != nullptr) {
        return "static";
    }
    if (qobject_cast<QPlainTextEdit*>(&widget) != nullptr) {
        return "text";
    }
    if (dynamic_cast<StepperWidget*>(&widget) != nullptr) {
        return "stepper";
    }
    return dynamic_cast<TableWidget*>(&widget) != nullptr ? "table" : "view";
}

QWidget* widget_with_tag(QWidget& window, std::int32_t tag) {
    std::map<std::int32_t, QWidget*> found;
    collect(window, found);
    const auto at = found.find(tag);
    return at == found.end() ? nullptr : at->second;
}

ordered_json state_of_window(QWidget& window, const std::string& word, const std::string& title) {
    std::map<std::int32_t, QWidget*> widgets;
    collect(window, widgets);
    ordered_json state{{"window", word}, {"title", title}};
    state["views"] = ordered_json::object();
    for (const auto& [tag, widget] : widgets) {
        ordered_json view{{"class", class_of(*widget)},
                          {"enabled", widget->isEnabledTo(&window)},
                          {"hidden", !widget->isVisibleTo(&window)}};
        add_kind(view, *widget);
        state["views"][std::to_string(tag)] = std::move(view);
    }
    return state;
}

} // namespace specialpages::qt::testing
