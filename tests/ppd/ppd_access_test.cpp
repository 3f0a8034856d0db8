#include "ppd/ppd_access.h"
#include "ppd/ppd_builder.h"
#include "ppd/ppd_keywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using test::PpdBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

void add_options(PpdBuilder& ppd) {
    ppd.group("General")
        .option("MediaType", "Heavy", "Media")
        .choices({"Plain", "Heavy", "Card", "Label", "Bond", "Tab", "Envelope"})
        .option("Duplex", "None")
        .choices({"None", "DuplexNoTumble", "DuplexTumble"})
        .group("Empty")
        .group("Finishing")
        .option("NVStaple", "False")
        .option("NVPunch", "Gone")
        .choices({"Off", "On"})
        .subgroup("Inner")
        .option("NVFold")
        .choice("Z");
}

class PpdOptions : public testing::Test {
  protected:
    PpdOptions() { add_options(builder_); }
    ppd_file_t* ppd() { return builder_.file(); }
    PpdBuilder builder_;
};

TEST_F(PpdOptions, AreThereOrNot) {
    EXPECT_TRUE(CheckPPDKeyIsExist(ppd(), "MediaType"));
    EXPECT_TRUE(CheckPPDKeyIsExist(ppd(), "NVStaple"));
    EXPECT_FALSE(CheckPPDKeyIsExist(ppd(), "Media"));
    EXPECT_FALSE(CheckPPDKeyIsExist(ppd(), ""));
    EXPECT_FALSE(CheckPPDKeyIsExist(ppd(), nullptr));
    EXPECT_FALSE(CheckPPDKeyIsExist(nullptr, "MediaType"));
}

TEST_F(PpdOptions, AreFoundWithoutRegardToCase) {
    EXPECT_TRUE(CheckPPDKeyIsExist(ppd(), "mediatype"));
}

TEST_F(PpdOptions, CountTheirChoices) {
    EXPECT_EQ(GetPPDKeyOptionCount(ppd(), "MediaType"), 7);
    EXPECT_EQ(GetPPDKeyOptionCount(ppd(), "NVStaple"), 0);
    EXPECT_EQ(GetPPDKeyOptionCount(ppd(), "Nothing"), 0);
    EXPECT_EQ(GetPPDKeyOptionCount(ppd(), nullptr), 0);
    EXPECT_EQ(GetPPDKeyOptionCount(nullptr, "MediaType"), 0);
}

TEST_F(PpdOptions, GiveTheChoiceAtAnIndex) {
    std::string out;
    GetValueFromPPDByIndex(ppd(), "MediaType", out, 0);
    EXPECT_EQ(out, "Plain");
    GetValueFromPPDByIndex(ppd(), "MediaType", out, 6);
    EXPECT_EQ(out, "Envelope");
}

TEST_F(PpdOptions, LeaveTheTextForAnIndexOutsideTheChoices) {
    std::string out = "untouched";
    GetValueFromPPDByIndex(ppd(), "MediaType", out, 7);
    GetValueFromPPDByIndex(ppd(), "MediaType", out, -1);
    GetValueFromPPDByIndex(ppd(), "NVStaple", out, 0);
    GetValueFromPPDByIndex(ppd(), "Nothing", out, 0);
    GetValueFromPPDByIndex(ppd(), nullptr, out, 0);
    GetValueFromPPDByIndex(nullptr, "MediaType", out, 0);
    EXPECT_EQ(out, "untouched");
}

TEST_F(PpdOptions, AMissingChoiceIsTheFirstWhenAnOptionIsAsked) {
    const ppd_option_t* media = &builder_.find("MediaType");
    EXPECT_EQ(GetIndexFromPPDByKeyword(media, "Card"), 2);
    EXPECT_EQ(GetIndexFromPPDByKeyword(media, "Plain"), 0);
    EXPECT_EQ(GetIndexFromPPDByKeyword(media, "Nothing"), 0);
    EXPECT_EQ(GetIndexFromPPDByKeyword(media, nullptr), 0);
    EXPECT_EQ(GetIndexFromPPDByKeyword(nullptr, "Card"), 0);
    EXPECT_EQ(GetIndexFromPPDByKeyword(&builder_.find("NVStaple"), "Card"), 0);
}

TEST_F(PpdOptions, AMissingChoiceIsOnePastTheLastWhenAKeywordIsAsked) {
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", "Tab"), 5);
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", "Nothing"), 7);
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", nullptr), 7);
    EXPECT_EQ(GetChoiceIndex(ppd(), "NVStaple", "Tab"), 0);
    EXPECT_EQ(GetChoiceIndex(ppd(), "Nothing", "Tab"), 0);
    EXPECT_EQ(GetChoiceIndex(ppd(), nullptr, "Tab"), 0);
    EXPECT_EQ(GetChoiceIndex(nullptr, "MediaType", "Tab"), 0);
}

TEST_F(PpdOptions, ChoicesAreComparedExactly) {
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", "tab"), 7);
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", "Ta"), 7);
    EXPECT_EQ(GetChoiceIndex(ppd(), "MediaType", "Tab "), 7);
    EXPECT_EQ(GetIndexFromPPDByKeyword(&builder_.find("MediaType"), "CARD"), 0);
}

TEST_F(PpdOptions, TheDefaultIsFoundInATable) {
    const std::vector<std::string> table{"None", "Heavy", "Heavy"};
    EXPECT_EQ(GetValueFromPPD(ppd(), "MediaType", table), 1);
    EXPECT_EQ(GetValueFromPPD(ppd(), "Duplex", table), 0);
    EXPECT_EQ(GetValueFromPPD(ppd(), "NVStaple", table), -1);
    EXPECT_EQ(GetValueFromPPD(ppd(), "Nothing", table), -1);
    EXPECT_EQ(GetValueFromPPD(ppd(), "MediaType", {}), -1);
    EXPECT_EQ(GetValueFromPPD(nullptr, "MediaType", table), -1);
}

TEST_F(PpdOptions, GiveTheirDefaultAsText) {
    std::optional<std::string> out;
    EXPECT_EQ(GetUIDefaultFromPPD(ppd(), "MediaType", out), 0);
    EXPECT_EQ(out, "Heavy");
    EXPECT_EQ(GetUIDefaultFromPPD(ppd(), "NVFold", out), 0); // in a sub-group: libcups does not see it
    EXPECT_EQ(out, std::nullopt);
}

TEST_F(PpdOptions, ADefaultThatIsMissingClearsTheText) {
    std::optional<std::string> out = "old";
    EXPECT_EQ(GetUIDefaultFromPPD(ppd(), "Nothing", out), 0);
    EXPECT_EQ(out, std::nullopt);
    out = "old";
    EXPECT_EQ(GetUIDefaultFromPPD(nullptr, "MediaType", out), 0);
    EXPECT_EQ(out, std::nullopt);
}

TEST_F(PpdOptions, GiveTheIndexOfTheirDefault) {
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd(), "MediaType"), 1);
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd(), "Duplex"), 0);
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd(), "NVPunch"), -1); // its default is none of its choices
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd(), "NVStaple"), -1);
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd(), "Nothing"), -1);
    EXPECT_EQ(GetUIDefaultValueFromPPD(nullptr, "MediaType"), -1);
}

TEST_F(PpdOptions, GiveTheMarkedChoice) {
    builder_.mark("Duplex", "DuplexTumble");
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("Duplex"), ppd(), "Duplex"), 2);
    builder_.mark("Duplex", "DuplexNoTumble");
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("Duplex"), ppd(), "Duplex"), 1);
}

TEST_F(PpdOptions, WithoutAMarkGiveTheDefaultChoice) {
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("MediaType"), ppd(), "MediaType"), 1);
    builder_.mark("MediaType", "Card").unmark("MediaType");
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("MediaType"), ppd(), "MediaType"), 1);
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("MediaType"), nullptr, "MediaType"), 1);
}

TEST_F(PpdOptions, WithNeitherMarkNorDefaultGiveNoChoice) {
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("NVPunch"), ppd(), "NVPunch"), -1);
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("NVStaple"), ppd(), "NVStaple"), -1);
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(nullptr, ppd(), "Duplex"), -1);
}

TEST_F(PpdOptions, AMarkInAnotherOptionIsNotInThisOne) {
    builder_.mark("Duplex", "None");
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&builder_.find("MediaType"), ppd(), "Duplex"), -1);
}

TEST_F(PpdOptions, AreListedByGroupWithoutSubGroups) {
    EXPECT_THAT(option_keywords(ppd()), ElementsAre("MediaType", "Duplex", "NVStaple", "NVPunch"));
}

TEST(PpdAccess, TheKeywordsOfNoPPDAreNone) {
    PpdBuilder empty;
    EXPECT_THAT(option_keywords(empty.file()), IsEmpty());
    EXPECT_THAT(option_keywords(nullptr), IsEmpty());
}

TEST(PpdAccess, TheKeywordListIsOneForTheProcess) {
    EXPECT_EQ(&nxPPDKeywordList(), &nxPPDKeywordList());
    EXPECT_THAT(nxPPDKeywordList(), IsEmpty());
}

TEST(PpdAccess, ChoicesFillTheirFieldsOf40Bytes) {
    const std::string longest(40, 'x');
    PpdBuilder ppd;
    ppd.option("Long", longest).choices({longest});
    std::string out;
    GetValueFromPPDByIndex(ppd.file(), "Long", out, 0);
    EXPECT_EQ(out, longest);
    EXPECT_EQ(GetUIDefaultValueFromPPD(ppd.file(), "Long"), 0);
}

TEST(PpdAccess, AFieldWithoutATerminatorEndsWithTheField) {
    PpdBuilder ppd;
    ppd.option("Full", "x").choice("x").attribute("Name", "", "value");
    ppd_option_t& option = ppd.find("Full");
    std::fill(std::begin(option.defchoice), std::end(option.defchoice), '7');
    std::fill(std::begin(option.choices[0].choice), std::end(option.choices[0].choice), 'c');
    std::fill(std::begin(ppd.file()->attrs[0]->name), std::end(ppd.file()->attrs[0]->name), 'n');
    std::string out;
    GetValueFromPPDByIndex(ppd.file(), "Full", out, 0);
    EXPECT_EQ(out, std::string(40, 'c'));
    EXPECT_EQ(GetPWMiniIntValueFromPPD(ppd.file(), "Full"), 2147483647);
    EXPECT_EQ(GetIndexOfMarkedOptionWithKey(&option, ppd.file(), "Full"), -1);
    EXPECT_NE(ppdFindAttr_ALT(ppd.file(), "nnn"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), std::string(42, 'n').c_str()), nullptr);
}

TEST(PpdAccess, CountsWithoutRecordsAreNone) {
    ppd_file_t ppd{};
    ppd.num_attrs = 3;
    EXPECT_EQ(ppdFindAttr_ALT(&ppd, "A"), nullptr);
    ppd_option_t option{};
    option.num_choices = 3;
    EXPECT_EQ(GetIndexFromPPDByKeyword(&option, "A"), 0);
    option.num_choices = -3;
    EXPECT_EQ(GetIndexFromPPDByKeyword(&option, "A"), 0);
    ppd_group_t group{};
    group.num_options = 3;
    ppd.groups = &group;
    ppd.num_groups = 1;
    EXPECT_THAT(option_keywords(&ppd), IsEmpty());
}

TEST(PpdAccess, TwoChoicesOfOneKeywordAreTheFirst) {
    PpdBuilder ppd;
    ppd.option("Twice").choices({"a", "b", "b"});
    EXPECT_EQ(GetChoiceIndex(ppd.file(), "Twice", "b"), 1);
}

// Attributes.

TEST(PpdAttributes, AreFoundByTheBeginningOfTheirName) {
    PpdBuilder ppd;
    ppd.attribute("Product", "", "p").attribute("Manufacturer", "", "NV");
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), "Manu"), ppd.file()->attrs[1]);
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), "Manufacturer"), ppd.file()->attrs[1]);
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), "ManufacturerX"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), "manu"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), ""), ppd.file()->attrs[0]);
}

TEST(PpdAttributes, ALongerNameThatStandsEarlierWins) {
    PpdBuilder ppd;
    ppd.attribute("NVXCDFSettingOld", "", "old").attribute("NVXCDFSetting", "", "new");
    EXPECT_STREQ(ppdFindAttr_ALT(ppd.file(), "NVXCDFSetting")->value, "old");
}

TEST(PpdAttributes, TheSpecIsIgnoredByThePlainLookup) {
    PpdBuilder ppd;
    ppd.attribute("ParamCustomPageSize", "Width", "w").attribute("ParamCustomPageSize", "Height", "h");
    EXPECT_STREQ(ppdFindAttr_ALT(ppd.file(), "ParamCustomPageSize", "Height")->value, "w");
}

TEST(PpdAttributes, AreFoundByTheBeginningOfTheirSpecToo) {
    PpdBuilder ppd;
    ppd.attribute("ParamCustomPageSize", "Width", "w").attribute("ParamCustomPageSize", "Height", "h");
    EXPECT_STREQ(ppdFindAttr_ALT_SPEC(ppd.file(), "ParamCustom", "Hei")->value, "h");
    EXPECT_STREQ(ppdFindAttr_ALT_SPEC(ppd.file(), "ParamCustom", "")->value, "w");
    EXPECT_EQ(ppdFindAttr_ALT_SPEC(ppd.file(), "ParamCustom", "Heights"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT_SPEC(ppd.file(), "Custom", "Height"), nullptr);
}

TEST(PpdAttributes, OfNothingAreNull) {
    PpdBuilder ppd;
    EXPECT_EQ(ppdFindAttr_ALT(ppd.file(), "A"), nullptr);
    PpdBuilder other;
    other.attribute("A", "s", "v");
    EXPECT_EQ(ppdFindAttr_ALT(nullptr, "A"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(other.file(), nullptr), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT_SPEC(nullptr, "A", "s"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT_SPEC(other.file(), nullptr, "s"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT_SPEC(other.file(), "A", nullptr), nullptr);
}

TEST(PpdAttributes, AreThereWithoutAValueToo) {
    PpdBuilder ppd;
    ppd.attribute("NVXCDFSetting", "", std::nullopt);
    EXPECT_TRUE(CDFKeyExist(ppd.file(), "NVXCDFSetting"));
    EXPECT_TRUE(CDFKeyExist(ppd.file(), "NVXCDF"));
    EXPECT_FALSE(CDFKeyExist(ppd.file(), "NVXCDFSettings"));
    EXPECT_FALSE(CDFKeyExist(ppd.file(), nullptr));
    EXPECT_FALSE(CDFKeyExist(nullptr, "NVXCDFSetting"));
}

TEST(PpdAttributes, AreSupportedWhenTheirValueBeginsSo) {
    PpdBuilder ppd;
    ppd.attribute("NVJog", "", "True, both").attribute("NVMTF", "", std::nullopt);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVJog", "True"), 1);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVJog", ""), 1);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVJog", "true"), 0);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVJog", "True, both sides"), 0);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVMTF", ""), 0);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVNone", ""), 0);
    EXPECT_EQ(CheckIfPPDKeywordSupported(ppd.file(), "NVJog", nullptr), 0);
    EXPECT_EQ(CheckIfPPDKeywordSupported(nullptr, "NVJog", "True"), 0);
}

// Numbers in words.

TEST(PpdNumbers, DigitsAreJoined) {
    EXPECT_EQ(getIntFromString("4-ab1c2"), 412);
    EXPECT_EQ(getIntFromString("PW008"), 8);
    EXPECT_EQ(getIntFromString("-5"), 5);
    EXPECT_EQ(getIntFromString(""), 0);
    EXPECT_EQ(getIntFromString("none"), 0);
    EXPECT_EQ(getIntFromString(std::string_view("1\0002", 3)), 12);
    EXPECT_EQ(getIntFromString("\xEF\xBC\x91"), 0); // a fullwidth digit is none here
}

TEST(PpdNumbers, JoinedDigitsSaturate) {
    EXPECT_EQ(getIntFromString("2147483647"), 2147483647);
    EXPECT_EQ(getIntFromString("2147483648"), 2147483647);
    EXPECT_EQ(getIntFromString(std::string(1000, '9')), 2147483647);
}

TEST(PpdNumbers, AreReadFromADefaultChoice) {
    PpdBuilder ppd;
    ppd.option("NVMin", "PW4to12").option("NVWord", "None");
    EXPECT_EQ(GetPWMiniIntValueFromPPD(ppd.file(), "NVMin"), 412);
    EXPECT_EQ(GetPWMiniIntValueFromPPD(ppd.file(), "NVWord"), 0);
    EXPECT_EQ(GetPWMiniIntValueFromPPD(ppd.file(), "Nothing"), -1);
    EXPECT_EQ(GetPWMiniIntValueFromPPD(nullptr, "NVMin"), -1);
}

std::int32_t first_number(std::optional<std::string_view> value) {
    PpdBuilder ppd;
    ppd.attribute("NVMinDigitPasscode", "", value);
    return GetSorlundPWMiniIntValueFromPPD(ppd.file(), "NVMinDigitPasscode");
}

TEST(PpdNumbers, TheFirstOfAValueIsTakenWhereverItStands) {
    EXPECT_EQ(first_number("PW8"), 8);
    EXPECT_EQ(first_number("8"), 8);
    EXPECT_EQ(first_number("12PW34"), 12);
    EXPECT_EQ(first_number("PW 8"), 8);
    EXPECT_EQ(first_number("PW8.5"), 8);
}

TEST(PpdNumbers, AZeroIsANumber) {
    EXPECT_EQ(first_number("0"), 0);
    EXPECT_EQ(first_number("PW0"), 0);
    EXPECT_EQ(first_number("PW0x10"), 0);
    EXPECT_EQ(first_number("PW0 8"), 0);
}

TEST(PpdNumbers, ASignBelongsToItsNumber) {
    EXPECT_EQ(first_number("PW-8"), -8);
    EXPECT_EQ(first_number("PW+8"), 8);
    EXPECT_EQ(first_number("PW--8"), -8);
    EXPECT_EQ(first_number("PW- 8"), 8); // a sign in front of a blank is none
}

TEST(PpdNumbers, AValueWithoutOneGivesMinusOne) {
    EXPECT_EQ(first_number("PW"), -1);
    EXPECT_EQ(first_number(""), -1);
    EXPECT_EQ(first_number("-"), -1);
    EXPECT_EQ(first_number(std::nullopt), -1);
    PpdBuilder ppd;
    EXPECT_EQ(GetSorlundPWMiniIntValueFromPPD(ppd.file(), "NVMinDigitPasscode"), -1);
    EXPECT_EQ(GetSorlundPWMiniIntValueFromPPD(nullptr, "NVMinDigitPasscode"), -1);
}

TEST(PpdNumbers, TheFirstOfAValueSaturates) {
    EXPECT_EQ(first_number("PW99999999999"), 2147483647);
    EXPECT_EQ(first_number("PW-99999999999999999999999"), -2147483647 - 1);
}

std::int32_t mailboxes(std::optional<std::string_view> value) {
    PpdBuilder ppd;
    ppd.attribute("NVXMailBoxSettings", "", value);
    return GetMBMaxNumberFromPPD(ppd.file(), kPPDMaxMailBoxNumber);
}

TEST(PpdNumbers, MailboxesAreReadFromThreeBytesOnly) {
    EXPECT_EQ(mailboxes("1024"), 102);
    EXPECT_EQ(mailboxes("200"), 200);
    EXPECT_EQ(mailboxes("20"), 20);
    EXPECT_EQ(mailboxes("a1b2"), 1);
    EXPECT_EQ(mailboxes("none 12"), 0);
    EXPECT_EQ(mailboxes(std::string(5000, '9')), 999);
}

TEST(PpdNumbers, MailboxesOfAMissingAttributeAreNone) {
    EXPECT_EQ(mailboxes(""), 0);
    EXPECT_EQ(mailboxes(std::nullopt), 0);
    PpdBuilder ppd;
    EXPECT_EQ(GetMBMaxNumberFromPPD(ppd.file(), kPPDMaxMailBoxNumber), 0);
    EXPECT_EQ(GetMBMaxNumberFromPPD(nullptr, kPPDMaxMailBoxNumber), 0);
}

// The vendor prefix.

std::string fixed(std::string_view manufacturer, std::string_view keyword) {
    PpdBuilder ppd;
    ppd.attribute("Manufacturer", "", manufacturer);
    return FixPPDKeywordAccordingToType(ppd.file(), keyword);
}

TEST(VendorPrefix, IsWrittenInCapitalsInAPPDOfTheVendor) {
    EXPECT_EQ(fixed("NV", "nvMediaColor"), "NVMediaColor");
    EXPECT_EQ(fixed("NV", "nVMediaColor"), "NVMediaColor");
    EXPECT_EQ(fixed("NV", "NvMediaColor"), "NVMediaColor");
    EXPECT_EQ(fixed("NV", "NVMediaColor"), "NVMediaColor");
    EXPECT_EQ(fixed("NV", "nv"), "NV");
}

TEST(VendorPrefix, OtherKeywordsStay) {
    EXPECT_EQ(fixed("NV", "MediaColor"), "MediaColor");
    EXPECT_EQ(fixed("NV", "n"), "n");
    EXPECT_EQ(fixed("NV", ""), "");
    EXPECT_EQ(fixed("NV", "xnvMediaColor"), "xnvMediaColor");
}

TEST(VendorPrefix, AnyKeywordStaysInAnotherPPD) {
    EXPECT_EQ(fixed("nv", "nvMediaColor"), "nvMediaColor");
    EXPECT_EQ(fixed("NV Inc.", "nvMediaColor"), "nvMediaColor");
    EXPECT_EQ(fixed("NV ", "nvMediaColor"), "nvMediaColor");
    EXPECT_EQ(fixed("", "nvMediaColor"), "nvMediaColor");
}

TEST(VendorPrefix, AnyKeywordStaysWithoutAManufacturer) {
    PpdBuilder none;
    EXPECT_EQ(FixPPDKeywordAccordingToType(none.file(), "nvMediaColor"), "nvMediaColor");
    EXPECT_EQ(FixPPDKeywordAccordingToType(nullptr, "nvMediaColor"), "nvMediaColor");
    PpdBuilder valueless;
    valueless.attribute("Manufacturer", "", std::nullopt);
    EXPECT_EQ(FixPPDKeywordAccordingToType(valueless.file(), "nvMediaColor"), "nvMediaColor");
}

TEST(VendorPrefix, TheManufacturerIsTheFirstAttributeThatBeginsSo) {
    PpdBuilder ppd;
    ppd.attribute("ManufacturerURL", "", "NV").attribute("Manufacturer", "", "Other");
    EXPECT_EQ(FixPPDKeywordAccordingToType(ppd.file(), "nvMediaColor"), "NVMediaColor");
}

TEST(VendorPrefix, KeywordsAreKeptTo99Bytes) {
    EXPECT_EQ(fixed("NV", "nv" + std::string(97, 'x')), "NV" + std::string(97, 'x'));
    EXPECT_EQ(fixed("NV", "nv" + std::string(98, 'x')), "NV" + std::string(97, 'x'));
    EXPECT_EQ(fixed("Other", std::string(1000, 'x')), std::string(99, 'x'));
}

// Encodings. libcups itself transcodes to UTF-8.

PPDEncoding encoding_of(std::string_view name) {
    PpdBuilder ppd;
    ppd.lang_encoding(name);
    return GetCFStringEncodingFromPPD(ppd.file());
}

TEST(PpdEncoding, HasTheNumbersOfTheSystem) {
    EXPECT_EQ(static_cast<std::uint32_t>(encoding_of("ISOLatin1")), 513U);
    EXPECT_EQ(static_cast<std::uint32_t>(encoding_of("WindowsANSI")), 1280U);
    EXPECT_EQ(static_cast<std::uint32_t>(encoding_of("JIS83-RKSJ")), 1U);
    EXPECT_EQ(static_cast<std::uint32_t>(encoding_of("UTF-8")), 0x08000100U);
    EXPECT_EQ(static_cast<std::uint32_t>(encoding_of("UTF8")), 0x08000100U);
}

TEST(PpdEncoding, OfEverythingElseIsMacRoman) {
    for (const char* name : {"", "utf-8", "ISOLatin2", "ISOLatin1 ", "MacStandard", "None"}) {
        EXPECT_EQ(static_cast<std::uint32_t>(encoding_of(name)), 0U) << name;
    }
    PpdBuilder unnamed;
    EXPECT_EQ(GetCFStringEncodingFromPPD(unnamed.file()), PPDEncoding::MacRoman);
    EXPECT_EQ(GetCFStringEncodingFromPPD(nullptr), PPDEncoding::MacRoman);
}

TEST(PpdEncoding, HasAConverterEach) {
    EXPECT_STREQ(converter_name(PPDEncoding::MacRoman), "macintosh");
    EXPECT_STREQ(converter_name(PPDEncoding::MacJapanese), "Shift_JIS");
    EXPECT_STREQ(converter_name(PPDEncoding::ISOLatin1), "ISO-8859-1");
    EXPECT_STREQ(converter_name(PPDEncoding::WindowsLatin1), "windows-1252");
    EXPECT_STREQ(converter_name(PPDEncoding::UTF8), "UTF-8");
    EXPECT_STREQ(converter_name(static_cast<PPDEncoding>(77)), "macintosh");
}

std::optional<std::string> title(std::optional<std::string_view> encoding, std::string_view text) {
    PpdBuilder ppd;
    ppd.option("MediaType", "", text);
    if (encoding) {
        ppd.lang_encoding(*encoding);
    }
    std::optional<std::string> out = "old";
    EXPECT_EQ(GetUITitleFromPPD(ppd.file(), "MediaType", out), 0);
    return out;
}

TEST(PpdEncoding, OptionTitlesAreReadInIt) {
    EXPECT_EQ(title("ISOLatin1", "Gr\xF6\xDF"
                                 "e"),
              "Größe");
    EXPECT_EQ(title("WindowsANSI", "\x80 \x93q\x94"), "€ “q”");
    EXPECT_EQ(title("JIS83-RKSJ", "\x97\x70\x8E\x86"), "用紙");
    EXPECT_EQ(title("UTF-8", "用紙"), "用紙");
    EXPECT_EQ(title("UTF8", "用紙"), "用紙");
    EXPECT_EQ(title("Other", "Gr\x9A\xA7"
                             "e"),
              "Größe");
    EXPECT_EQ(title(std::nullopt, "\x8E"), "é");
    EXPECT_EQ(title("UTF-8", ""), "");
}

TEST(PpdEncoding, ATitleCutInsideACharacterIsNull) {
    EXPECT_EQ(title("UTF-8", "用\xE7\xB4"), std::nullopt);
    EXPECT_EQ(title("UTF-8", "\xFF"), std::nullopt);
}

TEST(PpdEncoding, ATitleOfNoOptionIsNull) {
    PpdBuilder ppd;
    std::optional<std::string> out = "old";
    EXPECT_EQ(GetUITitleFromPPD(ppd.file(), "MediaType", out), 0);
    EXPECT_EQ(out, std::nullopt);
    out = "old";
    EXPECT_EQ(GetUITitleFromPPD(nullptr, "MediaType", out), 0);
    EXPECT_EQ(out, std::nullopt);
}

TEST(PpdEncoding, ADefaultThatIsNotUTF8IsNull) {
    PpdBuilder ppd;
    ppd.option("Odd", "\xFF").lang_encoding("ISOLatin1");
    std::optional<std::string> out = "old";
    EXPECT_EQ(GetUIDefaultFromPPD(ppd.file(), "Odd", out), 0);
    EXPECT_EQ(out, std::nullopt);
}

// Small helpers.

TEST(PpdHelpers, APairMatchesInBothItsTexts) {
    const std::vector<std::pair<std::string, std::string>> pairs{
        {"Duplex", "None"}, {"MediaType", "Heavy"}, {"MediaType", "Heavy"}};
    EXPECT_EQ(FindPPDKeyPairsMatch(pairs, "MediaType", "Heavy"), 1);
    EXPECT_EQ(FindPPDKeyPairsMatch(pairs, "MediaType", "None"), -1);
    EXPECT_EQ(FindPPDKeyPairsMatch(pairs, "mediatype", "Heavy"), -1);
    EXPECT_EQ(FindPPDKeyPairsMatch({}, "", ""), -1);
}

TEST(PpdHelpers, ATextIsAddedOnce) {
    std::vector<std::string> array;
    AddNoRepeatStrToArray(&array, "a");
    AddNoRepeatStrToArray(&array, "A");
    AddNoRepeatStrToArray(&array, "a");
    AddNoRepeatStrToArray(&array, "");
    AddNoRepeatStrToArray(&array, "");
    EXPECT_THAT(array, ElementsAre("a", "A", ""));
}

TEST(PpdHelpers, AddingWithoutTextOrArrayDoesNothing) {
    std::vector<std::string> array{"a"};
    AddNoRepeatStrToArray(&array, std::nullopt);
    AddNoRepeatStrToArray(nullptr, "b");
    EXPECT_THAT(array, ElementsAre("a"));
}

TEST(PpdHelpers, AResourceNameIsSplitAtItsFirstHyphen) {
    EXPECT_EQ(GetAppResourceNameNS("abc-def-ghi", 0), "abc");
    EXPECT_EQ(GetAppResourceNameNS("abc-def-ghi", 1), "def-ghi");
    EXPECT_EQ(GetAppResourceNameNS("abc", 0), std::nullopt);
    EXPECT_EQ(GetAppResourceNameNS(std::nullopt, 0), std::nullopt);
}

} // namespace
} // namespace specialpages
