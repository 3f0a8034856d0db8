// A window with one control of each kind, from a nib of its own, opened as a dialog of a pane is.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/SPHelpButtonEMF.h"
#include "controls/SPInchMMLittleArrowControlEMF.h"
#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/SPTextEditCtrlEMF.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Nib.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/Window.h"
#include "support/input_filter.h"
#include "testing/paths.h"

#include <array>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {

enum : ControlTag {
    kButton = 501,
    kPopup = 502,
    kFirstRadio = 503,
    kSecondRadio = 504,
    kText = 505,
    kNumber = 506,
    kNumberStepper = 507,
    kStatic = 508,
    kVersion = 509,
    kScroll = 510,
    kHelp = 511,
    kOK = 512,
    kCancel = 513
};

// The pop-up's second item disables the text, its third hides the number and its stepper.
inline constexpr std::array<const char*, 3> kPopupKeys{"All", "No text", "No number"};
inline constexpr PopupIniData kPopupIniData{.menuKeys = kPopupKeys};
inline constexpr std::array<ControlTag, 1> kNoText{kText};
inline constexpr std::array<ControlTag, 2> kNoNumber{kNumber, kNumberStepper};
inline constexpr std::array<ConstraintRow, 2> kPopupDisable{ConstraintRow{}, ConstraintRow{kNoText}};
inline constexpr std::array<ConstraintRow, 3> kPopupHide{ConstraintRow{}, ConstraintRow{},
                                                         ConstraintRow{kNoNumber}};
inline constexpr ConstraintRecord kPopupConstraints{
    .disable = kPopupDisable, .hide = kPopupHide, .update = {}};

inline constexpr RadioIniData kFirstRadioIniData{1, -1, "First"};
inline constexpr RadioIniData kSecondRadioIniData{0, -1, "Second"};
inline constexpr std::array<ControlTag, 1> kFirst{kFirstRadio};
inline constexpr std::array<ControlTag, 1> kSecond{kSecondRadio};
inline constexpr std::array<ConstraintRow, 1> kFirstUpdate{ConstraintRow{kSecond}};
inline constexpr std::array<ConstraintRow, 1> kSecondUpdate{ConstraintRow{kFirst}};
inline constexpr ConstraintRecord kFirstConstraints{.disable = {}, .hide = {}, .update = kFirstUpdate};
inline constexpr ConstraintRecord kSecondConstraints{.disable = {}, .hide = {}, .update = kSecondUpdate};

inline constexpr AccessInfo kNoTicket;
inline constexpr TextEditIniData kTextIniData{"", "1-3", 0, 12};
inline constexpr TextEditIniData kNumberIniData{"", "1", 1, 4};
inline constexpr EditValueRangeData kNumberRange{1, 9999};
inline constexpr LittleArrayIniData kStepperIniData{1, 0, 1, 9999, 1};
inline constexpr std::array<ControlTag, 1> kStepperOfNumber{kNumberStepper};
inline constexpr std::array<ConstraintRow, 1> kNumberUpdate{ConstraintRow{kStepperOfNumber}};
inline constexpr ConstraintRecord kNumberConstraints{.disable = {}, .hide = {}, .update = kNumberUpdate};
inline constexpr std::array<ControlTag, 1> kNumberOfStepper{kNumber};
inline constexpr std::array<ConstraintRow, 1> kStepperUpdate{ConstraintRow{kNumberOfStepper}};
inline constexpr ConstraintRecord kStepperConstraints{.disable = {}, .hide = {}, .update = kStepperUpdate};
inline constexpr ScrollViewIniData kScrollIniData{"", "Read me."};

/// A number that moves its stepper.
class QuantityField : public SPInchMMTextEditCtrlEMF {
  public:
    bool IsNumberValid(const std::string& text) override {
        const std::int32_t number = platform::int_value(text);
        return number >= getRangeDataPtr()->minimum && number <= getRangeDataPtr()->maximum;
    }
    std::int32_t OnRawKeyUp(const std::string& text) override {
        if (LittleArrayEMFSpecialPages* arrows = GetLittleArrayForNumberEdit()) {
            arrows->SetExternalValueToUI(platform::int_value(text), 4);
        }
        return 0;
    }
};

/// Arrows that fill their number.
class QuantityArrows : public SPInchMMLittleArrowControlEMF {
  public:
    std::int32_t DoControlUpdateConstrain() override {
        SPInchMMTextEditCtrlEMF* field = GetNumberEditFromLittleArrow();
        if (field != nullptr && stepper() != nullptr) {
            field->SetExternalValueToUI(platform::decimal_text(stepper()->intValue()), 0);
        }
        return 0;
    }
};

/// Closes its window; as OK only when no control objects.
class EndButton : public BaseButtonEMFSpecialPages {
  public:
    explicit EndButton(bool validates) : validates_(validates) {}
    bool UIEventHandler() override {
        auto* window = dynamic_cast<PopupWinInPanelEMFSpecialPages*>(ctrlParentPanelPtr);
        window->SycValueFromUI();
        for (BaseControlEMFSpecialPages* control : window->getCtrlGroupArrayRef()) {
            if (validates_ && !control->InvalidateData()) {
                return false;
            }
        }
        window->DeactivateWindow();
        return true;
    }

  private:
    bool validates_;
};

class ControlsWindow : public PopupWinInPanelEMFSpecialPages {
  public:
    ControlsWindow() {
        std::string error;
        nib_ = platform::Nib::loadNibFile(
            std::filesystem::path(paths::source_dir()) / "tests/data/controls.ui", *this, &error);
        if (nib_ == nullptr) {
            throw std::runtime_error(error);
        }
        window_ = dynamic_cast<platform::Window*>(nib_->topLevelViews().at(0).get());
        CreatePanel(window_, "Title");
        build();
        pane_.RunTimeAddNewWindow(this);
        pane_.InitializeUserPane(bundle_.get(), nullptr);
    }

    /// As the pane's dialogs open: rebuilt, with the defaults in the views.
    std::int32_t ActivateWindow() override {
        ReInitializeUserPane();
        SetUIDataToIniData();
        SetDefaultValueToUI();
        platform::Application::shared().runModalForWindow(*window_);
        return 0;
    }

    platform::Window& window() { return *window_; }
    BaseControlEMFSpecialPages& control(ControlTag tag) { return *GetPanelControl(tag); }

  private:
    platform::View* view(ControlTag tag) { return window_->viewWithTag(tag); }

    template <typename Control>
    Control* add(std::unique_ptr<Control> control) {
        Control* field = nullptr;
        RunTimeAddNewControl(std::move(control), field);
        return field;
    }
    void build() {
        auto button = std::make_unique<BaseButtonEMFSpecialPages>();
        button->CreateControl(view(kButton), "Button");
        add(std::move(button));
        auto popup = std::make_unique<PopupControlEMFSpecialPages>();
        popup->CreateControl(view(kPopup), &kPopupIniData, &kPopupConstraints, nullptr, {});
        add(std::move(popup));
        buildRadios();
        auto text = std::make_unique<TextEditCtrlEMFSpecialPages>();
        text->CreateControl(view(kText), &kTextIniData, nullptr, &kNoTicket, {}, &pageDefineFilterData);
        add(std::move(text));
        auto number = std::make_unique<QuantityField>();
        number->CreateControl(view(kNumber), &kNumberIniData, &kNumberConstraints, &kNoTicket, {},
                              &SPInstQuantityEditFilterData, nullptr, &kNumberRange);
        add(std::move(number));
        auto arrows = std::make_unique<QuantityArrows>();
        arrows->CreateControl(view(kNumberStepper), &kStepperIniData, &kStepperConstraints, nullptr, {},
                              nullptr, kNumberOfStepper);
        add(std::move(arrows));
        buildTexts();
        for (const bool validates : {true, false}) {
            auto end = std::make_unique<EndButton>(validates);
            end->CreateControl(view(validates ? kOK : kCancel), validates ? "OK" : "Cancel");
            add(std::move(end));
        }
    }
    void buildRadios() {
        group_.RadioGroup();
        for (const bool first : {true, false}) {
            auto radio = std::make_unique<RadioButtonEMFSpecialPages>();
            radio->RadioButton(view(first ? kFirstRadio : kSecondRadio),
                               first ? &kFirstRadioIniData : &kSecondRadioIniData,
                               first ? &kFirstConstraints : &kSecondConstraints, nullptr, {});
            group_.RunTimeAddNewControl(add(std::move(radio)));
        }
    }
    void buildTexts() {
        auto words = std::make_unique<StaticTextEditControlEMFSpecialPages>();
        words->CreateControl(view(kStatic), nullptr, nullptr, {}, "Static");
        add(std::move(words));
        auto version = std::make_unique<VersionStringSTextEMFSpecialPages>();
        version->CreateControl(view(kVersion), nullptr, true);
        add(std::move(version));
        auto scroll = std::make_unique<SPScrollViewCtrlEMF>();
        scroll->CreateControl(view(kScroll), kScroll, &kScrollIniData);
        add(std::move(scroll));
        auto help = std::make_unique<SPHelpButtonEMF>();
        help->CreateControl_withHelpName(view(kHelp), "SpecialPagesMain.htm");
        add(std::move(help));
    }
    LocalizedBundle bundle_{
        {"Title", "Controls"},          {"Button", "Press me"},     {"All", "Everything"},
        {"No text", "No text"},         {"No number", "No number"}, {"First", "First of two"},
        {"Second", "Second of two"},    {"Static", "Words"},        {"OK", "OK"},
        {"Cancel", "Cancel"},           {"Alert OK Btn", "OK"},     {"Warning45", "A number from 1 to 9999."},
        {"Warning46", "Pages, please."}};
    TestPanel pane_;
    std::unique_ptr<platform::Nib> nib_;
    platform::Window* window_ = nullptr;
    RadioGroupEMFSpecialPages group_;
};

} // namespace specialpages::test
