#include "platform/toolkit/IconView.h"

namespace specialpages::platform {

void IconView::setImage(std::filesystem::path image) {
    if (image_ != image) {
        image_ = std::move(image);
        announce(ViewChange::image);
    }
}

} // namespace specialpages::platform
