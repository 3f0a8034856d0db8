#include "paper/SPTwoSidePrintListCtrlEMF.h"

#include "platform/toolkit/PopUpButton.h"

namespace specialpages {

bool SPTwoSidePrintListCtrlEMF::SetControlValueToUI() {
    if (popup() == nullptr) {
        return false;
    }
    if (platform::MenuItem* noChange = popup()->menu().itemAtIndex(0)) {
        noChange->setHidden(twoSideStatus != 1);
    }
    return true;
}

} // namespace specialpages
