// The lists of the covers dialog: the cover option list, and the printing lists of front and back, which say
// on which sides a cover is printed. The cover option list is made without a duplex key, table and related
// menu, so that paper never disables its items; each printing list relates to the paper menu of its own side.
#pragma once

#include "paper/SPDuplexListCtrlEMF.h"
#include "records/SpecialPageRecord.h"

namespace specialpages {

class CoversWindow;
class SPSelectPaperListCtrlEMF;

class SPCoversWinListCtrlEMF : public SPDuplexListCtrlEMF {
  public:
    /// The default, or what the covers' records say: the first record's cover option, or the printing option
    /// of the record of this list's side.
    bool SetControlValueToUI() override;
    /// Follows the cover option: with "same" the list takes the front's position, with "none" its default.
    std::int32_t Update() override;
    /// A printing list whose selected item has become disabled falls back to printing on side one, at most
    /// once an event.
    std::int32_t DoSelfUpdate() override;
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) override;

    /// With an interposer only position 0 stays as it was; without one the items follow the PPD.
    void doConstraintWithInterposer(bool interposer);
    /// The item's own position, 1 or above; any other does nothing.
    void enabledSubMenuByIndex(std::int64_t index, bool EnabledMenu);
    /// For the two printing lists, with a PPD.
    void UpdateConflictsFromPPD();
    /// Whether size or type of the paper menu of this side forbids the key; the color is not asked.
    bool isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD, bool isNoChangeChoice) const;

    /// The selected position; -1 for none.
    std::int64_t selectedPosition() const;

  private:
    bool isFront() const;
    bool isBack() const;
    CoversWindow* coversWindow() const;
    SPSelectPaperListCtrlEMF* ownPaperMenu() const;
    ConflictingChoice itemConflict(std::string_view key, ppd_file_s* ppd) const;
    std::optional<std::int32_t> recordedPosition(const RecordList& records) const;
    void fallBackToSideOne();

    bool fallingBack = false;
};

} // namespace specialpages
