#include "host/host_fixtures.h"
#include "host/no_language.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace specialpages::host::testing {
namespace {

constexpr const char* kVariable = "LC_MESSAGES";

/// The environment's word and the locale's.
std::pair<std::string, std::string> language() {
    const char* const variable = std::getenv(kVariable);
    return {variable == nullptr ? "(none)" : variable, std::setlocale(LC_MESSAGES, nullptr)};
}

using Words = std::pair<std::string, std::string>;

/// As a program has it that took the user's locale.
class NoLanguageTest : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_NE(std::setlocale(LC_MESSAGES, "C.UTF-8"), nullptr); }
    void TearDown() override { std::setlocale(LC_MESSAGES, before_.c_str()); }

  private:
    std::string before_ = std::setlocale(LC_MESSAGES, nullptr);
};

TEST_F(NoLanguageTest, HidesTheLanguageAndBringsItBack) {
    const ScopedVariable messages(kVariable, "fr_FR.UTF-8");
    {
        const NoLanguage noLanguage;
        EXPECT_EQ(language(), Words("C", "C"));
    }
    EXPECT_EQ(language(), Words("fr_FR.UTF-8", "C.UTF-8"));
}

TEST_F(NoLanguageTest, LeavesNoVariableWhereThereWasNone) {
    const ScopedVariable messages(kVariable, nullptr);
    {
        const NoLanguage noLanguage;
        EXPECT_EQ(language(), Words("C", "C"));
    }
    EXPECT_EQ(language(), Words("(none)", "C.UTF-8"));
}

TEST_F(NoLanguageTest, OneInsideAnotherWritesNothing) {
    const ScopedVariable messages(kVariable, "fr_FR.UTF-8");
    {
        const NoLanguage outer;
        const char* const text = std::getenv(kVariable);
        {
            const NoLanguage inner;
            EXPECT_EQ(std::getenv(kVariable), text) << "the variable was written again";
        }
        EXPECT_EQ(std::getenv(kVariable), text);
        EXPECT_EQ(language(), Words("C", "C"));
    }
    EXPECT_EQ(language(), Words("fr_FR.UTF-8", "C.UTF-8"));
}

TEST_F(NoLanguageTest, HalfOfItIsNotEnough) {
    std::setlocale(LC_MESSAGES, "C");
    const ScopedVariable messages(kVariable, "fr_FR.UTF-8"); // which libcups asks for under this locale
    const NoLanguage noLanguage;
    EXPECT_EQ(language(), Words("C", "C"));
}

} // namespace
} // namespace specialpages::host::testing
