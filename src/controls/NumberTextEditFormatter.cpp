#include "controls/NumberTextEditFormatter.h"

#include "platform/foundation/numbers.h"

#include <algorithm>
#include <utility>

namespace specialpages {

NumberTextEditFormatter::NumberTextEditFormatter(const TextEditFilterData* filter,
                                                 const EditValueRangeData* textEditValueRange,
                                                 std::uint32_t withMaxlength,
                                                 std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl,
                                                 std::size_t rawBytes)
    : TextEditFormatterEMFSpecialPages(filter, withMaxlength), editValueRangeDataPtr(textEditValueRange),
      BrotherContrl(std::move(brotherContrl)), rawBytes_(std::max<std::size_t>(rawBytes, withMaxlength)) {}

bool NumberTextEditFormatter::getObjectValue(std::string& object, const std::string& string,
                                             std::string* /*errorDescription*/) {
    object = string;
    const auto brother = BrotherContrl.lock();
    if (brother == nullptr || brother->isTellingNeighbours() || lastString == string) {
        return true;
    }
    std::string raw;
    if (IsNumberValid(string)) {
        lastString = string;
        raw = block_text(string, rawBytes_);
        brother->tellNeighbours(raw);
    }
    brother->setUIText(raw);
    return true;
}

bool NumberTextEditFormatter::IsNumberValid(const std::string& text) const {
    const std::int32_t number = platform::int_value(text);
    return editValueRangeDataPtr != nullptr && number >= editValueRangeDataPtr->minimum &&
           number <= editValueRangeDataPtr->maximum;
}

} // namespace specialpages
