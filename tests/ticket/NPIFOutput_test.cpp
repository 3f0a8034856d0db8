#include "platform/print/PageFormat.h"
#include "platform/print/PrintSettings.h"
#include "ppd/ppd_builder.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/record_builder.h"
#include "ticket/NPIFOutput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kKeyHead = "com.norvalen.nb.rtz.printsettings.";

/// The output on its own, with every answer in the test's hand.
class Output : public NPIFOutput {
  public:
    ppd_file_s* outputPPD() override { return ppd; }
    const SPSummaryScrollViewCtrl* outputRecords() override { return records; }
    platform::PrintSettings* outputSettings() override { return job; }
    std::optional<std::string> outputPrinter() override { return printer; }
    const platform::PageFormat* outputPageFormat() override { return page; }

    std::string colorChoice() const { return mediaColorChoice; }
    std::string typeChoice() const { return mediaTypeChoice; }
    std::vector<std::int32_t> counts() const {
        return {MediaColorOptionCount, MediaTypeOptionCount, PageSizeOptionCount};
    }
    std::vector<std::int32_t> sheet() const { return {JobPageWidth, JobPageLength}; }

    ppd_file_s* ppd = nullptr;
    const SPSummaryScrollViewCtrl* records = nullptr;
    platform::PrintSettings* job = nullptr;
    std::optional<std::string> printer = "printer";
    const platform::PageFormat* page = nullptr;
};

class NpifOutput : public ::testing::Test {
  protected:
    NpifOutput() {
        ppd.attribute("Manufacturer", "", "NV")
            .group("Paper")
            .option("PageSize", "A4")
            .choices({"A3", "B4", "A4"})
            .option("NVMediaColor", "White")
            .choices({"White", "Blue"})
            .option("MediaType", "Stationary")
            .choices({"Stationary", "ThickPaper"});
        output.ppd = ppd.file();
        output.records = &list;
        output.job = &settings;
    }
    void fill(const RecordList& records) {
        const RowSet none;
        list.undoRequest(&records, &none);
    }
    std::string get(const std::string& key) const {
        const auto* value = settings.value(kKeyHead + key);
        return value == nullptr ? "(none)" : std::get<std::string>(*value);
    }

    PpdBuilder ppd;
    platform::PrintSettings settings;
    SPSummaryScrollViewCtrl list;
    Output output;
    PaperKeywordList sizes, types, colors;
};

TEST_F(NpifOutput, ThePrintTypeFiveIsTheMailboxAndAnswersFalse) {
    settings.setValue("com.norvalen.nb.rtz.printsettings.PrintTypeTicketKey", "5", false);
    EXPECT_FALSE(output.IsJobTypeMailbox());
    settings.setValue("com.norvalen.nb.rtz.printsettings.PrintTypeTicketKey", "05", false);
    EXPECT_FALSE(output.IsJobTypeMailbox());
}

TEST_F(NpifOutput, EveryOtherOrUnreadablePrintTypeAnswersTrue) {
    EXPECT_TRUE(output.IsJobTypeMailbox()) << "no print type";
    for (const char* type : {"", "4", "five", "50"}) {
        settings.setValue("com.norvalen.nb.rtz.printsettings.PrintTypeTicketKey", type, false);
        EXPECT_TRUE(output.IsJobTypeMailbox()) << type;
    }
    settings.setValue("com.norvalen.nb.rtz.printsettings.PrintTypeTicketKey", "5", false);
    output.printer.reset();
    EXPECT_TRUE(output.IsJobTypeMailbox()) << "no printer";
    output.printer = "printer";
    output.job = nullptr;
    EXPECT_TRUE(output.IsJobTypeMailbox()) << "no settings";
}

TEST_F(NpifOutput, TextsOfTheCommandWriterAreEncodedWhenTheyNeedIt) {
    const auto written = [&](const char* text) {
        EXPECT_TRUE(output.setCStringToTicket(text, "key", &settings, false));
        return std::get<std::string>(*settings.value("key"));
    };
    EXPECT_EQ(written("/x"), "/47/120");
    EXPECT_EQ(written("abc"), "abc");
    EXPECT_EQ(written("a'b"), "/97/39/98");
    EXPECT_EQ(written("a\\b"), "/97/92/98");
    EXPECT_EQ(written("1,2"), "/49/44/50");
    EXPECT_EQ(written("a/b"), "a/b");
    EXPECT_EQ(written(""), "");
    EXPECT_FALSE(output.setCStringToTicket("abc", "key", nullptr, false));
}

TEST_F(NpifOutput, WithoutSettingsOrListNothingIsWritten) {
    EXPECT_TRUE(output.outputNPIFCommand(nullptr, false, sizes, types, colors));
    output.records = nullptr;
    EXPECT_TRUE(output.outputNPIFCommand(&settings, false, sizes, types, colors));
    EXPECT_THAT(settings.entries(), IsEmpty());
    EXPECT_TRUE(output.setPaperParamToTicket(nullptr, false, sizes, types, colors));
}

TEST_F(NpifOutput, WithoutAPpdOnlyTheRecordCountIsWritten) {
    fill({cover_front(), insert_after(3)});
    output.ppd = nullptr;
    EXPECT_TRUE(output.outputNPIFCommand(&settings, false, sizes, types, colors));
    ASSERT_EQ(settings.entries().size(), 1U);
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "2");
}

TEST_F(NpifOutput, AllThreeKindsWriteAtLeastTheirCount) {
    EXPECT_TRUE(output.outputNPIFCommand(&settings, false, sizes, types, colors));
    std::vector<std::string> keys;
    for (const auto& entry : settings.entries()) {
        keys.push_back(entry.key.substr(std::string(kKeyHead).size()));
    }
    EXPECT_THAT(keys, ElementsAre("SpecialPageRecordCountTicket", "NPIFCoverCountTicket",
                                  "NPIFInsertionCountTicket", "NPIFExceptionCountTicket"));
    EXPECT_EQ(get("NPIFCoverCountTicket"), "");
}

TEST_F(NpifOutput, RecordsOfOneKindAreNumberedOnTheirOwn) {
    fill({cover_front(), insert_after(3, 2), insert_after(3, 5), exception("9"), cover_back()});
    output.outputNPIFCommand(&settings, false, sizes, types, colors);
    EXPECT_EQ(get("NPIFCoverCountTicket"), "2");
    EXPECT_EQ(get("NPIFInsertionCountTicket"), "2");
    EXPECT_EQ(get("NPIFExceptionCountTicket"), "1");
    EXPECT_NE(get("NPIFCoverValueTicket_1"), "(none)");
    EXPECT_NE(get("NPIFInsertionValueTicket_0"), get("NPIFInsertionValueTicket_1"));
    EXPECT_EQ(get("NPIFExceptionValueTicket_1"), "(none)");
    EXPECT_THAT(sizes, ElementsAre("A3", "A3", "A3", "A3", "A3"));
}

TEST_F(NpifOutput, TheArraysFollowCoversInsertionsExceptions) {
    fill({cover_front().with(RecordKey::pagesize, "0"), insert_after(3).with(RecordKey::pagesize, "1"),
          exception("2").with(RecordKey::pagesize, "2"), cover_back().with(RecordKey::pagesize, "2")});
    output.outputNPIFCommand(&settings, false, sizes, types, colors);
    EXPECT_THAT(sizes, ElementsAre("A3", "A4", "B4", "A4"));
}

TEST_F(NpifOutput, TheLockFlagReachesEveryWrite) {
    fill({cover_front()});
    output.outputNPIFCommand(&settings, true, sizes, types, colors);
    output.setPaperParamToTicket(&settings, true, sizes, types, colors);
    for (const auto& entry : settings.entries()) {
        EXPECT_TRUE(entry.locked) << entry.key;
    }
}

TEST_F(NpifOutput, ReadsCountsChoicesAndTheJobsSheet) {
    platform::PageFormat a4;
    a4.unadjustedPaperRect = {0, 0, 842, 595};
    output.page = &a4;
    ppd.mark("NVMediaColor", "Blue").mark("MediaType", "ThickPaper");
    output.getCurrentSystemPrintingSetting();
    EXPECT_THAT(output.counts(), ElementsAre(2, 2, 3));
    EXPECT_EQ(output.colorChoice(), "Blue");
    EXPECT_EQ(output.typeChoice(), "ThickPaper");
    EXPECT_THAT(output.sheet(), ElementsAre(21060, 29790));
}

TEST_F(NpifOutput, WithoutAMarkedChoiceOrAPageTheOldValuesStay) {
    platform::PageFormat a4;
    a4.unadjustedPaperRect = {0, 0, 842, 595};
    output.page = &a4;
    ppd.mark("NVMediaColor", "Blue");
    output.getCurrentSystemPrintingSetting();
    PpdBuilder unmarked;
    unmarked.option("NVMediaColor").choices({"White"});
    output.ppd = unmarked.file();
    output.page = nullptr;
    output.getCurrentSystemPrintingSetting();
    EXPECT_EQ(output.colorChoice(), "Blue");
    EXPECT_THAT(output.counts(), ElementsAre(1, 0, 0));
    EXPECT_THAT(output.sheet(), ElementsAre(21060, 29790));
}

TEST_F(NpifOutput, AChoiceOfFortyCharactersIsKeptWhole) {
    const std::string forty(40, 'x');
    PpdBuilder wide;
    wide.option("MediaType").choice(forty).mark("MediaType", forty);
    output.ppd = wide.file();
    output.getCurrentSystemPrintingSetting();
    EXPECT_EQ(output.typeChoice(), forty);
}

TEST_F(NpifOutput, AWordIsCopiedAsFarAsItsBufferGoes) {
    std::string word = "before";
    NPIFOutput::getMediaColorNPIFComm("Goldenrod", &word, 41);
    EXPECT_EQ(word, "goldenrod");
    NPIFOutput::getMediaTypeNPIFComm("PrePrintedPlainPaperS1", &word, 41);
    EXPECT_EQ(word, "PREPRINTEDS1");
    NPIFOutput::getMediaTypeNPIFComm("PrePrintedPlainPaperS1", &word, 4);
    EXPECT_EQ(word, "PRE");
    NPIFOutput::getMediaTypeNPIFComm("Stationary", &word, 1);
    EXPECT_EQ(word, "") << "a buffer of one holds the terminator alone";
    std::string x;
    std::string y;
    NPIFOutput::getMediaSizeNPIFComm("NR16-KAI-GCO", &x, 41, &y, 41);
    EXPECT_EQ(x, "19500");
    EXPECT_EQ(y, "27000");
}

TEST_F(NpifOutput, AMissOrANullLeavesTheTargetAsItWas) {
    std::string word = "before";
    NPIFOutput::getMediaColorNPIFComm("white", &word, 41);
    NPIFOutput::getMediaColorNPIFComm("", &word, 41);
    NPIFOutput::getMediaColorNPIFComm(nullptr, &word, 41);
    NPIFOutput::getMediaTypeNPIFComm("stationary", &word, 41);
    EXPECT_EQ(word, "before");
    std::string x = "1";
    std::string y = "2";
    NPIFOutput::getMediaSizeNPIFComm("Custom", &x, 41, &y, 41);
    NPIFOutput::getMediaSizeNPIFComm("A4", nullptr, 41, &y, 41);
    NPIFOutput::getMediaSizeNPIFComm("A4", &x, 41, nullptr, 41);
    EXPECT_EQ(x + y, "12");
}

} // namespace
} // namespace specialpages::test
