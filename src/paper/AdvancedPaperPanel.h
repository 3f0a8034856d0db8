// What the controls of the advanced paper window need of their window.
#pragma once

struct ppd_file_s;

namespace specialpages {

class SPAdvSelePaperListEMF;
class SPAdvSelePaperSizeListEMF;
class SPSubMenuListCtrlEMF;

/// Answers are borrowed; a control that the nib does not provide is null.
class AdvancedPaperPanel {
  public:
    AdvancedPaperPanel() = default;
    AdvancedPaperPanel(const AdvancedPaperPanel&) = delete;
    AdvancedPaperPanel& operator=(const AdvancedPaperPanel&) = delete;
    virtual ~AdvancedPaperPanel() = default;

    virtual SPAdvSelePaperSizeListEMF* GetAdvPaperSizeListPtr() = 0;
    virtual SPAdvSelePaperListEMF* GetAdvPaperColorListPtr() = 0;
    virtual SPAdvSelePaperListEMF* GetAdvPaperTypeListPtr() = 0;
    /// The paper menu that opened the window; null before the first opening.
    virtual SPSubMenuListCtrlEMF* GetSubMenuList() = 0;
    /// The type "Transparency" takes the color "Clear".
    virtual void doTransparencyConstraint() = 0;
    virtual void updateSelectionArray() = 0;
    /// Disables the items that conflict with the rest of what is chosen.
    virtual void UpdateSelfConflictsFromPPD(ppd_file_s* ppd) = 0;
};

} // namespace specialpages
