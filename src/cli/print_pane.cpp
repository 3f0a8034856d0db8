#include "cli/print_pane.h"

#include "cli/enter_job.h"
#include "cli/streams.h"
#include "host/HostError.h"
#include "platform/foundation/atomic_file.h"

namespace specialpages::cli {

using host::ErrorCode;
using host::HostError;

NamedJob read_job(const std::string& file, bool inputTaken, std::istream& in) {
    if (file != kStandardStream) {
        std::string error;
        const auto bytes = platform::read_file(file, &error, kMaxJobBytes);
        if (!bytes) {
            throw HostError(ErrorCode::input, file, "expected a job file: " + error);
        }
        return {parse_job(*bytes, file), file};
    }
    if (inputTaken) {
        throw HostError(ErrorCode::usage, "--job -", "expected one file at most to be standard input");
    }
    const std::string name = "standard input";
    return {parse_job(read_all(in, kMaxJobBytes), name), name};
}

void print_pane(host::PrintHost& host, const std::optional<NamedJob>& job) {
    platform::PrintDialogPanel& panel = *host.panel();
    // False here means that the help book could not be registered; the pane is complete all the same.
    panel.restoreValuesAndReturnError(nullptr);
    panel.willShow();
    if (job) {
        enter_job(job->job, job->file, host.window());
    }
    panel.shouldHide();
    if (!panel.shouldPrint()) {
        throw HostError(ErrorCode::refused, "", "the pane stopped the printing");
    }
}

} // namespace specialpages::cli
