#include "support/image_conversion.h"

#include "platform/foundation/atomic_file.h"
#include "platform/services/images.h"
#include "support/bitmap_reverse.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <system_error>

namespace specialpages {

namespace {

namespace fs = std::filesystem;
using platform::NSBitmapImageFileType;

struct Format {
    NSBitmapImageFileType type;
    std::string_view extension;
};

/// In the order of the numbers that name them.
constexpr std::array<Format, 6> kFormats{{
    {NSBitmapImageFileType::tiff, ".tiff"},
    {NSBitmapImageFileType::bmp, ".bmp"},
    {NSBitmapImageFileType::gif, ".gif"},
    {NSBitmapImageFileType::jpeg, ".jpg"},
    {NSBitmapImageFileType::png, ".png"},
    {NSBitmapImageFileType::jpeg2000, ".jp2"},
}};

/// The extensions are ASCII, and so is their case.
bool same_extension(std::string_view extension, std::string_view wanted) {
    return std::equal(extension.begin(), extension.end(), wanted.begin(), wanted.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

bool write_picture(const fs::path& path, std::string_view bytes) {
    std::error_code failed;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    return fs::is_directory(folder, failed) && platform::write_file_atomically(path, bytes).empty();
}

} // namespace

std::int32_t ConvertImgType(const std::optional<fs::path>& source, const std::optional<fs::path>& target,
                            unsigned long type, bool addExtension) {
    if (!source || !target || type >= kFormats.size()) {
        return kBitmapBadArgument;
    }
    const auto picture = platform::initWithContentsOfFile(*source);
    if (!picture) {
        return kBitmapFailure;
    }
    const Format& format = kFormats[type];
    fs::path path = *target;
    if (addExtension && !same_extension(path.extension().native(), format.extension)) {
        path += format.extension;
    }
    auto bytes = platform::representationUsingType(*picture, format.type);
    if (!bytes || (format.type == NSBitmapImageFileType::bmp && VerticalReverse(&*bytes) != 0)) {
        return kBitmapFailure;
    }
    return write_picture(path, *bytes) ? 0 : kBitmapFailure;
}

} // namespace specialpages
