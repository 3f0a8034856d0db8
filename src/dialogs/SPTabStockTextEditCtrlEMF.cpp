#include "dialogs/SPTabStockTextEditCtrlEMF.h"

#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/integer_transfer.h"
#include "dialogs/SPTabStockTextEditFormatterEMF.h"
#include "dialogs/tab_margin_values.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/TextField.h"
#include "support/input_filter.h"

#include <algorithm>
#include <memory>

namespace specialpages {

namespace {

/// Longest text that is shown in place of a corrected one.
constexpr std::size_t kMaxDisplayBytes = 23;

} // namespace

bool TabStockTextEditCtrl::SetExternalValueToUI(const ControlValue& value, std::uint32_t size) {
    if (const auto* text = std::get_if<std::string>(&value); text != nullptr && !isTellingNeighbours()) {
        // Also a text that the formatter does not hand over is what the field holds now.
        uiData = block_text(*text);
    }
    return SPInchMMTextEditCtrlEMF::SetExternalValueToUI(value, size);
}

void TabStockTextEditCtrl::showValue(std::int32_t value) {
    const std::string text = shown(value);
    SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
}

bool TabStockTextEditCtrl::IsNumberValid(const std::string& text) {
    const auto accepted = [this](char byte) {
        return textEditFilterDataPtr == nullptr ||
               ISByteValid(static_cast<unsigned char>(byte), textEditFilterDataPtr->byteSet);
    };
    return std::all_of(text.begin(), text.end(), accepted) && accepts(text);
}

std::int32_t TabStockTextEditCtrl::OnRawKeyUp(const std::string& text) {
    uiData = block_text(text);
    if (LittleArrayEMFSpecialPages* stepper = GetLittleArrayForNumberEdit()) {
        stepper->SetExternalValueToUI(stepperValue(uiData), sizeof(std::int32_t));
    }
    DoControlUpdateConstrain();
    return 0;
}

bool TabStockTextEditCtrl::CorrectCtrlUI() {
    LittleArrayEMFSpecialPages* stepper = GetLittleArrayForNumberEdit();
    const ValueBlock* block = stepper == nullptr ? nullptr : stepper->GetValueFromUI();
    if (const auto value = block == nullptr ? std::nullopt : integer_in(*block)) {
        pDisplay = shown(*value).substr(0, kMaxDisplayBytes);
        SetExternalValueToUI(pDisplay, static_cast<std::uint32_t>(pDisplay.size()));
    }
    GetValueFromUI();
    return true;
}

void SPNumInSeqTextEditCtrlEMF::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr || textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        TabStockTextEditCtrl::InitializeCtrlFormat();
        return;
    }
    field->setFormatter(std::make_shared<SPNumInSeqTextEditFormatterEMF>(
        textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
}

bool SPNumInSeqTextEditCtrlEMF::accepts(const std::string& text) const {
    const std::int32_t number = platform::int_value(text);
    return number >= inchMMEditValueRangeData.minimum && number <= inchMMEditValueRangeData.maximum;
}

std::int32_t SPNumInSeqTextEditCtrlEMF::stepperValue(const std::string& text) const {
    return platform::int_value(text);
}

std::string SPNumInSeqTextEditCtrlEMF::shown(std::int32_t value) const {
    return platform::decimal_text(value);
}

void TabMarginTextEditCtrl::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr || textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        TabStockTextEditCtrl::InitializeCtrlFormat();
    } else if (longMeasure_ == kLongMeasureInches) {
        field->setFormatter(std::make_shared<SPTabInchTextEditFormatterEMF>(
            textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
    } else {
        field->setFormatter(std::make_shared<SPTabMMTextEditFormatterEMF>(
            textEditFilterDataPtr, &inchMMEditValueRangeData, GetEditMaxLength(), weakSelf()));
    }
}

std::int32_t TabMarginTextEditCtrl::Update() {
    SPInchMMTextEditCtrlEMF* twin = ctrlHideCount < 1 ? nullptr : GetTextEditForNumberEdit();
    if (twin != nullptr) {
        showValue(tab_margin_from_twin(twin->GetUIData(), longMeasure_, inchMMEditValueRangeData));
    }
    return 0;
}

bool TabMarginTextEditCtrl::accepts(const std::string& text) const {
    return is_tab_margin(text, longMeasure_, inchMMEditValueRangeData);
}

std::int32_t TabMarginTextEditCtrl::stepperValue(const std::string& text) const {
    return tab_margin_stepper_value(text, longMeasure_);
}

std::string TabMarginTextEditCtrl::shown(std::int32_t value) const {
    return tab_margin_text(value, longMeasure_);
}

} // namespace specialpages
