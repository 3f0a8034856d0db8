// A PPD file opened by libcups with its defaults marked, for tests below the host.
#pragma once

#include <cups/ppd.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace specialpages::test {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

class OpenPpd {
  public:
    explicit OpenPpd(const std::filesystem::path& file) : ppd_(ppdOpenFile(file.c_str())) {
        if (ppd_ == nullptr) {
            throw std::runtime_error("libcups refuses " + file.string());
        }
        ppdMarkDefaults(ppd_);
    }
    ~OpenPpd() { ppdClose(ppd_); }
    OpenPpd(const OpenPpd&) = delete;
    OpenPpd& operator=(const OpenPpd&) = delete;

    ppd_file_t* get() const { return ppd_; }
    int mark(const char* option, const char* choice) const { return ppdMarkOption(ppd_, option, choice); }

  private:
    ppd_file_t* ppd_;
};

#pragma GCC diagnostic pop

} // namespace specialpages::test
