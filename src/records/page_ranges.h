// Many pages as few ranges. A page list that names 65,000 pages by "1-" stays one range here, so that nothing
// that is done with pages costs more than the text that names them. Pages are read as they stand: the ranges
// of an insert list are in the order of its text with every repeat; those of a set are ascending, apart from
// one another and never touch.
#pragma once

#include "records/record_order.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace specialpages {

/// Each range has its first page at or below its last.
using PageRanges = std::vector<PageRange>;

/// How many pages the ranges name, repeats counted each time.
std::int64_t page_count(const PageRanges& ranges);

/// The page at that 0-based place of the pages read one after another; empty past the end.
std::optional<std::int32_t> page_at(const PageRanges& ranges, std::int64_t place);

/// Every page as decimal text, in reading order: as many texts as page_count says, so ask that first.
std::vector<std::string> page_texts(const PageRanges& ranges);

/// The set of the pages: overlapping and touching ranges become one.
PageRanges page_set(PageRanges ranges);

/// The pages of the set `from` that are not in the set `what`.
PageRanges pages_without(const PageRanges& from, const PageRanges& what);

/// "5" for one page, "5-7" for more.
std::string page_range_text(const PageRange& range);

} // namespace specialpages
