// One of the three plain pop-ups of the advanced paper window: the sizes, colors or types of the PPD in one
// flat menu. Position 0 is "No Change", position n + 1 the n-th choice, so that a position is an index of the
// paper menu + 1. The control's value, as of every pop-up, is one more: position + 1.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "paper/paper_choice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::platform {
class Menu;
} // namespace specialpages::platform

namespace specialpages {

class AdvancedPaperPanel;

class SPAdvSelePaperListEMF : public PopupControlEMFSpecialPages {
  public:
    using PopupControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed; the menu comes from the PPD alone.
    void CreateControl(platform::View* view, PaperPart listPart, PaperOptionKeys ppdKeys,
                       const PopupIniData* IniData, const ConstraintRecord* ConstrainArray);
    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    bool InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    std::optional<ControlValue> GetDefaultDataBlk() const override;

    // Events.

    void RequestControlAction(platform::View* sender) override;
    /// Every event updates row 0, whether or not the item changed.
    std::int32_t DoControlUpdateConstrain() override;
    std::int64_t GetCurrentControlArrayNumber() override { return 0; }

    /// The selected position; -1 without a view.
    std::int64_t GetPopupSelection() const;
    /// Selects a position; nothing when the menu does not have it.
    void SetSelection(std::int64_t position);
    /// The keyword of the selected choice; kNullChoice on "No Change" and without a selection.
    std::string getSelectedMenuItem() const;
    /// The keyword of the choice at an index (position - 1); null for a negative one or one past the end.
    std::optional<std::string> getSelectedMenuItem(std::int64_t index) const;
    /// The title of the selected choice; null on "No Change" and without a selection.
    std::optional<std::string> selectedTitle() const;
    /// Null without a view.
    platform::Menu* getSettingMenu() const;
    /// Shows or hides "No Change".
    void setNoChangeHidden(bool hidden);

    /// The position that Defaults shows. For a size or a color it is the bare index of the PPD's default, one
    /// short of its position; for a type it is the position. It has to stay so.
    std::int32_t defaultPosition() const { return m_defaultIdx; }
    /// Positions of the type "Transparency" and the color "Clear"; -1 where this list has no such choice.
    std::int32_t getTypeTransparencyIndex() const { return m_iTypeTransparencyIndex; }
    std::int32_t getColorClearIndex() const { return m_iColorClearIndex; }
    /// Whether the type at that position is tab stock; never in another list.
    bool doTabStockSetCheckByIndex(std::int32_t position) const {
        return holds_index(TabStockIndexArray, position - 1);
    }
    /// The option that fills the list; a color keyword is put right for the PPD.
    const std::string& key() const { return keys.of(part); }
    const PaperOptionKeys& optionKeys() const { return keys; }

  protected:
    AdvancedPaperPanel* panel() const;

    PaperOptionKeys keys;
    PaperPart part = PaperPart::size;

  private:
    void noteChoices(ppd_file_s* ppd);

    std::int32_t m_defaultIdx = 0;
    std::int32_t m_iTypeTransparencyIndex = -1;
    std::int32_t m_iColorClearIndex = -1;
    std::vector<std::string> TabStockIndexArray; ///< indexes (position - 1), as decimal text
};

/// The list of sizes. "Custom" opens the custom size window for the paper menu; the list as a whole is
/// enabled when that menu's size entry is.
class SPAdvSelePaperSizeListEMF : public SPAdvSelePaperListEMF {
  public:
    bool InitializeMenu(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Only while the list is enabled.
    bool SetDefaultValueToUI() override;
    void RequestControlAction(platform::View* sender) override;
    std::int32_t DoSelfUpdate() override;
    /// Whether the size at that index (position - 1) is the custom one.
    bool doCustomSizeSetCheckByIndex(std::int32_t index) const {
        return holds_index(CustomSizeIndexArray, index);
    }

  private:
    void openCustomSizeWindow();

    std::vector<std::string> CustomSizeIndexArray;
};

} // namespace specialpages
