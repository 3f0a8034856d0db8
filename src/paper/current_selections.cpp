#include "paper/current_selections.h"

#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace specialpages {

namespace {

/// Whether the vendor-prefix rule may change the keyword; most are spelled right already.
bool may_need_fixing(std::string_view keyword) {
    const std::string_view prefix(KVendorPPDPrefix);
    return equal_ignoring_case(keyword.substr(0, prefix.size()), prefix) && !keyword.starts_with(prefix);
}

bool is_left_out(std::string_view keyword, const PaperOptionKeys& keys) {
    return keyword == keys.size || keyword == keys.type || keyword == keys.color || keyword == kPPDDuplex ||
           keyword == kPPDInputTray;
}

/// Calls `take(keyword)` with a std::string for each keyword of the list that stands beside the paper.
template <typename Take>
void for_each_other_keyword(ppd_file_t* ppd, const PaperOptionKeys& keys,
                            std::span<const std::string> keywordList, Take take) {
    for (const std::string& listed : keywordList) {
        if (may_need_fixing(listed)) {
            const std::string keyword = FixPPDKeywordAccordingToType(ppd, listed);
            if (!is_left_out(keyword, keys)) {
                take(keyword);
            }
        } else if (!is_left_out(listed, keys)) {
            take(listed);
        }
    }
}

/// The choice of an option, borrowed from the PPD or the table; empty when nothing says one.
std::optional<std::string_view> choice_now(ppd_file_t* ppd, const std::string& keyword) {
    if (const ppd_choice_t* marked = cups_find_marked_choice(ppd, keyword.c_str())) {
        return field_text(marked->choice);
    }
    const auto* row = std::find_if(ppdKeyMayNotMarked.begin(), ppdKeyMayNotMarked.end(),
                                   [&](const KeyMayNotMarked& each) { return keyword == each.option; });
    if (row == ppdKeyMayNotMarked.end()) {
        return std::nullopt;
    }
    if (row->choice != nullptr) {
        return row->choice;
    }
    const ppd_option_t* option = cups_find_option(ppd, keyword.c_str());
    return option == nullptr ? std::nullopt : std::optional(field_text(option->defchoice));
}

} // namespace

std::vector<std::string> current_selection_keys(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                                std::span<const std::string> keywordList) {
    std::vector<std::string> all{keys.size, keys.color, keys.type};
    for_each_other_keyword(ppd, keys, keywordList,
                           [&](const std::string& keyword) { all.push_back(keyword); });
    return all;
}

std::vector<std::string> current_selections(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                            std::span<const std::string> keywordList,
                                            const std::array<std::string, 3>& paper) {
    std::vector<std::string> selections;
    selections.reserve(paper.size() + keywordList.size());
    selections.assign(paper.begin(), paper.end());
    if (ppd == nullptr) {
        return selections;
    }
    std::string_view running = kNullChoice;
    for_each_other_keyword(ppd, keys, keywordList, [&](const std::string& keyword) {
        running = choice_now(ppd, keyword).value_or(running);
        selections.emplace_back(running);
    });
    return selections;
}

} // namespace specialpages
