#include "paper/SPSubMenuListCtrlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "paper/SidednessList.h"
#include "paper/current_selections.h"
#include "paper/interposer_tray.h"
#include "paper/paper_windows.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_access.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "support/identifiers.h"

#include <memory>

namespace specialpages {

namespace {

/// Items that the top level must have for the sub-menus to be attached.
constexpr std::int64_t kLeastItems = 5;
/// The first type is never offered.
constexpr std::int64_t kHiddenTypePosition = 1;

} // namespace

void SPSubMenuListCtrlEMF::CreateControl(platform::View* view, const char* ppdKeySize,
                                         const char* ppdKeyColor, const char* ppdKeyType,
                                         const PopupIniData* IniData, const ConstraintRecord* ConstrainArray,
                                         const AccessInfo* accessInfo, std::string_view usernamein,
                                         std::int32_t wndType, std::optional<ControlTag> DuplexControl) {
    CreateControl(view, IniData, ConstrainArray, accessInfo, usernamein);
    const auto text = [](const char* key) {
        return std::string(key == nullptr ? "" : key);
    };
    keys = {text(ppdKeySize), text(ppdKeyColor), text(ppdKeyType)};
    paper = {};
    paperDefault = {};
    CurrentSelectedItem = -1;
    customPageSizeLongMeasure = kDefaultLongMeasure;
    transparencyIndexes = {};
    m_iInsertWndType = wndType;
    duplexControlIDPtr = DuplexControl;
    ppdKeyArray.clear();
    currentSelectionArray.clear();
    TabStockIndexArray.clear();
    CustomSizeIndexArray.clear();
    selectionArrays = {};
}

bool SPSubMenuListCtrlEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    keys.color = FixPPDKeywordAccordingToType(withPPD, keys.color);
    if (!PopupControlEMFSpecialPages::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    customPageWidth = kDefaultCustomWidth;
    customPageLength = kDefaultCustomLength;
    return true;
}

bool SPSubMenuListCtrlEMF::InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (listctrlIniDataPtr == nullptr || !PopupControlEMFSpecialPages::InitializeMenu(bundle, withPPD)) {
        return false;
    }
    // While a window is built for the first time, its panel does not know its bundle yet.
    platform::Bundle* words = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
    words = words == nullptr ? bundle : words;
    const auto title = [&](const char* key) {
        return words == nullptr ? std::string(kNoTranslation) : localized(*words, key, kNoTranslation);
    };
    wordInterposerItem(withPPD);
    ppdKeyArray = current_selection_keys(withPPD, keys, nxPPDKeywordList());
    paperDefault = default_paper(withPPD, keys);
    CurrentSelectedItem = kNoChangePosition;
    TabStockIndexArray = tab_stock_indexes(cups_find_option(withPPD, keys.type.c_str()));
    CustomSizeIndexArray = custom_size_indexes(cups_find_option(withPPD, keys.size.c_str()));
    transparencyIndexes = {};
    if (popup()->numberOfItems() < kLeastItems) {
        choosePaper(paperDefault);
        return false;
    }
    for (const PaperPart part : kPaperParts) {
        platform::Menu& menu =
            topItem(static_cast<std::int64_t>(part))->setSubmenu(std::make_unique<platform::Menu>());
        initializeSubMenu(&menu, part, withPPD, {title(kNoChangeKey), title(kCustomSizeTitleKey)});
    }
    if (auto* first =
            getSubMenuRef(static_cast<std::int64_t>(PaperPart::type))->itemAtIndex(kHiddenTypePosition)) {
        first->setHidden(true);
    }
    if (auto* interposer = topItem(kInterposerPosition)) {
        interposer->setHidden(hidesInterposer(withPPD));
    }
    choosePaper(paperDefault);
    updateSelectionArray();
    return true;
}

bool SPSubMenuListCtrlEMF::hidesInterposer(ppd_file_s* withPPD) const {
    return doHideTrayInterposerItem(withPPD);
}

void SPSubMenuListCtrlEMF::wordInterposerItem(ppd_file_s* ppd) {
    const auto position = vendor_title_position(listctrlIniDataPtr->menuKeys);
    if (!position) {
        return;
    }
    const auto text = separator_text(ppd, listctrlIniDataPtr->menuKeys[static_cast<std::size_t>(*position)]);
    if (text) {
        topItem(*position)->setTitle(*text);
    }
}

void SPSubMenuListCtrlEMF::initializeSubMenu(platform::Menu* menu, PaperPart part, ppd_file_s* withPPD,
                                             const SubMenuTitles& titles) {
    if (menu == nullptr) {
        return;
    }
    menu->setAutoenablesItems(false);
    const ppd_option_t* option = cups_find_option(withPPD, keys.of(part).c_str());
    for (SubMenuItem& each : sub_menu_items(part, keys, option, titles)) {
        platform::MenuItem& item = menu->addItemWithTitle(std::move(each.title));
        item.setTag(each.tag);
        item.setRepresentedObject(std::move(each.representedObject));
        item.setTargetAction(this, [this](platform::MenuItem& sender) {
            doControlAction(sender.tag(), MenuActionSender::subMenuItem);
        });
    }
    note_transparency(option, transparencyIndexes);
}

bool SPSubMenuListCtrlEMF::SetControlValueToUI() {
    selectionArrays = {};
    SPSummaryScrollViewCtrl* list = summary();
    const auto records = list == nullptr ? std::nullopt : list->getArrayOfCurrentSelectedRecords();
    if (records) {
        for (const SpecialPageRecord& record : *records) {
            selectionArrays[part_index(PaperPart::size)].push_back(record.text(RecordKey::pagesize));
            selectionArrays[part_index(PaperPart::color)].push_back(record.text(RecordKey::pagecolor));
            selectionArrays[part_index(PaperPart::type)].push_back(record.text(RecordKey::pagetype));
        }
    }
    setNoChangeHidden(paper.complete());
    return true;
}

bool SPSubMenuListCtrlEMF::SetDefaultValueToUI() {
    PopupControlEMFSpecialPages::SetDefaultValueToUI();
    setNoChangeHidden(true);
    choosePaper(paperDefault);
    return true;
}

bool SPSubMenuListCtrlEMF::SetControlValueToDefault() {
    PopupControlEMFSpecialPages::SetControlValueToDefault();
    choosePaper(paperDefault);
    return true;
}

void SPSubMenuListCtrlEMF::RequestControlAction(platform::View* sender) {
    doControlAction(sender == nullptr ? 0 : sender->tag(), MenuActionSender::popUp);
}

void SPSubMenuListCtrlEMF::doControlAction(std::int32_t tag, MenuActionSender sender) {
    if (sender != MenuActionSender::popUp) {
        chooseSubMenuItem(tag, sender);
    } else {
        CurrentSelectedItem = popup() == nullptr ? -1 : popup()->indexOfSelectedItem();
        if (CurrentSelectedItem == kAdvancedPosition) {
            openAdvancedWindow();
        } else if (CurrentSelectedItem == kInterposerPosition) {
            choosePaper(paperDefault);
            paper.interposer = true;
        } else if (CurrentSelectedItem == kNoChangePosition) {
            choosePaper({});
        }
    }
    updateSelectionArray();
    UIEventHandler();
}

void SPSubMenuListCtrlEMF::chooseSubMenuItem(std::int32_t tag, MenuActionSender sender) {
    const auto [position, index] = read_tag(tag);
    CurrentSelectedItem = position;
    if (const auto part = paper_part(position)) {
        choose(*part, index);
        if (*part == PaperPart::size && doCustomSizeSetCheckByIndex(index)) {
            openCustomSizeWindow();
        }
        if (*part == PaperPart::type && doTabStockSetCheckByIndex(index) &&
            sender == MenuActionSender::subMenuItem) {
            openTabStockWindow();
        }
    }
    paper.interposer = false;
    doTransparencyConstraint(paper.type, CurrentSelectedItem);
}

void SPSubMenuListCtrlEMF::openCustomSizeWindow() {
    PopupWinInPanelEMFSpecialPages* window = hub() == nullptr ? nullptr : hub()->getCustomSizeWndPtr();
    if (auto* custom = dynamic_cast<CustomSizeWindow*>(window)) {
        custom->SetSubMenuList(this);
        window->ActivateWindow();
    }
}

void SPSubMenuListCtrlEMF::openTabStockWindow() {
    if (hub() == nullptr) {
        return;
    }
    // Only exceptions are printed on: covers and inserts have no margin to shift.
    PopupWinInPanelEMFSpecialPages* window =
        m_iInsertWndType == kExceptionsWndType ? hub()->getTabStockWndPtr() : hub()->getTabStockSubWndPtr();
    if (window != nullptr) {
        window->ActivateWindow();
    }
}

void SPSubMenuListCtrlEMF::openAdvancedWindow() {
    PopupWinInPanelEMFSpecialPages* window = hub() == nullptr ? nullptr : hub()->getAdvSeleWndPtr();
    if (auto* advanced = dynamic_cast<AdvancedPaperWindow*>(window)) {
        advanced->SetPaperSize(paper.size, paper.color, paper.type, paper.interposer);
        advanced->SetSubMenuList(this);
        // Null takes away the one that another menu's dialog left there.
        advanced->setDuplexControl(sidednessList());
        window->ActivateWindow();
    }
}

bool SPSubMenuListCtrlEMF::UIEventHandler() {
    if (ctrlParentPanelPtr != nullptr) {
        ctrlParentPanelPtr->UpdateConflictsPanelControlFromPPD(ctrlParentPanelPtr->GetCurrentPPD());
    }
    return PopupControlEMFSpecialPages::UIEventHandler();
}

std::int32_t SPSubMenuListCtrlEMF::Update() {
    SetControlValueToDefault();
    UIEventHandler();
    return 0;
}

std::int32_t SPSubMenuListCtrlEMF::DoControlUpdateConstrain() {
    return GetCurrentControlArrayNumber() < 0 ? 0 : DoBaseControlUpdateConstrain();
}

std::int32_t SPSubMenuListCtrlEMF::getSelectedMenuItemIndexByType(std::int32_t type) const {
    const auto part = paper_part(type);
    return part ? paper.of(*part) : kNoChange;
}

void SPSubMenuListCtrlEMF::setSelectedMenuItemIndexByType(std::int32_t type,
                                                          std::int32_t SelectedMenuItemIndex) {
    if (const auto part = paper_part(type)) {
        choose(*part, SelectedMenuItemIndex);
    }
}

void SPSubMenuListCtrlEMF::setCustomPageWidth(const char* width) {
    if (width != nullptr) {
        customPageWidth = platform::utf8_prefix(width, kMaxCustomSizeBytes);
    }
}

void SPSubMenuListCtrlEMF::setCustomPageLength(const char* length) {
    if (length != nullptr) {
        customPageLength = platform::utf8_prefix(length, kMaxCustomSizeBytes);
    }
}

void SPSubMenuListCtrlEMF::setDefaultCustomValue() {
    customPageWidth = kDefaultCustomWidth;
    customPageLength = kDefaultCustomLength;
    customPageSizeLongMeasure = kDefaultLongMeasure;
}

void SPSubMenuListCtrlEMF::SetSubMenuToJobSettingByIndex(std::int32_t number) {
    const auto part = paper_part(std::int64_t{number} + 1);
    if (!part) {
        return;
    }
    if (const auto index = marked_choice_index(currentPPD(), keys.of(*part))) {
        choose(*part, *index);
    } else {
        checkItem(*part, 0);
    }
}

platform::MenuItem* SPSubMenuListCtrlEMF::topItem(std::int64_t position) const {
    return popup() == nullptr ? nullptr : popup()->menu().itemAtIndex(position);
}

platform::Menu* SPSubMenuListCtrlEMF::getSubMenuRef(std::int64_t position) const {
    const platform::MenuItem* item = topItem(position);
    return item == nullptr ? nullptr : item->submenu();
}

platform::MenuItem* SPSubMenuListCtrlEMF::getSelectedMenuItemRef(std::int64_t position,
                                                                 std::int64_t selectedItemIndex) const {
    const platform::Menu* menu = getSubMenuRef(position);
    return menu == nullptr || selectedItemIndex < 0 ? nullptr : menu->itemAtIndex(selectedItemIndex + 1);
}

std::optional<std::string>
SPSubMenuListCtrlEMF::getSelectedMenuItemTitle(std::int64_t position, std::int64_t selectedItemIndex) const {
    const platform::MenuItem* item = getSelectedMenuItemRef(position, selectedItemIndex);
    return item == nullptr ? std::nullopt : std::optional(item->title());
}

std::optional<std::string>
SPSubMenuListCtrlEMF::getSelectedMenuItemChoice(std::int64_t position, std::int64_t selectedItemIndex) const {
    const platform::MenuItem* item = getSelectedMenuItemRef(position, selectedItemIndex);
    return item == nullptr ? std::nullopt : item->representedObject();
}

void SPSubMenuListCtrlEMF::enabledSubMenuByIndex(std::int64_t index, bool EnabledMenu) {
    if (platform::MenuItem* item = topItem(index + 1)) {
        item->setToolTip({});
        item->setEnabled(EnabledMenu);
    }
}

bool SPSubMenuListCtrlEMF::isEnabledSubMenuByIndex(std::int64_t index) const {
    const platform::MenuItem* item = topItem(index + 1);
    return item == nullptr || item->isEnabled();
}

void SPSubMenuListCtrlEMF::setNoChangeHidden(bool hidden) {
    if (platform::MenuItem* top = topItem(kNoChangePosition)) {
        top->setHidden(hidden);
    }
    for (const PaperPart part : kPaperParts) {
        const platform::Menu* menu = getSubMenuRef(static_cast<std::int64_t>(part));
        if (platform::MenuItem* first = menu == nullptr ? nullptr : menu->itemAtIndex(0)) {
            first->setHidden(hidden);
        }
    }
}

void SPSubMenuListCtrlEMF::choose(PaperPart part, std::int32_t index) {
    paper.of(part) = index;
    checkItem(part, std::int64_t{index} + 1);
}

void SPSubMenuListCtrlEMF::choosePaper(const PaperChoice& chosen) {
    for (const PaperPart part : kPaperParts) {
        choose(part, chosen.of(part));
    }
    paper.interposer = chosen.interposer;
}

void SPSubMenuListCtrlEMF::checkItem(PaperPart part, std::int64_t position) {
    const platform::Menu* menu = getSubMenuRef(static_cast<std::int64_t>(part));
    for (std::size_t i = 0; menu != nullptr && i < menu->numberOfItems(); ++i) {
        const auto each = static_cast<std::int64_t>(i);
        menu->itemAtIndex(each)->setState(each == position);
    }
}

SpecialPagesHub* SPSubMenuListCtrlEMF::hub() const {
    return ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->hub();
}

SPSummaryScrollViewCtrl* SPSubMenuListCtrlEMF::summary() const {
    return hub() == nullptr ? nullptr : hub()->getSPSummaryScrollViewCtrlPtr();
}

ppd_file_s* SPSubMenuListCtrlEMF::currentPPD() const {
    return ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetCurrentPPD();
}

} // namespace specialpages
