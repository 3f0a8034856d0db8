#include "records/page_list.h"

#include "platform/foundation/numbers.h"

#include <algorithm>
#include <utility>

namespace specialpages {
namespace {

/// Where "-m" starts, for inserts too: page 0 is before the pages.
constexpr std::int32_t kFirstPage = 1;

constexpr std::int64_t kAdding = 1;
constexpr std::int64_t kEditing = 2;

/// A byte beyond ASCII is a part of a character that no page list has, whichever it is.
std::int32_t word_type(char byte) {
    return CheckWordType(static_cast<char16_t>(static_cast<unsigned char>(byte)));
}

/// One page set in parts. Numbers are digits only, and empty when missing.
struct PageSetParts {
    std::int32_t code = kPageListValid;
    std::string_view first;
    std::string_view second;
    bool hasDash = false;
    bool openAtStart = false;
    bool openAtEnd = false;
};

PageSetParts failed(std::int32_t code) {
    PageSetParts parts;
    parts.code = code;
    return parts;
}

PageSetParts parts_of(std::string_view pageSet) {
    if (pageSet.empty()) {
        return failed(kPageListEmptySet);
    }
    std::optional<std::size_t> dash;
    for (std::size_t i = 0; i < pageSet.size(); ++i) {
        switch (word_type(pageSet[i])) {
        case kWordDigit:
            break;
        case kWordDash:
            if (dash) {
                return failed(kPageListSecondDash);
            }
            if (pageSet.size() == 1) {
                return failed(kPageListLoneDash);
            }
            dash = i;
            break;
        case kWordLowerCase:
        case kWordUpperCase:
        case kWordOther:
            return failed(kPageListWrongCharacter);
        default:
            return failed(kPageListEmptySet);
        }
    }
    PageSetParts parts;
    parts.first = pageSet.substr(0, dash.value_or(pageSet.size()));
    if (dash) {
        parts.hasDash = true;
        parts.second = pageSet.substr(*dash + 1);
        parts.openAtStart = parts.first.empty();
        parts.openAtEnd = parts.second.empty();
    }
    return parts;
}

bool outside(std::string_view number, const PageRange& range) {
    const auto page = platform::int_value(number);
    return !number.empty() && (page < range.first || page > range.last);
}

std::int32_t append_pages(PageRanges& numbers, std::string_view pageSet, std::int32_t lowest) {
    const auto parts = parts_of(pageSet);
    if (parts.code != kPageListValid) {
        return parts.code == kPageListWrongCharacter ? kPageListWrongCharacter : kPageListEmptySet;
    }
    const auto first = platform::int_value(parts.first);
    const PageRange range{std::max(first, lowest), parts.hasDash ? platform::int_value(parts.second) : first};
    if (range.first <= range.last) {
        numbers.push_back(range);
    }
    return kPageListValid;
}

template <class Append>
std::int32_t append_all(const std::vector<std::string>& pageSetArray, const Append& append) {
    std::int32_t code = kPageListEmptySet;
    for (const auto& pageSet : pageSetArray) {
        code = append(pageSet);
    }
    return code;
}

/// Stages 1 and 2, which the two readings share.
struct Arranged {
    std::int32_t code = kPageListValid;
    std::string text;
    std::vector<std::string> pageSets;
};

Arranged arranged(std::optional<std::string_view> text, const PageListReading& reading,
                  std::optional<std::size_t> maxPageSets) {
    Arranged result;
    std::string strWithoutSpace;
    result.code = ValidatePageList_getStrWithoutSpace(text, reading, strWithoutSpace);
    if (result.code == kPageListValid) {
        result.code = ValidatePageList_getArrangedStr(strWithoutSpace, reading, maxPageSets, result.text,
                                                      result.pageSets);
    }
    return result;
}

} // namespace

const PageListReading kInsertPageList{.range = {0, 65000},
                                      .blankTextFailsAtOnce = false,
                                      .wrongTextKey = "Warning44",
                                      .tooManyKey = "Warning47",
                                      .reversedRangeKey = "Warning49"};
const PageListReading kExceptionPageList{.range = {1, 65000},
                                         .blankTextFailsAtOnce = true,
                                         .wrongTextKey = "Warning46",
                                         .tooManyKey = "Warning48",
                                         .reversedRangeKey = "Warning50"};

std::int32_t CheckWordType(std::optional<char16_t> character) {
    if (!character) {
        return kPageListNull;
    }
    const auto lies = [unit = *character](char16_t low, char16_t high) {
        return low <= unit && unit <= high;
    };
    if (lies(u'0', u'9')) {
        return kWordDigit;
    }
    if (lies(u'a', u'z')) {
        return kWordLowerCase;
    }
    if (lies(u'A', u'Z')) {
        return kWordUpperCase;
    }
    switch (*character) {
    case u' ':
        return kWordSpace;
    case u',':
        return kWordComma;
    case u'-':
        return kWordDash;
    default:
        return kWordOther;
    }
}

std::int32_t ValidatePageList_getStrWithoutSpace(std::optional<std::string_view> text,
                                                 const PageListReading& reading,
                                                 std::string& strWithoutSpace) {
    if (!text) {
        return kPageListNull;
    }
    if (text->empty()) {
        return kPageListEmptyText;
    }
    std::string normal;
    bool inNumber = false; // in a digit run that a space may end
    bool afterComma = false;
    bool afterSpace = false;
    for (const char byte : *text) {
        switch (word_type(byte)) {
        case kWordDigit:
            if (inNumber && afterSpace) {
                normal += ',';
            }
            normal += byte;
            inNumber = true;
            afterComma = afterSpace = false;
            break;
        case kWordSpace:
            afterSpace = true;
            afterComma = false;
            break;
        case kWordComma:
            if (!afterComma && !normal.empty()) {
                normal += ',';
            }
            inNumber = afterSpace = false;
            afterComma = true;
            break;
        case kWordDash:
            normal += '-';
            inNumber = afterComma = afterSpace = false;
            break;
        default:
            return kPageListWrongCharacter;
        }
    }
    if (normal.empty() && reading.blankTextFailsAtOnce) {
        return kPageListEmptyText;
    }
    if (!normal.empty() && normal.back() != ',') {
        normal += ',';
    }
    strWithoutSpace = std::move(normal);
    return kPageListValid;
}

std::int32_t ArrangePageSet(std::string& pageSet, const PageListReading& reading) {
    const auto parts = parts_of(pageSet);
    if (parts.code != kPageListValid) {
        return parts.code;
    }
    if (outside(parts.first, reading.range) || outside(parts.second, reading.range)) {
        return kPageListOutOfRange;
    }
    if (parts.openAtStart) {
        pageSet.insert(0, platform::decimal_text(kFirstPage));
    } else if (parts.openAtEnd) {
        pageSet += platform::decimal_text(reading.range.last);
    } else if (parts.hasDash && platform::int_value(parts.first) > platform::int_value(parts.second)) {
        return kPageListReversed;
    }
    return kPageListValid;
}

std::int32_t ValidatePageList_getArrangedStr(std::string_view strWithoutSpace, const PageListReading& reading,
                                             std::optional<std::size_t> maxPageSets, std::string& arrangedStr,
                                             std::vector<std::string>& pageSetArray) {
    if (strWithoutSpace.empty()) {
        return kPageListEmptyText;
    }
    std::string text;
    std::vector<std::string> sets;
    for (std::size_t start = 0, comma = strWithoutSpace.find(','); comma != std::string_view::npos;
         start = comma + 1, comma = strWithoutSpace.find(',', start)) {
        if (maxPageSets && sets.size() >= *maxPageSets) {
            return kPageListTooMany;
        }
        std::string pageSet{strWithoutSpace.substr(start, comma - start)};
        if (const auto code = ArrangePageSet(pageSet, reading); code != kPageListValid) {
            return code;
        }
        text += pageSet + ',';
        sets.push_back(std::move(pageSet));
    }
    arrangedStr = std::move(text);
    pageSetArray = std::move(sets);
    return kPageListValid;
}

std::int32_t GetNumberIndexSet(PageRanges& numbers, std::string_view fromOnePageSet) {
    return append_pages(numbers, fromOnePageSet, 0);
}

std::int32_t GetNumberArray(PageRanges& numbers, std::string_view fromOnePageSet, bool frontCover) {
    return append_pages(numbers, fromOnePageSet, frontCover ? 1 : 0);
}

std::int32_t ValidatePageList_getNumberIndexSet(const std::vector<std::string>& pageSetArray,
                                                PageRanges& numbers) {
    return append_all(pageSetArray,
                      [&](const std::string& pageSet) { return GetNumberIndexSet(numbers, pageSet); });
}

std::int32_t ValidatePageList_getNumberArray(const std::vector<std::string>& pageSetArray, bool frontCover,
                                             PageRanges& numbers) {
    return append_all(pageSetArray, [&](const std::string& pageSet) {
        return GetNumberArray(numbers, pageSet, frontCover);
    });
}

bool IsRecordExceedMaxWithAddition(std::int64_t addition, const InsertPageLimit& limit) {
    switch (limit.status) {
    case kAdding:
        return addition > limit.maxPageDefineNum - limit.held;
    case kEditing:
        return limit.viewEnabled && addition - 1 > limit.maxPageDefineNum - limit.held;
    default:
        return false;
    }
}

std::int32_t ValidatePageList(std::optional<std::string_view> text, bool frontCover,
                              const InsertPageLimit& limit, InsertPages& pages) {
    auto list = arranged(text, kInsertPageList, std::nullopt);
    if (list.code != kPageListValid) {
        return list.code;
    }
    pages = {.m_strArranged = std::move(list.text), .m_aSortedPageArray = {}};
    PageRanges numbers;
    if (const auto code = ValidatePageList_getNumberArray(list.pageSets, frontCover, numbers);
        code != kPageListValid) {
        return code;
    }
    pages.m_aSortedPageArray = std::move(numbers);
    return IsRecordExceedMaxWithAddition(page_count(pages.m_aSortedPageArray), limit) ? kPageListTooMany
                                                                                      : kPageListValid;
}

void choose_before_page_one(InsertPages& pages) {
    pages.m_aSortedPageArray = {{0, 0}};
}

std::int32_t ValidatePageList(std::optional<std::string_view> text, bool viewEnabled, ExceptionPages& pages,
                              std::int32_t maxPageDefineNum) {
    auto list =
        arranged(text, kExceptionPageList,
                 viewEnabled ? std::optional{static_cast<std::size_t>(maxPageDefineNum)} : std::nullopt);
    if (list.code != kPageListValid) {
        return list.code;
    }
    PageRanges numbers;
    if (const auto code = ValidatePageList_getNumberIndexSet(list.pageSets, numbers);
        code != kPageListValid) {
        return code;
    }
    pages = {.m_strArranged = std::move(list.text), .m_idxNumberSet = page_set(std::move(numbers))};
    return kPageListValid;
}

std::int32_t page_list_warning(std::int32_t code) {
    switch (code) {
    case kPageListValid:
        return 0;
    case kPageListTooMany:
        return 2;
    case kPageListReversed:
        return 3;
    default:
        return 1;
    }
}

std::string_view page_list_message_key(const PageListReading& reading, std::int32_t warning) {
    switch (warning) {
    case 2:
        return reading.tooManyKey;
    case 3:
        return reading.reversedRangeKey;
    default:
        return reading.wrongTextKey;
    }
}

} // namespace specialpages
