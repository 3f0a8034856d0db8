#include "cli/commands.h"
#include "cli/enter_job.h"
#include "cli/job_file.h"
#include "host/HostError.h"
#include "host/settings_file.h"
#include "platform/foundation/atomic_file.h"

#include <ostream>

namespace specialpages::cli {

namespace {

Job read_job(const ApplyOptions& options, std::istream& in) {
    if (*options.job != kStandardStream) {
        std::string error;
        const auto bytes = platform::read_file(*options.job, &error, kMaxJobBytes);
        if (!bytes) {
            throw host::HostError(host::ErrorCode::input, *options.job, "expected a job file: " + error);
        }
        return parse_job(*bytes, *options.job);
    }
    if (options.pane.ppd == kStandardStream || options.pane.settings == kStandardStream) {
        throw host::HostError(host::ErrorCode::usage, "--job -",
                              "expected one file at most to be standard input");
    }
    return parse_job(read_all(in, kMaxJobBytes), "standard input");
}

} // namespace

void apply_command(const ApplyOptions& options, Streams streams) {
    const std::optional<Job> job = options.job ? std::optional(read_job(options, streams.in)) : std::nullopt;
    const auto host = open_pane(options.pane, streams.in);
    platform::PrintDialogPanel& panel = *host->panel();
    // False here means that the help book could not be registered; the pane is complete all the same.
    panel.restoreValuesAndReturnError(nullptr);
    panel.willShow();
    if (job) {
        enter_job(*job, *options.job == kStandardStream ? "standard input" : *options.job, host->window());
    }
    panel.shouldHide();
    if (!panel.shouldPrint()) {
        throw host::HostError(host::ErrorCode::refused, "", "the pane stopped the printing");
    }
    if (options.out == kStandardStream) {
        streams.out << host::write_settings(host->settings(), host::SettingsFormat::json);
    } else {
        host::write_settings_file(options.out, host->settings());
    }
}

} // namespace specialpages::cli
