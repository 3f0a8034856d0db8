// Status numbers of the platform's operations: 0 is success, everything else names a failure.
#pragma once

#include <cstdint>

namespace specialpages::platform {

using OSStatus = std::int32_t;

inline constexpr OSStatus noErr = 0;
/// A file, folder or bundle that should be there is not.
inline constexpr OSStatus fnfErr = -43;
/// An argument is missing or of the wrong kind.
inline constexpr OSStatus paramErr = -50;
/// Memory for a value could not be had, or a value does not fit.
inline constexpr OSStatus memFullErr = -108;
/// Writing failed (disk full, no permission).
inline constexpr OSStatus ioErr = -36;
/// The print session holds no data under the key.
inline constexpr OSStatus kPMNoSessionData = -30891;
/// The print settings hold no value under the key.
inline constexpr OSStatus kPMKeyNotFound = -9589;

} // namespace specialpages::platform
