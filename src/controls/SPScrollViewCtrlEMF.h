// A scrolling text that the user reads. It shows by its colour whether it is enabled and is never disabled as
// a view, so that it can be scrolled all the same.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

namespace specialpages {

struct ScrollViewIniData {
    const char* unused = "";
    const char* defaultText = "";
};

class SPScrollViewCtrlEMF : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// Gives the view its tag. The table is borrowed.
    void CreateControl(platform::View* view, ControlTag tag, const ScrollViewIniData* IniData);
    /// A text that is read has no action.
    void setTargetandAction() override {}
    /// Shows the table's text as it stands.
    bool SetDefaultValueToUI() override;

  protected:
    void setViewEnabled(bool enabled) override;
    const ScrollViewIniData* scrollViewIniDataPtr = nullptr;
};

} // namespace specialpages
