#include "platform/foundation/comma_locale.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace specialpages::platform {

// NOLINTNEXTLINE(misc-use-internal-linkage): found through the argument, by std::variant's comparison
static bool operator==(const PropertyList& a, const PropertyList& b) {
    return a.value == b.value;
}

namespace {

using Array = PropertyList::Array;
using Data = PropertyList::Data;
using Dictionary = PropertyList::Dictionary;
using namespace std::string_literals;

constexpr const char* kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";

PropertyList text(std::string value) {
    return PropertyList{std::move(value)};
}

PropertyList integer(std::int64_t value) {
    return PropertyList{value};
}

std::string document(const std::string& value) {
    return "<plist version=\"1.0\">" + value + "</plist>";
}

std::string nested(int depth) {
    std::string opening;
    std::string closing;
    for (int i = 0; i < depth; ++i) {
        opening += "<array>";
        closing += "</array>";
    }
    return document(opening + closing);
}

std::string error_of(const std::string& bytes) {
    std::string error;
    return parse_property_list(bytes, &error) ? "accepted" : error;
}

PropertyList parsed(const std::string& value) {
    std::string error;
    auto list = parse_property_list(document(value), &error);
    EXPECT_TRUE(list) << value << ": " << error;
    return list.value_or(text("refused"));
}

TEST(PropertyList, SetKeepsThePlaceOfAKeyAndAddsNewOnesAtTheEnd) {
    PropertyList list;
    list.set("b", integer(1));
    list.set("a", integer(2));
    list.set("b", integer(3));
    EXPECT_EQ(list, (PropertyList{Dictionary{{"b", integer(3)}, {"a", integer(2)}}}));
}

TEST(PropertyList, SetMakesADictionaryOfAnyOtherValue) {
    PropertyList list = text("x");
    list.set("a", integer(1));
    EXPECT_EQ(list, (PropertyList{Dictionary{{"a", integer(1)}}}));
}

TEST(PropertyList, SetTakesAValueFromInsideTheOneItReplaces) {
    PropertyList list{Dictionary{{"a", PropertyList{Dictionary{{"inner", text("kept")}}}}}};
    list.set("a", std::move(*list.find("a")->find("inner")));
    EXPECT_EQ(list, (PropertyList{Dictionary{{"a", text("kept")}}}));
}

TEST(PropertyList, FindAnswersNullForMissingKeysAndForValuesThatAreNoDictionary) {
    PropertyList list{Dictionary{{"a", text("1")}}};
    ASSERT_NE(list.find("a"), nullptr);
    EXPECT_EQ(*list.find("a")->text(), "1");
    EXPECT_EQ(list.find("A"), nullptr);
    EXPECT_EQ(list.find(""), nullptr);
    EXPECT_EQ(text("a").find("a"), nullptr);
    EXPECT_EQ(PropertyList{Array{}}.find("a"), nullptr);
}

TEST(PropertyList, FindAnswersTheFirstOfTwoEqualKeysAndSoDoesTheWrittenText) {
    const PropertyList list{Dictionary{{"a", text("first")}, {"a", text("second")}}};
    EXPECT_EQ(*list.find("a")->text(), "first");
    const auto read = parse_property_list(write_property_list(list));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, (PropertyList{Dictionary{{"a", text("first")}}}));
}

TEST(PropertyList, RemoveSaysWhetherThereWasAnEntryAndKeepsTheOrderOfTheOthers) {
    PropertyList list{Dictionary{{"a", text("1")}, {"b", text("2")}, {"c", text("3")}}};
    EXPECT_TRUE(list.remove("b"));
    EXPECT_FALSE(list.remove("b"));
    EXPECT_EQ(list, (PropertyList{Dictionary{{"a", text("1")}, {"c", text("3")}}}));
    EXPECT_FALSE(text("a").remove("a"));
}

TEST(PropertyList, TextIsNullForOtherKinds) {
    EXPECT_EQ(integer(1).text(), nullptr);
    EXPECT_EQ(PropertyList{}.text(), nullptr);
    EXPECT_EQ(*text("").text(), "");
}

TEST(ParsePropertyList, ReadsEveryKindOfValue) {
    EXPECT_EQ(parsed("<dict/>"), PropertyList{});
    EXPECT_EQ(parsed("<true/>"), PropertyList{true});
    EXPECT_EQ(parsed("<false/>"), PropertyList{false});
    EXPECT_EQ(parsed("<integer>-12</integer>"), integer(-12));
    EXPECT_EQ(parsed("<integer> 12\n</integer>"), integer(12));
    EXPECT_EQ(parsed("<real>-1.5e3</real>"), PropertyList{-1500.0});
    EXPECT_EQ(parsed("<string>a</string>"), text("a"));
    EXPECT_EQ(parsed("<string/>"), text(""));
    EXPECT_EQ(parsed("<string>  a \n</string>"), text("  a \n"));
    EXPECT_EQ(parsed("<data>\n\tAQ\n\tID\n</data>"), (PropertyList{Data{1, 2, 3}}));
    EXPECT_EQ(parsed("<data/>"), PropertyList{Data{}});
    EXPECT_EQ(
        parsed("<array><true/><dict><key>k</key><array/></dict></array>"),
        (PropertyList{Array{PropertyList{true}, PropertyList{Dictionary{{"k", PropertyList{Array{}}}}}}}));
}

TEST(ParsePropertyList, ReadsIntegersUpToBothEndsOf64Bits) {
    EXPECT_EQ(parsed("<integer>9223372036854775807</integer>"),
              integer(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(parsed("<integer>-9223372036854775808</integer>"),
              integer(std::numeric_limits<std::int64_t>::min()));
    for (const char* number : {"9223372036854775808", "-9223372036854775809", "18446744073709551615", "010",
                               "0x10", "+5", "-", "", "1.5", "1 2", "abc", "--1", "&#49;"}) {
        EXPECT_EQ(error_of(document("<integer>"s + number + "</integer>")),
                  "line 1: no 64-bit decimal integer")
            << number;
    }
}

TEST(ParsePropertyList, RefusesRealsThatAreNoDecimalNumbers) {
    for (const char* number : {"", "x", "1,5", "0x1p3", "inf", "1e", "1e999", "--1", "+-1", "1.5 2", "."}) {
        EXPECT_EQ(error_of(document("<real>"s + number + "</real>")), "line 1: no decimal number") << number;
    }
    EXPECT_EQ(parsed("<real>+.5</real>"), PropertyList{0.5});
    EXPECT_EQ(parsed("<real>5.</real>"), PropertyList{5.0});
}

TEST(ParsePropertyList, ReadsEscapesReferencesAndCharacterData) {
    EXPECT_EQ(parsed("<string>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;</string>"),
              text("<>&\"'A\xF0\x9F\x98\x80"));
    EXPECT_EQ(parsed("<string>a<![CDATA[</string>&amp;]]>b</string>"), text("a</string>&amp;b"));
    EXPECT_EQ(parsed("<dict><key>a&amp;<![CDATA[<b>]]></key><true/></dict>"),
              (PropertyList{Dictionary{{"a&<b>", PropertyList{true}}}}));
}

TEST(ParsePropertyList, RefusesReferencesToNoCharacter) {
    for (const char* reference : {"&#0;", "&#x110000;", "&foo;", "&#;", "& ", "&#-1;", "&#4294967296;"}) {
        EXPECT_EQ(error_of(document("<string>"s + reference + "</string>")), "no well-formed property list")
            << reference;
    }
    EXPECT_EQ(error_of(document("<string>&#xD83D;</string>")), "text that is not UTF-8");
    EXPECT_EQ(error_of(document("<dict><key>&#xDE00;</key><true/></dict>")), "text that is not UTF-8");
}

TEST(ParsePropertyList, KeepsTheOrderOfKeysAndTheLastOfTwoEqualOnes) {
    EXPECT_EQ(parsed("<dict><key>z</key><true/><key>a</key><false/><key>z</key><integer>1</integer></dict>"),
              (PropertyList{Dictionary{{"z", integer(1)}, {"a", PropertyList{false}}}}));
}

TEST(ParsePropertyList, ReadsCommentsBetweenElements) {
    EXPECT_EQ(parsed("<!-- a > <dict> --><dict><!----></dict><!-- b -->"), PropertyList{});
}

TEST(ParsePropertyList, NamesTheLineOfWhatIsWrong) {
    EXPECT_EQ(error_of("<plist>\n<dict>\r\n</array>\n</dict></plist>"),
              "line 3: unexpected end of \"array\"");
    EXPECT_EQ(error_of("<plist>\n<dict>\n"), "line 3: element \"dict\" is not closed");
    EXPECT_EQ(error_of("<plist>\n\n<blob/></plist>"), "line 3: unknown element \"blob\"");
    EXPECT_EQ(error_of("<plist>\rx</plist>"), "line 2: text outside of a value");
    EXPECT_EQ(error_of("<plist>\n<string>a\n"), "line 2: element \"string\" is not closed");
    EXPECT_EQ(error_of("<plist>\n<string>\xFF</string></plist>"), "line 2: not UTF-8");
    EXPECT_EQ(error_of("<plist>\n<string>"s + '\0' + "</string></plist>"), "line 2: zero byte");
}

TEST(ParsePropertyList, RefusesWhatIsNoPropertyList) {
    EXPECT_EQ(error_of(""), "line 1: no property list");
    EXPECT_EQ(error_of(" \n"), "line 2: no property list");
    EXPECT_EQ(error_of("<plist/>"), "line 1: misplaced \"plist\"");
    EXPECT_EQ(error_of("<plist></plist>"), "line 1: no property list");
    EXPECT_EQ(error_of("<dict/>"), "line 1: value outside of \"plist\"");
    EXPECT_EQ(error_of("bplist00"), "line 1: text outside of a value");
    EXPECT_EQ(error_of("{ a = b; }"), "line 1: text outside of a value");
    EXPECT_EQ(error_of(document("<true/><true/>")), "line 1: more than one value");
    EXPECT_EQ(error_of(document("<true/>") + document("<true/>")), "line 1: misplaced \"plist\"");
    EXPECT_EQ(error_of("<plist"), "line 1: tag without end");
    EXPECT_EQ(error_of(document("<string>a</string")), "line 1: element \"string\" is not closed");
    EXPECT_EQ(error_of(document("<true>x</true>")), "line 1: text outside of a value");
    EXPECT_EQ(error_of(document("<string a=\"b>c\">x</string>")), "line 1: malformed tag");
    EXPECT_EQ(error_of(document("<data>!!*A</data>")), "line 1: no Base64 data");
    EXPECT_EQ(error_of(document("<data>AQ==AQID</data>")), "line 1: no Base64 data");
    EXPECT_EQ(error_of(document("<data>AQI</data>")), "line 1: no Base64 data");
    EXPECT_EQ(error_of(document("<dict><true/></dict>")), "no well-formed property list");
    EXPECT_EQ(error_of(document("<dict><key>a</key><key>b</key><true/></dict>")),
              "no well-formed property list");
}

TEST(ParsePropertyList, RefusesKindsThatTheTreeDoesNotHold) {
    EXPECT_EQ(error_of(document("<date>2020-01-01T00:00:00Z</date>")), "line 1: unknown element \"date\"");
    EXPECT_EQ(error_of(document("<uid>1</uid>")), "line 1: unknown element \"uid\"");
}

TEST(ParsePropertyList, RefusesByteOrderMarks) {
    EXPECT_EQ(error_of("\xEF\xBB\xBF" + document("<true/>")), "line 1: byte-order mark");
    EXPECT_EQ(error_of("\xFE\xFF\0<"s), "line 1: byte-order mark");
    EXPECT_EQ(error_of("\xFF\xFE<\0"s), "line 1: byte-order mark");
}

TEST(ParsePropertyList, RefusesDeclarationsThatTwoReadersCouldEndAtDifferentPlaces) {
    for (const char* declaration : {"<!DOCTYPE plist [<!ENTITY a \"b\">]>", "<!DOCTYPE \">\" >", "<?>", "<?a",
                                    "<!ENTITY a>", "<!DOCTYPE a", "<!>"}) {
        EXPECT_EQ(error_of(declaration + document("<true/>")), "line 1: malformed declaration")
            << declaration;
    }
    for (const char* comment : {"<!-->", "<!--->", "<!-- -- -->", "<!-- ", "<!--"}) {
        EXPECT_EQ(error_of(comment + document("<true/>")), "line 1: malformed comment") << comment;
    }
}

TEST(ParsePropertyList, ReadsTheGreatestDepthAndRefusesOneLevelMore) {
    EXPECT_NE(error_of(nested(kMaxPropertyListDepth)), "");
    EXPECT_TRUE(parse_property_list(nested(kMaxPropertyListDepth)));
    EXPECT_EQ(error_of(nested(kMaxPropertyListDepth + 1)), "line 1: nested deeper than 64 levels");
    EXPECT_EQ(error_of(nested(1'000'000)), "line 1: nested deeper than 64 levels");
}

TEST(ParsePropertyList, RefusesDepthThatHidesBehindOtherMarkup) {
    std::string deep = "<plist>";
    for (int i = 0; i < 500'000; ++i) {
        deep += "<dict><key>k</key>";
    }
    EXPECT_EQ(error_of(deep), "line 1: nested deeper than 64 levels");
    std::string hidden = "<plist><!-->";
    for (int i = 0; i < 100'000; ++i) {
        hidden += "<array>";
    }
    EXPECT_EQ(error_of(hidden + "-->"), "line 1: malformed comment");
}

TEST(ParsePropertyList, ReadsTheGreatestSizeAndRefusesOneByteMore) {
    std::string bytes = document("<string>" + std::string(kMaxPropertyListBytes - 100, 'x') + "</string>");
    bytes.resize(kMaxPropertyListBytes, ' ');
    EXPECT_TRUE(parse_property_list(bytes));
    EXPECT_EQ(error_of(bytes + " "), "larger than 16777216 bytes");
}

TEST(ParsePropertyList, ReadsAHundredThousandKeys) {
    std::string value = "<dict>";
    for (int i = 0; i < 100'000; ++i) {
        value += "<key>" + std::to_string(i) + "</key><integer>1</integer>";
    }
    const PropertyList list = parsed(value + "</dict>");
    EXPECT_EQ(std::get<Dictionary>(list.value).size(), 100'000U);
}

TEST(ParsePropertyList, RefusesAKeyThatStandsTwiceInItsDictionary) {
    for (const char* const value : {
             "<dict><key>a</key><string>1</string><key>a</key><string>2</string></dict>",
             "<dict><key>a</key><true/><key>&#97;</key><true/></dict>",
             "<array><dict><key>a</key><true/><key><![CDATA[a]]></key><true/></dict></array>",
         }) {
        std::string error;
        EXPECT_FALSE(parse_property_list(document(value), &error)) << value;
        EXPECT_EQ(error, "a key that stands twice in its dictionary, or has no value") << value;
    }
    EXPECT_TRUE(parse_property_list(document("<array><dict><key>a</key><true/></dict>"
                                             "<dict><key>a</key><true/></dict></array>")));
}

TEST(WritePropertyList, WritesTheWholeText) {
    const PropertyList list{
        Dictionary{{"z", text("a<&\n")},
                   {"a", PropertyList{Array{integer(-1), PropertyList{1.5}, PropertyList{false}}}},
                   {"", text("")}}};
    EXPECT_EQ(write_property_list(list), kHead + "<plist version=\"1.0\">\n"
                                                 "<dict>\n"
                                                 "\t<key>z</key>\n"
                                                 "\t<string>a&lt;&amp;\n</string>\n"
                                                 "\t<key>a</key>\n"
                                                 "\t<array>\n"
                                                 "\t\t<integer>-1</integer>\n"
                                                 "\t\t<real>1.5</real>\n"
                                                 "\t\t<false/>\n"
                                                 "\t</array>\n"
                                                 "\t<key></key>\n"
                                                 "\t<string></string>\n"
                                                 "</dict>\n"
                                                 "</plist>\n"s);
}

void expect_stable(const PropertyList& list) {
    const std::string written = write_property_list(list);
    std::string error;
    const auto read = parse_property_list(written, &error);
    ASSERT_TRUE(read) << error << "\n" << written;
    EXPECT_EQ(*read, list) << written;
    EXPECT_EQ(write_property_list(*read), written);
}

TEST(WritePropertyList, ReadingGivesTheSameTreeAndWritingThatTheSameBytes) {
    expect_stable(PropertyList{});
    expect_stable(PropertyList{true});
    expect_stable(PropertyList{Array{}});
    expect_stable(PropertyList{Data{}});
    expect_stable(PropertyList{Data(1000, 0xA5)});
    expect_stable(text("]]> <!-- &amp; \r\n\t\x01\x7F \xF0\x9F\x98\x80 \xEF\xBB\xBF"));
    expect_stable(text("  "));
    expect_stable(PropertyList{Dictionary{{"<k>&\n", text("v")}, {"", PropertyList{}}, {" ", integer(0)}}});
    for (const std::int64_t value : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1},
                                     std::int64_t{0}, std::numeric_limits<std::int64_t>::max()}) {
        expect_stable(integer(value));
    }
    for (const double value :
         {0.0, 0.1, -1.5, 1e300, 5e-324, 1e22, std::numeric_limits<double>::max(),
          std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        expect_stable(PropertyList{value});
    }
}

TEST(WritePropertyList, ReadsNotANumberBack) {
    const auto read = parse_property_list(write_property_list(PropertyList{std::nan("")}));
    ASSERT_TRUE(read);
    EXPECT_TRUE(std::isnan(std::get<double>(read->value)));
}

TEST(WritePropertyList, ReplacesTextThatAPropertyListCannotCarry) {
    const auto read = parse_property_list(write_property_list(
        PropertyList{Dictionary{{"a\0b"s, text("c\0\xFF"s)}, {"d", text("\xED\xA0\x80")}}}));
    ASSERT_TRUE(read);
    ASSERT_NE(read->find("a\xEF\xBF\xBD"
                         "b"),
              nullptr);
    EXPECT_EQ(*read->find("a\xEF\xBF\xBD"
                          "b")
                   ->text(),
              "c\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(*read->find("d")->text(), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(WritePropertyList, KeepsPointsUnderACommaLocale) {
    const testing::CommaLocale locale;
    EXPECT_EQ(parsed("<real>1234.5</real>"), PropertyList{1234.5});
    expect_stable(PropertyList{1234567.25});
    expect_stable(integer(1234567));
    EXPECT_NE(write_property_list(PropertyList{1234567.25}).find("<real>1234567.25</real>"),
              std::string::npos);
}

/// Any well-formed text without zero bytes.
std::string text_of(const std::vector<char16_t>& units) {
    return replace_all(utf8_from_utf16({units.data(), units.size()}), std::string_view("\0", 1), "0");
}

RC_GTEST_PROP(WritePropertyList, AnyTreeReadsBackAndWritesTheSameBytes,
              (const std::vector<std::pair<std::vector<char16_t>, std::vector<std::int64_t>>>& entries,
               const std::vector<double>& reals, const std::vector<std::uint8_t>& data)) {
    PropertyList list;
    for (const auto& [key, numbers] : entries) {
        Array array{text(text_of(key))};
        for (const auto number : numbers) {
            array.push_back(integer(number));
        }
        list.set(text_of(key), PropertyList{std::move(array)});
    }
    Array array{PropertyList{data}};
    for (const double real : reals) {
        array.push_back(PropertyList{real});
    }
    list.set("reals", PropertyList{std::move(array)});
    const std::string written = write_property_list(list);
    const auto read = parse_property_list(written);
    RC_ASSERT(read.has_value());
    RC_ASSERT(*read == list);
    RC_ASSERT(write_property_list(*read) == written);
}

RC_GTEST_PROP(WritePropertyList, AnyBytesAsTextGiveAReadableList, (const std::string& bytes)) {
    const std::string written = write_property_list(PropertyList{Array{text(bytes)}});
    const auto read = parse_property_list(written);
    RC_ASSERT(read.has_value());
    RC_ASSERT(write_property_list(*read) == written);
}

} // namespace
} // namespace specialpages::platform
