#include "dialogs/SPInsertPageTextEditEMF.h"

#include "controls/ControlPanel.h"
#include "dialogs/InsertsWindow.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/TextField.h"
#include "records/page_text_check.h"
#include "support/identifiers.h"
#include "support/units.h"

namespace specialpages {

void SPInsertPageTextEditEMF::CreateControl(platform::View* view, const TextEditIniData* IniData,
                                            const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                                            std::string_view usernamein, const TextEditFilterData* FilterData,
                                            const char* titleInfo, std::int32_t maxPageList,
                                            const EditValueRangeData* ValueRange) {
    CreateControl(view, IniData, constrain, accessInfo, usernamein, FilterData);
    titletextRef = titleInfo;
    maxPageDefineNum = maxPageList;
    m_tEditValueRangeData = ValueRange == nullptr ? EditValueRangeData{} : *ValueRange;
    InitialPageArray();
}

InsertsWindow* SPInsertPageTextEditEMF::insertsWindow() const {
    return dynamic_cast<InsertsWindow*>(ctrlParentPanelPtr);
}

bool SPInsertPageTextEditEMF::beforePageOne() const {
    InsertsWindow* window = insertsWindow();
    const auto option = window == nullptr ? std::nullopt : window->insertOption();
    return option && option->position > 0;
}

InsertPageLimit SPInsertPageTextEditEMF::limit() const {
    InsertPageLimit limit{.viewEnabled = BEnable(), .maxPageDefineNum = maxPageDefineNum};
    if (InsertsWindow* window = insertsWindow()) {
        const RecordList* held = window->getSortedInsertDataRecordPtr();
        limit.status = window->getStatus();
        limit.held = held == nullptr ? 0 : static_cast<std::int64_t>(held->size());
    }
    return limit;
}

bool SPInsertPageTextEditEMF::SetDefaultValueToUI() {
    InsertsWindow* window = insertsWindow();
    const auto option = window == nullptr ? std::nullopt : window->insertOption();
    return !option || !option->enabled || TextEditCtrlEMFSpecialPages::SetDefaultValueToUI();
}

bool SPInsertPageTextEditEMF::PreInvalidateData() {
    if (textEditIniDataPtr == nullptr || textField() == nullptr) {
        return true;
    }
    const std::string text = textField()->stringValue();
    return PreInvalidateInsertText({.text = text,
                                    .length = GetStringLength(text),
                                    .viewEnabled = BEnable(),
                                    .filter = textEditFilterDataPtr},
                                   beforePageOne());
}

bool SPInsertPageTextEditEMF::InvalidateData() {
    if (textField() == nullptr) {
        return true;
    }
    const std::string text = textField()->stringValue();
    const InsertsWindow* window = insertsWindow();
    const std::int32_t warning =
        InvalidateInsertText({.text = text,
                              .length = GetStringLength(text),
                              .viewEnabled = BEnable(),
                              .filter = textEditFilterDataPtr},
                             beforePageOne(), window != nullptr && window->hasFrontCover(), limit(), pages_);
    if (warning != 0) {
        ShowErrMsg(warning);
    }
    return warning == 0;
}

void SPInsertPageTextEditEMF::ShowErrMsg(std::int32_t warning) {
    if (filterMessage()) {
        showAlert(localized(*ctrlParentPanelPtr->GetPDEBundleRef(),
                            page_list_message_key(kInsertPageList, warning), kNoTranslation));
    }
}

std::int32_t SPInsertPageTextEditEMF::ValidatePageList(std::optional<std::string_view> text) {
    const InsertsWindow* window = insertsWindow();
    return specialpages::ValidatePageList(text, window != nullptr && window->hasFrontCover(), limit(),
                                          pages_);
}

bool SPInsertPageTextEditEMF::IsRecordExceedMaxWithAddition(std::int64_t addition) const {
    return specialpages::IsRecordExceedMaxWithAddition(addition, limit());
}

bool SPInsertPageTextEditEMF::BEnable() const {
    return ControlPtr != nullptr && ControlPtr->isEnabled();
}

void SPInsertPageTextEditEMF::SetToDisable() {
    if (BEnable()) {
        ControlPtr->setEnabled(false);
    }
}

void SPInsertPageTextEditEMF::SetToEnable() {
    if (ControlPtr != nullptr && !BEnable()) {
        ControlPtr->setEnabled(true);
    }
}

} // namespace specialpages
