#include "platform/print/PrintSession.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace specialpages::platform {
namespace {

TEST(PrintSession, GivesTheChosenPrinterAndItsIdentifier) {
    PrintSession session;
    session.currentPrinter = Printer{"queue_1"};
    const Printer* printer = nullptr;
    EXPECT_EQ(PMSessionGetCurrentPrinter(&session, printer), noErr);
    ASSERT_EQ(printer, &*session.currentPrinter);
    EXPECT_EQ(PMPrinterGetID(*printer), "queue_1");
    EXPECT_EQ(PMPrinterGetID(Printer{}), "");
}

TEST(PrintSession, ThePrinterIsNullWithoutASessionOrAChoice) {
    const Printer other;
    const Printer* printer = &other;
    EXPECT_EQ(PMSessionGetCurrentPrinter(nullptr, printer), paramErr);
    EXPECT_EQ(printer, nullptr);
    const PrintSession session;
    printer = &other;
    EXPECT_EQ(PMSessionGetCurrentPrinter(&session, printer), kPMNoSessionData);
    EXPECT_EQ(printer, nullptr);
}

TEST(PrintSession, GivesNumbersAndBytesUnderTheirKeys) {
    PrintSession session;
    session.data.emplace("number", std::numeric_limits<std::int64_t>::min());
    session.data.emplace("bytes", std::vector<std::byte>{std::byte{1}, std::byte{0}});
    session.data.emplace("", std::int64_t{5});
    const SessionData* data = nullptr;
    EXPECT_EQ(PMSessionGetDataFromSession(&session, "number", data), noErr);
    ASSERT_EQ(data, &session.data.at("number"));
    EXPECT_EQ(*data, SessionData(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(PMSessionGetDataFromSession(&session, "bytes", data), noErr);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(*data, SessionData(std::vector<std::byte>{std::byte{1}, std::byte{0}}));
    EXPECT_EQ(PMSessionGetDataFromSession(&session, "", data), noErr);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(*data, SessionData(std::int64_t{5}));
}

TEST(PrintSession, DataIsNullWithoutASessionOrUnderAnUnknownKey) {
    PrintSession session;
    session.data.emplace("key", std::int64_t{1});
    const SessionData other;
    const SessionData* data = &other;
    EXPECT_EQ(PMSessionGetDataFromSession(nullptr, "key", data), paramErr);
    EXPECT_EQ(data, nullptr);
    for (const char* key : {"Key", "ke", "key ", ""}) {
        data = &other;
        EXPECT_EQ(PMSessionGetDataFromSession(&session, key, data), kPMNoSessionData) << key;
        EXPECT_EQ(data, nullptr) << key;
    }
}

} // namespace
} // namespace specialpages::platform
