#include "qt/PrinterPane.h"

#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"

#include <QLayout>
#include <utility>

namespace specialpages::qt {

std::unique_ptr<PrinterPane> PrinterPane::open(PrinterPaneOptions options, QtFace& face) {
    std::unique_ptr<PrinterPane> pane(new PrinterPane);
    host::PaneModule module(options.bundle.empty() ? host::find_bundle() : options.bundle);
    if (!options.language.empty()) {
        module.bundle()->setPreferredLanguages({options.language});
    }
    pane->host_ = std::make_unique<host::PrintHost>(host::PpdFile(options.ppd), std::move(options.settings),
                                                    options.printer);
    if (!pane->host_->openPane(std::move(module))) {
        return nullptr;
    }
    // False here means that the help book could not be registered; the pane is complete all the same.
    pane->host_->panel()->restoreValuesAndReturnError(nullptr);
    pane->widget_ = std::make_unique<PaneWidget>(*pane->host_, face);
    if (auto* const table = PaneGlance::tableBelow(*pane->host_->panel()->panelView())) {
        pane->glance_ = new PaneGlance(*pane->host_, *table, pane->widget_.get());
        pane->widget_->layout()->addWidget(pane->glance_);
    }
    return pane;
}

bool PrinterPane::print(std::string& reason) {
    if (platform::Application::shared().modalDepth() > 0) {
        reason = "A window of Special Pages is open. Close it first.";
        return false;
    }
    if (!host_->panel()->shouldPrint()) {
        reason = "Special Pages stopped the printing.";
        return false;
    }
    return true;
}

} // namespace specialpages::qt
