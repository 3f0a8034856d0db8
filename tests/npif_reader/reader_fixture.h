// Print settings as the options of a job, and what the reader says of them in the shape of `show --json`.
#pragma once

#include "npif_reader.hpp"
#include "platform/print/PrintSettings.h"
#include "support/slash_decimal.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace npif::testing {

inline const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

/// A value as CUPS writes it into a filter's fifth argument.
inline std::string escaped(std::string_view value) {
    std::string text;
    for (const char byte : value) {
        if (std::string_view(" \t\n\\'\"").find(byte) != std::string_view::npos) {
            text += '\\';
        }
        text += byte;
    }
    return text;
}

using Options = std::vector<std::pair<std::string, std::string>>;

inline std::string argument_of(const Options& options) {
    std::string argument;
    for (const auto& [name, value] : options) {
        argument += (argument.empty() ? "" : " ") + name + "=" + escaped(value);
    }
    return argument;
}

/// An array's entries joined by commas, those with a comma in slash-decimal form.
inline std::string list_value(const std::vector<std::string>& entries) {
    std::string value;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        value += (i == 0 ? "" : ",") + specialpages::ticket_text(entries[i]);
    }
    return value;
}

inline Options options_of(const specialpages::platform::PrintSettings& settings) {
    Options options;
    for (const auto& entry : settings.entries()) {
        const auto* const text = std::get_if<std::string>(&entry.value);
        options.emplace_back(
            entry.key, text != nullptr ? *text : list_value(std::get<std::vector<std::string>>(entry.value)));
    }
    return options;
}

inline nlohmann::ordered_json texts_of(const Reader& reader, npif_kind kind) {
    auto texts = nlohmann::ordered_json::array();
    for (const npif_command& command : reader.commands(kind)) {
        texts.push_back(std::string(view(command.text)));
    }
    return texts;
}

inline nlohmann::ordered_json papers_of(const Reader& reader, npif_list list) {
    auto texts = nlohmann::ordered_json::array();
    for (const std::string_view paper : reader.papers(list)) {
        texts.push_back(std::string(paper));
    }
    return texts;
}

/// The order of keys within a record says nothing.
inline nlohmann::json as_shown(const Reader& reader) {
    nlohmann::ordered_json json;
    json["records"] = nlohmann::ordered_json::array();
    for (const npif_record& record : reader.records()) {
        nlohmann::ordered_json object;
        for (int key = 0; key < NPIF_RECORD_KEY_COUNT; ++key) {
            if (const auto text = optional_view(npif_record_text(&record, npif_record_key(key)))) {
                object[npif_record_key_name(npif_record_key(key))] = std::string(*text);
            }
        }
        json["records"].push_back(object);
    }
    json["commands"] = {{"covers", texts_of(reader, NPIF_COVER)},
                        {"insertions", texts_of(reader, NPIF_INSERTION)},
                        {"exceptions", texts_of(reader, NPIF_EXCEPTION)}};
    json["papers"] = {{"size", papers_of(reader, NPIF_SIZES)},
                      {"type", papers_of(reader, NPIF_TYPES)},
                      {"color", papers_of(reader, NPIF_COLORS)}};
    json["flags"] = {{"tab", reader.flag(NPIF_TAB)},
                     {"interposer", reader.flag(NPIF_INTERPOSER)},
                     {"a5", reader.flag(NPIF_A5)}};
    return nlohmann::json::parse(json.dump());
}

inline std::vector<std::string> sentences_of(const Reader& reader) {
    std::vector<std::string> sentences;
    for (const npif_problem& problem : reader.problems()) {
        sentences.emplace_back(view(problem.sentence));
    }
    return sentences;
}

} // namespace npif::testing
