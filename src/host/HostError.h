// The one kind of error that a host throws: a code, the place where something was wrong, and what was
// expected there. A program's main turns it into one sentence and an exit code; nothing below main prints.
#pragma once

#include <stdexcept>
#include <string>

namespace specialpages::host {

enum class ErrorCode {
    usage,   ///< the command was not given as it should be
    input,   ///< an input file cannot be read as what it should be
    refused, ///< the pane refused what was asked of it
    printer, ///< the printer or its queue is missing, or refused the job
    other
};

/// 2 for usage and input, 3 for refused, 4 for printer, 1 for other.
int exit_code(ErrorCode code);

class HostError : public std::runtime_error {
  public:
    /// `place` is a file, a file and line ("job.ppd, line 7"), or a key; it may be empty. `detail` says what
    /// was wrong there and what was expected. what() is the two joined by ": ", with everything that would
    /// break a line or a terminal shown as "?".
    HostError(ErrorCode code, std::string place, std::string detail);

    ErrorCode code() const { return code_; }
    const std::string& place() const { return place_; }
    const std::string& detail() const { return detail_; }

  private:
    ErrorCode code_;
    std::string place_;
    std::string detail_;
};

/// The place of a line of a file: "job.ppd, line 7"; the file alone for a line below 1.
std::string place_of_line(const std::string& file, long line);

} // namespace specialpages::host
