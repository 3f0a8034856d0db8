// The sidedness list of exceptions. "No Change" is offered only while several exceptions that differ are
// edited.
#pragma once

#include "paper/SPDuplexListCtrlEMF.h"

namespace specialpages {

class SPTwoSidePrintListCtrlEMF : public SPDuplexListCtrlEMF {
  public:
    /// 1 offers "No Change", any other number hides it; shown by the next SetControlValueToUI.
    void setSelectStatus(std::int32_t status) { twoSideStatus = status; }
    /// Only shows or hides the first item; the selection stays. False without a view.
    bool SetControlValueToUI() override;

  private:
    std::int32_t twoSideStatus = 0;
};

} // namespace specialpages
