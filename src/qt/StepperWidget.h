// The two little arrows of a stepper. They hold no number of their own that counts: a step is asked of the
// model, which holds it to the range and shows the value.
#pragma once

#include <QSpinBox>
#include <cstdint>
#include <functional>

namespace specialpages::qt {

class StepperWidget : public QSpinBox {
  public:
    explicit StepperWidget(QWidget* parent);

    /// What a step does that a user asks for, in values.
    void setStepHandler(std::function<void(std::int32_t value)> stepped) { stepped_ = std::move(stepped); }

    void stepBy(int steps) override;
    /// Asks the model for the value, as a tool does that sets one at once.
    void stepTo(std::int64_t value);

    /// How many digits of the value stand behind the point, as the nib says (`decimals`): the model counts
    /// lengths in tenths and hundredths, which nobody should have to hear.
    int decimals() const { return property("decimals").toInt(); }
    QString shownNumber() const { return textFromValue(value()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    /// Both arrows work at the ends of the range too: the step is asked for, and the value stays.
    StepEnabled stepEnabled() const override;
    QString textFromValue(int value) const override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    std::function<void(std::int32_t value)> stepped_;
};

} // namespace specialpages::qt
