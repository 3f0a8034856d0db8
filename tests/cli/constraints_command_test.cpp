#include "cli/run_cli.h"
#include "platform/foundation/TemporaryDirectory.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

using platform::testing::read_test_file;
using platform::testing::TemporaryDirectory;
using platform::testing::write_test_file;
using ::testing::HasSubstr;

struct Result {
    int code = 0;
    std::string out, err;
};

Result constraints(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "constraints");
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const int code = cli::run_cli(arguments, {in, out, err});
    return {code, out.str(), err.str()};
}

std::string example_ppd(const std::string& name) {
    return paths::source_dir() + "/examples/ppd/" + name + ".ppd";
}

std::string golden(const std::string& name) {
    return read_test_file(paths::source_dir() + "/tests/cli/golden/" + name);
}

TEST(ConstraintsCommand, CountsWithoutAFlag) {
    const Result result = constraints({"--ppd", example_ppd("desk")});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "constraints  20\nentries      28\nkeys         10\n");
    EXPECT_EQ(result.err, "");
}

TEST(ConstraintsCommand, DumpsEveryEntryInIndexOrder) {
    for (const char* name : {"production", "desk", "cached"}) {
        const Result result = constraints({"--ppd", example_ppd(name), "--dump"});
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.out, golden(std::string("constraints-") + name + ".txt"));
    }
}

TEST(ConstraintsCommand, ListsWhatForbidsAChoiceAndWhetherItIsMarked) {
    const Result result =
        constraints({"--ppd", example_ppd("desk"), "--conflicts", "MediaType:Transparency"});
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.out, HasSubstr("Duplex:DuplexNoTumble\tnot marked\n"));
    EXPECT_THAT(result.out, HasSubstr("PageSize:A5\tnot marked\n"));
    const Result marked =
        constraints({"--ppd", example_ppd("production"), "--conflicts", "MediaType:Transparency"});
    EXPECT_THAT(marked.out, HasSubstr("NVMediaColor:White\tmarked\n"));
}

TEST(ConstraintsCommand, AChoiceThatNothingForbidsHasNoLines) {
    const Result result = constraints({"--ppd", example_ppd("desk"), "--conflicts", "MediaType:Stationary"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "");
}

TEST(ConstraintsCommand, RefusesAChoiceThatThePpdDoesNotHave) {
    for (const char* key :
         {"MediaType:Velvet", "NoSuch:Thing", "mediatype:Stationary", "MediaType:stationary"}) {
        const Result result = constraints({"--ppd", example_ppd("desk"), "--conflicts", key});
        EXPECT_EQ(result.code, 2) << key;
        EXPECT_EQ(result.out, "") << key;
        EXPECT_EQ(result.err,
                  std::string("special-pages: --conflicts ") + key +
                      ": expected an option and a choice of the PPD, in its own upper and lower case\n");
    }
    for (const char* key : {"MediaType", ":Stationary", "MediaType:", ""}) {
        const Result result = constraints({"--ppd", example_ppd("desk"), "--conflicts", key});
        EXPECT_EQ(result.code, 2) << key;
        EXPECT_EQ(result.err,
                  std::string("special-pages: --conflicts ") + key + ": expected OPTION:CHOICE\n");
    }
}

TEST(ConstraintsCommand, WritesTheCacheFileThatTheExampleNames) {
    const TemporaryDirectory directory;
    const std::string file = (directory / "out.constraints").string();
    const Result result = constraints({"--ppd", example_ppd("cached"), "--write-cache", file});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(read_test_file(file), read_test_file(paths::source_dir() + "/examples/ppd/cached.constraints"));
}

TEST(ConstraintsCommand, TheSectionCanBeNamed) {
    const TemporaryDirectory directory;
    const std::string file = (directory / "out.constraints").string();
    ASSERT_EQ(constraints({"--ppd", example_ppd("cached"), "--write-cache", file, "--section", "Other"}).code,
              0);
    EXPECT_EQ(read_test_file(file).substr(0, 6), "Other\n");
}

TEST(ConstraintsCommand, ACacheThatCannotBeWrittenIsAnErrorThatNamesTheFile) {
    const TemporaryDirectory directory;
    write_test_file(directory / "file", "");
    const std::string file = ((directory / "file") / "below").string();
    const Result result = constraints({"--ppd", example_ppd("cached"), "--write-cache", file});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, HasSubstr(file));
}

TEST(ConstraintsCommand, OneFlagAtATime) {
    EXPECT_EQ(constraints({"--ppd", example_ppd("desk"), "--dump", "--conflicts", "A:b"}).code, 2);
    EXPECT_EQ(constraints({"--ppd", example_ppd("desk"), "--section", "Other"}).code, 2);
    EXPECT_EQ(constraints({}).code, 2);
    EXPECT_EQ(constraints({"--ppd", "/no/such.ppd"}).code, 2);
}

} // namespace
} // namespace specialpages::test
