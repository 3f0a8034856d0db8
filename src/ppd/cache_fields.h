// The fields of a cache file's data line, read many characters at a time: loading such a file is comparing
// keys and reading small numbers, and nearly nothing else, so that all of it stands here to be compiled into
// the loop that needs it.
#pragma once

#include "ppd/constraint_index.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace specialpages::cache_fields {

inline constexpr char kFieldEnd = '@';
inline constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// The first character in the lowest byte on every machine.
inline std::uint64_t eight_at(const char* text) {
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    return std::endian::native == std::endian::big ? __builtin_bswap64(word) : word;
}

inline std::uint32_t four_at(const char* text) {
    std::uint32_t word = 0;
    std::memcpy(&word, text, sizeof word);
    return std::endian::native == std::endian::big ? __builtin_bswap32(word) : word;
}

/// How many characters are looked at for "@" at once.
inline constexpr std::size_t kWindow = 16;

/// Bit n is set when character n of the window is "@".
inline std::uint32_t ends_of_fields_plain(const char* text) {
    constexpr std::uint64_t kLow = kEachByte * 0x7F;
    std::uint64_t found = 0;
    for (std::size_t at = 0; at < kWindow; at += sizeof kLow) {
        const std::uint64_t other = eight_at(text + at) ^ (kEachByte * kFieldEnd);
        const std::uint64_t flags = ~(((other & kLow) + kLow) | other | kLow); // the top bit of each
        found |= (((flags >> 7) * 0x0102040810204080) >> 56) << at;
    }
    return static_cast<std::uint32_t>(found);
}

/// The same with the processor's instruction for it, where there is one.
inline std::uint32_t ends_of_fields(const char* text) {
#ifdef __SSE2__
    __m128i window;
    std::memcpy(&window, text, sizeof window);
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(window, _mm_set1_epi8(kFieldEnd))));
#else
    return ends_of_fields_plain(text);
#endif
}

/// The positions of an entry and how many characters they take, each with its "@"; 0 for none read.
struct ReadPositions {
    PackedPlace place = 0;
    std::size_t size = 0;
};

/// How many characters have to be readable at the text that read_plain_positions is given.
inline constexpr std::size_t kReadable = kWindow + sizeof(std::uint32_t);

/// Reads positions of which the first has one digit and the others one to four, as nearly all have. A branch
/// on how many digits the next one has would be guessed wrong half the time: hence none.
inline ReadPositions read_plain_positions(const char* text) {
    std::uint32_t ends = ends_of_fields(text);
    constexpr std::uint32_t kBehind = 1U << kWindow; // so that there is always one more
    const auto next_start = [&ends] {
        const auto end = static_cast<std::uint32_t>(std::countr_zero(ends | kBehind));
        ends &= ends - 1;
        return end + 1;
    };
    const std::uint32_t option = next_start();
    const std::uint32_t choice = next_start();
    const std::uint32_t size = next_start();
    const std::uint32_t option_digits = choice - option - 1;
    const std::uint32_t choice_digits = size - choice - 1;
    const auto group = static_cast<std::uint32_t>(text[0] - '0');
    constexpr std::uint32_t kMostDigits = sizeof(std::uint32_t);
    if (option != 2 || size > kWindow || group > 9 || option_digits - 1 >= kMostDigits ||
        choice_digits - 1 >= kMostDigits) {
        return {};
    }
    // Option and choice side by side in one word, the last digit of each in its highest byte.
    const auto side_by_side = [=](std::uint32_t for_option, std::uint32_t for_choice) {
        return std::uint64_t{for_option << 8 * (kMostDigits - option_digits)} |
               std::uint64_t{for_choice << 8 * (kMostDigits - choice_digits)} << 32;
    };
    constexpr std::uint32_t kZeros = 0x30303030;
    const std::uint64_t digits =
        side_by_side(four_at(text + option) ^ kZeros, four_at(text + choice) ^ kZeros);
    if ((((digits + kEachByte * 6) | digits) & (kEachByte * 0xF0)) != 0) {
        return {};
    }
    const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
    const std::uint64_t numbers = pairs * 100 + (pairs >> 16);
    return {packed(group, numbers, numbers >> 32), size};
}

/// Whether the text, of which at least as many characters are readable, begins with these: word by word, the
/// last two perhaps overlapping.
inline bool same_text(const char* text, std::string_view wanted) {
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    if (wanted.size() < kWord) {
        return std::memcmp(text, wanted.data(), wanted.size()) == 0;
    }
    const std::size_t last = wanted.size() - kWord;
    if (eight_at(text + last) != eight_at(wanted.data() + last)) {
        return false;
    }
    for (std::size_t at = 0; at < last; at += kWord) {
        if (eight_at(text + at) != eight_at(wanted.data() + at)) {
            return false;
        }
    }
    return true;
}

} // namespace specialpages::cache_fields
