#include "host/PrintHost.h"

#include "platform/toolkit/Application.h"

#include <utility>

namespace specialpages::host {

PrintHost::PrintHost(PpdFile ppd, platform::PrintSettings settings, const std::string& printerID)
    : ppd_(std::move(ppd)), settings_(std::move(settings)) {
    std::string identifier = printerID.empty() ? ppd_.model_name() : printerID;
    if (!identifier.empty()) {
        session_.currentPrinter = platform::Printer{std::move(identifier)};
    }
    window_.setName(kPaneWindowName);
    followPageSize();
}

bool PrintHost::openPane(PaneModule module) {
    module_ = std::make_unique<PaneModule>(std::move(module));
    platform::PrintDialogExtension& extension = module_->extension();
    extension.initWithBundle(module_->bundle());
    auto panels = extension.PDEPanelsForType(platform::kDialogPanelType, this);
    if (!panels || panels->empty()) {
        return false;
    }
    panels_ = std::move(*panels);
    panel()->supportedPPDOptionKeys();
    window_.setTitle(panel()->panelName());
    panel()->panelKind();
    if (platform::View* const view = panel()->panelView()) {
        // The panel owns its view; the window shows it and does not own it.
        window_.addSubview(std::shared_ptr<platform::View>(std::shared_ptr<void>(), view));
    }
    platform::Application::shared().setMainWindow(&window_);
    window_.open();
    return true;
}

void PrintHost::markJobOptions(const JobOptions& options) {
    ppd_.mark_job_options(options);
    followPageSize();
}

void PrintHost::mark(const std::string& option, const std::string& choice) {
    ppd_.mark(option, choice);
    followPageSize();
}

void PrintHost::followPageSize() {
    const auto size = ppd_.page_size();
    hasPageFormat_ = size.has_value();
    if (size) {
        pageFormat_.unadjustedPaperRect = {0, 0, size->length, size->width};
    }
}

} // namespace specialpages::host
