// The picture of a job at a glance as plain values: rectangles, lines and texts at places in whole units of
// 1/96 inch, each with an ink that says what it is for. A painter (a window, a picture file) only maps inks
// to colors. Texts are measured by columns, not by a font, so that the same job gives the same plan
// everywhere; a painter's font should be no wider than 0.62 of its size on average.
#pragma once

#include "preview/JobGlance.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace specialpages::preview {

enum class Ink {
    none,
    background,
    title,
    text,
    faintText,
    paper,  ///< the item's own color
    edge,   ///< around paper
    shadow, ///< under a sheet
    hatch,  ///< over paper of which nobody knows the color
    print,  ///< what stands for printed lines on paper
    number, ///< a page number on paper
    faintNumber,
    cover, ///< what marks a sheet of that kind
    insert,
    exception,
    selection, ///< behind a selected sheet
    selectionEdge,
};

struct PlanRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int radius = 0; ///< of its corners
    Ink fill = Ink::none;
    Ink stroke = Ink::none; ///< one unit wide, inside the rectangle
    std::uint32_t rgb = 0;  ///< 0xRRGGBB, when the fill is paper

    bool operator==(const PlanRect&) const = default;
};

/// One unit wide.
struct PlanLine {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    Ink ink = Ink::edge;

    bool operator==(const PlanLine&) const = default;
};

enum class Anchor { start, middle };

struct PlanText {
    int x = 0; ///< where the anchor is
    int y = 0; ///< the base line
    Anchor anchor = Anchor::start;
    int size = 0; ///< of the font, in units
    bool bold = false;
    Ink ink = Ink::text;
    std::string text;

    bool operator==(const PlanText&) const = default;
};

using PlanItem = std::variant<PlanRect, PlanLine, PlanText>;

/// The place of a cell of the glance, in its order.
struct PlanCell {
    PlanRect bounds; ///< all of it, captions too; without inks
    std::size_t firstItem = 0;
    std::size_t items = 0; ///< the cell's items are these of the plan's

    bool operator==(const PlanCell&) const = default;
};

struct StripPlan {
    int width = 0;
    int height = 0;
    std::vector<PlanItem> items; ///< in the order in which they are painted
    std::vector<PlanCell> cells;

    bool operator==(const StripPlan&) const = default;
};

struct PlanOptions {
    int width = 0;                      ///< rows are broken to stay within it; 0: one row as long as it gets
    bool picture = false;               ///< with title, legend and notes
    std::set<std::size_t> selectedRows; ///< of the records
};

StripPlan strip_plan(const JobGlance& glance, const PlanOptions& options);

} // namespace specialpages::preview
