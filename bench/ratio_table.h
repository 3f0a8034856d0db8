// Medians of one run of Google Benchmark, and the table of their ratios that a benchmark ends with. Only
// ratios within one run are compared with goals: they hold on a loaded machine and on any other.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace specialpages::bench {

/// Prints as usual and keeps the medians of each benchmark, by its name.
class Medians : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            failed_ = failed_ || run.error_occurred;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                medians_.insert_or_assign(run.run_name.function_name, run);
            }
        }
    }

    /// Whether some benchmark stopped with an error.
    bool failed() const { return failed_; }

    /// Seconds an iteration; 0 for a benchmark that did not run.
    double cpu(const std::string& name) const {
        const Run* run = find(name);
        return run == nullptr ? 0
                              : run->GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run->time_unit);
    }
    /// The same of the real time, or of the time that the benchmark set by hand.
    double real(const std::string& name) const {
        const Run* run = find(name);
        return run == nullptr ? 0
                              : run->GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run->time_unit);
    }
    /// A counter as it was reported; 0 when there is none of that name.
    double counter(const std::string& name, const std::string& counter) const {
        const Run* run = find(name);
        return run == nullptr || !run->counters.contains(counter) ? 0 : run->counters.at(counter).value;
    }

  private:
    const Run* find(const std::string& name) const {
        const auto found = medians_.find(name);
        return found == medians_.end() ? nullptr : &found->second;
    }

    std::map<std::string, Run> medians_;
    bool failed_ = false;
};

/// What `run` answers; 1 when it throws, with the sentence on standard error.
inline int told(const char* program, const std::function<int()>& run) {
    try {
        return run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", std::filesystem::path(program).filename().c_str(), error.what());
        return 1;
    }
}

/// Runs what was registered, five times each in random order, unless the command line says otherwise. False
/// for an argument that nobody knows and when a benchmark stopped with an error.
inline bool run_benchmarks(int argc, char** argv, Medians& medians) {
    std::vector<std::string> texts(argv, argv + argc);
    texts.insert(texts.begin() + 1,
                 {"--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
                  "--benchmark_min_time=0.2", "--benchmark_report_aggregates_only=true"});
    std::vector<char*> arguments;
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return false;
    }
    benchmark::RunSpecifiedBenchmarks(&medians);
    return !medians.failed();
}

/// One line of the table; times in seconds.
struct Ratio {
    std::string what;
    double subject = 0;
    std::string baseline;
    double base = 0;
    double goal = 0; ///< largest ratio that is wanted; 0: the line has none
};

inline void print_ratios(const std::vector<Ratio>& ratios) {
    constexpr double kMicroseconds = 1e6;
    std::printf("\n| what | us | baseline | us | ratio | goal | |\n|---|--:|---|--:|--:|--:|---|\n");
    for (const Ratio& ratio : ratios) {
        if (ratio.base <= 0) { // filtered out by the command line
            continue;
        }
        const double value = ratio.subject / ratio.base;
        std::printf("| %s | %.2f | %s | %.2f | %.2f |", ratio.what.c_str(), ratio.subject * kMicroseconds,
                    ratio.baseline.c_str(), ratio.base * kMicroseconds, value);
        if (ratio.goal > 0) {
            std::printf(" %.1f | %s |\n", ratio.goal, value <= ratio.goal ? "met" : "missed");
        } else {
            std::printf(" | |\n");
        }
    }
}

} // namespace specialpages::bench
