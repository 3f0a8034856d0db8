#include "cli/cli_fixtures.h"

#include <gtest/gtest.h>

namespace specialpages::cli {
namespace {

using testing::Ran;
using testing::run;

TEST(DecodeCommand, TurnsEachValueIntoALine) {
    const Ran ran = run({"decode", "/48/44/49", "plain", "/065", ""});
    EXPECT_EQ(ran.exit, 0);
    EXPECT_EQ(ran.out, "0,1\nplain\nA\n\n");
    EXPECT_EQ(ran.err, "");
}

TEST(DecodeCommand, WithoutValuesReadsLines) {
    EXPECT_EQ(run({"decode"}, "/48/44/49\nplain\n\n/65").out, "0,1\nplain\n\nA\n");
    EXPECT_EQ(run({"decode"}, "").out, "");
    EXPECT_EQ(run({"decode"}, "").exit, 0);
}

TEST(DecodeCommand, AMalformedLineIsNamedAfterThoseBeforeItAreWritten) {
    const Ran ran = run({"decode"}, "/65\n/1/256\n/66\n");
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.out, "A\n");
    EXPECT_EQ(ran.err, "special-pages: standard input, line 2, byte 4: expected a number of 255 at most\n");
    EXPECT_EQ(run({"decode"}, "//65").err,
              "special-pages: standard input, line 1, byte 2: expected a number after each \"/\"\n");
}

TEST(DecodeCommand, AnOverlongLineIsRefused) {
    const Ran ran = run({"decode"}, "x\n" + std::string(1024 * 1024 + 1, 'x'));
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.err, "special-pages: standard input, line 2: expected at most 1048576 bytes\n");
}

} // namespace
} // namespace specialpages::cli
