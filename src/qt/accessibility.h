// What assistive tools are told beyond what Qt tells them: the items of a menu with their check marks, why a
// disabled one is disabled, and names where Qt has none or the wrong one.
#pragma once

namespace specialpages::qt {

/// From now on they are described by this room; a second call does nothing. Needs a QApplication.
void install_accessibility();

} // namespace specialpages::qt
