#include "records/insert_records.h"

#include "platform/foundation/numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace specialpages {
namespace {

using platform::decimal_text;

constexpr std::int64_t kAdding = 1;
constexpr std::int64_t kEditing = 2;
constexpr std::int32_t kBeforePageOne = 1;
constexpr const char* kAfterText = "0";
constexpr const char* kBeforePageOneText = "1";
constexpr const char* kBeforePageOnePage = "0";

constexpr std::array<RecordKey, 12> kInsertKeys{
    RecordKey::page,     RecordKey::type,      RecordKey::insertoption, RecordKey::insertquantity,
    RecordKey::pagesize, RecordKey::pagecolor, RecordKey::pagetype,     RecordKey::interposer,
    RecordKey::width,    RecordKey::length,    RecordKey::longmeasure,  RecordKey::selected,
};

SpecialPageRecord insert_record(std::string page, std::string option, std::int32_t quantity,
                                const RecordPaper& paper) {
    return with_paper_of({{RecordKey::type, decimal_text(static_cast<std::int32_t>(RecordType::insert))},
                          {RecordKey::page, std::move(page)},
                          {RecordKey::insertoption, std::move(option)},
                          {RecordKey::insertquantity, decimal_text(quantity)},
                          {RecordKey::selected, "false"}},
                         paper);
}

RecordPaper with_custom_decided(RecordPaper paper, const CustomSize& otherwise) {
    paper.custom = decided(std::move(paper.custom), otherwise);
    return paper;
}

/// One record for each page.
void add_pages(RecordList& inserts, const InsertRequest& request, const CustomSize& otherwise) {
    const auto paper = with_custom_decided(request.values.paper, otherwise);
    for (auto& page : page_texts(request.pages)) {
        AddObjectToArray(&inserts, false, 0,
                         insert_record(std::move(page), kAfterText, request.values.quantity, paper),
                         request.frontCover);
    }
}

void add_inserts(RecordList& inserts, const InsertRequest& request) {
    if (request.values.option == 0) {
        add_pages(inserts, request, CustomSize{});
        return;
    }
    AddObjectToArray(&inserts, false, 0,
                     insert_record(kBeforePageOnePage, kBeforePageOneText, request.values.quantity,
                                   with_custom_decided(request.values.paper, CustomSize{})),
                     request.frontCover);
}

void replace_by_several(RecordList& inserts, const InsertRequest& request) {
    CustomSize otherwise;
    if (!request.selected.empty() && *request.selected.begin() < inserts.size()) {
        const auto replaced = inserts.begin() + static_cast<std::ptrdiff_t>(*request.selected.begin());
        otherwise = paper_of(*replaced).custom;
        inserts.erase(replaced);
    }
    add_pages(inserts, request, otherwise);
}

/// The paper of an edited record: the dialog's where it is decided.
RecordPaper edited_paper(const RecordPaper& old, const InsertRequest& request) {
    const auto& asked = request.values.paper;
    auto paper = old;
    if (chooses_paper(asked)) {
        paper.interposer = asked.interposer;
        paper.size = asked.size == kUndecided ? old.size : asked.size;
        paper.color = asked.color == kUndecided ? old.color : asked.color;
        paper.type = asked.type == kUndecided ? old.type : asked.type;
    }
    const bool custom = request.isCustomSize && request.isCustomSize(paper.size);
    paper.custom = custom ? decided(asked.custom, old.custom) : CustomSize{};
    return paper;
}

/// `place` is the record's among those that are selected.
SpecialPageRecord edited(const SpecialPageRecord& record, std::int64_t place, const InsertRequest& request) {
    auto page = record.text(RecordKey::page);
    auto option = record.text(RecordKey::insertoption);
    if (request.optionEnabled && request.values.option == kBeforePageOne) {
        page = kBeforePageOnePage;
        option = kBeforePageOneText;
    } else if (request.optionEnabled) {
        const auto typed = page_at(request.pages, place);
        if (typed) {
            page = decimal_text(*typed);
        } else if (request.pages.empty()) {
            page = kBeforePageOnePage;
        }
        option = kAfterText;
    }
    return insert_record(std::move(page), std::move(option), request.values.quantity,
                         edited_paper(paper_of(record), request));
}

void edit_each(RecordList& inserts, const InsertRequest& request) {
    std::int64_t place = 0;
    for (const auto index : request.selected) {
        if (index < inserts.size()) {
            AddObjectToArray(&inserts, true, index, edited(inserts[index], place, request),
                             request.frontCover);
        }
        ++place;
    }
}

void append_page_text(std::string& text, const SpecialPageRecord& record, bool isLast) {
    if (record.integer(RecordKey::page) != 0) {
        text += record.text(RecordKey::page);
        text += isLast ? "" : ",";
    }
}

void narrow_values(InsertValues& running, const SpecialPageRecord& record) {
    const auto paper = paper_of(record);
    narrow(running.paper.size, paper.size);
    narrow(running.paper.color, paper.color);
    narrow(running.paper.type, paper.type);
    narrow(running.quantity, record.integer(RecordKey::insertquantity));
    narrow(running.option, record.integer(RecordKey::insertoption));
    if (running.paper.interposer != paper.interposer) {
        running.paper = {.size = kUndecided,
                         .color = kUndecided,
                         .type = kUndecided,
                         .interposer = false,
                         .custom = {kUndecidedText, kUndecidedText, kUndecided}};
    }
    narrow(running.paper.custom, paper.custom);
}

} // namespace

ShownInserts shown_inserts(const RecordList& selected) {
    ShownInserts shown;
    if (selected.empty()) {
        return shown;
    }
    const auto& first = selected.front();
    shown.values = {.option = first.integer(RecordKey::insertoption),
                    .quantity = first.integer(RecordKey::insertquantity),
                    .paper = paper_of(first)};
    for (const auto& record : selected) {
        append_page_text(shown.pageText, record, &record == &selected.back());
        narrow_values(shown.values, record);
    }
    return shown;
}

bool has_front_cover(const RecordList& records) {
    return std::any_of(records.begin(), records.end(), is_front_cover);
}

std::optional<RecordList> inserts_after_ok(RecordList inserts, const InsertRequest& request) {
    if (request.status == kAdding) {
        add_inserts(inserts, request);
    } else if (request.status != kEditing) {
        return std::nullopt;
    } else if (request.selected.size() < 2 && page_count(request.pages) > 1) {
        replace_by_several(inserts, request);
    } else {
        edit_each(inserts, request);
    }
    std::stable_sort(inserts.begin(), inserts.end(),
                     [](const SpecialPageRecord& a, const SpecialPageRecord& b) {
                         return pageNumCompareDict(a, b, RecordKey::page) < 0;
                     });
    return inserts;
}

std::int32_t AddObjectToArray(RecordList* array, bool BReplace, std::size_t atIndex, SpecialPageRecord record,
                              bool frontCover) {
    constexpr std::int32_t kDone = 0;
    constexpr std::int32_t kParameterError = -50;
    const bool complete = std::all_of(kInsertKeys.begin(), kInsertKeys.end(),
                                      [&](RecordKey key) { return record.find(key) != nullptr; });
    if (array == nullptr || !complete || (BReplace && atIndex >= array->size())) {
        return kParameterError;
    }
    if (record.integer(RecordKey::page) == 0) {
        if (frontCover) {
            return kDone;
        }
        record = record.with(RecordKey::insertoption, kBeforePageOneText);
    }
    if (BReplace) {
        (*array)[atIndex] = std::move(record);
    } else {
        array->push_back(std::move(record));
    }
    return kDone;
}

bool ISRecordedCurrentPage(const RecordList& records, std::string_view page, std::size_t* atIndex) {
    const auto number = platform::int_value(page);
    const auto found =
        std::find_if(records.begin(), records.end(), [number](const SpecialPageRecord& record) {
            return record.integer(RecordKey::page) == number;
        });
    if (found != records.end() && atIndex != nullptr) {
        *atIndex = static_cast<std::size_t>(found - records.begin());
    }
    return found != records.end();
}

} // namespace specialpages
