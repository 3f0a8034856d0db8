// What the controls of the inserts dialog need of their window.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>

namespace specialpages {

class SPInsertOptionListEMF;
class SPInsertPageTextEditEMF;

/// Answers are borrowed; a control that the nib does not provide is null.
class InsertsWindow {
  public:
    InsertsWindow() = default;
    InsertsWindow(const InsertsWindow&) = delete;
    InsertsWindow& operator=(const InsertsWindow&) = delete;
    virtual ~InsertsWindow() = default;

    virtual SPInsertOptionListEMF* getSPInstOptionListCtlPtr() = 0;
    virtual SPInsertPageTextEditEMF* getSPInstPageNumEditCtlPtr() = 0;
    /// The inserts of the list as the dialog found them, or as OK left them.
    virtual const RecordList* getSortedInsertDataRecordPtr() = 0;
    /// Of the list of special pages: 1 adding, 2 editing; 0 without a list.
    virtual std::int64_t getStatus() const = 0;
    /// Whether two records or more are being edited at once: their pages and options then stay theirs.
    virtual bool severalAreEdited() const = 0;
    /// Whether the job has a front cover, beside which no insert before page one can be.
    virtual bool hasFrontCover() const = 0;
    /// Whether the dialog is in use.
    virtual bool isInUse() const = 0;
};

} // namespace specialpages
