// The buttons that all dialogs share.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"

namespace specialpages {

/// Ends the dialog. No committed value is touched: what was typed and chosen is lost.
class SPCancelButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

/// Shows the default of every control; nothing is committed.
class SPRestoreButtonEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

} // namespace specialpages
