// A pane with a list of special pages and stand-ins for the windows that paper menus open, and one paper menu
// on it. The words are those of the built bundle.
#pragma once

#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "paper/paper_ppd.h"
#include "paper/paper_windows.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TableView.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/record_builder.h"
#include "records/record_tables.h"
#include "records/summary_tables.h"
#include "testing/EmptyHub.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {

/// The custom size window as a paper menu sees it.
class GivenCustomSizeWindow : public PopupWinInPanelEMFSpecialPages, public CustomSizeWindow {
  public:
    void SetSubMenuList(SPSubMenuListCtrlEMF* menu) override { given = menu; }
    SPSubMenuListCtrlEMF* GetSubMenuList() override { return given; }
    std::string defaultCustomWidth() const override { return "148.0"; }
    std::string defaultCustomLength() const override { return "209.9"; }
    std::int32_t ActivateWindow() override {
        ++openings;
        if (onOpen) {
            onOpen();
        }
        return 0;
    }
    SPSubMenuListCtrlEMF* given = nullptr;
    int openings = 0;
    std::function<void()> onOpen;
};

/// A tab stock window; it counts how often it was opened.
class GivenTabStockWindow : public PopupWinInPanelEMFSpecialPages {
  public:
    std::int32_t ActivateWindow() override {
        ++openings;
        return 0;
    }
    int openings = 0;
};

/// The advanced window likewise; it writes down what it is told.
class GivenAdvancedWindow : public PopupWinInPanelEMFSpecialPages, public AdvancedPaperWindow {
  public:
    void SetPaperSize(std::int32_t size, std::int32_t andColor, std::int32_t andType,
                      bool andInterposer) override {
        paper = {size, andColor, andType, andInterposer};
    }
    void SetSubMenuList(SPSubMenuListCtrlEMF* menu) override { given = menu; }
    void setDuplexControl(SidednessList* list) override { sidedness = list; }
    void SetSizeStatus(std::int32_t /*status*/) override {}
    void SetColorStatus(std::int32_t /*status*/) override {}
    void SetTypeStatus(std::int32_t /*status*/) override {}
    std::int32_t ActivateWindow() override {
        ++openings;
        if (onOpen) {
            onOpen();
        }
        return 0;
    }
    PaperChoice paper;
    SPSubMenuListCtrlEMF* given = nullptr;
    SidednessList* sidedness = nullptr;
    int openings = 0;
    std::function<void()> onOpen;
};

/// The pane. Its controls hang in it directly, as those of a dialog hang in their window.
class PaperPane : public BasePrintPanelEMFSpecialPages, public EmptyHub {
  public:
    using Window = PopupWinInPanelEMFSpecialPages;
    PaperPane() { CreatePanel(nullptr); }
    SpecialPagesHub* hub() override { return haveHub ? this : nullptr; }
    Window* getTabStockWndPtr() override { return tabStock; }
    Window* getTabStockSubWndPtr() override { return tabStockSub; }
    Window* getCustomSizeWndPtr() override { return customSize; }
    Window* getAdvSeleWndPtr() override { return advanced; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return list; }
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override {
        ++rechecks;
        return BasePrintPanelEMFSpecialPages::UpdateConflictsPanelControlFromPPD(ppd);
    }
    void setBundle(platform::Bundle* bundle) { pdeBundleRef = bundle; }

    bool haveHub = true;
    Window* customSize = nullptr;
    Window* advanced = nullptr;
    Window* tabStock = nullptr;
    Window* tabStockSub = nullptr;
    SPSummaryScrollViewCtrl* list = nullptr;
    int rechecks = 0;
};

inline constexpr std::array<const char*, 7> kPaperMenuKeys{
    "Select Paper String",      "No Change Option String", "Size String", "Color String", "Type String",
    "NVUncollateSeparator-INT", "Advanced Setting String"};
inline constexpr PopupIniData kPaperMenuIniData{.defaultItem = 1, .initial = -1, .menuKeys = kPaperMenuKeys};

/// Writes down the tags of the controls that are updated.
class UpdateRecorder : public BaseControlEMFSpecialPages {
  public:
    UpdateRecorder(std::vector<ControlTag>& updates, ControlTag tag) : updates_(updates), view_(tag) {
        CreateControl(&view_);
    }
    std::int32_t Update() override {
        updates_.push_back(view_.tag());
        return 0;
    }

  private:
    std::vector<ControlTag>& updates_;
    TaggedView view_;
};

/// A base for tests around one paper menu. Describe the PPD, then call open().
class PaperMenuTest : public ::testing::Test {
  protected:
    static constexpr ControlTag kMenuTag = 410;
    static constexpr ControlTag kSidednessTag = 414;
    static constexpr std::int64_t kSize = 2;
    static constexpr std::int64_t kColor = 3;
    static constexpr std::int64_t kType = 4;

    PaperMenuTest() {
        describe_paper(ppd)
            .option("NVUncollateSeparator", "None", "Separator")
            .choice("None", "Off")
            .choice("INT", "Tray 8")
            .option("NVSeparatorsCoversTray", "True")
            .choices({"True", "False"})
            .option("NVNumPunchHoles", "None", "Punch")
            .choice("None", "Off")
            .choice("CoilPunch", "Coil Punch");
        bundle = platform::Bundle::load(paths::bundle_dir());
        if (!bundle) {
            throw std::runtime_error("no bundle was built");
        }
        pane.setBundle(bundle.get());
        pane.customSize = &customSizeWindow;
        pane.advanced = &advancedWindow;
        table.setTableColumns({{"page", ""}, {"type", ""}, {"setup", ""}});
        list.CreateControl(&table, tableColumnsTitleResourceString, &summaryScrllViewCnstrnInfoPtr,
                           &coverOptionLCtrlAccessInfo, {});
        list.SetParenetPanel(&pane);
        pane.list = &list;
        popup.setTag(kMenuTag);
    }

    void set_ppd() {
        compiled = std::make_unique<CompiledPpd>(ppd);
        pane.SetCurrentPPD(ppd.file());
        pane.SetxppdPtr(compiled->index);
    }
    template <typename Menu>
    void open(Menu& menu, const ConstraintRecord* constraints = nullptr,
              std::optional<ControlTag> sidedness = std::nullopt, std::int32_t wndType = kInsertsWndType) {
        set_ppd();
        const PaperOptionKeys keys = paper_keys();
        menu.CreateControl(&popup, keys.size.c_str(), keys.color.c_str(), keys.type.c_str(),
                           &kPaperMenuIniData, constraints, nullptr, {}, wndType, sidedness);
        pane.RunTimeAddNewControl(&menu);
        ASSERT_TRUE(menu.InitializeCtrl(bundle.get(), ppd.file()));
        menu.setTargetandAction();
        menu.SetControlValueToDefault();
    }
    /// Puts records into the list and selects the first `selected` of them.
    void select_records(const RecordList& records, std::size_t selected) {
        const RowSet none;
        list.undoRequest(&records, &none);
        RowSet rows;
        for (std::size_t row = 0; row < selected; ++row) {
            rows.insert(row);
        }
        table.selectRowIndexes(rows, platform::ExtendingSelection::no);
        ASSERT_EQ(list.getArrayOfCurrentSelectedRecords().value_or(RecordList()).size(), selected);
    }
    bool pick(std::initializer_list<std::int64_t> path) {
        return popup.pick(std::vector<std::int64_t>(path));
    }
    platform::MenuItem& item(std::int64_t top) { return *popup.menu().itemAtIndex(top); }
    platform::MenuItem& item(std::int64_t top, std::int64_t position) {
        return *item(top).submenu()->itemAtIndex(position);
    }
    /// The titles of a sub-menu, "-" before a hidden and "!" before a disabled one.
    std::vector<std::string> titles(const platform::Menu& menu) {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
            const platform::MenuItem& each = *menu.itemAtIndex(static_cast<std::int64_t>(i));
            all.push_back((each.isHidden() ? "-" : "") + std::string(each.isEnabled() ? "" : "!") +
                          each.title());
        }
        return all;
    }
    std::vector<std::string> titles(std::int64_t top) { return titles(*item(top).submenu()); }
    std::vector<std::string> top_titles() { return titles(popup.menu()); }
    /// The keywords behind the disabled items of a sub-menu.
    std::vector<std::string> disabled(std::int64_t top) {
        std::vector<std::string> all;
        const platform::Menu& menu = *item(top).submenu();
        for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
            const platform::MenuItem& each = *menu.itemAtIndex(static_cast<std::int64_t>(i));
            if (!each.isEnabled()) {
                all.push_back(each.representedObject().value_or("?"));
            }
        }
        return all;
    }
    /// Positions of the checked items of a sub-menu.
    std::vector<std::int64_t> checked(std::int64_t top) {
        std::vector<std::int64_t> all;
        const platform::Menu& menu = *item(top).submenu();
        for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
            if (menu.itemAtIndex(static_cast<std::int64_t>(i))->state()) {
                all.push_back(static_cast<std::int64_t>(i));
            }
        }
        return all;
    }
    static PaperChoice paper_of(const SPSelectPaperListCtrlEMF& menu) {
        PaperControlValue value;
        menu.getControlValue(&value);
        return {static_cast<std::int32_t>(value.size), static_cast<std::int32_t>(value.color),
                static_cast<std::int32_t>(value.type), value.interposer != 0};
    }

    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
    std::shared_ptr<platform::Bundle> bundle;
    GivenCustomSizeWindow customSizeWindow;
    GivenAdvancedWindow advancedWindow;
    platform::TableView table;
    SPSummaryScrollViewCtrl list;
    platform::PopUpButton popup;
    PaperPane pane;
};

} // namespace specialpages::test
