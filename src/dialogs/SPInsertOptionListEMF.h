// Where inserted sheets go in: after the pages of the page text (item 1) or before page one (item 2). The
// list enables the page text for the one and disables it for the other. While several inserts are edited at
// once both are disabled, whichever of them is asked first.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"

namespace specialpages {

class InsertsWindow;

class SPInsertOptionListEMF : public PopupControlEMFSpecialPages {
  public:
    /// Position of the item in the view; -1 for none.
    std::int64_t GetOptionSelection() const;
    /// "Before page one" can be chosen unless there is a front cover; an item that is not there stays away.
    void UpdateBeforePageOneStatus();
    /// Whether the view is enabled; false without one.
    bool BEnable() const;

    bool SetControlValueToUI() override;
    /// Nothing while the list is disabled. True always.
    bool SetDefaultValueToUI() override;
    /// Enables the list first.
    bool SetControlValueToDefault() override;
    /// Choosing "before page one" empties the page text.
    bool UIEventHandler() override;
    /// While the dialog is in use, only a changed item does anything.
    std::int32_t DoControlConstrain() override;

  private:
    InsertsWindow* insertsWindow() const;
};

} // namespace specialpages
