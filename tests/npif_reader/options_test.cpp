// The reader takes a filter's fifth argument apart exactly as libcups does.

#include "npif_reader/reader_fixture.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

extern "C" {
#include "options.h"
}

namespace npif::testing {
namespace {

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) {
        return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
    });
    return text;
}

/// Names folded to lower case, in their order.
Options sorted(Options options) {
    for (auto& option : options) {
        option.first = lower(option.first);
    }
    std::sort(options.begin(), options.end());
    return options;
}

Options by_cups(const std::string& argument) {
    cups_option_t* list = nullptr;
    const int count = cupsParseOptions(argument.c_str(), 0, &list);
    Options options;
    for (int i = 0; i < count; ++i) {
        options.emplace_back(list[i].name, list[i].value);
    }
    cupsFreeOptions(count, list);
    return sorted(std::move(options));
}

Options by_reader(const std::string& argument) {
    npif_arena arena{};
    npif_options parsed{};
    const npif_refusal refusal = npif_parse_options(&parsed, &arena, argument.data(), argument.size());
    EXPECT_EQ(refusal.reason, nullptr);
    Options options;
    for (std::size_t i = 0; i < parsed.count; ++i) {
        options.emplace_back(view(parsed.items[i].name), view(parsed.items[i].value));
        EXPECT_EQ(parsed.items[i].name.bytes[parsed.items[i].name.length], '\0');
        EXPECT_EQ(parsed.items[i].value.bytes[parsed.items[i].value.length], '\0');
    }
    npif_give_back(&arena);
    return sorted(std::move(options));
}

void expect_as_cups(const std::string& argument, const Options& expected) {
    EXPECT_EQ(by_reader(argument), expected) << argument;
    EXPECT_EQ(by_cups(argument), expected) << argument;
}

TEST(NpifReaderOptions, ReadsBlanksQuotesBackslashesAndBareNames) {
    expect_as_cups("", {});
    expect_as_cups(" \t\n", {});
    expect_as_cups("a=1 b=2", {{"a", "1"}, {"b", "2"}});
    expect_as_cups("a= b", {{"a", ""}, {"b", "true"}});
    expect_as_cups("noCollate Duplex", {{"collate", "false"}, {"duplex", "true"}});
    expect_as_cups("no", {});
    expect_as_cups("a='x y' b=\"x\\\"y\"", {{"a", "x y"}, {"b", "x\"y"}});
    expect_as_cups(R"(a=x\ y\\z b=\'\")", {{"a", R"(x y\z)"}, {"b", "'\""}});
    expect_as_cups("a=x'y z'", {{"a", "x'y"}, {"z'", "true"}});
    expect_as_cups("a='x", {{"a", "x"}});
    expect_as_cups("a=x\\", {{"a", "x\\"}});
    expect_as_cups("a=,'x y',", {{"a", ",x y,"}});
    expect_as_cups("a={b=1 {c} \\}} d=2", {{"a", "{b=1 {c} }}"}, {"d", "2"}});
    expect_as_cups("a={b", {{"a", "{b"}});
    expect_as_cups("{a=1 b=2}", {{"a", "1"}, {"b", "2"}});
    expect_as_cups("{", {{"{", "true"}});
    expect_as_cups("a = 1", {{"1", "true"}, {"a", ""}});
    expect_as_cups("a =1", {{"a", "1"}});
    expect_as_cups("a=1 =2 b=3", {{"a", "1"}});
}

TEST(NpifReaderOptions, KeepsTheLastValueOfANameWhateverItsCase) {
    expect_as_cups("media=A4 MEDIA=A3 Media=A5", {{"media", "A5"}});
    const Reader reader("media=A4 MEDIA=A3");
    EXPECT_EQ(reader.option("Media"), "A3");
    EXPECT_EQ(reader.option("medi"), std::nullopt);
}

RC_GTEST_PROP(NpifReaderOptions, ReadsEveryTextAsLibcupsDoes, ()) {
    const auto text =
        *rc::gen::container<std::string>(rc::gen::element('a', 'B', 'n', 'o', '=', '=', ' ', '\t', '\n', '\v',
                                                          '\r', '\'', '"', '\\', '{', '}', ',', '/', '\xE4'));
    RC_ASSERT(by_reader(text) == by_cups(text));
}

RC_GTEST_PROP(NpifReaderOptions, GetsBackEveryValueThatCupsEscapes, ()) {
    const auto value = *rc::gen::suchThat(
        rc::gen::container<std::string>(rc::gen::distinctFrom(rc::gen::arbitrary<char>(), '\0')),
        [](const std::string& text) { // what CUPS itself cuts or reads as a collection
            return text.find_first_of("\v\f\r") == std::string::npos &&
                   text.find_first_of("{,") == std::string::npos;
        });
    const std::string argument = argument_of({{"before", "1"}, {"name", value}, {"after", "2"}});
    const Reader reader(argument);
    RC_ASSERT(reader.option("name") == value);
    RC_ASSERT(reader.option("after") == "2");
}

TEST(NpifReaderOptions, RefusesAZeroByteWithItsPlace) {
    const Reader reader(std::string_view("media=A4\0sides=two", 18));
    ASSERT_EQ(reader.problems().size(), 1U);
    const npif_problem& problem = reader.problems()[0];
    EXPECT_EQ(problem.code, NPIF_PROBLEM_OPTIONS);
    EXPECT_EQ(problem.byte, 9U);
    EXPECT_EQ(problem.index, NPIF_NO_INDEX);
    EXPECT_EQ(view(problem.key), "");
    EXPECT_EQ(view(problem.sentence), "the options, byte 9: expected no zero byte among the options");
    EXPECT_EQ(reader.option("media"), std::nullopt);
}

TEST(NpifReaderOptions, RefusesMoreBytesThanAnyJobHas) {
    std::string argument = "a=";
    argument.append(NPIF_MAX_OPTION_BYTES - 2, 'x');
    const Reader longest(argument);
    EXPECT_TRUE(longest.ok());
    EXPECT_EQ(longest.option("a")->size(), NPIF_MAX_OPTION_BYTES - 2);
    argument += 'x';
    const Reader reader(argument);
    EXPECT_EQ(
        sentences_of(reader),
        (std::vector<std::string>{"the options, byte 1048577: expected at most 1048576 bytes of options"}));
    EXPECT_EQ(reader.option("a"), std::nullopt);
    const npif_pair pair{"a", argument.c_str()};
    EXPECT_EQ(sentences_of(Reader(&pair, 1)),
              (std::vector<std::string>{"the options: expected at most 1048576 bytes of options"}));
}

TEST(NpifReaderOptions, RefusesMoreOptionsThanAnyJobHas) {
    std::string argument;
    for (std::size_t i = 0; i < NPIF_MAX_OPTIONS; ++i) {
        argument += "o" + std::to_string(i) + "=1 ";
    }
    const Reader most(argument);
    EXPECT_TRUE(most.ok());
    EXPECT_EQ(most.option("O16383"), "1");
    const std::size_t place = argument.size() + 1;
    const Reader again(argument + "o7=2");
    EXPECT_EQ(again.option("o7"), "2") << "an option that is there already takes no room";
    const Reader reader(argument + "one_more");
    EXPECT_EQ(sentences_of(reader), (std::vector<std::string>{"the options, byte " + std::to_string(place) +
                                                              ": expected at most 16384 options"}));
    EXPECT_EQ(reader.option("o7"), std::nullopt);
    const std::vector<npif_pair> pairs(NPIF_MAX_OPTIONS + 1, npif_pair{"a", "1"});
    EXPECT_EQ(sentences_of(Reader(pairs.data(), pairs.size())),
              (std::vector<std::string>{"the options: expected at most 16384 options"}));
}

TEST(NpifReaderOptions, TakesPairsAsLibcupsKeepsThem) {
    static_assert(sizeof(npif_pair) == sizeof(cups_option_t));
    cups_option_t* list = nullptr;
    const int count = cupsParseOptions("a='x y' b=2", 0, &list);
    const Reader reader(reinterpret_cast<const npif_pair*>(list), static_cast<std::size_t>(count));
    cupsFreeOptions(count, list); // the reader has copies
    EXPECT_EQ(reader.option("a"), "x y");
    EXPECT_EQ(reader.option("B"), "2");
}

TEST(NpifReaderOptions, TakesNothingAndNullForEmpty) {
    for (npif_reader* const reader : {npif_reader_from_options(nullptr, 5), npif_reader_from_options("", 0),
                                      npif_reader_from_pairs(nullptr, 5)}) {
        ASSERT_NE(reader, nullptr);
        EXPECT_TRUE(npif_reader_ok(reader));
        EXPECT_EQ(npif_reader_option(reader, "a").bytes, nullptr);
        EXPECT_EQ(npif_reader_option(reader, nullptr).bytes, nullptr);
        npif_reader_free(reader);
    }
    const npif_pair pairs[] = {{nullptr, "1"}, {"a", nullptr}, {"", "2"}};
    const Reader reader(pairs, 3);
    EXPECT_EQ(reader.option("a"), "");
    EXPECT_EQ(reader.option(""), std::nullopt);
    npif_reader_free(nullptr);
}

} // namespace
} // namespace npif::testing
