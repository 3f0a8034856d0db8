// A document on its way through CUPS: submitted with its options, watched, canceled. Every refusal is a
// HostError (printer) of one sentence whose place is the queue or the job; what was submitted stays with the
// caller, who can do it again.
#pragma once

#include "host/PrintServer.h"
#include "host/job_options.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace specialpages::host {

struct PrintDocument {
    std::istream& bytes; ///< read to its end, from where it stands
    std::string name;    ///< what the job and its document are called, as far as job_title lets it
    std::string format = "application/pdf";
};

enum class JobState {
    pending,
    held,
    processing,
    stopped,
    canceled,
    aborted,
    completed,
    forgotten ///< the server knows it no more; one that keeps no history forgets a job when it is done
};
/// "pending" and so on.
const char* job_state_name(JobState state);

struct JobStatus {
    JobState state = JobState::pending;
    std::string reasons; ///< IPP keywords with commas between them; empty for "none"
    std::string message; ///< what the queue says just now, for people; may be empty
    int sheets = 0;      ///< finished so far, as far as the back-end counts them
    bool queueStopped = false;

    bool operator==(const JobStatus&) const = default;
    /// Nothing more will happen to the job.
    bool ended() const { return state >= JobState::canceled; }
    /// It waits for a queue that somebody has stopped.
    bool waits_for_queue() const { return queueStopped && state == JobState::pending; }
    /// Nothing will happen to it until somebody does something: it has ended, is held, waits for a stopped
    /// queue, or was stopped itself, as by a filter that failed.
    bool rests() const {
        return ended() || state == JobState::held || state == JobState::stopped || waits_for_queue();
    }
};

/// A job that the server has taken, with its document.
class CupsJob {
  public:
    /// Called with the bytes sent so far, once at least.
    using Sent = std::function<void(std::uintmax_t bytes)>;

    /// Submits. Before anything is sent the queue is asked whether it is there, runs, takes jobs and needs no
    /// password. The defaults that `lpoptions` keeps of the queue go along where `options` says nothing. When
    /// the document cannot be sent to its end, the job is canceled, so that no half of it is printed.
    /// HostError: printer; input when the document cannot be read. PrintInterrupted.
    static CupsJob submit(const std::string& queue, const JobOptions& options, const PrintDocument& document,
                          Interrupted interrupted = {}, const Sent& sent = {});

    CupsJob(CupsJob&&) noexcept;
    CupsJob& operator=(CupsJob&&) noexcept;
    ~CupsJob(); ///< the job goes on

    int number() const { return number_; }
    /// "queue-12", as `lpstat` and `cancel` call it.
    std::string name() const { return queue_ + "-" + std::to_string(number_); }

    /// HostError when the server cannot say; PrintInterrupted.
    JobStatus status();
    /// Waits until the job rests; `changed` is called with the
    /// first status and each new one. HostError when the server goes away; PrintInterrupted, after which
    /// cancel() can be called.
    JobStatus wait(const std::function<void(const JobStatus&)>& changed = {});
    /// Cancels it, whether or not the job was interrupted. A job that has ended stays as it is. HostError
    /// when the server refuses.
    void cancel();

  private:
    CupsJob(std::unique_ptr<PrintServer> server, std::string queue, int number);

    std::unique_ptr<PrintServer> server_;
    std::string queue_;
    int number_;
};

} // namespace specialpages::host
