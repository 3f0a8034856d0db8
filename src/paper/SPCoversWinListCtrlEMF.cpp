#include "paper/SPCoversWinListCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "paper/CoversWindow.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "paper/conflict_tips.h"
#include "paper/covers_tags.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/ppd_keywords.h"

#include <algorithm>

namespace specialpages {

namespace {

constexpr std::int64_t kSideOnePosition = 1;
constexpr std::int64_t kLastPrintingPosition = 3;
constexpr std::int32_t kFrontPage = 0;
constexpr std::int32_t kBackPage = 1;

} // namespace

bool SPCoversWinListCtrlEMF::isFront() const {
    return ControlPtr != nullptr && ControlPtr->tag() == spCoversWndFrontPrintingOptionListID;
}

bool SPCoversWinListCtrlEMF::isBack() const {
    return ControlPtr != nullptr && ControlPtr->tag() == spCoversWndBackPrintingOptionListID;
}

CoversWindow* SPCoversWinListCtrlEMF::coversWindow() const {
    return dynamic_cast<CoversWindow*>(ctrlParentPanelPtr);
}

SPSelectPaperListCtrlEMF* SPCoversWinListCtrlEMF::ownPaperMenu() const {
    CoversWindow* window = coversWindow();
    if (window == nullptr || !(isFront() || isBack())) {
        return nullptr;
    }
    return isFront() ? window->getSPCoverWndFrontSelectPaperListPtr()
                     : window->getSPCoverWndBackSelectPaperListPtr();
}

std::int64_t SPCoversWinListCtrlEMF::selectedPosition() const {
    return popup() == nullptr ? -1 : popup()->indexOfSelectedItem();
}

bool SPCoversWinListCtrlEMF::SetControlValueToUI() {
    SetDefaultValueToUI();
    CoversWindow* window = coversWindow();
    const RecordList* records = window == nullptr ? nullptr : window->getCoversDataRecordsPtr();
    const auto position = records == nullptr ? std::nullopt : recordedPosition(*records);
    if (popup() == nullptr) {
        return false;
    }
    if (position) {
        popup()->selectItemAtIndex(*position);
    }
    return true;
}

std::optional<std::int32_t> SPCoversWinListCtrlEMF::recordedPosition(const RecordList& records) const {
    if (!isFront() && !isBack()) {
        return records.empty() ? std::nullopt
                               : std::optional(records.front().integer(RecordKey::coversoption));
    }
    const std::int32_t page = isFront() ? kFrontPage : kBackPage;
    const auto record = std::find_if(records.begin(), records.end(), [page](const SpecialPageRecord& each) {
        return each.integer(RecordKey::page) == page;
    });
    return record == records.end() ? std::nullopt
                                   : std::optional(record->integer(RecordKey::printingoptions));
}

std::int32_t SPCoversWinListCtrlEMF::Update() {
    CoversWindow* window = coversWindow();
    if (window == nullptr || window->getSPCoversOptionsListPtr() == nullptr) {
        return 0;
    }
    SPCoversWinListCtrlEMF* front = window->getSPCoverWndFrontPrintingOptionListPtr();
    const auto option = static_cast<CoverOption>(window->getSPCoversOptionsListPtr()->selectedPosition());
    if (option == CoverOption::same && front != nullptr && popup() != nullptr) {
        popup()->selectItemAtIndex(front->selectedPosition());
    } else if (option == CoverOption::none) {
        SetDefaultValueToUI();
        SimulationUIEventHandler();
    }
    for (SPCoversWinListCtrlEMF* list : {front, window->getSPCoverWndBackPrintingOptionListPtr()}) {
        const auto* menu = list == nullptr ? nullptr : list->ownPaperMenu();
        if (menu != nullptr) {
            list->doConstraintWithInterposer(menu->getInterPoser());
        }
    }
    return 0;
}

std::int32_t SPCoversWinListCtrlEMF::DoSelfUpdate() {
    if (CoversWindow* window = coversWindow()) {
        for (SPCoversWinListCtrlEMF* list : {window->getSPCoverWndFrontPrintingOptionListPtr(),
                                             window->getSPCoverWndBackPrintingOptionListPtr()}) {
            if (list != nullptr) {
                list->fallBackToSideOne();
            }
        }
    }
    return 0;
}

void SPCoversWinListCtrlEMF::fallBackToSideOne() {
    const platform::MenuItem* selected = popup() == nullptr ? nullptr : popup()->selectedItem();
    if (fallingBack || selected == nullptr || !popup()->isEnabled() || selected->isEnabled()) {
        return;
    }
    // The event below comes back here by the neighbours, and side one may be disabled as well.
    fallingBack = true;
    popup()->selectItemAtIndex(kSideOnePosition);
    SPDuplexListCtrlEMF::UIEventHandler();
    GetValueFromUI();
    fallingBack = false;
}

std::int32_t SPCoversWinListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) {
    SPDuplexListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd);
    const auto* menu = ownPaperMenu();
    if (menu != nullptr && menu->getInterPoser()) {
        doConstraintWithInterposer(true);
    }
    return 0;
}

void SPCoversWinListCtrlEMF::doConstraintWithInterposer(bool interposer) {
    for (std::int64_t position = 1; position <= kLastPrintingPosition; ++position) {
        enabledSubMenuByIndex(position, !interposer);
    }
    if (!interposer) {
        UpdateConflictsFromPPD();
    }
}

void SPCoversWinListCtrlEMF::enabledSubMenuByIndex(std::int64_t index, bool EnabledMenu) {
    platform::MenuItem* item = popup() == nullptr || index < 1 ? nullptr : popup()->menu().itemAtIndex(index);
    if (item != nullptr) {
        item->setToolTip({});
        item->setEnabled(EnabledMenu);
    }
}

void SPCoversWinListCtrlEMF::UpdateConflictsFromPPD() {
    ppd_file_s* ppd = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetCurrentPPD();
    if (ppd == nullptr || popup() == nullptr || !(isFront() || isBack())) {
        return;
    }
    ConflictTips tips(ctrlParentPanelPtr->GetPDEBundleRef());
    for (std::size_t position = 1; position < printingOptionPPDOptionChoice.size(); ++position) {
        const ChoiceKey key(kPPDDuplex, printingOptionPPDOptionChoice[position]);
        if (auto* item = popup()->menu().itemAtIndex(static_cast<std::int64_t>(position))) {
            tips.show(*item, itemConflict(key.text(), ppd));
        }
    }
}

ConflictingChoice SPCoversWinListCtrlEMF::itemConflict(std::string_view key, ppd_file_s* ppd) const {
    const SPSelectPaperListCtrlEMF* menu = ownPaperMenu();
    if (menu == nullptr) {
        return {};
    }
    const auto index = ctrlParentPanelPtr->Getxppd();
    for (const auto& [part, option] :
         {std::pair(PaperPart::size, kPPDPageSizeKey), std::pair(PaperPart::type, kPPDMediaTypeKey)}) {
        const auto type = static_cast<std::int32_t>(part);
        const auto choice = menu->getSelectedMenuItemChoice(type, menu->getSelectedMenuItemIndexByType(type));
        if (!choice) {
            continue;
        }
        const ConflictingChoice found = forbidding_choice(ppd, index.get(), key, option, *choice);
        if (found.choice != nullptr) {
            return found;
        }
    }
    return {};
}

bool SPCoversWinListCtrlEMF::isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD,
                                                  bool /*isNoChangeChoice*/) const {
    return itemConflict(key, withPPD).choice != nullptr;
}

} // namespace specialpages
