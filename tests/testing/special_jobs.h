// Jobs that try what a print system carries, and whether it did.
#pragma once

#include "host/settings_file.h"
#include "records/ticket_keys.h"
#include "testing/PrivateCupsd.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace specialpages::test {

/// A job of many special pages, in words.
inline std::string many_special_pages(int inserts, int exceptions) {
    nlohmann::ordered_json job{{"inserts", nlohmann::ordered_json::array()},
                               {"exceptions", nlohmann::ordered_json::array()}};
    for (int page = 1; page <= inserts; page += 10) {
        std::string pages;
        for (int i = page; i < page + 10 && i <= inserts; ++i) {
            pages += (pages.empty() ? "" : ",") + std::to_string(i);
        }
        job["inserts"].push_back({{"after", pages}, {"sheets", 1}, {"paper", {{"color", "Yellow"}}}});
    }
    for (int i = 0; i < exceptions; ++i) {
        job["exceptions"].push_back({{"pages", std::to_string(1000 + 2 * i)},
                                     {"sides", "two-sided-long-edge"},
                                     {"paper", {{"size", "A3"}, {"type", "ThickPaper"}}}});
    }
    return job.dump();
}

/// Texts that are harmless on their way only when everybody quotes as they should.
inline std::vector<std::string> hostile_texts() {
    return {"",      " ",      "  a  ",    "'",       "''",     "\"",      "\\",         "\\\\",
            "a\\",   "\\'",    "$HOME",    "$(id)",   "`id`",   "!!",      "*",          "~",
            "#x",    ";false", "&&",       "|",       "> x",    "-o",      "a=b c=d",    "a{b}",
            "}",     ",",      ",,",       "a,'b',c", "no",     "yes",     "truefalse",  "0",
            "1-2",   "%s%n",   "\xC3\xA9", "'\"'\"'", "\\ \\x", "a/b",     "/49/44/300", "=",
            "==",    "a\"b'c", "<x>",      "&amp;",   "none",   "[1]",     "job-id=7",   "\xE2\x82\xAC",
            "a = b", "\\n",    "'a,b'",    "\"a b\"", "\\\"",   "copies=9"};
}

/// A setting for each of them, a long one and a list.
inline platform::PrintSettings hostile_settings() {
    const std::string prefix = "com.norvalen.nb.rtz.printsettings.";
    platform::PrintSettings settings;
    for (const std::string& text : hostile_texts()) {
        settings.setValue(prefix + "k." + std::to_string(settings.entries().size()), text, false);
    }
    settings.setValue(prefix + "long", std::string(32767, '/'), false);
    settings.setValue(prefix + "list", std::vector<std::string>{"A 4", "'", "\"\\"}, false);
    return settings;
}

/// The settings of the file, without the pane's own records.
inline platform::PrintSettings without_records(const std::filesystem::path& file) {
    platform::PrintSettings settings = host::read_settings_file(file);
    const auto entries = settings.entries();
    for (const auto& entry : entries) {
        if (entry.key.starts_with(kNPIFCommandTicket)) {
            settings.remove(entry.key);
        }
    }
    return settings;
}

/// Every setting is an option of the job, byte for byte.
inline void expect_options(const PrivateCupsd& server, int job, const platform::PrintSettings& settings) {
    const auto options = server.options(job);
    ASSERT_FALSE(settings.entries().empty());
    for (const auto& entry : settings.entries()) {
        const auto found = options.find(entry.key);
        ASSERT_NE(found, options.end()) << entry.key;
        const auto* const text = std::get_if<std::string>(&entry.value);
        std::string expected = text == nullptr ? "" : *text;
        if (text == nullptr) {
            for (const std::string& part : std::get<std::vector<std::string>>(entry.value)) {
                expected += (expected.empty() ? "" : ",") + part;
            }
        }
        EXPECT_EQ(found->second, expected) << entry.key;
    }
}

} // namespace specialpages::test
