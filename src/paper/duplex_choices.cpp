#include "paper/duplex_choices.h"

#include "ppd/name_lookup.h"

namespace specialpages {

ConflictingChoice forbidding_choice(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view key,
                                    std::string_view option, std::string_view choice) {
    for (const ConflictingChoice& each : conflicting_choices(ppd, index, key)) {
        if (field_text(each.option->keyword) == option && field_text(each.choice->choice) == choice) {
            return each;
        }
    }
    return {};
}

ConflictingChoice duplex_item_conflict(const ppd_file_t* ppd, const ConstraintIndex* index,
                                       std::string_view duplexKey, DuplexChoices choices,
                                       const PaperOptionKeys& keys, const PaperSelectionArray& paper) {
    for (const PaperPart part : kPaperParts) {
        for (const std::string& selected : paper[part_index(part)]) {
            for (const char* choice : choices) {
                const ChoiceKey key(duplexKey, choice);
                const ConflictingChoice found =
                    forbidding_choice(ppd, index, key.text(), keys.of(part), selected);
                if (found.choice != nullptr) {
                    return found;
                }
            }
        }
    }
    return {};
}

} // namespace specialpages
