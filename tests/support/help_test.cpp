#include "platform/foundation/Bundle.h"
#include "platform/services/help_viewer.h"
#include "support/help.h"
#include "support/identifiers.h"
#include "support/temporary_bundle.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace specialpages {
namespace {

using platform::testing::write_test_file;

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    while (count-- > 0) {
        all += text;
    }
    return all;
}

TEST(ResourceName, IsSplitAtTheFirstHyphen) {
    EXPECT_EQ(GetAppResourceName("abc-def", 0), "abc");
    EXPECT_EQ(GetAppResourceName("abc-def", 1), "def");
    EXPECT_EQ(GetAppResourceName("abc-def-ghi", 0), "abc");
    EXPECT_EQ(GetAppResourceName("abc-def-ghi", 1), "def-ghi");
}

TEST(ResourceName, OfAnotherPartIsEmpty) {
    EXPECT_EQ(GetAppResourceName("abc-def", 2), "");
    EXPECT_EQ(GetAppResourceName("abc-def", -1), "");
}

TEST(ResourceName, PartsMayBeEmpty) {
    EXPECT_EQ(GetAppResourceName("-def", 0), "");
    EXPECT_EQ(GetAppResourceName("-def", 1), "def");
    EXPECT_EQ(GetAppResourceName("abc-", 1), "");
    EXPECT_EQ(GetAppResourceName("-", 0), "");
    EXPECT_EQ(GetAppResourceName("-", 1), "");
}

TEST(ResourceName, IsNullWithoutATextOrAHyphen) {
    EXPECT_EQ(GetAppResourceName(std::nullopt, 0), std::nullopt);
    EXPECT_EQ(GetAppResourceName("", 0), std::nullopt);
    EXPECT_EQ(GetAppResourceName("abc", 0), std::nullopt);
    EXPECT_EQ(GetAppResourceName("abc", 1), std::nullopt);
    EXPECT_EQ(GetAppResourceName("abc", 2), std::nullopt);
    EXPECT_EQ(GetAppResourceName("abc‐def", 0), std::nullopt); // U+2010 is no hyphen here
}

TEST(ResourceName, IsNullWhenThePartIsIllFormed) {
    EXPECT_EQ(GetAppResourceName("a\xFF-b", 0), std::nullopt);
    EXPECT_EQ(GetAppResourceName("a\xFF-b", 1), "b");
}

TEST(ResourceName, IsCutAt254BytesAtACharacterBoundary) {
    EXPECT_EQ(GetAppResourceName(std::string(254, 'x') + "-" + std::string(255, 'y'), 0),
              std::string(254, 'x'));
    EXPECT_EQ(GetAppResourceName(std::string(254, 'x') + "-" + std::string(255, 'y'), 1),
              std::string(254, 'y'));
    EXPECT_EQ(GetAppResourceName("-" + repeated("表", 85), 1), repeated("表", 84)); // 252 bytes
    EXPECT_EQ(GetAppResourceName(std::string(1000000, 'x') + "-", 0), std::string(254, 'x'));
}

TEST(FullResourceName, TakesThePrefixOfItsKind) {
    EXPECT_EQ(GetAppFullResourceName("abc", 0, "NVSpecialPages_", "SpecialPagesMain_"), "NVSpecialPages_abc");
    EXPECT_EQ(GetAppFullResourceName("abc", 1, "NVSpecialPages_", "SpecialPagesMain_"),
              "SpecialPagesMain_abc");
}

TEST(FullResourceName, OfAnotherKindIsTheNameAlone) {
    EXPECT_EQ(GetAppFullResourceName("abc", 2, "first", "second"), "abc");
    EXPECT_EQ(GetAppFullResourceName("abc", -1, "first", "second"), "abc");
}

TEST(FullResourceName, OfAnEmptyNameIsTheBarePrefix) {
    EXPECT_EQ(GetAppFullResourceName("", 0, "first", "second"), "first");
    EXPECT_EQ(GetAppFullResourceName("", 1, "first", "second"), "second");
    EXPECT_EQ(GetAppFullResourceName("", 2, "first", "second"), "");
}

TEST(FullResourceName, OfANullNameIsNull) {
    EXPECT_EQ(GetAppFullResourceName(std::nullopt, 0, "first", "second"), std::nullopt);
    EXPECT_EQ(GetAppFullResourceName(std::nullopt, 2, "first", "second"), std::nullopt);
}

TEST(FullResourceName, IsCutAt255UnitsAtACharacterBoundary) {
    EXPECT_EQ(GetAppFullResourceName(std::string(250, 'x'), 0, "12345", ""), "12345" + std::string(250, 'x'));
    EXPECT_EQ(GetAppFullResourceName(std::string(251, 'x'), 0, "12345", ""), "12345" + std::string(250, 'x'));
    EXPECT_EQ(GetAppFullResourceName(repeated("表", 300), 2, "", ""), repeated("表", 255));
    EXPECT_EQ(GetAppFullResourceName(repeated("😀", 128), 2, "", ""), repeated("😀", 127));
}

class HelpBook : public testing::Test {
  protected:
    HelpBook() : config_("XDG_CONFIG_HOME", (directory_.path() / "config").string()) {
        test::write_bundle(bundleDirectory(), kBundleIdentifier);
    }
    std::filesystem::path bundleDirectory() const { return directory_.path() / "SpecialPages.bundle"; }

    platform::testing::TemporaryDirectory directory_;
    platform::testing::ScopedEnvironment config_;
};

TEST_F(HelpBook, OfABundleThatIsNotLoadedIsMissing) {
    std::filesystem::create_directories(bundleDirectory() / "Help");
    EXPECT_EQ(RegisterMyHelpBook(), platform::fnfErr);
    EXPECT_FALSE(std::filesystem::exists(platform::help_preferences_file()));
}

TEST_F(HelpBook, OfABundleWithoutHelpIsMissing) {
    const auto bundle = platform::Bundle::load(bundleDirectory());
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(RegisterMyHelpBook(), platform::fnfErr);
    EXPECT_FALSE(std::filesystem::exists(platform::help_preferences_file()));
}

TEST_F(HelpBook, OfThePaneIsRegisteredUnderItsIdentifier) {
    write_test_file(bundleDirectory() / "Help" / "SpecialPagesMain_x.htm", "<html></html>");
    const auto bundle = platform::Bundle::load(bundleDirectory());
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(RegisterMyHelpBook(), platform::noErr);
    EXPECT_EQ(RegisterMyHelpBook(), platform::noErr);
    const std::string contents = platform::testing::read_test_file(platform::help_preferences_file());
    EXPECT_NE(contents.find(kBundleIdentifier), std::string::npos) << contents;
    EXPECT_NE(contents.find("SpecialPages.bundle"), std::string::npos) << contents;
}

TEST_F(HelpBook, ThatCannotBeRegisteredAnswersTheViewersStatus) {
    write_test_file(bundleDirectory() / "Help" / "SpecialPagesMain_x.htm", "<html></html>");
    const auto bundle = platform::Bundle::load(bundleDirectory());
    ASSERT_NE(bundle, nullptr);
    write_test_file(platform::help_preferences_file(), "this is no property list");
    EXPECT_EQ(RegisterMyHelpBook(), platform::ioErr);
}

} // namespace
} // namespace specialpages
