// What a paper menu needs of the sidedness list that stands beside it.
#pragma once

#include "paper/duplex_choices.h"

#include <cstdint>
#include <optional>

namespace specialpages {

class SidednessList {
  public:
    SidednessList() = default;
    SidednessList(const SidednessList&) = delete;
    SidednessList& operator=(const SidednessList&) = delete;
    virtual ~SidednessList() = default;

    /// The choices of the selected item; empty without a table, a view or a selected item.
    virtual std::optional<DuplexChoices> getCurrentDuplexArray() const = 0;
    /// The choices of an item; empty for a position that the table does not have.
    virtual std::optional<DuplexChoices> getDuplexArrayFromIndex(std::int64_t index) const = 0;
    /// The whole table; empty without one.
    virtual DuplexChoiceTable duplexChoiceTable() const = 0;
};

} // namespace specialpages
