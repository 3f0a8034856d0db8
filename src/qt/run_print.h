// The program with the window: options, the document, the dialog, the settings file.
#pragma once

#include "qt/PrintOptions.h"
#include "qt/PrintProgram.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::qt {

/// What the arguments (without the program's name) ask for. Empty when there is nothing to run: `exit` is
/// then the exit code, and help, version or the error was written.
std::optional<PrintOptions> parse_print_options(std::vector<std::string> arguments, std::ostream& out,
                                                std::ostream& err, int& exit);

/// Shows the print dialog until the user prints or cancels, and answers the exit code: 0 printed, 1 cancelled
/// or failed, 2 for a document or settings file that cannot be read, 4 when there is no such queue. Needs a
/// QApplication.
int run_print(const PrintOptions& options, const PrintServices& services, std::ostream& out,
              std::ostream& err);

} // namespace specialpages::qt
