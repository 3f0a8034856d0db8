// TIFF, BMP, GIF, JPEG and PNG, on GraphicsMagick. Its limits are those of the platform's pictures, it uses
// no disk, installs no signal handler and is given no file name, so that no prefix or ending of one chooses
// what reads the bytes.
#pragma once

#include "platform/codecs/image_codecs.h"

namespace specialpages::platform {

std::optional<Picture> decode_raster(std::string_view bytes, NSBitmapImageFileType type);
std::optional<std::string> encode_raster(const Picture& picture, NSBitmapImageFileType type);

} // namespace specialpages::platform
