// The OK button of both tab stock windows.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"

namespace specialpages {

class SPTabStockOKButtonEMF : public BaseButtonEMFSpecialPages {
  public:
    /// Commits the controls of its window and ends it. False, and the window stays open with nothing
    /// committed, after the first control that refused and showed its message.
    bool UIEventHandler() override;
};

} // namespace specialpages
