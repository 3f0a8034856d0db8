// The formatter of a plain number field.
#pragma once

#include "controls/NumberTextEditFormatter.h"

namespace specialpages {

class SPTextEditFormatterEMF : public NumberTextEditFormatter {
  public:
    /// How many bytes of a text longer than the field's limit are handed over.
    static constexpr std::size_t kRawBytes = 5;

    SPTextEditFormatterEMF(const TextEditFilterData* filter, const EditValueRangeData* textEditValueRange,
                           std::uint32_t withMaxlength,
                           std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl);
};

} // namespace specialpages
