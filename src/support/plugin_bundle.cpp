#include "support/plugin_bundle.h"

namespace specialpages {

std::shared_ptr<platform::Bundle>& pluginBundle() {
    static std::shared_ptr<platform::Bundle> bundle;
    return bundle;
}

} // namespace specialpages
