#include "dialogs/SPCustomSizeLittleArrowControlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "dialogs/custom_size_values.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "platform/toolkit/Stepper.h"

#include <string>

namespace specialpages {

void CustomSizeLittleArrowControl::CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                                                 const ConstraintRecord* constrain,
                                                 ConstraintRow validateArray, std::int32_t SizeFlag) {
    CreateControl(view, IniData, constrain, nullptr, {}, nullptr, validateArray);
    tableIniData_ = IniData;
    m_customSize_flag = SizeFlag;
}

bool CustomSizeLittleArrowControl::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    takeRange(withPPD);
    return SPInchMMLittleArrowControlEMF::InitializeCtrl(bundle, withPPD);
}

void CustomSizeLittleArrowControl::takeRange(ppd_file_s* ppd) {
    littleArrayIniDataPtr = tableIniData_;
    const auto points = custom_size_points(ppd, m_customSize_flag);
    const auto limits = points ? custom_size_limits(*points, longMeasure_) : std::nullopt;
    if (!limits || tableIniData_ == nullptr) {
        return;
    }
    ownIniData_ = *tableIniData_;
    ownIniData_.minimum = limits->minimum;
    ownIniData_.maximum = limits->maximum;
    if (ownIniData_.defaultValue < limits->minimum || ownIniData_.defaultValue > limits->maximum) {
        ownIniData_.defaultValue = limits->minimum;
    }
    littleArrayIniDataPtr = &ownIniData_;
}

bool CustomSizeLittleArrowControl::SetControlValueToUI() {
    auto* window = dynamic_cast<CustomSizeWindow*>(ctrlParentPanelPtr);
    const SPSubMenuListCtrlEMF* menu = window == nullptr ? nullptr : window->GetSubMenuList();
    if (menu == nullptr || littleArrayIniDataPtr == nullptr) {
        return SPInchMMLittleArrowControlEMF::SetControlValueToUI();
    }
    const std::string& stored =
        m_customSize_flag == kCustomSizeLength ? menu->getCustomPageLength() : menu->getCustomPageWidth();
    const EditValueRangeData range{littleArrayIniDataPtr->minimum, littleArrayIniDataPtr->maximum};
    const std::int32_t value = stored == kUndecidedSize
                                   ? range.minimum
                                   : held_to(range, custom_size_stepper_from_stored(stored, longMeasure_));
    return SetExternalValueToUI(value, sizeof value);
}

bool CustomSizeLittleArrowControl::SetExternalValueToUI(const ControlValue& value, std::uint32_t size) {
    const bool shown = SPInchMMLittleArrowControlEMF::SetExternalValueToUI(value, size);
    if (shown) {
        lastValue = stepper()->intValue();
    }
    return shown;
}

std::int32_t CustomSizeLittleArrowControl::DoControlUpdateConstrain() {
    SPInchMMTextEditCtrlEMF* field = GetNumberEditFromLittleArrow();
    if (field != nullptr && stepper() != nullptr && field->GetEditMaxLength() > 0) {
        const std::string text =
            custom_size_text(stepper()->intValue(), longMeasure_).substr(0, field->GetEditMaxLength());
        field->SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
    }
    return 0;
}

} // namespace specialpages
