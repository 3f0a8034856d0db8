#include "ppd/ppd_keywords.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using Row = std::pair<std::string, std::string>;

std::vector<Row> rows_of(const std::string& file, const std::string& pattern) {
    std::ifstream stream((paths::source_dir() + "/") + file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const std::regex row(pattern);
    std::vector<Row> rows;
    for (std::sregex_iterator match(text.begin(), text.end(), row), end; match != end; ++match) {
        rows.emplace_back((*match)[1], (*match)[2]);
    }
    return rows;
}

std::vector<Row> declared_rows() {
    return rows_of("src/ppd/ppd_keywords.h", R"re(inline constexpr const char\*\s+(\w+)\s*=\s*"([^"]*)";)re");
}

TEST(PpdKeywords, TheTableHas149Rows) {
    EXPECT_EQ(declared_rows().size(), 149U);
}

TEST(PpdKeywords, NoConstantIsDeclaredInAnotherForm) {
    std::ifstream stream(paths::source_dir() + "/src/ppd/ppd_keywords.h", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::size_t constants = 0;
    for (std::size_t at = text.find("constexpr"); at != std::string::npos;
         at = text.find("constexpr", at + 1)) {
        ++constants;
    }
    EXPECT_EQ(constants, 149U);
}

TEST(PpdKeywords, EveryRowStandsInItsPlace) {
    EXPECT_EQ(declared_rows(), rows_of("tests/ppd/golden/ppd_keywords.txt", R"re((\w+) = (\w+)\n)re"));
}

TEST(PpdKeywords, NamesAreUniqueAndOfThreeForms) {
    std::set<std::string> names;
    for (const auto& [name, value] : declared_rows()) {
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_TRUE(name.starts_with("KPPD") || name.starts_with("kPPD") || name.starts_with("kNX") ||
                    name == "kRAMDiskSettingKey" || name == "kSwitchPaperSize" ||
                    name == "KVendorPPDPrefix" || name == "KVendorPPDValue")
            << name;
        EXPECT_FALSE(value.empty()) << name;
    }
}

TEST(PpdKeywords, TheTableBeginsAndEndsAsItShould) {
    const auto rows = declared_rows();
    ASSERT_EQ(rows.size(), 149U);
    EXPECT_EQ(rows.front(), Row("kNXProductTypeFeatures", "NVXFeaturesSettings"));
    EXPECT_EQ(rows.back(), Row("kPPDMediaTypeKey", "MediaType"));
}

TEST(PpdKeywords, TwoConstantsHoldAnotherColourThanTheirName) {
    EXPECT_STREQ(KPPDColorDensityMagentaLow, "NVColorDensityBlackLow");
    EXPECT_STREQ(KPPDColorDensityMagentaMid, "NVColorDensityBlackMid");
    EXPECT_STREQ(KPPDColorDensityBlackHigh, "NVColorDensityBlackHigh");
    EXPECT_STREQ(kPPDColorDensityMagentaLowKey, "NVColorDensityMagentaLow");
    EXPECT_STREQ(kPPDColorDensityMagentaMidKey, "NVColorDensityMagentaMid");
}

TEST(PpdKeywords, TheLengthOfAPageIsItsHeight) {
    EXPECT_STREQ(kPPDLength, "Height");
    EXPECT_STREQ(kPPDWidth, "Width");
}

TEST(PpdKeywords, AliasesHoldOneKeyword) {
    EXPECT_STREQ(kNXHolePunchSettings, "NVNumPunchHoles");
    EXPECT_STREQ(KPPDNumPunchHolesKey, "NVNumPunchHoles");
    EXPECT_STREQ(kPPDMaxMailBoxNumber, "NVXMailBoxSettings");
    EXPECT_STREQ(kNXMailboxSetting, "NVXMailBoxSettings");
    EXPECT_STREQ(kNXTrimmerKey, "NVTrimming");
    EXPECT_STREQ(KPPDTrimmerShiftKeyEx, "NVTrimming");
    EXPECT_STREQ(KPPDMediaColor, "NVMediaColor");
    EXPECT_STREQ(kPPDMediaColorKey, "NVMediaColor");
    EXPECT_STREQ(KPPDOutputModeKey, kPPDOutputModeKey);
}

TEST(PpdKeywords, TheVendorsPrefixIsItsManufacturerValue) {
    EXPECT_STREQ(KVendorPPDPrefix, "NV");
    EXPECT_STREQ(KVendorPPDValue, "NV");
}

TEST(PpdKeywords, OfThePaperLogicAreTheStandardOnes) {
    EXPECT_STREQ(kPPDPageSizeKey, "PageSize");
    EXPECT_STREQ(kPPDMediaTypeKey, "MediaType");
    EXPECT_STREQ(kPPDDuplex, "Duplex");
    EXPECT_STREQ(kPPDInputTray, "InputSlot");
    EXPECT_STREQ(kPPDParamCustomPageSize, "ParamCustomPageSize");
}

TEST(PpdKeywords, OfThePaneAreItsAttributes) {
    EXPECT_STREQ(kNXProductTypeSpecialPages, "NVXSpecialPagesSettings");
    EXPECT_STREQ(kNXCDFFileKey, "NVXCDFSetting");
    EXPECT_STREQ(KPPDTonerSaverGroupKey, "NVTonerSaverGroup");
    EXPECT_STREQ(kPPDRGBColorCorrectionKey, "NVRGBCorrection");
    EXPECT_STREQ(kPPDMinimunDigitPasscode, "NVMinDigitPasscode");
    EXPECT_STREQ(kPPDJBANibName, "Default05");
    EXPECT_STREQ(kPPDPrintTypeNibName, "Default04");
}

} // namespace
} // namespace specialpages
