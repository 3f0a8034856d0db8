// What a person is told when a job goes without the pane's own records.
#pragma once

#include "host/job_options.h"

#include <iosfwd>

namespace specialpages::cli {

/// One line when something was left out, nothing otherwise.
void note_left_out(const host::CheckedOptions& checked, std::ostream& err);

} // namespace specialpages::cli
