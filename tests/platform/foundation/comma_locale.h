// The process under a locale that writes numbers as 1.234,5, for tests that must not care.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

namespace specialpages::platform::testing {

/// Commas in C++ streams always; in the C library too where a German locale is installed.
class CommaLocale {
  public:
    CommaLocale() : c_before_(std::setlocale(LC_ALL, nullptr)), before_(std::locale::global(commas())) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                break;
            }
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::locale::global(before_);
        std::setlocale(LC_ALL, c_before_.c_str());
    }

  private:
    struct Punctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    static std::locale commas() { return {std::locale::classic(), new Punctuation}; }

    std::string c_before_;
    std::locale before_;
};

} // namespace specialpages::platform::testing
