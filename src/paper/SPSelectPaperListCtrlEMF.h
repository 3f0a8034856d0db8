// The paper menu of inserts, with the paper as one value for dialogs and the selection as the sidedness list
// wants it.
#pragma once

#include "paper/SPSubMenuListCtrlEMF.h"

namespace specialpages {

class SPSelectPaperListCtrlEMF : public SPSubMenuListCtrlEMF {
  public:
    /// False, and nothing else, for a null record.
    bool getControlValue(PaperControlValue* value) const;
    bool setControlValue(const PaperControlValue* value);

    /// Size, color, type: the current choice keyword of each, or, for "No Change", the indexes that the
    /// list's selected records hold, as text and in their order. So keywords and indexes are of different
    /// kinds.
    PaperSelectionArray getCurrentSelectionArray() const;
};

} // namespace specialpages
