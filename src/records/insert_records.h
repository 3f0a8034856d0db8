// What the inserts dialog shows of the selected records, and what its OK makes of the list of inserts. Values
// in, values out: the dialog reads its views, asks here, and hands the answer on.
#pragma once

#include "records/page_ranges.h"
#include "records/record_paper.h"
#include "records/row_set.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

/// What the controls hold between them; -1 is undecided, as the edited records differ in it.
struct InsertValues {
    std::int32_t option = 0; ///< 0 after the pages, 1 before page one
    std::int32_t quantity = 1;
    RecordPaper paper;

    bool operator==(const InsertValues&) const = default;
};

struct ShownInserts {
    std::string pageText; ///< "3,8": before page one adds nothing but may leave a comma at the end
    InsertValues values;

    bool operator==(const ShownInserts&) const = default;
};
/// What the dialog opens with to edit these records: what they have in common. Records of which some come
/// from the interposer and some not have no paper in common. Precondition: at least one record.
ShownInserts shown_inserts(const RecordList& selected);

/// Whether one of the covers, or of any other records, is a front cover.
bool has_front_cover(const RecordList& records);

/// The dialog at OK, after its controls were found valid.
struct InsertRequest {
    std::int64_t status = 0;   ///< of the list of special pages: 1 adding, 2 editing
    RowSet selected;           ///< the selected inserts, numbered among the inserts alone
    bool optionEnabled = true; ///< false while several records are edited: page and option stay theirs
    bool frontCover = false;   ///< there is a front cover, or it cannot be told
    PageRanges pages;          ///< GetSortedPageArray
    InsertValues values;
    /// Whether that index is the PPD's custom size. Null: none is.
    std::function<bool(std::int32_t)> isCustomSize;
};

/// The inserts after OK, ascending by page; inserts at the same page keep their order. Null for a status that
/// is neither adding nor editing.
///
/// Adding makes one record a page, editing one record into several pages too: its row goes and the new ones
/// come last. Otherwise each selected record is replaced: it keeps its paper where the dialog's is undecided,
/// and takes the dialog's quantity. Its custom size becomes the dialog's, where that is decided, or the
/// default one when its paper has a fixed size. Each record is judged by itself, whatever came before it.
///
/// A page 0 makes an insert before page one; beside a front cover that is dropped in silence when it is new,
/// and an edited record stays as it was. No new record is marked, and none holds an undecided custom size.
std::optional<RecordList> inserts_after_ok(RecordList inserts, const InsertRequest& request);

/// Puts the record into the array: at its end, or with `BReplace` at that index, where a record must be. Page
/// 0 forces the option "before page one", and is refused in silence beside a front cover. -50 for a null
/// array, for a record that lacks one of an insert's twelve keys, and for an index past the end; else 0.
std::int32_t AddObjectToArray(RecordList* array, bool BReplace, std::size_t atIndex, SpecialPageRecord record,
                              bool frontCover);

/// Whether a record stands at that page, compared as integers; the first one's index goes to `atIndex` unless
/// that is null.
bool ISRecordedCurrentPage(const RecordList& records, std::string_view page, std::size_t* atIndex);

} // namespace specialpages
