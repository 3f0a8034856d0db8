#include "controls/control_fixtures.h"
#include "controls/value_transfer.h"
#include "platform/print/PrintSession.h"
#include "support/slash_decimal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::kCFPreferencesAnyApplication;
using platform::kCFPreferencesAnyUser;
using platform::kCFPreferencesCurrentHost;
using platform::kCFPreferencesCurrentUser;
using test::KernelRelease;
using test::LogLines;
using test::NumberControl;
using test::NumberView;
using test::settings_text;
using test::TaggedView;
using test::TestPanel;
using test::TextValueControl;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr AccessInfo kTicket{"com.norvalen.test.ticket", nullptr};
constexpr AccessInfo kPreference{nullptr, "com.norvalen.test.preference"};
const AccessInfo kPassword{nullptr, kJBApasswordStr[0].data()};

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    while (count-- > 0) {
        all += text;
    }
    return all;
}

CipherResult mark_as_ciphered(std::string_view plain, std::size_t /*capacity*/) {
    return {0, "{" + std::string(plain) + "}"};
}
CipherResult unmark(std::string_view stored) {
    return {0, std::string(stored.substr(1, stored.size() - 2))};
}

class ValueTransfer : public testing::Test {
  protected:
    test::RestoredTransferServices services_;
    LogLines log_;
};

// Tickets.

class TicketWrite : public ValueTransfer {
  protected:
    TicketWrite() { control_.setAccess(&kTicket); }
    /// What the settings hold after the write.
    std::string written(std::string text) {
        control_.setText(std::move(text));
        EXPECT_TRUE(control_.SetValueToTicket(&settings_, false));
        return settings_text(settings_, kTicket.ticketKey);
    }

    TaggedView view_{7};
    TextValueControl control_{&view_};
    platform::PrintSettings settings_;
};

TEST_F(TicketWrite, TakesAPlainValueAsItIs) {
    EXPECT_EQ(written("210.0"), "210.0");
    EXPECT_EQ(written("a/b"), "a/b") << "only a leading slash needs the other form";
    EXPECT_EQ(written("表紙 \"x\";"), "表紙 \"x\";");
}

TEST_F(TicketWrite, OfAnEmptyValueWritesAnEmptyText) {
    EXPECT_EQ(written(""), "");
}

TEST_F(TicketWrite, EscapesEveryByteOfAValueThatNeedsIt) {
    EXPECT_EQ(written("/"), "/47");
    EXPECT_EQ(written("a,b"), "/97/44/98");
    EXPECT_EQ(written("'"), "/39");
    EXPECT_EQ(written("x\\"), "/120/92");
    EXPECT_EQ(written("é,"), "/195/169/44") << "bytes are unsigned";
    EXPECT_EQ(written("\n,"), "/10/44") << "and not padded";
}

TEST_F(TicketWrite, EscapesAByteOf255) {
    EXPECT_EQ(written("\xFF,"), "/255/44");
    EXPECT_EQ(encode_slash_decimal(std::string(255, '\xFF')), repeated("/255", 255));
    EXPECT_EQ(repeated("/255", 255).size(), 1020U);
}

TEST_F(TicketWrite, RefusesWhatIsNoText) {
    control_.setText("\xFF");
    EXPECT_FALSE(control_.SetValueToTicket(&settings_, false));
    EXPECT_TRUE(settings_.entries().empty());
}

TEST_F(TicketWrite, RefusesAValueLongerThanTheSettingsTake) {
    const std::string fits = "," + std::string(kMaxTicketUnits / 4 - 1, 'x'); // "/44", then "/120" each
    EXPECT_EQ(written(fits).size(), 3 + 4 * (fits.size() - 1));
    control_.setText("," + std::string(255, 'x'));
    EXPECT_FALSE(control_.SetValueToTicket(&settings_, false));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), encode_slash_decimal(fits)) << "left as it was";
}

TEST_F(TicketWrite, FoldsTheFullwidthBrokenBar) {
    EXPECT_EQ(written("a\xEF\xBF\xA4"
                      "b"),
              "a|b");
}

TEST_F(TicketWrite, PassesTheLockOn) {
    control_.setText("x");
    control_.SetValueToTicket(&settings_, true);
    EXPECT_TRUE(settings_.entries().at(0).locked);
    control_.SetValueToTicket(&settings_, false);
    EXPECT_FALSE(settings_.entries().at(0).locked);
}

TEST_F(TicketWrite, NullOutputEmptiesAPlainValue) {
    control_.nullOutput = true;
    EXPECT_EQ(written("210.0"), "");
}

TEST_F(TicketWrite, NullOutputLeavesAnEscapedValueInPlace) {
    control_.nullOutput = true;
    EXPECT_EQ(written("a,b"), "/97/44/98");
}

TEST_F(TicketWrite, NeedsATicketKey) {
    control_.setText("x");
    constexpr AccessInfo kEmptyKey{"", nullptr};
    for (const AccessInfo* access : {static_cast<const AccessInfo*>(nullptr), &kPreference, &kEmptyKey}) {
        control_.setAccess(access);
        EXPECT_FALSE(control_.SetValueToTicket(&settings_, false));
        EXPECT_FALSE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    }
    EXPECT_TRUE(settings_.entries().empty());
}

TEST_F(TicketWrite, NeedsAConvertedValueAndSettings) {
    control_.setText("x");
    EXPECT_FALSE(control_.SetValueToTicket(nullptr, false));
    control_.convertAnswer = false;
    EXPECT_FALSE(control_.SetValueToTicket(&settings_, false));
    EXPECT_FALSE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    EXPECT_TRUE(settings_.entries().empty());
}

TEST_F(TicketWrite, AnswersWhetherTheSettingsTookIt) {
    test::RefusingPrintSettings refusing;
    control_.setText("x");
    EXPECT_FALSE(control_.SetValueToTicket(&refusing, false));
    control_.setText("a,b");
    EXPECT_FALSE(control_.SetValueToTicket(&refusing, false));
}

/// The base form of the conversion: true, with the target left empty.
class KeyedControl : public BaseControlEMFSpecialPages {
  public:
    explicit KeyedControl(const AccessInfo* access) {
        CreateControl(nullptr);
        ctrlDataAccessInfoPtr = access;
    }
};

TEST_F(TicketWrite, OfTheBaseWritesAnEmptyText) {
    KeyedControl control(&kTicket);
    EXPECT_TRUE(control.SetValueToTicket(&settings_, false));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "");
}

TEST_F(TicketWrite, OfANumberIsItsDecimalText) {
    NumberView view(1);
    NumberControl control(&view, 0);
    control.setTables(nullptr, &kTicket);
    control.InitializeCtrl(nullptr, nullptr);
    control.GetControlBlkPtr() = -2147483647 - 1;
    EXPECT_TRUE(control.SetValueToTicket(&settings_, false));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "-2147483648");
}

// Enciphered tickets.

TEST_F(TicketWrite, IsEncipheredForAViewOfTheArray) {
    valueTransferServices().encipher = mark_as_ciphered;
    TaggedView other(8);
    TaggedView same(7);
    control_.setText("a,b");
    const std::vector<platform::View*> others{&other, nullptr};
    EXPECT_TRUE(control_.SetValueToTicket(&settings_, false, others));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "/97/44/98");
    const std::vector<platform::View*> withIt{&other, nullptr, &same};
    EXPECT_TRUE(control_.SetValueToTicket(&settings_, false, withIt));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "{a,b}")
        << "the tag decides, and nothing is escaped on this path";
}

TEST_F(TicketWrite, WithAnEmptyArrayIsThePlainOne) {
    valueTransferServices().encipher = mark_as_ciphered;
    control_.setText("a,b");
    EXPECT_TRUE(control_.SetValueToTicket(&settings_, false, std::span<platform::View* const>{}));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "/97/44/98");
}

TEST_F(TicketWrite, OfAControlWithoutAViewIsThePlainOne) {
    valueTransferServices().encipher = mark_as_ciphered;
    TaggedView untagged(0);
    const std::vector<platform::View*> views{&untagged};
    control_.SetControlPtr(nullptr);
    control_.setText("x");
    EXPECT_TRUE(control_.SetValueToTicket(&settings_, false, views));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "x");
}

TEST_F(TicketWrite, EnciphersNothingForAnEmptyValue) {
    valueTransferServices().encipher = [](std::string_view, std::size_t) -> CipherResult {
        ADD_FAILURE() << "an empty text needs no cipher";
        return {};
    };
    control_.setText("");
    EXPECT_TRUE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "");
}

TEST_F(TicketWrite, NullOutputEmptiesAnEncipheredValue) {
    valueTransferServices().encipher = mark_as_ciphered;
    control_.nullOutput = true;
    control_.setText("secret");
    EXPECT_TRUE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    EXPECT_EQ(settings_text(settings_, kTicket.ticketKey), "");
}

TEST_F(TicketWrite, LogsAFailedCipherAndWritesNothing) {
    valueTransferServices().encipher = [](std::string_view, std::size_t) {
        return CipherResult{-2, "half"};
    };
    control_.setText("secret");
    EXPECT_FALSE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    EXPECT_TRUE(settings_.entries().empty());
    EXPECT_THAT(log_.all(), ElementsAre("##Plugin debug## SetValueToTicketWithNSPEnc encode fail: -2 "));
}

TEST_F(TicketWrite, WithoutACipherWritesNothingSecret) {
    control_.setText("secret");
    EXPECT_FALSE(control_.SetValueToTicketWithNSPEnc(&settings_, false));
    EXPECT_TRUE(settings_.entries().empty());
    EXPECT_THAT(log_.all(), ElementsAre("##Plugin debug## SetValueToTicketWithNSPEnc encode fail: -1 "));
}

// The preference store.

class PreferenceTransfer : public ValueTransfer {
  protected:
    static constexpr const char* kStoredKey = "Printer-1com.norvalen.test.preference";

    PreferenceTransfer() {
        session_.currentPrinter = platform::Printer{"Printer-1"};
        panel_.SetCurrentPrintSettings(&settings_, nullptr, nullptr, &session_);
        panel_.RunTimeAddNewControl(&control_);
        control_.setAccess(&kPreference, kCFPreferencesCurrentUser);
        control_.setText("value");
    }
    static std::optional<std::string> stored(std::string_view user = kCFPreferencesCurrentUser) {
        return platform::CFPreferencesCopyValue(kStoredKey, kCFPreferencesAnyApplication, user,
                                                kCFPreferencesCurrentHost);
    }
    static void store(std::string value) {
        platform::CFPreferencesSetValue(kStoredKey, std::move(value), kCFPreferencesAnyApplication,
                                        kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
        ASSERT_TRUE(platform::CFPreferencesSynchronize(kCFPreferencesAnyApplication,
                                                       kCFPreferencesCurrentUser, kCFPreferencesCurrentHost));
    }

    KernelRelease below10_7_{"10.15.0"};
    test::TemporaryPreferences preferences_;
    platform::PrintSettings settings_;
    platform::PrintSession session_;
    TestPanel panel_;
    TaggedView view_{7};
    TextValueControl control_{&view_};
};

TEST_F(PreferenceTransfer, IsKeptUnderPrinterAndKeyBelow10_7) {
    ASSERT_EQ(system_version(), 4207);
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_EQ(stored(), "value");
    control_.setText("other");
    EXPECT_TRUE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), "value");
}

TEST_F(PreferenceTransfer, IsNeitherWrittenNorReadFrom10_7On) {
    store("kept");
    const KernelRelease from10_7("11.0.0");
    ASSERT_EQ(system_version(), kVersionWithoutPreferences);
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_EQ(stored(), "kept");
    EXPECT_FALSE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), "value");
}

TEST_F(PreferenceTransfer, WithoutAKeyAnswersTrueAndDoesNothing) {
    constexpr AccessInfo kEmptyKey{nullptr, ""};
    for (const AccessInfo* access : {static_cast<const AccessInfo*>(nullptr), &kTicket, &kEmptyKey}) {
        control_.setAccess(access, kCFPreferencesCurrentUser);
        EXPECT_TRUE(control_.SetValueToPreference());
        EXPECT_TRUE(control_.GetValueFromPreference());
        EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
        EXPECT_TRUE(control_.GetValueFromPreferenceWithPrinterSettings());
    }
    EXPECT_FALSE(std::filesystem::exists(preferences_.file()));
    EXPECT_TRUE(settings_.entries().empty());
}

TEST_F(PreferenceTransfer, WithoutADataBlockIsFalse) {
    control_.GetControlBlkPtr().reset();
    EXPECT_FALSE(control_.SetValueToPreference());
    EXPECT_FALSE(control_.GetValueFromPreference());
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
}

TEST_F(PreferenceTransfer, OfAnotherUserNeedsAnAdministrator) {
    control_.setAccess(&kPreference, kCFPreferencesAnyUser);
    EXPECT_TRUE(control_.SetValueToPreference()) << "nobody says who is one";
    valueTransferServices().isUserAdmin = [] {
        return false;
    };
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_EQ(stored(kCFPreferencesAnyUser), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(preferences_.file()));
    valueTransferServices().isUserAdmin = [] {
        return true;
    };
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_EQ(stored(kCFPreferencesAnyUser), "value");
}

TEST_F(PreferenceTransfer, OfNoUserCountsAsAnotherUsers) {
    control_.setAccess(&kPreference, "");
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_FALSE(std::filesystem::exists(preferences_.file()));
}

TEST_F(PreferenceTransfer, OfTheCurrentUserAsksForNoAdministrator) {
    valueTransferServices().isUserAdmin = []() -> bool {
        ADD_FAILURE() << "not asked for";
        return false;
    };
    EXPECT_TRUE(control_.SetValueToPreference());
    EXPECT_EQ(stored(), "value");
}

TEST_F(PreferenceTransfer, ReadsAnotherUsersWithoutAnAdministrator) {
    valueTransferServices().isUserAdmin = [] {
        return true;
    };
    control_.setAccess(&kPreference, kCFPreferencesAnyUser);
    ASSERT_TRUE(control_.SetValueToPreference());
    valueTransferServices().isUserAdmin = nullptr;
    control_.setText("other");
    EXPECT_TRUE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), "value");
}

TEST_F(PreferenceTransfer, NeedsAPanelWithAPrinter) {
    TextValueControl alone(&view_);
    alone.setAccess(&kPreference, kCFPreferencesCurrentUser);
    alone.setText("value");
    EXPECT_FALSE(alone.SetValueToPreference());
    EXPECT_FALSE(alone.GetValueFromPreference());
    TestPanel fresh;
    fresh.RunTimeAddNewControl(&alone);
    EXPECT_FALSE(alone.SetValueToPreference());
    EXPECT_FALSE(alone.GetValueFromPreference());
    EXPECT_FALSE(std::filesystem::exists(preferences_.file()));
}

TEST_F(PreferenceTransfer, ThatCannotBeConvertedIsFalse) {
    store("stored");
    control_.convertAnswer = false;
    EXPECT_FALSE(control_.SetValueToPreference());
    EXPECT_EQ(stored(), "stored");
    EXPECT_FALSE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), "value");
}

TEST_F(PreferenceTransfer, ThatIsMissingOrTooLongIsNotRead) {
    EXPECT_FALSE(control_.GetValueFromPreference());
    store(std::string(256, 'x'));
    EXPECT_FALSE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), "value");
    store(std::string(255, 'x'));
    EXPECT_TRUE(control_.GetValueFromPreference());
    EXPECT_EQ(control_.text(), std::string(255, 'x'));
}

TEST_F(PreferenceTransfer, AnswersWhetherTheStoreWasWritten) {
    std::filesystem::create_directory(preferences_.file());
    EXPECT_FALSE(control_.SetValueToPreference());
}

TEST_F(PreferenceTransfer, OfANumberIsItsDecimalText) {
    NumberView view(8);
    NumberControl control(&view, 0);
    panel_.RunTimeAddNewControl(&control);
    control.setTables(nullptr, &kPreference, kCFPreferencesCurrentUser);
    control.InitializeCtrl(nullptr, nullptr);
    control.GetControlBlkPtr() = -25;
    EXPECT_TRUE(control.SetValueToPreference());
    EXPECT_EQ(stored(), "-25");
    store("12abc");
    EXPECT_TRUE(control.GetValueFromPreference());
    EXPECT_EQ(control.data(), 12);
}

TEST_F(PreferenceTransfer, OfTheBaseWritesAnEmptyTextAndReadsNothing) {
    KeyedControl control(&kPreference);
    valueTransferServices().isUserAdmin = [] {
        return true;
    };
    control.SetParenetPanel(&panel_);
    control.GetControlBlkPtr() = 5;
    EXPECT_TRUE(control.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(settings_text(settings_, kPreference.preferenceKey), "");
    EXPECT_TRUE(control.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control.GetControlBlkPtr(), ControlValue{5});
}

TEST_F(PreferenceTransfer, AFailedReadLeavesTheControlToItsDefault) {
    NumberView view(8);
    NumberControl control(&view, 3);
    TestPanel panel;
    panel.RunTimeAddNewControl(&control);
    control.setTables(nullptr, &kPreference, kCFPreferencesCurrentUser);
    control.InitializeCtrl(nullptr, nullptr);
    control.GetControlBlkPtr() = 9;
    EXPECT_EQ(panel.GetValueFromPreference(), 0);
    EXPECT_EQ(control.data(), 3);
}

// Print settings under a preference key.

TEST_F(PreferenceTransfer, WithPrinterSettingsGoesUnderTheKeyItself) {
    const KernelRelease from10_7("13.4.0");
    control_.setText("a,b");
    EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(settings_text(settings_, kPreference.preferenceKey), "a,b") << "as it stands, not escaped";
    EXPECT_FALSE(settings_.entries().at(0).locked);
    control_.setText("other");
    EXPECT_TRUE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "a,b");
}

TEST_F(PreferenceTransfer, WithPrinterSettingsOfAnotherUserNeedsAnAdministrator) {
    control_.setAccess(&kPreference, kCFPreferencesAnyUser);
    EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_TRUE(settings_.entries().empty());
    valueTransferServices().isUserAdmin = [] {
        return true;
    };
    EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(settings_text(settings_, kPreference.preferenceKey), "value");
}

TEST_F(PreferenceTransfer, WithoutPrinterSettingsTheWriteIsTrueAndTheReadFalse) {
    panel_.SetCurrentPMPrintSettings(nullptr);
    EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    TextValueControl alone(&view_);
    alone.setAccess(&kPreference, kCFPreferencesCurrentUser);
    alone.setText("value");
    EXPECT_TRUE(alone.SetValueToPreferenceWithPrinterSettings());
    EXPECT_FALSE(alone.GetValueFromPreferenceWithPrinterSettings());
}

TEST_F(PreferenceTransfer, WithPrinterSettingsAnswersWhetherTheyTookIt) {
    test::RefusingPrintSettings refusing;
    panel_.SetCurrentPMPrintSettings(&refusing);
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
}

TEST_F(PreferenceTransfer, WithPrinterSettingsThatCannotBeConvertedIsFalse) {
    settings_.setValue(kPreference.preferenceKey, std::string("stored"), false);
    control_.convertAnswer = false;
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(settings_text(settings_, kPreference.preferenceKey), "stored");
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "value");
}

TEST_F(PreferenceTransfer, WithPrinterSettingsReadsTextsOfAtMost255Bytes) {
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings()) << "the key is not there";
    settings_.setValue(kPreference.preferenceKey, std::vector<std::string>{"x"}, false);
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings()) << "an array is no text";
    settings_.setValue(kPreference.preferenceKey, std::string(256, 'x'), false);
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "value");
    settings_.setValue(kPreference.preferenceKey, std::string(255, 'x'), false);
    EXPECT_TRUE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), std::string(255, 'x'));
}

// Passwords.

TEST(PasswordKeys, AreTheEightInTheirOrder) {
    const std::string prefix = "com.norvalen.nb.rtz.printsettings.";
    EXPECT_THAT(kJBApasswordStr,
                ElementsAre(prefix + "PrintTypePasswordReference", prefix + "PrintTypeMBNPasswordReference",
                            prefix + "JBAUserPasswordTextEditReference",
                            prefix + "JBAStoragePasswordTextEditReference",
                            prefix + "JBAAdminUserPasswordTextEditReference",
                            prefix + "JBAAdminStoragePasswordTextEditReference",
                            prefix + "JBAInputUserPasswordTextEditReference",
                            prefix + "JBAInputStoragePasswordTextEditReference"));
}

TEST_F(PreferenceTransfer, PasswordsAreStoredEnciphered) {
    valueTransferServices().encipher = mark_as_ciphered;
    valueTransferServices().decipher = unmark;
    for (const std::string_view key : kJBApasswordStr) {
        const AccessInfo access{nullptr, key.data()};
        control_.setAccess(&access, kCFPreferencesCurrentUser);
        control_.setText("secret");
        EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
        EXPECT_EQ(settings_text(settings_, key), "{secret}");
        control_.setText("other");
        EXPECT_TRUE(control_.GetValueFromPreferenceWithPrinterSettings());
        EXPECT_EQ(control_.text(), "secret");
        control_.setAccess(nullptr);
    }
}

TEST_F(PreferenceTransfer, AKeyThatOnlyBeginsLikeAPasswordKeyIsPlain) {
    valueTransferServices().encipher = mark_as_ciphered;
    const std::string key = std::string(kJBApasswordStr[0]) + "2";
    const AccessInfo access{nullptr, key.c_str()};
    control_.setAccess(&access, kCFPreferencesCurrentUser);
    EXPECT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(settings_text(settings_, key), "value");
    control_.setAccess(nullptr);
}

TEST_F(PreferenceTransfer, AFailedCipherIsLoggedAndWritesNothing) {
    control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    valueTransferServices().encipher = [](std::string_view, std::size_t) {
        return CipherResult{-3, {}};
    };
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_TRUE(settings_.entries().empty());
    EXPECT_THAT(log_.all(), ElementsAre("##JBA debug##  SetValueToPreference encode fail: -3 "));
}

TEST_F(PreferenceTransfer, AFailedDecipheringIsLoggedAndLeavesTheValue) {
    control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    settings_.setValue(kPassword.preferenceKey, std::string("junk"), false);
    valueTransferServices().decipher = [](std::string_view) {
        return CipherResult{99, "half"};
    };
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "value");
    EXPECT_THAT(log_.all(), ElementsAre("##JBA debug## GetValueFromPreference encode fail: 99 "));
}

TEST_F(PreferenceTransfer, WithoutACipherNoPasswordIsWrittenOrRead) {
    control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_TRUE(settings_.entries().empty());
    settings_.setValue(kPassword.preferenceKey, std::string("stored"), false);
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "value");
    EXPECT_THAT(log_.all(), ElementsAre("##JBA debug##  SetValueToPreference encode fail: -1 ",
                                        "##JBA debug## GetValueFromPreference encode fail: -1 "));
}

TEST_F(PreferenceTransfer, APasswordThatIsNotStoredIsNotDeciphered) {
    control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    valueTransferServices().decipher = [](std::string_view) -> CipherResult {
        ADD_FAILURE() << "nothing to decipher";
        return {};
    };
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_THAT(log_.all(), IsEmpty());
}

// The services that are there from the start.

TEST(RealTransferServices, AreThereFromTheStart) {
    const ValueTransferServices& services = valueTransferServices();
    ASSERT_TRUE(services.isUserAdmin && services.encipher && services.decipher);
    EXPECT_EQ(services.encipher("secret", 256).text, "sUA4p7hcZW4z3x7PPSq0lQ==");
    EXPECT_EQ(services.decipher("sUA4p7hcZW4z3x7PPSq0lQ==").text, "secret");
}

class RealCipher : public PreferenceTransfer {
  protected:
    RealCipher() {
        valueTransferServices() = {nullptr, encipher_password, decipher_password};
        control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    }
    ~RealCipher() override { control_.setAccess(nullptr); }
    std::string stored() const { return settings_text(settings_, kPassword.preferenceKey); }
    std::string ticketOf(std::string text) {
        constexpr AccessInfo kBoth{"com.norvalen.test.ticket", kJBApasswordStr[0].data()};
        control_.setAccess(&kBoth, kCFPreferencesCurrentUser);
        control_.setText(std::move(text));
        settings_.setValue(kBoth.ticketKey, std::string("before"), false);
        const bool written = control_.SetValueToTicketWithNSPEnc(&settings_, false);
        control_.setAccess(nullptr);
        return settings_text(settings_, kBoth.ticketKey) + (written ? "" : " (refused)");
    }
};

// printf secret | openssl enc -aes-256-cbc -base64 -A, with the key and vector that stored_password_test.cpp
// tells.
TEST_F(RealCipher, StoresAndReadsAPassword) {
    control_.setText("secret");
    ASSERT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(stored(), "sUA4p7hcZW4z3x7PPSq0lQ==");
    control_.setText("other");
    ASSERT_TRUE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_EQ(control_.text(), "secret");
    EXPECT_EQ(ticketOf("secret"), "sUA4p7hcZW4z3x7PPSq0lQ==");
}

TEST_F(RealCipher, AnEmptyPasswordIsStoredEmptyAndNotReadAgain) {
    control_.setText("");
    ASSERT_TRUE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(stored(), "");
    EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings());
    EXPECT_THAT(log_.all(), ElementsAre("##JBA debug## GetValueFromPreference encode fail: -2 "));
    EXPECT_EQ(ticketOf(""), "");
}

TEST_F(RealCipher, APasswordThatIsTooLongIsNotStored) {
    EXPECT_EQ(ticketOf(std::string(176, 'x')), "before (refused)");
    EXPECT_EQ(ticketOf(std::string(255, 'x')), "before (refused)");
    EXPECT_THAT(log_.all(), IsEmpty()) << "the cipher did its part";
    control_.setAccess(&kPassword, kCFPreferencesCurrentUser);
    control_.setText(std::string(239, 'x'));
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_THAT(log_.all(), IsEmpty());
    control_.setText(std::string(240, 'x'));
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(log_.all().back(), "##JBA debug##  SetValueToPreference encode fail: 99 ");
    EXPECT_EQ(stored(), "(none)");
}

TEST_F(RealCipher, AnIllFormedPasswordIsNeverWrittenPlain) {
    control_.setText("secret\xC3");
    EXPECT_FALSE(control_.SetValueToPreferenceWithPrinterSettings());
    EXPECT_EQ(stored(), "(none)");
    EXPECT_EQ(ticketOf("secret\xC3"), "before (refused)");
}

TEST_F(RealCipher, StoredTextThatIsNoneLeavesTheValue) {
    for (const char* text : {"junk", "sUA4p7hcZW4z3x7PPSq0lA==", "secret"}) {
        settings_.setValue(kPassword.preferenceKey, std::string(text), false);
        EXPECT_FALSE(control_.GetValueFromPreferenceWithPrinterSettings()) << text;
        EXPECT_EQ(control_.text(), "value");
    }
    EXPECT_EQ(log_.all().back(), "##JBA debug## GetValueFromPreference encode fail: -2 ");
}

} // namespace
} // namespace specialpages
