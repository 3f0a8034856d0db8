// The application that widgets need, without a screen; and a user's keys and clicks.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <cstdlib>

namespace specialpages::qt::testing {

/// The process's one application; made here when the tests have none yet, and never destroyed.
inline void need_application() {
    if (QCoreApplication::instance() == nullptr) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        static int count = 1;
        static char name[] = "test_qt";
        static char* arguments[] = {name, nullptr};
        static QApplication* const application = new QApplication(count, arguments);
        static_cast<void>(application);
    }
}

inline bool press_key(QWidget& widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline void click_at(QWidget& widget, QPoint place, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     QEvent::Type type = QEvent::MouseButtonPress) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace specialpages::qt::testing
