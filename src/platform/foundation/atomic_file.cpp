#include "platform/foundation/atomic_file.h"

#include "platform/foundation/numbers.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace specialpages::platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kPermissionBits = 07777;
constexpr mode_t kNewFileMode = 0666; // less the umask

/// An open file, closed at the end.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { close(); }

    int number() const { return number_; }
    bool is_open() const { return number_ >= 0; }
    /// Some file systems report a failed write only here.
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

/// "<what> <path>: <reason>", the reason in English whatever the locale is.
std::string failure(const char* what, const fs::path& path, int code) {
    const char* reason = strerrordesc_np(code);
    return std::string(what) + " " + path.string() + ": " + (reason != nullptr ? reason : "unknown error");
}

/// A file of its own name in `folder`. Short, so that it fits wherever the target's own name fits.
std::pair<Descriptor, fs::path> create_temporary(const fs::path& folder) {
    static unsigned counter = 0;
    constexpr int kAttempts = 1000;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        fs::path path = folder / (".write-" + decimal_text(::getpid()) + "-" + decimal_text(counter++));
        const int number = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
        if (number >= 0 || errno != EEXIST) {
            return {Descriptor(number), std::move(path)};
        }
    }
    return {Descriptor(-1), folder};
}

bool write_all(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

/// A replaced file's permissions go to its successor before there is anything in it to read.
bool keep_permissions(int descriptor, const fs::path& target) {
    struct stat old {};
    return ::stat(target.c_str(), &old) != 0 || ::fchmod(descriptor, old.st_mode & kPermissionBits) == 0;
}

/// Writes the temporary file and puts it in the target's place; 0, or errno of the step that failed.
int fill_and_rename(Descriptor& file, const fs::path& temporary, const fs::path& target,
                    std::string_view bytes) {
    const bool done = keep_permissions(file.number(), target) && write_all(file.number(), bytes) &&
                      ::fsync(file.number()) == 0 && file.close() &&
                      ::rename(temporary.c_str(), target.c_str()) == 0;
    return done ? 0 : errno;
}

/// The file that a symbolic link stands for, so that the link stays a link; a link to nowhere is replaced.
fs::path without_links(const fs::path& path) {
    std::error_code failed;
    fs::path real = fs::canonical(path, failed);
    return failed ? path : real;
}

/// Makes the rename itself last. The new file is complete and in place by now, so that a failure here is
/// none of the caller's.
void flush_folder(const fs::path& folder) {
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (open.is_open()) {
        ::fsync(open.number());
    }
}

std::optional<std::string> read_whole(int descriptor, std::size_t max_bytes, std::string& reason) {
    constexpr std::size_t kBlock = std::size_t{64} * 1024;
    std::array<char, kBlock> block; // what is used of it, read() fills
    std::string bytes;
    for (;;) {
        const ssize_t got = ::read(descriptor, block.data(), block.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            reason = strerrordesc_np(errno);
            return std::nullopt;
        }
        bytes.append(block.data(), static_cast<std::size_t>(got));
        if (bytes.size() > max_bytes) {
            reason = "larger than " + decimal_text(static_cast<std::int64_t>(max_bytes)) + " bytes";
            return std::nullopt;
        }
        if (got == 0) {
            return bytes;
        }
    }
}

/// This program's folder in the one that the variable names, else in that one of the user's home.
fs::path user_directory(const char* variable, const char* folderOfHome) {
    // A relative folder in the variable is invalid and counts as none.
    if (const char* folder = std::getenv(variable); folder != nullptr && *folder == '/') {
        return fs::path(folder) / "special-pages";
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return fs::path(home) / folderOfHome / "special-pages";
    }
    const passwd* account = ::getpwuid(::getuid());
    return fs::path(account != nullptr ? account->pw_dir : "/") / folderOfHome / "special-pages";
}

} // namespace

std::string write_file_atomically(const fs::path& path, std::string_view bytes) {
    if (!path.has_filename()) {
        return failure("cannot write", path, EISDIR);
    }
    const fs::path target = without_links(path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed) {
        return failure("cannot make folder", folder, failed.value());
    }
    auto [file, temporary] = create_temporary(folder);
    if (!file.is_open()) {
        return failure("cannot write", path, errno);
    }
    const int code = fill_and_rename(file, temporary, target, bytes);
    if (code != 0) {
        ::unlink(temporary.c_str());
        return failure("cannot write", path, code);
    }
    flush_folder(folder);
    return {};
}

std::optional<std::string> read_file(const fs::path& path, std::string* error, std::size_t max_bytes) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string reason;
    std::optional<std::string> bytes;
    if (file.is_open()) {
        bytes = read_whole(file.number(), max_bytes, reason);
    } else {
        reason = strerrordesc_np(errno);
    }
    if (!bytes && error != nullptr) {
        *error = "cannot read " + path.string() + ": " + reason;
    }
    return bytes;
}

fs::path configuration_directory() {
    return user_directory("XDG_CONFIG_HOME", ".config");
}

fs::path cache_directory() {
    return user_directory("XDG_CACHE_HOME", ".cache");
}

fs::path state_directory() {
    return user_directory("XDG_STATE_HOME", ".local/state");
}

} // namespace specialpages::platform
