#include "controls/SPInchMMTextEditFormatterEMF.h"

#include <utility>

namespace specialpages {

SPInchMMTextEditFormatterEMF::SPInchMMTextEditFormatterEMF(
    const TextEditFilterData* filter, const EditValueRangeData* textEditValueRange,
    std::uint32_t withMaxlength, std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl)
    : NumberTextEditFormatter(filter, textEditValueRange, withMaxlength, std::move(brotherContrl),
                              kRawBytes) {}

} // namespace specialpages
