// The same scripts of requests at the headless model and at the widgets: every answer is the same.
#include "cli/random_user.h"
#include "qt/qt_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::qt::testing {
namespace {

using Lines = std::vector<std::string>;

const std::string kRestore = R"({"do":"host","call":"restore"})";
const std::string kWillShow = R"({"do":"host","call":"willShow"})";
const std::string kState = R"({"do":"state"})";
const std::string kSettings = R"({"do":"settings"})";

std::string press(int tag) {
    return R"({"do":"press","tag":)" + std::to_string(tag) + "}";
}

class BothFaces : public QtPaneTest {
  protected:
    /// The requests before that one, without those for the state.
    static std::string history(const Lines& requests, std::size_t end) {
        std::string text = "\nafter";
        for (std::size_t i = 0; i < end; ++i) {
            if (requests[i] != kState) {
                text += "\n" + requests[i];
            }
        }
        return text;
    }

    /// Runs the script in both faces, the state being asked after each request, and compares answer by
    /// answer.
    void compare(const Lines& script, const std::string& settings = "") {
        Lines requests;
        for (const std::string& request : script) {
            requests.push_back(request);
            if (request.find("\"quit\"") == std::string::npos) {
                requests.push_back(kState);
            }
        }
        Lines arguments{"--ppd", kSamplePpd};
        if (!settings.empty()) {
            arguments.insert(arguments.end(), {"--settings", settings});
        }
        const Lines expected = headless(arguments, requests);
        open(settings.empty() ? platform::PrintSettings() : host::read_settings_file(settings));
        const Lines found = drive(requests);
        EXPECT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < std::min(found.size(), expected.size()); ++i) {
            const auto wanted = nlohmann::json::parse(expected[i]);
            const auto shown = nlohmann::json::parse(found[i]);
            ASSERT_EQ(nlohmann::json::diff(wanted, shown), nlohmann::json::array())
                << "request " << i << ": " << requests[i] << history(requests, i);
        }
    }
};

TEST_F(BothFaces, ThePaneWithRecordsShowsTheSame) {
    compare({kRestore, kWillShow, R"({"do":"selectRows","tag":104,"rows":[0,2]})",
             R"({"do":"selectRows","tag":104,"rows":[3]})", R"({"do":"selectRows","tag":104,"rows":[]})",
             R"({"do":"selectRows","tag":104,"rows":[99]})", R"({"do":"host","call":"shouldPrint"})",
             kSettings},
            kHandbook);
}

std::string type(int tag, const std::string& text) {
    return nlohmann::ordered_json{{"do", "type"}, {"tag", tag}, {"text", text}}.dump();
}

TEST_F(BothFaces, InsertsAreAddedEditedAndSaved) {
    compare({kRestore, press(101), type(3207, "3, 7-8"), type(3204, "2"),
             R"({"do":"step","tag":3205,"value":3})", R"({"do":"choose","tag":3210,"menu":3,"item":2})",
             press(3216), R"({"do":"selectRows","tag":104,"rows":[0]})", press(105),
             R"({"do":"choose","tag":3202,"item":1})", press(3216), R"({"do":"host","call":"save"})",
             kSettings});
}

TEST_F(BothFaces, RefusalsAlertAndBeepAlike) {
    compare({kRestore, press(101), press(3216), type(3207, "9-7x"), press(3216), type(3204, "10000"),
             type(3204, "0"), press(3216), type(3204, ""), press(3216), press(3215)});
}

TEST_F(BothFaces, WhatTakesNoEventsSaysWhy) {
    compare({kRestore, press(101), R"({"do":"choose","tag":3202,"item":1})", type(3207, "3"),
             R"({"do":"choose","tag":3210,"item":1})", R"({"do":"choose","tag":3210,"menu":2,"item":0})",
             R"({"do":"choose","tag":3210,"menu":2,"item":99})", R"({"do":"choose","tag":3210,"item":2})",
             R"({"do":"choose","tag":3210,"item":-1})", R"({"do":"choose","tag":3216,"item":1})",
             type(3218, "1"), press(3217), press(0), press(3215), press(3215), press(106)});
}

TEST_F(BothFaces, CoversWithEveryOption) {
    compare({kRestore, press(100), R"({"do":"choose","tag":201,"item":4})",
             R"({"do":"choose","tag":204,"menu":2,"item":3})",
             R"({"do":"choose","tag":204,"menu":4,"item":2})",
             R"({"do":"choose","tag":209,"menu":3,"item":1})", R"({"do":"choose","tag":206,"item":2})",
             R"({"do":"choose","tag":201,"item":1})", R"({"do":"choose","tag":201,"item":0})", press(215),
             R"({"do":"choose","tag":201,"item":3})", press(217), R"({"do":"doubleClick","tag":104})",
             R"({"do":"selectRows","tag":104,"rows":[0]})", R"({"do":"doubleClick","tag":104})", press(216),
             R"({"do":"host","call":"save"})", kSettings});
}

TEST_F(BothFaces, ExceptionsAreRefusedAndAdded) {
    compare({kRestore, press(102), press(315), type(311, "5-7x"),
             R"({"do":"choose","tag":312,"menu":3,"item":2})", R"({"do":"choose","tag":314,"item":3})",
             R"({"do":"choose","tag":314,"item":0})", R"({"do":"choose","tag":312,"menu":4,"item":2})",
             R"({"do":"choose","tag":314,"item":2})", press(315), press(102), type(311, "1,1,2"), press(315),
             press(316)});
}

TEST_F(BothFaces, WindowsOpenOnWindows) {
    // The custom size of a cover, typed and stepped, and the advanced window.
    compare({kRestore, press(101), type(3207, "4"), R"({"do":"choose","tag":3210,"item":6})", press(412),
             R"({"do":"choose","tag":3210,"item":6})", R"({"do":"choose","tag":408,"item":2})", press(411),
             press(3216), kSettings});
}

TEST_F(BothFaces, TheListIsMovedDeletedAndUndone) {
    compare({kRestore, R"({"do":"selectRows","tag":104,"rows":[4]})", press(109), press(110), press(106),
             press(805), press(106), press(804), press(108), press(107), press(804), press(108),
             R"({"do":"selectRows","tag":104,"rows":[2,3]})", R"({"do":"doubleClick","tag":104})",
             R"({"do":"selectRows","tag":104,"rows":[2]})", R"({"do":"doubleClick","tag":104})",
             type(311, "8-9"), press(315), kSettings},
            kHandbook);
}

TEST_F(BothFaces, TheEndOfTheScriptCancelsDialogs) {
    compare({kRestore, press(101), type(3207, "3"), R"({"do":"quit"})"});
}

class BothFacesAtRandom : public BothFaces, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(BothFacesAtRandom, AnswerTheSame) {
    cli::testing::RandomUser user(GetParam());
    user.run(25);
    ASSERT_FALSE(HasFailure());
    compare(user.requests());
}

INSTANTIATE_TEST_SUITE_P(Users, BothFacesAtRandom, ::testing::Range(0U, 12U));

} // namespace
} // namespace specialpages::qt::testing
