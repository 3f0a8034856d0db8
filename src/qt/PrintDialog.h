// The platform's print dialog with the pane of the chosen printer as a tab.
#pragma once

#include "qt/PrinterPane.h"

#include <QPrintDialog>
#include <QString>
#include <functional>
#include <memory>
#include <string>

class QTabWidget;

namespace specialpages::qt {

class PrintDialog : public QPrintDialog {
  public:
    explicit PrintDialog(QPrinter& printer, QWidget* parent = nullptr);
    ~PrintDialog() override;

    /// The printer's pane becomes the tab, in place of the one before, and the pane in front. Null: the
    /// printer has none, and there is no tab.
    void setPane(std::unique_ptr<PrinterPane> pane);
    /// A tab that says this sentence in place of a pane.
    void setProblem(const QString& sentence);
    /// Null when the printer has no pane.
    PrinterPane* pane() const { return pane_.get(); }
    /// The tab that stands there now: the pane or the sentence; null for none.
    QWidget* tab() const { return tab_; }

    /// What is done with the settings when the user prints. It may throw HostError: the dialog then says so
    /// and stays.
    void setPrintHandler(std::function<void(const platform::PrintSettings&)> handler);

    /// Print. Nothing happens, and the dialog says why, when the pane does not let it.
    void accept() override;
    void done(int result) override;

  private:
    void showTab(QWidget* tab);
    void expand();
    QTabWidget& tabs();
    void say(const QString& sentence);

    std::unique_ptr<PrinterPane> pane_;
    QWidget* tab_ = nullptr;
    std::unique_ptr<QWidget> problem_;
    std::function<void(const platform::PrintSettings&)> handler_;
};

} // namespace specialpages::qt
