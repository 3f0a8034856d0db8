// Commands field by field, and every refusal with its place.

#include "npif_reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace npif::testing {
namespace {

using Texts = std::vector<std::string>;

Options job_of(const std::string& kind, const Texts& commands) {
    Options options{{kPrefix + "NPIF" + kind + "CountTicket", std::to_string(commands.size())}};
    for (std::size_t i = 0; i < commands.size(); ++i) {
        options.emplace_back(kPrefix + "NPIF" + kind + "ValueTicket_" + std::to_string(i), commands[i]);
    }
    return options;
}

Reader reader_of(const std::string& kind, const std::string& command) {
    return Reader(argument_of(job_of(kind, {specialpages::ticket_text(command)})));
}

/// The sentence behind the key, empty for a command that is well formed.
std::string refusal_of(const std::string& kind, const std::string& command) {
    const Reader reader = reader_of(kind, command);
    const Texts sentences = sentences_of(reader);
    if (sentences.empty()) {
        return "";
    }
    EXPECT_EQ(sentences.size(), 1U);
    const std::string key = kPrefix + "NPIF" + kind + "ValueTicket_0";
    EXPECT_EQ(view(reader.problems()[0].key), key);
    EXPECT_EQ(sentences[0].substr(0, key.size()), key);
    return sentences[0].substr(key.size());
}

TEST(NpifReaderCommands, NamesAndTypesEveryFieldOfACoverWithPaper) {
    const Reader reader = reader_of("Cover", "1,1,print-back,NORMAL,white,21000,29700");
    ASSERT_TRUE(reader.ok());
    ASSERT_EQ(reader.commands(NPIF_COVER).size(), 1U);
    const npif_command& cover = reader.commands(NPIF_COVER)[0];
    EXPECT_EQ(cover.kind, NPIF_COVER);
    EXPECT_EQ(cover.index, 0U);
    EXPECT_EQ(view(cover.text), "1,1,print-back,NORMAL,white,21000,29700");
    EXPECT_EQ(cover.problem, nullptr);
    EXPECT_EQ(cover.cover.side, NPIF_BACK);
    EXPECT_EQ(cover.cover.printing, NPIF_PRINT_BACK);
    EXPECT_FALSE(cover.paper.interposer);
    EXPECT_EQ(view(cover.paper.type), "NORMAL");
    EXPECT_EQ(view(cover.paper.color), "white");
    EXPECT_EQ(cover.paper.width, 21000);
    EXPECT_EQ(cover.paper.length, 29700);
}

TEST(NpifReaderCommands, NamesAndTypesEveryFieldOfAnInsertionWithPaper) {
    const Reader reader = reader_of("Insertion", "1,3,2,no-color,14800,21000,TABTHICK1");
    ASSERT_TRUE(reader.ok());
    const npif_command& insertion = reader.commands(NPIF_INSERTION)[0];
    EXPECT_EQ(insertion.kind, NPIF_INSERTION);
    EXPECT_EQ(insertion.insertion.page, 3);
    EXPECT_EQ(insertion.insertion.sheets, 2);
    EXPECT_EQ(view(insertion.paper.color), "no-color");
    EXPECT_EQ(insertion.paper.width, 14800);
    EXPECT_EQ(insertion.paper.length, 21000);
    EXPECT_EQ(view(insertion.paper.type), "TABTHICK1");
    EXPECT_FALSE(insertion.paper.interposer);
}

TEST(NpifReaderCommands, NamesAndTypesEveryFieldOfAnExceptionWithPaper) {
    const Reader reader =
        reader_of("Exception", "1,1,1,5,7,two-sided-short-edge,PREPRINTED_S1,custom_1,29700,42000");
    ASSERT_TRUE(reader.ok());
    const npif_command& exception = reader.commands(NPIF_EXCEPTION)[0];
    EXPECT_EQ(exception.kind, NPIF_EXCEPTION);
    EXPECT_EQ(exception.exception.first, 5);
    EXPECT_EQ(exception.exception.last, 7);
    EXPECT_EQ(exception.exception.sides, NPIF_TWO_SIDED_SHORT_EDGE);
    EXPECT_EQ(view(exception.paper.type), "PREPRINTED_S1");
    EXPECT_EQ(view(exception.paper.color), "custom_1");
    EXPECT_EQ(exception.paper.width, 29700);
    EXPECT_EQ(exception.paper.length, 42000);
}

TEST(NpifReaderCommands, KnowsASheetFromTheInterposer) {
    const Reader cover = reader_of("Cover", "0,0,print-both,interposer");
    const npif_command& front = cover.commands(NPIF_COVER)[0];
    EXPECT_EQ(front.cover.side, NPIF_FRONT);
    EXPECT_EQ(front.cover.printing, NPIF_PRINT_BOTH);
    EXPECT_TRUE(front.paper.interposer);
    EXPECT_EQ(front.paper.type.bytes, nullptr);
    EXPECT_EQ(front.paper.width, 0);
    const Reader insertion = reader_of("Insertion", "0,0,12,interposer");
    EXPECT_EQ(insertion.commands(NPIF_INSERTION)[0].insertion.page, 0);
    EXPECT_EQ(insertion.commands(NPIF_INSERTION)[0].insertion.sheets, 12);
    EXPECT_TRUE(insertion.commands(NPIF_INSERTION)[0].paper.interposer);
    const Reader exception = reader_of("Exception", "0,1,1,9,9,one-sided,interposer");
    EXPECT_EQ(exception.commands(NPIF_EXCEPTION)[0].exception.first, 9);
    EXPECT_EQ(exception.commands(NPIF_EXCEPTION)[0].exception.last, 9);
    EXPECT_EQ(exception.commands(NPIF_EXCEPTION)[0].exception.sides, NPIF_ONE_SIDED);
    EXPECT_TRUE(exception.commands(NPIF_EXCEPTION)[0].paper.interposer);
    EXPECT_TRUE(cover.ok() && insertion.ok() && exception.ok());
}

TEST(NpifReaderCommands, TakesEveryPrintingAndSidesWord) {
    const Texts printings{"print-none", "print-front", "print-back", "print-both"};
    for (std::size_t i = 0; i < printings.size(); ++i) {
        const Reader reader = reader_of("Cover", "0,0," + printings[i] + ",interposer");
        ASSERT_TRUE(reader.ok());
        EXPECT_EQ(static_cast<std::size_t>(reader.commands(NPIF_COVER)[0].cover.printing), i);
    }
    const Texts sides{"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const Reader reader = reader_of("Exception", "0,1,1,9,9," + sides[i] + ",interposer");
        ASSERT_TRUE(reader.ok());
        EXPECT_EQ(static_cast<std::size_t>(reader.commands(NPIF_EXCEPTION)[0].exception.sides), i);
    }
}

TEST(NpifReaderCommands, TakesPaperThatThePaneHasNoWordFor) {
    const Reader reader = reader_of("Cover", "0,1,print-none,,,,");
    ASSERT_TRUE(reader.ok());
    const npif_paper& paper = reader.commands(NPIF_COVER)[0].paper;
    EXPECT_FALSE(paper.interposer);
    EXPECT_EQ(optional_view(paper.type), "");
    EXPECT_EQ(optional_view(paper.color), "");
    EXPECT_EQ(paper.width, 0);
    EXPECT_EQ(paper.length, 0);
    EXPECT_EQ(refusal_of("Insertion", "1,3,1,,,,"), "");
    EXPECT_EQ(refusal_of("Exception", "1,1,1,5,7,one-sided,,,,"), "");
    EXPECT_EQ(refusal_of("Exception", "1,1,1,5,7,one-sided,,,0,0"), "");
}

TEST(NpifReaderCommands, TakesEveryByteThatAWordMayHave) {
    for (const char* const word : {"AZ", "az", "09", "_", "-"}) {
        EXPECT_EQ(refusal_of("Cover", "0,1,print-none," + std::string(word) + ",white,21000,29700"), "")
            << word;
    }
    for (const char neighbor : std::string("@[`{/:. ")) { // in the table of characters, or in a text
        EXPECT_NE(refusal_of("Cover", "0,1,print-none,A" + std::string(1, neighbor) + ",white,21000,29700"),
                  "")
            << neighbor;
    }
}

TEST(NpifReaderCommands, TakesAnExceptionOfTheFirstPageAlone) {
    const Reader reader = reader_of("Exception", "1,1,1,1,1,one-sided,,,,");
    ASSERT_TRUE(reader.ok());
    EXPECT_EQ(reader.commands(NPIF_EXCEPTION)[0].exception.first, 1);
    EXPECT_EQ(reader.commands(NPIF_EXCEPTION)[0].exception.last, 1);
}

TEST(NpifReaderCommands, AZeroByteFollowsEveryText) {
    const Reader reader = reader_of("Cover", "1,1,print-back,NORMAL,white,21000,29700");
    ASSERT_TRUE(reader.ok());
    const npif_command& cover = reader.commands(NPIF_COVER)[0];
    for (const npif_text text : {cover.text, cover.paper.type, cover.paper.color}) {
        EXPECT_EQ(std::strlen(text.bytes), text.length) << view(text);
    }
    const Reader records(argument_of({{kPrefix + "NPIFCommandTicketCount", "1"},
                                      {kPrefix + "NPIFCommandTicket_0", "2,5,2,0,0,false,2,210.0,297.0,1"}}));
    ASSERT_EQ(records.records().size(), 1U);
    const npif_text page = npif_record_text(&records.records()[0], NPIF_RECORD_PAGE);
    EXPECT_EQ(std::strlen(page.bytes), page.length);
}

TEST(NpifReaderCommands, RefusesAnotherNumberOfFields) {
    const std::string seven = ": expected 7 fields with paper, or 4 from the interposer, found ";
    EXPECT_EQ(refusal_of("Cover", ""), seven + "\"\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none"), seven + "\"0,1,print-none\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,white,21000"),
              seven + "\"0,1,print-none,NORMAL,white,21000\"");
    EXPECT_EQ(refusal_of("Insertion", "1,3,1,white,21000,29700,NORMAL,"),
              seven + "\"1,3,1,white,21000,29700,NORMAL,\"");
    EXPECT_EQ(refusal_of("Exception", "1,1,1,5,7,one-sided,NORMAL,white,21000,29700,,,,"),
              ": expected 10 fields with paper, or 7 from the interposer, found "
              "\"1,1,1,5,7,one-sided,NORMAL,white,21000,2...\"");
    const Reader reader = reader_of("Cover", "0");
    EXPECT_EQ(reader.problems()[0].code, NPIF_PROBLEM_FIELDS);
    EXPECT_EQ(reader.problems()[0].index, 0U);
    EXPECT_EQ(reader.problems()[0].field, 0U);
    EXPECT_EQ(reader.commands(NPIF_COVER)[0].problem, &reader.problems()[0]);
}

TEST(NpifReaderCommands, RefusesAFormThatDoesNotFitTheFields) {
    EXPECT_EQ(refusal_of("Cover", "0,0,print-none,NORMAL,white,21000,29700"),
              ", field 2, byte 3: expected \"1\", as paper follows, found \"0\"");
    EXPECT_EQ(refusal_of("Insertion", "1,3,1,interposer"),
              ", field 1, byte 1: expected \"0\", as no paper follows, found \"1\"");
}

TEST(NpifReaderCommands, RefusesEachFieldOfACover) {
    EXPECT_EQ(refusal_of("Cover", "2,1,print-none,NORMAL,white,21000,29700"),
              ", field 1, byte 1: expected \"0\" for a front cover or \"1\" for a back cover, found \"2\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,,NORMAL,white,21000,29700"),
              ", field 3, byte 5: expected \"print-none\", \"print-front\", \"print-back\" or "
              "\"print-both\", found \"\"");
    const std::string word = ": expected at most 40 letters, digits, \"_\" and \"-\", found ";
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORM AL,white,21000,29700"),
              ", field 4, byte 16" + word + "\"NORM AL\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,w\x01\xC3\xA4,21000,29700"),
              ", field 5, byte 23" + word + "\"w???\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL," + std::string(40, 'w') + ",21000,29700"), "");
    const std::string whole = std::string(39, 'w') + " "; // as long as what is quoted
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL," + whole + ",21000,29700"),
              ", field 5, byte 23" + word + "\"" + whole + "\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL," + std::string(41, 'w') + ",21000,29700"),
              ", field 5, byte 23" + word + "\"" + std::string(40, 'w') + "...\"");
    const std::string size = ": expected hundredths of a millimetre in digits, found ";
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,white,-1,29700"),
              ", field 6, byte 29" + size + "\"-1\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,white,,29700"),
              ", field 6, byte 29" + size + "\"\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,white,21000,"),
              ", field 7, byte 35" + size + "\"\"");
    EXPECT_EQ(refusal_of("Cover", "0,1,print-none,NORMAL,white,2147483647,2147483648"),
              ", field 7, byte 40" + size + "\"2147483648\"");
    EXPECT_EQ(refusal_of("Cover", "0,0,print-none,tray"),
              ", field 4, byte 16: expected \"interposer\", found \"tray\"");
}

TEST(NpifReaderCommands, RefusesEachFieldOfAnInsertion) {
    EXPECT_EQ(refusal_of("Insertion", "1,x,1,white,21000,29700,NORMAL"),
              ", field 2, byte 3: expected a page in digits, 0 for before page one, found \"x\"");
    EXPECT_EQ(refusal_of("Insertion", "1,3,0,white,21000,29700,NORMAL"),
              ", field 3, byte 5: expected a number of sheets from 1 on, found \"0\"");
    EXPECT_EQ(refusal_of("Insertion", "1,3,1,NORMAL,white,21000,29700"),
              ", field 5, byte 14: expected hundredths of a millimetre in digits, found \"white\"")
        << "the colour comes first here and the type last";
}

TEST(NpifReaderCommands, RefusesEachFieldOfAnException) {
    EXPECT_EQ(refusal_of("Exception", "0,2,1,9,9,one-sided,interposer"),
              ", field 2, byte 3: expected \"1\", found \"2\"");
    EXPECT_EQ(refusal_of("Exception", "0,1,,9,9,one-sided,interposer"),
              ", field 3, byte 5: expected \"1\", found \"\"");
    EXPECT_EQ(refusal_of("Exception", "0,1,1,0,9,one-sided,interposer"),
              ", field 4, byte 7: expected a page from 1 on, found \"0\"");
    EXPECT_EQ(refusal_of("Exception", "0,1,1,9,8,one-sided,interposer"),
              ", field 5, byte 9: expected a page not before the first, found \"8\"");
    EXPECT_EQ(refusal_of("Exception", "0,1,1,9,9,,interposer"),
              ", field 6, byte 11: expected \"one-sided\", \"two-sided-long-edge\" or "
              "\"two-sided-short-edge\", found \"\"");
}

TEST(NpifReaderCommands, LeavesNothingOfARefusedCommandButItsText) {
    const Reader reader = reader_of("Cover", "1,1,print-both,NORMAL,white,21000,x");
    const npif_command& command = reader.commands(NPIF_COVER)[0];
    ASSERT_NE(command.problem, nullptr);
    EXPECT_EQ(command.problem->code, NPIF_PROBLEM_FIELD);
    EXPECT_EQ(command.problem->field, 7U);
    EXPECT_EQ(command.problem->byte, 35U);
    EXPECT_EQ(view(command.text), "1,1,print-both,NORMAL,white,21000,x");
    EXPECT_EQ(command.cover.side, NPIF_FRONT);
    EXPECT_EQ(command.cover.printing, NPIF_PRINT_NONE);
    EXPECT_EQ(command.paper.type.bytes, nullptr);
    EXPECT_EQ(command.paper.width, 0);
}

TEST(NpifReaderCommands, RefusesAMalformedSlashDecimalFormAtItsByte) {
    const auto refused = [](const std::string& stored) {
        const Reader reader(argument_of(job_of("Cover", {stored})));
        EXPECT_EQ(reader.problems()[0].code, NPIF_PROBLEM_FORM);
        EXPECT_EQ(view(reader.commands(NPIF_COVER)[0].text), stored);
        return sentences_of(reader)[0].substr((kPrefix + "NPIFCoverValueTicket_0").size());
    };
    EXPECT_EQ(refused("/48/"), ", byte 5: expected a number after each \"/\"");
    EXPECT_EQ(refused("/"), ", byte 2: expected a number after each \"/\"");
    EXPECT_EQ(refused("//48"), ", byte 2: expected a number after each \"/\"");
    EXPECT_EQ(refused("/48/4x"), ", byte 6: expected digits after each \"/\"");
    EXPECT_EQ(refused("/48/256"), ", byte 5: expected a number of 255 at most");
    EXPECT_EQ(refused("/99999999999999999999"), ", byte 2: expected a number of 255 at most");
}

TEST(NpifReaderCommands, KeepsAZeroByteThatTheFormNames) {
    const Reader reader(argument_of(job_of("Cover", {"/65/0/066"})));
    EXPECT_EQ(view(reader.commands(NPIF_COVER)[0].text), std::string_view("A\0B", 3));
    EXPECT_EQ(sentences_of(reader)[0].substr(sentences_of(reader)[0].rfind(' ')), " \"A?B\"");
}

TEST(NpifReaderCommands, StopsAtTheFirstMissingEntryHoweverManyAreAnnounced) {
    Options options = job_of("Insertion", {"0,1,1,interposer", "0,2,1,interposer", "0,3,1,interposer"});
    options[0].second = "2147483647";
    const Reader huge(argument_of(options));
    EXPECT_EQ(huge.commands(NPIF_INSERTION).size(), 3U);
    EXPECT_EQ(sentences_of(huge), (Texts{kPrefix + "NPIFInsertionValueTicket_3: expected a command, as the "
                                                   "count announces"}));
    EXPECT_EQ(huge.problems()[0].code, NPIF_PROBLEM_MISSING);
    EXPECT_EQ(huge.problems()[0].index, 3U);
    options.erase(options.begin() + 2); // number 1
    const Reader gap(argument_of(options));
    EXPECT_EQ(gap.commands(NPIF_INSERTION).size(), 1U);
    EXPECT_EQ(gap.problems()[0].index, 1U);
}

TEST(NpifReaderCommands, LeavesEntriesPastTheCountUnread) {
    Options options = job_of("Insertion", {"0,1,1,interposer", "damaged"});
    options[0].second = "1";
    const Reader reader(argument_of(options));
    EXPECT_TRUE(reader.ok());
    EXPECT_EQ(reader.commands(NPIF_INSERTION).size(), 1U);
}

TEST(NpifReaderCommands, ReadsACountAsThePaneDoesAndSaysWhenItIsNone) {
    const auto counted = [](const std::string& count, std::size_t problems) {
        Options options = job_of("Cover", {"0,0,print-none,interposer", "1,0,print-none,interposer"});
        options[0].second = count;
        const Reader reader(argument_of(options));
        EXPECT_EQ(reader.problems().size(), problems) << count;
        for (const npif_problem& problem : reader.problems()) {
            EXPECT_EQ(problem.code, NPIF_PROBLEM_COUNT) << count;
            EXPECT_EQ(view(problem.sentence),
                      kPrefix + "NPIFCoverCountTicket: expected a number in digits, found \"" + count + "\"");
        }
        return reader.commands(NPIF_COVER).size();
    };
    EXPECT_EQ(counted("2", 0), 2U);
    EXPECT_EQ(counted("0", 0), 0U);
    EXPECT_EQ(counted("", 0), 0U);
    EXPECT_EQ(counted("two", 1), 0U);
    EXPECT_EQ(counted("-2", 1), 0U);
    EXPECT_EQ(counted(" 2x", 1), 2U);
    EXPECT_EQ(counted("-99999999999", 1), 0U);
}

TEST(NpifReaderCommands, TakesNumbersOfAnotherCaseAndOnlyWholeKeys) {
    const std::string key = "COM.NORVALEN.NB.RTZ.PRINTSETTINGS.NPIFCOVER";
    const Reader reader(
        argument_of({{key + "COUNTTICKET", "1"}, {key + "VALUETICKET_0", "0,0,print-none,interposer"}}));
    EXPECT_EQ(reader.commands(NPIF_COVER).size(), 1U);
    const Reader other(argument_of({{"NPIFCoverCountTicket", "1"}}));
    EXPECT_TRUE(other.ok());
}

TEST(NpifReaderFlags, AreRaisedByOneAloneAndLoweredByZero) {
    const Reader reader(argument_of({{kPrefix + "whetherMediaTypeTabTicket", "1"},
                                     {kPrefix + "whetherInterposerTicket", "0"},
                                     {kPrefix + "whetherMediaSizeA5Ticket", "true"},
                                     {kPrefix + "SpecialPageRecordCountTicket", "12"}}));
    EXPECT_TRUE(reader.flag(NPIF_TAB));
    EXPECT_FALSE(reader.flag(NPIF_INTERPOSER));
    EXPECT_FALSE(reader.flag(NPIF_A5));
    EXPECT_EQ(reader.announced(), 12);
    EXPECT_EQ(sentences_of(reader),
              (Texts{kPrefix + "whetherMediaSizeA5Ticket: expected \"0\" or \"1\", found \"true\""}));
    EXPECT_EQ(reader.problems()[0].code, NPIF_PROBLEM_FLAG);
}

TEST(NpifReaderFlags, AnnouncedIsUnknownWhenNotToldOrNoNumber) {
    EXPECT_EQ(Reader("").announced(), std::nullopt);
    const Reader reader(argument_of({{kPrefix + "SpecialPageRecordCountTicket", "1e3"}}));
    EXPECT_EQ(reader.announced(), std::nullopt);
    EXPECT_EQ(sentences_of(reader), (Texts{kPrefix + "SpecialPageRecordCountTicket: expected a number in "
                                                     "digits, found \"1e3\""}));
}

TEST(NpifReaderPapers, AreEntriesBetweenCommas) {
    const auto papers = [](const std::string& value) {
        const Reader reader(argument_of({{kPrefix + "pageSizeArrayTicket", value}}));
        EXPECT_TRUE(reader.ok()) << value;
        return papers_of(reader, NPIF_SIZES).get<Texts>();
    };
    EXPECT_EQ(papers(""), Texts{});
    EXPECT_EQ(papers("A4"), Texts{"A4"});
    EXPECT_EQ(papers("A4,,A3"), (Texts{"A4", "", "A3"}));
    EXPECT_EQ(papers(","), (Texts{"", ""}));
    EXPECT_EQ(papers("/65,it's"), (Texts{"/65", "it's"})) << "keywords are never in slash-decimal form";
}

TEST(NpifReaderAnswers, AreNeutralForNullAndPastTheLast) {
    EXPECT_TRUE(npif_reader_ok(nullptr));
    EXPECT_EQ(npif_reader_problem(nullptr, 0), nullptr);
    EXPECT_EQ(npif_reader_command(nullptr, NPIF_COVER, 0), nullptr);
    EXPECT_EQ(npif_reader_record(nullptr, 0), nullptr);
    EXPECT_EQ(npif_reader_paper(nullptr, NPIF_SIZES, 0).bytes, nullptr);
    EXPECT_FALSE(npif_reader_flag(nullptr, NPIF_TAB));
    EXPECT_EQ(npif_reader_announced(nullptr), -1);
    EXPECT_EQ(npif_reader_option(nullptr, "a").bytes, nullptr);
    EXPECT_EQ(npif_record_text(nullptr, NPIF_RECORD_PAGE).bytes, nullptr);
    EXPECT_EQ(npif_record_text(nullptr, NPIF_RECORD_PAGE).length, 0U);
    EXPECT_EQ(npif_reader_option(nullptr, "a").length, 0U);
    EXPECT_EQ(npif_record_key_name(NPIF_RECORD_KEY_COUNT), nullptr);
    const Reader reader = reader_of("Cover", "0,0,print-none,interposer");
    EXPECT_EQ(npif_reader_command(reader.get(), NPIF_COVER, 1), nullptr);
    EXPECT_EQ(npif_reader_command_count(reader.get(), static_cast<npif_kind>(3)), 0U);
    EXPECT_EQ(npif_reader_paper_count(reader.get(), static_cast<npif_list>(3)), 0U);
    EXPECT_FALSE(npif_reader_flag(reader.get(), static_cast<npif_flag>(3)));
}

} // namespace
} // namespace npif::testing
