#include "records/list_buttons.h"

#include "controls/ControlPanel.h"
#include "controls/SpecialPagesHub.h"
#include "platform/toolkit/View.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/list_moves.h"
#include "records/record_order.h"

namespace specialpages {

namespace {

constexpr std::int32_t kDeleteSelected = 0;
constexpr std::int32_t kDeleteAll = 1;
constexpr std::int32_t kAllRecords = 3;

bool has_room(const SPSummaryScrollViewCtrl* list, RecordType type) {
    return list != nullptr &&
           records_of_type(list->records(), static_cast<std::int32_t>(type)).size() < kMaxRecordsOfAKind;
}

} // namespace

SpecialPagesHub* SPListButtonEMF::hub() const {
    return ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->hub();
}

SPSummaryScrollViewCtrl* SPListButtonEMF::list() const {
    return hub() == nullptr ? nullptr : hub()->getSPSummaryScrollViewCtrlPtr();
}

std::int32_t SPListButtonEMF::showEnabled(bool enabled) {
    if (ControlPtr != nullptr) {
        ControlPtr->setEnabled(enabled);
    }
    return 0;
}

RowSet SPListButtonEMF::selection() const {
    return list() == nullptr ? RowSet{} : list()->getIndexSetOfCurrentSelectedRecord().value_or(RowSet{});
}

void SPListButtonEMF::openDialog(std::int32_t type, std::int64_t status) const {
    if (list() != nullptr) {
        list()->setSummaryScrollViewStatus(status);
        list()->openDialogForType(type);
    }
}

bool SPAddCoversButCtrlEMF::UIEventHandler() {
    openDialog(static_cast<std::int32_t>(RecordType::cover), kSummaryAdding);
    return true;
}

bool SPAddInsertButCtrlEMF::UIEventHandler() {
    openDialog(static_cast<std::int32_t>(RecordType::insert), kSummaryAdding);
    return true;
}

std::int32_t SPAddInsertButCtrlEMF::Update() {
    return showEnabled(has_room(list(), RecordType::insert));
}

bool SPAddExceptionsButCtrlEMF::UIEventHandler() {
    openDialog(static_cast<std::int32_t>(RecordType::exception), kSummaryAdding);
    return true;
}

std::int32_t SPAddExceptionsButCtrlEMF::Update() {
    return showEnabled(has_room(list(), RecordType::exception));
}

bool SPUpButCtrlEMF::UIEventHandler() {
    if (list() != nullptr) {
        hub()->toMakeChange();
        list()->upSelectedItems();
    }
    return true;
}

std::int32_t SPUpButCtrlEMF::Update() {
    return showEnabled(list() != nullptr && may_move_up(list()->records(), selection()));
}

bool SPDownButCtrlEMF::UIEventHandler() {
    if (list() != nullptr) {
        hub()->toMakeChange();
        list()->downSelectedItems();
    }
    return true;
}

std::int32_t SPDownButCtrlEMF::Update() {
    return showEnabled(list() != nullptr && may_move_down(list()->records(), selection()));
}

bool SPEditButCtrlEMF::UIEventHandler() {
    const RowSet rows = selection();
    const SpecialPageRecord* first = rows.empty() ? nullptr : list()->getRecordByIndex(*rows.begin());
    if (first != nullptr) {
        openDialog(first->type(), kSummaryEditing);
    }
    return true;
}

std::int32_t SPEditButCtrlEMF::Update() {
    return showEnabled(list() != nullptr && may_edit(list()->records(), selection()));
}

bool SPDeleteButCtrlEMF::UIEventHandler() {
    if (list() != nullptr && hub()->sureToMakeChange(kDeleteSelected)) {
        list()->deleteCurrentSelectedItem();
    }
    return true;
}

std::int32_t SPDeleteButCtrlEMF::Update() {
    return showEnabled(list() != nullptr && list()->selectedItemCount() >= 1);
}

bool SPDeleteAllButCtrlEMF::UIEventHandler() {
    if (list() != nullptr && hub()->sureToMakeChange(kDeleteAll)) {
        list()->deleteAllItem();
    }
    return true;
}

std::int32_t SPDeleteAllButCtrlEMF::Update() {
    return showEnabled(list() != nullptr && list()->allItemCount() != 0);
}

void SPUndoButCtrlEMF::CreateControl(platform::View* view, const char* withTitle) {
    isDisable = true;
    m_backupRecords.clear();
    m_currentSelectedIndexSet.clear();
    BaseButtonEMFSpecialPages::CreateControl(view, withTitle);
}

void SPUndoButCtrlEMF::undoEnable() {
    if (list() != nullptr) {
        m_backupRecords.clear();
        list()->getArrayByType(&m_backupRecords, kAllRecords);
        m_currentSelectedIndexSet = selection();
    }
    isDisable = false;
    DoSelfUpdate();
}

bool SPUndoButCtrlEMF::UIEventHandler() {
    isDisable = true;
    if (list() != nullptr) {
        list()->undoRequest(&m_backupRecords, &m_currentSelectedIndexSet);
    }
    DoSelfUpdate();
    return true;
}

bool SPUndoButCtrlEMF::SimulationUIEventHandler() {
    isDisable = true;
    return BaseButtonEMFSpecialPages::SimulationUIEventHandler();
}

std::int32_t SPUndoButCtrlEMF::DoSelfUpdate() {
    return showEnabled(!isDisable);
}

} // namespace specialpages
