#include "cli/job_file.h"
#include "host/HostError.h"

#include <gtest/gtest.h>

#include <string>

namespace specialpages::cli {
namespace {

/// What is wrong with the text, as one sentence; empty when it is a job.
std::string refusal(const std::string& text) {
    try {
        parse_job(text, "job.json");
        return "";
    } catch (const host::HostError& error) {
        EXPECT_EQ(error.code(), host::ErrorCode::input);
        return error.what();
    }
}

TEST(JobFile, ReadsEveryMember) {
    const Job job = parse_job(R"({ "covers": { "option": "front-and-back-different",
              "front": { "print": "side-one", "paper": { "size": "A4", "color": "Blue", "type": "ThickPaper" } },
              "back":  { "print": "blank",    "paper": "interposer" } },
  "inserts": [ { "after": "3,7-9", "sheets": 2,
                 "paper": { "size": "Custom", "width": "210.0", "length": "148.0", "unit": "in" } },
               { "before-page-one": true } ],
  "exceptions": [ { "pages": "5-7", "sides": "two-sided-long-edge", "paper": "no-change" } ] })",
                              "job.json");
    ASSERT_TRUE(job.covers);
    EXPECT_EQ(job.covers->option, 4);
    ASSERT_TRUE(job.covers->front && job.covers->front->paper);
    EXPECT_EQ(job.covers->front->print, 1);
    EXPECT_EQ(job.covers->front->paper->size, "A4");
    EXPECT_EQ(job.covers->front->paper->color, "Blue");
    EXPECT_EQ(job.covers->front->paper->type, "ThickPaper");
    EXPECT_EQ(job.covers->front->paper->place, "covers.front.paper");
    ASSERT_TRUE(job.covers->back && job.covers->back->paper);
    EXPECT_EQ(job.covers->back->print, 0);
    EXPECT_EQ(job.covers->back->paper->kind, JobPaper::Kind::interposer);
    ASSERT_EQ(job.inserts.size(), 2U);
    EXPECT_EQ(job.inserts[0].after, "3,7-9");
    EXPECT_EQ(job.inserts[0].sheets, 2);
    ASSERT_TRUE(job.inserts[0].paper);
    EXPECT_EQ(job.inserts[0].paper->width, "210.0");
    EXPECT_EQ(job.inserts[0].paper->length, "148.0");
    EXPECT_TRUE(job.inserts[0].paper->inches);
    EXPECT_EQ(job.inserts[1].after, std::nullopt);
    EXPECT_EQ(job.inserts[1].place, "inserts[1]");
    ASSERT_EQ(job.exceptions.size(), 1U);
    EXPECT_EQ(job.exceptions[0].pages, "5-7");
    EXPECT_EQ(job.exceptions[0].sides, 2);
    ASSERT_TRUE(job.exceptions[0].paper);
    EXPECT_EQ(job.exceptions[0].paper->kind, JobPaper::Kind::noChange);
}

TEST(JobFile, EveryPartMayBeLeftOut) {
    const Job job = parse_job("{}", "job.json");
    EXPECT_FALSE(job.covers);
    EXPECT_TRUE(job.inserts.empty());
    EXPECT_TRUE(job.exceptions.empty());
    const Job covers = parse_job(R"({"covers":{"option":"front-and-back-same","front":{}}})", "job.json");
    EXPECT_EQ(covers.covers->option, 3);
    EXPECT_FALSE(covers.covers->front->print);
    EXPECT_FALSE(covers.covers->front->paper);
}

TEST(JobFile, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(refusal("[]"), "job.json: expected an object");
    EXPECT_EQ(refusal(R"({"cover":{}})"), "job.json, cover: unknown; expected covers, inserts, exceptions");
    EXPECT_EQ(refusal(R"({"covers":{}})"),
              "job.json, covers.option: missing; expected one of none, front, back, front-and-back-same, "
              "front-and-back-different");
    EXPECT_EQ(refusal(R"({"covers":{"option":"Front"}})"),
              "job.json, covers.option: expected one of none, front, back, front-and-back-same, "
              "front-and-back-different, found \"Front\"");
    EXPECT_EQ(refusal(R"({"covers":{"option":1}})"), "job.json, covers.option: expected a text");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","back":{}}})"),
              "job.json, covers.back: the option has no such cover of its own");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front-and-back-same","back":{}}})"),
              "job.json, covers.back: the option has no such cover of its own");
    EXPECT_EQ(refusal(R"({"covers":{"option":"none","front":{}}})"),
              "job.json, covers.front: the option has no such cover of its own");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":[]}})"),
              "job.json, covers.front: expected an object");
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","front":{"paper":"blue"}}})"),
              "job.json, covers.front.paper: expected \"interposer\", \"no-change\" or an object");
    EXPECT_EQ(
        refusal(R"({"covers":{"option":"front","front":{"paper":{"weight":"80"}}}})"),
        "job.json, covers.front.paper.weight: unknown; expected size, color, type, width, length, unit");
    EXPECT_EQ(refusal(R"({"inserts":{}})"), "job.json, inserts: expected an array");
    EXPECT_EQ(refusal(R"({"inserts":[{"after":"3"},4]})"), "job.json, inserts[1]: expected an object");
    EXPECT_EQ(refusal(R"({"inserts":[{}]})"),
              "job.json, inserts[0]: expected either \"after\" or \"before-page-one\": true");
    EXPECT_EQ(refusal(R"({"inserts":[{"after":"3","before-page-one":true}]})"),
              "job.json, inserts[0]: expected either \"after\" or \"before-page-one\": true");
    EXPECT_EQ(refusal(R"({"inserts":[{"before-page-one":1}]})"),
              "job.json, inserts[0].before-page-one: expected true or false");
    EXPECT_EQ(refusal(R"({"inserts":[{"after":"3","sheets":"2"}]})"),
              "job.json, inserts[0].sheets: expected a whole number");
    for (const char* number : {"-1", "1.5", "2147483648", "1e3"}) {
        EXPECT_EQ(refusal(std::string(R"({"inserts":[{"after":"3","sheets":)") + number + "}]}"),
                  "job.json, inserts[0].sheets: expected a whole number")
            << number;
    }
    EXPECT_EQ(refusal(R"({"exceptions":[{"sides":"one-sided"}]})"),
              "job.json, exceptions[0].pages: missing; expected a text");
    EXPECT_EQ(refusal(R"({"exceptions":[{"pages":"1","sides":"both"}]})"),
              "job.json, exceptions[0].sides: expected one of no-change, one-sided, two-sided-long-edge, "
              "two-sided-short-edge, found \"both\"");
}

TEST(JobFile, MeasuresGoWithTheSizeCustomAndWithEachOther) {
    const auto paper = [](const std::string& members) {
        return refusal(R"({"inserts":[{"after":"1","paper":{)" + members + "}}]}");
    };
    const std::string place = "job.json, inserts[0].paper.";
    EXPECT_EQ(paper(R"("size":"Custom","width":"1","length":"2","unit":"mm")"), "");
    EXPECT_EQ(paper(R"("size":"Custom")"), "");
    EXPECT_EQ(paper(R"("size":"Custom","width":"1")"), place + "length: missing; a width goes with a length");
    EXPECT_EQ(paper(R"("size":"Custom","length":"1")"), place + "width: missing; a width goes with a length");
    EXPECT_EQ(paper(R"("size":"A4","width":"1","length":"2")"),
              place + "width: expected only with the size Custom");
    EXPECT_EQ(paper(R"("size":"Custom","unit":"mm")"), place + "unit: expected only with a width and length");
    EXPECT_EQ(paper(R"("size":"Custom","width":"1","length":"2","unit":"cm")"),
              place + "unit: expected one of mm, in, found \"cm\"");
}

TEST(JobFile, AMemberThatIsGivenTwiceIsNotHalfTaken) {
    EXPECT_EQ(refusal(R"({"covers":{"option":"front","option":"back"}})"),
              "job.json: \"option\" is given twice");
    EXPECT_EQ(refusal(R"({"inserts":[{"after":"1"},{"after":"2"}]})"), "")
        << "in another object it is another";
}

TEST(JobFile, HostileTextsAreRefused) {
    EXPECT_NE(refusal("").find("job.json: expected JSON: "), std::string::npos);
    EXPECT_NE(refusal("{\"covers\":").find("job.json: expected JSON: "), std::string::npos);
    EXPECT_NE(refusal("{\"covers\":\"\xFF\"}").find("job.json: expected JSON: "), std::string::npos);
    EXPECT_EQ(refusal(std::string(100'000, '[')), "job.json: expected a job that nests at most 16 deep");
    std::string objects;
    for (int i = 0; i < 100'000; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_EQ(refusal(objects), "job.json: expected a job that nests at most 16 deep");
    EXPECT_EQ(refusal(R"({"exceptions":[{"pages":"1\u0000"}]})"),
              "job.json, exceptions[0].pages: expected a text");
}

} // namespace
} // namespace specialpages::cli
