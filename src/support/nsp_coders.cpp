#include "support/nsp_coders.h"

#include "platform/services/cryptography.h"
#include "support/secret_constants.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

namespace specialpages {

namespace {

constexpr std::string_view B64CHR = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kOutOfAlphabet = 255;

/// The value of each character below 128.
constexpr std::array<std::uint8_t, 128> B64TBL = [] {
    std::array<std::uint8_t, 128> table{};
    table.fill(kOutOfAlphabet);
    for (std::size_t value = 0; value < B64CHR.size(); ++value) {
        table[static_cast<unsigned char>(B64CHR[value])] = static_cast<std::uint8_t>(value);
    }
    return table;
}();

std::uint8_t base64_value(unsigned char character) {
    return character < B64TBL.size() ? B64TBL[character] : kOutOfAlphabet;
}

bool is_blank(unsigned char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// The answer to arguments that no coder takes, or 0.
std::int32_t check(const unsigned char* in, std::int32_t length, const unsigned char* out,
                   const std::uint32_t* outLength, std::int32_t capacity) {
    if (in == nullptr || outLength == nullptr || (out == nullptr && capacity != 0)) {
        return kNSPNullPointer;
    }
    return length < 1 || capacity < 0 ? kNSPBadLength : 0;
}

std::int32_t too_small(std::uint32_t* outLength, std::size_t needed) {
    *outLength = static_cast<std::uint32_t>(needed);
    return kNSPOutputTooSmall;
}

/// The values of the characters up to the end of the text, blanks left out, group by group.
class Groups {
  public:
    explicit Groups(std::span<const unsigned char> text) : text_(text) {}
    struct Group {
        std::array<std::uint8_t, 4> values{};
        std::size_t count = 0;
    };

    Group next() {
        Group group;
        for (; group.count < group.values.size() && !text_.empty(); text_ = text_.subspan(1)) {
            const unsigned char character = text_.front();
            if (character == '\0' || character == '=') {
                text_ = {};
                break;
            }
            if (!is_blank(character)) {
                group.values[group.count++] = base64_value(character);
            }
        }
        return group;
    }

  private:
    std::span<const unsigned char> text_;
};

/// The bytes that a group stands for. Values over 63 are not masked: they reach into the bits beside theirs.
std::array<std::uint8_t, 3> bytes_of_group(const Groups::Group& group) {
    const auto& [a, b, c, d] = group.values;
    const auto byte = [](unsigned bits) {
        return static_cast<std::uint8_t>(bits & 255U);
    };
    return {byte(unsigned{a} << 2U | unsigned{b} >> 4U), byte(unsigned{b} << 4U | unsigned{c} >> 2U),
            byte(unsigned{c} << 6U | unsigned{d})};
}

/// Number of bytes that a group of so many characters holds.
std::size_t byte_count(const Groups::Group& group) {
    return group.count == 0 ? 0 : group.count - 1;
}

std::size_t needed_for_bytes(std::span<const unsigned char> text) {
    const auto padding = static_cast<std::size_t>(
        std::find_if(text.rbegin(), text.rend(), [](unsigned char c) { return c != '='; }) - text.rbegin());
    const std::size_t whole = text.size() / 4 * 3;
    return whole - std::min(whole, padding);
}

} // namespace

std::int32_t NSPBinToB64(const unsigned char* in, std::int32_t length, unsigned char* out,
                         std::uint32_t* outLength, std::int32_t capacity) {
    if (const std::int32_t status = check(in, length, out, outLength, capacity); status != 0) {
        return status;
    }
    const auto size = static_cast<std::size_t>(length);
    const std::size_t needed = 4 * (size / 3) + (size % 3 == 0 ? 0 : 4);
    if (capacity == 0 || static_cast<std::size_t>(capacity) < needed) {
        return too_small(outLength, needed);
    }
    const std::string text = platform::base64_text({in, size});
    if (text.size() != needed) { // more than the library takes
        return kNSPBadLength;
    }
    std::copy(text.begin(), text.end(), out);
    *outLength = static_cast<std::uint32_t>(needed);
    return 0;
}

std::int32_t NSPB64ToBin(const unsigned char* in, std::int32_t length, unsigned char* out,
                         std::uint32_t* outLength, std::int32_t capacity) {
    if (const std::int32_t status = check(in, length, out, outLength, capacity); status != 0) {
        return status;
    }
    if (length % 4 != 0) {
        return kNSPBadLength;
    }
    const std::span text(in, static_cast<std::size_t>(length));
    const auto room = static_cast<std::size_t>(capacity);
    if (const std::size_t needed = needed_for_bytes(text); room == 0 || room < needed) {
        return too_small(outLength, needed);
    }
    std::size_t written = 0;
    Groups groups(text);
    for (auto group = groups.next(); group.count != 0; group = groups.next()) {
        const auto bytes = bytes_of_group(group);
        for (std::size_t i = 0; i < byte_count(group); ++i, ++written) {
            if (written < room) {
                out[written] = bytes[i];
            }
        }
    }
    if (written > room) {
        return too_small(outLength, written);
    }
    *outLength = static_cast<std::uint32_t>(written);
    return 0;
}

std::int32_t NSPEncrypt(const unsigned char* in, std::int32_t length, unsigned char* out,
                        std::uint32_t* outLength, std::int32_t capacity) {
    if (in == nullptr || out == nullptr || outLength == nullptr) {
        return kNSPNullPointer;
    }
    if (length < 1 || capacity < 1) {
        return kNSPBadLength;
    }
    const auto size = static_cast<std::uint32_t>(length);
    const auto room = static_cast<std::uint32_t>(capacity);
    constexpr std::uint32_t kStep = std::tuple_size_v<decltype(kNSPEncryptTag)>;
    *outLength = 0;
    for (std::uint32_t done = 0; done < size;) {
        const std::uint32_t end = done + std::min(kStep, size - done);
        if (end > room) {
            return kNSPOutputTooSmall;
        }
        for (; done < end; ++done) {
            out[done] = static_cast<unsigned char>(in[done] ^ kNSPEncryptTag[done % kStep]);
        }
        *outLength = done;
    }
    return 0;
}

} // namespace specialpages
