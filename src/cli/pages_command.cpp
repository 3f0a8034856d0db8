#include "cli/commands.h"
#include "host/HostError.h"
#include "records/page_list.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <ostream>
#include <string_view>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

constexpr std::int64_t kAdding = 1;

struct PageListResult {
    const PageListReading& reading;
    std::int32_t code = kPageListValid;
    std::string arranged;
    PageRanges pages;
};

std::int64_t held_records(const std::string& text) {
    std::int32_t held = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, held);
    if (error != std::errc{} || stop != end || held < 0) {
        throw HostError(ErrorCode::usage, "--held " + text, "expected a number of records, 0 or more");
    }
    return held;
}

PageListResult read_page_list(const PagesOptions& options, std::int64_t held) {
    if (options.exceptions) {
        ExceptionPages list;
        const auto code = ValidatePageList(options.text, true, list);
        return {kExceptionPageList, code, std::move(list.m_strArranged), std::move(list.m_idxNumberSet)};
    }
    InsertPages list;
    const auto code =
        ValidatePageList(options.text, options.frontCover, {.status = kAdding, .held = held}, list);
    return {kInsertPageList, code, std::move(list.m_strArranged), std::move(list.m_aSortedPageArray)};
}

std::string_view message_key(const PageListResult& result) {
    return page_list_message_key(result.reading, page_list_warning(result.code));
}

void write_json(const PageListResult& result, std::ostream& out) {
    nlohmann::ordered_json json{{"code", result.code}};
    if (result.code == kPageListValid) {
        json["arranged"] = result.arranged;
        json["pages"] = page_texts(result.pages);
    } else {
        json["message"] = message_key(result);
    }
    out << json.dump() << '\n';
}

void write_table(const PageListResult& result, std::ostream& out) {
    out << "arranged  " << result.arranged << "\npages    " << (result.pages.empty() ? " none" : "");
    for (const auto& page : page_texts(result.pages)) {
        out << ' ' << page;
    }
    out << '\n';
}

} // namespace

void pages_command(const PagesOptions& options, Streams streams) {
    const auto result = read_page_list(options, held_records(options.held));
    if (options.json) {
        write_json(result, streams.out);
    } else if (result.code == kPageListValid) {
        write_table(result, streams.out);
    }
    if (result.code != kPageListValid) {
        flush_results(streams.out);
        throw HostError(ErrorCode::refused, "page list \"" + options.text + '"',
                        "refused with " + std::string(message_key(result)) + ", code " +
                            std::to_string(result.code));
    }
}

} // namespace specialpages::cli
