// The steppers of the custom size window, one beside each field. The PPD may change the range of the table;
// what it changes is this control's own copy.
#pragma once

#include "controls/SPInchMMLittleArrowControlEMF.h"
#include "controls/custom_size_range.h"

#include <cstdint>

namespace specialpages {

/// What both units have in common.
class CustomSizeLittleArrowControl : public SPInchMMLittleArrowControlEMF {
  public:
    using SPInchMMLittleArrowControlEMF::CreateControl;
    /// As the base's; `SizeFlag` is kCustomSizeWidth or kCustomSizeLength.
    void CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                       const ConstraintRecord* constrain, ConstraintRow validateArray, std::int32_t SizeFlag);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Stands at the paper menu's width or length, held to the range; at the minimum for "-1". Without a
    /// menu, at the committed value.
    bool SetControlValueToUI() override;
    /// What was set is where the next click starts, so that it does not count as a step against the end.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// Leaves the field alone: that shows the stored text as it stands.
    bool SimulationUIEventHandler() override { return true; }
    /// Shows the number in the field.
    std::int32_t DoControlUpdateConstrain() override;

  protected:
    explicit CustomSizeLittleArrowControl(std::int32_t longMeasure) : longMeasure_(longMeasure) {}

  private:
    void takeRange(ppd_file_s* ppd);

    std::int32_t longMeasure_;
    std::int32_t m_customSize_flag = kCustomSizeWidth;
    const LittleArrayIniData* tableIniData_ = nullptr;
    LittleArrayIniData ownIniData_;
};

class SPCustomSizeMMLittleArrowControlEMF : public CustomSizeLittleArrowControl {
  public:
    SPCustomSizeMMLittleArrowControlEMF() : CustomSizeLittleArrowControl(kLongMeasureMillimetres) {}
};

class SPCustomSizeInchesLittleArrowControlEMF : public CustomSizeLittleArrowControl {
  public:
    SPCustomSizeInchesLittleArrowControlEMF() : CustomSizeLittleArrowControl(kLongMeasureInches) {}
};

} // namespace specialpages
