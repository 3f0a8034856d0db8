// The formatters of the custom size fields: they hand over a text that has the form of its unit and a value
// in the range. Which bytes it is made of only the field itself asks.
#pragma once

#include "controls/SPInchMMTextEditFormatterEMF.h"
#include "controls/custom_size_range.h"
#include "dialogs/custom_size_values.h"

#include <cstdint>
#include <string>

namespace specialpages {

template <std::int32_t longMeasure>
class CustomSizeTextEditFormatter : public SPInchMMTextEditFormatterEMF {
  public:
    using SPInchMMTextEditFormatterEMF::SPInchMMTextEditFormatterEMF;

  protected:
    bool IsNumberValid(const std::string& text) const override {
        return editValueRangeDataPtr != nullptr && is_custom_size(text, longMeasure, *editValueRangeDataPtr);
    }
};

using SPCustomSizeMMTextEditFormatterEMF = CustomSizeTextEditFormatter<kLongMeasureMillimetres>;
using SPCustomSizeInchesTextEditFormatterEMF = CustomSizeTextEditFormatter<kLongMeasureInches>;

} // namespace specialpages
