// What paper menus need of the windows above them. The hub answers a window as what it is to the pane; a
// window that plays one of these parts also derives from it. All pointers that are handed over are borrowed.
#pragma once

#include <cstdint>
#include <string>

namespace specialpages {

class SidednessList;
class SPSubMenuListCtrlEMF;

/// A dialog with paper menus, as a window sees it that one of them opened.
class PaperMenuDialog {
  public:
    PaperMenuDialog() = default;
    PaperMenuDialog(const PaperMenuDialog&) = delete;
    PaperMenuDialog& operator=(const PaperMenuDialog&) = delete;
    virtual ~PaperMenuDialog() = default;

    /// Brings the views of the paper that stand beside its menus in line with them.
    virtual void updatePaperViews() = 0;
};

/// A window that is opened by a paper menu and works on it.
class PaperMenuWindow {
  public:
    PaperMenuWindow() = default;
    PaperMenuWindow(const PaperMenuWindow&) = delete;
    PaperMenuWindow& operator=(const PaperMenuWindow&) = delete;
    virtual ~PaperMenuWindow() = default;

    /// The menu that opens it; given before each opening.
    virtual void SetSubMenuList(SPSubMenuListCtrlEMF* menu) = 0;
};

/// The window behind the size "Custom".
class CustomSizeWindow : public PaperMenuWindow {
  public:
    /// The menu whose paper is entered; null before the first opening.
    virtual SPSubMenuListCtrlEMF* GetSubMenuList() = 0;
    /// The defaults of its fields in millimetres, as text.
    virtual std::string defaultCustomWidth() const = 0;
    virtual std::string defaultCustomLength() const = 0;
};

/// The window behind "Advanced".
class AdvancedPaperWindow : public PaperMenuWindow {
  public:
    /// The menu's indexes, -1 for "No Change".
    virtual void SetPaperSize(std::int32_t size, std::int32_t andColor, std::int32_t andType,
                              bool andInterposer) = 0;
    /// The sidedness list beside the menu; null when there is none.
    virtual void setDuplexControl(SidednessList* list) = 0;
    /// For the records that are edited: -1 when they differ in that part of their paper or leave it alone,
    /// else 0.
    virtual void SetSizeStatus(std::int32_t status) = 0;
    virtual void SetColorStatus(std::int32_t status) = 0;
    virtual void SetTypeStatus(std::int32_t status) = 0;
};

} // namespace specialpages
