// PPDs from a real print server, and their copies.
#include "host/queue_ppd.h"
#include "testing/PrivateCupsd.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace specialpages::host {
namespace {

using test::PrivateCupsd;
using test::shell;
using testing::error_of;
using testing::read_bytes;
using testing::ScopedVariable;

class QueuePpds : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it"; }
    /// How often the server was asked for a PPD, by its answer (200 OK, 304 not modified).
    static std::size_t asked(const PrivateCupsd& server, const std::string& answer) {
        const std::string log = read_bytes(server.dir() / "log/access");
        const std::string line = "\"GET /printers/prod.ppd HTTP/1.1\" " + answer;
        std::size_t count = 0;
        for (std::size_t at = log.find(line); at != std::string::npos; at = log.find(line, at + 1)) {
            ++count;
        }
        return count;
    }
};

TEST_F(QueuePpds, ComeFromTheServerAndAreKept) {
    const PrivateCupsd server;
    const PpdFile ppd = queue_ppd("prod");
    EXPECT_EQ(ppd.model_name(), "NV Production 950");
    EXPECT_EQ(ppd.name(), "the PPD of prod");
    EXPECT_TRUE(ppd.page_size()) << "defaults are marked";
    EXPECT_EQ(read_bytes(cached_ppd("prod")),
              read_bytes(paths::source_dir() + "/examples/ppd/production.ppd"));
}

TEST_F(QueuePpds, AreReadFromTheCopyWhileTheServersIsNoYounger) {
    const PrivateCupsd server({.serverLines = "AccessLogLevel all"});
    // The server's is from long ago, and so is none that comes within the second of the answer.
    const timespec past{1000000000, 0};
    const std::array<timespec, 2> times{past, past};
    ASSERT_EQ(::utimensat(AT_FDCWD, (server.dir() / "etc/ppd/prod.ppd").c_str(), times.data(), 0), 0);
    queue_ppd("prod");
    EXPECT_EQ(queue_ppd("prod").model_name(), "NV Production 950");
    EXPECT_EQ(queue_ppd("prod").model_name(), "NV Production 950");
    EXPECT_EQ(asked(server, "200"), 1U);
    EXPECT_EQ(asked(server, "304"), 2U);
}

TEST_F(QueuePpds, AreFetchedAnewWhenTheServersIsYounger) {
    const PrivateCupsd server;
    queue_ppd("prod");
    ASSERT_EQ(shell("lpadmin -p prod -P " + paths::source_dir() + "/examples/ppd/desk.ppd").exit, 0);
    const PpdFile desk = queue_ppd("prod");
    EXPECT_EQ(desk.model_name(), PpdFile(paths::source_dir() + "/examples/ppd/desk.ppd").model_name());
    EXPECT_NE(desk.model_name(), "NV Production 950");
}

TEST_F(QueuePpds, ACopyThatIsNoPpdIsReplaced) {
    const PrivateCupsd server;
    std::filesystem::create_directories(ppd_cache_directory());
    std::ofstream(cached_ppd("prod")) << "no PPD";
    EXPECT_EQ(queue_ppd("prod").model_name(), "NV Production 950");
    EXPECT_GT(read_bytes(cached_ppd("prod")).size(), 10000U);
}

TEST_F(QueuePpds, WorkWithoutACacheThatCanBeWritten) {
    const PrivateCupsd server;
    const ScopedVariable cache("XDG_CACHE_HOME", "/proc/nowhere");
    EXPECT_EQ(queue_ppd("prod").model_name(), "NV Production 950");
}

TEST_F(QueuePpds, OfAQueueThatIsMissingAreRefused) {
    const PrivateCupsd server;
    const HostError error = error_of([] { queue_ppd("nowhere"); });
    EXPECT_STREQ(error.what(), "nowhere: the print server has no such queue, or no PPD of it");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_FALSE(std::filesystem::exists(cached_ppd("nowhere")));
}

TEST_F(QueuePpds, AreNotTakenFromTheCacheWhenTheServerIsGone) {
    PrivateCupsd server;
    queue_ppd("prod");
    server.stop(SIGTERM);
    const HostError error = error_of([] { queue_ppd("prod"); });
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_EQ(error.detail(), "no print server answers here");
}

TEST_F(QueuePpds, LeaveNoTemporaryFile) {
    const PrivateCupsd server;
    const auto temporary = server.folder() / "tmp";
    std::filesystem::create_directories(temporary);
    const ScopedVariable folder("TMPDIR", temporary.c_str());
    queue_ppd("prod");
    queue_ppd("prod");
    error_of([] { queue_ppd("nowhere"); });
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
}

TEST(QueuePpdCache, HasOnePlaceForEachServerAndQueue) {
    const ScopedVariable cache("XDG_CACHE_HOME", "/cache");
    cupsSetServer("print.example:8631");
    EXPECT_EQ(cached_ppd("prod"), "/cache/special-pages/ppd/print.example_3a8631__prod.ppd");
    EXPECT_EQ(cached_ppd("../a b"), "/cache/special-pages/ppd/print.example_3a8631___2e._2fa_20b.ppd");
    cupsSetServer(nullptr);
}

TEST(QueuePpdCache, OptionsOfAJobMarkThePpdAsTheServerWill) {
    PpdFile ppd(paths::source_dir() + "/examples/ppd/production.ppd");
    ppd.mark_job_options({{"media", "A3"}, {"nonsense", "x"}, {"PageSize2", "A5"}});
    EXPECT_EQ(ppd.page_size().value_or(SheetSize{}).width, 842);
    ppd.mark_job_options({{"PageSize", "A5"}});
    EXPECT_EQ(ppd.page_size().value_or(SheetSize{}).width, 420);
}

} // namespace
} // namespace specialpages::host
