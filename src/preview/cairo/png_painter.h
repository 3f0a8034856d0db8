// The plan as a PNG file, painted by Cairo: two pixels a unit, fewer when the picture would grow out of hand.
#pragma once

#include "preview/strip_plan.h"

#include <optional>
#include <string>

namespace specialpages::preview {

/// Pixels along a side, and in all, beyond which the picture is painted smaller.
inline constexpr int kMostPngPixelsOfSide = 30000;
inline constexpr double kMostPngPixels = 64.0e6;

std::optional<std::string> png_picture(const StripPlan& plan);

} // namespace specialpages::preview
