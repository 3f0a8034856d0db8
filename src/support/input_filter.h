// What may be typed: sets of UTF-16 units as ranges of codes, the table that every editable field has, and
// the checks over it. Plain functions without state; none shows a message (the table carries the key of the
// one that its control shows). Texts are UTF-8, and the byte checks alone take any bytes: an ill-formed text
// is refused by every other check that has a set, and holds no spaces, no digits and no units.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace specialpages {

/// Codes from `low` to `high`, both included.
struct CodeRange {
    std::int32_t low = 0;
    std::int32_t high = 0;
};

/// The ranges in use, at most kMaxFilterRanges of them. An empty set accepts no code.
using InputFilterData = std::span<const CodeRange>;
inline constexpr std::size_t kMaxFilterRanges = 20;

struct TextEditFilterData {
    InputFilterData byteSet;
    InputFilterData characterSet;
    const char* messageKey = nullptr; ///< shown by the control when the text is refused
};

/// Whether every composed character of the text is accepted by the character set. An empty text is. A
/// character of two or more units is accepted only when it ends in one of the two half-width voiced sound
/// marks (U+FF9E, U+FF9F) and the units before the mark lie in the set; the mark itself is not looked up.
bool validateInput(std::string_view text, const TextEditFilterData& filter);

/// The same for UTF-16 units, one by one: a half-width mark gets no special treatment and a surrogate is a
/// code like any other.
bool validateInputForUTF8(std::string_view text, const TextEditFilterData& filter);

/// Whether every byte lies in the byte set, compared with the low bytes of its bounds. An empty text is
/// accepted, whatever the set.
bool validateDensityInput(std::string_view text, const TextEditFilterData& filter);

/// Whether the code lies in the set. The two differ in their role only.
bool ISWordValid(char16_t code, InputFilterData set);
bool ISWordSpace(char16_t code, InputFilterData set);
/// Whether the byte lies between the low bytes of the bounds of a range.
bool ISByteValid(unsigned char byte, InputFilterData set);

/// Whether the text holds nothing but spaces (U+0020) and ideographic spaces (U+3000); true for an empty one.
bool IsAllSpace(std::string_view text);

/// The text's UTF-16 units without U+0020; ideographic spaces stay.
std::u16string RemoveAllSpaces(std::string_view text);

/// Whether the text holds one of the digits 1 to 9. "0" alone does not count, on purpose.
bool ExistNumericString(std::string_view text);

/// The boundary between composed characters for an editing location in UTF-16 units: a location at a boundary
/// gives itself, one inside a character the end of the character that follows it (not of its own). 0 gives 0;
/// a location past the end gives the end, as one inside the last character does; a negative one gives the end
/// of the first character.
std::int32_t getOldLocationlength(std::string_view text, std::int32_t location);

extern const TextEditFilterData SPCustomSizeWidthMMFilterData;
extern const TextEditFilterData SPCustomSizeLengthMMFilterData;
extern const TextEditFilterData SPCustomSizeLengthInchFilterData;
extern const TextEditFilterData SPCustomSizeWidthInchFilterData;
extern const TextEditFilterData pageDefineFilterData;
extern const TextEditFilterData SPInstPageNumEditFilterData;
extern const TextEditFilterData SPInstQuantityEditFilterData;
extern const TextEditFilterData SPNumInSequenceSubFilterData;
extern const TextEditFilterData SPNumInSequenceFilterData;
extern const TextEditFilterData SPTabMarginMMFilterData;
extern const TextEditFilterData SPTabMarginInchFilterData;

} // namespace specialpages
