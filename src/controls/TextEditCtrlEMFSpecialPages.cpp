#include "controls/TextEditCtrlEMFSpecialPages.h"

#include "controls/ControlPanel.h"
#include "controls/TextEditFormatterEMFSpecialPages.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "support/identifiers.h"
#include "support/input_filter.h"
#include "support/units.h"

#include <algorithm>
#include <utility>

namespace specialpages {

namespace {

/// The size in use before the first text: the whole block.
constexpr std::uint32_t kBlockSize = 256;

std::uint32_t columns_of(std::string_view text) {
    return static_cast<std::uint32_t>(GetStringLength(text));
}

/// The block's text, null when it does not exist or holds a number.
const std::string* text_in(const ValueBlock& block) {
    return block ? std::get_if<std::string>(&*block) : nullptr;
}

std::string text_or_empty(const ValueBlock& block) {
    const std::string* text = text_in(block);
    return text == nullptr ? std::string{} : *text;
}

} // namespace

std::string block_text(std::string_view text, std::size_t maxBytes) {
    const std::string_view terminated = text.substr(0, text.find('\0'));
    return std::string(platform::utf8_prefix(terminated, std::min(maxBytes, kMaxBlockBytes)));
}

void TextEditCtrlEMFSpecialPages::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                                const ConstraintRecord* constrain,
                                                const AccessInfo* accessInfo, std::string_view usernamein,
                                                const TextEditFilterData* FilterData) {
    CreateControl(view);
    textEditIniDataPtr = IniData;
    textEditFilterDataPtr = FilterData;
    ctrlConstrainControlArray = constrain;
    ctrlDataAccessInfoPtr = accessInfo;
    userNameinPreference = usernamein;
    uiData.clear();
}

bool TextEditCtrlEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    ctrlDataBlkPtr = std::string{};
    ctrlUIDataBlkPtr = std::string{};
    ctrlDataSize = kBlockSize;
    InitializeCtrlFormat();
    return true;
}

bool TextEditCtrlEMFSpecialPages::ReInitializeCtrl(platform::Bundle*, ppd_file_s*) {
    InitializeCtrlFormat();
    return true;
}

void TextEditCtrlEMFSpecialPages::InitializeCtrlFormat() {
    platform::TextField* field = textField();
    if (field == nullptr) {
        return;
    }
    if (textEditFilterDataPtr == nullptr || textEditIniDataPtr == nullptr) {
        field->setFormatter(nullptr);
        return;
    }
    field->setFormatter(
        std::make_shared<TextEditFormatterEMFSpecialPages>(textEditFilterDataPtr, GetEditMaxLength()));
}

bool TextEditCtrlEMFSpecialPages::SetControlValueToUI() {
    if (!ctrlDataBlkPtr) {
        ctrlDataSize = 0;
        return false;
    }
    const std::string text = text_or_empty(ctrlDataBlkPtr);
    ctrlDataSize = columns_of(text);
    if (!viewTakesPart()) {
        return false;
    }
    textField()->setStringValue(ctrlDataSize == 0 ? std::string{} : text);
    return true;
}

bool TextEditCtrlEMFSpecialPages::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr || !viewTakesPart()) {
        return false;
    }
    if (!tellingNeighbours_) {
        textField()->setStringValue(*text);
    }
    return true;
}

bool TextEditCtrlEMFSpecialPages::SetControlValueToDefault() {
    const auto standard = GetDefaultDataBlk();
    if (standard && ctrlDataBlkPtr) {
        ctrlDataBlkPtr = *standard;
        ctrlDataSize = GetDefaultDataSize();
    }
    return true;
}

ValueBlock* TextEditCtrlEMFSpecialPages::GetValueFromUI() {
    if (viewTakesPart() && ctrlDataBlkPtr) {
        setUIText(textField()->stringValue());
    }
    return ctrlUIDataBlkPtr ? &ctrlUIDataBlkPtr : nullptr;
}

void TextEditCtrlEMFSpecialPages::SetValueFromUIToControl() {
    if (ctrlDataBlkPtr && ctrlUIDataBlkPtr) {
        ctrlDataBlkPtr = ctrlDataSize == 0 ? std::string{} : uiText();
    }
}

bool TextEditCtrlEMFSpecialPages::setExternalValueToData(const ControlValue& value, std::uint32_t size,
                                                         std::int32_t valueType) {
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr
               ? BaseControlEMFSpecialPages::setExternalValueToData(value, size, valueType)
               : BaseControlEMFSpecialPages::setExternalValueToData(block_text(*text, size), size, valueType);
}

std::optional<ControlValue> TextEditCtrlEMFSpecialPages::GetDefaultDataBlk() const {
    if (textEditIniDataPtr == nullptr || textEditIniDataPtr->defaultText == nullptr) {
        return std::nullopt;
    }
    return block_text(textEditIniDataPtr->defaultText);
}

std::uint32_t TextEditCtrlEMFSpecialPages::GetDefaultDataSize() const {
    const auto standard = GetDefaultDataBlk();
    const auto* text = standard ? std::get_if<std::string>(&*standard) : nullptr;
    return text == nullptr ? 0 : static_cast<std::uint32_t>(text->size());
}

bool TextEditCtrlEMFSpecialPages::ConvertToPreferenceString(std::string& text) {
    const std::string* value = text_in(ctrlDataBlkPtr);
    if (value == nullptr) {
        return false;
    }
    ctrlDataSize = columns_of(*value);
    text = *value;
    return true;
}

bool TextEditCtrlEMFSpecialPages::ConvertFromPreferenceString(std::string_view text) {
    if (!ctrlDataBlkPtr) {
        return false;
    }
    std::string kept = block_text(text);
    ctrlDataSize = columns_of(kept);
    ctrlDataBlkPtr = std::move(kept);
    return true;
}

bool TextEditCtrlEMFSpecialPages::ConvertToTickectData(std::string& text) {
    const std::string* value = text_in(ctrlDataBlkPtr);
    if (value != nullptr) {
        text = *value;
    }
    return value != nullptr;
}

bool TextEditCtrlEMFSpecialPages::InvalidateData() {
    if (TextEditCtrlEMFSpecialPages::InvalidateDataAndReturnError()) {
        return true;
    }
    ShowErrMsg();
    return false;
}

bool TextEditCtrlEMFSpecialPages::InvalidateDataAndReturnError() {
    if (textEditIniDataPtr == nullptr || ctrlDataSize == 0) {
        return true;
    }
    return lengthIsInBounds() &&
           (textEditFilterDataPtr == nullptr || validateInput(uiText(), *textEditFilterDataPtr));
}

bool TextEditCtrlEMFSpecialPages::CorrectCtrlUI() {
    if (platform::TextField* field = textField()) {
        field->setStringValue({});
    }
    setUIText({});
    return true;
}

void TextEditCtrlEMFSpecialPages::ShowErrMsg() {
    if (const auto message = filterMessage()) {
        showAlert(*message);
    }
}

std::int32_t TextEditCtrlEMFSpecialPages::OnRawKeyUp(const std::string&) {
    return 0;
}

std::uint32_t TextEditCtrlEMFSpecialPages::GetEditMaxLength() const {
    return textEditIniDataPtr == nullptr ? 0 : textEditIniDataPtr->maximumLength;
}

void TextEditCtrlEMFSpecialPages::tellNeighbours(const std::string& rawText) {
    if (!tellingNeighbours_) {
        tellingNeighbours_ = true;
        OnRawKeyUp(rawText);
        tellingNeighbours_ = false;
    }
}

void TextEditCtrlEMFSpecialPages::setUIText(std::string_view text) {
    if (ctrlUIDataBlkPtr) {
        // A text that is no UTF-8 has no length, and nothing of it is kept.
        ctrlDataSize = columns_of(text);
        ctrlUIDataBlkPtr = block_text(ctrlDataSize == 0 ? std::string_view{} : text);
    }
}

platform::TextField* TextEditCtrlEMFSpecialPages::textField() const {
    return dynamic_cast<platform::TextField*>(ControlPtr);
}

bool TextEditCtrlEMFSpecialPages::viewTakesPart() const {
    return textField() != nullptr && ctrlDataAccessInfoPtr != nullptr;
}

bool TextEditCtrlEMFSpecialPages::lengthIsInBounds() const {
    return textEditIniDataPtr == nullptr || (ctrlDataSize >= textEditIniDataPtr->minimumLength &&
                                             ctrlDataSize <= textEditIniDataPtr->maximumLength);
}

bool TextEditCtrlEMFSpecialPages::ToValidate() {
    const ValueBlock* block = GetValueFromUI();
    return ctrlHideCount == 0 && ctrlConstrainCount == 0 && block != nullptr;
}

std::string TextEditCtrlEMFSpecialPages::uiText() const {
    return text_or_empty(ctrlUIDataBlkPtr);
}

void TextEditCtrlEMFSpecialPages::showAlert(const std::string& informativeText) {
    platform::Bundle* bundle =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
    if (bundle == nullptr) {
        return;
    }
    platform::Application::shared().runAlert(
        {{}, informativeText, localized(*bundle, "Alert OK Btn", kNoTranslation)});
    if (platform::Window* window = ControlPtr == nullptr ? nullptr : ControlPtr->window()) {
        window->makeFirstResponder(ControlPtr);
    }
}

std::optional<std::string> TextEditCtrlEMFSpecialPages::filterMessage() const {
    platform::Bundle* bundle =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
    if (bundle == nullptr || textEditFilterDataPtr == nullptr ||
        textEditFilterDataPtr->messageKey == nullptr) {
        return std::nullopt;
    }
    return localized(*bundle, textEditFilterDataPtr->messageKey, kNoTranslation);
}

} // namespace specialpages
