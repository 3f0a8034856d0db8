// Which options libcups sends as they are.
#include "host/option_encoding.h"

#include <gtest/gtest.h>

namespace specialpages::host {
namespace {

TEST(OptionEncoding, TextsOfNamesThatLibcupsDoesNotKnowArriveAsTheyAre) {
    for (const char* value :
         {"", "a", "/49/44", "a,b,c", "a b", "'", "\"", "\\", "\\\\n", "a\\,b", "'a,b'", "\xC3\xA9", "1-2"}) {
        EXPECT_TRUE(arrives_as_text("com.norvalen.nb.rtz.printsettings.key", value)) << value;
    }
    EXPECT_TRUE(arrives_as_text("k", std::string(32767, 'x')));
}

TEST(OptionEncoding, SwitchesAndCollectionsDoNot) {
    EXPECT_FALSE(arrives_as_text("k", "true"));
    EXPECT_FALSE(arrives_as_text("k", "False"));
    EXPECT_FALSE(arrives_as_text("k", "{a=b}"));
}

TEST(OptionEncoding, NamesOfItsOwnDoNot) {
    EXPECT_FALSE(arrives_as_text("copies", "2")) << "a number";
    EXPECT_FALSE(arrives_as_text("document-format", "text/plain")) << "not of the job";
    EXPECT_FALSE(arrives_as_text("page-ranges", "1-2")) << "a range";
    EXPECT_FALSE(arrives_as_text("anything-default", "x")) << "of the queue";
}

TEST(OptionEncoding, ThatOfTheServerIsReadBackByAFilter) {
    EXPECT_EQ(filter_option("k", "a b\tc\nd\\e'f\"g,{h}"), "k=a\\ b\\\tc\\\nd\\\\e\\'f\\\"g,{h}");
    for (const char* value :
         {"", "a", " ", "'", "\"", "\\", "a,b", "a{b", "a\tb", "=", "a=b c=d", "}", "\xC3\xA9"}) {
        EXPECT_TRUE(is_read_back("k", value)) << value;
    }
    EXPECT_FALSE(is_read_back("k", "{"));
    EXPECT_FALSE(is_read_back("k", ",{"));
    EXPECT_FALSE(is_read_back("k", "a\fb")) << "not escaped, and ends the value";
}

} // namespace
} // namespace specialpages::host
