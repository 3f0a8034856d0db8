// Where a window stands that wants room for itself.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace specialpages::qt {

/// Sizes of a window in the pixels of Qt, without what a window manager draws around it.
struct WindowSizes {
    QSize now;
    QSize comfortable; ///< taken where there is room, unless it is larger already
    QSize least;       ///< below which nothing makes it smaller, not even the room
};

/// The window's place around `middle`, moved and made smaller to be seen whole within the room. What cannot
/// be made small enough begins in the room's upper left corner.
QRect window_place(const WindowSizes& sizes, QPoint middle, const QRect& room);

} // namespace specialpages::qt
