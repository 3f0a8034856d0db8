// Windows and views as the line protocol shows them.
#pragma once

#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace specialpages::cli {

/// "button", "radio", "popup", "field", "static", "text", "stepper", "table", "icon", "view".
std::string_view class_word(platform::ViewKind kind);

/// One view: class, enabled, hidden (its own flag or that of a superview), and what its kind adds. Nothing is
/// changed, and nothing that is being typed is committed.
nlohmann::ordered_json view_state(platform::View& view);

/// The window's word and title, and its views by tag in ascending order, hidden and disabled ones included.
/// Views without a tag are left out; of views with one tag the first stands, which is the one that a request
/// reaches. Windows inside the window are not looked into.
nlohmann::ordered_json window_state(platform::Window& window);

} // namespace specialpages::cli
