// The module's only way in.
#include "platform/codecs/image_codecs.h"
#include "platform/codecs/jpeg2000_codec.h"
#include "platform/codecs/raster_codec.h"

namespace specialpages::platform {

namespace {

std::optional<Picture> decode(std::string_view bytes, NSBitmapImageFileType type) {
    return type == NSBitmapImageFileType::jpeg2000 ? decode_jpeg2000(bytes) : decode_raster(bytes, type);
}

std::optional<std::string> encode(const Picture& picture, NSBitmapImageFileType type) {
    return type == NSBitmapImageFileType::jpeg2000 ? encode_jpeg2000(picture) : encode_raster(picture, type);
}

constexpr ImageCodecs kCodecs{decode, encode};

} // namespace

} // namespace specialpages::platform

extern "C" SPECIALPAGES_PLATFORM_API const specialpages::platform::ImageCodecs* specialpages_image_codecs() {
    return &specialpages::platform::kCodecs;
}
