// What the record list needs of the dialog in which one kind of record is made and changed.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>

namespace specialpages {

class PaperTitles;

class RecordDialog {
  public:
    RecordDialog() = default;
    RecordDialog(const RecordDialog&) = delete;
    RecordDialog& operator=(const RecordDialog&) = delete;
    virtual ~RecordDialog() = default;

    /// The dialog's own working records, ready for the list: covers as they are, inserts sorted by page,
    /// exceptions arranged. Null: the dialog has none to give. Owned by the dialog.
    virtual const RecordList* recordsForList() = 0;
    /// Whether the item of the dialog's paper menu at that index of the PPD's media types is tab stock.
    virtual bool doTabStockSetCheckByIndex(std::int32_t pagetype) = 0;
    /// The dialog's paper menu, whose titles name the paper of its records; null without one.
    virtual const PaperTitles* paperTitles() = 0;
    /// Opens the dialog and returns when it ended.
    virtual void openForRecords() = 0;
};

} // namespace specialpages
