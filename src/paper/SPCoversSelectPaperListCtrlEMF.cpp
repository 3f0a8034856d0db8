#include "paper/SPCoversSelectPaperListCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "paper/CoversWindow.h"
#include "paper/SPCoversWinListCtrlEMF.h"
#include "paper/covers_tags.h"
#include "paper/paper_windows.h"
#include "platform/toolkit/PopUpButton.h"

#include <algorithm>

namespace specialpages {

namespace {

/// For operations that count from the first item behind the title.
constexpr std::int64_t kSizeIndex = static_cast<std::int64_t>(PaperPart::size) - 1;
constexpr std::int64_t kInterposerIndex = kInterposerPosition - 1;
constexpr std::int32_t kJobSettingOfSize = 1;
constexpr std::int64_t kBlankPosition = 0;

} // namespace

CoversWindow* SPCoversSelectPaperListCtrlEMF::coversWindow() const {
    return dynamic_cast<CoversWindow*>(ctrlParentPanelPtr);
}

SPCoversWinListCtrlEMF* SPCoversSelectPaperListCtrlEMF::ownPrintingList() const {
    CoversWindow* window = coversWindow();
    if (window == nullptr || ControlPtr == nullptr) {
        return nullptr;
    }
    switch (ControlPtr->tag()) {
    case spCoversWndFrontCoverPageListID:
        return window->getSPCoverWndFrontPrintingOptionListPtr();
    case spCoversWndBackCoverPageListID:
        return window->getSPCoverWndBackPrintingOptionListPtr();
    default:
        return nullptr;
    }
}

std::int32_t SPCoversSelectPaperListCtrlEMF::Update() {
    if (const SPCoversWinListCtrlEMF* printing = ownPrintingList()) {
        followPrintingPosition(printing->selectedPosition());
    }
    CoversWindow* window = coversWindow();
    const SPCoversWinListCtrlEMF* options = window == nullptr ? nullptr : window->getSPCoversOptionsListPtr();
    if (options != nullptr && static_cast<CoverOption>(options->selectedPosition()) == CoverOption::same) {
        takeFrontPaper(*window);
    }
    UIEventHandler();
    return 0;
}

void SPCoversSelectPaperListCtrlEMF::followPrintingPosition(std::int64_t position) {
    const bool blank = position == kBlankPosition;
    enabledSubMenuByIndex(kSizeIndex, blank);
    if (!blank) {
        SetSubMenuToJobSettingByIndex(kJobSettingOfSize);
        doCoversSelectPaperListPPDConstraint();
    }
    // What bars the interposer altogether disables it again in the re-check that ends the update.
    enabledSubMenuByIndex(kInterposerIndex, blank);
}

void SPCoversSelectPaperListCtrlEMF::takeFrontPaper(CoversWindow& window) {
    if (const auto* front = window.getSPCoverWndFrontSelectPaperListPtr()) {
        PaperControlValue value;
        front->getControlValue(&value);
        setControlValue(&value);
        updateSelectionArray();
    }
    if (SPCoversWinListCtrlEMF* back = window.getSPCoverWndBackPrintingOptionListPtr()) {
        back->UpdateConflictsPanelControlFromPPD(currentPPD());
    }
}

bool SPCoversSelectPaperListCtrlEMF::UIEventHandler() {
    SPSelectPaperListCtrlEMF::UIEventHandler();
    doPrintingOptionsConstraint();
    return true;
}

void SPCoversSelectPaperListCtrlEMF::doPrintingOptionsConstraint() {
    CoversWindow* window = coversWindow();
    if (window == nullptr) {
        return;
    }
    const auto follow = [](SPCoversWinListCtrlEMF* list, const SPSelectPaperListCtrlEMF* menu) {
        if (list != nullptr && menu != nullptr) {
            list->doConstraintWithInterposer(menu->getInterPoser());
        }
    };
    follow(window->getSPCoverWndFrontPrintingOptionListPtr(), window->getSPCoverWndFrontSelectPaperListPtr());
    follow(window->getSPCoverWndBackPrintingOptionListPtr(), window->getSPCoverWndBackSelectPaperListPtr());
}

void SPCoversSelectPaperListCtrlEMF::doCoversSelectPaperListPPDConstraint() {
    updateSelectionArray();
    if (ctrlParentPanelPtr != nullptr) {
        ctrlParentPanelPtr->UpdateConflictsPanelControlFromPPD(currentPPD());
    }
}

std::int32_t SPCoversSelectPaperListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) {
    SPSelectPaperListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd);
    const platform::MenuItem* chosen =
        getSelectedMenuItemRef(static_cast<std::int64_t>(PaperPart::type), paper.type);
    if (!fallingBack && chosen != nullptr && !chosen->isEnabled()) {
        // The choice below leads to a re-check of the whole window, and so back here.
        fallingBack = true;
        fallBackToAllowedType();
        fallingBack = false;
    }
    return 0;
}

void SPCoversSelectPaperListCtrlEMF::fallBackToAllowedType() {
    const platform::Menu* types = getSubMenuRef(static_cast<std::int64_t>(PaperPart::type));
    const auto count = static_cast<std::int64_t>(types->numberOfItems());
    // Position 0 is "No Change", which no cover has.
    for (std::int64_t position = 1; position < count; ++position) {
        const platform::MenuItem& item = *types->itemAtIndex(position);
        if (!item.isHidden() && item.isEnabled()) {
            doControlAction(item.tag(), MenuActionSender::fallback);
            return;
        }
    }
}

bool SPCoversSelectPaperListCtrlEMF::SetControlValueToUI() {
    takeDefaultCustomSize();
    CoversWindow* window = coversWindow();
    const RecordList* records = window == nullptr ? nullptr : window->getCoversDataRecordsPtr();
    if (records != nullptr && ControlPtr != nullptr) {
        const std::int32_t page = ControlPtr->tag() == spCoversWndBackCoverPageListID ? 1 : 0;
        const auto record =
            std::find_if(records->begin(), records->end(), [page](const SpecialPageRecord& each) {
                return each.integer(RecordKey::page) == page;
            });
        if (record != records->end()) {
            takeRecord(*record);
        }
    }
    setNoChangeHidden(true);
    // Events that follow re-check the menu; with the selection of the paper before, they would make the cover
    // fall back from a type that its own size allows.
    updateSelectionArray();
    return true;
}

void SPCoversSelectPaperListCtrlEMF::takeDefaultCustomSize() {
    setDefaultCustomValue();
    auto* window = hub() == nullptr ? nullptr : dynamic_cast<CustomSizeWindow*>(hub()->getCustomSizeWndPtr());
    if (window != nullptr) {
        setCustomPageWidth(window->defaultCustomWidth().c_str());
        setCustomPageLength(window->defaultCustomLength().c_str());
    }
}

void SPCoversSelectPaperListCtrlEMF::takeRecord(const SpecialPageRecord& record) {
    choose(PaperPart::size, record.integer(RecordKey::pagesize));
    choose(PaperPart::color, record.integer(RecordKey::pagecolor));
    choose(PaperPart::type, record.integer(RecordKey::pagetype));
    setCustomPageWidth(record.text(RecordKey::width).c_str());
    setCustomPageLength(record.text(RecordKey::length).c_str());
    setCustomPageSizeLongMeasure(record.integer(RecordKey::longmeasure));
    const std::string& interposer = record.text(RecordKey::interposer);
    if (interposer == "true" || interposer == "false") {
        setInterPoser(interposer == "true");
    }
}

bool SPCoversSelectPaperListCtrlEMF::SetDefaultValueToUI() {
    SetControlValueToDefault();
    updateSelectionArray();
    return true;
}

} // namespace specialpages
