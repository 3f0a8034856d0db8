#include "cli/commands.h"
#include "cli/left_out_note.h"
#include "host/lp_options.h"

#include <ostream>

namespace specialpages::cli {

void lp_options_command(const std::string& settings, Streams streams) {
    const host::CheckedOptions checked = host::job_options(read_settings(settings, streams.in), {});
    note_left_out(checked, streams.err);
    streams.out << host::lp_arguments(checked.options) << '\n';
}

} // namespace specialpages::cli
