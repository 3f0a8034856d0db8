// What assistive tools are told beyond what Qt tells them: the items of a menu with their check marks, and
// why a disabled one is disabled.
#pragma once

namespace specialpages::qt {

/// From now on menus are described by this room; a second call does nothing. Needs a QApplication.
void install_accessibility();

} // namespace specialpages::qt
