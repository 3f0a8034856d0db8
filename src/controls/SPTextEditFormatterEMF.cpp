#include "controls/SPTextEditFormatterEMF.h"

#include <utility>

namespace specialpages {

SPTextEditFormatterEMF::SPTextEditFormatterEMF(const TextEditFilterData* filter,
                                               const EditValueRangeData* textEditValueRange,
                                               std::uint32_t withMaxlength,
                                               std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl)
    : NumberTextEditFormatter(filter, textEditValueRange, withMaxlength, std::move(brotherContrl),
                              kRawBytes) {}

} // namespace specialpages
