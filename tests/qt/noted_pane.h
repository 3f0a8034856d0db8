// The pane of the bundle with a listener in between, which notes what a print dialog calls and can refuse to
// print.
#pragma once

#include "host/PaneModule.h"
#include "platform/print/print_dialog_extension.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages::qt::testing {

/// Outlives the pane.
struct PaneNotes {
    std::vector<std::string> calls; ///< willShow, shouldHide, shouldPrint
    bool prints = true;
    std::function<void()> onPrint; ///< run before the pane is asked
};

class NotedPanel final : public platform::PrintDialogPanel {
  public:
    NotedPanel(PaneNotes& notes, std::unique_ptr<platform::PrintDialogPanel> panel)
        : notes_(notes), panel_(std::move(panel)) {}

    platform::View* panelView() override { return panel_->panelView(); }
    std::string panelName() override { return panel_->panelName(); }
    std::string panelKind() override { return panel_->panelKind(); }
    std::optional<std::vector<std::string>> supportedPPDOptionKeys() override {
        return panel_->supportedPPDOptionKeys();
    }
    void willShow() override {
        notes_.calls.emplace_back("willShow");
        panel_->willShow();
    }
    bool shouldHide() override {
        notes_.calls.emplace_back("shouldHide");
        return panel_->shouldHide();
    }
    bool shouldPrint() override {
        notes_.calls.emplace_back("shouldPrint");
        if (notes_.onPrint) {
            notes_.onPrint();
        }
        return panel_->shouldPrint() && notes_.prints;
    }
    bool shouldShowHelp() override { return panel_->shouldShowHelp(); }
    bool saveValuesAndReturnError(std::string* error) override {
        return panel_->saveValuesAndReturnError(error);
    }
    bool restoreValuesAndReturnError(std::string* error) override {
        return panel_->restoreValuesAndReturnError(error);
    }
    std::optional<std::vector<std::pair<std::string, std::string>>> summaryInfo() override {
        return panel_->summaryInfo();
    }
    void PPDOptionKeyValueDidChange(std::string_view option, std::string_view choice) override {
        panel_->PPDOptionKeyValueDidChange(option, choice);
    }

  private:
    PaneNotes& notes_;
    std::unique_ptr<platform::PrintDialogPanel> panel_;
};

class NotedExtension final : public platform::PrintDialogExtension {
  public:
    NotedExtension(PaneNotes& notes, host::PaneModule module) : notes_(notes), module_(std::move(module)) {}

    bool initWithBundle(std::shared_ptr<platform::Bundle> bundle) override {
        return module_.extension().initWithBundle(std::move(bundle));
    }
    std::optional<std::vector<std::unique_ptr<platform::PrintDialogPanel>>>
    PDEPanelsForType(std::string_view type, platform::PDEPluginCallback* host) override {
        auto panels = module_.extension().PDEPanelsForType(type, host);
        if (panels) {
            for (auto& panel : *panels) {
                panel = std::make_unique<NotedPanel>(notes_, std::move(panel));
            }
        }
        return panels;
    }

  private:
    PaneNotes& notes_;
    host::PaneModule module_;
};

/// The module of the bundle that a host finds.
inline host::PaneModule noted_module(PaneNotes& notes) {
    host::PaneModule module(host::find_bundle());
    const auto bundle = module.bundle();
    return {bundle, std::make_unique<NotedExtension>(notes, std::move(module))};
}

} // namespace specialpages::qt::testing
