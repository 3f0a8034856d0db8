#include "qt/run_print.h"

#include "host/HostError.h"
#include "host/settings_file.h"
#include "qt/PrintDialog.h"
#include "qt/QtFace.h"
#include "qt/document_pages.h"
#include "qt/text.h"

#include <CLI/CLI.hpp>

#include <QPrinter>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>

namespace specialpages::qt {

namespace {

constexpr const char* kStandardStream = "-";

void write_settings(const PrintOptions& options, const platform::PrintSettings& settings, std::ostream& out) {
    if (options.out == kStandardStream) {
        out << host::write_settings(settings, host::SettingsFormat::json) << std::flush;
    } else {
        host::write_settings_file(options.out, settings);
    }
}

/// The pane of the PPD, a sentence where there can be none, and no tab for a printer without one.
void show_printer(PrintDialog& dialog, const PrintOptions& options, QtFace& face) {
    if (options.ppd.empty()) {
        return;
    }
    PrinterPaneOptions pane;
    pane.ppd = options.ppd;
    pane.language = options.language;
    if (!options.settings.empty()) {
        pane.settings = host::read_settings_file(options.settings);
    }
    try {
        dialog.setPane(PrinterPane::open(std::move(pane), face));
    } catch (const host::HostError& error) {
        dialog.setProblem(shown_text(error.what()));
    }
}

int show_dialog(const PrintOptions& options, std::ostream& out) {
    QtFace face;
    QPrinter printer;
    PrintDialog dialog(printer);
    std::optional<std::int64_t> known;
    if (!options.document.empty()) {
        const int pages = document_pages(options.document);
        known = pages;
        dialog.setMinMax(1, std::max(pages, 1));
        dialog.setFromTo(1, std::max(pages, 1));
        printer.setDocName(shown_text(std::filesystem::path(options.document).filename().string()));
    }
    show_printer(dialog, options, face);
    if (dialog.pane() != nullptr && dialog.pane()->glance() != nullptr) {
        dialog.pane()->glance()->setPages(known);
    }
    dialog.setPrintHandler(
        [&](const platform::PrintSettings& settings) { write_settings(options, settings, out); });
    return dialog.exec() == QDialog::Accepted ? 0 : 1;
}

} // namespace

std::optional<PrintOptions> parse_print_options(std::vector<std::string> arguments, std::ostream& out,
                                                std::ostream& err, int& exit) {
    PrintOptions options;
    CLI::App app("Prints a document with covers, inserts and exception pages.", "special-pages-print");
    app.add_option("FILE", options.document, "The PDF document");
    app.add_option("--ppd", options.ppd, "The printer's PPD file");
    app.add_option("--settings", options.settings, "Settings to begin with");
    app.add_option("--out", options.out, "Where Print writes the settings; - is standard output")
        ->capture_default_str();
    app.add_option("--lang", options.language, "Language of the pane");
    app.set_version_flag("--version", SPECIALPAGES_VERSION);
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error, out, err);
        exit = code == 0 ? 0 : host::exit_code(host::ErrorCode::usage);
        return std::nullopt;
    }
    return options;
}

int run_print(const PrintOptions& options, std::ostream& out, std::ostream& err) {
    try {
        return show_dialog(options, out);
    } catch (const host::HostError& error) {
        err << "special-pages-print: " << error.what() << '\n';
        return host::exit_code(error.code());
    }
}

} // namespace specialpages::qt
