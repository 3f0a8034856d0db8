// One control of each kind, used through the line protocol and drawn in each state.
#include "cli/controls_window.h"
#include "cli/drive_fixture.h"
#include "testing/ScriptedFace.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using nlohmann::ordered_json;
using test::ControlsWindow;
using testing::Lines;

constexpr std::array<ControlTag, 13> kAll{
    test::kButton,        test::kPopup,  test::kFirstRadio, test::kSecondRadio, test::kText, test::kNumber,
    test::kNumberStepper, test::kStatic, test::kVersion,    test::kScroll,      test::kHelp, test::kOK,
    test::kCancel};

class ControlPictures : public ::testing::Test {
  protected:
    /// The picture when the user looks at the open window after `change`.
    void expect(const std::string& name, const std::function<void(ControlsWindow&)>& change) {
        ControlsWindow dialog;
        platform::ScriptedFace face;
        face.then([&](platform::Window& window) {
            change(dialog);
            test::expect_picture(test::text_picture(window), "cli/golden/" + name);
        });
        dialog.ActivateWindow();
    }
    static void each(ControlsWindow& dialog, void (BaseControlEMFSpecialPages::*operation)()) {
        for (const ControlTag tag : kAll) {
            (dialog.control(tag).*operation)();
        }
    }
};

TEST_F(ControlPictures, Enabled) {
    expect("controls-enabled.txt", [](ControlsWindow&) {});
}

TEST_F(ControlPictures, Disabled) {
    expect("controls-disabled.txt",
           [](ControlsWindow& dialog) { each(dialog, &BaseControlEMFSpecialPages::Disable); });
}

TEST_F(ControlPictures, Hidden) {
    expect("controls-hidden.txt",
           [](ControlsWindow& dialog) { each(dialog, &BaseControlEMFSpecialPages::Hide); });
}

/// The lines of the views that have the keyboard, one view after the other.
TEST_F(ControlPictures, Focused) {
    ControlsWindow dialog;
    std::string lines;
    platform::ScriptedFace face;
    face.then([&](platform::Window& window) {
        for (const ControlTag tag : kAll) {
            window.makeFirstResponder(window.viewWithTag(tag));
            std::istringstream picture(test::text_picture(window));
            for (std::string line; std::getline(picture, line);) {
                lines += line.front() == '>' ? line + "\n" : "";
            }
        }
    });
    dialog.ActivateWindow();
    test::expect_picture(lines, "cli/golden/controls-focused.txt");
}

class DriveControls : public testing::DriveSessionTest {
  protected:
    DriveControls() {
        script_.onPrint = [this](platform::PDEPluginCallback&) {
            dialog_.ActivateWindow();
        };
    }
    /// The answers to requests with the window in front.
    std::vector<ordered_json> ask_window(const Lines& requests) {
        Lines all{R"({"do":"host","call":"shouldPrint"})"};
        all.insert(all.end(), requests.begin(), requests.end());
        std::vector<ordered_json> answers;
        for (const std::string& line : drive(all)) {
            answers.push_back(ordered_json::parse(line));
        }
        EXPECT_EQ(answers.size(), all.size());
        answers.erase(answers.begin());
        return answers;
    }
    ordered_json views(Lines requests) {
        requests.emplace_back(R"({"do":"state"})");
        return ask_window(requests).back().at("result").at("views");
    }

    ControlsWindow dialog_;
};

TEST_F(DriveControls, APopUpDisablesAndHidesItsNeighbours) {
    auto all = views({R"({"do":"choose","tag":502,"item":1})"});
    EXPECT_FALSE(all["505"]["enabled"].get<bool>());
    EXPECT_FALSE(all["506"]["hidden"].get<bool>());
    all = views({R"({"do":"choose","tag":502,"item":1})", R"({"do":"choose","tag":502,"item":2})"});
    EXPECT_TRUE(all["505"]["enabled"].get<bool>());
    EXPECT_TRUE(all["506"]["hidden"].get<bool>());
    EXPECT_TRUE(all["507"]["hidden"].get<bool>());
}

TEST_F(DriveControls, RadiosTakeTurns) {
    auto all = views({R"({"do":"press","tag":504})"});
    EXPECT_EQ(all["503"]["value"], 0);
    EXPECT_EQ(all["504"]["value"], 1);
    all = views({R"({"do":"press","tag":504})", R"({"do":"press","tag":503})"});
    EXPECT_EQ(all["503"]["value"], 1);
    EXPECT_EQ(all["504"]["value"], 0);
}

TEST_F(DriveControls, AFieldTakesItsCharactersAndBeepsAtOthers) {
    const auto answers = ask_window({R"({"do":"type","tag":505,"text":"1-3; 5"})", R"({"do":"state"})"});
    EXPECT_EQ(answers[0]["beeps"], 1);
    EXPECT_EQ(answers[1]["result"]["views"]["505"]["text"], "1-3 5");
    const auto longer =
        ask_window({R"({"do":"type","tag":505,"text":"1234567890123456"})", R"({"do":"state"})"});
    EXPECT_EQ(longer[0]["beeps"], 4);
    EXPECT_EQ(longer[1]["result"]["views"]["505"]["text"], "123456789012");
}

TEST_F(DriveControls, ANumberAndItsStepperFollowEachOther) {
    auto all = views({R"({"do":"type","tag":506,"text":"42"})"});
    EXPECT_EQ(all["507"]["value"], 42);
    all = views({R"({"do":"type","tag":506,"text":"42"})", R"({"do":"step","tag":507,"value":43})"});
    EXPECT_EQ(all["506"]["text"], "43");
}

TEST_F(DriveControls, AStepAtTheEndOfTheRangeBeeps) {
    const auto answers =
        ask_window({R"({"do":"step","tag":507,"value":2})", R"({"do":"step","tag":507,"value":2})"});
    EXPECT_EQ(answers[0]["beeps"], 0);
    EXPECT_EQ(answers[1]["beeps"], 1) << "the same value again";
}

TEST_F(DriveControls, OKIsRefusedInTheFieldsWordsAndTheWindowStaysOpen) {
    const auto answers = ask_window({R"({"do":"type","tag":506,"text":"0"})", R"({"do":"press","tag":512})",
                                     R"({"do":"type","tag":506,"text":"7"})", R"({"do":"press","tag":512})"});
    EXPECT_EQ(answers[1]["alerts"], ordered_json({"A number from 1 to 9999."}));
    EXPECT_EQ(answers[1]["window"], "ControlsWindow");
    EXPECT_EQ(answers[3]["alerts"], ordered_json::array());
    EXPECT_EQ(answers[3]["window"], "pane");
}

TEST_F(DriveControls, AHiddenFieldDoesNotStopOK) {
    const auto answers = ask_window({R"({"do":"type","tag":506,"text":"0"})",
                                     R"({"do":"choose","tag":502,"item":2})", R"({"do":"press","tag":512})"});
    EXPECT_EQ(answers[2]["window"], "pane");
}

} // namespace
} // namespace specialpages::cli
