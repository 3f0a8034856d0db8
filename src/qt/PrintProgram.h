// The print dialog of the program and all that it stands on: the document, the face, each printer's PPD, and
// what is done with a job.
#pragma once

#include "host/print_document.h"
#include "qt/PrintDialog.h"
#include "qt/PrintOptions.h"
#include "qt/QtFace.h"

#include <QPrinter>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace specialpages::qt {

/// What the program needs of the print system; tests have their own.
struct PrintServices {
    /// The PPD of a queue; HostError.
    std::function<host::PpdFile(const std::string& queue)> ppd;
    /// A PPD file; HostError.
    std::function<host::PpdFile(const std::string& file)> ppdFile;
    /// Prints, and answers what the job is called; HostError.
    std::function<std::string(const host::DocumentJob& job)> print;
};
/// Files are read when they are asked for; the queue's PPD and the road to it are those of CUPS.
PrintServices cups_services();

class PrintProgram {
  public:
    /// The dialog is not shown yet. HostError: input for a document or settings file that cannot be read,
    /// printer when the print system has no queue of the name that was asked for.
    PrintProgram(const PrintOptions& options, PrintServices services, std::ostream& out, std::ostream& err);

    PrintDialog& dialog() { return dialog_; }

  private:
    std::unique_ptr<PrinterTab> openTab(const std::string& printer);
    std::unique_ptr<PrinterTab> openTabOf(const std::string& printer);
    void openDocument();
    void print(const PrintRequest& request);
    void writeSettings(const platform::PrintSettings& settings);
    void printIntoFile() const;

    PrintOptions options_;
    PrintServices services_;
    std::ostream& out_;
    std::ostream& err_;
    WindowTexts texts_;
    std::optional<platform::PrintSettings> settings_;
    std::optional<std::int64_t> pages_; ///< of the document; empty without one
    QtFace face_;
    QPrinter printer_;
    PrintDialog dialog_;
};

} // namespace specialpages::qt
