#include "cli/commands.h"
#include "cli/print_pane.h"
#include "host/settings_file.h"

#include <ostream>

namespace specialpages::cli {

void apply_command(const ApplyOptions& options, Streams streams) {
    const bool inputTaken = options.pane.ppd == kStandardStream || options.pane.settings == kStandardStream;
    const auto job =
        options.job ? std::optional(read_job(*options.job, inputTaken, streams.in)) : std::nullopt;
    const auto host = open_pane(options.pane, streams.in);
    print_pane(*host, job);
    if (options.out == kStandardStream) {
        streams.out << host::write_settings(host->settings(), host::SettingsFormat::json);
    } else {
        host::write_settings_file(options.out, host->settings());
    }
}

} // namespace specialpages::cli
