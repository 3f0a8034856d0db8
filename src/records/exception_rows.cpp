#include "records/exception_rows.h"

#include "platform/foundation/numbers.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

namespace specialpages {
namespace {

constexpr std::int32_t kLowestPage = 1;
constexpr std::int32_t kOneSided = 1;

std::int32_t page_number(std::int64_t page) {
    return static_cast<std::int32_t>(page);
}

/// Where a record's pages begin, or have ended.
struct Edge {
    std::int64_t page = 0;
    std::size_t record = 0;
    bool begins = false;
};

std::vector<Edge> edges_of(const RecordList& records) {
    std::vector<Edge> edges;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto range = page_range(records[i]);
        const auto first = std::max(range.first, kLowestPage);
        if (first <= range.last) {
            edges.push_back({first, i, true});
            edges.push_back({std::int64_t{range.last} + 1, i, false});
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.page < b.page; });
    return edges;
}

/// Walks the rows and a set of pages together. `visit` hears of each longest run of pages in which neither
/// begins or ends, ascending: its range, its row or null, and whether the set holds it.
template <class Visit>
void walk(const ExceptionRows& rows, const PageRanges& pages, const Visit& visit) {
    constexpr std::int64_t kPastAll = std::int64_t{1} << 32;
    auto row = rows.begin();
    auto range = pages.begin();
    std::int64_t at = 0;
    while (row != rows.end() || range != pages.end()) {
        const std::int64_t rowFirst = row != rows.end() ? row->pages.first : kPastAll;
        const std::int64_t rangeFirst = range != pages.end() ? range->first : kPastAll;
        at = std::max(at, std::min(rowFirst, rangeFirst));
        const bool inRow = rowFirst <= at;
        const bool inRange = rangeFirst <= at;
        const std::int64_t last =
            std::min(inRow ? row->pages.last : rowFirst - 1, inRange ? range->last : rangeFirst - 1);
        visit(PageRange{page_number(at), page_number(last)}, inRow ? &row->settings : nullptr, inRange);
        at = last + 1;
        row += inRow && row->pages.last == last ? 1 : 0;
        range += inRange && range->last == last ? 1 : 0;
    }
}

std::int32_t first_decided(std::int32_t asked, std::int32_t otherwise) {
    return asked >= 0 ? asked : std::max(otherwise, 0);
}

SpecialPageRecord record_of(const ExceptionRow& row, bool marked) {
    return with_paper_of(
        {{RecordKey::type, platform::decimal_text(static_cast<std::int32_t>(RecordType::exception))},
         {RecordKey::page, page_range_text(row.pages)},
         {RecordKey::twoSidePrint, platform::decimal_text(row.settings.twoSidePrint)},
         {RecordKey::selected, marked ? "true" : "false"}},
        row.settings.paper);
}

} // namespace

ExceptionSettings settings_of(const SpecialPageRecord& record) {
    return {.paper = paper_of(record), .twoSidePrint = record.integer(RecordKey::twoSidePrint)};
}

ExceptionRows rows_of(const RecordList& records) {
    ExceptionRows rows;
    std::set<std::size_t> open; // the records that name the pages from `page` on
    std::int64_t page = 0;
    std::size_t owner = records.size(); // of the last row
    for (const auto& edge : edges_of(records)) {
        if (!open.empty() && page < edge.page) {
            const auto last = page_number(edge.page - 1);
            if (*open.begin() == owner) {
                rows.back().pages.last = last; // a record's pages are in one piece
            } else {
                owner = *open.begin();
                rows.push_back({{page_number(page), last}, settings_of(records[owner])});
            }
        }
        page = edge.page;
        if (edge.begins) {
            open.insert(edge.record);
        } else {
            open.erase(edge.record);
        }
    }
    return rows;
}

PageRanges pages_of(const ExceptionRows& rows) {
    PageRanges pages;
    pages.reserve(rows.size());
    for (const auto& row : rows) {
        pages.push_back(row.pages);
    }
    return page_set(std::move(pages));
}

ExceptionSettings merged_settings(const ExceptionSettings& old, const ExceptionSettings& asked) {
    auto merged = old;
    if (chooses_paper(asked.paper)) {
        if (asked.paper.size != kUndecided) {
            merged.paper.size = asked.paper.size;
            merged.paper.custom = decided(asked.paper.custom, old.paper.custom);
        }
        if (asked.paper.type != kUndecided) {
            merged.paper.type = asked.paper.type;
        }
        if (asked.paper.color != kUndecided) {
            merged.paper.color = asked.paper.color;
        }
        merged.paper.interposer = asked.paper.interposer;
    }
    if (asked.twoSidePrint != kSidesNoChange) {
        merged.twoSidePrint = asked.twoSidePrint;
    }
    return merged;
}

ExceptionSettings new_settings(const ExceptionSettings& asked, const ExceptionSettings& defaults) {
    auto settings = asked;
    settings.paper.size = first_decided(asked.paper.size, defaults.paper.size);
    settings.paper.color = first_decided(asked.paper.color, defaults.paper.color);
    settings.paper.type = first_decided(asked.paper.type, defaults.paper.type);
    settings.paper.custom = decided(decided(asked.paper.custom, defaults.paper.custom), CustomSize{});
    for (const auto sides : {asked.twoSidePrint, defaults.twoSidePrint, kOneSided}) {
        if (sides > kSidesNoChange) {
            settings.twoSidePrint = sides;
            break;
        }
    }
    return settings;
}

ExceptionRows with_settings(const ExceptionRows& rows, const PageRanges& pages,
                            const ExceptionSettings& asked, const ExceptionSettings& defaults) {
    ExceptionRows result;
    const auto fresh = new_settings(asked, defaults);
    walk(rows, pages, [&](const PageRange& range, const ExceptionSettings* old, bool typed) {
        if (old == nullptr && typed) {
            result.push_back({range, fresh});
        } else if (old != nullptr) {
            result.push_back({range, typed ? merged_settings(*old, asked) : *old});
        }
    });
    return result;
}

ExceptionRows without_pages(const ExceptionRows& rows, const PageRanges& pages) {
    ExceptionRows result;
    walk(rows, pages, [&](const PageRange& range, const ExceptionSettings* old, bool given_up) {
        if (old != nullptr && !given_up) {
            result.push_back({range, *old});
        }
    });
    return result;
}

ExceptionRows joined(const ExceptionRows& rows) {
    ExceptionRows runs;
    for (const auto& row : rows) {
        if (!runs.empty() && std::int64_t{row.pages.first} - runs.back().pages.last <= 1 &&
            row.settings == runs.back().settings) {
            runs.back().pages.last = row.pages.last;
        } else {
            runs.push_back(row);
        }
    }
    return runs;
}

RecordList formed_records(const ExceptionRows& rows, const PageRanges& marked) {
    RecordList records;
    auto mark = marked.begin();
    for (const auto& run : joined(rows)) {
        while (mark != marked.end() && mark->last < run.pages.first) {
            ++mark;
        }
        records.push_back(record_of(run, mark != marked.end() && mark->first <= run.pages.first));
    }
    return records;
}

} // namespace specialpages
