// Jobs through a real print server.
#include "host/cups_job.h"
#include "testing/PrivateCupsd.h"

#include <gtest/gtest.h>

#include <istream>
#include <netinet/in.h>
#include <sstream>
#include <streambuf>
#include <sys/mount.h>

namespace specialpages::host {
namespace {

using test::pdf;
using test::PrivateCupsd;
using test::shell;
using testing::error_of;

/// A document that is made block by block: something can happen between two of them.
class BlockStream : public std::streambuf {
  public:
    /// `block` answers the next block; an empty one is the end.
    explicit BlockStream(std::function<std::string()> block) : block_(std::move(block)) {}

  protected:
    int_type underflow() override {
        current_ = block_();
        setg(current_.data(), current_.data(), current_.data() + current_.size());
        return current_.empty() ? traits_type::eof() : traits_type::to_int_type(current_[0]);
    }

  private:
    std::function<std::string()> block_;
    std::string current_;
};

class CupsJobs : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it"; }
    static CupsJob submit(const std::string& bytes = pdf("one page"), const JobOptions& options = {},
                          const Interrupted& interrupted = {}) {
        std::istringstream in(bytes);
        return CupsJob::submit("prod", options, {in, "handbook.pdf"}, interrupted);
    }
    static HostError refusal(const std::string& queue = "prod") {
        return error_of([&] {
            std::istringstream in(pdf("one page"));
            CupsJob::submit(queue, {}, {in, "handbook.pdf"});
        });
    }
};

TEST_F(CupsJobs, TheDocumentAndItsOptionsArrive) {
    const PrivateCupsd server;
    std::istringstream in(pdf(std::string(200000, 'x')));
    std::vector<std::uintmax_t> sent;
    CupsJob job =
        CupsJob::submit("prod", {{"com.norvalen.nb.rtz.printsettings.A", "/49/44"}, {"Punch", "2Hole"}},
                        {in, "hand \"book\r.pdf"}, {}, [&](std::uintmax_t bytes) { sent.push_back(bytes); });
    EXPECT_EQ(job.number(), 1);
    EXPECT_EQ(job.name(), "prod-1");
    std::vector<JobStatus> seen;
    EXPECT_EQ(job.wait([&](const JobStatus& status) { seen.push_back(status); }).state, JobState::completed);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back().state, JobState::completed);
    EXPECT_EQ(job.status().state, JobState::completed);
    EXPECT_EQ(server.written("job-1"), in.str());
    EXPECT_EQ(server.written("job-1.title"), "hand \"book?.pdf");
    const auto options = server.options(1);
    EXPECT_EQ(options.at("com.norvalen.nb.rtz.printsettings.A"), "/49/44");
    EXPECT_EQ(options.at("Punch"), "2Hole");
    EXPECT_EQ(sent, (std::vector<std::uintmax_t>{0, 65536, 131072, 196608, in.str().size()}));
}

TEST_F(CupsJobs, AnEmptyDocumentIsRefusedByTheServerAndLeavesNoJob) {
    const PrivateCupsd server;
    const HostError error = error_of([] { submit(""); });
    EXPECT_EQ(error.place(), "prod-1");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_EQ(shell("lpstat -o").out, "");
}

TEST_F(CupsJobs, AQueueThatIsMissingIsNamed) {
    const PrivateCupsd server;
    const HostError error = refusal("nowhere");
    EXPECT_STREQ(error.what(), "nowhere: the print server has no such queue");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_STREQ(refusal("").what(), "the print server has no such queue");
    EXPECT_STREQ(refusal("a b/../prod").what(), "a b/../prod: the print server has no such queue");
}

TEST_F(CupsJobs, WithoutAServerTheSocketIsNamed) {
    PrivateCupsd server;
    server.stop(SIGTERM);
    const HostError error = refusal();
    EXPECT_EQ(error.what(), server.socket() + ": no print server answers here");
    EXPECT_EQ(exit_code(error.code()), 4);
}

TEST_F(CupsJobs, AStoppedQueueIsRefusedBeforeAnythingIsSent) {
    const PrivateCupsd server;
    ASSERT_EQ(shell("cupsdisable prod").exit, 0);
    const HostError error = refusal();
    EXPECT_STREQ(error.what(), "prod: the queue is stopped; a job would wait in it");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(CupsJobs, AQueueThatTakesNoJobsIsRefusedBeforeAnythingIsSent) {
    const PrivateCupsd server;
    ASSERT_EQ(shell("cupsreject prod").exit, 0);
    EXPECT_STREQ(refusal().what(), "prod: the queue takes no jobs just now");
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(CupsJobs, AQueueThatNeedsAPasswordIsRefusedBeforeAnythingIsSent) {
    const PrivateCupsd server({.queueLines = "AuthInfoRequired username,password"});
    EXPECT_STREQ(refusal().what(), "prod: the queue asks for a password, which is not supported here");
    EXPECT_EQ(server.jobs(), 0);
}

/// Rules by which somebody else may print, and nobody who asks here.
std::string strict_rules() {
    return "DefaultAuthType Basic\n<Policy strict>\n<Limit Create-Job Print-Job Send-Document>\n"
           "AuthType Basic\nRequire user somebody-else\nOrder deny,allow\n</Limit>\n"
           "<Limit All>\nAllow all\n</Limit>\n</Policy>\nDefaultPolicy strict\n";
}

/// A port of this machine that nobody listens at.
int free_port() {
    const int descriptor = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof(address);
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), length), 0);
    ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length);
    close(descriptor);
    return ntohs(address.sin_port);
}

TEST_F(CupsJobs, AServerThatWantsAPasswordIsRefusedAndNobodyIsAsked) {
    // Over the network: at a socket of this machine the system itself tells who asks.
    const std::string port = std::to_string(free_port());
    const PrivateCupsd server({.serverLines = "Listen 127.0.0.1:" + port + "\n" + strict_rules()});
    cupsSetServer(("127.0.0.1:" + port + "/version=2.0").c_str());
    const HostError error = refusal();
    cupsSetServer(server.socket().c_str());
    EXPECT_STREQ(error.what(), "prod: the print server asks for a password, which is not supported here");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(CupsJobs, AServerThatKnowsTheUserAndDoesNotLetThemPrintIsToldFromOneThatAsks) {
    const PrivateCupsd server({.serverLines = strict_rules()});
    const HostError error = refusal();
    EXPECT_STREQ(error.what(), "prod: the print server does not allow you to print here");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(CupsJobs, AFilterThatFailsStopsTheJobWithItsReason) {
    const PrivateCupsd server;
    server.failFilter();
    const JobStatus status = submit().wait();
    EXPECT_EQ(status.state, JobState::stopped);
    // The filter's own words, unless the server has put its own in their place already.
    EXPECT_TRUE(status.message == "no paper will do" || status.message == "Filter failed") << status.message;
    EXPECT_FALSE(status.waits_for_queue());
    EXPECT_EQ(server.written("job-1"), "") << "nothing of it is printed";
}

TEST_F(CupsJobs, ACanceledJobIsGone) {
    const PrivateCupsd server;
    server.blockFilter();
    CupsJob job = submit();
    ASSERT_TRUE(server.waitFor("job-1.options"));
    job.cancel();
    EXPECT_EQ(job.wait().state, JobState::canceled);
    job.cancel(); // twice changes nothing
    EXPECT_EQ(job.status().state, JobState::canceled);
    server.releaseFilter();
    EXPECT_EQ(submit().wait().state, JobState::completed) << "the queue goes on";
}

TEST_F(CupsJobs, AJobThatHasEndedCannotBeCanceledAnyMore) {
    const PrivateCupsd server;
    CupsJob job = submit();
    job.wait();
    job.cancel();
    EXPECT_EQ(job.status().state, JobState::completed);
}

TEST_F(CupsJobs, WaitingEndsWhenItIsInterrupted) {
    const PrivateCupsd server;
    server.blockFilter();
    bool interrupted = false;
    CupsJob job = submit(pdf("one page"), {}, [&] { return interrupted; });
    EXPECT_THROW(job.wait([&](const JobStatus&) { interrupted = true; }), PrintInterrupted);
    job.cancel();
    interrupted = false;
    EXPECT_EQ(job.wait().state, JobState::canceled);
}

TEST_F(CupsJobs, SendingEndsWhenItIsInterruptedAndNoHalfIsPrinted) {
    const PrivateCupsd server;
    bool interrupted = false;
    int blocks = 0;
    BlockStream blockwise([&] {
        interrupted = ++blocks == 3;
        return pdf(std::string(70000, 'x'));
    });
    std::istream in(&blockwise);
    EXPECT_THROW(CupsJob::submit("prod", {}, {in, "endless.pdf"}, [&] { return interrupted; }),
                 PrintInterrupted);
    EXPECT_EQ(shell("lpstat -o").out, "") << "no job is left";
    EXPECT_FALSE(server.has("job-1.options"));
}

TEST_F(CupsJobs, InterruptedBeforeItBeginsItSendsNothing) {
    const PrivateCupsd server;
    EXPECT_THROW(submit(pdf("x"), {}, [] { return true; }), PrintInterrupted);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(CupsJobs, ADocumentThatCannotBeReadToItsEndIsNotPrinted) {
    const PrivateCupsd server;
    int blocks = 0;
    BlockStream failing([&]() -> std::string {
        if (++blocks == 3) {
            throw std::runtime_error("the disk is gone");
        }
        return pdf(std::string(70000, 'x'));
    });
    std::istream in(&failing);
    const HostError error = error_of([&] { CupsJob::submit("prod", {}, {in, "torn.pdf"}); });
    EXPECT_STREQ(error.what(), "torn.pdf: the document cannot be read to its end");
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_EQ(shell("lpstat -o").out, "");
    EXPECT_FALSE(server.has("job-1.options"));
}

TEST_F(CupsJobs, AHeldJobEndsTheWaiting) {
    const PrivateCupsd server;
    CupsJob job = submit(pdf("later"), {{"job-hold-until", "indefinite"}});
    const JobStatus status = job.wait();
    EXPECT_EQ(status.state, JobState::held);
    EXPECT_FALSE(status.ended());
    ASSERT_EQ(shell("lp -i prod-1 -H resume").exit, 0);
    EXPECT_EQ(job.wait().state, JobState::completed);
}

TEST_F(CupsJobs, AQueueThatIsStoppedMeanwhileKeepsTheJob) {
    const PrivateCupsd server;
    server.blockFilter();
    CupsJob job = submit();
    ASSERT_TRUE(server.waitFor("job-1.options"));
    ASSERT_EQ(shell("cupsdisable prod").exit, 0);
    const JobStatus status = job.wait();
    EXPECT_TRUE(status.waits_for_queue()) << job_state_name(status.state) << " " << status.reasons;
    server.releaseFilter();
    ASSERT_EQ(shell("cupsenable prod").exit, 0);
    EXPECT_EQ(job.wait().state, JobState::completed);
    EXPECT_EQ(server.written("job-1"), pdf("one page"));
}

TEST_F(CupsJobs, AServerWithoutHistoryForgetsTheJob) {
    const PrivateCupsd server({.serverLines = "PreserveJobHistory No\nPreserveJobFiles No"});
    CupsJob job = submit();
    EXPECT_EQ(job.wait().state, JobState::forgotten);
    EXPECT_EQ(server.written("job-1"), pdf("one page"));
}

TEST_F(CupsJobs, AServerKilledWhileTheDocumentIsSentLosesNothing) {
    PrivateCupsd server;
    int blocks = 0;
    BlockStream killing([&] {
        if (++blocks == 3) {
            server.stop(SIGKILL);
        }
        return pdf(std::string(100000, 'x'));
    });
    std::istream in(&killing);
    const HostError error = error_of([&] { CupsJob::submit("prod", {}, {in, "handbook.pdf"}); });
    EXPECT_STREQ(error.what(), "prod-1: the print server went away while the document was sent");
    EXPECT_EQ(exit_code(error.code()), 4);
    server.start();
    EXPECT_EQ(submit().wait().state, JobState::completed) << "sent again, it prints";
    EXPECT_FALSE(server.has("job-1.options") && server.written("job-1").size() > pdf("one page").size())
        << "no half of the first is printed";
}

TEST_F(CupsJobs, AServerKilledWhileItPrintsFinishesTheJobWhenItIsBack) {
    PrivateCupsd server;
    server.blockFilter();
    CupsJob job = submit();
    ASSERT_TRUE(server.waitFor("job-1.options"));
    server.stop(SIGKILL);
    const HostError error = error_of([&] { job.wait(); });
    EXPECT_STREQ(error.what(), "prod-1: the print server went away while the job was printed");
    EXPECT_EQ(exit_code(error.code()), 4);
    server.releaseFilter();
    server.start();
    EXPECT_EQ(job.wait().state, JobState::completed) << "the same object finds the server again";
    EXPECT_EQ(server.written("job-1"), pdf("one page"));
}

/// A disk of its own for the spool while it lives, where that is allowed.
class SmallDisk {
  public:
    explicit SmallDisk(const std::filesystem::path& folder) : folder_(folder) {
        std::filesystem::create_directories(folder);
        mounted_ = ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=256k") == 0;
    }
    ~SmallDisk() {
        if (mounted_) {
            ::umount2(folder_.c_str(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool mounted() const { return mounted_; }

  private:
    std::filesystem::path folder_;
    bool mounted_ = false;
};

TEST_F(CupsJobs, AFullSpoolIsToldAndNoHalfIsPrinted) {
    PrivateCupsd server;
    server.stop(SIGTERM);
    const SmallDisk disk(server.dir() / "spool");
    if (!disk.mounted()) {
        server.setLongestFile(256 * 1024); // who may not mount has a quota of as much
    }
    server.start();
    const HostError error = error_of([&] { submit(pdf(std::string(3000000, 'x'))); });
    EXPECT_STREQ(error.what(), "prod-1: the print server took no more of the document; its disk may be full");
    EXPECT_EQ(exit_code(error.code()), 4);
    EXPECT_FALSE(server.has("job-1.options"));
    EXPECT_EQ(shell("lpstat -o").out, "");
    EXPECT_EQ(submit().wait().state, JobState::completed) << "a document that fits goes on";
}

TEST_F(CupsJobs, DefaultsThatTheUserKeepsOfTheQueueGoAlong) {
    const PrivateCupsd server;
    // In another process: libcups remembers the home folder of the first test.
    const std::string program = paths::binary_dir() + "/bin/special-pages";
    std::filesystem::create_directories(server.folder() / ".cups");
    std::ofstream(server.folder() / ".cups/lpoptions")
        << "Default prod Punch=2Hole sides=two-sided-long-edge com.norvalen.nb.rtz.printsettings.X=1\n";
    std::ofstream(server.folder() / "doc.pdf") << pdf("x");
    const auto ran = shell(program + " submit --printer prod --option Punch=None " +
                           (server.folder() / "doc.pdf").string());
    EXPECT_EQ(ran.exit, 0) << ran.out;
    const auto options = server.options(1);
    EXPECT_EQ(options.at("sides"), "two-sided-long-edge");
    EXPECT_EQ(options.at("Punch"), "None") << "what is said now stands before what is kept";
    EXPECT_FALSE(options.contains("com.norvalen.nb.rtz.printsettings.X")) << "special pages are no default";
    EXPECT_FALSE(options.contains("printer-info"));
    EXPECT_FALSE(options.contains("device-uri"));
}

TEST_F(CupsJobs, EveryStateHasAName) {
    EXPECT_STREQ(job_state_name(JobState::pending), "pending");
    EXPECT_STREQ(job_state_name(JobState::held), "held");
    EXPECT_STREQ(job_state_name(JobState::processing), "processing");
    EXPECT_STREQ(job_state_name(JobState::stopped), "stopped");
    EXPECT_STREQ(job_state_name(JobState::canceled), "canceled");
    EXPECT_STREQ(job_state_name(JobState::aborted), "aborted");
    EXPECT_STREQ(job_state_name(JobState::completed), "completed");
    EXPECT_STREQ(job_state_name(JobState::forgotten), "forgotten");
}

} // namespace
} // namespace specialpages::host
