#include "records/record_builder.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using Outcome = RecordReading::Outcome;
using enum RecordKey;

/// Every entry of its own kind different from every other, so that an exchange of two would be seen.
const SpecialPageRecord kCover{{type, "0"},      {page, "p"},     {printingoptions, "o"}, {pagesize, "s"},
                               {pagecolor, "c"}, {pagetype, "t"}, {interposer, "i"},      {coversoption, "v"},
                               {width, "w"},     {length, "l"},   {longmeasure, "m"}};
const SpecialPageRecord kInsert{{type, "1"},     {page, "p"},      {insertoption, "o"}, {insertquantity, "q"},
                                {pagesize, "s"}, {pagecolor, "c"}, {pagetype, "t"},     {interposer, "i"},
                                {width, "w"},    {length, "l"},    {longmeasure, "m"}};
const SpecialPageRecord kException{{type, "2"},      {page, "p"},       {pagesize, "s"},     {pagetype, "t"},
                                   {pagecolor, "c"}, {interposer, "i"}, {twoSidePrint, "d"}, {width, "w"},
                                   {length, "l"},    {longmeasure, "m"}};

RecordReading read_back(const SpecialPageRecord& record) {
    return decode_record(encode_record(record).value_or("no list"));
}

TEST(RecordTicket, HoldsACoverInItsOwnFieldOrder) {
    EXPECT_EQ(encode_record(kCover), "0,p,o,s,c,t,i,v,w,l,m");
    const auto front = test::cover_front().with(pagesize, "2");
    EXPECT_EQ(encode_record(front), "0,0,0,2,0,0,false,1,210.0,297.0,1");
}

TEST(RecordTicket, HoldsAnInsertInItsOwnFieldOrder) {
    EXPECT_EQ(encode_record(kInsert), "1,p,o,q,s,c,t,i,w,l,m");
    EXPECT_EQ(encode_record(test::insert_after(3).with(pagesize, "2")), "1,3,0,1,2,0,0,false,210.0,297.0,1");
}

TEST(RecordTicket, HoldsAnExceptionWithTheTypeBeforeTheColour) {
    EXPECT_EQ(encode_record(kException), "2,p,s,t,c,i,d,w,l,m");
    EXPECT_EQ(encode_record(test::exception("5-7").with(pagesize, "2")), "2,5-7,2,0,0,false,2,210.0,297.0,1");
}

TEST(RecordTicket, HoldsAnExceptionOnOnePageWithoutADash) {
    EXPECT_EQ(encode_record(test::exception("5")), "2,5,0,0,0,false,2,210.0,297.0,1");
}

TEST(RecordTicket, LeavesTheMarkOut) {
    for (const auto& record : {kCover, kInsert, kException}) {
        EXPECT_EQ(encode_record(test::marked(record)), encode_record(record));
    }
}

TEST(RecordTicket, LeavesOutEntriesOfOtherKinds) {
    EXPECT_EQ(encode_record(kInsert.with(twoSidePrint, "3").with(printingoptions, "2")),
              encode_record(kInsert));
}

TEST(RecordTicket, WritesAMissingEntryAsAnEmptyField) {
    EXPECT_EQ(encode_record({{type, "1"}, {page, "3"}}), "1,3,,,,,,,,,");
    EXPECT_EQ(encode_record({{type, "2"}}), "2,,,,,,,,,");
}

TEST(RecordTicket, HasNoListForAnUnknownKind) {
    EXPECT_EQ(encode_record(kInsert.with(type, "3")), std::nullopt);
    EXPECT_EQ(encode_record(kInsert.with(type, "-1")), std::nullopt);
    EXPECT_EQ(encode_record(kInsert.with(type, "99999999999")), std::nullopt);
}

TEST(RecordTicket, ReadsEachKindBackByItsOwnFieldOrder) {
    for (const auto& record : {kCover, kInsert, kException}) {
        const auto reading = read_back(record);
        EXPECT_EQ(reading.outcome, Outcome::record);
        EXPECT_EQ(reading.record, record);
    }
    EXPECT_EQ(decode_record("2,5-7,2,1,0,false,2,210.0,297.0,1").record,
              test::with_paper(test::exception("5-7"), 2, 0, 1));
    EXPECT_EQ(decode_record("1,3,0,1,2,0,1,false,210.0,297.0,1").record,
              test::with_paper(test::insert_after(3), 2, 0, 1));
}

TEST(RecordTicket, ARecordReadBackHasNoMark) {
    const auto reading = read_back(test::marked(test::insert_after(3)));
    EXPECT_EQ(reading.record.find(selected), nullptr);
}

TEST(RecordTicket, KeepsEmptyFieldsAsEmptyTexts) {
    const auto reading = decode_record("1,3,0,1,2,0,0,false,,297.0,");
    ASSERT_EQ(reading.outcome, Outcome::record);
    ASSERT_NE(reading.record.find(width), nullptr);
    EXPECT_EQ(reading.record.text(width), "");
    EXPECT_EQ(reading.record.text(length), "297.0");
    ASSERT_NE(reading.record.find(longmeasure), nullptr);
    EXPECT_EQ(reading.record.text(longmeasure), "");
}

TEST(RecordTicket, IgnoresSurplusFields) {
    const auto reading = decode_record("2,p,s,t,c,i,d,w,l,m,true,x,");
    ASSERT_EQ(reading.outcome, Outcome::record);
    EXPECT_EQ(reading.record, kException);
    EXPECT_EQ(decode_record("0,p,o,s,c,t,i,v,w,l,m,true").record, kCover);
}

TEST(RecordTicket, RefusesAListThatIsOneFieldShort) {
    EXPECT_EQ(decode_record("0,p,o,s,c,t,i,v,w,l").outcome, Outcome::too_few_fields);
    EXPECT_EQ(decode_record("1,p,o,q,s,c,t,i,w,l").outcome, Outcome::too_few_fields);
    EXPECT_EQ(decode_record("2,p,s,t,c,i,d,w,l").outcome, Outcome::too_few_fields);
    EXPECT_EQ(decode_record("2,p,s,t,c,i,d,w,l").record, SpecialPageRecord{});
}

TEST(RecordTicket, ReadsAnEmptyTextAsACoverWithTooFewFields) {
    EXPECT_EQ(decode_record("").outcome, Outcome::too_few_fields);
    EXPECT_EQ(decode_record(",").outcome, Outcome::too_few_fields);
}

TEST(RecordTicket, TellsAnotherKindFromAShortList) {
    EXPECT_EQ(decode_record("3").outcome, Outcome::other_kind);
    EXPECT_EQ(decode_record("3,p,o,q,s,c,t,i,w,l,m").outcome, Outcome::other_kind);
    EXPECT_EQ(decode_record("-1,p").outcome, Outcome::other_kind);
    EXPECT_EQ(decode_record("99999999999,p").outcome, Outcome::other_kind);
    EXPECT_EQ(decode_record("3,p,o,q,s,c,t,i,w,l,m").record, SpecialPageRecord{});
}

TEST(RecordTicket, ReadsTheKindFromTheHeadOfTheFirstFieldAndKeepsItsText) {
    EXPECT_EQ(decode_record("x,p,o,s,c,t,i,v,w,l,m").record, kCover.with(type, "x"));
    EXPECT_EQ(decode_record("02z,p,s,t,c,i,d,w,l,m").record, kException.with(type, "02z"));
}

TEST(RecordTicket, ANewlineSeparatesFieldsToo) {
    EXPECT_EQ(decode_record("2\np\ns,t,c,i,d,w,l,m").record, kException);
}

TEST(RecordTicket, TextBeyondAsciiLosesItsEnd) {
    // One byte more than UTF-16 units: the last field is lost. No record of the pane holds such text.
    const auto reading = decode_record("2,\u00e9,s,t,c,i,d,w,l,m");
    ASSERT_EQ(reading.outcome, Outcome::record);
    EXPECT_EQ(reading.record, kException.with(page, "\u00e9").with(longmeasure, ""));
}

TEST(RecordTicket, BytesThatAreNotTextHaveTooFewFields) {
    EXPECT_EQ(decode_record("2,\xff,s,t,c,i,d,w,l,m").outcome, Outcome::too_few_fields);
}

TEST(RecordTicket, ReadsAVeryLongList) {
    const auto reading =
        decode_record("1," + std::string(100'000, '7') + ",o,q,s,c,t,i,w,l,m" + std::string(100'000, ','));
    ASSERT_EQ(reading.outcome, Outcome::record);
    EXPECT_EQ(reading.record, kInsert.with(page, std::string(100'000, '7')));
}

TEST(RecordTicket, KeysAreNumberedFromZeroAfterAnUnderscore) {
    EXPECT_EQ(record_ticket_key(kNPIFCommandTicket, 0),
              "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_0");
    EXPECT_EQ(record_ticket_key(kNPIFCommandTicket, 12),
              "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_12");
    EXPECT_EQ(record_ticket_key("k", std::numeric_limits<std::int32_t>::max()), "k_2147483647");
    EXPECT_EQ(record_ticket_key("", 1), "_1");
}

TEST(RecordTicket, ANegativeIndexHasNoKey) {
    EXPECT_EQ(record_ticket_key(kNPIFCommandTicket, -1), "");
    EXPECT_EQ(record_ticket_key(kNPIFCommandTicket, std::numeric_limits<std::int32_t>::min()), "");
}

RC_GTEST_PROP(RecordTicketProperty, ReadsBackWhatItWroteWithoutTheMark, ()) {
    auto record = *rc::gen::element(kCover, kInsert, kException);
    const auto plain_ascii = rc::gen::container<std::string>(
        rc::gen::suchThat(rc::gen::inRange<char>(1, 127), [](char c) { return c != ',' && c != '\n'; }));
    for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
        const auto key = static_cast<RecordKey>(i);
        if (key != type && record.find(key) != nullptr) {
            record = record.with(key, *plain_ascii);
        }
    }
    const auto mark = *rc::gen::arbitrary<bool>();
    const auto reading = read_back(mark ? test::marked(record) : record);
    RC_ASSERT(reading.outcome == Outcome::record);
    RC_ASSERT(reading.record == record);
}

} // namespace
} // namespace specialpages
