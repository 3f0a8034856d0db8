// Exceptions of very many pages through the dialog of the pane, as a host loads it from its bundle: "1-"
// added, edited to "2-", and OK over a list of 250 exceptions. Each is done for 6,500 and for 65,000 pages; a
// time that grows with the pages and not faster stays under the goal. Each round is undone, so that all are
// alike.
#include "cli/pane_tags.h"
#include "host/PaneModule.h"
#include "host/PpdFile.h"
#include "host/PrintHost.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "ratio_table.h"
#include "temporary_folder.h"
#include "testing/record_settings.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace specialpages::bench {
namespace {

constexpr int kFewPages = 6500;
constexpr int kManyPages = 65000;
constexpr int kExceptions = 250;

constexpr std::int32_t kAddButton = 102;
constexpr std::int32_t kEditButton = 105;
constexpr std::int32_t kUndoButton = 108;
constexpr std::int32_t kOkButton = 315;
constexpr std::int32_t kPageText = 311;

/// The person at the dialog: acts once in each run.
class Person : public platform::ApplicationFace {
  public:
    Person() : before_(platform::Application::shared().setFace(this)) {}
    ~Person() override { platform::Application::shared().setFace(before_); }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;
    void runEvents(platform::Window& window, const std::function<bool()>& /*stopped*/) override {
        act(window);
    }
    void showAlert(const platform::Alert& alert) override { throw std::runtime_error(alert.informativeText); }
    void beep() override { throw std::runtime_error("a beep"); }

    std::function<void(platform::Window&)> act;

  private:
    platform::ApplicationFace* before_;
};

template <typename Kind>
Kind& view(platform::Window& window, std::int32_t tag) {
    return dynamic_cast<Kind&>(*window.viewWithTag(tag));
}

void press(platform::Window& window, std::int32_t tag) {
    if (!view<platform::Button>(window, tag).click()) {
        throw std::runtime_error("the button " + std::to_string(tag) + " takes no event");
    }
}

void type_pages(platform::Window& window, const std::string& pages) {
    view<platform::TextField>(window, kPageText).type(pages);
}

std::string exception_of(const std::string& pages, int color) {
    return "2," + pages + ",2,0," + std::to_string(color) + ",false,1,210.0,297.0,1";
}

/// Ranges of equal length whose neighbours differ in color.
std::vector<std::string> exceptions_over(int pages) {
    std::vector<std::string> records;
    const int length = pages / kExceptions;
    for (int i = 0; i < kExceptions; ++i) {
        const std::string range = std::to_string(i * length + 1) + "-" + std::to_string((i + 1) * length);
        records.push_back(exception_of(range, i % 2));
    }
    return records;
}

struct Round {
    std::vector<std::string> saved; ///< records before each round
    std::int32_t opener = kAddButton;
    std::string typed;    ///< empty: the pages stay as they are shown
    std::string expected; ///< pages of the first row after OK; empty: any
};

void go_round(benchmark::State& state, const Round& round) {
    Person person;
    host::PrintHost host(host::PpdFile(SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd"),
                         test::record_settings(round.saved));
    if (!host.openPane(host::PaneModule(SPECIALPAGES_BUNDLE_DIR))) {
        state.SkipWithError("the bundle has no pane for this PPD");
        return;
    }
    host.panel()->restoreValuesAndReturnError(nullptr);
    platform::Window& window = host.window();
    auto& table = view<platform::TableView>(window, cli::kSpecialPagesTableTag);
    person.act = [&](platform::Window& dialog) {
        if (!round.typed.empty()) {
            type_pages(dialog, round.typed);
        }
        press(dialog, kOkButton);
    };
    for (auto _ : state) {
        if (round.opener == kEditButton) {
            table.userSelects({0});
        }
        press(window, round.opener);
        if (!round.expected.empty() && table.text(0, 0) != round.expected) {
            state.SkipWithError("OK made other exceptions");
            return;
        }
        press(window, kUndoButton);
    }
    if (table.numberOfRows() != round.saved.size()) {
        state.SkipWithError("undo did not bring the list back");
    }
}

struct Subject {
    std::string what;
    std::function<Round(int pages)> round;
};

std::string last_page(int pages) {
    return pages == kManyPages ? "" : std::to_string(pages);
}

const std::vector<Subject>& subjects() {
    static const std::vector<Subject> all{
        {"add \"1-\"",
         [](int pages) {
             return Round{{}, kAddButton, "1-" + last_page(pages), "1-" + std::to_string(pages)};
         }},
        {"edit it to \"2-\"",
         [](int pages) {
             return Round{{exception_of("1-" + std::to_string(pages), 0)},
                          kEditButton,
                          "2-" + last_page(pages),
                          "2-" + std::to_string(pages)};
         }},
        {"OK over 250 exceptions",
         [](int pages) {
             return Round{exceptions_over(pages), kEditButton, "", ""};
         }},
    };
    return all;
}

std::string name_of(const Subject& subject, int pages) {
    return subject.what + "/" + std::to_string(pages);
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    folder.becomeConfigurationFolder();
    for (const Subject& subject : subjects()) {
        for (const int pages : {kFewPages, kManyPages}) {
            benchmark::RegisterBenchmark(name_of(subject, pages).c_str(), [&subject, pages](auto& state) {
                go_round(state, subject.round(pages));
            })->Unit(benchmark::kMicrosecond);
        }
    }
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    std::vector<Ratio> ratios;
    for (const Subject& subject : subjects()) {
        ratios.push_back({subject.what + ", 65,000 pages", medians.cpu(name_of(subject, kManyPages)),
                          "6,500 pages", medians.cpu(name_of(subject, kFewPages)), 12});
    }
    print_ratios(ratios);
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
