#include "ChangeLog.h"
#include "platform/toolkit/TableView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace specialpages::platform {
namespace {

struct Source : TableViewDataSource {
    std::size_t rows = 0;
    std::size_t numberOfRowsInTableView(TableView& /*table*/) override { return rows; }
    std::optional<std::string> tableView_objectValueForTableColumn(TableView& /*table*/,
                                                                   const TableColumn& column,
                                                                   std::int64_t row) override {
        if (column.identifier == "empty") {
            return std::nullopt;
        }
        return column.identifier + std::to_string(row);
    }
};

struct Delegate : TableViewDelegate {
    int told = 0;
    std::function<void(TableView&)> onChange;
    void tableViewSelectionDidChange(TableView& table) override {
        ++told;
        if (onChange) {
            onChange(table);
        }
    }
    std::optional<std::string> tableView_toolTipForCell(TableView& /*table*/, const TableColumn& column,
                                                        std::int64_t row) override {
        return column.identifier == "page" ? std::optional("tip " + std::to_string(row)) : std::nullopt;
    }
};

struct Fixture {
    explicit Fixture(std::size_t rows) {
        source.rows = rows;
        table.setTableColumns({{"empty", "E"}, {"page", "P"}});
        table.setDataSource(&source);
        table.setDelegate(&delegate);
        table.reloadData();
    }
    Source source;
    Delegate delegate;
    TableView table;
};

TEST(TableView, ARowStandsForWhatItsSourceSays) {
    struct Telling : Source {
        std::optional<std::string> tableView_representedObjectForRow(TableView& /*table*/,
                                                                     std::int64_t row) override {
            return "row " + std::to_string(row);
        }
    } telling;
    Fixture f(2);
    EXPECT_FALSE(f.table.representedObject(0).has_value()) << "a source that does not say";
    telling.rows = 2;
    f.table.setDataSource(&telling);
    EXPECT_EQ(f.table.representedObject(1), "row 1");
    EXPECT_FALSE(f.table.representedObject(2).has_value());
    f.table.setDataSource(nullptr);
    EXPECT_FALSE(f.table.representedObject(0).has_value());
}

TEST(TableView, HasNoRowsBeforeItIsLoaded) {
    TableView table;
    Source source;
    source.rows = 4;
    table.setDataSource(&source);
    EXPECT_EQ(table.numberOfRows(), 0U);
    table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(table.numberOfSelectedRows(), 0U);
    table.reloadData();
    EXPECT_EQ(table.numberOfRows(), 4U);
    table.setDataSource(nullptr);
    table.reloadData();
    EXPECT_EQ(table.numberOfRows(), 0U);
}

TEST(TableView, ReloadKeepsTheSelectionLessRowsPastTheEndAndTellsNobody) {
    Fixture f(5);
    f.table.selectRowIndexes({1, 3, 4}, ExtendingSelection::no);
    f.delegate.told = 0;
    ChangeLog log(f.table);
    f.table.reloadData();
    EXPECT_EQ(f.table.selectedRowIndexes(), (RowSet{1, 3, 4}));
    EXPECT_EQ(log.take(), Changes{ViewChange::rows});
    f.source.rows = 4;
    f.table.reloadData();
    EXPECT_EQ(f.table.selectedRowIndexes(), (RowSet{1, 3}));
    EXPECT_EQ(log.take(), (Changes{ViewChange::rows, ViewChange::selection}));
    f.source.rows = 0;
    f.table.reloadData();
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
    f.source.rows = 9;
    f.table.reloadData();
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U) << "a dropped row does not come back";
    EXPECT_EQ(f.delegate.told, 0);
}

TEST(TableView, SelectingTellsTheDelegateOnceAndOnlyAChange) {
    Fixture f(5);
    ChangeLog log(f.table);
    f.table.selectRowIndexes({1, 2}, ExtendingSelection::no);
    EXPECT_EQ(f.delegate.told, 1);
    f.table.selectRowIndexes({1, 2}, ExtendingSelection::no);
    f.table.selectRowIndexes({2}, ExtendingSelection::yes);
    f.table.selectRowIndexes({}, ExtendingSelection::yes);
    EXPECT_EQ(f.delegate.told, 1);
    EXPECT_EQ(log.take(), Changes{ViewChange::selection});
    f.table.selectRowIndexes({4}, ExtendingSelection::yes);
    EXPECT_EQ(f.table.selectedRowIndexes(), (RowSet{1, 2, 4}));
    EXPECT_EQ(f.delegate.told, 2);
    f.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(f.table.selectedRowIndexes(), RowSet{0});
    f.table.selectRowIndexes({}, ExtendingSelection::no);
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
    EXPECT_EQ(f.delegate.told, 4);
}

TEST(TableView, LeavesOutRowsPastTheEnd) {
    Fixture f(3);
    f.table.selectRowIndexes({2, 3, 999}, ExtendingSelection::no);
    EXPECT_EQ(f.table.selectedRowIndexes(), RowSet{2});
    f.table.selectRowIndexes({3}, ExtendingSelection::yes);
    EXPECT_EQ(f.delegate.told, 1);
}

TEST(TableView, DeselectingAllTellsOnce) {
    Fixture f(3);
    f.table.deselectAll();
    EXPECT_EQ(f.delegate.told, 0);
    f.table.selectRowIndexes({0, 1}, ExtendingSelection::no);
    f.table.deselectAll();
    f.table.deselectAll();
    EXPECT_EQ(f.delegate.told, 2);
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
}

TEST(TableView, AChangeFromInsideTheNotificationIsToldOnceToo) {
    Fixture f(5);
    ChangeLog log(f.table);
    // Grows the selection upwards to row 0, one row a notification: four changes up to the fixed point.
    f.delegate.onChange = [](TableView& table) {
        const std::size_t first = *table.selectedRowIndexes().begin();
        table.selectRowIndexes({first == 0 ? 0 : first - 1}, ExtendingSelection::yes);
    };
    f.table.selectRowIndexes({3}, ExtendingSelection::no);
    EXPECT_EQ(f.table.selectedRowIndexes(), (RowSet{0, 1, 2, 3}));
    EXPECT_EQ(f.delegate.told, 4);
    EXPECT_EQ(log.take(), Changes(4, ViewChange::selection));
}

TEST(TableView, ADelegateThatSelectsWhatIsSelectedIsNotToldAgain) {
    Fixture f(5);
    f.delegate.onChange = [](TableView& table) {
        table.selectRowIndexes(table.selectedRowIndexes(), ExtendingSelection::no);
    };
    f.table.selectRowIndexes({2}, ExtendingSelection::no);
    EXPECT_EQ(f.delegate.told, 1);
}

TEST(TableView, ADelegateThatNeverSettlesComesToAnEnd) {
    Fixture fixture(2);
    fixture.delegate.onChange = [](TableView& table) {
        table.selectRowIndexes({1 - *table.selectedRowIndexes().begin()}, ExtendingSelection::no);
    };
    fixture.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(fixture.delegate.told, 1 + TableView::kMaxNestedChanges);
    EXPECT_EQ(fixture.table.selectedRowIndexes(), RowSet{0}) << "what the delegate was told last";

    fixture.delegate.told = 0;
    EXPECT_TRUE(fixture.table.userSelects({1})) << "each outer change counts anew";
    EXPECT_EQ(fixture.delegate.told, 1 + TableView::kMaxNestedChanges);
    EXPECT_EQ(fixture.table.selectedRowIndexes(), RowSet{1});
}

TEST(TableView, ADelegateThatChangesTheSelectionTwiceEachTimeComesToAnEndAsSoon) {
    Fixture fixture(2);
    fixture.delegate.onChange = [](TableView& table) {
        table.deselectAll();
        table.selectRowIndexes({0}, ExtendingSelection::no);
        table.selectRowIndexes({1}, ExtendingSelection::no);
    };
    fixture.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(fixture.delegate.told, 1 + TableView::kMaxNestedChanges);
}

TEST(TableView, AnObserverThatNeverSettlesComesToAnEnd) {
    Fixture fixture(2);
    int announced = 0;
    fixture.table.addObserver([&](View&, ViewChange) {
        ++announced;
        fixture.table.selectRowIndexes({1 - *fixture.table.selectedRowIndexes().begin()},
                                       ExtendingSelection::no);
    });
    fixture.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(announced, 1 + TableView::kMaxNestedChanges);
}

TEST(TableView, ADelegateMayWalkThroughManyRows) {
    Fixture fixture(TableView::kMaxNestedChanges + 1);
    fixture.delegate.onChange = [](TableView& table) {
        const std::size_t next = *table.selectedRowIndexes().begin() + 1;
        table.selectRowIndexes({std::min(next, table.numberOfRows() - 1)}, ExtendingSelection::no);
    };
    fixture.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_EQ(fixture.table.selectedRowIndexes(), RowSet{TableView::kMaxNestedChanges});
    EXPECT_EQ(fixture.delegate.told, 1 + TableView::kMaxNestedChanges);
}

TEST(TableView, ADelegateThatThrowsLeavesTheNextChangeItsTellings) {
    Fixture fixture(2);
    fixture.delegate.onChange = [](TableView&) {
        throw std::runtime_error("of the delegate");
    };
    EXPECT_THROW(fixture.table.selectRowIndexes({0}, ExtendingSelection::no), std::runtime_error);
    fixture.delegate.onChange = nullptr;
    for (int i = 0; i < 2 * TableView::kMaxNestedChanges; ++i) {
        fixture.table.selectRowIndexes({static_cast<std::size_t>(1 - i % 2)}, ExtendingSelection::no);
    }
    EXPECT_EQ(fixture.delegate.told, 1 + 2 * TableView::kMaxNestedChanges);
}

TEST(TableView, ADelegateMayReloadFromInsideTheNotification) {
    Fixture f(5);
    f.delegate.onChange = [&](TableView& table) {
        f.source.rows = 2;
        table.reloadData();
    };
    f.table.selectRowIndexes({1, 4}, ExtendingSelection::no);
    EXPECT_EQ(f.table.selectedRowIndexes(), RowSet{1});
    EXPECT_EQ(f.delegate.told, 1);
}

TEST(TableView, TheUserSelectsExactlyTheRows) {
    Fixture f(5);
    f.table.selectRowIndexes({0}, ExtendingSelection::no);
    EXPECT_TRUE(f.table.userSelects({2, 4}));
    EXPECT_EQ(f.table.selectedRowIndexes(), (RowSet{2, 4}));
    EXPECT_EQ(f.delegate.told, 2);
    EXPECT_TRUE(f.table.userSelects({2, 4}));
    EXPECT_EQ(f.delegate.told, 2);
    EXPECT_TRUE(f.table.userSelects({}));
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
}

TEST(TableView, TheUserCannotSelectARowThatIsNotThere) {
    Fixture f(5);
    EXPECT_FALSE(f.table.userSelects({1, 5}));
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
    EXPECT_EQ(f.delegate.told, 0);
    f.table.setEnabled(false);
    EXPECT_FALSE(f.table.userSelects({1}));
    EXPECT_EQ(f.table.numberOfSelectedRows(), 0U);
}

TEST(TableView, ADoubleClickFiresTheDoubleActionAlsoOnAnEmptyTable) {
    TableView table;
    int fired = 0;
    EXPECT_TRUE(table.doubleClick());
    table.setTargetAction(&table, [](View&) { ADD_FAILURE() << "not the plain action"; });
    table.setDoubleAction(&table, [&](View& sender) {
        EXPECT_EQ(&sender, &table);
        ++fired;
    });
    EXPECT_TRUE(table.doubleClick());
    EXPECT_EQ(fired, 1);
    table.setHidden(true);
    EXPECT_FALSE(table.doubleClick());
    table.setHidden(false);
    table.setDoubleAction(nullptr, nullptr);
    EXPECT_TRUE(table.doubleClick());
    EXPECT_EQ(fired, 1);
}

TEST(TableView, ShowsTheTextsOfItsDataSource) {
    Fixture f(2);
    EXPECT_EQ(f.table.text(1, 1), "page1");
    EXPECT_EQ(f.table.text(1, 0), "") << "the source has none";
    EXPECT_EQ(f.table.text(2, 1), "");
    EXPECT_EQ(f.table.text(0, 2), "");
    f.table.setDataSource(nullptr);
    EXPECT_EQ(f.table.text(1, 1), "");
}

TEST(TableView, ShowsTheFirstToolTipOfARow) {
    Fixture f(2);
    EXPECT_EQ(f.table.toolTipForRow(1), "tip 1");
    EXPECT_EQ(f.table.toolTipForRow(2), std::nullopt);
    f.table.setTableColumns({{"empty", ""}});
    EXPECT_EQ(f.table.toolTipForRow(1), std::nullopt);
    f.table.setDelegate(nullptr);
    EXPECT_EQ(f.table.toolTipForRow(1), std::nullopt);
    f.table.selectRowIndexes({1}, ExtendingSelection::no);
    EXPECT_EQ(f.table.selectedRowIndexes(), RowSet{1});
}

TEST(TableView, AnnouncesItsColumnsWhenTheyChange) {
    TableView table;
    ChangeLog log(table);
    table.setTableColumns({{"page", "Page"}});
    table.setTableColumns({{"page", "Page"}});
    EXPECT_EQ(log.take(), Changes{ViewChange::columns});
    table.setHeaderTitle(0, "Seite");
    table.setHeaderTitle(0, "Seite");
    table.setHeaderTitle(1, "there is none");
    EXPECT_EQ(log.take(), Changes{ViewChange::columns});
    ASSERT_EQ(table.tableColumns().size(), 1U);
    EXPECT_EQ(table.tableColumns()[0].identifier, "page");
    EXPECT_EQ(table.tableColumns()[0].headerTitle, "Seite");
}

} // namespace
} // namespace specialpages::platform
