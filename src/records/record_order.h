// The order of the list of special pages, and the questions by kind that go with it. Values in, values out.
//
// The order: a front cover first, a back cover last; between them inserts and exceptions by page, an
// exception before an insert at the same page; inserts before page one directly after the front cover. A
// dialog replaces all records of its kind at once: without_type, then the merge of that kind.
//
// The merges walk the store once. A record of the store for which no rule holds (one of the kind that is
// merged in, or of an unknown type or option, as a hand-made ticket may hold) is stepped over, and what is
// still to be merged at the end of the store is appended: every input ends, and no record is lost or doubled
// but for covers that are neither front nor back.
#pragma once

#include "records/SpecialPageRecord.h"
#include "records/row_set.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace specialpages {

/// An exception's pages, both included. A single page is first and last.
struct PageRange {
    std::int32_t first = 0;
    std::int32_t last = 0;

    bool operator==(const PageRange&) const = default;
};

/// Whether the record is a cover at "page" 0.
bool is_front_cover(const SpecialPageRecord& record);
/// Whether the record is a cover at "page" 1.
bool is_back_cover(const SpecialPageRecord& record);

/// The store with each front cover ("page" 0) put at its head in turn, and each back cover ("page" 1) at its
/// end. Covers with another page are dropped.
RecordList merge_covers(RecordList store, const RecordList& covers);

/// The store with the inserts put in their places. `sorted` is ascending by page; its own order is kept.
/// Precondition for an ordered result: an ordered store without inserts.
RecordList merge_inserts(RecordList store, const RecordList& sorted);

/// The store with the exceptions put in their places. `arranged` is ascending by first page; its own order is
/// kept. Precondition for an ordered result: an ordered store without exceptions.
RecordList merge_exceptions(RecordList store, const RecordList& arranged);

/// The store without the records of that type.
RecordList without_type(RecordList store, RecordType type);

/// The records without the inserts at page 0, which have no place beside a front cover.
RecordList without_before_page_one(RecordList records);

/// The records of kind 0 (covers), 1 (inserts) or 2 (exceptions), or all for 3, in list order. None for any
/// other kind.
RecordList records_of_type(const RecordList& records, std::int32_t kind);

/// Which records of that type are selected, numbered among the records of that type alone: how a dialog finds
/// the selected records in its own list. Rows past the end are ignored.
RowSet selected_within_type(const RecordList& records, const RowSet& selected, RecordType type);

/// The page on which an exception starts: the integer of the text before "-", or of the whole text.
std::int32_t first_page(const SpecialPageRecord& record);

/// The integers of the texts before and after the first "-"; without one, the integer of the whole text
/// twice.
PageRange page_range(const SpecialPageRecord& record);

/// -1, 0 or 1 as the integer of a's entry is below, equal to or above that of b's.
int pageNumCompareDict(const SpecialPageRecord& a, const SpecialPageRecord& b, RecordKey key);

/// The same for the integers of two texts.
int numCompare(std::string_view a, std::string_view b);

/// The same for the integers of the first texts of two arrays; an empty array counts as 0.
int pageNumCompare(std::span<const std::string> a, std::span<const std::string> b);

} // namespace specialpages
