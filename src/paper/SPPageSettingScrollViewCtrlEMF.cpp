#include "paper/SPPageSettingScrollViewCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "paper/paper_menu.h"
#include "paper/paper_texts.h"
#include "platform/toolkit/TextField.h"
#include "records/record_tables.h"
#include "support/identifiers.h"

#include <utility>

namespace specialpages {

void SPPageSettingScrollViewCtrlEMF::CreateControl(platform::View* view, ControlTag tag,
                                                   const ScrollViewIniData* IniData, PaperOptionKeys ppdKeys,
                                                   SPSelectPaperListCtrlEMF* selectPageControl) {
    CreateControl(view, tag, IniData);
    keys = std::move(ppdKeys);
    selectPageControlPtr = selectPageControl;
}

bool SPPageSettingScrollViewCtrlEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!SPScrollViewCtrlEMF::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    ppd_ = withPPD;
    labels = paper_labels(withPPD, keys);
    return true;
}

std::int32_t SPPageSettingScrollViewCtrlEMF::Update() {
    getPageInfomation();
    return 0;
}

bool SPPageSettingScrollViewCtrlEMF::SimulationUIEventHandler() {
    Update();
    return true;
}

bool SPPageSettingScrollViewCtrlEMF::getPageInfomation() {
    if (selectPageControlPtr == nullptr || dynamic_cast<platform::TextField*>(ControlPtr) == nullptr) {
        return false;
    }
    showText(pageText());
    return true;
}

std::string SPPageSettingScrollViewCtrlEMF::pageText() const {
    PaperControlValue value;
    selectPageControlPtr->getControlValue(&value);
    if (value.interposer != 0) {
        return separator_text(ppd_, kInterposerKey).value_or(words(kInterposerKey)) + "\n";
    }
    const std::array<std::int64_t, 3> indexes{value.size, value.color, value.type};
    std::array<PaperLine, 3> lines;
    for (const PaperPart part : kPaperParts) {
        lines[part_index(part)] = {labels[part_index(part)],
                                   selectPageControlPtr->getSelectedMenuItemTitle(
                                       static_cast<std::int64_t>(part), indexes[part_index(part)])};
    }
    std::string text = page_setting_text(lines);
    return text.empty() ? words(kNoChangeInformationKey) : text;
}

std::string SPPageSettingScrollViewCtrlEMF::words(const char* key) const {
    platform::Bundle* bundle =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
    return bundle == nullptr ? std::string(kNotFound) : localized(*bundle, key, kNotFound);
}

void SPPageSettingScrollViewCtrlEMF::showText(std::string text) {
    if (auto* view = dynamic_cast<platform::TextField*>(ControlPtr)) {
        view->setStringValue(std::move(text));
        view->display();
    }
}

} // namespace specialpages
