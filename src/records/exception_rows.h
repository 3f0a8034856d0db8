// The pages that have settings of their own, page by page: what the exceptions dialog works on between the
// records that it was opened with and the records that its OK forms. A row stands for all pages of a range,
// so that 65,000 pages with the same settings cost as much as one. Values in, values out.
#pragma once

#include "records/page_ranges.h"
#include "records/record_paper.h"

#include <cstdint>
#include <vector>

namespace specialpages {

/// In place of a two-side value: the page's sides stay as they are.
inline constexpr std::int32_t kSidesNoChange = 0;

struct ExceptionSettings {
    RecordPaper paper;
    std::int32_t twoSidePrint = 1; ///< 1 one-sided, 2 and 3 two-sided; from a dialog also 0 no change

    bool operator==(const ExceptionSettings&) const = default;
};

struct ExceptionRow {
    PageRange pages;
    ExceptionSettings settings;

    bool operator==(const ExceptionRow&) const = default;
};
/// Ascending, no page in two rows. Neighbours may have equal settings; forming records joins them.
using ExceptionRows = std::vector<ExceptionRow>;

/// The record's settings.
ExceptionSettings settings_of(const SpecialPageRecord& record);

/// A row for each page of each record. Records that overlap, as only hand-made ones do, leave each page to
/// the first record that names it. Pages below 1 and ranges with their first page above their last have no
/// rows.
ExceptionRows rows_of(const RecordList& records);

/// The pages that have a row, as a set.
PageRanges pages_of(const ExceptionRows& rows);

/// What a page gets when a dialog asks for settings and the page has some. Without a choice of paper it keeps
/// its paper, and without a size its size and custom size; a color, type, width, length, unit or two-side
/// value that is undecided stays as it was. The interposer is the dialog's whenever it chooses paper.
ExceptionSettings merged_settings(const ExceptionSettings& old, const ExceptionSettings& asked);

/// What a page gets when it had none: nothing undecided and no "no change", which become the defaults. A
/// default that is itself missing becomes the PPD's first choice, and one-sided.
ExceptionSettings new_settings(const ExceptionSettings& asked, const ExceptionSettings& defaults);

/// The rows with the asked settings at every page of a set: merged where there was a row, new elsewhere.
ExceptionRows with_settings(const ExceptionRows& rows, const PageRanges& pages,
                            const ExceptionSettings& asked, const ExceptionSettings& defaults);

/// The rows without the pages of a set; pages that have no row do not matter.
ExceptionRows without_pages(const ExceptionRows& rows, const PageRanges& pages);

/// One row for each run of neighbouring pages with equal settings. Widths and lengths are equal as texts:
/// "210.0" and "210" stay apart.
ExceptionRows joined(const ExceptionRows& rows);

/// The records of the rows, one for each of `joined`. One whose first page is in the set of `marked` pages is
/// marked as selected, the others are not.
RecordList formed_records(const ExceptionRows& rows, const PageRanges& marked);

} // namespace specialpages
