// The inserts dialog by the line protocol, in the real pane on the sample printer.
#include "cli/sample_pane.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace specialpages::cli {
namespace {

using nlohmann::ordered_json;

const std::string kTickets = "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket";

class DriveInserts : public testing::SamplePaneTest {
  protected:
    static std::string press(int tag) { return R"({"do":"press","tag":)" + std::to_string(tag) + "}"; }
    static std::string type(int tag, const std::string& text) {
        return ordered_json{{"do", "type"}, {"tag", tag}, {"text", text}}.dump();
    }
};

TEST_F(DriveInserts, AddsEditsAndSavesInserts) {
    const auto answers = driveShown(
        {press(101), type(3207, "3, 7-8"), type(3204, "2"), R"({"do":"step","tag":3205,"value":3})",
         R"({"do":"choose","tag":3210,"menu":3,"item":2})", press(3216),
         R"({"do":"selectRows","tag":104,"rows":[0]})", press(105), R"({"do":"choose","tag":3202,"item":1})",
         press(3216), R"({"do":"host","call":"save"})", R"({"do":"settings"})"});
    for (const ordered_json& answer : answers) {
        EXPECT_TRUE(answer.value("ok", false)) << answer;
        EXPECT_EQ(answer.at("alerts"), ordered_json::array());
        EXPECT_EQ(answer.at("beeps"), 0);
    }
    EXPECT_EQ(answers[0].at("window"), "inserts");
    EXPECT_EQ(answers[5].at("window"), "pane");
    EXPECT_EQ(answers[7].at("window"), "inserts");
    EXPECT_EQ(answers[9].at("window"), "pane");
    const ordered_json& settings = answers[11].at("result");
    EXPECT_EQ(settings.at(kTickets + "Count"), "3");
    EXPECT_EQ(settings.at(kTickets + "_0"), "1,0,1,3,2,1,0,false,210.0,297.0,1");
    EXPECT_EQ(settings.at(kTickets + "_1"), "1,7,0,3,2,1,0,false,210.0,297.0,1");
    EXPECT_EQ(settings.at(kTickets + "_2"), "1,8,0,3,2,1,0,false,210.0,297.0,1");
}

TEST_F(DriveInserts, RefusalsAndBeepsAreInTheAnswers) {
    const auto answers = driveShown({press(101), type(3207, "9-7x"), press(3216), type(3204, "10000"),
                                     type(3204, "0"), press(3216), press(3215)});
    EXPECT_EQ(answers[1].at("beeps"), 1);
    ASSERT_EQ(answers[2].at("alerts").size(), 1U);
    EXPECT_EQ(answers[2].at("alerts")[0],
              "A range of pages runs backward. Enter the lower page first, for example 7-9 and not 9-7.");
    EXPECT_EQ(answers[2].at("window"), "inserts");
    EXPECT_EQ(answers[3].at("beeps"), 1);
    EXPECT_EQ(answers[5].at("alerts")[0],
              "This number of sheets can't be used. Enter a whole number from 1 to 9999.");
    EXPECT_EQ(answers[6].at("window"), "pane");
}

TEST_F(DriveInserts, TellsWhyAViewOrItemTakesNothing) {
    const auto answers = driveShown({press(101), R"({"do":"choose","tag":3202,"item":1})", type(3207, "3"),
                                     R"({"do":"choose","tag":3210,"item":1})",
                                     R"({"do":"choose","tag":3210,"menu":2,"item":0})", type(3218, "1"),
                                     R"({"do":"state"})", press(3215)});
    EXPECT_EQ(answers[2].at("error"), "field 3207: disabled");
    EXPECT_EQ(answers[3].at("error"), "popup 3210: item 1: hidden");
    EXPECT_EQ(answers[4].at("error"), "popup 3210: item 2: item 0: hidden");
    EXPECT_EQ(answers[5].at("error"), "no view with the tag 3218 in the window inserts");
    const ordered_json& state = answers[6].at("result");
    EXPECT_EQ(state.at("window"), "inserts");
    EXPECT_EQ(state.at("title"), "Add Inserts");
    EXPECT_EQ(state.at("views").size(), 17U);
    EXPECT_EQ(state.at("views").at("3205").at("max"), 9999);
    EXPECT_FALSE(state.at("views").at("3207").at("enabled"));
}

TEST_F(DriveInserts, QuittingInsideTheDialogCancelsIt) {
    const auto answers = driveShown({press(101), type(3207, "3"), R"({"do":"quit"})"});
    EXPECT_TRUE(answers[2].at("ok"));
    EXPECT_EQ(answers[2].at("window"), "pane");
}

} // namespace
} // namespace specialpages::cli
