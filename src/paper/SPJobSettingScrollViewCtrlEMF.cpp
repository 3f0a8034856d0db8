#include "paper/SPJobSettingScrollViewCtrlEMF.h"

#include "paper/paper_texts.h"
#include "platform/toolkit/TextField.h"
#include "ppd/cups_ppd.h"

#include <utility>

namespace specialpages {

void SPJobSettingScrollViewCtrlEMF::CreateControl(platform::View* view, ControlTag tag,
                                                  const ScrollViewIniData* IniData, PaperOptionKeys ppdKeys) {
    CreateControl(view, tag, IniData);
    keys = std::move(ppdKeys);
    JobSettingStr.clear();
}

bool SPJobSettingScrollViewCtrlEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!SPScrollViewCtrlEMF::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    ppd_ = withPPD;
    for (const PaperPart part : kPaperParts) {
        options[part_index(part)] = cups_find_option(withPPD, keys.of(part).c_str());
    }
    JobSettingStr.clear();
    getJobInfomationFromPPD();
    return true;
}

bool SPJobSettingScrollViewCtrlEMF::getJobInfomationFromPPD() {
    auto text = job_setting_text(ppd_, keys, options);
    if (!text) {
        return false;
    }
    JobSettingStr = std::move(*text);
    return true;
}

bool SPJobSettingScrollViewCtrlEMF::SetControlValueToUI() {
    getJobInfomationFromPPD();
    auto* view = dynamic_cast<platform::TextField*>(ControlPtr);
    if (view == nullptr) {
        return false;
    }
    view->setStringValue(JobSettingStr);
    return true;
}

bool SPJobSettingScrollViewCtrlEMF::SimulationUIEventHandler() {
    SetControlValueToUI();
    return true;
}

} // namespace specialpages
