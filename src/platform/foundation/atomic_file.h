// Files written whole or not at all, and read whole with a bound.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// Replaces `path` by `bytes`: temporary file beside it, flush to disk, rename. Missing folders are made, a
/// replaced file's permissions are kept, and a symbolic link stays one (its target is replaced). On failure
/// the old file is as it was, no temporary file is left, and the answer is the reason; empty text on success.
SPECIALPAGES_PLATFORM_API std::string write_file_atomically(const std::filesystem::path& path,
                                                            std::string_view bytes);

/// The whole file. Empty optional when it cannot be read or is larger than `max_bytes`; `error`, when given,
/// says why.
SPECIALPAGES_PLATFORM_API std::optional<std::string>
read_file(const std::filesystem::path& path, std::string* error = nullptr,
          std::size_t max_bytes = std::size_t{64} * 1024 * 1024);

/// The user's configuration directory of this program: $XDG_CONFIG_HOME/special-pages, else
/// $HOME/.config/special-pages (XDG Base Directory Specification). It is not created here.
SPECIALPAGES_PLATFORM_API std::filesystem::path configuration_directory();

/// The user's directory for what can be made again: $XDG_CACHE_HOME/special-pages, else
/// $HOME/.cache/special-pages. It is not created here.
SPECIALPAGES_PLATFORM_API std::filesystem::path cache_directory();

/// The user's directory for what is kept from one run to the next and is neither configuration nor document:
/// $XDG_STATE_HOME/special-pages, else $HOME/.local/state/special-pages. It is not created here.
SPECIALPAGES_PLATFORM_API std::filesystem::path state_directory();

} // namespace specialpages::platform
