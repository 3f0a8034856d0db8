// The paper menu of exceptions: an exception page never comes from the interposer.
#pragma once

#include "paper/SPSelectPaperListCtrlEMF.h"

namespace specialpages {

class SPAddExceptSubMenuListCtrlEMF : public SPSelectPaperListCtrlEMF {
  protected:
    bool hidesInterposer(ppd_file_s* /*withPPD*/) const override { return true; }
};

} // namespace specialpages
