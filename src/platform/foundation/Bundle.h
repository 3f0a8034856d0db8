// A bundle: one directory with Info.plist, localised tables and other resources. Resources are looked for in
// the directory itself first, then in the "<language>.lproj" folders of the preferred languages, then in
// "en.lproj".
#pragma once

#include "platform/export.h"
#include "platform/foundation/property_list.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace specialpages::platform {

class SPECIALPAGES_PLATFORM_API Bundle {
  public:
    /// Opens the bundle at `directory` and makes it known under its CFBundleIdentifier for as long as it
    /// lives. Null when the directory or its Info.plist is missing or malformed; `error`, when given, says
    /// why.
    static std::shared_ptr<Bundle> load(const std::filesystem::path& directory, std::string* error = nullptr);

    /// The living bundle with that identifier, the one loaded first when there are several; null when there
    /// is none.
    static std::shared_ptr<Bundle> CFBundleGetBundleWithIdentifier(std::string_view identifier);

    ~Bundle();
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

    /// The bundle's directory, absolute.
    const std::filesystem::path& CFBundleCopyBundleURL() const { return directory_; }
    std::optional<std::string> bundleIdentifier() const;

    /// Path of the resource `name`.`extension` (an empty extension adds nothing) in `subDirectory` (empty:
    /// none). Empty optional when there is no such regular file, or when `name` would lead out of the bundle.
    std::optional<std::filesystem::path> CFBundleCopyResourceURL(std::string_view name,
                                                                 std::string_view extension,
                                                                 std::string_view subDirectory) const;

    /// The text of `key` in `table` (empty: "Localizable") of the first preferred language that has the key,
    /// then of "en". Not found: `value`, or the key itself when `value` is empty.
    std::string localizedStringForKey(std::string_view key, std::string_view value,
                                      std::string_view table) const;

    /// A text entry of Info.plist; empty optional when it is missing or no text.
    std::optional<std::string> objectForInfoDictionaryKey(std::string_view key) const;

    /// Languages in order of preference ("de", "pt-BR", "de_AT.UTF-8"); each falls back to its less special
    /// tags (language_tags), all of them to "en". Initially {"en"}.
    void setPreferredLanguages(const std::vector<std::string>& languages);
    /// The languages for which the bundle has a folder, sorted.
    std::vector<std::string> localizations() const;

  private:
    Bundle(std::filesystem::path directory, PropertyList info);
    using Table = std::unordered_map<std::string, std::string>;
    const Table& table(const std::string& language, const std::string& name) const;

    std::filesystem::path directory_;
    PropertyList info_;
    std::vector<std::string> languageChain_; ///< where texts are looked for, in that order
    mutable std::unordered_map<std::string, Table> tables_;
};

} // namespace specialpages::platform
