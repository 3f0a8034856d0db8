// The stepper of the number of sheets: it holds the number that OK takes. Every number that it shows goes
// into its field, the first tag of its update row; while the field holds no number in range, the stepper
// stands still, so that nothing that was typed is lost.
#pragma once

#include "controls/LittleArrayEMFSpecialPages.h"

namespace specialpages {

class SPAddInsertQuantityLArrEMF : public LittleArrayEMFSpecialPages {
  public:
    using LittleArrayEMFSpecialPages::CreateControl;
    /// The tables are borrowed. `titleStr` is a key (not copied: a constant); `validateArray` names the
    /// controls that must hold a number before a click counts.
    void CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const char* titleStr, ConstraintRow validateArray);

    /// A number that comes from the field counts as the last one, so that the next click is compared with it.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    bool SetControlValueToUI() override;
    void RequestControlAction(platform::View* sender) override;
    std::int32_t DoControlUpdateConstrain() override;
    std::int32_t GetSummaryText(SummaryText* /*text*/, std::vector<std::string>* /*orderArray*/) override {
        return 0;
    }

    /// The first control of the validate array that refuses, or that is not there, gives false. The first
    /// form lets it show its message.
    bool InvalidateRelateControlData();
    bool InvalidateRelateControlDataAndReturnError();
    /// The number in the view; 0 without one.
    std::int32_t GetQuantityValue() const;

  private:
    bool relatedControlsAnswer(bool (BaseControlEMFSpecialPages::*question)());

    ConstraintRow ControlValidateArray;
};

} // namespace specialpages
