// Settings files: the print settings of one job and nothing else, one object (or dictionary) from key to text
// or array of texts, in the order in which the keys were first written. A name that ends in ".plist" (in any
// case) is an XML property list, every other one JSON. Reading is strict: a key that stands twice, an empty
// key, any other kind of value, ill-formed UTF-8 and the character U+0000 (which no print system carries) are
// errors that name the key and, where it is known, the line.
#pragma once

#include "platform/print/PrintSettings.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace specialpages::host {

/// Larger settings are refused, in bytes of the file.
inline constexpr std::size_t kMaxSettingsBytes = std::size_t{16} * 1024 * 1024;

enum class SettingsFormat { json, propertyList };

/// By the ending of the file's name.
SettingsFormat settings_format(const std::filesystem::path& file);

/// The settings in a text; `name` stands for the file in messages. HostError (input).
platform::PrintSettings parse_settings(std::string_view bytes, SettingsFormat format,
                                       const std::string& name);

/// The text of the settings: JSON with an indentation of two blanks, nothing beyond ASCII escaped, and a
/// final newline. The same settings give the same bytes, and reading them gives the same settings. HostError
/// (other), naming the key, when a key or value is no text that can be read back.
std::string write_settings(const platform::PrintSettings& settings, SettingsFormat format);

/// Reads a file. HostError (input).
platform::PrintSettings read_settings_file(const std::filesystem::path& file);

/// Writes a file whole or not at all. HostError (other).
void write_settings_file(const std::filesystem::path& file, const platform::PrintSettings& settings);

} // namespace specialpages::host
