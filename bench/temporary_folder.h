// A folder of a benchmark's own, removed at the end, and what a benchmark of the pane needs of it: a place
// for the pane's registration of its help book that is nobody's real configuration.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace specialpages::bench {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "special-pages-bench-XXXXXX").string();
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

    /// Lets this process and those that it starts keep their configuration here.
    void becomeConfigurationFolder() const { setenv("XDG_CONFIG_HOME", path_.c_str(), 1); }

  private:
    std::filesystem::path path_;
};

} // namespace specialpages::bench
