#include "platform/codecs/jpeg2000_codec.h"

#include <algorithm>
#include <array>
#include <memory>
#include <openjpeg.h>

namespace specialpages::platform {

namespace {

// The library's codec and stream are one type by two names, so that the way to free them is told each time.
template <auto Free>
struct Freer {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
using Codec = std::unique_ptr<opj_codec_t, Freer<opj_destroy_codec>>;
using Image = std::unique_ptr<opj_image_t, Freer<opj_image_destroy>>;
using Stream = std::unique_ptr<opj_stream_t, Freer<opj_stream_destroy>>;

constexpr std::uint32_t kMaxChannels = 4;
/// Start of a code stream, then the segment of its sizes, which comes first.
constexpr std::string_view kStreamStart = "\xFF\x4F\xFF\x51";
constexpr auto kEndOfStream = static_cast<OPJ_SIZE_T>(-1);

/// Bytes that are read, and a place in them.
struct Reader {
    std::string_view bytes;
    std::size_t at = 0;
};

OPJ_SIZE_T read_some(void* buffer, OPJ_SIZE_T size, void* data) {
    auto& reader = *static_cast<Reader*>(data);
    const std::size_t count = std::min(size, reader.bytes.size() - reader.at);
    std::copy_n(reader.bytes.data() + reader.at, count, static_cast<char*>(buffer));
    reader.at += count;
    return count == 0 ? kEndOfStream : count;
}

OPJ_OFF_T skip_some(OPJ_OFF_T size, void* data) {
    auto& reader = *static_cast<Reader*>(data);
    if (size < 0) {
        return -1;
    }
    const std::size_t count = std::min(static_cast<std::size_t>(size), reader.bytes.size() - reader.at);
    reader.at += count;
    return static_cast<OPJ_OFF_T>(count);
}

OPJ_BOOL seek_read(OPJ_OFF_T at, void* data) {
    auto& reader = *static_cast<Reader*>(data);
    if (at < 0 || static_cast<std::size_t>(at) > reader.bytes.size()) {
        return OPJ_FALSE;
    }
    reader.at = static_cast<std::size_t>(at);
    return OPJ_TRUE;
}

/// Bytes that are written, and a place in them: the writer goes back to fill in lengths.
struct Writer {
    std::string bytes;
    std::size_t at = 0;
};

OPJ_SIZE_T write_some(void* buffer, OPJ_SIZE_T size, void* data) {
    auto& writer = *static_cast<Writer*>(data);
    writer.bytes.resize(std::max(writer.bytes.size(), writer.at + size));
    std::copy_n(static_cast<const char*>(buffer), size, writer.bytes.data() + writer.at);
    writer.at += size;
    return size;
}

OPJ_BOOL seek_write(OPJ_OFF_T at, void* data) {
    auto& writer = *static_cast<Writer*>(data);
    if (at < 0) {
        return OPJ_FALSE;
    }
    writer.at = static_cast<std::size_t>(at);
    return OPJ_TRUE;
}

OPJ_OFF_T skip_write(OPJ_OFF_T size, void* data) {
    auto& writer = *static_cast<Writer*>(data);
    return seek_write(static_cast<OPJ_OFF_T>(writer.at) + size, data) == OPJ_TRUE ? size : -1;
}

std::uint64_t number_at(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint64_t number = 0;
    for (const char byte : bytes.substr(at, size)) {
        number = number << 8U | static_cast<std::uint8_t>(byte);
    }
    return number;
}

/// The code stream: the bytes themselves, or what the first box for it in a JP2 file holds. Empty when there
/// is none.
std::string_view code_stream(std::string_view bytes) {
    constexpr std::size_t kBoxHead = 8;
    constexpr std::size_t kLongBoxHead = 16;
    while (!bytes.starts_with(kStreamStart) && bytes.size() >= kLongBoxHead) {
        const std::uint64_t shortSize = number_at(bytes, 0, 4);
        const std::size_t head = shortSize == 1 ? kLongBoxHead : kBoxHead;
        const std::uint64_t size = shortSize == 1 ? number_at(bytes, kBoxHead, 8) : shortSize;
        if (bytes.substr(4, 4) == "jp2c") {
            return bytes.substr(head);
        }
        if (size < head || size > bytes.size()) {
            return {};
        }
        bytes.remove_prefix(static_cast<std::size_t>(size));
    }
    return bytes.starts_with(kStreamStart) ? bytes : std::string_view{};
}

/// Whether the head of the code stream names a picture within the bounds, in tiles that the library may set
/// up one by one before it tells the size: a few bytes could have it set up 65535 of them.
bool head_within_bounds(std::string_view bytes) {
    constexpr std::size_t kHeadBytes = 40;
    constexpr std::uint64_t kMaxTiles = 4096;
    const std::string_view stream = code_stream(bytes);
    if (!stream.starts_with(kStreamStart) || stream.size() < kHeadBytes) {
        return false;
    }
    const std::array<std::uint64_t, 2> ends{number_at(stream, 8, 4), number_at(stream, 12, 4)};
    std::array<std::uint64_t, 2> sides{};
    std::uint64_t tiles = 1;
    for (std::size_t i = 0; i < 2; ++i) {
        const std::uint64_t origin = number_at(stream, 16 + 4 * i, 4);
        const std::uint64_t tile = number_at(stream, 24 + 4 * i, 4);
        const std::uint64_t tileOrigin = number_at(stream, 32 + 4 * i, 4);
        if (tile == 0 || ends[i] <= origin || ends[i] <= tileOrigin) {
            return false;
        }
        sides[i] = ends[i] - origin;
        tiles *= (ends[i] - tileOrigin + tile - 1) / tile;
    }
    return tiles <= kMaxTiles && sides[0] <= kMaxPictureSide && sides[1] <= kMaxPictureSide &&
           sides[0] * sides[1] <= kMaxPicturePixels;
}

bool within_bounds(const opj_image_t& image) {
    if (image.numcomps == 0 || image.numcomps > kMaxChannels || image.x1 <= image.x0 ||
        image.y1 <= image.y0) {
        return false;
    }
    const std::uint64_t width = image.x1 - image.x0;
    const std::uint64_t height = image.y1 - image.y0;
    return width <= kMaxPictureSide && height <= kMaxPictureSide && width * height <= kMaxPicturePixels;
}

Image read_image(Reader& reader, OPJ_CODEC_FORMAT format) {
    const Codec codec(static_cast<opj_codec_t*>(opj_create_decompress(format)));
    const Stream stream(opj_stream_default_create(OPJ_TRUE));
    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    if (!codec || !stream || opj_setup_decoder(codec.get(), &parameters) == OPJ_FALSE) {
        return nullptr;
    }
    opj_stream_set_user_data(stream.get(), &reader, nullptr);
    opj_stream_set_user_data_length(stream.get(), reader.bytes.size());
    opj_stream_set_read_function(stream.get(), read_some);
    opj_stream_set_skip_function(stream.get(), skip_some);
    opj_stream_set_seek_function(stream.get(), seek_read);
    opj_image_t* read = nullptr;
    const bool header = opj_read_header(stream.get(), codec.get(), &read) == OPJ_TRUE;
    Image image(read);
    const bool done = header && image && within_bounds(*image) &&
                      opj_decode(codec.get(), stream.get(), image.get()) == OPJ_TRUE &&
                      opj_end_decompress(codec.get(), stream.get()) == OPJ_TRUE;
    return done ? std::move(image) : nullptr;
}

/// One sample as 0 to 255. Channels with fewer samples than the picture has pixels repeat theirs.
std::uint8_t sample(const opj_image_comp_t& channel, std::uint32_t x, std::uint32_t y) {
    const std::size_t column = std::min(x / std::max(channel.dx, 1U), channel.w - 1);
    const std::size_t row = std::min(y / std::max(channel.dy, 1U), channel.h - 1);
    const std::int64_t most = (std::int64_t{1} << std::min(channel.prec, 31U)) - 1;
    std::int64_t value = channel.data[row * channel.w + column];
    value += channel.sgnd != 0 ? (most + 1) / 2 : 0;
    return static_cast<std::uint8_t>((std::clamp<std::int64_t>(value, 0, most) * 255 + most / 2) / most);
}

/// The channels that stand for red, green, blue and opacity; a null one is opaque.
std::array<const opj_image_comp_t*, 4> channels_of(const opj_image_t& image) {
    const opj_image_comp_t* all = image.comps;
    switch (image.numcomps) {
    case 1:
        return {&all[0], &all[0], &all[0], nullptr};
    case 2:
        return {&all[0], &all[0], &all[0], &all[1]};
    case 3:
        return {&all[0], &all[1], &all[2], nullptr};
    default:
        return {&all[0], &all[1], &all[2], &all[3]};
    }
}

Image make_image(const Picture& picture, std::uint32_t channels) {
    std::array<opj_image_cmptparm_t, kMaxChannels> parameters{};
    for (auto& channel : parameters) {
        channel.dx = 1;
        channel.dy = 1;
        channel.w = picture.width;
        channel.h = picture.height;
        channel.prec = 8;
    }
    Image image(opj_image_create(channels, parameters.data(), OPJ_CLRSPC_SRGB));
    if (!image) {
        return nullptr;
    }
    image->x1 = picture.width;
    image->y1 = picture.height;
    for (std::uint32_t channel = 0; channel < channels; ++channel) {
        image->comps[channel].alpha = channel == 3 ? 1 : 0;
        for (std::size_t pixel = 0; pixel * 4 < picture.rgba.size(); ++pixel) {
            image->comps[channel].data[pixel] = picture.rgba[pixel * 4 + channel];
        }
    }
    return image;
}

/// As many halvings as leave the shorter side a sample, but no more than are usual.
int resolutions(const Picture& picture) {
    constexpr int kUsual = 6;
    int count = 1;
    for (std::uint32_t side = std::min(picture.width, picture.height); side > 1 && count < kUsual;
         side /= 2) {
        ++count;
    }
    return count;
}

} // namespace

std::optional<Picture> decode_jpeg2000(std::string_view bytes) {
    if (!head_within_bounds(bytes)) {
        return std::nullopt;
    }
    Reader reader{bytes};
    const Image image = read_image(reader, bytes.starts_with('\xFF') ? OPJ_CODEC_J2K : OPJ_CODEC_JP2);
    if (!image || !within_bounds(*image)) {
        return std::nullopt;
    }
    const auto channels = channels_of(*image);
    for (const opj_image_comp_t* channel : channels) {
        if (channel != nullptr &&
            (channel->data == nullptr || channel->w == 0 || channel->h == 0 || channel->prec == 0)) {
            return std::nullopt;
        }
    }
    Picture picture{image->x1 - image->x0, image->y1 - image->y0, {}};
    picture.rgba.reserve(std::size_t{picture.width} * picture.height * 4);
    for (std::uint32_t y = 0; y < picture.height; ++y) {
        for (std::uint32_t x = 0; x < picture.width; ++x) {
            for (const opj_image_comp_t* channel : channels) {
                picture.rgba.push_back(channel != nullptr ? sample(*channel, x, y) : std::uint8_t{255});
            }
        }
    }
    return picture;
}

std::optional<std::string> encode_jpeg2000(const Picture& picture) {
    bool opaque = true;
    for (std::size_t i = 3; i < picture.rgba.size(); i += 4) {
        opaque = opaque && picture.rgba[i] == 255;
    }
    const Image image = make_image(picture, opaque ? 3 : 4);
    const Codec codec(static_cast<opj_codec_t*>(opj_create_compress(OPJ_CODEC_JP2)));
    const Stream stream(opj_stream_default_create(OPJ_FALSE));
    if (!image || !codec || !stream) {
        return std::nullopt;
    }
    opj_cparameters_t parameters;
    opj_set_default_encoder_parameters(&parameters);
    parameters.numresolution = resolutions(picture);
    parameters.tcp_numlayers = 1;
    parameters.cp_disto_alloc = 1;
    // No colour transform: the library has no room for the largest differences of two channels, and a picture
    // with such contrasts would come back in other colours.
    parameters.tcp_mct = 0;
    Writer writer;
    opj_stream_set_user_data(stream.get(), &writer, nullptr);
    opj_stream_set_write_function(stream.get(), write_some);
    opj_stream_set_skip_function(stream.get(), skip_write);
    opj_stream_set_seek_function(stream.get(), seek_write);
    const bool done = opj_setup_encoder(codec.get(), &parameters, image.get()) == OPJ_TRUE &&
                      opj_start_compress(codec.get(), image.get(), stream.get()) == OPJ_TRUE &&
                      opj_encode(codec.get(), stream.get()) == OPJ_TRUE &&
                      opj_end_compress(codec.get(), stream.get()) == OPJ_TRUE;
    return done ? std::optional(std::move(writer.bytes)) : std::nullopt;
}

} // namespace specialpages::platform
