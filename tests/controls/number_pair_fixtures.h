// A width in millimetres and the same width in inches, each with a field and a stepper: four controls of one
// panel, as dialogs have them. The conversions are simple ones of these tests.
#pragma once

#include "controls/SPInchMMLittleArrowControlEMF.h"
#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/SPInchMMTextEditFormatterEMF.h"
#include "controls/text_fixtures.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/Application.h"

#include <cmath>
#include <memory>
#include <string>

namespace specialpages::test {

enum : ControlTag { kMMField = 711, kInchField = 712, kMMStepper = 713, kInchStepper = 714, kNoSuchTag = 9 };

/// What differs between the units.
struct Unit {
    int decimals;          ///< of the text
    double twinUnitsToOwn; ///< from the twin's number to this one's
    TextEditIniData field;
    LittleArrayIniData stepper;
    EditValueRangeData range;
};
inline constexpr Unit kMM{1, 2.54, {"0.0", "210.0", 1, 6}, {2100, 0, 1000, 3300, 1}, {1000, 3300}};
inline constexpr Unit kInch{2, 1 / 2.54, {"0.0", "8.27", 1, 5}, {827, 0, 394, 1299, 1}, {394, 1299}};

inline std::int32_t to_number(const std::string& text, const Unit& unit) {
    return static_cast<std::int32_t>(
        std::lround(platform::double_value(text) * (unit.decimals == 1 ? 10 : 100)));
}
inline std::string to_text(std::int32_t number, const Unit& unit) {
    std::string text = platform::decimal_text(number);
    text.insert(text.size() - static_cast<std::size_t>(unit.decimals), ".");
    return text;
}

class UnitFormatter : public SPInchMMTextEditFormatterEMF {
  public:
    UnitFormatter(const Unit& unit, const TextEditFilterData* filter, const EditValueRangeData* range,
                  std::uint32_t length, std::weak_ptr<TextEditCtrlEMFSpecialPages> brother)
        : SPInchMMTextEditFormatterEMF(filter, range, length, std::move(brother)), unit_(unit) {}

  protected:
    bool IsNumberValid(const std::string& text) const override {
        const std::int32_t number = to_number(text, unit_);
        return number >= editValueRangeDataPtr->minimum && number <= editValueRangeDataPtr->maximum;
    }

  private:
    const Unit& unit_;
};

class UnitField : public SPInchMMTextEditCtrlEMF {
  public:
    explicit UnitField(const Unit& unit) : unit_(unit) {}
    using SPInchMMTextEditCtrlEMF::uiText;

    Journal journal;
    bool preInvalidateAnswer = true;
    /// Updates although it is shown, so that both fields of a pair of units answer each other.
    bool updatesWhileShown = false;

    void InitializeCtrlFormat() override {
        SPInchMMTextEditCtrlEMF::InitializeCtrlFormat();
        if (textField() != nullptr) {
            textField()->setFormatter(std::make_shared<UnitFormatter>(
                unit_, textEditFilterDataPtr, getRangeDataPtr(), GetEditMaxLength(), weakSelf()));
        }
    }
    bool PreInvalidateData() override { return preInvalidateAnswer; }
    bool IsNumberValid(const std::string& text) override {
        const std::int32_t number = to_number(text, unit_);
        return number >= getRangeDataPtr()->minimum && number <= getRangeDataPtr()->maximum;
    }
    std::int32_t OnRawKeyUp(const std::string& text) override {
        journal.push_back("raw " + text);
        uiData = text;
        if (LittleArrayEMFSpecialPages* stepper = GetLittleArrayForNumberEdit()) {
            stepper->SetExternalValueToUI(to_number(text, unit_), 4);
        }
        return DoControlUpdateConstrain();
    }
    std::int32_t Update() override {
        journal.emplace_back("update");
        SPInchMMTextEditCtrlEMF* twin = GetTextEditForNumberEdit();
        if (twin != nullptr && (hideCount() >= 1 || updatesWhileShown)) {
            const double twinNumber =
                platform::double_value(twin->GetUIData()) * (unit_.decimals == 1 ? 100 : 10);
            SetExternalValueToUI(
                to_text(static_cast<std::int32_t>(std::lround(twinNumber * unit_.twinUnitsToOwn)), unit_), 0);
        }
        return 0;
    }

  private:
    const Unit& unit_;
};

class UnitStepper : public SPInchMMLittleArrowControlEMF {
  public:
    explicit UnitStepper(const Unit& unit) : unit_(unit) {}
    std::int32_t DoControlUpdateConstrain() override {
        SPInchMMTextEditCtrlEMF* field = GetNumberEditFromLittleArrow();
        if (field != nullptr && stepper() != nullptr) {
            field->SetExternalValueToUI(to_text(stepper()->intValue(), unit_), 0);
        }
        return 0;
    }

  private:
    const Unit& unit_;
};

/// Both pairs in a panel; the millimetres are shown, the inches hidden.
class TwoUnits {
  public:
    TwoUnits() {
        mm.CreateControl(mmView.get(), &kMM.field, &mmRecord_, &kNoKeys, {}, &SPCustomSizeWidthMMFilterData,
                         "Width", &kMM.range);
        inch.CreateControl(inchView.get(), &kInch.field, &inchRecord_, &kNoKeys, {},
                           &SPCustomSizeWidthInchFilterData, "Width", &kInch.range);
        mmStepper.CreateControl(mmStepperView.get(), &kMM.stepper, &mmStepperRecord_, &kNoKeys, {}, nullptr,
                                mmRows_.at(1));
        inchStepper.CreateControl(inchStepperView.get(), &kInch.stepper, &inchStepperRecord_, &kNoKeys, {},
                                  nullptr, inchRows_.at(1));
        for (BaseControlEMFSpecialPages* control : controls()) {
            panel.RunTimeAddNewControl(control);
            window.addSubview(viewOf(*control));
        }
        panel.InitializeUserPane(bundle.get(), nullptr);
        platform::Application::shared().setMainWindow(&window);
        inch.Hide();
        inchStepper.Hide();
    }
    TwoUnits(const TwoUnits&) = delete;
    TwoUnits& operator=(const TwoUnits&) = delete;

    std::vector<BaseControlEMFSpecialPages*> controls() { return {&mm, &mmStepper, &inch, &inchStepper}; }
    void clearJournals() {
        mm.journal.clear();
        inch.journal.clear();
    }

    LocalizedBundle bundle{{"Message22_Millimeters_Width", "Not this width."}, {"Alert OK Btn", "OK"}};
    std::shared_ptr<TextView> mmView = std::make_shared<TextView>(kMMField);
    std::shared_ptr<TextView> inchView = std::make_shared<TextView>(kInchField);
    std::shared_ptr<StepperView> mmStepperView = std::make_shared<StepperView>(kMMStepper);
    std::shared_ptr<StepperView> inchStepperView = std::make_shared<StepperView>(kInchStepper);
    platform::Window window;
    UnitField mm{kMM};
    UnitField inch{kInch};
    UnitStepper mmStepper{kMM};
    UnitStepper inchStepper{kInch};
    TestPanel panel;

  private:
    std::shared_ptr<platform::View> viewOf(const BaseControlEMFSpecialPages& control) const {
        const std::vector<std::shared_ptr<platform::View>> views{mmView, mmStepperView, inchView,
                                                                 inchStepperView};
        for (const auto& view : views) {
            if (view.get() == control.GetControlPtr()) {
                return view;
            }
        }
        throw std::logic_error("a control of another panel");
    }
    // The first row is the field's, the second the stepper's.
    Rows mmRows_{{kMMStepper, kInchField}, {kMMField}};
    Rows inchRows_{{kInchStepper, kMMField}, {kInchField}};
    ConstraintRecord mmRecord_{{}, {}, mmRows_.all()};
    ConstraintRecord inchRecord_{{}, {}, inchRows_.all()};
    ConstraintRecord mmStepperRecord_{{}, {}, mmRows_.all().subspan(1)};
    ConstraintRecord inchStepperRecord_{{}, {}, inchRows_.all().subspan(1)};
};

} // namespace specialpages::test
