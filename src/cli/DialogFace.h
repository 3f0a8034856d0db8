// A person at the pane's dialogs, by program: opens a dialog with a button of the pane, does in it what a
// script says, and keeps what the pane said. It is the application's face while it lives.
#pragma once

#include "platform/toolkit/Application.h"
#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {
class MenuItem;
class PopUpButton;
} // namespace specialpages::platform

namespace specialpages::cli {

/// What is wrong with an entry of a job; `place` is the entry's.
struct EntryPlace {
    std::string file;
    std::string entry;
    EntryPlace at(std::string_view member) const {
        return {file, entry.empty() ? std::string(member) : entry + "." + std::string(member)};
    }
    std::string text() const { return entry.empty() ? file : file + ", " + entry; }
};

class DialogFace final : public platform::ApplicationFace {
  public:
    using Script = std::function<void(platform::Window& dialog)>;

    /// `main` is the window that the pane stands in, borrowed.
    explicit DialogFace(platform::Window& main);
    ~DialogFace() override;
    DialogFace(const DialogFace&) = delete;
    DialogFace& operator=(const DialogFace&) = delete;

    /// Presses the button of the pane and runs the script in the dialog that opens. A dialog that the script
    /// leaves open is cancelled. What the script throws comes out here, when the dialog has ended. HostError
    /// (refused) when the button takes no press or opens no dialog.
    void inDialog(std::int32_t button, const EntryPlace& place, const Script& script);

    /// The same for the dialog that `opener` opens, which is done by hand in the dialog that is open.
    void inNextDialog(const std::function<void()>& opener, const EntryPlace& place, const Script& script);

    /// The same where it depends on the pane whether `opener` opens a dialog: without one, nothing more.
    void inPossibleDialog(const std::function<void()>& opener, const Script& script);

    /// Presses the button that commits the dialog. HostError (refused) with the pane's own message when the
    /// dialog stays open.
    void commit(platform::Window& dialog, std::int32_t button, const EntryPlace& place);

    // What a person does, in the window of the script. HostError (refused) when the pane does not let them.

    /// Picks the item of a pop-up, unless it is the selected one.
    static void choose(platform::Window& dialog, std::int32_t tag, std::span<const std::int64_t> path,
                       const EntryPlace& place);
    /// Presses a radio button.
    static void press(platform::Window& dialog, std::int32_t tag, const EntryPlace& place);
    /// Types the text as it stands.
    void type(platform::Window& dialog, std::int32_t tag, const std::string& text, const EntryPlace& place);

    void runEvents(platform::Window& window, const std::function<bool()>& stopped) override;
    void showAlert(const platform::Alert& alert) override { alerts_.push_back(alert.informativeText); }
    void beep() override { ++beeps_; }

  private:
    /// Whether a dialog opened.
    bool runScript(const std::function<void()>& opener, const Script& script);

    platform::Window& main_;
    platform::ApplicationFace* before_;
    const Script* script_ = nullptr; ///< for the next dialog
    std::exception_ptr failure_;
    std::vector<std::string> alerts_;
    int beeps_ = 0;
};

/// The view of that tag and kind; HostError (other) when the window has none.
platform::PopUpButton& popup_in(platform::Window& window, std::int32_t tag);

} // namespace specialpages::cli
