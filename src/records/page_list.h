// The text in which a user names pages, as "3, 7-9": its grammar, its normal form, and its two readings.
//
// A page list is page sets separated by commas or spaces; a page set is a page (n), a range (n-m), from the
// first page on (-m) or up to the last page (n-). Spaces matter between two numbers only, where they act as a
// comma. Leading commas, repeated commas and a comma at the end are dropped; a space between two commas ends
// the repeat, so that "1, ,2" has an empty page set and is refused. Only ASCII digits count. Numbers past 32
// bits saturate, and so lie outside every range.
//
// Inserts read an ordered list with repeats, from page 0 on (before page one), limited by the records that it
// would make. Exceptions read a set, from page 1 on, limited by the number of page sets. Everything is
// bounded by the text's length, whatever pages it names: results are ranges.
#pragma once

#include "records/page_ranges.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// What the stages answer.
enum : std::int32_t {
    kPageListValid = 0,
    kPageListNull = -50,
    kPageListEmptySet = -3000, ///< or a character outside the classes
    kPageListEmptyText = -3001,
    kPageListWrongCharacter = -3004,
    kPageListSecondDash = -3006,
    kPageListLoneDash = -3007,
    kPageListOutOfRange = -3008,
    kPageListReversed = -3009,
    kPageListTooMany = -3010,
};

/// The classes of CheckWordType.
enum : std::int32_t {
    kWordDigit = 1,
    kWordSpace = 2,
    kWordComma = 3,
    kWordDash = 4,
    kWordLowerCase = 5,
    kWordUpperCase = 6,
    kWordOther = 7,
};

/// Most inserts, most exceptions, and most page sets in the text of exceptions.
inline constexpr std::int32_t kMaxPageDefineNum = 250;

/// How one of the two dialogs reads the grammar.
struct PageListReading {
    PageRange range;                   ///< lowest and highest page that may be written
    bool blankTextFailsAtOnce = false; ///< a text without page sets fails in the first stage already
    std::string_view wrongTextKey;     ///< message keys: for all that has no key of its own,
    std::string_view tooManyKey;       ///< for too many pages or page sets,
    std::string_view reversedRangeKey; ///< for a range with its first page above its last
};
extern const PageListReading kInsertPageList;
extern const PageListReading kExceptionPageList;

/// The class of a character; -50 for null. Full-width digits are "other".
std::int32_t CheckWordType(std::optional<char16_t> character);

/// Stage 1: the text without spaces, its page sets each ended by one comma. Empty when the text has nothing
/// but spaces and commas, which only exceptions refuse here. -50 for null, -3001 for an empty text, -3004 for
/// a character that is no digit, space, comma or dash. On failure `strWithoutSpace` is left alone.
std::int32_t ValidatePageList_getStrWithoutSpace(std::optional<std::string_view> text,
                                                 const PageListReading& reading,
                                                 std::string& strWithoutSpace);

/// Checks one page set and writes out its open ends: "-5" becomes "1-5", "5-" becomes "5-65000". On failure
/// the set is left alone. "-0" of an insert is valid: it becomes "1-0", which names no page.
std::int32_t ArrangePageSet(std::string& pageSet, const PageListReading& reading);

/// Stage 2: the normal form, and its page sets. `maxPageSets` null: any number of sets; else -3010 at the set
/// past it, before that set is looked at. On failure both results are left alone.
std::int32_t ValidatePageList_getArrangedStr(std::string_view strWithoutSpace, const PageListReading& reading,
                                             std::optional<std::size_t> maxPageSets, std::string& arrangedStr,
                                             std::vector<std::string>& pageSetArray);

/// Appends the pages of one arranged page set, ascending; nothing for a range with its first page above its
/// last. A page set that is not arranged is refused with -3004 or -3000.
std::int32_t GetNumberIndexSet(PageRanges& numbers, std::string_view fromOnePageSet);
/// The same for inserts: page 0 is left out when there is a front cover.
std::int32_t GetNumberArray(PageRanges& numbers, std::string_view fromOnePageSet, bool frontCover);

/// Stage 3: appends the pages of all page sets. -3000 without a set; else the answer for the last set, on
/// purpose: what stage 2 has passed is not refused here.
std::int32_t ValidatePageList_getNumberIndexSet(const std::vector<std::string>& pageSetArray,
                                                PageRanges& numbers);
std::int32_t ValidatePageList_getNumberArray(const std::vector<std::string>& pageSetArray, bool frontCover,
                                             PageRanges& numbers);

/// What the inserts' limit depends on.
struct InsertPageLimit {
    std::int64_t status = 0; ///< of the list of special pages: 1 adding, 2 editing
    std::int64_t held = 0;   ///< inserts in the dialog's sorted records
    bool viewEnabled = true;
    std::int32_t maxPageDefineNum = kMaxPageDefineNum;
};
/// Whether that many more pages are too many. While editing, one record is replaced, and a disabled view has
/// no limit; with any other status nothing has.
bool IsRecordExceedMaxWithAddition(std::int64_t addition, const InsertPageLimit& limit);

/// What the inserts' page text keeps of the last valid text.
struct InsertPages {
    std::string m_strArranged;
    PageRanges m_aSortedPageArray; ///< in the order of the text, repeats included, in spite of its name

    bool operator==(const InsertPages&) const = default;
};
/// All stages of the inserts. A failure before stage 2 has passed keeps the old pages, one in stage 3 empties
/// the array; with -3010 both hold the new ones.
std::int32_t ValidatePageList(std::optional<std::string_view> text, bool frontCover,
                              const InsertPageLimit& limit, InsertPages& pages);

/// What stands for "before page one": the page 0 alone. It replaces the pages, so that asking twice gives
/// one.
void choose_before_page_one(InsertPages& pages);

/// What the exceptions' page text keeps of the last valid text.
struct ExceptionPages {
    std::string m_strArranged;
    PageRanges m_idxNumberSet; ///< a set

    bool operator==(const ExceptionPages&) const = default;
};
/// All stages of the exceptions. A failure keeps the old pages. `viewEnabled` false: no limit on page sets.
std::int32_t ValidatePageList(std::optional<std::string_view> text, bool viewEnabled, ExceptionPages& pages,
                              std::int32_t maxPageDefineNum = kMaxPageDefineNum);

/// The number by which ShowErrMsg tells the failures apart: 2 for -3010, 3 for -3009, 1 for any other code;
/// 0 for a valid list.
std::int32_t page_list_warning(std::int32_t code);
/// The key of the message that ShowErrMsg shows for that number: any but 2 and 3 give the first key.
std::string_view page_list_message_key(const PageListReading& reading, std::int32_t warning);

} // namespace specialpages
