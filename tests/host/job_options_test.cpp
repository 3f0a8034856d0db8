// What a job may carry, and what it may not.
#include "host/host_fixtures.h"
#include "host/job_options.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace specialpages::host {
namespace {

using platform::PrintSettings;
using testing::error_of;

const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

PrintSettings settings_of(const std::vector<std::pair<std::string, platform::SettingsValue>>& entries) {
    PrintSettings settings;
    for (const auto& [key, value] : entries) {
        settings.setValue(key, value, false);
    }
    return settings;
}

HostError setting_error(const std::string& key, const platform::SettingsValue& value) {
    return error_of([&] { options_of_settings(settings_of({{key, value}})); });
}

TEST(JobOptions, TextsStayAndArraysBecomeCommaLists) {
    using List = std::vector<std::string>;
    const auto options = options_of_settings(settings_of(
        {{"b", "/49/44"}, {"a", List{"A4", "A3"}}, {"none", List{}}, {"one", List{"x"}}, {"empty", ""}}));
    EXPECT_EQ(options,
              (JobOptions{{"b", "/49/44"}, {"a", "A4,A3"}, {"none", ""}, {"one", "x"}, {"empty", ""}}));
    EXPECT_TRUE(options_of_settings({}).empty());
}

TEST(JobOptions, ValuesOfWhichThePrintSystemWouldMakeSomethingElseAreRefusedWithTheirKey) {
    for (const char* text : {"true", "false", "True", "FALSE", "tRuE", "{", "{a=b}", "a\rb", "\v", "a\f",
                             "a\tb", "a\nb", "\x1b[0m", "\x7f", "\x01"}) {
        const HostError error = setting_error(kPrefix + "key", std::string(text));
        EXPECT_EQ(error.place(), kPrefix + "key") << text;
        EXPECT_EQ(exit_code(error.code()), 2) << text;
    }
    EXPECT_EQ(setting_error("k", std::vector<std::string>{"true"}).place(), "k") << "an array of one";
    EXPECT_EQ(setting_error("k", std::string("\xC3")).place(), "k") << "no UTF-8";
    EXPECT_STREQ(setting_error("k", std::string("true")).what(),
                 "k: expected another text than \"true\", of which the print system would make a switch");
}

TEST(JobOptions, ValuesThatAFilterWouldReadInAnotherWayAreRefused) {
    const HostError error = setting_error("k", std::string(",{a"));
    EXPECT_EQ(error.place(), "k");
    EXPECT_EQ(error.detail(), "expected a text that a filter reads back as it is; this one would be split");
}

TEST(JobOptions, ValuesThatOnlyLookLikeThoseAreKept) {
    for (const char* text : {"truely", " true", "false,", "a{", " {", "}", "yes", "no", "1", "\"", "'", "\\",
                             "a b", "\xC3\xA9", "$(x)", "--", "=", "true,false"}) {
        EXPECT_EQ(options_of_settings(settings_of({{"k", text}})), (JobOptions{{"k", text}}));
    }
}

TEST(JobOptions, NamesThatAJobDoesNotCarryAreRefused) {
    for (const char* name : {"a b", "a\tb", "a=b", "a,b", "job-x", "JOB-x", "Job-name", "a'b", "a\"b", "a\\b",
                             "{a", "a}", "\xC3\xA9", "a\x7f"}) {
        const HostError error = setting_error(name, std::string("x"));
        EXPECT_EQ(error.place(), name);
        EXPECT_EQ(exit_code(error.code()), 2);
    }
    EXPECT_EQ(options_of_settings(settings_of({{"jobs", "x"}, {"my-job-x", "x"}})).size(), 2U);
}

TEST(JobOptions, NamesOfThePrintSystemsOwnAreRefusedWhereItWouldReadTheValueInItsWay) {
    EXPECT_EQ(setting_error("copies", std::string("x")).place(), "copies") << "a number";
    EXPECT_EQ(setting_error("page-ranges", std::string("x")).place(), "page-ranges");
    EXPECT_EQ(setting_error("fit-to-page", std::string("x")).place(), "fit-to-page") << "a switch";
    EXPECT_EQ(setting_error("document-format", std::string("x")).place(), "document-format")
        << "not of the job";
    EXPECT_EQ(setting_error("printer-info", std::string("x")).place(), "printer-info") << "not of the job";
}

TEST(JobOptions, KeysThatDifferInCaseOnlyAreRefused) {
    const HostError error = error_of([] { options_of_settings(settings_of({{"Key", "1"}, {"kEY", "2"}})); });
    EXPECT_STREQ(
        error.what(),
        "kEY: expected a key that differs from Key in more than case; a print job does not tell them apart");
    EXPECT_EQ(error_of([] { options_of_settings(settings_of({{"AZ", "1"}, {"az", "2"}})); }).place(), "az");
    EXPECT_EQ(options_of_settings(settings_of({{"@", "1"}, {"`", "2"}})).size(), 2U) << "no letters";
}

TEST(JobOptions, ArraysWhoseTextsACommaListDoesNotKeepApartAreRefused) {
    using List = std::vector<std::string>;
    for (const List& list : {List{"a,b"}, List{""}, List{"a", ""}, List{"", "a"}}) {
        EXPECT_EQ(setting_error("k", list).place(), "k");
    }
}

TEST(JobOptions, LengthsAreBoundedAndTheNumbersTold) {
    EXPECT_EQ(options_of_settings(settings_of({{"k", std::string(32767, 'x')}})).size(), 1U);
    EXPECT_STREQ(
        setting_error("k", std::string(32768, 'x')).what(),
        "k: expected at most 32767 bytes, which is what one option of a print job can hold; there are 32768");
    EXPECT_EQ(options_of_settings(settings_of({{std::string(255, 'k'), "x"}})).size(), 1U);
    EXPECT_EQ(setting_error(std::string(256, 'k'), std::string("x")).detail(),
              "expected a name of 1 to 255 bytes");
}

TEST(QueueOptions, AreNamesAndValuesAndTheLastStands) {
    EXPECT_EQ(
        queue_options({"media=A4", "sides=one-sided", "job-sheets=none,none", "Media=A3", "x=", "y=a=b"}),
        (JobOptions{
            {"sides", "one-sided"}, {"job-sheets", "none,none"}, {"Media", "A3"}, {"x", ""}, {"y", "a=b"}}));
    EXPECT_EQ(queue_options({"Collate=True", "media-col={media-type=plain}"}).size(), 2U)
        << "switches and collections are the print system's own";
}

TEST(QueueOptions, OfAnotherFormAreAUsageError) {
    for (const char* text : {"landscape", "=x", "a b=c", "x=a\rb=c", "com.norvalen.nb.rtz.printsettings.X=1",
                             "COM.norvalen.NB.rtz.printsettings.X=1", ""}) {
        EXPECT_EQ(error_of([&] { queue_options({text}); }).code(), ErrorCode::usage) << text;
    }
}

TEST(QueueOptions, ThatHaveTheNameOfASettingAreRefusedInAnyCase) {
    const HostError error = error_of([] {
        job_options(settings_of({{"My.Key", "1"}}), {{"media", "A4"}, {"mY.kEY", "2"}});
    });
    EXPECT_EQ(error.code(), ErrorCode::usage);
    EXPECT_EQ(error.place(), "mY.kEY");
}

TEST(EscapedBytes, DoublesWhatIsEscaped) {
    EXPECT_EQ(escaped_bytes({}), 0U);
    EXPECT_EQ(escaped_bytes({{"a", ""}}), 2U);
    EXPECT_EQ(escaped_bytes({{"a", "b"}, {"cd", "e"}}), 8U) << "a=b cd=e";
    EXPECT_EQ(escaped_bytes({{"a", " \t\n\\'\""}}), 14U);
}

/// `count` of the pane's records and one text of this length.
PrintSettings big_job(int count, std::size_t length) {
    PrintSettings settings;
    settings.setValue(std::string(kPaneRecordKey) + "Count", std::to_string(count), false);
    for (int i = 0; i < count; ++i) {
        settings.setValue(std::string(kPaneRecordKey) + "_" + std::to_string(i), std::string(1000, 'r'),
                          false);
    }
    for (std::size_t part = 0; length > 0; ++part) {
        const std::size_t bytes = std::min<std::size_t>(length, 30000);
        settings.setValue("p" + std::to_string(part), std::string(bytes, 'x'), false);
        length -= bytes;
    }
    return settings;
}

TEST(JobOptions, AJobThatFitsKeepsItsRecords) {
    const CheckedOptions checked = job_options(big_job(3, 1000), {{"media", "A4"}});
    EXPECT_EQ(checked.recordsLeft, 0U);
    EXPECT_EQ(checked.bytesLeft, 0U);
    EXPECT_EQ(checked.options.size(), 6U);
    EXPECT_EQ(checked.options.back(), (JobOption{"media", "A4"}));
    EXPECT_EQ(checked.bytes, escaped_bytes(checked.options));
}

TEST(JobOptions, OneByteDecides) {
    const auto over = [](std::size_t bytes) {
        return job_options(settings_of({{"a", std::string(32000, 'x')},
                                        {"b", std::string(32000, 'x')},
                                        {"c", std::string(32000, 'x')},
                                        {"d", std::string(bytes, 'x')}}),
                           {});
    };
    const std::size_t last = kMaxJobOptionBytes - (std::size_t{3} * (32000 + 2 + 1)) - 2;
    EXPECT_EQ(over(last).bytes, kMaxJobOptionBytes);
    const HostError error = error_of([&] { over(last + 1); });
    EXPECT_EQ(exit_code(error.code()), 3);
    EXPECT_STREQ(error.what(),
                 "the job's options take 126977 bytes, and 126977 without the pane's own records, but a "
                 "print job carries at most 126976: split the document into jobs with fewer special "
                 "pages each");
}

TEST(JobOptions, OneByteDecidesOverTheRecords) {
    const auto with_records = [](std::size_t bytes) {
        PrintSettings settings = settings_of({{"a", std::string(32000, 'x')},
                                              {"b", std::string(32000, 'x')},
                                              {"c", std::string(32000, 'x')},
                                              {"d", std::string(bytes, 'x')}});
        settings.setValue(std::string(kPaneRecordKey) + "_0", "r", false);
        return job_options(settings, {});
    };
    const std::size_t record = kPaneRecordKey.size() + 4; // "_0=r"
    const std::size_t last = kMaxJobOptionBytes - (std::size_t{3} * (32000 + 2 + 1)) - 2 - 1 - record;
    EXPECT_EQ(with_records(last).recordsLeft, 0U);
    EXPECT_EQ(with_records(last).bytes, kMaxJobOptionBytes);
    EXPECT_EQ(with_records(last + 1).recordsLeft, 1U);
    EXPECT_EQ(with_records(last + 1).bytesLeft, record);
}

TEST(JobOptions, AJobThatIsTooBigGoesWithoutItsRecordsFirst) {
    const CheckedOptions checked = job_options(big_job(40, 100000), {{"media", "A4"}});
    EXPECT_EQ(checked.recordsLeft, 41U) << "and their count";
    EXPECT_EQ(checked.bytesLeft + 1 + checked.bytes,
              escaped_bytes(options_of_settings(big_job(40, 100000))) + 9);
    for (const JobOption& option : checked.options) {
        EXPECT_FALSE(option.name.starts_with(kPaneRecordKey)) << option.name;
    }
    EXPECT_EQ(checked.options.size(), 5U) << "four parts of the text and the queue's option";
}

TEST(JobOptions, OnlyRecordsAreLeftOut) {
    PrintSettings settings = big_job(1, 126000);
    const std::string other = std::string(kPaneRecordKey) + "Note";
    settings.setValue(other, "stays", false);
    settings.setValue(std::string(kPaneRecordKey) + "_1x", "stays", false);
    for (const char* const rest : {"", "_", "_x", "_x1", "1"}) {
        settings.setValue(std::string(kPaneRecordKey) + rest, "stays", false);
    }
    const CheckedOptions checked = job_options(settings, {});
    EXPECT_EQ(checked.recordsLeft, 2U);
    EXPECT_EQ(std::count_if(checked.options.begin(), checked.options.end(),
                            [](const JobOption& option) { return option.value == "stays"; }),
              7);
}

TEST(JobOptions, WhatIsTooBigWithoutRecordsIsRefusedWithBothNumbers) {
    const HostError error = error_of([] { job_options(big_job(10, 200000), {}); });
    EXPECT_EQ(exit_code(error.code()), 3);
    EXPECT_NE(error.detail().find("without the pane's own records"), std::string::npos);
    EXPECT_NE(error.detail().find("split the document"), std::string::npos);
}

TEST(JobTitle, IsWhatAJobCanCarry) {
    EXPECT_EQ(job_title("Hand book.pdf"), "Hand book.pdf");
    EXPECT_EQ(job_title(""), "document");
    EXPECT_EQ(job_title("a\rb\nc\x7f"), "a?b?c?");
    EXPECT_EQ(job_title("\xC3\xA9.pdf"), "\xC3\xA9.pdf");
    EXPECT_EQ(job_title("\xC3.pdf\xFF"), "?.pdf?");
    EXPECT_EQ(job_title(std::string(300, 'x')), std::string(255, 'x'));
    EXPECT_EQ(job_title(std::string(254, 'x') + "\xC3\xA9"), std::string(254, 'x')) << "no half characters";
}

/// libcups' own way to write options as one argument, for texts that it does not change.
RC_GTEST_PROP(JobOptions, WhatIsAcceptedIsReadBackByAFilterFromTheEscapedWhole, ()) {
    const auto texts = *rc::gen::container<std::vector<std::string>>(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab ,'\"\\={}/0$`~"))));
    PrintSettings settings;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string key = "k." + std::to_string(i);
        try {
            options_of_settings(settings_of({{key, texts[i]}}));
            settings.setValue(key, texts[i], false);
        } catch (const HostError& error) {
            RC_ASSERT(error.place() == key);
            RC_ASSERT(texts[i].starts_with('{') || texts[i].starts_with(',')); // and nothing else is
        }
    }
    const JobOptions options = options_of_settings(settings);
    std::string whole;
    for (const JobOption& option : options) { // as the server writes it
        whole += (whole.empty() ? "" : " ") + option.name + "=";
        for (const char c : option.value) {
            whole += std::string(" \t\n\\'\"").find(c) == std::string::npos ? "" : "\\";
            whole += c;
        }
    }
    RC_ASSERT(whole.size() == escaped_bytes(options));
    cups_option_t* list = nullptr;
    const int count = cupsParseOptions(whole.c_str(), 0, &list);
    RC_ASSERT(static_cast<std::size_t>(count) == options.size());
    for (const JobOption& option : options) {
        const char* const value = cupsGetOption(option.name.c_str(), count, list);
        RC_ASSERT(value != nullptr);
        RC_ASSERT(value == option.value);
    }
    cupsFreeOptions(count, list);
}

} // namespace
} // namespace specialpages::host
