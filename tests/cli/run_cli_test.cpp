#include "cli/cli_fixtures.h"
#include "cli/run_cli.h"
#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using host::testing::TemporaryFolder;
using testing::Ran;
using testing::run;
using Arguments = std::vector<std::string>;

TEST(RunCli, VersionAndHelpAreResults) {
    const Ran version = run({"--version"});
    EXPECT_EQ(version.exit, 0);
    EXPECT_EQ(version.out.substr(0, 14), "special-pages ");
    EXPECT_NE(version.out.find_first_of("0123456789"), std::string::npos);
    EXPECT_EQ(version.err, "");
    EXPECT_EQ(version.out.find("(development device keys)") != std::string::npos, paths::development_keys())
        << "who gets such a build has to know";

    const Ran help = run({"--help"});
    EXPECT_EQ(help.exit, 0);
    for (const char* const command : {"apply", "show", "decode", "drive"}) {
        EXPECT_NE(help.out.find(command), std::string::npos) << command;
    }
    EXPECT_NE(run({"apply", "--help"}).out.find("--mark OPTION=CHOICE"), std::string::npos);
}

struct Usage {
    const char* name;
    Arguments arguments;
    const char* message;
};

class WrongUsage : public ::testing::TestWithParam<Usage> {};

TEST_P(WrongUsage, ExitsWithTwoAndOneLine) {
    const Ran ran = run(GetParam().arguments);
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, std::string("special-pages: ") + GetParam().message + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, WrongUsage,
    ::testing::Values(
        Usage{"NoCommand", {}, "expected a command (see special-pages --help)"},
        Usage{"UnknownCommand",
              {"print"},
              "The following argument was not expected: print (see special-pages --help)"},
        Usage{"UnknownOption",
              {"apply", "--ppd", "x.ppd", "--jobs", "job.json"},
              "The following arguments were not expected: job.json --jobs (see special-pages --help)"},
        Usage{"ApplyWithoutPpd", {"apply"}, "--ppd is required (see special-pages --help)"},
        Usage{"ShowWithoutSettings", {"show"}, "settings is required (see special-pages --help)"},
        Usage{"DriveWithoutPpd", {"drive"}, "--ppd is required (see special-pages --help)"},
        Usage{"OptionWithoutValue",
              {"apply", "--ppd"},
              "--ppd: 1 required FILE missing (see special-pages --help)"},
        Usage{"TwoFilesFromStandardInput",
              {"apply", "--ppd", "-", "--settings", "-"},
              "--ppd -: expected one file at most to be standard input"},
        Usage{"DriveWithSettingsFromStandardInput",
              {"drive", "--ppd", "x.ppd", "--settings", "-"},
              "-: expected a file; standard input holds the requests"},
        Usage{"DriveWithPpdFromStandardInput",
              {"drive", "--ppd", "-"},
              "-: expected a file; standard input holds the requests"},
        Usage{"MalformedValue", {"decode", "/x"}, "value 1, byte 2: expected digits after each \"/\""}),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace specialpages::cli
