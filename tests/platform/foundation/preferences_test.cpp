#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/preferences.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace specialpages::platform {
namespace {

namespace fs = std::filesystem;
using testing::read_test_file;
using testing::ScopedEnvironment;
using testing::TemporaryDirectory;
using testing::write_test_file;

constexpr const char* kApplication = "com.example.app";
constexpr const char* kUser = kCFPreferencesCurrentUser;
constexpr const char* kHost = kCFPreferencesAnyHost;

class PreferencesTest : public ::testing::Test {
  protected:
    Preferences store() { return Preferences(file); }
    static std::optional<std::string> get(const Preferences& store, std::string_view key) {
        return store.value(key, kApplication, kUser, kHost);
    }
    static void put(Preferences& store, std::string_view key, std::optional<std::string> value) {
        store.setValue(key, std::move(value), kApplication, kUser, kHost);
    }

    TemporaryDirectory home;
    fs::path file = home / "config/preferences.plist";
};

TEST_F(PreferencesTest, AnEmptyStoreHasNoValuesAndMakesNoFile) {
    auto empty = store();
    EXPECT_EQ(get(empty, "key"), std::nullopt);
    EXPECT_TRUE(empty.synchronize());
    EXPECT_FALSE(fs::exists(file));
    EXPECT_FALSE(fs::exists(file.parent_path()));
}

TEST_F(PreferencesTest, AChangeIsSeenAtOnceAndWrittenWhenSynchronised) {
    auto one = store();
    put(one, "key", "value");
    EXPECT_EQ(get(one, "key"), "value");
    EXPECT_EQ(get(store(), "key"), std::nullopt);
    EXPECT_TRUE(one.synchronize());
    EXPECT_EQ(get(one, "key"), "value");
    EXPECT_EQ(get(store(), "key"), "value");
}

TEST_F(PreferencesTest, TheLastOfSeveralChangesCounts) {
    auto one = store();
    put(one, "key", "1");
    put(one, "key", std::nullopt);
    EXPECT_EQ(get(one, "key"), std::nullopt);
    put(one, "key", "3");
    EXPECT_EQ(get(one, "key"), "3");
    EXPECT_TRUE(one.synchronize());
    EXPECT_EQ(get(store(), "key"), "3");
}

TEST_F(PreferencesTest, AnEmptyOptionalRemovesTheEntry) {
    auto one = store();
    put(one, "key", "value");
    put(one, "other", "");
    ASSERT_TRUE(one.synchronize());
    put(one, "key", std::nullopt);
    put(one, "never there", std::nullopt);
    EXPECT_EQ(get(one, "key"), std::nullopt);
    EXPECT_TRUE(one.synchronize());
    EXPECT_EQ(get(one, "key"), std::nullopt);
    EXPECT_EQ(get(store(), "key"), std::nullopt);
    EXPECT_EQ(get(store(), "other"), "");
}

TEST_F(PreferencesTest, KeepsDomainsApart) {
    auto one = store();
    one.setValue("key", "1", kCFPreferencesAnyApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    one.setValue("key", "2", kApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    one.setValue("key", "3", kApplication, kCFPreferencesAnyUser, kCFPreferencesAnyHost);
    one.setValue("key", "4", kApplication, kCFPreferencesAnyUser, kCFPreferencesCurrentHost);
    const auto expect_all = [](const Preferences& store) {
        EXPECT_EQ(store.value("key", kCFPreferencesAnyApplication, kCFPreferencesCurrentUser,
                              kCFPreferencesAnyHost),
                  "1");
        EXPECT_EQ(store.value("key", kApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost), "2");
        EXPECT_EQ(store.value("key", kApplication, kCFPreferencesAnyUser, kCFPreferencesAnyHost), "3");
        EXPECT_EQ(store.value("key", kApplication, kCFPreferencesAnyUser, kCFPreferencesCurrentHost), "4");
        EXPECT_EQ(
            store.value("key", kCFPreferencesAnyApplication, kCFPreferencesAnyUser, kCFPreferencesAnyHost),
            std::nullopt);
    };
    expect_all(one);
    EXPECT_TRUE(one.synchronize());
    expect_all(one);
    expect_all(store());
}

TEST_F(PreferencesTest, NoTwoDomainsShareANameWhateverTheirWordsHold) {
    auto one = store();
    one.setValue("key", "1", "a/b", "c", "d");
    one.setValue("key", "2", "a", "b/c", "d");
    one.setValue("key", "3", "a~1b", "c", "d");
    one.setValue("key", "4", "", "", "");
    ASSERT_TRUE(one.synchronize());
    EXPECT_EQ(store().value("key", "a/b", "c", "d"), "1");
    EXPECT_EQ(store().value("key", "a", "b/c", "d"), "2");
    EXPECT_EQ(store().value("key", "a~1b", "c", "d"), "3");
    EXPECT_EQ(store().value("key", "", "", ""), "4");
}

TEST_F(PreferencesTest, SynchronisingMergesOverWhatAnotherWroteInTheMeantime) {
    auto one = store();
    auto two = store();
    put(one, "a", "one");
    put(one, "b", "one");
    EXPECT_EQ(get(two, "a"), std::nullopt); // two has read its copy of the file
    put(two, "b", "two");
    put(two, "c", "two");
    ASSERT_TRUE(one.synchronize());
    ASSERT_TRUE(two.synchronize());
    for (const auto& [key, value] : {std::pair{"a", "one"}, {"b", "two"}, {"c", "two"}}) {
        EXPECT_EQ(get(store(), key), value) << key;
        EXPECT_EQ(get(two, key), value) << key;
    }
    EXPECT_EQ(get(one, "b"), "two");
}

TEST_F(PreferencesTest, ReadsTheFileAgainOnlyAfterSynchronising) {
    auto one = store();
    EXPECT_EQ(get(one, "key"), std::nullopt);
    auto two = store();
    put(two, "key", "value");
    ASSERT_TRUE(two.synchronize());
    EXPECT_EQ(get(one, "key"), std::nullopt);
    EXPECT_TRUE(one.synchronize());
    EXPECT_EQ(get(one, "key"), "value");
}

TEST_F(PreferencesTest, LosesNoChangeWhenTwoWriteAtOnce) {
    constexpr int kWrites = 50;
    const auto write = [this](const std::string& prefix) {
        auto one = store();
        for (int i = 0; i < kWrites; ++i) {
            put(one, prefix + std::to_string(i), "x");
            EXPECT_TRUE(one.synchronize());
        }
    };
    std::thread first(write, "a");
    std::thread second(write, "b");
    first.join();
    second.join();
    const auto all = store();
    for (int i = 0; i < kWrites; ++i) {
        EXPECT_EQ(get(all, "a" + std::to_string(i)), "x");
        EXPECT_EQ(get(all, "b" + std::to_string(i)), "x");
    }
}

TEST_F(PreferencesTest, AFileThatIsNoStoreMakesSynchroniseFalseAndStaysAsItWas) {
    for (const char* bytes :
         {"", "corrupt", "<plist><dict>", "<plist><array/></plist>",
          "<plist><dict><key>domain</key><string>no dictionary</string></dict></plist>"}) {
        write_test_file(file, bytes);
        auto one = store();
        EXPECT_EQ(get(one, "key"), std::nullopt) << bytes;
        EXPECT_FALSE(one.synchronize()) << bytes;
        put(one, "key", "value");
        EXPECT_FALSE(one.synchronize()) << bytes;
        EXPECT_EQ(read_test_file(file), bytes);
        EXPECT_EQ(get(one, "key"), "value") << "the change waits";
        fs::remove(file);
        EXPECT_TRUE(one.synchronize()) << bytes;
        EXPECT_EQ(get(store(), "key"), "value") << bytes;
    }
}

TEST_F(PreferencesTest, AFileThatCannotBeWrittenMakesSynchroniseFalse) {
    write_test_file(home / "config", "a file where the folder should be");
    auto one = store();
    put(one, "key", "value");
    EXPECT_FALSE(one.synchronize());
    EXPECT_EQ(get(one, "key"), "value");
}

TEST_F(PreferencesTest, AFolderInThePlaceOfTheFileMakesSynchroniseFalse) {
    fs::create_directories(file);
    auto one = store();
    put(one, "key", "value");
    EXPECT_FALSE(one.synchronize());
    EXPECT_TRUE(fs::is_directory(file));
}

TEST_F(PreferencesTest, AValueThatIsNoTextCountsAsMissingAndStays) {
    write_test_file(file,
                    "<plist><dict><key>com.example.app/kCFPreferencesCurrentUser/kCFPreferencesAnyHost</key>"
                    "<dict><key>number</key><integer>5</integer><key>text</key><string>t</string></dict>"
                    "</dict></plist>");
    auto one = store();
    EXPECT_EQ(get(one, "number"), std::nullopt);
    EXPECT_EQ(get(one, "text"), "t");
    put(one, "new", "n");
    EXPECT_TRUE(one.synchronize());
    EXPECT_NE(read_test_file(file).find("<integer>5</integer>"), std::string::npos);
}

TEST_F(PreferencesTest, KeepsTextsByteForByte) {
    auto one = store();
    const std::string value = "<&>\"' \r\n\t \xC3\xA4\xF0\x9F\x98\x80 1.5,2 ";
    put(one, value, value);
    put(one, "", "empty key");
    ASSERT_TRUE(one.synchronize());
    EXPECT_EQ(get(store(), value), value);
    EXPECT_EQ(get(store(), ""), "empty key");
}

TEST_F(PreferencesTest, TheProcessesStoreIsInTheConfigurationDirectory) {
    const ScopedEnvironment xdg("XDG_CONFIG_HOME", home.path().string());
    setStandardPreferences(nullptr);
    CFPreferencesSetValue("key", "value", kApplication, kUser, kHost);
    EXPECT_EQ(CFPreferencesCopyValue("key", kApplication, kUser, kHost), "value");
    EXPECT_EQ(CFPreferencesCopyValue("key", kApplication, kUser, kCFPreferencesCurrentHost), std::nullopt);
    EXPECT_TRUE(CFPreferencesSynchronize(kApplication, kUser, kHost));
    EXPECT_EQ(get(Preferences(home / "special-pages/preferences.plist"), "key"), "value");
    setStandardPreferences(nullptr);
}

TEST_F(PreferencesTest, AnotherStoreTakesThePlaceOfTheProcesses) {
    const ScopedEnvironment xdg("XDG_CONFIG_HOME", (home / "xdg").string());
    setStandardPreferences(std::make_unique<Preferences>(file));
    EXPECT_EQ(&standardPreferences(), &standardPreferences());
    CFPreferencesSetValue("key", "value", kApplication, kUser, kHost);
    EXPECT_TRUE(CFPreferencesSynchronize(kApplication, kUser, kHost));
    EXPECT_EQ(get(store(), "key"), "value");
    setStandardPreferences(nullptr);
    EXPECT_EQ(CFPreferencesCopyValue("key", kApplication, kUser, kHost), std::nullopt);
    setStandardPreferences(nullptr);
}

TEST_F(PreferencesTest, ChangesAreNotWrittenWithoutSynchronising) {
    {
        auto one = store();
        put(one, "key", "value");
    }
    EXPECT_FALSE(fs::exists(file));
}

} // namespace
} // namespace specialpages::platform
