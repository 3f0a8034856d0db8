// Text fields, steppers and their tables for the tests of text controls.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "support/input_filter.h"

#include <memory>
#include <string>

namespace specialpages::test {

/// The access record of a control that writes nowhere.
inline constexpr AccessInfo kNoKeys;
inline constexpr AccessInfo kTicketKey{"com.norvalen.test.ticket", nullptr};

class TextView : public platform::TextField {
  public:
    explicit TextView(ControlTag tag) { setTag(tag); }
};

class StepperView : public platform::Stepper {
  public:
    explicit StepperView(ControlTag tag) { setTag(tag); }
};

/// A field with its protected parts open.
class OpenTextField : public TextEditCtrlEMFSpecialPages {
  public:
    using TextEditCtrlEMFSpecialPages::ToValidate;
    using TextEditCtrlEMFSpecialPages::uiText;
    using TextEditCtrlEMFSpecialPages::weakSelf;

    /// The raw texts that came, in order.
    std::vector<std::string> rawTexts;
    /// Runs inside OnRawKeyUp.
    std::function<void()> onRawKeyUp;

    std::int32_t OnRawKeyUp(const std::string& text) override {
        rawTexts.push_back(text);
        if (onRawKeyUp) {
            onRawKeyUp();
        }
        return TextEditCtrlEMFSpecialPages::OnRawKeyUp(text);
    }
    std::string data() const { return held<std::string>(ctrlDataBlkPtr); }
};

/// `count` times the text.
inline std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

} // namespace specialpages::test
