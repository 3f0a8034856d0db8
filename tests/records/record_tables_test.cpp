#include "records/record_tables.h"
#include "records/ticket_keys.h"
#include "support/settings_access.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace specialpages {
namespace {

using ::testing::ElementsAre;

TEST(RecordTables, NameKindsAndCoverPlacesByTheRecordsNumbers) {
    EXPECT_THAT(gInsertPageTypeResourceString,
                ElementsAre("Cover String", "Insert String", "Exception String"));
    EXPECT_THAT(gInsertPageNumResourceString, ElementsAre("Front String", "Back String"));
    EXPECT_THAT(customSizeLongMeasureString, ElementsAre("Custom Size Inch Text", "Custom Size MM Text"));
    EXPECT_THAT(tableColumnsTitleResourceString, ElementsAre("Page(s) Title", "Type Title", "Setup Title"));
}

TEST(RecordTables, NameTheDialogsOptionsByTheRecordsNumbers) {
    EXPECT_EQ(printingOptionListIniMenu.at(0), "Blank or Pre-Printed String");
    EXPECT_EQ(printingOptionListIniMenu.at(2), "Print On Side Two String");
    EXPECT_EQ(printingOptionListIniMenu.at(3), "Print On Both Sides String");
    EXPECT_EQ(exceptionTowSidePrintIniMenu.at(0), "No Change Option String");
    EXPECT_EQ(exceptionTowSidePrintIniMenu.at(1), "1 Side Print Option String");
    EXPECT_EQ(exceptionTowSidePrintIniMenu.at(3), "2 Side Short Edge Option String");
    EXPECT_THAT(insertOptionListIniMenu, ElementsAre("After String", "Before Page one String"));
}

constexpr std::array kAllTicketKeys{
    kNPIFCommandTicketCount,    kNPIFCommandTicket,        kSpecialPageRecordCountTicket,
    kNPIFCoverCountTicket,      kNPIFCoverValueTicket,     kNPIFInsertionCountTicket,
    kNPIFInsertionValueTicket,  kNPIFExceptionCountTicket, kNPIFExceptionValueTicket,
    kPageSizeArrayTicket,       kMediaTypeArrayTicket,     kMediaColorArrayTicket,
    kWhetherMediaTypeTabTicket, kWhetherInterposerTicket,  kWhetherMediaSizeA5Ticket,
    kPrintTypeTicketKey,        kPrintTypeReference};

TEST(TicketKeys, AllBeginWithTheCommonPrefixAndHoldOnePointAfterIt) {
    for (const auto key : kAllTicketKeys) {
        EXPECT_TRUE(key.starts_with(kTicketKeyPrefix)) << key;
        EXPECT_EQ(key.substr(kTicketKeyPrefix.size()).find('.'), std::string_view::npos) << key;
    }
}

TEST(TicketKeys, AreAllDifferent) {
    EXPECT_EQ(std::set(kAllTicketKeys.begin(), kAllTicketKeys.end()).size(), kAllTicketKeys.size());
}

TEST(TicketKeys, TakeTheIndexOfACommandDirectlyAfterAnUnderscore) {
    EXPECT_TRUE(kNPIFCoverValueTicket.ends_with("NPIFCoverValueTicket_"));
    EXPECT_TRUE(kNPIFInsertionValueTicket.ends_with("NPIFInsertionValueTicket_"));
    EXPECT_TRUE(kNPIFExceptionValueTicket.ends_with("NPIFExceptionValueTicket_"));
    EXPECT_TRUE(kNPIFCommandTicket.ends_with(".NPIFCommandTicket"));
}

} // namespace
} // namespace specialpages
