// Glances made by hand, without a printer: A4 unless a test says otherwise.
#pragma once

#include "preview/JobGlance.h"
#include "preview/strip_plan.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::preview {

inline std::ostream& operator<<(std::ostream& out, const PlanItem& item) {
    if (const auto* rect = std::get_if<PlanRect>(&item)) {
        return out << "rect " << rect->x << ' ' << rect->y << ' ' << rect->width << 'x' << rect->height
                   << " r" << rect->radius << " fill " << static_cast<int>(rect->fill) << " stroke "
                   << static_cast<int>(rect->stroke) << " rgb " << rect->rgb;
    }
    if (const auto* line = std::get_if<PlanLine>(&item)) {
        return out << "line " << line->x1 << ' ' << line->y1 << " - " << line->x2 << ' ' << line->y2
                   << " ink " << static_cast<int>(line->ink);
    }
    const auto& text = std::get<PlanText>(item);
    return out << "text " << text.x << ' ' << text.y << " anchor " << static_cast<int>(text.anchor)
               << " size " << text.size << (text.bold ? " bold" : "") << " ink " << static_cast<int>(text.ink)
               << " \"" << text.text << '"';
}

namespace test {

inline SheetPaper white_paper() {
    SheetPaper paper;
    paper.text = "A4, White";
    paper.size = "A4";
    paper.color = "White";
    paper.width = 21000;
    paper.length = 29700;
    return paper;
}

inline SheetCell page_cell(std::size_t run, std::int64_t page) {
    SheetCell cell;
    cell.run = run;
    cell.firstPage = page;
    cell.lastPage = page;
    cell.printed = true;
    cell.paper = white_paper();
    cell.sentence = "Page " + std::to_string(page);
    return cell;
}

inline SheetCell insert_cell(std::size_t run, std::size_t row, std::int64_t sheets) {
    SheetCell cell;
    cell.run = run;
    cell.kind = SheetKind::insert;
    cell.row = row;
    cell.sheets = sheets;
    cell.paper = white_paper();
    cell.sentence = "Insert <" + std::to_string(row) + "> & more";
    return cell;
}

inline JobGlance glance_of(std::vector<SheetCell> cells) {
    JobGlance glance;
    glance.paper = white_paper();
    glance.cells = std::move(cells);
    glance.summary = "Summary";
    glance.setup = "Setup";
    glance.legend = {"Cover", "Insert", "Exception", "2-sided", "several sheets"};
    glance.name = "Sheets";
    return glance;
}

inline std::vector<PlanItem> items_of(const StripPlan& plan, std::size_t cell) {
    const PlanCell& place = plan.cells.at(cell);
    const auto first = plan.items.begin() + static_cast<std::ptrdiff_t>(place.firstItem);
    return {first, first + static_cast<std::ptrdiff_t>(place.items)};
}

} // namespace test
} // namespace specialpages::preview
