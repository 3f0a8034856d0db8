#include "qt/accessibility_stepper.h"

#include "qt/StepperWidget.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <cmath>

namespace specialpages::qt {

namespace {

/// Qt would change the widget's own number behind the model's back, by a tenth of the range at a time.
class StepperAccessible : public QAccessibleWidget,
                          public QAccessibleValueInterface,
                          public QAccessibleTextInterface {
  public:
    explicit StepperAccessible(StepperWidget& stepper) : QAccessibleWidget(&stepper, QAccessible::SpinBox) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        if (type == QAccessible::TextInterface) {
            return static_cast<QAccessibleTextInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }
    /// The field that is never shown, but holds the number as text, is no control of its own.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text text) const override {
        return text == QAccessible::Value ? stepper().shownNumber() : QAccessibleWidget::text(text);
    }

    QStringList actionNames() const override {
        return stepper().isEnabled() ? QStringList{increaseAction(), decreaseAction(), setFocusAction()}
                                     : QStringList{};
    }
    void doAction(const QString& name) override {
        if (name == setFocusAction()) {
            QAccessibleWidget::doAction(name);
        } else if (stepper().isEnabled() && (name == increaseAction() || name == decreaseAction())) {
            stepper().stepBy(name == increaseAction() ? 1 : -1);
        }
    }

    QVariant currentValue() const override { return shown(stepper().value()); }
    void setCurrentValue(const QVariant& value) override {
        if (stepper().isEnabled()) {
            // Within the range before it is a whole number, which cannot be as large as what a tool may send.
            stepper().stepTo(std::llround(
                std::fmin(std::fmax(value.toDouble() * scale(), stepper().minimum()), stepper().maximum())));
        }
    }
    QVariant maximumValue() const override { return shown(stepper().maximum()); }
    QVariant minimumValue() const override { return shown(stepper().minimum()); }
    QVariant minimumStepSize() const override { return shown(stepper().singleStep()); }

    // The number as a text, which readers say rather than the value. Nothing of it can be marked or written.

    QString text(int start, int end) const override {
        return stepper().shownNumber().mid(start, end < 0 ? -1 : end - start);
    }
    int characterCount() const override { return static_cast<int>(stepper().shownNumber().size()); }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    StepperWidget& stepper() const { return *static_cast<StepperWidget*>(object()); }
    double scale() const { return std::pow(10, stepper().decimals()); }
    QVariant shown(int value) const { return value / scale(); }
};

} // namespace

QAccessibleInterface* describe_stepper(StepperWidget& stepper) {
    return new StepperAccessible(stepper);
}

} // namespace specialpages::qt
