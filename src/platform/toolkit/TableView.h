// A table of texts with a data source and a delegate.
#pragma once

#include "platform/toolkit/View.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace specialpages::platform {

class TableView;

/// Row numbers from 0, ascending.
using RowSet = std::set<std::size_t>;

struct TableColumn {
    std::string identifier;
    std::string headerTitle;
    bool operator==(const TableColumn&) const = default;
};

class SPECIALPAGES_PLATFORM_API TableViewDataSource {
  public:
    virtual ~TableViewDataSource();
    virtual std::size_t numberOfRowsInTableView(TableView& table) = 0;
    /// The text of a cell; empty optional shows nothing.
    virtual std::optional<std::string>
    tableView_objectValueForTableColumn(TableView& table, const TableColumn& column, std::int64_t row) = 0;
    /// What the row stands for, as text in a form of the source's own; empty optional, as from a source that
    /// does not say otherwise: nothing.
    virtual std::optional<std::string> tableView_representedObjectForRow(TableView& table, std::int64_t row);
};

class SPECIALPAGES_PLATFORM_API TableViewDelegate {
  public:
    virtual ~TableViewDelegate();
    virtual void tableViewSelectionDidChange(TableView& table) = 0;
    /// The tool tip of a cell; empty optional: none.
    virtual std::optional<std::string> tableView_toolTipForCell(TableView& table, const TableColumn& column,
                                                                std::int64_t row) = 0;
};

enum class ExtendingSelection : bool { no, yes };

class SPECIALPAGES_PLATFORM_API TableView : public View {
  public:
    TableView() : View(ViewKind::table) {}

    /// How often delegate and observers together may change the selection while one change is told. Far more
    /// than any that settles needs, and few enough for the stack.
    static constexpr int kMaxNestedChanges = 100;

    const std::vector<TableColumn>& tableColumns() const { return columns_; }
    void setTableColumns(std::vector<TableColumn> columns);
    void setHeaderTitle(std::size_t column, std::string title);

    /// Both are borrowed; null takes them away.
    void setDataSource(TableViewDataSource* source) { source_ = source; }
    void setDelegate(TableViewDelegate* delegate) { delegate_ = delegate; }
    /// What a double click on a row runs.
    void setDoubleAction(const void* target, Action action);

    /// Asks the data source for the number of rows anew. The selection stays, less rows past the end, and the
    /// delegate is not told. ViewChange::rows is announced always, as the texts may be others.
    void reloadData();
    std::size_t numberOfRows() const { return rows_; }
    /// The shown text; empty for a row or column that is not there.
    std::string text(std::size_t row, std::size_t column);
    /// What the data source says that the row stands for; empty optional when it says nothing, and for a row
    /// that is not there.
    std::optional<std::string> representedObject(std::size_t row);
    /// The first tool tip that the delegate has for a cell of the row, columns taken in order; empty optional
    /// when there is none.
    std::optional<std::string> toolTipForRow(std::size_t row);

    const RowSet& selectedRowIndexes() const { return selection_; }
    std::size_t numberOfSelectedRows() const { return selection_.size(); }
    /// Rows past the end are left out. The delegate is told once, and only when the selection changed. It may
    /// change the selection while it is told, and is told of that too; after kMaxNestedChanges of them within
    /// one outer change the selection stays as it is, so that a delegate that never settles comes to an end.
    void selectRowIndexes(const RowSet& rows, ExtendingSelection extending);
    void deselectAll();

    /// The user selects exactly these rows. False, and nothing happens, when the table takes no events or a
    /// row is not there.
    bool userSelects(const RowSet& rows);
    /// The user's double click: the double action fires (also on an empty table, as a click below the last
    /// row does).
    bool doubleClick();

  private:
    void setSelection(RowSet rows);
    std::vector<TableColumn> columns_;
    TableViewDataSource* source_ = nullptr;
    TableViewDelegate* delegate_ = nullptr;
    const void* doubleTarget_ = nullptr;
    Action doubleAction_;
    std::size_t rows_ = 0;
    RowSet selection_;
    bool isTelling_ = false;
    int nestedChanges_ = 0;
};

} // namespace specialpages::platform
