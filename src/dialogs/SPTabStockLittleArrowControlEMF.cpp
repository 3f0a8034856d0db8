#include "dialogs/SPTabStockLittleArrowControlEMF.h"

#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/custom_size_range.h"
#include "controls/integer_transfer.h"
#include "dialogs/TabStockDialog.h"
#include "dialogs/tab_margin_values.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/Stepper.h"

namespace specialpages {

bool TabStockLittleArrowControl::SetControlValueToUI() {
    const auto value = keptValue();
    return (!value || SetExternalValueToUI(*value, sizeof *value)) && SimulationUIEventHandler();
}

bool TabStockLittleArrowControl::SetExternalValueToUI(const ControlValue& value, std::uint32_t size) {
    const bool set = SPInchMMLittleArrowControlEMF::SetExternalValueToUI(value, size);
    if (set) {
        lastValue = stepper()->intValue();
    }
    return set;
}

std::int32_t TabStockLittleArrowControl::DoControlUpdateConstrain() {
    SPInchMMTextEditCtrlEMF* field = GetNumberEditFromLittleArrow();
    if (field != nullptr && stepper() != nullptr && field->GetEditMaxLength() > 0) {
        const std::string text = shown(stepper()->intValue()).substr(0, field->GetEditMaxLength());
        field->SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
    }
    return 0;
}

void SPNumInSeqLittleArrowControlEMF::SetValueFromUIToControl() {
    TabStockLittleArrowControl::SetValueFromUIToControl();
    TabStockDialog* dialog = active_tab_stock_dialog(ctrlParentPanelPtr);
    if (const auto value = integer_in(ctrlUIDataBlkPtr); value && dialog != nullptr) {
        dialog->setTabStockValue(*value);
    }
}

std::optional<std::int32_t> SPNumInSeqLittleArrowControlEMF::keptValue() const {
    const TabStockDialog* dialog = active_tab_stock_dialog(ctrlParentPanelPtr);
    return dialog == nullptr ? std::nullopt : std::optional(dialog->getTabStockValue());
}

std::string SPNumInSeqLittleArrowControlEMF::shown(std::int32_t value) const {
    return platform::decimal_text(value);
}

void SPTabMMLittleArrowControlEMF::SetValueFromUIToControl() {
    TabStockLittleArrowControl::SetValueFromUIToControl();
    TabMarginDialog* dialog = active_tab_margin_dialog(ctrlParentPanelPtr);
    if (const auto value = integer_in(ctrlUIDataBlkPtr); value && dialog != nullptr) {
        dialog->setTabMarginValue(*value);
    }
}

std::optional<std::int32_t> SPTabMMLittleArrowControlEMF::keptValue() const {
    const TabMarginDialog* dialog = active_tab_margin_dialog(ctrlParentPanelPtr);
    return dialog == nullptr ? std::nullopt : std::optional(dialog->getTabMarginValue());
}

std::string SPTabMMLittleArrowControlEMF::shown(std::int32_t value) const {
    return tab_margin_text(value, kLongMeasureMillimetres);
}

std::optional<std::int32_t> SPTabInchesLittleArrowControlEMF::keptValue() const {
    const TabMarginDialog* dialog = active_tab_margin_dialog(ctrlParentPanelPtr);
    if (dialog == nullptr || littleArrayIniDataPtr == nullptr) {
        return std::nullopt;
    }
    return tab_margin_from_twin(tab_margin_text(dialog->getTabMarginValue(), kLongMeasureMillimetres),
                                kLongMeasureInches,
                                {littleArrayIniDataPtr->minimum, littleArrayIniDataPtr->maximum});
}

std::string SPTabInchesLittleArrowControlEMF::shown(std::int32_t value) const {
    return tab_margin_text(value, kLongMeasureInches);
}

} // namespace specialpages
