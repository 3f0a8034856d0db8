// What the module of picture codecs offers to the platform. Both sides are built together.
#pragma once

#include "platform/export.h"
#include "platform/services/picture.h"

#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// Sizes are checked by the caller: pixels match the picture's size, neither side is 0.
struct ImageCodecs {
    std::optional<Picture> (*decode)(std::string_view bytes, NSBitmapImageFileType type);
    std::optional<std::string> (*encode)(const Picture& picture, NSBitmapImageFileType type);
};

inline constexpr const char* kImageCodecsModule = "libspecialpages-image-codecs.so";
inline constexpr const char* kImageCodecsEntry = "specialpages_image_codecs";

} // namespace specialpages::platform
