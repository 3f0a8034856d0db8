// The fixed identifiers of this build.
#pragma once

#include <memory>
#include <string>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages {

inline constexpr const char* kBundleIdentifier = "com.norvalen.nb.r15.pde.SpecialPages";
inline constexpr const char* kClientIdentifier = "com.norvalen.nb.r15.SpecialPagesKind";
inline constexpr const char* kPanelKind = "com.norvalen.nb.r15.pde.SpecialPagesKind";
inline constexpr const char* kNibNamePrefix = "NVSpecialPages_";
inline constexpr const char* kHelpNamePrefix = "SpecialPagesMain_";
inline constexpr const char* kLocalizationAttribute = "NVLocalizableFileIndex";
inline constexpr const char* kConstraintCacheAttribute = "NVXCDFSetting";

/// The text of a localised table that is missing there.
inline constexpr const char* kNoTranslation = "no translation";
/// The same, for the lookups of the summary list.
inline constexpr const char* kNotFound = "not found";

/// The living bundle with kBundleIdentifier; null when it is not loaded.
std::shared_ptr<platform::Bundle> GetAppBundleRef();
std::string GetAppClientID();

/// "Localizable" followed by the index.
std::string localizable_table_name(const std::string& index);

} // namespace specialpages
