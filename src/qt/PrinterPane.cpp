#include "qt/PrinterPane.h"

#include "platform/foundation/Bundle.h"
#include "qt/TableWidget.h"

#include <QLayout>
#include <QPointer>
#include <utility>

namespace specialpages::qt {

std::unique_ptr<PrinterPane> PrinterPane::open(const PrinterPaneOptions& options, QtFace& face) {
    return open(host::PpdFile(options.ppd), options, face);
}

std::unique_ptr<PrinterPane> PrinterPane::open(host::PpdFile ppd, const PrinterPaneOptions& options,
                                               QtFace& face) {
    host::PaneModule module(options.bundle.empty() ? host::find_bundle() : options.bundle);
    return open(std::move(ppd), std::move(module), options, face);
}

std::unique_ptr<PrinterPane> PrinterPane::open(host::PpdFile ppd, host::PaneModule module,
                                               const PrinterPaneOptions& options, QtFace& face) {
    std::unique_ptr<PrinterPane> pane(new PrinterPane);
    if (!options.language.empty()) {
        module.bundle()->setPreferredLanguages({options.language});
    }
    pane->host_ = std::make_unique<host::PrintHost>(std::move(ppd), options.settings, options.printer);
    if (!pane->host_->openPane(std::move(module))) {
        return nullptr;
    }
    // False here means that the help book could not be registered; the pane is complete all the same.
    pane->host_->panel()->restoreValuesAndReturnError(nullptr);
    pane->widget_ = std::make_unique<PaneWidget>(*pane->host_, face);
    if (auto* const table = PaneGlance::tableBelow(*pane->host_->panel()->panelView())) {
        pane->glance_ = new PaneGlance(*pane->host_, *table, pane->widget_.get());
        pane->widget_->layout()->addWidget(pane->glance_);
        if (auto* const rows = dynamic_cast<TableWidget*>(pane->widget_->mirror().widgetOf(*table))) {
            rows->setRowWords([glance = QPointer<PaneGlance>(pane->glance_)](std::size_t row) {
                return glance == nullptr ? QString() : glance->rowSentence(row);
            });
        }
    }
    return pane;
}

} // namespace specialpages::qt
