// Opening the pane for a printer, beside what libcups needs to open and mark that printer's PPD. Opening is
// what a print dialog waits for: from asking the factory for its panels to the end of the first restore, the
// option keywords and the index of constraints in it. Every opening measured is the first of its bundle, so
// that the localised tables are read each time; the factory is linked in for that, since a loaded module
// keeps its bundle. The help book is registered before the measuring, as it is on any machine on which the
// pane was opened once.
#include "host/PaneModule.h"
#include "host/PpdFile.h"
#include "host/PrintHost.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/atomic_file.h"
#include "platform/toolkit/Nib.h"
#include "plugin/SpecialPagesPDEPluginnvbir15.h"
#include "ratio_table.h"
#include "support/plugin_bundle.h"
#include "temporary_folder.h"

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace specialpages::bench {
namespace {

constexpr const char* kPpd = SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd";
constexpr const char* kNib = SPECIALPAGES_BUNDLE_DIR "/NVSpecialPages_Default01.nib";

void open_and_mark_ppd(benchmark::State& state) {
    for (auto _ : state) {
        ppd_file_t* ppd = ppdOpenFile(kPpd);
        if (ppd == nullptr) {
            state.SkipWithError("libcups does not read the PPD");
            return;
        }
        ppdMarkDefaults(ppd);
        state.PauseTiming();
        ppdClose(ppd);
        state.ResumeTiming();
    }
}

void parse_nib(benchmark::State& state, const std::string& xml) {
    for (auto _ : state) {
        const auto root = platform::parse_nib(xml);
        if (!root) {
            state.SkipWithError("the nib is refused");
            return;
        }
        benchmark::DoNotOptimize(root->children.size());
    }
}

/// A module as if it were loaded for the first time.
host::PaneModule fresh_module() {
    pluginBundle().reset();
    auto bundle = platform::Bundle::load(SPECIALPAGES_BUNDLE_DIR);
    if (bundle == nullptr) {
        throw std::runtime_error("no bundle at " SPECIALPAGES_BUNDLE_DIR);
    }
    return {std::move(bundle), std::make_unique<SpecialPagesPDEPluginnvbir15>()};
}

bool open_pane(host::PrintHost& host, host::PaneModule module) {
    return host.openPane(std::move(module)) && host.panel()->restoreValuesAndReturnError(nullptr);
}

void open(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto host = std::make_unique<host::PrintHost>(host::PpdFile(kPpd), platform::PrintSettings());
        host::PaneModule module = fresh_module();
        state.ResumeTiming();
        const bool opened = open_pane(*host, std::move(module));
        state.PauseTiming();
        host.reset();
        state.ResumeTiming();
        if (!opened) {
            state.SkipWithError("the pane does not open");
            return;
        }
    }
}

std::string nib_text() {
    std::string error;
    auto text = platform::read_file(kNib, &error, platform::kMaxNibBytes);
    if (!text) {
        throw std::runtime_error(error);
    }
    return std::move(*text);
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    folder.becomeConfigurationFolder();
    {
        host::PrintHost host{host::PpdFile(kPpd), platform::PrintSettings()};
        open_pane(host, fresh_module()); // registers the help book
    }
    const std::string xml = nib_text();
    const auto add = [](const char* name, auto measure) {
        benchmark::RegisterBenchmark(name, measure)->Unit(benchmark::kMicrosecond);
    };
    add("open", open);
    add("parse_nib", [&xml](benchmark::State& state) { parse_nib(state, xml); });
    add("libcups", open_and_mark_ppd);
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    const std::string baseline = "ppdOpenFile and ppdMarkDefaults";
    const double opening = medians.cpu("open");
    const double nib = medians.cpu("parse_nib");
    const double libcups = medians.cpu("libcups");
    print_ratios({{"opening the pane without parsing its nib", opening - nib, baseline, libcups, 1.0},
                  {"parsing the nib", nib, baseline, libcups, 0},
                  {"opening the pane with parsing its nib", opening, baseline, libcups, 1.0}});
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
