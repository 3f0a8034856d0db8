// The list of special pages: owns the job's records, shows them in a table of three columns, saves them into
// the print settings and reads them back. Dialogs hand their records over by updateRequest; the buttons under
// the table move and delete them. Records are values: a change replaces a record at its index. Everything
// tolerates a missing table, panel or bundle.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"
#include "platform/toolkit/TableView.h"
#include "records/SpecialPageRecord.h"
#include "records/row_set.h"
#include "records/setup_text.h"
#include "records/summary_status.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace specialpages {

class RecordDialog;
class SpecialPagesHub;

/// The text shown for a sheet from the interposer, as the current PPD words it; empty when its PPD does not.
/// Process-wide.
std::optional<std::string>& UncollateSeparatorSTR();

/// One shown row, each entry a finished text under its column's identifier.
struct SummaryRow {
    std::string page;
    std::string type;
    std::string setup;
    /// Null for an unknown column.
    const std::string* find(std::string_view identifier) const;
};

class SPSummaryScrollViewCtrl : public BaseControlEMFSpecialPages,
                                public platform::TableViewDataSource,
                                public platform::TableViewDelegate {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// `tableColumnsTitleArray` are localisation keys, a title a column.
    void CreateControl(platform::View* view, std::span<const std::string_view> tableColumnsTitleArray,
                       const ConstraintRecord* constrainArray, const AccessInfo* accessInfo,
                       std::string_view usernamein);

    // Control.

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool InitializeColumnsTitle(platform::Bundle* bundle);
    void setTargetandAction() override;
    bool SetControlValueToUI() override;
    bool SetControlValueToDefault() override;
    bool UIEventHandler() override;
    /// Writes the record count and one entry a record. False at the first write that fails; what was written
    /// stays.
    bool SetValueToTicket(platform::PrintSettings* settings, bool withParam) override;
    using BaseControlEMFSpecialPages::SetValueToTicket;
    /// Reads the records back. Without a count the list stays as it was; a record that is missing or has too
    /// few fields ends the reading with the records before it. False in both cases.
    bool GetValueToPreset() override;
    /// The key, "_" and the index; null for a null key or a negative index.
    static std::optional<std::string> makeSummaryScrollViewCtrlTicket(const char* key, std::int32_t index);

    // Table.

    std::size_t numberOfRowsInTableView(platform::TableView& table) override;
    std::optional<std::string> tableView_objectValueForTableColumn(platform::TableView& table,
                                                                   const platform::TableColumn& column,
                                                                   std::int64_t row) override;
    /// The row's record in the form of its ticket: what a window shows of the list beside the table, without
    /// having anything saved.
    std::optional<std::string> tableView_representedObjectForRow(platform::TableView& table,
                                                                 std::int64_t row) override;
    void tableViewSelectionDidChange(platform::TableView& table) override;
    std::optional<std::string> tableView_toolTipForCell(platform::TableView& table,
                                                        const platform::TableColumn& column,
                                                        std::int64_t row) override;
    /// Null for a row that is not there; the empty text when one of its three texts is missing.
    std::optional<std::string> getTipInformationByRow(std::int64_t row);

    // Store.

    std::size_t allItemCount() const { return m_dataRecords.size(); }
    std::size_t selectedItemCount() const;
    /// Null past the end; valid until the next change.
    const SpecialPageRecord* getRecordByIndex(std::size_t index) const;
    const RecordList& records() const { return m_dataRecords; }
    const std::vector<SummaryRow>& viewRecords() const { return m_viewRecords; }
    /// Null without a table.
    std::optional<RowSet> getIndexSetOfCurrentSelectedRecord() const;
    std::optional<RecordList> getArrayOfCurrentSelectedRecords() const;
    /// Appends each selected row, ascending, as decimal text.
    void getIndexArrayOfCurrentSelectedRecords(std::vector<std::string>& rows) const;
    /// Which records of one kind are selected, numbered among that kind alone; null for an empty list or
    /// without a table.
    std::optional<RowSet> getIndexSetOfCurrentSelectedRecordByType(std::int32_t type) const;
    /// Appends the records of one kind in list order, or all for 3; any other number appends nothing. False
    /// for a null array.
    bool getArrayByType(RecordList* array, std::int32_t insertPageType) const;
    void setSummaryScrollViewStatus(std::int64_t status) { summaryScrollViewStatus = status; }
    std::int64_t getSummaryScrollViewStatus() const { return summaryScrollViewStatus; }
    /// As the last SetValueToTicket found them.
    bool whetherHasExceptionRecord() const { return hasExceptionRecord; }
    bool whetherHasTabStockRecord() const { return hasTabStockRecord; }

    /// Replaces all records of that type (0, 1, 2) by those of its dialog and refreshes; any other type only
    /// refreshes.
    void updateRequest(std::int32_t type);
    bool addItemByType(std::int32_t type);
    void deleteAllItemByType(std::int32_t type);
    void addCoverWndRecord();
    void addInsertWndRecord();
    void addExceptionWndRecord();
    /// Rebuilds the shown rows, the selection and the buttons; false without a bundle.
    bool upDateView();

    // Editing.

    void deleteAllItem();
    void deleteCurrentSelectedItem();
    void upSelectedItems();
    void downSelectedItems();
    /// The list holds these records with their marks, and these rows are selected; the marks of selected rows
    /// are theirs whatever the records say. Nothing for a null argument.
    void undoRequest(const RecordList* records, const RowSet* currentSelectedItemIndexSet);
    void markSelectedRecord();
    void selectMarkedRecord();
    void setAllRecordMarkerAsUnselected();
    /// A selected cover pulls the other cover in, since both are edited in one dialog.
    void doSelectCoverItem();
    /// Removes the inserts before page one; the view is not refreshed.
    void doDelectBeforePageOne();
    /// The table's double click: opens the dialog of the selected records when they are of one kind. The
    /// status is 2 afterwards in any case.
    void RequestControlDoubleAction();
    /// Opens the dialog for records of that type, when there is one.
    void openDialogForType(std::int32_t type);

    /// The words of the setup column; null without the dialog, its paper menu or a bundle.
    std::optional<std::string> getCoverWndSetupInfo(const SpecialPageRecord& record);
    std::optional<std::string> getInsertWndSetupInfo(const SpecialPageRecord& record);
    std::optional<std::string> getExceptionWndSetupInfo(const SpecialPageRecord& record);

  private:
    platform::TableView* table() const;
    SpecialPagesHub* hub() const;
    RecordDialog* dialog(RecordType type) const;
    platform::Bundle* bundle() const;
    std::string typeText(platform::Bundle& bundle, const SpecialPageRecord& record) const;
    std::string pageText(platform::Bundle& bundle, const SpecialPageRecord& record) const;
    class Words;
    using ComposeSetup = std::string (*)(const SpecialPageRecord&, const PaperTitles&, const SetupWords&);
    std::optional<std::string> setupInfo(const SpecialPageRecord& record);
    std::optional<std::string> setupInfoBy(RecordType type, ComposeSetup compose,
                                           const SpecialPageRecord& record);
    void mergeFromDialog(RecordType type, RecordList (*merge)(RecordList, const RecordList&));

    std::int64_t summaryScrollViewStatus = kSummaryIdle;
    std::span<const std::string_view> tableColumnsTitleArrayPtr;
    RecordList m_dataRecords;
    std::vector<SummaryRow> m_viewRecords;
    bool hasExceptionRecord = false;
    bool hasTabStockRecord = false;
    bool selectingCover = false;
    bool selectionIsChanging = false;
};

} // namespace specialpages
