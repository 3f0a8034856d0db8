// The number fields of the custom size window. Each side of the paper has one in millimetres and one in
// inches, twins that are kept in step: only one of them shows, and the hidden one follows it. The text in
// millimetres is what counts; GetUIData() has it, whether a user or the program put it there.
//
// The PPD may narrow or widen the range of the table, and with it the default in millimetres; what it changes
// is this control's own copy.
#pragma once

#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/custom_size_range.h"

#include <cstdint>
#include <string>

namespace specialpages {

/// What both units have in common.
class CustomSizeTextEditCtrl : public SPInchMMTextEditCtrlEMF {
  public:
    using SPInchMMTextEditCtrlEMF::CreateControl;
    /// As the base's; `SizeFlag` is kCustomSizeWidth or kCustomSizeLength.
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData,
                       const EditValueRangeData* ValueRange, std::int32_t SizeFlag);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    void InitializeCtrlFormat() override;
    /// Shows the paper menu's width or length; "-1" there shows the minimum. Without a menu, the committed
    /// value.
    bool SetControlValueToUI() override;
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// While the field is hidden it follows its twin.
    std::int32_t Update() override;
    /// Every byte accepted by the filter, the form of the unit, and a value in the range.
    bool IsNumberValid(const std::string& text) override;
    std::int32_t OnRawKeyUp(const std::string& text) override;
    /// Shows the stepper's value.
    bool CorrectCtrlUI() override;
    /// Says which values are accepted.
    void ShowErrMsg() override;

    std::int32_t longMeasure() const { return longMeasure_; }

  protected:
    explicit CustomSizeTextEditCtrl(std::int32_t longMeasure) : longMeasure_(longMeasure) {}

  private:
    void takeRange(ppd_file_s* ppd);
    void showValue(std::int32_t value);
    std::int32_t fromTwin(const std::string& twinText);

    std::int32_t longMeasure_;
    std::int32_t m_customSize_flag = kCustomSizeWidth;
    const TextEditIniData* tableIniData_ = nullptr;
    EditValueRangeData tableRange_;
    TextEditIniData ownIniData_;
    std::string ownDefault_;
};

class SPCustomSizeMMTextEditCtrlEMF : public CustomSizeTextEditCtrl {
  public:
    SPCustomSizeMMTextEditCtrlEMF() : CustomSizeTextEditCtrl(kLongMeasureMillimetres) {}
};

class SPCustomSizeInchesTextEditCtrlEMF : public CustomSizeTextEditCtrl {
  public:
    SPCustomSizeInchesTextEditCtrlEMF() : CustomSizeTextEditCtrl(kLongMeasureInches) {}
};

} // namespace specialpages
