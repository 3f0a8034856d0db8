#include "platform/toolkit/TableView.h"

#include <utility>

namespace specialpages::platform {

namespace {

/// Gives the flag its value back at the end, also when a delegate throws.
class Restored {
  public:
    explicit Restored(bool& flag) : flag_(flag), before_(flag) {}
    ~Restored() { flag_ = before_; }
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;

  private:
    bool& flag_;
    bool before_;
};

} // namespace

TableViewDataSource::~TableViewDataSource() = default;
TableViewDelegate::~TableViewDelegate() = default;

void TableView::setTableColumns(std::vector<TableColumn> columns) {
    if (columns_ != columns) {
        columns_ = std::move(columns);
        announce(ViewChange::columns);
    }
}

void TableView::setHeaderTitle(std::size_t column, std::string title) {
    if (column < columns_.size() && columns_[column].headerTitle != title) {
        columns_[column].headerTitle = std::move(title);
        announce(ViewChange::columns);
    }
}

void TableView::setDoubleAction(const void* target, Action action) {
    doubleTarget_ = action ? target : nullptr;
    doubleAction_ = std::move(action);
}

void TableView::reloadData() {
    rows_ = source_ != nullptr ? source_->numberOfRowsInTableView(*this) : 0;
    const auto past = selection_.lower_bound(rows_);
    const bool dropped = past != selection_.end();
    selection_.erase(past, selection_.end());
    announce(ViewChange::rows);
    if (dropped) {
        announce(ViewChange::selection);
    }
}

std::string TableView::text(std::size_t row, std::size_t column) {
    if (source_ == nullptr || row >= rows_ || column >= columns_.size()) {
        return {};
    }
    return source_
        ->tableView_objectValueForTableColumn(*this, columns_[column], static_cast<std::int64_t>(row))
        .value_or(std::string());
}

std::optional<std::string> TableViewDataSource::tableView_representedObjectForRow(TableView& /*table*/,
                                                                                  std::int64_t /*row*/) {
    return std::nullopt;
}

std::optional<std::string> TableView::representedObject(std::size_t row) {
    return source_ == nullptr || row >= rows_
               ? std::nullopt
               : source_->tableView_representedObjectForRow(*this, static_cast<std::int64_t>(row));
}

std::optional<std::string> TableView::toolTipForRow(std::size_t row) {
    if (delegate_ == nullptr || row >= rows_) {
        return std::nullopt;
    }
    for (const TableColumn& column : columns_) {
        if (auto tip = delegate_->tableView_toolTipForCell(*this, column, static_cast<std::int64_t>(row))) {
            return tip;
        }
    }
    return std::nullopt;
}

void TableView::setSelection(RowSet rows) {
    const bool isNested = isTelling_;
    if (selection_ == rows || (isNested && nestedChanges_ == kMaxNestedChanges)) {
        return;
    }
    nestedChanges_ = isNested ? nestedChanges_ + 1 : 0;
    const Restored restored(isTelling_);
    isTelling_ = true;
    selection_ = std::move(rows);
    announce(ViewChange::selection);
    if (delegate_ != nullptr) {
        delegate_->tableViewSelectionDidChange(*this);
    }
}

void TableView::selectRowIndexes(const RowSet& rows, ExtendingSelection extending) {
    RowSet next = extending == ExtendingSelection::yes ? selection_ : RowSet();
    next.insert(rows.begin(), rows.lower_bound(rows_));
    setSelection(std::move(next));
}

void TableView::deselectAll() {
    setSelection({});
}

bool TableView::userSelects(const RowSet& rows) {
    const bool there = rows.empty() || *rows.rbegin() < rows_;
    if (!there || !acceptsEvents()) {
        return false;
    }
    setSelection(rows);
    return true;
}

bool TableView::doubleClick() {
    if (!acceptsEvents()) {
        return false;
    }
    if (const Action action = doubleAction_) {
        action(*this);
    }
    return true;
}

} // namespace specialpages::platform
