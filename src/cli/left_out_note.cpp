#include "cli/left_out_note.h"

#include <ostream>

namespace specialpages::cli {

void note_left_out(const host::CheckedOptions& checked, std::ostream& err) {
    if (checked.recordsLeft > 0) {
        err << "special-pages: the job goes without the pane's own records (" << checked.recordsLeft
            << " options, " << checked.bytesLeft
            << " bytes), which only the pane reads; the settings file keeps them\n";
    }
}

} // namespace specialpages::cli
