// A print server of the test's own (scripts/private-cupsd), with queues on the sample printer, a filter that
// writes down its options, and a back-end that writes the documents into files. libcups in this process, and
// programs that the test starts, talk to it.
#pragma once

#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace specialpages::test {

/// Whether there is a print server to start: one of the packages that scripts/setup installs for the tests.
inline bool has_cupsd() {
    return std::filesystem::exists("/usr/sbin/cupsd");
}

/// The accounts that a server is to be tried as: this one, and an ordinary one where this is the
/// administrator's.
inline std::vector<std::string> accounts() {
    return geteuid() == 0 ? std::vector<std::string>{"root", "nobody"} : std::vector<std::string>{"own"};
}

/// Asks until it is so, for a minute at most: a busy machine is slow, and one that is not answers at once.
inline bool eventually(const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

struct Shell {
    int exit = -1;
    std::string out; ///< both streams
};
inline Shell shell(const std::string& command) {
    Shell ran;
    FILE* const pipe = popen(("exec 2>&1; " + command).c_str(), "r");
    if (pipe == nullptr) {
        return ran;
    }
    std::array<char, 4096> block{};
    for (std::size_t got = 0; (got = fread(block.data(), 1, block.size(), pipe)) > 0;) {
        ran.out.append(block.data(), got);
    }
    const int status = pclose(pipe);
    ran.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ran;
}

class PrivateCupsd {
  public:
    struct Setup {
        std::string account = {};     ///< as accounts() names them; empty: this one
        std::string queueLines = {};  ///< for each queue of printers.conf
        std::string serverLines = {}; ///< for cupsd.conf
        std::string filter = paths::source_dir() + "/tests/testing/options-filter";
        std::optional<rlim_t> longestFile = {}; ///< in bytes, for every file that the server writes
    };

    PrivateCupsd() : PrivateCupsd(Setup{}) {}
    explicit PrivateCupsd(Setup setup) : setup_(std::move(setup)) {
        namespace fs = std::filesystem;
        fs::permissions(folder_.path(), static_cast<fs::perms>(0711)); // the filters run as somebody else
        fs::create_directories(dir());
        if (!setup_.queueLines.empty()) {
            folder_.write("cups/queues.extra", setup_.queueLines + "\n");
        }
        if (!setup_.serverLines.empty()) {
            folder_.write("cups/cupsd.extra", setup_.serverLines + "\n");
        }
        start();
        cupsSetServer(socket().c_str());
        ippSetPort(kIppPort); // an earlier test may have named another
    }
    ~PrivateCupsd() {
        std::filesystem::remove(out() / "block");
        stop(SIGTERM);
        if (::testing::Test::HasFailure()) {
            std::fputs(shell("grep -v '^[dD] \\[.*Client' " + (dir() / "log/error").string() + " | tail -40")
                           .out.c_str(),
                       stderr);
        }
    }
    PrivateCupsd(const PrivateCupsd&) = delete;
    PrivateCupsd& operator=(const PrivateCupsd&) = delete;

    /// Starts it anew on the spool that is there, and waits until it answers.
    void start() {
        const std::string script = paths::source_dir() + "/scripts/private-cupsd";
        const std::string ppd = "prod=" + paths::source_dir() + "/examples/ppd/production.ppd";
        const std::string user = setup_.account == "nobody" ? "nobody" : "";
        std::filesystem::remove(socket());
        process_ = fork();
        if (process_ == 0) {
            if (!user.empty()) {
                setenv("PRIVATE_CUPSD_USER", user.c_str(), 1);
            }
            if (setup_.longestFile) {
                const rlimit limit{*setup_.longestFile, *setup_.longestFile};
                setrlimit(RLIMIT_FSIZE, &limit);
                std::signal(SIGXFSZ, SIG_IGN); // the write fails, as on a full disk
            }
            execl(script.c_str(), script.c_str(), dir().c_str(), setup_.filter.c_str(), ppd.c_str(), nullptr);
            _exit(127);
        }
        if (!eventually([&] { return answers() || !runs(); }) || !answers()) {
            throw std::runtime_error("the private cupsd does not start: " + dir().string());
        }
    }
    /// Ends it and waits until it is gone.
    void stop(int signal) {
        if (process_ <= 0) {
            return;
        }
        ::kill(process_, signal);
        if (!eventually([&] { return !runs(); })) {
            ::kill(process_, SIGKILL);
            eventually([&] { return !runs(); });
        }
    }
    void setLongestFile(std::optional<rlim_t> bytes) { setup_.longestFile = bytes; }

    std::filesystem::path dir() const { return folder_.path() / "cups"; }
    std::filesystem::path out() const { return dir() / "out"; }
    std::string socket() const { return dir() / "socket"; }
    const std::filesystem::path& folder() const { return folder_.path(); }

    /// The filter waits until the file is gone.
    void blockFilter() const { folder_.write("cups/out/block", ""); }
    void releaseFilter() const { std::filesystem::remove(out() / "block"); }
    void failFilter() const { folder_.write("cups/out/fail", ""); }

    std::string written(const std::string& name) const { return host::testing::read_bytes(out() / name); }
    bool has(const std::string& name) const { return std::filesystem::exists(out() / name); }
    bool waitFor(const std::string& name) const {
        return eventually([&] { return has(name); });
    }
    /// The options that the filter was started with, as a filter reads them.
    std::map<std::string, std::string> options(int job) const {
        const std::string argument = written("job-" + std::to_string(job) + ".options");
        cups_option_t* list = nullptr;
        const int count = cupsParseOptions(argument.c_str(), 0, &list);
        std::map<std::string, std::string> all;
        for (int i = 0; i < count; ++i) {
            all.emplace(list[i].name, list[i].value);
        }
        cupsFreeOptions(count, list);
        return all;
    }
    /// How many jobs the server has or had.
    int jobs() const { return countJobs(CUPS_WHICHJOBS_ALL); }
    /// Waits until every job that the server took has ended.
    bool waitForAll() const {
        return eventually([&] { return countJobs(CUPS_WHICHJOBS_ACTIVE) == 0; });
    }

  private:
    static constexpr int kIppPort = 631;

    static int countJobs(int which) {
        cups_job_t* list = nullptr;
        const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &list, nullptr, 0, which);
        cupsFreeJobs(count, list);
        return count;
    }
    bool runs() {
        if (process_ > 0 && waitpid(process_, nullptr, WNOHANG) != 0) {
            process_ = -1;
        }
        return process_ > 0;
    }
    bool answers() const {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socket().copy(address.sun_path, sizeof(address.sun_path) - 1);
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool open =
            connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
        close(descriptor);
        return open;
    }

    Setup setup_;
    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable server_{"CUPS_SERVER", socket().c_str()};
    host::testing::ScopedVariable root_{"CUPS_SERVERROOT", (folder_.path() / "no-server").c_str()};
    host::testing::ScopedVariable home_{"HOME", folder_.path().c_str()};
    host::testing::ScopedVariable cache_{"XDG_CACHE_HOME", (folder_.path() / "cache").c_str()};
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", (folder_.path() / "config").c_str()};
    pid_t process_ = -1;
};

/// A document that holds this text.
inline std::string pdf(const std::string& text) {
    return "%PDF-1.4\n" + text + "\n%%EOF\n";
}

} // namespace specialpages::test
