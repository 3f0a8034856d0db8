// A text field whose number has a range but no unit.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"

namespace specialpages {

class SPTextEditCtrlEMF : public TextEditCtrlEMFSpecialPages {
  public:
    using TextEditCtrlEMFSpecialPages::CreateControl;
    /// The range is copied (null: 0 to 0), the other tables are borrowed.
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData,
                       const EditValueRangeData* ValueRange);
    void InitializeCtrlFormat() override;

  protected:
    EditValueRangeData m_SPEditValueRangeData;
};

} // namespace specialpages
