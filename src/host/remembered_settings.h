// Settings that a user asked to keep for a printer: one settings file a printer in the user's state
// directory, written whole or not at all. The files are the user's: one that is no settings file is told of
// and left alone.
#pragma once

#include "platform/print/PrintSettings.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::host {

/// $XDG_STATE_HOME/special-pages/printers, else $HOME/.local/state/special-pages/printers.
std::filesystem::path remembered_settings_directory();

/// The longest file name that file systems take, in bytes.
inline constexpr std::size_t kMaxFileNameBytes = 255;

/// The name of a printer's file, different for each name and never one that leads out of its folder: ASCII
/// letters, digits, "-", "." (not as the first) and all bytes beyond ASCII stay, every other byte is "_" and
/// two hexadecimal digits, and ".json" follows. Empty optional for a printer without a name, and for one
/// whose file name would be longer than kMaxFileNameBytes.
std::optional<std::string> remembered_settings_name(std::string_view printer);

/// What is kept for the printer; empty optional when nothing is. HostError (input), the file being its place,
/// when something is there that cannot be read as settings.
std::optional<platform::PrintSettings> recall_settings(std::string_view printer);

/// Keeps the settings in place of those before. HostError: other when they cannot be written, or when the
/// printer's name makes no file name; input, and nothing is changed, when the file that is there is no
/// settings file.
void remember_settings(std::string_view printer, const platform::PrintSettings& settings);

/// Keeps nothing for the printer any more; nothing to do when nothing is kept. HostError as above.
void forget_settings(std::string_view printer);

} // namespace specialpages::host
