#include "dialogs/SPAddInsertQuantityTextEditEMF.h"

#include "controls/ControlPanel.h"
#include "dialogs/SPAddInsertQuantityLArrEMF.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/TextField.h"
#include "support/input_filter.h"

#include <algorithm>

namespace specialpages {

bool SPAddInsertQuantityTextEditEMF::IsNumberValid(const std::string& text) const {
    const auto accepted = [this](char byte) {
        return textEditFilterDataPtr == nullptr ||
               ISByteValid(static_cast<unsigned char>(byte), textEditFilterDataPtr->byteSet);
    };
    const std::int32_t number = platform::int_value(text);
    return std::all_of(text.begin(), text.end(), accepted) && number >= m_SPEditValueRangeData.minimum &&
           number <= m_SPEditValueRangeData.maximum;
}

bool SPAddInsertQuantityTextEditEMF::holdsNumber() {
    return !ToValidate() || (lengthIsInBounds() && IsNumberValid(uiText()));
}

bool SPAddInsertQuantityTextEditEMF::InvalidateData() {
    if (!SPTextEditCtrlEMF::InvalidateData()) {
        return false;
    }
    if (holdsNumber()) {
        return true;
    }
    ShowErrMsg();
    return false;
}

bool SPAddInsertQuantityTextEditEMF::InvalidateDataAndReturnError() {
    return SPTextEditCtrlEMF::InvalidateDataAndReturnError() && holdsNumber();
}

std::int32_t SPAddInsertQuantityTextEditEMF::OnRawKeyUp(const std::string& text) {
    const std::int32_t number = platform::int_value(text);
    const bool inRange = number >= m_SPEditValueRangeData.minimum && number <= m_SPEditValueRangeData.maximum;
    BaseControlEMFSpecialPages* stepper = stepperControl();
    if ((inRange || text.empty()) && stepper != nullptr) {
        stepper->SetExternalValueToUI(number, sizeof number);
        DoControlUpdateConstrain();
    }
    return 0;
}

void SPAddInsertQuantityTextEditEMF::OnLostFocus() {
    Update();
    DoControlUpdateConstrain();
}

bool SPAddInsertQuantityTextEditEMF::CorrectCtrlUI() {
    const auto* stepper = dynamic_cast<SPAddInsertQuantityLArrEMF*>(stepperControl());
    if (stepper != nullptr) {
        pDisplay = platform::decimal_text(stepper->GetQuantityValue());
        SetExternalValueToUI(pDisplay, static_cast<std::uint32_t>(pDisplay.size()));
    }
    GetValueFromUI();
    return true;
}

BaseControlEMFSpecialPages* SPAddInsertQuantityTextEditEMF::stepperControl() const {
    const ConstraintRow row =
        ctrlConstrainControlArray == nullptr ? ConstraintRow{} : row_at(ctrlConstrainControlArray->update, 0);
    return row.empty() || ctrlParentPanelPtr == nullptr ? nullptr
                                                        : ctrlParentPanelPtr->GetPanelControl(row.front());
}

} // namespace specialpages
