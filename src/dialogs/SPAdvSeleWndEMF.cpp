#include "dialogs/SPAdvSeleWndEMF.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/SpecialPagesHub.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/advanced_tables.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_buttons.h"
#include "paper/SPAdvPageSettingScrollViewEMF.h"
#include "paper/SPAdvSelePaperListEMF.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/SidednessList.h"
#include "paper/conflict_tips.h"
#include "paper/current_selections.h"
#include "paper/paper_conflicts.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "records/SPSummaryScrollViewCtrl.h"

#include <limits>

namespace specialpages {

namespace {

constexpr std::int32_t kIntegerSize = 4;
constexpr std::int32_t kIntegerValue = 2;
/// "No Change" is offered.
constexpr std::int32_t kOffered = -1;

PaperOptionKeys paper_keys() {
    return {kPPDPageSizeKey, kPPDMediaColorKey, kPPDMediaTypeKey};
}

void add_list(DialogBuilder& add, auto*& field, ControlTag tag, PaperPart part) {
    add.add(field, tag, [part](auto& control, platform::View* view) {
        control.CreateControl(view, part, paper_keys(), &SPAdvSeleWndLboxIniData, &SPAdvSeleWndCnstrnInfoPtr);
    });
}

/// A record may hold any number: one that can be no position stands for "No Change".
std::int32_t position_of(std::int32_t index) {
    return index < 0 || index >= std::numeric_limits<std::int32_t>::max() - 1 ? 0 : index + 1;
}

void show_position(SPAdvSelePaperListEMF& list, std::int32_t position) {
    const std::int32_t value = position + 1;
    list.setExternalValueToData(value, kIntegerSize, kIntegerValue);
    list.SetExternalValueToUI(value, kIntegerSize);
}

std::string_view choice_of(const platform::MenuItem& item) {
    const std::optional<std::string>& object = item.representedObject();
    return object ? std::string_view(*object) : std::string_view();
}

} // namespace

void SPAdvSeleWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    DialogBuilder add(*this, window);
    add.title(m_SPAdvSummaryTitlePtr, spAdvSeleWndSummaryTitleID, "Add Insert Paper View Title");
    add.add(m_SPAdvSummaryViewPtr, spAdvSeleWndSummaryViewID,
            [](SPAdvPageSettingScrollViewEMF& control, platform::View* view) {
                control.CreateControl(view, spAdvSeleWndSummaryViewID, &SPAdvSeleWndScrollViewIniData,
                                      paper_keys());
            });
    add.title(m_SPAdvPaperSizeTitlePtr, spAdvSeleWndPaperSizeTitleID, "Size String");
    add.title(m_SPAdvPaperColorTitlePtr, spAdvSeleWndPaperColorTitleID, "Color String");
    add.title(m_SPAdvPaperTypeTitlePtr, spAdvSeleWndPaperTypeTitleID, "Type String");
    add_list(add, m_SPAdvPaperSizeListPtr, spAdvSeleWndPaperSizeListID, PaperPart::size);
    add_list(add, m_SPAdvPaperColorListPtr, spAdvSeleWndPaperColorListID, PaperPart::color);
    add_list(add, m_SPAdvPaperTypeListPtr, spAdvSeleWndPaperTypeListID, PaperPart::type);
    add.help(m_SPAdvHelpBtnPtr, spAdvSeleWndHelpButtonID, "SpecialPagesAdv.htm");
    add.button(m_SPAdvDefaultBtnPtr, spAdvSeleWndDefaultsButtonID, kRestoreButtonTitle);
    add.button(m_SPAdvOKBtnPtr, spAdvSeleWndOKButtonID, kOkButtonTitle);
    add.button(m_SPAdvCancelBtnPtr, spAdvSeleWndCancelButtonID, kCancelButtonTitle);
}

std::int32_t SPAdvSeleWndEMF::ActivateWindow() {
    if (windowRef == nullptr) {
        return 0;
    }
    ReInitializeUserPane();
    SetUIDataToIniData();
    showHandedOverPaper();
    const SPSummaryScrollViewCtrl* list = summary();
    if (list != nullptr && list->getSummaryScrollViewStatus() == kSummaryAdding) {
        m_iSizeStatus = 0;
        m_iColorStatus = 0;
        m_iTypeStatus = 0;
    }
    offerNoChange();
    SetCurrentValueToUI();
    updateSelectionArray();
    UpdateSelfConflictsFromPPD(GetCurrentPPD());
    ChangeActivedStatus(true);
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

void SPAdvSeleWndEMF::SetPaperSize(std::int32_t size, std::int32_t andColor, std::int32_t andType,
                                   bool andInterposer) {
    m_iPaperSize = position_of(size);
    m_iPaperColor = position_of(andColor);
    m_iPaperType = position_of(andType);
    m_bInterposer = andInterposer;
    showHandedOverPaper();
}

void SPAdvSeleWndEMF::showHandedOverPaper() {
    const std::array<std::int32_t, 3> positions{m_iPaperSize, m_iPaperColor, m_iPaperType};
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (SPAdvSelePaperListEMF* list = lists()[i]) {
            show_position(*list, positions[i]);
        }
    }
}

void SPAdvSeleWndEMF::offerNoChange() {
    const bool forCovers = m_pSubMenuList != nullptr && m_pSubMenuList->GetWndType() == kCoversWndType;
    const std::array<std::int32_t, 3> statuses{m_iSizeStatus, m_iColorStatus, m_iTypeStatus};
    for (std::size_t i = 0; i < statuses.size(); ++i) {
        if (SPAdvSelePaperListEMF* list = lists()[i]) {
            list->setNoChangeHidden(forCovers || statuses[i] != kOffered);
        }
    }
}

std::array<SPAdvSelePaperListEMF*, 3> SPAdvSeleWndEMF::lists() const {
    return {m_SPAdvPaperSizeListPtr, m_SPAdvPaperColorListPtr, m_SPAdvPaperTypeListPtr};
}

SPSummaryScrollViewCtrl* SPAdvSeleWndEMF::summary() const {
    return pParentPane == nullptr || pParentPane->hub() == nullptr
               ? nullptr
               : pParentPane->hub()->getSPSummaryScrollViewCtrlPtr();
}

PaperOptionKeys SPAdvSeleWndEMF::fixedKeys() const {
    return m_SPAdvPaperColorListPtr == nullptr ? paper_keys() : m_SPAdvPaperColorListPtr->optionKeys();
}

void SPAdvSeleWndEMF::doTransparencyConstraint() {
    if (m_SPAdvPaperColorListPtr == nullptr || m_SPAdvPaperTypeListPtr == nullptr) {
        return;
    }
    const std::int64_t type = m_SPAdvPaperTypeListPtr->GetPopupSelection();
    const std::int32_t clear = m_SPAdvPaperColorListPtr->getColorClearIndex();
    if (type >= 0 && m_SPAdvPaperColorListPtr->GetPopupSelection() >= 0 && clear >= 0 &&
        type == m_SPAdvPaperTypeListPtr->getTypeTransparencyIndex()) {
        m_SPAdvPaperColorListPtr->SetSelection(clear);
    }
}

void SPAdvSeleWndEMF::updateSelectionArray() {
    std::array<std::string, 3> choices;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const SPAdvSelePaperListEMF* list = lists()[i];
        choices[i] = list == nullptr ? kNullChoice : list->getSelectedMenuItem();
    }
    ppd_file_s* ppd = GetCurrentPPD();
    m_ppdKeyArray = current_selection_keys(ppd, fixedKeys(), nxPPDKeywordList());
    m_currentSelectionArray = current_selections(ppd, fixedKeys(), nxPPDKeywordList(), choices);
}

PaperMenuChoices SPAdvSeleWndEMF::menuChoices() const {
    PaperMenuChoices choices;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const platform::Menu* menu = lists()[i] == nullptr ? nullptr : lists()[i]->getSettingMenu();
        for (std::size_t position = 1; menu != nullptr && position < menu->numberOfItems(); ++position) {
            choices[i].push_back(choice_of(*menu->itemAtIndex(static_cast<std::int64_t>(position))));
        }
    }
    return choices;
}

PaperConflicts SPAdvSeleWndEMF::conflicts(ppd_file_s* ppd) const {
    std::vector<SelectedPaper> records;
    const SPSummaryScrollViewCtrl* list = summary();
    if (const auto selected = list == nullptr ? std::nullopt : list->getArrayOfCurrentSelectedRecords()) {
        records = selected_papers(*selected);
    }
    PaperSituation situation;
    situation.ppd = ppd;
    situation.index = xppd.get();
    situation.keys = fixedKeys();
    situation.optionKeys = m_ppdKeyArray;
    situation.selections = m_currentSelectionArray;
    situation.records = records;
    situation.menuChoices = menuChoices();
    if (m_duplexCtrlPtr != nullptr) {
        situation.sidedness =
            Sidedness{m_duplexCtrlPtr->getCurrentDuplexArray(), m_duplexCtrlPtr->duplexChoiceTable()};
    }
    return PaperConflicts(situation);
}

bool SPAdvSeleWndEMF::isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD) const {
    return conflicts(withPPD).reason(key).choice != nullptr;
}

void SPAdvSeleWndEMF::UpdateSelfConflictsFromPPD(ppd_file_s* ppd) {
    const PaperConflicts forbidden = conflicts(ppd);
    ConflictTips tips(GetPDEBundleRef());
    for (const SPAdvSelePaperListEMF* list : lists()) {
        const platform::Menu* menu = list == nullptr ? nullptr : list->getSettingMenu();
        for (std::size_t i = 1; menu != nullptr && i < menu->numberOfItems(); ++i) {
            platform::MenuItem& item = *menu->itemAtIndex(static_cast<std::int64_t>(i));
            tips.show(item, forbidden.reason(list->key(), choice_of(item)));
        }
    }
}

void SPAdvSeleWndEMF::giveBackPaper() {
    if (m_pSubMenuList == nullptr) {
        return;
    }
    for (const PaperPart part : kPaperParts) {
        if (const SPAdvSelePaperListEMF* list = lists()[part_index(part)]) {
            m_pSubMenuList->setSelectedMenuItemIndexByType(
                static_cast<std::int32_t>(part), static_cast<std::int32_t>(list->GetPopupSelection() - 1));
        }
    }
    m_pSubMenuList->setInterPoser(false);
}

void SPAdvSeleWndEMF::updateOpenersViews() {
    SpecialPagesHub* pane = hub();
    if (m_pSubMenuList == nullptr || pane == nullptr) {
        return;
    }
    const std::int32_t type = m_pSubMenuList->GetWndType();
    PopupWinInPanelEMFSpecialPages* opener = type == kCoversWndType    ? pane->getSPAddCoversWndPtr()
                                             : type == kInsertsWndType ? pane->getSPAddInsertWndPtr()
                                                                       : pane->getSPAddExceptionsWndPtr();
    if (auto* dialog = dynamic_cast<PaperMenuDialog*>(opener)) {
        dialog->updatePaperViews();
    }
}

bool SPAdvSeleOKBtnEMF::UIEventHandler() {
    if (auto* window = dynamic_cast<SPAdvSeleWndEMF*>(ctrlParentPanelPtr)) {
        window->giveBackPaper();
        window->updateOpenersViews();
        window->DeactivateWindow();
        window->ChangeActivedStatus(false);
    }
    return true;
}

} // namespace specialpages
