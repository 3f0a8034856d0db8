// Any sequence of changes of every kind, each perhaps undone, some dialogs cancelled: the list keeps its
// order, the exceptions are those of a table page by page, and a job takes the list through its settings
// unchanged.
#include "dialogs/whole_list_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {
namespace {

class WholeListProperty : public WholeListTest {
  protected:
    /// Where a record stands: front cover, before page one, pages (an exception before an insert), back
    /// cover.
    static std::pair<int, std::pair<std::int32_t, int>> place(const SpecialPageRecord& record) {
        if (is_front_cover(record)) {
            return {0, {}};
        }
        if (is_back_cover(record)) {
            return {3, {}};
        }
        const bool insert = record.is(RecordType::insert);
        if (insert && record.text(RecordKey::insertoption) == "1") {
            return {1, {}};
        }
        return {2, {first_page(record), insert ? 1 : 0}};
    }

    void checkOrder() {
        const RecordList& all = records();
        RC_ASSERT(std::is_sorted(all.begin(), all.end(),
                                 [](const auto& a, const auto& b) { return place(a) < place(b); }));
        RC_ASSERT(std::count_if(all.begin(), all.end(), is_front_cover) <= 1);
        RC_ASSERT(std::count_if(all.begin(), all.end(), is_back_cover) <= 1);
        const bool front = has_front_cover(all);
        for (const SpecialPageRecord& record : all) {
            RC_ASSERT(record.type() >= 0 && record.type() <= 2);
            if (record.is(RecordType::insert)) {
                const std::int32_t page = record.integer(RecordKey::page);
                RC_ASSERT(page >= (front ? 1 : 0));
                RC_ASSERT(record.text(RecordKey::insertoption) == (page == 0 ? "1" : "0"));
            }
            RC_ASSERT(record.text(RecordKey::width) != "-1");
            RC_ASSERT(record.integer(RecordKey::pagesize) >= 0);
        }
        RC_ASSERT(table().numberOfRows() == all.size());
        // Marks and selection agree, unless nothing is selected: the marks are then what was left behind.
        if (table().numberOfSelectedRows() > 0) {
            RC_ASSERT(marked_rows(all) == table().selectedRowIndexes());
        }
    }

    /// A selected cover has the other one selected too.
    void checkCovers() {
        const platform::RowSet& rows = table().selectedRowIndexes();
        const bool both =
            records().size() > 1 && is_front_cover(records().front()) && is_back_cover(records().back());
        RC_ASSERT(!both || rows.contains(0) == rows.contains(records().size() - 1));
    }

    /// Moving changes neither the pages nor what there is at each of them.
    static std::multiset<std::string> contents(const RecordList& list) {
        std::multiset<std::string> all;
        for (const SpecialPageRecord& record : list) {
            all.insert(brief(unmarked(record)) + " " + record.text(RecordKey::type));
        }
        return all;
    }

    static RecordList ofType(const RecordList& list, RecordType type) {
        return records_of_type(list, static_cast<std::int32_t>(type));
    }

    /// What each kind of change may touch at all.
    void checkReach(Deed deed) {
        const RecordList now = without_marks(records());
        const auto same = [&](RecordType type) {
            return ofType(now, type) == ofType(before.records, type);
        };
        switch (deed) {
        case Deed::addCovers:
        case Deed::editCovers:
        case Deed::removeCovers: {
            RecordList inserts = ofType(before.records, RecordType::insert);
            if (has_front_cover(now)) {
                inserts = without_before_page_one(std::move(inserts));
            }
            RC_ASSERT(ofType(now, RecordType::insert) == inserts);
            RC_ASSERT(same(RecordType::exception));
            break;
        }
        case Deed::addInserts:
        case Deed::editInsert:
        case Deed::editInserts:
            RC_ASSERT(same(RecordType::cover) && same(RecordType::exception));
            break;
        case Deed::addExceptions:
        case Deed::editException:
        case Deed::editExceptions:
            RC_ASSERT(same(RecordType::cover) && same(RecordType::insert));
            break;
        case Deed::moveUp:
        case Deed::moveDown:
            RC_ASSERT(contents(now) == contents(before.records));
            RC_ASSERT(now != before.records || all_alike(now));
            break;
        case Deed::deleteSelected:
        case Deed::deleteAll:
            RC_ASSERT(now.size() < before.records.size());
            break;
        }
    }

    /// Inserts that are equal in everything may change places unseen.
    static bool all_alike(const RecordList& list) {
        const auto all = contents(list);
        return std::set<std::string>(all.begin(), all.end()).size() < all.size();
    }

    /// A dialog that is opened and left by Escape.
    void cancelADialog() {
        const ListState held = state();
        const bool couldUndo = canPress(specialPagesSPUndoButID);
        const ControlTag button = *rc::gen::element(specialPagesAddCoversButID, specialPagesAddInsertsButID,
                                                    specialPagesAddExceptionsButID);
        face.then([](platform::Window& window) { RC_ASSERT(window.performCancel()); });
        click(*pane->panelView(), button);
        RC_ASSERT(state() == held);
        RC_ASSERT(canPress(specialPagesSPUndoButID) == couldUndo);
    }

    std::vector<std::pair<std::string, platform::SettingsValue>> entries() const {
        std::vector<std::pair<std::string, platform::SettingsValue>> all;
        for (const platform::PrintSettings::Entry& entry : host.settings.entries()) {
            all.emplace_back(entry.key, entry.value);
        }
        return all;
    }

    void checkSavingAndRestoring() {
        const RecordList held = without_marks(records());
        RC_ASSERT(pane->saveValuesAndReturnError(nullptr));
        RC_ASSERT(pane->restoreValuesAndReturnError(nullptr));
        RC_ASSERT(without_marks(records()) == held);
        const auto saved = entries();
        const auto another = makePane();
        RC_ASSERT(another->restoreValuesAndReturnError(nullptr));
        RC_ASSERT(without_marks(another->getSPSummaryScrollViewCtrlPtr()->records()) == held);
        RC_ASSERT(another->saveValuesAndReturnError(nullptr));
        RC_ASSERT(entries() == saved);
    }
};

TEST_F(WholeListProperty, AnySequenceKeepsTheRulesOfTheList) {
    open();
    std::map<Deed, int> done;
    EXPECT_TRUE(rc::check("deeds of every kind", [&] {
        holdAnything();
        for (int steps = number(1, 10); steps > 0; --steps) {
            if (now_and_then()) {
                cancelADialog();
            }
            if (now_and_then()) {
                select(anyRows());
                checkCovers();
            }
            const Deed deed = kDeeds.at(static_cast<std::size_t>(number(0, kDeeds.size() - 1)));
            if (!perform(deed)) {
                continue;
            }
            ++done[deed];
            checkOrder();
            checkCovers();
            checkReach(deed);
            RC_ASSERT(exceptionPages() == expected);
            if (now_and_then()) {
                undo();
                RC_ASSERT(state() == before);
                checkOrder();
            }
        }
        RC_ASSERT(face.alerts().empty());
        checkSavingAndRestoring();
    }));
    for (const Deed deed : kDeeds) {
        EXPECT_GT(done[deed], 10) << static_cast<int>(deed);
    }
}

} // namespace
} // namespace specialpages::test
