#include "host/host_fixtures.h"
#include "host/remembered_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace specialpages::host {
namespace {

namespace fs = std::filesystem;
using testing::error_of;
using ::testing::HasSubstr;
using testing::read_bytes;
using testing::ScopedVariable;
using testing::TemporaryFolder;

platform::PrintSettings settings(const std::string& value) {
    platform::PrintSettings made;
    made.setValue("key", value, false);
    return made;
}

std::string value_of(const std::optional<platform::PrintSettings>& recalled) {
    if (!recalled) {
        return "nothing";
    }
    const platform::SettingsValue* const value = recalled->value("key");
    return value == nullptr ? "no key" : std::get<std::string>(*value);
}

class RememberedSettings : public ::testing::Test {
  protected:
    fs::path file(const std::string& name) const {
        return folder_.path() / "special-pages" / "printers" / name;
    }
    fs::path write(const std::string& name, const std::string& bytes) const {
        return folder_.write("special-pages/printers/" + name, bytes);
    }

    TemporaryFolder folder_;
    ScopedVariable state_{"XDG_STATE_HOME", folder_.path().c_str()};
};

TEST_F(RememberedSettings, NothingIsKeptAtFirst) {
    EXPECT_FALSE(recall_settings("prod").has_value());
    EXPECT_FALSE(fs::exists(folder_.path() / "special-pages"));
}

TEST_F(RememberedSettings, EachPrinterHasItsOwn) {
    remember_settings("prod", settings("one"));
    remember_settings("Prod", settings("two"));
    remember_settings("prod", settings("three"));
    EXPECT_EQ(value_of(recall_settings("prod")), "three");
    EXPECT_EQ(value_of(recall_settings("Prod")), "two");
    EXPECT_EQ(value_of(recall_settings("other")), "nothing");
    EXPECT_EQ(read_bytes(file("prod.json")), "{\n  \"key\": \"three\"\n}\n");
}

TEST_F(RememberedSettings, AreForgottenOnceAndThenAgainWithoutComplaint) {
    remember_settings("prod", settings("one"));
    remember_settings("other", settings("two"));
    forget_settings("prod");
    forget_settings("prod");
    EXPECT_EQ(value_of(recall_settings("prod")), "nothing");
    EXPECT_FALSE(fs::exists(file("prod.json")));
    EXPECT_EQ(value_of(recall_settings("other")), "two");
}

TEST_F(RememberedSettings, AMalformedFileIsToldOfAndLeftAlone) {
    for (const std::string bytes :
         {"", "{", "[]", "{\"key\": 1}", "{\"key\": \"a\", \"key\": \"b\"}", "\xFF"}) {
        const fs::path kept = write("prod.json", bytes);
        const auto recalled = error_of([] { recall_settings("prod"); });
        EXPECT_EQ(recalled.code(), ErrorCode::input) << bytes;
        EXPECT_THAT(recalled.place(), HasSubstr(kept.string())) << bytes;
        EXPECT_EQ(error_of([] { remember_settings("prod", settings("one")); }).code(), ErrorCode::input)
            << bytes;
        EXPECT_EQ(error_of([] { forget_settings("prod"); }).code(), ErrorCode::input) << bytes;
        EXPECT_EQ(read_bytes(kept), bytes);
    }
}

TEST_F(RememberedSettings, AFolderOrALinkToNowhereInAFilesPlaceIsToldOf) {
    fs::create_directories(file("prod.json"));
    EXPECT_EQ(error_of([] { recall_settings("prod"); }).code(), ErrorCode::input);
    EXPECT_EQ(error_of([] { forget_settings("prod"); }).code(), ErrorCode::input);
    EXPECT_TRUE(fs::is_directory(file("prod.json")));
    fs::create_symlink(folder_.path() / "nowhere", file("other.json"));
    EXPECT_EQ(error_of([] { remember_settings("other", settings("one")); }).code(), ErrorCode::input);
    EXPECT_FALSE(fs::exists(folder_.path() / "nowhere"));
}

TEST_F(RememberedSettings, WhatCannotBeWrittenLeavesTheFileBefore) {
    remember_settings("prod", settings("one"));
    EXPECT_EQ(error_of([] { remember_settings("prod", settings("\xFF")); }).code(), ErrorCode::other);
    EXPECT_EQ(value_of(recall_settings("prod")), "one");
    int files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(file(""))) {
        ++files;
    }
    EXPECT_EQ(files, 1);
}

TEST_F(RememberedSettings, AFileInTheDirectorysPlaceIsAnErrorOfWriting) {
    folder_.write("special-pages", "");
    EXPECT_EQ(error_of([] { remember_settings("prod", settings("one")); }).code(), ErrorCode::other);
}

TEST_F(RememberedSettings, APrinterThatCanHaveNoFileIsRefusedAndKeepsNothing) {
    for (const std::string& printer : {std::string(), std::string(251, 'x'), std::string(100, '/')}) {
        EXPECT_FALSE(recall_settings(printer).has_value());
        EXPECT_EQ(error_of([&] { remember_settings(printer, settings("one")); }).code(), ErrorCode::other);
        forget_settings(printer);
    }
    remember_settings(std::string(250, 'x'), settings("long"));
    EXPECT_EQ(value_of(recall_settings(std::string(250, 'x'))), "long");
}

TEST_F(RememberedSettings, AHostilePrintersFileStaysInTheDirectory) {
    for (const char* printer :
         {"..", ".", "../../other", "/etc/passwd", ".hidden", "a/b", "a\\b", "a b", "_2f"}) {
        remember_settings(printer, settings(printer));
        EXPECT_EQ(value_of(recall_settings(printer)), printer);
    }
    for (const auto& entry : fs::recursive_directory_iterator(folder_.path())) {
        if (entry.is_regular_file()) {
            EXPECT_EQ(entry.path().parent_path(), remembered_settings_directory());
        }
    }
}

TEST(RememberedSettingsName, IsReadableAndCannotLeadElsewhere) {
    EXPECT_EQ(remembered_settings_name("prod-1.a"), "prod-1.a.json");
    EXPECT_EQ(remembered_settings_name("azAZ09"), "azAZ09.json");
    EXPECT_EQ(remembered_settings_name("`{@[/:"), "_60_7b_40_5b_2f_3a.json") << "their neighbours";
    EXPECT_EQ(remembered_settings_name("\x80"), "\x80.json");
    EXPECT_EQ(remembered_settings_name(".."), "_2e..json");
    EXPECT_EQ(remembered_settings_name("../a b"), "_2e._2fa_20b.json");
    EXPECT_EQ(remembered_settings_name("a_b"), "a_5fb.json");
    EXPECT_EQ(remembered_settings_name("B\xC3\xBCro"), "B\xC3\xBCro.json");
    EXPECT_EQ(remembered_settings_name(std::string_view("a\0\n\x7F", 4)), "a_00_0a_7f.json");
    EXPECT_EQ(remembered_settings_name(""), std::nullopt);
    EXPECT_EQ(remembered_settings_name(std::string(250, 'x'))->size(), 255U);
    EXPECT_EQ(remembered_settings_name(std::string(251, 'x')), std::nullopt);
}

RC_GTEST_PROP(RememberedSettingsName, DiffersForEachPrinterAndIsAPlainName,
              (const std::string& one, const std::string& other)) {
    const auto name = remembered_settings_name(one);
    if (name) {
        RC_ASSERT(name->find('/') == std::string::npos);
        RC_ASSERT(name->find('\0') == std::string::npos);
        RC_ASSERT(name->front() != '.');
        RC_ASSERT((remembered_settings_name(other) == name) == (one == other));
    }
}

TEST(StateDirectory, IsTheUsersAsTheEnvironmentSays) {
    const ScopedVariable home("HOME", "/home/someone");
    {
        const ScopedVariable xdg("XDG_STATE_HOME", "/somewhere/state");
        EXPECT_EQ(remembered_settings_directory(), "/somewhere/state/special-pages/printers");
    }
    for (const char* invalid : {static_cast<const char*>(nullptr), "", "relative/state"}) {
        const ScopedVariable xdg("XDG_STATE_HOME", invalid);
        EXPECT_EQ(remembered_settings_directory(), "/home/someone/.local/state/special-pages/printers");
    }
}

} // namespace
} // namespace specialpages::host
