#include "platform/print/PrintSettings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

using Texts = std::vector<std::string>;

std::vector<std::string> keys(const PrintSettings& settings) {
    std::vector<std::string> found;
    for (const auto& entry : settings.entries()) {
        found.push_back(entry.key);
    }
    return found;
}

TEST(PrintSettings, AreEmptyAtFirst) {
    const PrintSettings settings;
    EXPECT_TRUE(settings.entries().empty());
    EXPECT_EQ(settings.value("a"), nullptr);
}

TEST(PrintSettings, KeepTheOrderOfFirstWritingWhenAValueIsOverwritten) {
    PrintSettings settings;
    for (const char* key : {"z", "a", "m"}) {
        EXPECT_EQ(settings.setValue(key, "first", false), noErr);
    }
    EXPECT_EQ(settings.setValue("z", "second", true), noErr);
    EXPECT_EQ(keys(settings), (std::vector<std::string>{"z", "a", "m"}));
    EXPECT_EQ(settings.entries()[0].value, SettingsValue("second"));
    EXPECT_TRUE(settings.entries()[0].locked);
    EXPECT_FALSE(settings.entries()[1].locked);
    EXPECT_EQ(settings.setValue("z", "third", false), noErr);
    EXPECT_FALSE(settings.entries()[0].locked);
}

TEST(PrintSettings, HoldTextsAndArraysOfTextAndOneMayReplaceTheOther) {
    PrintSettings settings;
    settings.setValue("k", Texts{"a", "", "c"}, false);
    EXPECT_EQ(*settings.value("k"), SettingsValue(Texts{"a", "", "c"}));
    settings.setValue("k", "", false);
    EXPECT_EQ(*settings.value("k"), SettingsValue(""));
    settings.setValue("k", Texts{}, false);
    EXPECT_EQ(*settings.value("k"), SettingsValue(Texts{}));
    EXPECT_EQ(settings.entries().size(), 1U);
}

TEST(PrintSettings, TellKeysApartByEveryByte) {
    PrintSettings settings;
    settings.setValue("key", "1", false);
    settings.setValue("Key", "2", false);
    settings.setValue(std::string_view("key\0", 4), "3", false);
    EXPECT_EQ(settings.entries().size(), 3U);
    EXPECT_EQ(*settings.value("key"), SettingsValue("1"));
    EXPECT_EQ(*settings.value("Key"), SettingsValue("2"));
    EXPECT_EQ(*settings.value(std::string_view("key\0", 4)), SettingsValue("3"));
}

TEST(PrintSettings, RemovalKeepsOrderAndPlacesOfTheOthers) {
    PrintSettings settings;
    for (const char* key : {"a", "b", "c", "d"}) {
        settings.setValue(key, key, false);
    }
    EXPECT_TRUE(settings.remove("b"));
    EXPECT_FALSE(settings.remove("b"));
    EXPECT_FALSE(settings.remove(""));
    EXPECT_EQ(keys(settings), (std::vector<std::string>{"a", "c", "d"}));
    EXPECT_EQ(settings.value("b"), nullptr);
    for (const char* key : {"a", "c", "d"}) {
        ASSERT_NE(settings.value(key), nullptr) << key;
        EXPECT_EQ(*settings.value(key), SettingsValue(key));
    }
    settings.setValue("d", "new d", false);
    settings.setValue("b", "new b", false);
    EXPECT_EQ(keys(settings), (std::vector<std::string>{"a", "c", "d", "b"}));
    EXPECT_EQ(settings.entries()[2].value, SettingsValue("new d"));
    EXPECT_TRUE(settings.remove("a"));
    EXPECT_TRUE(settings.remove("b"));
    EXPECT_EQ(keys(settings), (std::vector<std::string>{"c", "d"}));
    EXPECT_EQ(*settings.value("d"), SettingsValue("new d"));
}

TEST(PrintSettings, AnEmptyKeyIsRefused) {
    PrintSettings settings;
    EXPECT_EQ(settings.setValue("", "x", false), paramErr);
    EXPECT_TRUE(settings.entries().empty());
}

TEST(PrintSettings, ACopyIsIndependent) {
    PrintSettings settings;
    settings.setValue("a", "1", false);
    PrintSettings copy = settings;
    copy.setValue("a", "2", false);
    copy.setValue("b", "3", false);
    EXPECT_EQ(*settings.value("a"), SettingsValue("1"));
    EXPECT_EQ(settings.value("b"), nullptr);
}

TEST(PMPrintSettings, SetAndGetAnswerStatuses) {
    PrintSettings settings;
    SettingsValue out = "untouched";
    EXPECT_EQ(PMPrintSettingsSetValue(&settings, "a", Texts{"1", "2"}, true), noErr);
    EXPECT_TRUE(settings.entries()[0].locked);
    EXPECT_EQ(PMPrintSettingsGetValue(&settings, "b", out), kPMKeyNotFound);
    EXPECT_EQ(PMPrintSettingsGetValue(&settings, "", out), paramErr);
    EXPECT_EQ(PMPrintSettingsGetValue(nullptr, "a", out), paramErr);
    EXPECT_EQ(out, SettingsValue("untouched"));
    EXPECT_EQ(PMPrintSettingsGetValue(&settings, "a", out), noErr);
    EXPECT_EQ(out, SettingsValue(Texts{"1", "2"}));
}

TEST(PMPrintSettings, NullSettingsAndAnEmptyKeyAreWrongArguments) {
    PrintSettings settings;
    EXPECT_EQ(PMPrintSettingsSetValue(nullptr, "a", "x", false), paramErr);
    EXPECT_EQ(PMPrintSettingsSetValue(&settings, "", "x", false), paramErr);
    EXPECT_TRUE(settings.entries().empty());
}

/// Settings whose writes fail.
class FullSettings : public PrintSettings {
  public:
    OSStatus setValue(std::string_view /*key*/, SettingsValue /*value*/, bool /*locked*/) override {
        return memFullErr;
    }
};

TEST(PMPrintSettings, AFailedWriteGivesItsStatus) {
    FullSettings settings;
    EXPECT_EQ(PMPrintSettingsSetValue(&settings, "a", "x", false), memFullErr);
}

} // namespace
} // namespace specialpages::platform
