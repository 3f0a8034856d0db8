// The factory that a host gets from the module: decides whether the pane exists at all for the current
// printer, and under which nib and help page. No failure is shown to the user: each is the empty answer,
// after which the host shows no pane.
#pragma once

#include "platform/print/print_dialog_extension.h"

namespace specialpages {

class SpecialPagesPDEPluginnvbir15 : public platform::PrintDialogExtension {
  public:
    /// True always. The first bundle given stays the pane's bundle for the process.
    bool initWithBundle(std::shared_ptr<platform::Bundle> bundle) override;
    /// One panel when the PPD carries the product attribute and the bundle has both the nib and the help page
    /// that it names; a missing help page hides the pane as a missing nib does.
    std::optional<std::vector<std::unique_ptr<platform::PrintDialogPanel>>>
    PDEPanelsForType(std::string_view type, platform::PDEPluginCallback* host) override;
};

} // namespace specialpages
