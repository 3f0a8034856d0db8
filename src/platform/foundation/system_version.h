// The release of the system that the pane believes to run on. The pane tells generations of the system apart
// by a kernel release text; on Linux the platform gives "13.4.0", the release whose rules this system keeps.
#pragma once

#include "platform/export.h"

#include <functional>
#include <optional>
#include <string>

namespace specialpages::platform {

inline constexpr const char* kLinuxKernelRelease = "13.4.0";

/// The kernel release text ("13.4.0"); empty optional when the system cannot tell.
SPECIALPAGES_PLATFORM_API std::optional<std::string> kernel_release();

/// Puts another source in its place, for tests; null brings the platform's own back.
SPECIALPAGES_PLATFORM_API void set_kernel_release_source(std::function<std::optional<std::string>()> source);

} // namespace specialpages::platform
