#include "controls/SPScrollViewCtrlEMF.h"

#include "platform/toolkit/TextField.h"

namespace specialpages {

void SPScrollViewCtrlEMF::CreateControl(platform::View* view, ControlTag tag,
                                        const ScrollViewIniData* IniData) {
    CreateControl(view);
    scrollViewIniDataPtr = IniData;
    if (view != nullptr) {
        view->setTag(tag);
    }
}

bool SPScrollViewCtrlEMF::SetDefaultValueToUI() {
    auto* view = dynamic_cast<platform::TextField*>(ControlPtr);
    if (view != nullptr && scrollViewIniDataPtr != nullptr && scrollViewIniDataPtr->defaultText != nullptr) {
        view->setStringValue(scrollViewIniDataPtr->defaultText);
    }
    return true;
}

void SPScrollViewCtrlEMF::setViewEnabled(bool enabled) {
    if (auto* view = dynamic_cast<platform::TextField*>(ControlPtr)) {
        view->setTextColor(enabled ? platform::TextColor::controlTextColor
                                   : platform::TextColor::disabledControlTextColor);
    }
}

} // namespace specialpages
