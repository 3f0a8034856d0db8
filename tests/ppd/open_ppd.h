// Opens PPDs through libcups as a host does, and marks choices in them.
#pragma once

#include <cups/ppd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace specialpages::test {

// The PPD interface of libcups is marked deprecated.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

struct ClosePpd {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenPpd = std::unique_ptr<ppd_file_t, ClosePpd>;

/// Throws when libcups refuses the file, with its status and line.
inline OpenPpd open_ppd(const std::filesystem::path& path) {
    OpenPpd opened(ppdOpenFile(path.c_str()));
    if (!opened) {
        int line = 0;
        const ppd_status_t status = ppdLastError(&line);
        throw std::runtime_error(path.string() + ":" + std::to_string(line) + ": " + ppdErrorString(status));
    }
    return opened;
}

/// Marks a choice and answers how many constraints are broken then, as libcups counts them.
inline int mark_option(ppd_file_t* ppd, const char* option, const char* choice) {
    return ppdMarkOption(ppd, option, choice);
}

inline void mark_defaults(ppd_file_t* ppd) {
    ppdMarkDefaults(ppd);
}

/// Whether libcups found the option to take part in a broken constraint when a choice was last marked.
inline bool is_flagged(ppd_file_t* ppd, const char* option) {
    const ppd_option_t* found = ppdFindOption(ppd, option);
    if (found == nullptr) {
        throw std::runtime_error(std::string("no option ") + option);
    }
    return found->conflicted != 0;
}

#pragma GCC diagnostic pop

/// A folder of its own, removed with what is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "specialpages-ppd-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    /// Writes a file and answers where it lies.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const {
        std::ofstream file(path_ / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};

} // namespace specialpages::test
