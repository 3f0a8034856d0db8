#include "qt/PrintProgram.h"

#include "host/HostError.h"
#include "host/queue_ppd.h"
#include "host/settings_file.h"
#include "qt/PaneGlance.h"
#include "qt/document_pages.h"
#include "qt/text.h"

#include <QPageRanges>
#include <algorithm>
#include <filesystem>
#include <ostream>
#include <utility>

namespace specialpages::qt {

namespace {

constexpr const char* kStandardStream = "-";

/// The dialog calls an instance of a queue "queue/instance"; PPD and jobs are the queue's.
std::string queue_of(const std::string& printer) {
    return printer.substr(0, printer.find('/'));
}

std::vector<PageRange> chosen_pages(const QPrinter& printer) {
    std::vector<PageRange> pages;
    if (printer.printRange() != QPrinter::PageRange) {
        return pages;
    }
    for (const QPageRanges::Range& range : printer.pageRanges().toRangeList()) {
        pages.push_back({range.from, range.to});
    }
    if (pages.empty() && printer.fromPage() > 0) {
        pages.push_back({printer.fromPage(), printer.toPage()});
    }
    return pages;
}

} // namespace

PrintServices cups_services() {
    return {[](const std::string& queue) { return host::queue_ppd(queue); },
            [](const std::string& file) { return host::PpdFile(file); },
            [](const host::DocumentJob& job) {
                return host::print_document(job).job.name();
            }};
}

PrintProgram::PrintProgram(const PrintOptions& options, PrintServices services, std::ostream& out,
                           std::ostream& err)
    : options_(options), services_(std::move(services)), out_(out), err_(err),
      texts_(std::filesystem::path(), options.language), dialog_(printer_, texts_) {
    openDocument();
    if (!options_.settings.empty()) {
        settings_ = host::read_settings_file(options_.settings);
    }
    if (!options_.ppd.empty()) {
        dialog_.choosePrinter(""); // a PPD without a queue prints into a file
    }
    if (!options_.printer.empty() && !dialog_.choosePrinter(options_.printer)) {
        throw host::HostError(host::ErrorCode::printer, options_.printer,
                              "the print system has no such queue");
    }
    dialog_.followPrinters([this](const std::string& printer) { return openTab(printer); });
    dialog_.setPrintHandler([this](const PrintRequest& request) { print(request); });
}

void PrintProgram::openDocument() {
    if (options_.document.empty()) {
        return;
    }
    pages_ = document_pages(options_.document);
    const int pages = std::max(static_cast<int>(*pages_), 1);
    dialog_.setMinMax(1, pages);
    dialog_.setFromTo(1, pages);
    printer_.setDocName(shown_text(std::filesystem::path(options_.document).filename().string()));
}

std::unique_ptr<PrinterTab> PrintProgram::openTab(const std::string& printer) {
    auto tab = openTabOf(printer);
    PrinterPane* const pane = tab == nullptr ? nullptr : tab->pane();
    if (pane != nullptr && pane->glance() != nullptr) {
        pane->glance()->setPages(pages_);
    }
    return tab;
}

std::unique_ptr<PrinterTab> PrintProgram::openTabOf(const std::string& printer) {
    if (printer.empty() && options_.ppd.empty()) {
        return nullptr;
    }
    PrinterTabOptions options;
    options.printer = queue_of(printer);
    options.settings = std::exchange(settings_, std::nullopt);
    options.language = options_.language;
    if (!printer.empty()) {
        return open_printer_tab([&] { return services_.ppd(options.printer); }, options, face_, texts_);
    }
    return open_printer_tab([this] { return services_.ppdFile(options_.ppd); }, options, face_, texts_);
}

void PrintProgram::writeSettings(const platform::PrintSettings& settings) {
    if (options_.out == kStandardStream) {
        out_ << host::write_settings(settings, host::SettingsFormat::json) << std::flush;
    } else {
        host::write_settings_file(options_.out, settings);
    }
}

void PrintProgram::printIntoFile() const {
    const QString file = printer_.outputFileName();
    if (!file.isEmpty()) {
        write_pages(options_.document, chosen_pages(printer_), model_text(file));
    }
}

void PrintProgram::print(const PrintRequest& request) {
    // A file can be written again when the queue refuses the job; a stream cannot.
    const bool intoStream = options_.out == kStandardStream;
    if (request.settings != nullptr && !intoStream) {
        writeSettings(*request.settings);
    }
    if (!options_.document.empty() && request.printer.empty()) {
        printIntoFile();
    } else if (!options_.document.empty()) {
        host::DocumentJob job;
        job.queue = queue_of(request.printer);
        job.document = options_.document;
        job.queueOptions = request.options;
        if (request.settings != nullptr) {
            job.settings = *request.settings;
        }
        err_ << "special-pages-print: the job is " << services_.print(job) << '\n' << std::flush;
    }
    if (request.settings != nullptr && intoStream) {
        writeSettings(*request.settings);
    }
}

} // namespace specialpages::qt
