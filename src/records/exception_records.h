// What the exceptions dialog shows of the selected records, and what its OK makes of the exceptions. Values
// in, values out: the dialog reads its views, asks here, and hands the answer on.
#pragma once

#include "records/exception_rows.h"

#include <cstdint>
#include <string>

namespace specialpages {

struct ShownExceptions {
    std::string pageText; ///< the records' pages as they stand, "3,7-9"
    ExceptionSettings settings;

    bool operator==(const ShownExceptions&) const = default;
};
/// What the dialog opens with to edit these records: what they have in common. Precondition: at least one.
ShownExceptions shown_exceptions(const RecordList& selected);

/// The dialog at OK, after its controls were found valid.
struct ExceptionRequest {
    std::int64_t status = 0; ///< of the list of special pages: 1 adding, 2 editing
    RecordList selected;     ///< all selected records of the list, covers and inserts too
    PageRanges pages;        ///< getPageNumIndex: the typed pages, as a set
    ExceptionSettings asked; ///< the paper menu's and the two-side list's
    bool customSize =
        false; ///< whether the asked size is the PPD's custom one; else its lengths are the default
    ExceptionSettings defaults; ///< of both lists, for pages that had no settings
};

struct ExceptionResult {
    ExceptionRows rows;
    RecordList records; ///< arranged: ascending, each a page or a range
    bool tooMany =
        false; ///< more records than the limit: they are refused, and the dialog keeps its old rows

    bool operator==(const ExceptionResult&) const = default;
};
/// The exceptions after OK. Editing one record gives up those of its pages that are not typed again; editing
/// several gives up none. Adding marks the records that begin where a selected exception began.
ExceptionResult exceptions_after_ok(const ExceptionRows& rows, const ExceptionRequest& request);

} // namespace specialpages
