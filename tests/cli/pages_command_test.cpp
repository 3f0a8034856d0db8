#include "cli/cli_fixtures.h"
#include "platform/foundation/TemporaryDirectory.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using testing::Ran;
using testing::run;

Ran pages(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "pages");
    return run(arguments);
}

std::string golden(const std::string& name) {
    return platform::testing::read_test_file(paths::source_dir() + "/tests/cli/golden/" + name);
}

/// Every command line with its exit code and what it wrote, as a reader at a terminal sees it.
std::string transcript(const std::vector<std::vector<std::string>>& calls) {
    std::string text;
    for (const auto& arguments : calls) {
        text += "$ pages";
        for (const auto& argument : arguments) {
            text += argument.find_first_of(" ,;") == std::string::npos && !argument.empty()
                        ? ' ' + argument
                        : " '" + argument + '\'';
        }
        const Ran ran = pages(arguments);
        text += '\n' + ran.out + ran.err + "= " + std::to_string(ran.exit) + '\n';
    }
    return text;
}

std::vector<std::vector<std::string>> in_every_form(const std::vector<std::string>& texts) {
    std::vector<std::vector<std::string>> calls;
    for (const auto& text : texts) {
        calls.push_back({"--", text});
        calls.push_back({"--exceptions", "--", text});
        calls.push_back({"--json", "--front-cover", "--", text});
    }
    return calls;
}

TEST(PagesCommand, TellsWhatThePaneMakesOfATextInEveryForm) {
    EXPECT_EQ(transcript(in_every_form({"3",
                                        "3,1,2",
                                        "3,3",
                                        "7-9,8-10,3",
                                        "9-7",
                                        "1 2",
                                        "1 - 2",
                                        "1- 2",
                                        "1,,2",
                                        "1, ,2",
                                        ",1",
                                        "1,",
                                        "-5",
                                        "-0",
                                        "0",
                                        "0-3",
                                        "65000-",
                                        "65001",
                                        "99999999999999999999",
                                        "1-2-3",
                                        "-",
                                        "",
                                        "  ",
                                        ",,,",
                                        "1;3"})),
              golden("pages.txt"));
}

TEST(PagesCommand, CountsTheInsertsThatAreHeld) {
    EXPECT_EQ(pages({"--held", "249", "7"}).exit, 0);
    const Ran refused = pages({"--held", "249", "7,8"});
    EXPECT_EQ(refused.exit, 3);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "special-pages: page list \"7,8\": refused with Warning47, code -3010\n");
    EXPECT_EQ(pages({"--held", "250", "--front-cover", "0"}).exit, 0);
    EXPECT_EQ(pages({"--held", "2147483647", "1"}).exit, 3);
    EXPECT_EQ(pages({"5-"}).err, "special-pages: page list \"5-\": refused with Warning47, code -3010\n");
}

TEST(PagesCommand, ExceptionsLookNeitherAtHeldInsertsNorAtCovers) {
    const std::string plain = pages({"--exceptions", "1-3"}).out;
    EXPECT_EQ(plain, "arranged  1-3,\npages     1 2 3\n");
    EXPECT_EQ(pages({"--exceptions", "--held", "250", "--front-cover", "1-3"}).out, plain);
}

TEST(PagesCommand, HasNoLimitOnTheLengthOfTheText) {
    const std::string padded(5000, ' ');
    EXPECT_EQ(pages({padded + "3"}).out, "arranged  3,\npages     3\n");
    std::string sets;
    for (int i = 0; i < 251; ++i) {
        sets += "1,";
    }
    const Ran refused = pages({"--exceptions", "--json", sets});
    EXPECT_EQ(refused.exit, 3);
    EXPECT_EQ(refused.out, "{\"code\":-3010,\"message\":\"Warning48\"}\n");
}

TEST(PagesCommand, WritesAllPagesOfTheLongestException) {
    const Ran ran = pages({"--exceptions", "--json", "1-"});
    EXPECT_EQ(ran.exit, 0);
    const auto json = nlohmann::json::parse(ran.out);
    ASSERT_EQ(json["pages"].size(), 65000U);
    EXPECT_EQ(json["pages"][64999], "65000");
    EXPECT_EQ(json["arranged"], "1-65000,");
}

TEST(PagesCommand, JsonTellsARefusalOnBothStreams) {
    const Ran ran = pages({"--json", "9-7"});
    EXPECT_EQ(ran.exit, 3);
    EXPECT_EQ(ran.out, "{\"code\":-3009,\"message\":\"Warning49\"}\n");
    EXPECT_EQ(ran.err, "special-pages: page list \"9-7\": refused with Warning49, code -3009\n");
}

TEST(PagesCommand, ShowsAHostileTextInOneLine) {
    EXPECT_EQ(pages({"1\n2\x1b[31m"}).err,
              "special-pages: page list \"1?2?[31m\": refused with Warning44, code -3004\n");
}

TEST(PagesCommand, ReadsATextThatBeginsWithADash) {
    EXPECT_EQ(pages({"-5"}).out, "arranged  1-5,\npages     1 2 3 4 5\n");
    EXPECT_EQ(pages({"--", "-5"}).out, "arranged  1-5,\npages     1 2 3 4 5\n");
    EXPECT_EQ(pages({"-"}).err, "special-pages: page list \"-\": refused with Warning44, code -3007\n");
}

TEST(PagesCommand, RefusesANumberOfHeldInsertsThatIsNone) {
    for (const std::string held : {"-1", "x", "1x", "", " 1", "+1", "1.5", "2147483648"}) {
        const Ran ran = pages({"--held=" + held, "3"});
        EXPECT_EQ(ran.exit, 2) << held;
        EXPECT_EQ(ran.out, "") << held;
        if (!held.empty()) {
            EXPECT_EQ(ran.err,
                      "special-pages: --held " + held + ": expected a number of records, 0 or more\n");
        }
    }
}

TEST(PagesCommand, WantsExactlyOneText) {
    EXPECT_EQ(pages({}).exit, 2);
    EXPECT_EQ(pages({"1", "2"}).exit, 2);
    EXPECT_EQ(pages({"--nonsense", "1"}).exit, 2);
}

} // namespace
} // namespace specialpages::cli
