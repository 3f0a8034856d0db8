#include "controls/custom_size_range.h"

#include "platform/foundation/numbers.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "support/leading_number.h"
#include "support/units.h"

#include <vector>

namespace specialpages {

namespace {

/// Where minimum and maximum stand in "1 points 283 935".
constexpr std::size_t kMinimumField = 2;
constexpr std::size_t kMaximumField = 3;

std::int32_t moved(std::int32_t points, std::int32_t by) {
    return saturated(std::int64_t{points} + by);
}

} // namespace

std::optional<PointRange> custom_size_points(ppd_file_s* ppd, std::int32_t SizeFlag) {
    const ppd_attr_t* attribute = ppdFindAttr_ALT_SPEC(
        ppd, kPPDParamCustomPageSize, SizeFlag == kCustomSizeLength ? kPPDLength : kPPDWidth);
    if (attribute == nullptr || attribute->value == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> fields;
    getStringBySeparator(fields, attribute->value, ' ');
    if (fields.size() <= kMaximumField) {
        return std::nullopt;
    }
    return PointRange{platform::int_value(fields[kMinimumField]), platform::int_value(fields[kMaximumField])};
}

std::optional<CustomSizeLimits> custom_size_limits(PointRange points, std::int32_t longMeasure) {
    CustomSizeLimits limits;
    if (longMeasure == kLongMeasureInches) {
        limits.minimum =
            TransformPointByType(&limits.minimumText, moved(points.minimum, 1), 2, kTransformInches);
        limits.maximum =
            TransformPointByType(&limits.maximumText, moved(points.maximum, -1), 2, kTransformInches);
    } else if (longMeasure == kLongMeasureMillimetres) {
        limits.minimum = TransformPointByType(&limits.minimumText, points.minimum, 1, kTransformMillimetres);
        limits.maximum = TransformPointByType(&limits.maximumText, points.maximum, 1, kTransformMillimetres);
    } else {
        return std::nullopt;
    }
    return limits;
}

} // namespace specialpages
