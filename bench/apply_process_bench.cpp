// `special-pages apply` as a process, from its start to its end, beside a program that loads the same shared
// libraries and only opens and marks the same PPD. The real time is what the user waits for; the processor's
// time is shown with it, since on a busy machine it says more. The result goes to a file, which is written
// atomically and flushed to the disk; the same without a file shows what that costs.
#include "host/settings_file.h"
#include "platform/print/PrintSettings.h"
#include "ratio_table.h"
#include "records/ticket_keys.h"
#include "temporary_folder.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace specialpages::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPpd = SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd";
constexpr const char* kSettings = SPECIALPAGES_SOURCE_DIR "/examples/settings/three-records.json";
constexpr const char* kProgram = SPECIALPAGES_BINARY_DIR "/bin/special-pages";
constexpr const char* kBaseline = SPECIALPAGES_BINARY_DIR "/bench/open_ppd_baseline";
constexpr const char* kModule = SPECIALPAGES_BUNDLE_DIR "/SpecialPages.so";

struct Times {
    double real = 0; ///< seconds from before the start to after the end
    double cpu = 0;  ///< seconds of the process in user and system mode
};

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Standard output leads to nowhere. Empty optional when the process cannot be started or does not exit with
/// 0.
std::optional<Times> run_process(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& text : command) {
        arguments.push_back(const_cast<char*>(text.c_str())); // posix_spawn does not write to them
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    int status = -1;
    rusage used{};
    const bool ended =
        posix_spawn(&process, arguments.front(), &actions, nullptr, arguments.data(), environ) == 0 &&
        wait4(process, &status, 0, &used) == process;
    const std::chrono::duration<double> real = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    if (!ended || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        return std::nullopt;
    }
    return Times{real.count(), seconds(used.ru_utime) + seconds(used.ru_stime)};
}

void measure(benchmark::State& state, const std::vector<std::string>& command) {
    double cpu = 0;
    for (auto _ : state) {
        const auto times = run_process(command);
        if (!times) {
            state.SkipWithError("the process failed");
            return;
        }
        state.SetIterationTime(times->real);
        cpu += times->cpu;
    }
    state.counters["cpu"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
}

/// Runs the program once: what is measured must do its work. Registers the help book too.
void check_apply(const std::vector<std::string>& command, const fs::path& out) {
    if (!run_process(command)) {
        throw std::runtime_error("special-pages apply failed");
    }
    const platform::PrintSettings settings = host::read_settings_file(out);
    const platform::SettingsValue* count = settings.value(kSpecialPageRecordCountTicket);
    if (count == nullptr || *count != platform::SettingsValue("3")) {
        throw std::runtime_error("special-pages apply did not write the three records");
    }
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    folder.becomeConfigurationFolder();
    const fs::path out = folder.path() / "out.json";
    const std::vector<std::string> to_stream{kProgram, "apply", "--ppd", kPpd, "--settings", kSettings};
    std::vector<std::string> to_file = to_stream;
    to_file.insert(to_file.end(), {"--out", out.string()});
    check_apply(to_file, out);

    const auto add = [](const char* name, const std::vector<std::string>& command) {
        benchmark::RegisterBenchmark(name, [command](benchmark::State& state) { measure(state, command); })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("apply", to_file);
    add("apply_without_file", to_stream);
    add("baseline", {kBaseline, kPpd, kModule});
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    const auto real = [&medians](const char* name) {
        return medians.real(name);
    };
    const auto cpu = [&medians](const char* name) {
        return medians.counter(name, "cpu");
    };
    print_ratios(
        {{"apply --out FILE, real time", real("apply"), "open and mark the PPD", real("baseline"), 1.5},
         {"apply, real time", real("apply_without_file"), "the same", real("baseline"), 0},
         {"apply --out FILE, processor time", cpu("apply"), "the same", cpu("baseline"), 0},
         {"apply, processor time", cpu("apply_without_file"), "the same", cpu("baseline"), 0}});
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
