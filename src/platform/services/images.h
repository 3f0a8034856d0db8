// Pictures: read from a file of one of six formats, and encoded in any of them. The codecs (GraphicsMagick
// for five formats, OpenJPEG for JPEG 2000) are a module that is loaded with the first picture. What a file
// is, its first bytes say, never its name.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
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

/// The format that the bytes begin like (their signature); empty optional for any other.
SPECIALPAGES_PLATFORM_API std::optional<NSBitmapImageFileType> picture_format(std::string_view bytes);

/// The first picture of the bytes. Empty optional when they are of no known format, damaged or too large.
SPECIALPAGES_PLATFORM_API std::optional<Picture> decode_picture(std::string_view bytes);

/// The same for a file.
SPECIALPAGES_PLATFORM_API std::optional<Picture> initWithContentsOfFile(const std::filesystem::path& path);

/// The file's bytes. BMP is 24 bits, bottom-up, with 2835 pixels per metre; JPEG and BMP, which know no
/// opacity, show the picture on white. Empty optional for a picture without pixels or whose pixels don't
/// match its size, and when the codec fails.
SPECIALPAGES_PLATFORM_API std::optional<std::string> representationUsingType(const Picture& picture,
                                                                             NSBitmapImageFileType type);

/// Draws `picture` over `canvas` from its upper left corner ("source over"); what does not fit is left out.
/// Nothing when the pixels of either don't match its size.
SPECIALPAGES_PLATFORM_API void draw_over(Picture& canvas, const Picture& picture);

} // namespace specialpages::platform
