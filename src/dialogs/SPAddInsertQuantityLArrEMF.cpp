#include "dialogs/SPAddInsertQuantityLArrEMF.h"

#include "controls/ControlPanel.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/integer_transfer.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Stepper.h"

#include <algorithm>

namespace specialpages {

void SPAddInsertQuantityLArrEMF::CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                                               const ConstraintRecord* constrain,
                                               const AccessInfo* accessInfo, std::string_view usernamein,
                                               const char* titleStr, ConstraintRow validateArray) {
    LittleArrayControl(view, IniData, constrain, accessInfo, usernamein, titleStr);
    ControlValidateArray = validateArray;
}

bool SPAddInsertQuantityLArrEMF::SetExternalValueToUI(const ControlValue& value, std::uint32_t size) {
    const bool shown = LittleArrayEMFSpecialPages::SetExternalValueToUI(value, size);
    if (shown) {
        lastValue = GetQuantityValue();
    }
    return shown;
}

bool SPAddInsertQuantityLArrEMF::SetControlValueToUI() {
    if (!InvalidateRelateControlDataAndReturnError() || !LittleArrayEMFSpecialPages::SetControlValueToUI()) {
        return false;
    }
    UIEventHandler();
    lastValue = GetQuantityValue();
    return true;
}

void SPAddInsertQuantityLArrEMF::RequestControlAction(platform::View*) {
    // Both are kept: the field that is asked may hand over what was being typed into it.
    const ValueBlock* block = GetValueFromUI();
    const auto value = block == nullptr ? std::nullopt : integer_in(*block);
    const std::int32_t last = lastValue;
    if (!value || littleArrayIniDataPtr == nullptr || !InvalidateRelateControlData()) {
        return;
    }
    if (!isInRange(*value) || *value == last) {
        platform::Application::shared().NSBeep();
        return;
    }
    if (SetExternalValueToUI(*value, ctrlDataSize)) {
        UIEventHandler();
    }
    lastValue = *value;
}

std::int32_t SPAddInsertQuantityLArrEMF::DoControlUpdateConstrain() {
    if (ctrlConstrainControlArray == nullptr || ctrlConstrainControlArray->update.empty() ||
        ctrlParentPanelPtr == nullptr || stepper() == nullptr ||
        !InvalidateRelateControlDataAndReturnError()) {
        return 0;
    }
    const ConstraintRow row = row_at(ctrlConstrainControlArray->update, GetCurrentControlArrayNumber());
    auto* field =
        row.empty()
            ? nullptr
            : dynamic_cast<TextEditCtrlEMFSpecialPages*>(ctrlParentPanelPtr->GetPanelControl(row.front()));
    if (field != nullptr && field->GetEditMaxLength() > 0) {
        const std::string text =
            platform::decimal_text(GetQuantityValue()).substr(0, field->GetEditMaxLength());
        field->SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
    }
    return LittleArrayEMFSpecialPages::DoControlUpdateConstrain();
}

bool SPAddInsertQuantityLArrEMF::InvalidateRelateControlData() {
    return relatedControlsAnswer(&BaseControlEMFSpecialPages::InvalidateData);
}

bool SPAddInsertQuantityLArrEMF::InvalidateRelateControlDataAndReturnError() {
    return relatedControlsAnswer(&BaseControlEMFSpecialPages::InvalidateDataAndReturnError);
}

bool SPAddInsertQuantityLArrEMF::relatedControlsAnswer(bool (BaseControlEMFSpecialPages::*question)()) {
    return std::all_of(ControlValidateArray.begin(), ControlValidateArray.end(), [&](ControlTag tag) {
        BaseControlEMFSpecialPages* control =
            ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPanelControl(tag);
        return control != nullptr && (control->*question)();
    });
}

std::int32_t SPAddInsertQuantityLArrEMF::GetQuantityValue() const {
    return stepper() == nullptr ? 0 : stepper()->intValue();
}

} // namespace specialpages
