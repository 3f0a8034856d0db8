// The sheets of a job as one row that scrolls: the plan of a job at a glance, painted in the window's own
// palette. A sheet that comes from a record selects it and follows its selection; arrows, Home and End walk
// the sheets, Enter edits. To assistive tools it is a list whose items are the sheets, each with its
// sentence.
#pragma once

#include "preview/JobGlance.h"
#include "preview/strip_plan.h"

#include <QAbstractScrollArea>
#include <QRect>
#include <QString>
#include <cstddef>
#include <optional>
#include <set>

class QPainter;

namespace specialpages::qt {

/// Row numbers of the list of special pages.
using Rows = std::set<std::size_t>;

class SheetStrip : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit SheetStrip(QWidget* parent = nullptr);

    /// Shows another job, or the same one changed. The selection stays; the current sheet stays as far as
    /// there are as many sheets.
    void setGlance(preview::JobGlance glance);
    const preview::JobGlance& glance() const { return glance_; }

    const Rows& selectedRows() const { return rows_; }
    /// The sheet that the keyboard stands on; empty when there is none.
    std::optional<std::size_t> currentCell() const { return current_; }
    /// The user goes to that sheet: it is scrolled into sight, and its record, if it has one, becomes the
    /// selection. Nothing for a sheet that is not there.
    void goTo(std::size_t cell);

    /// The sheet's place in the viewport, also where it is out of sight; empty for one that is not there.
    QRect cellRect(std::size_t cell) const;
    /// The sheet at a place in the viewport.
    std::optional<std::size_t> cellAt(QPoint place) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  public slots:
    /// Shows these records as selected, and brings the first of their sheets into sight when they were not.
    /// Nothing is emitted.
    void setSelectedRows(const Rows& rows);

  signals:
    /// The user selected exactly these records; none when the sheet comes from no record.
    void rowsSelected(const Rows& rows);
    /// The user wants to edit what is selected.
    void editRequested();

  protected:
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void plan();
    void fitScrollBar();
    double scale() const;
    void paintCell(QPainter& painter, std::size_t cell) const;
    void bringIntoSight(std::size_t cell);
    void select(Rows rows);
    void moveCurrent(std::size_t cell);
    void tellFocus() const;

    preview::JobGlance glance_;
    preview::StripPlan plan_;
    Rows rows_;
    std::optional<std::size_t> current_;
};

/// Makes the strip known to assistive tools; once is enough, and more do no harm.
void install_sheet_strip_accessibility();

} // namespace specialpages::qt
