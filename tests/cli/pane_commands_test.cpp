// apply, show and drive through the real pane, loaded from the bundle of this build, on the sample printer.

#include "cli/cli_fixtures.h"
#include "cli/sample_pane.h"
#include "host/host_fixtures.h"
#include "host/settings_file.h"
#include "platform/foundation/log.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using host::testing::read_bytes;
using host::testing::ScopedVariable;
using host::testing::TemporaryFolder;
using nlohmann::ordered_json;
using testing::Ran;
using testing::run;
using Texts = std::vector<std::string>;

const std::string kExamples = paths::source_dir() + "/examples/";
const std::string& kPpd = testing::kSamplePpd;
const std::string kThreeRecords = kExamples + "settings/three-records.json";
const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

using PaneCommands = testing::SamplePaneTest;

ordered_json parsed(const Ran& ran) {
    EXPECT_EQ(ran.exit, 0) << ran.err;
    return ordered_json::parse(ran.out, nullptr, false);
}

TEST_F(PaneCommands, DriveReachesTheWindowsThatAPaperMenuOpens) {
    const auto answers =
        drive({R"({"do":"host","call":"restore"})", R"({"do":"press","tag":100})",
               R"({"do":"choose","tag":201,"item":1})", R"({"do":"choose","tag":204,"menu":2,"item":34})",
               R"({"do":"press","tag":718})", R"({"do":"type","tag":712,"text":"8.5"})",
               R"({"do":"press","tag":751})", R"({"do":"type","tag":712,"text":"8.50"})",
               R"({"do":"step","tag":734,"value":1200})", R"({"do":"press","tag":751})",
               R"({"do":"choose","tag":204,"item":6})", R"({"do":"choose","tag":407,"item":2})",
               R"({"do":"press","tag":411})", R"({"do":"press","tag":217})", R"({"do":"host","call":"save"})",
               R"({"do":"settings"})"});
    Texts windows;
    for (const ordered_json& answer : answers) {
        EXPECT_EQ(answer.value("ok", false), true) << answer;
        windows.push_back(answer.value("window", ""));
    }
    EXPECT_EQ(windows, (Texts{"pane", "covers", "covers", "custom-size", "custom-size", "custom-size",
                              "custom-size", "custom-size", "custom-size", "covers", "advanced", "advanced",
                              "covers", "pane", "pane", "pane"}));
    EXPECT_EQ(
        answers[6].at("alerts"),
        ordered_json({"This width can't be used. Enter a width from 3.94 to 12.99 inches, whole or with "
                      "two decimals, for example 8 or 8.50."}));
    EXPECT_EQ(answers.back().at("result").value(kPrefix + "NPIFCommandTicket_0", ""),
              "0,0,0,33,1,0,false,1,215.9,304.8,0");
}

TEST_F(PaneCommands, ApplyWritesTheTicketsOfTheThreeRecordsInOrder) {
    const ordered_json written = parsed(run({"apply", "--ppd", kPpd, "--settings", kThreeRecords}));
    const std::vector<std::pair<std::string, ordered_json>> expected{
        {"NPIFCommandTicketCount", "3"},
        {"NPIFCommandTicket_0", "0,0,0,2,0,0,false,1,210.0,297.0,1"},
        {"NPIFCommandTicket_1", "1,3,0,1,2,0,0,false,210.0,297.0,1"},
        {"NPIFCommandTicket_2", "2,5-7,2,0,0,false,2,210.0,297.0,1"},
        {"SpecialPageRecordCountTicket", "3"},
        {"NPIFCoverCountTicket", "1"},
        {"NPIFCoverValueTicket_0",
         "/48/44/49/44/112/114/105/110/116/45/110/111/110/101/44/78/79/82/77/65/76/44/"
         "119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48"},
        {"NPIFInsertionCountTicket", "1"},
        {"NPIFInsertionValueTicket_0",
         "/49/44/51/44/49/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/"
         "48/44/78/79/82/77/65/76"},
        {"NPIFExceptionCountTicket", "1"},
        {"NPIFExceptionValueTicket_0",
         "/49/44/49/44/49/44/53/44/55/44/116/119/111/45/115/105/100/101/100/45/108/111/110/103/45/101/100/"
         "103/"
         "101/44/78/79/82/77/65/76/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48"},
        {"pageSizeArrayTicket", {"A4", "A4", "A4"}},
        {"mediaTypeArrayTicket", {"Stationary", "Stationary", "Stationary"}},
        {"mediaColorArrayTicket", {"White", "White", "White"}},
        {"whetherMediaTypeTabTicket", "0"},
        {"whetherInterposerTicket", "0"},
        {"whetherMediaSizeA5Ticket", "0"},
    };
    ASSERT_EQ(written.size(), expected.size());
    std::size_t i = 0;
    for (const auto& [key, value] : written.items()) {
        EXPECT_EQ(key, kPrefix + expected[i].first);
        EXPECT_EQ(value, expected[i].second) << key;
        ++i;
    }
}

TEST_F(PaneCommands, WhatApplyWroteComesOutTheSameAgain) {
    const std::string first = (folder_.path() / "first.json").string();
    const std::string second = (folder_.path() / "second.json").string();
    EXPECT_EQ(run({"apply", "--ppd", kPpd, "--settings", kThreeRecords, "--out", first}).exit, 0);
    EXPECT_EQ(run({"apply", "--ppd", kPpd, "--settings", first, "--out", second}).exit, 0);
    EXPECT_EQ(read_bytes(first), read_bytes(second));
    EXPECT_NE(read_bytes(first), "");
}

TEST_F(PaneCommands, JsonAndPropertyListSettingsGiveTheSame) {
    const std::string list = (folder_.path() / "out.plist").string();
    const Ran json = run({"apply", "--ppd", kPpd, "--settings", kThreeRecords});
    EXPECT_EQ(
        run({"apply", "--ppd", kPpd, "--settings", kExamples + "settings/three-records.plist", "--out", list})
            .exit,
        0);
    EXPECT_EQ(host::write_settings(host::read_settings_file(list), host::SettingsFormat::json), json.out);
}

TEST_F(PaneCommands, ApplyTakesPpdOrSettingsFromStandardInput) {
    const std::string expected = run({"apply", "--ppd", kPpd, "--settings", kThreeRecords}).out;
    EXPECT_EQ(run({"apply", "--ppd", kPpd, "--settings", "-"}, read_bytes(kThreeRecords)).out, expected);
    EXPECT_EQ(run({"apply", "--ppd", "-", "--settings", kThreeRecords}, read_bytes(kPpd)).out, expected);
}

TEST_F(PaneCommands, ApplyLeavesForeignKeysInTheirPlace) {
    const ordered_json written = parsed(
        run({"apply", "--ppd", kPpd, "--settings", "-"}, R"({"org.example.b":["x"],"org.example.a":"1"})"));
    EXPECT_EQ(written.begin().key(), "org.example.b");
    EXPECT_EQ(written.at("org.example.b"), ordered_json({"x"}));
    EXPECT_EQ(written.at("org.example.a"), "1");
    EXPECT_EQ(written.at(kPrefix + "NPIFCommandTicketCount"), "0");
}

TEST_F(PaneCommands, AMailboxJobHasNoCommands) {
    const ordered_json written = parsed(
        run({"apply", "--ppd", kPpd, "--settings", "-"}, "{\"" + kPrefix + "PrintTypeTicketKey\":\"5\"}"));
    EXPECT_FALSE(written.contains(kPrefix + "SpecialPageRecordCountTicket"));
    EXPECT_TRUE(written.contains(kPrefix + "pageSizeArrayTicket"));
}

TEST_F(PaneCommands, AMarkedSizeIsTheJobsOwn) {
    // A record at the job's own size is measured by the marked PageSize.
    const std::string settings = "{\"" + kPrefix + "NPIFCommandTicketCount\":\"1\",\"" + kPrefix +
                                 "NPIFCommandTicket_0\":\"0,0,0,999,0,0,false,1,210.0,297.0,1\"}";
    const auto command = [&](const std::vector<std::string>& marks) {
        std::vector<std::string> arguments{"apply", "--ppd", kPpd, "--settings", "-"};
        arguments.insert(arguments.end(), marks.begin(), marks.end());
        const ordered_json written = parsed(run(arguments, settings));
        return run({"decode", written.at(kPrefix + "NPIFCoverValueTicket_0").get<std::string>()}).out;
    };
    EXPECT_EQ(command({}), "0,1,print-none,NORMAL,white,21060,29790\n");
    EXPECT_EQ(command({"--mark", "PageSize=A5"}), "0,1,print-none,NORMAL,white,14850,21060\n");
    EXPECT_EQ(command({"--mark", "PageSize=A5", "--mark", "PageSize=A4"}),
              "0,1,print-none,NORMAL,white,21060,29790\n");
}

TEST_F(PaneCommands, ShowWithAPpdHasThePanesOwnTexts) {
    const std::string written = run({"apply", "--ppd", kPpd, "--settings", kThreeRecords}).out;
    const ordered_json shown = parsed(run({"show", "--json", "--ppd", kPpd, "-"}, written));
    ASSERT_EQ(shown.at("records").size(), 3U);
    ASSERT_EQ(shown.at("rows").size(), 3U);
    EXPECT_EQ(shown.at("rows")[2].at("page"), "5-7");
    for (const auto& row : shown.at("rows")) {
        EXPECT_FALSE(row.at("type").get<std::string>().empty());
    }
    EXPECT_EQ(shown.at("commands").dump(),
              R"({"covers":["0,1,print-none,NORMAL,white,21000,29700"],)"
              R"("insertions":["1,3,1,white,21000,29700,NORMAL"],)"
              R"("exceptions":["1,1,1,5,7,two-sided-long-edge,NORMAL,white,21000,29700"]})");
    EXPECT_EQ(shown.at("papers").dump(), R"({"size":["A4","A4","A4"],)"
                                         R"("type":["Stationary","Stationary","Stationary"],)"
                                         R"("color":["White","White","White"]})");
    EXPECT_EQ(shown.at("flags").dump(), R"({"tab":false,"interposer":false,"a5":false})");
}

TEST_F(PaneCommands, ShowWithoutAPpdNeedsNoPane) {
    const ScopedVariable bundle(host::kBundleVariable, "/no/such.bundle");
    const Ran shown = run({"show", kThreeRecords});
    EXPECT_EQ(shown.exit, 0);
    EXPECT_EQ(shown.out, "Page     Type       Setup\n"
                         "front    cover      size 2, color 0, type 0, printing 0\n"
                         "after 3  insert     size 2, color 0, type 0, sheets 1\n"
                         "5-7      exception  size 2, color 0, type 0, sides 2\n"
                         "\nCommands\n  -\n"
                         "\nPapers\n  size   -\n  type   -\n  color  -\n"
                         "\nFlags\n  tab no, interposer no, a5 no\n");
    EXPECT_FALSE(parsed(run({"show", "--json", kThreeRecords})).contains("rows"));
}

TEST_F(PaneCommands, DriveRestoresSelectsDeletesNothingUnaskedAndPrints) {
    const auto answers =
        drive({R"({"do":"host","call":"restore"})", R"({"do":"state"})",
               R"({"do":"selectRows","tag":104,"rows":[0,2]})", R"({"do":"state"})",
               R"({"do":"host","call":"shouldPrint"})", R"({"do":"settings"})", R"({"do":"quit"})"},
              {"--settings", kThreeRecords});
    for (const ordered_json& answer : answers) {
        EXPECT_EQ(answer.value("ok", false), true) << answer.dump();
        EXPECT_EQ(answer.value("window", ""), "pane");
    }
    EXPECT_EQ(answers[0].at("result"), true);
    const ordered_json& views = answers[1].at("result").at("views");
    EXPECT_EQ(views.at("104").at("rows").size(), 3U);
    EXPECT_EQ(views.at("104").at("selected"), ordered_json::array());
    EXPECT_EQ(views.at("106").at("enabled"), false); // nothing selected: nothing to delete
    const ordered_json& selected = answers[3].at("result").at("views");
    EXPECT_EQ(selected.at("104").at("selected"), ordered_json({0, 2}));
    EXPECT_EQ(selected.at("106").at("enabled"), true);
    EXPECT_EQ(answers[4].at("result"), true);
    EXPECT_EQ(answers[5].at("result"), parsed(run({"apply", "--ppd", kPpd, "--settings", kThreeRecords})));
}

TEST_F(PaneCommands, DriveLoadsThePaneAndWaits) {
    const auto answers = drive({R"({"do":"settings"})", R"({"do":"state"})"});
    EXPECT_EQ(answers[0].at("result"), ordered_json::object());
    EXPECT_EQ(answers[1].at("result").at("views").at("104").at("rows"), ordered_json::array());
}

TEST_F(PaneCommands, DriveRefusesAButtonThatIsDisabled) {
    const auto answers = drive({R"({"do":"host","call":"restore"})", R"({"do":"press","tag":106})"});
    EXPECT_EQ(answers[1].dump(), R"({"ok":false,"error":"button 106: disabled"})");
}

TEST_F(PaneCommands, DriveDoubleClicksBelowTheRowsWithoutADialog) {
    const auto answers =
        drive({R"({"do":"host","call":"restore"})", R"({"do":"doubleClick","tag":104})",
               R"({"do":"choose","tag":104,"item":0})", R"({"do":"type","tag":104,"text":""})",
               R"({"do":"step","tag":104,"value":0})"},
              {"--settings", kThreeRecords});
    EXPECT_EQ(answers[1].dump(), R"({"ok":true,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(answers[2].dump(), R"({"ok":false,"error":"table 104: expected a popup"})");
    EXPECT_EQ(answers[3].dump(), R"({"ok":false,"error":"table 104: expected a field"})");
    EXPECT_EQ(answers[4].dump(), R"({"ok":false,"error":"table 104: expected a stepper"})");
}

TEST_F(PaneCommands, LogLinesAreShownOnlyOnRequest) {
    const std::vector<std::string> arguments{"apply", "--ppd", kPpd, "--settings", kThreeRecords};
    const Ran quiet = run(arguments);
    EXPECT_EQ(quiet.err, "");
    std::vector<std::string> verbose = arguments;
    verbose.emplace_back("-v");
    const Ran loud = run(verbose);
    EXPECT_EQ(loud.out, quiet.out);
    EXPECT_NE(loud.err.find("SpecialPagesPDE : RealChoiceStringNib1 - NVSpecialPages_Default01\n"),
              std::string::npos)
        << loud.err;
    platform::NSLog("after the run"); // the sink is gone
    EXPECT_EQ(loud.err.find("after the run"), std::string::npos);
}

TEST_F(PaneCommands, APpdWithoutThePaneIsAnInputError) {
    const std::string plain = kExamples + "ppd/plain.ppd";
    const std::string message =
        "special-pages: " + plain +
        ": expected the attribute *NVXSpecialPagesSettings; without it the printer has "
        "no Special Pages pane\n";
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"apply", "--ppd", plain},
                                                      {"drive", "--ppd", plain},
                                                      {"show", "--ppd", plain, kThreeRecords}}) {
        const Ran ran = run(arguments);
        EXPECT_EQ(ran.exit, 2);
        EXPECT_EQ(ran.out, "");
        EXPECT_EQ(ran.err, message);
    }
}

TEST_F(PaneCommands, APpdThatNamesAMissingNibIsAFaultOfTheBundle) {
    const Ran ran = run({"apply", "--ppd", "-"}, host::testing::small_ppd());
    EXPECT_EQ(ran.exit, 1);
    EXPECT_EQ(ran.err,
              std::string("special-pages: ") + paths::bundle_dir() +
                  ": expected the nib and the help page that *NVXSpecialPagesSettings of standard input "
                  "names\n");
}

struct BadInput {
    const char* name;
    std::vector<std::string> arguments;
    std::string input;
    int exit;
    std::string message;
};

class BadInputs : public PaneCommands, public ::testing::WithParamInterface<BadInput> {};

TEST_P(BadInputs, GiveTheirMessageAndExitCodeAndNoResult) {
    const Ran ran = run(GetParam().arguments, GetParam().input);
    EXPECT_EQ(ran.exit, GetParam().exit);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "special-pages: " + GetParam().message + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadInputs,
    ::testing::Values(
        BadInput{"MissingPpd",
                 {"apply", "--ppd", "/no/such.ppd"},
                 "",
                 2,
                 "/no/such.ppd: expected a PPD file: Unable to open PPD file (No such file or directory)"},
        BadInput{"PpdThatIsNone",
                 {"apply", "--ppd", "-"},
                 "hello\n",
                 2,
                 "standard input, line 1: expected a PPD file: Missing asterisk in column 1"},
        BadInput{"EmptyPpd",
                 {"show", "--ppd", "-", kThreeRecords},
                 "",
                 2,
                 "standard input: expected a PPD file: Missing PPD-Adobe-4.x header"},
        BadInput{"SettingsThatAreNone",
                 {"apply", "--ppd", kPpd, "--settings", "-"},
                 "[]",
                 2,
                 "standard input, line 1: expected an object of settings, found an array"},
        BadInput{"SettingsWithANumber",
                 {"apply", "--ppd", kPpd, "--settings", "-"},
                 "{\n\"a\": 1}",
                 2,
                 "standard input, line 2: \"a\": expected a text or an array of texts, found a number"},
        BadInput{"SettingsWithAKeyTwice",
                 {"show", "-"},
                 "{\"a\":\"1\",\n\"a\":\"1\"}",
                 2,
                 "standard input, line 2: the key \"a\" stands twice"},
        BadInput{"ShowOfABrokenRecord",
                 {"show", "-"},
                 "{\"" + kPrefix + "NPIFCommandTicketCount\":\"1\",\"" + kPrefix +
                     "NPIFCommandTicket_0\":\"1,3\"}",
                 2,
                 kPrefix +
                     "NPIFCommandTicket_0: expected 11 fields of a cover or insert, or 10 of an exception"},
        BadInput{"UnknownOption",
                 {"apply", "--ppd", kPpd, "--mark", "NoOption=A4"},
                 "",
                 2,
                 "NoOption: expected an option of " + kPpd + ", which has none so named"},
        BadInput{"UnknownChoice",
                 {"apply", "--ppd", kPpd, "--mark", "Duplex=Sometimes"},
                 "",
                 2,
                 "Duplex=Sometimes: expected a choice of this option: None, DuplexNoTumble, DuplexTumble"},
        BadInput{"MarkWithoutChoice",
                 {"drive", "--ppd", kPpd, "--mark", "PageSize"},
                 "",
                 2,
                 "PageSize: expected OPTION=CHOICE"}),
    [](const auto& info) { return info.param.name; });

TEST_F(PaneCommands, AMissingBundleIsReported) {
    const ScopedVariable bundle(host::kBundleVariable, "/no/such.bundle");
    const Ran ran = run({"apply", "--ppd", kPpd});
    EXPECT_EQ(ran.exit, 1);
    EXPECT_TRUE(ran.err.starts_with("special-pages: /no/such.bundle: expected the bundle of a pane: "))
        << ran.err;
}

TEST_F(PaneCommands, AnOutputThatCannotBeWrittenIsReportedAndLeavesNothing) {
    folder_.write("file", "as it was");
    const std::string out = (folder_.path() / "file" / "out.json").string();
    const Ran ran = run({"apply", "--ppd", kPpd, "--out", out});
    EXPECT_EQ(ran.exit, 1);
    EXPECT_TRUE(ran.err.starts_with("special-pages: " + out + ": cannot be written: ")) << ran.err;
    EXPECT_EQ(read_bytes(folder_.path() / "file"), "as it was");
}

} // namespace
} // namespace specialpages::cli
