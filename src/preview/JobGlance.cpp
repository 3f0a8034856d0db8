#include "preview/JobGlance.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/numbers.h"
#include "platform/print/PrintSettings.h"
#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "preview/sheet_words.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"

#include <utility>

namespace specialpages::preview {

namespace {

using platform::Bundle;
using platform::PrintSettings;

const std::string* text_under(const PrintSettings& settings, std::string_view key) {
    const platform::SettingsValue* const value = settings.value(key);
    return value == nullptr ? nullptr : std::get_if<std::string>(value);
}

RecordList records_of(const PrintSettings& settings) {
    RecordList records;
    const std::string* const count = text_under(settings, kNPIFCommandTicketCount);
    const std::int32_t announced = count == nullptr ? 0 : platform::int_value(*count);
    for (std::int32_t i = 0; i < announced; ++i) {
        const std::string* const text = text_under(settings, record_ticket_key(kNPIFCommandTicket, i));
        RecordReading reading = text == nullptr ? RecordReading{RecordReading::Outcome::too_few_fields, {}}
                                                : decode_record(*text);
        if (reading.outcome == RecordReading::Outcome::too_few_fields) {
            break;
        }
        if (reading.outcome == RecordReading::Outcome::record) {
            records.push_back(std::move(reading.record));
        }
    }
    return records;
}

Sides sides_of_job(ppd_file_t* ppd) {
    const ppd_choice_t* const marked = cups_find_marked_choice(ppd, kPPDDuplex);
    const std::string_view keyword = marked == nullptr ? std::string_view() : field_text(marked->choice);
    return keyword == "DuplexNoTumble" ? Sides::longEdge
           : keyword == "DuplexTumble" ? Sides::shortEdge
                                       : Sides::one;
}

/// The cells of a run, from the sequence alone.
void add_cells(std::vector<SheetCell>& cells, const SheetSequence& sequence, std::size_t index) {
    const SheetRun& run = sequence.runs[index];
    const auto add = [&](std::int64_t first, std::int64_t sheets) {
        SheetCell cell;
        cell.run = index;
        cell.kind = run.kind;
        cell.row = run.row;
        cell.first = first;
        cell.sheets = sheets;
        const SheetFaces begin = sheet_faces(run, first);
        const SheetFaces end = run.open ? SheetFaces{} : sheet_faces(run, first + sheets - 1);
        cell.firstPage = begin.front;
        cell.lastPage = end.back == 0 ? end.front : end.back;
        cell.sides = run.sides;
        if (run.printing == CoverPrinting::sideTwo || run.printing == CoverPrinting::bothSides) {
            cell.sides = Sides::longEdge;
        }
        cell.printed = run.firstPage != 0 || run.printing != CoverPrinting::blank;
        cells.push_back(std::move(cell));
    };
    if (run.open) {
        add(0, 0);
    } else if (run.kind == SheetKind::insert || run.sheets == 1) {
        add(0, run.sheets);
    } else if (run.sheets <= kMostSheetsOfRun) {
        for (std::int64_t place = 0; place < run.sheets; ++place) {
            add(place, 1);
        }
    } else {
        add(0, 1);
        add(1, 1);
        add(2, run.sheets - 3);
        add(run.sheets - 1, 1);
    }
}

std::string caption_of(const SheetCell& cell, const SheetPaper& job, const Bundle& bundle) {
    if (cell.kind == SheetKind::frontCover || cell.kind == SheetKind::backCover) {
        return preview_text(bundle, cell.kind == SheetKind::frontCover ? "Front Caption" : "Back Caption");
    }
    std::string caption;
    if (cell.sheets > 1) {
        caption = preview_text(bundle, "Pile Caption");
        if (const std::size_t place = caption.find("%@"); place != std::string::npos) {
            caption.replace(place, 2, platform::decimal_text(cell.sheets));
        }
    }
    if (!cell.paper.size.empty() && cell.paper.size != job.size) {
        caption += (caption.empty() ? "" : " ") + cell.paper.size;
    }
    return caption;
}

} // namespace

JobGlance glance_of_records(const RecordList& records, ppd_file_t* ppd, std::optional<std::int64_t> pages,
                            const Bundle& bundle) {
    const Document document{pages, sides_of_job(ppd)};
    JobGlance glance;
    glance.document = document;
    glance.sequence = sheet_sequence(records, document);
    glance.paper = paper_of_job(ppd, bundle);
    for (std::size_t run = 0; run < glance.sequence.runs.size(); ++run) {
        const auto& row = glance.sequence.runs[run].row;
        const SheetPaper paper = row ? paper_of_record(records[*row], ppd, bundle) : glance.paper;
        const std::size_t before = glance.cells.size();
        add_cells(glance.cells, glance.sequence, run);
        for (std::size_t i = before; i < glance.cells.size(); ++i) {
            SheetCell& cell = glance.cells[i];
            cell.paper = paper;
            cell.caption = caption_of(cell, glance.paper, bundle);
            const std::int64_t page = row ? records[*row].integer(RecordKey::page) : 0;
            cell.sentence =
                sheet_sentence(glance.sequence.runs[run], cell.first, cell.sheets, paper, page, bundle);
        }
    }
    glance.summary = sequence_sentence(glance.sequence, document, bundle);
    glance.setup = setup_sentence(glance.paper, document.sides, bundle);
    for (const SheetNote& note : glance.sequence.notes) {
        glance.notes.push_back(note_sentence(note, records[note.row], document, bundle));
    }
    glance.legend = {preview_text(bundle, "Legend Cover"), preview_text(bundle, "Legend Insert"),
                     preview_text(bundle, "Legend Exception"), preview_text(bundle, "Legend Two Sided"),
                     preview_text(bundle, "Legend Pile")};
    glance.name = preview_text(bundle, "Strip Name");
    return glance;
}

JobGlance job_glance(const PrintSettings& settings, ppd_file_t* ppd, std::optional<std::int64_t> pages,
                     const Bundle& bundle) {
    return glance_of_records(records_of(settings), ppd, pages, bundle);
}

JobGlance glance_of_rows(std::span<const std::string> rows, ppd_file_t* ppd,
                         std::optional<std::int64_t> pages, const Bundle& bundle) {
    RecordList records;
    for (const std::string& row : rows) {
        records.push_back(decode_record(row).record);
    }
    return glance_of_records(records, ppd, pages, bundle);
}

std::string sentence_of_row(std::string_view row, ppd_file_t* ppd, const Bundle& bundle) {
    const SpecialPageRecord record = decode_record(row).record;
    return record_sentence(record, paper_of_record(record, ppd, bundle), sides_of_job(ppd), bundle);
}

std::set<std::size_t> cells_of_rows(const JobGlance& glance, const std::set<std::size_t>& rows) {
    std::set<std::size_t> cells;
    for (std::size_t i = 0; i < glance.cells.size(); ++i) {
        const std::optional<std::size_t>& row = glance.cells[i].row;
        if (row && rows.contains(*row)) {
            cells.insert(i);
        }
    }
    return cells;
}

std::set<std::size_t> rows_of_cells(const JobGlance& glance, const std::set<std::size_t>& cells) {
    std::set<std::size_t> rows;
    for (const std::size_t cell : cells) {
        const std::optional<std::size_t> row =
            cell < glance.cells.size() ? glance.cells[cell].row : std::nullopt;
        if (row) {
            rows.insert(*row);
        }
    }
    return rows;
}

} // namespace specialpages::preview
