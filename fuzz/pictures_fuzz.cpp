// Any bytes as a picture file: what is read keeps the bounds, has a format that its first bytes name and a
// pixel for each place. A small one is written again in the formats without loss and comes back as it was,
// and as BMP in the form that devices read.

#include "platform/services/images.h"
#include "support/bitmap_reverse.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

namespace bmp = specialpages::bmp;
using specialpages::platform::NSBitmapImageFileType;
using specialpages::platform::Picture;

/// Larger ones are only read: writing them would take the time of a hundred inputs.
constexpr std::uint64_t kMostPixelsWritten = 4096;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check_written(const Picture& picture) {
    // The others lose something on purpose: colours (GIF, JPEG) or the opacity (JPEG, BMP).
    for (const auto type :
         {NSBitmapImageFileType::png, NSBitmapImageFileType::tiff, NSBitmapImageFileType::jpeg2000}) {
        const auto bytes = specialpages::platform::representationUsingType(picture, type);
        require(bytes && specialpages::platform::picture_format(*bytes) == type);
        const auto again = specialpages::platform::decode_picture(*bytes);
        require(again && again->width == picture.width && again->height == picture.height);
        require(type == NSBitmapImageFileType::tiff || *again == picture);
    }
    auto file = specialpages::platform::representationUsingType(picture, NSBitmapImageFileType::bmp);
    require(file &&
            file->size() == bmp::kPixelsAt + std::size_t{(picture.width * 3 + 3) / 4 * 4} * picture.height);
    const std::string before = *file;
    require(specialpages::VerticalReverse(&*file) == 0 && *file == before);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    namespace platform = specialpages::platform;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto picture = platform::decode_picture(bytes);
    if (!picture) {
        return 0;
    }
    const std::uint64_t pixels = std::uint64_t{picture->width} * picture->height;
    require(platform::picture_format(bytes).has_value());
    require(pixels != 0 && pixels <= platform::kMaxPicturePixels && picture->rgba.size() == pixels * 4);
    require(picture->width <= platform::kMaxPictureSide && picture->height <= platform::kMaxPictureSide);
    if (pixels <= kMostPixelsWritten) {
        check_written(*picture);
    }
    return 0;
}
