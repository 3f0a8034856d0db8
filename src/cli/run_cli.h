// The command `special-pages`.
#pragma once

#include "cli/streams.h"

#include <string>
#include <vector>

namespace specialpages::cli {

/// Runs one command; `arguments` are those after the program's name. Answers the exit code: 0 done, 1 another
/// failure, 2 usage or bad input, 3 refused by the pane, 4 printer. Never throws: a failure is one line
/// "special-pages: ..." on `err`.
int run_cli(const std::vector<std::string>& arguments, Streams streams);

} // namespace specialpages::cli
