#include "qt/TableWidget.h"

#include "qt/text.h"
#include "qt/tips.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace specialpages::qt {

/// Texts of the platform's table. Only the numbers of rows and columns that the view was told of are kept,
/// since a view must hear of a change of these step by step.
class TableRows : public QAbstractTableModel {
  public:
    explicit TableRows(QObject* parent) : QAbstractTableModel(parent) {}

    void setTable(platform::TableView* table) {
        beginResetModel();
        table_ = table;
        rows_ = table == nullptr ? 0 : static_cast<int>(table->numberOfRows());
        endResetModel();
    }

    void setRowWords(TableWidget::RowWords words) { words_ = std::move(words); }

    void rowsChanged() {
        const int next = table_ == nullptr ? 0 : static_cast<int>(table_->numberOfRows());
        if (next > rows_) {
            beginInsertRows({}, rows_, next - 1);
            rows_ = next;
            endInsertRows();
        } else if (next < rows_) {
            beginRemoveRows({}, next, rows_ - 1);
            rows_ = next;
            endRemoveRows();
        }
        if (rows_ > 0) {
            emit dataChanged(index(0, 0), index(rows_ - 1, columnCount({}) - 1));
        }
    }

    void columnsChanged() { emit headerDataChanged(Qt::Horizontal, 0, columnCount({}) - 1); }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() || table_ == nullptr ? 0 : static_cast<int>(table_->tableColumns().size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (table_ == nullptr || !index.isValid()) {
            return {};
        }
        const auto row = static_cast<std::size_t>(index.row());
        const auto column = static_cast<std::size_t>(index.column());
        switch (role) {
        case Qt::DisplayRole:
            return shown_text(table_->text(row, column));
        case Qt::ToolTipRole: {
            const auto tip = table_->toolTipForRow(row);
            return tip ? QVariant(literal_tip(*tip)) : QVariant();
        }
        case Qt::AccessibleTextRole:
            // Going from row to row, readers say the cells in their order, and know of nothing that stands
            // for the row but them: the first one says the row, the others themselves.
            return column == 0 ? QVariant(sentence(row)) : data(index, Qt::DisplayRole);
        default:
            return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        // Assistive tools are shown the head of a row even where it is hidden.
        if (table_ != nullptr && orientation == Qt::Vertical && section >= 0 && section < rows_ &&
            role == Qt::AccessibleTextRole) {
            return sentence(static_cast<std::size_t>(section));
        }
        const bool there =
            table_ != nullptr && orientation == Qt::Horizontal && section >= 0 && section < columnCount({});
        if (there && role == Qt::DisplayRole) {
            return shown_text(table_->tableColumns()[static_cast<std::size_t>(section)].headerTitle);
        }
        if (there && role == Qt::TextAlignmentRole) {
            return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        }
        return {};
    }

  private:
    QString sentence(std::size_t row) const {
        QString words = words_ ? words_(row) : QString();
        if (!words.isEmpty()) {
            return words;
        }
        QStringList parts;
        for (std::size_t column = 0; column < table_->tableColumns().size(); ++column) {
            const QString text = shown_text(table_->text(row, column));
            if (!text.isEmpty()) {
                parts << text;
            }
        }
        return parts.join(QLatin1String(", "));
    }

    platform::TableView* table_ = nullptr;
    TableWidget::RowWords words_;
    int rows_ = 0;
};

TableWidget::TableWidget(QWidget* parent) : QTableView(parent), rows_(new TableRows(this)) {
    setModel(rows_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    // Only rows that can be seen are measured, however long the list is.
    horizontalHeader()->setResizeContentsPrecision(0);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

void TableWidget::setRowWords(RowWords words) {
    rows_->setRowWords(std::move(words));
}

void TableWidget::setTable(platform::TableView* table) {
    const bool before = std::exchange(showing_, true);
    rows_->setTable(table);
    showing_ = before;
}

void TableWidget::showRows() {
    const bool before = std::exchange(showing_, true);
    rows_->rowsChanged();
    showing_ = before;
}

void TableWidget::showColumns() {
    rows_->columnsChanged();
}

void TableWidget::showSelection(const platform::RowSet& rows) {
    if (rows == selectedRowSet()) {
        return;
    }
    const bool before = std::exchange(showing_, true);
    QItemSelection selection;
    const int last = rows_->columnCount({}) - 1;
    for (const std::size_t row : rows) {
        const int at = static_cast<int>(row);
        selection.select(rows_->index(at, 0), rows_->index(at, last));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty()) {
        const int first = static_cast<int>(*rows.begin());
        if (!rows.contains(static_cast<std::size_t>(std::max(currentIndex().row(), 0)))) {
            selectionModel()->setCurrentIndex(rows_->index(first, 0), QItemSelectionModel::NoUpdate);
        }
        scrollTo(rows_->index(first, 0));
    }
    showing_ = before;
}

platform::RowSet TableWidget::selectedRowSet() const {
    platform::RowSet rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.insert(static_cast<std::size_t>(row));
        }
    }
    return rows;
}

void TableWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (!showing_ && handlers_.selected) {
        handlers_.selected(selectedRowSet());
    }
}

void TableWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && handlers_.doubleClicked) {
        handlers_.doubleClicked();
    }
}

int TableWidget::sizeHintForColumn(int column) const {
    return QTableView::sizeHintForColumn(column) + fontMetrics().averageCharWidth();
}

} // namespace specialpages::qt
