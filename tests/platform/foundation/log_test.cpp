#include "platform/foundation/log.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

class LogTest : public ::testing::Test {
  public:
    LogTest() : before(setLogSink(nullptr)) {}
    LogTest(const LogTest&) = delete;
    LogTest& operator=(const LogTest&) = delete;
    ~LogTest() override { setLogSink(before); }

  protected:
    LogSink collector() {
        return [this](std::string_view line) {
            lines.emplace_back(line);
        };
    }
    LogSink before;
    std::vector<std::string> lines;
};

TEST_F(LogTest, LinesAreDroppedWithoutASink) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    NSLog("nobody hears this");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(LogTest, TheSinkGetsEachLineWithoutALineEnd) {
    setLogSink(collector());
    NSLog("SpecialPagesPDE : %d %s");
    NSLog("ended\r\n");
    NSLog("");
    NSLog("\n");
    EXPECT_EQ(lines, (std::vector<std::string>{"SpecialPagesPDE : %d %s", "ended", "", ""}));
}

TEST_F(LogTest, SettingASinkAnswersTheOneBefore) {
    EXPECT_FALSE(setLogSink(collector()));
    const LogSink mine = setLogSink(nullptr);
    ASSERT_TRUE(mine);
    mine("x");
    EXPECT_EQ(lines, std::vector<std::string>{"x"});
    NSLog("dropped");
    EXPECT_EQ(lines.size(), 1U);
}

TEST_F(LogTest, ASinkMayReplaceItselfWhileItRuns) {
    const std::string longName(100, 'x');
    setLogSink([this, longName](std::string_view line) {
        setLogSink(nullptr);
        lines.push_back(longName + std::string(line));
    });
    NSLog("1");
    NSLog("2");
    EXPECT_EQ(lines, std::vector<std::string>{longName + "1"});
}

} // namespace
} // namespace specialpages::platform
