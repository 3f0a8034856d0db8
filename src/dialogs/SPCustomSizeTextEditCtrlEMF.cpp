#include "dialogs/SPCustomSizeTextEditCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/integer_transfer.h"
#include "controls/text_format.h"
#include "dialogs/SPCustomSizeTextEditFormatterEMF.h"
#include "dialogs/custom_size_values.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "platform/toolkit/TextField.h"
#include "support/input_filter.h"

#include <algorithm>

namespace specialpages {

namespace {

/// Longest text that is shown in place of a corrected one.
constexpr std::size_t kMaxDisplayBytes = 23;

const SPSubMenuListCtrlEMF* paper_menu(ControlPanel* panel) {
    auto* window = dynamic_cast<CustomSizeWindow*>(panel);
    return window == nullptr ? nullptr : window->GetSubMenuList();
}

} // namespace

void CustomSizeTextEditCtrl::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                           const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                                           std::string_view usernamein, const TextEditFilterData* FilterData,
                                           const EditValueRangeData* ValueRange, std::int32_t SizeFlag) {
    CreateControl(view, IniData, constrain, accessInfo, usernamein, FilterData, nullptr, ValueRange);
    m_customSize_flag = SizeFlag;
    tableIniData_ = IniData;
    tableRange_ = inchMMEditValueRangeData;
}

bool CustomSizeTextEditCtrl::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!SPInchMMTextEditCtrlEMF::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    takeRange(withPPD);
    return true;
}

void CustomSizeTextEditCtrl::takeRange(ppd_file_s* ppd) {
    inchMMEditValueRangeData = tableRange_;
    textEditIniDataPtr = tableIniData_;
    const auto points = custom_size_points(ppd, m_customSize_flag);
    const auto limits = points ? custom_size_limits(*points, longMeasure_) : std::nullopt;
    if (!limits) {
        return;
    }
    inchMMEditValueRangeData = {limits->minimum, limits->maximum};
    if (longMeasure_ != kLongMeasureMillimetres || tableIniData_ == nullptr) {
        return;
    }
    const std::int32_t standard = custom_size_value(tableIniData_->defaultText, longMeasure_);
    if (standard < limits->minimum || standard > limits->maximum) {
        ownDefault_ = custom_size_text(limits->minimum, longMeasure_);
        ownIniData_ = *tableIniData_;
        ownIniData_.defaultText = ownDefault_.c_str();
        textEditIniDataPtr = &ownIniData_;
    }
}

void CustomSizeTextEditCtrl::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr || textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        SPInchMMTextEditCtrlEMF::InitializeCtrlFormat();
    } else if (longMeasure_ == kLongMeasureInches) {
        field->setFormatter(std::make_shared<SPCustomSizeInchesTextEditFormatterEMF>(
            textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
    } else {
        field->setFormatter(std::make_shared<SPCustomSizeMMTextEditFormatterEMF>(
            textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
    }
}

bool CustomSizeTextEditCtrl::SetControlValueToUI() {
    const SPSubMenuListCtrlEMF* menu = paper_menu(ctrlParentPanelPtr);
    if (menu == nullptr) {
        return SPInchMMTextEditCtrlEMF::SetControlValueToUI();
    }
    const std::string& stored =
        m_customSize_flag == kCustomSizeLength ? menu->getCustomPageLength() : menu->getCustomPageWidth();
    if (stored == kUndecidedSize) {
        showValue(inchMMEditValueRangeData.minimum);
    } else if (longMeasure_ == kLongMeasureInches) {
        showValue(fromTwin(stored));
    } else {
        SetExternalValueToUI(stored, static_cast<std::uint32_t>(stored.size()));
    }
    return true;
}

bool CustomSizeTextEditCtrl::SetExternalValueToUI(const ControlValue& value, std::uint32_t size) {
    if (const auto* text = std::get_if<std::string>(&value); text != nullptr && !isTellingNeighbours()) {
        // Also a text that the formatter does not hand over is what the field holds now.
        uiData = block_text(*text);
    }
    return SPInchMMTextEditCtrlEMF::SetExternalValueToUI(value, size);
}

void CustomSizeTextEditCtrl::showValue(std::int32_t value) {
    const std::string text = custom_size_text(value, longMeasure_);
    SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
}

std::int32_t CustomSizeTextEditCtrl::fromTwin(const std::string& twinText) {
    const SPInchMMTextEditCtrlEMF* twin = GetTextEditForNumberEdit();
    // Without a twin no value is an end of its range.
    const EditValueRangeData twinRange = twin == nullptr ? EditValueRangeData{} : *twin->getRangeDataPtr();
    return custom_size_from_twin(twinText, twinRange, longMeasure_, inchMMEditValueRangeData);
}

std::int32_t CustomSizeTextEditCtrl::Update() {
    SPInchMMTextEditCtrlEMF* twin = ctrlHideCount < 1 ? nullptr : GetTextEditForNumberEdit();
    if (twin != nullptr) {
        showValue(fromTwin(twin->GetUIData()));
    }
    return 0;
}

bool CustomSizeTextEditCtrl::IsNumberValid(const std::string& text) {
    const auto accepted = [this](char byte) {
        return textEditFilterDataPtr == nullptr ||
               ISByteValid(static_cast<unsigned char>(byte), textEditFilterDataPtr->byteSet);
    };
    return std::all_of(text.begin(), text.end(), accepted) &&
           is_custom_size(text, longMeasure_, inchMMEditValueRangeData);
}

std::int32_t CustomSizeTextEditCtrl::OnRawKeyUp(const std::string& text) {
    uiData = block_text(text);
    if (LittleArrayEMFSpecialPages* stepper = GetLittleArrayForNumberEdit()) {
        stepper->SetExternalValueToUI(custom_size_stepper_value(uiData, longMeasure_), sizeof(std::int32_t));
    }
    DoControlUpdateConstrain();
    return 0;
}

bool CustomSizeTextEditCtrl::CorrectCtrlUI() {
    LittleArrayEMFSpecialPages* stepper = GetLittleArrayForNumberEdit();
    const ValueBlock* block = stepper == nullptr ? nullptr : stepper->GetValueFromUI();
    if (const auto value = block == nullptr ? std::nullopt : integer_in(*block)) {
        pDisplay = custom_size_text(*value, longMeasure_).substr(0, kMaxDisplayBytes);
        SetExternalValueToUI(pDisplay, static_cast<std::uint32_t>(pDisplay.size()));
    }
    GetValueFromUI();
    return true;
}

void CustomSizeTextEditCtrl::ShowErrMsg() {
    if (textEditFilterDataPtr == nullptr || textEditFilterDataPtr->characterSet.empty()) {
        return;
    }
    if (const auto message = filterMessage()) {
        showAlert(
            filled_format(*message, {custom_size_text(inchMMEditValueRangeData.minimum, longMeasure_),
                                     custom_size_text(inchMMEditValueRangeData.maximum, longMeasure_)}));
    }
}

} // namespace specialpages
