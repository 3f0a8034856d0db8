// The list of special pages under every kind of change that a person can make to it: through the covers,
// inserts and exceptions dialogs and by the buttons under the table. Each deed draws what it needs, so it has
// to run inside a property.
#pragma once

#include "dialogs/SPWarningWndEMF.h"
#include "dialogs/exceptions_fixture.h"
#include "dialogs/inserts_fixture.h"
#include "paper/covers_tags.h"
#include "records/insert_records.h"
#include "records/list_moves.h"
#include "records/record_order.h"

#include <rapidcheck.h>

#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {

enum class Deed {
    addCovers,
    editCovers,
    removeCovers,
    addInserts,
    editInsert,
    editInserts,
    addExceptions,
    editException,
    editExceptions,
    moveUp,
    moveDown,
    deleteSelected,
    deleteAll,
};
inline constexpr std::array kDeeds{
    Deed::addCovers,   Deed::editCovers,     Deed::removeCovers,  Deed::addInserts,     Deed::editInsert,
    Deed::editInserts, Deed::addExceptions,  Deed::editException, Deed::editExceptions, Deed::moveUp,
    Deed::moveDown,    Deed::deleteSelected, Deed::deleteAll,
};

/// What a page of an exception looks like, and all such pages.
struct ExceptionLook {
    std::int32_t color = 0;
    std::int32_t sides = 0;
    bool operator==(const ExceptionLook&) const = default;
};
using ExceptionPages = std::map<std::int32_t, ExceptionLook>;

/// All that a change may touch and an undo has to bring back. A record without a mark is one that is not
/// marked.
struct ListState {
    RecordList records;
    platform::RowSet marks;
    platform::RowSet selection;
    std::vector<std::string> shown;
    bool operator==(const ListState&) const = default;
};
inline std::ostream& operator<<(std::ostream& out, const ListState& state) {
    for (std::size_t row = 0; row < state.records.size(); ++row) {
        out << (state.marks.contains(row) ? "m" : " ") << (state.selection.contains(row) ? "# " : "  ")
            << state.records[row] << '\n';
    }
    return out;
}

class WholeListTest : public InsertsDialogTest {
  protected:
    static constexpr std::int32_t kLastPage = 14;

    /// Any of these numbers alike, in the first cases of a property as in the last.
    static int number(int from, int to) {
        return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(from, to + 1));
    }
    static bool now_and_then() { return number(0, 3) == 0; }

    platform::TableView& table() {
        return dynamic_cast<platform::TableView&>(
            *pane->panelView()->viewWithTag(specialPagesSPSummaryViewID));
    }

    static RecordList without_marks(const RecordList& records) { return unmark_all(records); }

    ListState state() {
        ListState now{without_marks(records()), marked_rows(records()), table().selectedRowIndexes(), {}};
        for (std::size_t row = 0; row < table().numberOfRows(); ++row) {
            for (std::size_t column = 0; column < table().tableColumns().size(); ++column) {
                now.shown.push_back(table().text(row, column));
            }
        }
        return now;
    }

    /// A list as the dialogs make it, in its order, with few pages, so that many records meet.
    static RecordList anyList() {
        RecordList covers;
        if (number(0, 1) == 1) {
            covers.push_back(cover_front());
        }
        if (number(0, 1) == 1) {
            covers.push_back(cover_back());
        }
        std::vector<int> pages;
        for (int count = number(0, 6); count > 0; --count) {
            pages.push_back(number(has_front_cover(covers) ? 1 : 0, 5));
        }
        std::sort(pages.begin(), pages.end());
        RecordList inserts;
        for (const int page : pages) {
            inserts.push_back(page == 0 ? insert_before_page_one(number(1, 9))
                                        : insert_after(page, number(1, 9)));
        }
        RecordList exceptions;
        for (int page = number(1, 4); page < kLastPage && exceptions.size() < 4; page += number(1, 4)) {
            const int last = page + number(0, 2);
            exceptions.push_back(exception(last == page ? std::to_string(page)
                                                        : std::to_string(page) + "-" + std::to_string(last))
                                     .with(RecordKey::pagesize, "2")
                                     .with(RecordKey::pagecolor, std::to_string(exceptions.size() % 3)));
            page = last + 1;
        }
        return merge_exceptions(merge_inserts(merge_covers({}, covers), inserts), exceptions);
    }

    platform::RowSet anyRows() {
        platform::RowSet rows;
        for (std::size_t row = 0; row < records().size(); ++row) {
            if (number(0, 2) == 0) {
                rows.insert(rows.end(), row);
            }
        }
        return rows;
    }

    /// The list in any situation: any records, with or without a selection, marks that a selection left
    /// behind, and before any dialog, while adding or after editing.
    void holdAnything() {
        hold(anyList());
        list->setSummaryScrollViewStatus(number(0, 2));
        select(anyRows());
        if (number(0, 2) == 0) {
            table().deselectAll();
        }
    }

    std::vector<std::size_t> rowsOf(RecordType type) const {
        std::vector<std::size_t> rows;
        for (std::size_t row = 0; row < records().size(); ++row) {
            if (records()[row].is(type)) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    /// Whether the deed could be done and changed something; false leaves everything as it was.
    bool perform(Deed deed) {
        switch (deed) {
        case Deed::addCovers:
            return openCovers(specialPagesAddCoversButID, number(1, 4));
        case Deed::editCovers:
            return selectSome(RecordType::cover, 1) && openCovers(specialPagesSPEditButID, number(1, 4));
        case Deed::removeCovers:
            return selectSome(RecordType::cover, 1) && openCovers(specialPagesSPEditButID, 0);
        case Deed::addInserts:
            return openInserts(specialPagesAddInsertsButID, true);
        case Deed::editInsert:
            return selectSome(RecordType::insert, 1) && openInserts(specialPagesSPEditButID, true);
        case Deed::editInserts:
            return selectSome(RecordType::insert, 2) && openInserts(specialPagesSPEditButID, false);
        case Deed::addExceptions:
            return openExceptions(specialPagesAddExceptionsButID, true);
        case Deed::editException:
            return selectSome(RecordType::exception, 1) && openExceptions(specialPagesSPEditButID, true);
        case Deed::editExceptions:
            return selectSome(RecordType::exception, 2) && openExceptions(specialPagesSPEditButID, false);
        case Deed::moveUp:
            return move(specialPagesSPUpButID, 1);
        case Deed::moveDown:
            return move(specialPagesSPDownButID, 0);
        case Deed::deleteSelected:
            return table().numberOfSelectedRows() > 0 && deleteBy(specialPagesSPDeleteButID);
        case Deed::deleteAll:
            return !records().empty() && deleteBy(specialPagesSPDeleteAllButID);
        }
        return false;
    }

    /// The state when the deed's button was pressed: what an undo brings back.
    ListState before;
    /// The exceptions that a deed has to leave, page by page.
    ExceptionPages expected;

    /// The exceptions of the list; fails when a page is in two of them.
    ExceptionPages exceptionPages() const {
        ExceptionPages pages;
        for (const SpecialPageRecord& record : records()) {
            if (record.is(RecordType::exception)) {
                const PageRange range = page_range(record);
                for (std::int32_t page = range.first; page <= range.last; ++page) {
                    const ExceptionLook look{record.integer(RecordKey::pagecolor),
                                             record.integer(RecordKey::twoSidePrint)};
                    RC_ASSERT(pages.emplace(page, look).second);
                }
            }
        }
        return pages;
    }

  private:
    void press(ControlTag tag) {
        before = state();
        expected = exceptionPages();
        RC_ASSERT(canPress(tag));
        click(*pane->panelView(), tag);
    }

    /// Selects one record of the kind, or some, at least two. False when there are too few.
    bool selectSome(RecordType type, std::size_t atLeast) {
        std::vector<std::size_t> rows = rowsOf(type);
        if (rows.size() < atLeast) {
            return false;
        }
        while (rows.size() > atLeast && (atLeast == 1 || number(0, 1) == 1)) {
            rows.erase(rows.begin() + number(0, static_cast<int>(rows.size()) - 1));
        }
        select({rows.begin(), rows.end()});
        return true;
    }

    /// Runs the dialog behind the button; answers whether its OK was pressed and closed it.
    bool runDialog(ControlTag button, ControlTag okButton, const InsertsDialogTest::User& user) {
        bool closed = false;
        face.then([&](platform::Window& window) {
            user(window);
            click(window, okButton);
            closed = !window.isOpen();
            RC_ASSERT(closed || without_marks(records()) == before.records);
        });
        press(button);
        return closed;
    }

    bool openCovers(ControlTag button, int option) {
        return runDialog(button, spCoversWndOKButtonID, [option](platform::Window& window) {
            RC_ASSERT(popup(window, spCoversWndCoverOptionListID).pick(std::vector<std::int64_t>{option}));
            for (const ControlTag menu : {spCoversWndFrontCoverPageListID, spCoversWndBackCoverPageListID}) {
                if (popup(window, menu).isEnabled() && now_and_then()) {
                    popup(window, menu).pick(std::vector<std::int64_t>{kColor, number(0, 3)});
                }
            }
        });
    }

    bool openInserts(ControlTag button, bool withPages) {
        return runDialog(button, SPInstWndOKBtnTagID, [withPages](platform::Window& window) {
            if (withPages && now_and_then() && options(window).menu().itemAtIndex(1)->isEnabled()) {
                chooseBeforePageOne(window);
            } else if (withPages) {
                chooseAfter(window);
                RC_ASSERT(pages(window).type(
                    *rc::gen::element<std::string>("3", "1,1", "5, 2-4", "0", "0-2", "4", "-3", "2 2 2")));
            } else {
                RC_ASSERT(!pages(window).isEnabled());
            }
            if (number(0, 1) == 1) {
                RC_ASSERT(quantity(window).type(std::to_string(number(1, 9))));
            }
            if (number(0, 1) == 1) {
                popup(window, SPInstWndSelePaperTagID).pick(std::vector<std::int64_t>{kColor, number(0, 4)});
            }
        });
    }

    bool openExceptions(ControlTag button, bool withPages) {
        std::vector<PageRange> typed;
        ExceptionLook asked;
        const bool editsOne = withPages && button == specialPagesSPEditButID;
        const bool done = runDialog(button, spExceptionWndOKBtnID, [&](platform::Window& window) {
            test::User user(window);
            if (withPages) {
                typed = typePages(user);
                asked = {number(0, 2), number(1, 3)};
            } else {
                typed = selectedRanges();
                asked = number(0, 1) == 1 ? ExceptionLook{number(0, 2), 0} : ExceptionLook{-1, number(1, 3)};
            }
            RC_ASSERT(asked.color < 0 || user.paper(kColorMenu, asked.color));
            RC_ASSERT(asked.sides < 1 || user.sides(asked.sides));
            if (editsOne) {
                forget(selectedRanges());
            }
        });
        for (const PageRange& range : typed) {
            for (std::int32_t page = range.first; page <= range.last; ++page) {
                ExceptionLook& look = expected[page];
                look = {asked.color < 0 ? look.color : asked.color,
                        asked.sides < 1 ? look.sides : asked.sides};
            }
        }
        return done;
    }

    static std::vector<PageRange> typePages(test::User& user) {
        std::vector<PageRange> ranges;
        std::string text;
        for (int count = number(1, 3); count > 0; --count) {
            const std::int32_t first = number(1, kLastPage);
            ranges.push_back({first, number(first, std::min(kLastPage, first + 5))});
            text += (text.empty() ? "" : ", ") + std::to_string(first) + " - " +
                    std::to_string(ranges.back().last);
        }
        RC_ASSERT(user.type(text));
        return ranges;
    }

    std::vector<PageRange> selectedRanges() {
        std::vector<PageRange> ranges;
        for (const std::size_t row : table().selectedRowIndexes()) {
            ranges.push_back(page_range(records()[row]));
        }
        return ranges;
    }

    void forget(const std::vector<PageRange>& ranges) {
        for (const PageRange& range : ranges) {
            for (std::int32_t page = range.first; page <= range.last; ++page) {
                expected.erase(page);
            }
        }
    }

    /// Moves inserts that may change places, one or several together; `lower` is 1 for the lower of each
    /// pair.
    bool move(ControlTag button, std::size_t lower) {
        std::vector<std::size_t> rows;
        for (std::size_t row = 0; row < records().size(); ++row) {
            if (may_swap(records(), row)) {
                rows.push_back(row + lower);
            }
        }
        if (rows.empty()) {
            return false;
        }
        platform::RowSet moving{rows[static_cast<std::size_t>(number(0, static_cast<int>(rows.size()) - 1))]};
        for (const std::size_t row : rows) {
            if (number(0, 2) == 0) {
                moving.insert(row);
            }
        }
        select(moving);
        press(button);
        return true;
    }

    bool deleteBy(ControlTag button) {
        face.then([&](platform::Window& window) { click(window, spWarningWndOKButID); });
        const auto selected = table().selectedRowIndexes();
        press(button);
        for (std::size_t row = 0; button == specialPagesSPDeleteButID && row < before.records.size(); ++row) {
            if (selected.contains(row) && before.records[row].is(RecordType::exception)) {
                forget({page_range(before.records[row])});
            }
        }
        if (button == specialPagesSPDeleteAllButID) {
            expected.clear();
        }
        return true;
    }
};

} // namespace specialpages::test
