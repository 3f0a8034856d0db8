#include "paper/SPDuplexListCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "paper/conflict_tips.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"

namespace specialpages {

void SPDuplexListCtrlEMF::CreateControl(platform::View* view, const PopupIniData* IniData,
                                        const ConstraintRecord* ConstrainArray, const AccessInfo* accessInfo,
                                        std::string_view usernamein, const char* equalPPDKey,
                                        DuplexChoiceTable relatePPDChoiceArray,
                                        ControlTag relatedSubMenuCtrl) {
    CreateControl(view, IniData, ConstrainArray, accessInfo, usernamein);
    referencePPDKey = equalPPDKey == nullptr ? "" : equalPPDKey;
    referencePPDChoiceArray = relatePPDChoiceArray;
    relateSubMenuControlID = relatedSubMenuCtrl;
}

std::optional<DuplexChoices> SPDuplexListCtrlEMF::getCurrentDuplexArray() const {
    return popup() == nullptr ? std::nullopt : getDuplexArrayFromIndex(popup()->indexOfSelectedItem());
}

std::int32_t SPDuplexListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) {
    if (relateSubMenuControlID == 0 || ctrlParentPanelPtr == nullptr || popup() == nullptr) {
        return 0;
    }
    const auto* menu =
        dynamic_cast<SPSelectPaperListCtrlEMF*>(ctrlParentPanelPtr->GetPanelControl(relateSubMenuControlID));
    if (menu == nullptr) {
        return 0;
    }
    const PaperSelectionArray selection = menu->getCurrentSelectionArray();
    const PaperOptionKeys keys{kPPDPageSizeKey, FixPPDKeywordAccordingToType(ppd, kPPDMediaColorKey),
                               kPPDMediaTypeKey};
    const auto index = ctrlParentPanelPtr->Getxppd();
    ConflictTips tips(ctrlParentPanelPtr->GetPDEBundleRef());
    for (std::int64_t position = 1; position < popup()->numberOfItems(); ++position) {
        const DuplexChoices choices = getDuplexArrayFromIndex(position).value_or(DuplexChoices{});
        tips.show(*popup()->menu().itemAtIndex(position),
                  duplex_item_conflict(ppd, index.get(), referencePPDKey, choices, keys, selection));
    }
    return 0;
}

bool SPDuplexListCtrlEMF::UIEventHandler() {
    if (ctrlParentPanelPtr != nullptr) {
        ctrlParentPanelPtr->UpdateConflictsPanelControlFromPPD(ctrlParentPanelPtr->GetCurrentPPD());
    }
    return PopupControlEMFSpecialPages::UIEventHandler();
}

} // namespace specialpages
