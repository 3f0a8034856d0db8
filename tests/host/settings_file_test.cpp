#include "host/host_fixtures.h"
#include "host/settings_file.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sys/stat.h>

namespace specialpages::host {
namespace {

using platform::PrintSettings;
using platform::SettingsValue;
using testing::error_of;
using testing::read_bytes;
using testing::TemporaryFolder;
using Texts = std::vector<std::string>;
using Entries = std::vector<std::pair<std::string, SettingsValue>>;

PrintSettings settings_of(const Entries& entries) {
    PrintSettings settings;
    for (const auto& [key, value] : entries) {
        settings.setValue(key, value, false);
    }
    return settings;
}

Entries entries_of(const PrintSettings& settings) {
    Entries entries;
    for (const auto& entry : settings.entries()) {
        entries.emplace_back(entry.key, entry.value);
    }
    return entries;
}

PrintSettings parse_json(const std::string& bytes) {
    return parse_settings(bytes, SettingsFormat::json, "s.json");
}

const Entries kMixed{{"z.first", std::string("1")},
                     {"a.second", Texts{"A4", "Ä \"quoted\" \\ /"}},
                     {"empty text", std::string()},
                     {"empty array", Texts{}},
                     {"日本", std::string("\t\n\x01 €")}};

TEST(SettingsFile, JsonIsWrittenForPeopleAndInTheOrderOfTheKeys) {
    EXPECT_EQ(write_settings(settings_of(kMixed), SettingsFormat::json), "{\n"
                                                                         "  \"z.first\": \"1\",\n"
                                                                         "  \"a.second\": [\n"
                                                                         "    \"A4\",\n"
                                                                         "    \"Ä \\\"quoted\\\" \\\\ /\"\n"
                                                                         "  ],\n"
                                                                         "  \"empty text\": \"\",\n"
                                                                         "  \"empty array\": [],\n"
                                                                         "  \"日本\": \"\\t\\n\\u0001 €\"\n"
                                                                         "}\n");
    EXPECT_EQ(write_settings({}, SettingsFormat::json), "{}\n");
}

TEST(SettingsFile, JsonIsReadInTheOrderOfTheFile) {
    EXPECT_EQ(entries_of(parse_json(write_settings(settings_of(kMixed), SettingsFormat::json))), kMixed);
    EXPECT_EQ(entries_of(parse_json("  {\r\n}\r\n")), Entries{});
    EXPECT_EQ(entries_of(parse_json(R"({"a":"\u00e4\ud83d\ude00","b":[ ]})")),
              (Entries{{"a", std::string("ä😀")}, {"b", Texts{}}}));
}

TEST(SettingsFile, PropertyListsHoldTheSame) {
    const Entries plain{{"z.first", std::string("1")},
                        {"a.second", Texts{"A4", "<&>"}},
                        {"empty text", std::string()},
                        {"empty array", Texts{}},
                        {"日本", std::string("€")}};
    const std::string bytes = write_settings(settings_of(plain), SettingsFormat::propertyList);
    const PrintSettings read = parse_settings(bytes, SettingsFormat::propertyList, "s.plist");
    EXPECT_EQ(entries_of(read), plain);
    EXPECT_EQ(write_settings(read, SettingsFormat::propertyList), bytes);
}

TEST(SettingsFile, TheEndingOfTheNameTellsTheForm) {
    EXPECT_EQ(settings_format("a/b.plist"), SettingsFormat::propertyList);
    EXPECT_EQ(settings_format("b.PList"), SettingsFormat::propertyList);
    EXPECT_EQ(settings_format("b.json"), SettingsFormat::json);
    EXPECT_EQ(settings_format("b.plist.json"), SettingsFormat::json);
    EXPECT_EQ(settings_format("plist"), SettingsFormat::json);
    EXPECT_EQ(settings_format(".plist"), SettingsFormat::json); // a hidden file's name is no ending
}

struct Refused {
    const char* name;
    std::string bytes;
    std::string message;
};

class RefusedJson : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedJson, NamesLineKeyAndExpectation) {
    const HostError error = error_of([] { parse_json(GetParam().bytes); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_EQ(error.what(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Files, RefusedJson,
    ::testing::Values(
        Refused{"Empty", "",
                "s.json, line 1: expected JSON: syntax error while parsing value - unexpected end of input; "
                "expected '[', '{', or a literal"},
        Refused{
            "OtherText", "\nhello",
            "s.json, line 2: expected JSON: syntax error while parsing value - invalid literal; last read: "
            "'<U+000A>h'"},
        Refused{"CutOff", "{\"a\":\n\"b\"",
                "s.json, line 2: expected JSON: syntax error while parsing object - unexpected end of input; "
                "expected '}'"},
        Refused{
            "SomethingBehind", "{}\n{}",
            "s.json, line 2: expected JSON: syntax error while parsing value - unexpected '{'; expected end "
            "of input"},
        Refused{
            "NoComma", "{\"a\":\"1\"\n\"b\":\"2\"}",
            "s.json, line 2: expected JSON: syntax error while parsing object - unexpected string literal; "
            "expected '}'"},
        Refused{
            "BadUtf8", "{\"a\":\"\xFF\"}",
            "s.json, line 1: expected JSON: syntax error while parsing value - invalid string: ill-formed "
            "UTF-8 byte; last read: '\"\xFF'"},
        Refused{"LoneSurrogate", R"({"a":"\ud800"})",
                "s.json, line 1: expected JSON: syntax error while parsing value - invalid string: surrogate "
                "U+D800..U+DBFF must be followed by U+DC00..U+DFFF; last read: '\"\\ud800\"'"},
        Refused{"AnArray", "[]", "s.json, line 1: expected an object of settings, found an array"},
        Refused{"AText", "\n\"a\"", "s.json, line 2: expected an object of settings, found a text"},
        Refused{"Null", "null", "s.json, line 1: expected an object of settings, found null"},
        Refused{"NumberValue", "{\n\"a\": 1}",
                "s.json, line 2: \"a\": expected a text or an array of texts, found a number"},
        Refused{"NegativeValue", "{\"a\": -1}",
                "s.json, line 1: \"a\": expected a text or an array of texts, found a number"},
        Refused{"FractionValue", "{\"a\": 1.5}",
                "s.json, line 1: \"a\": expected a text or an array of texts, found a number"},
        Refused{"NullValue", "{\"a\": null}",
                "s.json, line 1: \"a\": expected a text or an array of texts, found null"},
        Refused{"TrueValue", "{\"a\": true}",
                "s.json, line 1: \"a\": expected a text or an array of texts, found true or false"},
        Refused{"ObjectValue", "{\"a\": {}}",
                "s.json, line 1: \"a\": expected a text or an array of texts, found an object"},
        Refused{"NumberInArray", "{\"a\": [\"1\",\n2]}",
                "s.json, line 2: \"a\": expected texts in the array, found a number"},
        Refused{"ArrayInArray", "{\"a\": [[]]}",
                "s.json, line 1: \"a\": expected texts in the array, found an array"},
        Refused{"MillionDeep", "{\"a\": " + std::string(1000000, '['),
                "s.json, line 1: \"a\": expected texts in the array, found an array"},
        Refused{"EmptyKey", "{\"\": \"1\"}", "s.json, line 1: a key is empty"},
        Refused{"KeyTwice", "{\"a\": \"1\",\n \"b\": [],\n \"a\": \"1\"}",
                "s.json, line 3: the key \"a\" stands twice"},
        Refused{"ZeroInValue", R"({"a":"x\u0000y"})",
                "s.json, line 1: the character U+0000 stands in the value of \"a\""},
        Refused{"ZeroInKey", R"({"a\u0000":"x"})",
                "s.json, line 1: the character U+0000 stands in the key \"a?\""}),
    [](const auto& info) { return info.param.name; });

class RefusedPropertyList : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedPropertyList, NamesFileAndKey) {
    const std::string bytes =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + GetParam().bytes + "</plist>";
    const HostError error = error_of([&] { parse_settings(bytes, SettingsFormat::propertyList, "s.plist"); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_EQ(error.what(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Files, RefusedPropertyList,
    ::testing::Values(Refused{"AnArray", "<array/>", "s.plist: expected a dictionary of settings"},
                      Refused{"AText", "<string>a</string>", "s.plist: expected a dictionary of settings"},
                      Refused{"NumberValue", "<dict><key>a</key><integer>1</integer></dict>",
                              "s.plist: \"a\": expected a text or an array of texts, found a number"},
                      Refused{"RealValue", "<dict><key>a</key><real>1.5</real></dict>",
                              "s.plist: \"a\": expected a text or an array of texts, found a number"},
                      Refused{"TrueValue", "<dict><key>a</key><true/></dict>",
                              "s.plist: \"a\": expected a text or an array of texts, found true or false"},
                      Refused{"DictionaryValue", "<dict><key>a</key><dict/></dict>",
                              "s.plist: \"a\": expected a text or an array of texts, found a dictionary"},
                      Refused{"DataValue", "<dict><key>a</key><data>AAAA</data></dict>",
                              "s.plist: \"a\": expected a text or an array of texts, found data"},
                      Refused{"ArrayInArray", "<dict><key>a</key><array><array/></array></dict>",
                              "s.plist: \"a\": expected texts in the array, found an array"},
                      Refused{"NumberInArray", "<dict><key>a</key><array><integer>1</integer></array></dict>",
                              "s.plist: \"a\": expected texts in the array, found a number"}),
    [](const auto& info) { return info.param.name; });

TEST(SettingsFile, WhatIsNoPropertyListIsRefusedWithTheReadersReason) {
    for (const char* const bytes :
         {"", "{}", "<plist", "\xEF\xBB\xBF<plist version=\"1.0\"><dict/></plist>"}) {
        const HostError error =
            error_of([&] { parse_settings(bytes, SettingsFormat::propertyList, "s.plist"); });
        EXPECT_EQ(error.code(), ErrorCode::input) << bytes;
        EXPECT_TRUE(error.detail().starts_with("expected an XML property list: ")) << error.detail();
        EXPECT_GT(error.detail().size(), std::string("expected an XML property list: ").size()) << bytes;
    }
}

TEST(SettingsFile, APropertyListWithAKeyTwiceOrEmptyIsRefused) {
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>";
    const std::string tail = "</dict></plist>";
    for (const char* const entries :
         {"<key>a</key><string>1</string><key>a</key><string>2</string>", "<key></key><string>1</string>"}) {
        EXPECT_EQ(error_of([&] {
                      parse_settings(head + entries + tail, SettingsFormat::propertyList, "s.plist");
                  }).code(),
                  ErrorCode::input)
            << entries;
    }
}

TEST(SettingsFile, MoreThanTheLargestFileIsRefused) {
    const HostError error = error_of([] { parse_json(std::string(kMaxSettingsBytes + 1, ' ')); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_EQ(error.detail(), "expected at most 16777216 bytes of settings");
}

TEST(SettingsFile, WhatCouldNotBeReadBackIsNotWritten) {
    for (const auto& [key, value] : Entries{{"a", std::string("\xFF")},
                                            {"a", std::string("x\0y", 3)},
                                            {"a", Texts{"ok", "\xC0\x80"}},
                                            {"a\xFF", std::string("x")}}) {
        for (const SettingsFormat format : {SettingsFormat::json, SettingsFormat::propertyList}) {
            const HostError error = error_of([&] { write_settings(settings_of({{key, value}}), format); });
            EXPECT_EQ(error.code(), ErrorCode::other);
            EXPECT_EQ(error.place(), key);
        }
    }
}

TEST(SettingsFile, AMissingFileAndAFolderAreInputErrorsThatNameThem) {
    const TemporaryFolder folder;
    for (const auto& file : {folder.path() / "none.json", folder.path(), folder.path() / "none.plist"}) {
        const HostError error = error_of([&] { read_settings_file(file); });
        EXPECT_EQ(error.code(), ErrorCode::input);
        EXPECT_EQ(error.place(), file.string());
        EXPECT_TRUE(error.detail().starts_with("expected a settings file: ")) << error.detail();
    }
}

TEST(SettingsFile, AFileIsReadBackInBothForms) {
    const TemporaryFolder folder;
    const Entries entries{{"b", std::string("1")}, {"a", Texts{"x", "y"}}};
    for (const char* const name : {"s.json", "s.plist"}) {
        const auto file = folder.path() / name;
        write_settings_file(file, settings_of(entries));
        EXPECT_EQ(entries_of(read_settings_file(file)), entries);
        EXPECT_EQ(read_bytes(file).front() == '{', std::string(name) == "s.json");
    }
}

TEST(SettingsFile, AFileThatCannotBeWrittenStaysAsItWas) {
    const TemporaryFolder folder;
    const auto file = folder.write("s.json", "before");
    EXPECT_EQ(error_of([&] {
                  write_settings_file(file, settings_of({{"a", std::string("\xFF")}}));
              }).code(),
              ErrorCode::other);
    EXPECT_EQ(read_bytes(file), "before");

    const HostError error = error_of([&] { write_settings_file(file / "below" / "s.json", {}); });
    EXPECT_EQ(error.code(), ErrorCode::other);
    EXPECT_TRUE(error.detail().starts_with("cannot be written: ")) << error.detail();
    EXPECT_EQ(read_bytes(file), "before");
}

RC_GTEST_PROP(SettingsFile, WhatIsWrittenIsReadBackAndWrittenTheSame, ()) {
    const auto text = rc::gen::container<std::string>(rc::gen::inRange<char>(1, 127));
    const auto keys = *rc::gen::unique<Texts>(rc::gen::nonEmpty(text));
    PrintSettings settings;
    for (const std::string& key : keys) {
        if (*rc::gen::arbitrary<bool>()) {
            settings.setValue(key, *text, false);
        } else {
            settings.setValue(key, *rc::gen::container<Texts>(text), false);
        }
    }
    const std::string bytes = write_settings(settings, SettingsFormat::json);
    const PrintSettings read = parse_json(bytes);
    RC_ASSERT(entries_of(read) == entries_of(settings));
    RC_ASSERT(write_settings(read, SettingsFormat::json) == bytes);
}

} // namespace
} // namespace specialpages::host
