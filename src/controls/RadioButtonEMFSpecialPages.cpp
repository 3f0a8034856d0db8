#include "controls/RadioButtonEMFSpecialPages.h"

#include "controls/integer_transfer.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Button.h"
#include "support/identifiers.h"
#include "support/settings_access.h"

namespace specialpages {

namespace {

constexpr std::uint32_t kIntegerBlockSize = 4;
/// From this version (10.8) on a radio clears itself without looking at its value.
constexpr std::int32_t kVersionClearsAlways = 4224;

} // namespace

void RadioGroupEMFSpecialPages::RadioGroup() {
    CreateControl(nullptr);
    fCtrlGroupArray.clear();
    curRadio = -1;
}

std::int32_t RadioGroupEMFSpecialPages::RunTimeAddNewControl(RadioButtonEMFSpecialPages* button) {
    const auto index = static_cast<std::int32_t>(fCtrlGroupArray.size());
    if (button != nullptr) {
        button->SetCtrlGrp(this);
        fCtrlGroupArray.push_back(button);
    }
    return index;
}

ValueBlock* RadioGroupEMFSpecialPages::GetValueFromUI() {
    for (RadioButtonEMFSpecialPages* button : fCtrlGroupArray) {
        button->GetValueFromUI();
    }
    return nullptr;
}

void RadioGroupEMFSpecialPages::SetcurRadio(std::int32_t index) {
    if (index >= 0 && index < static_cast<std::int32_t>(fCtrlGroupArray.size())) {
        curRadio = index;
    }
}

void RadioButtonEMFSpecialPages::RadioButton(platform::View* view, const RadioIniData* IniData,
                                             const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                                             std::string_view usernamein) {
    CreateControl(view);
    radiobuttonIniDataPtr = IniData;
    ctrlConstrainControlArray = constrain;
    ctrlDataAccessInfoPtr = accessInfo;
    userNameinPreference = usernamein;
    ctrlDataSize = kIntegerBlockSize;
}

bool RadioButtonEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD) || !InitializeTitle(bundle)) {
        return false;
    }
    ctrlDataBlkPtr = 0;
    ctrlUIDataBlkPtr = 0;
    return true;
}

bool RadioButtonEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return BaseControlEMFSpecialPages::ReInitializeCtrl(bundle, withPPD);
}

bool RadioButtonEMFSpecialPages::InitializeTitle(platform::Bundle* bundle) {
    if (radiobuttonIniDataPtr == nullptr) {
        return true;
    }
    if (button() == nullptr || bundle == nullptr || radiobuttonIniDataPtr->titleKey == nullptr) {
        return false;
    }
    button()->setTitle(localized(*bundle, radiobuttonIniDataPtr->titleKey, kNoTranslation));
    return true;
}

bool RadioButtonEMFSpecialPages::SetControlValueToUI() {
    const auto state = integer_in(ctrlDataBlkPtr);
    if (!state || button() == nullptr) {
        return false;
    }
    if (*state > 0) {
        SetGrpcurRadio();
    }
    button()->setIntValue(*state);
    return true;
}

bool RadioButtonEMFSpecialPages::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* state = std::get_if<std::int32_t>(&value);
    if (state == nullptr || button() == nullptr) {
        return false;
    }
    button()->setIntValue(*state);
    if (*state > 0) {
        SetGrpcurRadio();
    }
    return button()->isEnabled();
}

bool RadioButtonEMFSpecialPages::setExternalValueToData(const ControlValue& value, std::uint32_t,
                                                        std::int32_t) {
    const auto* state = std::get_if<std::int32_t>(&value);
    if (state != nullptr && ctrlDataBlkPtr) {
        ctrlDataBlkPtr = *state;
        if (*state > 0) {
            SetGrpcurRadio();
        }
    }
    return true;
}

ValueBlock* RadioButtonEMFSpecialPages::GetValueFromUI() {
    if (!ctrlUIDataBlkPtr) {
        return nullptr;
    }
    if (button() != nullptr) {
        ctrlUIDataBlkPtr = button()->intValue();
    }
    return &ctrlUIDataBlkPtr;
}

bool RadioButtonEMFSpecialPages::GetValueToPreset() {
    const auto value = integer_from_settings(ctrlParentPanelPtr, ctrlDataAccessInfoPtr);
    if (!value || !ctrlDataBlkPtr) {
        return false;
    }
    ctrlDataBlkPtr = *value;
    if (button() != nullptr) {
        button()->setIntValue(*value);
    }
    return true;
}

std::optional<ControlValue> RadioButtonEMFSpecialPages::GetDefaultDataBlk() const {
    return radiobuttonIniDataPtr == nullptr
               ? std::nullopt
               : std::optional<ControlValue>(radiobuttonIniDataPtr->defaultState);
}

std::uint32_t RadioButtonEMFSpecialPages::GetDefaultDataSize() const {
    return radiobuttonIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

std::optional<ControlValue> RadioButtonEMFSpecialPages::GetIniDataBlk() const {
    return radiobuttonIniDataPtr == nullptr ? std::nullopt
                                            : std::optional<ControlValue>(radiobuttonIniDataPtr->initial);
}

std::uint32_t RadioButtonEMFSpecialPages::GetIniDataSize() const {
    return radiobuttonIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

bool RadioButtonEMFSpecialPages::ConvertToPreferenceString(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

bool RadioButtonEMFSpecialPages::ConvertFromPreferenceString(std::string_view text) {
    return text_to_integer(text, ctrlDataBlkPtr);
}

bool RadioButtonEMFSpecialPages::ConvertToTickectData(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

bool RadioButtonEMFSpecialPages::UIEventHandler() {
    SetGrpcurRadio();
    BaseControlEMFSpecialPages::UIEventHandler();
    if (RadioGrpPtr != nullptr) {
        RadioGrpPtr->GetValueFromUI();
    }
    return true;
}

bool RadioButtonEMFSpecialPages::SimulationUIEventHandler() {
    if (RadioGrpPtr != nullptr && RadioGrpPtr->GetcurRadio() < 0) {
        RadioGrpPtr->SetcurRadio(0);
    }
    BaseControlEMFSpecialPages::SimulationUIEventHandler();
    GetValueFromUI();
    return true;
}

std::optional<RadioButtonEMFSpecialPages::Change> RadioButtonEMFSpecialPages::change() const {
    const auto before = integer_in(ctrlUIDataBlkPtr);
    if (!before || button() == nullptr || *before == button()->intValue()) {
        return std::nullopt;
    }
    return Change{*before, button()->intValue()};
}

std::int32_t RadioButtonEMFSpecialPages::DoControlUpdateConstrain() {
    return change() ? BaseControlEMFSpecialPages::DoControlUpdateConstrain() : 0;
}

std::int32_t RadioButtonEMFSpecialPages::DoControlHideConstrain() {
    const auto changed = change();
    if (ctrlConstrainControlArray != nullptr && changed) {
        HideControlConstrains(row_at(ctrlConstrainControlArray->hide, changed->now));
        ShowControlConstrains(row_at(ctrlConstrainControlArray->hide, changed->before));
    }
    return 0;
}

std::int32_t RadioButtonEMFSpecialPages::DoControlConstrain() {
    const auto changed = change();
    if (ctrlConstrainControlArray != nullptr && changed) {
        DisableControlConstrains(row_at(ctrlConstrainControlArray->disable, changed->now));
        EnableControlConstrains(row_at(ctrlConstrainControlArray->disable, changed->before));
    }
    return 0;
}

std::int32_t RadioButtonEMFSpecialPages::Update() {
    const std::int32_t current = RadioGrpPtr == nullptr ? -1 : RadioGrpPtr->GetcurRadio();
    if (button() == nullptr || current == GetRadioIndex()) {
        return 0;
    }
    if (system_version() < kVersionClearsAlways && button()->intValue() == 0) {
        return 0;
    }
    button()->setIntValue(0);
    SimulationUIEventHandler();
    return 0;
}

void RadioButtonEMFSpecialPages::SetGrpcurRadio() {
    if (RadioGrpPtr != nullptr) {
        RadioGrpPtr->SetcurRadio(GetRadioIndex());
    }
}

std::int32_t RadioButtonEMFSpecialPages::GetRadioIndex() const {
    if (RadioGrpPtr == nullptr || ControlPtr == nullptr) {
        return -1;
    }
    std::int32_t index = 0;
    for (const RadioButtonEMFSpecialPages* other : RadioGrpPtr->buttons()) {
        if (other->GetControlPtr() != nullptr && other->GetControlPtr()->tag() == ControlPtr->tag()) {
            return index;
        }
        ++index;
    }
    return -1;
}

RadioButtonEMFSpecialPages* RadioButtonEMFSpecialPages::GetAnotherRadioCtrlFromGroup() const {
    RadioButtonEMFSpecialPages* looked = nullptr;
    if (RadioGrpPtr == nullptr || ControlPtr == nullptr) {
        return looked;
    }
    for (RadioButtonEMFSpecialPages* other : RadioGrpPtr->buttons()) {
        looked = other;
        if (other->GetControlPtr() != nullptr && other->GetControlPtr()->tag() != ControlPtr->tag()) {
            break;
        }
    }
    return looked;
}

platform::Button* RadioButtonEMFSpecialPages::button() const {
    return dynamic_cast<platform::Button*>(ControlPtr);
}

} // namespace specialpages
