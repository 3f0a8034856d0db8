#include "platform/foundation/text.h"

#include <unicode/brkiter.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

namespace specialpages::platform {

namespace {

/// ICU counts in 32 bits. Larger texts count as ill-formed instead of being cut.
constexpr std::size_t kMaxIcuUnits = std::numeric_limits<std::int32_t>::max() / 4;

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

/// The converter of that name, which stops at ill-formed bytes; null for an unknown name.
Converter open_strict_converter(const char* encoding) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(encoding, &status), &ucnv_close);
    if (U_FAILURE(status)) {
        return {nullptr, &ucnv_close};
    }
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_FAILURE(status) ? Converter{nullptr, &ucnv_close} : std::move(converter);
}

} // namespace

bool is_valid_utf8(std::string_view bytes) {
    if (bytes.size() > kMaxIcuUnits) {
        return false;
    }
    // An ASCII byte is never a part of a longer character: the stretches between them, of which most texts
    // have few, are decoded one by one.
    constexpr auto kIsAscii = [](char byte) {
        return static_cast<unsigned char>(byte) < 0x80;
    };
    for (auto place = bytes.begin(); place != bytes.end();) {
        const auto* const begin = std::find_if_not(place, bytes.end(), kIsAscii);
        place = std::find_if(begin, bytes.end(), kIsAscii);
        if (begin != place && !utf16_length({begin, place})) {
            return false;
        }
    }
    return true;
}

std::optional<std::u16string> utf16_from_utf8(std::string_view bytes) {
    if (bytes.size() > kMaxIcuUnits) {
        return std::nullopt;
    }
    // UTF-16 never has more units than UTF-8 has bytes.
    std::u16string units(bytes.size(), u'\0');
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(units.data(), static_cast<std::int32_t>(units.size()), &length, bytes.data(),
                  static_cast<std::int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    units.resize(static_cast<std::size_t>(length));
    return units;
}

std::string utf8_from_utf16(std::u16string_view units) {
    std::string bytes;
    for (; !units.empty(); units.remove_prefix(std::min(units.size(), kMaxIcuUnits))) {
        const icu::UnicodeString part(false, units.data(),
                                      static_cast<std::int32_t>(std::min(units.size(), kMaxIcuUnits)));
        part.toUTF8String(bytes); // appends, a lone surrogate as U+FFFD
    }
    return bytes;
}

std::optional<std::size_t> utf16_length(std::string_view bytes) {
    if (bytes.size() > kMaxIcuUnits) {
        return std::nullopt;
    }
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &length, bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(length);
}

std::vector<std::size_t> composed_character_ends(std::u16string_view units) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (units.empty()) {
        return {};
    }
    if (U_FAILURE(status) || units.size() > kMaxIcuUnits) {
        return {units.size()}; // nothing is known of the inside
    }
    const icu::UnicodeString text(false, units.data(), static_cast<std::int32_t>(units.size()));
    characters->setText(text);
    std::vector<std::size_t> ends;
    for (auto end = characters->next(); end != icu::BreakIterator::DONE; end = characters->next()) {
        ends.push_back(static_cast<std::size_t>(end));
    }
    return ends;
}

std::string_view utf8_prefix(std::string_view text, std::size_t max_bytes) {
    if (text.size() <= max_bytes) {
        return text;
    }
    // The character that holds the byte after the cut begins at most three bytes before it.
    const std::size_t start = max_bytes - std::min<std::size_t>(max_bytes, U8_MAX_LENGTH);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data()) + start;
    auto cut = static_cast<std::int32_t>(max_bytes - start);
    U8_SET_CP_START(bytes, 0, cut);
    return text.substr(0, start + static_cast<std::size_t>(cut));
}

std::string replace_all(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) {
        return std::string(text);
    }
    std::string result;
    std::size_t done = 0;
    for (auto found = text.find(from); found != std::string_view::npos; found = text.find(from, done)) {
        result.append(text.substr(done, found - done)).append(to);
        done = found + from.size();
    }
    return result.append(text.substr(done));
}

std::optional<std::string> utf8_from_encoding(std::string_view bytes, const char* encoding) {
    // A missing name would mean the locale's own encoding to ICU.
    if (encoding == nullptr || *encoding == '\0' || bytes.size() > kMaxIcuUnits) {
        return std::nullopt;
    }
    const Converter converter = open_strict_converter(encoding);
    if (!converter) {
        return std::nullopt;
    }
    // One byte gives at most two units in every table; the preflight below does not rely on it.
    std::u16string units(bytes.size() * 2, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length =
        ucnv_toUChars(converter.get(), units.data(), static_cast<std::int32_t>(units.size()), bytes.data(),
                      static_cast<std::int32_t>(bytes.size()), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        status = U_ZERO_ERROR;
        units.resize(static_cast<std::size_t>(length));
        ucnv_toUChars(converter.get(), units.data(), length, bytes.data(),
                      static_cast<std::int32_t>(bytes.size()), &status);
    }
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    units.resize(static_cast<std::size_t>(length));
    return utf8_from_utf16(units);
}

} // namespace specialpages::platform
