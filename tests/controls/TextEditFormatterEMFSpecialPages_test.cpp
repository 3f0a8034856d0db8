#include "controls/TextEditFormatterEMFSpecialPages.h"
#include "controls/text_fixtures.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::ScriptedFace;
using platform::TextField;
using test::repeated;

class TextFormatter : public testing::Test {
  protected:
    static constexpr std::uint32_t kColumns = 6;

    TextFormatter() { field_.setFormatter(formatter_); }

    /// What the formatter says to the text: "" for yes, else its error.
    std::string verdict(const std::string& text) {
        std::string kept = text;
        std::string error;
        const bool stands = formatter_->isPartialStringValid(text, kept, &error);
        EXPECT_EQ(kept, text) << "it never puts another text in the place";
        EXPECT_EQ(stands, error.empty());
        return error;
    }

    ScriptedFace face_;
    TextField field_;
    std::shared_ptr<TextEditFormatterEMFSpecialPages> formatter_ =
        std::make_shared<TextEditFormatterEMFSpecialPages>(&SPCustomSizeWidthMMFilterData, kColumns);
};

TEST_F(TextFormatter, ATextOfExactlyTheMaximumLengthStandsAndOneMoreIsTooLong) {
    EXPECT_EQ(verdict("1234.6"), "");
    EXPECT_EQ(face_.beeps(), 0);
    EXPECT_EQ(verdict("1234.67"), "String too long.");
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, AForbiddenCharacterOfALegalLengthIsCalledTooLongAsWell) {
    EXPECT_EQ(verdict("12a"), "String too long.");
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, AHalfWidthSoundMarkStandsBehindEveryCharacterOfTheTable) {
    EXPECT_EQ(verdict("12\xEF\xBE\x9E"), "") << "four columns";
    EXPECT_EQ(verdict("12\xEF\xBE\x9E\xEF\xBE\x9E"), "String too long.") << "one mark only";
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, AnEmptyTextStands) {
    EXPECT_EQ(verdict(""), "");
    EXPECT_EQ(face_.beeps(), 0);
}

TEST_F(TextFormatter, TheLimitCountsColumnsAndNotBytes) {
    static constexpr std::array kKana{CodeRange{0x30A0, 0x30FF}};
    static constexpr TextEditFilterData kKanaFilter{kKana, kKana, nullptr};
    TextEditFormatterEMFSpecialPages formatter(&kKanaFilter, kColumns);
    std::string kept;
    EXPECT_TRUE(formatter.isPartialStringValid("カカカ", kept, nullptr)) << "nine bytes, six columns";
    EXPECT_FALSE(formatter.isPartialStringValid("カカカカ", kept, nullptr));
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, HandsEveryTextOnUnchanged) {
    std::string object = "before";
    EXPECT_TRUE(formatter_->getObjectValue(object, "any text at all", nullptr));
    EXPECT_EQ(object, "any text at all");
    EXPECT_EQ(formatter_->stringForObjectValue("\xFF"), "\xFF");
    field_.setStringValue("set by program, longer than six");
    EXPECT_EQ(field_.stringValue(), "set by program, longer than six");
    EXPECT_EQ(face_.beeps(), 0);
}

TEST_F(TextFormatter, WithoutAFilterOnlyTheLengthCounts) {
    TextEditFormatterEMFSpecialPages formatter(nullptr, 3);
    std::string kept;
    EXPECT_TRUE(formatter.isPartialStringValid("a;b", kept, nullptr));
    EXPECT_TRUE(formatter.isPartialStringValid("aé", kept, nullptr));
    EXPECT_FALSE(formatter.isPartialStringValid("a;bc", kept, nullptr));
    EXPECT_FALSE(formatter.isPartialStringValid("a;é", kept, nullptr)) << "that letter takes two columns";
}

TEST_F(TextFormatter, OneKeyThatIsRefusedLeavesTheFieldAsItWas) {
    ASSERT_TRUE(field_.editText("210"));
    EXPECT_FALSE(field_.editText("210x"));
    EXPECT_EQ(field_.shownText(), "210");
    EXPECT_TRUE(field_.editText("210."));
    field_.endEditing();
    EXPECT_EQ(field_.stringValue(), "210.");
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, AHugePasteIsRefusedWholeWithOneBeep) {
    ASSERT_TRUE(field_.editText("21"));
    EXPECT_FALSE(field_.editText(repeated("0", 10'000)));
    EXPECT_EQ(field_.shownText(), "21");
    EXPECT_EQ(face_.beeps(), 1);
}

TEST_F(TextFormatter, PastesThatAreNoNumbersAreRefusedWhole) {
    const std::vector<std::string> pastes{
        std::string("1\0002", 3), // a zero byte
        "1\t2",
        "1\n2",
        "1\r\n2",
        "1\x7F",
        "\xF0\x9F\x96\xA8", // a surrogate pair
        "1\xCC\x81",        // a digit with a combining mark
        "\xD9\xA1\xD9\xA2", // right-to-left digits
        "12\xE2\x80\xAE",   // a right-to-left override
        "\xEF\xBC\x91",     // a full-width digit
        "\xEF\xBB\xBF.5",   // a byte-order mark
        "\xEF\xBE\x9E",     // a sound mark alone
        "\xFF",
        "12\xC3",       // broken off
        "\xED\xA0\x80", // a lone surrogate
        "\xC0\xB1",     // an overlong "1"
    };
    int beeps = 0;
    for (const std::string& paste : pastes) {
        EXPECT_FALSE(field_.editText(paste)) << testing::PrintToString(paste);
        EXPECT_EQ(field_.shownText(), "");
        EXPECT_EQ(face_.beeps(), ++beeps);
    }
}

} // namespace
} // namespace specialpages
