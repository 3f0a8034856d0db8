// A job as a print dialog makes it: the pane restored, what a job file declares entered through its dialogs,
// and the pane asked to print.
#pragma once

#include "cli/job_file.h"
#include "host/PrintHost.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace specialpages::cli {

/// A job and where it was read.
struct NamedJob {
    Job job;
    std::string file;
};

/// The job of a file, "-" being standard input, which must not be `inputTaken` then. HostError (input,
/// usage).
NamedJob read_job(const std::string& file, bool inputTaken, std::istream& in);

/// Restores the open pane, enters the job, and prints: the host's settings are then those of the job.
/// HostError (refused), naming the entry, when the pane refuses one.
void print_pane(host::PrintHost& host, const std::optional<NamedJob>& job);

} // namespace specialpages::cli
