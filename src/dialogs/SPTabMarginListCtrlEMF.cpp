#include "dialogs/SPTabMarginListCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/integer_transfer.h"
#include "dialogs/SPInchMMRadioButtonEMF.h"
#include "dialogs/SPTabStockLittleArrowControlEMF.h"
#include "dialogs/TabStockDialog.h"
#include "dialogs/tab_stock_tables.h"
#include "platform/toolkit/PopUpButton.h"

namespace specialpages {

namespace {

/// Sets the margin in one unit and turns to that unit's side. The field of the other side, which is hidden
/// then, follows.
void set_margin(TabStockLittleArrowControl* stepper, SPInchMMRadioButtonEMF* radio, std::int32_t value) {
    if (stepper == nullptr || radio == nullptr) {
        return;
    }
    stepper->SetExternalValueToUI(value, sizeof value);
    stepper->DoControlUpdateConstrain();
    radio->SetExternalValueToUI(1, sizeof(std::int32_t));
    radio->SimulationUIEventHandler();
    if (SPInchMMTextEditCtrlEMF* field = stepper->GetNumberEditFromLittleArrow()) {
        field->DoControlUpdateConstrain();
    }
}

} // namespace

bool SPTabMarginListCtrlEMF::SetControlValueToUI() {
    const TabMarginDialog* dialog = active_tab_margin_dialog(ctrlParentPanelPtr);
    return dialog == nullptr ? PopupControlEMFSpecialPages::SetControlValueToUI()
                             : SetExternalValueToUI(dialog->getTabMarginListValue(), sizeof(std::int32_t));
}

void SPTabMarginListCtrlEMF::SetValueFromUIToControl() {
    PopupControlEMFSpecialPages::SetValueFromUIToControl();
    TabMarginDialog* dialog = active_tab_margin_dialog(ctrlParentPanelPtr);
    if (const auto value = integer_in(ctrlUIDataBlkPtr); value && dialog != nullptr) {
        dialog->setTabMarginListValue(*value);
    }
}

bool SPTabMarginListCtrlEMF::UIEventHandler() {
    PopupControlEMFSpecialPages::UIEventHandler();
    auto* controls = dynamic_cast<TabMarginControls*>(ctrlParentPanelPtr);
    if (controls == nullptr || popup() == nullptr) {
        return true;
    }
    const std::int64_t item = popup()->indexOfSelectedItem() + 1;
    if (item == kA4ShiftItem) {
        set_margin(controls->getTabMarginMMLArrowPtr(), controls->getTabMarginMMRadioButtonPtr(),
                   SPTabMarginLittleArrowMMIniData.defaultValue);
    } else if (item == kLetterShiftItem) {
        set_margin(controls->getTabMarginInchLArrowPtr(), controls->getTabMarginInchRadioButtonPtr(),
                   SPTabMarginLittleArrowInchIniData.defaultValue);
    }
    return true;
}

} // namespace specialpages
