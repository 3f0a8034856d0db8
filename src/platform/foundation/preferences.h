// The preference store: texts under keys, one atomic property-list file in the configuration directory.
#pragma once

#include "platform/export.h"
#include "platform/foundation/property_list.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {

/// Whose preferences and for which machine, as the three domain words of one entry. They are kept apart in
/// the file.
inline constexpr const char* kCFPreferencesAnyApplication = "kCFPreferencesAnyApplication";
inline constexpr const char* kCFPreferencesCurrentUser = "kCFPreferencesCurrentUser";
inline constexpr const char* kCFPreferencesAnyUser = "kCFPreferencesAnyUser";
inline constexpr const char* kCFPreferencesCurrentHost = "kCFPreferencesCurrentHost";
inline constexpr const char* kCFPreferencesAnyHost = "kCFPreferencesAnyHost";

/// One store. Changes are held in memory until they are synchronised.
class SPECIALPAGES_PLATFORM_API Preferences {
  public:
    explicit Preferences(std::filesystem::path file);
    std::optional<std::string> value(std::string_view key, std::string_view application,
                                     std::string_view user, std::string_view host) const;
    /// An empty optional removes the entry.
    void setValue(std::string_view key, std::optional<std::string> value, std::string_view application,
                  std::string_view user, std::string_view host);
    /// Writes pending changes over a fresh read of the file (entries that another process wrote in the
    /// meantime stay), then drops the copy in memory so that the next read sees the file. False when the file
    /// cannot be written, or holds something else than a property list of this shape; it is then left as it
    /// was.
    bool synchronize();

  private:
    struct Change {
        std::string domain, key;
        std::optional<std::string> value;
    };
    const PropertyList& contents() const;
    std::filesystem::path file_;
    mutable std::optional<PropertyList> contents_;
    std::vector<Change> pending_;
};

/// The process's store, in configuration_directory()/preferences.plist unless a test has put another in its
/// place.
SPECIALPAGES_PLATFORM_API Preferences& standardPreferences();
/// Replaces the process's store; null brings the default file back (a new object).
SPECIALPAGES_PLATFORM_API void setStandardPreferences(std::unique_ptr<Preferences> preferences);

/// The value, or empty optional. A value that is no text counts as missing.
SPECIALPAGES_PLATFORM_API std::optional<std::string> CFPreferencesCopyValue(std::string_view key,
                                                                            std::string_view application,
                                                                            std::string_view user,
                                                                            std::string_view host);
SPECIALPAGES_PLATFORM_API void CFPreferencesSetValue(std::string_view key, std::optional<std::string> value,
                                                     std::string_view application, std::string_view user,
                                                     std::string_view host);
SPECIALPAGES_PLATFORM_API bool CFPreferencesSynchronize(std::string_view application, std::string_view user,
                                                        std::string_view host);

} // namespace specialpages::platform
