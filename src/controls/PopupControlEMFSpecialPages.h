// A pop-up whose items are keys of the localised table. Its value is the selected item's number, 1-based.
//
// An event compares the item in the view with the UI block: selecting the same item again fires nothing.
// Hiding comes before showing, but enabling before disabling; the last step alone writes the UI block, which
// is why it stands last.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

#include <span>

namespace specialpages::platform {
class PopUpButton;
}

namespace specialpages {

struct PopupIniData {
    std::int32_t defaultItem = 1; ///< 1-based
    std::int32_t initial = -1;    ///< what the UI block holds before the first value
    std::span<const char* const> menuKeys;
};

class PopupControlEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed; each may be null.
    void CreateControl(platform::View* view, const PopupIniData* IniData,
                       const ConstraintRecord* ConstrainArray, const AccessInfo* accessInfo,
                       std::string_view usernamein);

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Fills the menu from the keys; a key without a translation is its own title. False without a view; true
    /// without a table.
    virtual bool InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD);

    bool SetControlValueToUI() override;
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    ValueBlock* GetValueFromUI() override;
    ValueBlock* GetValueFromControl() override { return &ctrlDataBlkPtr; }
    void SetValueFromUIToControl() override;
    bool GetValueToPreset() override;
    std::optional<ControlValue> GetDefaultDataBlk() const override;
    std::uint32_t GetDefaultDataSize() const override;
    std::optional<ControlValue> GetIniDataBlk() const override;
    std::uint32_t GetIniDataSize() const override;
    bool ConvertToPreferenceString(std::string& text) override;
    bool ConvertFromPreferenceString(std::string_view text) override;
    bool ConvertToTickectData(std::string& text) override;

    /// The selected position, 0-based; -1 for none.
    std::int64_t GetCurrentControlArrayNumber() override;
    std::int32_t DoControlUpdateConstrain() override;
    std::int32_t DoControlHideConstrain() override;
    std::int32_t DoControlConstrain() override;
    /// The base form, without the test whether the item changed.
    std::int32_t DoBaseControlUpdateConstrain();
    void RequestPopupList(platform::View* sender) { RequestControlAction(sender); }

    /// Whether `choice` of `option` is among the choices that forbid `key`, by the panel's constraint index.
    bool isChoiceConflicted(std::string_view key, std::string_view option, std::string_view choice,
                            ppd_file_s* withPPD);

  protected:
    platform::PopUpButton* popup() const;
    /// The item in the view, 1-based; 1 when none is selected.
    std::int32_t shownItem() const;
    /// The UI block's number; empty while there is no block.
    std::optional<std::int32_t> lastItem() const;
    const PopupIniData* listctrlIniDataPtr = nullptr;
};

} // namespace specialpages
