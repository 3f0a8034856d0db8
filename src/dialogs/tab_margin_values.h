// The numbers of a tab margin: what a text in inches or millimetres is worth, which texts are accepted, how a
// value is printed, and how the two units follow each other. Values are tenths of a millimetre or hundredths
// of an inch; text that is no number is 0. Pure functions; `longMeasure` is kLongMeasureInches, and anything
// else means millimetres.
//
// Unlike the custom sizes, texts are cut off behind their last decimal and not rounded, and the ends of the
// two ranges are no exception when one unit follows the other.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/custom_size_range.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace specialpages {

/// The value that a text gives its stepper, saturated. In inches it is computed in single precision and
/// rounded up from the middle.
std::int32_t tab_margin_stepper_value(std::string_view text, std::int32_t longMeasure);

/// "12.7" or "0.50"; a negative value has the sign in front. Inches are all below one: the digit in front of
/// the point is 0 whatever the value.
std::string tab_margin_text(std::int32_t value, std::int32_t longMeasure);

/// Whether the text has the form of its unit and a value in the range, both ends included: no point at either
/// end, at most one, and with one exactly as many decimals as the unit has.
bool is_tab_margin(std::string_view text, std::int32_t longMeasure, const EditValueRangeData& range);

/// What a field of the unit `longMeasure` shows for the text of its twin in the other unit: at most the
/// maximum of its range, or at least the minimum for a text that begins with "-".
std::int32_t tab_margin_from_twin(std::string_view twinText, std::int32_t longMeasure,
                                  const EditValueRangeData& range);

} // namespace specialpages
