// What the commands show of the pane in each language, against kept outputs, and that the language changes
// words only: what goes to the printer is the same in all of them.
#include "cli/cli_fixtures.h"
#include "cli/sample_pane.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using test::expect_picture;
using testing::Ran;
using testing::run;
using Texts = std::vector<std::string>;

const std::string kExamples = paths::source_dir() + "/examples/";
const std::string& kPpd = testing::kSamplePpd;

class LanguageOfCommands : public testing::SamplePaneTest, public ::testing::WithParamInterface<std::string> {
  protected:
    /// What the command writes in that language; its exit code must be 0.
    static std::string written(Texts command, const std::string& language) {
        command.insert(command.begin() + 1, {"--ppd", kPpd, "--lang", language});
        const Ran ran = run(command);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        return ran.out;
    }
    static std::string golden(const std::string& name) {
        return "cli/golden/" + name + "-" + GetParam() + ".txt";
    }
};

/// The lines that are not a size, color or type of the printer: what the pane itself words.
std::string own_lines(const std::string& menu) {
    std::istringstream lines(menu);
    std::string own;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("    0 ") || line.find("[not allowed") != std::string::npos) {
            own += line + "\n";
        }
    }
    return own;
}

TEST_P(LanguageOfCommands, MenusAreWorded) {
    const std::string menu = written(
        {"menus", "--window", "covers", "--select", "size=A4,color=Blue,type=ThickPaper"}, GetParam());
    expect_picture(own_lines(menu), golden("menus-covers"));
}

TEST_P(LanguageOfCommands, ShowIsWorded) {
    expect_picture(written({"show", kExamples + "settings/handbook.json"}, GetParam()),
                   golden("show-handbook"));
}

TEST_P(LanguageOfCommands, ApplyWritesTheSameJobInEveryLanguage) {
    const Texts apply{"apply", "--job", kExamples + "job.json"};
    const std::string english = written(apply, "en");
    EXPECT_NE(english.find("NPIFCoverCountTicket"), std::string::npos);
    EXPECT_EQ(written(apply, GetParam()), english);
}

TEST_P(LanguageOfCommands, ApplyQuotesTheRefusalOfThePane) {
    const std::string job = R"({"inserts":[{"after":"9-7","sheets":1}]})";
    const Ran ran = run({"apply", "--ppd", kPpd, "--lang", GetParam(), "--job", "-"}, job);
    EXPECT_EQ(ran.exit, 3);
    expect_picture(ran.err, golden("apply-refused"));
}

TEST_P(LanguageOfCommands, ARegionAndAnEncodingAreTakenAsWell) {
    const Texts show{"show", kExamples + "settings/handbook.json"};
    EXPECT_EQ(written(show, GetParam() + "_XX.UTF-8"), written(show, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AllButEnglish, LanguageOfCommands, ::testing::Values("de", "fr", "ja"),
                         [](const auto& each) { return each.param; });

class UnknownLanguage : public LanguageOfCommands {};

TEST_P(UnknownLanguage, IsEnglish) {
    const Texts show{"show", kExamples + "settings/handbook.json"};
    const Texts menus{"menus"};
    EXPECT_EQ(written(show, GetParam()), written(show, "en"));
    EXPECT_EQ(written(menus, GetParam()), written(menus, "en"));
}

INSTANTIATE_TEST_SUITE_P(FallsBack, UnknownLanguage,
                         ::testing::Values("xx", "pt_BR.UTF-8", "C", "../de", ""));

TEST(LanguageOption, ShowTakesALanguageOnlyWithAPpd) {
    const Ran ran = run({"show", "--lang", "de", kExamples + "settings/handbook.json"});
    EXPECT_EQ(ran.exit, 2);
    EXPECT_NE(ran.err.find("--lang requires --ppd"), std::string::npos) << ran.err;
}

} // namespace
} // namespace specialpages::cli
