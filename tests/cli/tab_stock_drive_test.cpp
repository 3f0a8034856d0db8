// The tab stock windows by the line protocol: every view of them is reached, in the real pane.
#include "cli/sample_pane.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace specialpages::cli {
namespace {

using nlohmann::ordered_json;

using TabStockDrive = testing::SamplePaneTest;

/// "tag class value" of each view, marked where it is disabled or hidden.
std::string views(const ordered_json& answer) {
    std::string all;
    for (const auto& [tag, view] : answer.at("result").at("views").items()) {
        all += tag + " " + view.at("class").get<std::string>();
        for (const char* what : {"title", "text", "value"}) {
            all += view.contains(what) ? " " + view.at(what).dump() : "";
        }
        all += view.at("enabled").get<bool>() ? "" : " disabled";
        all += view.at("hidden").get<bool>() ? " hidden\n" : "\n";
    }
    return all;
}

TEST_F(TabStockDrive, ExceptionsOpenTheLargeWindow) {
    const auto answers = driveShown({
        R"({"do":"press","tag":102})",
        R"({"do":"choose","tag":312,"menu":4,"item":37})",
        R"({"do":"state"})",
        R"({"do":"choose","tag":513,"item":3})",
        R"({"do":"press","tag":519})",
        R"({"do":"type","tag":514,"text":"0.60"})",
        R"({"do":"press","tag":551})",
        R"({"do":"type","tag":514,"text":"0.30"})",
        R"({"do":"step","tag":512,"value":300})",
        R"({"do":"state"})",
        R"({"do":"press","tag":551})",
    });
    EXPECT_EQ(answers[1].dump(), R"({"ok":true,"window":"tab-stock","alerts":[],"beeps":0})");
    EXPECT_EQ(answers[2].at("result").at("title"), "Tab shift");
    EXPECT_EQ(views(answers[2]), "501 static \"Tabs in sequence:\"\n"
                                 "511 field \"3\"\n"
                                 "512 stepper 3\n"
                                 "513 popup 0\n"
                                 "514 field \"0.50\" disabled hidden\n"
                                 "515 stepper 50 disabled hidden\n"
                                 "516 field \"12.7\" disabled\n"
                                 "517 stepper 127 disabled\n"
                                 "518 radio \"Millimeters\" 1 disabled\n"
                                 "519 radio \"Inches\" 0 disabled\n"
                                 "520 static \"Tab shift:\"\n"
                                 "551 button \"OK\" 0\n"
                                 "552 button \"Cancel\" 0\n"
                                 "553 button \"Defaults\" 0\n");
    EXPECT_EQ(answers[6].at("window"), "tab-stock");
    EXPECT_EQ(answers[6].at("alerts"),
              ordered_json::array({"This tab shift can't be used. Enter a shift from 0 to 0.59 inches, whole "
                                   "or with two decimals."}));
    EXPECT_EQ(views(answers[9]), "501 static \"Tabs in sequence:\"\n"
                                 "511 field \"254\"\n"
                                 "512 stepper 254\n"
                                 "513 popup 3\n"
                                 "514 field \"0.30\"\n"
                                 "515 stepper 30\n"
                                 "516 field \"7.6\" hidden\n"
                                 "517 stepper 76 hidden\n"
                                 "518 radio \"Millimeters\" 0\n"
                                 "519 radio \"Inches\" 1\n"
                                 "520 static \"Tab shift:\"\n"
                                 "551 button \"OK\" 0\n"
                                 "552 button \"Cancel\" 0\n"
                                 "553 button \"Defaults\" 0\n");
    EXPECT_EQ(answers[10].at("window"), "exceptions");
}

TEST_F(TabStockDrive, CoversAndInsertsOpenTheSmallWindow) {
    const auto answers = driveShown({
        R"({"do":"press","tag":100})",
        R"({"do":"choose","tag":201,"item":1})",
        R"({"do":"choose","tag":204,"menu":4,"item":38})",
        R"({"do":"state"})",
        R"({"do":"type","tag":611,"text":"255"})",
        R"({"do":"press","tag":651})",
        R"({"do":"press","tag":652})",
        R"({"do":"press","tag":216})",
        R"({"do":"press","tag":101})",
        R"({"do":"choose","tag":3210,"menu":4,"item":37})",
    });
    EXPECT_EQ(answers[2].dump(), R"({"ok":true,"window":"tab-stock-sub","alerts":[],"beeps":0})");
    EXPECT_EQ(answers[3].at("result").at("title"), "Tabs in sequence");
    EXPECT_EQ(views(answers[3]), "601 static \"Tabs in sequence:\"\n"
                                 "611 field \"3\"\n"
                                 "612 stepper 3\n"
                                 "651 button \"OK\" 0\n"
                                 "652 button \"Cancel\" 0\n"
                                 "653 button \"Defaults\" 0\n"
                                 "654 button \"Help\" 0\n");
    EXPECT_EQ(
        answers[5].at("alerts"),
        ordered_json::array({"This number of tabs can't be used. Enter a whole number from 1 to 254."}));
    EXPECT_EQ(answers[6].at("window"), "covers");
    EXPECT_EQ(answers[9].at("window"), "tab-stock-sub");
}

TEST_F(TabStockDrive, TabStockRaisesItsFlagInThePrintedJob) {
    const auto answers = driveShown({
        R"({"do":"press","tag":102})",
        R"({"do":"type","tag":311,"text":"2"})",
        R"({"do":"choose","tag":312,"menu":4,"item":37})",
        R"({"do":"type","tag":511,"text":"5"})",
        R"({"do":"press","tag":551})",
        R"({"do":"press","tag":315})",
        R"({"do":"host","call":"shouldPrint"})",
        R"({"do":"settings"})",
    });
    const std::string prefix = "com.norvalen.nb.rtz.printsettings.";
    const ordered_json& settings = answers[7].at("result");
    EXPECT_EQ(settings.at(prefix + "whetherMediaTypeTabTicket"), "1");
    EXPECT_EQ(settings.at(prefix + "NPIFCommandTicket_0"), "2,2,2,36,0,false,1,210.0,297.0,1");
    for (const auto& [key, value] : settings.items()) {
        EXPECT_EQ(value.dump().find("\"5\""), std::string::npos) << key << ": the number is told to nobody";
    }
}

} // namespace
} // namespace specialpages::cli
