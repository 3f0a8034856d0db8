#include "platform/foundation/Bundle.h"
#include "platform/foundation/log.h"
#include "platform/foundation/property_list.h"
#include "platform/services/help_viewer.h"
#include "support/help.h"
#include "support/identifiers.h"
#include "support/temporary_bundle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

using platform::testing::write_test_file;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

platform::PropertyList parsed(const std::string& bytes) {
    auto list = platform::parse_property_list(bytes);
    EXPECT_TRUE(list) << bytes;
    return list.value_or(platform::PropertyList{});
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

TEST_F(HelpBook, OfAnyBundleIsRegistered) {
    const auto directory = directory_.path() / "Other.bundle";
    test::write_bundle(directory, "com.example.other");
    std::filesystem::create_directories(directory / "Help");
    const auto bundle = platform::Bundle::load(directory);
    ASSERT_NE(bundle, nullptr);
    RegisterHelpBook(bundle.get());
    const platform::PropertyList list =
        parsed(platform::testing::read_test_file(platform::help_preferences_file()));
    ASSERT_NE(list.find("RegisteredBooks"), nullptr);
    EXPECT_NE(list.find("RegisteredBooks")->find("com.example.other"), nullptr);
}

TEST_F(HelpBook, OfNoBundleOrOneWithoutHelpIsNotRegistered) {
    RegisterHelpBook(nullptr);
    const auto bundle = platform::Bundle::load(bundleDirectory());
    ASSERT_NE(bundle, nullptr);
    RegisterHelpBook(bundle.get());
    EXPECT_FALSE(std::filesystem::exists(platform::help_preferences_file()));
}

/// Pages that are asked for while it lives, as "book|page|anchor"; the viewer answers -36.
class HelpPage : public HelpBook {
  public:
    HelpPage()
        : before_(platform::setHelpOpener(
              [this](std::string_view book, std::string_view page, std::string_view anchor) {
                  pages_.push_back(std::string(book) + "|" + std::string(page) + "|" + std::string(anchor));
                  return platform::OSStatus{-36};
              })) {}
    HelpPage(const HelpPage&) = delete;
    HelpPage& operator=(const HelpPage&) = delete;
    ~HelpPage() override { platform::setHelpOpener(before_); }

  protected:
    /// The pane's bundle with one more entry in its Info.plist and one localised text.
    std::shared_ptr<platform::Bundle> bundle_with(const std::string& entry, const std::string& text = {}) {
        write_test_file(bundleDirectory() / "Info.plist",
                        "<plist><dict><key>CFBundleIdentifier</key><string>com.example.help</string>" +
                            entry + "</dict></plist>");
        write_test_file(bundleDirectory() / "en.lproj" / "Localizable.strings", text);
        return platform::Bundle::load(bundleDirectory());
    }

    std::vector<std::string> pages_;

  private:
    platform::HelpOpener before_;
};

TEST_F(HelpPage, IsOpenedInTheBookOfTheLocalizedName) {
    const auto bundle = bundle_with("", "\"Title\" = \"Special Pages Help\";");
    EXPECT_EQ(GotoHelpPage(bundle.get(), "Page.htm", "top", "Title"), -36) << "the viewer's status";
    EXPECT_THAT(pages_, ElementsAre("Special Pages Help|Page.htm|top"));
}

TEST_F(HelpPage, WithoutATranslationOfItsBookNamesNone) {
    const auto bundle = bundle_with("");
    EXPECT_EQ(GotoHelpPage(bundle.get(), "Page.htm", "", "Title"), -36);
    EXPECT_THAT(pages_, ElementsAre("no translation|Page.htm|"));
}

TEST_F(HelpPage, OfNoBundleIsMissing) {
    EXPECT_EQ(GotoHelpPage(nullptr, "Page.htm", "", "Title"), platform::fnfErr);
    GotoHelpPage(nullptr, "Page.htm", "");
    EXPECT_THAT(pages_, IsEmpty());
}

TEST_F(HelpPage, LooksUp255BytesOfAKeyAndCutsNoName) {
    const std::string key(255, 'k');
    const std::string name(300, 'n');
    const auto bundle = bundle_with("", "\"" + key + "\" = \"" + name + "\";");
    GotoHelpPage(bundle.get(), "Page.htm", "", key);
    GotoHelpPage(bundle.get(), "Page.htm", "", key + "more");
    GotoHelpPage(bundle.get(), "Page.htm", "", key.substr(1));
    EXPECT_THAT(pages_, ElementsAre(name + "|Page.htm|", name + "|Page.htm|", "no translation|Page.htm|"));
}

TEST_F(HelpPage, IsOpenedInTheBookThatTheBundleNames) {
    const auto bundle = bundle_with("<key>CFBundleHelpBookName</key><string>com.example.book</string>");
    GotoHelpPage(bundle.get(), "Page.htm", "top");
    EXPECT_THAT(pages_, ElementsAre("com.example.book|Page.htm|top"));
}

TEST_F(HelpPage, OfABundleThatNamesNoBookIsNotOpened) {
    GotoHelpPage(bundle_with("").get(), "Page.htm", "top");
    GotoHelpPage(bundle_with("<key>CFBundleHelpBookName</key><integer>7</integer>").get(), "Page.htm", "top");
    GotoHelpPage(bundle_with("<key>CFBundleHelpBookName</key><array><string>b</string></array>").get(),
                 "Page.htm", "top");
    EXPECT_THAT(pages_, IsEmpty());
}

/// Help preferences in which stale and living books stand side by side.
class HelpCache : public HelpBook {
  public:
    HelpCache()
        : before_(platform::setLogSink([this](std::string_view line) { lines_.emplace_back(line); })) {}
    HelpCache(const HelpCache&) = delete;
    HelpCache& operator=(const HelpCache&) = delete;
    ~HelpCache() override { platform::setLogSink(before_); }

  protected:
    static std::string place(const std::string& url) {
        return "<dict><key>url</key><string>" + url + "</string></dict>";
    }
    static void write_preferences(const std::string& dictionary) {
        write_test_file(platform::help_preferences_file(), "<plist><dict>" + dictionary + "</dict></plist>");
    }
    static std::string preferences() {
        return platform::testing::read_test_file(platform::help_preferences_file());
    }
    /// Whether the removal leaves every byte of these preferences.
    bool stays(const std::string& dictionary, std::optional<std::string_view> identifier = "com.example.a") {
        write_preferences(dictionary);
        const std::string before = preferences();
        RemoveHelpCacheForBundleID(identifier);
        return preferences() == before && lines_.empty();
    }

    std::vector<std::string> lines_;

  private:
    platform::LogSink before_;
};

TEST_F(HelpCache, OfAStaleBookIsTakenOutOfTheBooksAndTheOrder) {
    write_preferences("<key>Other</key><true/><key>RegisteredBooks</key><dict>"
                      "<key>com.example.b</key><array>" +
                      place("file:///b/en.lproj/") + "</array><key>com.example.a</key><array>" +
                      place("file:///a/en.lproj/") + place("file:///a/Help/") +
                      "</array></dict><key>RegistrationOrder</key><array><string>com.example.a</string>"
                      "<string>com.example.b</string><integer>1</integer><string>com.example.a</string>"
                      "</array>");
    RemoveHelpCacheForBundleID("com.example.a");
    EXPECT_EQ(preferences(),
              platform::write_property_list(
                  parsed("<plist><dict><key>Other</key><true/><key>RegisteredBooks</key><dict>"
                         "<key>com.example.b</key><array>" +
                         place("file:///b/en.lproj/") +
                         "</array></dict><key>RegistrationOrder</key><array>"
                         "<string>com.example.b</string><integer>1</integer></array></dict></plist>")));
    EXPECT_THAT(lines_, IsEmpty());
}

TEST_F(HelpCache, OfABookThatWasRegisteredHereIsTakenOut) {
    std::filesystem::create_directories(bundleDirectory() / "en.lproj");
    const auto bundle = platform::Bundle::load(bundleDirectory());
    ASSERT_NE(bundle, nullptr);
    ASSERT_EQ(RegisterMyHelpBook(), platform::noErr);
    ASSERT_NE(preferences().find(kBundleIdentifier), std::string::npos);
    RemoveHelpCacheForBundleID(kBundleIdentifier);
    EXPECT_EQ(preferences().find(kBundleIdentifier), std::string::npos);
    EXPECT_THAT(lines_, IsEmpty());
}

TEST_F(HelpCache, OfABookOutsideOfALanguageFolderStays) {
    EXPECT_TRUE(stays("<key>RegisteredBooks</key><dict><key>com.example.a</key><array>" +
                      place("file:///a/Help/") + place("file:///a/en.lproj/") +
                      "</array></dict><key>RegistrationOrder</key><array><string>com.example.a</string>"
                      "</array>"))
        << "the first place counts";
}

TEST_F(HelpCache, OfABookThatIsNotRegisteredStays) {
    const std::string other = "<key>RegisteredBooks</key><dict><key>com.example.ab</key><array>" +
                              place("file:///a/en.lproj/") +
                              "</array></dict><key>RegistrationOrder</key><array>"
                              "<string>com.example.a</string></array>";
    EXPECT_TRUE(stays(other)) << "in the order alone it is no registration";
    EXPECT_TRUE(stays("<key>RegisteredBooks</key><dict/>"));
    EXPECT_TRUE(stays(""));
}

TEST_F(HelpCache, OfNoIdentifierStays) {
    const std::string book = "<key>RegisteredBooks</key><dict><key>com.example.a</key><array>" +
                             place("file:///a/en.lproj/") + "</array></dict>";
    EXPECT_TRUE(stays(book, std::nullopt));
    EXPECT_TRUE(stays(book, ""));
}

TEST_F(HelpCache, OfOddShapesStays) {
    const std::string key = "<key>RegisteredBooks</key>";
    const std::string book = "<dict><key>com.example.a</key>";
    EXPECT_TRUE(stays(key + "<array/>"));
    EXPECT_TRUE(stays(key + "<string>com.example.a</string>"));
    EXPECT_TRUE(stays(key + book + "<string>file:///a/en.lproj/</string></dict>"));
    EXPECT_TRUE(stays(key + book + "<array/></dict>"));
    EXPECT_TRUE(stays(key + book + "<array><string>file:///a/en.lproj/</string></array></dict>"));
    EXPECT_TRUE(stays(key + book + "<array><dict/></array></dict>"));
    EXPECT_TRUE(stays(key + book + "<array><dict><key>url</key><integer>1</integer></dict></array></dict>"));
}

TEST_F(HelpCache, NeedsNoOrderOfRegistration) {
    for (const char* order :
         {"", "<key>RegistrationOrder</key><dict><key>com.example.a</key><true/></dict>"}) {
        write_preferences("<key>RegisteredBooks</key><dict><key>com.example.a</key><array>" +
                          place("file:///a/en.lproj/") + "</array></dict>" + order);
        RemoveHelpCacheForBundleID("com.example.a");
        const platform::PropertyList list = parsed(preferences());
        ASSERT_NE(list.find("RegisteredBooks"), nullptr);
        EXPECT_EQ(list.find("RegisteredBooks")->find("com.example.a"), nullptr);
        EXPECT_EQ(list.find("RegistrationOrder") != nullptr, *order != '\0') << "and makes none";
    }
}

TEST_F(HelpCache, WithoutAFileMakesNone) {
    RemoveHelpCacheForBundleID("com.example.a");
    EXPECT_FALSE(std::filesystem::exists(platform::help_preferences_file()));
    EXPECT_THAT(lines_, IsEmpty());
}

TEST_F(HelpCache, InAFileThatIsNoPropertyListIsLeftAsItIs) {
    for (const char* bytes : {"", "corrupt", "<plist><array/></plist>", "<plist><dict>"}) {
        lines_.clear();
        write_test_file(platform::help_preferences_file(), bytes);
        RemoveHelpCacheForBundleID("com.example.a");
        EXPECT_EQ(preferences(), bytes);
        EXPECT_THAT(lines_, ElementsAre("Illegal Property List.")) << bytes;
    }
}

TEST_F(HelpCache, InAFolderInPlaceOfTheFileIsLeftAsItIs) {
    std::filesystem::create_directories(platform::help_preferences_file() / "inside");
    RemoveHelpCacheForBundleID("com.example.a");
    EXPECT_TRUE(std::filesystem::is_directory(platform::help_preferences_file() / "inside"));
    EXPECT_THAT(lines_, ElementsAre("Illegal Property List."));
}

TEST(CopiedText, IsTheTextUpTo255Bytes) {
    EXPECT_EQ(NSStringCreateWithCFString("SpecialPagesMain.htm"), "SpecialPagesMain.htm");
    EXPECT_EQ(NSStringCreateWithCFString(""), "");
    EXPECT_EQ(NSStringCreateWithCFString(std::string(255, 'x')), std::string(255, 'x'));
    EXPECT_EQ(NSStringCreateWithCFString(std::string(256, 'x')), std::string(255, 'x'));
    EXPECT_EQ(NSStringCreateWithCFString(std::string(1000000, 'x')), std::string(255, 'x'));
}

TEST(CopiedText, IsCutAtACharacterBoundary) {
    EXPECT_EQ(NSStringCreateWithCFString(repeated("表", 85)), repeated("表", 85)); // 255 bytes
    EXPECT_EQ(NSStringCreateWithCFString("a" + repeated("表", 85)), "a" + repeated("表", 84));
    EXPECT_EQ(NSStringCreateWithCFString(repeated("😀", 64)), repeated("😀", 63));
}

TEST(CopiedText, EndsAtAZeroByte) {
    using namespace std::string_view_literals;
    EXPECT_EQ(NSStringCreateWithCFString("ab\0cd"sv), "ab");
    EXPECT_EQ(NSStringCreateWithCFString("\0"sv), "");
}

TEST(CopiedText, IsNullWithoutATextOrForAnIllFormedOne) {
    EXPECT_EQ(NSStringCreateWithCFString(std::nullopt), std::nullopt);
    EXPECT_EQ(NSStringCreateWithCFString("a\xFF"), std::nullopt);
}

} // namespace
} // namespace specialpages
