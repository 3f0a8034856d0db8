// The contents of a constraint index in forms that tests can compare.
#pragma once

#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/name_lookup.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace specialpages {

inline void PrintTo(const x_constraints& place, std::ostream* out) {
    *out << place.groupIndex << "." << place.optionIndex << "." << place.choiceIndex;
}

namespace test {

using EntryText = std::pair<std::string, std::string>;

/// "group.option.choice".
inline std::string place_text(x_constraints place) {
    return std::to_string(place.groupIndex) + "." + std::to_string(place.optionIndex) + "." +
           std::to_string(place.choiceIndex);
}

/// All entries in the order of iteration: key and "group.option.choice".
inline std::vector<EntryText> ordered_entries(const ConstraintIndex& index) {
    std::vector<EntryText> entries;
    for (const auto& [key, place] : index) {
        entries.emplace_back(key, place_text(place));
    }
    return entries;
}

/// All entries, sorted.
inline std::vector<EntryText> sorted_entries(const ConstraintIndex& index) {
    auto entries = ordered_entries(index);
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// The choices that forbid a key as "option:choice", sorted.
inline std::vector<std::string> forbidding(const ppd_file_t* ppd, const ConstraintIndex& index,
                                           std::string_view key) {
    std::vector<std::string> names;
    for (const ConflictingChoice& each : conflicting_choices(ppd, &index, key)) {
        names.emplace_back(
            ChoiceKey(field_text(each.option->keyword), field_text(each.choice->choice)).text());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// The different keys, sorted.
inline std::vector<std::string> keys_of(const ConstraintIndex& index) {
    std::vector<std::string> keys;
    for (const auto& [key, place] : index) {
        keys.emplace_back(key);
    }
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

} // namespace test
} // namespace specialpages
