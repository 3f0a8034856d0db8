#include "platform/print/PageFormat.h"

namespace specialpages::platform {

OSStatus PMGetUnadjustedPaperRect(const PageFormat* pageFormat, PMRect& rect) {
    if (pageFormat == nullptr) {
        return paramErr;
    }
    rect = pageFormat->unadjustedPaperRect;
    return noErr;
}

} // namespace specialpages::platform
