// Writes a picture in another file format; BMP in the form that devices read (support/bitmap_reverse.h).
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace specialpages {

/// Reads the picture at `source` (any of the six formats, told by its contents) and replaces `target` by it
/// in the format of that number: 0 TIFF, 1 BMP, 2 GIF, 3 JPEG, 4 PNG, 5 JPEG 2000. With `addExtension`, a
/// target that does not end in exactly the format's extension (".tiff", ".bmp", ".gif", ".jpg", ".png",
/// ".jp2"; case does not matter) gets it appended: "a.jpeg" becomes "a.jpeg.jpg".
///
/// 0; -50 for a null path or another type, before any file is touched; 1001 when the picture cannot be read,
/// encoded or written. The target is written whole or not at all, and its folder must exist.
std::int32_t ConvertImgType(const std::optional<std::filesystem::path>& source,
                            const std::optional<std::filesystem::path>& target, unsigned long type,
                            bool addExtension);

} // namespace specialpages
