#include "controls/SPInchMMLittleArrowControlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/integer_transfer.h"
#include "platform/toolkit/Application.h"

#include <algorithm>

namespace specialpages {

void SPInchMMLittleArrowControlEMF::CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                                                  const ConstraintRecord* constrain,
                                                  const AccessInfo* accessInfo, std::string_view usernamein,
                                                  const char* titleStr, ConstraintRow validateArray) {
    LittleArrayControl(view, IniData, constrain, accessInfo, usernamein, titleStr);
    ControlValidateArray = validateArray;
}

bool SPInchMMLittleArrowControlEMF::SetControlValueToUI() {
    return LittleArrayEMFSpecialPages::SetControlValueToUI() && SimulationUIEventHandler();
}

void SPInchMMLittleArrowControlEMF::RequestControlAction(platform::View*) {
    // Kept beside the block: the fields that are asked may set the stepper to what was typed into them.
    const ValueBlock* block = LittleArrayEMFSpecialPages::GetValueFromUI();
    const auto value = block == nullptr ? std::nullopt : integer_in(*block);
    if (!value || littleArrayIniDataPtr == nullptr || !InvalidateRelateControlData()) {
        return;
    }
    if (!isInRange(*value) || *value == lastValue) {
        platform::Application::shared().NSBeep();
        return;
    }
    if (SetExternalValueToUI(*value, ctrlDataSize)) {
        UIEventHandler();
    }
    lastValue = *value;
}

bool SPInchMMLittleArrowControlEMF::InvalidateRelateControlData() {
    return std::all_of(ControlValidateArray.begin(), ControlValidateArray.end(), [this](ControlTag tag) {
        BaseControlEMFSpecialPages* control =
            ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPanelControl(tag);
        return control != nullptr && control->InvalidateData();
    });
}

SPInchMMTextEditCtrlEMF* SPInchMMLittleArrowControlEMF::GetNumberEditFromLittleArrow() {
    if (ctrlConstrainControlArray == nullptr || ctrlParentPanelPtr == nullptr) {
        return nullptr;
    }
    const ConstraintRow row = row_at(ctrlConstrainControlArray->update, GetCurrentControlArrayNumber());
    return row.empty()
               ? nullptr
               : dynamic_cast<SPInchMMTextEditCtrlEMF*>(ctrlParentPanelPtr->GetPanelControl(row.front()));
}

} // namespace specialpages
