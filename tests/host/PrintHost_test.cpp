#include "host/PrintHost.h"
#include "host/fake_pane.h"
#include "host/host_fixtures.h"
#include "platform/toolkit/Application.h"

#include <cups/ppd.h>
#include <gtest/gtest.h>

namespace specialpages::host {
namespace {

using testing::Calls;
using testing::error_of;
using testing::fake_module;
using testing::FakePaneScript;
using testing::small_ppd;
using testing::TemporaryFolder;

PpdFile small() {
    return PpdFile::parse(small_ppd(), "small.ppd");
}

TEST(PrintHost, HandsOutWhatAPaneBorrows) {
    platform::PrintSettings settings;
    settings.setValue("key", std::string("value"), false);
    PrintHost host(small(), settings, "queue-7");
    ASSERT_NE(host.ppdFile(), nullptr);
    EXPECT_STREQ(host.ppdFile()->modelname, "NV Small");
    ASSERT_NE(host.printSettings(), nullptr);
    EXPECT_EQ(host.printSettings()->entries().size(), 1U);
    const platform::Printer* printer = nullptr;
    ASSERT_EQ(platform::PMSessionGetCurrentPrinter(host.printSession(), printer), platform::noErr);
    EXPECT_EQ(platform::PMPrinterGetID(*printer), "queue-7");
}

TEST(PrintHost, ThePrinterIsThePpdsModelWhenNoneIsNamed) {
    PrintHost host(small(), {});
    const platform::Printer* printer = nullptr;
    ASSERT_EQ(platform::PMSessionGetCurrentPrinter(host.printSession(), printer), platform::noErr);
    EXPECT_EQ(platform::PMPrinterGetID(*printer), "NV Small");
}

TEST(PrintHost, NoPrinterIsChosenWhenNothingNamesOne) {
    PrintHost host(PpdFile::parse("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n", "bare.ppd"), {});
    const platform::Printer* printer = nullptr;
    EXPECT_EQ(platform::PMSessionGetCurrentPrinter(host.printSession(), printer), platform::kPMNoSessionData);
    EXPECT_EQ(host.pageFormat(), nullptr);
}

TEST(PrintHost, ThePageFormatFollowsTheMarkedSize) {
    PrintHost host(small(), {});
    platform::PMRect sheet;
    ASSERT_EQ(platform::PMGetUnadjustedPaperRect(host.pageFormat(), sheet), platform::noErr);
    EXPECT_EQ(sheet.top, 0);
    EXPECT_EQ(sheet.left, 0);
    EXPECT_EQ(sheet.bottom, 842);
    EXPECT_EQ(sheet.right, 595);

    host.mark("PageSize", "Custom.300x500");
    ASSERT_EQ(platform::PMGetUnadjustedPaperRect(host.pageFormat(), sheet), platform::noErr);
    EXPECT_EQ(sheet.bottom, 500);
    EXPECT_EQ(sheet.right, 300);

    EXPECT_EQ(error_of([&] { host.mark("PageSize", "B5"); }).code(), ErrorCode::usage);
    EXPECT_EQ(host.pageFormat()->unadjustedPaperRect.bottom, 500);
}

TEST(PrintHost, CallsAPaneInTheUsualOrderUpToTheFirstRestore) {
    const TemporaryFolder folder;
    FakePaneScript script;
    PrintHost host(small(), {});
    ASSERT_TRUE(host.openPane(fake_module(script, folder)));
    EXPECT_EQ(script.calls, (Calls{"initWithBundle", "PDEPanelsForType BDB091F4-E57F-11D3-B5CC-0050E4603277",
                                   "supportedPPDOptionKeys", "panelName", "panelKind", "panelView"}));
    EXPECT_EQ(host.module().bundle()->bundleIdentifier(), "org.example.fake");
}

TEST(PrintHost, ShowsThePaneInTheMainWindow) {
    const TemporaryFolder folder;
    FakePaneScript script;
    PrintHost host(small(), {});
    ASSERT_TRUE(host.openPane(fake_module(script, folder)));
    EXPECT_EQ(platform::Application::shared().frontWindow(), &host.window());
    EXPECT_EQ(host.window().name(), "pane");
    EXPECT_EQ(host.window().title(), "Fake Pane");
    EXPECT_TRUE(host.window().isOpen());
    platform::View* const button = host.window().viewWithTag(100);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->window(), &host.window());
    EXPECT_TRUE(button->acceptsEvents());
}

TEST(PrintHost, WithoutAPaneThereIsNoPanelAndNoMainWindow) {
    const TemporaryFolder folder;
    FakePaneScript script;
    script.hasPane = false;
    PrintHost host(small(), {});
    EXPECT_FALSE(host.openPane(fake_module(script, folder)));
    EXPECT_EQ(host.panel(), nullptr);
    EXPECT_EQ(platform::Application::shared().frontWindow(), nullptr);
}

TEST(PrintHost, APaneWithoutAViewLeavesTheWindowEmpty) {
    const TemporaryFolder folder;
    FakePaneScript script;
    script.hasView = false;
    PrintHost host(small(), {});
    EXPECT_TRUE(host.openPane(fake_module(script, folder)));
    EXPECT_TRUE(host.window().subviews().empty());
}

TEST(PrintHost, EndsThePanelBeforeItsCodeAndLeavesTheApplicationWithoutAWindow) {
    const TemporaryFolder folder;
    FakePaneScript script;
    {
        PrintHost host(small(), {});
        ASSERT_TRUE(host.openPane(fake_module(script, folder)));
        script.calls.clear();
    }
    EXPECT_EQ(script.calls, (Calls{"~panel", "~extension"}));
    EXPECT_EQ(platform::Application::shared().frontWindow(), nullptr);
}

} // namespace
} // namespace specialpages::host
