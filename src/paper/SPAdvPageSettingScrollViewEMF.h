// The read-only summary of the advanced paper window: what its three pop-ups show.
#pragma once

#include "controls/SPScrollViewCtrlEMF.h"
#include "paper/paper_choice.h"

#include <array>
#include <optional>
#include <string>

namespace specialpages {

class SPAdvPageSettingScrollViewEMF : public SPScrollViewCtrlEMF {
  public:
    using SPScrollViewCtrlEMF::CreateControl;
    void CreateControl(platform::View* view, ControlTag tag, const ScrollViewIniData* IniData,
                       PaperOptionKeys ppdKeys);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// A line for each pop-up with a choice; without one, the words for "nothing is changed".
    std::int32_t Update() override;

  private:
    PaperOptionKeys keys;
    std::array<std::optional<std::string>, 3> labels; ///< KPPDSizeStr, KPPDColorStr, KPPDTypeStr
};

} // namespace specialpages
