// The static tables that declare a control: what it shows first and falls back to, where its value is
// written, and which other controls it disables, hides and updates. Tables are constant data; controls only
// point at them. Texts in tables are localisation keys.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace specialpages {

/// Tag of a view; every tag is a named constant.
using ControlTag = std::int32_t;

/// A control's value: an item number (1-based), a state or a number, or a text, by kind of control.
using ControlValue = std::variant<std::int32_t, std::string>;

/// Where a control's value is written. A null key takes no part.
struct AccessInfo {
    const char* ticketKey = nullptr;
    const char* preferenceKey = nullptr;
};

/// The views that one value of a control touches, in the order in which they are told. Empty: none.
using ConstraintRow = std::span<const ControlTag>;
/// One row for each value of the control, in value order. An index outside is no row.
using ConstraintRows = std::span<const ConstraintRow>;

struct ConstraintRecord {
    ConstraintRows disable;
    ConstraintRows hide;
    ConstraintRows update;
};

/// The row at `index`, empty when the index is negative or past the end.
constexpr ConstraintRow row_at(ConstraintRows rows, std::int64_t index) {
    return index < 0 || index >= static_cast<std::int64_t>(rows.size())
               ? ConstraintRow{}
               : rows[static_cast<std::size_t>(index)];
}

} // namespace specialpages
