// A view that shows one picture of a bundle's resources.
#pragma once

#include "platform/toolkit/View.h"

#include <filesystem>
#include <string_view>

namespace specialpages::platform {

class Bundle;
struct Picture;

class SPECIALPAGES_PLATFORM_API IconView : public View {
  public:
    IconView() : View(ViewKind::icon) {}

    /// The picture's file; empty when none is set. It is read when it is drawn, not before.
    const std::filesystem::path& image() const { return image_; }
    void setImage(std::filesystem::path image);

    /// Shows that file of the bundle's resources; nothing for a null bundle or an empty name.
    void drawIcon(const Bundle* bundle, std::string_view iconName);
    /// Draws the whole picture over `canvas`, at its own size from the canvas's upper left corner; what is
    /// outside of the canvas is left out. Nothing without a picture, or when its file can't be read.
    void drawRect(Picture& canvas) const;

  private:
    std::filesystem::path image_;
};

} // namespace specialpages::platform
