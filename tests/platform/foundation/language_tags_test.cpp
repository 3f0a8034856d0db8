#include "platform/foundation/language_tags.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

using Tags = std::vector<std::string>;

TEST(LanguageTags, ALanguageAloneIsItself) {
    EXPECT_EQ(language_tags("de"), Tags{"de"});
}

TEST(LanguageTags, ARegionFallsBackToItsLanguage) {
    EXPECT_EQ(language_tags("de-AT"), (Tags{"de-AT", "de"}));
    EXPECT_EQ(language_tags("de_AT"), (Tags{"de_AT", "de-AT", "de"}));
}

TEST(LanguageTags, EncodingAndModifierAreNoPartOfTheLanguage) {
    EXPECT_EQ(language_tags("ja.UTF-8"), (Tags{"ja.UTF-8", "ja"}));
    EXPECT_EQ(language_tags("fr@euro"), (Tags{"fr@euro", "fr"}));
    EXPECT_EQ(language_tags("pt_BR.UTF-8"), (Tags{"pt_BR.UTF-8", "pt_BR", "pt-BR", "pt"}));
    EXPECT_EQ(language_tags("de_AT.UTF-8@euro"), (Tags{"de_AT.UTF-8@euro", "de_AT", "de-AT", "de"}));
    EXPECT_EQ(language_tags("de@a.b-c"), (Tags{"de@a.b-c", "de"}));
}

TEST(LanguageTags, EveryHeadOfALongTagIsTried) {
    EXPECT_EQ(language_tags("zh-Hant-TW"), (Tags{"zh-Hant-TW", "zh-Hant", "zh"}));
    EXPECT_EQ(language_tags("de-DE-1996"), (Tags{"de-DE-1996", "de-DE", "de"}));
}

TEST(LanguageTags, TheCaseIsTheUsualOne) {
    EXPECT_EQ(language_tags("DE"), (Tags{"DE", "de"}));
    EXPECT_EQ(language_tags("Fr_ca"), (Tags{"Fr_ca", "fr-CA", "fr"}));
    EXPECT_EQ(language_tags("ZH-HANT-tw"), (Tags{"ZH-HANT-tw", "zh-Hant-TW", "zh-Hant", "zh"}));
}

TEST(LanguageTags, NothingPreferredIsNothingLookedFor) {
    EXPECT_EQ(language_tags(""), Tags{});
    EXPECT_EQ(language_tags(".UTF-8"), Tags{".UTF-8"});
    EXPECT_EQ(language_tags("-"), Tags{"-"});
    EXPECT_EQ(language_tags("_"), (Tags{"_", "-"}));
}

TEST(LanguageTags, OddTextsStayHarmless) {
    EXPECT_EQ(language_tags("C"), (Tags{"C", "c"}));
    EXPECT_EQ(language_tags("../evil"), (Tags{"../evil"}));
    EXPECT_EQ(language_tags("日本"), Tags{"日本"});
    EXPECT_EQ(language_tags("de--"), (Tags{"de--", "de-", "de"}));
}

} // namespace
} // namespace specialpages::platform
