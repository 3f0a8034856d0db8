// Arguments for lp, read back by a real shell and by libcups.
#include "host/lp_options.h"
#include "testing/PrivateCupsd.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace specialpages::host {
namespace {

TEST(LpOptions, AreQuotedForTheShellAndForLibcups) {
    EXPECT_EQ(lp_arguments({}), "");
    EXPECT_EQ(lp_arguments({{"a", "b"}, {"c", ""}}), "-o 'a=b' -o 'c='");
    EXPECT_EQ(lp_arguments({{"k", "it's a \"b\\\""}}), R"(-o 'k=it\'\''s\ a\ \"b\\\"')");
    EXPECT_EQ(lp_option({"k", "a{b"}), "k=a\\{b");
    EXPECT_EQ(shell_word(""), "''");
}

/// The words that a shell makes of the line, each ended by a zero byte.
std::vector<std::string> words(const std::string& line) {
    const testing::TemporaryFolder folder;
    const auto script = folder.write(
        "words", "eval \"set -- $(cat \"$1\")\"\nfor word; do printf '%s\\000' \"$word\"; done\n");
    const auto file = folder.write("line", line);
    const std::string out = test::shell("sh " + script.string() + " " + file.string()).out;
    std::vector<std::string> all;
    for (std::size_t start = 0; start < out.size();) {
        const std::size_t end = out.find('\0', start);
        all.push_back(out.substr(start, end - start));
        start = end + 1;
    }
    return all;
}

void expect_read_back(const JobOptions& options) {
    const std::vector<std::string> read = words(lp_arguments(options));
    ASSERT_EQ(read.size(), options.size() * 2);
    cups_option_t* list = nullptr;
    int count = 0;
    for (std::size_t i = 0; i < read.size(); i += 2) {
        EXPECT_EQ(read[i], "-o");
        count = cupsParseOptions(read[i + 1].c_str(), count, &list); // as lp does
    }
    EXPECT_EQ(static_cast<std::size_t>(count), options.size());
    for (const JobOption& option : options) {
        const char* const value = cupsGetOption(option.name.c_str(), count, list);
        EXPECT_STREQ(value, option.value.c_str()) << option.name;
    }
    cupsFreeOptions(count, list);
}

TEST(LpOptions, HostileTextsAreReadBackUnchanged) {
    JobOptions options;
    for (const char* text :
         {"",     " ",     "  a  ",   "'",      "''",      "\"",   "\\", "\\\\", "a\\",
          "\\'",  "$HOME", "$(id)",   "`id`",   "!!",      "*",    "~",  "#x",   ";reboot",
          "&&",   "|",     "> x",     "-o",     "a=b c=d", "a{b}", "}",  ",",    "\xC3\xA9 \xE2\x82\xAC",
          "%s%n", "no",    "'\"'\"'", "\\ \\\t"}) {
        options.push_back({"k." + std::to_string(options.size()), text});
    }
    expect_read_back(options);
}

TEST(LpOptions, RandomTextsAreReadBackUnchanged) {
    const bool holds = rc::check("read back", [] {
        const auto texts =
            *rc::gen::resize(30, rc::gen::container<std::vector<std::string>>(rc::gen::container<std::string>(
                                     rc::gen::elementOf(std::string("ab ,'\"\\={}/0$`~*?!#;&|<>()[]\t\n")))));
        JobOptions options;
        for (const std::string& text : texts) {
            options.push_back({"k." + std::to_string(options.size()), text});
        }
        expect_read_back(options);
        RC_ASSERT(!::testing::Test::HasFailure());
    });
    EXPECT_TRUE(holds);
}

} // namespace
} // namespace specialpages::host
