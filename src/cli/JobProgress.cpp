#include "cli/JobProgress.h"

#include <ostream>

namespace specialpages::cli {

namespace {
constexpr std::uintmax_t kKilobyte = 1024;
constexpr std::size_t kMostColumns = 79; // a longer line would wrap and could not be written over
} // namespace

std::string progress_text(const std::string& job, const host::JobStatus& status) {
    std::string text = job + ": " + host::job_state_name(status.state);
    if (status.sheets > 0) {
        text += ", " + std::to_string(status.sheets) + (status.sheets == 1 ? " sheet" : " sheets");
    }
    if (!status.message.empty()) {
        text += " (" + printable(status.message) + ")";
    }
    return text;
}

JobProgress::JobProgress(Streams streams, std::uintmax_t document) : streams_(streams), document_(document) {}

JobProgress::~JobProgress() {
    clear();
}

void JobProgress::sent(std::uintmax_t bytes) {
    show("sending, " + std::to_string(bytes / kKilobyte) + " of " + std::to_string(document_ / kKilobyte) +
         " KB");
}

void JobProgress::status(const std::string& job, const host::JobStatus& status) {
    show(progress_text(job, status));
}

void JobProgress::show(const std::string& line) {
    if (!streams_.errIsTerminal || line == shown_) {
        return;
    }
    clear();
    shown_ = line.substr(0, kMostColumns);
    streams_.err << shown_ << std::flush;
}

void JobProgress::clear() {
    if (!shown_.empty()) {
        streams_.err << '\r' << std::string(shown_.size(), ' ') << '\r' << std::flush;
        shown_.clear();
    }
}

} // namespace specialpages::cli
