#include "preview/strip_plan.h"

#include "platform/foundation/numbers.h"
#include "preview/text_columns.h"

#include <algorithm>
#include <array>
#include <utility>

namespace specialpages::preview {

namespace {

// All in units. A cell, from its left: a margin, the sheet, room for what looks out behind it, a margin.
constexpr int kSheetLength = 84; ///< the job's own sheet
constexpr int kLongestSide = 126;
constexpr int kShortestSide = 20;
constexpr int kCellMargin = 6;
constexpr int kBehind = 8;
constexpr int kBetweenCells = 2;
constexpr int kBetweenRuns = 12;
constexpr int kAboveSheet = 14;
constexpr int kBarGap = 5;
constexpr int kBarHeight = 4;
constexpr int kCaptionBase = 22; ///< from the sheet's lower edge to the caption's base line
constexpr int kBelowSheet = 30;
constexpr int kCaptionSize = 11;
constexpr int kCellRadius = 6;

constexpr int kPictureMargin = 24;
constexpr int kStripMargin = 6;
constexpr int kRowGap = 14;
constexpr int kTitleSize = 20;
constexpr int kTextSize = 13;
constexpr int kLineHeight = 20;
constexpr int kLegendGap = 22;
constexpr int kSwatch = 14;

constexpr int kDefaultWidth = 21000; ///< a sheet of which nobody knows the size is A4
constexpr int kDefaultLength = 29700;

/// As wide as the text may be, rounded up.
int text_width(std::string_view text, int size) {
    return (text_columns(text) * size * 62 + 99) / 100;
}

struct Size {
    int width = 0;
    int height = 0;
};

int rounded(std::int64_t value, std::int64_t by, std::int64_t over) {
    return static_cast<int>((2 * value * by + over) / (2 * over));
}

/// The sheet as it is drawn, in the scale of the job's own one.
Size drawn_size(const SheetPaper& paper, const SheetPaper& job) {
    const bool known = paper.width > 0 && paper.length > 0;
    const std::int64_t jobWidth = job.width > 0 ? job.width : kDefaultWidth;
    const std::int64_t jobLength = job.length > 0 ? job.length : kDefaultLength;
    const std::int64_t width = known ? paper.width : jobWidth;
    const std::int64_t length = known ? paper.length : jobLength;
    const std::int64_t reference = std::max(jobWidth, jobLength);
    const std::int64_t longest = std::max(width, length);
    const std::int64_t shown =
        std::clamp<std::int64_t>(rounded(longest, kSheetLength, reference), kShortestSide, kLongestSide);
    const auto side = [&](std::int64_t measure) {
        return std::max(rounded(measure, shown, longest), kShortestSide);
    };
    return {side(width), side(length)};
}

Ink kind_ink(SheetKind kind) {
    switch (kind) {
    case SheetKind::frontCover:
    case SheetKind::backCover:
        return Ink::cover;
    case SheetKind::insert:
        return Ink::insert;
    case SheetKind::exception:
        return Ink::exception;
    case SheetKind::pages:
        break;
    }
    return Ink::none;
}

/// Slanted lines within a rectangle.
void add_hatch(std::vector<PlanItem>& items, const PlanRect& in, int step) {
    for (int offset = step; offset < in.width + in.height; offset += step) {
        const int x1 = std::min(offset, in.width);
        const int y2 = std::min(offset, in.height);
        items.emplace_back(
            PlanLine{in.x + x1, in.y + offset - x1, in.x + offset - y2, in.y + y2, Ink::hatch});
    }
}

void add_paper(std::vector<PlanItem>& items, const PlanRect& place, const PaperColor& look, int hatchStep) {
    PlanRect sheet = place;
    sheet.fill = Ink::paper;
    sheet.rgb = look.rgb;
    sheet.stroke = look.known ? Ink::edge : Ink::none;
    items.emplace_back(sheet);
    if (!look.known) { // the edge comes last, so that the hatch ends at it
        add_hatch(items, place, hatchStep);
        sheet.fill = Ink::none;
        sheet.rgb = 0;
        sheet.stroke = Ink::edge;
        items.emplace_back(sheet);
    }
}

/// Draws one cell.
class CellPlan {
  public:
    CellPlan(std::vector<PlanItem>& items, const SheetCell& cell, const PlanRect& sheet)
        : items_(items), cell_(cell), sheet_(sheet) {}

    void draw() {
        PlanRect shadow = sheet_;
        shadow.y += 2;
        shadow.x += 1;
        shadow.radius = 1;
        shadow.fill = Ink::shadow;
        items_.emplace_back(shadow);
        behind();
        if (cell_.paper.tab) {
            const int height = std::max(sheet_.height / 6, 8);
            add_paper(items_, {sheet_.x + sheet_.width - 2, sheet_.y + height, kBehind, height, 2, {}, {}, 0},
                      cell_.paper.look, 6);
        }
        add_paper(items_, sheet_, cell_.paper.look, 8);
        if (cell_.printed) {
            if (cell_.firstPage != 0 || cell_.lastPage == 0) {
                bars();
            }
            numbers();
        }
        below();
    }

  private:
    bool pile() const { return cell_.sheets != 1; }

    /// The sheets of a pile, or the back of a sheet: beside it when it is turned over its long edge, above it
    /// when over its short edge.
    void behind() {
        PlanRect leaf = sheet_;
        if (pile()) {
            for (const int shift : {8, 4}) {
                leaf.x = sheet_.x + shift;
                leaf.y = sheet_.y - shift;
                add_paper(items_, leaf, cell_.paper.look, 8);
            }
        } else if (cell_.printed && cell_.sides == Sides::longEdge) {
            leaf.x += 5;
            leaf.y += 3;
            leaf.height -= 6;
            add_paper(items_, leaf, cell_.paper.look, 8);
        } else if (cell_.printed && cell_.sides == Sides::shortEdge) {
            leaf.y -= 5;
            leaf.x += 3;
            leaf.width -= 6;
            add_paper(items_, leaf, cell_.paper.look, 8);
        }
    }

    /// What stands for printed lines.
    void bars() {
        const int inset = sheet_.width / 6;
        const int full = sheet_.width - 2 * inset;
        const std::array<int, 3> widths{full, full, full * 2 / 3};
        int y = sheet_.y + sheet_.height / 8;
        for (const int width : widths) {
            items_.emplace_back(PlanRect{sheet_.x + inset, y, width, 2, 0, Ink::print, Ink::none, 0});
            y += std::max(sheet_.height / 14, 3);
        }
    }

    void number(std::int64_t page, int percent, bool main) {
        std::string text = platform::decimal_text(page);
        const int largest = main ? 17 : 11;
        const int fits = (sheet_.width - 6) * 100 / (62 * static_cast<int>(text.size()));
        const int size = std::max(std::min(largest, fits), 6);
        items_.emplace_back(PlanText{sheet_.x + sheet_.width / 2, sheet_.y + sheet_.height * percent / 100,
                                     Anchor::middle, size, main, main ? Ink::number : Ink::faintNumber,
                                     std::move(text)});
    }

    void numbers() {
        if (pile()) {
            number(cell_.firstPage, 60, true);
            dots(67);
            if (cell_.lastPage != 0) {
                number(cell_.lastPage, 91, true);
            }
            return;
        }
        const bool back = cell_.lastPage != 0 && cell_.lastPage != cell_.firstPage;
        if (cell_.firstPage != 0) {
            number(cell_.firstPage, back ? 62 : 68, true);
        }
        if (back) {
            const int y = sheet_.y + sheet_.height * 70 / 100;
            const int inset = sheet_.width / 4;
            items_.emplace_back(
                PlanLine{sheet_.x + inset, y, sheet_.x + sheet_.width - inset, y, Ink::print});
            number(cell_.lastPage, 86, false);
        }
    }

    /// In place of the pages between.
    void dots(int percent) {
        const int x = sheet_.x + sheet_.width / 2;
        const int y = sheet_.y + sheet_.height * percent / 100;
        for (const int shift : {-7, -1, 5}) {
            items_.emplace_back(PlanRect{x + shift, y, 2, 2, 1, Ink::faintNumber, Ink::none, 0});
        }
    }

    void below() {
        const int bottom = sheet_.y + sheet_.height;
        const Ink ink = kind_ink(cell_.kind);
        if (ink != Ink::none) {
            items_.emplace_back(
                PlanRect{sheet_.x, bottom + kBarGap, sheet_.width, kBarHeight, 2, ink, Ink::none, 0});
        }
        if (!cell_.caption.empty()) {
            const int columns = (sheet_.width + kBehind + kCellMargin) * 100 / (62 * kCaptionSize);
            items_.emplace_back(PlanText{sheet_.x + sheet_.width / 2, bottom + kCaptionBase, Anchor::middle,
                                         kCaptionSize, false, Ink::text, shortened(cell_.caption, columns)});
        }
    }

    std::vector<PlanItem>& items_;
    const SheetCell& cell_;
    const PlanRect& sheet_;
};

/// One entry of the legend.
struct LegendEntry {
    SheetCell sample;    ///< for paper, two-sided (printed) and piles
    Ink ink = Ink::none; ///< for a kind
    std::string text;
};

std::vector<LegendEntry> legend_entries(const JobGlance& glance) {
    std::vector<LegendEntry> entries;
    const auto any = [&](auto matches) {
        return std::any_of(glance.cells.begin(), glance.cells.end(), matches);
    };
    const std::array<std::pair<Ink, const std::string*>, 3> kinds{
        {{Ink::cover, &glance.legend.cover},
         {Ink::insert, &glance.legend.insert},
         {Ink::exception, &glance.legend.exception}}};
    for (const auto& [ink, text] : kinds) {
        if (any([ink](const SheetCell& cell) { return kind_ink(cell.kind) == ink; })) {
            entries.push_back({{}, ink, *text});
        }
    }
    const auto sample = [](bool printed, std::int64_t sheets) {
        SheetCell cell;
        cell.printed = printed;
        cell.sheets = sheets;
        return cell;
    };
    if (any([](const SheetCell& cell) {
            return cell.printed && cell.sides != Sides::one && cell.sheets == 1;
        })) {
        entries.push_back({sample(true, 1), Ink::none, glance.legend.twoSided});
    }
    if (any([](const SheetCell& cell) { return cell.sheets != 1; })) {
        entries.push_back({sample(false, 2), Ink::none, glance.legend.pile});
    }
    std::set<std::string> colors;
    for (const SheetCell& cell : glance.cells) {
        if (!cell.paper.color.empty() && colors.insert(cell.paper.color).second) {
            LegendEntry entry{{}, Ink::none, cell.paper.color};
            entry.sample.paper.look = cell.paper.look;
            entries.push_back(std::move(entry));
        }
    }
    return entries;
}

class Planner {
  public:
    Planner(const JobGlance& glance, const PlanOptions& options)
        : glance_(glance), options_(options), margin_(options.picture ? kPictureMargin : kStripMargin) {}

    StripPlan plan() {
        int y = margin_;
        if (options_.picture) {
            plan_.items.emplace_back(PlanRect{}); // the background, whose size is not known yet
            y = add_title(y);
        }
        y = add_rows(y);
        if (options_.picture) {
            y = add_legend(y + kRowGap);
            y = add_notes(y);
        }
        plan_.width = options_.width > 0 ? std::max(options_.width, right_ + margin_) : right_ + margin_;
        plan_.height = y + margin_ - (options_.picture ? kRowGap : 0);
        if (options_.picture) {
            plan_.items.front() = PlanRect{0, 0, plan_.width, plan_.height, 0, Ink::background, Ink::none, 0};
        }
        return std::move(plan_);
    }

  private:
    int add_title(int y) {
        plan_.items.emplace_back(
            PlanText{margin_, y + kTitleSize, Anchor::start, kTitleSize, true, Ink::title, glance_.summary});
        plan_.items.emplace_back(PlanText{margin_, y + kTitleSize + kLineHeight + 2, Anchor::start, kTextSize,
                                          false, Ink::faintText, glance_.setup});
        right_ = std::max({right_, margin_ + text_width(glance_.summary, kTitleSize),
                           margin_ + text_width(glance_.setup, kTextSize)});
        return y + kTitleSize + kLineHeight + 2 + kRowGap;
    }

    int gap_before(std::size_t cell) const {
        return glance_.cells[cell].run == glance_.cells[cell - 1].run ? kBetweenCells : kBetweenRuns;
    }

    int add_rows(int y) {
        for (std::size_t first = 0; first < glance_.cells.size();) {
            const std::size_t end = end_of_row(first);
            y = add_row(first, end, y);
            first = end;
            if (first < glance_.cells.size()) {
                y += kRowGap;
            }
        }
        return glance_.cells.empty() ? y + kAboveSheet + kSheetLength + kBelowSheet : y;
    }

    int cell_width(std::size_t cell) const {
        return kCellMargin + drawn_size(glance_.cells[cell].paper, glance_.paper).width + kBehind +
               kCellMargin;
    }

    /// As many cells as fit, one at least.
    std::size_t end_of_row(std::size_t first) const {
        if (options_.width <= 0) {
            return glance_.cells.size();
        }
        int x = margin_ + cell_width(first);
        std::size_t end = first + 1;
        while (end < glance_.cells.size()) {
            x += gap_before(end) + cell_width(end);
            if (x > options_.width - margin_) {
                break;
            }
            ++end;
        }
        return end;
    }

    /// Sheets stand on one line. Answers where the row ends below.
    int add_row(std::size_t first, std::size_t end, int y) {
        int tallest = 0;
        for (std::size_t i = first; i < end; ++i) {
            tallest = std::max(tallest, drawn_size(glance_.cells[i].paper, glance_.paper).height);
        }
        int x = margin_;
        for (std::size_t i = first; i < end; ++i) {
            x += i == first ? 0 : gap_before(i);
            const int width = cell_width(i);
            add_cell(i, {x, y, width, kAboveSheet + tallest + kBelowSheet, 0, {}, {}, 0});
            x += width;
        }
        right_ = std::max(right_, x);
        return y + kAboveSheet + tallest + kBelowSheet;
    }

    void add_cell(std::size_t index, const PlanRect& bounds) {
        const SheetCell& cell = glance_.cells[index];
        PlanCell place{bounds, plan_.items.size(), 0};
        if (cell.row && options_.selectedRows.contains(*cell.row)) {
            PlanRect selection = bounds;
            selection.radius = kCellRadius;
            selection.fill = Ink::selection;
            selection.stroke = Ink::selectionEdge;
            plan_.items.emplace_back(selection);
        }
        const Size size = drawn_size(cell.paper, glance_.paper);
        const int bottom = bounds.y + bounds.height - kBelowSheet;
        const PlanRect sheet{
            bounds.x + kCellMargin, bottom - size.height, size.width, size.height, 0, {}, {}, 0};
        CellPlan(plan_.items, cell, sheet).draw();
        place.items = plan_.items.size() - place.firstItem;
        plan_.cells.push_back(place);
    }

    int add_legend(int y) {
        int x = margin_;
        for (const LegendEntry& entry : legend_entries(glance_)) {
            const int width = kSwatch + kBehind + text_width(entry.text, kTextSize);
            if (x > margin_ && options_.width > 0 && x + width > options_.width - margin_) {
                x = margin_;
                y += kLineHeight + 4;
            }
            add_legend_entry(entry, x, y);
            right_ = std::max(right_, x + width);
            x += width + kLegendGap;
        }
        return y + kLineHeight + kRowGap;
    }

    void add_legend_entry(const LegendEntry& entry, int x, int y) {
        if (entry.ink != Ink::none) {
            plan_.items.emplace_back(PlanRect{x, y + 5, kSwatch, kBarHeight, 2, entry.ink, Ink::none, 0});
        } else {
            add_swatch(entry.sample, x, y);
        }
        plan_.items.emplace_back(
            PlanText{x + kSwatch + kBehind, y + 12, Anchor::start, kTextSize, false, Ink::text, entry.text});
    }

    /// A small sheet: with its back, on a pile, or of a color.
    void add_swatch(const SheetCell& sample, int x, int y) {
        const PaperColor& look = sample.paper.look;
        PlanRect sheet{x, y, kSwatch, kSwatch, 2, {}, {}, 0};
        if (sample.printed || sample.sheets != 1) {
            sheet = {x, y, 10, kSwatch, 0, {}, {}, 0};
            PlanRect leaf = sheet;
            leaf.x += 3;
            leaf.y += sample.printed ? 2 : -2;
            leaf.height -= sample.printed ? 4 : 0;
            add_paper(plan_.items, leaf, look, 4);
        }
        add_paper(plan_.items, sheet, look, 4);
    }

    int add_notes(int y) {
        const int width = options_.width > 0 ? options_.width : std::max(right_ + margin_, 480);
        const int columns = std::max((width - 2 * margin_) * 100 / (62 * kTextSize), 16);
        for (const std::string& note : glance_.notes) {
            for (std::string& line : wrapped(note, columns)) {
                right_ = std::max(right_, margin_ + text_width(line, kTextSize));
                plan_.items.emplace_back(PlanText{margin_, y + kTextSize, Anchor::start, kTextSize, false,
                                                  Ink::faintText, std::move(line)});
                y += kLineHeight;
            }
        }
        return glance_.notes.empty() ? y : y + kRowGap;
    }

    const JobGlance& glance_;
    const PlanOptions& options_;
    int margin_;
    int right_ = 0; ///< where the widest thing ends
    StripPlan plan_;
};

} // namespace

StripPlan strip_plan(const JobGlance& glance, const PlanOptions& options) {
    return Planner(glance, options).plan();
}

} // namespace specialpages::preview
