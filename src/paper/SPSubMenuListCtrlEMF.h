// The pop-up in which the whole paper of a special page is chosen: three sub-menus that the PPD fills (size,
// color, type), "No Change" at both levels, the interposer, and the way to the advanced paper window. The
// paper is three indexes of PPD choices, -1 for "No Change", and the interposer flag; a choice in a sub-menu
// always clears the flag, and the interposer holds the defaults in the indexes.
//
// Items that would conflict with the rest of what is chosen are disabled, with the reason as their tool tip.
// The item behind an index is looked up by position index + 1. The check mark of a sub-menu shows the item
// that is chosen there.
//
// The top level is the menu of the IniData, seven keys; sub-menus and the interposer's rules are made anew
// whenever it is rebuilt, and all items are shown then but those that are hidden by rule.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "paper/duplex_choices.h"
#include "paper/paper_choice.h"
#include "paper/paper_conflicts.h"
#include "paper/paper_menu.h"
#include "records/setup_text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {
class Menu;
class MenuItem;
} // namespace specialpages::platform

namespace specialpages {

class ConflictTips;
class SidednessList;
class SpecialPagesHub;
class SPSummaryScrollViewCtrl;

/// Which window hosts a paper menu.
enum PaperMenuWindowType : std::int32_t { kCoversWndType = 0, kInsertsWndType = 1, kExceptionsWndType = 2 };

/// Who sent an action. Tags do not tell: an item of a sub-menu and a view may have the same. A fallback is an
/// item that the menu takes by itself, with no user to open a window for.
enum class MenuActionSender { popUp, subMenuItem, fallback };

class SPSubMenuListCtrlEMF : public PopupControlEMFSpecialPages, public PaperTitles {
  public:
    using PopupControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed. `DuplexControl` is the tag of the sidedness list of this window.
    void CreateControl(platform::View* view, const char* ppdKeySize, const char* ppdKeyColor,
                       const char* ppdKeyType, const PopupIniData* IniData,
                       const ConstraintRecord* ConstrainArray, const AccessInfo* accessInfo,
                       std::string_view usernamein, std::int32_t wndType,
                       std::optional<ControlTag> DuplexControl);

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// False without an IniData, a view, or at least five items.
    bool InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Fills a sub-menu from the option; nothing for a null menu.
    void initializeSubMenu(platform::Menu* menu, PaperPart part, ppd_file_s* withPPD,
                           const SubMenuTitles& titles);
    bool SetControlValueToUI() override;
    bool SetDefaultValueToUI() override;
    bool SetControlValueToDefault() override;

    // Events.

    /// The pop-up's own action.
    void RequestControlAction(platform::View* sender) override;
    void doControlAction(std::int32_t tag, MenuActionSender sender);
    bool UIEventHandler() override;
    std::int32_t Update() override;
    /// Every event updates the row of the item that was acted on last, whether or not the item changed.
    std::int32_t DoControlUpdateConstrain() override;
    /// The item acted on last - 1.
    std::int64_t GetCurrentControlArrayNumber() override { return CurrentSelectedItem - 1; }

    // The paper. Types are 2 size, 3 color, 4 type.

    /// -1 for any other type too.
    std::int32_t getSelectedMenuItemIndexByType(std::int32_t type) const;
    /// Nothing for any other type.
    void setSelectedMenuItemIndexByType(std::int32_t type, std::int32_t SelectedMenuItemIndex);
    bool getInterPoser() const { return paper.interposer; }
    void setInterPoser(bool interposer) { paper.interposer = interposer; }
    const PaperChoice& defaultPaper() const { return paperDefault; }
    std::int32_t GetWndType() const { return m_iInsertWndType; }
    /// In millimetres, as text.
    const std::string& getCustomPageWidth() const { return customPageWidth; }
    const std::string& getCustomPageLength() const { return customPageLength; }
    /// At most kMaxCustomSizeBytes are kept; null is ignored.
    void setCustomPageWidth(const char* width);
    void setCustomPageLength(const char* length);
    std::int32_t getCustomPageSizeLongMeasure() const { return customPageSizeLongMeasure; }
    void setCustomPageSizeLongMeasure(std::int32_t longMeasure) { customPageSizeLongMeasure = longMeasure; }
    void setDefaultCustomValue();
    /// 1 size, 2 color, 3 type: takes over the choice that the PPD has marked and checks its item. Without a
    /// marked choice the index stays and item 0 is checked; any other number changes nothing.
    void SetSubMenuToJobSettingByIndex(std::int32_t number);

    // The menu.

    /// The sub-menu at a position of the top level; null when there is none.
    platform::Menu* getSubMenuRef(std::int64_t position) const;
    /// These three answer for the item at position `selectedItemIndex` + 1 of that sub-menu; null for a
    /// negative index, a missing sub-menu or an index past the end.
    std::optional<std::string> getSelectedMenuItemTitle(std::int64_t position,
                                                        std::int64_t selectedItemIndex) const override;
    platform::MenuItem* getSelectedMenuItemRef(std::int64_t position, std::int64_t selectedItemIndex) const;
    std::optional<std::string> getSelectedMenuItemChoice(std::int64_t position,
                                                         std::int64_t selectedItemIndex) const override;
    /// State of the top-level item at position `index` + 1. Nothing, or true, when there is none.
    void enabledSubMenuByIndex(std::int64_t index, bool EnabledMenu);
    bool isEnabledSubMenuByIndex(std::int64_t index) const;
    bool doTabStockSetCheckByIndex(std::int32_t index) const {
        return holds_index(TabStockIndexArray, index);
    }
    bool doCustomSizeSetCheckByIndex(std::int32_t index) const {
        return holds_index(CustomSizeIndexArray, index);
    }
    std::int32_t transparencyIndex() const { return transparencyIndexes.transparency; }
    std::int32_t clearIndex() const { return transparencyIndexes.clear; }

    // Conflicts (sub_menu_conflicts.cpp).

    void updateSelectionArray();
    const std::vector<std::string>& getPpdKeyArray() const { return ppdKeyArray; }
    const std::vector<std::string>& getCurrentSelections() const { return currentSelectionArray; }
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override;
    /// Sets the state of all sub-menu items but the first of each menu. The last size follows tab stock
    /// alone. The interposer item is only ever disabled here.
    void UpdateSelfConflictsFromPPD(ppd_file_s* ppd);
    /// Whether "option:choice" conflicts; with `isNoChangeChoice` selected records are not asked.
    bool isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD, bool isNoChangeChoice);
    /// The type "Transparency", chosen in the type sub-menu, takes the color "Clear". Nothing undoes it.
    void doTransparencyConstraint(std::int32_t typeIndex, std::int64_t eventFrom);

  protected:
    /// Whether the menu hides its interposer item.
    virtual bool hidesInterposer(ppd_file_s* withPPD) const;
    /// Hides or shows position 1 and item 0 of each sub-menu.
    void setNoChangeHidden(bool hidden);
    void choose(PaperPart part, std::int32_t index);
    void choosePaper(const PaperChoice& chosen);
    SpecialPagesHub* hub() const;
    SPSummaryScrollViewCtrl* summary() const;
    ppd_file_s* currentPPD() const;
    platform::MenuItem* topItem(std::int64_t position) const;

    PaperOptionKeys keys; ///< KPPDKeySize, KPPDKeyColor, KPPDKeyType
    PaperChoice paper;    ///< the selected indexes and interposerValue
    PaperChoice paperDefault;
    std::int64_t CurrentSelectedItem = -1; ///< position acted on last, or the thousands of a sub-menu's tag
    std::vector<std::string> ppdKeyArray;
    std::vector<std::string> currentSelectionArray; ///< parallel to ppdKeyArray; three entries without a PPD
    PaperSelectionArray selectionArrays; ///< indexes that the list's selected records hold, as text

  private:
    struct Surroundings;
    void chooseSubMenuItem(std::int32_t tag, MenuActionSender sender);
    void openCustomSizeWindow();
    void openTabStockWindow();
    void openAdvancedWindow();
    void wordInterposerItem(ppd_file_s* ppd);
    void checkItem(PaperPart part, std::int64_t position);
    SidednessList* sidednessList() const;
    /// The keywords by which indexes of records are read; borrowed from the items.
    PaperMenuChoices menuChoices() const;
    Surroundings surroundings(ppd_file_s* ppd) const;
    void updateSubMenuConflicts(PaperPart part, const Surroundings& around, ConflictTips& tips);
    ConflictingChoice noChangeConflict(PaperPart part, const Surroundings& around) const;
    ConflictingChoice tabStockReason(ppd_file_s* ppd) const;

    TransparencyIndexes transparencyIndexes; ///< mediaTypeTransparencyIndex, mediaColorClearIndex
    std::vector<std::string> TabStockIndexArray;
    std::vector<std::string> CustomSizeIndexArray;
    std::int32_t m_iInsertWndType = kCoversWndType;
    std::optional<ControlTag> duplexControlIDPtr;
    std::string customPageWidth = kDefaultCustomWidth;
    std::string customPageLength = kDefaultCustomLength;
    std::int32_t customPageSizeLongMeasure = kDefaultLongMeasure;
};

} // namespace specialpages
