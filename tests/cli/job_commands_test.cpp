// apply --job and menus through the real pane, loaded from the bundle of this build, on the sample printer.
#include "cli/cli_fixtures.h"
#include "cli/sample_pane.h"
#include "platform/foundation/atomic_file.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using host::testing::TemporaryFolder;
using nlohmann::ordered_json;
using testing::Ran;
using testing::run;

const std::string& kPpd = testing::kSamplePpd;
const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

class JobCommands : public testing::SamplePaneTest {
  protected:
    Ran apply(const std::string& job, std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"apply", "--ppd", kPpd, "--job", "-"});
        return run(more, job);
    }
    /// The record tickets that the job gives.
    std::vector<std::string> records(const std::string& job) {
        const Ran ran = apply(job);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        const ordered_json settings = ordered_json::parse(ran.out, nullptr, false);
        std::vector<std::string> all;
        const int count = std::stoi(settings.value(kPrefix + "NPIFCommandTicketCount", "0"));
        for (int i = 0; i < count; ++i) {
            all.push_back(settings.value(kPrefix + "NPIFCommandTicket_" + std::to_string(i), ""));
        }
        return all;
    }
    /// What the pane says to a job that it refuses.
    std::string refusal(const std::string& job) {
        const Ran ran = apply(job);
        EXPECT_EQ(ran.exit, 3) << ran.err;
        EXPECT_EQ(ran.out, "") << "nothing is written";
        return ran.err;
    }
};
using Records = std::vector<std::string>;

std::string golden(const std::string& name) {
    return platform::read_file(paths::source_dir() + "/tests/cli/golden/" + name).value_or("(no such file)");
}

TEST_F(JobCommands, EachCoverOptionGivesItsSettingsWhichRestoreToTheSame) {
    const std::string front = R"("front":{"print":"side-one","paper":{"color":"Blue","type":"ThickPaper"}})";
    const std::string back = R"("back":{"paper":"interposer"})";
    const std::vector<std::pair<std::string, std::string>> options{
        {"none", ""},
        {"front", "," + front},
        {"back", "," + back},
        {"front-and-back-same", "," + front},
        {"front-and-back-different", "," + front + "," + back},
    };
    for (const auto& [option, sides] : options) {
        const Ran ran = apply(R"({"covers":{"option":")" + option + "\"" + sides + "}}");
        ASSERT_EQ(ran.exit, 0) << ran.err;
        EXPECT_EQ(ran.out, golden("job-covers-" + option + ".json")) << option;
        const Ran again = run({"apply", "--ppd", kPpd, "--settings", "-"}, ran.out);
        EXPECT_EQ(again.out, ran.out) << option;
    }
}

TEST_F(JobCommands, WhatIsLeftOutStaysAsTheDialogOffersIt) {
    EXPECT_EQ(records(R"({"covers":{"option":"front"}})"), (Records{"0,0,0,2,0,0,false,1,210.0,297.0,1"}));
    EXPECT_EQ(records("{}"), Records{});
    EXPECT_EQ(records(R"({"covers":{"option":"front","front":{"paper":{"size":"A3"}}}})"),
              (Records{"0,0,0,0,0,0,false,1,210.0,297.0,1"}));
}

TEST_F(JobCommands, AChoiceThatStandsAlreadyIsTaken) {
    EXPECT_EQ(records(R"({"covers":{"option":"front",
                          "front":{"print":"side-one","paper":{"size":"A4","type":"Stationary"}}}})"),
              (Records{"0,0,1,2,0,0,false,1,210.0,297.0,1"}))
        << "a printed cover has the job's size, and the default type is hidden";
}

TEST_F(JobCommands, WhatThePaneDoesNotAllowIsRefusedInItsWords) {
    EXPECT_EQ(refusal(R"({"covers":{"option":"front",
                          "front":{"print":"side-two","paper":{"type":"ThickPaperS1"}}}})"),
              "special-pages: standard input, covers.front.paper.type: the pane does not allow "
              "\"Thick 1, 1 Side Only\" here: Not with 2-Sided Printing: Short Edge\n");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":{"print":"side-one","paper":{"size":"A3"}}}})"),
              "special-pages: standard input, covers.front.paper.size: the pane does not allow \"Size\" "
              "here\n");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":{"print":"side-one","paper":"interposer"}}})"),
              "special-pages: standard input, covers.front.paper: the pane does not allow "
              "\"Interposer (Tray 8)\" here\n");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":{"paper":"no-change"}}})"),
              "special-pages: standard input, covers.front.paper: the pane does not offer \"No Change\" "
              "here\n");
}

TEST_F(JobCommands, ACustomSizeIsTypedIntoItsWindow) {
    const auto front = [](const std::string& paper) {
        return R"({"covers":{"option":"front","front":{"paper":{)" + paper + "}}}}";
    };
    EXPECT_EQ(records(front(R"("size":"Custom","width":"250.5","length":"400","type":"ThickPaper")")),
              (Records{"0,0,0,33,0,8,false,1,250.5,400,1"}));
    EXPECT_EQ(records(front(R"("size":"Custom","width":"8.50","length":"11","unit":"in")")),
              (Records{"0,0,0,33,0,0,false,1,215.9,279.4,0"}));
    EXPECT_EQ(records(front(R"("size":"Custom")")), (Records{"0,0,0,33,0,0,false,1,210.0,297.0,1"}))
        << "without measures the window is left as it opens";
}

TEST_F(JobCommands, EachSideOfTheCoversHasItsOwnCustomSize) {
    EXPECT_EQ(records(R"({"covers":{"option":"front-and-back-different",
                          "front":{"paper":{"size":"Custom","width":"300","length":"400"}},
                          "back":{"paper":{"size":"Custom","width":"5.50","length":"8.50","unit":"in"}}}})"),
              (Records{"0,0,0,33,0,0,false,4,300,400,1", "0,1,0,33,0,0,false,4,139.7,215.9,0"}));
}

TEST_F(JobCommands, ACustomSizeThatTheWindowRefusesIsQuoted) {
    const auto said = [this](const std::string& measures) {
        return refusal(R"({"covers":{"option":"front","front":{"paper":{"size":"Custom",)" + measures +
                       "}}}}");
    };
    const std::string place = "special-pages: standard input, covers.front.paper.";
    EXPECT_EQ(said(R"("width":"99","length":"297")"),
              place + "width: This width can't be used. Enter a width from 100.0 to 330.0 mm, with at most "
                      "one decimal, for example 210 or 210.5.\n");
    EXPECT_EQ(said(R"("width":"210","length":"297.05")"),
              place + "length: This length can't be used. Enter a length from 148.0 to 488.0 mm, with at "
                      "most one decimal, for example 297 or 297.5.\n");
    EXPECT_EQ(said(R"("width":"8.5","length":"11","unit":"in")"),
              place + "width: This width can't be used. Enter a width from 3.94 to 12.99 inches, whole or "
                      "with two decimals, for example 8 or 8.50.\n");
    EXPECT_EQ(said(R"("width":"21o","length":"297")"),
              place + "width: the pane's field does not take \"21o\"\n");
    EXPECT_EQ(said(R"("width":"210","length":"")").substr(0, place.size() + 7), place + "length:");
}

TEST_F(JobCommands, TheWindowBehindTabStockIsConfirmed) {
    EXPECT_EQ(records(R"({"covers":{"option":"front","front":{"paper":{"type":"TabbedPaper1"}}},
                          "inserts":[{"after":"2","paper":{"type":"TabbedPaper2","size":"Letter"}}],
                          "exceptions":[{"pages":"3","paper":{"type":"TabbedPaper1"}},
                                        {"pages":"4","paper":{"type":"TabbedPaper1","color":"Blue"}}]})"),
              (Records{"0,0,0,2,0,36,false,1,210.0,297.0,1", "1,2,0,1,11,0,37,false,210.0,297.0,1",
                       "2,3,2,36,0,false,1,210.0,297.0,1", "2,4,2,36,1,false,1,210.0,297.0,1"}));
}

TEST_F(JobCommands, TabStockThatThePaneForbidsOpensNoWindow) {
    EXPECT_EQ(refusal(R"({"exceptions":[{"pages":"3","paper":{"size":"A3","type":"TabbedPaper1"}}]})"),
              "special-pages: standard input, exceptions[0].paper.type: the pane does not allow "
              "\"Tab Stock 1\" here: Not with Paper Size: A3\n");
}

TEST_F(JobCommands, ACustomSizeThatThePaneForbidsOpensNoWindow) {
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":{"print":"side-one",
                          "paper":{"size":"Custom","width":"210","length":"297"}}}})"),
              "special-pages: standard input, covers.front.paper.size: the pane does not allow \"Size\" "
              "here\n");
}

TEST_F(JobCommands, APaperThatThePrinterDoesNotHaveIsAnErrorOfTheFile) {
    const Ran ran = apply(R"({"covers":{"option":"front","front":{"paper":{"color":"Bleu"}}}})");
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.err,
              "special-pages: standard input, covers.front.paper.color: the printer has no \"Bleu\"\n");
    EXPECT_EQ(ran.out, "");
}

TEST_F(JobCommands, OneFileAtMostIsStandardInput) {
    const Ran ran = apply("{}", {"--settings", "-"});
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.err, "special-pages: --job -: expected one file at most to be standard input\n");
}

TEST_F(JobCommands, AMissingJobFileIsNamed) {
    const std::string file = (folder_.path() / "none.json").string();
    const Ran ran = run({"apply", "--ppd", kPpd, "--job", file});
    EXPECT_EQ(ran.exit, 2);
    EXPECT_NE(ran.err.find(file + ": expected a job file: "), std::string::npos) << ran.err;
}

TEST_F(JobCommands, ARefusedJobLeavesTheFileOfBefore) {
    const std::string out = (folder_.path() / "out.json").string();
    ASSERT_EQ(apply("{}", {"--out", out}).exit, 0);
    const auto before = platform::read_file(out);
    EXPECT_EQ(apply(R"({"covers":{"option":"front","front":{"paper":"no-change"}}})", {"--out", out}).exit,
              3);
    EXPECT_EQ(platform::read_file(out), before);
}

class MenusCommand : public JobCommands {
  protected:
    static ordered_json items(const Ran& ran, std::size_t top) {
        EXPECT_EQ(ran.exit, 0) << ran.err;
        return ordered_json::parse(ran.out).at("items").at(top).at("items");
    }
    static ordered_json item(const ordered_json& items, const std::string& keyword) {
        for (const ordered_json& each : items) {
            if (each.value("keyword", "") == keyword) {
                return each;
            }
        }
        ADD_FAILURE() << "no item " << keyword;
        return {};
    }
};

TEST_F(MenusCommand, ShowsWhatAPersonSees) {
    const Ran ran = run({"menus", "--ppd", kPpd, "--select", "color=Blue,type=ThickPaper"});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.out, golden("menus-covers.txt"));
}

TEST_F(MenusCommand, ADisabledItemSaysWhichChoiceForbidsIt) {
    const Ran ran = run({"menus", "--ppd", kPpd, "--select", "size=A3,type=ThickPaper", "--json"});
    EXPECT_EQ(item(items(ran, 3), "Clear"), (ordered_json{{"title", "Clear"},
                                                          {"keyword", "Clear"},
                                                          {"tag", 3012},
                                                          {"enabled", false},
                                                          {"hidden", false},
                                                          {"reason", "Not with Paper Type: Thick 1"}}));
    EXPECT_EQ(item(items(ran, 2), "A3").at("chosen"), true);
    EXPECT_FALSE(item(items(ran, 2), "A4").contains("reason"));
}

TEST_F(MenusCommand, RefusesASelectionThatThePaneDoesNotAllow) {
    const Ran forbidden = run({"menus", "--ppd", kPpd, "--select", "color=Clear"});
    EXPECT_EQ(forbidden.exit, 3);
    EXPECT_EQ(forbidden.err,
              "special-pages: --select, color: the pane does not allow \"Clear\" here: Not with "
              "Paper Type: Plain\n");
    const Ran unknown = run({"menus", "--ppd", kPpd, "--select", "color=Blu"});
    EXPECT_EQ(unknown.exit, 2);
    EXPECT_EQ(unknown.err, "special-pages: --select, color: the printer has no \"Blu\"\n");
    EXPECT_EQ(unknown.out, "");
    for (const char* malformed : {"colour=Blue", "color", "color=Blue,color=Red", "=", ",", "size=A4,,"}) {
        const Ran ran = run({"menus", "--ppd", kPpd, "--select", malformed});
        EXPECT_EQ(ran.exit, 2) << malformed;
        EXPECT_NE(ran.err.find("--select: expected size=, color= and type=, each once at most"),
                  std::string::npos)
            << ran.err;
    }
    const Ran window = run({"menus", "--ppd", kPpd, "--window", "cover"});
    EXPECT_EQ(window.exit, 2);
    EXPECT_EQ(window.err, "special-pages: --window: expected covers, inserts or exceptions\n");
}

} // namespace
} // namespace specialpages::cli
