// One value of the print settings, back from the slash-decimal form.
#pragma once

#include "host/HostError.h"

#include <string>

namespace specialpages::cli {

/// The text behind a stored value; one that does not begin with "/" is answered as it is. HostError with that
/// code, the place and the number of the offending byte (from 1) when it is malformed.
std::string decode_value(const std::string& stored, const std::string& place, host::ErrorCode code);

} // namespace specialpages::cli
