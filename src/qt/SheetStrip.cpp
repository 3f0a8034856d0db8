#include "qt/SheetStrip.h"

#include "preview/picture_inks.h"
#include "qt/text.h"
#include "qt/tips.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

namespace specialpages::qt {

namespace {

using preview::Ink;

constexpr double kLargestScale = 2.0;
constexpr double kSmallestScale = 0.4;
constexpr int kSheetLines = 7;       ///< the strip's height in lines of its font
constexpr int kFewestSheetLines = 3; ///< where there is little room

QColor mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * part));
    };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

/// Paper looks like paper in the dark too, and so does what is printed on it; everything around it has the
/// roles of the palette.
QColor ink_color(Ink ink, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    switch (ink) {
    case Ink::none:
        return Qt::transparent;
    case Ink::background:
        return base;
    case Ink::title:
    case Ink::text:
        return text;
    case Ink::faintText:
        return palette.color(QPalette::PlaceholderText);
    case Ink::edge:
        return mixed(text, base, 0.45);
    case Ink::shadow:
        return mixed(base, text, 0.14);
    case Ink::selection:
        return mixed(base, palette.color(QPalette::Highlight), 0.3);
    case Ink::selectionEdge:
        return palette.color(QPalette::Highlight);
    case Ink::paper:
    case Ink::hatch:
    case Ink::print:
    case Ink::number:
    case Ink::faintNumber:
    case Ink::cover:
    case Ink::insert:
    case Ink::exception:
        break;
    }
    return QColor::fromRgb(preview::ink_rgb(ink));
}

class PlanPainter {
  public:
    PlanPainter(QPainter& painter, const QPalette& palette) : painter_(painter), palette_(palette) {}

    void operator()(const preview::PlanRect& rect) const {
        const double inset = rect.stroke == Ink::none ? 0 : 0.5;
        const QRectF place(rect.x + inset, rect.y + inset, rect.width - 2 * inset, rect.height - 2 * inset);
        painter_.setPen(rect.stroke == Ink::none ? QPen(Qt::NoPen)
                                                 : QPen(ink_color(rect.stroke, palette_), 1));
        painter_.setBrush(rect.fill == Ink::none    ? QBrush(Qt::NoBrush)
                          : rect.fill == Ink::paper ? QBrush(QColor::fromRgb(rect.rgb))
                                                    : QBrush(ink_color(rect.fill, palette_)));
        painter_.drawRoundedRect(place, rect.radius, rect.radius);
    }

    void operator()(const preview::PlanLine& line) const {
        painter_.setPen(QPen(ink_color(line.ink, palette_), 1));
        painter_.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }

    void operator()(const preview::PlanText& text) const {
        QFont font = painter_.font();
        font.setPixelSize(text.size);
        font.setBold(text.bold);
        painter_.setFont(font);
        painter_.setPen(ink_color(text.ink, palette_));
        const QString shown = shown_text(text.text);
        const double shift =
            text.anchor == preview::Anchor::middle ? QFontMetricsF(font).horizontalAdvance(shown) / 2 : 0;
        painter_.drawText(QPointF(text.x - shift, text.y), shown);
    }

  private:
    QPainter& painter_;
    const QPalette& palette_;
};

} // namespace

SheetStrip::SheetStrip(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName(QStringLiteral("SheetStrip"));
    install_sheet_strip_accessibility();
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    viewport()->setBackgroundRole(QPalette::Base);
    plan();
}

void SheetStrip::setGlance(preview::JobGlance glance) {
    glance_ = std::move(glance);
    setAccessibleName(shown_text(glance_.name));
    if (glance_.cells.empty()) {
        current_.reset();
    } else if (current_) {
        current_ = std::min(*current_, glance_.cells.size() - 1);
    }
    plan();
    fitScrollBar();
    QAccessibleEvent event(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

void SheetStrip::plan() {
    preview::PlanOptions options;
    options.selectedRows = rows_;
    plan_ = preview::strip_plan(glance_, options);
    viewport()->update();
}

double SheetStrip::scale() const {
    const double fits = static_cast<double>(viewport()->height()) / std::max(plan_.height, 1);
    return std::clamp(fits, kSmallestScale, kLargestScale);
}

void SheetStrip::fitScrollBar() {
    const int width = static_cast<int>(std::ceil(plan_.width * scale()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(std::max(viewport()->width() / 10, 1));
    horizontalScrollBar()->setRange(0, std::max(width - viewport()->width(), 0));
}

QSize SheetStrip::sizeHint() const {
    const int height = fontMetrics().height() * kSheetLines + horizontalScrollBar()->sizeHint().height();
    return {fontMetrics().height() * 4 * kSheetLines, height + 2 * frameWidth()};
}

QSize SheetStrip::minimumSizeHint() const {
    const int saved = fontMetrics().height() * (kSheetLines - kFewestSheetLines);
    return {fontMetrics().height() * kSheetLines, sizeHint().height() - saved};
}

QRect SheetStrip::cellRect(std::size_t cell) const {
    if (cell >= plan_.cells.size()) {
        return {};
    }
    const preview::PlanRect& bounds = plan_.cells[cell].bounds;
    const double by = scale();
    return QRectF(bounds.x * by - horizontalScrollBar()->value(), bounds.y * by, bounds.width * by,
                  bounds.height * by)
        .toRect();
}

std::optional<std::size_t> SheetStrip::cellAt(QPoint place) const {
    const double x = (place.x() + horizontalScrollBar()->value()) / scale();
    // Cells stand from left to right: the first that ends behind the place.
    const auto found =
        std::partition_point(plan_.cells.begin(), plan_.cells.end(), [x](const preview::PlanCell& cell) {
            return cell.bounds.x + cell.bounds.width <= x;
        });
    const auto index = static_cast<std::size_t>(found - plan_.cells.begin());
    return index < plan_.cells.size() && cellRect(index).contains(place) ? std::optional(index)
                                                                         : std::nullopt;
}

void SheetStrip::setSelectedRows(const Rows& rows) {
    if (rows == rows_) {
        return;
    }
    rows_ = rows;
    plan();
    const auto cells = preview::cells_of_rows(glance_, rows_);
    if (!cells.empty() && (!current_ || !cells.contains(*current_))) {
        current_ = *cells.begin();
        bringIntoSight(*current_);
    }
    QAccessibleEvent event(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&event);
}

void SheetStrip::select(Rows rows) {
    if (rows == rows_) {
        return;
    }
    rows_ = std::move(rows);
    plan();
    const Rows told = rows_; // whoever is told may select again
    emit rowsSelected(told);
}

void SheetStrip::goTo(std::size_t cell) {
    if (cell >= glance_.cells.size()) {
        return;
    }
    moveCurrent(cell);
    const auto& row = glance_.cells[cell].row;
    select(row ? Rows{*row} : Rows());
}

void SheetStrip::moveCurrent(std::size_t cell) {
    current_ = cell;
    bringIntoSight(cell);
    viewport()->update();
    tellFocus();
}

void SheetStrip::bringIntoSight(std::size_t cell) {
    const QRect place = cellRect(cell);
    QScrollBar& bar = *horizontalScrollBar();
    if (place.left() < 0) {
        bar.setValue(bar.value() + place.left());
    } else if (place.right() >= viewport()->width()) {
        bar.setValue(bar.value() + std::min(place.right() - viewport()->width() + 1, place.left()));
    }
}

void SheetStrip::tellFocus() const {
    if (hasFocus() && current_) {
        QAccessibleEvent event(const_cast<SheetStrip*>(this), QAccessible::Focus);
        event.setChild(static_cast<int>(*current_));
        QAccessible::updateAccessibility(&event);
    }
}

void SheetStrip::paintCell(QPainter& painter, std::size_t cell) const {
    const preview::PlanCell& place = plan_.cells[cell];
    const PlanPainter paint(painter, palette());
    for (std::size_t i = place.firstItem; i < place.firstItem + place.items; ++i) {
        std::visit(paint, plan_.items[i]);
    }
}

void SheetStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-horizontalScrollBar()->value(), 0);
    painter.scale(scale(), scale());
    const QRect seen = viewport()->rect();
    for (std::size_t cell = 0; cell < plan_.cells.size(); ++cell) {
        if (cellRect(cell).intersects(seen)) {
            paintCell(painter, cell);
        }
    }
    if (hasFocus() && current_) {
        painter.resetTransform();
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = cellRect(*current_);
        option.backgroundColor = palette().color(QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void SheetStrip::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fitScrollBar();
}

void SheetStrip::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

void SheetStrip::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
    }
    viewport()->update();
}

void SheetStrip::mousePressEvent(QMouseEvent* event) {
    const auto cell = event->button() == Qt::LeftButton ? cellAt(event->position().toPoint()) : std::nullopt;
    if (!cell) {
        event->ignore();
        return;
    }
    const auto& row = glance_.cells[*cell].row;
    if (row && event->modifiers().testFlag(Qt::ControlModifier)) {
        Rows rows = rows_;
        if (rows.erase(*row) == 0) {
            rows.insert(*row);
        }
        moveCurrent(*cell);
        select(std::move(rows));
        return;
    }
    goTo(*cell);
}

void SheetStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto cell = event->button() == Qt::LeftButton ? cellAt(event->position().toPoint()) : std::nullopt;
    if (cell && glance_.cells[*cell].row) {
        emit editRequested();
    }
}

void SheetStrip::wheelEvent(QWheelEvent* event) {
    // A wheel that turns up and down walks along the strip: there is nothing else to scroll.
    const QPoint turned = event->angleDelta();
    const int steps = turned.x() != 0 ? turned.x() : turned.y();
    QScrollBar& bar = *horizontalScrollBar();
    const int before = bar.value();
    bar.setValue(before - steps * bar.singleStep() / 40);
    event->setAccepted(bar.value() != before);
}

void SheetStrip::keyPressEvent(QKeyEvent* event) {
    const std::size_t cells = glance_.cells.size();
    if (cells == 0 || event->modifiers().testFlag(Qt::AltModifier)) {
        event->ignore();
        return;
    }
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const bool forward = (event->key() == Qt::Key_Right) != mirrored;
        if (!current_) {
            goTo(0);
        } else if (forward && *current_ + 1 < cells) {
            goTo(*current_ + 1);
        } else if (!forward && *current_ > 0) {
            goTo(*current_ - 1);
        }
        return;
    }
    case Qt::Key_Home:
        goTo(0);
        return;
    case Qt::Key_End:
        goTo(cells - 1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (current_ && glance_.cells[*current_].row) {
            emit editRequested();
            return;
        }
        break;
    default:
        break;
    }
    event->ignore();
}

void SheetStrip::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (!current_ && !glance_.cells.empty()) {
        current_ = 0;
    }
    viewport()->update();
    tellFocus();
}

void SheetStrip::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

bool SheetStrip::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        if (const auto cell = cellAt(help->pos())) {
            QToolTip::showText(help->globalPos(), literal_tip(glance_.cells[*cell].sentence), viewport(),
                               cellRect(*cell));
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

} // namespace specialpages::qt
