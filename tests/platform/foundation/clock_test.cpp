#include "platform/foundation/clock.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

TEST(Clock, StandsStillAtTheMomentThatIsSet) {
    const auto moment = std::chrono::sys_days(std::chrono::year(2024) / 2 / 29);
    set_clock(moment);
    EXPECT_EQ(now(), moment);
    EXPECT_EQ(now(), moment);
    set_clock(std::nullopt);
    const auto before = std::chrono::system_clock::now();
    const auto asked = now();
    EXPECT_GE(asked, before);
    EXPECT_LE(asked, std::chrono::system_clock::now());
}

} // namespace
} // namespace specialpages::platform
