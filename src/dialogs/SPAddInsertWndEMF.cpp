#include "dialogs/SPAddInsertWndEMF.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/SpecialPagesHub.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/SPAddInsertQuantityLArrEMF.h"
#include "dialogs/SPAddInsertQuantityTextEditEMF.h"
#include "dialogs/SPInsertOptionListEMF.h"
#include "dialogs/SPInsertPageTextEditEMF.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_title.h"
#include "dialogs/inserts_tables.h"
#include "paper/SPJobSettingScrollViewCtrlEMF.h"
#include "paper/SPPageSettingScrollViewCtrlEMF.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/insert_records.h"
#include "support/input_filter.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace specialpages {

namespace {

/// Neither inches nor millimetres.
constexpr std::int32_t kNoLongMeasure = 2;
constexpr std::int32_t kCoverType = static_cast<std::int32_t>(RecordType::cover);
constexpr std::int32_t kInsertType = static_cast<std::int32_t>(RecordType::insert);
constexpr std::int32_t kAfterItem = 1;

constexpr std::int32_t kIntegerSize = 4;
constexpr std::int32_t kIntegerValue = 2;

std::int32_t paper_type(PaperPart part) {
    return static_cast<std::int32_t>(part);
}

/// A list read from a job may hold any number; one that is no item shows the first.
std::int32_t item_of_option(std::int32_t option) {
    return option == std::numeric_limits<std::int32_t>::max() ? option : option + kAfterItem;
}

/// In the view, and as the committed value.
void put_number(BaseControlEMFSpecialPages& control, std::int32_t number) {
    control.SetExternalValueToUI(number, kIntegerSize);
    control.setExternalValueToData(number, kIntegerSize, kIntegerValue);
}

void put_paper(SPSelectPaperListCtrlEMF& menu, const RecordPaper& paper) {
    menu.setSelectedMenuItemIndexByType(paper_type(PaperPart::size), paper.size);
    menu.setSelectedMenuItemIndexByType(paper_type(PaperPart::type), paper.type);
    menu.setSelectedMenuItemIndexByType(paper_type(PaperPart::color), paper.color);
    menu.setInterPoser(paper.interposer);
    menu.setCustomPageWidth(paper.custom.width.c_str());
    menu.setCustomPageLength(paper.custom.length.c_str());
    menu.setCustomPageSizeLongMeasure(paper.custom.longmeasure);
}

RecordPaper paper_in(const SPSelectPaperListCtrlEMF& menu) {
    return {.size = menu.getSelectedMenuItemIndexByType(paper_type(PaperPart::size)),
            .color = menu.getSelectedMenuItemIndexByType(paper_type(PaperPart::color)),
            .type = menu.getSelectedMenuItemIndexByType(paper_type(PaperPart::type)),
            .interposer = menu.getInterPoser(),
            .custom = {menu.getCustomPageWidth(), menu.getCustomPageLength(),
                       menu.getCustomPageSizeLongMeasure()}};
}

} // namespace

void SPAddInsertWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    TabStockValue = 3;
    removeAllInsertDataRecords();
    m_InsertDataSortedRecords.clear();
    DialogBuilder add(*this, window);
    addSheetControls(add);
    addPaperControls(add);
    add.title(m_SPInstPageRulePtr, SPInstWndPageRuleStaticTagID, "Add Page Rule Description");
    add.help(m_SPInstHelpBtnPtr, SPInstWndHelpBtnTagID, "SpecialPagesInsert.htm");
    add.button(m_SPInstDefaultBtnPtr, SPInstWndDefaultBtnTagID, kRestoreButtonTitle);
    add.button(m_SPInstCancelBtnPtr, SPInstWndCancelBtnTagID, kCancelButtonTitle);
    add.button(m_SPInstOKBtnPtr, SPInstWndOKBtnTagID, kOkButtonTitle);
}

void SPAddInsertWndEMF::addSheetControls(DialogBuilder& add) {
    using platform::View;
    add.title(m_SPInstOptionTitlePtr, SPInstWndInstQptionStaticTagID, "Add Insert Option Define Title");
    add.add(m_SPInstOptionListCtlPtr, SPInstWndInstOptionTagID, [](SPInsertOptionListEMF& list, View* view) {
        list.CreateControl(view, &insertOptionLboxIniData, &SPInstOptionListCnstrnInfoPtr, nullptr, {});
    });
    add.title(m_SPInstQuantityTitlePtr, SPInstWndQuantityStaticTagID, "Add Insert Quantity Define Title");
    add.add(m_SPInstQuantityEditPtr, SPInstWndQuantityEditTagID,
            [](SPAddInsertQuantityTextEditEMF& field, View* view) {
                field.CreateControl(view, &SPInstQuantityEditIniData, &SPInstQuantityEditCnstrnInfoPtr,
                                    &SPInstPageNumEditAccessInfo, {}, &SPInstQuantityEditFilterData,
                                    &SPInstQuantityEditRangeData);
            });
    add.add(m_SPInstQuantityLArr, SPInstWndQuantityLArrTagID,
            [](SPAddInsertQuantityLArrEMF& stepper, View* view) {
                stepper.CreateControl(view, &SPInstQuantityLArrIniData, &SPInstQuantityLArrCnstrnInfoPtr,
                                      nullptr, {}, nullptr, SPInstQuantityLArrVlidateArray);
            });
    add.title(m_SPInstPageNumTitlePtr, SPInstWndPageNumStaticTagID, "Add Insert Page Define Title");
    add.add(m_SPInstPageNumEditPtr, SPInstWndPageNumTagID, [](SPInsertPageTextEditEMF& field, View* view) {
        field.CreateControl(view, &SPInstPageNumEditIniData, nullptr, &SPInstPageNumEditAccessInfo, {},
                            &SPInstPageNumEditFilterData, nullptr, kMaxPageDefineNum,
                            &SPInstPageNumEditValueRangeData);
    });
}

void SPAddInsertWndEMF::addPaperControls(DialogBuilder& add) {
    add.title(m_SPInstPaperViewTitlePtr, SPInstWndPaperViewStaticTagID, "Add Insert Paper View Title");
    add.paperMenu(m_SPInsertSelePaperBtnPtr, SPInstWndSelePaperTagID,
                  {.iniData = &SPInstBevelBtnIniData,
                   .constraints = &SPInstBevelBtnCnstrnInfoPtr,
                   .windowType = kInsertsWndType});
    add.paperView(m_SPInstPaperViewPtr, SPInstWndPaperViewTagID, SPInstWndScrollViewIniData,
                  m_SPInsertSelePaperBtnPtr);
    add.title(m_SPInstJobSettingTitlePtr, SPInstWndIobSetRefStaticTagID, "Add Insert Jobsetting View Title");
    add.jobView(m_SPInstJobSettingViewPtr, SPInstWndJobSetRefTagID, SPInstWndScrollViewIniData);
}

std::optional<InsertsWindow::Option> SPAddInsertWndEMF::insertOption() const {
    if (m_SPInstOptionListCtlPtr == nullptr) {
        return std::nullopt;
    }
    return Option{m_SPInstOptionListCtlPtr->GetOptionSelection(), m_SPInstOptionListCtlPtr->BEnable()};
}

std::int32_t SPAddInsertWndEMF::ActivateWindow() {
    SPSummaryScrollViewCtrl* list = summary();
    if (windowRef == nullptr || list == nullptr || hub()->getAdvSeleWndPtr() == nullptr) {
        return 0;
    }
    ReInitializeUserPane();
    SetUIDataToIniData();
    resetUserPaneTitle(getStatus());
    if (m_SPInstPageNumEditPtr != nullptr) {
        m_SPInstPageNumEditPtr->InitialPageArray();
    }
    showSelectedRecords();
    RecordList inserts;
    list->getArrayByType(&inserts, kInsertType);
    removeAllInsertDataRecords();
    m_InsertDataSortedRecords = inserts;
    ChangeActivedStatus(true);
    TabStockValue = hub()->getTabStockValue();
    takeRecords(inserts);
    replayValues();
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

void SPAddInsertWndEMF::showSelectedRecords() {
    const auto selected = summary()->getArrayOfCurrentSelectedRecords();
    if (!selected) {
        return;
    }
    const std::int64_t status = getStatus();
    if (status == kSummaryEditing && !selected->empty()) {
        showEditedRecords(*selected);
    } else if (status == kSummaryAdding && selected->size() == 1 &&
               selected->front().is(RecordType::insert)) {
        const SpecialPageRecord& pattern = selected->front();
        setRelatedCtrlWithRecordsPage(pattern.text(RecordKey::page), shown_inserts(*selected).values);
    } else {
        RestoreDefaultValue();
    }
}

void SPAddInsertWndEMF::showEditedRecords(const RecordList& selected) {
    const ShownInserts shown = shown_inserts(selected);
    tellAdvancedWindow(shown.values);
    setRelatedCtrlWithRecordsPage(shown.pageText, shown.values);
}

void SPAddInsertWndEMF::tellAdvancedWindow(const InsertValues& values) {
    auto* advanced = dynamic_cast<AdvancedPaperWindow*>(hub()->getAdvSeleWndPtr());
    if (advanced != nullptr) {
        const auto status = [](std::int32_t value) {
            return value == kUndecided ? kUndecided : 0;
        };
        advanced->SetSizeStatus(status(values.paper.size));
        advanced->SetColorStatus(status(values.paper.color));
        advanced->SetTypeStatus(status(values.paper.type));
    }
}

void SPAddInsertWndEMF::setRelatedCtrlWithRecordsPage(const std::optional<std::string>& page,
                                                      const InsertValues& values) {
    if (page && m_SPInstPageNumEditPtr != nullptr) {
        m_SPInstPageNumEditPtr->SetExternalValueToUI(*page, 0);
    }
    if (m_SPInsertSelePaperBtnPtr != nullptr) {
        put_paper(*m_SPInsertSelePaperBtnPtr, values.paper);
    }
    if (m_SPInstQuantityLArr != nullptr && values.quantity == kUndecided) {
        m_SPInstQuantityLArr->SetControlValueToDefault();
    } else if (m_SPInstQuantityLArr != nullptr) {
        put_number(*m_SPInstQuantityLArr, values.quantity);
    }
    if (m_SPInstOptionListCtlPtr != nullptr) {
        put_number(*m_SPInstOptionListCtlPtr,
                   values.option == kUndecided ? kAfterItem : item_of_option(values.option));
    }
}

void SPAddInsertWndEMF::RestoreDefaultValue() {
    if (m_SPInstPageNumEditPtr != nullptr) {
        m_SPInstPageNumEditPtr->SetExternalValueToUI(std::string{}, 0);
    }
    if (m_SPInsertSelePaperBtnPtr != nullptr) {
        m_SPInsertSelePaperBtnPtr->SetControlValueToDefault();
        m_SPInsertSelePaperBtnPtr->setDefaultCustomValue();
    }
    for (BaseControlEMFSpecialPages* control :
         {static_cast<BaseControlEMFSpecialPages*>(m_SPInstOptionListCtlPtr),
          static_cast<BaseControlEMFSpecialPages*>(m_SPInstQuantityEditPtr),
          static_cast<BaseControlEMFSpecialPages*>(m_SPInstQuantityLArr)}) {
        if (control != nullptr) {
            control->SetControlValueToDefault();
        }
    }
}

void SPAddInsertWndEMF::takeRecords(const RecordList& inserts) {
    for (const SpecialPageRecord& insert : inserts) {
        SpecialPageRecord copy = insert.with(RecordKey::type, std::to_string(kInsertType));
        // A record that was read back has no mark.
        addOneInsertDataRecord(
            copy.find(RecordKey::selected) == nullptr ? copy.with(RecordKey::selected, "false") : copy);
    }
}

void SPAddInsertWndEMF::replayValues() {
    if (m_InsertDataRecords.empty()) {
        SetDefaultValueToUI();
    } else {
        SetCurrentValueToUI();
    }
    recheckConflicts();
}

void SPAddInsertWndEMF::recheckConflicts() {
    if (m_SPInsertSelePaperBtnPtr != nullptr) {
        m_SPInsertSelePaperBtnPtr->updateSelectionArray();
        m_SPInsertSelePaperBtnPtr->UpdateSelfConflictsFromPPD(GetCurrentPPD());
    }
    if (m_SPInstOptionListCtlPtr != nullptr) {
        m_SPInstOptionListCtlPtr->UpdateBeforePageOneStatus();
    }
}

void SPAddInsertWndEMF::resetUserPaneTitle(std::int64_t status) {
    set_title_for_status(windowRef, pdeBundleRef, status, "Add Inserts Windows", "Edit Inserts Windows");
}

bool SPAddInsertWndEMF::controlsAreValid() {
    SycValueFromUI();
    return std::all_of(
        fCtrlGroupArray.begin(), fCtrlGroupArray.end(),
        [](BaseControlEMFSpecialPages* control) { return control == nullptr || control->InvalidateData(); });
}

InsertValues SPAddInsertWndEMF::valuesFromViews() const {
    InsertValues values;
    if (m_SPInstOptionListCtlPtr != nullptr) {
        values.option = static_cast<std::int32_t>(m_SPInstOptionListCtlPtr->GetOptionSelection());
    }
    if (m_SPInstQuantityLArr != nullptr) {
        values.quantity = m_SPInstQuantityLArr->GetQuantityValue();
    }
    if (m_SPInsertSelePaperBtnPtr != nullptr) {
        values.paper = paper_in(*m_SPInsertSelePaperBtnPtr);
    }
    return values;
}

InsertRequest SPAddInsertWndEMF::requestFromViews() const {
    InsertRequest request;
    request.status = getStatus();
    request.selected = summary()->getIndexSetOfCurrentSelectedRecordByType(kInsertType).value_or(RowSet{});
    request.frontCover = hasFrontCover();
    request.values = valuesFromViews();
    request.optionEnabled = m_SPInstOptionListCtlPtr != nullptr && m_SPInstOptionListCtlPtr->BEnable();
    if (m_SPInstPageNumEditPtr != nullptr) {
        request.pages = m_SPInstPageNumEditPtr->GetSortedPageArray();
    }
    if (const SPSelectPaperListCtrlEMF* menu = m_SPInsertSelePaperBtnPtr) {
        request.isCustomSize = [menu](std::int32_t size) {
            return menu->doCustomSizeSetCheckByIndex(size);
        };
    }
    return request;
}

bool SPAddInsertWndEMF::rebuildRecords() {
    auto inserts = inserts_after_ok(m_InsertDataRecords, requestFromViews());
    if (!inserts) {
        return false;
    }
    m_InsertDataRecords = std::move(*inserts);
    m_InsertDataSortedRecords = m_InsertDataRecords;
    return true;
}

void SPAddInsertWndEMF::commitRecords() {
    hub()->setTabStockValue(TabStockValue);
    summary()->updateRequest(kInsertType);
}

std::optional<std::string> SPAddInsertWndEMF::getInsertsCustomPageWidth() const {
    return m_SPInsertSelePaperBtnPtr == nullptr
               ? std::nullopt
               : std::optional(m_SPInsertSelePaperBtnPtr->getCustomPageWidth());
}

std::optional<std::string> SPAddInsertWndEMF::getInsertsCustomPageLength() const {
    return m_SPInsertSelePaperBtnPtr == nullptr
               ? std::nullopt
               : std::optional(m_SPInsertSelePaperBtnPtr->getCustomPageLength());
}

std::int32_t SPAddInsertWndEMF::getInsertsCustomPageSizeLongMeasure() const {
    return m_SPInsertSelePaperBtnPtr == nullptr ? kNoLongMeasure
                                                : m_SPInsertSelePaperBtnPtr->getCustomPageSizeLongMeasure();
}

void SPAddInsertWndEMF::replaceOneInsertDataRecord(const SpecialPageRecord& record, std::size_t atIndex) {
    if (atIndex < m_InsertDataRecords.size()) {
        m_InsertDataRecords[atIndex] = record;
    }
}

std::int64_t SPAddInsertWndEMF::getStatus() const {
    return summary() == nullptr ? kSummaryIdle : summary()->getSummaryScrollViewStatus();
}

bool SPAddInsertWndEMF::severalAreEdited() const {
    return getStatus() == kSummaryEditing && summary()->selectedItemCount() > 1;
}

bool SPAddInsertWndEMF::hasFrontCover() const {
    RecordList covers;
    return summary() == nullptr || !summary()->getArrayByType(&covers, kCoverType) || has_front_cover(covers);
}

SPSummaryScrollViewCtrl* SPAddInsertWndEMF::summary() const {
    SpecialPagesHub* pane = pParentPane == nullptr ? nullptr : pParentPane->hub();
    return pane == nullptr ? nullptr : pane->getSPSummaryScrollViewCtrlPtr();
}

bool SPAddInsertWndEMF::doTabStockSetCheckByIndex(std::int32_t pagetype) {
    return m_SPInsertSelePaperBtnPtr != nullptr &&
           m_SPInsertSelePaperBtnPtr->doTabStockSetCheckByIndex(pagetype);
}

const PaperTitles* SPAddInsertWndEMF::paperTitles() {
    return m_SPInsertSelePaperBtnPtr;
}

void SPAddInsertWndEMF::updatePaperViews() {
    if (m_SPInstPaperViewPtr != nullptr) {
        m_SPInstPaperViewPtr->Update();
    }
}

bool SPAddInsertWndOKButCtrlEMF::ISRecordedCurrentPage(const std::string& page, std::size_t* atIndex) const {
    const auto* dialog = dynamic_cast<const SPAddInsertWndEMF*>(ctrlParentPanelPtr);
    return dialog != nullptr &&
           specialpages::ISRecordedCurrentPage(*dialog->getInsertDataRecordsPtr(), page, atIndex);
}

bool SPAddInsertWndOKButCtrlEMF::UIEventHandler() {
    auto* dialog = dynamic_cast<SPAddInsertWndEMF*>(ctrlParentPanelPtr);
    if (dialog == nullptr || dialog->hub() == nullptr || !dialog->controlsAreValid()) {
        return false;
    }
    dialog->SetValueFromUIToControl();
    if (!dialog->rebuildRecords()) {
        return false;
    }
    dialog->hub()->toMakeChange();
    dialog->commitRecords();
    dialog->DeactivateWindow();
    dialog->ChangeActivedStatus(false);
    return true;
}

} // namespace specialpages
