#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/property_list.h"
#include "platform/services/help_viewer.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace specialpages::platform {
namespace {

namespace fs = std::filesystem;
using testing::read_test_file;
using testing::ScopedEnvironment;
using testing::TemporaryDirectory;
using testing::write_test_file;

class HelpBookTest : public ::testing::Test {
  protected:
    fs::path make_bundle(const std::string& name, const std::string& identifier, const std::string& folder) {
        write_test_file(home / name / "Info.plist", "<plist><dict><key>CFBundleIdentifier</key><string>" +
                                                        identifier + "</string></dict></plist>");
        fs::create_directories(home / name / folder);
        return home / name;
    }
    static PropertyList preferences() {
        const auto list = parse_property_list(read_test_file(help_preferences_file()));
        EXPECT_TRUE(list);
        return list.value_or(PropertyList{});
    }
    /// The "url" of each entry of the book; empty optional when the book is not registered.
    static std::optional<std::vector<std::string>> urls(const std::string& identifier) {
        const PropertyList list = preferences();
        const PropertyList* books = list.find("RegisteredBooks");
        const PropertyList* book = books == nullptr ? nullptr : books->find(identifier);
        if (book == nullptr) {
            return std::nullopt;
        }
        std::vector<std::string> found;
        for (const auto& entry : std::get<PropertyList::Array>(book->value)) {
            found.push_back(*entry.find("url")->text());
        }
        return found;
    }
    static std::vector<std::string> order() {
        const PropertyList list = preferences();
        std::vector<std::string> found;
        for (const auto& entry : std::get<PropertyList::Array>(list.find("RegistrationOrder")->value)) {
            found.push_back(*entry.text());
        }
        return found;
    }
    std::string url(const std::string& relative) { return "file://" + (home / relative).string(); }

    using Urls = std::vector<std::string>;
    TemporaryDirectory home;
    ScopedEnvironment xdg{"XDG_CONFIG_HOME", (home / "config").string()};
};

TEST_F(HelpBookTest, ThePreferencesAreInTheConfigurationDirectory) {
    EXPECT_EQ(help_preferences_file(), home / "config/special-pages/com.apple.help.plist");
}

TEST_F(HelpBookTest, RegistersTheEnglishFolder) {
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("A.bundle", "com.example.a", "en.lproj")), noErr);
    EXPECT_EQ(urls("com.example.a"), Urls{url("A.bundle/en.lproj/")});
    EXPECT_EQ(order(), std::vector<std::string>{"com.example.a"});
}

TEST_F(HelpBookTest, RegistersTheHelpFolderWhereThereIsNoEnglishOne) {
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("A.bundle", "com.example.a", "Help")), noErr);
    EXPECT_EQ(urls("com.example.a"), Urls{url("A.bundle/Help/")});
    fs::create_directory(home / "A.bundle/en.lproj");
    EXPECT_EQ(AHRegisterHelpBook(home / "A.bundle"), noErr);
    EXPECT_EQ(urls("com.example.a"), Urls{url("A.bundle/en.lproj/")});
    EXPECT_EQ(order(), std::vector<std::string>{"com.example.a"});
}

TEST_F(HelpBookTest, EscapesTheUrl) {
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("\xC3\xA4 %#?.bundle", "com.example.a", "en.lproj")), noErr);
    EXPECT_EQ(urls("com.example.a"),
              Urls{"file://" + home.path().string() + "/%C3%A4%20%25%23%3F.bundle/en.lproj/"});
}

TEST_F(HelpBookTest, KeepsBooksInTheOrderOfTheirFirstRegistration) {
    const fs::path a = make_bundle("A.bundle", "com.example.a", "en.lproj");
    const fs::path b = make_bundle("B.bundle", "com.example.b", "en.lproj");
    EXPECT_EQ(AHRegisterHelpBook(b), noErr);
    EXPECT_EQ(AHRegisterHelpBook(a), noErr);
    EXPECT_EQ(AHRegisterHelpBook(b), noErr);
    EXPECT_EQ(order(), (std::vector<std::string>{"com.example.b", "com.example.a"}));
    EXPECT_EQ(urls("com.example.b"), Urls{url("B.bundle/en.lproj/")});
    EXPECT_EQ(urls("com.example.a"), Urls{url("A.bundle/en.lproj/")});
}

TEST_F(HelpBookTest, ABookThatMovedReplacesItsEntry) {
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("Old.bundle", "com.example.a", "en.lproj")), noErr);
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("New.bundle", "com.example.a", "en.lproj")), noErr);
    EXPECT_EQ(urls("com.example.a"), Urls{url("New.bundle/en.lproj/")});
    EXPECT_EQ(order(), std::vector<std::string>{"com.example.a"});
}

TEST_F(HelpBookTest, ARegisteredBookIsLeftAloneAndTheFileIsNotWritten) {
    const fs::path bundle = make_bundle("A.bundle", "com.example.a", "en.lproj");
    ASSERT_EQ(AHRegisterHelpBook(bundle), noErr);
    // Another layout of the same list, which writing would undo.
    const std::string bytes =
        "<plist><dict><key>RegisteredBooks</key><dict><key>com.example.a</key><array><dict>"
        "<key>url</key><string>" +
        url("A.bundle/en.lproj/") + "</string></dict></array></dict></dict></plist>";
    write_test_file(help_preferences_file(), bytes);
    EXPECT_EQ(AHRegisterHelpBook(bundle), noErr);
    EXPECT_EQ(AHRegisterHelpBook(home / "./B/../A.bundle/"), noErr);
    EXPECT_EQ(read_test_file(help_preferences_file()), bytes);
}

TEST_F(HelpBookTest, KeepsWhatElseStandsInTheFile) {
    write_test_file(help_preferences_file(),
                    "<plist><dict><key>Other</key><integer>7</integer><key>RegisteredBooks</key><dict>"
                    "<key>com.example.z</key><string>odd</string></dict></dict></plist>");
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("A.bundle", "com.example.a", "en.lproj")), noErr);
    const PropertyList list = preferences();
    EXPECT_EQ(std::get<std::int64_t>(list.find("Other")->value), 7);
    EXPECT_EQ(*list.find("RegisteredBooks")->find("com.example.z")->text(), "odd");
    EXPECT_EQ(urls("com.example.a"), Urls{url("A.bundle/en.lproj/")});
}

TEST_F(HelpBookTest, NoBundleOrNoHelpFolderIsNotFound) {
    EXPECT_EQ(AHRegisterHelpBook(home / "none"), fnfErr);
    EXPECT_EQ(AHRegisterHelpBook(""), fnfErr);
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("A.bundle", "com.example.a", "de.lproj")), fnfErr);
    write_test_file(home / "B.bundle/Info.plist", "<plist><dict/></plist>");
    fs::create_directory(home / "B.bundle/en.lproj");
    EXPECT_EQ(AHRegisterHelpBook(home / "B.bundle"), fnfErr);
    EXPECT_FALSE(fs::exists(help_preferences_file()));
}

TEST_F(HelpBookTest, AFileThatIsNoHelpPreferencesIsAnErrorAndStaysAsItWas) {
    const fs::path bundle = make_bundle("A.bundle", "com.example.a", "en.lproj");
    for (const char* bytes : {"", "corrupt", "<plist><array/></plist>",
                              "<plist><dict><key>RegisteredBooks</key><array/></dict></plist>",
                              "<plist><dict><key>RegistrationOrder</key><dict/></dict></plist>"}) {
        write_test_file(help_preferences_file(), bytes);
        EXPECT_EQ(AHRegisterHelpBook(bundle), ioErr) << bytes;
        EXPECT_EQ(read_test_file(help_preferences_file()), bytes);
    }
}

TEST_F(HelpBookTest, AFileThatCannotBeWrittenIsAnError) {
    write_test_file(home / "config", "a file where the folder should be");
    EXPECT_EQ(AHRegisterHelpBook(make_bundle("A.bundle", "com.example.a", "en.lproj")), ioErr);
}

class HelpPageTest : public ::testing::Test {
  public:
    HelpPageTest() : before(setHelpOpener(nullptr)) {}
    HelpPageTest(const HelpPageTest&) = delete;
    HelpPageTest& operator=(const HelpPageTest&) = delete;
    ~HelpPageTest() override { setHelpOpener(before); }

  private:
    HelpOpener before;
};

TEST_F(HelpPageTest, CannotBeFoundWithoutAnOpener) {
    EXPECT_EQ(AHGotoPage("Book", "Page.htm", ""), fnfErr);
}

TEST_F(HelpPageTest, IsOpenedByTheOpenerWhoseStatusIsTheAnswer) {
    std::vector<std::string> asked;
    setHelpOpener([&](std::string_view book, std::string_view page, std::string_view anchor) {
        asked.insert(asked.end(), {std::string(book), std::string(page), std::string(anchor)});
        return OSStatus{-36};
    });
    EXPECT_EQ(AHGotoPage("Special Pages Help", "SpecialPagesCover.htm", "top"), -36);
    EXPECT_EQ(AHGotoPage("", "", ""), -36);
    EXPECT_EQ(asked,
              (std::vector<std::string>{"Special Pages Help", "SpecialPagesCover.htm", "top", "", "", ""}));
}

TEST_F(HelpPageTest, SettingAnOpenerAnswersTheOneBefore) {
    EXPECT_FALSE(setHelpOpener([](auto, auto, auto) { return OSStatus{7}; }));
    const HelpOpener mine = setHelpOpener(nullptr);
    ASSERT_TRUE(mine);
    EXPECT_EQ(mine("", "", ""), 7);
    EXPECT_EQ(AHGotoPage("Book", "Page.htm", ""), fnfErr);
}

} // namespace
} // namespace specialpages::platform
