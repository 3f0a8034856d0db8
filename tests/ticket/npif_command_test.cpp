#include "records/record_builder.h"
#include "support/slash_decimal.h"
#include "ticket/npif_command.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::cover_back;
using test::cover_front;
using test::exception;
using test::from_interposer;
using test::insert_after;
using test::insert_before_page_one;
using Fields = std::vector<std::string>;

const PaperKeywords kPlainA4{"A4", "White", "Stationary"};
/// An A4 page of 595 by 842 points in the steps in which the job's page is measured.
const JobPaper kJob{10, 21060, 29790};

/// A cover with the text that concerns its size.
NPIFCommand sized(const PaperKeywords& keywords, const std::string& width = "210.0",
                  const std::string& length = "297.0") {
    return cover_command(cover_front().with(RecordKey::width, width).with(RecordKey::length, length),
                         keywords, kJob);
}

Fields fields_of(const NPIFCommand& command) {
    return command_fields(command.text).value_or(Fields{});
}

/// The fields at these 0-based places, as one text.
std::string fields_at(const NPIFCommand& command, std::initializer_list<std::size_t> places) {
    const auto fields = fields_of(command);
    std::string text;
    for (const auto place : places) {
        text += fields.at(place) + ",";
    }
    text.pop_back();
    return text;
}

// Covers

TEST(CoverCommand, TellsSidePrintingTypeColourAndSize) {
    EXPECT_EQ(cover_command(cover_front(), kPlainA4, kJob).text, "0,1,print-none,NORMAL,white,21000,29700");
    EXPECT_EQ(cover_command(cover_back(), kPlainA4, kJob).text, "1,1,print-none,NORMAL,white,21000,29700");
}

TEST(CoverCommand, TellsTheInterposerInPlaceOfThePaper) {
    EXPECT_EQ(cover_command(from_interposer(cover_front()), kPlainA4, kJob).text,
              "0,0,print-none,interposer");
    EXPECT_EQ(
        cover_command(from_interposer(cover_back().with(RecordKey::printingoptions, "2")), kPlainA4, kJob)
            .text,
        "1,0,print-back,interposer");
}

TEST(CoverCommand, HasAWordForEachPrintingOption) {
    const auto printing = [](const char* option) {
        return fields_at(
            cover_command(cover_front().with(RecordKey::printingoptions, option), kPlainA4, kJob), {2});
    };
    EXPECT_EQ(printing("0"), "print-none");
    EXPECT_EQ(printing("1"), "print-front");
    EXPECT_EQ(printing("2"), "print-back");
    EXPECT_EQ(printing("3"), "print-both");
}

TEST(CoverCommand, APrintingOptionOutsideTheTableGivesAnEmptyField) {
    for (const auto* option : {"4", "7", "-1", "2147483647", "-2147483648"}) {
        const auto record = cover_front().with(RecordKey::printingoptions, option);
        EXPECT_EQ(cover_command(record, kPlainA4, kJob).text, "0,1,,NORMAL,white,21000,29700") << option;
        EXPECT_EQ(cover_command(from_interposer(record), kPlainA4, kJob).text, "0,0,,interposer") << option;
    }
}

TEST(CoverCommand, WritesAPageThatIsNeitherFrontNorBackAsItsNumber) {
    EXPECT_EQ(fields_at(cover_command(cover_front().with(RecordKey::page, "2"), kPlainA4, kJob), {0}), "2");
    EXPECT_EQ(fields_at(cover_command(cover_front().with(RecordKey::page, "x"), kPlainA4, kJob), {0}), "0");
}

// Insertions

TEST(InsertionCommand, TellsTheColourFirstAndTheTypeLast) {
    EXPECT_EQ(insertion_command(insert_after(3), kPlainA4, kJob).text, "1,3,1,white,21000,29700,NORMAL");
}

TEST(InsertionCommand, TellsTheInterposerInPlaceOfThePaper) {
    EXPECT_EQ(insertion_command(from_interposer(insert_after(12, 2)), kPlainA4, kJob).text,
              "0,12,2,interposer");
}

TEST(InsertionCommand, AnInsertBeforePageOneStandsAtPageZero) {
    EXPECT_EQ(insertion_command(insert_before_page_one(4), kPlainA4, kJob).text,
              "1,0,4,white,21000,29700,NORMAL");
    EXPECT_EQ(insertion_command(from_interposer(insert_before_page_one(4)), kPlainA4, kJob).text,
              "0,0,4,interposer");
}

TEST(InsertionCommand, DoesNotLookAtTheOption) {
    EXPECT_EQ(insertion_command(insert_after(3).with(RecordKey::insertoption, "1"), kPlainA4, kJob),
              insertion_command(insert_after(3), kPlainA4, kJob));
}

TEST(InsertionCommand, WritesPageAndSheetsAsTheirNumbers) {
    const auto record =
        insert_after(1).with(RecordKey::page, "0012x").with(RecordKey::insertquantity, "many");
    EXPECT_EQ(fields_at(insertion_command(record, kPlainA4, kJob), {1, 2}), "12,0");
    EXPECT_EQ(fields_at(insertion_command(insert_after(65000, 9999), kPlainA4, kJob), {1, 2}), "65000,9999");
}

// Exceptions

TEST(ExceptionCommand, TellsThePagesTheSidesAndThePaper) {
    EXPECT_EQ(exception_command(exception("5-7"), kPlainA4, kJob).text,
              "1,1,1,5,7,two-sided-long-edge,NORMAL,white,21000,29700");
}

TEST(ExceptionCommand, TellsASinglePageTwice) {
    EXPECT_EQ(fields_at(exception_command(exception("9"), kPlainA4, kJob), {3, 4}), "9,9");
}

TEST(ExceptionCommand, TheInterposerFormKeepsTheSides) {
    const auto record = from_interposer(exception("9")).with(RecordKey::twoSidePrint, "1");
    const auto command = exception_command(record, kPlainA4, kJob);
    EXPECT_EQ(command.text, "0,1,1,9,9,one-sided,interposer");
    EXPECT_EQ(fields_of(command).size(), 7U);
    EXPECT_EQ(fields_of(exception_command(exception("9"), kPlainA4, kJob)).size(), 10U);
}

TEST(ExceptionCommand, HasAWordForEachKindOfSides) {
    const auto sides = [](const char* twoSidePrint) {
        return fields_at(
            exception_command(exception("1").with(RecordKey::twoSidePrint, twoSidePrint), kPlainA4, kJob),
            {5});
    };
    EXPECT_EQ(sides("1"), "one-sided");
    EXPECT_EQ(sides("2"), "two-sided-long-edge");
    EXPECT_EQ(sides("3"), "two-sided-short-edge");
}

TEST(ExceptionCommand, SidesOutsideTheTableGiveAnEmptyField) {
    for (const auto* twoSidePrint : {"0", "4", "", "-1", "-2147483648", "2147483647"}) {
        const auto record = exception("5").with(RecordKey::twoSidePrint, twoSidePrint);
        EXPECT_EQ(exception_command(record, kPlainA4, kJob).text, "1,1,1,5,5,,NORMAL,white,21000,29700")
            << twoSidePrint;
        EXPECT_EQ(exception_command(from_interposer(record), kPlainA4, kJob).text, "0,1,1,5,5,,interposer")
            << twoSidePrint;
    }
}

TEST(ExceptionCommand, MalformedPagesAreReadAsFarAsTheyGo) {
    const auto pages = [](const char* page) {
        return fields_at(exception_command(exception(page), kPlainA4, kJob), {3, 4});
    };
    EXPECT_EQ(pages("5-"), "5,0");
    EXPECT_EQ(pages("-7"), "0,7");
    EXPECT_EQ(pages(""), "0,0");
}

// What the three share: the interposer

TEST(NPIFCommand, FromTheInterposerAddsNothingToTheListsAndRaisesItsFlagAlone) {
    const PaperKeywords tab_a5{"A5", "White", "TabbedPaper1"};
    for (const auto& command : {cover_command(from_interposer(cover_front()), tab_a5, kJob),
                                insertion_command(from_interposer(insert_after(3)), tab_a5, kJob),
                                exception_command(from_interposer(exception("3")), tab_a5, kJob)}) {
        EXPECT_TRUE(command.raisesInterposer);
        EXPECT_FALSE(command.raisesTab);
        EXPECT_FALSE(command.raisesA5);
        EXPECT_EQ(command.size, std::nullopt);
        EXPECT_EQ(command.color, std::nullopt);
        EXPECT_EQ(command.type, std::nullopt);
    }
}

TEST(NPIFCommand, OnlyTheWordTrueMeansTheInterposer) {
    for (const auto* text : {"false", "", "TRUE", "1"}) {
        const auto command = cover_command(cover_front().with(RecordKey::interposer, text), kPlainA4, kJob);
        EXPECT_FALSE(command.raisesInterposer) << text;
        EXPECT_EQ(command.text, "0,1,print-none,NORMAL,white,21000,29700") << text;
    }
}

// Paper

TEST(NPIFCommand, AddsItsKeywordsToTheLists) {
    for (const auto& command :
         {cover_command(cover_front(), kPlainA4, kJob), insertion_command(insert_after(3), kPlainA4, kJob),
          exception_command(exception("3"), kPlainA4, kJob)}) {
        EXPECT_EQ(command.size, "A4");
        EXPECT_EQ(command.color, "White");
        EXPECT_EQ(command.type, "Stationary");
        EXPECT_FALSE(command.raisesTab);
        EXPECT_FALSE(command.raisesA5);
        EXPECT_FALSE(command.raisesInterposer);
    }
}

TEST(NPIFCommand, AKeywordWithoutAWordGivesAnEmptyFieldAndItsEntryAllTheSame) {
    const auto command = sized({"Oval", "white", "Velvet"});
    EXPECT_EQ(command.text, "0,1,print-none,,,,");
    EXPECT_EQ(command.size, "Oval");
    EXPECT_EQ(command.color, "white");
    EXPECT_EQ(command.type, "Velvet");
}

TEST(NPIFCommand, AnIndexPastItsOptionGivesEmptyFieldsAndEmptyEntries) {
    const auto command = sized({"", "", ""});
    EXPECT_EQ(command.text, "0,1,print-none,,,,");
    EXPECT_EQ(command.size, "");
    EXPECT_EQ(command.color, "");
    EXPECT_EQ(command.type, "");
}

TEST(NPIFCommand, ASizeAtOrPastTheChoiceCountIsTheJobsOwn) {
    for (const auto* pagesize : {"10", "11", "2147483647"}) {
        const auto command = cover_command(cover_front().with(RecordKey::pagesize, pagesize),
                                           {"A5", "White", "Stationary"}, kJob);
        EXPECT_EQ(command.text, "0,1,print-none,NORMAL,white,21060,29790") << pagesize;
        EXPECT_EQ(command.size, std::nullopt);
        EXPECT_EQ(command.color, "White");
        EXPECT_EQ(command.type, "Stationary");
        EXPECT_FALSE(command.raisesA5);
    }
}

TEST(NPIFCommand, TheLastChoiceIsNotTheJobsOwnSize) {
    const auto command = cover_command(cover_front().with(RecordKey::pagesize, "9"), kPlainA4, kJob);
    EXPECT_EQ(fields_at(command, {5, 6}), "21000,29700");
    EXPECT_EQ(command.size, "A4");
}

TEST(NPIFCommand, ANegativeSizeIndexIsNotTheJobsOwnSize) {
    const auto command =
        cover_command(cover_front().with(RecordKey::pagesize, "-1"), {"", "White", "Stationary"}, kJob);
    EXPECT_EQ(command.text, "0,1,print-none,NORMAL,white,,");
    EXPECT_EQ(command.size, "");
}

TEST(NPIFCommand, WithoutASizeOptionEverySizeIsTheJobsOwn) {
    EXPECT_EQ(fields_at(cover_command(cover_front(), kPlainA4, {0, 1, 2}), {5, 6}), "1,2");
}

TEST(NPIFCommand, InsertionsAndExceptionsTakeTheJobsOwnSizeToo) {
    EXPECT_EQ(insertion_command(insert_after(3).with(RecordKey::pagesize, "10"), kPlainA4, kJob).text,
              "1,3,1,white,21060,29790,NORMAL");
    EXPECT_EQ(exception_command(exception("3").with(RecordKey::pagesize, "10"), kPlainA4, kJob).text,
              "1,1,1,3,3,two-sided-long-edge,NORMAL,white,21060,29790");
}

TEST(NPIFCommand, ACustomSizeIsMeasuredInHundredthsOfAMillimetre) {
    const auto command = sized({"Custom", "White", "Stationary"}, "123.4", "200");
    EXPECT_EQ(command.text, "0,1,print-none,NORMAL,white,12340,20000");
    EXPECT_EQ(command.size, "Custom");
    EXPECT_FALSE(command.raisesA5);
}

TEST(NPIFCommand, InsertionsAndExceptionsTakeACustomSizeToo) {
    const PaperKeywords custom{"Custom", "White", "Stationary"};
    EXPECT_EQ(insertion_command(insert_after(3), custom, kJob).text, "1,3,1,white,21000,29700,NORMAL");
    EXPECT_EQ(exception_command(exception("3").with(RecordKey::width, "100.5"), custom, kJob).text,
              "1,1,1,3,3,two-sided-long-edge,NORMAL,white,10050,29700");
}

TEST(NPIFCommand, ACustomSizeWithATrailingPointStaysUnscaled) {
    EXPECT_EQ(fields_at(sized({"Custom", "White", "Stationary"}, "123.", "12.34"), {5, 6}), "1230,12340");
}

TEST(NPIFCommand, ACustomSizeThatIsNoNumberIsZero) {
    EXPECT_EQ(fields_at(sized({"Custom", "White", "Stationary"}, "", "wide"), {5, 6}), "0,0");
}

TEST(NPIFCommand, ACustomSizeBeyond32BitsStaysAtTheirEnd) {
    EXPECT_EQ(fields_at(sized({"Custom", "White", "Stationary"}, "214748364.7", "-214748364.8"), {5, 6}),
              "2147483647,-2147483648");
    EXPECT_EQ(
        fields_at(sized({"Custom", "White", "Stationary"}, "99999999999999999999", "21474836.4"), {5, 6}),
        "2147483647,2147483640");
}

TEST(NPIFCommand, OnlyTheExactKeywordIsACustomSize) {
    EXPECT_EQ(fields_at(sized({"custom", "White", "Stationary"}), {5, 6}), ",");
    EXPECT_EQ(fields_at(sized({"Custom.A4", "White", "Stationary"}), {5, 6}), ",");
}

TEST(NPIFCommand, ASizeKeywordThatHoldsA5RaisesItsFlag) {
    EXPECT_TRUE(sized({"A5", "White", "Stationary"}).raisesA5);
    const auto outside = sized({"ISOA5Extra", "White", "Stationary"});
    EXPECT_TRUE(outside.raisesA5);
    EXPECT_EQ(outside.text, "0,1,print-none,NORMAL,white,,");
    EXPECT_FALSE(sized({"a5", "White", "Stationary"}).raisesA5);
    EXPECT_FALSE(sized({"A4", "White", "Stationary"}).raisesA5);
}

TEST(NPIFCommand, TabStockRaisesItsFlag) {
    EXPECT_TRUE(sized({"A4", "White", "TabbedPaper1"}).raisesTab);
    EXPECT_TRUE(sized({"A4", "White", "TabbedPaper2"}).raisesTab);
    EXPECT_TRUE(insertion_command(insert_after(3), {"A4", "White", "TabbedPaper1"}, kJob).raisesTab);
    EXPECT_TRUE(exception_command(exception("3"), {"A4", "White", "TabbedPaper1"}, kJob).raisesTab);
}

TEST(NPIFCommand, TheTabTestLooksAtTheWordNotAtTheKeyword) {
    EXPECT_FALSE(sized({"A4", "White", "CoatingPaper1"}).raisesTab);
    EXPECT_FALSE(sized({"A4", "White", "TABLE"}).raisesTab);
    EXPECT_FALSE(sized({"A4", "White", "COATING"}).raisesTab);
}

TEST(NPIFCommand, TheTwoFlagsOfPaperAreRaisedTogether) {
    const auto command = sized({"A5", "White", "TabbedPaper2"});
    EXPECT_TRUE(command.raisesTab);
    EXPECT_TRUE(command.raisesA5);
    EXPECT_FALSE(command.raisesInterposer);
}

TEST(NPIFCommand, SeesFortyBytesOfAKeyword) {
    const std::string forty(40, 'k');
    const auto command = sized({forty + "s", forty + "c", forty + "t"});
    EXPECT_EQ(command.size, forty);
    EXPECT_EQ(command.color, forty);
    EXPECT_EQ(command.type, forty);
    EXPECT_FALSE(sized({std::string(39, 'k') + "A5", "White", "Stationary"}).raisesA5);
    EXPECT_TRUE(sized({std::string(38, 'k') + "A5", "White", "Stationary"}).raisesA5);
}

TEST(NPIFCommand, AnEmptyRecordGivesACommandOfTheRightLength) {
    EXPECT_EQ(cover_command({}, kPlainA4, kJob).text, "0,1,print-none,NORMAL,white,21000,29700");
    EXPECT_EQ(insertion_command({}, kPlainA4, kJob).text, "1,0,0,white,21000,29700,NORMAL");
    EXPECT_EQ(exception_command({}, kPlainA4, kJob).text, "1,1,1,0,0,,NORMAL,white,21000,29700");
}

// Reading a stored command

TEST(CommandFields, ReadsBothStoredForms) {
    const Fields expected{"0", "1", "print-none", "NORMAL", "white", "21000", "29700"};
    EXPECT_EQ(command_fields("0,1,print-none,NORMAL,white,21000,29700"), expected);
    EXPECT_EQ(command_fields(ticket_text("0,1,print-none,NORMAL,white,21000,29700")), expected);
}

TEST(CommandFields, KeepsEmptyFields) {
    EXPECT_EQ(command_fields(",,"), (Fields{"", "", ""}));
    EXPECT_EQ(command_fields(ticket_text("0,1,,NORMAL,,")), (Fields{"0", "1", "", "NORMAL", "", ""}));
    EXPECT_EQ(command_fields(""), Fields{""});
}

TEST(CommandFields, RefusesAMalformedForm) {
    EXPECT_EQ(command_fields("/48/"), std::nullopt);
    EXPECT_EQ(command_fields("/48,1"), std::nullopt);
}

} // namespace
} // namespace specialpages
