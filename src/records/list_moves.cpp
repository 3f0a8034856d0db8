#include "records/list_moves.h"

#include "records/record_order.h"

#include <algorithm>
#include <utility>

namespace specialpages {
namespace {

RowSet rows_of(std::span<const SpecialPageRecord> records, const RowSet& selected) {
    return {selected.begin(), selected.lower_bound(records.size())};
}

SpecialPageRecord marked(const SpecialPageRecord& record, bool mark) {
    return record.with(RecordKey::selected, mark ? "true" : "false");
}

} // namespace

bool may_swap(std::span<const SpecialPageRecord> records, std::size_t row) {
    if (records.size() < 2 || row > records.size() - 2) {
        return false;
    }
    const auto& upper = records[row];
    const auto& lower = records[row + 1];
    return upper.is(RecordType::insert) && lower.is(RecordType::insert) &&
           upper.text(RecordKey::insertoption) == lower.text(RecordKey::insertoption) &&
           upper.text(RecordKey::page) == lower.text(RecordKey::page);
}

bool may_move_up(std::span<const SpecialPageRecord> records, const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    return !rows.empty() && std::all_of(rows.begin(), rows.end(), [records](std::size_t row) {
        return row >= 1 && may_swap(records, row - 1);
    });
}

bool may_move_down(std::span<const SpecialPageRecord> records, const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    return !rows.empty() && std::all_of(rows.begin(), rows.end(),
                                        [records](std::size_t row) { return may_swap(records, row); });
}

Moved move_up(RecordList records, const RowSet& selected) {
    RowSet selection;
    for (const auto row : rows_of(records, selected)) {
        if (row == 0) {
            selection.insert(row);
            continue;
        }
        std::swap(records[row], records[row - 1]);
        selection.insert(row - 1);
    }
    return {std::move(records), std::move(selection)};
}

Moved move_down(RecordList records, const RowSet& selected) {
    RowSet selection;
    const auto rows = rows_of(records, selected);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        if (*row + 1 == records.size()) {
            selection.insert(*row);
            continue;
        }
        std::swap(records[*row], records[*row + 1]);
        selection.insert(*row + 1);
    }
    return {std::move(records), std::move(selection)};
}

bool may_edit(std::span<const SpecialPageRecord> records, const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    return !rows.empty() && std::all_of(rows.begin(), rows.end(), [&](std::size_t row) {
        return records[row].text(RecordKey::type) == records[*rows.begin()].text(RecordKey::type);
    });
}

RecordList delete_rows(RecordList records, const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        records.erase(records.begin() + static_cast<std::ptrdiff_t>(*row));
        if (!records.empty()) {
            auto& neighbour = records[std::min(*row, records.size() - 1)];
            neighbour = marked(neighbour, true);
        }
    }
    return records;
}

RecordList mark_rows(RecordList records, const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    if (rows.empty()) {
        return records;
    }
    records = unmark_all(std::move(records));
    for (const auto row : rows) {
        records[row] = marked(records[row], true);
    }
    return records;
}

RecordList unmark_all(RecordList records) {
    for (auto& record : records) {
        record = marked(record, false);
    }
    return records;
}

RowSet marked_rows(std::span<const SpecialPageRecord> records) {
    RowSet rows;
    for (std::size_t row = 0; row < records.size(); ++row) {
        if (records[row].is_true(RecordKey::selected)) {
            rows.insert(row);
        }
    }
    return rows;
}

std::optional<std::size_t> cover_to_pull_in(std::span<const SpecialPageRecord> records,
                                            const RowSet& selected) {
    const auto rows = rows_of(records, selected);
    if (rows.empty()) {
        return std::nullopt;
    }
    const auto unless_selected = [&rows](std::size_t row) {
        return rows.contains(row) ? std::nullopt : std::optional{row};
    };
    const auto last = records.size() - 1;
    if (is_front_cover(records[*rows.begin()]) && is_back_cover(records[last])) {
        return unless_selected(last);
    }
    if (is_back_cover(records[*rows.rbegin()]) && is_front_cover(records[0])) {
        return unless_selected(0);
    }
    return std::nullopt;
}

} // namespace specialpages
