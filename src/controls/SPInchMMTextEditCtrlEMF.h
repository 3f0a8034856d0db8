// A number field in inches or millimetres: the shared logic of a pair of field and stepper, of which each
// unit has its own subclass with its conversions. The first tag of the field's update row is its stepper, the
// second the field of the other unit.
//
// A field that is hidden or disabled is never validated. In a field that is, emptiness is an error for
// InvalidateData and none for InvalidateDataAndReturnError, which also leaves the length alone.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"

namespace specialpages {

class LittleArrayEMFSpecialPages;

class SPInchMMTextEditCtrlEMF : public TextEditCtrlEMFSpecialPages {
  public:
    using TextEditCtrlEMFSpecialPages::CreateControl;
    /// The range is copied (null: 0 to 0), the other tables are borrowed. `titleInfo` is a key (not copied: a
    /// constant).
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData,
                       const char* titleInfo, const EditValueRangeData* ValueRange);

    void InitializeCtrlFormat() override;
    bool InvalidateData() override;
    bool InvalidateDataAndReturnError() override;
    /// Every text is a number here; a unit says which ones are.
    virtual bool IsNumberValid(const std::string& text);
    /// The field was left: brings itself and its neighbours up to date.
    void OnLostFocus();

    /// Null when the row has no such tag, or the panel no such control.
    LittleArrayEMFSpecialPages* GetLittleArrayForNumberEdit();
    SPInchMMTextEditCtrlEMF* GetTextEditForNumberEdit();
    const EditValueRangeData* getRangeDataPtr() const { return &inchMMEditValueRangeData; }

  protected:
    /// What the field last showed in place of a text that was corrected.
    std::string pDisplay;
    const char* titletextRef = nullptr;
    EditValueRangeData inchMMEditValueRangeData;

  private:
    BaseControlEMFSpecialPages* neighbour(std::size_t place);
};

} // namespace specialpages
