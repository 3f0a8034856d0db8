// The limits of a custom paper size: read from the PPD in points, turned into the numbers and texts of a
// unit. Pure functions over a borrowed PPD.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct ppd_file_s;

namespace specialpages {

/// Which side of the paper.
enum : std::int32_t { kCustomSizeWidth = 0, kCustomSizeLength = 1 };
/// The unit in which a custom size is entered.
enum : std::int32_t { kLongMeasureInches = 0, kLongMeasureMillimetres = 1 };

struct PointRange {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
};

/// The smallest and the largest value, in points, that the PPD names for the side (any other than
/// kCustomSizeLength is the width). Empty optional without a PPD, without that line, or when the line has
/// less than four fields.
std::optional<PointRange> custom_size_points(ppd_file_s* ppd, std::int32_t SizeFlag);

struct CustomSizeLimits {
    std::int32_t minimum = 0; ///< hundredths of an inch, or tenths of a millimetre
    std::int32_t maximum = 0;
    std::string minimumText; ///< with the point placed, without a zero in front
    std::string maximumText;
};

/// The limits in a unit. Those in inches lie one point inside the PPD's, on purpose, those in millimetres are
/// the PPD's own, rounded to whole ones. Empty optional for any other unit.
std::optional<CustomSizeLimits> custom_size_limits(PointRange points, std::int32_t longMeasure);

} // namespace specialpages
