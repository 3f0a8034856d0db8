// A view that shows one picture of a bundle's resources.
#pragma once

#include "platform/toolkit/View.h"

#include <filesystem>

namespace specialpages::platform {

class SPECIALPAGES_PLATFORM_API IconView : public View {
  public:
    IconView() : View(ViewKind::icon) {}

    /// The picture's file; empty when none is set. Whether it can be read is the face's business.
    const std::filesystem::path& image() const { return image_; }
    void setImage(std::filesystem::path image);

  private:
    std::filesystem::path image_;
};

} // namespace specialpages::platform
