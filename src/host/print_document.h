// A document printed through CUPS with the special pages of its settings: what the window does when its user
// prints, for whoever wants to do the same without a window.
#pragma once

#include "host/cups_job.h"
#include "host/job_options.h"
#include "platform/print/PrintSettings.h"

#include <filesystem>
#include <string>

namespace specialpages::host {

struct DocumentJob {
    std::string queue;
    std::filesystem::path document; ///< a PDF file
    platform::PrintSettings settings;
    JobOptions queueOptions; ///< copies, sides, media, choices of the PPD
};

struct SubmittedJob {
    CupsJob job;
    CheckedOptions checked; ///< what was sent, and what was left out as it was too much
};

/// Submits and does not wait for the printing. HostError, and nothing is printed: input for a document that
/// cannot be read or is no PDF, and as job_options and CupsJob::submit say. PrintInterrupted.
SubmittedJob print_document(const DocumentJob& job, Interrupted interrupted = {});

} // namespace specialpages::host
