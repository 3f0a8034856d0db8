// Ctrl+C, noted once.
#include "cli/InterruptKey.h"

#include <gtest/gtest.h>

namespace specialpages::cli {
namespace {

int counted = 0;
void count(int /*signal*/) {
    ++counted;
}

TEST(InterruptKey, NotesTheFirstPressAndLeavesTheSecondToTheSystem) {
    const auto before = std::signal(SIGINT, count);
    {
        const InterruptKey key;
        EXPECT_FALSE(InterruptKey::pressed());
        std::raise(SIGINT);
        EXPECT_TRUE(InterruptKey::pressed());
        struct sigaction now {};
        sigaction(SIGINT, nullptr, &now);
        EXPECT_EQ(now.sa_handler, SIG_DFL) << "the next one ends the program";
    }
    EXPECT_EQ(counted, 0);
    std::raise(SIGINT);
    EXPECT_EQ(counted, 1) << "what was there before is there again";
    std::signal(SIGINT, before);
}

TEST(InterruptKey, ForgetsThePressOfAnEarlierOne) {
    const auto before = std::signal(SIGINT, count);
    {
        const InterruptKey key;
        std::raise(SIGINT);
    }
    const InterruptKey key;
    EXPECT_FALSE(InterruptKey::pressed());
    std::signal(SIGINT, before);
}

} // namespace
} // namespace specialpages::cli
