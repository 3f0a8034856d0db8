#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "controls/integer_transfer.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

using platform::kCFPreferencesAnyApplication;
using platform::kCFPreferencesCurrentHost;
using platform::kCFPreferencesCurrentUser;

constexpr AccessInfo kTicket{"com.norvalen.test.ticket", nullptr};
constexpr AccessInfo kPreference{nullptr, "com.norvalen.test.preference"};
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(IntegerTransfer, WritesPlainDecimalText) {
    std::string text = "as it was";
    EXPECT_TRUE(integer_to_text(ValueBlock(0), text));
    EXPECT_EQ(text, "0");
    EXPECT_TRUE(integer_to_text(ValueBlock(kSmallest), text));
    EXPECT_EQ(text, "-2147483648");
    EXPECT_TRUE(integer_to_text(ValueBlock(kLargest), text));
    EXPECT_EQ(text, "2147483647");
}

TEST(IntegerTransfer, WithoutAnIntegerWritesNothing) {
    std::string text = "as it was";
    EXPECT_FALSE(integer_to_text(ValueBlock(), text));
    EXPECT_FALSE(integer_to_text(ValueBlock(std::string("3")), text));
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(integer_in(ValueBlock()), std::nullopt);
    EXPECT_EQ(integer_in(ValueBlock(std::string("3"))), std::nullopt);
}

TEST(IntegerTransfer, ReadsTheNumberAtTheHeadAndZeroWithoutOne) {
    const auto read = [](std::string_view text) {
        ValueBlock block(7);
        EXPECT_TRUE(text_to_integer(text, block));
        return held<std::int32_t>(block);
    };
    EXPECT_EQ(read("12"), 12);
    EXPECT_EQ(read(" -12abc"), -12);
    EXPECT_EQ(read("1.9"), 1);
    EXPECT_EQ(read(""), 0);
    EXPECT_EQ(read("abc"), 0);
    EXPECT_EQ(read("99999999999"), kLargest);
    EXPECT_EQ(read("-99999999999"), kSmallest);
}

TEST(IntegerTransfer, ReadsIntoNoBlockAtAll) {
    ValueBlock none;
    EXPECT_FALSE(text_to_integer("12", none));
    EXPECT_FALSE(none);
}

TEST(IntegerTransfer, OfThePrintSettingsNeedsPanelSettingsKeyAndText) {
    platform::PrintSettings settings;
    TestPanel panel;
    EXPECT_EQ(integer_from_settings(nullptr, &kTicket), std::nullopt);
    EXPECT_EQ(integer_from_settings(&panel, &kTicket), std::nullopt) << "no settings";
    panel.SetCurrentPMPrintSettings(&settings);
    EXPECT_EQ(integer_from_settings(&panel, nullptr), std::nullopt);
    EXPECT_EQ(integer_from_settings(&panel, &kPreference), std::nullopt) << "no ticket key";
    EXPECT_EQ(integer_from_settings(&panel, &kTicket), std::nullopt) << "no value";
    settings.setValue(kTicket.ticketKey, std::vector<std::string>{"4"}, false);
    EXPECT_EQ(integer_from_settings(&panel, &kTicket), std::nullopt) << "an array is no number";
    settings.setValue(kTicket.ticketKey, std::string("4"), false);
    EXPECT_EQ(integer_from_settings(&panel, &kTicket), 4);
}

/// A pop-up and a radio in a panel, each with a committed value and the preference key.
class ItemTransfer : public ::testing::Test {
  protected:
    static constexpr const char* kStoredKey = "Printer-1com.norvalen.test.preference";

    ItemTransfer() {
        session_.currentPrinter = platform::Printer{"Printer-1"};
        panel_.SetCurrentPrintSettings(&settings_, nullptr, nullptr, &session_);
        list_.CreateControl(&listView_, nullptr, nullptr, &kPreference, kCFPreferencesCurrentUser);
        radio_.RadioButton(&radioView_, nullptr, nullptr, &kPreference, kCFPreferencesCurrentUser);
        for (BaseControlEMFSpecialPages* control : controls()) {
            panel_.RunTimeAddNewControl(control);
            control->InitializeCtrl(nullptr, nullptr);
            control->GetControlBlkPtr() = 1;
        }
    }
    std::vector<BaseControlEMFSpecialPages*> controls() { return {&list_, &radio_}; }
    static std::optional<std::string> stored() {
        return platform::CFPreferencesCopyValue(kStoredKey, kCFPreferencesAnyApplication,
                                                kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
    }
    static void store(std::string value) {
        platform::CFPreferencesSetValue(kStoredKey, std::move(value), kCFPreferencesAnyApplication,
                                        kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
        ASSERT_TRUE(platform::CFPreferencesSynchronize(kCFPreferencesAnyApplication,
                                                       kCFPreferencesCurrentUser, kCFPreferencesCurrentHost));
    }

    KernelRelease below10_7_{"10.15.0"};
    TemporaryPreferences preferences_;
    platform::PrintSettings settings_;
    platform::PrintSession session_;
    TestPanel panel_;
    platform::PopUpButton listView_;
    platform::Button radioView_{platform::ViewKind::radio};
    PopupControlEMFSpecialPages list_;
    RadioButtonEMFSpecialPages radio_;
};

TEST_F(ItemTransfer, OfAPopUpAndARadioIsKeptBelow10_7) {
    ASSERT_EQ(system_version(), 4207);
    for (BaseControlEMFSpecialPages* control : controls()) {
        control->GetControlBlkPtr() = 3;
        EXPECT_TRUE(control->SetValueToPreference());
        EXPECT_EQ(stored(), "3");
        store("12abc");
        EXPECT_TRUE(control->GetValueFromPreference());
        EXPECT_EQ(control->GetControlBlkPtr(), ValueBlock(12));
    }
}

TEST_F(ItemTransfer, OfAPopUpAndARadioIsAFailedReadFrom10_7On) {
    store("3");
    const KernelRelease from10_7("11.0.0");
    ASSERT_EQ(system_version(), 4208);
    for (BaseControlEMFSpecialPages* control : controls()) {
        EXPECT_TRUE(control->SetValueToPreference());
        EXPECT_EQ(stored(), "3") << "nothing is written";
        EXPECT_FALSE(control->GetValueFromPreference());
        EXPECT_EQ(control->GetControlBlkPtr(), ValueBlock(1));
    }
}

TEST_F(ItemTransfer, OfAPopUpAndARadioGoesThroughThePrintSettings) {
    for (BaseControlEMFSpecialPages* control : controls()) {
        control->GetControlBlkPtr() = -2;
        EXPECT_TRUE(control->SetValueToPreferenceWithPrinterSettings());
        EXPECT_EQ(settings_text(settings_, kPreference.preferenceKey), "-2");
        settings_.setValue(kPreference.preferenceKey, std::string(), false);
        EXPECT_TRUE(control->GetValueFromPreferenceWithPrinterSettings());
        EXPECT_EQ(control->GetControlBlkPtr(), ValueBlock(0)) << "an empty text is 0";
    }
}

} // namespace
} // namespace specialpages::test
