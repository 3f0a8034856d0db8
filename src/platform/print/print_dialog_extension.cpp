#include "platform/print/print_dialog_extension.h"

#include "platform/print/PDEPluginCallback.h"

// The destructors stand here so that host and module share one set of type information.
namespace specialpages::platform {

PDEPluginCallback::~PDEPluginCallback() = default;
PrintDialogPanel::~PrintDialogPanel() = default;
PrintDialogExtension::~PrintDialogExtension() = default;

} // namespace specialpages::platform
