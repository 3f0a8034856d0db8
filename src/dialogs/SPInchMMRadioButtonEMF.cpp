#include "dialogs/SPInchMMRadioButtonEMF.h"

#include "controls/ControlPanel.h"
#include "controls/custom_size_range.h"
#include "controls/integer_transfer.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "platform/toolkit/Button.h"
#include "support/settings_access.h"

#include <algorithm>

namespace specialpages {

namespace {

/// From this version (10.8) on the toolkit lets go of the other radio by itself, so it is put back too.
constexpr std::int32_t kVersionClearsOther = 0x1080;

platform::Button* button_of(const BaseControlEMFSpecialPages& radio) {
    return dynamic_cast<platform::Button*>(radio.GetControlPtr());
}

} // namespace

void SPInchMMRadioButtonEMF::CreateControl(platform::View* view, const RadioIniData* IniData,
                                           const ConstraintRecord* constrain, ConstraintRow validateArray,
                                           std::int32_t longMeasure) {
    RadioButton(view, IniData, constrain, nullptr, {});
    validateControlArray = validateArray;
    longMeasureFlag = longMeasure;
}

bool SPInchMMRadioButtonEMF::ValidateConstrains() {
    return std::all_of(validateControlArray.begin(), validateControlArray.end(), [this](ControlTag tag) {
        BaseControlEMFSpecialPages* field =
            ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPanelControl(tag);
        return field == nullptr || field->InvalidateData();
    });
}

bool SPInchMMRadioButtonEMF::UIEventHandler() {
    platform::Button* button = button_of(*this);
    const auto before = integer_in(ctrlUIDataBlkPtr);
    if (button == nullptr || !before || button->intValue() == *before) {
        return true;
    }
    if (ValidateConstrains()) {
        return RadioButtonEMFSpecialPages::UIEventHandler();
    }
    const std::int32_t state = *before > 0 ? 1 : 0;
    button->setIntValue(state);
    const RadioButtonEMFSpecialPages* other = GetAnotherRadioCtrlFromGroup();
    platform::Button* otherButton = other == nullptr || other == this ? nullptr : button_of(*other);
    if (otherButton != nullptr && system_version() >= kVersionClearsOther) {
        otherButton->setIntValue(1 - state);
    }
    return false;
}

bool SPInchMMRadioButtonEMF::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* state = std::get_if<std::int32_t>(&value);
    platform::Button* button = button_of(*this);
    if (state == nullptr || button == nullptr) {
        return false;
    }
    button->setIntValue(*state);
    if (*state >= 1) {
        SetGrpcurRadio();
    }
    return true;
}

bool SPCustomSizeInchMMRadioButtonEMF::SetControlValueToUI() {
    auto* window = dynamic_cast<CustomSizeWindow*>(ctrlParentPanelPtr);
    const SPSubMenuListCtrlEMF* menu = window == nullptr ? nullptr : window->GetSubMenuList();
    if (menu == nullptr) {
        return SPInchMMRadioButtonEMF::SetControlValueToUI();
    }
    const std::int32_t measure = menu->getCustomPageSizeLongMeasure();
    if (measure == kLongMeasureInches || measure == kLongMeasureMillimetres) {
        return SetExternalValueToUI(measure == longMeasureFlag ? 1 : 0, sizeof measure);
    }
    const auto standard = GetDefaultDataBlk();
    return standard && SetExternalValueToUI(*standard, GetDefaultDataSize());
}

} // namespace specialpages
