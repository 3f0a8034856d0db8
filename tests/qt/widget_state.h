// Windows and views as the line protocol shows them, read from widgets alone.
#pragma once

#include <nlohmann/json.hpp>

#include <QString>
#include <cstdint>
#include <string>

class QWidget;

namespace specialpages::qt::testing {

/// "button", "popup", ... as the line protocol calls what the widget shows; "" for anything else.
std::string class_of(QWidget& widget);
/// The first widget below the window (not inside other windows) with that tag; null for none.
QWidget* widget_with_tag(QWidget& window, std::int32_t tag);
nlohmann::ordered_json state_of_window(QWidget& window, const std::string& word, const std::string& title);

} // namespace specialpages::qt::testing
