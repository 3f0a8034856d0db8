// The stepper of a number field in inches or millimetres. The first tag of its update row is its field. A
// click counts only when the fields of its validate array have nothing to object to; a step against the end
// of the range beeps.
#pragma once

#include "controls/LittleArrayEMFSpecialPages.h"

namespace specialpages {

class SPInchMMTextEditCtrlEMF;

class SPInchMMLittleArrowControlEMF : public LittleArrayEMFSpecialPages {
  public:
    using LittleArrayEMFSpecialPages::CreateControl;
    /// The tables are borrowed. `titleStr` is a key (not copied: a constant); `validateArray` names the
    /// controls that are asked before a click counts.
    void CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const char* titleStr, ConstraintRow validateArray);

    bool SetControlValueToUI() override;
    void RequestControlAction(platform::View* sender) override;
    /// Asks each control of the validate array for InvalidateData. False at the first that refuses or is not
    /// there; true for an empty array.
    bool InvalidateRelateControlData();
    /// Null when the update row has no tag, or the panel no such field.
    SPInchMMTextEditCtrlEMF* GetNumberEditFromLittleArrow();

  protected:
    ConstraintRow ControlValidateArray;
};

} // namespace specialpages
