// Two coders on the caller's buffers: Base64 (RFC 4648, padded, no line breaks) and a combination with a tag
// of four bytes. All answer 0, or one of the numbers below.
#pragma once

#include <cstdint>

namespace specialpages {

inline constexpr std::int32_t kNSPNullPointer = -1;
inline constexpr std::int32_t kNSPBadLength = -2;
inline constexpr std::int32_t kNSPOutputTooSmall = -3;

/// Writes the Base64 text of `length` bytes, without a zero byte at its end, and its length to `outLength`.
/// kNSPNullPointer: no input, no `outLength`, or no output with a capacity other than 0. kNSPBadLength:
/// length under 1 or capacity under 0. kNSPOutputTooSmall: nothing is written and `outLength` becomes the
/// size that is needed; a capacity of 0 is the question for that size.
std::int32_t NSPBinToB64(const unsigned char* in, std::int32_t length, unsigned char* out,
                         std::uint32_t* outLength, std::int32_t capacity);

/// Writes the bytes of a Base64 text of `length` characters, and their number to `outLength`. The length must
/// be a multiple of 4, else kNSPBadLength; everything else as above, the needed size being three quarters of
/// the length less the number of "=" at the end.
///
/// A lenient reader: blanks (C locale) are skipped wherever they stand, reading ends at a zero byte or at the
/// first "=", and a last group may be short. A character out of the alphabet is not refused: it enters the
/// bits as 255 and spoils its neighbours. A text that holds more than the needed size (it takes four "=" at
/// the end) gives kNSPOutputTooSmall with the true size where that is over the capacity.
std::int32_t NSPB64ToBin(const unsigned char* in, std::int32_t length, unsigned char* out,
                         std::uint32_t* outLength, std::int32_t capacity);

/// Combines byte i with byte i mod 4 of the tag by exclusive or; the same call undoes it, in place too.
/// kNSPNullPointer for any null argument, kNSPBadLength for a length or a capacity under 1. Bytes go in steps
/// of four and a last shorter one: at the first step that does not fit, the answer is kNSPOutputTooSmall,
/// `outLength` counts the steps before it, and what they wrote stays.
std::int32_t NSPEncrypt(const unsigned char* in, std::int32_t length, unsigned char* out,
                        std::uint32_t* outLength, std::int32_t capacity);

} // namespace specialpages
