// Sidedness as a matter of the PPD: each item of a sidedness list stands for one or more choices of "Duplex".
// Here are the tables of the two lists and the test which of their items the paper forbids.
#pragma once

#include "paper/paper_choice.h"
#include "ppd/choice_conflict.h"

#include <cups/ppd.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// The choices of "Duplex" that one item stands for. The only one can be kNullChoice: "No Change".
using DuplexChoices = std::span<const char* const>;
/// One entry for each position of a list.
using DuplexChoiceTable = std::span<const DuplexChoices>;

/// The choices at a position; empty optional when the table has none there.
constexpr std::optional<DuplexChoices> duplex_choices_at(DuplexChoiceTable table, std::int64_t position) {
    return position < 0 || position >= static_cast<std::int64_t>(table.size())
               ? std::nullopt
               : std::optional(table[static_cast<std::size_t>(position)]);
}

inline constexpr std::array<const char*, 1> twoSidePrintNoChangeDuplexChoice{kNullChoice};
inline constexpr std::array<const char*, 1> twoSidePrintOneSideDuplexChoice{"None"};
inline constexpr std::array<const char*, 1> twoSidePrintTowSideDuplexChoice{"DuplexTumble"};
inline constexpr std::array<const char*, 1> twoSidePrintTowSideShortEdgeDuplexChoice{"DuplexNoTumble"};

/// The two-side list of exceptions, by the record's "twoSidePrint". The plain two-sided item is
/// "DuplexTumble" and the short-edge one "DuplexNoTumble", the reverse of what the words suggest; it has to
/// stay so.
inline constexpr std::array<DuplexChoices, 4> twoSidePrintGetDuplexChoiceArray{
    twoSidePrintNoChangeDuplexChoice,
    twoSidePrintOneSideDuplexChoice,
    twoSidePrintTowSideDuplexChoice,
    twoSidePrintTowSideShortEdgeDuplexChoice,
};

inline constexpr std::array<const char*, 1> printingOptionNoTwoSidedChoice{"None"};
inline constexpr std::array<const char*, 2> printingOptionTwoSidedChoice{"DuplexTumble", "DuplexNoTumble"};

/// The printing lists of covers, by position: blank, side one, side two, both sides. Printing on side two
/// counts as two-sided.
inline constexpr std::array<DuplexChoices, 4> printingOptionGetDuplexChoiceArray{
    printingOptionNoTwoSidedChoice,
    printingOptionNoTwoSidedChoice,
    printingOptionTwoSidedChoice,
    printingOptionTwoSidedChoice,
};
/// The choice by which each item of a printing list is tested itself.
inline constexpr std::array<const char*, 4> printingOptionPPDOptionChoice{"None", "None", "DuplexTumble",
                                                                          "DuplexNoTumble"};

/// What is chosen of size, color and type, in this order: one choice keyword each, or, for "No Change", what
/// the selected records hold, which are indexes as decimal text and so equal to no keyword.
using PaperSelectionArray = std::array<std::vector<std::string>, 3>;

/// The first choice of the paper that forbids one of the item's choices of `duplexKey`, asked by size, color
/// and type; both pointers are null when none does.
///
/// Here the key is the duplex choice and the paper the other side. A paper menu asks the other way round, so
/// the two read different halves of the PPD's constraints.
ConflictingChoice duplex_item_conflict(const ppd_file_t* ppd, const ConstraintIndex* index,
                                       std::string_view duplexKey, DuplexChoices choices,
                                       const PaperOptionKeys& keys, const PaperSelectionArray& paper);

/// The choice of the index that forbids `key` and is `choice` of `option`; both pointers are null when there
/// is none.
ConflictingChoice forbidding_choice(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view key,
                                    std::string_view option, std::string_view choice);

} // namespace specialpages
