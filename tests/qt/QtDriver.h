// Answers the line protocol's requests by real events at real widgets: clicks in windows, keys, menus. What
// it answers is read from the widgets, so that an answer equals the headless session's only when the widgets
// are in line with the model and take the same events.
#pragma once

#include "cli/DriveRequest.h"
#include "qt/PaneWidget.h"
#include "qt/QtFace.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::qt {
class FieldWidget;
class PopUpWidget;
class TableWidget;
} // namespace specialpages::qt

namespace specialpages::qt::testing {

/// The window's face, which tells a test of modal runs and keeps alerts and beeps.
class DrivenFace : public QtFace {
  public:
    /// Called inside each run, when its dialog is shown.
    using Run = std::function<void(const std::function<bool()>& stopped)>;
    void setRun(Run run) { run_ = std::move(run); }

    void runEvents(platform::Window& window, const std::function<bool()>& stopped) override;
    /// Shows the message box and presses its button.
    void showAlert(const platform::Alert& alert) override;
    void beep() override { ++beeps; }

    std::vector<std::string> alerts;
    int beeps = 0;

  private:
    Run run_;
};

class QtDriver {
  public:
    /// Both are borrowed. The pane is shown.
    QtDriver(PaneWidget& pane, DrivenFace& face);
    ~QtDriver();
    QtDriver(const QtDriver&) = delete;
    QtDriver& operator=(const QtDriver&) = delete;

    /// The answers, one to a request. Dialogs that are open at the end are cancelled.
    std::vector<std::string> run(const std::vector<std::string>& requests);
    /// Called once after the last request, inside the dialog that is then open.
    void atEnd(std::function<void()> look) { look_ = std::move(look); }

  private:
    struct Pending {
        std::size_t number = 0;
        nlohmann::ordered_json id = nlohmann::ordered_json::value_t::discarded;
        nlohmann::ordered_json result = nlohmann::ordered_json::value_t::discarded;
        std::optional<std::string> error;
    };

    void readRequests(const std::function<bool()>& stopped);
    void handle(const std::string& line);
    void answer();
    nlohmann::ordered_json perform(const cli::DriveRequest& request);
    nlohmann::ordered_json callHost(const std::string& call);

    void press(QWidget& widget);
    void choose(QWidget& widget, const cli::DriveRequest& request);
    void type(QWidget& widget, const std::string& text);
    void step(QWidget& widget, std::int32_t value);
    void selectRows(QWidget& widget, const cli::DriveRequest& request);
    void doubleClick(QWidget& widget);
    void leaveField();

    QWidget& front() const;
    std::string frontWord() const;
    QWidget& widget(const cli::DriveRequest& request) const;

    PaneWidget& pane_;
    DrivenFace& face_;
    const std::vector<std::string>* requests_ = nullptr;
    std::size_t next_ = 0;
    bool ended_ = false;
    std::function<void()> look_;
    std::optional<Pending> pending_;
    std::vector<std::string> answers_;
};

} // namespace specialpages::qt::testing
