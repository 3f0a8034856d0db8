// Any sequence of adds, edits, cancels and undos through the exceptions dialog against a model that knows
// single pages only.
#include "dialogs/exceptions_fixture.h"
#include "records/record_order.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <map>
#include <optional>

namespace specialpages::test {
namespace {

struct PageLook {
    std::int32_t color = kWhite;
    std::int32_t sides = 1;
    bool operator==(const PageLook&) const = default;
};
/// What each page looks like; pages that are not here have no exception.
using PageModel = std::map<std::int32_t, PageLook>;

class ExceptionsDialogModel : public ExceptionsDialogTest {
  protected:
    static constexpr std::int32_t kLastPage = 30;

    static std::int32_t number(std::int32_t from, std::int32_t to) { return *rc::gen::inRange(from, to + 1); }
    static PageRange range() {
        const std::int32_t first = number(1, kLastPage);
        return {first, number(first, std::min(kLastPage, first + 6))};
    }
    /// One to three ranges, in any order, overlapping or not.
    static std::vector<PageRange> ranges() {
        std::vector<PageRange> all;
        for (std::int32_t count = number(1, 3); count > 0; --count) {
            all.push_back(range());
        }
        return all;
    }
    static std::string typed(const std::vector<PageRange>& ranges) {
        std::string text;
        for (const PageRange& each : ranges) {
            text += (text.empty() ? "" : ", ") + std::to_string(each.first) + "-" + std::to_string(each.last);
        }
        return text;
    }
    static void look(PageModel& model, const std::vector<PageRange>& ranges, const PageLook& look) {
        for (const PageRange& each : ranges) {
            for (std::int32_t page = each.first; page <= each.last; ++page) {
                model[page] = look;
            }
        }
    }
    std::vector<std::size_t> exceptionRows() const {
        std::vector<std::size_t> rows;
        for (std::size_t row = 0; row < list->records().size(); ++row) {
            if (list->records()[row].is(RecordType::exception)) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    /// What the list says, page by page.
    PageModel shown() const {
        PageModel pages;
        for (const std::size_t row : exceptionRows()) {
            const SpecialPageRecord& record = list->records()[row];
            const PageRange range = page_range(record);
            for (std::int32_t page = range.first; page <= range.last; ++page) {
                RC_ASSERT(!pages.contains(page));
                pages[page] = {record.integer(RecordKey::pagecolor), record.integer(RecordKey::twoSidePrint)};
            }
        }
        return pages;
    }
    /// No two records could be one, and the list is in its order.
    void checkList() const {
        const SpecialPageRecord* before = nullptr;
        std::int32_t place = -1;
        for (const SpecialPageRecord& record : list->records()) {
            const bool exception = record.is(RecordType::exception);
            const bool insert = record.is(RecordType::insert);
            const std::int32_t here = is_front_cover(record)  ? 0
                                      : is_back_cover(record) ? 1000
                                                              : 2 * first_page(record) + (insert ? 1 : 0);
            RC_ASSERT(here > place);
            place = here;
            if (exception && before != nullptr && page_range(*before).last + 1 == first_page(record)) {
                RC_ASSERT(before->integer(RecordKey::pagecolor) != record.integer(RecordKey::pagecolor) ||
                          before->integer(RecordKey::twoSidePrint) !=
                              record.integer(RecordKey::twoSidePrint));
            }
            before = exception ? &record : before;
        }
        RC_ASSERT(list->records().size() - exceptionRows().size() == 4U);
    }

    void addSome(PageModel& model) {
        const auto some = ranges();
        const PageLook chosen{number(0, 2), number(1, 3)};
        table().deselectAll();
        add([&](User& user) {
            RC_ASSERT(user.type(typed(some)));
            RC_ASSERT(user.paper(kColorMenu, chosen.color));
            RC_ASSERT(user.sides(chosen.sides));
            user.ok();
        });
        look(model, some, chosen);
    }
    void editOne(PageModel& model) {
        const auto rows = exceptionRows();
        const std::size_t row = rows[static_cast<std::size_t>(number(0, static_cast<int>(rows.size()) - 1))];
        const SpecialPageRecord record = list->records()[row];
        const auto some = ranges();
        PageLook chosen{record.integer(RecordKey::pagecolor), record.integer(RecordKey::twoSidePrint)};
        const bool recolor = *rc::gen::arbitrary<bool>();
        chosen.color = recolor ? number(0, 2) : chosen.color;
        edit({row}, [&](User& user) {
            RC_ASSERT(user.field().stringValue() == record.text(RecordKey::page));
            RC_ASSERT(user.type(typed(some)));
            if (recolor) {
                RC_ASSERT(user.paper(kColorMenu, chosen.color));
            }
            user.ok();
        });
        const PageRange had = page_range(record);
        for (std::int32_t page = had.first; page <= had.last; ++page) {
            model.erase(page);
        }
        look(model, some, chosen);
    }
    void editSeveral(PageModel& model) {
        const auto rows = exceptionRows();
        const platform::RowSet selected{rows.front(), rows.back()};
        const bool sides = *rc::gen::arbitrary<bool>();
        const std::int32_t value = sides ? number(1, 3) : number(0, 2);
        std::vector<PageRange> touched;
        for (const std::size_t row : selected) {
            touched.push_back(page_range(list->records()[row]));
        }
        edit(selected, [&](User& user) {
            const bool taken = sides ? user.sides(value) : user.paper(kColorMenu, value);
            RC_ASSERT(taken);
            user.ok();
        });
        for (const PageRange& each : touched) {
            for (std::int32_t page = each.first; page <= each.last; ++page) {
                (sides ? model[page].sides : model[page].color) = value;
            }
        }
    }
};

TEST_F(ExceptionsDialogModel, CoversExactlyThePagesOfThePageByPageModel) {
    const std::string kInsertAfter20 = "1,20,0,1,2,0,0,false,210.0,297.0,1";
    const std::string kBackCover = "0,1,0,2,0,0,false,4,210.0,297.0,1";
    open({"0,0,0,2,0,0,false,4,210.0,297.0,1", kInsertAfter3, kInsertAfter20, kBackCover});
    const RecordList start = list->records();
    const bool held = rc::check("the exceptions are those of the model", [&] {
        const RowSet none;
        list->undoRequest(&start, &none);
        PageModel model;
        std::optional<PageModel> before;
        for (std::int32_t steps = number(1, 8); steps > 0; --steps) {
            const std::int32_t kind = number(0, 4);
            const std::size_t count = exceptionRows().size();
            if (kind == 4 && before) {
                press(specialPagesSPUndoButID);
                model = *before;
                before.reset();
            } else if (kind == 3 && count > 0) {
                edit({exceptionRows().front()}, [&](User& user) {
                    user.type(typed(ranges()));
                    user.cancel();
                });
            } else {
                before = model;
                if (kind == 1 && count > 0) {
                    editOne(model);
                } else if (kind == 2 && count > 1) {
                    editSeveral(model);
                } else {
                    addSome(model);
                }
            }
            RC_ASSERT(shown() == model);
            checkList();
        }
        RC_ASSERT(face.alerts().empty());
        const RecordList made = list->records();
        RC_ASSERT(pane->saveValuesAndReturnError(nullptr));
        RC_ASSERT(pane->restoreValuesAndReturnError(nullptr));
        RC_ASSERT(shown() == model);
        RC_ASSERT(list->records().size() == made.size());
    });
    EXPECT_TRUE(held);
}

} // namespace
} // namespace specialpages::test
