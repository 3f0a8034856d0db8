// A text that the user reads and does not edit: its content is a key of the localised table. It keeps the
// counting rules of every control and also shows its state by the text's colour.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

namespace specialpages {

class StaticTextEditControlEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    using BaseControlEMFSpecialPages::CreateControl;
    /// `summaryInfo` is a key (not copied: a constant).
    void CreateControl(platform::View* view, const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const char* summaryInfo);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// True with no bundle; false without a key.
    virtual bool InitializeTitle(platform::Bundle* bundle);
    /// Shows the text; false when the value is no text or there is no view.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    void PPDCtrlShow() override {}
    void PPDCtrlHide() override {}

  protected:
    void setViewEnabled(bool enabled) override;
    bool showText(std::string text);
    const char* summarytextRef = nullptr;
};

/// The version of the pane, read from its bundle. The main pane only initialises it, so that it stays hidden
/// there; a dialog that is reopened resets it too, and that shows it.
class VersionStringSTextEMFSpecialPages : public StaticTextEditControlEMFSpecialPages {
  public:
    using StaticTextEditControlEMFSpecialPages::CreateControl;
    void CreateControl(platform::View* view, const char* withTitle, bool CDFSupport);
    /// Hides the view and sets no text.
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool InitializeTitle(platform::Bundle* bundle) override;
    /// Hidden afterwards on systems below 10.7.
    void ResetStatus() override;

  private:
    bool IsCDFSupported = false;
};

} // namespace specialpages
