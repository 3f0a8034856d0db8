// What a control asks of the panel that it is registered with. The panel base implements it, so that no
// control has to know a panel class.
#pragma once

#include "controls/control_tables.h"

#include <memory>
#include <optional>
#include <string>

struct ppd_file_s;

namespace specialpages::platform {
class Bundle;
class PrintSettings;
} // namespace specialpages::platform

namespace specialpages {

class BaseControlEMFSpecialPages;
class ConstraintIndex;
class SpecialPagesHub;

/// Everything that is answered is borrowed, but for the shared index; each may be null.
class ControlPanel {
  public:
    ControlPanel() = default;
    ControlPanel(const ControlPanel&) = delete;
    ControlPanel& operator=(const ControlPanel&) = delete;
    virtual ~ControlPanel() = default;

    /// The control whose view has the tag: the panel's own first, then those of its windows; null when there
    /// is none.
    virtual BaseControlEMFSpecialPages* GetPanelControl(ControlTag tag) = 0;
    virtual ppd_file_s* GetCurrentPPD() = 0;
    virtual platform::PrintSettings* GetCurrentPMPrintSettings() = 0;
    /// The identifier of the current printer; empty optional before any settings were given.
    virtual std::optional<std::string> GetCurrentPrinterString() = 0;
    virtual platform::Bundle* GetPDEBundleRef() = 0;
    /// The index of the PPD's constraints that this panel was handed last.
    virtual std::shared_ptr<ConstraintIndex> Getxppd() = 0;
    /// The panel that this one is registered with; null on the main pane.
    virtual ControlPanel* GetParentWnd() = 0;
    /// The main pane's roads to its siblings; null on a panel that hangs in none.
    virtual SpecialPagesHub* hub() = 0;
    /// Sends every control of this panel (not of its windows) to re-check its PPD conflicts. Answers 0.
    virtual std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) = 0;
};

} // namespace specialpages
