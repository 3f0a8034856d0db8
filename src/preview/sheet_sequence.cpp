#include "preview/sheet_sequence.h"

#include "platform/foundation/numbers.h"
#include "records/record_order.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <string>

namespace specialpages::preview {

namespace {

constexpr std::int64_t kEnd = std::numeric_limits<std::int64_t>::max();

/// The pages that an exception names; last below first for pages that cannot be read.
struct NamedPages {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

/// "5", "5-7", and with an end left open "-7" and "5-".
NamedPages named_pages(const SpecialPageRecord& record) {
    const std::string& text = record.text(RecordKey::page);
    const std::size_t hyphen = text.find('-');
    const PageRange range = page_range(record);
    NamedPages pages{range.first, range.last};
    if (hyphen == 0) {
        pages.first = 1;
    }
    if (hyphen != std::string::npos && hyphen + 1 == text.size()) {
        pages.last = text.size() == 1 ? 0 : kEnd;
    }
    return pages.first < 1 ? NamedPages{1, 0} : pages;
}

/// Pages and the exceptions that have them, ascending. Each page belongs to the first one that claims it.
class Claims {
  public:
    struct Claim {
        std::int64_t last = 0;
        std::size_t row = 0;
    };
    using Map = std::map<std::int64_t, Claim>;

    /// Whether some page was free.
    bool add(NamedPages pages, std::size_t row) {
        bool some = false;
        std::int64_t from = pages.first;
        auto next = claims_.upper_bound(from);
        if (next != claims_.begin() && std::prev(next)->second.last >= from) {
            next = std::prev(next);
        }
        while (from <= pages.last) {
            if (next != claims_.end() && next->first <= from) {
                if (next->second.last == kEnd) {
                    break;
                }
                from = next->second.last + 1;
                ++next;
                continue;
            }
            const std::int64_t last =
                next == claims_.end() ? pages.last : std::min(pages.last, next->first - 1);
            claims_.emplace_hint(next, from, Claim{last, row});
            some = true;
            if (last == kEnd) {
                break;
            }
            from = last + 1;
        }
        return some;
    }

    const Map& all() const { return claims_; }

  private:
    Map claims_;
};

struct Insert {
    std::int64_t page = 0;
    std::int64_t sheets = 0;
    std::size_t row = 0;
};

struct Cover {
    std::size_t row = 0;
    CoverPrinting printing = CoverPrinting::blank;
};

CoverPrinting printing_of(const SpecialPageRecord& record) {
    const std::int32_t option = record.integer(RecordKey::printingoptions);
    return record.is_true(RecordKey::interposer) || option < 0 || option > 3
               ? CoverPrinting::blank
               : static_cast<CoverPrinting>(option);
}

std::int64_t pages_taken(const std::optional<Cover>& cover) {
    if (!cover || cover->printing == CoverPrinting::blank) {
        return 0;
    }
    return cover->printing == CoverPrinting::bothSides ? 2 : 1;
}

Sides sides_of(const SpecialPageRecord& record, Sides job) {
    switch (record.integer(RecordKey::twoSidePrint)) {
    case 1:
        return Sides::one;
    case 2:
        return Sides::longEdge;
    case 3:
        return Sides::shortEdge;
    default:
        return job; // no dialog makes such a record
    }
}

class Layout {
  public:
    Layout(const RecordList& records, const Document& document) : records_(records), document_(document) {
        for (std::size_t row = 0; row < records.size(); ++row) {
            take(row);
        }
        std::stable_sort(inserts_.begin(), inserts_.end(),
                         [](const Insert& a, const Insert& b) { return a.page < b.page; });
        nextInsert_ = inserts_.begin();
        nextClaim_ = claims_.all().begin();
    }

    SheetSequence sequence() {
        known_ = document_.pages.has_value();
        const std::int64_t end = known_ ? std::max<std::int64_t>(*document_.pages, 0) : last_named_page();
        const std::int64_t onFront = std::min(pages_taken(front_), known_ ? end : kEnd);
        const std::int64_t onBack = known_ ? std::min(pages_taken(back_), end - onFront) : 0;
        if (front_) {
            add_cover(SheetKind::frontCover, *front_, 1, onFront);
        }
        add_inserts(onFront);
        add_pages(onFront + 1, end - onBack);
        if (!known_) {
            add_open_run(std::max(end, onFront) + 1);
        }
        add_inserts(known_ ? end : kEnd);
        if (back_) {
            add_cover(SheetKind::backCover, *back_, end - onBack + 1, onBack);
        }
        add_notes(end);
        return std::move(sequence_);
    }

  private:
    void take(std::size_t row) {
        const SpecialPageRecord& record = records_[row];
        if (record.find(RecordKey::type) == nullptr) {
            return; // nothing that was read
        }
        if (is_front_cover(record) || is_back_cover(record)) {
            std::optional<Cover>& cover = is_front_cover(record) ? front_ : back_;
            if (cover) {
                note(row, NoteReason::named);
            } else {
                cover = Cover{row, printing_of(record)};
            }
        } else if (record.is(RecordType::cover)) {
            note(row, NoteReason::noPages);
        } else if (record.is(RecordType::insert)) {
            const Insert insert{std::max(record.integer(RecordKey::page), 0),
                                record.integer(RecordKey::insertquantity), row};
            if (insert.sheets > 0) {
                inserts_.push_back(insert);
            } else {
                note(row, NoteReason::noSheets);
            }
        } else if (record.is(RecordType::exception)) {
            const NamedPages pages = named_pages(record);
            if (pages.last < pages.first) {
                note(row, NoteReason::noPages);
            } else if (!claims_.add(pages, row)) {
                note(row, NoteReason::named);
            }
        }
    }

    /// How far the records name pages: behind it all sheets are alike.
    std::int64_t last_named_page() const {
        std::int64_t last = inserts_.empty() ? 0 : inserts_.back().page;
        for (const auto& [first, claim] : claims_.all()) {
            last = std::max(last, claim.last >= kLastPanePage ? first - 1 : claim.last);
        }
        return last;
    }

    void add_cover(SheetKind kind, const Cover& cover, std::int64_t page, std::int64_t count) {
        SheetRun run;
        run.kind = kind;
        run.row = cover.row;
        run.printing = known_ && count == 0 ? CoverPrinting::blank : cover.printing;
        run.firstPage = count == 0 ? 0 : page;
        run.lastPage = count == 0 ? 0 : page + count - 1;
        sequence_.runs.push_back(run);
    }

    /// Those after pages up to that one which do not stand yet.
    void add_inserts(std::int64_t page) {
        for (; nextInsert_ != inserts_.end() && nextInsert_->page <= page; ++nextInsert_) {
            SheetRun run;
            run.kind = SheetKind::insert;
            run.row = nextInsert_->row;
            run.sheets = nextInsert_->sheets;
            sequence_.runs.push_back(run);
        }
    }

    /// Brings nextClaim_ to the first claim that ends at that page or behind it; null when the page is free.
    const Claims::Claim* claim_at(std::int64_t page) {
        while (nextClaim_ != claims_.all().end() && nextClaim_->second.last < page) {
            ++nextClaim_;
        }
        return nextClaim_ != claims_.all().end() && nextClaim_->first <= page ? &nextClaim_->second : nullptr;
    }

    SheetRun run_at(std::int64_t page) {
        SheetRun run;
        run.firstPage = page;
        run.sides = document_.sides;
        if (const Claims::Claim* const claim = claim_at(page)) {
            run.kind = SheetKind::exception;
            run.row = claim->row;
            run.sides = sides_of(records_[claim->row], document_.sides);
        }
        return run;
    }

    void add_pages(std::int64_t page, std::int64_t end) {
        while (page <= end) {
            SheetRun run = run_at(page);
            run.lastPage = end;
            if (run.row) {
                run.lastPage = std::min(end, nextClaim_->second.last);
            } else if (nextClaim_ != claims_.all().end()) {
                run.lastPage = std::min(end, nextClaim_->first - 1);
            }
            if (nextInsert_ != inserts_.end()) {
                run.lastPage = std::min(run.lastPage, nextInsert_->page);
            }
            const std::int64_t pages = run.lastPage - page + 1;
            run.sheets = run.sides == Sides::one ? pages : pages / 2 + pages % 2;
            sequence_.runs.push_back(run);
            add_inserts(run.lastPage);
            page = run.lastPage + 1;
        }
    }

    void add_open_run(std::int64_t page) {
        SheetRun run = run_at(page);
        run.open = true;
        run.sheets = 0;
        sequence_.runs.push_back(run);
    }

    void note(std::size_t row, NoteReason reason) { sequence_.notes.push_back({row, reason}); }

    void add_notes(std::int64_t end) {
        for (; nextInsert_ != inserts_.end(); ++nextInsert_) {
            note(nextInsert_->row, NoteReason::pastEnd);
        }
        std::set<std::size_t> shown;
        for (const SheetRun& run : sequence_.runs) {
            if (run.kind == SheetKind::exception) {
                shown.insert(*run.row);
            }
        }
        std::map<std::size_t, std::int64_t> claiming; // each with the first page that is its own
        for (const auto& [first, claim] : claims_.all()) {
            claiming.emplace(claim.row, first);
        }
        for (const auto& [row, first] : claiming) {
            const std::int64_t last = named_pages(records_[row]).last;
            if (known_ && first > end) {
                note(row, NoteReason::pastEnd);
            } else if (!shown.contains(row)) {
                note(row, NoteReason::onCover);
            } else if (known_ && last > end && last < kLastPanePage) {
                note(row, NoteReason::partlyPastEnd);
            }
        }
        std::stable_sort(sequence_.notes.begin(), sequence_.notes.end(),
                         [](const SheetNote& a, const SheetNote& b) { return a.row < b.row; });
    }

    const RecordList& records_;
    const Document& document_;
    bool known_ = true;
    std::optional<Cover> front_;
    std::optional<Cover> back_;
    std::vector<Insert> inserts_;
    std::vector<Insert>::const_iterator nextInsert_;
    Claims claims_;
    Claims::Map::const_iterator nextClaim_;
    SheetSequence sequence_;
};

} // namespace

SheetSequence sheet_sequence(const RecordList& records, const Document& document) {
    return Layout(records, document).sequence();
}

SheetFaces sheet_faces(const SheetRun& run, std::int64_t place) {
    if (place < 0 || run.firstPage == 0 || (!run.open && place >= run.sheets)) {
        return {};
    }
    const bool cover = run.kind == SheetKind::frontCover || run.kind == SheetKind::backCover;
    if (cover && run.printing == CoverPrinting::sideTwo) {
        return {0, run.firstPage};
    }
    const bool twoPages = cover ? run.printing == CoverPrinting::bothSides : run.sides != Sides::one;
    const std::int64_t front = run.firstPage + place * (twoPages ? 2 : 1);
    const bool hasBack = twoPages && (run.open || front < run.lastPage);
    return {front, hasBack ? front + 1 : 0};
}

std::optional<std::int64_t> sheet_count(const SheetSequence& sequence) {
    std::int64_t sheets = 0;
    for (const SheetRun& run : sequence.runs) {
        if (run.open) {
            return std::nullopt;
        }
        sheets += run.sheets;
    }
    return sheets;
}

std::set<std::size_t> runs_of_rows(const SheetSequence& sequence, const std::set<std::size_t>& rows) {
    std::set<std::size_t> runs;
    for (std::size_t i = 0; i < sequence.runs.size(); ++i) {
        const auto& row = sequence.runs[i].row;
        if (row && rows.contains(*row)) {
            runs.insert(i);
        }
    }
    return runs;
}

std::set<std::size_t> rows_of_runs(const SheetSequence& sequence, const std::set<std::size_t>& runs) {
    std::set<std::size_t> rows;
    for (const std::size_t run : runs) {
        if (run < sequence.runs.size() && sequence.runs[run].row) {
            rows.insert(*sequence.runs[run].row);
        }
    }
    return rows;
}

} // namespace specialpages::preview
