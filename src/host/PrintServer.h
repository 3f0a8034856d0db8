// A connection to the print server: the one that libcups finds (CUPS_SERVER, client.conf, the machine's own).
// It never asks anyone for a password: a server that wants one refuses. What the server or the connection
// refuses becomes a HostError (printer) of one sentence.
#pragma once

#include "host/HostError.h"

#include <cups/http.h>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace specialpages::host {

/// Asked now and then; true: give up. It may be called often and must be quick.
using Interrupted = std::function<bool()>;

/// What a call throws that gave up because it was told to. Not a HostError: whoever asks says what ended.
class PrintInterrupted : public std::exception {
  public:
    const char* what() const noexcept override { return "interrupted"; }
};

/// For the thread that made it, for as long as it lives; libcups keeps its settings by thread.
class PrintServer {
  public:
    /// Connects. HostError when nobody answers; PrintInterrupted.
    explicit PrintServer(Interrupted interrupted = {});
    ~PrintServer();
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    http_t* http() const { return http_.get(); }
    /// Every later call gives up as this says, and waits for an answer kPatience at most from now on.
    void begin();
    bool interrupted() const { return interrupted_ && interrupted_(); }

    /// What went wrong in the last call to libcups, as an error with this place. `doing` completes "the print
    /// server ..." when it went away, as in "while the document was sent". PrintInterrupted when that was
    /// why.
    HostError refusal(const std::string& place, const std::string& doing) const;

    /// How long a server may say nothing.
    static constexpr std::chrono::seconds kPatience{60};

  private:
    static int onTimeout(http_t* http, void* self);
    struct Close {
        void operator()(http_t* http) const;
    };
    Interrupted interrupted_;
    std::chrono::steady_clock::time_point deadline_;
    std::unique_ptr<http_t, Close> http_;
};

} // namespace specialpages::host
