#include "platform/foundation/atomic_file.h"
#include "platform/foundation/strings_table.h"
#include "platform/print/PrintSettings.h"
#include "preview/JobGlance.h"
#include "preview/glance_fixture.h"
#include "preview/sheet_words.h"
#include "records/record_builder.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::preview {
namespace {

using specialpages::test::cover_back;
using specialpages::test::cover_front;
using specialpages::test::exception;
using specialpages::test::from_interposer;
using specialpages::test::insert_after;
using specialpages::test::insert_before_page_one;
using specialpages::test::with_paper;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class JobGlanceOf : public test::GlanceTest {
  protected:
    JobGlance of(const RecordList& records, std::optional<std::int64_t> pages) {
        return glance_of_records(records, ppd.get(), pages, *bundle);
    }
    std::vector<std::string> sentences(const RecordList& records, std::optional<std::int64_t> pages) {
        std::vector<std::string> all;
        for (const SheetCell& cell : of(records, pages).cells) {
            all.push_back(cell.sentence);
        }
        return all;
    }
    static SpecialPageRecord blue(const SpecialPageRecord& record) {
        return with_paper(record, kA4, kBlue, kPlain);
    }
};

TEST_F(JobGlanceOf, SaysEverySheetInWords) {
    const RecordList records{blue(cover_front()).with(RecordKey::printingoptions, "1"),
                             with_paper(insert_after(3, 2), kA4, kBlue, kPlain),
                             with_paper(exception("5-7"), kA3, kWhite, kThick),
                             from_interposer(insert_after(8, 1)), blue(cover_back())};
    EXPECT_THAT(
        sentences(records, 8),
        ElementsAre("Front cover, page 1 on side 1, A4, Blue, Plain", "Page 2, 1-sided, A4, White, Plain",
                    "Page 3, 1-sided, A4, White, Plain", "Insert after page 3, 2 sheets, A4, Blue, Plain",
                    "Page 4, 1-sided, A4, White, Plain",
                    "Exception, pages 5 and 6, 2-sided, long edge, A3, White, Thick 1",
                    "Exception, page 7, 2-sided, long edge, A3, White, Thick 1",
                    "Page 8, 1-sided, A4, White, Plain", "Insert after page 8, 1 sheet, Interposer (Tray 8)",
                    "Back cover, blank, A4, Blue, Plain"));
}

TEST_F(JobGlanceOf, SaysHowCoversArePrinted) {
    const auto cover = [this](const SpecialPageRecord& record, int option,
                              std::optional<std::int64_t> pages) {
        const JobGlance glance =
            of({blue(record).with(RecordKey::printingoptions, std::to_string(option))}, pages);
        return record.integer(RecordKey::page) == 0 ? glance.cells.front().sentence
                                                    : glance.cells.back().sentence;
    };
    EXPECT_EQ(cover(cover_front(), 2, 9), "Front cover, page 1 on side 2, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_front(), 3, 9), "Front cover, pages 1 and 2, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_front(), 3, 1), "Front cover, page 1 on side 1, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_front(), 1, 0), "Front cover, blank, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_back(), 3, 9), "Back cover, pages 8 and 9, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_back(), 1, std::nullopt), "Back cover, the last page on side 1, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_back(), 2, std::nullopt), "Back cover, the last page on side 2, A4, Blue, Plain");
    EXPECT_EQ(cover(cover_back(), 3, std::nullopt), "Back cover, the last two pages, A4, Blue, Plain");
}

TEST_F(JobGlanceOf, SaysInsertsBeforePageOne) {
    EXPECT_THAT(sentences({with_paper(insert_before_page_one(4), kA5, kWhite, kPlain)}, 0),
                ElementsAre("Insert before page 1, 4 sheets, A5, White, Plain"));
}

TEST_F(JobGlanceOf, FoldsLongRunsIntoAPile) {
    EXPECT_EQ(of({}, 5).cells.size(), 5U);
    EXPECT_THAT(sentences({}, 6),
                ElementsAre("Page 1, 1-sided, A4, White, Plain", "Page 2, 1-sided, A4, White, Plain",
                            "Pages 3 to 5, 3 sheets, 1-sided, A4, White, Plain",
                            "Page 6, 1-sided, A4, White, Plain"));
    const JobGlance glance = of({}, 1'000'000);
    ASSERT_EQ(glance.cells.size(), 4U);
    EXPECT_EQ(glance.cells[2].sheets, 999'997);
    EXPECT_EQ(glance.cells[2].caption, "999997 ×");
    EXPECT_EQ(glance.cells[2].firstPage, 3);
    EXPECT_EQ(glance.cells[2].lastPage, 999'999);
}

TEST_F(JobGlanceOf, FoldsTwoSidedRunsByTheSheet) {
    mark("Duplex", "DuplexTumble");
    const JobGlance glance = of({}, 13);
    EXPECT_EQ(glance.setup, "A4, White, Plain, 2-sided, short edge");
    ASSERT_EQ(glance.cells.size(), 4U);
    EXPECT_EQ(glance.cells[2].sentence, "Pages 5 to 12, 4 sheets, 2-sided, short edge, A4, White, Plain");
    EXPECT_EQ(glance.cells[3].sentence, "Page 13, 2-sided, short edge, A4, White, Plain");
    EXPECT_EQ(glance.cells[0].firstPage, 1);
    EXPECT_EQ(glance.cells[0].lastPage, 2);
}

TEST_F(JobGlanceOf, TheRestOfAnUnknownDocumentIsOneCell) {
    EXPECT_THAT(sentences({blue(insert_after(1))}, std::nullopt),
                ElementsAre("Page 1, 1-sided, A4, White, Plain",
                            "Insert after page 1, 1 sheet, A4, Blue, Plain",
                            "Pages from 2 on, 1-sided, A4, White, Plain"));
    EXPECT_EQ(of({}, std::nullopt).summary, "Number of pages not known");
    EXPECT_EQ(of({}, std::nullopt).cells.back().sheets, 0);
    EXPECT_THAT(sentences({with_paper(exception("1-"), kA4, kBlue, kPlain)}, std::nullopt),
                ElementsAre("Exception, pages from 1 on, 2-sided, long edge, A4, Blue, Plain"));
}

TEST_F(JobGlanceOf, SumsUpPagesAndSheets) {
    EXPECT_EQ(of({blue(insert_after(1, 2))}, 24).summary, "24 pages on 26 sheets");
    EXPECT_EQ(of({}, 1).summary, "1 page on 1 sheet");
    EXPECT_EQ(of({}, 0).summary, "0 pages on 0 sheets");
}

TEST_F(JobGlanceOf, CaptionsSayWhatIsNotSeen) {
    const JobGlance glance =
        of({blue(cover_front()), with_paper(insert_after(1, 3), kA5, kBlue, kPlain), blue(insert_after(1)),
            with_paper(exception("2"), kA3, kWhite, kPlain), blue(cover_back())},
           2);
    std::vector<std::string> captions;
    for (const SheetCell& cell : glance.cells) {
        captions.push_back(cell.caption);
    }
    EXPECT_THAT(captions, ElementsAre("Front", "", "3 × A5", "", "A3", "Back"));
}

TEST_F(JobGlanceOf, NotesWhatIsLeftOut) {
    const JobGlance glance = of({insert_after(30), exception("20-28"), insert_after(2, 0), exception("40"),
                                 exception("21"), exception("x"), cover_back(), cover_back()},
                                24);
    EXPECT_THAT(
        glance.notes,
        ElementsAre("Insert after page 30: the document has only 24 page(s).",
                    "Exception 20-28: the document has only 24 page(s); the others are left out.",
                    "Insert after page 2: no sheets.", "Exception 40: the document has only 24 page(s).",
                    "Exception 21: declared twice; the first one holds.", "Exception x: no such pages.",
                    "Back cover: declared twice; the first one holds."));
    EXPECT_THAT(of({blue(cover_front()).with(RecordKey::printingoptions, "1"), exception("1")}, 2).notes,
                ElementsAre("Exception 1: these pages are printed on a cover."));
}

TEST_F(JobGlanceOf, SelectionGoesBothWays) {
    const JobGlance glance = of({blue(cover_front()), with_paper(exception("1-3"), kA4, kBlue, kPlain)}, 4);
    ASSERT_EQ(glance.cells.size(), 4U); // front, 1 and 2, 3, 4
    EXPECT_EQ(cells_of_rows(glance, {1}), (std::set<std::size_t>{1, 2}));
    EXPECT_EQ(rows_of_cells(glance, {0, 2, 3, 99}), (std::set<std::size_t>{0, 1}));
    EXPECT_EQ(cells_of_rows(glance, {7}), std::set<std::size_t>{});
}

TEST_F(JobGlanceOf, ReadsTheRecordsOfTheSettings) {
    platform::PrintSettings settings;
    const auto put = [&](const std::string& key, const std::string& text) {
        settings.setValue(key, text, false);
    };
    put(std::string(kNPIFCommandTicketCount), "3");
    put(record_ticket_key(kNPIFCommandTicket, 0), *encode_record(blue(cover_front())));
    put(record_ticket_key(kNPIFCommandTicket, 1), "9,of,no,kind");
    put(record_ticket_key(kNPIFCommandTicket, 2), *encode_record(blue(insert_after(1))));
    const JobGlance glance = job_glance(settings, ppd.get(), 1, *bundle);
    ASSERT_EQ(glance.cells.size(), 3U);
    EXPECT_EQ(glance.cells[2].sentence, "Insert after page 1, 1 sheet, A4, Blue, Plain");
    EXPECT_EQ(glance.cells[2].row, 1U) << "as in the pane, a record of no kind has no row";
}

TEST_F(JobGlanceOf, ReadsRecordsAsFarAsTheyAreWhole) {
    platform::PrintSettings settings;
    settings.setValue(kNPIFCommandTicketCount, "2000000000", false);
    settings.setValue(record_ticket_key(kNPIFCommandTicket, 0), *encode_record(blue(insert_after(1))), false);
    settings.setValue(record_ticket_key(kNPIFCommandTicket, 1), "1,2,3", false);
    settings.setValue(record_ticket_key(kNPIFCommandTicket, 2), *encode_record(blue(insert_after(2))), false);
    EXPECT_EQ(job_glance(settings, ppd.get(), 2, *bundle).cells.size(), 3U);
    EXPECT_THAT(job_glance(platform::PrintSettings(), ppd.get(), 0, *bundle).cells, IsEmpty());
}

TEST_F(JobGlanceOf, ReadsRowsThatKeepTheirNumbers) {
    const std::vector<std::string> rows{*encode_record(blue(cover_front())), "broken", "", "1,2,3",
                                        *encode_record(blue(insert_after(1)))};
    const JobGlance glance = glance_of_rows(rows, ppd.get(), 1, *bundle);
    ASSERT_EQ(glance.cells.size(), 3U);
    EXPECT_EQ(glance.cells[0].row, 0U);
    EXPECT_EQ(glance.cells[2].row, 4U);
    EXPECT_THAT(glance.notes, IsEmpty());
}

TEST_F(JobGlanceOf, SpeaksTheBundlesLanguage) {
    bundle->setPreferredLanguages({"de"});
    EXPECT_EQ(of({blue(insert_after(3, 2))}, 4).cells.at(3).sentence,
              "Einlegeblatt nach Seite 3, 2 Blatt, A4, Blue, Plain");
    bundle->setPreferredLanguages({"ja"});
    EXPECT_EQ(of({blue(insert_after(3, 2))}, 4).cells.at(3).sentence,
              "3ページ目の後の挿入紙、2枚、A4, Blue, Plain");
}

/// The keys of a language's table, each with how many arguments its text takes.
std::map<std::string, std::size_t> arguments_of(const std::string& language) {
    const auto text = platform::read_file(paths::bundle_dir() + "/" + language + ".lproj/Preview.strings");
    const auto table = platform::parse_strings(text.value_or(""));
    std::map<std::string, std::size_t> arguments;
    for (const auto& [key, value] : table.value_or(platform::StringsEntries())) {
        std::size_t& count = arguments[key];
        for (std::size_t at = value.find("%@"); at != std::string::npos; at = value.find("%@", at + 2)) {
            ++count;
        }
    }
    return arguments;
}

TEST(PreviewTexts, EveryLanguageHasTheKeysAndArgumentsOfEnglish) {
    const auto english = arguments_of("en");
    EXPECT_GT(english.size(), 40U);
    for (const char* language : {"de", "fr", "ja"}) {
        EXPECT_EQ(arguments_of(language), english) << language;
    }
}

TEST_F(JobGlanceOf, EveryTextIsThere) {
    const RecordList records{blue(cover_front()), blue(insert_after(1)), exception("2-9"), insert_after(99),
                             insert_after(1, 0)};
    for (const auto pages : {std::optional<std::int64_t>(), std::optional<std::int64_t>(4)}) {
        const JobGlance glance = of(records, pages);
        std::string all = glance.summary + glance.setup + glance.name + glance.legend.cover +
                          glance.legend.insert + glance.legend.exception + glance.legend.twoSided +
                          glance.legend.pile;
        for (const SheetCell& cell : glance.cells) {
            all += cell.sentence + cell.caption;
        }
        for (const std::string& note : glance.notes) {
            all += note;
        }
        EXPECT_EQ(all.find("no translation"), std::string::npos) << all;
        EXPECT_EQ(all.find("not found"), std::string::npos) << all;
        EXPECT_EQ(all.find("%@"), std::string::npos) << all;
    }
}

} // namespace
} // namespace specialpages::preview
