// Units against simple models, over arbitrary input.
#include "support/units.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace specialpages {
namespace {

/// Characters of one to four bytes in UTF-8, without surrogates and the zero character.
rc::Gen<std::u32string> arbitrary_text() {
    const auto character = rc::gen::oneOf(
        rc::gen::inRange<std::uint32_t>(1, 0x80), rc::gen::inRange<std::uint32_t>(0x80, 0x120),
        rc::gen::inRange<std::uint32_t>(0x3000, 0x3100), rc::gen::inRange<std::uint32_t>(0xE000, 0x10000),
        rc::gen::inRange<std::uint32_t>(0x10000, 0x110000));
    return rc::gen::map(
        rc::gen::container<std::vector<std::uint32_t>>(character),
        [](const std::vector<std::uint32_t>& codes) { return std::u32string(codes.begin(), codes.end()); });
}

std::string utf8(const std::u32string& text) {
    std::string bytes;
    const auto put = [&bytes](std::uint32_t byte) {
        bytes.push_back(static_cast<char>(byte));
    };
    for (const std::uint32_t code : text) {
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | code >> 6);
            put(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            put(0xE0 | code >> 12);
            put(0x80 | (code >> 6 & 0x3F));
            put(0x80 | (code & 0x3F));
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
            put(0x80 | (code >> 6 & 0x3F));
            put(0x80 | (code & 0x3F));
        }
    }
    return bytes;
}

std::int32_t columns(char32_t code, char32_t firstWide) {
    if (code >= 0x10000) {
        return 4;
    }
    return code < firstWide ? 1 : 2;
}

std::int32_t columns(const std::u32string& text, char32_t firstWide) {
    std::int32_t sum = 0;
    for (const char32_t code : text) {
        sum += columns(code, firstWide);
    }
    return sum;
}

RC_GTEST_PROP(UnitsProperty, TenthsReadBackFromTheirText, (std::int32_t value)) {
    RC_ASSERT(ConvertFloatStrToInt(ConvertIntToFloatStr(value)) == value);
    RC_ASSERT(GetMillimetreFromStr(ConvertIntToFloatStr(value)) == value);
}

RC_GTEST_PROP(UnitsProperty, ColumnCountsAgreeWithTheirModel, ()) {
    const std::u32string text = *arbitrary_text();
    RC_ASSERT(GetStringLength(utf8(text)) == columns(text, 0x80));
    RC_ASSERT(GetUTF8StringLength(utf8(text)) == columns(text, 0x100));
}

RC_GTEST_PROP(UnitsProperty, ShorteningAgreesWithItsModel, ()) {
    const std::u32string text = *arbitrary_text();
    const auto limit = *rc::gen::inRange<std::int32_t>(-1, 60);
    std::u32string head;
    std::int32_t used = 0;
    for (const char32_t code : text) {
        used += columns(code, 0x80);
        if (used > limit) {
            break;
        }
        head.push_back(code);
    }
    RC_ASSERT(GetShortenString(utf8(text), limit) == utf8(head));
}

RC_GTEST_PROP(UnitsProperty, PiecesOfASCIIAgreeWithTheirModel, ()) {
    const auto text = *rc::gen::container<std::string>(rc::gen::element('a', '1', ',', ';', '\n', ' '));
    std::vector<std::string> expected{""};
    for (const char character : text) {
        if (character == ',' || character == '\n') {
            expected.emplace_back();
        } else {
            expected.back().push_back(character);
        }
    }
    std::vector<std::string> pieces;
    getStringBySeparator(pieces, text, ',');
    RC_ASSERT(pieces == expected);
}

RC_GTEST_PROP(UnitsProperty, SlashDecimalTextDecodesToItsBytes, ()) {
    const auto bytes = *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 256)));
    std::string encoded;
    std::string expected;
    for (const int byte : bytes) {
        encoded += "/" + std::to_string(byte);
        expected.push_back(static_cast<char>(byte));
    }
    numstrtochar(encoded, static_cast<std::int32_t>(encoded.size()));
    RC_ASSERT(encoded == expected);
}

RC_GTEST_PROP(UnitsProperty, PointsAreWithinHalfAUnitOfTheExactInches, ()) {
    const auto points = *rc::gen::inRange<std::int32_t>(0, 20000);
    const std::int64_t hundredths = TransformPointByType(nullptr, points, 2, kTransformInches);
    const std::int64_t error = hundredths * 72 - std::int64_t{points} * 100;
    RC_ASSERT(error > -36 && error <= 36);
}

RC_GTEST_PROP(UnitsProperty, TheTextOfPointsIsTheNumberWithAPoint, ()) {
    const auto points = *rc::gen::arbitrary<std::int32_t>();
    const auto decimals = *rc::gen::inRange<std::int32_t>(1, 6);
    const auto type = *rc::gen::element<std::int32_t>(kTransformInches, kTransformMillimetres);
    std::string text;
    const std::int32_t value = TransformPointByType(&text, points, decimals, type);
    RC_ASSERT(type == kTransformInches || value % 10 == 0);
    const std::size_t point = text.find('.');
    RC_ASSERT(point != std::string::npos);
    RC_ASSERT(text.size() - point - 1 <= static_cast<std::size_t>(decimals));
    text.erase(point, 1);
    RC_ASSERT(text == std::to_string(value));
}

} // namespace
} // namespace specialpages
