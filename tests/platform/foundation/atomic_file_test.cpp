#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/comma_locale.h"

#include <gtest/gtest.h>

#include <csignal>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace specialpages::platform {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::read_test_file;
using testing::ScopedEnvironment;
using testing::TemporaryDirectory;
using testing::write_test_file;

std::size_t files_in(const fs::path& folder) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder)) {
        ++count;
    }
    return count;
}

unsigned mode_of(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

TEST(AtomicFile, WritesANewFileWithNothingBesideIt) {
    const TemporaryDirectory home;
    EXPECT_EQ(write_file_atomically(home / "a", "x\0y\n"s), "");
    EXPECT_EQ(read_test_file(home / "a"), "x\0y\n"s);
    EXPECT_EQ(files_in(home.path()), 1U);
}

TEST(AtomicFile, ReplacesAnOldFileWhole) {
    const TemporaryDirectory home;
    EXPECT_EQ(write_file_atomically(home / "a", std::string(1'000'000, 'x')), "");
    EXPECT_EQ(write_file_atomically(home / "a", "short"), "");
    EXPECT_EQ(read_test_file(home / "a"), "short");
    EXPECT_EQ(write_file_atomically(home / "a", ""), "");
    EXPECT_EQ(read_test_file(home / "a"), "");
    EXPECT_EQ(files_in(home.path()), 1U);
}

TEST(AtomicFile, MakesMissingFolders) {
    const TemporaryDirectory home;
    EXPECT_EQ(write_file_atomically(home / "b/c/a", "x"), "");
    EXPECT_EQ(read_test_file(home / "b/c/a"), "x");
}

TEST(AtomicFile, WritesIntoTheWorkingDirectory) {
    const TemporaryDirectory home;
    const fs::path before = fs::current_path();
    fs::current_path(home.path());
    const std::string error = write_file_atomically("a", "x");
    fs::current_path(before);
    EXPECT_EQ(error, "");
    EXPECT_EQ(read_test_file(home / "a"), "x");
}

TEST(AtomicFile, TakesNamesOfTheGreatestLength) {
    const TemporaryDirectory home;
    const std::string name(255, 'n');
    EXPECT_EQ(write_file_atomically(home / name, "x"), "");
    EXPECT_EQ(read_test_file(home / name), "x");
}

TEST(AtomicFile, KeepsThePermissionsOfAReplacedFile) {
    const TemporaryDirectory home;
    for (const unsigned mode : {0600U, 0640U, 0666U, 0444U, 0755U}) {
        write_test_file(home / "a", "old");
        ASSERT_EQ(::chmod((home / "a").c_str(), mode), 0);
        EXPECT_EQ(write_file_atomically(home / "a", "new"), "");
        EXPECT_EQ(mode_of(home / "a"), mode);
        EXPECT_EQ(read_test_file(home / "a"), "new");
        fs::remove(home / "a");
    }
}

TEST(AtomicFile, ANewFileKeepsToTheUmask) {
    const TemporaryDirectory home;
    const mode_t before = ::umask(027);
    EXPECT_EQ(write_file_atomically(home / "a", "x"), "");
    ::umask(before);
    EXPECT_EQ(mode_of(home / "a"), 0640U);
}

TEST(AtomicFile, WritesThroughALinkAndLeavesItALink) {
    const TemporaryDirectory home;
    write_test_file(home / "real/a", "old");
    fs::create_symlink("real/a", home / "link");
    EXPECT_EQ(write_file_atomically(home / "link", "new"), "");
    EXPECT_TRUE(fs::is_symlink(home / "link"));
    EXPECT_EQ(read_test_file(home / "real/a"), "new");
}

TEST(AtomicFile, ReplacesALinkToNowhere) {
    const TemporaryDirectory home;
    fs::create_symlink("gone", home / "link");
    EXPECT_EQ(write_file_atomically(home / "link", "new"), "");
    EXPECT_FALSE(fs::is_symlink(home / "link"));
    EXPECT_EQ(read_test_file(home / "link"), "new");
}

TEST(AtomicFile, AFolderInTheWayIsAFailureWithoutLeftovers) {
    const TemporaryDirectory home;
    fs::create_directory(home / "a");
    EXPECT_EQ(write_file_atomically(home / "a", "x"),
              "cannot write " + (home / "a").string() + ": Is a directory");
    EXPECT_EQ(write_file_atomically(home / "a/", "x"),
              "cannot write " + (home / "a/").string() + ": Is a directory");
    EXPECT_NE(write_file_atomically("", "x"), "");
    EXPECT_EQ(files_in(home.path()), 1U);
    EXPECT_EQ(files_in(home / "a"), 0U);
}

TEST(AtomicFile, AFileInThePlaceOfAFolderIsAFailure) {
    const TemporaryDirectory home;
    write_test_file(home / "a", "old");
    EXPECT_EQ(write_file_atomically(home / "a/b", "x"),
              "cannot make folder " + (home / "a").string() + ": Not a directory");
    EXPECT_EQ(read_test_file(home / "a"), "old");
}

TEST(AtomicFile, AFullDiskLeavesTheOldFileAndNothingElse) {
    const TemporaryDirectory home;
    write_test_file(home / "a", "old");
    // The limit on the size of files stands in for a full disk.
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small {
        1000, before.rlim_max
    };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string error = write_file_atomically(home / "a", std::string(100'000, 'x'));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, "cannot write " + (home / "a").string() + ": File too large");
    EXPECT_EQ(read_test_file(home / "a"), "old");
    EXPECT_EQ(files_in(home.path()), 1U);
}

/// root may write everywhere, so this process goes on as an ordinary account, which owns the folder, until
/// the end.
class AsOrdinaryAccount {
  public:
    explicit AsOrdinaryAccount(const std::filesystem::path& folder) {
        if (::geteuid() == 0) {
            EXPECT_EQ(::chown(folder.c_str(), kNobody, kNobody), 0);
            EXPECT_EQ(::seteuid(kNobody), 0);
            changed_ = true;
        }
    }
    ~AsOrdinaryAccount() {
        if (changed_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
    AsOrdinaryAccount(const AsOrdinaryAccount&) = delete;
    AsOrdinaryAccount& operator=(const AsOrdinaryAccount&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;
    bool changed_ = false;
};

TEST(AtomicFile, AFolderWithoutPermissionIsAFailure) {
    const TemporaryDirectory home;
    write_test_file(home / "a", "old");
    std::string error;
    {
        const AsOrdinaryAccount account(home.path());
        ASSERT_EQ(::chmod(home.path().c_str(), 0500), 0);
        error = write_file_atomically(home / "a", "x");
        ASSERT_EQ(::chmod(home.path().c_str(), 0700), 0);
    }
    EXPECT_EQ(error, "cannot write " + (home / "a").string() + ": Permission denied");
    EXPECT_EQ(read_test_file(home / "a"), "old");
    EXPECT_EQ(files_in(home.path()), 1U);
}

TEST(ReadFile, ReadsTheWholeFile) {
    const TemporaryDirectory home;
    const std::string bytes = std::string(200'000, 'x') + "\0end"s;
    write_test_file(home / "a", bytes);
    write_test_file(home / "empty", "");
    EXPECT_EQ(read_file(home / "a"), bytes);
    EXPECT_EQ(read_file(home / "empty"), "");
}

TEST(ReadFile, RefusesAFileLargerThanTheBound) {
    const TemporaryDirectory home;
    write_test_file(home / "a", std::string(1000, 'x'));
    std::string error;
    EXPECT_EQ(read_file(home / "a", &error, 1000), std::string(1000, 'x'));
    EXPECT_EQ(error, "");
    EXPECT_EQ(read_file(home / "a", &error, 999), std::nullopt);
    EXPECT_EQ(error, "cannot read " + (home / "a").string() + ": larger than 999 bytes");
    EXPECT_EQ(read_file("/dev/zero", nullptr, 1'000'000), std::nullopt);
}

TEST(ReadFile, SaysWhyAFileCannotBeReadInAnyLocale) {
    const TemporaryDirectory home;
    const testing::CommaLocale locale;
    std::string error;
    EXPECT_EQ(read_file(home / "none", &error), std::nullopt);
    EXPECT_EQ(error, "cannot read " + (home / "none").string() + ": No such file or directory");
    EXPECT_EQ(read_file(home.path(), &error), std::nullopt);
    EXPECT_EQ(error, "cannot read " + home.path().string() + ": Is a directory");
    EXPECT_EQ(read_file(home / "none"), std::nullopt);
}

TEST(ConfigurationDirectory, FollowsTheEnvironment) {
    const ScopedEnvironment home("HOME", "/home/someone");
    {
        const ScopedEnvironment xdg("XDG_CONFIG_HOME", "/somewhere/config");
        EXPECT_EQ(configuration_directory(), "/somewhere/config/special-pages");
    }
    for (const std::optional<std::string>& invalid :
         {std::optional<std::string>(), std::optional<std::string>(""),
          std::optional<std::string>("relative/config")}) {
        const ScopedEnvironment xdg("XDG_CONFIG_HOME", invalid);
        EXPECT_EQ(configuration_directory(), "/home/someone/.config/special-pages");
    }
}

TEST(ConfigurationDirectory, IsAbsoluteWithoutAnyEnvironmentAndIsNotMade) {
    const ScopedEnvironment home("HOME", std::nullopt);
    const ScopedEnvironment xdg("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_TRUE(configuration_directory().is_absolute());
    const TemporaryDirectory folder;
    const ScopedEnvironment here("XDG_CONFIG_HOME", folder.path().string());
    EXPECT_FALSE(fs::exists(configuration_directory()));
}

TEST(CacheDirectory, FollowsTheBaseDirectories) {
    const ScopedEnvironment home("HOME", "/home/someone");
    const ScopedEnvironment configuration("XDG_CONFIG_HOME", "/somewhere/config");
    {
        const ScopedEnvironment xdg("XDG_CACHE_HOME", "/somewhere/cache");
        EXPECT_EQ(cache_directory(), "/somewhere/cache/special-pages");
    }
    const ScopedEnvironment xdg("XDG_CACHE_HOME", "relative");
    EXPECT_EQ(cache_directory(), "/home/someone/.cache/special-pages");
}

} // namespace
} // namespace specialpages::platform
