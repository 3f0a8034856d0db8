#include "qt/IconWidget.h"

#include "qt/text.h"

#include <QImageReader>
#include <QPainter>

namespace specialpages::qt {

IconWidget::IconWidget(QWidget* parent) : QLabel(parent) {}

void IconWidget::setPicture(const std::filesystem::path& file) {
    file_ = file;
    icon_ = QIcon();
    size_ = QSize();
    if (!file.empty()) {
        size_ = QImageReader(shown_text(file.string())).size();
        std::filesystem::path clear = file;
        clear.replace_extension(".png");
        // The icon finds the variant for dense screens by itself.
        icon_.addFile(shown_text((std::filesystem::exists(clear) ? clear : file).string()), size_);
    }
    updateGeometry();
    update();
}

void IconWidget::paintEvent(QPaintEvent* /*event*/) {
    if (size_.isEmpty()) {
        return;
    }
    QPainter painter(this);
    QRect place(QPoint(0, 0), size_);
    place.moveCenter(rect().center());
    icon_.paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace specialpages::qt
