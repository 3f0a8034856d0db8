#include "controls/LittleArrayEMFSpecialPages.h"

#include "controls/integer_transfer.h"
#include "platform/toolkit/Stepper.h"
#include "support/units.h"

namespace specialpages {

namespace {
constexpr std::uint32_t kIntegerBlockSize = 4;
} // namespace

void LittleArrayEMFSpecialPages::LittleArrayControl(platform::View* view, const LittleArrayIniData* IniData,
                                                    const ConstraintRecord* constrain,
                                                    const AccessInfo* accessInfo, std::string_view usernamein,
                                                    const char* titleStr) {
    CreateControl(view);
    littleArrayIniDataPtr = IniData;
    ctrlConstrainControlArray = constrain;
    ctrlDataAccessInfoPtr = accessInfo;
    userNameinPreference = usernamein;
    titleTextRef = titleStr;
    ctrlDataSize = kIntegerBlockSize;
    lastValue = IniData == nullptr ? 0 : IniData->defaultValue;
}

bool LittleArrayEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    if (littleArrayIniDataPtr != nullptr) {
        SetRange(littleArrayIniDataPtr->minimum, littleArrayIniDataPtr->maximum);
    }
    ctrlDataBlkPtr = 0;
    ctrlUIDataBlkPtr = 0;
    return true;
}

bool LittleArrayEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    const bool done = BaseControlEMFSpecialPages::ReInitializeCtrl(bundle, withPPD);
    if (littleArrayIniDataPtr != nullptr) {
        SetRange(littleArrayIniDataPtr->minimum, littleArrayIniDataPtr->maximum);
    }
    return done;
}

void LittleArrayEMFSpecialPages::SetRange(std::int32_t minimum, std::int32_t maximum) {
    if (platform::Stepper* view = stepper()) {
        view->setRange(minimum, maximum);
        if (littleArrayIniDataPtr != nullptr) {
            view->setIncrement(littleArrayIniDataPtr->increment);
        }
    }
}

bool LittleArrayEMFSpecialPages::SetControlValueToUI() {
    return ctrlDataBlkPtr &&
           LittleArrayEMFSpecialPages::SetExternalValueToUI(*ctrlDataBlkPtr, kIntegerBlockSize);
}

bool LittleArrayEMFSpecialPages::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* number = std::get_if<std::int32_t>(&value);
    platform::Stepper* view = stepper();
    if (number == nullptr || view == nullptr) {
        return false;
    }
    view->setIntValue(*number);
    return true;
}

ValueBlock* LittleArrayEMFSpecialPages::GetValueFromUI() {
    if (stepper() == nullptr || !ctrlUIDataBlkPtr) {
        return nullptr;
    }
    ctrlUIDataBlkPtr = stepper()->intValue();
    return &ctrlUIDataBlkPtr;
}

bool LittleArrayEMFSpecialPages::GetValueToPreset() {
    const auto value = integer_from_settings(ctrlParentPanelPtr, ctrlDataAccessInfoPtr);
    if (!value || !ctrlDataBlkPtr) {
        return false;
    }
    ctrlDataBlkPtr = *value;
    lastValue = *value;
    if (platform::Stepper* view = stepper()) {
        view->setIntValue(*value);
    }
    return true;
}

bool LittleArrayEMFSpecialPages::SetDefaultValueToUI() {
    if (littleArrayIniDataPtr != nullptr) {
        lastValue = littleArrayIniDataPtr->defaultValue;
    }
    return true;
}

std::optional<ControlValue> LittleArrayEMFSpecialPages::GetDefaultDataBlk() const {
    return littleArrayIniDataPtr == nullptr
               ? std::nullopt
               : std::optional<ControlValue>(littleArrayIniDataPtr->defaultValue);
}

std::uint32_t LittleArrayEMFSpecialPages::GetDefaultDataSize() const {
    return littleArrayIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

std::optional<ControlValue> LittleArrayEMFSpecialPages::GetIniDataBlk() const {
    return littleArrayIniDataPtr == nullptr ? std::nullopt
                                            : std::optional<ControlValue>(littleArrayIniDataPtr->initial);
}

std::uint32_t LittleArrayEMFSpecialPages::GetIniDataSize() const {
    return littleArrayIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

bool LittleArrayEMFSpecialPages::ConvertToPreferenceString(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

bool LittleArrayEMFSpecialPages::ConvertFromPreferenceString(std::string_view text) {
    return text_to_integer(text, ctrlDataBlkPtr);
}

bool LittleArrayEMFSpecialPages::ConvertToTickectData(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

bool LittleArrayEMFSpecialPages::SetValueToTicket(platform::PrintSettings* settings, bool withParam) {
    const auto value = integer_in(ctrlDataBlkPtr);
    return value && isInRange(*value) && BaseControlEMFSpecialPages::SetValueToTicket(settings, withParam);
}

std::int32_t LittleArrayEMFSpecialPages::GetSummaryText(SummaryText* text,
                                                        std::vector<std::string>* orderArray) {
    const auto value = integer_in(ctrlDataBlkPtr);
    if (value && ToGetSummaryText() && text != nullptr && orderArray != nullptr) {
        (*text)[titleTextRef] = ConvertIntToFloatStr(*value);
        orderArray->emplace_back(titleTextRef);
    }
    return 0;
}

platform::Stepper* LittleArrayEMFSpecialPages::stepper() const {
    return dynamic_cast<platform::Stepper*>(ControlPtr);
}

bool LittleArrayEMFSpecialPages::ToGetSummaryText() const {
    return titleTextRef != nullptr && ctrlHideCount == 0 && ctrlConstrainCount == 0;
}

bool LittleArrayEMFSpecialPages::isInRange(std::int32_t value) const {
    return littleArrayIniDataPtr == nullptr ||
           (value >= littleArrayIniDataPtr->minimum && value <= littleArrayIniDataPtr->maximum);
}

} // namespace specialpages
