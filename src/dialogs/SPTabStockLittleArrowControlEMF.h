// The steppers of the tab stock windows. Those of the number in sequence and of the margin in millimetres
// stand for the values of the dialog that is open below the window: they show them when it opens and write
// them back at its OK. The one in inches is a view of the margin.
#pragma once

#include "controls/SPInchMMLittleArrowControlEMF.h"

#include <cstdint>
#include <optional>
#include <string>

namespace specialpages {

/// What the three have in common. Without a dialog that is in use they show what they showed before.
class TabStockLittleArrowControl : public SPInchMMLittleArrowControlEMF {
  public:
    using SPInchMMLittleArrowControlEMF::CreateControl;
    void CreateControl(platform::View* view, const LittleArrayIniData* IniData,
                       const ConstraintRecord* constrain, ConstraintRow validateArray) {
        CreateControl(view, IniData, constrain, nullptr, {}, nullptr, validateArray);
    }
    bool SetControlValueToUI() override;
    /// What was set is where the next click starts, so that it does not count as a step against the end.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// Shows the number in the field.
    std::int32_t DoControlUpdateConstrain() override;

  protected:
    /// The dialog's value; empty optional when none is in use.
    virtual std::optional<std::int32_t> keptValue() const = 0;
    virtual std::string shown(std::int32_t value) const = 0;
};

class SPNumInSeqLittleArrowControlEMF : public TabStockLittleArrowControl {
  public:
    void SetValueFromUIToControl() override;

  protected:
    std::optional<std::int32_t> keptValue() const override;
    std::string shown(std::int32_t value) const override;
};

class SPTabMMLittleArrowControlEMF : public TabStockLittleArrowControl {
  public:
    void SetValueFromUIToControl() override;

  protected:
    std::optional<std::int32_t> keptValue() const override;
    std::string shown(std::int32_t value) const override;
};

class SPTabInchesLittleArrowControlEMF : public TabStockLittleArrowControl {
  protected:
    std::optional<std::int32_t> keptValue() const override;
    std::string shown(std::int32_t value) const override;
};

} // namespace specialpages
