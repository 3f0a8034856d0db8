// Any bytes as Base64 text: the lenient reader writes no more than it says and than there is room for, tells
// one size however it is asked, and agrees with the strict reader where that one reads; what is written from
// the bytes is read back by both.

#include "platform/services/cryptography.h"
#include "support/nsp_coders.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using specialpages::platform::Bytes;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check_reading(const std::uint8_t* data, std::size_t size) {
    const auto length = static_cast<std::int32_t>(size);
    std::uint32_t needed = 0;
    const std::int32_t asked = specialpages::NSPB64ToBin(data, length, nullptr, &needed, 0);
    if (size % 4 != 0) {
        require(asked == specialpages::kNSPBadLength && needed == 0);
        return;
    }
    require(asked == specialpages::kNSPOutputTooSmall && needed <= size / 4 * 3);
    // Exactly three quarters are always enough; the sanitizer sees a byte behind them.
    Bytes out(size / 4 * 3);
    std::uint32_t written = 0;
    require(specialpages::NSPB64ToBin(data, length, out.data(), &written,
                                      static_cast<std::int32_t>(out.size())) == 0);
    require(written <= out.size());
    if (needed > 0) {
        Bytes exact(needed);
        std::uint32_t again = 0;
        const std::int32_t status =
            specialpages::NSPB64ToBin(data, length, exact.data(), &again, static_cast<std::int32_t>(needed));
        require(again == written && (status == 0) == (written <= needed));
    }
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto strict = specialpages::platform::base64_bytes(text);
    if (strict && text.find('\0') == std::string_view::npos) {
        require(strict->size() == written && std::equal(strict->begin(), strict->end(), out.begin()));
    }
}

void check_writing(const std::uint8_t* data, std::size_t size) {
    Bytes text((size + 2) / 3 * 4);
    std::uint32_t length = 0;
    require(specialpages::NSPBinToB64(data, static_cast<std::int32_t>(size), text.data(), &length,
                                      static_cast<std::int32_t>(text.size())) == 0);
    require(length == text.size());
    Bytes back(size);
    require(specialpages::NSPB64ToBin(text.data(), static_cast<std::int32_t>(length), back.data(), &length,
                                      static_cast<std::int32_t>(size)) == 0);
    require(length == size && std::equal(back.begin(), back.end(), data));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) { // there is no pointer to nothing
        return 0;
    }
    const Bytes exact(data, data + size);
    check_reading(exact.data(), size);
    check_writing(exact.data(), size);
    return 0;
}
