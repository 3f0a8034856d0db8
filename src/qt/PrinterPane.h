// One printer in a print dialog: its host with the PPD and the job's settings, and its pane as a widget. Each
// printer has its own, so that choices for one never reach another.
#pragma once

#include "host/PrintHost.h"
#include "qt/PaneGlance.h"
#include "qt/PaneWidget.h"

#include <filesystem>
#include <memory>
#include <string>

namespace specialpages::qt {

class QtFace;

/// What a printer's pane is opened with.
struct PrinterPaneOptions {
    std::filesystem::path ppd; ///< not looked at where the PPD is given open
    platform::PrintSettings settings;
    std::string printer;          ///< its name; empty: the PPD's model name
    std::string language;         ///< a tag ("de"); empty: the bundle's own order
    std::filesystem::path bundle; ///< the pane's bundle; empty: where a host looks for it
};

class PrinterPane {
  public:
    /// Opens the PPD and the pane, and restores the pane from the settings. Null when the printer has no such
    /// pane. HostError: input for a PPD that cannot be read, other for a bundle or nib that cannot be used.
    static std::unique_ptr<PrinterPane> open(const PrinterPaneOptions& options, QtFace& face);
    /// The same for a PPD that is open.
    static std::unique_ptr<PrinterPane> open(host::PpdFile ppd, const PrinterPaneOptions& options,
                                             QtFace& face);
    /// The same with a module that is loaded.
    static std::unique_ptr<PrinterPane> open(host::PpdFile ppd, host::PaneModule module,
                                             const PrinterPaneOptions& options, QtFace& face);

    host::PrintHost& host() { return *host_; }
    PaneWidget& widget() { return *widget_; }
    /// The strip of sheets that stands below the pane in the same tab; null when the pane has no table.
    PaneGlance* glance() { return glance_; }

  private:
    PrinterPane() = default;
    std::unique_ptr<host::PrintHost> host_;
    std::unique_ptr<PaneWidget> widget_; // ends before its host
    PaneGlance* glance_ = nullptr;       ///< the widget's
};

} // namespace specialpages::qt
