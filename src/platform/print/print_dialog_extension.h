// The protocol between a print dialog and the panes that extend it. A host loads an extension's module from
// its bundle, calls the module's factory function and asks the factory for panels; it knows nothing else of a
// pane.
#pragma once

#include "platform/export.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct ppd_file_s;

namespace specialpages::platform {

class Bundle;
class PDEPluginCallback;
class View;

/// One pane of the print dialog. The host owns it through the array that the factory answered, and may call
/// in any order. Everything happens on the dialog's thread.
class SPECIALPAGES_PLATFORM_API PrintDialogPanel {
  public:
    PrintDialogPanel() = default;
    PrintDialogPanel(const PrintDialogPanel&) = delete;
    PrintDialogPanel& operator=(const PrintDialogPanel&) = delete;
    virtual ~PrintDialogPanel();

    /// The pane's view, owned by the panel; null when its nib cannot be loaded.
    virtual View* panelView() = 0;
    /// The pane's title as the user reads it.
    virtual std::string panelName() = 0;
    /// A fixed identifier of the kind of pane.
    virtual std::string panelKind() = 0;
    /// The PPD options that the pane takes over from the dialog; empty optional: none.
    virtual std::optional<std::vector<std::string>> supportedPPDOptionKeys() = 0;

    /// The pane comes on screen.
    virtual void willShow() = 0;
    /// The pane goes off screen; false keeps it.
    virtual bool shouldHide() = 0;
    /// The user prints: the pane writes its values into the print settings. False stops the printing.
    virtual bool shouldPrint() = 0;
    /// The user asks for help; true: the host opens the help, false: the pane has done so.
    virtual bool shouldShowHelp() = 0;
    /// The pane writes its values into the print settings.
    virtual bool saveValuesAndReturnError(std::string* error) = 0;
    /// The pane reads its values from the print settings.
    virtual bool restoreValuesAndReturnError(std::string* error) = 0;
    /// Titles and values for the dialog's summary; empty optional: none.
    virtual std::optional<std::vector<std::pair<std::string, std::string>>> summaryInfo() = 0;
    /// Another pane changed a PPD choice.
    virtual void PPDOptionKeyValueDidChange(std::string_view option, std::string_view ppdChoice) = 0;
};

/// What a module's factory function makes, once per loaded bundle.
class SPECIALPAGES_PLATFORM_API PrintDialogExtension {
  public:
    PrintDialogExtension() = default;
    PrintDialogExtension(const PrintDialogExtension&) = delete;
    PrintDialogExtension& operator=(const PrintDialogExtension&) = delete;
    virtual ~PrintDialogExtension();

    virtual bool initWithBundle(std::shared_ptr<Bundle> bundle) = 0;
    /// The panels for the printer that `host` has chosen; empty optional: no pane. `host` is borrowed and
    /// must outlive the panels.
    virtual std::optional<std::vector<std::unique_ptr<PrintDialogPanel>>>
    PDEPanelsForType(std::string_view type, PDEPluginCallback* host) = 0;
};

/// The type of panel that print dialogs ask for.
inline constexpr const char* kDialogPanelType = "BDB091F4-E57F-11D3-B5CC-0050E4603277";

/// Name of the one symbol that a module exports: `PrintDialogExtension* CreatePrintDialogExtension()`, C
/// linkage. The caller owns the result.
inline constexpr const char* kPrintDialogExtensionSymbol = "CreatePrintDialogExtension";
using CreatePrintDialogExtensionFunction = PrintDialogExtension* (*)();

} // namespace specialpages::platform
