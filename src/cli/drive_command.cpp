#include "cli/DriveSession.h"
#include "cli/commands.h"
#include "host/HostError.h"

namespace specialpages::cli {

void drive_command(const PaneOptions& options, Streams streams) {
    if (options.ppd == kStandardStream || options.settings == kStandardStream) {
        throw host::HostError(host::ErrorCode::usage, kStandardStream,
                              "expected a file; standard input holds the requests");
    }
    const auto host = open_pane(options, streams.in);
    DriveSession(*host, streams.in, streams.out).run();
}

} // namespace specialpages::cli
