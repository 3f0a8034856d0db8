#include "qt/PopUpWidget.h"

#include "qt/tips.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QStatusTipEvent>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

namespace specialpages::qt {

namespace {

/// As narrow as a long title may make the button, in average characters.
constexpr int kNarrowest = 12;

/// Lets the keyboard reach disabled items too, since these tell why they are disabled.
class MenuStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Menu_AllowActiveAndDisabled ? 1
                                                      : QProxyStyle::styleHint(hint, option, widget, data);
    }

    /// Styles do not show where the keyboard is when it is on such an item.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(element, option, painter, widget);
        const bool on = option->state.testFlag(State_Selected) && !option->state.testFlag(State_Enabled);
        if (element == CE_MenuItem && on) {
            painter->save();
            painter->setPen(option->palette.color(QPalette::Active, QPalette::Highlight));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            painter->restore();
        }
    }
};

} // namespace

PopUpWidget::PopUpWidget(QWidget* parent) : QComboBox(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PopUpWidget::showSelection(std::int64_t index, const QString& title) {
    shownIndex_ = index;
    const QSignalBlocker quiet(this);
    if (count() == 0) {
        addItem(title);
    } else {
        setItemText(0, title);
    }
    update();
}

QMenu* PopUpWidget::makeMenu() {
    auto* const menu = new QMenu(this);
    auto* const style = new MenuStyle;
    style->setParent(menu);
    menu->setStyle(style);
    if (handlers_.fill) {
        handlers_.fill(*menu);
    }
    return menu;
}

void PopUpWidget::showPopup() {
    if (menu_ != nullptr) {
        return;
    }
    menu_ = makeMenu();
    menu_->setMinimumWidth(width());
    QObject::connect(menu_, &QMenu::hovered, this, [this](QAction* action) { tellReason(*action); });
    QObject::connect(menu_, &QMenu::aboutToHide, this, [menu = menu_, this] {
        QToolTip::hideText();
        tellStatus({});
        menu_ = nullptr;
        menu->deleteLater();
    });
    QAction* const shown = menu_->actions().value(static_cast<qsizetype>(shownIndex_));
    if (shown != nullptr && shown->isVisible()) {
        menu_->setActiveAction(shown);
        markShown(*shown);
    }
    menu_->popup(mapToGlobal(rect().bottomLeft()));
}

void PopUpWidget::tellReason(QAction& action) {
    auto* const menu = qobject_cast<QMenu*>(action.parent());
    const QString reason = action.isEnabled() ? QString() : action.statusTip();
    tellStatus(reason);
    if (menu == nullptr || reason.isEmpty()) {
        QToolTip::hideText();
        return;
    }
    const QRect item = menu->actionGeometry(&action);
    QToolTip::showText(menu->mapToGlobal(item.bottomLeft()), literal_tip(reason), menu, item);
}

void PopUpWidget::tellStatus(const QString& sentence) {
    QStatusTipEvent tip(sentence);
    QApplication::sendEvent(this, &tip);
}

bool PopUpWidget::event(QEvent* event) {
    // The keyboard passes a disabled button over, the mouse does not.
    if (event->type() == QEvent::Enter && !isEnabled()) {
        tellStatus(plain_tip(toolTip()));
    } else if (event->type() == QEvent::Leave && menu_ == nullptr) {
        tellStatus({});
    }
    return QComboBox::event(event);
}

void PopUpWidget::markShown(QAction& shown) const {
    // Where one item is chosen of a plain list it has the check mark; a paper menu has marks of its own.
    const auto actions = menu_->actions();
    const bool plain = std::none_of(actions.begin(), actions.end(),
                                    [](const QAction* action) { return action->menu() != nullptr; });
    if (plain) {
        shown.setCheckable(true);
        shown.setChecked(true);
    }
}

void PopUpWidget::hidePopup() {
    if (menu_ != nullptr) {
        menu_->close();
    }
}

QSize PopUpWidget::sizeFor(int textWidth) const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(textWidth, std::max(fontMetrics().height(), 14));
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

QSize PopUpWidget::sizeHint() const {
    int widest = 0;
    for (const QString& title : handlers_.titles ? handlers_.titles() : QStringList()) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(title));
    }
    return sizeFor(widest + 4).expandedTo(minimumSizeHint());
}

QSize PopUpWidget::minimumSizeHint() const {
    return sizeFor(kNarrowest * fontMetrics().averageCharWidth());
}

void PopUpWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        showPopup();
    } else {
        event->ignore();
    }
}

void PopUpWidget::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void PopUpWidget::keyPressEvent(QKeyEvent* event) {
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt || !handlers_.step || !handlers_.step(event->key() == Qt::Key_Down ? 1 : -1)) {
            showPopup();
        }
        break;
    case Qt::Key_Space:
    case Qt::Key_F4:
    case Qt::Key_Select:
        showPopup();
        break;
    default:
        event->ignore();
    }
}

void PopUpWidget::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace specialpages::qt
