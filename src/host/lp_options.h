// Job options as arguments of the command `lp`. They are read back twice, by a shell and by libcups, and each
// has its own quoting.
#pragma once

#include "host/job_options.h"

#include <string>

namespace specialpages::host {

/// "-o 'name=value' -o ..." on one line, without a line end; empty without options. A POSIX shell that reads
/// it (by `eval`, or from a script) makes two words of each option, and `lp` reads the second back as that
/// name and value. Precondition: options as options_of_settings answers them.
std::string lp_arguments(const JobOptions& options);

/// "name=value" as libcups reads it back: a backslash before everything that would end or change it.
std::string lp_option(const JobOption& option);

/// The text as one word of a POSIX shell.
std::string shell_word(const std::string& text);

} // namespace specialpages::host
