// The special pages of a job as text for people, in the shape of `special-pages show`.
#pragma once

#include "npif_reader.hpp"

#include <string>

/// The table of records, the commands, the papers and the flags; every line ends with "\n".
std::string decoded_view(const npif::Reader& job);

/// Whether all that the view shows could be read. Otherwise there is no view.
bool has_decoded_view(const npif::Reader& job);

/// What a back-end would do for a command that is well formed, as one sentence.
std::string plan_of(const npif_command& command);
