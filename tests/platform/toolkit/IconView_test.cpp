#include "ChangeLog.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/TemporaryDirectory.h"
#include "platform/services/images.h"
#include "platform/toolkit/IconView.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

TEST(IconView, AnnouncesAnotherPictureOnce) {
    IconView icon;
    ChangeLog log(icon);
    EXPECT_EQ(icon.kind(), ViewKind::icon);
    EXPECT_TRUE(icon.image().empty());
    icon.setImage("covers.bmp");
    icon.setImage("covers.bmp");
    EXPECT_EQ(icon.image(), "covers.bmp");
    EXPECT_EQ(log.take(), Changes{ViewChange::image});
    icon.setImage({});
    EXPECT_TRUE(icon.image().empty());
    EXPECT_EQ(log.take(), Changes{ViewChange::image});
}

/// A bundle with one picture, red beside half-opaque blue, and a file that is none.
class IconOfABundle : public ::testing::Test {
  protected:
    IconOfABundle() {
        testing::write_test_file(directory_ / "Info.plist", "<plist version=\"1.0\"><dict/></plist>");
        const Picture picture{2, 1, {255, 0, 0, 255, 0, 0, 255, 128}};
        testing::write_test_file(directory_ / "Icon.png",
                                 representationUsingType(picture, NSBitmapImageFileType::png).value());
        testing::write_test_file(directory_ / "NoIcon.png", "no picture");
        bundle_ = Bundle::load(directory_.path());
    }
    testing::TemporaryDirectory directory_;
    std::shared_ptr<Bundle> bundle_;
    IconView icon_;
};

TEST_F(IconOfABundle, IsAFileOfItsResources) {
    ASSERT_TRUE(bundle_);
    ChangeLog log(icon_);
    icon_.drawIcon(bundle_.get(), "Icon.png");
    EXPECT_EQ(icon_.image(), directory_ / "Icon.png");
    EXPECT_EQ(log.take(), Changes{ViewChange::image});
    icon_.drawIcon(bundle_.get(), "/etc/passwd");
    EXPECT_EQ(icon_.image(), directory_.path().string() + "//etc/passwd") << "never a file elsewhere";
    icon_.drawIcon(bundle_.get(), "");
    EXPECT_TRUE(icon_.image().empty());
    icon_.drawIcon(bundle_.get(), "Icon.png");
    icon_.drawIcon(nullptr, "Icon.png");
    EXPECT_TRUE(icon_.image().empty());
}

TEST_F(IconOfABundle, IsDrawnOverTheCanvasAtItsOwnSize) {
    icon_.drawIcon(bundle_.get(), "Icon.png");
    Picture canvas{3, 2, std::vector<std::uint8_t>(24, 255)};
    icon_.drawRect(canvas);
    EXPECT_EQ(canvas, (Picture{3, 2, {255, 0,   0,   255, 127, 127, 255, 255, 255, 255, 255, 255,
                                      255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255}}));
    Picture clear{1, 1, {9, 9, 9, 0}};
    icon_.drawRect(clear);
    EXPECT_EQ(clear, (Picture{1, 1, {255, 0, 0, 255}})) << "what does not fit is left out";
}

TEST_F(IconOfABundle, LeavesTheCanvasAloneWithoutAPicture) {
    const Picture white{1, 1, {255, 255, 255, 255}};
    Picture canvas = white;
    icon_.drawRect(canvas);
    for (const char* name : {"Missing.png", "NoIcon.png", ""}) {
        icon_.drawIcon(bundle_.get(), name);
        icon_.drawRect(canvas);
        EXPECT_EQ(canvas, white) << name;
    }
    icon_.drawIcon(bundle_.get(), "Icon.png");
    Picture broken{2, 2, {1, 2, 3}};
    icon_.drawRect(broken);
    EXPECT_EQ(broken, (Picture{2, 2, {1, 2, 3}}));
}

TEST(DrawOver, MixesByOpacity) {
    Picture canvas{3, 1, {0, 0, 0, 128, 10, 20, 30, 0, 10, 20, 30, 40}};
    draw_over(canvas, {3, 1, {255, 255, 255, 128, 1, 2, 3, 0, 1, 2, 3, 0}});
    // Half over half: opacity 128 + 128 * 127 / 255 = 191.75, white's share 128 / 191.75.
    EXPECT_EQ(canvas, (Picture{3, 1, {170, 170, 170, 192, 10, 20, 30, 0, 10, 20, 30, 40}}));
}

} // namespace
} // namespace specialpages::platform
