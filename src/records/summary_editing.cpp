// The editing operations of the list of special pages: each reads the table, asks the pure move, writes back
// and refreshes.
#include "controls/SpecialPagesHub.h"
#include "records/RecordDialog.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/list_moves.h"
#include "records/record_order.h"

#include <algorithm>
#include <utility>

namespace specialpages {

void SPSummaryScrollViewCtrl::deleteAllItem() {
    m_dataRecords.clear();
    upDateView();
}

void SPSummaryScrollViewCtrl::deleteCurrentSelectedItem() {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (m_dataRecords.empty() || !rows || rows->empty()) {
        return;
    }
    m_dataRecords = delete_rows(std::move(m_dataRecords), *rows);
    upDateView();
}

void SPSummaryScrollViewCtrl::upSelectedItems() {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (!rows || rows->empty()) {
        return;
    }
    Moved moved = move_up(std::move(m_dataRecords), *rows);
    m_dataRecords = std::move(moved.records);
    table()->selectRowIndexes(moved.selection, platform::ExtendingSelection::no);
    upDateView();
}

void SPSummaryScrollViewCtrl::downSelectedItems() {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (!rows || rows->empty()) {
        return;
    }
    Moved moved = move_down(std::move(m_dataRecords), *rows);
    m_dataRecords = std::move(moved.records);
    table()->selectRowIndexes(moved.selection, platform::ExtendingSelection::no);
    upDateView();
}

void SPSummaryScrollViewCtrl::undoRequest(const RecordList* records,
                                          const RowSet* currentSelectedItemIndexSet) {
    if (records == nullptr || currentSelectedItemIndexSet == nullptr) {
        return;
    }
    m_dataRecords = *records;
    upDateView();
    if (platform::TableView* view = table()) {
        view->selectRowIndexes(*currentSelectedItemIndexSet, platform::ExtendingSelection::no);
    }
    if (selectedItemCount() == 0) {
        // Marks follow a selection. Without one they are what the last selection left, which the refresh
        // after an edit has cleared.
        m_dataRecords = *records;
    }
}

void SPSummaryScrollViewCtrl::markSelectedRecord() {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (m_dataRecords.empty() || !rows || rows->empty()) {
        return;
    }
    m_dataRecords = mark_rows(std::move(m_dataRecords), *rows);
}

void SPSummaryScrollViewCtrl::selectMarkedRecord() {
    platform::TableView* view = table();
    if (m_dataRecords.empty() || view == nullptr) {
        return;
    }
    // Deselecting tells the delegate, which may change marks: the marked rows are taken first.
    const RowSet marked = marked_rows(m_dataRecords);
    view->deselectAll();
    if (summaryScrollViewStatus == kSummaryEditing) {
        setAllRecordMarkerAsUnselected();
    } else if (summaryScrollViewStatus == kSummaryAdding) {
        view->selectRowIndexes(marked, platform::ExtendingSelection::yes);
    }
}

void SPSummaryScrollViewCtrl::setAllRecordMarkerAsUnselected() {
    m_dataRecords = unmark_all(std::move(m_dataRecords));
}

void SPSummaryScrollViewCtrl::doSelectCoverItem() {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (selectingCover || !rows || rows->empty()) {
        return;
    }
    if (const auto other = cover_to_pull_in(m_dataRecords, *rows)) {
        selectingCover = true;
        table()->selectRowIndexes({*other}, platform::ExtendingSelection::yes);
        selectingCover = false;
    }
}

void SPSummaryScrollViewCtrl::doDelectBeforePageOne() {
    m_dataRecords = without_before_page_one(std::move(m_dataRecords));
}

void SPSummaryScrollViewCtrl::RequestControlDoubleAction() {
    setSummaryScrollViewStatus(kSummaryEditing);
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (rows && may_edit(m_dataRecords, *rows)) {
        openDialogForType(m_dataRecords[*rows->begin()].type());
    }
}

void SPSummaryScrollViewCtrl::openDialogForType(std::int32_t type) {
    if (RecordDialog* target = hub() == nullptr ? nullptr : hub()->recordDialog(type)) {
        target->openForRecords();
    }
}

} // namespace specialpages
