// A push button whose title is a key of the localised table.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

namespace specialpages {

class BaseButtonEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// `withTitle` is a key (not copied: a constant); null leaves the title that the nib gave.
    virtual void CreateControl(platform::View* view, const char* withTitle);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// False without key, bundle or view.
    bool InitializeTitle(platform::Bundle* bundle);

  protected:
    const char* controlTitleStrRef = nullptr;
};

} // namespace specialpages
