#include "ChangeLog.h"
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

} // namespace
} // namespace specialpages::platform
