#include "host/no_language.h"

#include <clocale>
#include <cstdlib>

namespace specialpages::host {

namespace {

constexpr const char* kVariable = "LC_MESSAGES"; // libcups asks for it before LC_ALL and LANG
constexpr const char* kNone = "C";

} // namespace

NoLanguage::NoLanguage() : locale_(std::setlocale(LC_MESSAGES, nullptr)) {
    if (const char* const environment = std::getenv(kVariable)) {
        environment_ = environment;
    }
    holds_ = locale_ != kNone || environment_ != kNone;
    if (holds_) {
        setenv(kVariable, kNone, 1);
        std::setlocale(LC_MESSAGES, kNone);
    }
}

NoLanguage::~NoLanguage() {
    if (!holds_) {
        return;
    }
    std::setlocale(LC_MESSAGES, locale_.c_str());
    if (environment_) {
        setenv(kVariable, environment_->c_str(), 1);
    } else {
        unsetenv(kVariable);
    }
}

} // namespace specialpages::host
