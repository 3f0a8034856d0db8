// The number of sheets as a field beside its stepper, which is the first tag of the field's update row. The
// stepper holds the number that counts; a number in range that is entered here goes there.
#pragma once

#include "controls/SPTextEditCtrlEMF.h"

#include <string>

namespace specialpages {

class SPAddInsertQuantityTextEditEMF : public SPTextEditCtrlEMF {
  public:
    /// Whether the text is a number in the range. An empty text is the number 0.
    bool IsNumberValid(const std::string& text) const;
    /// A field that is neither hidden nor disabled, by its counts, needs a number of legal length in the
    /// range.
    bool InvalidateData() override;
    bool InvalidateDataAndReturnError() override;
    std::int32_t OnRawKeyUp(const std::string& text) override;
    void OnLostFocus();
    void RequestControlAction(platform::View* /*sender*/) override { OnLostFocus(); }
    /// Shows the stepper's number.
    bool CorrectCtrlUI() override;

  private:
    BaseControlEMFSpecialPages* stepperControl() const;
    bool holdsNumber();

    std::string pDisplay; ///< what was last shown in place of a text that was corrected
};

} // namespace specialpages
