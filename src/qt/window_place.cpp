#include "qt/window_place.h"

#include <algorithm>

namespace specialpages::qt {

QRect window_place(const WindowSizes& sizes, QPoint middle, const QRect& room) {
    QRect place(QPoint(),
                sizes.now.expandedTo(sizes.comfortable).boundedTo(room.size()).expandedTo(sizes.least));
    place.moveCenter(middle);
    place.moveBottomRight({std::min(place.right(), room.right()), std::min(place.bottom(), room.bottom())});
    place.moveTopLeft({std::max(place.left(), room.left()), std::max(place.top(), room.top())});
    return place;
}

} // namespace specialpages::qt
