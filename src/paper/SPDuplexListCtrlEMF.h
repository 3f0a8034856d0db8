// A sidedness list: each item stands for choices of "Duplex", and is disabled while the paper of the related
// paper menu forbids one of them. Position 0 is never touched.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "paper/SidednessList.h"

#include <string>

namespace specialpages {

class SPDuplexListCtrlEMF : public PopupControlEMFSpecialPages, public SidednessList {
  public:
    using PopupControlEMFSpecialPages::CreateControl;
    /// `relatedSubMenuCtrl` is the tag of a paper menu; 0: none. Tables are borrowed; a null key or an empty
    /// table takes no part.
    void CreateControl(platform::View* view, const PopupIniData* IniData,
                       const ConstraintRecord* ConstrainArray, const AccessInfo* accessInfo,
                       std::string_view usernamein, const char* equalPPDKey,
                       DuplexChoiceTable relatePPDChoiceArray, ControlTag relatedSubMenuCtrl);

    std::optional<DuplexChoices> getCurrentDuplexArray() const override;
    std::optional<DuplexChoices> getDuplexArrayFromIndex(std::int64_t index) const override {
        return duplex_choices_at(referencePPDChoiceArray, index);
    }
    DuplexChoiceTable duplexChoiceTable() const override { return referencePPDChoiceArray; }

    /// Answers 0; nothing without a related menu.
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override;
    bool UIEventHandler() override;

  protected:
    std::string referencePPDKey;
    DuplexChoiceTable referencePPDChoiceArray;
    ControlTag relateSubMenuControlID = 0;
};

} // namespace specialpages
