#include "ppd/cache_fields.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace specialpages::cache_fields {
namespace {

/// The text with as many characters behind it as have to be readable.
std::string readable(std::string_view text) {
    return std::string(text) + std::string(kReadable, 'x');
}

x_constraints place_of(std::string_view text) {
    return unpacked(read_plain_positions(readable(text).data()).place);
}

std::size_t size_of(std::string_view text) {
    return read_plain_positions(readable(text).data()).size;
}

TEST(CacheFields, FindsTheEndsOfFields) {
    EXPECT_EQ(ends_of_fields("0@12@3@4567890@@"), 0xC052U);
    EXPECT_EQ(ends_of_fields("@@@@@@@@@@@@@@@@"), 0xFFFFU);
    EXPECT_EQ(ends_of_fields("?A?A?A?A?A?A?A?A"), 0U); // one below and one above
    EXPECT_EQ(ends_of_fields("\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0\xC0"), 0U);
}

RC_GTEST_PROP(CacheFields, EndsAreFoundAlikeWithoutTheProcessorsInstruction, ()) {
    const auto text = *rc::gen::container<std::string>(
        kWindow, rc::gen::oneOf(rc::gen::just('@'), rc::gen::arbitrary<char>()));
    std::uint32_t expected = 0;
    for (std::size_t i = 0; i < kWindow; ++i) {
        expected |= (text[i] == '@' ? 1U : 0U) << i;
    }
    RC_ASSERT(ends_of_fields(text.data()) == expected);
    RC_ASSERT(ends_of_fields_plain(text.data()) == expected);
}

TEST(CacheFields, ReadsPositionsOfOneToFourDigits) {
    EXPECT_EQ(place_of("0@0@0@"), (x_constraints{0, 0, 0}));
    EXPECT_EQ(place_of("9@1234@9999@"), (x_constraints{9, 1234, 9999}));
    EXPECT_EQ(place_of("1@12@345@"), (x_constraints{1, 12, 345}));
    EXPECT_EQ(place_of("2@007@10@next@"), (x_constraints{2, 7, 10}));
    EXPECT_EQ(size_of("0@0@0@"), 6U);
    EXPECT_EQ(size_of("9@1234@9999@"), 12U);
    EXPECT_EQ(size_of("1@12@345@1@1@1@"), 9U);
}

TEST(CacheFields, LeavesEveryOtherTextToTheSlowReader) {
    for (const std::string_view text : {"10@1@1@",
                                        "@1@1@",
                                        "0@@1@",
                                        "0@1@@",
                                        "0@12345@1@",
                                        "0@1@12345@",
                                        "0@1@1",
                                        "0@1",
                                        "x@1@1@",
                                        "0@1x@1@",
                                        "0@1@x1@",
                                        "0@-1@1@",
                                        "0@1@ 1@",
                                        "/@1@1@",
                                        ":@1@1@",
                                        "0@/@1@",
                                        "0@1@:@",
                                        "",
                                        "0@1234@12345678901@",
                                        "\xB0@1@1@"}) {
        EXPECT_EQ(size_of(text), 0U) << text;
    }
}

RC_GTEST_PROP(CacheFields, PositionsReadAreThoseWritten, ()) {
    const auto group = *rc::gen::inRange<unsigned>(0, 10);
    const auto option = *rc::gen::inRange<unsigned>(0, 10000);
    const auto choice = *rc::gen::inRange<unsigned>(0, 10000);
    const std::string text =
        std::to_string(group) + "@" + std::to_string(option) + "@" + std::to_string(choice) + "@";
    RC_ASSERT(unpacked(read_plain_positions(readable(text).data()).place) ==
              unpacked(packed(group, option, choice)));
    RC_ASSERT(size_of(text) == text.size());
}

TEST(CacheFields, ComparesTextsOfEveryLength) {
    for (std::size_t size = 0; size < 40; ++size) {
        std::string text;
        for (std::size_t i = 0; i < size; ++i) {
            text += static_cast<char>('a' + i % 26);
        }
        EXPECT_TRUE(same_text(text.data(), text)) << size;
        for (std::size_t i = 0; i < size; ++i) {
            std::string other = text;
            other[i] = '#';
            EXPECT_FALSE(same_text(other.data(), text)) << size << " at " << i;
        }
        EXPECT_TRUE(same_text((text + "behind").data(), text)) << size;
    }
}

} // namespace
} // namespace specialpages::cache_fields
