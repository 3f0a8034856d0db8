// The platform's print dialog with the pane of the chosen printer as a tab. Each printer's tab is opened when
// the printer is chosen first, and kept: what was declared for it is there when it is chosen again.
#pragma once

#include "host/job_options.h"
#include "qt/PrinterTab.h"
#include "qt/WindowTexts.h"

#include <QPoint>
#include <QPrintDialog>
#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QComboBox;
class QTabWidget;

namespace specialpages::qt {

/// What the user asked to print.
struct PrintRequest {
    std::string printer;                               ///< the queue; empty: into a file
    host::JobOptions options;                          ///< the dialog's choices; none for a file
    const platform::PrintSettings* settings = nullptr; ///< the pane's; null for a printer without one
};

class PrintDialog : public QPrintDialog {
  public:
    explicit PrintDialog(QPrinter& printer, WindowTexts texts = {}, QWidget* parent = nullptr);
    ~PrintDialog() override;

    /// Opens the tab of a printer, "" being the entry that prints into a file. Null: it has no tab.
    using OpenTab = std::function<std::unique_ptr<PrinterTab>(const std::string& printer)>;
    /// Shows the chosen printer's tab as soon as the dialog is shown, and with each choice of a printer.
    void followPrinters(OpenTab open);
    /// The queues that can be chosen, in the dialog's order.
    std::vector<std::string> printers() const;
    /// The chosen queue; empty for the entry that prints into a file.
    std::string chosenPrinter() const;
    /// Chooses it as the user does, or, before the dialog is shown, as what it opens with; false when there
    /// is no such queue.
    bool choosePrinter(const std::string& printer);

    /// The chosen printer's tab; null when it has none.
    PrinterTab* tab() const { return tab_; }
    /// The chosen printer's pane; null when it has none or could not be opened.
    PrinterPane* pane() const { return tab_ == nullptr ? nullptr : tab_->pane(); }

    /// What is done when the user prints and the pane has written its settings. It may throw HostError: the
    /// dialog then says so and stays as it is. After it, settings are remembered or forgotten.
    void setPrintHandler(std::function<void(const PrintRequest&)> handler);

    void setVisible(bool visible) override;
    /// Print. Nothing happens, and the dialog says why, while a window of the pane is open.
    void accept() override;
    /// Accepted: the pane writes its settings for the choices that the dialog has made by now. When it
    /// refuses, or the handler does, the dialog says so and stays.
    void done(int result) override;

  private:
    void follow();
    void showTab(PrinterTab* tab);
    void expand();
    /// Gives the dialog, which may have grown downward from where it was placed for its small size, a size
    /// for its tabs and a place on the screen where all of it is seen, around where its middle was.
    void fitOnScreen(QPoint middle);
    bool print();
    void keepSettings();
    QTabWidget& tabs() const;
    QComboBox& printerList() const;
    void say(const QString& sentence);

    WindowTexts texts_;
    OpenTab open_;
    std::map<std::string, std::unique_ptr<PrinterTab>> opened_; ///< null: the printer has no tab
    PrinterTab* tab_ = nullptr;
    bool tabInFront_ = true; ///< whether a tab comes to the front when it is shown
    std::function<void(const PrintRequest&)> handler_;
};

} // namespace specialpages::qt
