#include "platform/foundation/TemporaryDirectory.h"
#include "platform/services/images.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <string>

namespace specialpages::platform {
namespace {

using namespace std::string_literals;
using testing::TemporaryDirectory;
using testing::write_test_file;
using Type = NSBitmapImageFileType;

constexpr Type kAll[] = {Type::tiff, Type::bmp, Type::gif, Type::jpeg, Type::png, Type::jpeg2000};

Picture plain(std::uint32_t width, std::uint32_t height) {
    Picture picture{width, height, {}};
    for (std::uint32_t i = 0; i < width * height; ++i) {
        picture.rgba.insert(picture.rgba.end(), {static_cast<std::uint8_t>(i * 40),
                                                 static_cast<std::uint8_t>(255 - i * 20), 7, 255});
    }
    return picture;
}

TEST(PictureFormat, IsToldByTheFirstBytes) {
    EXPECT_EQ(picture_format("II*\0rest"s), Type::tiff);
    EXPECT_EQ(picture_format("MM\0*rest"s), Type::tiff);
    EXPECT_EQ(picture_format("BM"), Type::bmp);
    EXPECT_EQ(picture_format("GIF87a"), Type::gif);
    EXPECT_EQ(picture_format("GIF89a"), Type::gif);
    EXPECT_EQ(picture_format("\xFF\xD8\xFF\xE0"), Type::jpeg);
    EXPECT_EQ(picture_format("\x89PNG\r\n\x1A\n"), Type::png);
    EXPECT_EQ(picture_format("\0\0\0\x0CjP  \r\n\x87\n"s), Type::jpeg2000);
    EXPECT_EQ(picture_format("\xFF\x4F\xFF\x51"), Type::jpeg2000);
    for (const std::string& other :
         {""s, "B"s, "GIF88a"s, "%PDF"s, "P6 1 1"s, "<svg"s, "push graphic-context"s, "\x89PNG\n"s, " BM"s}) {
        EXPECT_EQ(picture_format(other), std::nullopt) << other;
        EXPECT_FALSE(decode_picture(other)) << other;
    }
}

TEST(Pictures, ComeBackFromEveryFormatWithoutLoss) {
    for (const Type type : {Type::tiff, Type::bmp, Type::gif, Type::png, Type::jpeg2000}) {
        for (const auto& [width, height] : {std::pair(1U, 1U), {1U, 5U}, {5U, 1U}, {2U, 3U}}) {
            const auto bytes = representationUsingType(plain(width, height), type);
            ASSERT_TRUE(bytes) << static_cast<int>(type);
            EXPECT_EQ(picture_format(*bytes), type);
            EXPECT_EQ(decode_picture(*bytes), plain(width, height))
                << static_cast<int>(type) << " " << width << "x" << height;
            EXPECT_EQ(representationUsingType(plain(width, height), type), bytes)
                << "the same bytes each time";
        }
    }
}

TEST(Pictures, ComeBackFromJpeg2000WithTheStrongestContrasts) {
    Picture picture{4, 3, {}};
    for (const char pixel : std::string("ggmmggmmmmoo")) {
        const std::uint8_t green = pixel == 'g' ? 255 : 0;
        const std::uint8_t other = pixel == 'm' ? 255 : 0;
        picture.rgba.insert(picture.rgba.end(),
                            pixel == 'o' ? std::initializer_list<std::uint8_t>{115, 138, 112, 255}
                                         : std::initializer_list<std::uint8_t>{other, green, other, 255});
    }
    const auto bytes = representationUsingType(picture, Type::jpeg2000);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(decode_picture(*bytes), picture);
}

TEST(Pictures, OfManyTilesAreRefusedBeforeTheyAreSetUp) {
    const auto stream = [](std::uint32_t width, std::uint32_t height, std::uint32_t tile) {
        const std::string file = representationUsingType(plain(3, 3), Type::jpeg2000).value();
        std::string bytes = file.substr(file.find("\xFF\x4F\xFF\x51"));
        const auto put = [&bytes](std::size_t at, std::uint32_t number) {
            for (std::size_t i = 0; i < 4; ++i) {
                bytes[at + i] = static_cast<char>(number >> (24 - 8 * i));
            }
        };
        put(8, width);
        put(12, height);
        put(24, tile);
        put(28, tile);
        return bytes;
    };
    EXPECT_TRUE(decode_picture(stream(3, 3, 3)));
    for (const auto& [width, height, tile] : {std::array{4U, 63491U, 3U},
                                              {16384U, 1024U, 1U},
                                              {0xFFFFFFFFU, 0xFFFFFFFFU, 1U},
                                              {4096U, 4096U, 63U},
                                              {3U, 3U, 0U},
                                              {0U, 3U, 3U},
                                              {16385U, 1U, 16385U}}) {
        EXPECT_FALSE(decode_picture(stream(width, height, tile))) << width << "x" << height << " " << tile;
    }
    EXPECT_FALSE(decode_picture("\xFF\x4F\xFF\x51"));
    // Boxes whose sizes lead nowhere.
    const std::string signature("\0\0\0\x0CjP  \r\n\x87\n", 12);
    for (const std::string& rest :
         {std::string(), std::string("\0\0\0\0free........", 16), std::string("\0\0\0\7free........", 16),
          std::string("\xFF\xFF\xFF\xFF"
                      "free........",
                      16),
          std::string("\0\0\0\1free\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 16),
          std::string("\0\0\0\0jp2c........", 16)}) {
        EXPECT_FALSE(decode_picture(signature + rest));
    }
}

TEST(Pictures, ComeBackFromJpegNearly) {
    const Picture grey{8, 8, std::vector<std::uint8_t>(256, 255)};
    const auto bytes = representationUsingType(grey, Type::jpeg);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(decode_picture(*bytes), grey);
}

TEST(Pictures, KeepTheirOpacityWhereTheFormatHasOne) {
    const Picture half{2, 1, {200, 100, 50, 128, 10, 20, 30, 255}};
    for (const Type type : {Type::tiff, Type::png, Type::jpeg2000}) {
        const auto bytes = representationUsingType(half, type);
        ASSERT_TRUE(bytes);
        EXPECT_EQ(decode_picture(*bytes), half) << static_cast<int>(type);
    }
}

TEST(Pictures, StandOnWhiteWhereItHasNone) {
    const Picture picture{2, 1, {0, 100, 255, 0, 0, 100, 255, 128}};
    const auto bytes = representationUsingType(picture, Type::bmp);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(decode_picture(*bytes), (Picture{2, 1, {255, 255, 255, 255, 127, 177, 255, 255}}));
}

TEST(Pictures, OfABmpAreTwentyFourBitsBottomUpAt2835) {
    const Picture greys{2, 2, {0, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0, 255}};
    const auto bytes = representationUsingType(greys, Type::bmp);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->substr(18, 12), "\2\0\0\0\2\0\0\0\1\0\x18\0"s) << "black and white too";
    EXPECT_EQ(bytes->substr(38, 8), "\x13\x0B\0\0\x13\x0B\0\0"s);
    EXPECT_EQ(bytes->size(), 54U + 2 * 8);
}

TEST(Pictures, WithoutPixelsOrOfAnotherSizeAreNotEncoded) {
    const Picture wrong[] = {{0, 0, {}},
                             {1, 0, {}},
                             {0, 1, {}},
                             {1, 1, {1, 2, 3}},
                             {1, 1, {1, 2, 3, 4, 5}},
                             {0x10000, 0x10000, {}},
                             {kMaxPictureSide + 1, 1, std::vector<std::uint8_t>(65540)}};
    for (const Picture& picture : wrong) {
        for (const Type type : kAll) {
            EXPECT_FALSE(representationUsingType(picture, type)) << picture.width;
        }
    }
}

TEST(Pictures, CutAnywhereAreRefusedOrWhole) {
    for (const Type type : kAll) {
        const std::string bytes = representationUsingType(plain(3, 2), type).value();
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            const auto picture = decode_picture(std::string_view(bytes).substr(0, size));
            if (picture) {
                EXPECT_EQ(picture->width, 3U);
                EXPECT_EQ(picture->rgba.size(), 24U);
            }
        }
        EXPECT_FALSE(
            decode_picture(std::string_view(bytes).substr(0, std::min<std::size_t>(bytes.size(), 20))))
            << static_cast<int>(type);
    }
}

std::string little(std::uint32_t value) {
    std::string text;
    for (int i = 0; i < 4; ++i) {
        text += static_cast<char>(value >> (8 * i) & 255U);
    }
    return text;
}

TEST(Pictures, ThatClaimToBeHugeAreRefusedAtOnce) {
    for (const auto& [width, height] : {std::pair(30000U, 30000U),
                                        {16384U, 16384U},
                                        {20000U, 1U},
                                        {1U, 20000U},
                                        {0x7FFFFFFFU, 0x7FFFFFFFU},
                                        {0U, 5U},
                                        {5U, 0U},
                                        {1U, 0x80000000U}}) {
        std::string bytes = representationUsingType(plain(1, 1), Type::bmp).value();
        bytes.replace(18, 8, little(width) + little(height));
        EXPECT_FALSE(decode_picture(bytes)) << width << "x" << height;
    }
}

TEST(Pictures, OfATopDownBmpAreRead) {
    std::string bytes = representationUsingType(plain(1, 2), Type::bmp).value();
    bytes.replace(22, 4, little(static_cast<std::uint32_t>(-2)));
    const auto turned = decode_picture(bytes);
    ASSERT_TRUE(turned);
    Picture expected = plain(1, 2);
    std::rotate(expected.rgba.begin(), expected.rgba.begin() + 4, expected.rgba.end());
    EXPECT_EQ(*turned, expected);
}

TEST(Pictures, AreReadFromFilesByTheirContents) {
    const TemporaryDirectory directory;
    write_test_file(directory / "bmp:picture.txt", representationUsingType(plain(2, 2), Type::png).value());
    EXPECT_EQ(initWithContentsOfFile(directory / "bmp:picture.txt"), plain(2, 2));
    EXPECT_FALSE(initWithContentsOfFile(directory / "missing"));
    EXPECT_FALSE(initWithContentsOfFile(directory.path()));
}

TEST(Pictures, OfThePanesIconsCanBeRead) {
    for (const char* name : {"AddCovers.bmp", "AddInserts.bmp", "AddExceptions.bmp", "Warning.bmp"}) {
        const auto picture = initWithContentsOfFile((paths::source_dir() + "/resources/icons/") + name);
        ASSERT_TRUE(picture) << name;
        EXPECT_GT(picture->width, 0U);
        EXPECT_EQ(picture->rgba.size(), std::size_t{picture->width} * picture->height * 4);
    }
}

TEST(Pictures, LeaveTheProcesssSignalsAlone) {
    struct sigaction before {};
    ::sigaction(SIGINT, nullptr, &before);
    ASSERT_TRUE(representationUsingType(plain(1, 1), Type::png));
    struct sigaction after {};
    ::sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
    EXPECT_EQ(after.sa_handler, SIG_DFL);
}

} // namespace
} // namespace specialpages::platform
