// A job at a glance: its sheets as a row of cells, each with its paper, its pages and its sentence in words.
// It is read from what a job is: print settings, the printer's PPD with its marked choices, the document's
// page count and the pane's bundle. A value; it keeps nothing of what it was read from.
#pragma once

#include "preview/sheet_paper.h"
#include "preview/sheet_sequence.h"

#include <cups/ppd.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {
class Bundle;
class PrintSettings;
} // namespace specialpages::platform

namespace specialpages::preview {

/// A run of more sheets of pages than this is drawn as its first sheets, a pile, and its last sheet.
inline constexpr std::int64_t kMostSheetsOfRun = 5;

/// One drawn sheet, or a pile of sheets that are alike.
struct SheetCell {
    std::size_t run = 0; ///< in the sequence
    SheetKind kind = SheetKind::pages;
    std::optional<std::size_t> row; ///< the record that it comes from
    std::int64_t first = 0;         ///< place in the run
    std::int64_t sheets = 1;        ///< 0 for the rest of a document of unknown length
    std::int64_t firstPage = 0;     ///< on the first side; 0 when that one is blank
    std::int64_t lastPage = 0;      ///< on the last side; 0 when nothing is printed, or for such a rest
    Sides sides = Sides::one;       ///< whether there are pages on the back: that of two-sided pages too
    bool printed = false;           ///< something of the document is on it
    SheetPaper paper;
    std::string caption;  ///< a word or two under it; may be empty
    std::string sentence; ///< all of it in words

    bool operator==(const SheetCell&) const = default;
};

/// The words of the picture's legend.
struct LegendWords {
    std::string cover;
    std::string insert;
    std::string exception;
    std::string twoSided;
    std::string pile;
};

struct JobGlance {
    Document document;
    SheetSequence sequence;
    SheetPaper paper; ///< of the job
    std::vector<SheetCell> cells;
    std::string summary;            ///< "24 pages on 26 sheets"
    std::string setup;              ///< the job's paper and sides
    std::vector<std::string> notes; ///< a sentence each
    LegendWords legend;
    std::string name; ///< what the strip is called
};

/// `pages` is the document's page count; empty when it is not known. Records end where they cannot be read,
/// as in the pane. Precondition: an open PPD.
JobGlance job_glance(const platform::PrintSettings& settings, ppd_file_t* ppd,
                     std::optional<std::int64_t> pages, const platform::Bundle& bundle);

/// The same of records in the form of their tickets, one a row. A row that cannot be read keeps its number
/// and shows in no sheet.
JobGlance glance_of_rows(std::span<const std::string> rows, ppd_file_t* ppd,
                         std::optional<std::int64_t> pages, const platform::Bundle& bundle);

/// The sentence of one such row, whatever the document (see record_sentence). Empty for one that cannot be
/// read.
std::string sentence_of_row(std::string_view row, ppd_file_t* ppd, const platform::Bundle& bundle);

/// The same of records at hand. The job's sides are the PPD's marked "Duplex"; without one they are one.
JobGlance glance_of_records(const RecordList& records, ppd_file_t* ppd, std::optional<std::int64_t> pages,
                            const platform::Bundle& bundle);

/// The cells that come from these records, and the records behind these cells.
std::set<std::size_t> cells_of_rows(const JobGlance& glance, const std::set<std::size_t>& rows);
std::set<std::size_t> rows_of_cells(const JobGlance& glance, const std::set<std::size_t>& cells);

} // namespace specialpages::preview
