// A user's events, sent to windows as the system sends them: a window behind a modal dialog gets none.
#pragma once

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace specialpages::qt::testing {

/// Handles what is pending, deferred deletions too.
inline void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

inline void click(QWidget& widget, const QPoint& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const window = widget.window();
    const QWidget* const modal = QApplication::activeModalWidget();
    if (!window->isActiveWindow() && (modal == nullptr || modal == window)) {
        window->activateWindow(); // as a window manager does with the window that is clicked
        settle();
    }
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, widget.mapTo(window, at));
}

inline void click(QWidget& widget) {
    click(widget, widget.rect().center());
}

inline void press_key(QWidget& inWindowOf, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(inWindowOf.window()->windowHandle(), key, modifiers);
    QApplication::processEvents(); // what the key has put off
}

/// Moves in an open menu with the arrow keys until the item is the active one.
inline bool go_to(QMenu& menu, const QAction& item) {
    for (qsizetype i = 0; i <= menu.actions().size() && menu.activeAction() != &item; ++i) {
        QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
    }
    return menu.activeAction() == &item;
}

/// A point of the window where no control is: a click there leaves the field that is being edited.
inline QPoint empty_point(QWidget& window) {
    for (int y = 1; y < window.height(); y += 3) {
        for (int x = 1; x < window.width(); x += 3) {
            if (window.childAt(x, y) == nullptr) {
                return {x, y};
            }
        }
    }
    return {0, 0};
}

} // namespace specialpages::qt::testing
