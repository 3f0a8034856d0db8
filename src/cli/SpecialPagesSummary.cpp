#include "cli/SpecialPagesSummary.h"

#include "cli/decode_value.h"
#include "cli/streams.h"
#include "host/HostError.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/text_columns.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;
using nlohmann::ordered_json;
using platform::PrintSettings;

/// The text under the key; null when there is none, or an array.
const std::string* find_text(const PrintSettings& settings, std::string_view key) {
    const platform::SettingsValue* const value = settings.value(key);
    return value == nullptr ? nullptr : std::get_if<std::string>(value);
}

std::int32_t count_under(const PrintSettings& settings, std::string_view key) {
    const std::string* const text = find_text(settings, key);
    return text == nullptr ? 0 : platform::int_value(*text);
}

/// HostError when the entry that a count announces is not there.
const std::string& announced_text(const PrintSettings& settings, const std::string& key, const char* what) {
    const std::string* const text = find_text(settings, key);
    if (text == nullptr) {
        throw HostError(ErrorCode::input, key, std::string("expected ") + what + ", as the count announces");
    }
    return *text;
}

RecordList read_records(const PrintSettings& settings) {
    RecordList records;
    const std::int32_t count = count_under(settings, kNPIFCommandTicketCount);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string key = record_ticket_key(kNPIFCommandTicket, i);
        RecordReading reading = decode_record(announced_text(settings, key, "a record"));
        switch (reading.outcome) {
        case RecordReading::Outcome::record:
            records.push_back(std::move(reading.record));
            break;
        case RecordReading::Outcome::other_kind:
            break;
        case RecordReading::Outcome::too_few_fields:
            throw HostError(ErrorCode::input, key,
                            "expected 11 fields of a cover or insert, or 10 of an exception");
        }
    }
    return records;
}

std::vector<std::string> read_commands(const PrintSettings& settings, std::string_view countKey,
                                       std::string_view valueKey) {
    std::vector<std::string> commands;
    const std::int32_t count = count_under(settings, countKey);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string key = std::string(valueKey) + std::to_string(i);
        commands.push_back(decode_value(announced_text(settings, key, "a command"), key, ErrorCode::input));
    }
    return commands;
}

std::vector<std::string> read_array(const PrintSettings& settings, std::string_view key) {
    const platform::SettingsValue* const value = settings.value(key);
    if (value == nullptr) {
        return {};
    }
    const auto* const array = std::get_if<std::vector<std::string>>(value);
    if (array == nullptr) {
        throw HostError(ErrorCode::input, std::string(key), "expected an array of texts");
    }
    return *array;
}

bool read_flag(const PrintSettings& settings, std::string_view key) {
    const std::string* const text = find_text(settings, key);
    return text != nullptr && *text == "1";
}

std::string type_word(const SpecialPageRecord& record) {
    switch (static_cast<RecordType>(record.type())) {
    case RecordType::cover:
        return "cover";
    case RecordType::insert:
        return "insert";
    case RecordType::exception:
        return "exception";
    }
    return record.text(RecordKey::type);
}

std::string page_word(const SpecialPageRecord& record) {
    if (record.is(RecordType::cover)) {
        return record.integer(RecordKey::page) == 0 ? "front" : "back";
    }
    if (record.is(RecordType::insert)) {
        return record.integer(RecordKey::insertoption) == 1 ? "before 1"
                                                            : "after " + record.text(RecordKey::page);
    }
    return record.text(RecordKey::page);
}

std::string padded(std::string text, std::size_t width) {
    const std::size_t used = platform::text_columns(text);
    text.append(used < width ? width - used : 0, ' ');
    return text;
}

std::string listed(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + printable(word);
    }
    return text.empty() ? "-" : text;
}

std::string yes_or_no(bool flag) {
    return flag ? "yes" : "no";
}

std::string rows_table(const std::vector<SummaryRow>& rows) {
    std::vector<SummaryRow> lines{{"Page", "Type", "Setup"}};
    for (const SummaryRow& row : rows) {
        lines.push_back({printable(row.page), printable(row.type), printable(row.setup)});
    }
    std::size_t pageWidth = 0;
    std::size_t typeWidth = 0;
    for (const SummaryRow& line : lines) {
        pageWidth = std::max(pageWidth, platform::text_columns(line.page));
        typeWidth = std::max(typeWidth, platform::text_columns(line.type));
    }
    std::string table;
    for (const SummaryRow& line : lines) {
        std::string text =
            padded(line.page, pageWidth) + "  " + padded(line.type, typeWidth) + "  " + line.setup;
        text.erase(text.find_last_not_of(' ') + 1);
        table += text + "\n";
    }
    return table;
}

} // namespace

SpecialPagesSummary summarise(const PrintSettings& settings) {
    SpecialPagesSummary summary;
    summary.records = read_records(settings);
    summary.covers = read_commands(settings, kNPIFCoverCountTicket, kNPIFCoverValueTicket);
    summary.insertions = read_commands(settings, kNPIFInsertionCountTicket, kNPIFInsertionValueTicket);
    summary.exceptions = read_commands(settings, kNPIFExceptionCountTicket, kNPIFExceptionValueTicket);
    summary.sizes = read_array(settings, kPageSizeArrayTicket);
    summary.types = read_array(settings, kMediaTypeArrayTicket);
    summary.colors = read_array(settings, kMediaColorArrayTicket);
    summary.tab = read_flag(settings, kWhetherMediaTypeTabTicket);
    summary.interposer = read_flag(settings, kWhetherInterposerTicket);
    summary.a5 = read_flag(settings, kWhetherMediaSizeA5Ticket);
    return summary;
}

SummaryRow row_of_record(const SpecialPageRecord& record) {
    std::string setup = record.is_true(RecordKey::interposer)
                            ? "interposer"
                            : "size " + record.text(RecordKey::pagesize) + ", color " +
                                  record.text(RecordKey::pagecolor) + ", type " +
                                  record.text(RecordKey::pagetype);
    if (record.is(RecordType::cover)) {
        setup += ", printing " + record.text(RecordKey::printingoptions);
    } else if (record.is(RecordType::insert)) {
        setup += ", sheets " + record.text(RecordKey::insertquantity);
    } else {
        setup += ", sides " + record.text(RecordKey::twoSidePrint);
    }
    return {page_word(record), type_word(record), setup};
}

std::string summary_table(const SpecialPagesSummary& summary, const std::vector<SummaryRow>& rows) {
    std::string table = rows.empty() ? "No special pages\n" : rows_table(rows);
    table += "\nCommands\n";
    const auto add = [&](const char* name, const std::vector<std::string>& commands) {
        for (const std::string& command : commands) {
            table += std::string("  ") + name + printable(command) + "\n";
        }
    };
    const std::size_t before = table.size();
    add("cover      ", summary.covers);
    add("insertion  ", summary.insertions);
    add("exception  ", summary.exceptions);
    if (table.size() == before) {
        table += "  -\n";
    }
    table += "\nPapers\n  size   " + listed(summary.sizes) + "\n  type   " + listed(summary.types) +
             "\n  color  " + listed(summary.colors) + "\n";
    table += "\nFlags\n  tab " + yes_or_no(summary.tab) + ", interposer " + yes_or_no(summary.interposer) +
             ", a5 " + yes_or_no(summary.a5) + "\n";
    return table;
}

ordered_json summary_json(const SpecialPagesSummary& summary,
                          const std::optional<std::vector<SummaryRow>>& rows) {
    ordered_json json;
    json["records"] = ordered_json::array();
    for (const SpecialPageRecord& record : summary.records) {
        ordered_json object = ordered_json::object();
        for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
            const auto key = static_cast<RecordKey>(i);
            if (const std::string* const text = record.find(key)) {
                object[std::string(record_key_name(key))] = *text;
            }
        }
        json["records"].push_back(std::move(object));
    }
    if (rows) {
        json["rows"] = ordered_json::array();
        for (const SummaryRow& row : *rows) {
            json["rows"].push_back({{"page", row.page}, {"type", row.type}, {"setup", row.setup}});
        }
    }
    json["commands"] = {
        {"covers", summary.covers}, {"insertions", summary.insertions}, {"exceptions", summary.exceptions}};
    json["papers"] = {{"size", summary.sizes}, {"type", summary.types}, {"color", summary.colors}};
    json["flags"] = {{"tab", summary.tab}, {"interposer", summary.interposer}, {"a5", summary.a5}};
    return json;
}

} // namespace specialpages::cli
