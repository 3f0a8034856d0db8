// Refreshing the table of special pages: its texts, its selection and the buttons beside it, for 50 and for
// 500 records, with nothing selected and with every row marked, as after an addition to a list that was all
// selected. The factory is linked in, since no event of a user is a refresh and nothing else.
#include "host/PaneModule.h"
#include "host/PpdFile.h"
#include "host/PrintHost.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/TableView.h"
#include "plugin/SpecialPagesPDEPluginnvbir15.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "ratio_table.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/pane_tags.h"
#include "temporary_folder.h"
#include "testing/record_settings.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace specialpages::bench {
namespace {

constexpr std::size_t kShortList = 50;
constexpr std::size_t kLongList = 500;
constexpr double kGoal = 12;

host::PaneModule linked_module() {
    auto bundle = platform::Bundle::load(SPECIALPAGES_BUNDLE_DIR);
    if (bundle == nullptr) {
        throw std::runtime_error("no bundle at " SPECIALPAGES_BUNDLE_DIR);
    }
    return {std::move(bundle), std::make_unique<SpecialPagesPDEPluginnvbir15>()};
}

void refresh(benchmark::State& state, std::size_t records, bool marked) {
    host::PrintHost host(host::PpdFile(SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd"),
                         test::record_settings(test::records_by_turns(static_cast<int>(records))));
    if (!host.openPane(linked_module())) {
        state.SkipWithError("the bundle has no pane for this PPD");
        return;
    }
    host.panel()->restoreValuesAndReturnError(nullptr);
    auto& list = *dynamic_cast<SpecialPagesPDEnvbir15&>(*host.panel()).getSPSummaryScrollViewCtrlPtr();
    auto& table = dynamic_cast<platform::TableView&>(*list.GetControlPtr());
    if (marked) {
        platform::RowSet all;
        for (std::size_t row = 0; row < records; ++row) {
            all.insert(all.end(), row);
        }
        table.userSelects(all);
        list.setSummaryScrollViewStatus(kSummaryAdding);
    }
    for (auto _ : state) {
        if (!list.upDateView()) {
            state.SkipWithError("the list has no texts");
            return;
        }
    }
    if (table.numberOfRows() != records || table.text(records - 1, 2).empty() ||
        table.numberOfSelectedRows() != (marked ? records : 0)) {
        state.SkipWithError("the table shows something else");
    }
}

std::string name_of(std::size_t records, bool marked) {
    return std::string(marked ? "refresh all marked/" : "refresh/") + std::to_string(records);
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    folder.becomeConfigurationFolder();
    for (const bool marked : {false, true}) {
        for (const std::size_t records : {kShortList, kLongList}) {
            benchmark::RegisterBenchmark(name_of(records, marked).c_str(), [=](benchmark::State& state) {
                refresh(state, records, marked);
            })->Unit(benchmark::kMicrosecond);
        }
    }
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    const auto ratio = [&medians](const std::string& what, bool marked) {
        return Ratio{what, medians.cpu(name_of(kLongList, marked)), "50 records",
                     medians.cpu(name_of(kShortList, marked)), kGoal};
    };
    print_ratios({ratio("refreshing the table, 500 records", false),
                  ratio("the same with every row marked and selected, 500 records", true)});
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
