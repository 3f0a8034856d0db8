#include "cli/drive_state.h"

#include "cli/pane_tags.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <map>
#include <utility>

namespace specialpages::cli {

using nlohmann::ordered_json;
using platform::View;
using platform::ViewKind;

namespace {

/// A limit as an integer when it is one, so that 1 is not shown as 1.0.
ordered_json number(double value) {
    if (std::abs(value) < 1e15 && std::trunc(value) == value) {
        return static_cast<std::int64_t>(value);
    }
    return value;
}

ordered_json menu_items(const platform::Menu& menu) {
    ordered_json items = ordered_json::array();
    for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
        const platform::MenuItem& item = *menu.itemAtIndex(static_cast<std::int64_t>(i));
        ordered_json shown{{"title", item.title()},
                           {"enabled", item.isEnabled()},
                           {"hidden", item.isHidden()},
                           {"tag", item.tag()}};
        if (item.state()) {
            shown["state"] = "on";
        }
        if (!item.isEnabled() && !item.toolTip().empty()) {
            shown["reason"] = item.toolTip();
        }
        if (item.submenu() != nullptr) {
            shown["menu"] = menu_items(*item.submenu());
        }
        items.push_back(std::move(shown));
    }
    return items;
}

void add_table(ordered_json& state, platform::TableView& table) {
    state["columns"] = ordered_json::array();
    for (const platform::TableColumn& column : table.tableColumns()) {
        state["columns"].push_back(column.headerTitle);
    }
    state["rows"] = ordered_json::array();
    for (std::size_t row = 0; row < table.numberOfRows(); ++row) {
        ordered_json cells = ordered_json::array();
        for (std::size_t column = 0; column < table.tableColumns().size(); ++column) {
            cells.push_back(table.text(row, column));
        }
        state["rows"].push_back(std::move(cells));
    }
    state["selected"] = table.selectedRowIndexes();
}

void collect(View& view, std::map<std::int32_t, View*>& views) {
    for (const auto& subview : view.subviews()) {
        if (subview->kind() == ViewKind::window) {
            continue;
        }
        if (subview->tag() != 0) {
            views.try_emplace(subview->tag(), subview.get());
        }
        collect(*subview, views);
    }
}

} // namespace

std::string_view class_word(ViewKind kind) {
    switch (kind) {
    case ViewKind::view:
        return "view";
    case ViewKind::window:
        return "window";
    case ViewKind::icon:
        return "icon";
    case ViewKind::button:
        return "button";
    case ViewKind::radio:
        return "radio";
    case ViewKind::popup:
        return "popup";
    case ViewKind::textField:
        return "field";
    case ViewKind::staticText:
        return "static";
    case ViewKind::scrollText:
        return "text";
    case ViewKind::stepper:
        return "stepper";
    case ViewKind::table:
        return "table";
    }
    return "view";
}

ordered_json view_state(View& view) {
    ordered_json state{
        {"class", class_word(view.kind())}, {"enabled", view.isEnabled()}, {"hidden", !view.isVisible()}};
    if (const auto* const button = dynamic_cast<platform::Button*>(&view)) {
        state["title"] = button->title();
        state["value"] = button->intValue();
    } else if (const auto* const popup = dynamic_cast<platform::PopUpButton*>(&view)) {
        state["value"] = popup->indexOfSelectedItem();
        state["items"] = menu_items(popup->menu());
    } else if (const auto* const field = dynamic_cast<platform::TextField*>(&view)) {
        state["text"] = field->shownText();
    } else if (const auto* const stepper = dynamic_cast<platform::Stepper*>(&view)) {
        state["value"] = stepper->intValue();
        state["min"] = number(stepper->minValue());
        state["max"] = number(stepper->maxValue());
    } else if (auto* const table = dynamic_cast<platform::TableView*>(&view)) {
        add_table(state, *table);
    }
    return state;
}

ordered_json window_state(platform::Window& window) {
    std::map<std::int32_t, View*> views;
    collect(window, views);
    ordered_json state{{"window", window_word(window.name())}, {"title", window.title()}};
    state["views"] = ordered_json::object();
    for (const auto& [tag, view] : views) {
        state["views"][std::to_string(tag)] = view_state(*view);
    }
    return state;
}

} // namespace specialpages::cli
