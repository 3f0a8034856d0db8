// The buttons that work on the list of special pages. Each press reads like what it does; Update keeps the
// enabled state in line with the list and touches the view only when the state changes.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "records/SpecialPageRecord.h"
#include "records/row_set.h"

namespace specialpages {

class SPSummaryScrollViewCtrl;
class SpecialPagesHub;

/// How many inserts, and how many exceptions, a job may hold.
inline constexpr std::size_t kMaxRecordsOfAKind = 250;

class SPListButtonEMF : public BaseButtonEMFSpecialPages {
  protected:
    SpecialPagesHub* hub() const;
    SPSummaryScrollViewCtrl* list() const;
    /// Enables or disables the view when it is not so already; answers 0.
    std::int32_t showEnabled(bool enabled);
    /// The list's selected rows; empty without a list or a table.
    RowSet selection() const;
    /// Tells the list what comes (adding or editing) and opens the dialog for that type of record.
    void openDialog(std::int32_t type, std::int64_t status) const;
};

class SPAddCoversButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
};

class SPAddInsertButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPAddExceptionsButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPUpButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPDownButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPEditButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPDeleteButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

class SPDeleteAllButCtrlEMF : public SPListButtonEMF {
  public:
    bool UIEventHandler() override;
    std::int32_t Update() override;
};

/// One step of undo for every change of the list. Opening the pane leaves nothing to undo; a further change
/// overwrites the backup; a press cannot be undone.
class SPUndoButCtrlEMF : public SPListButtonEMF {
  public:
    using BaseButtonEMFSpecialPages::CreateControl;
    void CreateControl(platform::View* view, const char* withTitle) override;
    bool UIEventHandler() override;
    bool SimulationUIEventHandler() override;
    std::int32_t DoSelfUpdate() override;
    /// Takes the backup, before a change.
    void undoEnable();

  private:
    bool isDisable = true;
    RecordList m_backupRecords;
    RowSet m_currentSelectedIndexSet;
};

} // namespace specialpages
