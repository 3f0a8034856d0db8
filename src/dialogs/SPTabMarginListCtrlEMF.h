// The presets of the tab margin. Letter and A4 set the margin in their own unit and show that unit's side;
// the custom one leaves the margin to the user.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"

namespace specialpages {

class SPInchMMRadioButtonEMF;
class SPTabInchesLittleArrowControlEMF;
class SPTabMMLittleArrowControlEMF;

/// The window of the presets, with the controls that they set; each may be null.
class TabMarginControls {
  public:
    TabMarginControls() = default;
    TabMarginControls(const TabMarginControls&) = delete;
    TabMarginControls& operator=(const TabMarginControls&) = delete;
    virtual ~TabMarginControls() = default;

    virtual SPTabMMLittleArrowControlEMF* getTabMarginMMLArrowPtr() = 0;
    virtual SPTabInchesLittleArrowControlEMF* getTabMarginInchLArrowPtr() = 0;
    virtual SPInchMMRadioButtonEMF* getTabMarginInchRadioButtonPtr() = 0;
    virtual SPInchMMRadioButtonEMF* getTabMarginMMRadioButtonPtr() = 0;
};

class SPTabMarginListCtrlEMF : public PopupControlEMFSpecialPages {
  public:
    /// Shows the preset of the exceptions dialog while that is in use, else the committed one.
    bool SetControlValueToUI() override;
    void SetValueFromUIToControl() override;
    bool UIEventHandler() override;
};

} // namespace specialpages
