// The title of a custom size field: a localised format with two places, into which the limits of the PPD go.
#pragma once

#include "controls/StaticTextEditControlEMFSpecialPages.h"

namespace specialpages {

class SPStaticTextEditControlEMF : public StaticTextEditControlEMFSpecialPages {
  public:
    using StaticTextEditControlEMFSpecialPages::CreateControl;
    /// `summaryInfo` is the key of the format (not copied: a constant). The flags are those of
    /// custom_size_range.h: inches or millimetres, width or length.
    void CreateControl(platform::View* view, const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const char* summaryInfo, std::int32_t longMeasure,
                       std::int32_t SizeFlag);
    /// False, and the view keeps its text, without a bundle, a parent, a PPD, a key or a view, and for any
    /// other unit. The limits stay empty when the PPD does not name them.
    bool InitializeTitle(platform::Bundle* bundle) override;

  private:
    std::int32_t m_FathomFlag = 0;
    std::int32_t m_customSize_flag = 0;
};

} // namespace specialpages
