#include "controls/SPTextEditCtrlEMF.h"

#include "controls/SPTextEditFormatterEMF.h"
#include "platform/toolkit/TextField.h"

namespace specialpages {

void SPTextEditCtrlEMF::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                      const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                                      std::string_view usernamein, const TextEditFilterData* FilterData,
                                      const EditValueRangeData* ValueRange) {
    CreateControl(view, IniData, constrain, accessInfo, usernamein, FilterData);
    m_SPEditValueRangeData = ValueRange == nullptr ? EditValueRangeData{} : *ValueRange;
}

void SPTextEditCtrlEMF::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr || textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        TextEditCtrlEMFSpecialPages::InitializeCtrlFormat();
        return;
    }
    field->setFormatter(std::make_shared<SPTextEditFormatterEMF>(
        textEditFilterDataPtr, &m_SPEditValueRangeData, GetEditMaxLength(), weakSelf()));
}

} // namespace specialpages
