#include "dialogs/dialog_builder.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "paper/SPJobSettingScrollViewCtrlEMF.h"
#include "paper/SPPageSettingScrollViewCtrlEMF.h"
#include "paper/SPSelectPaperListCtrlEMF.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_keywords.h"

namespace specialpages {

namespace {

PaperOptionKeys paper_option_keys() {
    return {kPPDPageSizeKey, kPPDMediaColorKey, kPPDMediaTypeKey};
}

} // namespace

platform::View* DialogBuilder::view(ControlTag tag) const {
    return window_ == nullptr ? nullptr : window_->viewWithTag(tag);
}

void DialogBuilder::createPaperMenu(SPSelectPaperListCtrlEMF& control, platform::View* view,
                                    const PaperMenuTables& tables) {
    control.CreateControl(view, kPPDPageSizeKey, kPPDMediaColorKey, kPPDMediaTypeKey, tables.iniData,
                          tables.constraints, nullptr, {}, tables.windowType, tables.duplexControl);
}

void DialogBuilder::createPaperView(SPPageSettingScrollViewCtrlEMF& control, platform::View* view,
                                    ControlTag tag, const ScrollViewIniData& iniData,
                                    SPSelectPaperListCtrlEMF* menu) {
    control.CreateControl(view, tag, &iniData, paper_option_keys(), menu);
}

void DialogBuilder::title(StaticTextEditControlEMFSpecialPages*& field, ControlTag tag, const char* key) {
    add(field, tag, [key](StaticTextEditControlEMFSpecialPages& control, platform::View* view) {
        control.CreateControl(view, nullptr, nullptr, {}, key);
    });
}

void DialogBuilder::jobView(SPJobSettingScrollViewCtrlEMF*& field, ControlTag tag,
                            const ScrollViewIniData& iniData) {
    add(field, tag, [&](SPJobSettingScrollViewCtrlEMF& control, platform::View* view) {
        control.CreateControl(view, tag, &iniData, paper_option_keys());
    });
}

void DialogBuilder::help(SPHelpButtonEMF*& field, ControlTag tag, const char* page) {
    add(field, tag, [page](SPHelpButtonEMF& control, platform::View* view) {
        control.CreateControl_withHelpName(view, page);
    });
}

} // namespace specialpages
