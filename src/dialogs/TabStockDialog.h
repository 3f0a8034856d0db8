// What the tab stock windows need of the dialog that is open below them: the tab values live there, and go to
// the pane with that dialog's OK.
#pragma once

#include <cstdint>

namespace specialpages {

class ControlPanel;

/// A dialog whose paper may be tab stock.
class TabStockDialog {
  public:
    TabStockDialog() = default;
    TabStockDialog(const TabStockDialog&) = delete;
    TabStockDialog& operator=(const TabStockDialog&) = delete;
    virtual ~TabStockDialog() = default;

    /// The number of tabs in a sequence.
    virtual void setTabStockValue(std::int32_t value) = 0;
    virtual std::int32_t getTabStockValue() const = 0;
};

/// One whose pages are printed on, so that the print may be moved toward the tab.
class TabMarginDialog : public TabStockDialog {
  public:
    /// Item number of the presets: 1 no shift, 2 Letter, 3 A4, 4 custom.
    virtual void setTabMarginListValue(std::int32_t value) = 0;
    virtual std::int32_t getTabMarginListValue() const = 0;
    /// Tenths of a millimetre, whatever the unit shown.
    virtual void setTabMarginValue(std::int32_t value) = 0;
    virtual std::int32_t getTabMarginValue() const = 0;
};

/// The first of the covers, inserts and exceptions dialogs that is in use, found through the pane of the
/// panel. Null when none is, or without a panel.
TabStockDialog* active_tab_stock_dialog(ControlPanel* panel);
/// The exceptions dialog while it is in use, else null.
TabMarginDialog* active_tab_margin_dialog(ControlPanel* panel);

} // namespace specialpages
