// The formatter of a field in inches or millimetres.
#pragma once

#include "controls/NumberTextEditFormatter.h"

namespace specialpages {

class SPInchMMTextEditFormatterEMF : public NumberTextEditFormatter {
  public:
    /// How many bytes of a text longer than the field's limit are handed over.
    static constexpr std::size_t kRawBytes = 15;

    SPInchMMTextEditFormatterEMF(const TextEditFilterData* filter,
                                 const EditValueRangeData* textEditValueRange, std::uint32_t withMaxlength,
                                 std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl);
};

} // namespace specialpages
