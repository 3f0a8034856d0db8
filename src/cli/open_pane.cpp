#include "cli/open_pane.h"

#include "cli/pane_tags.h"
#include "cli/streams.h"
#include "host/HostError.h"
#include "host/settings_file.h"
#include "platform/foundation/Bundle.h"

#include <utility>

namespace specialpages::cli {

using host::ErrorCode;
using host::HostError;

namespace {

constexpr std::size_t kMaxPpdBytes = std::size_t{64} * 1024 * 1024;

host::PpdFile open_ppd(const PaneOptions& options, std::istream& in) {
    if (options.ppd != kStandardStream) {
        return host::PpdFile(options.ppd);
    }
    if (options.settings == kStandardStream) {
        throw HostError(ErrorCode::usage, "--ppd -", "expected one file at most to be standard input");
    }
    return host::PpdFile::parse(read_all(in, kMaxPpdBytes), "standard input");
}

[[noreturn]] void refuse_without_pane(const host::PpdFile& ppd, const host::PaneModule& module) {
    if (!ppd.has_attribute(kProductAttribute)) {
        throw HostError(ErrorCode::input, ppd.name(),
                        std::string("expected the attribute *") + kProductAttribute +
                            "; without it the printer has no Special Pages pane");
    }
    throw HostError(ErrorCode::other, module.bundle()->CFBundleCopyBundleURL().string(),
                    "expected the nib and the help page that *" + std::string(kProductAttribute) + " of " +
                        ppd.name() + " names");
}

} // namespace

platform::PrintSettings read_settings(const std::string& file, std::istream& in) {
    if (file != kStandardStream) {
        return host::read_settings_file(file);
    }
    return host::parse_settings(read_all(in, host::kMaxSettingsBytes), host::SettingsFormat::json,
                                "standard input");
}

std::unique_ptr<host::PrintHost> open_pane(const PaneOptions& options, std::istream& in) {
    host::PpdFile ppd = open_ppd(options, in);
    for (const std::string& mark : options.marks) {
        ppd.mark(mark);
    }
    platform::PrintSettings settings;
    if (options.settings) {
        settings = read_settings(*options.settings, in);
    }
    return open_pane(std::move(ppd), std::move(settings), options.printer, options.language);
}

std::unique_ptr<host::PrintHost> open_pane(host::PpdFile ppd, platform::PrintSettings settings,
                                           const std::string& printer, const std::string& language) {
    host::PaneModule module(host::find_bundle());
    if (!language.empty()) {
        module.bundle()->setPreferredLanguages({language});
    }
    auto host = std::make_unique<host::PrintHost>(std::move(ppd), std::move(settings), printer);
    if (!host->openPane(std::move(module))) {
        refuse_without_pane(host->ppd(), host->module());
    }
    return host;
}

} // namespace specialpages::cli
