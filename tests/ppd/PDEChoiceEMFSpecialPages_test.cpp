#include "ppd/PDEChoiceEMFSpecialPages.h"
#include "ppd/ppd_builder.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

TEST(PDEChoice, DecodesItsTitlesAsAscii) {
    PpdBuilder ppd;
    ppd.option("MediaType")
        .choice("Plain", "Plain paper")
        .choice("Kraft", "Papier kr\xC3\xA4"
                         "ftig")
        .choice("None", "");
    const ppd_option_t& option = ppd.file()->groups[0].options[0];
    const auto choices = ArrayFromPPDOption(&option);
    ASSERT_TRUE(choices.has_value());
    ASSERT_EQ(choices->size(), 3U);
    EXPECT_EQ((*choices)[0]->userTitle(), "Plain paper");
    EXPECT_EQ((*choices)[0]->ppdTitle(), "Plain");
    EXPECT_FALSE((*choices)[1]->userTitle().has_value());
    EXPECT_EQ((*choices)[1]->ppdTitle(), "Kraft");
    EXPECT_EQ((*choices)[2]->userTitle(), "");
    EXPECT_EQ((*choices)[1]->choice(), &option.choices[1]);
    EXPECT_FALSE(PDEChoiceEMFSpecialPages::description().has_value());
}

TEST(PDEChoice, ATitleIsMadeOnce) {
    PpdBuilder ppd;
    ppd.option("MediaType").choice("Plain", "Plain paper");
    const auto choice =
        PDEChoiceEMFSpecialPages::choiceWithChoice(&ppd.file()->groups[0].options[0].choices[0]);
    const auto* first = &choice->userTitle();
    ppd.file()->groups[0].options[0].choices[0].text[0] = 'X';
    EXPECT_EQ(&choice->userTitle(), first);
    EXPECT_EQ(choice->userTitle(), "Plain paper");
}

TEST(PDEChoice, NullOptionsAndChoices) {
    EXPECT_FALSE(ArrayFromPPDOption(nullptr).has_value());
    PpdBuilder ppd;
    ppd.option("Empty");
    const auto choices = ArrayFromPPDOption(&ppd.file()->groups[0].options[0]);
    ASSERT_TRUE(choices.has_value());
    EXPECT_TRUE(choices->empty());
    PDEChoiceEMFSpecialPages none(nullptr);
    EXPECT_FALSE(none.userTitle().has_value());
    EXPECT_FALSE(none.ppdTitle().has_value());
}

TEST(PDEChoice, AnOptionThatPromisesChoicesAndHasNoneIsEmpty) {
    ppd_option_t option{};
    for (const int count : {3, 0, -1}) {
        option.num_choices = count;
        const auto choices = ArrayFromPPDOption(&option);
        ASSERT_TRUE(choices.has_value());
        EXPECT_TRUE(choices->empty()) << count;
    }
}

TEST(PDEChoice, AKeywordBeyondASCIIIsNullAndTheRestOfTheListIsThere) {
    ppd_choice_t odd{};
    odd.choice[0] = '\xC3';
    odd.choice[1] = '\xA4';
    odd.text[0] = '\x7F';
    PDEChoiceEMFSpecialPages choice(&odd);
    EXPECT_EQ(choice.ppdTitle(), std::nullopt);
    EXPECT_EQ(choice.userTitle(), "\x7F") << "the last of ASCII";
    odd.text[0] = '\x80';
    EXPECT_EQ(choice.userTitle(), "\x7F") << "made at the first question";
    EXPECT_EQ(PDEChoiceEMFSpecialPages(&odd).userTitle(), std::nullopt);
}

} // namespace
} // namespace specialpages::test
