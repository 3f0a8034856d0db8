// The number fields of the tab stock windows: the number of tabs in a sequence, and the tab margin in
// millimetres and in inches, twins of which one shows and the hidden one follows it. GetUIData() has the text
// that a field holds now, whether a user or the program put it there.
#pragma once

#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/custom_size_range.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace specialpages {

/// What the three have in common.
class TabStockTextEditCtrl : public SPInchMMTextEditCtrlEMF {
  public:
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// Every byte accepted by the filter, and a text that the field takes.
    bool IsNumberValid(const std::string& text) override;
    std::int32_t OnRawKeyUp(const std::string& text) override;
    /// Shows the stepper's value.
    bool CorrectCtrlUI() override;

  protected:
    /// Whether the form of the text and its number are right; the bytes are checked already.
    virtual bool accepts(const std::string& text) const = 0;
    virtual std::int32_t stepperValue(const std::string& text) const = 0;
    virtual std::string shown(std::int32_t value) const = 0;
    void showValue(std::int32_t value);
};

class SPNumInSeqTextEditCtrlEMF : public TabStockTextEditCtrl {
  public:
    void InitializeCtrlFormat() override;
    /// Nothing: it has no twin.
    std::int32_t Update() override { return 0; }

  protected:
    bool accepts(const std::string& text) const override;
    std::int32_t stepperValue(const std::string& text) const override;
    std::string shown(std::int32_t value) const override;
};

/// What both units of the margin have in common.
class TabMarginTextEditCtrl : public TabStockTextEditCtrl {
  public:
    void InitializeCtrlFormat() override;
    /// While the field is hidden it follows its twin.
    std::int32_t Update() override;

  protected:
    explicit TabMarginTextEditCtrl(std::int32_t longMeasure) : longMeasure_(longMeasure) {}
    bool accepts(const std::string& text) const override;
    std::int32_t stepperValue(const std::string& text) const override;
    std::string shown(std::int32_t value) const override;

  private:
    std::int32_t longMeasure_;
};

class SPTabMMTextEditCtrlEMF : public TabMarginTextEditCtrl {
  public:
    SPTabMMTextEditCtrlEMF() : TabMarginTextEditCtrl(kLongMeasureMillimetres) {}
};

class SPTabInchesTextEditCtrlEMF : public TabMarginTextEditCtrl {
  public:
    SPTabInchesTextEditCtrlEMF() : TabMarginTextEditCtrl(kLongMeasureInches) {}
};

} // namespace specialpages
