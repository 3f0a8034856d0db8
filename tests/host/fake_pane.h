// A pane made by hand, in place of a module: it notes every call of its host, and its view has one of each
// kind of view and buttons that open dialogs.
#pragma once

#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "platform/foundation/Bundle.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PrintSettings.h"
#include "platform/print/print_dialog_extension.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::host::testing {

using Calls = std::vector<std::string>;

/// What the fake pane answers and what it was asked; it outlives the pane.
struct FakePaneScript {
    Calls calls;
    bool hasPane = true;
    bool hasView = true;
    bool prints = true;
    /// Run by shouldPrint.
    std::function<void(platform::PDEPluginCallback& host)> onPrint;
};

class FakePanel final : public platform::PrintDialogPanel, private platform::TableViewDataSource {
  public:
    FakePanel(FakePaneScript& script, platform::PDEPluginCallback& host) : script_(script), host_(host) {
        makePane();
        makeDialogs();
    }
    ~FakePanel() override { script_.calls.emplace_back("~panel"); }

    platform::View* panelView() override {
        script_.calls.emplace_back("panelView");
        return script_.hasView ? view_.get() : nullptr;
    }
    std::string panelName() override {
        script_.calls.emplace_back("panelName");
        return "Fake Pane";
    }
    std::string panelKind() override {
        script_.calls.emplace_back("panelKind");
        return "org.example.fake";
    }
    std::optional<std::vector<std::string>> supportedPPDOptionKeys() override {
        script_.calls.emplace_back("supportedPPDOptionKeys");
        return std::nullopt;
    }
    void willShow() override { script_.calls.emplace_back("willShow"); }
    bool shouldHide() override {
        script_.calls.emplace_back("shouldHide");
        return true;
    }
    bool shouldPrint() override {
        script_.calls.emplace_back("shouldPrint");
        if (script_.onPrint) {
            script_.onPrint(host_);
        }
        return script_.prints;
    }
    bool shouldShowHelp() override { return false; }
    bool saveValuesAndReturnError(std::string* /*error*/) override {
        script_.calls.emplace_back("save");
        return true;
    }
    bool restoreValuesAndReturnError(std::string* /*error*/) override {
        script_.calls.emplace_back("restore");
        return true;
    }
    std::optional<std::vector<std::pair<std::string, std::string>>> summaryInfo() override {
        return std::nullopt;
    }
    void PPDOptionKeyValueDidChange(std::string_view /*option*/, std::string_view /*choice*/) override {}

  private:
    template <class Kind, class... Arguments>
    Kind& add(platform::View& parent, std::int32_t tag, Arguments&&... arguments) {
        auto made = std::make_shared<Kind>(std::forward<Arguments>(arguments)...);
        Kind& view = *made;
        view.setTag(tag);
        parent.addSubview(std::move(made));
        return view;
    }
    platform::Button& addButton(platform::View& parent, std::int32_t tag, std::string title,
                                std::function<void()> action) {
        auto& button = add<platform::Button>(parent, tag);
        button.setTitle(std::move(title));
        button.setTargetAction(this, [action = std::move(action)](platform::View&) { action(); });
        return button;
    }
    static void alert(const std::string& informativeText) {
        platform::Application::shared().runAlert({"Fake Pane", informativeText, "OK"});
    }

    // Tags 100 and up are the pane's: 100 opens the covers, 101 beeps twice and shows an alert, 102 is
    // disabled, 103 hidden, 104 the table, 105 stands in a hidden group, 106 ... 112 are the other kinds.
    void makePane() {
        view_ = std::make_shared<platform::View>();
        addButton(*view_, 100, "Covers", [this] {
            alert("before the covers");
            platform::Application::shared().runModalForWindow(*covers_);
            covers_->close();
            alert("after the covers");
        });
        addButton(*view_, 101, "Noise", [] {
            platform::Application::shared().NSBeep();
            platform::Application::shared().NSBeep();
            alert("noise");
        });
        addButton(*view_, 102, "Disabled", [] { alert("never"); }).setEnabled(false);
        addButton(*view_, 103, "Hidden", [] { alert("never"); }).setHidden(true);
        auto& table = add<platform::TableView>(*view_, 104);
        table.setTableColumns({{"page", "Page"}, {"type", "Type"}, {"setup", "Setup"}});
        table.setDataSource(this);
        table.reloadData();
        auto& group = add<platform::View>(*view_, 0);
        addButton(group, 105, "In a hidden group", [] { alert("never"); });
        group.setHidden(true);
        makeOtherKinds();
    }

    void makeOtherKinds() {
        auto& radio = add<platform::Button>(*view_, 106, platform::ViewKind::radio);
        radio.setTitle("Radio");
        auto& popup = add<platform::PopUpButton>(*view_, 107);
        popup.addItemWithTitle("First").setTag(7);
        platform::MenuItem& second = popup.addItemWithTitle("Second");
        second.setEnabled(false);
        second.setToolTip("No duplex on transparencies");
        platform::MenuItem& third = popup.addItemWithTitle("Third");
        third.setHidden(true);
        auto submenu = std::make_unique<platform::Menu>();
        submenu->addItemWithTitle("A4").setState(true);
        third.setSubmenu(std::move(submenu));
        auto& field = add<platform::TextField>(*view_, 108);
        field.setStringValue("3,7-9");
        add<platform::TextField>(*view_, 109, platform::ViewKind::staticText).setStringValue("Static");
        add<platform::TextField>(*view_, 110, platform::ViewKind::scrollText).setStringValue("Scroll");
        auto& stepper = add<platform::Stepper>(*view_, 111);
        stepper.setRange(1, 99.5);
        stepper.setIntValue(4);
        add<platform::IconView>(*view_, 112);
        addButton(*view_, 100, "A second view with the tag 100", [] { alert("never"); });
    }

    // The covers have OK 200, Cancel 201 and 202, which opens the warning; the warning has OK 300, and 301,
    // which ends both.
    void makeDialogs() {
        auto& application = platform::Application::shared();
        covers_ = std::make_shared<platform::Window>();
        covers_->setName("CoversWindowRef");
        covers_->setTitle("Covers");
        addButton(*covers_, 200, "OK", [&application] { application.stopModal(); });
        covers_->setCancelButton(&addButton(*covers_, 201, "Cancel", [this, &application] {
            script_.calls.emplace_back("covers cancelled");
            application.stopModal();
        }));
        addButton(*covers_, 202, "Warn", [this, &application] {
            endCoversToo_ = false;
            application.runModalForWindow(*warning_);
            warning_->close();
            alert("warned");
            if (endCoversToo_) {
                application.stopModal();
            }
        });
        warning_ = std::make_shared<platform::Window>();
        warning_->setName("WarningWindowRef");
        addButton(*warning_, 300, "OK", [&application] { application.stopModal(); });
        addButton(*warning_, 301, "End both", [this, &application] {
            endCoversToo_ = true;
            application.stopModal();
        });
        warning_->setCancelButton(&addButton(*warning_, 302, "Cancel", [this, &application] {
            script_.calls.emplace_back("warning cancelled");
            application.stopModal();
        }));
    }

    std::size_t numberOfRowsInTableView(platform::TableView& /*table*/) override { return 3; }
    std::optional<std::string> tableView_objectValueForTableColumn(platform::TableView& /*table*/,
                                                                   const platform::TableColumn& column,
                                                                   std::int64_t row) override {
        return column.identifier + std::to_string(row);
    }

    FakePaneScript& script_;
    platform::PDEPluginCallback& host_;
    std::shared_ptr<platform::View> view_;
    std::shared_ptr<platform::Window> covers_;
    std::shared_ptr<platform::Window> warning_;
    bool endCoversToo_ = false;
};

class FakeExtension final : public platform::PrintDialogExtension {
  public:
    explicit FakeExtension(FakePaneScript& script) : script_(script) {}
    ~FakeExtension() override { script_.calls.emplace_back("~extension"); }

    bool initWithBundle(std::shared_ptr<platform::Bundle> /*bundle*/) override {
        script_.calls.emplace_back("initWithBundle");
        return true;
    }
    std::optional<std::vector<std::unique_ptr<platform::PrintDialogPanel>>>
    PDEPanelsForType(std::string_view type, platform::PDEPluginCallback* host) override {
        script_.calls.push_back("PDEPanelsForType " + std::string(type));
        if (!script_.hasPane) {
            return std::nullopt;
        }
        std::vector<std::unique_ptr<platform::PrintDialogPanel>> panels;
        panels.push_back(std::make_unique<FakePanel>(script_, *host));
        return panels;
    }

  private:
    FakePaneScript& script_;
};

inline constexpr const char* kFakeInfo =
    "<plist "
    "version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>org.example.fake</string></dict></plist>";

/// A module of the fake pane; its bundle is a folder with an Info.plist.
inline PaneModule fake_module(FakePaneScript& script, const TemporaryFolder& folder) {
    folder.write("Fake.bundle/Info.plist", kFakeInfo);
    return {platform::Bundle::load(folder.path() / "Fake.bundle"), std::make_unique<FakeExtension>(script)};
}

} // namespace specialpages::host::testing
