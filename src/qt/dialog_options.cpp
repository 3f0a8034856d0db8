#include "qt/dialog_options.h"

#include "qt/text.h"

#include <QPageLayout>
#include <QPageRanges>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <utility>

namespace specialpages::qt {

namespace {

/// Where the dialog leaves options for the print system: a flat list of name, value, name, value.
constexpr auto kDialogOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

void set(host::JobOptions& options, std::string name, std::string value) {
    const auto same = std::find_if(options.begin(), options.end(),
                                   [&](const host::JobOption& option) { return option.name == name; });
    if (same != options.end()) {
        same->value = std::move(value);
    } else {
        options.push_back({std::move(name), std::move(value)});
    }
}

const char* sides(QPrinter::DuplexMode duplex) {
    switch (duplex) {
    case QPrinter::DuplexNone:
        return "one-sided";
    case QPrinter::DuplexAuto:
    case QPrinter::DuplexLongSide:
        return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "two-sided-short-edge";
    }
    return "one-sided";
}

std::string chosen_pages(const QPrinter& printer) {
    if (printer.printRange() != QPrinter::PageRange) {
        return "";
    }
    if (!printer.pageRanges().isEmpty()) {
        return model_text(printer.pageRanges().toString());
    }
    return printer.fromPage() < 1
               ? ""
               : std::to_string(printer.fromPage()) + "-" + std::to_string(printer.toPage());
}

} // namespace

host::JobOptions dialog_options(const QPrinter& printer) {
    host::JobOptions options;
    const QPageLayout layout = printer.pageLayout();
    if (layout.pageSize().isValid()) {
        options.push_back({"media", model_text(layout.pageSize().key())});
    }
    options.push_back({"sides", sides(printer.duplex())});
    if (printer.copyCount() > 1) {
        options.push_back({"copies", std::to_string(printer.copyCount())});
        options.push_back({"multiple-document-handling", printer.collateCopies()
                                                             ? "separate-documents-collated-copies"
                                                             : "separate-documents-uncollated-copies"});
    }
    if (const std::string pages = chosen_pages(printer); !pages.empty()) {
        options.push_back({"page-ranges", pages});
    }
    if (layout.orientation() == QPageLayout::Landscape) {
        options.push_back({"orientation-requested", "4"});
    }
    if (printer.colorMode() == QPrinter::GrayScale) {
        options.push_back({"print-color-mode", "monochrome"});
    }
    const QStringList more = printer.printEngine()->property(kDialogOptions).toStringList();
    for (qsizetype i = 0; i + 1 < more.size(); i += 2) {
        set(options, model_text(more[i]), model_text(more[i + 1]));
    }
    return options;
}

} // namespace specialpages::qt
