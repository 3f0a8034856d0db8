// JPEG 2000 (ISO/IEC 15444-1), on OpenJPEG: the JP2 file format and bare code streams are read, JP2 is
// written, without loss.
#pragma once

#include "platform/codecs/image_codecs.h"

namespace specialpages::platform {

/// Gray, gray with opacity, colour, and colour with opacity; of other channels the first three are shown.
std::optional<Picture> decode_jpeg2000(std::string_view bytes);
std::optional<std::string> encode_jpeg2000(const Picture& picture);

} // namespace specialpages::platform
