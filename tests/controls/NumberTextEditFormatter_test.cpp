#include "controls/NumberTextEditFormatter.h"
#include "controls/SPInchMMTextEditFormatterEMF.h"
#include "controls/SPTextEditFormatterEMF.h"
#include "controls/text_fixtures.h"

#include <gtest/gtest.h>

#include <limits>

namespace specialpages {
namespace {

using test::kNoKeys;
using test::OpenTextField;
using test::TextView;
using Texts = std::vector<std::string>;

constexpr TextEditIniData kNumber{"0", "3", 1, 3};

class NumberFormatter : public testing::Test {
  protected:
    NumberFormatter() {
        field_.CreateControl(&view_, &kNumber, nullptr, &kNoKeys, {}, &SPNumInSequenceFilterData);
        field_.InitializeCtrl(nullptr, nullptr);
        install<SPInchMMTextEditFormatterEMF>();
    }
    template <typename NumberFormatterClass>
    void install(std::uint32_t maxlength = 3) {
        formatter_ = std::make_shared<NumberFormatterClass>(&SPNumInSequenceFilterData, &range_, maxlength,
                                                            field_.weakSelf());
        view_.setFormatter(formatter_);
    }
    /// The text as a field's value; every one is accepted unchanged.
    void enter(const std::string& text) {
        std::string object;
        EXPECT_TRUE(formatter_->getObjectValue(object, text, nullptr));
        EXPECT_EQ(object, text);
    }

    EditValueRangeData range_{1, 254};
    TextView view_{11};
    OpenTextField field_;
    std::shared_ptr<platform::Formatter> formatter_;
};

TEST_F(NumberFormatter, HandsAValidNumberToItsField) {
    enter("12");
    EXPECT_EQ(field_.rawTexts, Texts{"12"});
    EXPECT_EQ(field_.uiText(), "12");
    EXPECT_EQ(field_.GetDataBlkSize(), 2U);
}

TEST_F(NumberFormatter, BothEndsOfTheRangeAreValid) {
    for (const char* text : {"0", "1", "254", "255", "-1", "99999999999999999999"}) {
        enter(text);
    }
    EXPECT_EQ(field_.rawTexts, (Texts{"1", "254"}));
    range_ = {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    enter("99999999999999999999");
    EXPECT_EQ(field_.rawTexts.size(), 3U) << "a number past 32 bits counts as the largest";
}

TEST_F(NumberFormatter, AnInvalidNumberEmptiesTheUIBlockAndTellsNobody) {
    enter("12");
    enter("255");
    EXPECT_EQ(field_.rawTexts, Texts{"12"});
    EXPECT_EQ(field_.uiText(), "");
    EXPECT_EQ(field_.GetDataBlkSize(), 0U);
}

TEST_F(NumberFormatter, TheLastValidTextAgainDoesNothingMore) {
    enter("12");
    field_.setUIText("other");
    enter("12");
    EXPECT_EQ(field_.rawTexts, Texts{"12"});
    EXPECT_EQ(field_.uiText(), "other");
    enter("255");
    enter("12");
    EXPECT_EQ(field_.rawTexts, Texts{"12"}) << "an invalid text in between is not remembered";
    EXPECT_EQ(field_.uiText(), "");
}

TEST_F(NumberFormatter, AnEmptyTextCountsAsZero) {
    enter("");
    EXPECT_TRUE(field_.rawTexts.empty());
    range_ = {0, 150};
    enter("");
    EXPECT_EQ(field_.rawTexts, Texts{""}) << "and is told at first, since no text was valid yet";
    EXPECT_EQ(field_.GetDataBlkSize(), 0U);
}

TEST_F(NumberFormatter, FollowsTheRangeOfItsField) {
    enter("300");
    EXPECT_TRUE(field_.rawTexts.empty());
    range_ = {1, 300};
    enter("300");
    EXPECT_EQ(field_.rawTexts, Texts{"300"});
}

TEST_F(NumberFormatter, RunsForTextsSetByProgramToo) {
    view_.setStringValue("7");
    EXPECT_EQ(field_.rawTexts, Texts{"7"});
    EXPECT_EQ(view_.stringValue(), "7");
}

TEST_F(NumberFormatter, WhileTypingNothingIsHandedOverUntilTheFieldIsLeft) {
    ASSERT_TRUE(view_.editText("4"));
    ASSERT_TRUE(view_.editText("42"));
    EXPECT_TRUE(field_.rawTexts.empty());
    view_.endEditing();
    EXPECT_EQ(field_.rawTexts, Texts{"42"});
}

TEST_F(NumberFormatter, WhileItsFieldTellsItsNeighboursItOnlyHandsTextsOn) {
    field_.onRawKeyUp = [this] {
        enter("99");
    };
    enter("12");
    EXPECT_EQ(field_.rawTexts, Texts{"12"});
    EXPECT_EQ(field_.uiText(), "12");
    field_.onRawKeyUp = nullptr;
    enter("99");
    EXPECT_EQ(field_.rawTexts, (Texts{"12", "99"})) << "the echo was not remembered";
}

TEST_F(NumberFormatter, WithoutARangeNoNumberIsValid) {
    formatter_ = std::make_shared<SPInchMMTextEditFormatterEMF>(&SPNumInSequenceFilterData, nullptr, 3,
                                                                field_.weakSelf());
    enter("12");
    EXPECT_TRUE(field_.rawTexts.empty());
}

TEST_F(NumberFormatter, OutlivesItsField) {
    {
        OpenTextField ending;
        formatter_ = std::make_shared<SPInchMMTextEditFormatterEMF>(nullptr, &range_, 3, ending.weakSelf());
    }
    enter("12");
    view_.setFormatter(formatter_);
    EXPECT_TRUE(view_.type("13"));
    EXPECT_EQ(view_.stringValue(), "13");
}

TEST_F(NumberFormatter, AFieldInUnitsGetsAtLeast15Bytes) {
    const std::string zeros(20, '0');
    enter(zeros + "7");
    EXPECT_EQ(field_.rawTexts, Texts{std::string(15, '0')});
    install<SPInchMMTextEditFormatterEMF>(18);
    enter(zeros + "7");
    EXPECT_EQ(field_.rawTexts.back(), std::string(18, '0')) << "or what it may hold";
}

TEST_F(NumberFormatter, APlainFieldGetsAtLeast5Bytes) {
    install<SPTextEditFormatterEMF>(3);
    enter("000007");
    EXPECT_EQ(field_.rawTexts, Texts{"00000"});
    install<SPTextEditFormatterEMF>(6);
    enter("000007");
    EXPECT_EQ(field_.rawTexts.back(), "000007") << "or what it may hold";
}

TEST_F(NumberFormatter, ARawTextIsNotCutInsideACharacter) {
    install<SPTextEditFormatterEMF>(3);
    enter("1234é");
    EXPECT_EQ(field_.rawTexts, Texts{});
    range_ = {1, 9999};
    enter("1234é");
    EXPECT_EQ(field_.rawTexts, Texts{"1234"});
    EXPECT_EQ(field_.uiText(), "1234");
}

TEST_F(NumberFormatter, RefusesKeysAsEveryFormatterDoes) {
    EXPECT_TRUE(view_.editText("123"));
    EXPECT_FALSE(view_.editText("1234"));
    EXPECT_FALSE(view_.editText("1a"));
    EXPECT_EQ(view_.shownText(), "123");
}

} // namespace
} // namespace specialpages
