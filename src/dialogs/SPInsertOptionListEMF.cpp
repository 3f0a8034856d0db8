#include "dialogs/SPInsertOptionListEMF.h"

#include "controls/ControlPanel.h"
#include "dialogs/InsertsWindow.h"
#include "dialogs/SPInsertPageTextEditEMF.h"
#include "platform/toolkit/PopUpButton.h"

namespace specialpages {

namespace {

constexpr std::int32_t kAfterItem = 1;
constexpr std::int32_t kBeforePageOneItem = 2;

} // namespace

InsertsWindow* SPInsertOptionListEMF::insertsWindow() const {
    return dynamic_cast<InsertsWindow*>(ctrlParentPanelPtr);
}

std::int64_t SPInsertOptionListEMF::GetOptionSelection() const {
    return popup() == nullptr ? -1 : popup()->indexOfSelectedItem();
}

void SPInsertOptionListEMF::UpdateBeforePageOneStatus() {
    const InsertsWindow* window = insertsWindow();
    platform::MenuItem* item =
        popup() == nullptr ? nullptr : popup()->menu().itemAtIndex(kBeforePageOneItem - 1);
    if (window != nullptr && item != nullptr) {
        item->setEnabled(!window->hasFrontCover());
    }
}

bool SPInsertOptionListEMF::BEnable() const {
    return ControlPtr != nullptr && ControlPtr->isEnabled();
}

bool SPInsertOptionListEMF::SetControlValueToUI() {
    const bool shown = PopupControlEMFSpecialPages::SetControlValueToUI();
    const InsertsWindow* window = insertsWindow();
    if (window != nullptr && ControlPtr != nullptr) {
        ControlPtr->setEnabled(!window->severalAreEdited());
    }
    return shown;
}

bool SPInsertOptionListEMF::SetDefaultValueToUI() {
    return !BEnable() || PopupControlEMFSpecialPages::SetDefaultValueToUI();
}

bool SPInsertOptionListEMF::SetControlValueToDefault() {
    if (ControlPtr != nullptr) {
        ControlPtr->setEnabled(true);
    }
    return PopupControlEMFSpecialPages::SetControlValueToDefault();
}

bool SPInsertOptionListEMF::UIEventHandler() {
    InsertsWindow* window = insertsWindow();
    SPInsertPageTextEditEMF* pages = window == nullptr ? nullptr : window->getSPInstPageNumEditCtlPtr();
    if (pages != nullptr && shownItem() == kBeforePageOneItem && lastItem() != kBeforePageOneItem) {
        if (const auto empty = pages->GetDefaultDataBlk()) {
            pages->SetExternalValueToUI(*empty, pages->GetDefaultDataSize());
        }
    }
    return PopupControlEMFSpecialPages::UIEventHandler();
}

std::int32_t SPInsertOptionListEMF::DoControlConstrain() {
    InsertsWindow* window = insertsWindow();
    if (window == nullptr || ctrlConstrainControlArray == nullptr || !ctrlUIDataBlkPtr) {
        return 0;
    }
    const std::int32_t item = shownItem();
    if (window->isInUse() && lastItem() == item) {
        return 0;
    }
    if (SPInsertPageTextEditEMF* pages = window->getSPInstPageNumEditCtlPtr()) {
        if (item == kAfterItem && !window->severalAreEdited()) {
            pages->SetToEnable();
        } else {
            pages->SetToDisable();
        }
    }
    ctrlUIDataBlkPtr = item;
    return 0;
}

} // namespace specialpages
