#include "host/queue_ppd.h"

#include "platform/foundation/atomic_file.h"

#include <cups/cups.h>
#include <cups/ppd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>

namespace specialpages::host {

namespace {

namespace fs = std::filesystem;

/// A file that libcups made for us, removed at the end.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

/// The text as part of a file name: letters, digits, "-" and "." stay, every other byte is "_" and its value
/// in hexadecimal.
std::string file_name_of(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string name;
    for (const char c : text) {
        const bool stays = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                           c == '-' || (c == '.' && !name.empty());
        if (stays) {
            name += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            name += {'_', kDigits[byte / 16U], kDigits[byte % 16U]};
        }
    }
    return name;
}

time_t modified(const fs::path& file) {
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 ? status.st_mtime : 0;
}

void set_modified(const fs::path& file, time_t time) {
    const std::array<timespec, 2> times{timespec{time, 0}, timespec{time, 0}};
    ::utimensat(AT_FDCWD, file.c_str(), times.data(), 0);
}

/// The PPD of the cache; none when it is not there or has been damaged.
std::optional<PpdFile> read_cache(const fs::path& file, const std::string& name) {
    const auto bytes = platform::read_file(file);
    if (!bytes) {
        return std::nullopt;
    }
    try {
        return PpdFile::parse(*bytes, name);
    } catch (const HostError&) {
        return std::nullopt;
    }
}

HostError refused(const PrintServer& server, const std::string& queue, http_status_t status) {
    switch (status) {
    case HTTP_STATUS_UNAUTHORIZED:
    case HTTP_STATUS_CUPS_AUTHORIZATION_CANCELED:
        return {ErrorCode::printer, queue,
                "the print server asks for a password, which is not supported here"};
    case HTTP_STATUS_FORBIDDEN:
        return {ErrorCode::printer, queue, "the print server does not allow you to read its PPD"};
    default:
        return server.refusal(queue, "when it was asked for the PPD");
    }
}

} // namespace

fs::path ppd_cache_directory() {
    return platform::cache_directory() / "ppd";
}

fs::path cached_ppd(const std::string& queue) {
    const std::string server = std::string(cupsServer()) + ":" + std::to_string(ippPort());
    return ppd_cache_directory() / (file_name_of(server) + "__" + file_name_of(queue) + ".ppd");
}

PpdFile queue_ppd(const std::string& queue, Interrupted interrupted) {
    PrintServer server(std::move(interrupted));
    const std::string name = "the PPD of " + queue;
    const fs::path cache = cached_ppd(queue);
    std::optional<PpdFile> known = read_cache(cache, name);
    time_t time = known ? modified(cache) : 0;
    std::array<char, 1024> buffer{}; // the least that libcups takes for a name
    const http_status_t status =
        cupsGetPPD3(server.http(), queue.c_str(), &time, buffer.data(), buffer.size());
    const TemporaryFile file(buffer.data());
    if (status == HTTP_STATUS_NOT_MODIFIED && known) {
        return std::move(*known);
    }
    if (status == HTTP_STATUS_NOT_FOUND) {
        throw QueueWithoutPpd(ErrorCode::printer, queue,
                              "the print server has no such queue, or no PPD of it");
    }
    if (status != HTTP_STATUS_OK) {
        throw refused(server, queue, status);
    }
    std::string error;
    const auto bytes = platform::read_file(file.path(), &error);
    if (!bytes) {
        throw HostError(ErrorCode::other, file.path(), "cannot be read: " + error);
    }
    PpdFile ppd = PpdFile::parse(*bytes, name);
    if (platform::write_file_atomically(cache, *bytes).empty()) {
        // A second less: what the server gets within the second of this answer is asked for again.
        set_modified(cache, time - 1);
    }
    return ppd;
}

} // namespace specialpages::host
