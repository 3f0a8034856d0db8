// Any bytes as a BMP file: the length stays; a refused file and one that is right stay as they are; any other
// has its resolution and depth set, its height negated and the rest of its header kept, and a second pass
// over a file that came out bottom-up changes nothing.

#include "support/bitmap_reverse.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

namespace bmp = specialpages::bmp;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::uint32_t dword(const std::string& file, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8U | static_cast<unsigned char>(file[at + i]);
    }
    return value;
}

void check_turned(const std::string& before, const std::string& after) {
    const std::uint32_t bits = dword(after, bmp::kBitsAt);
    const std::uint32_t bitsBefore = dword(before, bmp::kBitsAt) & 0xFFFFU;
    require(bits == (bitsBefore == 32 ? 24 : bitsBefore));
    require(dword(after, bmp::kHeightAt) == 0U - dword(before, bmp::kHeightAt));
    require(dword(after, bmp::kXResolutionAt) == bmp::kResolution);
    require(dword(after, bmp::kYResolutionAt) == bmp::kResolution);
    require(after.compare(0, bmp::kHeightAt, before, 0, bmp::kHeightAt) == 0);
    require(after.compare(26, 2, before, 26, 2) == 0 && after.compare(32, 6, before, 32, 6) == 0);
    require(after.compare(46, 8, before, 46, 8) == 0);
    if (static_cast<std::int32_t>(dword(before, bmp::kHeightAt)) >= 0) {
        require(after.find_first_not_of('\0', bmp::kPixelsAt) == std::string::npos);
    }
    if (static_cast<std::int32_t>(dword(after, bmp::kHeightAt)) > 0) {
        std::string again = after;
        require(specialpages::VerticalReverse(&again) == 0 && again == after);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string before(reinterpret_cast<const char*>(data), size);
    std::string after = before;
    const std::int32_t status = specialpages::VerticalReverse(&after);
    require(after.size() == before.size());
    require(status == 0 || (status == specialpages::kBitmapFailure && after == before));
    if (after != before) {
        check_turned(before, after);
    }
    return 0;
}
