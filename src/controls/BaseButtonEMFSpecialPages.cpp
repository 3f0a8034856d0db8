#include "controls/BaseButtonEMFSpecialPages.h"

#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Button.h"
#include "support/identifiers.h"

namespace specialpages {

void BaseButtonEMFSpecialPages::CreateControl(platform::View* view, const char* withTitle) {
    CreateControl(view);
    controlTitleStrRef = withTitle;
}

bool BaseButtonEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD) && InitializeTitle(bundle);
}

bool BaseButtonEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return BaseControlEMFSpecialPages::ReInitializeCtrl(bundle, withPPD) && InitializeTitle(bundle);
}

bool BaseButtonEMFSpecialPages::InitializeTitle(platform::Bundle* bundle) {
    auto* button = dynamic_cast<platform::Button*>(ControlPtr);
    if (controlTitleStrRef == nullptr || bundle == nullptr || button == nullptr) {
        return false;
    }
    button->setTitle(localized(*bundle, controlTitleStrRef, kNoTranslation));
    return true;
}

} // namespace specialpages
