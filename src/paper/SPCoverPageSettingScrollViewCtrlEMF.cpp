#include "paper/SPCoverPageSettingScrollViewCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "paper/CoversWindow.h"
#include "paper/SPCoversWinListCtrlEMF.h"
#include "paper/covers_tags.h"
#include "platform/toolkit/View.h"

namespace specialpages {

std::int32_t SPCoverPageSettingScrollViewCtrlEMF::Update() {
    getCoversPageInfomation();
    return 0;
}

void SPCoverPageSettingScrollViewCtrlEMF::getCoversPageInfomation() {
    auto* window = dynamic_cast<CoversWindow*>(ctrlParentPanelPtr);
    const auto* options = window == nullptr ? nullptr : window->getSPCoversOptionsListPtr();
    if (options == nullptr || ControlPtr == nullptr) {
        return;
    }
    const bool front = ControlPtr->tag() == spCoversWndFrontCoverPageViewID;
    const bool back = ControlPtr->tag() == spCoversWndBackCoverPageViewID;
    const std::int64_t position = options->selectedPosition();
    if ((!front && !back) || position < static_cast<std::int64_t>(CoverOption::none) ||
        position > static_cast<std::int64_t>(CoverOption::different)) {
        return;
    }
    const auto option = static_cast<CoverOption>(position);
    const bool shown = option == CoverOption::same || option == CoverOption::different ||
                       (front && option == CoverOption::frontOnly) ||
                       (back && option == CoverOption::backOnly);
    if (shown) {
        SPPageSettingScrollViewCtrlEMF::Update();
    } else {
        SetNULLValueToUI();
    }
}

} // namespace specialpages
