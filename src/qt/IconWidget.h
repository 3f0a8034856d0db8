// A picture of the bundle at its own size, drawn from the variant that suits the screen.
#pragma once

#include <QIcon>
#include <QLabel>
#include <filesystem>

namespace specialpages::qt {

class IconWidget : public QLabel {
  public:
    explicit IconWidget(QWidget* parent);

    /// Shows the file; nothing for an empty path or a file that is no picture. Of "Name.bmp" the variants
    /// "Name.png" and "Name@2x.png" beside it are preferred, which have transparent grounds
    /// and are sharp on dense screens.
    void setPicture(const std::filesystem::path& file);
    const std::filesystem::path& picture() const { return file_; }
    QSize sizeHint() const override { return size_; }
    QSize minimumSizeHint() const override { return size_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::filesystem::path file_;
    QIcon icon_;
    QSize size_;
};

} // namespace specialpages::qt
