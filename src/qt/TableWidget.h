// The table: reads its texts from the model whenever it draws, and tells what the user does with rows.
#pragma once

#include "platform/toolkit/TableView.h"

#include <QString>
#include <QTableView>
#include <cstddef>
#include <functional>

namespace specialpages::qt {

class TableRows;

class TableWidget : public QTableView {
  public:
    explicit TableWidget(QWidget* parent);

    struct Handlers {
        std::function<void(const platform::RowSet& rows)> selected;
        std::function<void()> doubleClicked;
    };
    void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

    /// Says a whole row, for those who hear it; empty for a row that it has no words for.
    using RowWords = std::function<QString(std::size_t row)>;
    /// Without such words, or where they are empty, a row is said by its cells' texts.
    void setRowWords(RowWords words);

    /// The model that it shows; borrowed, null for none.
    void setTable(platform::TableView* table);
    void showRows();
    void showColumns();
    void showSelection(const platform::RowSet& rows);
    platform::RowSet selectedRowSet() const;

  protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    int sizeHintForColumn(int column) const override;

  private:
    TableRows* rows_;
    Handlers handlers_;
    bool showing_ = false;
};

} // namespace specialpages::qt
