#include "qt/window_place.h"

#include <gtest/gtest.h>

namespace specialpages::qt {
namespace {

const QRect kRoom(10, 20, 1000, 800);
const WindowSizes kSizes{QSize(400, 200), QSize(600, 700), QSize(300, 150)};

QRect place(const WindowSizes& sizes, QPoint middle) {
    return window_place(sizes, middle, kRoom);
}

TEST(WindowPlace, GrowsToTheComfortableSizeAroundTheMiddle) {
    const QRect found = place(kSizes, {500, 400});
    EXPECT_EQ(found.size(), QSize(600, 700));
    EXPECT_EQ(found.center(), QPoint(500, 400));
}

TEST(WindowPlace, KeepsWhatIsLarger) {
    const QRect found = place({QSize(700, 200), QSize(600, 700), QSize(300, 150)}, {500, 400});
    EXPECT_EQ(found.size(), QSize(700, 700));
}

TEST(WindowPlace, MovesIntoTheRoomOnEachSide) {
    EXPECT_EQ(place(kSizes, {0, 400}), QRect(10, 51, 600, 700)); // 400 is the middle of 51 to 750
    EXPECT_EQ(place(kSizes, {1010, 400}), QRect(410, 51, 600, 700));
    EXPECT_EQ(place(kSizes, {500, 0}), QRect(201, 20, 600, 700));
    EXPECT_EQ(place(kSizes, {500, 800}), QRect(201, 120, 600, 700));
    EXPECT_EQ(place(kSizes, {5000, 5000}), QRect(410, 120, 600, 700));
}

TEST(WindowPlace, IsMadeSmallerToFit) {
    EXPECT_EQ(place({QSize(2000, 1500), QSize(600, 700), QSize(300, 150)}, {500, 400}), kRoom);
}

TEST(WindowPlace, BeginsInTheUpperLeftCornerWhenItCannotBeMadeToFit) {
    EXPECT_EQ(place({QSize(2000, 1500), QSize(600, 700), QSize(1200, 900)}, {500, 400}),
              QRect(10, 20, 1200, 900));
    EXPECT_EQ(place({QSize(400, 200), QSize(600, 700), QSize(1200, 150)}, {500, 400}),
              QRect(10, 51, 1200, 700));
}

} // namespace
} // namespace specialpages::qt
