// The radio buttons that choose between inches and millimetres. A radio that is clicked first has the fields
// of the unit that is left checked; while one of them refuses its text, the unit stays.
#pragma once

#include "controls/RadioButtonEMFSpecialPages.h"

#include <cstdint>

namespace specialpages {

class SPInchMMRadioButtonEMF : public RadioButtonEMFSpecialPages {
  public:
    using RadioButtonEMFSpecialPages::CreateControl;
    /// The tables are borrowed. `validateArray` names the fields that are asked; `longMeasure` is the unit
    /// that the radio stands for.
    void CreateControl(platform::View* view, const RadioIniData* IniData, const ConstraintRecord* constrain,
                       ConstraintRow validateArray, std::int32_t longMeasure);
    /// Nothing while the state is the one of the UI block. False, with both radios as they were, when a field
    /// refuses.
    bool UIEventHandler() override;
    /// True whenever there is a view, also one that is disabled.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// False always: the unit is no preference.
    bool GetValueFromPreference() override { return false; }
    /// Whether no field of the array objects; one that the panel does not have objects to nothing.
    bool ValidateConstrains();

  protected:
    ConstraintRow validateControlArray;
    std::int32_t longMeasureFlag = 0;
};

/// The radios of the custom size window. They show the paper menu's long measure; when that is neither inches
/// nor millimetres, the default.
class SPCustomSizeInchMMRadioButtonEMF : public SPInchMMRadioButtonEMF {
  public:
    bool SetControlValueToUI() override;
};

} // namespace specialpages
