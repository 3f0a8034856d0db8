// A picture in memory, the formats that it comes in, and the bounds that it keeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace specialpages::platform {

/// The numbers that name the formats.
enum class NSBitmapImageFileType : std::uint32_t {
    tiff = 0,
    bmp = 1,
    gif = 2,
    jpeg = 3,
    png = 4,
    jpeg2000 = 5
};

/// Red, green, blue and opacity (255: opaque) of each pixel, 8 bits each, rows from the top.
struct Picture {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint8_t> rgba;

    friend bool operator==(const Picture&, const Picture&) = default;
};

/// Bounds of what is read and written: a larger file, side or picture is refused before its pixels are
/// decoded.
inline constexpr std::size_t kMaxPictureFileBytes = std::size_t{64} * 1024 * 1024;
inline constexpr std::uint32_t kMaxPictureSide = 16384;
inline constexpr std::uint64_t kMaxPicturePixels = std::uint64_t{16} * 1024 * 1024;

} // namespace specialpages::platform
