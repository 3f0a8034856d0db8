#include "paper/SPAdvSelePaperListEMF.h"

#include "controls/ControlPanel.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "paper/AdvancedPaperPanel.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/paper_menu.h"
#include "paper/paper_windows.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_access.h"
#include "support/identifiers.h"

#include <utility>

namespace specialpages {

namespace {

/// Which top-level entry of the paper menu stands for the sizes: position - 1.
constexpr std::int64_t kSizeEntry = static_cast<std::int64_t>(PaperPart::size) - 1;

} // namespace

void SPAdvSelePaperListEMF::CreateControl(platform::View* view, PaperPart listPart, PaperOptionKeys ppdKeys,
                                          const PopupIniData* IniData,
                                          const ConstraintRecord* ConstrainArray) {
    CreateControl(view, IniData, ConstrainArray, nullptr, {});
    part = listPart;
    keys = std::move(ppdKeys);
}

bool SPAdvSelePaperListEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    keys.color = FixPPDKeywordAccordingToType(withPPD, keys.color);
    return PopupControlEMFSpecialPages::InitializeCtrl(bundle, withPPD);
}

bool SPAdvSelePaperListEMF::InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) {
    platform::PopUpButton* list = popup();
    if (list == nullptr) {
        return false;
    }
    m_defaultIdx = GetUIDefaultValueFromPPD(withPPD, key().c_str()) + (part == PaperPart::type ? 1 : 0);
    const auto title = [&](const char* word) {
        return bundle == nullptr ? std::string(kNoTranslation) : localized(*bundle, word, kNoTranslation);
    };
    list->removeAllItems();
    const ppd_option_t* option = cups_find_option(withPPD, key().c_str());
    for (SubMenuItem& each :
         sub_menu_items(part, keys, option, {title(kNoChangeKey), title(kCustomSizeTitleKey)})) {
        list->addItemWithTitle(std::move(each.title)).setRepresentedObject(std::move(each.representedObject));
    }
    noteChoices(withPPD);
    return true;
}

void SPAdvSelePaperListEMF::noteChoices(ppd_file_s* ppd) {
    m_iTypeTransparencyIndex = -1;
    m_iColorClearIndex = -1;
    TabStockIndexArray.clear();
    const ppd_option_t* option = cups_find_option(ppd, key().c_str());
    TransparencyIndexes found;
    note_transparency(option, found);
    if (part == PaperPart::color && found.clear >= 0) {
        m_iColorClearIndex = found.clear + 1;
    }
    if (part != PaperPart::type) {
        return;
    }
    if (found.transparency >= 0) {
        m_iTypeTransparencyIndex = found.transparency + 1;
    }
    TabStockIndexArray = tab_stock_indexes(option);
}

std::optional<ControlValue> SPAdvSelePaperListEMF::GetDefaultDataBlk() const {
    return m_defaultIdx + 1;
}

AdvancedPaperPanel* SPAdvSelePaperListEMF::panel() const {
    return dynamic_cast<AdvancedPaperPanel*>(ctrlParentPanelPtr);
}

void SPAdvSelePaperListEMF::RequestControlAction(platform::View*) {
    if (AdvancedPaperPanel* window = panel()) {
        if (part == PaperPart::type) {
            window->doTransparencyConstraint();
        }
        window->updateSelectionArray();
        window->UpdateSelfConflictsFromPPD(ctrlParentPanelPtr->GetCurrentPPD());
    }
    UIEventHandler();
}

std::int32_t SPAdvSelePaperListEMF::DoControlUpdateConstrain() {
    return DoBaseControlUpdateConstrain();
}

std::int64_t SPAdvSelePaperListEMF::GetPopupSelection() const {
    return popup() == nullptr ? -1 : popup()->indexOfSelectedItem();
}

void SPAdvSelePaperListEMF::SetSelection(std::int64_t position) {
    if (popup() != nullptr && position >= 0) {
        popup()->selectItemAtIndex(position);
    }
}

platform::Menu* SPAdvSelePaperListEMF::getSettingMenu() const {
    return popup() == nullptr ? nullptr : &popup()->menu();
}

std::string SPAdvSelePaperListEMF::getSelectedMenuItem() const {
    const std::int64_t index = GetPopupSelection() - 1;
    return index < 0 ? kNullChoice : getSelectedMenuItem(index).value_or(std::string());
}

std::optional<std::string> SPAdvSelePaperListEMF::getSelectedMenuItem(std::int64_t index) const {
    const platform::Menu* menu = getSettingMenu();
    const platform::MenuItem* item = menu == nullptr || index < 0 ? nullptr : menu->itemAtIndex(index + 1);
    return item == nullptr ? std::nullopt : item->representedObject();
}

std::optional<std::string> SPAdvSelePaperListEMF::selectedTitle() const {
    return GetPopupSelection() <= 0 ? std::nullopt : std::optional(popup()->titleOfSelectedItem());
}

void SPAdvSelePaperListEMF::setNoChangeHidden(bool hidden) {
    const platform::Menu* menu = getSettingMenu();
    if (platform::MenuItem* first = menu == nullptr ? nullptr : menu->itemAtIndex(0)) {
        first->setHidden(hidden);
    }
}

bool SPAdvSelePaperSizeListEMF::InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) {
    CustomSizeIndexArray = custom_size_indexes(cups_find_option(withPPD, key().c_str()));
    return SPAdvSelePaperListEMF::InitializeMenu(bundle, withPPD);
}

bool SPAdvSelePaperSizeListEMF::SetDefaultValueToUI() {
    return ControlPtr == nullptr || !ControlPtr->isEnabled() || SPAdvSelePaperListEMF::SetDefaultValueToUI();
}

void SPAdvSelePaperSizeListEMF::RequestControlAction(platform::View* sender) {
    if (doCustomSizeSetCheckByIndex(static_cast<std::int32_t>(GetPopupSelection() - 1))) {
        openCustomSizeWindow();
    }
    SPAdvSelePaperListEMF::RequestControlAction(sender);
}

void SPAdvSelePaperSizeListEMF::openCustomSizeWindow() {
    SpecialPagesHub* hub = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->hub();
    PopupWinInPanelEMFSpecialPages* window = hub == nullptr ? nullptr : hub->getCustomSizeWndPtr();
    auto* custom = dynamic_cast<CustomSizeWindow*>(window);
    SPSubMenuListCtrlEMF* menu = panel() == nullptr ? nullptr : panel()->GetSubMenuList();
    if (custom != nullptr && menu != nullptr) {
        custom->SetSubMenuList(menu);
        window->ActivateWindow();
    }
}

std::int32_t SPAdvSelePaperSizeListEMF::DoSelfUpdate() {
    const SPSubMenuListCtrlEMF* menu = panel() == nullptr ? nullptr : panel()->GetSubMenuList();
    if (menu != nullptr) {
        setViewEnabled(menu->isEnabledSubMenuByIndex(kSizeEntry));
    }
    return 0;
}

} // namespace specialpages
