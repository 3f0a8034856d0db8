// The modal window behind the size "Custom" of a paper menu: width and length of the paper, in millimetres or
// in inches. There is a set of controls for either unit, kept in step, of which one shows. The paper menu
// owns the result: OK gives it width and length, always as the text in millimetres, and the unit in which
// they are to be shown again.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "paper/paper_windows.h"

#include <cstdint>
#include <memory>
#include <string>

namespace specialpages {

class DialogBuilder;
class RadioGroupEMFSpecialPages;
class SPCancelButCtrlEMF;
class SPCustomSizeInchesLittleArrowControlEMF;
class SPCustomSizeInchesTextEditCtrlEMF;
class SPCustomSizeInchMMRadioButtonEMF;
class SPCustomSizeMMLittleArrowControlEMF;
class SPCustomSizeMMTextEditCtrlEMF;
class SPHelpButtonEMF;
class SPRestoreButtonEMF;
class SPStaticTextEditControlEMF;
class StaticTextEditControlEMFSpecialPages;

class SPCustomSizeOKButtonEMF : public BaseButtonEMFSpecialPages {
  public:
    /// False, and the window stays open, after the first field that refused and showed its message.
    bool UIEventHandler() override;
};

class SPCustomSizeWndEMF : public PopupWinInPanelEMFSpecialPages, public CustomSizeWindow {
  public:
    SPCustomSizeWndEMF();
    ~SPCustomSizeWndEMF() override;

    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// The title comes from the PPD's table.
    std::int32_t InitializeUserPaneTitle(platform::Bundle* bundle) override;

    void SetSubMenuList(SPSubMenuListCtrlEMF* menu) override { m_pSubMenuList = menu; }
    SPSubMenuListCtrlEMF* GetSubMenuList() override { return m_pSubMenuList; }
    std::string defaultCustomWidth() const override;
    std::string defaultCustomLength() const override;
    SPCustomSizeMMTextEditCtrlEMF* getSPCustomSizeWidthMMTextEditCtrlPtr() {
        return SPCustomSizeWidthMMTextEditCtrl;
    }
    SPCustomSizeMMTextEditCtrlEMF* getSPCustomSizeLengthMMTextEditCtrlPtr() {
        return SPCustomSizeLengthMMTextEditCtrl;
    }
    /// 0 while the inches radio is on, else 1.
    std::int32_t getCustomPageSizeLongMeasure() const;

    // What OK does, in its order.

    /// Whether every control accepts what it shows; the first that does not has shown its message.
    bool controlsAreValid();
    /// Width, length and unit go to the paper menu.
    void giveBackSize();

  private:
    void addWidth(DialogBuilder& add);
    void addLength(DialogBuilder& add);
    void addUnits(DialogBuilder& add);

    SPStaticTextEditControlEMF* SPCustomSizeWidthMMSTextCtrl = nullptr;
    SPCustomSizeMMTextEditCtrlEMF* SPCustomSizeWidthMMTextEditCtrl = nullptr;
    SPCustomSizeMMLittleArrowControlEMF* SPCustomSizeWidthMMLarrowCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* SPCustomSizeWidthMMSideSTextCtrl = nullptr;
    SPStaticTextEditControlEMF* SPCustomSizeWidthInchSTextCtrl = nullptr;
    SPCustomSizeInchesTextEditCtrlEMF* SPCustomSizeWidthInchTextEditCtrl = nullptr;
    SPCustomSizeInchesLittleArrowControlEMF* SPCustomSizeWidthInchLarrowCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* SPCustomSizeWidthInchSideSTextCtrl = nullptr;
    SPStaticTextEditControlEMF* SPCustomSizeLengthMMSTextCtrl = nullptr;
    SPCustomSizeMMTextEditCtrlEMF* SPCustomSizeLengthMMTextEditCtrl = nullptr;
    SPCustomSizeMMLittleArrowControlEMF* SPCustomSizeLengthMMLarrowCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* SPCustomSizeLengthMMSideSTextCtrl = nullptr;
    SPStaticTextEditControlEMF* SPCustomSizeLengthInchSTextCtrl = nullptr;
    SPCustomSizeInchesTextEditCtrlEMF* SPCustomSizeLengthInchTextEditCtrl = nullptr;
    SPCustomSizeInchesLittleArrowControlEMF* SPCustomSizeLengthInchLarrowCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* SPCustomSizeLengthInchSideSTextCtrl = nullptr;
    std::unique_ptr<RadioGroupEMFSpecialPages> SPCustomSizeInchMmGroupPtr;
    SPCustomSizeInchMMRadioButtonEMF* SPCustomSizeEditWndMMRadioButPtr = nullptr;
    SPCustomSizeInchMMRadioButtonEMF* SPCustomSizeEditWndInchesRadioButPtr = nullptr;
    SPCustomSizeOKButtonEMF* SPCustomSizeWndOKPushCtrl = nullptr;
    SPCancelButCtrlEMF* SPCustomSizeWndCancelPushCtrl = nullptr;
    SPRestoreButtonEMF* SPCustomSizeWndDefaultPushCtrl = nullptr;
    SPHelpButtonEMF* SPCustomSizeWndHelpPushCtrl = nullptr;
    SPSubMenuListCtrlEMF* m_pSubMenuList = nullptr;
};

} // namespace specialpages
