#include "host/PpdFile.h"
#include "host/host_fixtures.h"

#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <clocale>
#include <utility>

namespace specialpages::host {
namespace {

using testing::error_of;
using testing::ScopedVariable;
using testing::small_ppd;
using testing::TemporaryFolder;

// The keyword of the choice that carries the mark, read from the structure that the pane reads.
std::string marked(const PpdFile& ppd, const std::string& option) {
    for (int g = 0; g < ppd.get()->num_groups; ++g) {
        const ppd_group_t& group = ppd.get()->groups[g];
        for (int o = 0; o < group.num_options; ++o) {
            for (int c = 0; option == group.options[o].keyword && c < group.options[o].num_choices; ++c) {
                if (group.options[o].choices[c].marked != 0) {
                    return group.options[o].choices[c].choice;
                }
            }
        }
    }
    return "";
}

PpdFile small() {
    return PpdFile::parse(small_ppd(), "small.ppd");
}

TEST(PpdFile, OpensAFileAndMarksItsDefaults) {
    const TemporaryFolder folder;
    const auto file = folder.write("small.ppd", small_ppd());
    const PpdFile ppd(file);
    EXPECT_EQ(ppd.name(), file.string());
    EXPECT_EQ(ppd.model_name(), "NV Small");
    EXPECT_EQ(marked(ppd, "PageSize"), "A4");
    EXPECT_EQ(marked(ppd, "Duplex"), "None");
}

TEST(PpdFile, StaysOpenWhenItIsMoved) {
    PpdFile first = small();
    ppd_file_s* const borrowed = first.get();
    const PpdFile second = std::move(first);
    EXPECT_EQ(second.get(), borrowed);
    EXPECT_EQ(marked(second, "PageSize"), "A4");
}

TEST(PpdFile, AMissingFileIsAnInputErrorWithTheSystemsReason) {
    const HostError error = error_of([] { PpdFile("/no/such/file.ppd"); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_STREQ(error.what(),
                 "/no/such/file.ppd: expected a PPD file: Unable to open PPD file (No such file "
                 "or directory)");
}

struct Refused {
    const char* name;
    std::string bytes;
    const char* message;
};

class RefusedPpd : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedPpd, NamesFileLineAndReasonOfLibcups) {
    const HostError error = error_of([] { PpdFile::parse(GetParam().bytes, "x.ppd"); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_STREQ(error.what(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Files, RefusedPpd,
    ::testing::Values(
        Refused{"Empty", "", "x.ppd: expected a PPD file: Missing PPD-Adobe-4.x header"},
        Refused{"OtherText", "hello\n", "x.ppd, line 1: expected a PPD file: Missing asterisk in column 1"},
        Refused{"ByteOrderMark", "\xEF\xBB\xBF" + small_ppd(),
                "x.ppd, line 1: expected a PPD file: Missing asterisk in column 1"},
        Refused{"NoAsteriskOnLine3", "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\nnonsense\n",
                "x.ppd, line 3: expected a PPD file: Missing asterisk in column 1"},
        Refused{"LineOver255Bytes", "*PPD-Adobe: \"4.3\"\n*NickName: \"" + std::string(300, 'x') + "\"\n",
                "x.ppd, line 2: expected a PPD file: Line longer than the maximum allowed (255 characters)"}),
    [](const auto& info) { return info.param.name; });

TEST(PpdFile, ReasonsOfLibcupsAreEnglishWhateverTheEnvironmentSays) {
    const ScopedVariable language("LANG", "de_DE.UTF-8");
    const ScopedVariable messages("LC_MESSAGES", nullptr);
    const HostError error = error_of([] { PpdFile::parse("", "x.ppd"); });
    EXPECT_STREQ(error.what(), "x.ppd: expected a PPD file: Missing PPD-Adobe-4.x header");
    EXPECT_EQ(std::getenv("LC_MESSAGES"), nullptr);
}

TEST(PpdFile, TheEnvironmentIsAsBefore) {
    const ScopedVariable messages("LC_MESSAGES", "fr_FR.UTF-8");
    small();
    EXPECT_STREQ(std::getenv("LC_MESSAGES"), "fr_FR.UTF-8");
}

TEST(PpdFile, MarksChoicesWithoutRegardToCase) {
    PpdFile ppd = small();
    ppd.mark("Duplex", "DuplexNoTumble");
    EXPECT_EQ(marked(ppd, "Duplex"), "DuplexNoTumble");
    ppd.mark("pagesize=a3");
    EXPECT_EQ(marked(ppd, "PageSize"), "A3");
}

TEST(PpdFile, AnUnknownOptionIsAUsageErrorThatNamesIt) {
    PpdFile ppd = small();
    const HostError error = error_of([&] { ppd.mark("Staple", "Top"); });
    EXPECT_EQ(error.code(), ErrorCode::usage);
    EXPECT_STREQ(error.what(), "Staple: expected an option of small.ppd, which has none so named");
}

TEST(PpdFile, AnUnknownChoiceIsAUsageErrorThatListsTheLegalOnes) {
    PpdFile ppd = small();
    const HostError error = error_of([&] { ppd.mark("PageSize", "B5"); });
    EXPECT_EQ(error.code(), ErrorCode::usage);
    EXPECT_STREQ(error.what(), "PageSize=B5: expected a choice of this option: A4, A3, Custom");
    EXPECT_EQ(marked(ppd, "PageSize"), "A4");
}

TEST(PpdFile, AChoiceOfOnesOwnIsUnknownWhereThePpdHasNone) {
    PpdFile ppd = small();
    EXPECT_STREQ(error_of([&] { ppd.mark("Duplex", "Custom.3"); }).what(),
                 "Duplex=Custom.3: expected a choice of this option: None, DuplexNoTumble");
}

TEST(PpdFile, AnAssignmentNeedsBothSides) {
    PpdFile ppd = small();
    for (const char* const text : {"", "=", "PageSize", "PageSize=", "=A4"}) {
        const HostError error = error_of([&] { ppd.mark(text); });
        EXPECT_EQ(error.code(), ErrorCode::usage) << text;
        EXPECT_EQ(error.detail(), "expected OPTION=CHOICE") << text;
    }
}

TEST(PpdFile, PageSizeIsTheMarkedSheetInPoints) {
    PpdFile ppd = small();
    ASSERT_TRUE(ppd.page_size());
    EXPECT_EQ(ppd.page_size()->width, 595);
    EXPECT_EQ(ppd.page_size()->length, 842);
    ppd.mark("PageSize", "A3");
    EXPECT_EQ(ppd.page_size()->width, 842);
    EXPECT_EQ(ppd.page_size()->length, 1191);
}

TEST(PpdFile, ASizeOfOnesOwnHasTheMeasuresOfTheChoice) {
    PpdFile ppd = small();
    ppd.mark("PageSize", "Custom.300x500.5");
    EXPECT_EQ(marked(ppd, "PageSize"), "Custom");
    EXPECT_EQ(ppd.page_size()->width, 300);
    EXPECT_EQ(ppd.page_size()->length, 500.5);
    ppd.mark("PageSize", "custom.210x297mm");
    EXPECT_NEAR(ppd.page_size()->width, 595.276, 0.001);
    EXPECT_NEAR(ppd.page_size()->length, 841.89, 0.001);
    ppd.mark("PageSize", "Custom.8.5x11in");
    EXPECT_EQ(ppd.page_size()->width, 612);
    EXPECT_EQ(ppd.page_size()->length, 792);
}

TEST(PpdFile, ASizeOfOnesOwnKeepsItsMeasuresUnderACommaLocale) {
    // No locale with a decimal comma need be installed; where one is, this holds it to the same numbers.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    PpdFile ppd = small();
    ppd.mark("PageSize", "Custom.300.5x500.25");
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(ppd.page_size()->width, 300.5);
    EXPECT_EQ(ppd.page_size()->length, 500.25);
}

TEST(PpdFile, AMalformedSizeOfOnesOwnMarksNothing) {
    PpdFile ppd = small();
    for (const char* const size :
         {"Custom.", "Custom.abc", "Custom.x", "Custom.300", "Custom.300x", "Custom.x500",
          "Custom.300x500parsec", "Custom.300x500 mm", "Custom.+300x500"}) {
        const HostError error = error_of([&] { ppd.mark("PageSize", size); });
        EXPECT_EQ(error.code(), ErrorCode::usage) << size;
        EXPECT_EQ(error.detail(),
                  "expected Custom.WIDTHxLENGTH with an optional unit pt, mm, cm, m, in or ft")
            << size;
        EXPECT_EQ(marked(ppd, "PageSize"), "A4") << size;
    }
}

TEST(PpdFile, ASizeOfOnesOwnIsHeldToThePpdsLimits) {
    PpdFile ppd = small();
    for (const char* const size :
         {"Custom.200x500", "Custom.936x500", "Custom.300x400", "Custom.300x1301", "Custom.-300x500",
          "Custom.99999999x500", "Custom.infx500", "Custom.nanx500"}) {
        EXPECT_EQ(error_of([&] { ppd.mark("PageSize", size); }).code(), ErrorCode::usage) << size;
        EXPECT_EQ(marked(ppd, "PageSize"), "A4") << size;
    }
    EXPECT_STREQ(
        error_of([&] { ppd.mark("PageSize", "Custom.200x500"); }).what(),
        "PageSize=Custom.200x500: expected a width of 283 to 935 and a length of 420 to 1300 points");
    ppd.mark("PageSize", "Custom.283x1300");
    EXPECT_EQ(marked(ppd, "PageSize"), "Custom");
}

TEST(PpdFile, NoPageSizeMeansNoSheet) {
    const PpdFile ppd = PpdFile::parse("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n", "bare.ppd");
    EXPECT_FALSE(ppd.page_size());
    EXPECT_EQ(ppd.model_name(), "");
}

TEST(PpdFile, FindsAttributesByTheHeadOfTheirName) {
    const PpdFile ppd = small();
    EXPECT_TRUE(ppd.has_attribute("NVXSpecialPages"));
    EXPECT_TRUE(ppd.has_attribute("NVXSpecialPagesSettings"));
    EXPECT_FALSE(ppd.has_attribute("NVXSpecialPagesSettingsX"));
    EXPECT_FALSE(ppd.has_attribute("nvxSpecialPagesSettings"));
}

} // namespace
} // namespace specialpages::host
