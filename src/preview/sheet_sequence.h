// The sheets of a job in the order in which they come out: covers, the document's pages with their
// exceptions, and inserts. Values in, values out. Equal sheets that follow one another are one run, so that a
// document of a million pages costs as much as its special pages do.
//
// What the records say is what the printer is told; how pages fall on sheets is this:
// - A sheet has one page, or two when it is printed on both sides. An insert ends the sheet before it, even
//   when that leaves its back blank, and an exception begins and ends with a sheet of its own.
// - A printed front cover takes the document's first page (two for both sides), a printed back cover what is
//   left of its last ones. A cover from the interposer is never printed. A cover's paper holds for its pages,
//   whatever exception names them; inserts after such a page go next to the cover, never outside the covers.
// - A page that two exceptions name is the first one's.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace specialpages::preview {

enum class Sides { one, longEdge, shortEdge };

enum class SheetKind { frontCover, pages, insert, exception, backCover };

/// What is printed on a cover, by a record's "printingoptions".
enum class CoverPrinting { blank, sideOne, sideTwo, bothSides };

/// The document and how the job prints it.
struct Document {
    std::optional<std::int64_t> pages; ///< empty when it is not known; below 0 counts as 0
    Sides sides = Sides::one;
};

struct SheetRun {
    SheetKind kind = SheetKind::pages;
    std::optional<std::size_t> row;                ///< the record that it comes from; none for plain pages
    std::int64_t sheets = 1;                       ///< 0 for an open run, whose length is not known
    std::int64_t firstPage = 0;                    ///< 0 when the sheets hold no page of the document
    std::int64_t lastPage = 0;                     ///< 0 for an open run as well
    Sides sides = Sides::one;                      ///< of pages and exceptions
    CoverPrinting printing = CoverPrinting::blank; ///< of covers
    bool open = false; ///< the rest of a document of unknown length, from firstPage on

    bool operator==(const SheetRun&) const = default;
};

/// The pages on the two sides of one sheet; 0 for a blank side.
struct SheetFaces {
    std::int64_t front = 0;
    std::int64_t back = 0;

    bool operator==(const SheetFaces&) const = default;
};

/// Why a record shows in no sheet, or in fewer than it asks for.
enum class NoteReason {
    pastEnd,       ///< it begins behind the document's last page
    partlyPastEnd, ///< an exception ends behind it; one up to the pane's last page does not count
    noSheets,      ///< an insert of no sheet
    onCover,       ///< all pages of an exception are on covers
    named,         ///< all its pages are another exception's, or there is such a cover already
    noPages,       ///< its pages cannot be read as such
};

struct SheetNote {
    std::size_t row = 0;
    NoteReason reason = NoteReason::pastEnd;

    bool operator==(const SheetNote&) const = default;
};

struct SheetSequence {
    std::vector<SheetRun> runs;
    std::vector<SheetNote> notes; ///< by row

    bool operator==(const SheetSequence&) const = default;
};

/// The last page that the pane's exceptions can name: one that ends there means all that follow, as far as
/// the document is not longer.
inline constexpr std::int64_t kLastPanePage = 65000;

/// `records` in any order, as hand-made ones may be; a row is an index into them. One without a type is
/// nothing. Of a document of unknown
/// length, pages are laid out as far as the records name them, and an open run follows.
SheetSequence sheet_sequence(const RecordList& records, const Document& document);

/// The two sides of the sheet at that 0-based place in its run. Blank past its end. Of an open run every
/// place has pages.
SheetFaces sheet_faces(const SheetRun& run, std::int64_t place);

/// All sheets together; empty when the length of the document is not known.
std::optional<std::int64_t> sheet_count(const SheetSequence& sequence);

/// The runs that come from these records, and the records from which these runs come.
std::set<std::size_t> runs_of_rows(const SheetSequence& sequence, const std::set<std::size_t>& rows);
std::set<std::size_t> rows_of_runs(const SheetSequence& sequence, const std::set<std::size_t>& runs);

} // namespace specialpages::preview
