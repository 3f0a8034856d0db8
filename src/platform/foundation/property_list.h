// Property lists: a value tree, read from and written as XML property lists (libplist).
#pragma once

#include "platform/export.h"
#include "platform/foundation/property_list_limits.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace specialpages::platform {

/// One value of a property list. A dictionary keeps the order in which its keys were added.
struct SPECIALPAGES_PLATFORM_API PropertyList {
    using Array = std::vector<PropertyList>;
    using Dictionary = std::vector<std::pair<std::string, PropertyList>>;
    using Data = std::vector<std::uint8_t>;
    std::variant<bool, std::int64_t, double, std::string, Data, Array, Dictionary> value{Dictionary{}};

    /// The entry of a dictionary; null when this is no dictionary or has no such key.
    const PropertyList* find(std::string_view key) const;
    PropertyList* find(std::string_view key);
    /// Sets the entry of a dictionary in place, or adds it at the end. A value that is no dictionary becomes
    /// one.
    void set(std::string_view key, PropertyList entry);
    /// Removes the entry; false when there was none.
    bool remove(std::string_view key);
    /// The text; null when this is no text.
    const std::string* text() const { return std::get_if<std::string>(&value); }
};

/// Reads an XML property list. On failure the optional is empty and `error`, when given, says what was wrong
/// (with the line where it is known). Ill-formed UTF-8, a byte-order mark, a key that stands twice in its
/// dictionary, and kinds of value that this tree does not hold (dates, UIDs) are refused; so are integers
/// past 64 bits with sign, numbers that are not decimal, malformed Base64, and document types with
/// declarations of their own.
SPECIALPAGES_PLATFORM_API std::optional<PropertyList> parse_property_list(std::string_view bytes,
                                                                          std::string* error = nullptr);

/// The XML form. Reading it gives the same tree, and writing that gives the same bytes, for every tree within
/// the bounds above whose texts are well-formed UTF-8 without zero bytes; other bytes of a text are written
/// as U+FFFD. Of two equal keys the first is written.
SPECIALPAGES_PLATFORM_API std::string write_property_list(const PropertyList& list);

} // namespace specialpages::platform
