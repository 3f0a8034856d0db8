// The localised tables against one another: a translation has what English has, its formats take the same
// arguments, its texts fit where the English ones fit, and they are set as the language sets them.
#include "dialogs/covers_tables.h"
#include "platform/foundation/text.h"
#include "platform/foundation/text_columns.h"
#include "plugin/language_files.h"
#include "records/record_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

Texts keys_of(const platform::StringsEntries& entries) {
    Texts keys;
    for (const auto& [key, text] : entries) {
        keys.push_back(key);
    }
    return keys;
}

/// All matches of the expression, in order.
Texts matches(const std::string& text, const char* expression) {
    const std::regex pattern(expression);
    Texts found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
        found.push_back(match->str());
    }
    return found;
}

std::size_t count(const std::string& text, std::string_view part) {
    std::size_t times = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++times;
    }
    return times;
}

TEST(Languages, AreEnglishGermanFrenchAndJapanese) {
    EXPECT_EQ(built_bundle()->localizations(), kLanguages);
}

TEST(Languages, HaveTheTablesOfEnglishAndNoOthers) {
    ASSERT_THAT(english_tables(), ::testing::Contains("Localizable.strings"));
    for (const std::string& language : kTranslations) {
        EXPECT_EQ(files_in(language_folder(language), ".strings"), english_tables()) << language;
    }
}

TEST(Languages, HaveTheKeysOfEnglishInItsOrderAndNoOthers) {
    for (const std::string& table : english_tables()) {
        const Texts english = keys_of(entries_of("en", table));
        EXPECT_EQ(std::set<std::string>(english.begin(), english.end()).size(), english.size())
            << table << " has a key twice";
        for (const std::string& language : kTranslations) {
            EXPECT_THAT(keys_of(entries_of(language, table)), ElementsAreArray(english))
                << language << '/' << table;
        }
    }
}

TEST(Languages, TablesAreUtf8WithoutAMarkWithPlainLines) {
    for (const std::string& language : kLanguages) {
        for (const std::string& table : english_tables()) {
            const std::string bytes = bytes_of(language_folder(language) / table);
            EXPECT_TRUE(platform::is_valid_utf8(bytes)) << language << '/' << table;
            EXPECT_FALSE(bytes.starts_with("\xEF\xBB\xBF")) << language << '/' << table;
            EXPECT_EQ(count(bytes, "\r"), 0U) << language << '/' << table;
            EXPECT_EQ(count(bytes, "\t"), 0U) << language << '/' << table;
            EXPECT_EQ(count(bytes, "\uFFFD"), 0U) << language << '/' << table;
            EXPECT_TRUE(bytes.ends_with("\n")) << language << '/' << table;
        }
    }
}

TEST(Languages, NoTextIsEmptyOrHasBlanksAtItsEnds) {
    for (const Translated& each : all_translated()) {
        EXPECT_NE(each.text, "") << each.place();
        if (each.english.front() != ' ' && each.english.back() != ' ') {
            EXPECT_THAT(matches(each.text, "^ | $"), IsEmpty()) << each.place();
        }
    }
}

TEST(Languages, FormatsTakeTheArgumentsOfEnglishInItsOrder) {
    constexpr const char* kArgument = "%(%|[0-9]+\\$[@ds]|[@ds])";
    std::size_t formats = 0;
    for (const Translated& each : all_translated()) {
        const Texts english = matches(each.english, kArgument);
        formats += english.empty() ? 0 : 1;
        EXPECT_EQ(matches(each.text, kArgument), english) << each.place();
        EXPECT_EQ(count(each.text, "%"), count(each.english, "%")) << each.place();
    }
    EXPECT_GE(formats, 10 * kTranslations.size()); // the quantity, the tool tip, the sizes and their messages
}

TEST(Languages, NoTextIsLeftInEnglish) {
    // What is the same word in the other language.
    const std::map<std::string, std::set<std::string>> same{
        {"de", {"OK", "mm", ", ", "%@ ×"}},
        {"fr",
         {"OK", "mm", ", ", "%@ ×", "Page(s)", "Exception", "Type", "1 page", "%@ pages", "Page %@",
          "Exception, page %@", "Exception %@"}},
        {"ja", {"OK", "mm"}}};
    std::map<std::string, std::set<std::string>> found;
    for (const Translated& each : all_translated()) {
        if (each.text == each.english) {
            found[each.language].insert(each.text);
        }
    }
    EXPECT_EQ(found, same);
}

TEST(Languages, TextsEndAsTheEnglishOnesDo) {
    for (const Translated& each : all_translated()) {
        const bool ja = each.language == "ja";
        EXPECT_EQ(each.text.ends_with("…"), each.english.ends_with("…")) << each.place();
        EXPECT_EQ(each.text.ends_with(ja ? "：" : ":"), each.english.ends_with(":")) << each.place();
        EXPECT_EQ(each.text.ends_with(ja ? "？" : "?"), each.english.ends_with("?")) << each.place();
    }
}

/// The pages, limits and examples of a message, which people type as they stand.
std::multiset<std::string> numbers(const std::string& text) {
    const Texts found = matches(text, "[0-9]+(\\.[0-9]+)?(-[0-9]+)?");
    return {found.begin(), found.end()};
}

TEST(Languages, MessagesNameTheNumbersOfTheEnglishOnes) {
    std::size_t messages = 0;
    for (const Translated& each : all_translated()) {
        if (!each.key.starts_with("Warning") && !each.key.starts_with("Message")) {
            continue;
        }
        ++messages;
        const auto expected = numbers(each.english);
        const auto named = numbers(each.text);
        EXPECT_TRUE(std::includes(named.begin(), named.end(), expected.begin(), expected.end()))
            << each.place() << ": " << each.text;
    }
    EXPECT_GE(messages, 14 * kTranslations.size());
}

TEST(Languages, QuotationMarksApostrophesAndDotsAreTypographic) {
    for (const Translated& each : all_translated()) {
        EXPECT_THAT(matches(each.text, "[\"'`]|\\.\\.\\."), IsEmpty()) << each.place();
        EXPECT_EQ(count(each.text, "„"), count(each.text, "“")) << each.place();
        EXPECT_EQ(count(each.text, "«"), count(each.text, "»")) << each.place();
        EXPECT_EQ(count(each.text, "「"), count(each.text, "」")) << each.place();
    }
}

TEST(Languages, FrenchPunctuationKeepsItsSpace) {
    for (const Translated& each : all_translated()) {
        if (each.language != "fr") {
            continue;
        }
        EXPECT_EQ(count(each.text, ":"), count(each.text, "\u00A0:")) << each.place();
        for (const std::string mark : {"?", "!", ";", "»"}) {
            EXPECT_EQ(count(each.text, mark), count(each.text, "\u202F" + mark)) << each.place();
        }
        EXPECT_EQ(count(each.text, "«"), count(each.text, "«\u202F")) << each.place();
    }
}

TEST(Languages, GermanAbbreviationsDoNotBreak) {
    for (const Translated& each : all_translated()) {
        if (each.language == "de") {
            EXPECT_THAT(matches(each.text, "z\\. ?B\\."), IsEmpty()) << each.place();
        }
    }
}

TEST(Languages, JapanesePunctuationIsFullWidth) {
    for (const Translated& each : all_translated()) {
        if (each.language != "ja") {
            continue;
        }
        // What is typed into a field stays as it is typed.
        const std::string text = std::regex_replace(each.text, std::regex("[0-9]+, [0-9]+-[0-9]+"), "");
        EXPECT_THAT(matches(text, "[,:;()?!]"), IsEmpty()) << each.place();
        EXPECT_THAT(matches(text, "\\.(?![0-9])"), IsEmpty()) << each.place();
    }
}

/// Columns that a text may take: sentences wrap, labels and buttons must fit where the English one fits or be
/// short anyhow. Titles have their window's width, tool tips and notes the screen's, and sheets are read out.
std::size_t column_limit(const Translated& each) {
    constexpr std::size_t kShort = 16;
    constexpr std::size_t kAddButton = 22;
    constexpr std::size_t kTitle = 26;
    constexpr std::size_t kToolTip = 40;
    const auto isOne = [&each](std::initializer_list<std::string_view> endings) {
        return std::ranges::any_of(endings,
                                   [&each](std::string_view ending) { return each.key.ends_with(ending); });
    };
    const std::size_t least = isOne({"Windows", "Wnd", "PDE Title", "Tab shift", "Cover Sheet"}) ? kTitle
                              : isOne({"Tool Tip"}) || each.key.starts_with("Note ")             ? kToolTip
                              : isOne({"Add Covers Btn", "Add Inserts Btn", "Add Exceptions Btn"})
                                  ? kAddButton
                                  : kShort;
    return std::max(platform::text_columns(each.english) * 8 / 5, least);
}

TEST(Languages, TextsFitWhereTheEnglishOnesFit) {
    for (const Translated& each : all_translated()) {
        EXPECT_LE(platform::text_columns(each.text), column_limit(each)) << each.place() << ": " << each.text;
    }
}

TEST(Languages, ItemsOfOneMenuDiffer) {
    const auto distinct = [](const auto& keys) {
        for (const std::string& language : kLanguages) {
            const Speaking speaking(language);
            std::set<std::string> texts;
            for (const std::string_view key : keys) {
                const std::string text = built_bundle()->localizedStringForKey(key, "(missing)", "");
                EXPECT_NE(text, "(missing)") << language << ' ' << key;
                EXPECT_TRUE(texts.insert(text).second) << language << ": \"" << text << "\" twice";
            }
        }
    };
    distinct(coverOptionListIniMenu);
    distinct(printingOptionListIniMenu);
    distinct(exceptionTowSidePrintIniMenu);
    distinct(tableColumnsTitleResourceString);
    distinct(insertOptionListIniMenu);
    distinct(std::vector<const char*>{"Cover String", "Insert String", "Exception String"});
    distinct(std::vector<const char*>{"Size String", "Color String", "Type String", "No Change Option String",
                                      "NVUncollateSeparator-INT", "Advanced Setting String"});
    distinct(std::vector<const char*>{"Up Btn", "Down Btn", "Edit Btn", "Delete Btn", "Delete All Btn",
                                      "Undo Btn", "Special Pages CANCEL Btn", "Special Pages OK Btn",
                                      "Special Pages RESTORE Btn"});
    distinct(
        std::vector<const char*>{"No Shift Text", "Letter Shift Text", "A4 Shift Text", "Custom Shift Text"});
}

TEST(Languages, WhatSeveralTablesHoldIsWordedAlike) {
    for (const std::string& language : kLanguages) {
        std::map<std::string, std::string> texts;
        for (const auto& [key, text] : entries_of(language, "Localizable.strings")) {
            texts.emplace(key, text);
        }
        for (const auto& [key, text] : entries_of(language, "Localizable01.strings")) {
            EXPECT_EQ(texts[key], text) << language << ' ' << key;
        }
    }
}

/// Texts of the nib that the program replaces in every language before anybody sees them.
const std::set<std::string> kReplacedNibTexts{"Width:", "Length:", "Ver."};

TEST(Languages, EveryTextOfANibIsInATable) {
    const std::set<std::string> shown{"text", "windowTitle", "toolTip", "accessibleName", "title"};
    for (const std::string& nib : files_in(language_folder("en").parent_path() / "nibs", ".ui")) {
        std::set<std::string> tables;
        for (const auto& [key, text] : entries_of("en", "Localizable.strings")) {
            tables.insert(text);
        }
        for (const auto& [key, text] : entries_of("en", nib.substr(0, nib.size() - 3) + ".strings")) {
            EXPECT_EQ(key, text) << nib;
            tables.insert(key);
        }
        pugi::xml_document document;
        ASSERT_TRUE(document.load_file((language_folder("en").parent_path() / "nibs" / nib).c_str()));
        std::size_t texts = 0;
        for (const pugi::xpath_node& found : document.select_nodes("//property/string[not(@notr)]")) {
            const std::string text = found.node().text().get();
            if (shown.contains(found.parent().attribute("name").value()) &&
                !kReplacedNibTexts.contains(text)) {
                EXPECT_THAT(tables, ::testing::Contains(text)) << nib;
                ++texts;
            }
        }
        EXPECT_GT(texts, 50U) << nib;
    }
}

std::string title_in(const std::string& language) {
    const Speaking speaking(language);
    return built_bundle()->localizedStringForKey("PDE Title", "(missing)", "Localizable01");
}

TEST(Languages, AnUnknownOneIsEnglish) {
    for (const char* unknown :
         {"", "xx", "pt", "pt_BR.UTF-8", "C", "C.UTF-8", "POSIX", "deu", "../de", "日本"}) {
        EXPECT_EQ(title_in(unknown), "Special Pages") << unknown;
    }
}

TEST(Languages, ARegionEncodingOrCaseStillFindsTheLanguage) {
    for (const char* german :
         {"de", "de_AT", "de-CH", "de_DE.UTF-8", "de.UTF-8", "de@euro", "DE", "de-Latn-DE"}) {
        EXPECT_EQ(title_in(german), "Sonderseiten") << german;
    }
    EXPECT_EQ(title_in("fr_CA.UTF-8"), "Pages spéciales");
    EXPECT_EQ(title_in("ja_JP.eucJP"), "特殊ページ");
    EXPECT_EQ(title_in("en_GB"), "Special Pages");
}

} // namespace
} // namespace specialpages::test
