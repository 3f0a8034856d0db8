#include "paper/paper_choice.h"

#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"

#include <algorithm>

namespace specialpages {

namespace {

constexpr const char* kStandardType = "Stationary";
constexpr std::string_view kTabStockPrefix = "TabbedPaper";
constexpr std::string_view kCustomSize = "Custom";

/// Choices of the option, from the last one to the first, whose keyword `matches`.
template <typename Matches>
std::vector<std::string> indexes_from_the_end(const ppd_option_t* option, bool first_only, Matches matches) {
    std::vector<std::string> found;
    if (option == nullptr || option->choices == nullptr) {
        return found;
    }
    for (int index = option->num_choices - 1; index >= 0; --index) {
        if (matches(field_text(option->choices[index].choice))) {
            found.push_back(platform::decimal_text(index));
            if (first_only) {
                break;
            }
        }
    }
    return found;
}

} // namespace

PaperChoice default_paper(ppd_file_t* ppd, const PaperOptionKeys& keys) {
    PaperChoice paper;
    paper.size = GetUIDefaultValueFromPPD(ppd, keys.size.c_str());
    paper.color = GetUIDefaultValueFromPPD(ppd, keys.color.c_str());
    paper.type = GetChoiceIndex(ppd, keys.type.c_str(), kStandardType);
    return paper;
}

std::vector<std::string> tab_stock_indexes(const ppd_option_t* types) {
    return indexes_from_the_end(
        types, false, [](std::string_view keyword) { return keyword.starts_with(kTabStockPrefix); });
}

std::vector<std::string> custom_size_indexes(const ppd_option_t* sizes) {
    return indexes_from_the_end(sizes, true, [](std::string_view keyword) { return keyword == kCustomSize; });
}

bool holds_index(const std::vector<std::string>& indexes, std::int32_t index) {
    return index >= 0 &&
           std::find(indexes.begin(), indexes.end(), platform::decimal_text(index)) != indexes.end();
}

std::optional<std::int32_t> marked_choice_index(ppd_file_t* ppd, const std::string& key) {
    const ppd_choice_t* marked = cups_find_marked_choice(ppd, key.c_str());
    if (marked == nullptr) {
        return std::nullopt;
    }
    const std::string keyword(field_text(marked->choice));
    return GetIndexFromPPDByKeyword(cups_find_option(ppd, key.c_str()), keyword.c_str());
}

std::string ppd_text(std::string_view bytes) {
    constexpr std::size_t kLongestCutCharacter = 3;
    for (std::size_t cut = 0; cut <= kLongestCutCharacter && cut <= bytes.size(); ++cut) {
        const std::string_view head = bytes.substr(0, bytes.size() - cut);
        if (platform::is_valid_utf8(head)) {
            return std::string(head);
        }
    }
    return platform::utf8_from_encoding(bytes, "ISO-8859-1").value_or(std::string());
}

} // namespace specialpages
