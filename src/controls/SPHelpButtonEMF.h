// The help button of the pane and of every dialog. Which page it opens follows the device: the PPD's product
// attribute names a resource suffix, which takes the place of the page's default name.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"

#include <array>
#include <string_view>

namespace specialpages {

struct HelpFile {
    std::string_view prefix;
    std::string_view defaultFile;
};

inline constexpr std::array<HelpFile, 7> SpecialPagesHelpString{{
    {"SpecialPagesMain_", "SpecialPagesMain.htm"},
    {"SpecialPagesCover_", "SpecialPagesCover.htm"},
    {"SpecialPagesInsert_", "SpecialPagesInsert.htm"},
    {"SpecialPagesException_", "SpecialPagesException.htm"},
    {"SpecialPagesAdv_", "SpecialPagesAdv.htm"},
    {"SpecialPagesCustom_", "SpecialPagesCustom.htm"},
    {"SpecialPagesNumInSequence_", "SpecialPagesNumInSequence.htm"},
}};

class SPHelpButtonEMF : public BaseButtonEMFSpecialPages {
  public:
    using BaseButtonEMFSpecialPages::CreateControl;
    /// The name of the help page; a name that was given earlier stays.
    void CreateControl_withHelpName(platform::View* view, std::string_view withHelpName);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Opens the page; true whatever the help viewer answered.
    bool UIEventHandler() override;
    const std::string& helpFileName() const { return helpfilename; }

  private:
    std::string helpfilename;
};

} // namespace specialpages
