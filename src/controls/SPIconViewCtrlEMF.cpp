#include "controls/SPIconViewCtrlEMF.h"

#include "platform/toolkit/IconView.h"
#include "support/plugin_bundle.h"

#include <utility>

namespace specialpages {

void SPIconViewCtrlEMF::CreateControl(platform::View* view, ControlTag viewTag, std::string iconName) {
    CreateControl(view);
    if (view != nullptr) {
        view->setTag(viewTag);
    }
    IconName = std::move(iconName);
}

bool SPIconViewCtrlEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    if (auto* view = dynamic_cast<platform::IconView*>(ControlPtr); view != nullptr) {
        view->drawIcon(pluginBundle().get(), IconName);
    }
    return true;
}

} // namespace specialpages
