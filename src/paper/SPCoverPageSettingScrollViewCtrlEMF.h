// The paper view of one cover, front or back by the tag of its view: empty while the cover option leaves its
// cover out.
#pragma once

#include "paper/SPPageSettingScrollViewCtrlEMF.h"

namespace specialpages {

class SPCoverPageSettingScrollViewCtrlEMF : public SPPageSettingScrollViewCtrlEMF {
  public:
    std::int32_t Update() override;
    /// A cover option that is none of the five leaves the view alone.
    void getCoversPageInfomation();
    void SetNULLValueToUI() { showText({}); }
};

} // namespace specialpages
