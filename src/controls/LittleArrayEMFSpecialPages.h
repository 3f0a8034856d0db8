// A stepper: a number that two little arrows move. The class is named as it always was, with an "Array" for
// the arrow.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

namespace specialpages::platform {
class Stepper;
}

namespace specialpages {

struct LittleArrayIniData {
    std::int32_t defaultValue = 0;
    std::int32_t initial = 0; ///< what the UI block holds before the first value
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t increment = 1;
};

class LittleArrayEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed; each may be null. `titleStr` is a key (not copied: a constant).
    void LittleArrayControl(platform::View* view, const LittleArrayIniData* IniData,
                            const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                            std::string_view usernamein, const char* titleStr);

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Both blocks are made anew, so that each opening of a dialog begins at 0.
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// The view's range and step become those of the table.
    void SetRange(std::int32_t minimum, std::int32_t maximum);

    bool SetControlValueToUI() override;
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    ValueBlock* GetValueFromUI() override;
    ValueBlock* GetValueFromControl() override { return &ctrlDataBlkPtr; }
    bool GetValueToPreset() override;
    /// The last value becomes the default; the view is left alone.
    bool SetDefaultValueToUI() override;
    std::optional<ControlValue> GetDefaultDataBlk() const override;
    std::uint32_t GetDefaultDataSize() const override;
    std::optional<ControlValue> GetIniDataBlk() const override;
    std::uint32_t GetIniDataSize() const override;
    bool ConvertToPreferenceString(std::string& text) override;
    bool ConvertFromPreferenceString(std::string_view text) override;
    bool ConvertToTickectData(std::string& text) override;
    using BaseControlEMFSpecialPages::SetValueToTicket;
    /// False, and nothing is written, for a value outside the table's range.
    bool SetValueToTicket(platform::PrintSettings* settings, bool withParam) override;
    /// Adds the value, with a point before its last digit, under the title key. Answers 0.
    std::int32_t GetSummaryText(SummaryText* text, std::vector<std::string>* orderArray) override;

    /// The value that the last accepted click left; the default at first.
    std::int32_t getLastValue() const { return lastValue; }

  protected:
    platform::Stepper* stepper() const;
    /// Whether the value belongs into the summary: the control has a title and is neither hidden nor
    /// disabled, by its counts.
    bool ToGetSummaryText() const;
    /// Whether the value lies in the table's range, both ends included; true without a table.
    bool isInRange(std::int32_t value) const;

    const LittleArrayIniData* littleArrayIniDataPtr = nullptr;
    const char* titleTextRef = nullptr;
    std::int32_t lastValue = 0;
};

} // namespace specialpages
