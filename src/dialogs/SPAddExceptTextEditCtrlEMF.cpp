#include "dialogs/SPAddExceptTextEditCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/SpecialPagesHub.h"
#include "platform/toolkit/TextField.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/page_text_check.h"
#include "support/identifiers.h"
#include "support/input_filter.h"

namespace specialpages {

namespace {
constexpr std::int32_t kWrongText = 1;
constexpr std::size_t kSeveral = 2;
} // namespace

void SPAddExceptTextEditCtrlEMF::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                               const ConstraintRecord* constrain,
                                               const AccessInfo* accessInfo, std::string_view usernamein,
                                               const TextEditFilterData* FilterData,
                                               std::int32_t maxPageList) {
    CreateControl(view, IniData, constrain, accessInfo, usernamein, FilterData);
    maxPageDefineNum = maxPageList;
    pages = {};
}

bool SPAddExceptTextEditCtrlEMF::SetControlValueToUI() {
    setViewEnabled(!severalAreEdited());
    return true;
}

bool SPAddExceptTextEditCtrlEMF::SetDefaultValueToUI() {
    const SPSummaryScrollViewCtrl* list = summary();
    if (list != nullptr && list->getSummaryScrollViewStatus() == kSummaryAdding) {
        setViewEnabled(true);
    }
    return !viewIsEnabled() || TextEditCtrlEMFSpecialPages::SetDefaultValueToUI();
}

bool SPAddExceptTextEditCtrlEMF::InvalidateData() {
    if (!ToValidate()) {
        return true;
    }
    std::int32_t warning = kWrongText;
    if (PreInvalidateData() && viewTakesPart()) {
        warning = page_list_warning(ValidatePageList(textField()->stringValue()));
    }
    if (warning != 0) {
        ShowErrMsg(warning);
    }
    return warning == 0;
}

bool SPAddExceptTextEditCtrlEMF::PreInvalidateData() {
    if (textEditIniDataPtr == nullptr) {
        return true;
    }
    GetValueFromUI();
    if (!viewTakesPart()) {
        return false;
    }
    const std::string text = textField()->stringValue();
    const auto* committed = ctrlDataBlkPtr ? std::get_if<std::string>(&*ctrlDataBlkPtr) : nullptr;
    return PreInvalidateExceptionText({.text = text,
                                       .length = static_cast<std::int32_t>(ctrlDataSize),
                                       .viewEnabled = viewIsEnabled(),
                                       .filter = textEditFilterDataPtr},
                                      committed == nullptr ? std::string_view{} : *committed);
}

std::int32_t SPAddExceptTextEditCtrlEMF::ValidatePageList(std::optional<std::string_view> text) {
    return specialpages::ValidatePageList(text, viewIsEnabled(), pages, maxPageDefineNum);
}

void SPAddExceptTextEditCtrlEMF::ShowErrMsg(std::int32_t warning) {
    platform::Bundle* bundle =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
    if (bundle != nullptr && textEditFilterDataPtr != nullptr &&
        textEditFilterDataPtr->messageKey != nullptr) {
        showAlert(localized(*bundle, page_list_message_key(kExceptionPageList, warning), kNoTranslation));
    }
}

bool SPAddExceptTextEditCtrlEMF::viewIsEnabled() const {
    return ControlPtr != nullptr && ControlPtr->isEnabled();
}

bool SPAddExceptTextEditCtrlEMF::severalAreEdited() const {
    const SPSummaryScrollViewCtrl* list = summary();
    return list != nullptr && list->getSummaryScrollViewStatus() == kSummaryEditing &&
           list->selectedItemCount() >= kSeveral;
}

SPSummaryScrollViewCtrl* SPAddExceptTextEditCtrlEMF::summary() const {
    SpecialPagesHub* hub = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->hub();
    return hub == nullptr ? nullptr : hub->getSPSummaryScrollViewCtrlPtr();
}

} // namespace specialpages
