#include "host/HostError.h"

#include <gtest/gtest.h>

namespace specialpages::host {
namespace {

TEST(HostError, EachCodeHasTheExitCodeThatScriptsRelyOn) {
    EXPECT_EQ(exit_code(ErrorCode::usage), 2);
    EXPECT_EQ(exit_code(ErrorCode::input), 2);
    EXPECT_EQ(exit_code(ErrorCode::refused), 3);
    EXPECT_EQ(exit_code(ErrorCode::printer), 4);
    EXPECT_EQ(exit_code(ErrorCode::other), 1);
}

TEST(HostError, SaysWhereAndWhat) {
    const HostError error(ErrorCode::input, "job.json, line 3", "expected a text, found null");
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_EQ(error.place(), "job.json, line 3");
    EXPECT_EQ(error.detail(), "expected a text, found null");
    EXPECT_STREQ(error.what(), "job.json, line 3: expected a text, found null");
}

TEST(HostError, WithoutAPlaceIsTheDetailAlone) {
    EXPECT_STREQ(HostError(ErrorCode::refused, "", "the pane stopped the printing").what(),
                 "the pane stopped the printing");
}

TEST(HostError, StaysOneLineWhateverAFileIsCalled) {
    EXPECT_STREQ(HostError(ErrorCode::input, "a\nb\x1b[31m", "c\td\x7f").what(), "a?b?[31m: c?d?");
}

TEST(HostError, PlaceNamesALineOnlyWhereThereIsOne) {
    EXPECT_EQ(place_of_line("a.ppd", 7), "a.ppd, line 7");
    EXPECT_EQ(place_of_line("a.ppd", 0), "a.ppd");
    EXPECT_EQ(place_of_line("a.ppd", -1), "a.ppd");
}

} // namespace
} // namespace specialpages::host
