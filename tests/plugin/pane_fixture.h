// A pane as a host would have it: the built bundle, the sample printer's PPD, and the objects that a host
// lends.
#pragma once

#include "platform/foundation/Bundle.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PageFormat.h"
#include "platform/print/PrintSession.h"
#include "platform/print/PrintSettings.h"
#include "platform/toolkit/Window.h"
#include "plugin/SpecialPagesPDEPluginnvbir15.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "ppd/open_ppd.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "support/temporary_bundle.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {

inline const std::string kKey = "com.norvalen.nb.rtz.printsettings.";

inline std::filesystem::path example(const std::string& name) {
    return std::filesystem::path(paths::source_dir()) / "examples" / name;
}

/// The bundle that the build produced, living for the whole process as a loaded module's does.
inline const std::shared_ptr<platform::Bundle>& built_bundle() {
    static const std::shared_ptr<platform::Bundle> bundle = [] {
        std::string error;
        auto loaded = platform::Bundle::load(paths::bundle_dir(), &error);
        if (!loaded) {
            throw std::runtime_error(error);
        }
        SpecialPagesPDEPluginnvbir15().initWithBundle(loaded);
        return loaded;
    }();
    return bundle;
}

/// What a host lends; every part can be taken away.
class LendingHost : public platform::PDEPluginCallback {
  public:
    explicit LendingHost(ppd_file_t* ppd) : ppd_(ppd) {
        session.currentPrinter = platform::Printer{"production"};
        page.unadjustedPaperRect = {0, 0, 842, 595};
    }
    ppd_file_s* ppdFile() override { return ppd_; }
    platform::PrintSettings* printSettings() override { return lent; }
    platform::PrintSession* printSession() override { return &session; }
    platform::PageFormat* pageFormat() override { return &page; }

    platform::PrintSettings settings;
    platform::PrintSettings* lent = &settings;
    platform::PrintSession session;
    platform::PageFormat page;
    ppd_file_t* ppd_;
};

class PaneTest : public ::testing::Test {
  protected:
    explicit PaneTest(const std::string& ppdName = "ppd/production.ppd")
        : xdg("XDG_CONFIG_HOME", config.path().string()), ppd(open_ppd(example(ppdName))), host(ppd.get()) {
        mark_defaults(ppd.get());
        built_bundle();
    }

    /// A panel as the factory makes it, with the two calls that hosts send before the first restore.
    std::unique_ptr<SpecialPagesPDEnvbir15> makePane() {
        auto panels = SpecialPagesPDEPluginnvbir15().PDEPanelsForType(platform::kDialogPanelType, &host);
        if (!panels || panels->size() != 1) {
            throw std::runtime_error("no pane for this printer");
        }
        std::unique_ptr<SpecialPagesPDEnvbir15> pane(
            dynamic_cast<SpecialPagesPDEnvbir15*>(panels->front().release()));
        pane->supportedPPDOptionKeys();
        return pane;
    }

    void set(const std::string& key, platform::SettingsValue value) {
        host.settings.setValue(kKey + key, std::move(value), false);
    }
    /// The text under the key; "(array)" for an array, "(none)" for a missing key.
    std::string get(const std::string& key) const {
        const auto* value = host.settings.value(kKey + key);
        if (value == nullptr) {
            return "(none)";
        }
        const auto* text = std::get_if<std::string>(value);
        return text == nullptr ? "(array)" : *text;
    }
    std::vector<std::string> getArray(const std::string& key) const {
        const auto* value = host.settings.value(kKey + key);
        const auto* array = value == nullptr ? nullptr : std::get_if<std::vector<std::string>>(value);
        return array == nullptr ? std::vector<std::string>{"(no array)"} : *array;
    }
    /// Stores record lists as a saved job has them.
    void setRecords(const std::vector<std::string>& lists) {
        set("NPIFCommandTicketCount", std::to_string(lists.size()));
        for (std::size_t i = 0; i < lists.size(); ++i) {
            set("NPIFCommandTicket_" + std::to_string(i), lists[i]);
        }
    }

    TemporaryDirectory config;
    ScopedEnvironment xdg;
    OpenPpd ppd;
    LendingHost host;
};

inline const std::string kFrontCover = "0,0,0,2,0,0,false,1,210.0,297.0,1";
inline const std::string kInsertAfter3 = "1,3,0,1,2,0,0,false,210.0,297.0,1";
inline const std::string kException5To7 = "2,5-7,2,0,0,false,2,210.0,297.0,1";

} // namespace specialpages::test
