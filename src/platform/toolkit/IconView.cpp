#include "platform/toolkit/IconView.h"

#include "platform/foundation/Bundle.h"
#include "platform/services/images.h"

#include <string>
#include <utility>

namespace specialpages::platform {

void IconView::setImage(std::filesystem::path image) {
    if (image_ != image) {
        image_ = std::move(image);
        announce(ViewChange::image);
    }
}

void IconView::drawIcon(const Bundle* bundle, std::string_view iconName) {
    setImage(
        bundle == nullptr || iconName.empty()
            ? std::filesystem::path()
            : std::filesystem::path(bundle->CFBundleCopyBundleURL().string() + "/" + std::string(iconName)));
}

void IconView::drawRect(Picture& canvas) const {
    if (image_.empty()) {
        return;
    }
    if (const auto picture = initWithContentsOfFile(image_)) {
        draw_over(canvas, *picture);
    }
}

} // namespace specialpages::platform
