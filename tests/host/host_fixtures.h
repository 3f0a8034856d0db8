// What the tests of the host and of the command line stand on: a folder of their own, a small PPD, and the
// error that a call throws.
#pragma once

#include "host/HostError.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace specialpages::host::testing {

/// A fresh folder that ends with the object.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "special-pages-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

  private:
    std::filesystem::path path_;
};

inline std::string read_bytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// An environment variable that has another value (or none) while the object lives.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        if (const char* const before = std::getenv(name)) {
            before_ = before;
        }
        set(value);
    }
    ~ScopedVariable() { set(before_ ? before_->c_str() : nullptr); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

  private:
    void set(const char* value) const {
        if (value != nullptr) {
            setenv(name_, value, 1);
        } else {
            unsetenv(name_);
        }
    }
    const char* name_;
    std::optional<std::string> before_;
};

/// The error that the call throws; the test fails when it throws none.
template <class Call>
HostError error_of(Call&& call) {
    try {
        call();
    } catch (const HostError& error) {
        return error;
    }
    ADD_FAILURE() << "no HostError was thrown";
    return {ErrorCode::other, "", ""};
}

/// A printer with three sizes, one of them of one's own, and Duplex.
inline std::string small_ppd() {
    return "*PPD-Adobe: \"4.3\"\n"
           "*FormatVersion: \"4.3\"\n"
           "*FileVersion: \"1.0\"\n"
           "*LanguageVersion: English\n"
           "*LanguageEncoding: ISOLatin1\n"
           "*PCFileName: \"NVSMALL.PPD\"\n"
           "*Manufacturer: \"NV\"\n"
           "*Product: \"(NV Small)\"\n"
           "*PSVersion: \"(3010.000) 0\"\n"
           "*ModelName: \"NV Small\"\n"
           "*ShortNickName: \"NV Small\"\n"
           "*NickName: \"NV Small\"\n"
           "*NVXSpecialPagesSettings: \"Test01-Test01\"\n"
           "*OpenUI *PageSize/Page Size: PickOne\n"
           "*OrderDependency: 10 AnySetup *PageSize\n"
           "*DefaultPageSize: A4\n"
           "*PageSize A4/A4: \"\"\n"
           "*PageSize A3/A3: \"\"\n"
           "*CloseUI: *PageSize\n"
           "*CustomPageSize True: \"\"\n"
           "*ParamCustomPageSize Width: 1 points 283 935\n"
           "*ParamCustomPageSize Height: 2 points 420 1300\n"
           "*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
           "*ParamCustomPageSize HeightOffset: 4 points 0 0\n"
           "*ParamCustomPageSize Orientation: 5 int 0 0\n"
           "*OpenUI *PageRegion: PickOne\n"
           "*OrderDependency: 10 AnySetup *PageRegion\n"
           "*DefaultPageRegion: A4\n"
           "*PageRegion A4/A4: \"\"\n"
           "*PageRegion A3/A3: \"\"\n"
           "*CloseUI: *PageRegion\n"
           "*DefaultImageableArea: A4\n"
           "*ImageableArea A4/A4: \"0 0 595 842\"\n"
           "*ImageableArea A3/A3: \"0 0 842 1191\"\n"
           "*DefaultPaperDimension: A4\n"
           "*PaperDimension A4/A4: \"595 842\"\n"
           "*PaperDimension A3/A3: \"842 1191\"\n"
           "*OpenUI *Duplex/Two-Sided: PickOne\n"
           "*OrderDependency: 20 AnySetup *Duplex\n"
           "*DefaultDuplex: None\n"
           "*Duplex None/Off: \"\"\n"
           "*Duplex DuplexNoTumble/Long Edge: \"\"\n"
           "*CloseUI: *Duplex\n";
}

} // namespace specialpages::host::testing
