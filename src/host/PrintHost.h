// A print dialog without a dialog: it owns what a pane borrows (the PPD, the job's print settings, session
// and page format), asks a module for the pane of that printer, and stands in for the dialog's window.
#pragma once

#include "host/PaneModule.h"
#include "host/PpdFile.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PageFormat.h"
#include "platform/print/PrintSession.h"
#include "platform/print/PrintSettings.h"
#include "platform/print/print_dialog_extension.h"
#include "platform/toolkit/Window.h"

#include <memory>
#include <string>
#include <vector>

namespace specialpages::host {

/// The name of the host's own window, in which the pane's view stands.
inline constexpr const char* kPaneWindowName = "pane";

/// There is one application in a process, so that the window of the pane that was opened last is its main
/// window.
class PrintHost final : public platform::PDEPluginCallback {
  public:
    /// `printerID` names the chosen printer; empty: the PPD's model name (no printer without one).
    PrintHost(PpdFile ppd, platform::PrintSettings settings, const std::string& printerID = "");

    /// Asks the module's factory for this printer's pane and calls it as a dialog does before the first
    /// restore: initWithBundle, PDEPanelsForType, then the panel's supportedPPDOptionKeys, panelName,
    /// panelKind and panelView. The view then stands in the main window, which is open and bears the pane's
    /// title. True when there is a pane. To be called once.
    bool openPane(PaneModule module);

    /// The pane; null when the module has none for this printer. Its calls are the caller's to make.
    platform::PrintDialogPanel* panel() const { return panels_.empty() ? nullptr : panels_.front().get(); }
    platform::Window& window() { return window_; }
    /// The module that openPane was given; not to be asked before.
    const PaneModule& module() const { return *module_; }

    /// Marks a choice in the PPD; the page format follows. The pane learns of it at its next restore.
    /// HostError (usage).
    void mark(const std::string& option, const std::string& choice);
    /// Marks what the options of a job choose (PpdFile::mark_job_options); the page format follows.
    void markJobOptions(const JobOptions& options);

    PpdFile& ppd() { return ppd_; }
    platform::PrintSettings& settings() { return settings_; }

    ppd_file_s* ppdFile() override { return ppd_.get(); }
    platform::PrintSettings* printSettings() override { return &settings_; }
    platform::PrintSession* printSession() override { return &session_; }
    /// Null as long as no page size is marked.
    platform::PageFormat* pageFormat() override { return hasPageFormat_ ? &pageFormat_ : nullptr; }

  private:
    void followPageSize();

    PpdFile ppd_;
    platform::PrintSettings settings_;
    platform::PrintSession session_;
    platform::PageFormat pageFormat_;
    bool hasPageFormat_ = false;
    // In this order: the window lets go of the pane's view, then the panels end, then their code.
    std::unique_ptr<PaneModule> module_;
    std::vector<std::unique_ptr<platform::PrintDialogPanel>> panels_;
    platform::Window window_;
};

} // namespace specialpages::host
