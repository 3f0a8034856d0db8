// The exceptions dialog by the line protocol: every view of it is reached, in the real pane.
#include "cli/sample_pane.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace specialpages::cli {
namespace {

using nlohmann::ordered_json;

using ExceptionsDrive = testing::SamplePaneTest;

const std::string kRefused = "These pages can't be used. Enter page numbers from 1 to 65000 and ranges, "
                             "separated by commas or spaces, in at most 99 characters. For example: 3, 7-9";

TEST_F(ExceptionsDrive, AddsExceptionsAndTellsOfWarnings) {
    const auto answers = driveShown({
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
    const auto answers = driveShown({R"({"do":"press","tag":102})", R"({"do":"state"})"});
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
    const auto answers = driveShown({
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
    const auto answers = driveShown({R"({"do":"press","tag":102})", R"({"do":"type","tag":311,"text":"5"})"});
    EXPECT_EQ(answers[1].at("window"), "exceptions");
}

} // namespace
} // namespace specialpages::cli
