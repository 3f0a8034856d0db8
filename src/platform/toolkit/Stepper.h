// A stepper: a number that two little arrows move.
#pragma once

#include "platform/toolkit/View.h"

namespace specialpages::platform {

class SPECIALPAGES_PLATFORM_API Stepper : public View {
  public:
    Stepper() : View(ViewKind::stepper) {}

    std::int32_t intValue() const { return value_; }
    /// By program: held to the whole numbers of the range, no action fires.
    void setIntValue(std::int32_t value);
    double minValue() const { return min_; }
    double maxValue() const { return max_; }
    std::int32_t increment() const { return increment_; }
    /// A value outside the new range moves to its nearer end. A range with the ends exchanged is taken as it
    /// is meant; one with an end that is not a number changes nothing.
    void setRange(double min, double max);
    /// Announced as ViewChange::range.
    void setIncrement(std::int32_t increment);

    /// The user moves it to `value`, held to the range; the action fires, also when the value stays as it
    /// was. False when the stepper takes no events.
    bool step(std::int32_t value);

  private:
    std::int32_t held(std::int32_t value) const;
    std::int32_t value_ = 0;
    double min_ = 0;
    double max_ = 100;
    std::int32_t increment_ = 1;
};

} // namespace specialpages::platform
