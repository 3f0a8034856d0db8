#include "platform/services/images.h"

#include "platform/codecs/image_codecs.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/log.h"

#include <algorithm>
#include <array>
#include <dlfcn.h>

namespace specialpages::platform {

namespace {

/// The module stays loaded: its libraries are not made to be unloaded.
const ImageCodecs* load_codecs() {
    void* module = ::dlopen(kImageCodecsModule, RTLD_NOW | RTLD_LOCAL);
    void* entry = module == nullptr ? nullptr : ::dlsym(module, kImageCodecsEntry);
    if (entry == nullptr) {
        const char* reason = ::dlerror();
        NSLog(std::string("cannot load picture codecs: ") + (reason != nullptr ? reason : "unknown error"));
        return nullptr;
    }
    return reinterpret_cast<const ImageCodecs* (*)()>(entry)();
}

const ImageCodecs* codecs() {
    static const ImageCodecs* const loaded = load_codecs();
    return loaded;
}

bool within_bounds(const Picture& picture) {
    const std::uint64_t pixels = std::uint64_t{picture.width} * picture.height;
    return pixels != 0 && picture.width <= kMaxPictureSide && picture.height <= kMaxPictureSide &&
           pixels <= kMaxPicturePixels && picture.rgba.size() == pixels * 4;
}

/// The colour on white, and opaque.
Picture on_white(Picture picture) {
    for (std::size_t i = 0; i + 4 <= picture.rgba.size(); i += 4) {
        const unsigned opacity = picture.rgba[i + 3];
        for (std::size_t channel = i; channel < i + 3; ++channel) {
            const unsigned sum = picture.rgba[channel] * opacity + 255U * (255U - opacity);
            picture.rgba[channel] = static_cast<std::uint8_t>((sum + 127U) / 255U);
        }
        picture.rgba[i + 3] = 255;
    }
    return picture;
}

/// One pixel over another. Weights are products of two opacities, so that 255 * 255 is opaque.
void blend(std::uint8_t* below, const std::uint8_t* above) {
    const unsigned aboveWeight = above[3] * 255U;
    const unsigned belowWeight = below[3] * (255U - above[3]);
    const unsigned whole = aboveWeight + belowWeight;
    if (whole == 0) {
        return;
    }
    for (int channel = 0; channel < 3; ++channel) {
        const unsigned sum = above[channel] * aboveWeight + below[channel] * belowWeight;
        below[channel] = static_cast<std::uint8_t>((sum + whole / 2) / whole);
    }
    below[3] = static_cast<std::uint8_t>((whole + 127U) / 255U);
}

} // namespace

std::optional<NSBitmapImageFileType> picture_format(std::string_view bytes) {
    using namespace std::string_view_literals;
    struct Signature {
        std::string_view head;
        NSBitmapImageFileType type;
    };
    static constexpr std::array<Signature, 9> kSignatures{{
        {"II*\0"sv, NSBitmapImageFileType::tiff},
        {"MM\0*"sv, NSBitmapImageFileType::tiff},
        {"BM"sv, NSBitmapImageFileType::bmp},
        {"GIF87a"sv, NSBitmapImageFileType::gif},
        {"GIF89a"sv, NSBitmapImageFileType::gif},
        {"\xFF\xD8\xFF"sv, NSBitmapImageFileType::jpeg},
        {"\x89PNG\r\n\x1A\n"sv, NSBitmapImageFileType::png},
        {"\0\0\0\x0CjP  \r\n\x87\n"sv, NSBitmapImageFileType::jpeg2000}, // JP2 file format
        {"\xFF\x4F\xFF\x51"sv, NSBitmapImageFileType::jpeg2000},         // bare code stream
    }};
    const auto found = std::find_if(kSignatures.begin(), kSignatures.end(), [&](const Signature& signature) {
        return bytes.starts_with(signature.head);
    });
    return found == kSignatures.end() ? std::nullopt : std::optional(found->type);
}

std::optional<Picture> decode_picture(std::string_view bytes) {
    const auto type = picture_format(bytes);
    if (!type || bytes.size() > kMaxPictureFileBytes || codecs() == nullptr) {
        return std::nullopt;
    }
    auto picture = codecs()->decode(bytes, *type);
    return picture && within_bounds(*picture) ? std::move(picture) : std::nullopt;
}

std::optional<Picture> initWithContentsOfFile(const std::filesystem::path& path) {
    const auto bytes = read_file(path, nullptr, kMaxPictureFileBytes);
    return bytes ? decode_picture(*bytes) : std::nullopt;
}

std::optional<std::string> representationUsingType(const Picture& picture, NSBitmapImageFileType type) {
    if (!within_bounds(picture) || codecs() == nullptr) {
        return std::nullopt;
    }
    const bool opaque = type == NSBitmapImageFileType::bmp || type == NSBitmapImageFileType::jpeg;
    return codecs()->encode(opaque ? on_white(picture) : picture, type);
}

void draw_over(Picture& canvas, const Picture& picture) {
    if (!within_bounds(canvas) || !within_bounds(picture)) {
        return;
    }
    const std::size_t width = std::min(canvas.width, picture.width);
    const std::size_t height = std::min(canvas.height, picture.height);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            blend(&canvas.rgba[(y * canvas.width + x) * 4], &picture.rgba[(y * picture.width + x) * 4]);
        }
    }
}

} // namespace specialpages::platform
