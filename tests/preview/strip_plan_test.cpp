#include "preview/plan_samples.h"
#include "preview/strip_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace specialpages::preview {
namespace {

using test::glance_of;
using test::insert_cell;
using test::items_of;
using test::page_cell;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

PlanRect filled(int x, int y, int width, int height, int radius, Ink ink) {
    return {x, y, width, height, radius, ink, Ink::none, 0};
}
PlanRect sheet(int x, int y, int width, int height, std::uint32_t rgb = 0xFFFFFF) {
    return {x, y, width, height, 0, Ink::paper, Ink::edge, rgb};
}
PlanText number(int x, int y, const char* text, int size = 17) {
    return {x, y, Anchor::middle, size, true, Ink::number, text};
}

std::vector<std::string> texts(const StripPlan& plan) {
    std::vector<std::string> all;
    for (const PlanItem& item : plan.items) {
        if (const auto* text = std::get_if<PlanText>(&item)) {
            all.push_back(text->text);
        }
    }
    return all;
}

TEST(StripPlan, APageIsASheetWithLinesAndItsNumber) {
    const StripPlan plan = strip_plan(glance_of({page_cell(0, 1)}), {});
    EXPECT_EQ(plan.width, 91);
    EXPECT_EQ(plan.height, 140);
    ASSERT_EQ(plan.cells.size(), 1U);
    EXPECT_EQ(plan.cells[0].bounds, (PlanRect{6, 6, 79, 128, 0, Ink::none, Ink::none, 0}));
    EXPECT_EQ(plan.items, (std::vector<PlanItem>{filled(13, 22, 59, 84, 1, Ink::shadow),
                                                 sheet(12, 20, 59, 84), filled(21, 30, 41, 2, 0, Ink::print),
                                                 filled(21, 36, 41, 2, 0, Ink::print),
                                                 filled(21, 42, 27, 2, 0, Ink::print), number(41, 77, "1")}));
}

TEST(StripPlan, AnInsertIsBlankAndMarked) {
    const StripPlan plan = strip_plan(glance_of({insert_cell(0, 0, 1)}), {});
    EXPECT_EQ(plan.items,
              (std::vector<PlanItem>{filled(13, 22, 59, 84, 1, Ink::shadow), sheet(12, 20, 59, 84),
                                     filled(12, 109, 59, 4, 2, Ink::insert)}));
}

TEST(StripPlan, SeveralSheetsAreAPile) {
    SheetCell cell = insert_cell(0, 0, 2);
    cell.caption = "2 ×";
    const StripPlan plan = strip_plan(glance_of({cell}), {});
    EXPECT_EQ(plan.items,
              (std::vector<PlanItem>{filled(13, 22, 59, 84, 1, Ink::shadow), sheet(20, 12, 59, 84),
                                     sheet(16, 16, 59, 84), sheet(12, 20, 59, 84),
                                     filled(12, 109, 59, 4, 2, Ink::insert),
                                     PlanText{41, 126, Anchor::middle, 11, false, Ink::text, "2 ×"}}));
}

TEST(StripPlan, APileOfPagesSaysTheFirstAndTheLast) {
    SheetCell cell = page_cell(0, 3);
    cell.sheets = 20;
    cell.lastPage = 22;
    const auto items = strip_plan(glance_of({cell}), {}).items;
    EXPECT_THAT(items, Contains(PlanItem(number(41, 70, "3"))));
    EXPECT_THAT(items, Contains(PlanItem(number(41, 96, "22"))));
    EXPECT_THAT(items, Contains(PlanItem(filled(34, 76, 2, 2, 1, Ink::faintNumber))));
    EXPECT_THAT(texts(strip_plan(glance_of({cell}), {})), ElementsAre("3", "22"));
    cell.sheets = 0; // whose end nobody knows
    cell.lastPage = 0;
    EXPECT_THAT(texts(strip_plan(glance_of({cell}), {})), ElementsAre("3"));
}

TEST(StripPlan, NumbersStandAtTheirHeightOfALargeSheet) {
    SheetCell large = page_cell(0, 3); // drawn from 20 to 139
    large.paper.width = 29700;
    large.paper.length = 42000;
    EXPECT_THAT(strip_plan(glance_of({large}), {}).items, Contains(PlanItem(number(54, 100, "3"))));
    large.lastPage = 4;
    large.sides = Sides::longEdge;
    const auto both = strip_plan(glance_of({large}), {}).items;
    EXPECT_THAT(both, Contains(PlanItem(number(54, 93, "3"))));
    EXPECT_THAT(both, Contains(PlanItem(PlanLine{33, 103, 75, 103, Ink::print})));
    EXPECT_THAT(both,
                Contains(PlanItem(PlanText{54, 122, Anchor::middle, 11, false, Ink::faintNumber, "4"})));
    large.sheets = 2;
    const auto pile = strip_plan(glance_of({large}), {}).items;
    EXPECT_THAT(pile, Contains(PlanItem(number(54, 91, "3"))));
    EXPECT_THAT(pile, Contains(PlanItem(filled(47, 99, 2, 2, 1, Ink::faintNumber))));
    EXPECT_THAT(pile, Contains(PlanItem(number(54, 128, "4"))));
}

TEST(StripPlan, ABackLooksOutAtTheEdgeThatIsTurned) {
    SheetCell cell = page_cell(0, 5);
    cell.lastPage = 6;
    cell.sides = Sides::longEdge;
    const auto longEdge = strip_plan(glance_of({cell}), {}).items;
    EXPECT_THAT(longEdge, Contains(PlanItem(sheet(17, 23, 59, 78))));
    EXPECT_THAT(longEdge, Contains(PlanItem(number(41, 72, "5"))));
    EXPECT_THAT(longEdge, Contains(PlanItem(PlanLine{26, 78, 57, 78, Ink::print})));
    EXPECT_THAT(longEdge,
                Contains(PlanItem(PlanText{41, 92, Anchor::middle, 11, false, Ink::faintNumber, "6"})));
    cell.sides = Sides::shortEdge;
    EXPECT_THAT(strip_plan(glance_of({cell}), {}).items, Contains(PlanItem(sheet(15, 15, 53, 84))));
}

TEST(StripPlan, ATwoSidedSheetWithABlankBackHasOneNumber) {
    SheetCell cell = page_cell(0, 5);
    cell.sides = Sides::longEdge;
    const auto items = strip_plan(glance_of({cell}), {}).items;
    EXPECT_EQ(std::count_if(items.begin(), items.end(),
                            [](const PlanItem& item) { return std::holds_alternative<PlanText>(item); }),
              1);
}

TEST(StripPlan, ACoverPrintedOnSideTwoHasABlankFront) {
    SheetCell cell = page_cell(0, 0);
    cell.kind = SheetKind::frontCover;
    cell.sides = Sides::longEdge;
    cell.lastPage = 1;
    const auto items = strip_plan(glance_of({cell}), {}).items;
    EXPECT_THAT(items, Not(Contains(PlanItem(filled(21, 30, 41, 2, 0, Ink::print)))));
    EXPECT_THAT(items,
                Contains(PlanItem(PlanText{41, 92, Anchor::middle, 11, false, Ink::faintNumber, "1"})));
    EXPECT_THAT(items, Contains(PlanItem(filled(12, 109, 59, 4, 2, Ink::cover))));
}

TEST(StripPlan, LongNumbersAreSetSmaller) {
    EXPECT_THAT(strip_plan(glance_of({page_cell(0, 12'345)}), {}).items,
                Contains(PlanItem(number(41, 77, "12345", 17))));
    const auto items = strip_plan(glance_of({page_cell(0, 1'234'567)}), {}).items;
    EXPECT_THAT(items, Contains(PlanItem(number(41, 77, "1234567", 12))));
    const auto huge =
        strip_plan(glance_of({page_cell(0, std::numeric_limits<std::int64_t>::max())}), {}).items;
    EXPECT_THAT(huge, Contains(PlanItem(number(41, 77, "9223372036854775807", 6))));
}

TEST(StripPlan, PaperOfUnknownColorIsHatchedInsideItsEdge) {
    SheetCell cell = insert_cell(0, 0, 1);
    cell.paper.look = {0xFFFFFF, false};
    const auto items = strip_plan(glance_of({cell}), {}).items;
    EXPECT_THAT(items, Contains(PlanItem(PlanLine{20, 20, 12, 28, Ink::hatch}))) << "the first";
    for (const PlanItem& item : items) {
        if (const auto* line = std::get_if<PlanLine>(&item)) {
            for (const auto& [x, y] : {std::pair(line->x1, line->y1), std::pair(line->x2, line->y2)}) {
                EXPECT_TRUE(x >= 12 && x <= 71 && y >= 20 && y <= 104) << item;
            }
            EXPECT_EQ(line->x1 + line->y1, line->x2 + line->y2) << "slanted alike";
        }
    }
    EXPECT_THAT(items, Contains(PlanItem(PlanRect{12, 20, 59, 84, 0, Ink::none, Ink::edge, 0})));
}

TEST(StripPlan, SheetsHaveTheirSizeInTheScaleOfTheJob) {
    SheetCell large = insert_cell(1, 0, 1); // A3
    large.paper.width = 29700;
    large.paper.length = 42000;
    SheetCell small = insert_cell(2, 1, 1); // a strip of 10 by 210 mm
    small.paper.width = 21000;
    small.paper.length = 1000;
    SheetCell unknown = insert_cell(3, 2, 1);
    unknown.paper.width = 0;
    const StripPlan plan = strip_plan(glance_of({page_cell(0, 1), large, small, unknown}), {});
    // All stand on the line of the tallest, A3.
    EXPECT_THAT(items_of(plan, 0), Contains(PlanItem(sheet(12, 55, 59, 84))));
    EXPECT_THAT(items_of(plan, 1), Contains(PlanItem(sheet(103, 20, 84, 119))));
    EXPECT_THAT(items_of(plan, 2), Contains(PlanItem(sheet(219, 119, 59, 20))))
        << "never too thin to be seen";
    EXPECT_THAT(items_of(plan, 3), Contains(PlanItem(sheet(310, 55, 59, 84)))) << "as the job's";
}

TEST(StripPlan, AJobOfASquareSheetHasItsUnknownSheetsSquare) {
    SheetCell unknown = insert_cell(0, 0, 1);
    unknown.paper.width = 0;
    JobGlance glance = glance_of({unknown, insert_cell(1, 1, 1)});
    glance.paper.width = 30000;
    glance.paper.length = 30000;
    const StripPlan plan = strip_plan(glance, {});
    EXPECT_THAT(items_of(plan, 0), Contains(PlanItem(sheet(12, 20, 84, 84))));
    EXPECT_THAT(items_of(plan, 1), Contains(PlanItem(sheet(128, 21, 59, 83)))) << "A4, a little shorter";
}

TEST(StripPlan, AJobWhoseSheetNobodyKnowsIsA4) {
    SheetCell unknown = insert_cell(0, 0, 1);
    unknown.paper.length = 0;
    JobGlance glance = glance_of({unknown, insert_cell(1, 1, 1)});
    glance.paper.width = 0;
    glance.paper.length = 0;
    const StripPlan plan = strip_plan(glance, {});
    EXPECT_THAT(items_of(plan, 0), Contains(PlanItem(sheet(12, 20, 59, 84))));
    EXPECT_THAT(items_of(plan, 1), Contains(PlanItem(sheet(103, 20, 59, 84))));
}

TEST(StripPlan, AnAbsurdSheetStaysWithinItsRow) {
    SheetCell absurd = insert_cell(0, 0, 1);
    absurd.paper.width = std::numeric_limits<std::int32_t>::max();
    absurd.paper.length = std::numeric_limits<std::int32_t>::max();
    EXPECT_THAT(strip_plan(glance_of({absurd}), {}).items, Contains(PlanItem(sheet(12, 20, 126, 126))));
}

TEST(StripPlan, SheetsOfOneRunStandCloser) {
    const StripPlan plan =
        strip_plan(glance_of({page_cell(0, 1), page_cell(0, 2), insert_cell(1, 0, 1)}), {});
    EXPECT_EQ(plan.cells[1].bounds.x - plan.cells[0].bounds.x, 81);
    EXPECT_EQ(plan.cells[2].bounds.x - plan.cells[1].bounds.x, 91);
    EXPECT_EQ(plan.width, 263);
}

TEST(StripPlan, RowsAreBrokenToStayWithinTheWidth) {
    std::vector<SheetCell> cells;
    for (int page = 1; page <= 5; ++page) {
        cells.push_back(page_cell(0, page));
    }
    PlanOptions options;
    options.width = 6 + 79 + 81 + 6; // two cells to the unit
    const StripPlan two = strip_plan(glance_of(cells), options);
    EXPECT_EQ(two.width, 172);
    EXPECT_EQ(two.height, 6 + 3 * 128 + 2 * 14 + 6);
    EXPECT_EQ(two.cells[2].bounds.x, 6);
    EXPECT_EQ(two.cells[2].bounds.y, 6 + 128 + 14);
    options.width -= 1;
    EXPECT_EQ(strip_plan(glance_of(cells), options).cells[1].bounds.y, 148);
    options.width = 10; // one a row, and the picture as wide as it has to be
    const StripPlan narrow = strip_plan(glance_of(cells), options);
    EXPECT_EQ(narrow.width, 91);
    EXPECT_EQ(narrow.cells[4].bounds.y, 6 + 4 * 142);
}

TEST(StripPlan, SelectedRowsHaveAllTheirSheetsSelected) {
    PlanOptions options;
    options.selectedRows = {7};
    const StripPlan plan = strip_plan(
        glance_of({page_cell(0, 1), insert_cell(1, 7, 1), insert_cell(2, 8, 1), insert_cell(3, 7, 1)}),
        options);
    const auto selected = [&](std::size_t cell) {
        const auto items = items_of(plan, cell);
        return std::get<PlanRect>(items.front()).fill == Ink::selection;
    };
    EXPECT_FALSE(selected(0));
    EXPECT_TRUE(selected(1));
    EXPECT_FALSE(selected(2));
    EXPECT_TRUE(selected(3));
    EXPECT_EQ(items_of(plan, 1).front(),
              PlanItem(PlanRect{97, 6, 79, 128, 6, Ink::selection, Ink::selectionEdge, 0}));
}

TEST(StripPlan, TabStockHasATabAtItsSide) {
    SheetCell cell = insert_cell(0, 0, 1);
    cell.paper.tab = true;
    EXPECT_THAT(strip_plan(glance_of({cell}), {}).items,
                Contains(PlanItem(PlanRect{69, 34, 8, 14, 2, Ink::paper, Ink::edge, 0xFFFFFF})));
}

TEST(StripPlan, LongCaptionsAreCut) {
    SheetCell cell = insert_cell(0, 0, 1);
    cell.caption = "8K (270 x 390 mm)";
    const StripPlan plan = strip_plan(glance_of({cell}), {});
    EXPECT_EQ(std::get<PlanText>(plan.items.back()).text, "8K (270 x…");
}

TEST(StripPlan, NothingIsAnEmptyRow) {
    const StripPlan plan = strip_plan(glance_of({}), {});
    EXPECT_EQ(plan.height, 140);
    EXPECT_TRUE(plan.items.empty());
    EXPECT_TRUE(plan.cells.empty());
}

TEST(StripPlan, APictureHasATitleALegendAndNotes) {
    SheetCell cover = insert_cell(0, 0, 1);
    cover.kind = SheetKind::frontCover;
    cover.paper.color = "Blue";
    SheetCell turned = page_cell(1, 1);
    turned.lastPage = 2;
    turned.sides = Sides::longEdge;
    JobGlance glance = glance_of({cover, turned, insert_cell(2, 1, 4)});
    glance.notes = {"Something is left out."};
    PlanOptions options;
    options.width = 500;
    options.picture = true;
    const StripPlan plan = strip_plan(glance, options);
    EXPECT_THAT(texts(plan), ElementsAre("Summary", "Setup", "1", "2", "Cover", "Insert", "2-sided",
                                         "several sheets", "Blue", "White", "Something is left out."));
    EXPECT_EQ(plan.items.front(), PlanItem(filled(0, 0, plan.width, plan.height, 0, Ink::background)));
    for (const PlanItem& item : plan.items) {
        if (const auto* rect = std::get_if<PlanRect>(&item)) {
            EXPECT_LE(rect->x + rect->width, plan.width) << item;
            EXPECT_LE(rect->y + rect->height, plan.height) << item;
        } else if (const auto* text = std::get_if<PlanText>(&item)) {
            EXPECT_LE(text->y, plan.height - 20) << item;
        }
    }
}

TEST(StripPlan, APictureIsAsWideAsItsLegendNeeds) {
    SheetCell cell = page_cell(0, 1);
    cell.paper.color = "Blue of the year before last"; // 28 columns
    PlanOptions options;
    options.picture = true;
    // Two margins of 24, the sample with its room, and 28 columns of 62 percent of 13.
    EXPECT_EQ(strip_plan(glance_of({cell}), options).width, 24 + 14 + 8 + 226 + 24);
}

TEST(StripPlan, APictureIsAsWideAsItsTitleOrItsSetupNeeds) {
    PlanOptions options;
    options.picture = true;
    JobGlance glance = glance_of({page_cell(0, 1)});
    glance.summary = std::string(30, 'x');
    EXPECT_EQ(strip_plan(glance, options).width, 24 + 372 + 24) << "62 percent of 20";
    glance.setup = std::string(60, 'x');
    EXPECT_EQ(strip_plan(glance, options).width, 24 + 484 + 24) << "62 percent of 13, rounded up";
}

TEST(StripPlan, TheLegendIsBrokenToStayWithinTheWidth) {
    SheetCell blue = page_cell(0, 2);
    blue.paper.color = "Blue";
    PlanOptions options;
    options.picture = true;
    const auto place = [&](const std::string& entry) {
        for (const PlanItem& item : strip_plan(glance_of({page_cell(0, 1), blue}), options).items) {
            const auto* const text = std::get_if<PlanText>(&item);
            if (text != nullptr && text->text == entry) {
                return std::pair(text->x, text->y);
            }
        }
        return std::pair(0, 0);
    };
    // "White" from 24 to 87, a gap of 22, "Blue" to 164, and the margin of 24.
    options.width = 188;
    const auto [x, y] = place("White");
    EXPECT_EQ(x, 24 + 22);
    EXPECT_EQ(place("Blue"), std::pair(109 + 22, y));
    options.width = 187;
    EXPECT_EQ(place("White"), std::pair(x, y));
    EXPECT_EQ(place("Blue"), std::pair(x, y + 24));
    options.width = 0;
    EXPECT_EQ(place("Blue").second, place("White").second) << "as wide as it gets";
}

TEST(StripPlan, TheLegendShowsABackBehindASheetAndAPileAboveIt) {
    PlanOptions options;
    options.picture = true;
    SheetCell turned = page_cell(0, 1);
    turned.lastPage = 2;
    turned.sides = Sides::longEdge;
    const auto back = strip_plan(glance_of({turned}), options).items;
    EXPECT_THAT(back, Contains(PlanItem(sheet(27, 224, 10, 10))));
    EXPECT_THAT(back, Contains(PlanItem(sheet(24, 222, 10, 14))));
    SheetCell pile = page_cell(0, 1);
    pile.sheets = 3;
    pile.lastPage = 3;
    const auto sheets = strip_plan(glance_of({pile}), options).items;
    EXPECT_THAT(sheets, Contains(PlanItem(sheet(27, 220, 10, 14))));
    EXPECT_THAT(sheets, Contains(PlanItem(sheet(24, 222, 10, 14))));
}

TEST(StripPlan, ANoteStandsBelowTheLegendAndMayBeWiderThanAllElse) {
    JobGlance glance = glance_of({page_cell(0, 1)});
    glance.notes = {std::string(53, 'x')};
    PlanOptions options;
    options.picture = true;
    const StripPlan plan = strip_plan(glance, options);
    EXPECT_EQ(plan.width, 24 + 428 + 24);
    EXPECT_EQ(plan.items.back(),
              PlanItem(PlanText{24, 269, Anchor::start, 13, false, Ink::faintText, glance.notes[0]}));
}

TEST(StripPlan, NotesAreWrappedWithinTheMargins) {
    JobGlance glance = glance_of({page_cell(0, 1)});
    glance.notes = {std::string(200, 'x')};
    PlanOptions options;
    options.picture = true;
    options.width = 500;
    const auto lengths = [&] {
        std::vector<std::size_t> all;
        for (const std::string& text : texts(strip_plan(glance, options))) {
            if (text.starts_with("xx")) {
                all.push_back(text.size());
            }
        }
        return all;
    };
    EXPECT_THAT(lengths(), ElementsAre(56, 56, 56, 32)) << "452 units by 62 percent of 13";
    options.width = 100;
    EXPECT_THAT(lengths().front(), 16) << "no shorter than that";
    options.width = 0;
    EXPECT_THAT(lengths().front(), 53) << "as in 480 units where nothing is wider";
}

TEST(StripPlan, TheLegendSaysOnlyWhatThePictureShows) {
    PlanOptions options;
    options.picture = true;
    EXPECT_THAT(texts(strip_plan(glance_of({page_cell(0, 1)}), options)),
                ElementsAre("Summary", "Setup", "1", "White"));
    EXPECT_THAT(texts(strip_plan(glance_of({}), options)), ElementsAre("Summary", "Setup"));
}

TEST(StripPlan, TheCellsItemsFollowOneAnother) {
    PlanOptions options;
    options.picture = true;
    const StripPlan plan =
        strip_plan(glance_of({page_cell(0, 1), insert_cell(1, 0, 3), page_cell(2, 2)}), options);
    std::size_t next = plan.cells.front().firstItem;
    for (const PlanCell& cell : plan.cells) {
        EXPECT_EQ(cell.firstItem, next);
        EXPECT_GT(cell.items, 0U);
        next = cell.firstItem + cell.items;
    }
    EXPECT_LE(next, plan.items.size());
}

} // namespace
} // namespace specialpages::preview
