#include "cli/pane_tags.h"

#include <gtest/gtest.h>

#include <set>

namespace specialpages::cli {
namespace {

TEST(PaneTags, EachWindowHasAWordOfItsOwn) {
    std::set<std::string_view> words;
    for (const auto& [window, word] : kWindowWords) {
        EXPECT_EQ(window_word(window), word);
        EXPECT_TRUE(words.insert(word).second) << word;
    }
    EXPECT_EQ(words, (std::set<std::string_view>{"covers", "inserts", "exceptions", "custom-size", "advanced",
                                                 "tab-stock", "tab-stock-sub", "warning"}));
}

TEST(PaneTags, AnyOtherWindowGoesByItsName) {
    EXPECT_EQ(window_word("pane"), "pane");
    EXPECT_EQ(window_word(""), "");
    EXPECT_EQ(window_word("coverswindowref"), "coverswindowref");
}

} // namespace
} // namespace specialpages::cli
