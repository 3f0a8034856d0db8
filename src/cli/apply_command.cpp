#include "cli/commands.h"
#include "host/HostError.h"
#include "host/settings_file.h"

#include <ostream>

namespace specialpages::cli {

void apply_command(const ApplyOptions& options, Streams streams) {
    const auto host = open_pane(options.pane, streams.in);
    platform::PrintDialogPanel& panel = *host->panel();
    // False here means that the help book could not be registered; the pane is complete all the same.
    panel.restoreValuesAndReturnError(nullptr);
    panel.willShow();
    panel.shouldHide();
    if (!panel.shouldPrint()) {
        throw host::HostError(host::ErrorCode::refused, "", "the pane stopped the printing");
    }
    if (options.out == kStandardStream) {
        streams.out << host::write_settings(host->settings(), host::SettingsFormat::json);
    } else {
        host::write_settings_file(options.out, host->settings());
    }
}

} // namespace specialpages::cli
