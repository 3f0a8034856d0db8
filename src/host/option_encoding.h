// What libcups makes of an option on its way into a job. It knows names of its own, whose values it turns
// into numbers, switches, ranges and lists; every other one it sends as text.
#pragma once

#include <string>

namespace specialpages::host {

/// Whether libcups puts this option into a job as one text, byte for byte, under this very name.
bool arrives_as_text(const std::string& name, const std::string& value);

} // namespace specialpages::host
