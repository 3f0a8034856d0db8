#include "controls/PopupControlEMFSpecialPages.h"

#include "controls/ControlPanel.h"
#include "controls/integer_transfer.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/choice_conflict.h"
#include "support/identifiers.h"

#include <algorithm>

namespace specialpages {

namespace {
constexpr std::uint32_t kIntegerBlockSize = 4;
} // namespace

void PopupControlEMFSpecialPages::CreateControl(platform::View* view, const PopupIniData* IniData,
                                                const ConstraintRecord* ConstrainArray,
                                                const AccessInfo* accessInfo, std::string_view usernamein) {
    CreateControl(view);
    listctrlIniDataPtr = IniData;
    ctrlConstrainControlArray = ConstrainArray;
    ctrlDataAccessInfoPtr = accessInfo;
    userNameinPreference = usernamein;
    if (platform::PopUpButton* list = popup()) {
        list->setAutoenablesItems(false);
    }
}

bool PopupControlEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD) || !InitializeMenu(bundle, withPPD)) {
        return false;
    }
    ctrlDataBlkPtr = 0;
    ctrlUIDataBlkPtr = 0;
    ctrlDataSize = kIntegerBlockSize;
    return true;
}

bool PopupControlEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return InitializeMenu(bundle, withPPD);
}

bool PopupControlEMFSpecialPages::InitializeMenu(platform::Bundle* bundle, ppd_file_s*) {
    if (listctrlIniDataPtr == nullptr) {
        return true;
    }
    platform::PopUpButton* list = popup();
    if (list == nullptr) {
        return false;
    }
    list->removeAllItems();
    for (const char* key : listctrlIniDataPtr->menuKeys) {
        const std::string title =
            bundle == nullptr ? kNoTranslation : localized(*bundle, key, kNoTranslation);
        list->addItemWithTitle(title == kNoTranslation ? key : title).setRepresentedObject(key);
    }
    return true;
}

bool PopupControlEMFSpecialPages::SetControlValueToUI() {
    const auto item = integer_in(ctrlDataBlkPtr);
    platform::PopUpButton* list = popup();
    if (!item || list == nullptr) {
        return false;
    }
    list->selectItemAtIndex(std::int64_t{*item} - 1);
    return true;
}

bool PopupControlEMFSpecialPages::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* item = std::get_if<std::int32_t>(&value);
    platform::PopUpButton* list = popup();
    if (item == nullptr || list == nullptr) {
        return false;
    }
    list->selectItemAtIndex(std::max<std::int64_t>(0, std::int64_t{*item} - 1));
    return true;
}

ValueBlock* PopupControlEMFSpecialPages::GetValueFromUI() {
    if (popup() == nullptr || !ctrlUIDataBlkPtr) {
        return nullptr;
    }
    ctrlUIDataBlkPtr = static_cast<std::int32_t>(popup()->indexOfSelectedItem() + 1);
    return &ctrlUIDataBlkPtr;
}

void PopupControlEMFSpecialPages::SetValueFromUIToControl() {
    if (ctrlDataBlkPtr && ctrlUIDataBlkPtr && ControlPtr != nullptr) {
        ctrlDataBlkPtr = ctrlUIDataBlkPtr;
    }
}

bool PopupControlEMFSpecialPages::GetValueToPreset() {
    const auto value = integer_from_settings(ctrlParentPanelPtr, ctrlDataAccessInfoPtr);
    if (!value || !ctrlDataBlkPtr) {
        return false;
    }
    ctrlDataBlkPtr = *value;
    return true;
}

std::optional<ControlValue> PopupControlEMFSpecialPages::GetDefaultDataBlk() const {
    return listctrlIniDataPtr == nullptr ? std::nullopt
                                         : std::optional<ControlValue>(listctrlIniDataPtr->defaultItem);
}

std::uint32_t PopupControlEMFSpecialPages::GetDefaultDataSize() const {
    return listctrlIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

std::optional<ControlValue> PopupControlEMFSpecialPages::GetIniDataBlk() const {
    return listctrlIniDataPtr == nullptr ? std::nullopt
                                         : std::optional<ControlValue>(listctrlIniDataPtr->initial);
}

std::uint32_t PopupControlEMFSpecialPages::GetIniDataSize() const {
    return listctrlIniDataPtr == nullptr ? 0 : kIntegerBlockSize;
}

bool PopupControlEMFSpecialPages::ConvertToPreferenceString(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

bool PopupControlEMFSpecialPages::ConvertFromPreferenceString(std::string_view text) {
    return text_to_integer(text, ctrlDataBlkPtr);
}

bool PopupControlEMFSpecialPages::ConvertToTickectData(std::string& text) {
    return integer_to_text(ctrlDataBlkPtr, text);
}

std::int64_t PopupControlEMFSpecialPages::GetCurrentControlArrayNumber() {
    return popup() == nullptr ? -1 : popup()->indexOfSelectedItem();
}

std::int32_t PopupControlEMFSpecialPages::DoControlUpdateConstrain() {
    const auto last = lastItem();
    if (ctrlConstrainControlArray == nullptr || !last || shownItem() == *last) {
        return 0;
    }
    return DoBaseControlUpdateConstrain();
}

std::int32_t PopupControlEMFSpecialPages::DoBaseControlUpdateConstrain() {
    return BaseControlEMFSpecialPages::DoControlUpdateConstrain();
}

std::int32_t PopupControlEMFSpecialPages::DoControlHideConstrain() {
    const auto last = lastItem();
    if (ctrlConstrainControlArray == nullptr || !last || shownItem() == *last) {
        return 0;
    }
    HideControlConstrains(row_at(ctrlConstrainControlArray->hide, shownItem() - 1));
    // An old item of 0 has no row before the first.
    ShowControlConstrains(row_at(ctrlConstrainControlArray->hide, std::int64_t{*last} - 1));
    return 0;
}

std::int32_t PopupControlEMFSpecialPages::DoControlConstrain() {
    const auto last = lastItem();
    if (ctrlConstrainControlArray == nullptr || ctrlConstrainControlArray->disable.empty() || !last ||
        shownItem() == *last) {
        return 0;
    }
    const std::int32_t shown = shownItem();
    EnableControlConstrains(row_at(ctrlConstrainControlArray->disable, std::int64_t{*last} - 1));
    ctrlUIDataBlkPtr = shown;
    DisableControlConstrains(row_at(ctrlConstrainControlArray->disable, std::int64_t{shown} - 1));
    return 0;
}

bool PopupControlEMFSpecialPages::isChoiceConflicted(std::string_view key, std::string_view option,
                                                     std::string_view choice, ppd_file_s* withPPD) {
    const auto index = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->Getxppd();
    return specialpages::isChoiceConflicted(withPPD, index.get(), key, option, choice);
}

platform::PopUpButton* PopupControlEMFSpecialPages::popup() const {
    return dynamic_cast<platform::PopUpButton*>(ControlPtr);
}

std::int32_t PopupControlEMFSpecialPages::shownItem() const {
    const std::int64_t item = popup() == nullptr ? 0 : popup()->indexOfSelectedItem() + 1;
    return item > 0 ? static_cast<std::int32_t>(item) : 1;
}

std::optional<std::int32_t> PopupControlEMFSpecialPages::lastItem() const {
    return integer_in(ctrlUIDataBlkPtr);
}

} // namespace specialpages
