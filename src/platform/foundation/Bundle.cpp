#include "platform/foundation/Bundle.h"

#include "platform/foundation/atomic_file.h"
#include "platform/foundation/language_tags.h"
#include "platform/foundation/log.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/strings_table.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace specialpages::platform {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFallbackLanguage = "en";
constexpr const char* kLanguageFolderEnding = ".lproj";

/// All bundles in the order of loading, the dead ones among them until the next loading. Never destroyed,
/// since bundles may live in objects that are torn down after it would be.
std::vector<std::weak_ptr<Bundle>>& registry() {
    static auto& bundles = *new std::vector<std::weak_ptr<Bundle>>;
    return bundles;
}

/// Whether the relative path stays below the folder that it is appended to. `path` must be in normal form.
bool stays_inside(const fs::path& path) {
    return !path.empty() && path.is_relative() && *path.begin() != ".." &&
           path.native().find('\0') == std::string::npos;
}

/// Whether the tag can name a language folder, which is one component.
bool is_language(const std::string& tag) {
    return !tag.empty() && tag.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

bool is_file(const fs::path& path) {
    std::error_code failed;
    return fs::is_regular_file(path, failed);
}

std::shared_ptr<Bundle> refuse(std::string* error, std::string message) {
    if (error != nullptr) {
        *error = std::move(message);
    }
    return nullptr;
}

/// Each language with the more general ones that it falls back to, and the last of all.
std::vector<std::string> language_chain(const std::vector<std::string>& languages) {
    std::vector<std::string> chain;
    const auto add = [&chain](const std::string& language) {
        if (is_language(language) && std::find(chain.begin(), chain.end(), language) == chain.end()) {
            chain.push_back(language);
        }
    };
    for (const auto& language : languages) {
        std::ranges::for_each(language_tags(language), add);
    }
    add(kFallbackLanguage);
    return chain;
}

} // namespace

Bundle::Bundle(fs::path directory, PropertyList info)
    : directory_(std::move(directory)), info_(std::move(info)), languageChain_(language_chain({})) {}

Bundle::~Bundle() = default;

std::shared_ptr<Bundle> Bundle::load(const fs::path& directory, std::string* error) {
    std::error_code failed;
    const fs::path absolute = fs::absolute(directory, failed).lexically_normal();
    if (failed || directory.empty() || !fs::is_directory(absolute, failed)) {
        return refuse(error, "no bundle at " + directory.string());
    }
    const fs::path file = absolute / "Info.plist";
    std::string reason;
    const auto bytes = read_file(file, &reason, kMaxPropertyListBytes);
    if (!bytes) {
        return refuse(error, std::move(reason));
    }
    auto info = parse_property_list(*bytes, &reason);
    if (info && !std::holds_alternative<PropertyList::Dictionary>(info->value)) {
        info.reset();
        reason = "no dictionary";
    }
    if (!info) {
        return refuse(error, file.string() + ": " + reason);
    }
    // A trailing slash is no part of the bundle's name.
    const fs::path named = absolute.has_filename() ? absolute : absolute.parent_path();
    std::shared_ptr<Bundle> bundle(new Bundle(named, std::move(*info)));
    std::erase_if(registry(), [](const auto& known) { return known.expired(); });
    registry().push_back(bundle);
    return bundle;
}

std::shared_ptr<Bundle> Bundle::CFBundleGetBundleWithIdentifier(std::string_view identifier) {
    for (const auto& known : registry()) {
        auto bundle = known.lock();
        if (bundle && bundle->bundleIdentifier() == identifier) {
            return bundle;
        }
    }
    return nullptr;
}

std::optional<std::string> Bundle::bundleIdentifier() const {
    return objectForInfoDictionaryKey("CFBundleIdentifier");
}

std::optional<std::string> Bundle::objectForInfoDictionaryKey(std::string_view key) const {
    const PropertyList* entry = info_.find(key);
    const std::string* text = entry == nullptr ? nullptr : entry->text();
    return text == nullptr ? std::nullopt : std::optional(*text);
}

std::optional<fs::path> Bundle::CFBundleCopyResourceURL(std::string_view name, std::string_view extension,
                                                        std::string_view subDirectory) const {
    std::string file(name);
    if (!extension.empty()) {
        file.append(1, '.').append(extension);
    }
    // An absolute name would replace what stands before it.
    if (name.empty() || fs::path(file).is_absolute()) {
        return std::nullopt;
    }
    const fs::path relative = (fs::path(subDirectory) / file).lexically_normal();
    if (!stays_inside(relative)) {
        return std::nullopt;
    }
    if (const fs::path path = directory_ / relative; is_file(path)) {
        return path;
    }
    for (const auto& language : languageChain_) {
        if (const fs::path path = directory_ / (language + kLanguageFolderEnding) / relative; is_file(path)) {
            return path;
        }
    }
    return std::nullopt;
}

std::string Bundle::localizedStringForKey(std::string_view key, std::string_view value,
                                          std::string_view table) const {
    const std::string name(table.empty() ? std::string_view("Localizable") : table);
    const std::string wanted(key);
    for (const auto& language : languageChain_) {
        const Table& texts = this->table(language, name);
        if (const auto found = texts.find(wanted); found != texts.end()) {
            return found->second;
        }
    }
    return std::string(value.empty() ? key : value);
}

const Bundle::Table& Bundle::table(const std::string& language, const std::string& name) const {
    // No language has a slash in its name, so that no two tables share this one.
    const auto [place, isNew] = tables_.try_emplace(language + '/' + name);
    if (!isNew) {
        return place->second;
    }
    const fs::path relative = fs::path(name + ".strings").lexically_normal();
    const fs::path file = directory_ / (language + kLanguageFolderEnding) / relative;
    if (!stays_inside(relative) || !is_file(file)) {
        return place->second;
    }
    std::string reason;
    StringsError error;
    const auto bytes = read_file(file, &reason, kMaxStringsBytes);
    const auto entries = bytes ? parse_strings(*bytes, &error) : std::nullopt;
    if (!entries) {
        NSLog(bytes ? file.string() + ":" + decimal_text(error.line) + ": " + error.message : reason);
        return place->second;
    }
    for (const auto& [key, text] : *entries) {
        place->second.try_emplace(key, text);
    }
    return place->second;
}

void Bundle::setPreferredLanguages(const std::vector<std::string>& languages) {
    languageChain_ = language_chain(languages);
}

std::vector<std::string> Bundle::localizations() const {
    std::vector<std::string> languages;
    std::error_code failed;
    for (fs::directory_iterator entry(directory_, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        std::error_code unreadable;
        const fs::path& path = entry->path();
        if (path.extension() == kLanguageFolderEnding && entry->is_directory(unreadable)) {
            languages.push_back(path.stem().string());
        }
    }
    std::sort(languages.begin(), languages.end());
    return languages;
}

} // namespace specialpages::platform
