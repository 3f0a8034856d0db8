// A pop-up button: looks like a combo box and opens a real menu, with sub-menus, check marks and disabled
// items that tell why: beside the item, and as a status tip (QStatusTipEvent) to the window. The menu is made
// from the model each time that it opens, so that nothing of it is kept here.
#pragma once

#include <QComboBox>
#include <QMenu>
#include <QPointer>
#include <cstdint>
#include <functional>

namespace specialpages::qt {

class PopUpWidget : public QComboBox {
  public:
    explicit PopUpWidget(QWidget* parent);

    /// `titles` are those that the button may have to show, which it is wide enough for; `fill` puts the
    /// model's items into an empty menu; `step` picks the next (1) or the previous (-1) item of a menu
    /// without sub-menus and answers false for any other.
    struct Handlers {
        std::function<QStringList()> titles;
        std::function<void(QMenu& menu)> fill;
        std::function<bool(int direction)> step;
    };
    void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

    /// The selected item: its position among all items (-1: none) and its title.
    void showSelection(std::int64_t index, const QString& title);
    std::int64_t shownIndex() const { return shownIndex_; }

    /// A menu as it would open now; owned by this widget until the caller deletes it.
    QMenu* makeMenu();
    /// The menu while it is open; null otherwise.
    QMenu* openMenu() const { return menu_; }

    void showPopup() override;
    void hidePopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QSize sizeFor(int textWidth) const;
    void tellReason(QAction& action);
    void tellStatus(const QString& sentence);
    void markShown(QAction& shown) const;

    Handlers handlers_;
    std::int64_t shownIndex_ = -1;
    QPointer<QMenu> menu_;
};

} // namespace specialpages::qt
