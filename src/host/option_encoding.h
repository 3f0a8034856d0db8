// What libcups makes of an option on its way into a job. It knows names of its own, whose values it turns
// into numbers, switches, ranges and lists; every other one it sends as text.
#pragma once

#include <string>

namespace specialpages::host {

/// Whether libcups puts this option into a job as one text, byte for byte, under this very name.
bool arrives_as_text(const std::string& name, const std::string& value);

/// The option as the server writes it into the one argument that holds all options of a job: "name=value", a
/// backslash before each blank, tab, line end, backslash, apostrophe and quotation mark of the value.
std::string filter_option(const std::string& name, const std::string& value);

/// Whether a filter that reads its argument with libcups finds this value under this name, and the next
/// option untouched.
bool is_read_back(const std::string& name, const std::string& value);

} // namespace specialpages::host
