// The page format of a job: the sheet that the job is formatted for.
#pragma once

#include "platform/export.h"
#include "platform/status.h"

namespace specialpages::platform {

/// A rectangle in points (1/72 inch), top and left being the smaller numbers.
struct PMRect {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
};

struct PageFormat {
    PMRect unadjustedPaperRect; ///< the whole sheet, neither scaled nor turned
};

/// The sheet of the page format; paramErr for a null page format, `rect` then stays as it was.
SPECIALPAGES_PLATFORM_API OSStatus PMGetUnadjustedPaperRect(const PageFormat* pageFormat, PMRect& rect);

} // namespace specialpages::platform
