// The one symbol that the pane's module exports.
#include "plugin/SpecialPagesPDEPluginnvbir15.h"

extern "C" __attribute__((visibility("default"))) specialpages::platform::PrintDialogExtension*
CreatePrintDialogExtension() {
    return new specialpages::SpecialPagesPDEPluginnvbir15;
}
