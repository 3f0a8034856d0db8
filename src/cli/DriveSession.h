// The line protocol: one JSON object a line in, one out. It is a face of the application as a window is, so
// that the pane's dialogs, alerts and beeps come here.
//
// A dialog runs inside the request that opened it. Its answer is written when the dialog comes to the front,
// and the requests that follow are read inside the dialog's run, until one of its buttons ends it. A request
// that ends a dialog is answered when everything that the dialog's opener does afterwards is done, so that
// each answer tells of a pane at rest or of a dialog waiting.
#pragma once

#include "cli/DriveRequest.h"
#include "host/PrintHost.h"
#include "platform/toolkit/Application.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::cli {

/// A request that was read and not answered yet.
struct PendingAnswer {
    std::uint64_t number = 0;
    nlohmann::ordered_json id = nlohmann::ordered_json::value_t::discarded;     ///< none was given
    nlohmann::ordered_json result = nlohmann::ordered_json::value_t::discarded; ///< there is none
    std::optional<std::string> error;
    std::vector<std::string> alerts;
    int beeps = 0;
};

class DriveSession final : public platform::ApplicationFace {
  public:
    /// All three are borrowed; the host's pane is open. The session is the application's face while it lives.
    DriveSession(host::PrintHost& host, std::istream& in, std::ostream& out);
    ~DriveSession() override;
    DriveSession(const DriveSession&) = delete;
    DriveSession& operator=(const DriveSession&) = delete;

    /// Reads and answers until `quit`, the end of input, or an output that cannot be written. Dialogs that
    /// are open then end through their Cancel buttons.
    void run();

    void runEvents(platform::Window& window, const std::function<bool()>& stopped) override;
    void showAlert(const platform::Alert& alert) override;
    void beep() override;

  private:
    void readRequests(const std::function<bool()>& stopped);
    void handle(const std::string& line, bool cut);
    /// Carries the request out and answers its result; a discarded value when it has none.
    nlohmann::ordered_json perform(const DriveRequest& request);
    nlohmann::ordered_json callHost(const std::string& call);
    void answer();

    void press(const DriveRequest& request);
    void choose(const DriveRequest& request);
    void type(const DriveRequest& request);
    void step(const DriveRequest& request);
    void selectRows(const DriveRequest& request);
    void doubleClick(const DriveRequest& request);
    void mark(const DriveRequest& request);
    void setting(const DriveRequest& request);
    void quit(const DriveRequest& request);
    nlohmann::ordered_json settings() const;
    /// The view with the request's "tag" in the front window; RequestError when it is missing, hidden or
    /// disabled.
    platform::View& view(const DriveRequest& request) const;
    platform::Window& frontWindow() const;

    host::PrintHost& host_;
    std::istream& in_;
    std::ostream& out_;
    platform::ApplicationFace* faceBefore_;
    std::optional<PendingAnswer> pending_; ///< there is one at most
    std::uint64_t requests_ = 0;
    bool ended_ = false;
};

} // namespace specialpages::cli
