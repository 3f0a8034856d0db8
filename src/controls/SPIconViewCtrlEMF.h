// A picture of the pane's bundle beside a button.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

namespace specialpages {

class SPIconViewCtrlEMF : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// Gives the view its tag. `iconName` is a file in the bundle.
    void CreateControl(platform::View* view, ControlTag viewTag, std::string iconName);
    /// The view shows the picture from here on.
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;

  private:
    std::string IconName;
};

} // namespace specialpages
