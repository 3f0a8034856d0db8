// The log: lines with a fixed prefix and no levels. Nothing is printed by this library; whoever owns the
// process decides where lines go.
#pragma once

#include "platform/export.h"

#include <functional>
#include <string>
#include <string_view>

namespace specialpages::platform {

using LogSink = std::function<void(std::string_view line)>;

/// Hands one line to the sink, line ends at its end taken off. Without a sink it is dropped.
SPECIALPAGES_PLATFORM_API void NSLog(std::string_view line);

/// Sets the sink (null: none) and answers the one before, so that it can be put back.
SPECIALPAGES_PLATFORM_API LogSink setLogSink(LogSink sink);

} // namespace specialpages::platform
