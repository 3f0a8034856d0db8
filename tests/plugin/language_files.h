// The languages of the pane as their files stand in the project, and a bundle that speaks one of them for as
// long as a test lasts.
#pragma once

#include "platform/foundation/Bundle.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/strings_table.h"
#include "plugin/pane_fixture.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace specialpages::test {

inline const std::vector<std::string> kTranslations{"de", "fr", "ja"};
inline const std::vector<std::string> kLanguages{"de", "en", "fr", "ja"};

inline std::filesystem::path language_folder(const std::string& language) {
    return std::filesystem::path(paths::source_dir()) / "resources" / (language + ".lproj");
}

/// Names of the files with that ending, sorted.
inline std::vector<std::string> files_in(const std::filesystem::path& folder, const std::string& ending) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ending) {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

inline std::string bytes_of(const std::filesystem::path& file) {
    std::string error;
    auto bytes = platform::read_file(file, &error);
    EXPECT_TRUE(bytes.has_value()) << error;
    return bytes.value_or("");
}

/// A table ("Localizable.strings") of a language, in file order.
inline platform::StringsEntries entries_of(const std::string& language, const std::string& table) {
    platform::StringsError error;
    auto entries = platform::parse_strings(bytes_of(language_folder(language) / table), &error);
    EXPECT_TRUE(entries.has_value()) << language << '/' << table << ':' << error.line << ' ' << error.message;
    return entries.value_or(platform::StringsEntries{});
}

inline std::vector<std::string> english_tables() {
    return files_in(language_folder("en"), ".strings");
}

/// One text of English and what stands for it in another language.
struct Translated {
    std::string language, table, key, english, text;
    std::string place() const { return language + '/' + table + " \"" + key + '"'; }
};

/// Every text of every translation that English has, too.
inline std::vector<Translated> all_translated() {
    std::vector<Translated> all;
    for (const std::string& table : english_tables()) {
        const auto english = entries_of("en", table);
        for (const std::string& language : kTranslations) {
            std::map<std::string, std::string> texts;
            for (const auto& [key, text] : entries_of(language, table)) {
                texts.emplace(key, text);
            }
            for (const auto& [key, text] : english) {
                if (const auto found = texts.find(key); found != texts.end()) {
                    all.push_back({language, table, key, text, found->second});
                }
            }
        }
    }
    return all;
}

/// The built bundle prefers that language; English again at the end.
class Speaking {
  public:
    explicit Speaking(const std::string& language) { built_bundle()->setPreferredLanguages({language}); }
    Speaking(const Speaking&) = delete;
    Speaking& operator=(const Speaking&) = delete;
    ~Speaking() { built_bundle()->setPreferredLanguages({"en"}); }
};

} // namespace specialpages::test
