// The modal window behind "Advanced" of a paper menu: size, color and type as three plain pop-ups side by
// side with a summary, so that all three can be set at once. OK writes the three back into the paper menu
// that opened it and takes its interposer away; Cancel leaves the menu as it was.
//
// Which items are disabled follows the same conflicts as in the menu, with two differences: the last size
// follows the constraints like any other (tab stock has no say), and the records that the list of special
// pages has selected are always asked where a pop-up says "No Change".
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "paper/AdvancedPaperPanel.h"
#include "paper/paper_choice.h"
#include "paper/paper_conflicts.h"
#include "paper/paper_windows.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

class SPAdvPageSettingScrollViewEMF;
class SPCancelButCtrlEMF;
class SPHelpButtonEMF;
class SPRestoreButtonEMF;
class SPSummaryScrollViewCtrl;
class StaticTextEditControlEMFSpecialPages;

class SPAdvSeleOKBtnEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
};

class SPAdvSeleWndEMF : public PopupWinInPanelEMFSpecialPages,
                        public AdvancedPaperWindow,
                        public AdvancedPaperPanel {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens on the paper handed over last; nothing without a window.
    std::int32_t ActivateWindow() override;

    void SetPaperSize(std::int32_t size, std::int32_t andColor, std::int32_t andType,
                      bool andInterposer) override;
    void SetSubMenuList(SPSubMenuListCtrlEMF* menu) override { m_pSubMenuList = menu; }
    SPSubMenuListCtrlEMF* GetSubMenuList() override { return m_pSubMenuList; }
    void setDuplexControl(SidednessList* list) override { m_duplexCtrlPtr = list; }
    /// -1 offers "No Change" in that pop-up, any other status hides it. While pages are being added, and
    /// always for a menu of the covers dialog, it is hidden in all three.
    void SetSizeStatus(std::int32_t status) override { m_iSizeStatus = status; }
    void SetColorStatus(std::int32_t status) override { m_iColorStatus = status; }
    void SetTypeStatus(std::int32_t status) override { m_iTypeStatus = status; }
    std::int32_t GetSizeStatus() const { return m_iSizeStatus; }
    std::int32_t GetColorStatus() const { return m_iColorStatus; }
    std::int32_t GetTypeStatus() const { return m_iTypeStatus; }

    SPAdvSelePaperSizeListEMF* GetAdvPaperSizeListPtr() override { return m_SPAdvPaperSizeListPtr; }
    SPAdvSelePaperListEMF* GetAdvPaperColorListPtr() override { return m_SPAdvPaperColorListPtr; }
    SPAdvSelePaperListEMF* GetAdvPaperTypeListPtr() override { return m_SPAdvPaperTypeListPtr; }

    void doTransparencyConstraint() override;
    void updateSelectionArray() override;
    const std::vector<std::string>& getPpdKeyArray() const { return m_ppdKeyArray; }
    const std::vector<std::string>& getCurrentSelections() const { return m_currentSelectionArray; }
    void UpdateSelfConflictsFromPPD(ppd_file_s* ppd) override;
    /// Whether "option:choice" conflicts with what the pop-ups show and the rest of the job.
    bool isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD) const;

    // What OK does, in its order.

    /// The three positions become indexes of the menu that opened the window, which loses its interposer.
    void giveBackPaper();
    /// The views beside that menu.
    void updateOpenersViews();

  private:
    std::array<SPAdvSelePaperListEMF*, 3> lists() const;
    SPSummaryScrollViewCtrl* summary() const;
    PaperOptionKeys fixedKeys() const;
    void showHandedOverPaper();
    void offerNoChange();
    PaperMenuChoices menuChoices() const;
    /// With what is chosen now; the choices are borrowed from the items.
    PaperConflicts conflicts(ppd_file_s* ppd) const;

    StaticTextEditControlEMFSpecialPages* m_SPAdvSummaryTitlePtr = nullptr;
    SPAdvPageSettingScrollViewEMF* m_SPAdvSummaryViewPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPAdvPaperSizeTitlePtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPAdvPaperColorTitlePtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPAdvPaperTypeTitlePtr = nullptr;
    SPAdvSelePaperSizeListEMF* m_SPAdvPaperSizeListPtr = nullptr;
    SPAdvSelePaperListEMF* m_SPAdvPaperColorListPtr = nullptr;
    SPAdvSelePaperListEMF* m_SPAdvPaperTypeListPtr = nullptr;
    SPHelpButtonEMF* m_SPAdvHelpBtnPtr = nullptr;
    SPRestoreButtonEMF* m_SPAdvDefaultBtnPtr = nullptr;
    SPAdvSeleOKBtnEMF* m_SPAdvOKBtnPtr = nullptr;
    SPCancelButCtrlEMF* m_SPAdvCancelBtnPtr = nullptr;
    SPSubMenuListCtrlEMF* m_pSubMenuList = nullptr;
    /// Positions in the pop-ups, the menu's indexes + 1: 0 is "No Change".
    std::int32_t m_iPaperSize = 0;
    std::int32_t m_iPaperColor = 0;
    std::int32_t m_iPaperType = 0;
    bool m_bInterposer = false;
    std::int32_t m_iSizeStatus = 0;
    std::int32_t m_iColorStatus = 0;
    std::int32_t m_iTypeStatus = 0;
    SidednessList* m_duplexCtrlPtr = nullptr;
    std::vector<std::string> m_ppdKeyArray;
    std::vector<std::string> m_currentSelectionArray; ///< parallel to m_ppdKeyArray
};

} // namespace specialpages
