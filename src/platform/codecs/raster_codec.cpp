#include "platform/codecs/raster_codec.h"

#include <algorithm>
#include <cstring>
#include <magick/api.h>
#include <memory>

namespace specialpages::platform {

namespace {

constexpr magick_int64_t kMiB = magick_int64_t{1024} * 1024;
/// Of all pictures together: two of the largest, at eight bytes a pixel.
constexpr magick_int64_t kMaxHeapBytes = 256 * kMiB;

/// What the library has to say of one operation.
class Exception {
  public:
    Exception() { GetExceptionInfo(&info_); }
    ~Exception() { DestroyExceptionInfo(&info_); }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ExceptionInfo* get() { return &info_; }
    /// A warning is none.
    bool failed() const { return info_.severity >= ErrorException; }

  private:
    ExceptionInfo info_{};
};

struct FreeImages {
    void operator()(Image* image) const { DestroyImageList(image); }
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
    void operator()(void* bytes) const { MagickFree(bytes); }
};
using ImagePtr = std::unique_ptr<Image, FreeImages>;
using InfoPtr = std::unique_ptr<ImageInfo, FreeImages>;
using BlobPtr = std::unique_ptr<void, FreeImages>;

bool start_library() {
    Exception exception;
    if (InitializeMagickEx(nullptr, MAGICK_OPT_NO_SIGNAL_HANDER, exception.get()) != MagickPass) {
        return false;
    }
    SetMagickResourceLimit(WidthResource, kMaxPictureSide);
    SetMagickResourceLimit(HeightResource, kMaxPictureSide);
    SetMagickResourceLimit(PixelsResource, static_cast<magick_int64_t>(kMaxPicturePixels));
    SetMagickResourceLimit(MemoryResource, kMaxHeapBytes);
    SetMagickResourceLimit(MapResource, 0);
    SetMagickResourceLimit(DiskResource, 0);
    SetMagickResourceLimit(ThreadsResource, 1);
    return true;
}

bool library_started() {
    static const bool started = start_library();
    return started;
}

const char* format_name(NSBitmapImageFileType type) {
    switch (type) {
    case NSBitmapImageFileType::tiff:
        return "TIFF";
    case NSBitmapImageFileType::bmp:
        return "BMP";
    case NSBitmapImageFileType::gif:
        return "GIF";
    case NSBitmapImageFileType::jpeg:
        return "JPEG";
    case NSBitmapImageFileType::png:
        return "PNG";
    case NSBitmapImageFileType::jpeg2000:
        break; // the library of this file knows none
    }
    return "";
}

template <std::size_t Size>
void put_name(char (&field)[Size], const char* name) {
    std::memset(field, 0, Size);
    std::memcpy(field, name, std::min(std::strlen(name), Size - 1));
}

InfoPtr info_for(NSBitmapImageFileType type) {
    InfoPtr info(CloneImageInfo(nullptr));
    if (info) {
        put_name(info->magick, format_name(type));
        // A name without a file: its prefix settles the format beyond what the bytes could claim.
        put_name(info->filename, (std::string(format_name(type)) + ":").c_str());
        info->subimage = 0;
        info->subrange = 1;
    }
    return info;
}

/// 28.35 pixels per centimetre: 2835 per metre, where 72 per inch would come out as 2834.
void set_resolution(Image& image) {
    constexpr double kPixelsPerCentimetre = 28.35;
    image.units = PixelsPerCentimeterResolution;
    image.x_resolution = kPixelsPerCentimetre;
    image.y_resolution = kPixelsPerCentimetre;
}

} // namespace

std::optional<Picture> decode_raster(std::string_view bytes, NSBitmapImageFileType type) {
    const InfoPtr info = library_started() ? info_for(type) : nullptr;
    if (!info) {
        return std::nullopt;
    }
    Exception exception;
    const ImagePtr image(BlobToImage(info.get(), bytes.data(), bytes.size(), exception.get()));
    if (!image || exception.failed() || image->exception.severity >= ErrorException ||
        std::uint64_t{image->columns} * image->rows > kMaxPicturePixels) {
        return std::nullopt;
    }
    if (image->colorspace != RGBColorspace) {
        TransformColorspace(image.get(), RGBColorspace);
    }
    if (image->matte == MagickFalse) {
        SetImageOpacity(image.get(), OpaqueOpacity);
    }
    Picture picture{static_cast<std::uint32_t>(image->columns), static_cast<std::uint32_t>(image->rows), {}};
    picture.rgba.resize(image->columns * image->rows * 4);
    const bool done = DispatchImage(image.get(), 0, 0, image->columns, image->rows, "RGBA", CharPixel,
                                    picture.rgba.data(), exception.get()) == MagickPass;
    return done ? std::optional(std::move(picture)) : std::nullopt;
}

std::optional<std::string> encode_raster(const Picture& picture, NSBitmapImageFileType type) {
    const InfoPtr info = library_started() ? info_for(type) : nullptr;
    if (!info) {
        return std::nullopt;
    }
    Exception exception;
    const ImagePtr image(ConstituteImage(picture.width, picture.height, "RGBA", CharPixel,
                                         picture.rgba.data(), exception.get()));
    if (!image) {
        return std::nullopt;
    }
    set_resolution(*image);
    if (type == NSBitmapImageFileType::bmp || type == NSBitmapImageFileType::jpeg) {
        image->matte = MagickFalse;
        SetImageType(image.get(), TrueColorType);
        // The library writes one channel or a table for pictures of few colours; in BMP it is 24 bits always.
        info->type = TrueColorType;
    }
    put_name(image->magick, info->magick);
    put_name(image->filename, info->filename);
    std::size_t size = 0;
    const BlobPtr blob(ImageToBlob(info.get(), image.get(), &size, exception.get()));
    if (!blob || size == 0 || exception.failed()) {
        return std::nullopt;
    }
    return std::string(static_cast<const char*>(blob.get()), size);
}

} // namespace specialpages::platform
