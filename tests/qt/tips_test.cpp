#include "qt/tips.h"

#include <gtest/gtest.h>

#include <QString>
#include <QTextDocument>
#include <string_view>

namespace specialpages::qt {
namespace {

QString tip(const char* text) {
    return literal_tip(std::string_view(text));
}

TEST(Tips, APlainTipStaysAsItIs) {
    for (const char* const text : {"", "Not with Paper Type: Plain", "a < b & c", "5 > 3", "\xC3\xA9"}) {
        EXPECT_EQ(tip(text), QString::fromUtf8(text));
        EXPECT_EQ(plain_tip(tip(text)), QString::fromUtf8(text));
    }
}

TEST(Tips, ATipSaysMarkupAsItStands) {
    EXPECT_EQ(tip("Not with <b>Blue</b>"), "<p>Not with &lt;b&gt;Blue&lt;/b&gt;</p>");
    for (const char* const text :
         {"Not with <b>Blue</b>", "<img src=\"file:///etc/passwd\">", "&lt;p&gt;", "<p>"}) {
        EXPECT_TRUE(Qt::mightBeRichText(tip(text))) << text;
        EXPECT_EQ(plain_tip(tip(text)), QString::fromUtf8(text));
    }
}

} // namespace
} // namespace specialpages::qt
