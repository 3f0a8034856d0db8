// The buttons that all dialogs share.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"

namespace specialpages {

/// Ends the dialog. No committed value is touched: what was typed and chosen is lost.
class SPCancelButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

/// A dialog whose defaults may allow what the choices before them forbade.
class ConflictChecking {
  public:
    ConflictChecking() = default;
    ConflictChecking(const ConflictChecking&) = delete;
    ConflictChecking& operator=(const ConflictChecking&) = delete;
    virtual ~ConflictChecking() = default;
    virtual void recheckConflicts() = 0;
};

/// Shows the default of every control, and has a dialog that checks conflicts check them again; nothing is
/// committed.
class SPRestoreButtonEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

} // namespace specialpages
