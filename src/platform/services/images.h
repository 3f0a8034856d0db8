// Pictures: read from a file of one of six formats, and encoded in any of them. The codecs (GraphicsMagick
// for five formats, OpenJPEG for JPEG 2000) are a module that is loaded with the first picture. What a file
// is, its first bytes say, never its name.
#pragma once

#include "platform/export.h"
#include "platform/services/picture.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {

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
