#include "controls/SPHelpButtonEMF.h"

#include "platform/foundation/text.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "support/help.h"
#include "support/plugin_bundle.h"

#include <algorithm>

namespace specialpages {

namespace {
/// Longest name of a help page, in bytes.
constexpr std::size_t kMaxHelpNameBytes = 255;
} // namespace

void SPHelpButtonEMF::CreateControl_withHelpName(platform::View* view, std::string_view withHelpName) {
    CreateControl(view);
    if (helpfilename.empty()) {
        helpfilename = withHelpName;
    }
}

bool SPHelpButtonEMF::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    BaseButtonEMFSpecialPages::InitializeCtrl(bundle, withPPD);
    const std::string key = FixPPDKeywordAccordingToType(withPPD, kNXProductTypeSpecialPages);
    const ppd_attr_t* attribute = ppdFindAttr_ALT(withPPD, key.c_str());
    if (attribute == nullptr || attribute->value == nullptr) {
        return true;
    }
    const auto resource = GetAppResourceName(attribute->value, 1);
    const auto* row = std::find_if(SpecialPagesHelpString.begin(), SpecialPagesHelpString.end(),
                                   [this](const HelpFile& file) { return file.defaultFile == helpfilename; });
    if (resource && row != SpecialPagesHelpString.end()) {
        const std::string name = std::string(row->prefix) + *resource + ".htm";
        helpfilename = platform::utf8_prefix(name, kMaxHelpNameBytes);
    }
    return true;
}

bool SPHelpButtonEMF::UIEventHandler() {
    if (!helpfilename.empty()) {
        GotoHelpPage(pluginBundle().get(), helpfilename, {}, "Help Viewer Title for Special Pages");
    }
    return true;
}

} // namespace specialpages
