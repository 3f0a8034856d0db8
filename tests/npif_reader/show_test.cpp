// What the reader answers of a job is what `special-pages show` says of the same settings.

#include "cli/SpecialPagesSummary.h"
#include "cli/cli_fixtures.h"
#include "host/HostError.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "host/settings_file.h"
#include "npif_reader/random_jobs.h"
#include "testing/paths.h"
#include "ticket/npif_command.h"
#include "ticket/npif_vocabulary.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace npif::testing {
namespace {

namespace fs = std::filesystem;
using specialpages::cli::testing::Ran;
using specialpages::cli::testing::run;
namespace host = specialpages::host;

const std::string kExamples = paths::source_dir() + "/examples/";

class NpifReaderShow : public ::testing::Test {
  protected:
    /// What a job that is printed with these settings carries; the file itself when the pane refuses them.
    std::string printed(const std::string& settings, const std::vector<std::string>& more) {
        const std::string out = (fs::path(folder_.path()) / "out.json").string();
        std::vector<std::string> arguments{"apply", "--ppd", kExamples + "ppd/production.ppd", "--out", out};
        if (!settings.empty()) {
            arguments.insert(arguments.end(), {"--settings", settings});
        }
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Ran ran = run(arguments);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        return out;
    }
    /// Nothing when `show` refuses the file, and then the reader has to refuse it too.
    static void expect_as_shown(const std::string& file) {
        const Ran shown = run({"show", "--json", file});
        const Reader reader(argument_of(options_of(host::read_settings_file(file))));
        if (shown.exit != 0) {
            EXPECT_EQ(shown.exit, 2);
            EXPECT_FALSE(reader.ok()) << shown.err;
            return;
        }
        EXPECT_TRUE(reader.ok()) << ::testing::PrintToString(sentences_of(reader));
        EXPECT_EQ(as_shown(reader), nlohmann::json::parse(shown.out));
    }
    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
};

TEST_F(NpifReaderShow, SaysTheSameOfEveryExample) {
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(kExamples + "settings")) {
        SCOPED_TRACE(entry.path());
        expect_as_shown(entry.path().string());
        ++files;
    }
    EXPECT_GE(files, 6U);
}

TEST_F(NpifReaderShow, SaysTheSameOfEveryExampleOncePrinted) {
    for (const char* name : {"empty.json", "handbook.json", "mailbox.json", "three-records.json"}) {
        SCOPED_TRACE(name);
        expect_as_shown(printed(kExamples + "settings/" + name, {}));
    }
    expect_as_shown(printed("", {"--job", kExamples + "job.json"}));
}

TEST_F(NpifReaderShow, FindsTheCommandsOfTheExampleJob) {
    const std::string file = printed("", {"--job", kExamples + "job.json"});
    const Reader reader(argument_of(options_of(host::read_settings_file(file))));
    EXPECT_EQ(reader.commands(NPIF_COVER).size(), 2U);
    EXPECT_EQ(reader.commands(NPIF_INSERTION).size(), 3U);
    EXPECT_EQ(reader.commands(NPIF_EXCEPTION).size(), 1U);
    EXPECT_EQ(reader.records().size(), 6U);
    EXPECT_EQ(reader.announced(), 6);
    EXPECT_TRUE(reader.flag(NPIF_TAB));
}

std::string text_of(std::int32_t number, std::string_view written) {
    return written.empty() ? "" : std::to_string(number);
}

/// The command written anew from what the reader made of its fields; the sizes as they were written when
/// empty.
std::string rewritten(const npif_command& command) {
    const std::string text(view(command.text));
    const auto field = [&text](std::size_t number) {
        std::size_t start = 0;
        for (; number > 1; --number) {
            start = text.find(',', start) + 1;
        }
        return text.substr(start, text.find(',', start) - start);
    };
    const std::string type(view(command.paper.type));
    const std::string color(view(command.paper.color));
    const auto size = [&](std::size_t at) {
        return text_of(command.paper.width, field(at)) + "," + text_of(command.paper.length, field(at + 1));
    };
    const bool tray = command.paper.interposer;
    const std::string form = tray ? "0" : "1";
    switch (command.kind) {
    case NPIF_COVER:
        return std::to_string(command.cover.side) + "," + form + "," +
               std::string(specialpages::CoverTypeNPIFComm.at(command.cover.printing)) + "," +
               (tray ? "interposer" : type + "," + color + "," + size(6));
    case NPIF_INSERTION:
        return form + "," + std::to_string(command.insertion.page) + "," +
               std::to_string(command.insertion.sheets) + "," +
               (tray ? "interposer" : color + "," + size(5) + "," + type);
    case NPIF_EXCEPTION:
        return form + ",1,1," + std::to_string(command.exception.first) + "," +
               std::to_string(command.exception.last) + "," +
               std::string(specialpages::SidesNPIFComm.at(command.exception.sides)) + "," +
               (tray ? "interposer" : type + "," + color + "," + size(9));
    }
    return {};
}

RC_GTEST_PROP(NpifReaderRandomJobs, EveryCommandThatThePaneMakesIsReadFieldByField, ()) {
    const RandomJob job = random_job(true);
    const Reader reader(argument_of(options_of(job.settings)));
    RC_ASSERT(sentences_of(reader).empty());
    for (int kind = 0; kind < 3; ++kind) {
        const auto commands = reader.commands(npif_kind(kind));
        const auto& made = job.commands[static_cast<std::size_t>(kind)];
        RC_ASSERT(commands.size() == made.size());
        for (std::size_t i = 0; i < made.size(); ++i) {
            RC_ASSERT(rewritten(commands[i]) == made[i].text);
        }
    }
}

/// Both refuse the job, or both say the same of it. The fields of a command are the reader's business alone.
void expect_same_answer(const PrintSettings& settings) {
    const auto can_be_shown = [](const Reader& reader) {
        const auto problems = reader.problems();
        return std::none_of(problems.begin(), problems.end(), [](const npif_problem& problem) {
            return problem.code == NPIF_PROBLEM_MISSING || problem.code == NPIF_PROBLEM_RECORD ||
                   (problem.code == NPIF_PROBLEM_FORM &&
                    view(problem.key).find("ValueTicket_") != std::string_view::npos);
        });
    };
    const Reader reader(argument_of(options_of(settings)));
    try {
        const auto summary = specialpages::cli::summarise(settings);
        RC_ASSERT(can_be_shown(reader));
        const auto shown = specialpages::cli::summary_json(summary, std::nullopt);
        const auto replace = nlohmann::ordered_json::error_handler_t::replace;
        RC_ASSERT(as_shown(reader).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) ==
                  nlohmann::json::parse(shown.dump(-1, ' ', false, replace)).dump());
    } catch (const host::HostError&) {
        RC_ASSERT(!can_be_shown(reader));
    }
}

RC_GTEST_PROP(NpifReaderRandomJobs, WhateverTheRecordsHoldTheReaderSaysWhatShowSays, ()) {
    expect_same_answer(random_job(*rc::gen::arbitrary<bool>()).settings);
}

RC_GTEST_PROP(NpifReaderRandomJobs, DamagedTicketsAreRefusedWhereShowRefusesThem, ()) {
    RandomJob job = random_job(true);
    const auto entries = job.settings.entries();
    const auto& entry = entries[*rc::gen::inRange<std::size_t>(0, entries.size())];
    if (!std::holds_alternative<std::string>(entry.value)) {
        return;
    }
    if (*rc::gen::arbitrary<bool>()) {
        job.settings.remove(entry.key);
    } else {
        const auto bytes =
            rc::gen::container<std::string>(rc::gen::element('/', '1', '9', ',', 'x', ' ', '-', '\n'));
        put(job.settings, entry.key, *bytes);
    }
    expect_same_answer(job.settings);
}

TEST(NpifReaderRecords, LoseTheirEndBehindTextBeyondAsciiAsInThePane) {
    const auto read = [](const std::string& value) {
        PrintSettings settings;
        put(settings, specialpages::kNPIFCommandTicketCount, "1");
        put(settings, std::string(specialpages::kNPIFCommandTicket) + "_0", value);
        const Reader reader(argument_of(options_of(settings)));
        if (reader.records().empty()) {
            EXPECT_THROW(specialpages::cli::summarise(settings), host::HostError);
            EXPECT_EQ(reader.problems().size(), 1U);
            EXPECT_EQ(reader.problems()[0].code, NPIF_PROBLEM_RECORD);
            return std::string("refused");
        }
        const auto shown =
            specialpages::cli::summary_json(specialpages::cli::summarise(settings), std::nullopt);
        EXPECT_EQ(as_shown(reader), nlohmann::json::parse(shown.dump()));
        return std::string(view(npif_record_text(&reader.records()[0], NPIF_RECORD_LONGMEASURE)));
    };
    EXPECT_EQ(read("2,5,2,0,0,false,2,210.0,297.0,1"), "1");
    EXPECT_EQ(read("2,5,2,0,0,false,2,210.0,297.0,123\xC3\xA4"), "123");
    EXPECT_EQ(read("2,5,2,0,0,\xF0\x9F\x98\x80,2,210.0,297.0,1234"), "12");
    EXPECT_EQ(read("2,5,2,0,0,\xE2\x82\xAC\xE2\x82\xAC,2,210.0,297.0,1"), "refused");
    EXPECT_EQ(read("2,5,2,0,0,\xFF,2,210.0,297.0,1"), "refused") << "ill-formed UTF-8";
    EXPECT_EQ(read("2,5,2,0,0,\xC0\xAF,2,210.0,297.0,1"), "refused") << "overlong";
    EXPECT_EQ(read("2,5,2,0,0,\xED\xA0\x80,2,210.0,297.0,1"), "refused") << "a surrogate";
    EXPECT_EQ(read("2,5,2,0,0,\xF4\x90\x80\x80,2,210.0,297.0,1"), "refused") << "past the last character";
    EXPECT_EQ(read(""), "refused");
    EXPECT_EQ(read("2,5,2\n0,0,false,2,210.0,297.0,1,more"), "1");
}

} // namespace
} // namespace npif::testing
