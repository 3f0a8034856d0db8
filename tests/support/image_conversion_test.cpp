#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/comma_locale.h"
#include "platform/services/images.h"
#include "support/bitmap_reverse.h"
#include "support/image_conversion.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace specialpages {
namespace {

namespace fs = std::filesystem;
using platform::NSBitmapImageFileType;
using platform::Picture;
using platform::testing::read_test_file;
using platform::testing::TemporaryDirectory;
using platform::testing::write_test_file;

/// Three by two: red, green, blue above white, black, grey.
const Picture kPicture{3, 2, {255, 0,   0,   255, 0, 255, 0, 255, 0,   0,   255, 255,
                              255, 255, 255, 255, 0, 0,   0, 255, 128, 128, 128, 255}};

class ImageConversion : public testing::Test {
  protected:
    ImageConversion() {
        write_test_file(source_,
                        platform::representationUsingType(kPicture, NSBitmapImageFileType::png).value());
    }
    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(directory_.path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    TemporaryDirectory directory_;
    fs::path source_ = directory_ / "source.png";
};

TEST_F(ImageConversion, WritesEachFormatUnderItsExtension) {
    const char* const extensions[] = {".tiff", ".bmp", ".gif", ".jpg", ".png", ".jp2"};
    for (unsigned long type = 0; type < 6; ++type) {
        const fs::path target = directory_ / "out";
        ASSERT_EQ(ConvertImgType(source_, target, type, true), 0) << type;
        const std::string bytes = read_test_file(target.string() + extensions[type]);
        EXPECT_EQ(platform::picture_format(bytes), static_cast<NSBitmapImageFileType>(type)) << type;
        const auto back = platform::decode_picture(bytes);
        ASSERT_TRUE(back) << type;
        if (type == 3) {
            EXPECT_EQ(back->width, 3U);
            EXPECT_EQ(back->height, 2U);
        } else {
            EXPECT_EQ(back, kPicture) << type;
        }
    }
    EXPECT_EQ(files().size(), 7U) << "and nothing else";
}

TEST_F(ImageConversion, KeepsAnExtensionThatFitsInAnyCase) {
    const std::pair<const char*, unsigned long> fitting[] = {{"a.TIFF", 0},  {"a.BMP", 1}, {"a.Gif", 2},
                                                             {"a.b.JPG", 3}, {"a.pNg", 4}, {"a.JP2", 5}};
    for (const auto& [name, type] : fitting) {
        EXPECT_EQ(ConvertImgType(source_, directory_ / name, type, true), 0) << name;
        EXPECT_TRUE(fs::exists(directory_ / name)) << name;
    }
    EXPECT_EQ(files().size(), 7U);
}

TEST_F(ImageConversion, AppendsToAnyOtherExtension) {
    const std::pair<const char*, unsigned long> other[] = {{"a.jpeg", 3}, {"a.tif", 0}, {"a.bmp.", 1},
                                                           {"abmp", 1},   {".bmp", 1},  {"a.png", 5}};
    for (const auto& [name, type] : other) {
        EXPECT_EQ(ConvertImgType(source_, directory_ / name, type, true), 0) << name;
    }
    EXPECT_EQ(files(), (std::set<std::string>{"source.png", "a.jpeg.jpg", "a.tif.tiff", "a.bmp..bmp",
                                              "abmp.bmp", ".bmp.bmp", "a.png.jp2"}));
}

TEST_F(ImageConversion, WritesToTheVeryNameWithoutAddExtension) {
    EXPECT_EQ(ConvertImgType(source_, directory_ / "picture.txt", 1, false), 0);
    EXPECT_EQ(read_test_file(directory_ / "picture.txt").substr(0, 2), "BM");
    EXPECT_EQ(ConvertImgType(source_, source_, 2, false), 0) << "over the source";
    EXPECT_EQ(read_test_file(source_).substr(0, 6), "GIF89a");
}

TEST_F(ImageConversion, ItsBmpIsWhatDevicesRead) {
    const platform::testing::CommaLocale locale;
    ASSERT_EQ(ConvertImgType(source_, directory_ / "a.bmp", 1, true), 0);
    std::string bytes = read_test_file(directory_ / "a.bmp");
    using namespace std::string_literals;
    // printf 'BM' etc. by hand from the header's fields: 78 bytes, pixels at 54; 3 by 2, one plane, 24 bits,
    // no compression, 24 bytes of pixels, 2835 (0x0B13) twice. Rows from the bottom, blue first, three bytes
    // of padding.
    EXPECT_EQ(bytes.substr(0, 30), "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0"s);
    EXPECT_EQ(bytes.substr(30, 16), "\0\0\0\0\x18\0\0\0\x13\x0B\0\0\x13\x0B\0\0"s);
    EXPECT_EQ(bytes.substr(54), "\xFF\xFF\xFF\0\0\0\x80\x80\x80\0\0\0\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0"s);
    const std::string before = bytes;
    EXPECT_EQ(VerticalReverse(&bytes), 0);
    EXPECT_EQ(bytes, before);
}

TEST_F(ImageConversion, BadArgumentsTouchNoFile) {
    const auto before = files();
    for (const unsigned long type : {6UL, 7UL, ~0UL}) {
        EXPECT_EQ(ConvertImgType(source_, directory_ / "a", type, true), -50) << type;
        EXPECT_EQ(ConvertImgType(directory_ / "missing", directory_ / "a", type, true), -50) << type;
    }
    EXPECT_EQ(ConvertImgType(std::nullopt, directory_ / "a", 1, true), -50);
    EXPECT_EQ(ConvertImgType(source_, std::nullopt, 1, true), -50);
    EXPECT_EQ(files(), before);
}

TEST_F(ImageConversion, ASourceThatIsNoPictureFails) {
    write_test_file(directory_ / "empty", "");
    write_test_file(directory_ / "text", "no picture");
    write_test_file(directory_ / "half", read_test_file(source_).substr(0, 40));
    const auto before = files();
    for (const char* name : {"empty", "text", "half", "missing", ""}) {
        EXPECT_EQ(ConvertImgType(directory_ / name, directory_ / "a", 1, true), 1001) << name;
    }
    EXPECT_EQ(ConvertImgType("", directory_ / "a", 1, true), 1001);
    EXPECT_EQ(files(), before);
}

TEST_F(ImageConversion, APrefixInTheNameChoosesNothing) {
    const fs::path odd = directory_ / "txt:source.png";
    fs::copy_file(source_, odd);
    EXPECT_EQ(ConvertImgType(odd, directory_ / "pdf:a", 4, true), 0);
    EXPECT_EQ(platform::decode_picture(read_test_file(directory_ / "pdf:a.png")), kPicture);
    const fs::path renamed = directory_ / "source.txt";
    fs::copy_file(source_, renamed);
    EXPECT_EQ(ConvertImgType(renamed, directory_ / "b", 4, true), 0) << "the ending says nothing either";
}

TEST_F(ImageConversion, ATargetThatCannotBeWrittenFailsAndStays) {
    const auto before = files();
    EXPECT_EQ(ConvertImgType(source_, directory_ / "missing/a.bmp", 1, true), 1001);
    EXPECT_EQ(ConvertImgType(source_, directory_.path(), 1, false), 1001);
    EXPECT_EQ(ConvertImgType(source_, "", 1, false), 1001);
    EXPECT_EQ(files(), before) << "no folder is made";
    fs::create_directory(directory_ / "a.bmp");
    EXPECT_EQ(ConvertImgType(source_, directory_ / "a.bmp", 1, true), 1001);
    EXPECT_TRUE(fs::is_directory(directory_ / "a.bmp"));
}

} // namespace
} // namespace specialpages
