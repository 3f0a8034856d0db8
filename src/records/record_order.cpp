#include "records/record_order.h"

#include "platform/foundation/numbers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace specialpages {
namespace {

enum : std::int32_t { kFrontPage = 0, kBackPage = 1 };
enum : std::int32_t { kAfterPage = 0, kBeforePageOne = 1 };
constexpr std::int32_t kEveryKind = 3;

bool is_cover_at(const SpecialPageRecord& record, std::int32_t page) {
    return record.is(RecordType::cover) && record.integer(RecordKey::page) == page;
}

bool is_insert_with(const SpecialPageRecord& record, std::int32_t option) {
    return record.is(RecordType::insert) && record.integer(RecordKey::insertoption) == option;
}

/// Whether a new record goes before the record of the store that is looked at. False steps over that record.
using GoesBefore = bool (*)(const SpecialPageRecord& added, const SpecialPageRecord& stored);

bool insert_goes_before(const SpecialPageRecord& insert, const SpecialPageRecord& stored) {
    if (is_back_cover(stored)) {
        return true;
    }
    if (!stored.is(RecordType::exception)) {
        return false;
    }
    switch (insert.integer(RecordKey::insertoption)) {
    case kBeforePageOne:
        return true;
    case kAfterPage:
        // At equal pages the exception comes first.
        return insert.integer(RecordKey::page) < first_page(stored);
    default:
        return false;
    }
}

bool exception_goes_before(const SpecialPageRecord& exception, const SpecialPageRecord& stored) {
    return is_back_cover(stored) ||
           (is_insert_with(stored, kAfterPage) && first_page(exception) <= stored.integer(RecordKey::page));
}

/// One walk over both lists. Both keep their own order, and the place never goes back, so that a record that
/// is out of order stands behind the one that was put in before it.
RecordList merge(RecordList store, const RecordList& added, GoesBefore goes_before) {
    RecordList merged;
    merged.reserve(store.size() + added.size());
    auto stored = store.begin();
    for (const auto& record : added) {
        while (stored != store.end() && !goes_before(record, *stored)) {
            merged.push_back(std::move(*stored++));
        }
        merged.push_back(record);
    }
    std::move(stored, store.end(), std::back_inserter(merged));
    return merged;
}

int compare(std::int32_t a, std::int32_t b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

} // namespace

bool is_front_cover(const SpecialPageRecord& record) {
    return is_cover_at(record, kFrontPage);
}

bool is_back_cover(const SpecialPageRecord& record) {
    return is_cover_at(record, kBackPage);
}

RecordList merge_covers(RecordList store, const RecordList& covers) {
    for (const auto& cover : covers) {
        switch (cover.integer(RecordKey::page)) {
        case kFrontPage:
            store.insert(store.begin(), cover);
            break;
        case kBackPage:
            store.push_back(cover);
            break;
        default:
            break;
        }
    }
    return store;
}

RecordList merge_inserts(RecordList store, const RecordList& sorted) {
    return merge(std::move(store), sorted, insert_goes_before);
}

RecordList merge_exceptions(RecordList store, const RecordList& arranged) {
    return merge(std::move(store), arranged, exception_goes_before);
}

RecordList without_type(RecordList store, RecordType type) {
    std::erase_if(store, [type](const SpecialPageRecord& record) { return record.is(type); });
    return store;
}

RecordList without_before_page_one(RecordList records) {
    std::erase_if(records, [](const SpecialPageRecord& record) {
        return record.is(RecordType::insert) && record.integer(RecordKey::page) == 0;
    });
    return records;
}

RecordList records_of_type(const RecordList& records, std::int32_t kind) {
    if (kind == kEveryKind) {
        return records;
    }
    RecordList found;
    if (kind >= static_cast<std::int32_t>(RecordType::cover) &&
        kind <= static_cast<std::int32_t>(RecordType::exception)) {
        std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                     [kind](const SpecialPageRecord& record) { return record.type() == kind; });
    }
    return found;
}

RowSet selected_within_type(const RecordList& records, const RowSet& selected, RecordType type) {
    RowSet within;
    std::size_t number = 0;
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (!records[row].is(type)) {
            continue;
        }
        if (selected.contains(row)) {
            within.insert(number);
        }
        ++number;
    }
    return within;
}

std::int32_t first_page(const SpecialPageRecord& record) {
    return page_range(record).first;
}

PageRange page_range(const SpecialPageRecord& record) {
    const std::string_view page = record.text(RecordKey::page);
    const auto dash = page.find('-');
    if (dash == std::string_view::npos) {
        const auto number = platform::int_value(page);
        return {number, number};
    }
    return {platform::int_value(page.substr(0, dash)), platform::int_value(page.substr(dash + 1))};
}

int pageNumCompareDict(const SpecialPageRecord& a, const SpecialPageRecord& b, RecordKey key) {
    return compare(a.integer(key), b.integer(key));
}

int numCompare(std::string_view a, std::string_view b) {
    return compare(platform::int_value(a), platform::int_value(b));
}

int pageNumCompare(std::span<const std::string> a, std::span<const std::string> b) {
    return numCompare(a.empty() ? std::string_view{} : a.front(), b.empty() ? std::string_view{} : b.front());
}

} // namespace specialpages
