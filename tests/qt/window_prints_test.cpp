// Print in the window, through a real print server and the example filter: what the filter finds in a job is
// what the pane showed.
#include "cli/cli_fixtures.h"
#include "qt/print_fixture.h"
#include "testing/special_jobs.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace specialpages::qt::testing {
namespace {

namespace fs = std::filesystem;
using test::PrivateCupsd;
using ::testing::HasSubstr;

/// Printed as the server of both kinds of account.
class WindowPrints : public PrintProgramTest, public ::testing::WithParamInterface<std::string> {
  protected:
    void SetUp() override { ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it"; }
    PrivateCupsd::Setup filtered() const {
        return {.account = GetParam(), .filter = paths::binary_dir() + "/examples/special-pages-filter"};
    }

    /// Opens the dialog on the queue, with these settings in its pane.
    void open(const fs::path& settings) {
        program_.reset();
        out_.str("");
        err_.str("");
        PrintOptions options;
        options.document = make_pdf(folder_.path() / "handbook.pdf", 2).string();
        options.printer = "prod";
        options.settings = settings.string();
        options.out = kept().string();
        program_ = std::make_unique<PrintProgram>(options, cups_services(), out_, err_);
        dialog().show();
    }
    /// The settings that the window wrote when it printed.
    fs::path kept() const { return folder_.path() / "kept.json"; }

    static std::string shown(const fs::path& settings) {
        const auto told = cli::testing::run({"show", settings.string()});
        EXPECT_EQ(told.exit, 0) << told.err;
        return told.out;
    }
};

TEST_P(WindowPrints, TheFilterFindsTheSpecialPagesOfEveryExampleAsShowTellsThem) {
    const PrivateCupsd server(filtered());
    const fs::path examples = paths::source_dir() + "/examples/settings";
    int job = 0;
    int withPages = 0;
    for (const auto& entry : fs::directory_iterator(examples)) {
        SCOPED_TRACE(entry.path());
        fs::remove(server.out() / "filter.log");
        open(entry.path());
        withPages += shownPages().empty() ? 0 : 1;
        pressPrint();
        EXPECT_FALSE(dialog().isVisible());
        EXPECT_THAT(err_.str(), HasSubstr("the job is prod-" + std::to_string(++job) + "\n"));
        ASSERT_TRUE(server.waitForAll());
        EXPECT_EQ(server.written("filter.log"), shown(kept()));
        EXPECT_EQ(server.written("job-" + std::to_string(job)),
                  host::testing::read_bytes(folder_.path() / "handbook.pdf"));
    }
    EXPECT_GE(job, 5);
    EXPECT_GE(withPages, 3) << "examples without special pages would prove little";
}

TEST_P(WindowPrints, FiveHundredSpecialPagesArriveWithoutThePanesOwnRecords) {
    const PrivateCupsd server(filtered());
    const fs::path job = folder_.write("job.json", test::many_special_pages(250, 250));
    const auto applied = cli::testing::run({"apply", "--ppd", sample("production"), "--job", job.string(),
                                            "--out", (folder_.path() / "declared.json").string()});
    ASSERT_EQ(applied.exit, 0) << applied.err;
    open(folder_.path() / "declared.json");
    EXPECT_EQ(shownPages().size(), 500U);
    pressPrint();
    EXPECT_THAT(err_.str(), HasSubstr("the job is prod-1\n"));
    ASSERT_TRUE(server.waitForAll());
    const fs::path bare = folder_.path() / "without-records.json";
    host::write_settings_file(bare, test::without_records(kept()));
    EXPECT_EQ(server.written("filter.log"), shown(bare));
    EXPECT_EQ(host::read_settings_file(kept()).entries().size(), 1011U) << "the settings file keeps all";
}

TEST_P(WindowPrints, HostileTextsArriveUnchanged) {
    const PrivateCupsd server({.account = GetParam()});
    const fs::path file = folder_.path() / "hostile.json";
    host::write_settings_file(file, test::hostile_settings());
    open(file);
    pressPrint();
    EXPECT_EQ(err_.str(), "special-pages-print: the job is prod-1\n");
    ASSERT_TRUE(server.waitForAll());
    test::expect_options(server, 1, test::hostile_settings());
    test::expect_options(server, 1, host::read_settings_file(kept()));
}

INSTANTIATE_TEST_SUITE_P(Accounts, WindowPrints, ::testing::ValuesIn(test::accounts()),
                         [](const auto& account) { return account.param; });

} // namespace
} // namespace specialpages::qt::testing
