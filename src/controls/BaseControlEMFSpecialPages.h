// The base of every control: one view of the toolkit with a value that has a life of its own. What a control
// shows first, its default, the key that it writes and the controls that it touches are entries of static
// tables. The class defines the value model and the empty form of every operation; a subclass overrides what
// its kind of view needs.
//
// Two value blocks are the model. The data block is the committed value, which counts for ticket and presets;
// the UI block is the value last seen in the view, so that an event can compare old and new. Neither exists
// until a subclass makes it in InitializeCtrl; controls without a value never have one. Every operation
// tolerates a missing view, block or table: it does nothing and gives its neutral answer.
//
// Disabling and hiding are counted, not flagged, since several controls may restrain one neighbour at once. A
// count may go below zero on purpose: an Enable without an earlier Disable leaves -1, and the next Disable
// has no visible effect.
#pragma once

#include "controls/control_tables.h"
#include "platform/toolkit/Nib.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct ppd_file_s;
struct ppd_option_s;

namespace specialpages::platform {
class Bundle;
class PrintSettings;
class View;
} // namespace specialpages::platform

namespace specialpages {

class ControlPanel;
class PDEChoiceEMFSpecialPages;

/// A value block; empty while it does not exist.
using ValueBlock = std::optional<ControlValue>;
using PPDChoices = std::vector<std::shared_ptr<PDEChoiceEMFSpecialPages>>;
using SummaryText = std::map<std::string, std::string>;

/// How long a chain of Update calls may get. No table of the pane comes near; a wrong one is cut off, all of
/// it, with a log line instead of hanging the host.
inline constexpr int kMaxUpdateDepth = 64;

class BaseControlEMFSpecialPages : public platform::NibObject {
  public:
    BaseControlEMFSpecialPages() = default;

    /// Binds the view (borrowed, may be null) and puts every field to its start.
    void CreateControl(platform::View* view);

    void SetControlPtr(platform::View* view) { ControlPtr = view; }
    platform::View* GetControlPtr() const { return ControlPtr; }
    void SetParenetPanel(ControlPanel* panel) { ctrlParentPanelPtr = panel; }
    ControlPanel* parentPanel() const { return ctrlParentPanelPtr; }

    virtual std::int32_t Open() { return 0; }
    virtual std::int32_t Close() { return 0; }
    /// The view's user events run RequestControlAction from here on.
    virtual void setTargetandAction();
    virtual bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD);
    virtual bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD);
    virtual std::int32_t ConstrainPanelControlFromPPD(ppd_file_s* ppd);
    virtual std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd);

    // The value: view, UI block, data block.

    /// Reads the view into the UI block and answers it; null without a value.
    virtual ValueBlock* GetValueFromUI() { return nullptr; }
    /// Reads the value from the print settings; false leaves it to the default.
    virtual bool GetValueToPreset() { return false; }
    virtual ValueBlock* GetValueFromControl() { return nullptr; }
    /// Commits the UI block to the data block, when both exist and the size in use is not 0.
    virtual void SetValueFromUIToControl();
    virtual bool SetControlValueToUI() { return true; }
    /// The UI block takes its initial value (the sentinel that says: no value yet). True always.
    virtual bool SetUIValueToIniData();
    /// The data block takes the default. True always.
    virtual bool SetControlValueToDefault();
    virtual bool SetControlData(const ControlValue&) { return true; }
    /// Puts a given value into the view.
    virtual bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size);
    /// Stores a given value in the data block, which must exist: value type 2 an integer, 0 the first `size`
    /// bytes of a text; any other type changes nothing. True always.
    virtual bool setExternalValueToData(const ControlValue& value, std::uint32_t size,
                                        std::int32_t valueType);
    /// The view shows the default, the data block stays. True always.
    virtual bool SetDefaultValueToUI();
    virtual std::optional<ControlValue> GetDefaultDataBlk() const { return std::nullopt; }
    virtual std::uint32_t GetDefaultDataSize() const { return 0; }
    virtual std::optional<ControlValue> GetIniDataBlk() const { return std::nullopt; }
    virtual std::uint32_t GetIniDataSize() const { return 0; }

    ValueBlock& GetControlBlkPtr() { return ctrlDataBlkPtr; }
    ValueBlock& GetValueFromUIDataBlk() { return ctrlUIDataBlkPtr; }
    void setDataBlkSize(std::uint32_t size) { ctrlDataSize = size; }
    std::uint32_t GetDataBlkSize() const { return ctrlDataSize; }
    const PPDChoices& getPPDChoices() const { return m_paPPDChoices; }
    void setPPDChoices(PPDChoices choices) { m_paPPDChoices = std::move(choices); }
    ppd_option_s* getPPDOptions() const { return m_ptPPDOptions; }
    void setPPDOptions(ppd_option_s* option) { m_ptPPDOptions = option; }

    // Validation before a dialog commits. True: nothing to object to.

    virtual bool InvalidateData() { return true; }
    virtual bool InvalidateDataAndReturnError() { return true; }
    virtual bool InvalidateDataOnCancel() { return true; }
    virtual bool PreInvalidateData() { return true; }
    virtual bool PreInvalidateDataOnCancel() { return true; }
    /// PreInvalidateData, and only when that is true InvalidateData.
    virtual bool InvalidateDataOnPrintCommand();

    // Transfer to print settings and preferences.

    /// The data block as text. True, with `text` left empty, in this base form.
    virtual bool ConvertToPreferenceString(std::string& text);
    virtual bool ConvertFromPreferenceString(std::string_view text);
    virtual bool ConvertToTickectData(std::string& text);
    virtual bool SetValueToPreference();
    virtual bool GetValueFromPreference();
    virtual bool SetValueToPreferenceWithPrinterSettings();
    virtual bool GetValueFromPreferenceWithPrinterSettings();
    /// Writes the value under the ticket key, in slash-decimal form when it needs it. False without a ticket
    /// key.
    virtual bool SetValueToTicket(platform::PrintSettings* settings, bool withParam);
    /// The enciphered form for a control whose view's tag is among those of `encryptArray`, else the plain
    /// one.
    virtual bool SetValueToTicket(platform::PrintSettings* settings, bool withParam,
                                  std::span<platform::View* const> encryptArray);
    virtual bool SetValueToTicketWithNSPEnc(platform::PrintSettings* settings, bool withParam);
    virtual bool IsOutputNullToTicket() const { return false; }
    virtual std::int32_t GetSummaryText(SummaryText*, std::vector<std::string>* /*orderArray*/) { return 0; }

    // Events and the wiring to other controls.

    /// The view's action: UIEventHandler, then GetValueFromUI, so that during the event the UI block still
    /// holds the old value.
    virtual void RequestControlAction(platform::View* sender);
    /// What a user's event does: update rows, the control itself, hide rows, disable rows, in this order.
    /// True.
    virtual bool UIEventHandler();
    /// The same, run by program so that the neighbours come in line with the value. A subclass overrides them
    /// apart.
    virtual bool SimulationUIEventHandler();
    virtual std::int32_t DoControlUpdateConstrain();
    virtual std::int32_t DoSelfUpdate() { return 0; }
    virtual std::int32_t DoControlHideConstrain() { return 0; }
    virtual std::int32_t DoControlConstrain() { return 0; }
    /// Re-evaluates the control because a neighbour's update row names it.
    virtual std::int32_t Update() { return 0; }
    /// The row of the constraint tables for the present value.
    virtual std::int64_t GetCurrentControlArrayNumber() { return 0; }

    void DisableControlConstrains(ConstraintRow row);
    void EnableControlConstrains(ConstraintRow row);
    void HideControlConstrains(ConstraintRow row);
    void ShowControlConstrains(ConstraintRow row);
    /// These take the row of GetCurrentControlArrayNumber.
    void DisableControlConstrains();
    void EnableControlConstrains();
    void HideControlConstrains();
    void ShowControlConstrains();

    void Disable();
    void Enable();
    void Hide();
    void Show();
    /// Both counts to 0, the view enabled and shown.
    virtual void ResetStatus();
    /// Show or hide the view and leave the counts alone.
    virtual void PPDCtrlShow();
    virtual void PPDCtrlHide();

    std::int32_t constrainCount() const { return ctrlConstrainCount; }
    std::int32_t hideCount() const { return ctrlHideCount; }

  protected:
    /// Enables or disables the view, when it is not so already. A text control also sets its colour.
    virtual void setViewEnabled(bool enabled);
    /// Sends `operation` to the control of each tag, in order; an unknown tag is skipped.
    void forEachControl(ConstraintRow row, void (BaseControlEMFSpecialPages::*operation)());
    /// The localised text from the default table; `fallback` when it is missing there.
    std::string localized(platform::Bundle& bundle, std::string_view key, std::string_view fallback) const;

    platform::View* ControlPtr = nullptr;
    ControlPanel* ctrlParentPanelPtr = nullptr;
    std::uint32_t ctrlDataSize = 0;
    ValueBlock ctrlDataBlkPtr;
    ValueBlock ctrlUIDataBlkPtr;
    std::int32_t ctrlConstrainCount = 0;
    std::int32_t ctrlHideCount = 0;
    const ConstraintRecord* ctrlConstrainControlArray = nullptr;
    const AccessInfo* ctrlDataAccessInfoPtr = nullptr;
    std::string userNameinPreference;
    PPDChoices m_paPPDChoices;
    ppd_option_s* m_ptPPDOptions = nullptr;

  private:
    /// The data block as text for a preference. An answer ends the write: nothing to write (true), or a
    /// failure.
    std::optional<bool> textForPreference(std::string& text);
    /// The preference key, which must exist, behind the printer's identifier.
    bool makePrinterPreferenceKey(std::string& key) const;
};

} // namespace specialpages
