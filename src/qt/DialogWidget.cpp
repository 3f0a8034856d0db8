#include "qt/DialogWidget.h"

#include "qt/StatusLine.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QStatusTipEvent>
#include <QWindow>
#include <utility>

namespace specialpages::qt {

namespace {

/// In pixels, beside the layout's own spacing.
constexpr int kAboveButtons = 6;

} // namespace

DialogWidget::DialogWidget(QWidget* parent) : QDialog(parent) {
    // A click beside the controls takes the keyboard, so that it leaves the field that is being edited.
    setFocusPolicy(Qt::ClickFocus);
}

void DialogWidget::setHandlers(std::function<void()> accepted, std::function<void()> cancelled) {
    accepted_ = std::move(accepted);
    cancelled_ = std::move(cancelled);
}

void DialogWidget::standOver(QWidget& opener) {
    create();
    windowHandle()->setTransientParent(opener.windowHandle());
}

void DialogWidget::addStatusLine() {
    auto* const rows = qobject_cast<QBoxLayout*>(layout());
    if (statusLine_ != nullptr || rows == nullptr) {
        return;
    }
    statusLine_ = new StatusLine(this);
    rows->insertSpacing(rows->count() - 1, kAboveButtons);
    rows->addWidget(statusLine_);
    // The line is most of the margin below the buttons.
    QMargins margins = rows->contentsMargins();
    margins.setBottom(margins.bottom() / 2);
    rows->setContentsMargins(margins);
}

bool DialogWidget::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip && statusLine_ != nullptr) {
        statusLine_->say(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    return QDialog::event(event);
}

void DialogWidget::accept() {
    if (accepted_) {
        accepted_();
    }
}

void DialogWidget::reject() {
    if (cancelled_) {
        cancelled_();
    }
}

void DialogWidget::closeEvent(QCloseEvent* event) {
    if (isVisible()) {
        reject();
    }
    event->setAccepted(!isVisible());
}

void DialogWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
    } else {
        QDialog::keyPressEvent(event);
    }
}

} // namespace specialpages::qt
