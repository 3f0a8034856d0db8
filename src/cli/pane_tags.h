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

/// The pane's buttons that open dialogs.
inline constexpr std::int32_t kAddCoversTag = 100;
inline constexpr std::int32_t kAddInsertsTag = 101;
inline constexpr std::int32_t kAddExceptionsTag = 102;

// Views of the dialogs.
inline constexpr std::int32_t kCoverOptionTag = 201;
inline constexpr std::int32_t kFrontPaperTag = 204;
inline constexpr std::int32_t kFrontPrintingTag = 206;
inline constexpr std::int32_t kBackPaperTag = 209;
inline constexpr std::int32_t kBackPrintingTag = 211;
inline constexpr std::int32_t kCoversOKTag = 217;
inline constexpr std::int32_t kInsertOptionTag = 3202;
inline constexpr std::int32_t kInsertQuantityTag = 3204;
inline constexpr std::int32_t kInsertPagesTag = 3207;
inline constexpr std::int32_t kInsertPaperTag = 3210;
inline constexpr std::int32_t kInsertsOKTag = 3216;
inline constexpr std::int32_t kExceptionPagesTag = 311;
inline constexpr std::int32_t kExceptionPaperTag = 312;
inline constexpr std::int32_t kExceptionSidesTag = 314;
inline constexpr std::int32_t kExceptionsOKTag = 315;
inline constexpr std::int32_t kCustomWidthMMTag = 711;
inline constexpr std::int32_t kCustomWidthInchTag = 712;
inline constexpr std::int32_t kCustomMMTag = 717;
inline constexpr std::int32_t kCustomInchesTag = 718;
inline constexpr std::int32_t kCustomLengthMMTag = 731;
inline constexpr std::int32_t kCustomLengthInchTag = 732;
inline constexpr std::int32_t kCustomOKTag = 751;
inline constexpr std::int32_t kTabStockOKTag = 551;
inline constexpr std::int32_t kTabStockSubOKTag = 651;

// Positions in the menus of the dialogs.
inline constexpr std::int64_t kFrontCoverItem = 1;
inline constexpr std::int64_t kInsertAfterItem = 0;
inline constexpr std::int64_t kInsertBeforeItem = 1;
inline constexpr std::int64_t kNoChangeItem = 1;
inline constexpr std::int64_t kSizeItem = 2; ///< color and type follow
inline constexpr std::int64_t kTypeItem = 4;
inline constexpr std::int64_t kInterposerItem = 5;

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
