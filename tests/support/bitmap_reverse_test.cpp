#include "support/bitmap_reverse.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <limits>

namespace specialpages {
namespace {

using namespace std::string_literals;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

std::string little(std::uint32_t value, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 255U);
    }
    return text;
}

struct Header {
    std::int32_t width = 1;
    std::int32_t height = -1;
    std::uint16_t bits = 24;
    std::uint32_t compression = 0;
    std::int32_t xResolution = 0;
    std::int32_t yResolution = 0;
};

/// A file with that header, marks in the fields that are not to change, and those pixels.
std::string file(const Header& header, const std::string& pixels) {
    const auto u = [](std::int32_t value) {
        return static_cast<std::uint32_t>(value);
    };
    std::string bytes = "BM" + little(54 + static_cast<std::uint32_t>(pixels.size()), 4) + "abcd" +
                        little(54, 4) + little(40, 4);
    bytes += little(u(header.width), 4) + little(u(header.height), 4) + little(1, 2) + little(header.bits, 2);
    bytes += little(header.compression, 4) + "size" + little(u(header.xResolution), 4) +
             little(u(header.yResolution), 4) + "usedmost";
    EXPECT_EQ(bytes.size(), 54U);
    return bytes + pixels;
}

std::string reversed(std::string bytes, std::int32_t status = 0) {
    EXPECT_EQ(VerticalReverse(&bytes), status);
    return bytes;
}

Header right(std::int32_t width, std::int32_t height, std::uint16_t bits) {
    return {width, height, bits, 0, 2835, 2835};
}

TEST(LittleEndian, WritesFourAndTwoBytes) {
    std::array<char, 4> four{};
    WriteDword(four, 0x12345678);
    EXPECT_EQ(std::string(four.data(), 4), "\x78\x56\x34\x12");
    WriteDword(four, -2);
    EXPECT_EQ(std::string(four.data(), 4), "\xFE\xFF\xFF\xFF");
    std::array<char, 2> two{};
    WriteWord(two, 0x1234);
    EXPECT_EQ(std::string(two.data(), 2), "\x34\x12");
    WriteWord(two, -32768);
    EXPECT_EQ(std::string(two.data(), 2), "\0\x80"s);
}

TEST(VerticalReverse, NeedsAFile) {
    EXPECT_EQ(VerticalReverse(nullptr), -50);
}

TEST(VerticalReverse, AFileThatIsRightStaysAsItIs) {
    for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{1, 4, 8, 24}) {
        const std::string bytes = file(right(2, 1, bits), "abcdefgh");
        EXPECT_EQ(reversed(bytes), bytes) << bits;
    }
    const std::string without = file(right(1000000, 1000000, 24), "");
    EXPECT_EQ(reversed(without), without) << "its size plays no part";
}

TEST(VerticalReverse, TwentyFourBitsTopDownBecomeBottomUp) {
    // Rows of two pixels have two bytes of padding, which go with them.
    const std::string bytes = file({2, -3, 24, 0, 0, 0}, "aaabbb..cccddd,,eeefff;;");
    EXPECT_EQ(reversed(bytes), file(right(2, 3, 24), "eeefff;;cccddd,,aaabbb.."));
}

TEST(VerticalReverse, ThirtyTwoBitsBecomeTwentyFour) {
    const std::string bytes = file({3, -2, 32, 0x00050003, 3780, 3780}, "aaa1bbb2ccc3ddd4eee5fff6");
    Header header = right(3, 2, 24);
    header.compression = 0x00050000;
    EXPECT_EQ(reversed(bytes), file(header, "dddeeefff\0\0\0aaabbbccc\0\0\0"s))
        << "rows of nine bytes and three of padding; of the compression the low half is cleared";
    EXPECT_EQ(reversed(file({1, -2, 32, 3, 2835, 2835}, "aaa1bbb2")), file(right(1, 2, 24), "bbb\0aaa\0"s));
}

TEST(VerticalReverse, RowsAreCountedFromTheEndOfTheFile) {
    EXPECT_EQ(reversed(file({1, -2, 24, 0, 0, 0}, "gap!aaa.bbb,")),
              file(right(1, 2, 24), "bbb,aaa.\0\0\0\0"s));
}

TEST(VerticalReverse, EightBitRowsGoWhereTheColourTableWas) {
    EXPECT_EQ(reversed(file({3, -2, 8, 0, 0, 0}, "TABLETABLEabc.def,")),
              file(right(3, 2, 8), "def,abc.\0\0\0\0\0\0\0\0\0\0"s));
}

TEST(VerticalReverse, OneAndFourBitsComeOutBlank) {
    for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{1, 4}) {
        EXPECT_EQ(reversed(file({8, -2, bits, 0, 0, 0}, "aaaabbbb")),
                  file(right(8, 2, bits), std::string(8, '\0')));
    }
}

TEST(VerticalReverse, ABottomUpFileOfAnotherResolutionComesOutTopDownAndBlank) {
    const Header wrong[] = {{1, 2, 24, 0, 2834, 2835},
                            {1, 2, 24, 0, 2835, 2834},
                            {1, 2, 24, 0, 0, 0},
                            {1, 2, 24, 0, 2835 + (1 << 16), 2835}};
    for (const Header& header : wrong) {
        EXPECT_EQ(reversed(file(header, "aaa.bbb,")), file(right(1, -2, 24), std::string(8, '\0')));
    }
    EXPECT_EQ(reversed(file(right(1, 2, 32), "aaa1bbb2")), file(right(1, -2, 24), std::string(8, '\0')))
        << "32 bits are never right";
}

TEST(VerticalReverse, ATopDownFileOfTheRightResolutionIsTurnedToo) {
    EXPECT_EQ(reversed(file(right(1, -2, 24), "aaa.bbb,")), file(right(1, 2, 24), "bbb,aaa."));
}

TEST(VerticalReverse, OtherDepthsAreRefused) {
    for (const int bits : {0, 2, 3, 5, 7, 9, 15, 16, 23, 25, 31, 33, 64, 0x0118, 0x8018, 0xFFFF}) {
        const std::string bytes = file({1, -1, static_cast<std::uint16_t>(bits), 0, 0, 0}, "aaa.");
        EXPECT_EQ(reversed(bytes, 1001), bytes) << bits;
    }
}

TEST(VerticalReverse, AFileShorterThanItsHeaderIsRefused) {
    const std::string whole = file({1, -1, 24, 0, 0, 0}, "");
    for (std::size_t size = 0; size < 54; ++size) {
        EXPECT_EQ(reversed(whole.substr(0, size), 1001), whole.substr(0, size)) << size;
    }
    EXPECT_EQ(reversed(file({1, 0, 24, 0, 0, 0}, "")), file(right(1, 0, 24), "")) << "no rows need no room";
}

TEST(VerticalReverse, RowsThatTheFileHasNoRoomForAreRefused) {
    const Header many[] = {{1, -3, 24, 0, 0, 0},
                           {3, -1, 24, 0, 0, 0},
                           {3, -1, 32, 0, 0, 0},
                           {9, -1, 8, 0, 0, 0},
                           {1, kLowest, 24, 0, 0, 0},
                           {0x7FFFFFFF, -1, 32, 0, 0, 0},
                           {0x7FFFFFFF, kLowest, 32, 0, 0, 0},
                           {0x40000000, -1, 32, 0, 0, 0},
                           {0x55555556, -1, 24, 0, 0, 0}};
    for (const Header& header : many) {
        const std::string bytes = file(header, "aaa.bbb,");
        EXPECT_EQ(reversed(bytes, 1001), bytes) << header.width << " " << header.height;
    }
    EXPECT_EQ(reversed(file({2, -1, 32, 0, 0, 0}, "aaa1bbb2")), file(right(2, 1, 24), "aaabbb\0\0"s))
        << "as much as fits exactly";
}

TEST(VerticalReverse, ANegativeWidthIsRefused) {
    for (const std::int32_t width : {-1, -2, -5, kLowest}) {
        for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{1, 4, 8, 24, 32}) {
            const std::string bytes = file({width, -1, bits, 0, 0, 0}, "aaa.bbb,");
            EXPECT_EQ(reversed(bytes, 1001), bytes) << width << " " << bits;
        }
    }
}

TEST(VerticalReverse, WithoutWidthThereIsNothingToCopy) {
    EXPECT_EQ(reversed(file({0, -1000000, 24, 0, 0, 0}, "aaaa")), file(right(0, 1000000, 24), "\0\0\0\0"s));
    EXPECT_EQ(reversed(file({0, -1, 32, 0, 0, 0}, "aaaa")), file(right(0, 1, 24), "\0\0\0\0"s));
}

TEST(VerticalReverse, TheLowestHeightStays) {
    EXPECT_EQ(reversed(file({8, kLowest, 1, 0, 0, 0}, "aaaa")), file(right(8, kLowest, 1), "\0\0\0\0"s))
        << "two thousand million rows of no bytes, at once";
}

RC_GTEST_PROP(VerticalReverseProperty, ATurnedFileIsRightAndStays, ()) {
    const auto width = *rc::gen::inRange(1, 9);
    const auto height = *rc::gen::inRange(1, 9);
    const std::uint16_t bits = *rc::gen::element<std::uint16_t>(8, 24, 32);
    const auto row = static_cast<std::size_t>(bits == 32 ? width * 4 : (width * (bits / 8) + 3) / 4 * 4);
    const auto pixels =
        *rc::gen::container<std::string>(row * static_cast<std::size_t>(height), rc::gen::arbitrary<char>());
    const std::string before = file({width, -height, bits, 0, 0, 0}, pixels);
    std::string after = before;
    RC_ASSERT(VerticalReverse(&after) == 0);
    RC_ASSERT(after.size() == before.size());
    const std::string once = after;
    RC_ASSERT(VerticalReverse(&after) == 0);
    RC_ASSERT(after == once);
    // The first row of what came out is the last of what went in.
    const auto bytes = static_cast<std::size_t>(width) * (bits == 8 ? 1 : 3);
    const std::string last = before.substr(before.size() - row);
    for (std::size_t i = 0; i < bytes; ++i) {
        RC_ASSERT(after[54 + i] == last[bits == 32 ? i / 3 * 4 + i % 3 : i]);
    }
}

} // namespace
} // namespace specialpages
