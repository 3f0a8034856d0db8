// What a record by itself is in words, in every language.
#include "preview/JobGlance.h"
#include "preview/glance_fixture.h"
#include "preview/sheet_words.h"
#include "records/record_builder.h"
#include "records/record_ticket.h"
#include "support/temporary_bundle.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages::preview {
namespace {

using specialpages::test::cover;
using specialpages::test::cover_back;
using specialpages::test::cover_front;
using specialpages::test::exception;
using specialpages::test::from_interposer;
using specialpages::test::insert;
using specialpages::test::insert_after;
using specialpages::test::insert_before_page_one;
using specialpages::test::unknown_kind;
using specialpages::test::with_paper;

constexpr int kOfTheJob = 34; // one behind the printer's sizes
constexpr int kA4Cover = 29;

class RecordSentence : public test::GlanceTest {
  protected:
    std::string of(const SpecialPageRecord& record, Sides job = Sides::one) {
        return record_sentence(record, paper_of_record(record, ppd.get(), *bundle), job, *bundle);
    }
    std::string in(const std::string& language, const SpecialPageRecord& record) {
        bundle->setPreferredLanguages({language});
        return of(record);
    }
    static SpecialPageRecord blue(const SpecialPageRecord& record) {
        return with_paper(record, kA4, kBlue, kPlain);
    }
    static SpecialPageRecord printed(const SpecialPageRecord& record, const std::string& option) {
        return blue(record).with(RecordKey::printingoptions, option);
    }
    static SpecialPageRecord sided(const SpecialPageRecord& record, const std::string& sides) {
        return with_paper(record, kA3, kWhite, kPlain).with(RecordKey::twoSidePrint, sides);
    }
};

TEST_F(RecordSentence, OfAFrontCoverSaysWhatIsPrintedOnIt) {
    EXPECT_EQ(of(printed(cover_front(), "0")), "Front cover, blank, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_front(), "1")), "Front cover, page 1 on side 1, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_front(), "2")), "Front cover, page 1 on side 2, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_front(), "3")), "Front cover, pages 1 and 2, A4, Blue, Plain");
}

TEST_F(RecordSentence, OfABackCoverDoesNotNeedTheDocument) {
    EXPECT_EQ(of(printed(cover_back(), "0")), "Back cover, blank, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_back(), "1")), "Back cover, the last page on side 1, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_back(), "2")), "Back cover, the last page on side 2, A4, Blue, Plain");
    EXPECT_EQ(of(printed(cover_back(), "3")), "Back cover, the last two pages, A4, Blue, Plain");
}

TEST_F(RecordSentence, OfAnInsertSaysWhereAndHowMany) {
    EXPECT_EQ(of(blue(insert_after(3, 2))), "Insert after page 3, 2 sheets, A4, Blue, Plain");
    EXPECT_EQ(of(blue(insert_after(3))), "Insert after page 3, 1 sheet, A4, Blue, Plain");
    EXPECT_EQ(of(blue(insert_after(65000, 9999))), "Insert after page 65000, 9999 sheets, A4, Blue, Plain");
    EXPECT_EQ(of(blue(insert_before_page_one())), "Insert before page 1, 1 sheet, A4, Blue, Plain");
    EXPECT_EQ(of(blue(insert_before_page_one(4))), "Insert before page 1, 4 sheets, A4, Blue, Plain");
}

TEST_F(RecordSentence, OfAnInsertAfterAPageBelowOneSaysWhereItGoes) {
    EXPECT_EQ(of(blue(insert("-3", "0", 2))), "Insert before page 1, 2 sheets, A4, Blue, Plain");
}

TEST_F(RecordSentence, OfAnExceptionSaysItsPagesAndSides) {
    EXPECT_EQ(of(sided(exception("5"), "1")), "Exception, page 5, 1-sided, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-5"), "1")), "Exception, page 5, 1-sided, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-6"), "2")),
              "Exception, pages 5 and 6, 2-sided, long edge, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-7"), "3")),
              "Exception, pages 5 to 7, 2-sided, short edge, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-8"), "2")),
              "Exception, pages 5 to 8, 2-sided, long edge, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("-7"), "1")), "Exception, pages 1 to 7, 1-sided, A3, White, Plain");
}

TEST_F(RecordSentence, OfAnExceptionToThePanesLastPageSaysThatItGoesOn) {
    EXPECT_EQ(of(sided(exception("5-65000"), "1")), "Exception, pages from 5 on, 1-sided, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-"), "2")),
              "Exception, pages from 5 on, 2-sided, long edge, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5-64999"), "1")), "Exception, pages 5 to 64999, 1-sided, A3, White, Plain");
}

TEST_F(RecordSentence, OfAnExceptionWithoutSidesHasThoseOfTheJob) {
    const SpecialPageRecord record = sided(exception("5"), "0");
    EXPECT_EQ(of(record, Sides::one), "Exception, page 5, 1-sided, A3, White, Plain");
    EXPECT_EQ(of(record, Sides::shortEdge), "Exception, page 5, 2-sided, short edge, A3, White, Plain");
    EXPECT_EQ(of(sided(exception("5"), "1"), Sides::shortEdge),
              "Exception, page 5, 1-sided, A3, White, Plain");
}

TEST_F(RecordSentence, NamesEveryKindOfPaper) {
    EXPECT_EQ(of(with_paper(insert_after(3), kA4Cover, kWhite, kTab)),
              "Insert after page 3, 1 sheet, A4 Cover, White, Tab Stock 1");
    const SpecialPageRecord ownSize =
        with_paper(insert_after(3), kCustom, kWhite, kPlain).with(RecordKey::length, "148.5");
    EXPECT_EQ(of(ownSize), "Insert after page 3, 1 sheet, 210.0 x 148.5 mm, White, Plain");
    EXPECT_EQ(of(ownSize.with(RecordKey::longmeasure, "0")),
              "Insert after page 3, 1 sheet, 8.27 x 5.85 in., White, Plain");
    EXPECT_EQ(of(with_paper(insert_after(3), kA4, kOurColor, kPlain)),
              "Insert after page 3, 1 sheet, A4, Color:Our Color 1, Plain");
    EXPECT_EQ(of(from_interposer(insert_after(3, 2))), "Insert after page 3, 2 sheets, Interposer (Tray 8)");
    EXPECT_EQ(of(from_interposer(printed(cover_front(), "1"))), "Front cover, blank, Interposer (Tray 8)")
        << "sheets from the interposer are never printed";
}

TEST_F(RecordSentence, TheJobsPaperIsTheMarkedOne) {
    const SpecialPageRecord record = with_paper(exception("5-7"), kOfTheJob, kBlue, kPlain);
    EXPECT_EQ(of(record), "Exception, pages 5 to 7, 2-sided, long edge, A4, Blue, Plain");
    mark("PageSize", "A5");
    EXPECT_EQ(of(record), "Exception, pages 5 to 7, 2-sided, long edge, A5, Blue, Plain");
}

TEST_F(RecordSentence, PaperThatThePrinterDoesNotHaveIsLeftOut) {
    EXPECT_EQ(of(with_paper(insert_after(3), kA4, 999, -1)), "Insert after page 3, 1 sheet, A4");
}

TEST_F(RecordSentence, OfARecordThatMakesNoSheetSaysWhy) {
    EXPECT_EQ(of(insert_after(2, 0)), "Insert after page 2: no sheets.");
    EXPECT_EQ(of(insert_after(2, -5)), "Insert after page 2: no sheets.");
    EXPECT_EQ(of(exception("7-5")), "Exception 7-5: no such pages.");
    EXPECT_EQ(of(exception("0")), "Exception 0: no such pages.");
    EXPECT_EQ(of(exception("x")), "Exception x: no such pages.");
    EXPECT_EQ(of(cover("7", "2")), "Front cover: no such pages.");
}

TEST_F(RecordSentence, NothingIsSaidOfARecordOfNoKind) {
    EXPECT_EQ(of(unknown_kind()), "");
    EXPECT_EQ(of(SpecialPageRecord()), "");
}

TEST_F(RecordSentence, ALongListOfPagesIsNotCut) {
    std::string pages = "x";
    for (int page = 1; page <= 500; ++page) {
        pages += " " + std::to_string(page);
    }
    EXPECT_EQ(of(exception(pages)), "Exception " + pages + ": no such pages.");
}

TEST_F(RecordSentence, SpeaksGerman) {
    EXPECT_EQ(in("de", printed(cover_front(), "0")), "Vorderer Umschlag, leer, A4, Blue, Plain");
    EXPECT_EQ(in("de", printed(cover_front(), "1")),
              "Vorderer Umschlag, Vorderseite mit Seite 1, A4, Blue, Plain");
    EXPECT_EQ(in("de", printed(cover_back(), "3")),
              "Hinterer Umschlag, die letzten beiden Seiten, A4, Blue, Plain");
    EXPECT_EQ(in("de", blue(insert_after(3))), "Einlegeblatt nach Seite 3, 1 Blatt, A4, Blue, Plain");
    EXPECT_EQ(in("de", blue(insert_after(3, 2))), "Einlegeblatt nach Seite 3, 2 Blatt, A4, Blue, Plain");
    EXPECT_EQ(in("de", blue(insert_before_page_one())), "Einlegeblatt vor Seite 1, 1 Blatt, A4, Blue, Plain");
    EXPECT_EQ(in("de", sided(exception("5-6"), "1")),
              "Ausnahme, Seiten 5 und 6, einseitig, A3, White, Plain");
    EXPECT_EQ(in("de", sided(exception("5-7"), "2")),
              "Ausnahme, Seiten 5 bis 7, beidseitig, lange Kante, A3, White, Plain");
    EXPECT_EQ(in("de", exception("7-5")), "Ausnahme 7-5: Diese Seiten gibt es nicht.");
}

TEST_F(RecordSentence, SpeaksFrench) {
    EXPECT_EQ(in("fr", printed(cover_front(), "0")), "Couverture avant, vierge, A4, Blue, Plain");
    EXPECT_EQ(in("fr", printed(cover_front(), "2")), "Couverture avant, page 1 au verso, A4, Blue, Plain");
    EXPECT_EQ(in("fr", printed(cover_back(), "1")),
              "Couverture arrière, la dernière page au recto, A4, Blue, Plain");
    EXPECT_EQ(in("fr", blue(insert_after(3))), "Insertion après la page 3, 1 feuille, A4, Blue, Plain");
    EXPECT_EQ(in("fr", blue(insert_after(3, 2))), "Insertion après la page 3, 2 feuilles, A4, Blue, Plain");
    EXPECT_EQ(in("fr", blue(insert_before_page_one())),
              "Insertion avant la page 1, 1 feuille, A4, Blue, Plain");
    EXPECT_EQ(in("fr", sided(exception("5"), "1")), "Exception, page 5, recto, A3, White, Plain");
    EXPECT_EQ(in("fr", sided(exception("5-7"), "3")),
              "Exception, pages 5 à 7, recto verso, bord court, A3, White, Plain");
    EXPECT_EQ(in("fr", insert_after(2, 0)), "Insertion après la page 2\u00A0: aucune feuille.");
}

TEST_F(RecordSentence, SpeaksJapanese) {
    EXPECT_EQ(in("ja", printed(cover_front(), "0")), "おもて表紙、印刷なし、A4, Blue, Plain");
    EXPECT_EQ(in("ja", printed(cover_front(), "3")), "おもて表紙、1ページ目と2ページ目、A4, Blue, Plain");
    EXPECT_EQ(in("ja", printed(cover_back(), "2")), "うら表紙、第2面に最後のページ、A4, Blue, Plain");
    EXPECT_EQ(in("ja", blue(insert_after(3))), "3ページ目の後の挿入紙、1枚、A4, Blue, Plain");
    EXPECT_EQ(in("ja", blue(insert_after(3, 2))), "3ページ目の後の挿入紙、2枚、A4, Blue, Plain");
    EXPECT_EQ(in("ja", blue(insert_before_page_one())), "1ページ目の前の挿入紙、1枚、A4, Blue, Plain");
    EXPECT_EQ(in("ja", sided(exception("5-7"), "2")),
              "例外、5～7ページ目、両面（長辺とじ）、A3, White, Plain");
    EXPECT_EQ(in("ja", exception("7-5")), "例外（7-5）：該当するページがありません。");
}

TEST_F(RecordSentence, SaysATranslationThatHasNoPlaceForANumberAsItIs) {
    const specialpages::test::TemporaryDirectory folder;
    specialpages::test::write_bundle(folder.path(), "org.example.numberless");
    specialpages::test::write_test_file(folder.path() / "en.lproj/Preview.strings",
                                        R"("Insert After Sheet" = "Insert after a page";)"
                                        R"("Sheets" = "sheets"; "Sentence Comma" = " / ";)");
    const auto numberless = platform::Bundle::load(folder.path());
    ASSERT_NE(numberless, nullptr);
    SheetPaper paper;
    paper.text = "A4";
    EXPECT_EQ(record_sentence(insert_after(3, 2), paper, Sides::one, *numberless),
              "Insert after a page / sheets / A4");
}

TEST_F(RecordSentence, IsReadFromTheRowsOfTheTable) {
    const auto row = [&](std::string_view text) {
        return sentence_of_row(text, ppd.get(), *bundle);
    };
    EXPECT_EQ(row(*encode_record(blue(insert_after(3, 2)))),
              "Insert after page 3, 2 sheets, A4, Blue, Plain");
    mark("Duplex", "DuplexTumble");
    EXPECT_EQ(row(*encode_record(sided(exception("5"), "0"))),
              "Exception, page 5, 2-sided, short edge, A3, White, Plain");
    for (const std::string_view broken : {"", "1,2,3", "broken", "9,of,no,kind"}) {
        EXPECT_EQ(row(broken), "") << broken;
    }
}

class SequenceSentence : public test::GlanceTest {};

TEST_F(SequenceSentence, CountsPagesAndSheetsWhereBothAreKnown) {
    SheetSequence sequence;
    sequence.runs.emplace_back().sheets = 1;
    EXPECT_EQ(sequence_sentence(sequence, {1, Sides::one}, *bundle), "1 page on 1 sheet");
    sequence.runs.emplace_back().sheets = 2;
    EXPECT_EQ(sequence_sentence(sequence, {6, Sides::one}, *bundle), "6 pages on 3 sheets");
    const std::string unknown = "Number of pages not known";
    EXPECT_EQ(sequence_sentence(sequence, {std::nullopt, Sides::one}, *bundle), unknown);
    sequence.runs.back().open = true;
    EXPECT_EQ(sequence_sentence(sequence, {6, Sides::one}, *bundle), unknown);
}

} // namespace
} // namespace specialpages::preview
