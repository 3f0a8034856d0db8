// The pass that brings a BMP file of the platform's encoder into the form that devices read: rows bottom-up,
// at most 24 bits a pixel, 72 dots per inch. It works on the bytes of BITMAPFILEHEADER and BITMAPINFOHEADER,
// little- endian, and knows no colour table: the pixels are taken to begin at byte 54.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace specialpages {

/// Fields of a BMP file by their offset: biWidth, biHeight (negative: rows top-down), biBitCount (two bytes),
/// biCompression, biXPelsPerMeter, biYPelsPerMeter.
namespace bmp {
inline constexpr std::size_t kWidthAt = 18;
inline constexpr std::size_t kHeightAt = 22;
inline constexpr std::size_t kBitsAt = 28;
inline constexpr std::size_t kCompressionAt = 30;
inline constexpr std::size_t kXResolutionAt = 38;
inline constexpr std::size_t kYResolutionAt = 42;
inline constexpr std::size_t kPixelsAt = 54;
/// 72 dots per inch, in pixels per metre.
inline constexpr std::int32_t kResolution = 2835;
} // namespace bmp

inline constexpr std::int32_t kBitmapBadArgument = -50;
inline constexpr std::int32_t kBitmapFailure = 1001;

/// Four and two bytes, little-endian.
void WriteDword(std::span<char, 4> buffer, std::int32_t value);
void WriteWord(std::span<char, 2> buffer, std::int16_t value);

/// Changes the file in place; its length stays. 0 and no change for a file that is right already: height of 1
/// or more, both resolutions 2835, 1, 4, 8 or 24 bits. Otherwise the height is negated, the resolutions are
/// set, 32 bits become 24, and everything after the header is cleared; the rows of a top-down file, counted
/// back from the end of the file, are then written from byte 54 in reverse order.
///
/// On purpose: rows of 1 and 4 bits have no size and stay blank, 8-bit rows go where the colour table was,
/// and a bottom-up file of another resolution comes out top-down and blank.
///
/// kBitmapBadArgument: null. kBitmapFailure, and no change: shorter than its header, another number of bits,
/// or top-down with a negative width or more rows than the file has room for, before or after.
std::int32_t VerticalReverse(std::string* data);

} // namespace specialpages
