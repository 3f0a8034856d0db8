#include "support/identifiers.h"

#include "platform/foundation/Bundle.h"

namespace specialpages {

std::shared_ptr<platform::Bundle> GetAppBundleRef() {
    return platform::Bundle::CFBundleGetBundleWithIdentifier(kBundleIdentifier);
}

std::string GetAppClientID() {
    return kClientIdentifier;
}

std::string localizable_table_name(const std::string& index) {
    return "Localizable" + index;
}

} // namespace specialpages
