// A modal window that belongs to a panel: every dialog of the pane. It reuses the panel's registries and
// walks and adds the modal run. Each opening rebuilds its controls from the tables; the result of the dialog
// reaches the rest of the pane only through its OK button, so that Cancel leaves every committed value as it
// was.
#pragma once

#include "controls/BasePrintPanelEMFSpecialPages.h"

namespace specialpages {

class PopupWinInPanelEMFSpecialPages : public BasePrintPanelEMFSpecialPages {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;

    /// Binds the window (null: the nib does not provide it, and the dialog then never opens) and the key of
    /// its title (null: none). A subclass calls it first and then makes its controls.
    void PopupWinInPanel(platform::Window* window, const char* theWinTitleStr);
    /// What the pane calls: a subclass makes its controls here.
    virtual void CreatePanel(platform::Window* window, const char* theWinTitleStr);

    std::int32_t InitializeUserPane(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    std::int32_t ReInitializeUserPane();
    /// Sets the window's title from the default table; 1 when it did, 0 without bundle or key.
    virtual std::int32_t InitializeUserPaneTitle(platform::Bundle* bundle);
    std::int32_t ReInitializeUserPaneTitle() { return InitializeUserPaneTitle(pdeBundleRef); }

    /// Opens the dialog and returns when it ended; does nothing without a window. Answers 0.
    virtual std::int32_t ActivateWindow();
    /// Ends the modal run and closes the window. Answers 0.
    std::int32_t DeactivateWindow();
    /// Brings all UI blocks up to date with the views; nothing is committed. Answers 0.
    std::int32_t SycValueFromUI();
    static std::int32_t ReleaseWindow() { return 0; }

    /// Whether the dialog is in use.
    bool IsActived() const { return isActived; }
    void ChangeActivedStatus(bool actived = true) { isActived = actived; }

    /// Only the main pane holds the printer's identifier.
    std::optional<std::string> GetCurrentPrinterString() override;

    /// "Localizable" and the PPD's index, once a PPD has named one.
    const std::optional<std::string>& localizeTableName() const { return LocalizeTableName; }

  protected:
    const char* winTitleTextRef = nullptr;
    ppd_file_s* currentPPD = nullptr;
    bool isActived = false;
};

} // namespace specialpages
