// What the command line knows of the pane: view tags, the nib's names of its windows, and the attribute by
// which a PPD asks for the pane. Nothing else of the pane is known here.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace specialpages::cli {

/// The table of special pages; its columns are page, type and setup, in this order.
inline constexpr std::int32_t kSpecialPagesTableTag = 104;

/// A printer whose PPD has no such attribute has no pane.
inline constexpr const char* kProductAttribute = "NVXSpecialPagesSettings";

/// The nib's name of each window and the word that the line protocol has for it.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 8> kWindowWords{{
    {"CoversWindowRef", "covers"},
    {"InsertWindowRef", "inserts"},
    {"spAddExceptionsWindow", "exceptions"},
    {"spCustomSizeWindow", "custom-size"},
    {"SPAdvSeleWndRef", "advanced"},
    {"spTabStockWindow", "tab-stock"},
    {"spTabStockSubWindow", "tab-stock-sub"},
    {"WarningWindowRef", "warning"},
}};

/// The word for the window of that name; the name itself when it is none of the pane's ("pane" is the
/// host's).
constexpr std::string_view window_word(std::string_view name) {
    for (const auto& [window, word] : kWindowWords) {
        if (window == name) {
            return word;
        }
    }
    return name;
}

} // namespace specialpages::cli
