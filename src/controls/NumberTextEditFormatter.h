// The formatter of a field that holds a number and works together with a stepper: what the formatters of all
// number fields have in common. It lets every text through; one that is a number in the range it hands to
// its field as a raw text, which then tells the stepper and the twin.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/TextEditFormatterEMFSpecialPages.h"

#include <memory>
#include <optional>
#include <string>

namespace specialpages {

class NumberTextEditFormatter : public TextEditFormatterEMFSpecialPages {
  public:
    /// The tables are borrowed, the range (null: no number is valid) for as long as the field lives. The
    /// field may end before the formatter, which then hands over nothing more. Of a raw text at most
    /// `withMaxlength` bytes are handed over, and at least `rawBytes` when it has so many.
    NumberTextEditFormatter(const TextEditFilterData* filter, const EditValueRangeData* textEditValueRange,
                            std::uint32_t withMaxlength,
                            std::weak_ptr<TextEditCtrlEMFSpecialPages> brotherContrl, std::size_t rawBytes);

    /// Accepts every text. One that equals the last valid one does nothing more. Otherwise the field's UI
    /// block becomes the raw text, or empty with size 0 when the text is no valid number, after a valid one
    /// was handed over.
    bool getObjectValue(std::string& object, const std::string& string,
                        std::string* errorDescription) override;

  protected:
    /// Whether the integer at the head of the text lies in the range, both ends included. Asked only while
    /// the field lives.
    virtual bool IsNumberValid(const std::string& text) const;
    const EditValueRangeData* editValueRangeDataPtr = nullptr;

  private:
    std::weak_ptr<TextEditCtrlEMFSpecialPages> BrotherContrl;
    std::size_t rawBytes_;
    std::optional<std::string> lastString;
};

} // namespace specialpages
