// What the controls of the inserts dialog need of their window.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <optional>

namespace specialpages {

class SPInsertPageTextEditEMF;

/// Answers are borrowed; a control that the nib does not provide is null.
class InsertsWindow {
  public:
    InsertsWindow() = default;
    InsertsWindow(const InsertsWindow&) = delete;
    InsertsWindow& operator=(const InsertsWindow&) = delete;
    virtual ~InsertsWindow() = default;

    /// The option list as the page text reads it: the item's position (-1 for none), and whether the list can
    /// be used; empty without a list.
    struct Option {
        std::int64_t position = -1;
        bool enabled = false;
    };
    virtual std::optional<Option> insertOption() const = 0;
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
