#include "platform/foundation/Bundle.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PrintSettings.h"
#include "platform/print/print_dialog_extension.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

/// A host that has nothing but settings.
class Host : public PDEPluginCallback {
  public:
    explicit Host(bool& gone) : gone_(gone) {}
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() override { gone_ = true; }
    ppd_file_s* ppdFile() override { return nullptr; }
    PrintSettings* printSettings() override { return &settings; }
    PrintSession* printSession() override { return nullptr; }
    PageFormat* pageFormat() override { return nullptr; }
    PrintSettings settings;

  private:
    bool& gone_;
};

/// A panel that notes what it was asked.
class Panel : public PrintDialogPanel {
  public:
    Panel(PDEPluginCallback& host, bool& gone) : host_(host), gone_(gone) {}
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    ~Panel() override { gone_ = true; }
    View* panelView() override { return nullptr; }
    std::string panelName() override { return "Panel"; }
    std::string panelKind() override { return "com.example.panel"; }
    std::optional<std::vector<std::string>> supportedPPDOptionKeys() override { return std::nullopt; }
    void willShow() override {}
    bool shouldHide() override { return true; }
    bool shouldPrint() override {
        return PMPrintSettingsSetValue(host_.printSettings(), "printed", "1", false) == noErr;
    }
    bool shouldShowHelp() override { return false; }
    bool saveValuesAndReturnError(std::string* /*error*/) override { return true; }
    bool restoreValuesAndReturnError(std::string* /*error*/) override { return true; }
    std::optional<std::vector<std::pair<std::string, std::string>>> summaryInfo() override {
        return std::nullopt;
    }
    void PPDOptionKeyValueDidChange(std::string_view /*option*/, std::string_view /*ppdChoice*/) override {}

  private:
    PDEPluginCallback& host_;
    bool& gone_;
};

class Extension : public PrintDialogExtension {
  public:
    Extension(bool& gone, bool& panelGone) : gone_(gone), panelGone_(panelGone) {}
    Extension(const Extension&) = delete;
    Extension& operator=(const Extension&) = delete;
    ~Extension() override { gone_ = true; }
    bool initWithBundle(std::shared_ptr<Bundle> bundle) override { return bundle != nullptr; }
    std::optional<std::vector<std::unique_ptr<PrintDialogPanel>>>
    PDEPanelsForType(std::string_view type, PDEPluginCallback* host) override {
        if (type != kDialogPanelType || host == nullptr) {
            return std::nullopt;
        }
        std::vector<std::unique_ptr<PrintDialogPanel>> panels;
        panels.push_back(std::make_unique<Panel>(*host, panelGone_));
        return panels;
    }

  private:
    bool& gone_;
    bool& panelGone_;
};

TEST(PrintDialogExtension, IsUsedAndDestroyedThroughTheProtocolAlone) {
    bool hostGone = false;
    bool extensionGone = false;
    bool panelGone = false;
    {
        auto owned = std::make_unique<Host>(hostGone);
        Host& host = *owned;
        const std::unique_ptr<PDEPluginCallback> callback = std::move(owned);
        const std::unique_ptr<PrintDialogExtension> extension =
            std::make_unique<Extension>(extensionGone, panelGone);
        EXPECT_FALSE(extension->initWithBundle(nullptr));
        EXPECT_FALSE(extension->PDEPanelsForType("another type", callback.get()));
        auto panels = extension->PDEPanelsForType(kDialogPanelType, callback.get());
        ASSERT_TRUE(panels);
        ASSERT_EQ(panels->size(), 1U);
        EXPECT_TRUE(panels->front()->shouldPrint());
        ASSERT_NE(host.settings.value("printed"), nullptr);
        EXPECT_EQ(*host.settings.value("printed"), SettingsValue("1"));
        panels->clear();
        EXPECT_TRUE(panelGone);
        EXPECT_FALSE(extensionGone);
    }
    EXPECT_TRUE(extensionGone);
    EXPECT_TRUE(hostGone);
}

} // namespace
} // namespace specialpages::platform
