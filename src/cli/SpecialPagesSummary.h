// What the print settings of a job say about its special pages: the pane's records, and what the print
// back-end is told.
#pragma once

#include "platform/print/PrintSettings.h"
#include "records/SpecialPageRecord.h"

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::cli {

/// One line of the list of special pages, as it is shown.
struct SummaryRow {
    std::string page;
    std::string type;
    std::string setup;

    bool operator==(const SummaryRow&) const = default;
};

struct SpecialPagesSummary {
    RecordList records;
    /// The commands as plain text.
    std::vector<std::string> covers;
    std::vector<std::string> insertions;
    std::vector<std::string> exceptions;
    /// PPD keywords.
    std::vector<std::string> sizes;
    std::vector<std::string> types;
    std::vector<std::string> colors;
    bool tab = false;
    bool interposer = false;
    bool a5 = false;
};

/// What is not in the settings is empty or false, and a count that is no number is 0, as the pane reads it. A
/// record of an unknown kind is left out. HostError (input), naming the key, for an entry that a count
/// announces and that is missing, has too few fields, or is malformed.
SpecialPagesSummary summarise(const platform::PrintSettings& settings);

/// The record in words that need no PPD: stored indexes in place of names.
SummaryRow row_of_record(const SpecialPageRecord& record);

/// The table for people: the rows under their titles, columns aligned, then commands, papers and flags.
std::string summary_table(const SpecialPagesSummary& summary, const std::vector<SummaryRow>& rows);

/// The same as JSON; `rows` only when they are given.
nlohmann::ordered_json summary_json(const SpecialPagesSummary& summary,
                                    const std::optional<std::vector<SummaryRow>>& rows);

} // namespace specialpages::cli
