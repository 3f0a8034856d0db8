// The exception rows against a table that holds one row a page, worked as slowly as it is told.
#include "records/exception_records.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace specialpages {
namespace {

constexpr std::int32_t kPages = 24;
constexpr std::int64_t kAdding = 1;
constexpr std::int64_t kEditing = 2;

using PageTable = std::map<std::int32_t, ExceptionSettings>;
using Pages = std::set<std::int32_t>;

/// Few values, so that neighbours are often equal.
ExceptionSettings any_settings(bool undecided) {
    const auto index = [&] {
        return *rc::gen::inRange(undecided ? -1 : 0, 2);
    };
    const auto length = [&] {
        return *rc::gen::elementOf(undecided ? std::vector<std::string>{"-1", "210.0"}
                                             : std::vector<std::string>{"210", "210.0"});
    };
    return {.paper = {.size = index(),
                      .color = index(),
                      .type = 0,
                      .interposer = *rc::gen::inRange(0, 8) == 0,
                      .custom = {.width = length(), .length = "297.0", .longmeasure = index()}},
            .twoSidePrint = *rc::gen::inRange(undecided ? 0 : 1, 3)};
}

RecordList any_records() {
    RecordList records;
    const auto count = *rc::gen::inRange(0, 6);
    for (int i = 0; i < count; ++i) {
        const auto first = *rc::gen::inRange(1, kPages);
        const auto last = *rc::gen::inRange(first, std::min(first + 8, kPages));
        records.push_back(formed_records({{{first, last}, any_settings(false)}}, {}).front());
    }
    return records;
}

Pages any_pages() {
    return *rc::gen::container<Pages>(rc::gen::inRange(1, kPages));
}

PageRanges ranges_of(const Pages& pages) {
    PageRanges ranges;
    for (const auto page : pages) {
        ranges.push_back({page, page});
    }
    return page_set(ranges);
}

ExceptionRequest any_request(const RecordList& records) {
    ExceptionRequest request;
    request.status = *rc::gen::element(kAdding, kEditing);
    for (const auto& record : records) {
        if (*rc::gen::arbitrary<bool>()) {
            request.selected.push_back(record);
        }
    }
    request.pages = ranges_of(any_pages());
    request.asked = any_settings(true);
    request.customSize = *rc::gen::arbitrary<bool>();
    request.defaults = any_settings(false);
    return request;
}

PageTable table_of(const RecordList& records) {
    PageTable table;
    for (const auto& record : records) {
        const auto range = page_range(record);
        for (auto page = range.first; page <= range.last; ++page) {
            table.emplace(page, settings_of(record)); // the first record keeps the page
        }
    }
    return table;
}

PageTable table_of(const ExceptionRows& rows) {
    PageTable table;
    for (const auto& row : rows) {
        for (auto page = row.pages.first; page <= row.pages.last; ++page) {
            RC_ASSERT(table.emplace(page, row.settings).second); // no page twice
        }
    }
    return table;
}

/// One page at a time, each column for itself.
ExceptionSettings merged(const ExceptionSettings& old, const ExceptionSettings& asked) {
    auto row = old;
    const bool paper =
        asked.paper.size != -1 || asked.paper.color != -1 || asked.paper.type != -1 || asked.paper.interposer;
    if (paper && asked.paper.size != -1) {
        row.paper.size = asked.paper.size;
        row.paper.custom.width =
            asked.paper.custom.width == "-1" ? old.paper.custom.width : asked.paper.custom.width;
        row.paper.custom.length =
            asked.paper.custom.length == "-1" ? old.paper.custom.length : asked.paper.custom.length;
        row.paper.custom.longmeasure = asked.paper.custom.longmeasure == -1 ? old.paper.custom.longmeasure
                                                                            : asked.paper.custom.longmeasure;
    }
    if (paper) {
        row.paper.color = asked.paper.color == -1 ? old.paper.color : asked.paper.color;
        row.paper.type = asked.paper.type == -1 ? old.paper.type : asked.paper.type;
        row.paper.interposer = asked.paper.interposer;
    }
    row.twoSidePrint = asked.twoSidePrint == 0 ? old.twoSidePrint : asked.twoSidePrint;
    return row;
}

PageTable model_after_ok(PageTable table, const ExceptionRequest& request) {
    Pages give_up;
    if (request.status == kEditing && request.selected.size() == 1) {
        const auto range = page_range(request.selected.front());
        for (auto page = range.first; page <= range.last; ++page) {
            give_up.insert(page);
        }
    }
    auto asked = request.asked;
    if (!request.customSize) {
        asked.paper.custom = {.width = "210.0", .length = "297.0", .longmeasure = 1};
    }
    for (const auto& range : request.pages) {
        for (auto page = range.first; page <= range.last; ++page) {
            give_up.erase(page);
            const auto old = table.find(page);
            if (old != table.end()) {
                old->second = merged(old->second, asked);
            } else {
                table.emplace(page, new_settings(asked, request.defaults));
            }
        }
    }
    for (const auto page : give_up) {
        table.erase(page);
    }
    return table;
}

RecordList model_records(const PageTable& table, const ExceptionRequest& request) {
    std::set<std::string> keep;
    if (request.status == kAdding) {
        for (const auto& record : request.selected) {
            const auto& page = record.text(RecordKey::page);
            keep.insert(page.substr(0, page.find('-')));
        }
    }
    RecordList records;
    for (auto row = table.begin(); row != table.end();) {
        auto last = row;
        while (std::next(last) != table.end() && std::next(last)->first == last->first + 1 &&
               std::next(last)->second == row->second) {
            ++last;
        }
        const auto first_text = std::to_string(row->first);
        const auto text = last == row ? first_text : first_text + '-' + std::to_string(last->first);
        records.push_back(with_paper_of(test::exception(text), row->second.paper)
                              .with(RecordKey::twoSidePrint, std::to_string(row->second.twoSidePrint))
                              .with(RecordKey::selected, keep.contains(first_text) ? "true" : "false"));
        row = std::next(last);
    }
    return records;
}

RC_GTEST_PROP(ExceptionRowsProperty, RowsHoldThePagesOfTheRecords, ()) {
    const auto records = any_records();
    const auto rows = rows_of(records);
    RC_ASSERT(table_of(rows) == table_of(records));
    for (std::size_t i = 1; i < rows.size(); ++i) {
        RC_ASSERT(rows[i - 1].pages.last < rows[i].pages.first);
    }
}

RC_GTEST_PROP(ExceptionRowsProperty, OkDoesWhatATablePageByPageDoes, ()) {
    const auto records = any_records();
    const auto request = any_request(records);
    const auto result = exceptions_after_ok(rows_of(records), request);
    const auto model = model_after_ok(table_of(records), request);
    RC_ASSERT(table_of(result.rows) == model);
    RC_ASSERT(result.records == model_records(model, request));
    RC_ASSERT(rows_of(result.records) == joined(result.rows));
    RC_ASSERT(!result.tooMany);
}

RC_GTEST_PROP(ExceptionRowsProperty, NoRecordIsLeftUndecided, ()) {
    const auto records = any_records();
    for (const auto& record : exceptions_after_ok(rows_of(records), any_request(records)).records) {
        RC_ASSERT(record.integer(RecordKey::pagesize) >= 0);
        RC_ASSERT(record.integer(RecordKey::pagecolor) >= 0);
        RC_ASSERT(record.integer(RecordKey::pagetype) >= 0);
        RC_ASSERT(record.integer(RecordKey::twoSidePrint) >= 1);
        RC_ASSERT(record.text(RecordKey::width) != "-1");
        RC_ASSERT(record.text(RecordKey::length) != "-1");
        RC_ASSERT(record.integer(RecordKey::longmeasure) >= 0);
    }
}

RC_GTEST_PROP(ExceptionRowsProperty, SetsOfPagesAreSets, ()) {
    const auto a = any_pages();
    const auto b = any_pages();
    Pages difference;
    std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::inserter(difference, difference.end()));
    RC_ASSERT(pages_without(ranges_of(a), ranges_of(b)) == ranges_of(difference));
    RC_ASSERT(page_count(ranges_of(a)) == static_cast<std::int64_t>(a.size()));
}

} // namespace
} // namespace specialpages
