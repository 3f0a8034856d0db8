#include "cli/streams.h"
#include "host/HostError.h"
#include "host/host_fixtures.h"

#include <gtest/gtest.h>

#include <sstream>

namespace specialpages::cli {
namespace {

using host::testing::error_of;

TEST(Streams, ReadsLinesWithAndWithoutALastLineEnd) {
    std::istringstream in("a\n\nb\r\nc");
    EXPECT_EQ(read_line(in, 10)->text, "a");
    EXPECT_EQ(read_line(in, 10)->text, "");
    EXPECT_EQ(read_line(in, 10)->text, "b\r");
    EXPECT_EQ(read_line(in, 10)->text, "c");
    EXPECT_FALSE(read_line(in, 10));
    EXPECT_FALSE(read_line(in, 10));
}

TEST(Streams, CutsALongLineAndGoesOnAtTheNext) {
    std::istringstream in("12345\n123456\nx\n");
    EXPECT_FALSE(read_line(in, 5)->cut);
    const auto line = read_line(in, 5);
    EXPECT_TRUE(line->cut);
    EXPECT_EQ(line->text, "12345");
    EXPECT_EQ(read_line(in, 5)->text, "x");
}

TEST(Streams, ReadsAllUpToTheBound) {
    const std::string bytes(200000, 'x');
    std::istringstream enough(bytes);
    EXPECT_EQ(read_all(enough, bytes.size()), bytes);
    std::istringstream tooMuch(bytes);
    const host::HostError error = error_of([&] { read_all(tooMuch, bytes.size() - 1); });
    EXPECT_EQ(error.code(), host::ErrorCode::input);
    EXPECT_STREQ(error.what(), "standard input: expected at most 199999 bytes");
}

TEST(Streams, AnOutputThatFailedIsAnError) {
    std::ostringstream out;
    flush_results(out);
    out.setstate(std::ios::badbit);
    const host::HostError error = error_of([&] { flush_results(out); });
    EXPECT_EQ(error.code(), host::ErrorCode::other);
    EXPECT_STREQ(error.what(), "standard output: cannot be written");
}

TEST(Streams, PrintableTextStaysInItsLine) {
    EXPECT_EQ(printable("a\tb\n\x1b[0m\x7f ä"), "a?b??[0m? ä");
}

} // namespace
} // namespace specialpages::cli
