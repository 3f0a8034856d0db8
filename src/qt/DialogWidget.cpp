#include "qt/DialogWidget.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <utility>

namespace specialpages::qt {

DialogWidget::DialogWidget(QWidget* parent) : QDialog(parent) {
    // A click beside the controls takes the keyboard, so that it leaves the field that is being edited.
    setFocusPolicy(Qt::ClickFocus);
}

void DialogWidget::setHandlers(std::function<void()> accepted, std::function<void()> cancelled) {
    accepted_ = std::move(accepted);
    cancelled_ = std::move(cancelled);
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
