// The print settings of one job: texts and arrays of text under keys, in the order in which the keys were
// first written. A host owns the object; a pane borrows it.
#pragma once

#include "platform/export.h"
#include "platform/status.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace specialpages::platform {

using SettingsValue = std::variant<std::string, std::vector<std::string>>;

class SPECIALPAGES_PLATFORM_API PrintSettings {
  public:
    struct Entry {
        std::string key;
        SettingsValue value;
        bool locked = false;
    };

    PrintSettings() = default;
    PrintSettings(const PrintSettings&) = default;
    PrintSettings& operator=(const PrintSettings&) = default;
    virtual ~PrintSettings() = default;

    /// Stores the value; a key that is there keeps its place. paramErr for an empty key. Virtual, so that a
    /// test can let a write fail.
    virtual OSStatus setValue(std::string_view key, SettingsValue value, bool locked);
    /// The value; null when the key is not there. Valid until the next change.
    const SettingsValue* value(std::string_view key) const;
    /// Removes the entry; false when there was none.
    bool remove(std::string_view key);
    const std::vector<Entry>& entries() const { return entries_; }

  private:
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> places_;
};

/// Stores one value. paramErr when the settings are null or the key is empty.
SPECIALPAGES_PLATFORM_API OSStatus PMPrintSettingsSetValue(PrintSettings* settings, std::string_view key,
                                                           SettingsValue value, bool locked);

/// Reads one value into `out`, which stays as it was unless the status is 0. kPMKeyNotFound for a missing
/// key.
SPECIALPAGES_PLATFORM_API OSStatus PMPrintSettingsGetValue(const PrintSettings* settings,
                                                           std::string_view key, SettingsValue& out);

} // namespace specialpages::platform
