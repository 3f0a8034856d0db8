#include "support/bitmap_reverse.h"

#include <algorithm>
#include <string_view>

namespace specialpages {

namespace {

std::uint32_t read_bytes(std::string_view file, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) {
        value = value << 8U | static_cast<unsigned char>(file[at + i]);
    }
    return value;
}

std::int32_t read_dword(std::string_view file, std::size_t at) {
    return static_cast<std::int32_t>(read_bytes(file, at, 4));
}

void write_dword(std::string& file, std::size_t at, std::int32_t value) {
    WriteDword(std::span<char, 4>(file.data() + at, 4), value);
}

bool is_kept(std::uint32_t bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 24;
}

/// The rows of a top-down file: how many, and the bytes of one before and after. The sizes are 64 bits wide,
/// so that no header makes them wrap around.
struct Rows {
    std::int64_t count = 0;
    std::int64_t width = 0;
    std::int64_t sourceBytes = 0;
    std::int64_t targetBytes = 0;
};

/// Bytes of a row with its padding to four. Bits that make no whole byte count for nothing.
std::int64_t row_bytes(std::int64_t width, std::int64_t bits) {
    return (width * (bits / 8) + 3) & ~std::int64_t{3};
}

Rows rows_of(std::string_view file, std::uint32_t bits) {
    Rows rows;
    rows.width = read_dword(file, bmp::kWidthAt);
    rows.count = -std::int64_t{read_dword(file, bmp::kHeightAt)};
    rows.sourceBytes = bits == 32 ? rows.width * 4 : row_bytes(rows.width, bits);
    rows.targetBytes = bits == 32 ? row_bytes(rows.width, 24) : rows.sourceBytes;
    return rows;
}

bool fits(const Rows& rows, std::size_t fileBytes) {
    const auto room = static_cast<std::int64_t>(fileBytes - bmp::kPixelsAt);
    const auto most = std::max(rows.sourceBytes, rows.targetBytes);
    // A product could pass 64 bits where this quotient can't.
    return rows.width >= 0 && (most == 0 || rows.count <= room / most);
}

/// Three bytes of every four.
void copy_without_fourth(std::string_view source, char* target) {
    for (std::size_t pixel = 0; pixel + 4 <= source.size(); pixel += 4, target += 3) {
        std::copy_n(source.begin() + static_cast<std::ptrdiff_t>(pixel), 3, target);
    }
}

void copy_rows(std::string_view source, std::string& target, const Rows& rows, bool dropFourth) {
    if (rows.sourceBytes == 0) {
        return;
    }
    const auto size = static_cast<std::size_t>(rows.sourceBytes);
    std::size_t from = source.size();
    char* to = target.data() + bmp::kPixelsAt;
    for (std::int64_t row = 0; row < rows.count; ++row, to += rows.targetBytes) {
        from -= size;
        if (dropFourth) {
            copy_without_fourth(source.substr(from, size), to);
        } else {
            std::copy_n(source.begin() + static_cast<std::ptrdiff_t>(from), size, to);
        }
    }
}

} // namespace

void WriteDword(std::span<char, 4> buffer, std::int32_t value) {
    for (std::size_t i = 0; i < buffer.size(); ++i) {
        buffer[i] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i) & 255U);
    }
}

void WriteWord(std::span<char, 2> buffer, std::int16_t value) {
    const auto bits = static_cast<std::uint16_t>(value);
    buffer[0] = static_cast<char>(bits & 255U);
    buffer[1] = static_cast<char>(bits >> 8U);
}

std::int32_t VerticalReverse(std::string* data) {
    if (data == nullptr) {
        return kBitmapBadArgument;
    }
    if (data->size() < bmp::kPixelsAt) {
        return kBitmapFailure;
    }
    const std::int32_t height = read_dword(*data, bmp::kHeightAt);
    const std::uint32_t bits = read_bytes(*data, bmp::kBitsAt, 2);
    if (height >= 1 && read_dword(*data, bmp::kXResolutionAt) == bmp::kResolution &&
        read_dword(*data, bmp::kYResolutionAt) == bmp::kResolution && is_kept(bits)) {
        return 0;
    }
    if (!is_kept(bits) && bits != 32) {
        return kBitmapFailure;
    }
    const Rows rows = rows_of(*data, bits);
    if (height < 0 && !fits(rows, data->size())) {
        return kBitmapFailure;
    }
    std::string result(data->size(), '\0');
    std::copy_n(data->begin(), bmp::kPixelsAt, result.begin());
    // The lowest height has no positive counterpart and stays.
    write_dword(result, bmp::kHeightAt, static_cast<std::int32_t>(0U - static_cast<std::uint32_t>(height)));
    write_dword(result, bmp::kXResolutionAt, bmp::kResolution);
    write_dword(result, bmp::kYResolutionAt, bmp::kResolution);
    // Four bytes: the upper two clear the low half of the compression field.
    write_dword(result, bmp::kBitsAt, bits == 32 ? 24 : static_cast<std::int32_t>(bits));
    if (height < 0) {
        copy_rows(*data, result, rows, bits == 32);
    }
    data->swap(result);
    return 0;
}

} // namespace specialpages
