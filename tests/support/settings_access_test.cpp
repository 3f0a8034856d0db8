#include "platform/foundation/log.h"
#include "platform/foundation/system_version.h"
#include "support/settings_access.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using platform::memFullErr;
using platform::noErr;
using platform::paramErr;
using platform::PrintSession;
using platform::PrintSettings;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kKey = "com.norvalen.nb.rtz.printsettings.Test";

std::string text_in(const PrintSettings& settings, std::string_view key = kKey) {
    const platform::SettingsValue* value = settings.value(key);
    const auto* text = value == nullptr ? nullptr : std::get_if<std::string>(value);
    return text == nullptr ? "(none)" : *text;
}

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    while (count-- > 0) {
        all += text;
    }
    return all;
}

class RefusingSettings : public PrintSettings {
  public:
    platform::OSStatus setValue(std::string_view, platform::SettingsValue, bool) override {
        return platform::ioErr;
    }
};

TEST(SettingsAccess, WritesATextUnderItsKey) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("A4, 表紙", &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), "A4, 表紙");
    EXPECT_FALSE(settings.entries().at(0).locked);
}

TEST(SettingsAccess, PassesTheLockOn) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("x", &settings, kKey, true), noErr);
    EXPECT_TRUE(settings.entries().at(0).locked);
}

TEST(SettingsAccess, AnEmptyTextIsAValue) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("", &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), "");
}

TEST(SettingsAccess, AMissingArgumentWritesNothing) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(std::nullopt, &settings, kKey, false), paramErr);
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("x", nullptr, kKey, false), paramErr);
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("x", &settings, std::nullopt, false), paramErr);
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("x", &settings, "", false), paramErr);
    EXPECT_THAT(settings.entries(), IsEmpty());
}

TEST(SettingsAccess, AMissingArgumentIsToldBeforeABadText) {
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("\xFF", nullptr, kKey, false), paramErr);
}

TEST(SettingsAccess, EveryFullwidthBrokenBarBecomesABar) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("￤a￤￤b￤", &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), "|a||b|");
}

TEST(SettingsAccess, OtherBarsStay) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("|¦｜￣", &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), "|¦｜￣");
}

TEST(SettingsAccess, IllFormedTextIsRefusedAndLeavesTheOldValue) {
    PrintSettings settings;
    ASSERT_EQ(SetValueToSettingsWithTicketKeyAndLock("old", &settings, kKey, false), noErr);
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("a\xE3\x81", &settings, kKey, false), memFullErr);
    EXPECT_EQ(text_in(settings), "old");
}

TEST(SettingsAccess, ATextOf510UnitsIsWrittenWhole) {
    PrintSettings settings;
    const std::string longest(510, 'x');
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(longest, &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), longest);
}

TEST(SettingsAccess, ATextOf511UnitsIsRefusedAndNeverCut) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(std::string(511, 'x'), &settings, kKey, false),
              memFullErr);
    EXPECT_THAT(settings.entries(), IsEmpty());
}

TEST(SettingsAccess, TheLimitCountsUTF16UnitsAndNotBytes) {
    PrintSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(repeated("￤", 510), &settings, kKey, false), noErr);
    EXPECT_EQ(text_in(settings), repeated("|", 510));
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(repeated("😀", 255), &settings, kKey, false), noErr);
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock(repeated("😀", 255) + "a", &settings, kKey, false),
              memFullErr);
    EXPECT_EQ(text_in(settings), repeated("😀", 255));
}

TEST(SettingsAccess, TheStatusOfTheWriteIsAnswered) {
    RefusingSettings settings;
    EXPECT_EQ(SetValueToSettingsWithTicketKeyAndLock("x", &settings, kKey, false), platform::ioErr);
    EXPECT_FALSE(SetCStringToTicket(&settings, "x", kKey, false));
    EXPECT_EQ(SetIntegerValueToSettings(1, &settings, kKey, false), platform::ioErr);
}

TEST(SettingsAccess, ATicketOf255BytesIsWrittenWhole) {
    PrintSettings settings;
    EXPECT_TRUE(SetCStringToTicket(&settings, std::string(255, 'x'), kKey, false));
    EXPECT_EQ(text_in(settings), std::string(255, 'x'));
}

TEST(SettingsAccess, ATicketOf256BytesIsReplacedByAnEmptyValue) {
    PrintSettings settings;
    ASSERT_TRUE(SetCStringToTicket(&settings, "old", kKey, false));
    EXPECT_TRUE(SetCStringToTicket(&settings, std::string(256, 'x'), kKey, false));
    EXPECT_EQ(text_in(settings), "");
}

TEST(SettingsAccess, TheTicketLimitCountsBytesBeforeBarsAreFolded) {
    PrintSettings settings;
    EXPECT_TRUE(SetCStringToTicket(&settings, repeated("￤", 85), kKey, false)); // 255 bytes
    EXPECT_EQ(text_in(settings), repeated("|", 85));
    EXPECT_TRUE(SetCStringToTicket(&settings, repeated("￤", 86), kKey, false));
    EXPECT_EQ(text_in(settings), "");
}

TEST(SettingsAccess, AnIllFormedTicketIsReplacedByAnEmptyValue) {
    PrintSettings settings;
    EXPECT_TRUE(SetCStringToTicket(&settings, "ab\xC0\x80", kKey, false));
    EXPECT_EQ(text_in(settings), "");
}

TEST(SettingsAccess, ATicketWithoutSettingsOrKeyFails) {
    PrintSettings settings;
    EXPECT_FALSE(SetCStringToTicket(nullptr, "x", kKey, false));
    EXPECT_FALSE(SetCStringToTicket(&settings, "x", std::nullopt, false));
    EXPECT_FALSE(SetCStringToTicket(&settings, "x", "", false));
    EXPECT_THAT(settings.entries(), IsEmpty());
}

TEST(SettingsAccess, IntegersAreWrittenAsDecimalText) {
    PrintSettings settings;
    EXPECT_EQ(SetIntegerValueToSettings(-1, &settings, "a", false), noErr);
    EXPECT_EQ(SetIntegerValueToSettings(0, &settings, "b", false), noErr);
    EXPECT_EQ(SetIntegerValueToSettings(-2147483647 - 1, &settings, "c", true), noErr);
    EXPECT_EQ(text_in(settings, "a"), "-1");
    EXPECT_EQ(text_in(settings, "b"), "0");
    EXPECT_EQ(text_in(settings, "c"), "-2147483648");
    EXPECT_TRUE(settings.entries().at(2).locked);
}

TEST(SettingsAccess, ThePrinterStandsInFrontOfTheKey) {
    std::string result;
    EXPECT_TRUE(CreateKeyWithCurrentPrinter("Key", "printer", &result));
    EXPECT_EQ(result, "printerKey");
}

TEST(SettingsAccess, APrefixedKeyWithAMissingPartLeavesTheResult) {
    std::string result;
    EXPECT_FALSE(CreateKeyWithCurrentPrinter("Key", std::nullopt, &result));
    EXPECT_FALSE(CreateKeyWithCurrentPrinter(std::nullopt, "printer", &result));
    EXPECT_FALSE(CreateKeyWithCurrentPrinter("Key", "printer", nullptr));
    EXPECT_EQ(result, "");
}

TEST(SettingsAccess, AnEmptyPrinterIsNoMissingOne) {
    std::string result;
    EXPECT_TRUE(CreateKeyWithCurrentPrinter("Key", "", &result));
    EXPECT_EQ(result, "Key");
}

TEST(SettingsAccess, APrefixedKeyIsAppended) {
    std::string result = "before ";
    EXPECT_TRUE(CreateKeyWithCurrentPrinter("Key", "printer", &result));
    EXPECT_EQ(result, "before printerKey");
}

TEST(SettingsAccess, ThePrinterIdentifierIsAppended) {
    PrintSession session;
    session.currentPrinter = platform::Printer{"office-2"};
    std::string string = "to ";
    EXPECT_EQ(SetPrinterString(&session, &string), 0);
    EXPECT_EQ(string, "to office-2");
}

TEST(SettingsAccess, WithoutAPrinterTheStringStays) {
    const PrintSession session;
    std::string string = "as it was";
    EXPECT_EQ(SetPrinterString(&session, &string), 1);
    EXPECT_EQ(SetPrinterString(nullptr, &string), 1);
    EXPECT_EQ(SetPrinterString(&session, nullptr), 1);
    EXPECT_EQ(string, "as it was");
}

TEST(SettingsAccess, ASessionNumberIsCutTo32Bits) {
    PrintSession session;
    session.data["small"] = std::int64_t{-7};
    session.data["large"] = std::int64_t{0x1234567890};
    std::int32_t number = 0;
    EXPECT_EQ(GetTicketFromSession(&session, "small", &number), noErr);
    EXPECT_EQ(number, -7);
    EXPECT_EQ(GetTicketFromSession(&session, "large", &number), noErr);
    EXPECT_EQ(number, 0x34567890);
}

TEST(SettingsAccess, AMissingSessionNumberLeavesTheResult) {
    PrintSession session;
    session.data["bytes"] = std::vector<std::byte>(4);
    std::int32_t number = 42;
    EXPECT_EQ(GetTicketFromSession(&session, "other", &number), -30891);
    EXPECT_EQ(GetTicketFromSession(&session, "bytes", &number), -30891);
    EXPECT_EQ(GetTicketFromSession(nullptr, "other", &number), -30891);
    EXPECT_EQ(GetTicketFromSession(&session, "other", nullptr), paramErr);
    EXPECT_EQ(number, 42);
}

std::uintptr_t address(const ppd_file_s* ppd) {
    return reinterpret_cast<std::uintptr_t>(ppd);
}

ppd_file_s* some_pointer() {
    static char place;
    return reinterpret_cast<ppd_file_s*>(&place);
}

TEST(SettingsAccess, ThePPDReferenceIsItsFirst32BitsExtendedWithZeros) {
    PrintSession session;
    ppd_file_s* ppd = some_pointer();
    session.data["kPMPPDReference"] = std::int64_t{0x12345678FEDCBA98};
    EXPECT_EQ(GetPPDRefFromSession(&session, &ppd), noErr);
    EXPECT_EQ(address(ppd), 0xFEDCBA98U);

    const std::uint64_t stored = 0x0000000187654321;
    std::vector<std::byte> bytes(sizeof stored);
    std::memcpy(bytes.data(), &stored, sizeof stored);
    session.data["kPMPPDReference"] = bytes;
    EXPECT_EQ(GetPPDRefFromSession(&session, &ppd), noErr);
    EXPECT_EQ(address(ppd), 0x87654321U);
}

TEST(SettingsAccess, AMissingPPDReferenceIsNull) {
    PrintSession session;
    ppd_file_s* ppd = some_pointer();
    EXPECT_EQ(GetPPDRefFromSession(&session, &ppd), platform::kPMNoSessionData);
    EXPECT_EQ(ppd, nullptr);
    ppd = some_pointer();
    EXPECT_EQ(GetPPDRefFromSession(nullptr, &ppd), paramErr);
    EXPECT_EQ(ppd, nullptr);
    EXPECT_EQ(GetPPDRefFromSession(&session, nullptr), paramErr);
}

TEST(SettingsAccess, APPDReferenceOfTooFewBytesIsNull) {
    PrintSession session;
    session.data["kPMPPDReference"] = std::vector<std::byte>(3, std::byte{0xFF});
    ppd_file_s* ppd = some_pointer();
    EXPECT_EQ(GetPPDRefFromSession(&session, &ppd), noErr);
    EXPECT_EQ(ppd, nullptr);
}

// The system version.

class SystemVersion : public testing::Test {
  public:
    SystemVersion() {
        ResetGestalt_ALT();
        before_ = platform::setLogSink([this](std::string_view line) { log_.emplace_back(line); });
    }
    ~SystemVersion() override {
        platform::setLogSink(std::move(before_));
        platform::set_kernel_release_source(nullptr);
        ResetGestalt_ALT();
    }
    SystemVersion(const SystemVersion&) = delete;
    SystemVersion& operator=(const SystemVersion&) = delete;

  protected:
    static std::int32_t version_on(const std::optional<std::string>& release) {
        platform::set_kernel_release_source([release] { return release; });
        ResetGestalt_ALT();
        return answer(kGestaltSystemVersion);
    }
    static std::int32_t answer(std::uint32_t selector) {
        std::int32_t value = -99;
        EXPECT_EQ(Gestalt_ALT(selector, &value), 0);
        return value;
    }

    std::vector<std::string> log_;

  private:
    platform::LogSink before_;
};

TEST_F(SystemVersion, IsCodedFromTheKernelRelease) {
    EXPECT_EQ(version_on("13.4.0"), 0x1094);
    EXPECT_EQ(version_on("12.0"), 0x1080);
    EXPECT_EQ(version_on("11.4.2"), 0x1074);
    EXPECT_EQ(version_on("8.11.1"), 0x104B);
    EXPECT_EQ(version_on("7.9.0"), 0x1039);
}

TEST_F(SystemVersion, OfAnUnchangedPlatformIsOfTheGenerationWithoutPreferences) {
    platform::set_kernel_release_source(nullptr);
    EXPECT_EQ(system_version(), 0x1094);
    EXPECT_GE(system_version(), kVersionWithoutPreferences);
}

TEST_F(SystemVersion, OfAForeignReleaseFollowsTheSameArithmetic) {
    EXPECT_EQ(version_on("6.1.0"), 0x1021);
    EXPECT_LT(version_on("6.1.0"), kVersionWithoutPreferences);
    EXPECT_EQ(version_on("1.0"), 0x1FD0); // below the fourth kernel the middle digits wrap
    EXPECT_EQ(version_on("20.6.0"), 0x1106);
}

TEST_F(SystemVersion, StaysAtItsBaseWithoutARelease) {
    EXPECT_EQ(version_on(std::nullopt), 0x1000);
    EXPECT_EQ(version_on(""), 0x1000);
    EXPECT_EQ(version_on("."), 0x1000);
    EXPECT_EQ(version_on("garbage"), 0x1000);
    EXPECT_EQ(version_on("v13.x4"), 0x1000);
}

TEST_F(SystemVersion, TakesEachPartByItself) {
    EXPECT_EQ(version_on("13"), 0x1090);
    EXPECT_EQ(version_on("13."), 0x1090);
    EXPECT_EQ(version_on("13.x"), 0x1090);
    EXPECT_EQ(version_on("13-rc1.4"), 0x1094);
    EXPECT_EQ(version_on("x.4"), 0x1004);
    EXPECT_EQ(version_on(".4.13"), 0x1004);
}

TEST_F(SystemVersion, IgnoresPartsThatAreNotPositive) {
    EXPECT_EQ(version_on("0.0"), 0x1000);
    EXPECT_EQ(version_on("-13.4"), 0x1004);
    EXPECT_EQ(version_on("13.-4"), 0x1090);
}

TEST_F(SystemVersion, KeepsTheLowBitsOfHugeParts) {
    EXPECT_EQ(version_on("999999999999999"), 0x1FB0);
    EXPECT_EQ(version_on("13.20"), 0x1094);
    EXPECT_EQ(version_on("269.4"), 0x1094);
    EXPECT_EQ(version_on("13.999999999999"), 0x109F);
}

TEST_F(SystemVersion, LooksAtFifteenBytesOfTheRelease) {
    EXPECT_EQ(version_on("13.4.0-with-a-long-distribution-name"), 0x1094);
    EXPECT_EQ(version_on("000000000013.45"), 0x109D);  // 45 is all there
    EXPECT_EQ(version_on("0000000000013.45"), 0x1094); // its 5 is the sixteenth byte
    EXPECT_EQ(version_on("000000000000000000013.4"), 0x1000);
}

TEST_F(SystemVersion, HasThreeParts) {
    ASSERT_EQ(version_on("13.4.0"), 0x1094);
    EXPECT_EQ(answer(kGestaltSystemVersionMajor), 10);
    EXPECT_EQ(answer(kGestaltSystemVersionMinor), 9);
    EXPECT_EQ(answer(kGestaltSystemVersionBugFix), 4);
    ASSERT_EQ(version_on("1.2"), 0x1FD2);
    EXPECT_EQ(answer(kGestaltSystemVersionMajor), 25);
    EXPECT_EQ(answer(kGestaltSystemVersionMinor), 13);
    EXPECT_EQ(answer(kGestaltSystemVersionBugFix), 2);
}

TEST_F(SystemVersion, SelectorsAreFourCharacters) {
    EXPECT_EQ(kGestaltSystemVersion, 1937339254U);
    EXPECT_EQ(kGestaltSystemVersionMajor, std::uint32_t{'s'} << 24 | 'y' << 16 | 's' << 8 | '1');
    EXPECT_EQ(kGestaltSystemVersionMinor, kGestaltSystemVersionMajor + 1);
    EXPECT_EQ(kGestaltSystemVersionBugFix, kGestaltSystemVersionMajor + 2);
}

TEST_F(SystemVersion, IsComputedOnceUntilItIsReset) {
    int asked = 0;
    platform::set_kernel_release_source([&asked]() -> std::optional<std::string> {
        ++asked;
        return asked == 1 ? "13.4.0" : "12.5.0";
    });
    EXPECT_EQ(answer(kGestaltSystemVersion), 0x1094);
    EXPECT_EQ(answer(kGestaltSystemVersionMinor), 9);
    EXPECT_EQ(system_version(), 0x1094);
    EXPECT_EQ(asked, 1);
    ResetGestalt_ALT();
    EXPECT_EQ(system_version(), 0x1085);
    EXPECT_EQ(asked, 2);
}

TEST_F(SystemVersion, AFailureToTellTheReleaseIsKeptToo) {
    int asked = 0;
    platform::set_kernel_release_source([&asked]() -> std::optional<std::string> {
        ++asked;
        return std::nullopt;
    });
    EXPECT_EQ(system_version(), 0x1000);
    EXPECT_EQ(system_version(), 0x1000);
    EXPECT_EQ(asked, 1);
}

TEST_F(SystemVersion, AnUnknownSelectorIsLoggedInLowerCaseHexadecimal) {
    std::int32_t value = 42;
    EXPECT_EQ(Gestalt_ALT(0xABCDEF12, &value), -1);
    EXPECT_EQ(Gestalt_ALT(0, &value), -1);
    EXPECT_EQ(value, 42);
    EXPECT_THAT(log_, ElementsAre("Gestalt_ALT : selector 'abcdef12' not supported.",
                                  "Gestalt_ALT : selector '0' not supported."));
}

TEST_F(SystemVersion, AMissingPlaceForTheAnswerIsLogged) {
    EXPECT_EQ(Gestalt_ALT(kGestaltSystemVersion, nullptr), -1);
    EXPECT_THAT(log_, ElementsAre("Gestalt_ALT : no place for the answer to selector '73797376'."));
}

TEST_F(SystemVersion, AKnownSelectorLogsNothing) {
    answer(kGestaltSystemVersion);
    EXPECT_THAT(log_, IsEmpty());
}

} // namespace
} // namespace specialpages
