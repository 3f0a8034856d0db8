// What the controls of the covers dialog need of their window, to reach each other and the records that it
// works on. The window is the panel that they are registered with.
#pragma once

#include "records/SpecialPageRecord.h"

namespace specialpages {

class SPCoversWinListCtrlEMF;
class SPSelectPaperListCtrlEMF;

/// Position of the option list, 0-based.
enum class CoverOption { none = 0, frontOnly = 1, backOnly = 2, same = 3, different = 4 };

/// Answers are borrowed; a control that the nib does not provide is null.
class CoversWindow {
  public:
    CoversWindow() = default;
    CoversWindow(const CoversWindow&) = delete;
    CoversWindow& operator=(const CoversWindow&) = delete;
    virtual ~CoversWindow() = default;

    virtual SPCoversWinListCtrlEMF* getSPCoversOptionsListPtr() = 0;
    virtual SPCoversWinListCtrlEMF* getSPCoverWndFrontPrintingOptionListPtr() = 0;
    virtual SPCoversWinListCtrlEMF* getSPCoverWndBackPrintingOptionListPtr() = 0;
    virtual SPSelectPaperListCtrlEMF* getSPCoverWndFrontSelectPaperListPtr() = 0;
    virtual SPSelectPaperListCtrlEMF* getSPCoverWndBackSelectPaperListPtr() = 0;
    /// The window's working copy of the cover records; null when there is none.
    virtual const RecordList* getCoversDataRecordsPtr() = 0;
};

} // namespace specialpages
