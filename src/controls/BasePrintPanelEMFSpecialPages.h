// A container of controls and of further panels: the base of the pane and of every modal window. Nearly all
// that it does is to walk its registries and send one operation to every member, so the order of a walk and
// its stopping rule are the design: controls first to last; windows first to last, and where an operation
// answers a status, no further than the first window that answers non-zero. A walk's own answer is 0 whatever
// its members said, unless told otherwise.
//
// Ownership: a control made in code is owned here, beside the registry that walks it; controls and windows
// that a nib made belong to the nib. PPD, settings, session and host object are the host's and are borrowed
// until the next SetCurrentPrintSettings. The constraint index is shared: a window keeps the one that it was
// handed until SetxppdPtr.
#pragma once

#include "controls/ControlPanel.h"
#include "platform/toolkit/Nib.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {
class PDEPluginCallback;
struct PrintSession;
class View;
class Window;
} // namespace specialpages::platform

namespace specialpages {

using PreferenceDictionary = std::map<std::string, std::string>;

class BasePrintPanelEMFSpecialPages : public ControlPanel,
                                      public platform::NibObject,
                                      public platform::NibOwner {
  public:
    BasePrintPanelEMFSpecialPages();
    ~BasePrintPanelEMFSpecialPages() override;

    /// Keeps the host object (borrowed; it outlives the panel).
    void initWithCallback(platform::PDEPluginCallback* host);
    /// Empties the registries, binds the window and puts every field to its start. A subclass then makes and
    /// registers its controls and windows.
    void CreatePanel(platform::Window* window);

    // Registration. The answers are the member's index.

    /// A control that its nib owns. Without a view it is left out: the answer is then the count, unchanged.
    std::int32_t RunTimeAddNewControl(BaseControlEMFSpecialPages* control);
    /// A control made in code. Without a view it is destroyed at once and the pointer is null afterwards.
    template <typename Control>
    std::int32_t RunTimeAddNewControl(std::unique_ptr<Control> control, Control*& field) {
        field = nullptr;
        const std::int32_t before = _control_num_item;
        const std::int32_t index = RunTimeAddNewControl(control.get());
        if (_control_num_item != before) {
            field = control.get();
            ownedControls_.push_back(std::move(control));
        }
        return index;
    }
    /// A control that the PPD constrains directly; no test of its view. Kept for the framework.
    std::int32_t RunTimeAddNewInstallableControl(BaseControlEMFSpecialPages* control);
    std::int32_t RunTimeAddNewWindow(BasePrintPanelEMFSpecialPages* window);

    // Lookup and accessors.

    BaseControlEMFSpecialPages* GetPanelControl(ControlTag tag) override;
    ppd_file_s* GetCurrentPPD() override { return m_ptCurrentPPD; }
    void SetCurrentPPD(ppd_file_s* ppd) { m_ptCurrentPPD = ppd; }
    platform::PrintSettings* GetCurrentPMPrintSettings() override { return m_pSettings; }
    void SetCurrentPMPrintSettings(platform::PrintSettings* settings) { m_pSettings = settings; }
    platform::PDEPluginCallback* GetCurrentPDECallbackObj() const { return m_pPDECallbackObj; }
    void SetCurrentPDECallbackObj(platform::PDEPluginCallback* host) { m_pPDECallbackObj = host; }
    std::optional<std::string> GetCurrentPrinterString() override { return currentPrintString; }
    platform::PrintSession* GetCurrentPrintSession() const { return currentPrintSession; }
    void SetCurrentPrintSession(platform::PrintSession* session) { currentPrintSession = session; }
    platform::Bundle* GetPDEBundleRef() override { return pdeBundleRef; }
    ControlPanel* GetParentWnd() override { return pParentPane; }
    void SetParenetPane(BasePrintPanelEMFSpecialPages* parent) { pParentPane = parent; }
    void SetPanelControlPtr(platform::Window* window) { windowRef = window; }
    platform::Window* window() const { return windowRef; }
    const std::vector<std::string>& getGroupNameStrArrayRef() const { return AllGroupNameStrArray; }
    const std::vector<BaseControlEMFSpecialPages*>& getCtrlGroupArrayRef() const { return fCtrlGroupArray; }
    const PreferenceDictionary* getPreferenceDictionaryRef() const { return preferenceDictionaryRef.get(); }
    const PreferenceDictionary* getPreferenceDictionaryAnyUserRef() const {
        return preferenceDictionaryAnyUserRef.get();
    }
    std::shared_ptr<ConstraintIndex> Getxppd() override { return xppd; }
    SpecialPagesHub* hub() override { return pParentPane == nullptr ? nullptr : pParentPane->hub(); }
    static const std::vector<std::string>* GetPrinterSupporttedListRef() { return nullptr; }
    static BasePrintPanelEMFSpecialPages* GetErrMsgPanel() { return nullptr; }
    /// Null without a session of this panel's own, else the host's PPD.
    ppd_file_s* GetPPDRefFromCurrentPrintSession();
    std::int32_t controlCount() const { return _control_num_item; }
    std::int32_t installableControlCount() const { return _installableControl_num_item; }
    std::int32_t windowCount() const { return _parentPane_num_item; }

    // Walks. What reaches windows is virtual, so that a window can answer for itself.

    virtual std::int32_t Open();
    virtual std::int32_t Close();
    virtual std::int32_t GetSummaryText(std::map<std::string, std::string>* text,
                                        std::vector<std::string>* orderArray);
    std::int32_t InitializeUserPaneControl(platform::Bundle* bundle, ppd_file_s* withPPD);
    std::int32_t InitilaizeChildWindow(platform::Bundle* bundle, ppd_file_s* withPPD);
    std::int32_t SetControlEventHandler();
    std::int32_t ConstrainPanelControlFromPPD(ppd_file_s* ppd);
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override;
    virtual std::int32_t SetUIDataToIniData();
    /// Each control shows its default and simulates its event before the next one gets its default.
    std::int32_t SetDefaultValueToUI();
    /// All values are in place before the first control simulates its event.
    virtual std::int32_t SetCurrentValueToUI();
    std::int32_t SetValueFromUIToControl();
    /// Each control reads its value from the print settings, or takes its default. True.
    virtual bool GetValueFromPreset();
    virtual std::int32_t GetValueFromPreference();
    virtual std::int32_t GetValueFromPreferenceWithPrinterSettings();
    /// These two answer the first non-zero answer of a window.
    virtual std::int32_t SetValueToPreference();
    virtual std::int32_t SetValueToPreferenceWithPrinterSettings();
    virtual std::int32_t SetValueToTicket(platform::PrintSettings* settings, bool withParam);
    /// With a null array the plain form.
    virtual std::int32_t SetValueToTicket(platform::PrintSettings* settings, bool withParam,
                                          const std::vector<platform::View*>* encryptArray);
    std::int32_t ReInitializeUserPaneControl(platform::Bundle* bundle, ppd_file_s* withPPD);
    virtual std::int32_t ResetControlStatus();
    std::int32_t ResetCurrentControlStatus();
    virtual void SetxppdPtr(std::shared_ptr<ConstraintIndex> index);

    /// The panel's own controls are ready and wired before any child window starts. Answers 0.
    virtual std::int32_t InitializeUserPane(platform::Bundle* bundle, ppd_file_s* withPPD);
    /// Stores all but the session, asks the printer's identifier, and hands the four to every window. False
    /// when the session has no printer, or at the first window that answers false.
    virtual bool SetCurrentPrintSettings(platform::PrintSettings* settings, ppd_file_s* andPPD,
                                         platform::PDEPluginCallback* andCallbackObj,
                                         platform::PrintSession* withPrintSession);
    /// Stores the session and asks the printer's identifier; false when it has none.
    bool SetCurrentPrinterString(platform::PrintSession* session);
    /// Keeps the dictionaries, shared with every window.
    virtual void setPreferDictionary(std::shared_ptr<const PreferenceDictionary> dictionary,
                                     std::shared_ptr<const PreferenceDictionary> anyUserDictionary);

    /// Loads a nib of the pane's bundle with this panel as owner; nothing when one is loaded already. False
    /// when the nib is not there or malformed (logged).
    bool loadNibNamed(std::string_view name);

    // A panel that loads no nib of its own knows no outlets.
    bool connectOutlet(std::string_view outlet, platform::View& view) override;
    std::unique_ptr<platform::NibObject> instantiate(std::string_view className) override;
    bool connectObject(std::string_view outlet, platform::NibObject& object) override;

  protected:
    std::optional<std::string> currentPrintString;
    std::vector<BaseControlEMFSpecialPages*> fCtrlGroupArray;
    std::vector<BaseControlEMFSpecialPages*> fCtrlInstallableGroupArray;
    std::vector<BasePrintPanelEMFSpecialPages*> fWindowGroupArray;
    std::vector<std::string> AllGroupNameStrArray;
    std::shared_ptr<const PreferenceDictionary> preferenceDictionaryRef;
    std::shared_ptr<const PreferenceDictionary> preferenceDictionaryAnyUserRef;
    BasePrintPanelEMFSpecialPages* pParentPane = nullptr;
    platform::Window* windowRef = nullptr;
    platform::Bundle* pdeBundleRef = nullptr;
    std::int32_t _control_num_item = 0;
    std::int32_t _installableControl_num_item = 0;
    std::int32_t _parentPane_num_item = 0;
    platform::PrintSession* currentPrintSession = nullptr;
    std::shared_ptr<ConstraintIndex> xppd;
    platform::PrintSettings* m_pSettings = nullptr;
    ppd_file_s* m_ptCurrentPPD = nullptr;
    platform::PDEPluginCallback* m_pPDECallbackObj = nullptr;
    std::optional<std::string> LocalizeTableName;

  private:
    bool fillPrinterString(platform::PrintSession* session);
    template <typename Operation>
    void forEachControl(Operation operation);
    template <typename Operation>
    std::int32_t firstRefusal(Operation operation);

    // The nib goes last: views must outlive the controls that point at them.
    std::unique_ptr<platform::Nib> topLevelObjs;
    std::vector<std::unique_ptr<BaseControlEMFSpecialPages>> ownedControls_;
};

} // namespace specialpages
