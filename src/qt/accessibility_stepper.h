// What assistive tools are told of a stepper.
#pragma once

class QAccessibleInterface;

namespace specialpages::qt {

class StepperWidget;

/// For a factory of accessible interfaces, whose table owns what it is given.
QAccessibleInterface* describe_stepper(StepperWidget& stepper);

} // namespace specialpages::qt
