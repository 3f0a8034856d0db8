#include "paper/SPAdvPageSettingScrollViewEMF.h"

#include "controls/ControlPanel.h"
#include "paper/AdvancedPaperPanel.h"
#include "paper/SPAdvSelePaperListEMF.h"
#include "paper/paper_texts.h"
#include "platform/toolkit/TextField.h"
#include "ppd/ppd_access.h"
#include "support/identifiers.h"

#include <utility>

namespace specialpages {

void SPAdvPageSettingScrollViewEMF::CreateControl(platform::View* view, ControlTag tag,
                                                  const ScrollViewIniData* IniData, PaperOptionKeys ppdKeys) {
    CreateControl(view, tag, IniData);
    keys = std::move(ppdKeys);
}

bool SPAdvPageSettingScrollViewEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    keys.color = FixPPDKeywordAccordingToType(withPPD, keys.color);
    labels = paper_labels(withPPD, keys);
    return SPScrollViewCtrlEMF::InitializeCtrl(bundle, withPPD);
}

std::int32_t SPAdvPageSettingScrollViewEMF::Update() {
    auto* window = dynamic_cast<AdvancedPaperPanel*>(ctrlParentPanelPtr);
    auto* view = dynamic_cast<platform::TextField*>(ControlPtr);
    if (window == nullptr || view == nullptr) {
        return 0;
    }
    const std::array<const SPAdvSelePaperListEMF*, 3> lists{window->GetAdvPaperSizeListPtr(),
                                                            window->GetAdvPaperColorListPtr(),
                                                            window->GetAdvPaperTypeListPtr()};
    std::array<PaperLine, 3> lines;
    for (std::size_t i = 0; i < lists.size(); ++i) {
        lines[i] = {labels[i], lists[i] == nullptr ? std::nullopt : lists[i]->selectedTitle()};
    }
    std::string text = page_setting_text(lines);
    if (text.empty()) {
        platform::Bundle* bundle = ctrlParentPanelPtr->GetPDEBundleRef();
        text = bundle == nullptr ? kNotFound : localized(*bundle, kNoChangeInformationKey, kNotFound);
    }
    view->setStringValue(std::move(text));
    return 0;
}

} // namespace specialpages
