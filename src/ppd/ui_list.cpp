#include "ppd/ui_list.h"

#include "platform/foundation/text.h"
#include "ppd/choice_conflict.h"
#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"

#include <string_view>

namespace specialpages {

std::int32_t GetUIListFromPPD(ppd_file_t* ppd, const ConstraintIndex* index, const char* key,
                              std::vector<UIListEntry>* list, std::int16_t& count) {
    const ppd_option_t* option = cups_find_option(ppd, key);
    if (list == nullptr || option == nullptr) {
        return 0;
    }
    const char* converter = converter_name(GetCFStringEncodingFromPPD(ppd));
    const std::string_view keyword = field_text(option->keyword);
    for (int i = 0; i < option->num_choices; ++i) {
        const std::string_view choice = field_text(option->choices[i].choice);
        const std::string_view text = field_text(option->choices[i].text);
        list->push_back(
            {std::string(keyword), std::string(choice),
             platform::utf8_from_encoding(text, converter).value_or(std::string()),
             IsPPDChoiceConflicted(ppd, index, keyword, choice) ? kConflictTrue : kConflictFalse});
        count = static_cast<std::int16_t>(count + 1);
    }
    return 0;
}

bool InitializeValueFromPPD(ppd_file_t* ppd, const ConstraintIndex* index, std::vector<UIListEntry>* list,
                            const char* key) {
    std::int16_t count = 0;
    GetUIListFromPPD(ppd, index, key, list, count);
    return true;
}

} // namespace specialpages
