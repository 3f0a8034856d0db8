// The module's only way in.
#include "platform/export.h"
#include "preview/cairo/png_module.h"
#include "preview/cairo/png_painter.h"

extern "C" SPECIALPAGES_PLATFORM_API specialpages::preview::PaintPng specialpages_preview_png() {
    return specialpages::preview::png_picture;
}
