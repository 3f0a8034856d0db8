// From the start of a process to the painted tab: this program starts itself, once to show the print dialog
// with the pane of the sample printer as special-pages-print does, and once to show an empty QPrintDialog.
// Both take turns, and each stops its clock when everything of its window that can be seen was painted. The
// real time is what the user waits for; the processor's time up to the same moment is shown with it, since on
// a busy machine it says more. No screen, no print system and the same fonts for both.
//     window_start_bench [ROUNDS]
#include "host/PaneModule.h"
#include "painted_widgets.h"
#include "platform/foundation/numbers.h"
#include "qt/PaneGlance.h"
#include "qt/PrintProgram.h"
#include "qt/TableWidget.h"
#include "qt/read_ahead.h"
#include "qt/run_print.h"
#include "ratio_table.h"
#include "temporary_folder.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLibraryInfo>
#include <QLocale>
#include <QPrintDialog>
#include <QPrinter>
#include <QTabWidget>
#include <QTranslator>
#include <algorithm>
#include <array>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace specialpages::bench {
namespace {

constexpr const char* kPpd = SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd";
constexpr const char* kFonts = SPECIALPAGES_SOURCE_DIR "/tests/data/fonts.conf";
constexpr std::int32_t kRounds = 25;
constexpr double kGoal = 1.3;

/// What a started program shows, and the argument that says so.
enum Subject : std::size_t { kEmpty, kEmptyWithTabs, kPane, kSubjects };
constexpr std::array<const char*, kSubjects> kArguments{"--empty", "--empty-with-tabs", "--pane"};

double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// What a started program tells of itself, in seconds.
struct Moments {
    double painted = 0; ///< when its window was painted, by the clock that all processes share
    double cpu = 0;     ///< what it had used of the processor by then
    double idle = 0;    ///< when nothing was left to do after that
};

// The program that is started.

/// Whether the tab in front has the pane, and all of it was painted: buttons, table, strip.
bool shows_pane(const qt::PrintDialog& dialog, const PaintedWidgets& painted) {
    qt::PrinterPane* const shown = dialog.pane();
    if (shown == nullptr || shown->glance() == nullptr ||
        dialog.findChild<QTabWidget*>()->currentWidget() != dialog.tab()) {
        return false;
    }
    const auto* const table = dynamic_cast<qt::TableWidget*>(shown->widget().findChild<QTableView*>());
    return table != nullptr && painted.contains(*table->viewport()) &&
           painted.contains(*shown->glance()->strip().viewport()) && painted.containsAllOf(*dialog.tab());
}

/// Waits until all of the window that can be seen was painted; false when it is not within ten seconds.
bool wait_for_paint(const QWidget& window, const PaintedWidgets& painted, Moments& moments) {
    constexpr qint64 kMostMilliseconds = 10'000;
    QElapsedTimer waiting;
    waiting.start();
    while (!painted.containsAllOf(window)) {
        QApplication::processEvents();
        if (waiting.elapsed() > kMostMilliseconds) {
            return false;
        }
    }
    moments.painted = now(CLOCK_MONOTONIC);
    moments.cpu = now(CLOCK_PROCESS_CPUTIME_ID);
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
    moments.idle = now(CLOCK_MONOTONIC);
    return true;
}

/// Opens the dialog's tabs as a user does, by the one button that "resets".
void open_tabs(const QDialog& dialog) {
    for (const auto* const box : dialog.findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* const button : box->buttons()) {
            if (box->buttonRole(button) == QDialogButtonBox::ResetRole) {
                button->click();
            }
        }
    }
}

bool show_empty(bool withTabs, Moments& moments) {
    const PaintedWidgets painted;
    QPrinter printer;
    QPrintDialog dialog(&printer);
    printer.setOutputFormat(QPrinter::PdfFormat);
    dialog.show();
    if (withTabs) {
        open_tabs(dialog);
    }
    return wait_for_paint(dialog, painted, moments) &&
           dialog.findChild<QTabWidget*>()->isVisible() == withTabs;
}

bool show_pane(const qt::PrintOptions& options, const qt::PrintServices& services, Moments& moments) {
    const PaintedWidgets painted;
    qt::PrintProgram program(options, services, std::cout, std::cerr);
    program.dialog().show();
    return wait_for_paint(program.dialog(), painted, moments) && shows_pane(program.dialog(), painted);
}

/// As special-pages-print begins, for either window; the moments go to standard output.
int run_subject(Subject subject, char* program) {
    int exit = 0;
    auto options = qt::parse_print_options({"--ppd", kPpd}, std::cout, std::cerr, exit);
    if (!options) {
        return exit;
    }
    auto services = qt::cups_services();
    if (subject == kPane) {
        services = qt::read_ahead(*options, std::move(services));
    }
    int programAlone = 1;
    std::array<char*, 2> arguments{program, nullptr};
    const QApplication application(programAlone, arguments.data());
    std::setlocale(LC_NUMERIC, "C");
    options->language = QLocale::system().uiLanguages().value(0).toStdString();
    QTranslator words;
    if (words.load(QLocale(QString::fromStdString(options->language)), QStringLiteral("qtbase"),
                   QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&words);
    }
    Moments moments;
    if (!(subject == kPane ? show_pane(*options, services, moments)
                           : show_empty(subject == kEmptyWithTabs, moments))) {
        return 1;
    }
    return write(STDOUT_FILENO, &moments, sizeof moments) == sizeof moments ? 0 : 1;
}

// The program that starts it.

/// Of one start, in seconds: until painted and until idle, and the processor's until painted.
struct Times {
    double real = 0;
    double cpu = 0;
    double idle = 0;
};

Times start(Subject subject) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    std::string argument = kArguments[subject];
    std::array<char*, 3> arguments{self.data(), argument.data(), nullptr};
    const double begin = now(CLOCK_MONOTONIC);
    pid_t process = 0;
    const bool started =
        posix_spawn(&process, self.c_str(), &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    Moments moments;
    const bool told = started && read(ends[0], &moments, sizeof moments) == sizeof moments;
    close(ends[0]);
    int status = -1;
    if (!started || waitpid(process, &status, 0) != process || !told || status != 0) {
        throw std::runtime_error("the window of " + argument + " was not painted");
    }
    return {moments.painted - begin, moments.cpu, moments.idle - begin};
}

/// The value that a part of all values is below.
double quantile(std::vector<double> values, double part) {
    const auto place = static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1) + 0.5);
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[static_cast<std::size_t>(place)];
}

using Rounds = std::vector<std::array<Times, kSubjects>>;

/// All subjects of a round one after the other, in each round another first.
Rounds run_rounds(std::size_t count) {
    for (std::size_t subject = 0; subject < kSubjects; ++subject) {
        start(static_cast<Subject>(subject)); // fills caches of files and fonts, registers the help book
    }
    Rounds rounds(count);
    for (std::size_t round = 0; round < count; ++round) {
        for (std::size_t i = 0; i < kSubjects; ++i) {
            const std::size_t subject = (round + i) % kSubjects;
            rounds[round][subject] = start(static_cast<Subject>(subject));
        }
    }
    return rounds;
}

double median(const Rounds& rounds, Subject subject, double Times::*which) {
    std::vector<double> values;
    for (const auto& round : rounds) {
        values.push_back(round[subject].*which);
    }
    return quantile(std::move(values), 0.5);
}

void print_spread(const Rounds& rounds, const char* what, Subject base, double Times::*which) {
    std::vector<double> ratios;
    for (const auto& round : rounds) {
        ratios.push_back(round[kPane].*which / (round[base].*which));
    }
    std::printf("%s, ratios of the rounds: quartiles %.3f %.3f %.3f\n", what, quantile(ratios, 0.25),
                quantile(ratios, 0.5), quantile(ratios, 0.75));
}

/// No screen, no print system, no settings of the user, the fonts of the tests.
void prepare_surroundings(const TemporaryFolder& folder) {
    folder.becomeConfigurationFolder();
    setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
    setenv("XDG_CACHE_HOME", folder.path().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_LOGGING_RULES", "qt.qpa.*=false", 1);
    setenv("FONTCONFIG_FILE", kFonts, 1);
    setenv("CUPS_SERVER", (folder.path() / "no-server").c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv(host::kBundleVariable, SPECIALPAGES_BUNDLE_DIR, 1);
}

int run(const std::vector<std::string_view>& arguments) {
    const std::int32_t asked = arguments.empty() ? kRounds : platform::int_value(arguments[0]);
    if (arguments.size() > 1 || asked < 1) {
        std::fprintf(stderr, "usage: window_start_bench [ROUNDS]\n");
        return 2;
    }
    const auto count = static_cast<std::size_t>(asked);
    const TemporaryFolder folder;
    prepare_surroundings(folder);
    const Rounds rounds = run_rounds(count);
    const auto ratio = [&rounds](const char* what, const char* baseline, Subject base, double Times::*which,
                                 double goal) {
        return Ratio{what, median(rounds, kPane, which), baseline, median(rounds, base, which), goal};
    };
    print_ratios(
        {ratio("painted tab, real time", "empty QPrintDialog", kEmpty, &Times::real, kGoal),
         ratio("painted tab, processor time", "the same", kEmpty, &Times::cpu, 0),
         ratio("nothing left to do, real time", "the same", kEmpty, &Times::idle, 0),
         ratio("painted tab, real time", "the same with its tabs open", kEmptyWithTabs, &Times::real, 0),
         ratio("painted tab, processor time", "the same", kEmptyWithTabs, &Times::cpu, 0)});
    std::printf("\n%zu rounds\n", count);
    print_spread(rounds, "real time", kEmpty, &Times::real);
    print_spread(rounds, "processor time", kEmpty, &Times::cpu);
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    using namespace specialpages::bench;
    return told(argv[0], [&] {
        const std::vector<std::string_view> arguments(argv + 1, argv + argc);
        for (std::size_t subject = 0; subject < kSubjects; ++subject) {
            if (arguments.size() == 1 && arguments[0] == kArguments[subject]) {
                return run_subject(static_cast<Subject>(subject), argv[0]);
            }
        }
        return run(arguments);
    });
}
