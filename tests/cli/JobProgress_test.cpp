// The line that shows how far a job is.
#include "cli/JobProgress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace specialpages::cli {
namespace {

using host::JobState;

TEST(JobProgress, TellsStateSheetsAndWhatTheQueueSays) {
    EXPECT_EQ(progress_text("prod-1", {JobState::pending, "", "", 0, false}), "prod-1: pending");
    EXPECT_EQ(progress_text("prod-1", {JobState::processing, "", "", 1, false}),
              "prod-1: processing, 1 sheet");
    EXPECT_EQ(progress_text("prod-1", {JobState::processing, "x", "out of \x1b[1m paper", 2, false}),
              "prod-1: processing, 2 sheets (out of ?[1m paper)");
}

TEST(JobProgress, WritesOverItsLineAndTakesItAway) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    {
        JobProgress progress({in, out, err, true}, 4096);
        progress.sent(0);
        progress.sent(100); // the same text
        progress.sent(2048);
        EXPECT_EQ(err.str(), "sending, 0 of 4 KB\r                  \rsending, 2 of 4 KB");
        progress.clear();
        progress.clear();
    }
    EXPECT_EQ(err.str(), "sending, 0 of 4 KB\r                  \rsending, 2 of 4 KB\r                  \r");
    EXPECT_EQ(out.str(), "");
}

TEST(JobProgress, IsSilentWhereNobodyWatches) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    {
        JobProgress progress({in, out, err}, 4096);
        progress.sent(2048);
        progress.status("prod-1", {});
    }
    EXPECT_EQ(err.str(), "");
}

TEST(JobProgress, StaysOnOneLineOfATerminal) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    JobProgress progress({in, out, err, true}, 0);
    progress.status("prod-1", {JobState::processing, "", std::string(500, 'm'), 0, false});
    EXPECT_EQ(err.str().size(), 79U);
}

} // namespace
} // namespace specialpages::cli
