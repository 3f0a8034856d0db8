// Radio buttons and their groups. A radio's value is its state, 0 or 1. Radios are grouped by update rows and
// not by a toolkit matrix: the button that is chosen becomes its group's current one, its update row reaches
// the sister, and the sister clears itself and runs its own constraints.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

#include <vector>

namespace specialpages::platform {
class Button;
}

namespace specialpages {

class RadioButtonEMFSpecialPages;

/// The group, a control without a view. Its buttons are borrowed.
class RadioGroupEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    /// Empties the group; no button is current.
    void RadioGroup();
    /// Tells the button its group; answers the button's index.
    std::int32_t RunTimeAddNewControl(RadioButtonEMFSpecialPages* button);
    /// Reads all buttons; null always.
    ValueBlock* GetValueFromUI() override;
    /// Index of the current button; -1 at the start.
    std::int32_t GetcurRadio() const { return curRadio; }
    /// Ignores an index outside the group.
    void SetcurRadio(std::int32_t index);
    const std::vector<RadioButtonEMFSpecialPages*>& buttons() const { return fCtrlGroupArray; }

  private:
    std::vector<RadioButtonEMFSpecialPages*> fCtrlGroupArray;
    std::int32_t curRadio = -1;
};

struct RadioIniData {
    std::int32_t defaultState = 0;
    std::int32_t initial = -1;
    const char* titleKey = nullptr;
};

class RadioButtonEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed; each may be null.
    void RadioButton(platform::View* view, const RadioIniData* IniData, const ConstraintRecord* constrain,
                     const AccessInfo* accessInfo, std::string_view usernamein);
    void SetCtrlGrp(RadioGroupEMFSpecialPages* group) { RadioGrpPtr = group; }

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool InitializeTitle(platform::Bundle* bundle);

    bool SetControlValueToUI() override;
    /// True only when there is a view that is enabled.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// Whatever the value type.
    bool setExternalValueToData(const ControlValue& value, std::uint32_t size,
                                std::int32_t valueType) override;
    ValueBlock* GetValueFromUI() override;
    ValueBlock* GetValueFromControl() override { return &ctrlDataBlkPtr; }
    bool GetValueToPreset() override;
    std::optional<ControlValue> GetDefaultDataBlk() const override;
    std::uint32_t GetDefaultDataSize() const override;
    std::optional<ControlValue> GetIniDataBlk() const override;
    std::uint32_t GetIniDataSize() const override;
    bool ConvertToPreferenceString(std::string& text) override;
    bool ConvertFromPreferenceString(std::string_view text) override;
    bool ConvertToTickectData(std::string& text) override;

    bool UIEventHandler() override;
    bool SimulationUIEventHandler() override;
    std::int32_t DoControlUpdateConstrain() override;
    std::int32_t DoControlHideConstrain() override;
    /// Disabling comes first here, unlike a pop-up's, and the UI block is not written.
    std::int32_t DoControlConstrain() override;
    /// A sister became current: this button goes off and runs its constraints.
    std::int32_t Update() override;

    /// This button becomes its group's current one.
    void SetGrpcurRadio();
    /// Its index in the group, by the tag of its view; -1 without a group or when it is not in it.
    std::int32_t GetRadioIndex() const;
    /// The first button of the group with another tag; the last one looked at when all have the same. Null
    /// without one.
    RadioButtonEMFSpecialPages* GetAnotherRadioCtrlFromGroup() const;

  private:
    platform::Button* button() const;
    /// Old and new state; empty when there is no UI block or they are equal.
    struct Change {
        std::int32_t before = 0;
        std::int32_t now = 0;
    };
    std::optional<Change> change() const;

    RadioGroupEMFSpecialPages* RadioGrpPtr = nullptr;
    const RadioIniData* radiobuttonIniDataPtr = nullptr;
};

} // namespace specialpages
