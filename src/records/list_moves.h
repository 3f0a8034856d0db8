// Moves, marks and deletions inside the list of special pages: values in, values out. The mark is the
// record's entry "selected", "true" or "false", by which a selection outlives the list's rebuilds; a record
// without it is unmarked. A selected row past the end of the list counts as not selected everywhere.
#pragma once

#include "records/SpecialPageRecord.h"
#include "records/row_set.h"

#include <cstddef>
#include <optional>
#include <span>

namespace specialpages {

struct Moved {
    RecordList records;
    /// The rows in which the moved records now stand.
    RowSet selection;

    bool operator==(const Moved&) const = default;
};

/// Whether the records at `row` and `row + 1` may change places: both are inserts, and their option and page
/// are the same texts. Nothing else ever moves, so the page order can't be broken by hand. False past the
/// end.
bool may_swap(std::span<const SpecialPageRecord> records, std::size_t row);

/// Whether something is selected and every selected row may change places with the row above it.
bool may_move_up(std::span<const SpecialPageRecord> records, const RowSet& selected);
/// Whether something is selected and every selected row may change places with the row below it.
bool may_move_down(std::span<const SpecialPageRecord> records, const RowSet& selected);

/// The list with each selected row exchanged with the row above it. Rows are taken in ascending order, so
/// that neighbours move as a block. Precondition: may_move_up. Otherwise a row with none above it stays.
Moved move_up(RecordList records, const RowSet& selected);
/// The list with each selected row exchanged with the row below it, in descending order of the rows.
/// Precondition: may_move_down. Otherwise a row with none below it stays.
Moved move_down(RecordList records, const RowSet& selected);

/// Whether something is selected and all selected records have the same text under "type".
bool may_edit(std::span<const SpecialPageRecord> records, const RowSet& selected);

/// The list without the selected rows. The record that takes a deleted row's place is marked, so that it
/// becomes the next selection; for the last row it is the record above. Other marks stay as they were.
RecordList delete_rows(RecordList records, const RowSet& selected);

/// The list with the selected records marked and all others unmarked. With nothing selected the marks stay.
RecordList mark_rows(RecordList records, const RowSet& selected);

/// The list with every record's mark set to "false", also where there was none.
RecordList unmark_all(RecordList records);

/// The rows whose mark is "true".
RowSet marked_rows(std::span<const SpecialPageRecord> records);

/// The row that a selected cover pulls into the selection, as the covers are edited in one dialog: the last
/// row when the first selected record is a front cover and the last record a back cover; else row 0 when the
/// last selected record is a back cover and the first record a front cover. Null when no rule holds or the
/// row is selected already.
std::optional<std::size_t> cover_to_pull_in(std::span<const SpecialPageRecord> records,
                                            const RowSet& selected);

} // namespace specialpages
