#include "host/cups_job.h"

#include <cups/cups.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <istream>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace specialpages::host {

namespace {

constexpr std::size_t kBlockBytes = 65536;

struct FreeDestination {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;

struct FreeInfo {
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using DestinationInfo = std::unique_ptr<cups_dinfo_t, FreeInfo>;

struct DeleteMessage {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using Message = std::unique_ptr<ipp_t, DeleteMessage>;

/// A list of options in libcups' form.
class OptionList {
  public:
    OptionList() = default;
    ~OptionList() { cupsFreeOptions(count_, options_); }
    OptionList(const OptionList&) = delete;
    OptionList& operator=(const OptionList&) = delete;

    void add(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
    bool has(const char* name) const { return cupsGetOption(name, count_, options_) != nullptr; }
    int count() const { return count_; }
    cups_option_t* get() const { return options_; }

  private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

std::string_view attribute_of(const Destination& queue, const char* name) {
    const char* const value = cupsGetOption(name, queue->num_options, queue->options);
    return value == nullptr ? "" : value;
}

Destination find_queue(PrintServer& server, const std::string& name) {
    Destination queue(cupsGetNamedDest(server.http(), name.c_str(), nullptr));
    if (!queue) {
        throw server.refusal(name, "when it was asked for the queue");
    }
    return queue;
}

/// HostError when the queue would not print.
void check_queue(PrintServer& server, const Destination& queue) {
    const std::string name = queue->name;
    const auto refused = [&](const std::string& why) {
        return HostError(ErrorCode::printer, name, why);
    };
    if (attribute_of(queue, "printer-is-accepting-jobs") == "false") {
        throw refused("the queue takes no jobs just now");
    }
    constexpr std::string_view kStopped = "5"; // IPP_PSTATE_STOPPED
    if (attribute_of(queue, "printer-state") == kStopped) {
        throw refused("the queue is stopped; a job would wait in it");
    }
    const std::string_view password = attribute_of(queue, "auth-info-required");
    if (!password.empty() && password != "none" && password != "negotiate") {
        throw refused("the queue asks for a password, which is not supported here");
    }
    if (server.interrupted()) {
        throw PrintInterrupted();
    }
}

/// What the server says of a queue, which is no option of a job.
bool is_of_queue(std::string_view name) {
    constexpr std::array<std::string_view, 2> kNames{"auth-info-required", "device-uri"};
    constexpr std::array<std::string_view, 3> kBeginnings{"printer-", "marker-", kPaneOptionPrefix};
    const auto begins = [&](std::string_view beginning) {
        return strncasecmp(name.data(), beginning.data(), beginning.size()) == 0;
    };
    return std::find(kNames.begin(), kNames.end(), name) != kNames.end() ||
           std::any_of(kBeginnings.begin(), kBeginnings.end(), begins);
}

/// The options, then the defaults of the queue that they do not have.
void fill(OptionList& list, const JobOptions& options, const Destination& queue) {
    for (const JobOption& option : options) {
        list.add(option.name.c_str(), option.value.c_str());
    }
    for (const cups_option_t& option :
         std::span(queue->options, static_cast<std::size_t>(queue->num_options))) {
        if (!is_of_queue(option.name) && !list.has(option.name)) {
            list.add(option.name, option.value);
        }
    }
}

void cancel_job(PrintServer& server, const std::string& queue, int number) {
    server.begin();
    const ipp_status_t status = cupsCancelJob2(server.http(), queue.c_str(), number, 0);
    const bool hasEnded = status == IPP_STATUS_ERROR_NOT_POSSIBLE || status == IPP_STATUS_ERROR_NOT_FOUND;
    if (status >= IPP_STATUS_REDIRECTION_OTHER_SITE && !hasEnded) {
        throw server.refusal(queue + "-" + std::to_string(number), "when the job was canceled");
    }
}

/// Cancels a job that cannot be sent whole, over a connection of its own, since the first may be lost.
void give_up(const std::string& queue, int number) {
    try {
        PrintServer server;
        cancel_job(server, queue, number);
    } catch (const HostError&) {
        // What went wrong first is what is told. A server that comes back drops a job without a document.
    }
}

void send_blocks(PrintServer& server, const std::string& place, const PrintDocument& document,
                 const CupsJob::Sent& sent) {
    std::array<char, kBlockBytes> block{};
    std::uintmax_t bytes = 0;
    if (sent) {
        sent(bytes);
    }
    while (document.bytes.read(block.data(), block.size()) || document.bytes.gcount() > 0) {
        if (server.interrupted()) {
            throw PrintInterrupted();
        }
        const auto length = static_cast<std::size_t>(document.bytes.gcount());
        server.begin();
        if (cupsWriteRequestData(server.http(), block.data(), length) != HTTP_STATUS_CONTINUE) {
            throw server.refusal(place, "while the document was sent");
        }
        bytes += length;
        if (sent) {
            sent(bytes);
        }
    }
    if (document.bytes.bad()) {
        throw HostError(ErrorCode::input, document.name, "the document cannot be read to its end");
    }
}

void send_document(PrintServer& server, const Destination& queue, const DestinationInfo& info, int number,
                   const PrintDocument& document, const CupsJob::Sent& sent) {
    const std::string place = std::string(queue->name) + "-" + std::to_string(number);
    server.begin();
    if (cupsStartDestDocument(server.http(), queue.get(), info.get(), number,
                              job_title(document.name).c_str(), document.format.c_str(), 0, nullptr,
                              1) != HTTP_STATUS_CONTINUE) {
        throw server.refusal(place, "before the document was sent");
    }
    send_blocks(server, place, document, sent);
    server.begin();
    if (cupsFinishDestDocument(server.http(), queue.get(), info.get()) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        throw server.refusal(place, "while the document was sent");
    }
}

JobState state_of(int ippState) {
    switch (ippState) {
    case IPP_JSTATE_HELD:
        return JobState::held;
    case IPP_JSTATE_PROCESSING:
        return JobState::processing;
    case IPP_JSTATE_STOPPED:
        return JobState::stopped;
    case IPP_JSTATE_CANCELED:
        return JobState::canceled;
    case IPP_JSTATE_ABORTED:
        return JobState::aborted;
    case IPP_JSTATE_COMPLETED:
        return JobState::completed;
    default:
        return JobState::pending;
    }
}

std::string texts(ipp_t* message, const char* name) {
    std::string list;
    ipp_attribute_t* const attribute = ippFindAttribute(message, name, IPP_TAG_ZERO);
    for (int i = 0; i < ippGetCount(attribute); ++i) {
        const char* const text = ippGetString(attribute, i, nullptr);
        if (text != nullptr && std::strcmp(text, "none") != 0) {
            list += (list.empty() ? "" : ",") + std::string(text);
        }
    }
    return list;
}

int integer(ipp_t* message, const char* name) {
    ipp_attribute_t* const attribute = ippFindAttribute(message, name, IPP_TAG_ZERO);
    return attribute == nullptr ? 0 : ippGetInteger(attribute, 0);
}

/// Owned by cupsDoRequest.
ipp_t* status_request(int number) {
    constexpr std::array<const char*, 4> kAttributes{
        "job-state", "job-state-reasons", "job-printer-state-message", "job-media-sheets-completed"};
    ipp_t* const request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const std::string uri = "ipp://localhost/jobs/" + std::to_string(number);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(kAttributes.size()), nullptr, kAttributes.data());
    return request;
}

/// A pause that a signal ends.
void pause_for(std::chrono::milliseconds time) {
    const timespec pause{0, static_cast<long>(std::chrono::nanoseconds(time).count())};
    nanosleep(&pause, nullptr);
}

} // namespace

const char* job_state_name(JobState state) {
    switch (state) {
    case JobState::pending:
        return "pending";
    case JobState::held:
        return "held";
    case JobState::processing:
        return "processing";
    case JobState::stopped:
        return "stopped";
    case JobState::canceled:
        return "canceled";
    case JobState::aborted:
        return "aborted";
    case JobState::completed:
        return "completed";
    case JobState::forgotten:
        return "forgotten";
    }
    return "";
}

CupsJob::CupsJob(std::unique_ptr<PrintServer> server, std::string queue, int number)
    : server_(std::move(server)), queue_(std::move(queue)), number_(number) {}
CupsJob::CupsJob(CupsJob&&) noexcept = default;
CupsJob& CupsJob::operator=(CupsJob&&) noexcept = default;
CupsJob::~CupsJob() = default;

CupsJob CupsJob::submit(const std::string& queue, const JobOptions& options, const PrintDocument& document,
                        Interrupted interrupted, const Sent& sent) {
    auto server = std::make_unique<PrintServer>(std::move(interrupted));
    const Destination destination = find_queue(*server, queue);
    check_queue(*server, destination);
    server->begin();
    const DestinationInfo info(cupsCopyDestInfo(server->http(), destination.get()));
    if (!info) {
        throw server->refusal(queue, "when it was asked for the queue");
    }
    OptionList list;
    fill(list, options, destination);
    int number = 0;
    server->begin();
    if (cupsCreateDestJob(server->http(), destination.get(), info.get(), &number,
                          job_title(document.name).c_str(), list.count(),
                          list.get()) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        throw server->refusal(queue, "when the job was made");
    }
    try {
        send_document(*server, destination, info, number, document, sent);
    } catch (...) {
        give_up(queue, number);
        throw;
    }
    return {std::move(server), queue, number};
}

JobStatus CupsJob::status() {
    server_->begin();
    const Message answer(cupsDoRequest(server_->http(), status_request(number_), "/"));
    const ipp_status_t status = cupsLastError();
    if (status == IPP_STATUS_ERROR_NOT_FOUND) {
        return {JobState::forgotten, "", "", 0, false};
    }
    if (!answer || status >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        throw server_->refusal(name(), "while the job was printed");
    }
    return {state_of(integer(answer.get(), "job-state")), texts(answer.get(), "job-state-reasons"),
            texts(answer.get(), "job-printer-state-message"),
            integer(answer.get(), "job-media-sheets-completed"),
            texts(answer.get(), "job-printer-state-reasons").find("paused") != std::string::npos};
}

JobStatus CupsJob::wait(const std::function<void(const JobStatus&)>& changed) {
    constexpr std::chrono::milliseconds kFirstPause{50};
    constexpr std::chrono::milliseconds kLongestPause{800};
    std::chrono::milliseconds pause = kFirstPause;
    for (std::optional<JobStatus> last;;) {
        if (server_->interrupted()) {
            throw PrintInterrupted();
        }
        const JobStatus now = status();
        if (changed && last != now) {
            changed(now);
        }
        if (now.rests()) {
            return now;
        }
        last = now;
        pause_for(pause);
        pause = std::min(pause * 2, kLongestPause);
    }
}

void CupsJob::cancel() {
    PrintServer server; // which nothing interrupts
    cancel_job(server, queue_, number_);
}

} // namespace specialpages::host
