#include "platform/foundation/Bundle.h"
#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/log.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryDirectory;
using testing::write_test_file;

std::string info(const std::string& identifier) {
    return "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier +
           "</string><key>Name</key><string>A "
           "bundle</string><key>Count</key><integer>3</integer></dict></plist>";
}

class BundleTest : public ::testing::Test {
  protected:
    /// Makes a bundle directory; its Info.plist names the identifier.
    fs::path make(const std::string& name, const std::string& identifier) {
        write_test_file(home / name / "Info.plist", info(identifier));
        return home / name;
    }
    /// The bundle of most tests.
    std::shared_ptr<Bundle> load() {
        std::string error;
        auto bundle = Bundle::load(make("A.bundle", "com.example.a"), &error);
        EXPECT_TRUE(bundle) << error;
        return bundle;
    }
    void put(const std::string& name, const std::string& bytes = "x") {
        write_test_file(home / "A.bundle" / name, bytes);
    }
    fs::path inside(const std::string& name) { return home / "A.bundle" / name; }

    TemporaryDirectory home;
};

TEST_F(BundleTest, LoadsInfoAndIdentifier) {
    const auto bundle = load();
    EXPECT_EQ(bundle->CFBundleCopyBundleURL(), home / "A.bundle");
    EXPECT_EQ(bundle->bundleIdentifier(), "com.example.a");
    EXPECT_EQ(bundle->objectForInfoDictionaryKey("Name"), "A bundle");
    EXPECT_EQ(bundle->objectForInfoDictionaryKey("Count"), std::nullopt);
    EXPECT_EQ(bundle->objectForInfoDictionaryKey("Missing"), std::nullopt);
    EXPECT_EQ(bundle->objectForInfoDictionaryKey(""), std::nullopt);
}

TEST_F(BundleTest, MakesItsDirectoryAbsoluteWhereverTheProcessGoes) {
    make("A.bundle", "com.example.a");
    put("page.htm");
    const fs::path before = fs::current_path();
    fs::current_path(home.path());
    const auto bundle = Bundle::load("./x/../A.bundle/");
    fs::current_path(before);
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->CFBundleCopyBundleURL(), home / "A.bundle");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), inside("page.htm"));
}

TEST_F(BundleTest, DoesNotLoadWithoutAWellFormedInfoDictionary) {
    std::string error;
    EXPECT_FALSE(Bundle::load(home / "none", &error));
    EXPECT_EQ(error, "no bundle at " + (home / "none").string());
    EXPECT_FALSE(Bundle::load("", &error));
    fs::create_directory(home / "Empty.bundle");
    EXPECT_FALSE(Bundle::load(home / "Empty.bundle", &error));
    EXPECT_EQ(error,
              "cannot read " + (home / "Empty.bundle/Info.plist").string() + ": No such file or directory");
    write_test_file(home / "Bad.bundle/Info.plist", "<plist>\n<dict>");
    EXPECT_FALSE(Bundle::load(home / "Bad.bundle", &error));
    EXPECT_EQ(error, (home / "Bad.bundle/Info.plist").string() + ": line 2: element \"dict\" is not closed");
    write_test_file(home / "Array.bundle/Info.plist", "<plist><array/></plist>");
    EXPECT_FALSE(Bundle::load(home / "Array.bundle", &error));
    EXPECT_EQ(error, (home / "Array.bundle/Info.plist").string() + ": no dictionary");
    write_test_file(home / "file", "x");
    EXPECT_FALSE(Bundle::load(home / "file"));
}

TEST_F(BundleTest, MayHaveNoIdentifier) {
    write_test_file(home / "N.bundle/Info.plist", "<plist><dict/></plist>");
    const auto bundle = Bundle::load(home / "N.bundle");
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->bundleIdentifier(), std::nullopt);
    EXPECT_FALSE(Bundle::CFBundleGetBundleWithIdentifier(""));
}

TEST_F(BundleTest, IsKnownByItsIdentifierForAsLongAsItLives) {
    auto bundle = load();
    EXPECT_EQ(Bundle::CFBundleGetBundleWithIdentifier("com.example.a"), bundle);
    EXPECT_FALSE(Bundle::CFBundleGetBundleWithIdentifier("com.example"));
    EXPECT_FALSE(Bundle::CFBundleGetBundleWithIdentifier("com.example.A"));
    bundle.reset();
    EXPECT_FALSE(Bundle::CFBundleGetBundleWithIdentifier("com.example.a"));
}

TEST_F(BundleTest, TheFirstLoadedOfSeveralWithOneIdentifierIsKnown) {
    auto first = Bundle::load(make("1.bundle", "com.example.same"));
    auto second = Bundle::load(make("2.bundle", "com.example.same"));
    EXPECT_EQ(Bundle::CFBundleGetBundleWithIdentifier("com.example.same"), first);
    first.reset();
    EXPECT_EQ(Bundle::CFBundleGetBundleWithIdentifier("com.example.same"), second);
    first = Bundle::load(home / "1.bundle");
    EXPECT_EQ(Bundle::CFBundleGetBundleWithIdentifier("com.example.same"), second);
}

TEST_F(BundleTest, FindsResourcesInTheDirectoryThenInLanguagesThenInEnglish) {
    const auto bundle = load();
    bundle->setPreferredLanguages({"fr", "de"});
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), std::nullopt);
    put("en.lproj/page.htm");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), inside("en.lproj/page.htm"));
    put("de.lproj/page.htm");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), inside("de.lproj/page.htm"));
    put("fr.lproj/page.htm");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), inside("fr.lproj/page.htm"));
    put("page.htm");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), inside("page.htm"));
}

TEST_F(BundleTest, FindsResourcesInASubDirectoryAndWithoutExtension) {
    const auto bundle = load();
    put("Help/page.htm");
    put("de.lproj/Help/german.htm");
    put("plain");
    bundle->setPreferredLanguages({"de"});
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", "Help"), inside("Help/page.htm"));
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("german", "htm", "Help"), inside("de.lproj/Help/german.htm"));
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page.htm", "", "Help/"), inside("Help/page.htm"));
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("plain", "", ""), inside("plain"));
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("page", "htm", ""), std::nullopt);
}

TEST_F(BundleTest, AnswersRegularFilesOnly) {
    const auto bundle = load();
    fs::create_directory(home / "A.bundle/folder.htm");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("folder", "htm", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("", "", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("", "htm", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL(".", "", ""), std::nullopt);
}

TEST_F(BundleTest, NoNameLeadsOutOfTheBundle) {
    const auto bundle = load();
    write_test_file(home / "secret.txt", "secret");
    put("a/x.txt");
    put("en.lproj/x.txt");
    const std::string absolute = (home / "secret").string();
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("../secret", "txt", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("a/../../secret", "txt", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("secret", "txt", ".."), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("../../secret", "txt", "a"), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL(absolute, "txt", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL(absolute, "txt", "a"), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("secret", "txt", home.path().string()), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("x", "/../../../secret.txt", "a"), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL(std::string_view("a/x.txt\0y", 9), "", ""), std::nullopt);
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("..", "", ""), std::nullopt);
}

TEST_F(BundleTest, ANameMayGoUpAndDownInside) {
    const auto bundle = load();
    put("a/x.txt");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("b/../a/./x", "txt", ""), inside("a/x.txt"));
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("../a/x", "txt", "b"), inside("a/x.txt"));
    put("..odd");
    EXPECT_EQ(bundle->CFBundleCopyResourceURL("..odd", "", ""), inside("..odd"));
}

TEST_F(BundleTest, NoLanguageLeadsOutOfTheBundle) {
    const auto bundle = load();
    write_test_file(home / "evil.lproj/x.txt", "secret");
    write_test_file(home / "evil.lproj/Localizable.strings", "\"k\" = \"secret\";");
    for (const std::string& language :
         {std::string("../evil"), (home / "evil").string(), std::string("..")}) {
        bundle->setPreferredLanguages({language});
        EXPECT_EQ(bundle->CFBundleCopyResourceURL("x", "txt", ""), std::nullopt) << language;
        EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "k") << language;
    }
    bundle->setPreferredLanguages({"en"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", "../../evil.lproj/Localizable"), "k");
    EXPECT_EQ(bundle->localizedStringForKey("k", "", (home / "evil.lproj/Localizable").string()), "k");
}

TEST_F(BundleTest, LooksTextsUpInPreferredLanguagesThenInEnglish) {
    const auto bundle = load();
    put("en.lproj/Localizable.strings", "\"all\" = \"en\"; \"de+en\" = \"en\"; \"en only\" = \"en\";");
    put("de.lproj/Localizable.strings", "\"all\" = \"de\"; \"de+en\" = \"de\";");
    put("fr.lproj/Localizable.strings", "\"all\" = \"fr\";");
    EXPECT_EQ(bundle->localizedStringForKey("all", "", ""), "en");
    bundle->setPreferredLanguages({"fr", "de"});
    EXPECT_EQ(bundle->localizedStringForKey("all", "", ""), "fr");
    EXPECT_EQ(bundle->localizedStringForKey("de+en", "", ""), "de");
    EXPECT_EQ(bundle->localizedStringForKey("en only", "", ""), "en");
}

TEST_F(BundleTest, AnswersTheGivenValueOrElseTheKeyWhenThereIsNoText) {
    const auto bundle = load();
    put("en.lproj/Localizable.strings", "\"empty\" = \"\";");
    EXPECT_EQ(bundle->localizedStringForKey("k", "no translation", ""), "no translation");
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "k");
    EXPECT_EQ(bundle->localizedStringForKey("k", "v", "NoSuchTable"), "v");
    EXPECT_EQ(bundle->localizedStringForKey("", "v", ""), "v");
    EXPECT_EQ(bundle->localizedStringForKey("", "", ""), "");
    EXPECT_EQ(bundle->localizedStringForKey("empty", "v", ""), "");
}

TEST_F(BundleTest, ReadsTheNamedTableAndTheFirstOfTwoEqualKeys) {
    const auto bundle = load();
    put("en.lproj/Localizable1.strings", "\"k\" = \"one\"; \"k\" = \"two\";");
    EXPECT_EQ(bundle->localizedStringForKey("k", "", "Localizable1"), "one");
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "k");
}

TEST_F(BundleTest, ALanguageTagFallsBackToItsFirstPart) {
    const auto bundle = load();
    put("de.lproj/Localizable.strings", "\"k\" = \"de\"; \"both\" = \"de\";");
    put("fr.lproj/Localizable.strings", "\"k\" = \"fr\";");
    put("pt-BR.lproj/Localizable.strings", "\"k\" = \"pt-BR\";");
    put("pt.lproj/Localizable.strings", "\"k\" = \"pt\"; \"pt only\" = \"pt\";");
    bundle->setPreferredLanguages({"de-AT", "fr"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "de");
    bundle->setPreferredLanguages({"de_AT.UTF-8"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "de");
    bundle->setPreferredLanguages({"pt-BR"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "pt-BR");
    EXPECT_EQ(bundle->localizedStringForKey("pt only", "", ""), "pt");
    bundle->setPreferredLanguages({"deu"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "k");
}

TEST_F(BundleTest, WorksWithoutAnyPreferredLanguage) {
    const auto bundle = load();
    put("en.lproj/Localizable.strings", "\"k\" = \"en\";");
    bundle->setPreferredLanguages({});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "en");
    bundle->setPreferredLanguages({"", "-"});
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "en");
}

TEST_F(BundleTest, AMalformedTableCountsAsEmptyAndIsLoggedOnce) {
    const auto bundle = load();
    put("de.lproj/Localizable.strings", "\"k\" = \"de\";\n\"broken");
    put("en.lproj/Localizable.strings", "\"k\" = \"en\";");
    bundle->setPreferredLanguages({"de"});
    std::vector<std::string> lines;
    const LogSink before = setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "en");
    EXPECT_EQ(bundle->localizedStringForKey("k", "", ""), "en");
    setLogSink(before);
    EXPECT_EQ(lines, std::vector<std::string>{inside("de.lproj/Localizable.strings").string() +
                                              ":2: text without closing quote"});
}

TEST_F(BundleTest, ListsItsLanguagesSorted) {
    const auto bundle = load();
    EXPECT_EQ(bundle->localizations(), std::vector<std::string>{});
    put("fr.lproj/x");
    put("de.lproj/x");
    put("pt-BR.lproj/x");
    put("Help/x");
    put("file.lproj");
    EXPECT_EQ(bundle->localizations(), (std::vector<std::string>{"de", "fr", "pt-BR"}));
}

} // namespace
} // namespace specialpages::platform
