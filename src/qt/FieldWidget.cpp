#include "qt/FieldWidget.h"

#include <QFocusEvent>
#include <QSignalBlocker>
#include <utility>

namespace specialpages::qt {

namespace {

/// Whether the keyboard moves between windows or into a menu, and not between a window's controls.
bool is_of_windows(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
}

} // namespace

FieldWidget::FieldWidget(QWidget* parent) : QLineEdit(parent) {
    // Not only what is typed: an assistive tool sets the text. What the model shows comes without a signal.
    QObject::connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!handlers_.edited) {
            return;
        }
        if (!hasFocus()) {
            setFocus(Qt::OtherFocusReason); // whose text is edited has the keyboard, and ends it by leaving
        }
        use([&] { handlers_.edited(text); });
    });
}

void FieldWidget::use(const std::function<void()>& handler) {
    if (handler) {
        const bool before = std::exchange(inUse_, true);
        handler();
        inUse_ = before;
    }
}

FieldWidget::Before FieldWidget::now() const {
    return {text(), cursorPosition(), selectionStart(), selectionLength()};
}

void FieldWidget::showText(const QString& shown) {
    if (text() == shown) {
        return;
    }
    const QSignalBlocker quiet(this);
    const Before before = before_;
    setText(shown);
    if (shown != before.text) {
        return;
    }
    if (before.selectionLength > 0) {
        const bool backwards = before.cursor == before.selectionStart;
        setSelection(backwards ? before.selectionStart + before.selectionLength : before.selectionStart,
                     backwards ? -before.selectionLength : before.selectionLength);
    } else {
        setCursorPosition(before.cursor);
    }
}

bool FieldWidget::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod ||
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Drop) {
        before_ = now();
    }
    return QLineEdit::event(event);
}

void FieldWidget::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // A window that comes back brings its keyboard with it: the user never left the field.
    if (!std::exchange(isAway_, false) || !is_of_windows(event->reason())) {
        use(handlers_.entered);
    }
}

void FieldWidget::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    isAway_ = is_of_windows(event->reason());
    if (!isAway_ && handlers_.left) {
        handlers_.left();
    }
}

} // namespace specialpages::qt
