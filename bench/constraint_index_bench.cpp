// The constraint index beside libcups, in one run: compiling against opening the PPD, asking against marking
// and asking libcups for conflicts, loading the cache file against compiling. The last thing printed is a
// table of the ratios, with the memory of an entry.
#include "generated_ppd.h"
#include "ppd/CQuickXPPD.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "ratio_table.h"
#include "temporary_folder.h"

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace specialpages::bench {
namespace {

namespace fs = std::filesystem;

/// One PPD on disk and open, its cache file, and its compiled index.
struct Subject {
    Subject(const fs::path& folder, const PpdSizes& sizes)
        : sizes(sizes), name(std::to_string(sizes.constraints) + "/" + std::to_string(sizes.options)),
          file(
              (folder / (std::to_string(sizes.constraints) + "-" + std::to_string(sizes.options))).string()) {
        const std::string cache = file + ".xppd";
        std::ofstream(file, std::ios::binary) << PpdWriter(sizes).text("*NVXCDFSetting: \"" + cache + "\"\n");
        ppd = ppdOpenFile(file.c_str());
        if (ppd == nullptr || static_cast<std::size_t>(ppd->num_consts) != sizes.constraints) {
            throw std::runtime_error("libcups does not read the generated PPD " + name);
        }
        ppdMarkDefaults(ppd);
        keywords = option_keywords(ppd);
        compile_constraints(ppd, &index, keywords);

        const std::string section = "SpecialPagesPDETiger";
        const std::array<x_PDEConstr, 2> sections{{{&section, &keywords}, {}}};
        ConstraintIndex scratch;
        CQuickXPPD writer(ppd, &scratch, sections.data(), std::nullopt);
        std::ofstream written(cache, std::ios::binary);
        written << writer;
    }
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;
    ~Subject() { ppdClose(ppd); }

    PpdSizes sizes;
    std::string name;
    std::string file;
    ppd_file_t* ppd = nullptr;
    std::vector<std::string> keywords;
    ConstraintIndex index;
};

void open_ppd(benchmark::State& state, const Subject& subject) {
    for (auto _ : state) {
        ppd_file_t* opened = ppdOpenFile(subject.file.c_str());
        state.PauseTiming();
        ppdClose(opened);
        state.ResumeTiming();
    }
}

void compile(benchmark::State& state, const Subject& subject) {
    for (auto _ : state) {
        ConstraintIndex index;
        compile_constraints(subject.ppd, &index, subject.keywords);
        benchmark::DoNotOptimize(index.size());
    }
}

void load(benchmark::State& state, const Subject& subject) {
    for (auto _ : state) {
        ConstraintIndex index;
        GetXPPD(subject.ppd, &index, "SpecialPagesPDE", "NVXCDFSetting");
        if (index.size() != subject.index.size()) {
            state.SkipWithError("the cache file holds another index");
        }
    }
}

/// Options to ask about: the menus with few constraints each, or the same number of the others.
std::vector<const ppd_option_t*> options_from(const Subject& subject, std::size_t first) {
    std::vector<const ppd_option_t*> options;
    for (std::size_t i = 0; i < kAskedOptions; ++i) {
        options.push_back(ppdFindOption(subject.ppd, option_name(first + i).c_str()));
    }
    return options;
}

void ask(benchmark::State& state, const Subject& subject, std::size_t first) {
    const auto options = options_from(subject, first);
    for (auto _ : state) {
        int conflicts = 0;
        for (const ppd_option_t* option : options) {
            for (int i = 0; i < option->num_choices; ++i) {
                conflicts += IsPPDChoiceConflicted(subject.ppd, &subject.index, option->keyword,
                                                   option->choices[i].choice)
                                 ? 1
                                 : 0;
            }
        }
        benchmark::DoNotOptimize(conflicts);
    }
}

/// ppdMarkOption counts the conflicts itself, by ppdConflicts, so that it is not called a second time.
void mark_and_ask(benchmark::State& state, const Subject& subject) {
    const auto options = options_from(subject, 0);
    for (auto _ : state) {
        int conflicts = 0;
        for (const ppd_option_t* option : options) {
            for (int i = 0; i < option->num_choices; ++i) {
                conflicts += ppdMarkOption(subject.ppd, option->keyword, option->choices[i].choice);
            }
        }
        benchmark::DoNotOptimize(conflicts);
    }
    ppdMarkDefaults(subject.ppd);
}

/// Key text, three positions of 16 bits and three pointers, on average over the entries.
double plain_bytes_per_entry(const ConstraintIndex& index) {
    std::size_t bytes = 0;
    for (const auto& [key, place] : index) {
        bytes += key.size() + sizeof place + 3 * sizeof(void*);
    }
    return static_cast<double>(bytes) / static_cast<double>(index.size());
}

void print_table(const Medians& medians, const std::deque<Subject>& subjects) {
    std::printf("\n| constraints | options | entries | open ms | compile ms | open / compile | ask us | ask "
                "dense us |"
                " libcups us | libcups / ask | libcups / dense | load ms | compile / load | bytes per entry |"
                " of plain |\n|");
    for (int column = 0; column < 15; ++column) {
        std::printf("--:|");
    }
    for (const Subject& subject : subjects) {
        const auto median = [&](const std::string& what) {
            return medians.cpu(what + "/" + subject.name);
        };
        const double open = median("open");
        const double compiled = median("compile");
        const double asked = median("ask");
        const double dense = median("ask_dense");
        const double libcups = median("libcups");
        const double loaded = median("load");
        const double bytes =
            static_cast<double>(subject.index.memory_bytes()) / static_cast<double>(subject.index.size());
        std::printf("\n| %zu | %zu | %zu | %.2f | %.3f | %.1f | %.2f | %.2f | %.0f | %.0f | %.0f | %.3f | "
                    "%.1f | %.1f |"
                    " %.2f |",
                    subject.sizes.constraints, subject.sizes.options, subject.index.size(), open * 1e3,
                    compiled * 1e3, open / compiled, asked * 1e6, dense * 1e6, libcups * 1e6, libcups / asked,
                    libcups / dense, loaded * 1e3, compiled / loaded, bytes,
                    bytes / plain_bytes_per_entry(subject.index));
    }
    std::printf("\n");
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    std::deque<Subject> subjects;
    for (const std::size_t options : {50U, 150U}) {
        for (const std::size_t constraints : {500U, 5'000U, 20'000U, 50'000U}) {
            PpdSizes sizes;
            sizes.constraints = constraints;
            sizes.options = options;
            const Subject& subject = subjects.emplace_back(folder.path(), sizes);
            const auto add = [&subject](const std::string& what, auto measure) {
                benchmark::RegisterBenchmark(
                    (what + "/" + subject.name).c_str(),
                    [&subject, measure](benchmark::State& state) { measure(state, subject); })
                    ->Unit(benchmark::kMicrosecond);
            };
            add("open", open_ppd);
            add("compile", compile);
            add("load", load);
            add("ask", [](benchmark::State& state, const Subject& asked) { ask(state, asked, 0); });
            add("ask_dense",
                [](benchmark::State& state, const Subject& asked) { ask(state, asked, kAskedOptions); });
            add("libcups", mark_and_ask);
        }
    }
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    print_table(medians, subjects);
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::run(argc, argv);
}
