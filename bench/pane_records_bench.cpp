// Restoring the pane from a job's settings and saving it again, for lists of records of several lengths, in
// the pane as a host loads it from its bundle. The list should cost a time that grows with its length and
// not faster; the empty list shows what a restore and a save cost apart from the records.
#include "host/PaneModule.h"
#include "host/PpdFile.h"
#include "host/PrintHost.h"
#include "platform/print/PrintSettings.h"
#include "ratio_table.h"
#include "records/ticket_keys.h"
#include "temporary_folder.h"
#include "testing/record_settings.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>
#include <variant>

namespace specialpages::bench {
namespace {

constexpr int kShortList = 50;
constexpr int kLongList = 500;

bool holds(const platform::PrintSettings& settings, std::string_view key, const std::string& text) {
    const platform::SettingsValue* value = settings.value(key);
    return value != nullptr && *value == platform::SettingsValue(text);
}

/// Whether the pane wrote all records and the command of each.
bool was_saved(const platform::PrintSettings& settings, int records) {
    const std::string half = records == 0 ? "" : std::to_string(records / 2);
    return holds(settings, kSpecialPageRecordCountTicket, std::to_string(records)) &&
           holds(settings, kNPIFInsertionCountTicket, half) &&
           holds(settings, kNPIFExceptionCountTicket, half);
}

void restore_and_save(benchmark::State& state, int records) {
    host::PrintHost host(host::PpdFile(SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd"),
                         test::record_settings(test::records_by_turns(records)));
    if (!host.openPane(host::PaneModule(SPECIALPAGES_BUNDLE_DIR))) {
        state.SkipWithError("the bundle has no pane for this PPD");
        return;
    }
    platform::PrintDialogPanel& panel = *host.panel();
    panel.restoreValuesAndReturnError(nullptr); // builds the pane
    for (auto _ : state) {
        if (!panel.restoreValuesAndReturnError(nullptr) || !panel.saveValuesAndReturnError(nullptr)) {
            state.SkipWithError("the pane does not restore or does not save");
            return;
        }
    }
    if (!was_saved(host.settings(), records)) {
        state.SkipWithError("the saved settings lack records");
    }
}

std::string name_of(int records) {
    return "restore_and_save/" + std::to_string(records);
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    folder.becomeConfigurationFolder();
    for (const int records : {0, kShortList, kLongList}) {
        benchmark::RegisterBenchmark(name_of(records).c_str(), [records](benchmark::State& state) {
            restore_and_save(state, records);
        })->Unit(benchmark::kMicrosecond);
    }
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    const double empty = medians.cpu(name_of(0));
    const double of_short = medians.cpu(name_of(kShortList));
    const double of_long = medians.cpu(name_of(kLongList));
    print_ratios({{"a record of 500", of_long / kLongList, "a record of 50", of_short / kShortList, 1.3},
                  {"a record of 500, without what an empty list costs", (of_long - empty) / kLongList,
                   "a record of 50, the same", (of_short - empty) / kShortList, 1.3}});
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
