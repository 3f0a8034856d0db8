// How far a job is, on a terminal: one line that is written over again and again, and gone at the end.
#pragma once

#include "cli/streams.h"
#include "host/cups_job.h"

#include <cstdint>
#include <string>

namespace specialpages::cli {

/// Writes nothing where the messages do not go to a terminal.
class JobProgress {
  public:
    /// `document` is the length in bytes.
    JobProgress(Streams streams, std::uintmax_t document);
    ~JobProgress();
    JobProgress(const JobProgress&) = delete;
    JobProgress& operator=(const JobProgress&) = delete;

    void sent(std::uintmax_t bytes);
    void status(const std::string& job, const host::JobStatus& status);
    /// Takes the line away, so that something else can be said.
    void clear();

  private:
    void show(const std::string& line);

    Streams streams_;
    std::uintmax_t document_;
    std::string shown_;
};

/// "prod-12: processing, 3 sheets (looking for paper)": state, sheets when there are any, the queue's
/// message.
std::string progress_text(const std::string& job, const host::JobStatus& status);

} // namespace specialpages::cli
