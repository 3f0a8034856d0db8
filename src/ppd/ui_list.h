// An option's choices as a list of texts, each with a flag that says whether what is marked now forbids it.
#pragma once

#include "ppd/constraint_index.h"

#include <cups/ppd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace specialpages {

/// One choice: the texts at the positions below.
using UIListEntry = std::array<std::string, 4>;

inline constexpr std::size_t kUIListOption = 0; ///< the option's keyword
inline constexpr std::size_t kUIListChoice = 1; ///< the choice's keyword
/// The choice's text, read in the PPD's encoding; empty when it is ill-formed there.
inline constexpr std::size_t kUIListText = 2;
/// One of the two texts below.
inline constexpr std::size_t kUIListConflict = 3;

inline constexpr const char* kConflictTrue = "ConflictTrue";
inline constexpr const char* kConflictFalse = "ConflictFalse";

/// Appends an entry for each choice of the option, in order, and adds their number to `count`, which is not
/// reset here and wraps at 16 bits. Nothing happens for a null list, a missing option or one without choices.
/// Answers 0 always.
std::int32_t GetUIListFromPPD(ppd_file_t* ppd, const ConstraintIndex* index, const char* key,
                              std::vector<UIListEntry>* list, std::int16_t& count);

/// GetUIListFromPPD for a key, if the PPD has it. True always, also for a missing option.
bool InitializeValueFromPPD(ppd_file_t* ppd, const ConstraintIndex* index, std::vector<UIListEntry>* list,
                            const char* key);

} // namespace specialpages
