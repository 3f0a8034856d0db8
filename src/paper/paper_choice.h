// The paper of a special page as the paper menus hold it: one choice of the PPD's sizes, colors and types
// each, and whether the sheet comes from the interposer instead. Here are the numbers that menus, records and
// dialogs share: positions in the menu, tags of sub-menu items, and the indexes that mean something special
// in a PPD.
#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// In place of an index: this part of the paper stays as it is.
inline constexpr std::int32_t kNoChange = -1;
/// In place of a choice keyword: "No Change" in the paper, not marked elsewhere.
inline constexpr const char* kNullChoice = "NULL";
/// The key of the title "No Change", which is also the represented object of that item.
inline constexpr const char* kNoChangeKey = "No Change Option String";
/// The key of the title of the last size.
inline constexpr const char* kCustomSizeTitleKey = "Custom Size Text";

/// A part of the paper; the number is its position in the menu and its type in operations that take one.
enum class PaperPart : std::int32_t { size = 2, color = 3, type = 4 };
/// In the order in which every walk takes them.
inline constexpr std::array<PaperPart, 3> kPaperParts{PaperPart::size, PaperPart::color, PaperPart::type};
constexpr std::size_t part_index(PaperPart part) {
    return static_cast<std::size_t>(part) - static_cast<std::size_t>(PaperPart::size);
}
/// Empty for a number that is none of the three.
constexpr std::optional<PaperPart> paper_part(std::int64_t number) {
    return number >= 2 && number <= 4 ? std::optional(static_cast<PaperPart>(number)) : std::nullopt;
}

/// The other positions of the menu.
inline constexpr std::int64_t kTitlePosition = 0;
inline constexpr std::int64_t kNoChangePosition = 1;
inline constexpr std::int64_t kInterposerPosition = 5;
inline constexpr std::int64_t kAdvancedPosition = 6;

/// The three option keywords by which a menu is built.
struct PaperOptionKeys {
    std::string size;
    std::string color;
    std::string type;

    const std::string& of(PaperPart part) const {
        return part == PaperPart::size ? size : part == PaperPart::color ? color : type;
    }
};

struct PaperChoice {
    std::int32_t size = kNoChange;
    std::int32_t color = kNoChange;
    std::int32_t type = kNoChange;
    bool interposer = false;

    std::int32_t& of(PaperPart part) {
        return part == PaperPart::size ? size : part == PaperPart::color ? color : type;
    }
    std::int32_t of(PaperPart part) const {
        return part == PaperPart::size ? size : part == PaperPart::color ? color : type;
    }
    /// Whether all three parts are chosen.
    bool complete() const { return size >= 0 && color >= 0 && type >= 0; }
    friend bool operator==(const PaperChoice&, const PaperChoice&) = default;
};

/// The same as a paper menu hands it out as its value.
struct PaperControlValue {
    std::int64_t size = 0;
    std::int64_t color = 0;
    std::int64_t type = 0;
    std::int64_t interposer = 0;

    friend bool operator==(const PaperControlValue&, const PaperControlValue&) = default;
};

/// The size behind the choice "Custom", in millimetres as text; long measure 0 shows inches, 1 millimetres.
inline constexpr const char* kDefaultCustomWidth = "210.0";
inline constexpr const char* kDefaultCustomLength = "297.0";
inline constexpr std::int32_t kDefaultLongMeasure = 1;
/// Longest text of a width or length, in bytes.
inline constexpr std::size_t kMaxCustomSizeBytes = 255;

/// Tag of the "No Change" item of a sub-menu: 2000, 3000 or 4000. The n-th choice has the tag that is n + 1
/// higher.
constexpr std::int32_t tag_base(PaperPart part) {
    return static_cast<std::int32_t>(part) * 1000;
}
struct SubMenuTag {
    std::int32_t position = 0; ///< of the sub-menu in the menu
    std::int32_t index = 0;    ///< of the choice; -1 for "No Change"
};
constexpr SubMenuTag read_tag(std::int32_t tag) {
    return {tag / 1000, tag % 1000 - 1};
}

/// What the menu falls back to: the PPD's default size and color, but always the type "Stationary". -1 for a
/// default that is not there; without "Stationary" the number of types, one past the last.
PaperChoice default_paper(ppd_file_t* ppd, const PaperOptionKeys& keys);

/// Indexes of the types that are tab stock (their keywords begin with "TabbedPaper"), as decimal text, the
/// last one first. Empty for a null option.
std::vector<std::string> tab_stock_indexes(const ppd_option_t* types);
/// Index of the last size whose keyword is exactly "Custom", as decimal text: one entry or none.
std::vector<std::string> custom_size_indexes(const ppd_option_t* sizes);
/// Whether the index stands in such an array; never for a negative one.
bool holds_index(const std::vector<std::string>& indexes, std::int32_t index);

/// Index of the choice of that option that the PPD has marked; empty when none is.
std::optional<std::int32_t> marked_choice_index(ppd_file_t* ppd, const std::string& key);

/// A text of the PPD as it can be shown. PPD texts are taken as UTF-8; of one that was cut inside a
/// character, that character goes, and one that is ill-formed elsewhere is read as Latin 1.
std::string ppd_text(std::string_view bytes);

} // namespace specialpages
