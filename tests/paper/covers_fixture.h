// A covers window in small: the option list and, for each side, paper menu, paper view and printing list,
// wired by the tables of the dialog.
#pragma once

#include "paper/CoversWindow.h"
#include "paper/SPCoverPageSettingScrollViewCtrlEMF.h"
#include "paper/SPCoversSelectPaperListCtrlEMF.h"
#include "paper/SPCoversWinListCtrlEMF.h"
#include "paper/covers_tags.h"
#include "paper/paper_fixture.h"
#include "platform/toolkit/TextField.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

namespace specialpages::test {

class CoversPane : public PaperPane, public CoversWindow {
  public:
    SPCoversWinListCtrlEMF* getSPCoversOptionsListPtr() override { return options; }
    SPCoversWinListCtrlEMF* getSPCoverWndFrontPrintingOptionListPtr() override { return frontPrinting; }
    SPCoversWinListCtrlEMF* getSPCoverWndBackPrintingOptionListPtr() override { return backPrinting; }
    SPCoversSelectPaperListCtrlEMF* getSPCoverWndFrontSelectPaperListPtr() override { return frontPaper; }
    SPCoversSelectPaperListCtrlEMF* getSPCoverWndBackSelectPaperListPtr() override { return backPaper; }
    const RecordList* getCoversDataRecordsPtr() override { return records; }

    SPCoversWinListCtrlEMF* options = nullptr;
    SPCoversWinListCtrlEMF* frontPrinting = nullptr;
    SPCoversWinListCtrlEMF* backPrinting = nullptr;
    SPCoversSelectPaperListCtrlEMF* frontPaper = nullptr;
    SPCoversSelectPaperListCtrlEMF* backPaper = nullptr;
    const RecordList* records = nullptr;
};

inline constexpr std::array<const char*, 5> kCoverOptionKeys{"No Covers String", "Front Only String",
                                                             "Back Only String", "Front and Back Same String",
                                                             "Front and Back Different String"};
inline constexpr PopupIniData kCoverOptionIniData{.menuKeys = kCoverOptionKeys};
inline constexpr std::array<const char*, 4> kPrintingKeys{
    "Blank or Pre-Printed String", "Print On Side One String", "Print On Side Two String",
    "Print On Both Sides String"};
inline constexpr PopupIniData kPrintingIniData{.menuKeys = kPrintingKeys};
inline constexpr ScrollViewIniData kViewIniData{};

class CoversTest : public ::testing::Test {
  protected:
    static constexpr std::int64_t kSize = 2;
    static constexpr std::int64_t kColor = 3;
    static constexpr std::int64_t kType = 4;

    /// One side's views and controls.
    struct Side {
        platform::PopUpButton menu;
        platform::PopUpButton printing;
        platform::TextField text{platform::ViewKind::scrollText};
        SPCoversSelectPaperListCtrlEMF paper;
        SPCoversWinListCtrlEMF list;
        SPCoverPageSettingScrollViewCtrlEMF view;

        platform::MenuItem& item(std::int64_t top) { return *menu.menu().itemAtIndex(top); }
        platform::MenuItem& item(std::int64_t top, std::int64_t position) {
            return *item(top).submenu()->itemAtIndex(position);
        }
        bool pick(std::initializer_list<std::int64_t> path) {
            return menu.pick(std::vector<std::int64_t>(path));
        }
        bool print(std::int64_t position) { return printing.pick(std::vector<std::int64_t>{position}); }
        std::int64_t printed() const { return printing.indexOfSelectedItem(); }
        PaperChoice chosen() const {
            PaperControlValue value;
            paper.getControlValue(&value);
            return {static_cast<std::int32_t>(value.size), static_cast<std::int32_t>(value.color),
                    static_cast<std::int32_t>(value.type), value.interposer != 0};
        }
        /// Enabled positions of the printing list.
        std::vector<std::int64_t> printable() {
            std::vector<std::int64_t> all;
            for (std::int64_t i = 0; i < printing.numberOfItems(); ++i) {
                if (printing.menu().itemAtIndex(i)->isEnabled()) {
                    all.push_back(i);
                }
            }
            return all;
        }
    };

    CoversTest() {
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
    }

    void open() {
        compiled = std::make_unique<CompiledPpd>(ppd);
        pane.SetCurrentPPD(ppd.file());
        pane.SetxppdPtr(compiled->index);
        pane.customSize = &customSizeWindow;
        pane.tabStockSub = &tabStockWindow;
        pane.records = &records;
        optionView.setTag(spCoversWndCoverOptionListID);
        options.CreateControl(&optionView, &kCoverOptionIniData, &optionRows, nullptr, {}, nullptr, {}, 0);
        pane.RunTimeAddNewControl(&options);
        add(front, spCoversWndFrontCoverPageListID, spCoversWndFrontPrintingOptionListID,
            spCoversWndFrontCoverPageViewID, frontPrintingRows, frontPaperRows);
        add(back, spCoversWndBackCoverPageListID, spCoversWndBackPrintingOptionListID,
            spCoversWndBackCoverPageViewID, backPrintingRows, backPaperRows);
        pane.options = &options;
        pane.frontPrinting = &front.list;
        pane.backPrinting = &back.list;
        pane.frontPaper = &front.paper;
        pane.backPaper = &back.paper;
        pane.InitializeUserPaneControl(bundle.get(), ppd.file());
        pane.SetControlEventHandler();
        pane.SetUIDataToIniData();
        pane.SetDefaultValueToUI();
        show();
    }
    /// What the dialog does with its records on opening.
    void show() {
        pane.SetCurrentValueToUI();
        for (Side* side : {&front, &back}) {
            side->paper.updateSelectionArray();
            side->paper.UpdateSelfConflictsFromPPD(ppd.file());
            side->paper.Update();
            side->paper.doPrintingOptionsConstraint();
        }
    }
    bool choose_covers(CoverOption option) {
        return optionView.pick(std::vector<std::int64_t>{static_cast<std::int64_t>(option)});
    }

    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
    std::shared_ptr<platform::Bundle> bundle;
    GivenCustomSizeWindow customSizeWindow;
    GivenTabStockWindow tabStockWindow;
    RecordList records;
    Rows disableRows{{204, 206, 209, 211, 203, 208}, {209, 211, 208}, {204, 206, 203}, {209, 211}, {}};
    Rows updateRows{{206, 204, 211, 209, 203, 208},
                    {203, 208, 206, 211},
                    {203, 208, 206, 211},
                    {206, 211, 209, 203, 208},
                    {203, 208, 206, 211}};
    Rows frontPrintingUpdate{{211, 204}, {211, 204}, {211, 204}, {211, 204}};
    Rows backPrintingUpdate{{209}, {209}, {209}, {209}};
    Rows frontPaperUpdate{{203, 209, 208}, {203, 209, 208}, {203, 209, 208},
                          {203, 209, 208}, {203, 209, 208}, {203, 209, 208}};
    Rows backPaperUpdate{{208}, {208}, {208}, {208}, {208}, {208}};
    ConstraintRecord optionRows{.disable = disableRows.all(), .hide = {}, .update = updateRows.all()};
    ConstraintRecord frontPrintingRows{.disable = {}, .hide = {}, .update = frontPrintingUpdate.all()};
    ConstraintRecord backPrintingRows{.disable = {}, .hide = {}, .update = backPrintingUpdate.all()};
    ConstraintRecord frontPaperRows{.disable = {}, .hide = {}, .update = frontPaperUpdate.all()};
    ConstraintRecord backPaperRows{.disable = {}, .hide = {}, .update = backPaperUpdate.all()};
    platform::PopUpButton optionView;
    SPCoversWinListCtrlEMF options;
    Side front;
    Side back;
    CoversPane pane;

  private:
    void add(Side& side, ControlTag menuTag, ControlTag listTag, ControlTag viewTag,
             const ConstraintRecord& printingRows, const ConstraintRecord& paperRows) {
        side.menu.setTag(menuTag);
        side.printing.setTag(listTag);
        side.paper.CreateControl(&side.menu, "PageSize", "NVMediaColor", "MediaType", &kPaperMenuIniData,
                                 &paperRows, nullptr, {}, kCoversWndType, listTag);
        pane.RunTimeAddNewControl(&side.paper);
        side.view.CreateControl(&side.text, viewTag, &kViewIniData, paper_keys(), &side.paper);
        pane.RunTimeAddNewControl(&side.view);
        side.list.CreateControl(&side.printing, &kPrintingIniData, &printingRows, nullptr, {}, "Duplex",
                                printingOptionGetDuplexChoiceArray, menuTag);
        pane.RunTimeAddNewControl(&side.list);
    }
};

} // namespace specialpages::test
