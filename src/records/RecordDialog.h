// What the record list needs of the dialog in which one kind of record is made and changed.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace specialpages {

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
    /// The words of the list's setup column for one record; null when the dialog cannot tell.
    virtual std::optional<std::string> setupText(const SpecialPageRecord& record) = 0;
    /// Opens the dialog and returns when it ended.
    virtual void openForRecords() = 0;
};

} // namespace specialpages
