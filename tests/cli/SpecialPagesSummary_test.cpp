#include "cli/SpecialPagesSummary.h"
#include "host/host_fixtures.h"
#include "records/ticket_keys.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using host::testing::error_of;
using platform::PrintSettings;
using Texts = std::vector<std::string>;

class SummaryTest : public ::testing::Test {
  protected:
    void set(std::string_view key, platform::SettingsValue value) {
        settings_.setValue(key, std::move(value), false);
    }
    void setRecords(const Texts& records) {
        set(kNPIFCommandTicketCount, std::to_string(records.size()));
        for (std::size_t i = 0; i < records.size(); ++i) {
            set(std::string(kNPIFCommandTicket) + "_" + std::to_string(i), records[i]);
        }
    }
    host::HostError error() {
        return error_of([this] { summarise(settings_); });
    }
    PrintSettings settings_;
};

const std::string kCover = "0,0,0,2,0,0,false,1,210.0,297.0,1";
const std::string kInsert = "1,3,0,1,2,0,0,false,210.0,297.0,1";
const std::string kException = "2,5-7,2,1,0,false,2,210.0,297.0,1";

TEST_F(SummaryTest, SettingsOfAnotherJobHaveNothingSpecial) {
    set("other", std::string("x"));
    const SpecialPagesSummary summary = summarise(settings_);
    EXPECT_TRUE(summary.records.empty());
    EXPECT_EQ(
        summary_json(summary, std::nullopt).dump(),
        R"({"records":[],"commands":{"covers":[],"insertions":[],"exceptions":[]},)"
        R"("papers":{"size":[],"type":[],"color":[]},"flags":{"tab":false,"interposer":false,"a5":false}})");
    EXPECT_EQ(summary_table(summary, {}), "No special pages\n"
                                          "\nCommands\n  -\n"
                                          "\nPapers\n  size   -\n  type   -\n  color  -\n"
                                          "\nFlags\n  tab no, interposer no, a5 no\n");
}

TEST_F(SummaryTest, JsonHasRecordsByKeyDecodedCommandsPapersAndFlags) {
    setRecords({kCover, kInsert, kException});
    set(kNPIFCoverCountTicket, std::string("1"));
    set(std::string(kNPIFCoverValueTicket) + "0", std::string("/48/44/49"));
    set(kNPIFInsertionCountTicket, std::string("2"));
    set(std::string(kNPIFInsertionValueTicket) + "0", std::string("plain"));
    set(std::string(kNPIFInsertionValueTicket) + "1", std::string("/65"));
    set(kNPIFExceptionCountTicket, std::string());
    set(kPageSizeArrayTicket, Texts{"A4", "A5"});
    set(kMediaTypeArrayTicket, Texts{});
    set(kMediaColorArrayTicket, Texts{"White"});
    set(kWhetherMediaTypeTabTicket, std::string("1"));
    set(kWhetherInterposerTicket, std::string("0"));
    set(kWhetherMediaSizeA5Ticket, std::string("1"));
    EXPECT_EQ(
        summary_json(summarise(settings_), std::vector<SummaryRow>{{"Front", "Cover", "A4"}}).dump(),
        R"({"records":[)"
        R"({"type":"0","page":"0","printingoptions":"0","coversoption":"1","pagesize":"2","pagecolor":"0",)"
        R"("pagetype":"0","interposer":"false","width":"210.0","length":"297.0","longmeasure":"1"},)"
        R"({"type":"1","page":"3","insertoption":"0","insertquantity":"1","pagesize":"2","pagecolor":"0",)"
        R"("pagetype":"0","interposer":"false","width":"210.0","length":"297.0","longmeasure":"1"},)"
        R"({"type":"2","page":"5-7","twoSidePrint":"2","pagesize":"2","pagecolor":"0","pagetype":"1",)"
        R"("interposer":"false","width":"210.0","length":"297.0","longmeasure":"1"}],)"
        R"("rows":[{"page":"Front","type":"Cover","setup":"A4"}],)"
        R"("commands":{"covers":["0,1"],"insertions":["plain","A"],"exceptions":[]},)"
        R"("papers":{"size":["A4","A5"],"type":[],"color":["White"]},)"
        R"("flags":{"tab":true,"interposer":false,"a5":true}})");
}

TEST_F(SummaryTest, RowsWithoutAPpdShowTheStoredIndexes) {
    setRecords({kCover, "0,1,3,-1,4,5,true,4,210.0,297.0,1", kInsert, "1,0,1,20,-1,-1,-1,false,1.0,2.0,0",
                kException});
    std::vector<SummaryRow> rows;
    for (const SpecialPageRecord& record : summarise(settings_).records) {
        rows.push_back(row_of_record(record));
    }
    EXPECT_EQ(rows, (std::vector<SummaryRow>{
                        {"front", "cover", "size 2, color 0, type 0, printing 0"},
                        {"back", "cover", "interposer, printing 3"},
                        {"after 3", "insert", "size 2, color 0, type 0, sheets 1"},
                        {"before 1", "insert", "size -1, color -1, type -1, sheets 20"},
                        {"5-7", "exception", "size 2, color 0, type 1, sides 2"},
                    }));
}

TEST_F(SummaryTest, TheTableIsAlignedByCharactersNotBytes) {
    set(kNPIFCoverCountTicket, std::string("1"));
    set(std::string(kNPIFCoverValueTicket) + "0", std::string("0,1\n,x"));
    set(kPageSizeArrayTicket, Texts{"A4", "A5"});
    EXPECT_EQ(summary_table(summarise(settings_),
                            {{"Übersätze", "a", "x"}, {"1", "Ausnahme", ""}, {"1\n2", "b", "y"}}),
              "Page       Type      Setup\n"
              "Übersätze  a         x\n"
              "1          Ausnahme\n"
              "1?2        b         y\n"
              "\nCommands\n"
              "  cover      0,1?,x\n"
              "\nPapers\n  size   A4, A5\n  type   -\n  color  -\n"
              "\nFlags\n  tab no, interposer no, a5 no\n");
}

TEST_F(SummaryTest, CountsAreReadAsThePaneReadsThem) {
    for (const char* const count : {"", "abc", "-3", "0", "0x7"}) {
        set(kNPIFCommandTicketCount, std::string(count));
        EXPECT_TRUE(summarise(settings_).records.empty()) << count;
    }
    set(std::string(kNPIFCommandTicket) + "_0", kCover);
    set(kNPIFCommandTicketCount, std::string(" 1 and more"));
    EXPECT_EQ(summarise(settings_).records.size(), 1U);
    set(kNPIFCommandTicketCount, Texts{"1"}); // an array is no count
    EXPECT_TRUE(summarise(settings_).records.empty());
}

TEST_F(SummaryTest, ARecordOfAnotherKindIsLeftOut) {
    setRecords({"7,x", kInsert});
    ASSERT_EQ(summarise(settings_).records.size(), 1U);
    EXPECT_EQ(summarise(settings_).records[0].type(), 1);
}

TEST_F(SummaryTest, AnAnnouncedRecordThatIsMissingIsNamed) {
    setRecords({kCover});
    set(kNPIFCommandTicketCount, std::string("2147483647"));
    EXPECT_EQ(error().code(), host::ErrorCode::input);
    EXPECT_STREQ(error().what(),
                 "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_1: expected a record, as "
                 "the count announces");
}

TEST_F(SummaryTest, ARecordWithTooFewFieldsIsNamed) {
    setRecords({kCover, "1,3,0,1"});
    EXPECT_STREQ(error().what(),
                 "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_1: expected 11 fields of a "
                 "cover or insert, or 10 of an exception");
}

TEST_F(SummaryTest, AMissingOrMalformedCommandIsNamed) {
    set(kNPIFExceptionCountTicket, std::string("1"));
    EXPECT_STREQ(error().what(), "com.norvalen.nb.rtz.printsettings.NPIFExceptionValueTicket_0: expected a "
                                 "command, as the count announces");
    set(std::string(kNPIFExceptionValueTicket) + "0", std::string("/48/x"));
    EXPECT_EQ(error().code(), host::ErrorCode::input);
    EXPECT_STREQ(error().what(),
                 "com.norvalen.nb.rtz.printsettings.NPIFExceptionValueTicket_0, byte 5: expected "
                 "digits after each \"/\"");
}

TEST_F(SummaryTest, PapersThatAreNoArrayAreNamed) {
    set(kMediaTypeArrayTicket, std::string("A4"));
    EXPECT_STREQ(error().what(),
                 "com.norvalen.nb.rtz.printsettings.mediaTypeArrayTicket: expected an array of texts");
}

} // namespace
} // namespace specialpages::cli
