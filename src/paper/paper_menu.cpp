#include "paper/paper_menu.h"

#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_keywords.h"

namespace specialpages {

namespace {

constexpr std::string_view kAnyColor = "Any";

int choice_count(const ppd_option_t* option) {
    return option == nullptr || option->choices == nullptr ? 0 : option->num_choices;
}

} // namespace

std::vector<SubMenuItem> sub_menu_items(PaperPart part, const PaperOptionKeys& keys,
                                        const ppd_option_t* option, const SubMenuTitles& titles) {
    std::vector<SubMenuItem> items{{titles.noChange, tag_base(part), kNoChangeKey}};
    const int count = choice_count(option);
    const bool leaves_any_out = count > 0 && field_text(option->keyword) == KPPDMediaColor &&
                                keys.of(part) == KPPDMediaColor && keys.color == KPPDMediaColor;
    const bool words_last = keys.of(part) == keys.size;
    for (int index = 0; index < count; ++index) {
        const ppd_choice_t& choice = option->choices[index];
        const std::string_view keyword = field_text(choice.choice);
        if (leaves_any_out && keyword == kAnyColor) {
            continue;
        }
        items.push_back(
            {words_last && index == count - 1 ? titles.customSize : ppd_text(field_text(choice.text)),
             tag_base(part) + 1 + index, std::string(keyword)});
    }
    return items;
}

void note_transparency(const ppd_option_t* option, TransparencyIndexes& indexes) {
    for (int index = 0; index < choice_count(option); ++index) {
        const std::string_view keyword = field_text(option->choices[index].choice);
        if (keyword == "Transparency") {
            indexes.transparency = index;
        } else if (keyword == "Clear") {
            indexes.clear = index;
        }
    }
}

std::optional<std::string> separator_text(ppd_file_t* ppd, std::string_view key) {
    const ppd_option_t* option = cups_find_option(ppd, KPPDUncollateSeparator);
    const std::string_view wanted = key.substr(key.rfind('-') + 1);
    for (int index = 0; index < choice_count(option); ++index) {
        if (field_text(option->choices[index].choice) == wanted) {
            return ppd_text(field_text(option->choices[index].text));
        }
    }
    return std::nullopt;
}

} // namespace specialpages
