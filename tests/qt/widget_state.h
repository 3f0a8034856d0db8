// Windows and views as the line protocol shows them, read from widgets alone.
#pragma once

#include <QString>

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

class QWidget;

namespace specialpages::qt::testing {

/// The text of a button, label or menu item without the marks of its letter.
std::string plain_label(const QString& text);
/// "button", "popup", ... as the line protocol calls what the widget shows; "" for anything else.
std::string class_of(QWidget& widget);
/// The first widget below the window (not inside other windows) with that tag; null for none.
QWidget* widget_with_tag(QWidget& window, std::int32_t tag);
nlohmann::ordered_json state_of_window(QWidget& window, const std::string& word, const std::string& title);

} // namespace specialpages::qt::testing
