// The colors of a picture in a file. A window takes those of its palette instead, but for what stands on
// paper, which is paper in the dark as well.
#pragma once

#include "preview/strip_plan.h"

#include <cstdint>

namespace specialpages::preview {

/// The names by which a picture's font is asked for, in this order.
inline constexpr const char* kPictureFonts = "DejaVu Sans, Noto Sans, Liberation Sans, sans-serif";

/// 0xRRGGBB; paper and no ink at all are black.
constexpr std::uint32_t ink_rgb(Ink ink) {
    switch (ink) {
    case Ink::none:
    case Ink::paper:
        return 0x000000;
    case Ink::background:
        return 0xF6F7F9;
    case Ink::title:
        return 0x1B2430;
    case Ink::text:
        return 0x36404D;
    case Ink::faintText:
        return 0x66717F;
    case Ink::edge:
        return 0x8A95A3;
    case Ink::shadow:
        return 0xE2E6EB;
    case Ink::hatch:
        return 0xC9CFD7;
    case Ink::print:
        return 0xA9B2BE;
    case Ink::number:
        return 0x1F2833;
    case Ink::faintNumber:
        return 0x56606D;
    case Ink::cover:
        return 0x7B61C9;
    case Ink::insert:
        return 0x14978A;
    case Ink::exception:
        return 0xD97A1E;
    case Ink::selection:
        return 0xDCE8FB;
    case Ink::selectionEdge:
        return 0x3D7BE0;
    }
    return 0x000000;
}

} // namespace specialpages::preview
