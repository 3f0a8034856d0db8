#include "qt/WindowTexts.h"

#include "host/HostError.h"
#include "host/PaneModule.h"
#include "platform/foundation/Bundle.h"
#include "qt/text.h"

#include <utility>

namespace specialpages::qt {

namespace {

constexpr const char* kTable = "PrintDialog";

/// Empty when there is none: whatever needs the bundle says so.
std::filesystem::path bundle_directory(const std::filesystem::path& given) {
    try {
        return given.empty() ? host::find_bundle() : given;
    } catch (const host::HostError&) {
        return {};
    }
}

} // namespace

WindowTexts::WindowTexts(const std::filesystem::path& bundle, const std::string& language)
    : bundle_(platform::Bundle::load(bundle_directory(bundle))) {
    if (bundle_ != nullptr && !language.empty()) {
        bundle_->setPreferredLanguages({language});
    }
}

WindowTexts::WindowTexts(std::shared_ptr<platform::Bundle> bundle) : bundle_(std::move(bundle)) {}

QString WindowTexts::operator()(const WindowText& text) const {
    return shown_text(bundle_ == nullptr ? text.english
                                         : bundle_->localizedStringForKey(text.key, text.english, kTable));
}

QString WindowTexts::operator()(const WindowText& text, const std::string& reason) const {
    return (*this)(text) + QLatin1Char(' ') + shown_text(reason);
}

} // namespace specialpages::qt
