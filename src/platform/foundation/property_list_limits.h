// The bounds within which a property list is read.
#pragma once

#include <cstddef>

namespace specialpages::platform {

/// What a text must keep to be read: larger or deeper ones are refused before any parser sees them.
inline constexpr std::size_t kMaxPropertyListBytes = std::size_t{16} * 1024 * 1024;
inline constexpr int kMaxPropertyListDepth = 64;

} // namespace specialpages::platform
