#include "qt/accessibility.h"

#include "qt/DialogWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/accessibility_help.h"
#include "qt/accessibility_menus.h"
#include "qt/accessibility_stepper.h"
#include "qt/text.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QTextBrowser>

namespace specialpages::qt {

namespace {

/// A radio button: Qt takes one that leaves the others to the model for a check box.
class RadioAccessible : public QAccessibleWidget {
  public:
    explicit RadioAccessible(QRadioButton& radio) : QAccessibleWidget(&radio, QAccessible::RadioButton) {}

    QString text(QAccessible::Text text) const override {
        // Not the title of the group that it may stand in, which is what any other widget would be called.
        const QString own = radio().accessibleName();
        if (text == QAccessible::Name) {
            return own.isEmpty() ? plain_label(radio().text()) : own;
        }
        return QAccessibleWidget::text(text);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = radio().isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return radio().isEnabled() ? QStringList{pressAction(), setFocusAction()} : QStringList{};
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            // As by a click: what had the keyboard may be hidden then, and it would go to another button.
            radio().setFocus(Qt::MouseFocusReason);
            radio().click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    QRadioButton& radio() const { return *static_cast<QRadioButton*>(object()); }
};

/// A dialog that has no title, as a question has none, is called by its first sentence and described by the
/// next one.
class DialogAccessible : public QAccessibleWidget {
  public:
    explicit DialogAccessible(DialogWidget& dialog) : QAccessibleWidget(&dialog, QAccessible::Dialog) {}

    QString text(QAccessible::Text text) const override {
        QString own = QAccessibleWidget::text(text);
        const bool named = text == QAccessible::Name || text == QAccessible::Description;
        if (!named || !own.isEmpty() || !widget()->windowTitle().isEmpty()) {
            return own;
        }
        return sentences().value(text == QAccessible::Name ? 0 : 1);
    }

  private:
    QStringList sentences() const {
        QStringList sentences;
        for (const QLabel* const label : widget()->findChildren<QLabel*>()) {
            if (!label->text().isEmpty() && !label->isHidden()) {
                sentences << label->text();
            }
        }
        return sentences;
    }
};

/// Asked of each class of the object, from its own up to QObject. Our classes have no meta-object of their
/// own and so come by the name of Qt's.
QAccessibleInterface* describe(const QString& className, QObject* object) {
    if (className == QLatin1String("QRadioButton")) {
        return new RadioAccessible(*qobject_cast<QRadioButton*>(object));
    }
    if (className == QLatin1String("QComboBox")) {
        auto* const popUp = dynamic_cast<PopUpWidget*>(object);
        return popUp == nullptr ? nullptr : describe_pop_up(*popUp);
    }
    if (className == QLatin1String("QSpinBox")) {
        auto* const stepper = dynamic_cast<StepperWidget*>(object);
        return stepper == nullptr ? nullptr : describe_stepper(*stepper);
    }
    if (className == QLatin1String("QTextBrowser")) {
        return describe_page(*qobject_cast<QTextBrowser*>(object));
    }
    if (className == QLatin1String("QDialog")) {
        auto* const dialog = dynamic_cast<DialogWidget*>(object);
        return dialog == nullptr ? nullptr : new DialogAccessible(*dialog);
    }
    auto* const menu = className == QLatin1String("QMenu") ? qobject_cast<QMenu*>(object) : nullptr;
    return menu == nullptr ? nullptr : describe_menu(*menu);
}

} // namespace

void install_accessibility() {
    QAccessible::installFactory(describe);
}

} // namespace specialpages::qt
