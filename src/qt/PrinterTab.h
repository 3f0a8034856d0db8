// The tab of one printer in the print dialog: its pane, with a check box below it that asks to remember the
// settings; or a sentence that says why there is no pane to show.
#pragma once

#include "qt/PrinterPane.h"
#include "qt/WindowTexts.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QLabel;
class QVBoxLayout;

namespace specialpages::qt {

class PrinterTab : public QWidget {
  public:
    /// A tab that says this sentence.
    PrinterTab(const WindowTexts& texts, const QString& sentence);
    /// The tab of a pane. Its settings are kept under the name `printer`; the check box is on when they are.
    /// `unreadable`, when not empty, is why those that were kept cannot be read: the tab says so, and nothing
    /// is kept or forgotten.
    PrinterTab(const WindowTexts& texts, std::unique_ptr<PrinterPane> pane, std::string printer,
               bool remembered, const std::string& unreadable);

    /// Null where the tab says why there is none.
    PrinterPane* pane() const { return pane_.get(); }
    /// Null without a pane.
    QCheckBox* rememberBox() const { return remember_; }

    /// The job was printed: keeps the pane's settings or forgets them, as the check box says. HostError.
    void keepSettings();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QLabel* addSentence(QVBoxLayout& layout, const QString& sentence);

    std::unique_ptr<PrinterPane> pane_;
    std::string printer_;
    QCheckBox* remember_ = nullptr;
};

/// What a tab is opened with.
struct PrinterTabOptions {
    std::string printer; ///< the queue; empty for a PPD without one, whose model name stands for it
    std::optional<platform::PrintSettings> settings; ///< to begin with; none: what is remembered
    std::string language;                            ///< as in PrinterPaneOptions
    std::filesystem::path bundle;                    ///< as in PrinterPaneOptions
};

/// Reads a printer's PPD.
using ReadPpd = std::function<host::PpdFile()>;

/// The tab of the printer with the PPD that `ppd` answers. Null when it has no such pane, or no PPD
/// at all (QueueWithoutPpd). Whatever else cannot be opened on the way, HostErrors of `ppd` included, becomes
/// the tab's sentence.
std::unique_ptr<PrinterTab> open_printer_tab(const ReadPpd& ppd, PrinterTabOptions options, QtFace& face,
                                             const WindowTexts& texts);

} // namespace specialpages::qt
