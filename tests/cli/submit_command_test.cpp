// submit and lp-options through a real print server and the example filter: what the filter finds in a job is
// what was declared.
#include "cli/cli_fixtures.h"
#include "cli/sample_pane.h"
#include "host/job_options.h"
#include "host/settings_file.h"
#include "records/ticket_keys.h"
#include "testing/PrivateCupsd.h"
#include "testing/special_jobs.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

namespace fs = std::filesystem;
using host::testing::read_bytes;
using host::testing::ScopedVariable;
using nlohmann::ordered_json;
using test::pdf;
using test::PrivateCupsd;
using test::Shell;
using test::shell;
using testing::Ran;
using testing::run;

const std::string kExamples = paths::source_dir() + "/examples/";
const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

std::string program() {
    return paths::binary_dir() + "/bin/special-pages";
}
std::string example_filter() {
    return paths::binary_dir() + "/examples/special-pages-filter";
}

/// What `show` says of the file.
std::string shown(const fs::path& settings) {
    const Ran ran = run({"show", settings.string()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    return ran.out;
}

class SubmitWithoutServer : public testing::SamplePaneTest {
  protected:
    std::string document(const std::string& text = "one page") const {
        return folder_.write("doc.pdf", pdf(text)).string();
    }
};

class SubmitCommand : public SubmitWithoutServer {
  protected:
    void SetUp() override { ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it"; }
};

// Printed as the server of both kinds of account.

class SubmitAs : public SubmitCommand, public ::testing::WithParamInterface<std::string> {
  protected:
    PrivateCupsd::Setup filtered() const { return {.account = GetParam(), .filter = example_filter()}; }
    PrivateCupsd::Setup written() const { return {.account = GetParam()}; }
};

TEST_P(SubmitAs, TheFilterFindsTheSpecialPagesOfEveryExampleAsShowTellsThem) {
    const PrivateCupsd server(filtered());
    int job = 0;
    for (const auto& entry : fs::directory_iterator(kExamples + "settings")) {
        SCOPED_TRACE(entry.path());
        const Ran told = run({"show", entry.path().string()});
        fs::remove(server.out() / "filter.log");
        const Ran ran = run({"submit", "--printer", "prod", "--settings", entry.path().string(), document()});
        const std::string name = "prod-" + std::to_string(++job);
        EXPECT_EQ(ran.out, name + "\n");
        if (told.exit != 0) { // a damaged file: the filter says so too, and nothing is printed
            EXPECT_EQ(ran.exit, 4);
            EXPECT_EQ(ran.err.find("special-pages: " + name + ": the print system stopped the job"), 0U)
                << ran.err;
            EXPECT_EQ(server.written("job-" + std::to_string(job)), "");
            continue;
        }
        EXPECT_EQ(ran.exit, 0) << ran.err;
        EXPECT_EQ(server.written("filter.log"), told.out);
        EXPECT_EQ(server.written("job-" + std::to_string(job)), pdf("one page"));
    }
    EXPECT_GE(job, 5);
}

TEST_P(SubmitAs, AJobInWordsGoesThroughThePaneOfTheQueuesPpd) {
    const PrivateCupsd server(filtered());
    const fs::path kept = folder_.path() / "kept.json";
    const Ran ran = run(
        {"submit", "--printer", "prod", "--job", kExamples + "job.json", "--out", kept.string(), document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.out, "prod-1\n");
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(server.written("filter.log"), shown(kept));
    const Ran applied =
        run({"apply", "--ppd", kExamples + "ppd/production.ppd", "--job", kExamples + "job.json"});
    EXPECT_EQ(read_bytes(kept), applied.out) << "the queue's PPD makes what the file makes";
}

TEST_P(SubmitAs, FiveHundredSpecialPagesArriveWithoutThePanesOwnRecords) {
    const PrivateCupsd server(filtered());
    const fs::path kept = folder_.path() / "kept.json";
    const fs::path job = folder_.write("job.json", test::many_special_pages(250, 250));
    const Ran ran =
        run({"submit", "--printer", "prod", "--job", job.string(), "--out", kept.string(), document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(
        ran.err,
        "special-pages: the job goes without the pane's own records (501 options, 45842 bytes), which only "
        "the pane reads; the settings file keeps them\n");
    const fs::path bare = folder_.path() / "without-records.json";
    host::write_settings_file(bare, test::without_records(kept));
    EXPECT_EQ(server.written("filter.log"), shown(bare));
    const std::string all = shown(kept);
    const std::string log = server.written("filter.log");
    EXPECT_EQ(all.substr(all.find("\nCommands")), log.substr(log.find("\nCommands"))) << "no command is lost";
    EXPECT_EQ(host::read_settings_file(kept).entries().size(), 1011U) << "the settings file keeps all";
}

TEST_P(SubmitAs, FiveHundredSpecialPagesArriveByteForByte) {
    const PrivateCupsd server(written());
    const fs::path kept = folder_.path() / "kept.json";
    const fs::path job = folder_.write("job.json", test::many_special_pages(250, 250));
    const Ran ran =
        run({"submit", "--printer", "prod", "--job", job.string(), "--out", kept.string(), document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    test::expect_options(server, 1, test::without_records(kept));
    EXPECT_LT(server.written("job-1.options").size(), host::kFilterArgumentBytes);
}

TEST_P(SubmitAs, HostileTextsArriveUnchanged) {
    const PrivateCupsd server(written());
    const fs::path file = folder_.path() / "hostile.json";
    host::write_settings_file(file, test::hostile_settings());
    const Ran ran = run({"submit", "--printer", "prod", "--settings", file.string(), document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    test::expect_options(server, 1, host::read_settings_file(file));

    const Shell lp =
        shell("eval \"lp -d prod $(" + program() + " lp-options " + file.string() + ") " + document() + "\"");
    EXPECT_EQ(lp.exit, 0) << lp.out;
    ASSERT_TRUE(server.waitForAll());
    test::expect_options(server, 2, host::read_settings_file(file));
}

TEST_P(SubmitAs, LpPrintsWhatLpOptionsWrote) {
    const PrivateCupsd server(filtered());
    const std::string settings = kExamples + "settings/three-records.json";
    const Shell lp =
        shell("eval \"lp -d prod $(" + program() + " lp-options " + settings + ") " + document() + "\"");
    EXPECT_EQ(lp.exit, 0) << lp.out;
    ASSERT_TRUE(server.waitForAll());
    EXPECT_EQ(server.written("filter.log"), shown(settings));
}

INSTANTIATE_TEST_SUITE_P(Accounts, SubmitAs, ::testing::ValuesIn(test::accounts()),
                         [](const auto& account) { return account.param; });

// The command itself.

TEST_F(SubmitCommand, QueueOptionsGoAlongAndThePaneKnowsThem) {
    const PrivateCupsd server;
    const std::string job = kExamples + "job.json";
    const fs::path kept = folder_.path() / "kept.json";
    const Ran ran =
        run({"submit", "--printer", "prod", "--job", job, "--option", "media=A3", "--option", "copies=3",
             "--option", "sides=two-sided-long-edge", "--out", kept.string(), document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    const auto options = server.options(1);
    EXPECT_EQ(options.at("media"), "A3");
    EXPECT_EQ(options.at("PageSize"), "A3") << "the server's own reading of it";
    EXPECT_EQ(options.at("sides"), "two-sided-long-edge");
    const std::vector<std::string> apply{"apply", "--ppd", kExamples + "ppd/production.ppd", "--job", job};
    std::vector<std::string> marked = apply;
    marked.insert(marked.end(), {"--mark", "PageSize=A3", "--mark", "Duplex=DuplexNoTumble"});
    EXPECT_EQ(read_bytes(kept), run(marked).out);
    EXPECT_NE(read_bytes(kept), run(apply).out) << "the covers are of the job's paper";
}

TEST_F(SubmitCommand, AsJsonItTellsTheEnd) {
    const PrivateCupsd server;
    const Ran ran = run({"submit", "--printer", "prod", "--json", "--settings",
                         kExamples + "settings/handbook.json", document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    const ordered_json told = ordered_json::parse(ran.out);
    EXPECT_EQ(told.at("job"), 1);
    EXPECT_EQ(told.at("name"), "prod-1");
    EXPECT_EQ(told.at("queue"), "prod");
    EXPECT_EQ(told.at("state"), "completed");
    EXPECT_EQ(told.at("leftOut"), 0);
    EXPECT_GT(told.at("optionBytes"), 500);
}

TEST_F(SubmitCommand, ReadsTheDocumentOrTheJobFromStandardInput) {
    const PrivateCupsd server;
    const Ran ran = run({"submit", "--printer", "prod", "-"}, pdf("from a pipe"));
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(server.written("job-1"), pdf("from a pipe"));
    EXPECT_EQ(server.written("job-1.title"), "standard input");
    EXPECT_EQ(run({"submit", "--printer", "prod", "--job", "-", document()}, "{}").exit, 0);
    const Ran both = run({"submit", "--printer", "prod", "--settings", "-", "-"}, pdf("x"));
    EXPECT_EQ(both.exit, 2);
    EXPECT_EQ(both.err, "special-pages: -: expected one file at most to be standard input\n");
}

TEST_F(SubmitCommand, WithoutWaitingItEndsWhenTheServerHasTheJob) {
    const PrivateCupsd server;
    server.blockFilter();
    const Ran ran = run({"submit", "--printer", "prod", "--no-wait", "--json", document()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_NE(ordered_json::parse(ran.out).at("state"), "completed");
    server.releaseFilter();
    EXPECT_TRUE(server.waitFor("job-1"));
}

TEST_F(SubmitCommand, OptionsThatClashWithTheSettingsAreRefusedBeforeAnythingIsSent) {
    const PrivateCupsd server;
    const fs::path settings = folder_.write("s.json", R"({"Own.Key": "1"})");
    const Ran ran = run({"submit", "--printer", "prod", "--settings", settings.string(), "--option",
                         "own.kEY=2", document()});
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(
        ran.err,
        "special-pages: own.kEY: expected an option that the settings do not have; they have this one\n");
    EXPECT_EQ(run({"submit", "--printer", "prod", "--option", kPrefix + "X=1", document()}).exit, 2);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(SubmitCommand, SettingsThatAJobCannotCarryAreRefusedWithTheirKey) {
    const PrivateCupsd server;
    for (const char* value : {"true", "False", "{x", "a\\rb", "a\\u000bb", "a\\fb", ",{"}) {
        const fs::path settings =
            folder_.write("s.json", std::string(R"({"good": "1", "bad.key": ")") + value + "\"}");
        const Ran ran = run({"submit", "--printer", "prod", "--settings", settings.string(), document()});
        EXPECT_EQ(ran.exit, 2) << value;
        EXPECT_EQ(ran.err.find("special-pages: bad.key: expected "), 0U) << ran.err;
        const Ran lp = run({"lp-options", settings.string()});
        EXPECT_EQ(lp.exit, 2) << value;
        EXPECT_EQ(lp.out, "");
    }
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(SubmitCommand, AJobThatIsTooBigIsRefusedWithItsNumbersAndTheSettingsAreKept) {
    const PrivateCupsd server;
    platform::PrintSettings settings;
    settings.setValue(kNPIFCommandTicketCount, "0", false);
    for (int i = 0; i < 1000; ++i) {
        settings.setValue(std::string(kNPIFInsertionValueTicket) + std::to_string(i), std::string(100, '/'),
                          false);
    }
    const fs::path file = folder_.path() / "big.json";
    const fs::path kept = folder_.path() / "kept.json";
    host::write_settings_file(file, settings);
    const Ran ran =
        run({"submit", "--printer", "prod", "--settings", file.string(), "--out", kept.string(), document()});
    EXPECT_EQ(ran.exit, 3);
    EXPECT_EQ(
        ran.err,
        "special-pages: the job's options take 163948 bytes, and 163889 without the pane's own records, but "
        "a print job carries at most 126976: split the document into jobs with fewer special pages each\n");
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(server.jobs(), 0);
    EXPECT_EQ(read_bytes(kept), read_bytes(file));
    EXPECT_EQ(run({"lp-options", file.string()}).exit, 3);
}

TEST_F(SubmitCommand, TheMostThatIsAllowedReallyArrives) {
    // Full to the last byte, and a document's name that doubles: the server's own options still fit.
    const PrivateCupsd server;
    platform::PrintSettings settings;
    constexpr std::size_t kPart = 31744 - 3; // "kN=" and a blank make 31 kilobytes of it
    for (int i = 0; i < 4; ++i) {
        settings.setValue("k" + std::to_string(i), std::string(kPart - (i == 0 ? 0 : 1), 'x'), false);
    }
    ASSERT_EQ(host::job_options(settings, {}).bytes, host::kMaxJobOptionBytes);
    const fs::path file = folder_.path() / "full.json";
    host::write_settings_file(file, settings);
    const fs::path named = folder_.write(std::string(251, ' ') + ".pdf", pdf("x"));
    const Ran ran = run({"submit", "--printer", "prod", "--settings", file.string(), named.string()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    test::expect_options(server, 1, host::read_settings_file(file));
    EXPECT_LT(server.written("job-1.options").size(), host::kFilterArgumentBytes);
}

TEST_F(SubmitCommand, WhatTheQueueRefusesIsExitCodeFour) {
    PrivateCupsd server;
    const Ran missing = run({"submit", "--printer", "nowhere", "--job", kExamples + "job.json", document()});
    EXPECT_EQ(missing.exit, 4);
    EXPECT_EQ(missing.err, "special-pages: nowhere: the print server has no such queue, or no PPD of it\n");
    ASSERT_EQ(shell("cupsreject prod").exit, 0);
    const Ran rejecting = run({"submit", "--printer", "prod", document()});
    EXPECT_EQ(rejecting.exit, 4);
    EXPECT_EQ(rejecting.err, "special-pages: prod: the queue takes no jobs just now\n");
    server.stop(SIGTERM);
    const Ran gone = run({"submit", "--printer", "prod", document()});
    EXPECT_EQ(gone.exit, 4);
    EXPECT_EQ(gone.err, "special-pages: " + server.socket() + ": no print server answers here\n");
    EXPECT_EQ(read_bytes(folder_.path() / "doc.pdf"), pdf("one page")) << "the document stays";
}

TEST_F(SubmitCommand, AJobThatIsCanceledByAnotherIsNotDone) {
    const PrivateCupsd server;
    server.blockFilter();
    const std::string log = (folder_.path() / "ran").string();
    // In the background: it waits for the job that is then canceled.
    const Shell started =
        shell(program() + " submit --printer prod " + document() + " >" + log + " 2>&1 & echo $!");
    ASSERT_TRUE(server.waitFor("job-1.options"));
    ASSERT_EQ(shell("cancel prod-1").exit, 0);
    EXPECT_TRUE(test::eventually([&] {
        return read_bytes(log).find("somebody canceled the job") != std::string::npos;
    })) << read_bytes(log);
}

TEST_F(SubmitCommand, InterruptingCancelsTheJobAndSaysSo) {
    const PrivateCupsd server;
    server.blockFilter();
    const fs::path log = folder_.path() / "ran";
    const fs::path exit = folder_.path() / "exit";
    const fs::path number = folder_.path() / "number";
    // A shell lets what it starts in the background ignore SIGINT, unlike what a person starts.
    const fs::path script =
        folder_.write("submit.py", "import os, signal, sys\nsignal.signal(signal.SIGINT, signal.SIG_DFL)\n"
                                   "open('" +
                                       number.string() +
                                       ".part', 'w').write(str(os.getpid()))\n"
                                       "os.rename('" +
                                       number.string() + ".part', '" + number.string() +
                                       "')\n"
                                       "os.execv(sys.argv[1], sys.argv[1:])\n");
    shell("(python3 " + script.string() + " " + program() + " submit --printer prod " + document() + " >" +
          log.string() + " 2>&1; echo $? >" + exit.string() + ") </dev/null >/dev/null 2>&1 &");
    ASSERT_TRUE(server.waitFor("job-1.options"));
    // The job's name is written once it may be interrupted to the full.
    ASSERT_TRUE(test::eventually([&] { return read_bytes(log) == "prod-1\n"; })) << read_bytes(log);
    ASSERT_EQ(::kill(std::stoi(read_bytes(number)), SIGINT), 0);
    ASSERT_TRUE(test::eventually([&] { return !read_bytes(exit).empty(); })) << read_bytes(log);
    EXPECT_EQ(read_bytes(log), "prod-1\nspecial-pages: prod-1: interrupted, and the job is canceled\n");
    EXPECT_EQ(read_bytes(exit), "1\n");
    EXPECT_EQ(shell("lpstat -o").out, "");
    EXPECT_NE(shell("lpstat -W completed -o").out.find("prod-1 "), std::string::npos);
    EXPECT_EQ(read_bytes(folder_.path() / "doc.pdf"), pdf("one page"));
}

TEST_F(SubmitCommand, OnATerminalItShowsHowFarItIs) {
    const PrivateCupsd server;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(run_cli({"submit", "--printer", "prod", document()}, {in, out, err, true}), 0);
    EXPECT_EQ(out.str(), "prod-1\n");
    EXPECT_EQ(err.str().find("sending, 0 of 0 KB"), 0U) << err.str();
    EXPECT_NE(err.str().find("prod-1: completed"), std::string::npos) << err.str();
    EXPECT_EQ(err.str().back(), '\r') << "the line is gone at the end";
}

TEST_F(SubmitWithoutServer, ADocumentHasToBeAPdf) {
    const fs::path text = folder_.write("text.txt", "hello");
    const Ran ran = run({"submit", "--printer", "prod", text.string()});
    EXPECT_EQ(ran.exit, 2);
    EXPECT_EQ(ran.err, "special-pages: " + text.string() + ": expected a PDF document\n");
    const Ran missing = run({"submit", "--printer", "prod", "/no/such.pdf"});
    EXPECT_EQ(missing.exit, 2);
    EXPECT_EQ(missing.err,
              "special-pages: /no/such.pdf: expected a PDF document: No such file or directory\n");
    EXPECT_EQ(run({"submit", "--printer", "prod", folder_.path().string()}).exit, 2) << "a folder";
    EXPECT_EQ(run({"submit", "--printer", "prod", folder_.write("empty.pdf", "").string()}).exit, 2);
    EXPECT_EQ(run({"submit", "--printer", "prod", "-"}, "hello").exit, 2);
}

TEST_F(SubmitWithoutServer, UsageIsChecked) {
    EXPECT_EQ(run({"submit", document()}).exit, 2) << "no queue";
    EXPECT_EQ(run({"submit", "--printer", "prod"}).exit, 2) << "no document";
    EXPECT_EQ(run({"submit", "--printer", "prod", "--job", "a", "--settings", "b", document()}).exit, 2)
        << "both";
    EXPECT_EQ(run({"submit", "--printer", "prod", "--option", "landscape", document()}).exit, 2)
        << "no value";
    EXPECT_EQ(run({"submit", "--help"}).out.find("Prints a PDF document"), 0U);
}

TEST_F(SubmitWithoutServer, LpOptionsAreOneLineOfArguments) {
    const fs::path settings = folder_.write("s.json", R"({"b": "it's", "a": ["A4", "A3"], "c": ""})");
    const Ran ran = run({"lp-options", settings.string()});
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.out, "-o 'b=it\\'\\''s' -o 'a=A4,A3' -o 'c='\n");
    EXPECT_EQ(run({"lp-options", "-"}, "{}").out, "\n");
    EXPECT_EQ(run({"lp-options", "/no/such.json"}).exit, 2);
    EXPECT_EQ(run({"lp-options", "-"}, R"({"copies": "x"})").exit, 2)
        << "an option of the print system's own";
}

TEST(LeftOutRecords, AreThoseOfThePanesRecordKeys) {
    EXPECT_EQ(host::kPaneRecordKey, kNPIFCommandTicket);
    EXPECT_EQ(std::string(host::kPaneRecordKey) + "Count", kNPIFCommandTicketCount);
    EXPECT_TRUE(kNPIFCommandTicket.starts_with(host::kPaneOptionPrefix));
}

} // namespace
} // namespace specialpages::cli
