#include "cli/SpecialPagesSummary.h"
#include "cli/commands.h"
#include "cli/pane_tags.h"
#include "host/HostError.h"
#include "platform/toolkit/TableView.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace specialpages::cli {

namespace {

/// What the pane itself shows in its table for these settings.
std::vector<SummaryRow> rows_of_pane(host::PrintHost& host) {
    host.panel()->restoreValuesAndReturnError(nullptr);
    auto* const table = dynamic_cast<platform::TableView*>(host.window().viewWithTag(kSpecialPagesTableTag));
    if (table == nullptr) {
        throw host::HostError(host::ErrorCode::other, "the pane",
                              "expected a table with the tag " + std::to_string(kSpecialPagesTableTag));
    }
    std::vector<SummaryRow> rows;
    for (std::size_t row = 0; row < table->numberOfRows(); ++row) {
        rows.push_back({table->text(row, 0), table->text(row, 1), table->text(row, 2)});
    }
    return rows;
}

/// The rows for people: where the pane has no text for the setup, the stored indexes stand in for it.
std::vector<SummaryRow> readable_rows(const SpecialPagesSummary& summary,
                                      const std::optional<std::vector<SummaryRow>>& shown) {
    std::vector<SummaryRow> rows = shown.value_or(std::vector<SummaryRow>{});
    for (std::size_t i = 0; i < summary.records.size() && (!shown || i < rows.size()); ++i) {
        SummaryRow stored = row_of_record(summary.records[i]);
        if (!shown) {
            rows.push_back(std::move(stored));
        } else if (rows[i].setup.empty()) {
            rows[i].setup = std::move(stored.setup);
        }
    }
    return rows;
}

} // namespace

void show_command(const ShowOptions& options, Streams streams) {
    SpecialPagesSummary summary;
    std::optional<std::vector<SummaryRow>> shown;
    if (options.ppd) {
        PaneOptions pane;
        pane.ppd = *options.ppd;
        pane.settings = options.settings;
        pane.language = options.language;
        const auto host = open_pane(pane, streams.in);
        summary = summarise(host->settings());
        shown = rows_of_pane(*host);
    } else {
        summary = summarise(read_settings(options.settings, streams.in));
    }
    if (options.json) {
        streams.out << summary_json(summary, shown)
                           .dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
                    << '\n';
    } else {
        streams.out << summary_table(summary, readable_rows(summary, shown));
    }
}

} // namespace specialpages::cli
