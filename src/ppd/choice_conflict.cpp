#include "ppd/choice_conflict.h"

#include "ppd/name_lookup.h"

#include <algorithm>

namespace specialpages {

namespace {

template <typename Item>
const Item* item_at(const Item* items, int count, std::uint16_t position) {
    return items != nullptr && position < count ? items + position : nullptr;
}

} // namespace

ConflictingChoice choice_at(const ppd_file_t& ppd, x_constraints place) {
    const ppd_group_t* group = item_at(ppd.groups, ppd.num_groups, place.groupIndex);
    const ppd_option_t* option =
        group == nullptr ? nullptr : item_at(group->options, group->num_options, place.optionIndex);
    const ppd_choice_t* choice =
        option == nullptr ? nullptr : item_at(option->choices, option->num_choices, place.choiceIndex);
    return choice == nullptr ? ConflictingChoice{} : ConflictingChoice{option, choice};
}

void ConflictingChoices::const_iterator::settle() {
    for (; at_ != end_; ++at_) {
        current_ = choice_at(*ppd_, *at_);
        if (current_.choice != nullptr) {
            return;
        }
    }
}

ConflictingChoices conflicting_choices(const ppd_file_t* ppd, const ConstraintIndex* index,
                                       std::string_view key) {
    return ppd == nullptr || index == nullptr ? ConflictingChoices()
                                              : ConflictingChoices(*ppd, index->equal_range(key));
}

bool IsPPDChoiceConflicted(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view option,
                           std::string_view choice) {
    const ChoiceKey key(option, choice);
    const ConflictingChoices forbidding = conflicting_choices(ppd, index, key.text());
    return std::any_of(forbidding.begin(), forbidding.end(),
                       [](const ConflictingChoice& each) { return each.choice->marked != 0; });
}

bool isChoiceConflicted(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view key,
                        std::string_view option, std::string_view choice) {
    const ConflictingChoices forbidding = conflicting_choices(ppd, index, key);
    return std::any_of(forbidding.begin(), forbidding.end(), [&](const ConflictingChoice& each) {
        return field_text(each.option->keyword) == option && field_text(each.choice->choice) == choice;
    });
}

} // namespace specialpages
