#include "records/exception_records.h"

#include "records/page_list.h"

#include <utility>

namespace specialpages {
namespace {

constexpr std::int64_t kAdding = 1;
constexpr std::int64_t kEditing = 2;

/// The pages that the edited record had and that were not typed again.
PageRanges given_up(const ExceptionRequest& request) {
    if (request.status != kEditing || request.selected.size() != 1) {
        return {};
    }
    const auto range = page_range(request.selected.front());
    return range.first <= range.last ? pages_without({range}, request.pages) : PageRanges{};
}

PageRanges kept_selected(const ExceptionRequest& request) {
    PageRanges pages;
    if (request.status == kAdding) {
        for (const auto& record : request.selected) {
            if (record.is(RecordType::exception)) {
                pages.push_back({first_page(record), first_page(record)});
            }
        }
    }
    return page_set(std::move(pages));
}

void narrow_settings(ExceptionSettings& running, const ExceptionSettings& record) {
    auto& paper = running.paper;
    if (paper.interposer != record.paper.interposer) {
        paper.interposer = false;
        paper.size = paper.color = paper.type = kUndecided;
    }
    narrow(paper.size, record.paper.size);
    narrow(paper.type, record.paper.type);
    narrow(paper.color, record.paper.color);
    if (running.twoSidePrint != record.twoSidePrint) {
        running.twoSidePrint = kSidesNoChange;
    }
    narrow(paper.custom, record.paper.custom);
}

} // namespace

ShownExceptions shown_exceptions(const RecordList& selected) {
    ShownExceptions shown;
    if (selected.empty()) {
        return shown;
    }
    shown.settings = settings_of(selected.front());
    for (const auto& record : selected) {
        shown.pageText += record.text(RecordKey::page);
        shown.pageText += &record == &selected.back() ? "" : ",";
        narrow_settings(shown.settings, settings_of(record));
    }
    return shown;
}

ExceptionResult exceptions_after_ok(const ExceptionRows& rows, const ExceptionRequest& request) {
    auto asked = request.asked;
    if (!request.customSize) {
        asked.paper.custom = CustomSize{};
    }
    ExceptionResult result;
    result.rows =
        without_pages(with_settings(rows, request.pages, asked, request.defaults), given_up(request));
    result.records = formed_records(result.rows, kept_selected(request));
    result.tooMany = result.records.size() > static_cast<std::size_t>(kMaxPageDefineNum);
    return result;
}

} // namespace specialpages
