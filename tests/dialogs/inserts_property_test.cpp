// Whatever a user does in the inserts dialog, the list stays in order and undo takes the last change back.
#include "dialogs/inserts_fixture.h"
#include "records/record_order.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace specialpages::test {
namespace {

using platform::Window;

/// One thing that the user does to the pane.
struct Deed {
    enum Kind { add, edit, moveUp, moveDown, undoLast, kinds };
    int kind = add;
    unsigned rows = 0;        ///< bits: which of the first rows are selected
    std::vector<int> actions; ///< inside a dialog, in order
    bool pressesOk = true;
};

class InsertsProperty : public InsertsDialogTest {
  protected:
    using Shown = std::vector<std::string>;
    /// The list without its marks.
    Shown shown() const {
        Shown all;
        for (const SpecialPageRecord& record : records()) {
            const std::string text = brief(record);
            all.push_back(record.text(RecordKey::type) + ": " + text.substr(0, text.rfind(' ')));
        }
        return all;
    }

    static void act(Window& inserts, int action) {
        static const std::vector<std::string> kPages{"3",  "3,1",   "0",    "0-2",   "9-7", "",
                                                     "1-", "1-120", "-240", "1, ,2", "2 2", "65000-"};
        static const std::vector<std::string> kQuantities{"1", "12", "0", "", "9999", "10000"};
        const auto number = static_cast<std::size_t>(action / 5);
        switch (action % 5) {
        case 0:
            pages(inserts).type(kPages[number % kPages.size()]);
            break;
        case 1:
            quantity(inserts).type(kQuantities[number % kQuantities.size()]);
            break;
        case 2:
            options(inserts).pick(std::vector<std::int64_t>{static_cast<std::int64_t>(number % 2)});
            break;
        case 3:
            popup(inserts, SPInstWndSelePaperTagID)
                .pick(std::vector<std::int64_t>{static_cast<std::int64_t>(1 + number % 6),
                                                static_cast<std::int64_t>(number % 11)});
            break;
        default:
            if (number % 4 == 0) {
                restore(inserts);
            } else {
                stepper(inserts).step(static_cast<std::int32_t>(number));
            }
        }
    }

    /// Selects those of the rows that are there; answers whether they are inserts alone.
    bool selectRows(unsigned bits) {
        platform::RowSet rows;
        bool insertsAlone = true;
        for (std::size_t row = 0; row < std::min<std::size_t>(records().size(), 8); ++row) {
            if ((bits >> row & 1U) != 0) {
                rows.insert(row);
                insertsAlone = insertsAlone && records()[row].is(RecordType::insert);
            }
        }
        select(rows);
        return insertsAlone && !rows.empty();
    }

    /// Whether the list was changed.
    bool perform(const Deed& deed) {
        bool closedByOk = false;
        const auto user = [&](Window& inserts) {
            for (const int action : deed.actions) {
                act(inserts, action);
            }
            if (deed.pressesOk) {
                const Shown before = shown();
                ok(inserts);
                closedByOk = !inserts.isOpen();
                RC_ASSERT(closedByOk || shown() == before);
            }
            if (inserts.isOpen()) {
                cancel(inserts);
            }
        };
        const bool insertsAlone = selectRows(deed.rows);
        const auto press = [&](ControlTag tag) {
            if (canPress(tag)) {
                click(*pane->panelView(), tag);
            }
        };
        if (deed.kind == Deed::add && canPress(specialPagesAddInsertsButID)) {
            add(user);
        } else if (deed.kind == Deed::edit && insertsAlone) {
            face.then(user);
            click(*pane->panelView(), specialPagesSPEditButID);
        } else if (deed.kind == Deed::moveUp) {
            press(specialPagesSPUpButID);
        } else if (deed.kind == Deed::moveDown) {
            press(specialPagesSPDownButID);
        } else if (deed.kind == Deed::undoLast) {
            press(specialPagesSPUndoButID);
        }
        return closedByOk;
    }

    void checkOrder() const {
        const RecordList inserts = records_of_type(records(), 1);
        RC_ASSERT(inserts.size() <= 250U);
        RC_ASSERT(std::is_sorted(inserts.begin(), inserts.end(), [](const auto& a, const auto& b) {
            return a.integer(RecordKey::page) < b.integer(RecordKey::page);
        }));
        const bool frontCover = !records().empty() && is_front_cover(records().front());
        for (const SpecialPageRecord& insert : inserts) {
            const std::int32_t page = insert.integer(RecordKey::page);
            RC_ASSERT(page >= (frontCover ? 1 : 0) && page <= 65000);
            RC_ASSERT(insert.text(RecordKey::insertoption) == (page == 0 ? "1" : "0"));
            RC_ASSERT(insert.integer(RecordKey::insertquantity) >= 1);
            RC_ASSERT(insert.integer(RecordKey::insertquantity) <= 9999);
            RC_ASSERT(insert.integer(RecordKey::pagesize) >= 0);
            RC_ASSERT(insert.integer(RecordKey::pagecolor) >= 0);
            RC_ASSERT(insert.integer(RecordKey::pagetype) >= 0);
            RC_ASSERT(insert.text(RecordKey::width) == "210.0");
            RC_ASSERT(insert.text(RecordKey::length) == "297.0");
            RC_ASSERT(insert.text(RecordKey::longmeasure) == "1");
        }
        RecordList merged = merge_inserts(without_type(records(), RecordType::insert), inserts);
        RC_ASSERT(merged == records());
    }
};

rc::Gen<Deed> anyDeed() {
    return rc::gen::build<Deed>(
        rc::gen::set(&Deed::kind, rc::gen::inRange(0, static_cast<int>(Deed::kinds))),
        rc::gen::set(&Deed::rows, rc::gen::inRange(0U, 256U)),
        rc::gen::set(&Deed::actions,
                     rc::gen::resize(6, rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 300)))),
        rc::gen::set(&Deed::pressesOk, rc::gen::weightedElement<bool>({{4, true}, {1, false}})));
}

TEST_F(InsertsProperty, AnySequenceKeepsTheOrderAndUndoTakesOneChangeBack) {
    open();
    const RecordList others{exception("2"), exception("5-7"), cover_back()};
    EXPECT_TRUE(rc::check("deeds in the inserts dialog", [&] {
        RecordList start = others;
        if (*rc::gen::arbitrary<bool>()) {
            start.insert(start.begin(), cover_front());
        }
        hold(start);
        for (const Deed& deed : *rc::gen::resize(8, rc::gen::container<std::vector<Deed>>(anyDeed()))) {
            const Shown before = shown();
            const bool changed = perform(deed);
            checkOrder();
            if (changed && deed.rows % 3 == 0) {
                undo();
                RC_ASSERT(shown() == before);
            }
        }
    }));
}

} // namespace
} // namespace specialpages::test
