// The exceptions dialog by the line protocol: every view of it is reached, in the real pane.
#include "cli/cli_fixtures.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using nlohmann::ordered_json;

class ExceptionsDrive : public ::testing::Test {
  protected:
    /// The answers to the requests, after the pane was restored.
    std::vector<ordered_json> drive(std::vector<std::string> requests) {
        requests.insert(requests.begin(), R"({"do":"host","call":"restore"})");
        std::string input;
        for (const std::string& request : requests) {
            input += request + "\n";
        }
        const std::string ppd = paths::source_dir() + "/examples/ppd/production.ppd";
        const auto ran = testing::run({"drive", "--ppd", ppd}, input);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        std::vector<ordered_json> answers;
        std::istringstream lines(ran.out);
        for (std::string line; std::getline(lines, line);) {
            answers.push_back(ordered_json::parse(line, nullptr, false));
        }
        EXPECT_EQ(answers.size(), requests.size());
        answers.resize(requests.size());
        answers.erase(answers.begin());
        return answers;
    }

    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
};

const std::string kRefused = "These pages can't be used. Enter page numbers from 1 to 65000 and ranges, "
                             "separated by commas or spaces, in at most 99 characters. For example: 3, 7-9";

TEST_F(ExceptionsDrive, AddsExceptionsAndTellsOfWarnings) {
    const auto answers = drive({
        R"({"do":"press","tag":102})",
        R"({"do":"press","tag":315})",
        R"({"do":"type","tag":311,"text":"5-7x"})",
        R"({"do":"choose","tag":312,"menu":3,"item":2})",
        R"({"do":"choose","tag":314,"item":3})",
        R"({"do":"press","tag":315})",
        R"({"do":"state"})",
    });
    EXPECT_EQ(answers[0].dump(), R"({"ok":true,"window":"exceptions","alerts":[],"beeps":0})");
    EXPECT_EQ(answers[1].at("window"), "exceptions");
    EXPECT_EQ(answers[1].at("alerts"), ordered_json::array({kRefused}));
    EXPECT_EQ(answers[2].dump(), R"({"ok":true,"window":"exceptions","alerts":[],"beeps":1})");
    EXPECT_EQ(answers[5].dump(), R"({"ok":true,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(answers[6].at("result").at("views").at("104").at("rows").dump(),
              R"([["5-7","Exception","2-sided, short edge; A4, Blue, Plain"]])");
}

TEST_F(ExceptionsDrive, ShowsEveryViewOfTheDialog) {
    const auto answers = drive({R"({"do":"press","tag":102})", R"({"do":"state"})"});
    const ordered_json& state = answers[1].at("result");
    EXPECT_EQ(state.at("window"), "exceptions");
    EXPECT_EQ(state.at("title"), "Add Exceptions");
    std::string classes;
    for (const auto& [tag, view] : state.at("views").items()) {
        classes += tag + " " + view.at("class").get<std::string>() + "\n";
    }
    EXPECT_EQ(classes, "301 static\n302 static\n303 static\n304 static\n305 static\n311 field\n312 popup\n"
                       "313 text\n314 popup\n315 button\n316 button\n317 button\n318 button\n319 text\n");
}

TEST_F(ExceptionsDrive, RefusesWhatAPersonCannotDo) {
    const auto answers = drive({
        R"({"do":"press","tag":102})",
        R"({"do":"choose","tag":314,"item":0})",
        R"({"do":"choose","tag":312,"item":1})",
        R"({"do":"choose","tag":312,"item":5})",
        R"({"do":"choose","tag":312,"menu":4,"item":2})",
        R"({"do":"choose","tag":314,"item":2})",
        R"({"do":"press","tag":102})",
        R"({"do":"press","tag":316})",
        R"({"do":"press","tag":316})",
    });
    EXPECT_EQ(answers[1].at("error"), "popup 314: item 0: hidden");
    EXPECT_EQ(answers[2].at("error"), "popup 312: item 1: hidden");
    EXPECT_EQ(answers[3].at("error"), "popup 312: item 5: hidden");
    EXPECT_EQ(answers[4].at("ok"), true);
    EXPECT_EQ(answers[5].at("error"), "popup 314: item 2: disabled");
    EXPECT_EQ(answers[6].at("error"), "no view with the tag 102 in the window exceptions");
    EXPECT_EQ(answers[7].at("window"), "pane");
    EXPECT_EQ(answers[8].at("error"), "no view with the tag 316 in the window pane");
}

TEST_F(ExceptionsDrive, AnEndOfInputInsideTheDialogCancelsIt) {
    const auto answers = drive({R"({"do":"press","tag":102})", R"({"do":"type","tag":311,"text":"5"})"});
    EXPECT_EQ(answers[1].at("window"), "exceptions");
}

} // namespace
} // namespace specialpages::cli
