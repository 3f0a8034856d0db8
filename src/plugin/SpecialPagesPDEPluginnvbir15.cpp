#include "plugin/SpecialPagesPDEPluginnvbir15.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/log.h"
#include "platform/print/PDEPluginCallback.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "support/help.h"
#include "support/identifiers.h"
#include "support/plugin_bundle.h"

#include <utility>

namespace specialpages {

namespace {

constexpr std::int32_t kNibPart = 0;
constexpr std::int32_t kHelpPart = 1;

/// Name of the nib (part 0) or help page (part 1) that the attribute's value stands for; null when it names
/// none.
std::optional<std::string> resource_name(const char* value, std::int32_t part) {
    return GetAppFullResourceName(GetAppResourceName(value, part), part, kNibNamePrefix, kHelpNamePrefix);
}

bool in_bundle(const platform::Bundle* bundle, const std::optional<std::string>& name,
               std::string_view extension, std::string_view folder) {
    return bundle != nullptr && name && bundle->CFBundleCopyResourceURL(*name, extension, folder).has_value();
}

} // namespace

bool SpecialPagesPDEPluginnvbir15::initWithBundle(std::shared_ptr<platform::Bundle> bundle) {
    if (!pluginBundle()) {
        pluginBundle() = std::move(bundle);
    }
    return true;
}

std::optional<std::vector<std::unique_ptr<platform::PrintDialogPanel>>>
SpecialPagesPDEPluginnvbir15::PDEPanelsForType(std::string_view type, platform::PDEPluginCallback* host) {
    ppd_file_s* ppd = type != platform::kDialogPanelType || host == nullptr ? nullptr : host->ppdFile();
    if (ppd == nullptr) {
        return std::nullopt;
    }
    const ppd_attr_t* product =
        ppdFindAttr_ALT(ppd, FixPPDKeywordAccordingToType(ppd, kNXProductTypeSpecialPages).c_str());
    if (product == nullptr) {
        return std::nullopt;
    }
    const auto bundle = GetAppBundleRef();
    const bool hasHelp = in_bundle(bundle.get(), resource_name(product->value, kHelpPart), "htm", "Help");
    const auto nib = resource_name(product->value, kNibPart);
    platform::NSLog("SpecialPagesPDE : RealChoiceStringNib1 - " + nib.value_or("(null)"));
    if (!nib || !hasHelp || !in_bundle(bundle.get(), nib, "nib", {})) {
        return std::nullopt;
    }
    auto panel = std::make_unique<SpecialPagesPDEnvbir15>();
    panel->initWithCallback(host);
    panel->setFirstInitialzePDE(true);
    platform::NSLog("SpecialPagesPDE : RealChoiceStringNib2 - " + *nib);
    panel->setPDENibFileName(nib);
    std::vector<std::unique_ptr<platform::PrintDialogPanel>> panels;
    panels.push_back(std::move(panel));
    return panels;
}

} // namespace specialpages
