// What the module that paints PNG files offers. It is a module because its library would make every start of
// the program some 6 ms longer, and few runs paint. Both sides are built together.
#pragma once

#include "preview/strip_plan.h"

#include <optional>
#include <string>

namespace specialpages::preview {

/// The bytes of the file; empty when the picture cannot be painted.
using PaintPng = std::optional<std::string> (*)(const StripPlan& plan);

inline constexpr const char* kPngModule = "libspecialpages-preview-png.so";
inline constexpr const char* kPngEntry = "specialpages_preview_png";

} // namespace specialpages::preview
