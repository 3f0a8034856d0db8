// What the program with the window is started with.
#pragma once

#include <string>

namespace specialpages::qt {

struct PrintOptions {
    std::string document;  ///< a PDF file; empty: none
    std::string ppd;       ///< of a printer without a queue, which prints into a file; empty: none
    std::string printer;   ///< the queue that is chosen at first; empty: the dialog's own choice
    std::string settings;  ///< a settings file that the first pane begins with; empty: none
    std::string out = "-"; ///< where the settings go, "-" being standard output
    std::string language;
};

} // namespace specialpages::qt
