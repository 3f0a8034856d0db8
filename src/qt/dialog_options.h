// The choices of a print dialog as options of a job.
#pragma once

#include "host/job_options.h"

class QPrinter;

namespace specialpages::qt {

/// What the dialog has put into its printer, as options for a queue: media, sides, copies and how they are
/// collated, the chosen pages, and whatever else it keeps for the print system (pages per sheet, banners,
/// the queue's own choices), which has precedence. What a document decides itself is asked for only where
/// the user did: grey instead of colour, landscape.
host::JobOptions dialog_options(const QPrinter& printer);

} // namespace specialpages::qt
