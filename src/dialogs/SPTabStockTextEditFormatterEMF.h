// The formatters of the tab stock fields. Which bytes a text is made of only the field itself asks.
#pragma once

#include "controls/NumberTextEditFormatter.h"
#include "controls/SPInchMMTextEditFormatterEMF.h"
#include "controls/custom_size_range.h"
#include "dialogs/tab_margin_values.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace specialpages {

/// Hands over every text whose leading integer lies in the range.
class SPNumInSeqTextEditFormatterEMF : public NumberTextEditFormatter {
  public:
    /// How many bytes of a text longer than the field's limit are handed over.
    static constexpr std::size_t kRawBytes = 5;

    SPNumInSeqTextEditFormatterEMF(const TextEditFilterData* filter,
                                   const EditValueRangeData* textEditValueRange, std::uint32_t withMaxlength,
                                   std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl)
        : NumberTextEditFormatter(filter, textEditValueRange, withMaxlength, std::move(brotherContrl),
                                  kRawBytes) {}
};

/// Hands over a text that has the form of its unit and a value in the range.
template <std::int32_t longMeasure>
class TabMarginTextEditFormatter : public SPInchMMTextEditFormatterEMF {
  public:
    using SPInchMMTextEditFormatterEMF::SPInchMMTextEditFormatterEMF;

  protected:
    bool IsNumberValid(const std::string& text) const override {
        return editValueRangeDataPtr != nullptr && is_tab_margin(text, longMeasure, *editValueRangeDataPtr);
    }
};

using SPTabMMTextEditFormatterEMF = TabMarginTextEditFormatter<kLongMeasureMillimetres>;
using SPTabInchTextEditFormatterEMF = TabMarginTextEditFormatter<kLongMeasureInches>;

} // namespace specialpages
