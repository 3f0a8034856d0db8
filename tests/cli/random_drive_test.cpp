// Random users at the running pane: a thousand scripts of requests, each request made up from what the pane
// shows at that moment, sensible ones and others. No crash, no hang, every request answered, and the list of
// special pages in order whenever the pane is at rest.
#include "cli/random_user.h"
#include "cli/sample_pane.h"

#include <gtest/gtest.h>

namespace specialpages::cli {
namespace {

using testing::RandomUser;

/// A tenth of the thousand scripts each, so that they can run side by side; a tenth of that where every
/// access to memory is checked and takes its time.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SPECIALPAGES_CHECKED_MEMORY 1
#endif
#endif
#ifdef SPECIALPAGES_CHECKED_MEMORY
constexpr std::uint32_t kScripts = 10;
#else
constexpr std::uint32_t kScripts = 100;
#endif

class RandomDrive : public testing::SamplePaneTest, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(RandomDrive, ScriptsKeepThePaneInOrder) {
    int records = 0;
    for (std::uint32_t script = 0; script < kScripts && !HasFailure(); ++script) {
        SCOPED_TRACE(GetParam() * kScripts + script);
        RandomUser user(GetParam() * kScripts + script);
        user.run(30);
        records += user.recordsSeen();
    }
    if (kScripts >= 100) { // fewer are too few to count on
        EXPECT_GT(records, 50) << "users who never declare a special page show nothing";
    }
}

INSTANTIATE_TEST_SUITE_P(Tenth, RandomDrive, ::testing::Range(0U, 10U));

} // namespace
} // namespace specialpages::cli
