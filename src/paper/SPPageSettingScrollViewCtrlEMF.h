// The read-only view of what paper a special page will use, as one paper menu has it.
#pragma once

#include "controls/SPScrollViewCtrlEMF.h"
#include "paper/paper_choice.h"

#include <array>
#include <optional>
#include <string>

namespace specialpages {

class SPSelectPaperListCtrlEMF;

class SPPageSettingScrollViewCtrlEMF : public SPScrollViewCtrlEMF {
  public:
    using SPScrollViewCtrlEMF::CreateControl;
    /// `selectPageControl` is borrowed; null: the view keeps its text.
    void CreateControl(platform::View* view, ControlTag tag, const ScrollViewIniData* IniData,
                       PaperOptionKeys ppdKeys, SPSelectPaperListCtrlEMF* selectPageControl);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    std::int32_t Update() override;
    /// Shows the paper anew: when all controls show their defaults, the text of the table is in the view
    /// until here, while the menu has a paper.
    bool SimulationUIEventHandler() override;
    /// Shows the menu's paper; false without a menu or a view.
    bool getPageInfomation();

  protected:
    void showText(std::string text);

  private:
    std::string pageText() const;
    std::string words(const char* key) const;

    PaperOptionKeys keys; ///< KPPDKeySize, KPPDKeyColor, KPPDKeyType
    ppd_file_s* ppd_ = nullptr;
    std::array<std::optional<std::string>, 3> labels; ///< KPPDSizeStr, KPPDColorStr, KPPDTypeStr
    SPSelectPaperListCtrlEMF* selectPageControlPtr = nullptr;
};

} // namespace specialpages
