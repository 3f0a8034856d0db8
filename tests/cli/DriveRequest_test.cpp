#include "cli/DriveRequest.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using Texts = std::vector<std::string>;

template <class Call>
std::string refusal(Call&& call) {
    try {
        call();
    } catch (const RequestError& error) {
        return error.what();
    }
    ADD_FAILURE() << "no RequestError was thrown";
    return "";
}

std::string refusal_of(const std::string& line) {
    return refusal([&] { DriveRequest::parse(line); });
}

TEST(DriveRequest, HandsOutItsMembers) {
    const auto request = DriveRequest::parse(
        R"({"id":{"a":[1]},"do":"x","tag":-2147483648,"top":2147483647,"rows":[2,0,2],"none":[]})");
    ASSERT_NE(request.id(), nullptr);
    EXPECT_EQ(request.id()->dump(), R"({"a":[1]})");
    EXPECT_EQ(request.text("do"), "x");
    EXPECT_EQ(request.integer("tag"), -2147483647 - 1);
    EXPECT_EQ(request.integer("top"), 2147483647);
    EXPECT_EQ(request.rows("rows"), (platform::RowSet{0, 2}));
    EXPECT_TRUE(request.rows("none").empty());
}

TEST(DriveRequest, AnIdIsNotRequired) {
    EXPECT_EQ(DriveRequest::parse("{}").id(), nullptr);
    ASSERT_NE(DriveRequest::parse(R"({"id":null})").id(), nullptr);
    EXPECT_TRUE(DriveRequest::parse(R"({"id":null})").id()->is_null());
}

TEST(DriveRequest, ASettingIsATextAnArrayOfTextsOrNull) {
    const auto request = DriveRequest::parse(R"({"text":"","array":["a",""],"null":null})");
    EXPECT_EQ(request.setting("text"), platform::SettingsValue(std::string()));
    EXPECT_EQ(request.setting("array"), platform::SettingsValue(Texts{"a", ""}));
    EXPECT_EQ(request.setting("null"), std::nullopt);
}

TEST(DriveRequest, OtherJsonThanAnObjectIsRefused) {
    EXPECT_EQ(refusal_of("[]"), "expected a JSON object, found array");
    EXPECT_EQ(refusal_of("1"), "expected a JSON object, found number");
    EXPECT_EQ(refusal_of("null"), "expected a JSON object, found null");
}

TEST(DriveRequest, WhatIsNoJsonIsRefused) {
    for (const char* const line :
         {"", " ", "restore", "{", "{\"do\":}", "{} {}", "{\"a\":\"\xFF\"}", "{\"a\":1e999}"}) {
        EXPECT_TRUE(refusal_of(line).starts_with("expected a JSON object: ")) << line;
    }
}

TEST(DriveRequest, DepthIsBoundedBeforeAnythingIsParsed) {
    const std::string deepest = R"({"id":)" + std::string(15, '[') + std::string(15, ']') + "}";
    EXPECT_NE(DriveRequest::parse(deepest).id(), nullptr);
    const std::string tooDeep = R"({"id":)" + std::string(16, '[') + std::string(16, ']') + "}";
    EXPECT_EQ(refusal_of(tooDeep), "expected a request that nests at most 16 deep");
    EXPECT_EQ(refusal_of(std::string(1000000, '[')), "expected a request that nests at most 16 deep");
}

TEST(DriveRequest, BracketsInATextDoNotNest) {
    const std::string line = R"({"do":"\"[[[[[[[[[[[[[[[[[[[[[\\"})";
    EXPECT_EQ(DriveRequest::parse(line).text("do"), R"("[[[[[[[[[[[[[[[[[[[[[\)");
}

TEST(DriveRequest, AMissingOrWrongMemberIsNamed) {
    const auto request = DriveRequest::parse(
        R"({"one":1,"text":"x","big":2147483648,"low":-2147483649,"huge":18446744073709551615,"half":1.5,
            "rows":[-1],"mixed":[0,"1"],"texts":["a",1],"zero":"a\u0000","object":{},"true":true})");
    EXPECT_EQ(refusal([&] { (void)request.text("none"); }), "\"none\": expected a text");
    EXPECT_EQ(refusal([&] { (void)request.text("one"); }), "\"one\": expected a text");
    for (const char* const name : {"none", "text", "big", "low", "huge", "half", "true"}) {
        EXPECT_EQ(refusal([&] { (void)request.integer(name); }),
                  "\"" + std::string(name) + "\": expected an integer of 32 bits");
    }
    for (const char* const name : {"none", "one", "rows", "mixed"}) {
        EXPECT_EQ(refusal([&] { (void)request.rows(name); }),
                  "\"" + std::string(name) + "\": expected an array of row numbers from 0");
    }
    for (const char* const name : {"none", "one", "texts", "object", "true"}) {
        EXPECT_EQ(refusal([&] { (void)request.setting(name); }),
                  "\"" + std::string(name) + "\": expected a text, an array of texts, or null");
    }
    EXPECT_EQ(refusal([&] { (void)request.setting("zero"); }), "\"zero\": expected a text without U+0000");
}

TEST(DriveRequest, AnOptionalNumberMayBeMissingAndNothingElse) {
    const auto request =
        DriveRequest::parse(R"({"zero":0,"low":-2147483648,"null":null,"text":"1","big":2147483648})");
    EXPECT_EQ(request.optionalInteger("none"), std::nullopt);
    EXPECT_EQ(request.optionalInteger("zero"), 0);
    EXPECT_EQ(request.optionalInteger("low"), -2147483647 - 1);
    for (const char* const name : {"null", "text", "big"}) {
        EXPECT_EQ(refusal([&] { (void)request.optionalInteger(name); }),
                  "\"" + std::string(name) + "\": expected an integer of 32 bits");
    }
}

TEST(DriveRequest, ATypedTextIsBoundedAndHasNoZero) {
    const auto request =
        DriveRequest::parse(R"({"empty":"","plain":"3,7-9","zero":"a\u0000b","one":1,"full":")" +
                            std::string(65536, 'x') + R"(","over":")" + std::string(65537, 'x') + R"("})");
    EXPECT_EQ(request.typed("empty"), "");
    EXPECT_EQ(request.typed("plain"), "3,7-9");
    EXPECT_EQ(request.typed("full").size(), 65536U);
    EXPECT_EQ(refusal([&] { (void)request.typed("over"); }),
              "\"over\": expected a text of at most 65536 bytes");
    EXPECT_EQ(refusal([&] { (void)request.typed("zero"); }), "\"zero\": expected a text without U+0000");
    EXPECT_EQ(refusal([&] { (void)request.typed("one"); }), "\"one\": expected a text");
    EXPECT_EQ(refusal([&] { (void)request.typed("none"); }), "\"none\": expected a text");
}

} // namespace
} // namespace specialpages::cli
