// A small modal question that asks the user to confirm a deletion of special pages. Its window's title bar
// stays empty; the words stand in two static texts, beside the sign that it is a warning.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"

namespace specialpages {

namespace platform {
class IconView;
}

class SPWarningWndOKButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

class SPWarningWndCancelButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

class StaticTextEditControlEMFSpecialPages;

/// Tags of its views.
inline constexpr ControlTag spWarningWndIconID = 801;
inline constexpr ControlTag spWarningWndTitleID = 802;
inline constexpr ControlTag spWarningWndMessageID = 803;
inline constexpr ControlTag spWarningWndOKButID = 804;
inline constexpr ControlTag spWarningWndCancelButID = 805;

class SPWarningWndEMF : public PopupWinInPanelEMFSpecialPages {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    std::int32_t InitializeUserPaneTitle(platform::Bundle* bundle) override;
    /// Runs the window modally, when there is one; its texts are set beforehand and nothing is rebuilt.
    std::int32_t ActivateWindow() override;
    /// 0 the user agreed, 1 the user cancelled; the answer of the last showing, 1 before the first.
    std::int32_t getWarningWndExitStatus() const { return exitStatus; }
    void setWarningWndExitStatus(std::int32_t status) { exitStatus = status; }
    /// The question: 0 the selected pages, 1 all pages; any other number changes nothing.
    void setWarningStrWindow(std::int32_t kind);

  private:
    std::int32_t exitStatus = 1;
    platform::IconView* WarningWndIconImage = nullptr; ///< the window's; null when that has none
    StaticTextEditControlEMFSpecialPages* spWarningTitleTextCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spWarningMessageTextCtrlPtr = nullptr;
    SPWarningWndOKButCtrlEMF* spWarningOKButPtr = nullptr;
    SPWarningWndCancelButCtrlEMF* spWarningCancelButPtr = nullptr;
};

} // namespace specialpages
