// Re-checking all items of a paper menu on the production printer's PPD beside asking libcups item by item,
// in one run; and the same with 250 selected records behind "No Change". The last thing printed is a table of
// the ratios.
#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TableView.h"
#include "ppd/ppd_access.h"
#include "ratio_table.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/record_tables.h"
#include "records/summary_tables.h"

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace specialpages::bench {
namespace {

constexpr std::size_t kRecords = 250;
constexpr std::array<const char*, 3> kOptions{"PageSize", "NVMediaColor", "MediaType"};
constexpr std::array<const char*, 7> kMenuKeys{
    "Select Paper String",      "No Change Option String", "Size String", "Color String", "Type String",
    "NVUncollateSeparator-INT", "Advanced Setting String"};
constexpr PopupIniData kIniData{.menuKeys = kMenuKeys};

/// A pane that has a list of special pages and no window.
class Pane : public BasePrintPanelEMFSpecialPages, public SpecialPagesHub {
  public:
    using Window = PopupWinInPanelEMFSpecialPages;
    Pane() { CreatePanel(nullptr); }
    SpecialPagesHub* hub() override { return this; }
    platform::View* getSpecialPagesViewPtr() override { return nullptr; }
    platform::View* getSpecialPagesView() override { return nullptr; }
    Window* getSPAddCoversWndPtr() override { return nullptr; }
    Window* getSPAddInsertWndPtr() override { return nullptr; }
    Window* getSPAddExceptionsWndPtr() override { return nullptr; }
    Window* getTabStockWndPtr() override { return nullptr; }
    Window* getTabStockSubWndPtr() override { return nullptr; }
    Window* getCustomSizeWndPtr() override { return nullptr; }
    Window* getAdvSeleWndPtr() override { return nullptr; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return list; }
    SPUndoButCtrlEMF* getSPUndoButtonPtr() override { return nullptr; }
    RecordDialog* recordDialog(std::int32_t) override { return nullptr; }
    std::int32_t getTabStockValue() const override { return 0; }
    void setTabStockValue(std::int32_t) override {}
    std::int32_t getTabMarginListValue() const override { return 0; }
    void setTabMarginListValue(std::int32_t) override {}
    std::int32_t getTabMarginValue() const override { return 0; }
    void setTabMarginValue(std::int32_t) override {}
    void toMakeChange() override {}
    bool sureToMakeChange(std::int32_t) override { return false; }
    void setBundle(platform::Bundle* bundle) { pdeBundleRef = bundle; }

    SPSummaryScrollViewCtrl* list = nullptr;
};

/// The menu on its pane, with every item checked once.
struct Subject {
    Subject()
        : ppd(ppdOpenFile(SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd")),
          bundle(platform::Bundle::load(SPECIALPAGES_BUNDLE_DIR)),
          index(std::make_shared<ConstraintIndex>()) {
        if (ppd == nullptr || bundle == nullptr) {
            throw std::runtime_error("the sample PPD or the bundle is not there");
        }
        ppdMarkDefaults(ppd);
        nxPPDKeywordList() = option_keywords(ppd);
        compile_constraints(ppd, index.get(), nxPPDKeywordList());
        pane.setBundle(bundle.get());
        pane.SetCurrentPPD(ppd);
        pane.SetxppdPtr(index);
        pane.list = &list;
        list.CreateControl(&table, tableColumnsTitleResourceString, &summaryScrllViewCnstrnInfoPtr,
                           &coverOptionLCtrlAccessInfo, {});
        list.SetParenetPanel(&pane);
        popup.setTag(1);
        menu.CreateControl(&popup, kOptions[0], kOptions[1], kOptions[2], &kIniData, nullptr, nullptr, {},
                           kInsertsWndType, std::nullopt);
        pane.RunTimeAddNewControl(&menu);
        if (!menu.InitializeCtrl(bundle.get(), ppd)) {
            throw std::runtime_error("the menu cannot be built");
        }
    }
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;
    ~Subject() { ppdClose(ppd); }

    void choose(const PaperControlValue& paper) {
        menu.setControlValue(&paper);
        menu.updateSelectionArray();
        menu.UpdateSelfConflictsFromPPD(ppd);
    }
    /// All different papers in turn, so that every item of the menus has to be looked up.
    void select_records(std::size_t count) {
        RecordList records;
        RowSet rows;
        for (std::size_t i = 0; i < count; ++i) {
            rows.insert(i);
            records.push_back({{RecordKey::type, "2"},
                               {RecordKey::page, std::to_string(i + 1)},
                               {RecordKey::pagesize, std::to_string(i % 34)},
                               {RecordKey::pagecolor, std::to_string(i % 18)},
                               {RecordKey::pagetype, std::to_string(i % 45)},
                               {RecordKey::interposer, "false"},
                               {RecordKey::twoSidePrint, std::to_string(1 + i % 3)},
                               {RecordKey::width, "210.0"},
                               {RecordKey::length, "297.0"},
                               {RecordKey::longmeasure, "1"},
                               {RecordKey::selected, "false"}});
        }
        const RowSet none;
        list.undoRequest(&records, &none);
        table.selectRowIndexes(rows, platform::ExtendingSelection::no);
    }
    int disabled_items() const {
        int count = 0;
        for (const std::int64_t position : {2, 3, 4}) {
            const platform::Menu& items = *menu.getSubMenuRef(position);
            for (std::size_t i = 0; i < items.numberOfItems(); ++i) {
                count += items.itemAtIndex(static_cast<std::int64_t>(i))->isEnabled() ? 0 : 1;
            }
        }
        return count;
    }

    ppd_file_t* ppd;
    std::shared_ptr<platform::Bundle> bundle;
    std::shared_ptr<ConstraintIndex> index;
    platform::TableView table;
    SPSummaryScrollViewCtrl list;
    platform::PopUpButton popup;
    SPSelectPaperListCtrlEMF menu;
    Pane pane;
};

constexpr PaperControlValue kNothingChosen{-1, -1, -1, 0};
/// Tab stock, which forbids nearly all sizes.
constexpr PaperControlValue kTabStock{2, 0, 36, 0};
constexpr PaperControlValue kPlain{2, 0, 0, 0};

void recheck(benchmark::State& state, Subject& subject, const PaperControlValue& paper, std::size_t records) {
    subject.select_records(records);
    subject.choose(paper);
    state.counters["disabled"] = subject.disabled_items();
    for (auto _ : state) {
        subject.menu.updateSelectionArray();
        subject.menu.UpdateSelfConflictsFromPPD(subject.ppd);
    }
}

/// ppdMarkOption counts the conflicts itself, by ppdConflicts, so that it is not called a second time. With
/// `restore` each question leaves the PPD as it was; otherwise each option is marked back once, behind its
/// last choice, which is as little as libcups can be asked to do.
void mark_and_ask(benchmark::State& state, const Subject& subject, bool restore) {
    int items = 0;
    for (auto _ : state) {
        int conflicts = 0;
        items = 0;
        for (const char* keyword : kOptions) {
            const ppd_option_t* option = ppdFindOption(subject.ppd, keyword);
            for (int i = 0; i < option->num_choices; ++i, ++items) {
                conflicts += ppdMarkOption(subject.ppd, keyword, option->choices[i].choice);
                if (restore || i + 1 == option->num_choices) {
                    ppdMarkOption(subject.ppd, keyword, option->defchoice);
                }
            }
        }
        benchmark::DoNotOptimize(conflicts);
    }
    state.counters["items"] = items;
    ppdMarkDefaults(subject.ppd);
}

int run(int argc, char** argv) {
    Subject subject;
    const auto add = [](const char* name, auto measure) {
        benchmark::RegisterBenchmark(name, measure)->Unit(benchmark::kMicrosecond);
    };
    add("plain", [&](benchmark::State& state) { recheck(state, subject, kPlain, 0); });
    add("tab_stock", [&](benchmark::State& state) { recheck(state, subject, kTabStock, 0); });
    add("no_change", [&](benchmark::State& state) { recheck(state, subject, kNothingChosen, 0); });
    add("records", [&](benchmark::State& state) { recheck(state, subject, kNothingChosen, kRecords); });
    add("libcups", [&](benchmark::State& state) { mark_and_ask(state, subject, true); });
    add("libcups_least", [&](benchmark::State& state) { mark_and_ask(state, subject, false); });
    Medians medians;
    if (!run_benchmarks(argc, argv, medians)) {
        return 1;
    }
    const double libcups = medians.cpu("libcups");
    std::printf("\nlibcups: %.0f items; disabled: plain %.0f, tab stock %.0f, records %.0f\n",
                medians.counter("libcups", "items"), medians.counter("plain", "disabled"),
                medians.counter("tab_stock", "disabled"), medians.counter("records", "disabled"));
    constexpr double kShareOfLibcups = 1.0 / 500;
    constexpr double kTimesWithoutRecords = 60;
    for (const char* what : {"plain", "tab_stock"}) {
        std::printf("libcups takes %.0f times %s (wanted: 500), and %.0f times without restoring each item\n",
                    libcups / medians.cpu(what), what, medians.cpu("libcups_least") / medians.cpu(what));
    }
    print_ratios({
        {"records", medians.cpu("records"), "no change without records", medians.cpu("no_change"),
         kTimesWithoutRecords},
        {"records", medians.cpu("records"), "plain", medians.cpu("plain"), kTimesWithoutRecords},
        {"plain", medians.cpu("plain"), "libcups / 500", libcups * kShareOfLibcups, 1},
        {"tab stock", medians.cpu("tab_stock"), "libcups / 500", libcups * kShareOfLibcups, 1},
    });
    return 0;
}

} // namespace
} // namespace specialpages::bench

int main(int argc, char** argv) {
    return specialpages::bench::run(argc, argv);
}
