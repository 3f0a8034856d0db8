#include "platform/foundation/system_version.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

TEST(KernelRelease, IsTheReleaseWhoseRulesThisSystemKeeps) {
    EXPECT_EQ(kernel_release(), "13.4.0");
}

TEST(KernelRelease, ComesFromAnotherSourceUntilThatIsTakenAway) {
    set_kernel_release_source([] { return "10.8.0"; });
    EXPECT_EQ(kernel_release(), "10.8.0");
    set_kernel_release_source([]() -> std::optional<std::string> { return std::nullopt; });
    EXPECT_EQ(kernel_release(), std::nullopt);
    set_kernel_release_source(nullptr);
    EXPECT_EQ(kernel_release(), "13.4.0");
}

} // namespace
} // namespace specialpages::platform
