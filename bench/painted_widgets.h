// Which widgets were painted: a watch over an application's events, for benchmarks that stop their clock when
// a window stands on the screen.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <set>

namespace specialpages::bench {

class PaintedWidgets : public QObject {
  public:
    /// There is an application; it is watched until this ends.
    PaintedWidgets() { qApp->installEventFilter(this); }

    bool contains(const QWidget& widget) const { return painted_.contains(&widget); }
    /// Whether the widget and everything below it that can be seen was painted.
    bool containsAllOf(const QWidget& root) const {
        if (!seen(root) || !contains(root)) {
            return false;
        }
        for (const auto* const below : root.findChildren<QWidget*>()) {
            if (seen(*below) && !contains(*below)) {
                return false;
            }
        }
        return true;
    }
    std::size_t count() const { return painted_.size(); }
    void forget() { painted_.clear(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            painted_.insert(watched);
        }
        return false;
    }

  private:
    static bool seen(const QWidget& widget) {
        return widget.isVisible() && !widget.visibleRegion().isEmpty();
    }

    std::set<const QObject*> painted_;
};

} // namespace specialpages::bench
