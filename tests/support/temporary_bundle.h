// A bundle directory that lives as long as its object, and an environment variable set for as long.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

namespace specialpages::test {

class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "special-pages-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary directory");
        }
        path_ = name;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

class EnvironmentVariable {
  public:
    EnvironmentVariable(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) {
            before_ = before;
        }
        ::setenv(name, value.c_str(), 1);
    }
    ~EnvironmentVariable() {
        if (before_) {
            ::setenv(name_, before_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    const char* name_;
    std::optional<std::string> before_;
};

/// A file with its folders.
inline void write_file(const std::filesystem::path& path, const std::string& contents) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
}

/// Makes a bundle directory with that identifier and nothing else in it.
inline void write_bundle(const std::filesystem::path& directory, const std::string& identifier) {
    write_file(directory / "Info.plist",
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
               "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" +
                   identifier + "</string></dict></plist>\n");
}

} // namespace specialpages::test
