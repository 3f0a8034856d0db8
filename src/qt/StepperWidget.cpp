#include "qt/StepperWidget.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <limits>

namespace specialpages::qt {

StepperWidget::StepperWidget(QWidget* parent) : QSpinBox(parent) {
    lineEdit()->hide();
    lineEdit()->setReadOnly(true);
    setKeyboardTracking(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void StepperWidget::stepBy(int steps) {
    stepTo(value() + std::int64_t{steps} * singleStep());
}

void StepperWidget::stepTo(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (stepped_) {
        stepped_(static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max())));
    }
}

QString StepperWidget::textFromValue(int value) const {
    return QString::number(value / std::pow(10, decimals()), 'f', decimals());
}

QSize StepperWidget::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize whole = QSpinBox::sizeHint();
    option.rect = QRect(QPoint(0, 0), whole);
    const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    const int frame = style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, this);
    return {arrow.width() + 2 * frame, whole.height()};
}

void StepperWidget::paintEvent(QPaintEvent* /*event*/) {
    // The arrows alone: the frame of the field that is not there would look cut off.
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QRect up = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    const QRect down = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxDown, this);
    QStylePainter painter(this);
    painter.setClipRect(up.united(down).adjusted(-1, -1, 1, 1));
    painter.drawComplexControl(QStyle::CC_SpinBox, option);
}

QAbstractSpinBox::StepEnabled StepperWidget::stepEnabled() const {
    return StepUpEnabled | StepDownEnabled;
}

void StepperWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QSpinBox::keyPressEvent(event);
        break;
    default: // no number is typed here
        event->ignore();
    }
}

void StepperWidget::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace specialpages::qt
