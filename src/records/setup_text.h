// The words of the list's setup column: a head that says what is special about the page, and its paper. A
// record holds indexes; paper names come from the paper menu of the dialog that made it, all other words from
// the bundle's localised texts. Composed anew each time; nothing is kept.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

/// A dialog's paper menu as far as the list reads it. Kinds are 2 size, 3 color, 4 type; indexes are those of
/// the PPD's choices. Null for an index without an item.
class PaperTitles {
  public:
    PaperTitles() = default;
    PaperTitles(const PaperTitles&) = delete;
    PaperTitles& operator=(const PaperTitles&) = delete;
    virtual ~PaperTitles() = default;

    virtual std::optional<std::string> getSelectedMenuItemTitle(std::int64_t kind,
                                                                std::int64_t index) const = 0;
    /// The keyword behind the title.
    virtual std::optional<std::string> getSelectedMenuItemChoice(std::int64_t kind,
                                                                 std::int64_t index) const = 0;
};

/// Where the texts come from.
class SetupWords {
  public:
    SetupWords() = default;
    SetupWords(const SetupWords&) = delete;
    SetupWords& operator=(const SetupWords&) = delete;
    virtual ~SetupWords() = default;

    /// "not found" for a key that is missing.
    virtual std::string localizedText(std::string_view key) const = 0;
    /// The same from the bundle's default table.
    virtual std::string defaultTableText(std::string_view key) const = 0;
    /// The PPD's name for the interposer; null when it has none.
    virtual std::optional<std::string> interposerText() const = 0;
    /// Keyword of a page size; empty for an index that the PPD does not have.
    virtual std::string sizeKeyword(std::int32_t index) const = 0;
};

/// Kinds of property.
enum SetupProperty : std::int32_t {
    kSetupHead = 1,
    kSetupSize = 2,
    kSetupColor = 3,
    kSetupType = 4,
    kSetupInterposer = 5
};

/// Appends the text. A color or type whose choice holds "Custom" has a name that the user gave and is
/// labelled with what it is; a null choice is labelled too. Nothing for a null string or text.
void addPropertyInfoString(std::string* string, std::optional<std::string_view> PropertyInfo,
                           std::optional<std::string_view> PropertyChoice, std::int32_t infoType,
                           const SetupWords& words);

/// "Head; size, color, type", "Head; width x length unit, color, type" or "Head; interposer". The head of a
/// cover is its printing option, that of an insert its quantity, that of an exception its sidedness. A part
/// of the paper without a title leaves its place empty.
std::string cover_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                             const SetupWords& words);
std::string insert_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                              const SetupWords& words);
std::string exception_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                                 const SetupWords& words);

/// What stands behind the "; " of these three: the paper alone.
std::string paper_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                             const SetupWords& words);

/// The format with its first "%d" replaced by the number.
std::string format_number(std::string_view format, std::int32_t number);

} // namespace specialpages
