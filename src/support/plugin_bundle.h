// The pane's own bundle, process-wide: every localised text, icon and help page of the pane is read from it.
#pragma once

#include <memory>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages {

/// Null until the factory has been given a bundle. The first one given stays for the process.
std::shared_ptr<platform::Bundle>& pluginBundle();

} // namespace specialpages
