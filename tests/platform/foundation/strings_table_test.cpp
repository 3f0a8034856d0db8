#include "platform/foundation/comma_locale.h"
#include "platform/foundation/strings_table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace specialpages::platform {
namespace {

using namespace std::string_literals;

/// "line: message" of a refused table.
std::string error_of(const std::string& bytes) {
    StringsError error;
    if (parse_strings(bytes, &error)) {
        return "accepted";
    }
    return std::to_string(error.line) + ": " + error.message;
}

StringsEntries parsed(const std::string& bytes) {
    StringsError error;
    auto entries = parse_strings(bytes, &error);
    EXPECT_TRUE(entries) << error.line << ": " << error.message;
    return entries.value_or(StringsEntries{{"refused", ""}});
}

TEST(ParseStrings, ReadsEntriesInFileOrderAndKeepsAKeyThatStandsTwice) {
    EXPECT_EQ(parsed("\"z\" = \"1\";\n\"a\" = \"2\";\n\"z\" = \"3\";\n"),
              (StringsEntries{{"z", "1"}, {"a", "2"}, {"z", "3"}}));
}

TEST(ParseStrings, ReadsATableWithoutEntries) {
    EXPECT_EQ(parsed(""), StringsEntries{});
    EXPECT_EQ(parsed(" \r\n\t// only\n/* comments */"), StringsEntries{});
}

TEST(ParseStrings, TakesBlanksAndCommentsBetweenAllParts) {
    EXPECT_EQ(parsed("/*1*/\"a\"/*2*/=//3\r\n\"b\"/**/;/***/\"c\"=\"d\";//"),
              (StringsEntries{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(parsed("/* \"x\" = \"y\"; */\"a\" = \"/* b */ // c\";"),
              (StringsEntries{{"a", "/* b */ // c"}}));
    EXPECT_EQ(parsed("// \"x\" = \"y\";\r\"a\" = \"b\";"), (StringsEntries{{"a", "b"}}));
}

TEST(ParseStrings, TakesUnquotedKeys) {
    EXPECT_EQ(parsed("Some_Key.1-$:=\"v\";"), (StringsEntries{{"Some_Key.1-$:", "v"}}));
}

TEST(ParseStrings, ReadsEmptyKeysAndValues) {
    EXPECT_EQ(parsed("\"\" = \"\";"), (StringsEntries{{"", ""}}));
}

TEST(ParseStrings, ReadsEscapes) {
    EXPECT_EQ(parsed(R"("\"\\" = "a\nb\tc\rd";)"), (StringsEntries{{"\"\\", "a\nb\tc\rd"}}));
    EXPECT_EQ(parsed(R"("a" = "\u00e4\U00E4\u20aC";)"),
              (StringsEntries{{"a", "\xC3\xA4\xC3\xA4\xE2\x82\xAC"}}));
    EXPECT_EQ(parsed(R"("a" = "\ud83d\uDE00\UD83D\ude00";)"),
              (StringsEntries{{"a", "\xF0\x9F\x98\x80\xF0\x9F\x98\x80"}}));
    EXPECT_EQ(parsed(R"("a" = "\u00412";)"), (StringsEntries{{"a", "A2"}}));
    EXPECT_EQ(parsed(R"("a" = "\u0000";)"), (StringsEntries{{"a", "\0"s}}));
}

TEST(ParseStrings, KeepsRawLineEndsAndUnicodeInsideQuotes) {
    EXPECT_EQ(parsed("\"a\nb\" = \"c\r\nd\t\xC3\xA4\";"), (StringsEntries{{"a\nb", "c\r\nd\t\xC3\xA4"}}));
}

TEST(ParseStrings, SkipsAByteOrderMarkInFront) {
    EXPECT_EQ(parsed("\xEF\xBB\xBF\"a\" = \"b\";"), (StringsEntries{{"a", "b"}}));
    EXPECT_EQ(error_of("\"a\" = \"b\";\n\xEF\xBB\xBF"), "2: expected a key");
}

TEST(ParseStrings, NamesLineAndExpectation) {
    EXPECT_EQ(error_of("\"a\" = \"b\"\n\"c\" = \"d\";"), "2: expected \";\" after the value");
    EXPECT_EQ(error_of("\"a\" = \"b\""), "1: expected \";\" after the value");
    EXPECT_EQ(error_of("\n\n\"a\" \"b\";"), "3: expected \"=\" after the key");
    EXPECT_EQ(error_of("\"a\";"), "1: expected \"=\" after the key");
    EXPECT_EQ(error_of("a"), "1: expected \"=\" after the key");
    EXPECT_EQ(error_of("\"a\" = b;"), "1: expected a quoted value");
    EXPECT_EQ(error_of("\"a\" = ;"), "1: expected a quoted value");
    EXPECT_EQ(error_of("\"a\" ="), "1: expected a quoted value");
    EXPECT_EQ(error_of("\"a\" = \"b\";\n;"), "2: expected a key");
    EXPECT_EQ(error_of("= \"b\";"), "1: expected a key");
    EXPECT_EQ(error_of("/"), "1: expected a key");
    EXPECT_EQ(error_of("\xC3\xA4 = \"b\";"), "1: expected a key");
    EXPECT_EQ(error_of("<?xml version=\"1.0\"?>\n<plist/>"), "1: expected a key");
}

TEST(ParseStrings, NamesTheLineWhereSomethingWithoutEndBegan) {
    EXPECT_EQ(error_of("\n/* a\n\n\"a\" = \"b\";"), "2: comment without end");
    EXPECT_EQ(error_of("\"a\" = /*"), "1: comment without end");
    EXPECT_EQ(error_of("/*/"), "1: comment without end");
    EXPECT_EQ(error_of("\"a\" = \n\"b\n\n"), "2: text without closing quote");
    EXPECT_EQ(error_of("\"a"), "1: text without closing quote");
    EXPECT_EQ(error_of("\"a\\"), "1: text without closing quote");
    EXPECT_EQ(error_of("\"a\\\""), "1: text without closing quote");
}

TEST(ParseStrings, RefusesEscapesThatAreNone) {
    EXPECT_EQ(error_of("\"a\" = \"b\n\\q\";"), "2: unknown escape");
    EXPECT_EQ(error_of(R"("a" = "\'";)"), "1: unknown escape");
    EXPECT_EQ(error_of("\"a\" = \"\\\n\";"), "1: unknown escape");
    EXPECT_EQ(error_of(R"("a" = "\u12";)"), "1: expected four hexadecimal digits");
    EXPECT_EQ(error_of(R"("a" = "\u00g0";)"), "1: expected four hexadecimal digits");
    EXPECT_EQ(error_of(R"("\u1)"), "1: expected four hexadecimal digits");
    EXPECT_EQ(error_of(R"("a" = "\ud83d\u12";)"), "1: expected four hexadecimal digits");
}

TEST(ParseStrings, RefusesHalfASurrogatePair) {
    for (const char* escapes :
         {R"(\ud83d)", R"(\ude00)", R"(\ud83dx)", R"(\ud83d\n)", R"(\ud83d\u0041)", R"(\ud83d\ud83d)"}) {
        EXPECT_EQ(error_of("\"a\" = \""s + escapes + "\";"), "1: half of a surrogate pair") << escapes;
    }
}

TEST(ParseStrings, CountsEveryKindOfLineEndOnce) {
    EXPECT_EQ(error_of("\r\n\r\n?"), "3: expected a key");
    EXPECT_EQ(error_of("\r\r?"), "3: expected a key");
    EXPECT_EQ(error_of("\n\r?"), "3: expected a key");
}

TEST(ParseStrings, RefusesBytesThatAreNotUtf8) {
    EXPECT_EQ(error_of("\"a\" = \"b\";\n\"c\" = \"\xC0\x80\";"), "2: not UTF-8");
    EXPECT_EQ(error_of("\xFF\xFE\"\0a\0\"\0"s), "1: not UTF-8");
    EXPECT_EQ(error_of("\n// \xE4"), "2: not UTF-8");
}

TEST(ParseStrings, RefusesTablesPastTheBound) {
    EXPECT_EQ(parsed(std::string(kMaxStringsBytes, ' ')), StringsEntries{});
    EXPECT_EQ(error_of(std::string(kMaxStringsBytes + 1, ' ')), "1: larger than 16777216 bytes");
}

TEST(ParseStrings, ReadsAHundredThousandEntriesAndOneOfAMegabyte) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) {
        bytes += "\"" + std::to_string(i) + "\" = \"\\u00e4\";\n";
    }
    EXPECT_EQ(parsed(bytes).size(), 100'000U);
    const std::string longText(1'000'000, 'x');
    EXPECT_EQ(parsed("\"a\" = \"" + longText + "\";"), (StringsEntries{{"a", longText}}));
}

TEST(ParseStrings, TakesNoErrorToReport) {
    EXPECT_EQ(parse_strings("\"a\""), std::nullopt);
}

TEST(ParseStrings, DoesNotCareForTheLocale) {
    const testing::CommaLocale locale;
    EXPECT_EQ(parsed("Key = \"1.5\\u00e4\";"), (StringsEntries{{"Key", "1.5\xC3\xA4"}}));
}

TEST(WriteStrings, WritesOneLineForEachEntry) {
    EXPECT_EQ(write_strings({}), "");
    EXPECT_EQ(write_strings({{"a", "b"}, {"", "\"\\\n\t\r\x01\x7F\xC3\xA4"}}),
              "\"a\" = \"b\";\n\"\" = \"\\\"\\\\\\n\\t\\r\\U0001\\U007F\xC3\xA4\";\n");
}

TEST(WriteStrings, ReplacesBytesThatAreNotUtf8) {
    EXPECT_EQ(write_strings({{"\xFF", "a"}}), "\"\xEF\xBF\xBD\" = \"a\";\n");
}

RC_GTEST_PROP(WriteStrings, ReadsBackToTheSameEntries,
              (const std::vector<std::pair<std::vector<std::uint8_t>, std::vector<std::uint8_t>>>& bytes)) {
    StringsEntries entries;
    for (const auto& [key, value] : bytes) {
        // Seven bits, so that every text is well-formed and control characters are frequent.
        const auto ascii = [](const std::vector<std::uint8_t>& from) {
            std::string to;
            for (const auto byte : from) {
                to += static_cast<char>(byte & 0x7FU);
            }
            return to;
        };
        entries.emplace_back(ascii(key), ascii(value));
    }
    RC_ASSERT(parse_strings(write_strings(entries)) == entries);
}

} // namespace
} // namespace specialpages::platform
