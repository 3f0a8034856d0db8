// Any text as a page list, in both readings: the readings agree with each other and with their stages, the
// normal form is one that is read again as itself and names the same pages, and what a text names takes no
// more room than the text.

#include "platform/foundation/numbers.h"
#include "records/page_list.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace specialpages;

constexpr InsertPageLimit kNoLimit{};
constexpr InsertPageLimit kAdding{.status = 1};

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool is_set(const PageRanges& ranges) {
    return std::adjacent_find(ranges.begin(), ranges.end(), [](const PageRange& a, const PageRange& b) {
               return std::int64_t{b.first} - a.last <= 1;
           }) == ranges.end();
}

void check_ranges(const PageRanges& ranges, const PageRange& allowed, std::size_t text_size) {
    require(ranges.size() <= text_size);
    for (const auto& range : ranges) {
        require(allowed.first <= range.first && range.first <= range.last && range.last <= allowed.last);
    }
}

/// The arranged text has no open end but that of "-0", which reads 1-0 and is not read again.
bool can_be_read_again(std::string_view arranged) {
    return ("," + std::string(arranged)).find(",1-0") == std::string::npos;
}

void check_inserts(std::string_view text) {
    InsertPages list;
    const auto code = ValidatePageList(text, false, kNoLimit, list);
    InsertPages limited;
    const auto limited_code = ValidatePageList(text, false, kAdding, limited);
    if (code != kPageListValid) {
        require(limited_code == code && list == InsertPages{} && limited == list);
        return;
    }
    const auto count = page_count(list.m_aSortedPageArray);
    require(limited_code == (count > kMaxPageDefineNum ? kPageListTooMany : kPageListValid));
    require(limited == list);
    require(list.m_strArranged.size() <= 6 * (text.size() + 1));
    check_ranges(list.m_aSortedPageArray, kInsertPageList.range, text.size());
    if (can_be_read_again(list.m_strArranged)) {
        InsertPages again;
        require(ValidatePageList(list.m_strArranged, false, kNoLimit, again) == kPageListValid);
        require(again == list);
    }
    InsertPages covered;
    require(ValidatePageList(text, true, kNoLimit, covered) == kPageListValid);
    require(page_set(covered.m_aSortedPageArray) ==
            pages_without(page_set(list.m_aSortedPageArray), {{0, 0}}));
    if (count <= 1000) {
        const auto texts = page_texts(list.m_aSortedPageArray);
        require(static_cast<std::int64_t>(texts.size()) == count);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            require(page_at(list.m_aSortedPageArray, static_cast<std::int64_t>(i)) ==
                    platform::int_value(texts[i]));
        }
    }
}

void check_exceptions(std::string_view text) {
    ExceptionPages list;
    const auto code = ValidatePageList(text, false, list);
    ExceptionPages limited;
    const auto limited_code = ValidatePageList(text, true, limited);
    if (limited_code == kPageListTooMany) {
        require(limited == ExceptionPages{});
        require(std::count_if(text.begin(), text.end(), [](char c) { return '0' <= c && c <= '9'; }) >= 250);
    } else {
        require(limited_code == code && limited == list);
    }
    if (code != kPageListValid) {
        require(list == ExceptionPages{});
        return;
    }
    require(is_set(list.m_idxNumberSet) && !list.m_idxNumberSet.empty());
    check_ranges(list.m_idxNumberSet, kExceptionPageList.range, text.size());
    ExceptionPages again;
    require(ValidatePageList(list.m_strArranged, false, again) == kPageListValid);
    require(again == list);

    std::string formed; // the set as a text of its own
    for (const auto& range : list.m_idxNumberSet) {
        formed += page_range_text(range) + ' ';
    }
    require(ValidatePageList(formed, false, again) == kPageListValid);
    require(again.m_idxNumberSet == list.m_idxNumberSet);

    InsertPages inserts;
    require(ValidatePageList(text, false, kNoLimit, inserts) == kPageListValid);
    require(page_set(inserts.m_aSortedPageArray) == list.m_idxNumberSet);
}

void check_stages(std::string_view text) {
    std::string normal;
    const auto first = ValidatePageList_getStrWithoutSpace(text, kInsertPageList, normal);
    require(normal.size() <= 2 * text.size());
    require(normal.find(' ') == std::string::npos && !normal.starts_with(','));
    if (first != kPageListValid || normal.empty()) {
        return;
    }
    require(normal.back() == ',');
    std::string again;
    require(ValidatePageList_getStrWithoutSpace(normal, kInsertPageList, again) == kPageListValid);
    std::string arranged;
    std::vector<std::string> sets;
    if (ValidatePageList_getArrangedStr(normal, kInsertPageList, {}, arranged, sets) == kPageListValid) {
        require(again == normal);
        require(static_cast<std::size_t>(std::count(normal.begin(), normal.end(), ',')) == sets.size());
    }
    // One set that no stage has passed.
    PageRanges numbers;
    const auto code = GetNumberArray(numbers, text, true);
    require(code == kPageListValid || code == kPageListWrongCharacter || code == kPageListEmptySet);
    require(numbers.size() <= 1 && (code == kPageListValid || numbers.empty()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text{reinterpret_cast<const char*>(data), size};
    check_inserts(text);
    check_exceptions(text);
    check_stages(text);
    return 0;
}
