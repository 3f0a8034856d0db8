// What a start of the program reads before there is a window.
#pragma once

#include "qt/PrintOptions.h"
#include "qt/PrintProgram.h"

namespace specialpages::qt {

/// Reads the PPD file of the options and loads the pane in a thread of their own, while this thread has
/// Fontconfig read what fonts there are: that takes as long as both, and Qt would wait for it when it writes
/// its first letter. The answer is `services`, and gives that PPD out the first time that the file is asked
/// for. What cannot be read is tried again when it is needed, and refused then. Without a PPD file nothing is
/// done.
///
/// Called before there is a QApplication, which sets the locale; the environment is as before afterwards.
PrintServices read_ahead(const PrintOptions& options, PrintServices services);

} // namespace specialpages::qt
