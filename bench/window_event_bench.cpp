// What one event of a user costs in the window, from the event to the repaint of what changed: pane, mirror,
// layout and painting together, for lists of 500 and of 5 records. The events go through the real widgets on
// a screen that is only memory. What counts is the processor's time, which on such a screen is all of the
// work; it has to fit into one frame.
#include "host/PaneModule.h"
#include "painted_widgets.h"
#include "platform/toolkit/Application.h"
#include "qt/PopUpWidget.h"
#include "qt/PrinterPane.h"
#include "qt/QtFace.h"
#include "qt/TableWidget.h"
#include "qt/events.h"
#include "ratio_table.h"
#include "temporary_folder.h"
#include "testing/record_settings.h"

#include <benchmark/benchmark.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QTimer>
#include <QVBoxLayout>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::bench {
namespace {

constexpr const char* kPpd = SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd";
constexpr const char* kFonts = SPECIALPAGES_SOURCE_DIR "/tests/data/fonts.conf";
constexpr int kShortList = 5;
constexpr int kLongList = 500;
constexpr int kPages = 1000;
constexpr double kFrame = 0.016;

/// The colors in the paper menu of the inserts window, and where they begin behind "no change".
constexpr qsizetype kColors = 3;
constexpr qsizetype kFirstColor = 1;

double processor_time() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Until nothing is left to do, timers that are due and repaints included.
void until_idle() {
    do {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
}

/// The window's face, with something that a user does in the dialog that opens next.
class UsedFace : public qt::QtFace {
  public:
    void inNextDialog(std::function<void(QDialog& dialog)> use) { use_ = std::move(use); }

    void runEvents(platform::Window& window, const std::function<bool()>& stopped) override {
        QTimer begins;
        begins.setSingleShot(true);
        QObject::connect(&begins, &QTimer::timeout, &begins, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            qt::testing::activate(*dialog);
            until_idle();
            std::exchange(use_, {})(*dialog);
            if (!stopped()) {
                giveUp();
            }
        });
        begins.start(0);
        QtFace::runEvents(window, stopped);
    }

  private:
    std::function<void(QDialog& dialog)> use_ = [](QDialog&) {
    };
};

/// A window of 600 by 450 with the pane of the sample printer.
class PaneWindow {
  public:
    explicit PaneWindow(int records) {
        qt::PrinterPaneOptions options;
        options.ppd = kPpd;
        options.settings = test::record_settings(test::records_to_move(records));
        pane_ = qt::PrinterPane::open(options, face);
        if (pane_ == nullptr || pane_->glance() == nullptr) {
            throw std::runtime_error("the bundle has no pane for this PPD");
        }
        pane_->widget().activate();
        pane_->glance()->setPages(kPages);
        window_ = std::make_unique<QWidget>();
        (new QVBoxLayout(window_.get()))->addWidget(&pane_->widget());
        window_->resize(600, 450);
        window_->show();
        qt::testing::activate(*window_);
        until_idle();
        if (table().model()->rowCount() != records) {
            throw std::runtime_error("the pane shows other records");
        }
    }
    ~PaneWindow() { pane_->widget().setParent(nullptr); }
    PaneWindow(const PaneWindow&) = delete;
    PaneWindow& operator=(const PaneWindow&) = delete;

    template <class Widget>
    Widget& widget(const char* name) {
        auto* const found = dynamic_cast<Widget*>(pane_->widget().nib().find(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("no such widget: ") + name);
        }
        return *found;
    }
    qt::TableWidget& table() { return widget<qt::TableWidget>("SPSummaryInfoTableView"); }
    QWidget& strip() { return *pane_->glance()->strip().viewport(); }

    void clickRow(int row) {
        const QModelIndex cell = table().model()->index(row, 0);
        table().scrollTo(cell);
        qt::testing::click(*table().viewport(), table().visualRect(cell).center());
    }

    UsedFace face;

  private:
    std::unique_ptr<qt::PrinterPane> pane_;
    std::unique_ptr<QWidget> window_; // ends first
};

/// Takes the time of one event, which has to repaint that widget.
bool measure(benchmark::State& state, PaintedWidgets& painted, const QWidget& changed,
             const std::function<void()>& act) {
    until_idle();
    painted.forget();
    const double begin = processor_time();
    act();
    until_idle();
    state.SetIterationTime(processor_time() - begin);
    if (!painted.contains(changed)) {
        state.SkipWithError("nothing was repainted");
        return false;
    }
    return true;
}

/// Opens the menu of papers and goes to another color than the one that is chosen; the answer chooses it.
std::function<void()> go_to_color(qt::PopUpWidget& papers) {
    qt::testing::click(papers);
    QMenu* const menu = papers.openMenu();
    if (menu == nullptr || menu->actions().size() <= kColors) {
        throw std::runtime_error("the paper menu did not open");
    }
    QAction& part = *menu->actions()[kColors];
    qt::testing::go_to(*menu, part);
    QTest::keyClick(menu->windowHandle(), Qt::Key_Right);
    QMenu& colors = *part.menu();
    for (QAction* const item : colors.actions().mid(kFirstColor)) {
        if (item->isVisible() && item->isEnabled() && !item->isChecked()) {
            return [&colors, at = colors.actionGeometry(item).center()] {
                QTest::mouseClick(colors.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
            };
        }
    }
    throw std::runtime_error("there is no other color");
}

void choose_paper(benchmark::State& state, int records) {
    PaneWindow window(records);
    window.clickRow(1); // an insert
    PaintedWidgets painted;
    window.face.inNextDialog([&](QDialog&) {
        auto& papers = window.widget<qt::PopUpWidget>("spInstSelePaper");
        const QWidget& setup = *window.widget<QPlainTextEdit>("spInstPaperView").viewport();
        for (auto _ : state) {
            const auto choose = go_to_color(papers);
            if (!measure(state, painted, setup, choose)) {
                return;
            }
        }
    });
    qt::testing::click(window.widget<QWidget>("SPEditButton"));
}

/// The menu has to appear.
void open_menu(benchmark::State& state, int records) {
    PaneWindow window(records);
    window.clickRow(1);
    PaintedWidgets painted;
    window.face.inNextDialog([&](QDialog&) {
        auto& papers = window.widget<qt::PopUpWidget>("spInstSelePaper");
        for (auto _ : state) {
            until_idle();
            const double begin = processor_time();
            qt::testing::click(papers);
            until_idle();
            state.SetIterationTime(processor_time() - begin);
            if (papers.openMenu() == nullptr || !painted.contains(*papers.openMenu())) {
                state.SkipWithError("no menu appeared");
                return;
            }
            papers.hidePopup();
            painted.forget();
        }
    });
    qt::testing::click(window.widget<QWidget>("SPEditButton"));
}

/// OK of the window in which the paper was chosen: the record changes, and with it table and strip.
void press_ok(benchmark::State& state, int records) {
    PaneWindow window(records);
    PaintedWidgets painted;
    for (auto _ : state) {
        window.clickRow(1);
        double begin = 0;
        window.face.inNextDialog([&](QDialog&) {
            go_to_color(window.widget<qt::PopUpWidget>("spInstSelePaper"))();
            until_idle();
            painted.forget();
            begin = processor_time();
            qt::testing::click(window.widget<QWidget>("spInstOKButton"));
        });
        qt::testing::click(window.widget<QWidget>("SPEditButton"));
        until_idle();
        state.SetIterationTime(processor_time() - begin);
        if (!painted.contains(*window.table().viewport()) || !painted.contains(window.strip())) {
            state.SkipWithError("table or strip was not repainted");
            return;
        }
    }
}

void move_record(benchmark::State& state, int records) {
    PaneWindow window(records);
    PaintedWidgets painted;
    for (auto _ : state) {
        window.clickRow(2); // moving ends the selection
        const auto move = [&] {
            qt::testing::press_key(window.table(), Qt::Key_Up, Qt::AltModifier);
        };
        if (!measure(state, painted, window.strip(), move)) {
            return;
        }
    }
}

void select_record(benchmark::State& state, int records) {
    PaneWindow window(records);
    PaintedWidgets painted;
    int row = 0;
    for (auto _ : state) {
        row = row == 1 ? 2 : 1;
        if (!measure(state, painted, window.strip(), [&] { window.clickRow(row); })) {
            return;
        }
    }
}

struct Event {
    const char* name;
    const char* what;
    void (*measure)(benchmark::State& state, int records);
};
constexpr std::array<Event, 5> kEvents{{
    {"choose", "choosing a paper", choose_paper},
    {"menu", "opening the menu of papers", open_menu},
    {"ok", "OK after it: the record, the table, the strip", press_ok},
    {"move", "moving a record", move_record},
    {"select", "selecting a record", select_record},
}};

std::string name_of(const Event& event, int records) {
    return std::string(event.name) + "/" + std::to_string(records);
}

/// No screen, no settings of the user, the fonts and the look of the tests.
void prepare_surroundings(const TemporaryFolder& folder) {
    folder.becomeConfigurationFolder();
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_LOGGING_RULES", "qt.qpa.*=false", 1);
    setenv("FONTCONFIG_FILE", kFonts, 1);
    setenv(host::kBundleVariable, SPECIALPAGES_BUNDLE_DIR, 1);
}

int run(int argc, char** argv) {
    const TemporaryFolder folder;
    prepare_surroundings(folder);
    int programAlone = 1;
    std::array<char*, 2> arguments{argv[0], nullptr};
    const QApplication application(programAlone, arguments.data());
    std::setlocale(LC_ALL, "C.UTF-8");
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setDoubleClickInterval(0); // clicks follow each other faster than a person's
    for (const Event& event : kEvents) {
        for (const int records : {kShortList, kLongList}) {
            benchmark::RegisterBenchmark(
                name_of(event, records).c_str(),
                [&event, records](benchmark::State& state) { event.measure(state, records); })
                ->UseManualTime()
                ->Unit(benchmark::kMicrosecond);
        }
    }
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    std::vector<Ratio> ratios;
    for (const Event& event : kEvents) {
        const double long_list = medians.real(name_of(event, kLongList));
        const double short_list = medians.real(name_of(event, kShortList));
        ratios.push_back({std::string(event.what) + ", 500 records", long_list, "one frame", kFrame, 1});
        ratios.push_back({"the same", long_list, "5 records", short_list, 0});
    }
    print_ratios(ratios);
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::told(argv[0], [&] { return specialpages::bench::run(argc, argv); });
}
