// The example filter, run as CUPS runs one: its decoded view is the text of `special-pages show`, byte for
// byte.

#include "cli/SpecialPagesSummary.h"
#include "cli/cli_fixtures.h"
#include "host/HostError.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "host/settings_file.h"
#include "npif_reader/random_jobs.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <optional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace npif::testing {
namespace {

namespace fs = std::filesystem;
namespace host = specialpages::host;
using host::testing::read_bytes;
using specialpages::cli::testing::Ran;

const std::string kExamples = paths::source_dir() + "/examples/";

/// What the filter answered; `view` is the file that it was told to write, if it is there.
struct Filtered {
    int exit = -1;
    std::string out;
    std::string err;
    std::optional<std::string> view;
};

class Filter {
  public:
    Filtered run(const std::vector<std::string>& arguments, const std::string& document = "%PDF-1.7\n") {
        write("in", document);
        fs::remove(file("view"));
        std::vector<std::string> all{paths::binary_dir() + "/examples/special-pages-filter"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        Filtered filtered;
        filtered.exit = spawn(all);
        filtered.out = read_bytes(file("out"));
        filtered.err = read_bytes(file("err"));
        if (fs::exists(file("view"))) {
            filtered.view = read_bytes(file("view"));
        }
        return filtered;
    }
    Filtered filter(const std::string& options) { return run({"1", "user", "title", "1", options}); }
    std::string file(const std::string& name) const { return (fs::path(folder_.path()) / name).string(); }
    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(file(name), std::ios::binary) << bytes;
    }
    /// Empty for none.
    void log_to(const std::string& name) { log_ = name; }

  private:
    int spawn(std::vector<std::string>& arguments) {
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        std::string log = "SPECIAL_PAGES_FILTER_LOG=" + log_;
        std::vector<char*> environment{log.data(), nullptr};
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        const int create = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, file("in").c_str(), O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, file("out").c_str(), create, 0600);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, file("err").c_str(), create, 0600);
        pid_t child = 0;
        const int status =
            posix_spawn(&child, pointers[0], &files, nullptr, pointers.data(), environment.data());
        posix_spawn_file_actions_destroy(&files);
        EXPECT_EQ(status, 0) << pointers[0];
        int state = 0;
        return status == 0 && waitpid(child, &state, 0) == child && WIFEXITED(state) ? WEXITSTATUS(state)
                                                                                     : -1;
    }
    host::testing::TemporaryFolder folder_;
    std::string log_ = file("view");
};

std::string shown(const PrintSettings& settings) {
    const auto summary = specialpages::cli::summarise(settings);
    std::vector<specialpages::cli::SummaryRow> rows;
    for (const auto& record : summary.records) {
        rows.push_back(specialpages::cli::row_of_record(record));
    }
    return specialpages::cli::summary_table(summary, rows);
}

class NpifFilter : public ::testing::Test {
  protected:
    std::string options_in(const std::string& file) {
        return argument_of(options_of(host::read_settings_file(file)));
    }
    std::string printed(const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"apply", "--ppd", kExamples + "ppd/production.ppd", "--out",
                                           filter_.file("job.json")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Ran ran = specialpages::cli::testing::run(arguments);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        return filter_.file("job.json");
    }
    void expect_view_of_show(const std::string& file) {
        const Ran show = specialpages::cli::testing::run({"show", file});
        ASSERT_EQ(show.exit, 0) << show.err;
        const Filtered filtered = filter_.filter(options_in(file));
        EXPECT_EQ(filtered.exit, 0) << filtered.err;
        EXPECT_EQ(filtered.view, show.out);
        EXPECT_EQ(filtered.out, "%PDF-1.7\n");
    }
    Filter filter_;
    host::testing::TemporaryFolder home_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", home_.path().c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
};

TEST_F(NpifFilter, ShowsWhatShowShowsOfEveryExample) {
    for (const char* name : {"empty.json", "handbook.json", "mailbox.json", "three-records.json"}) {
        SCOPED_TRACE(name);
        const std::string settings = kExamples + "settings/" + name;
        expect_view_of_show(settings);
        expect_view_of_show(printed({"--settings", settings}));
    }
    expect_view_of_show(printed({"--job", kExamples + "job.json"}));
}

TEST_F(NpifFilter, ShowsWhatShowShowsWhenTheRecordsAreLeftOut) {
    PrintSettings settings = host::read_settings_file(printed({"--job", kExamples + "job.json"}));
    const auto entries = settings.entries();
    for (const auto& entry : entries) {
        if (entry.key.find("NPIFCommandTicket") != std::string::npos) {
            settings.remove(entry.key);
        }
    }
    const Filtered filtered = filter_.filter(argument_of(options_of(settings)));
    EXPECT_EQ(filtered.view, shown(settings));
    EXPECT_EQ(filtered.view->substr(0, 36), "No special pages\n\nCommands\n  cover  ");
}

RC_GTEST_PROP(NpifFilterRandomJobs, ShowsWhatShowShowsOrRefusesTheJob, ()) {
    Filter filter;
    const PrintSettings settings = random_job(*rc::gen::arbitrary<bool>()).settings;
    const Filtered filtered = filter.filter(argument_of(options_of(settings)));
    RC_ASSERT(filtered.view.has_value());
    try {
        RC_ASSERT(*filtered.view == shown(settings));
    } catch (const host::HostError&) {
        RC_ASSERT(filtered.view->empty());
        RC_ASSERT(filtered.exit == 1);
    }
    RC_ASSERT((filtered.exit == 0) == (filtered.err.find("ERROR: ") == std::string::npos));
}

TEST_F(NpifFilter, SaysWhatItWouldDo) {
    const std::string options = options_in(printed({"--job", kExamples + "job.json"}));
    EXPECT_EQ(
        filter_.filter(options).err,
        "INFO: would make: front cover, printed on side one, on 210.00 x 297.00 mm, blue, THICK\n"
        "INFO: would make: back cover, blank, on 210.00 x 297.00 mm, blue, THICK\n"
        "INFO: would make: 2 sheet(s) after page 3, on 210.00 x 297.00 mm, yellow, NORMAL\n"
        "INFO: would make: 1 sheet(s) after page 12, on 223.00 x 297.00 mm, white, TABTHICK1\n"
        "INFO: would make: 2 sheet(s) after page 20, on 210.00 x 297.00 mm, yellow, NORMAL\n"
        "INFO: would make: pages 5 to 7 two-sided on the long edge, on 297.00 x 420.00 mm, white, NORMAL\n");
    const std::string inserted = kPrefix + "NPIFInsertionCountTicket=2 " + kPrefix +
                                 "NPIFInsertionValueTicket_0=0,0,3,interposer " + kPrefix +
                                 "NPIFInsertionValueTicket_1=1,0,1,,12305,20000,";
    EXPECT_EQ(filter_.filter(inserted).err,
              "INFO: would make: 3 sheet(s) before page 1, from the interposer\n"
              "INFO: would make: 1 sheet(s) before page 1, on 123.05 x 200.00 mm\n");
}

TEST_F(NpifFilter, LogsTheViewWhenNoFileIsNamed) {
    filter_.log_to("");
    EXPECT_EQ(filter_.filter("media=A4").err,
              "INFO: No special pages\nINFO: \nINFO: Commands\nINFO:   -\nINFO: \n"
              "INFO: Papers\nINFO:   size   -\nINFO:   type   -\nINFO:   color  -\n"
              "INFO: \nINFO: Flags\nINFO:   tab no, interposer no, a5 no\n");
}

TEST_F(NpifFilter, HandsOnTheDocumentFromAFileOrStandardInput) {
    std::string document;
    for (int i = 0; i < 200000; ++i) {
        document += static_cast<char>(i % 256);
    }
    EXPECT_EQ(filter_.run({"1", "user", "title", "1", ""}, document).out, document);
    filter_.write("document", document);
    const Filtered filtered =
        filter_.run({"1", "user", "title", "1", "", filter_.file("document")}, "not this");
    EXPECT_EQ(filtered.exit, 0);
    EXPECT_EQ(filtered.out, document);
}

TEST_F(NpifFilter, RefusesAMalformedJobBeforeItsDocument) {
    const std::string options = kPrefix + "NPIFCoverCountTicket=2 " + kPrefix +
                                "NPIFCoverValueTicket_0=0,0,print-some,interposer " + kPrefix +
                                "NPIFCoverValueTicket_1=1,0,print-none,tray";
    const Filtered filtered = filter_.filter(options);
    EXPECT_EQ(filtered.exit, 1);
    EXPECT_EQ(filtered.out, "");
    EXPECT_EQ(filtered.err,
              "ERROR: " + kPrefix +
                  "NPIFCoverValueTicket_0, field 3, byte 5: expected \"print-none\", \"print-front\", "
                  "\"print-back\" or \"print-both\", found \"print-some\"\nERROR: " +
                  kPrefix +
                  "NPIFCoverValueTicket_1, field 4, byte 16: expected \"interposer\", found \"tray\"\n");
    EXPECT_NE(filtered.view->find("  cover      0,0,print-some,interposer\n"), std::string::npos)
        << "the text is shown all the same";
}

TEST_F(NpifFilter, SaysInASentenceWhatCannotBeDone) {
    EXPECT_EQ(filter_.run({"1", "user", "title", "1"}).err,
              "ERROR: expected job, user, title, copies, options and at most one file\n");
    const Filtered missing = filter_.run({"1", "user", "title", "1", "", filter_.file("nowhere")});
    EXPECT_EQ(missing.exit, 1);
    EXPECT_EQ(missing.err, "ERROR: the document cannot be copied\n");
    filter_.log_to(filter_.file("no/such/folder"));
    const Filtered unwritten = filter_.filter("");
    EXPECT_EQ(unwritten.exit, 1);
    EXPECT_EQ(unwritten.err, "ERROR: " + filter_.file("no/such/folder") + ": cannot be written\n");
    EXPECT_EQ(unwritten.out, "");
}

} // namespace
} // namespace npif::testing
