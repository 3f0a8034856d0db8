// The paper menu of one cover, front or back by the tag of its view. A cover has a paper always: "No Change"
// is hidden once a cover is loaded. A cover that is printed has the job's size and cannot come from the
// interposer; when the PPD forbids its type, it falls back to the first type that is allowed.
#pragma once

#include "paper/SPSelectPaperListCtrlEMF.h"
#include "records/SpecialPageRecord.h"

namespace specialpages {

class CoversWindow;
class SPCoversWinListCtrlEMF;

class SPCoversSelectPaperListCtrlEMF : public SPSelectPaperListCtrlEMF {
  public:
    /// Follows the printing list of its side and the cover option.
    std::int32_t Update() override;
    bool UIEventHandler() override;
    /// The defaults of the custom size, then the cover's record when there is one.
    bool SetControlValueToUI() override;
    bool SetDefaultValueToUI() override;
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override;

    void doCoversSelectPaperListPPDConstraint();
    /// Each of the two printing lists follows the interposer of its paper menu.
    void doPrintingOptionsConstraint();

  private:
    CoversWindow* coversWindow() const;
    SPCoversWinListCtrlEMF* ownPrintingList() const;
    void takeDefaultCustomSize();
    void takeRecord(const SpecialPageRecord& record);
    void followPrintingPosition(std::int64_t position);
    void takeFrontPaper(CoversWindow& window);
    void fallBackToAllowedType();

    bool fallingBack = false;
};

} // namespace specialpages
