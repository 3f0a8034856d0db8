// The read-only view of what paper the job as a whole is set to.
#pragma once

#include "controls/SPScrollViewCtrlEMF.h"
#include "paper/paper_choice.h"

#include <array>
#include <string>

namespace specialpages {

class SPJobSettingScrollViewCtrlEMF : public SPScrollViewCtrlEMF {
  public:
    using SPScrollViewCtrlEMF::CreateControl;
    void CreateControl(platform::View* view, ControlTag tag, const ScrollViewIniData* IniData,
                       PaperOptionKeys ppdKeys);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Reads the marks anew and shows the text.
    bool SetControlValueToUI() override;
    /// The same: the job's paper does not change when all controls show their defaults.
    bool SimulationUIEventHandler() override;
    /// False, and the text stays as it was, without a PPD, one of the options, or a choice of one of them.
    bool getJobInfomationFromPPD();
    const std::string& jobSetting() const { return JobSettingStr; }

  private:
    PaperOptionKeys keys; ///< KPPDKeySize, KPPDKeyColor, KPPDKeyType
    ppd_file_s* ppd_ = nullptr;
    std::array<ppd_option_s*, 3> options{}; ///< sizePPDOptions, colorPPDOptions, typePPDOptions
    std::string JobSettingStr;
};

} // namespace specialpages
