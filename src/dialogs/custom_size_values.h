// The numbers of a custom size: what a text in inches or millimetres is worth, which texts are accepted, how
// a value is printed, and how the two units follow each other. Values are tenths of a millimetre or
// hundredths of an inch. Pure functions; `longMeasure` is kLongMeasureInches, and anything else means
// millimetres.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/custom_size_range.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace specialpages {

/// What stands in a width or length for "each record its own".
inline constexpr const char* kUndecidedSize = "-1";

/// The value of a text, rounded to even on a tie; saturated. Text that is no number is 0.
std::int32_t custom_size_value(std::string_view text, std::int32_t longMeasure);

/// The value that a text gives its stepper. In inches it is computed in single precision and rounded up from
/// the middle.
std::int32_t custom_size_stepper_value(std::string_view text, std::int32_t longMeasure);

/// "210.5" or "8.27"; a negative value has the sign in front of all digits.
std::string custom_size_text(std::int32_t value, std::int32_t longMeasure);

/// Whether the text has the form of its unit and a value in the range, both ends included: no point at either
/// end, at most one, and with one exactly as many decimals as the unit has.
bool is_custom_size(std::string_view text, std::int32_t longMeasure, const EditValueRangeData& range);

/// A value held to the range; the minimum wins where the ends are exchanged.
std::int32_t held_to(const EditValueRangeData& range, std::int32_t value);

/// What a field of the unit `longMeasure` with `range` shows for the text of its twin in the other unit. The
/// ends of the twin's range give exactly the ends of this one, whatever the rounding would give.
std::int32_t custom_size_from_twin(std::string_view twinText, const EditValueRangeData& twinRange,
                                   std::int32_t longMeasure, const EditValueRangeData& range);

/// Where a stored width or length (millimetres as text) puts a stepper of the unit, before it is held to the
/// range.
std::int32_t custom_size_stepper_from_stored(std::string_view stored, std::int32_t longMeasure);

} // namespace specialpages
