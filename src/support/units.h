// Numeric text and units: the two fixed-point forms of a length, every conversion between them and text, and
// the column counts that limit text fields. Plain functions without state. None reports an error: bad text
// gives the number that the rule yields. All are independent of the process locale.
//
// Millimetres: text with one decimal ("210.0"), number in tenths (2100). Inches: text with two decimals
// ("8.27"), number in hundredths (827). PPD sizes are points, 72 to the inch. A column is the unit of field
// widths: one or two a character. Functions that count UTF-16 units take ill-formed UTF-8 for an empty text;
// a zero byte ends a text that is read as a number. Numbers saturate at 32 bits.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// Points in an inch.
inline constexpr float UnitsPerInch = 72.0F;

/// How many bytes of a text the fixed forms look at.
inline constexpr std::size_t kFixedFormBytes = 32;

/// Decimal text of `value` with a point before its last digit: 123 gives "12.3", 5 gives "0.5", -5 gives
/// "-.5".
std::string ConvertIntToFloatStr(std::int32_t value);

/// Tenths: "12.3" and "12" give 123 and 120. The digits after a point are not counted: "12.34" gives 1234.
std::int32_t ConvertFloatStrToInt(std::string_view text);

/// Tenths of a millimetre. A point is deleted and the digits read as they stand: "123" gives 1230, "123.4"
/// gives 1234, and "123." gives 123, since a trailing point says that nothing was scaled. Null gives 0.
std::int32_t GetMillimetreFromStr(std::optional<std::string_view> text);

/// Inches with two decimals ("210.0" gives "8.27"), rounded to even on a tie; the sign is lost. Null gives
/// null.
std::optional<std::string> TransformMillimetreToInchs(std::optional<std::string_view> text);

enum : std::int32_t { kTransformInches = 0, kTransformMillimetres = 1 };
/// Points as inches (type 0) or millimetres (type 1), scaled by 10 to the power of `decimals`. A millimetre
/// result always ends in 0. The scaling alone wraps around in 32 bits. With `out`, the text with the point
/// placed `decimals` digits from the right, without a zero in front (50 with two decimals is ".50"). Any
/// other type gives -1 and leaves `out` alone.
std::int32_t TransformPointByType(std::string* out, std::int32_t points, std::int32_t decimals,
                                  std::int32_t type);

/// Number of "." in the text.
std::int32_t GetStringPointCount(std::string_view text);
/// 1-based UTF-16 position of the first "."; the length plus one when there is none; 1 for an empty text.
std::int32_t GetStringPointIndex(std::string_view text);

/// Removes all leading "0": "000" becomes empty, "0.5" becomes ".5".
void filterHeadZero(std::string& text);

/// Decodes slash-separated decimal numbers into the bytes that they stand for, in place ("/65/66" becomes
/// "AB"). A text that does not begin with "/" or is shorter than two bytes is left alone; a number of 256 or
/// more becomes a zero byte, at which the text then ends. Pieces past `limit` bytes of the input are not
/// separated any more and count as one.
void numstrtochar(std::string& text, std::int32_t limit);

/// Decimal digits of a positive value. 0 gives an empty text, never "0"; no sign is written for negative
/// values.
std::string itoa(std::int32_t value);

/// Length of the value's decimal text, the minus sign counted.
std::int32_t GetIntegerLength(std::int32_t value);

/// The longest head whose columns do not pass `columns`; characters below U+0080 count one, other UTF-16
/// units two. A surrogate pair is kept whole or not at all.
std::string GetShortenString(std::string_view text, std::int32_t columns);
/// Columns: UTF-16 units below U+0080 count one, others two.
std::int32_t GetStringLength(std::string_view text);
/// Columns: UTF-16 units below U+0100 count one, others two ("é" is one here and two for GetStringLength). 0
/// for ill-formed UTF-8.
std::int32_t GetUTF8StringLength(std::string_view text);

/// Appends the pieces of `text` between separators to `out`. A newline separates too; a text that ends in the
/// separator has an empty last piece; an empty text has one empty piece. As many bytes of the text are taken
/// as it has UTF-16 units, so that text beyond ASCII loses its end; a character that the cut goes through is
/// lost whole. Ill-formed UTF-8 appends nothing.
void getStringBySeparator(std::vector<std::string>& out, std::string_view text, char separator);

} // namespace specialpages
