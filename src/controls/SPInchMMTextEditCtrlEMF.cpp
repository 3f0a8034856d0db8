#include "controls/SPInchMMTextEditCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/SPInchMMTextEditFormatterEMF.h"
#include "platform/toolkit/TextField.h"

namespace specialpages {

void SPInchMMTextEditCtrlEMF::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                            const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                                            std::string_view usernamein, const TextEditFilterData* FilterData,
                                            const char* titleInfo, const EditValueRangeData* ValueRange) {
    CreateControl(view, IniData, constrain, accessInfo, usernamein, FilterData);
    pDisplay.clear();
    titletextRef = titleInfo;
    inchMMEditValueRangeData = ValueRange == nullptr ? EditValueRangeData{} : *ValueRange;
}

void SPInchMMTextEditCtrlEMF::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr || textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        TextEditCtrlEMFSpecialPages::InitializeCtrlFormat();
        return;
    }
    field->setFormatter(std::make_shared<SPInchMMTextEditFormatterEMF>(
        textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
}

bool SPInchMMTextEditCtrlEMF::InvalidateData() {
    if (!ToValidate() || textEditIniDataPtr == nullptr) {
        return true;
    }
    if (PreInvalidateData() && ctrlDataSize != 0 && lengthIsInBounds() && IsNumberValid(uiText())) {
        return true;
    }
    ShowErrMsg();
    return false;
}

bool SPInchMMTextEditCtrlEMF::InvalidateDataAndReturnError() {
    if (!ToValidate()) {
        return true;
    }
    return PreInvalidateData() && (ctrlDataSize == 0 || IsNumberValid(uiText()));
}

bool SPInchMMTextEditCtrlEMF::IsNumberValid(const std::string&) {
    return true;
}

void SPInchMMTextEditCtrlEMF::OnLostFocus() {
    Update();
    DoControlUpdateConstrain();
}

LittleArrayEMFSpecialPages* SPInchMMTextEditCtrlEMF::GetLittleArrayForNumberEdit() {
    return dynamic_cast<LittleArrayEMFSpecialPages*>(neighbour(0));
}

SPInchMMTextEditCtrlEMF* SPInchMMTextEditCtrlEMF::GetTextEditForNumberEdit() {
    return dynamic_cast<SPInchMMTextEditCtrlEMF*>(neighbour(1));
}

BaseControlEMFSpecialPages* SPInchMMTextEditCtrlEMF::neighbour(std::size_t place) {
    if (ctrlConstrainControlArray == nullptr || ctrlParentPanelPtr == nullptr) {
        return nullptr;
    }
    const ConstraintRow row = row_at(ctrlConstrainControlArray->update, GetCurrentControlArrayNumber());
    return place < row.size() ? ctrlParentPanelPtr->GetPanelControl(row[place]) : nullptr;
}

} // namespace specialpages
