#include "dialogs/SPCustomSizeWndEMF.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/SPStaticTextEditControlEMF.h"
#include "controls/custom_size_range.h"
#include "dialogs/SPCustomSizeLittleArrowControlEMF.h"
#include "dialogs/SPCustomSizeTextEditCtrlEMF.h"
#include "dialogs/SPInchMMRadioButtonEMF.h"
#include "dialogs/custom_size_tables.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_buttons.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Window.h"
#include "support/identifiers.h"
#include "support/input_filter.h"
#include "support/units.h"

#include <algorithm>

namespace specialpages {

namespace {

constexpr const char* kMillimetresText = "Custom Size MM Side Static Text";
constexpr const char* kInchesText = "Custom Size Inch Side Static Text";

void add_limits(DialogBuilder& add, SPStaticTextEditControlEMF*& field, ControlTag tag, const char* key,
                std::int32_t longMeasure, std::int32_t sizeFlag) {
    add.add(field, tag, [=](SPStaticTextEditControlEMF& control, platform::View* view) {
        control.CreateControl(view, nullptr, nullptr, {}, key, longMeasure, sizeFlag);
    });
}

struct FieldTables {
    const TextEditIniData& iniData;
    const ConstraintRecord& constraints;
    const AccessInfo& accessInfo;
    const TextEditFilterData& filter;
    const EditValueRangeData& range;
};

void add_field(DialogBuilder& add, auto*& field, ControlTag tag, const FieldTables& tables,
               std::int32_t sizeFlag) {
    add.add(field, tag, [&](auto& control, platform::View* view) {
        control.CreateControl(view, &tables.iniData, &tables.constraints, &tables.accessInfo, {},
                              &tables.filter, &tables.range, sizeFlag);
    });
}

void add_stepper(DialogBuilder& add, auto*& field, ControlTag tag, const LittleArrayIniData& iniData,
                 const ConstraintRecord& constraints, ConstraintRow validateArray, std::int32_t sizeFlag) {
    add.add(field, tag, [&](auto& control, platform::View* view) {
        control.CreateControl(view, &iniData, &constraints, validateArray, sizeFlag);
    });
}

std::string default_of(const CustomSizeTextEditCtrl* field, const char* otherwise) {
    const auto standard = field == nullptr ? std::nullopt : field->GetDefaultDataBlk();
    const auto* text = standard ? std::get_if<std::string>(&*standard) : nullptr;
    return text == nullptr ? otherwise : *text;
}

} // namespace

SPCustomSizeWndEMF::SPCustomSizeWndEMF() = default;
SPCustomSizeWndEMF::~SPCustomSizeWndEMF() = default;

void SPCustomSizeWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    DialogBuilder add(*this, window);
    addWidth(add);
    addLength(add);
    addUnits(add);
    add.button(SPCustomSizeWndOKPushCtrl, SPCustomSizeOKButtonID, kOkButtonTitle);
    add.button(SPCustomSizeWndCancelPushCtrl, SPCustomSizeCancelButtonID, kCancelButtonTitle);
    add.button(SPCustomSizeWndDefaultPushCtrl, SPCustomSizeDefaultButtonID, kRestoreButtonTitle);
    add.help(SPCustomSizeWndHelpPushCtrl, SPCustomSizeHelpButtonID, "SpecialPagesCustom.htm");
}

void SPCustomSizeWndEMF::addWidth(DialogBuilder& add) {
    add_limits(add, SPCustomSizeWidthMMSTextCtrl, SPCustomSizeWidthMMStaticTextID,
               "Custom Size Width MM Static Text", kLongMeasureMillimetres, kCustomSizeWidth);
    add_field(add, SPCustomSizeWidthMMTextEditCtrl, SPCustomSizeWidthMMEditTextID,
              {SPCustomSizeWidthMMIniData, SPCustomSizeWidthNumberMMEditCnstrnInfoPtr,
               SPCustomSizeWidthMMTextEditAccessInfo, SPCustomSizeWidthMMFilterData,
               SPCustomSizeWidthMMEditValueRangeData},
              kCustomSizeWidth);
    add_stepper(add, SPCustomSizeWidthMMLarrowCtrl, SPCustomSizeWidthMMLittleArrowID,
                SPCustomSizeWidthLittleArrowMMIniData, SPCustomSizeWidthLittleArrayMMCnstrnInfoPtr,
                SPCustomSizeWidthLittleArrayMMVlidateArray, kCustomSizeWidth);
    add.title(SPCustomSizeWidthMMSideSTextCtrl, SPCustomSizeWidthMMSideStaticTextID, kMillimetresText);

    add_limits(add, SPCustomSizeWidthInchSTextCtrl, SPCustomSizeWidthInchStaticTextID,
               "Custom Size Width Inches Static Text", kLongMeasureInches, kCustomSizeWidth);
    add_field(add, SPCustomSizeWidthInchTextEditCtrl, SPCustomSizeWidthInchEditTextID,
              {SPCustomSizeWidthInchIniData, SPCustomSizeWidthNumberInchEditCnstrnInfoPtr,
               SPCustomSizeWidthInchTextEditAccessInfo, SPCustomSizeWidthInchFilterData,
               SPCustomSizeWidthInchEditValueRangeData},
              kCustomSizeWidth);
    add_stepper(add, SPCustomSizeWidthInchLarrowCtrl, SPCustomSizeWidthInchLittleArrowID,
                SPCustomSizeWidthLittleArrowInchIniData, SPCustomSizeWidthLittleArrayInchCnstrnInfoPtr,
                SPCustomSizeWidthLittleArrayInchVlidateArray, kCustomSizeWidth);
    add.title(SPCustomSizeWidthInchSideSTextCtrl, SPCustomSizeWidthInchSideStaticTextID, kInchesText);
}

void SPCustomSizeWndEMF::addLength(DialogBuilder& add) {
    add_limits(add, SPCustomSizeLengthMMSTextCtrl, SPCustomSizeLengthMMStaticTextID,
               "Custom Size Length MM Static Text", kLongMeasureMillimetres, kCustomSizeLength);
    add_field(add, SPCustomSizeLengthMMTextEditCtrl, SPCustomSizeLengthMMEditTextID,
              {SPCustomSizeLengthMMIniData, SPCustomSizeLengthNumberMMEditCnstrnInfoPtr,
               SPCustomSizeLengthMMTextEditAccessInfo, SPCustomSizeLengthMMFilterData,
               SPCustomSizeLengthMMEditValueRangeData},
              kCustomSizeLength);
    add_stepper(add, SPCustomSizeLengthMMLarrowCtrl, SPCustomSizeLengthMMLittleArrowID,
                SPCustomSizeLengthLittleArrowMMIniData, SPCustomSizeLengthLittleArrayMMCnstrnInfoPtr,
                SPCustomSizeLengthLittleArrayMMVlidateArray, kCustomSizeLength);
    add.title(SPCustomSizeLengthMMSideSTextCtrl, SPCustomSizeLengthMMSideStaticTextID, kMillimetresText);

    add_limits(add, SPCustomSizeLengthInchSTextCtrl, SPCustomSizeLengthInchStaticTextID,
               "Custom Size Length Inches Static Text", kLongMeasureInches, kCustomSizeLength);
    add_field(add, SPCustomSizeLengthInchTextEditCtrl, SPCustomSizeLengthInchEditTextID,
              {SPCustomSizeLengthInchIniData, SPCustomSizeLengthNumberInchEditCnstrnInfoPtr,
               SPCustomSizeLengthInchTextEditAccessInfo, SPCustomSizeLengthInchFilterData,
               SPCustomSizeLengthInchEditValueRangeData},
              kCustomSizeLength);
    add_stepper(add, SPCustomSizeLengthInchLarrowCtrl, SPCustomSizeLengthInchLittleArrowID,
                SPCustomSizeLengthLittleArrowInchIniData, SPCustomSizeLengthLittleArrayInchCnstrnInfoPtr,
                SPCustomSizeLengthLittleArrayInchVlidateArray, kCustomSizeLength);
    add.title(SPCustomSizeLengthInchSideSTextCtrl, SPCustomSizeLengthInchSideStaticTextID, kInchesText);
}

void SPCustomSizeWndEMF::addUnits(DialogBuilder& add) {
    SPCustomSizeInchMmGroupPtr = std::make_unique<RadioGroupEMFSpecialPages>();
    SPCustomSizeInchMmGroupPtr->RadioGroup();
    add.add(SPCustomSizeEditWndMMRadioButPtr, SPCustomSizeMMRadioButtonID,
            [](SPCustomSizeInchMMRadioButtonEMF& radio, platform::View* view) {
                radio.CreateControl(view, &SPcustomSizeMMRdioIniData, &SPcustomSizeMMRdioCnstrnInfo,
                                    SPcustomSizeInchesRdioValidateArray, kLongMeasureMillimetres);
            });
    add.add(SPCustomSizeEditWndInchesRadioButPtr, SPCustomSizeInchesRadioButtonID,
            [](SPCustomSizeInchMMRadioButtonEMF& radio, platform::View* view) {
                radio.CreateControl(view, &SPcustomSizeinchesRdioIniData, &SPcustomSizeinchesRdioCnstrnInfo,
                                    SPcustomSizeMMRdioValidateArray, kLongMeasureInches);
            });
    SPCustomSizeInchMmGroupPtr->RunTimeAddNewControl(SPCustomSizeEditWndMMRadioButPtr);
    SPCustomSizeInchMmGroupPtr->RunTimeAddNewControl(SPCustomSizeEditWndInchesRadioButPtr);
}

std::int32_t SPCustomSizeWndEMF::InitializeUserPaneTitle(platform::Bundle* bundle) {
    if (bundle == nullptr || winTitleTextRef == nullptr || windowRef == nullptr) {
        return 0;
    }
    windowRef->setTitle(
        bundle->localizedStringForKey(winTitleTextRef, kNoTranslation, LocalizeTableName.value_or("")));
    return 1;
}

std::string SPCustomSizeWndEMF::defaultCustomWidth() const {
    return default_of(SPCustomSizeWidthMMTextEditCtrl, kDefaultCustomWidth);
}

std::string SPCustomSizeWndEMF::defaultCustomLength() const {
    return default_of(SPCustomSizeLengthMMTextEditCtrl, kDefaultCustomLength);
}

std::int32_t SPCustomSizeWndEMF::getCustomPageSizeLongMeasure() const {
    const auto* inches =
        SPCustomSizeEditWndInchesRadioButPtr == nullptr
            ? nullptr
            : dynamic_cast<platform::Button*>(SPCustomSizeEditWndInchesRadioButPtr->GetControlPtr());
    return inches != nullptr && inches->intValue() == 1 ? kLongMeasureInches : kLongMeasureMillimetres;
}

bool SPCustomSizeWndEMF::controlsAreValid() {
    return std::all_of(
        fCtrlGroupArray.begin(), fCtrlGroupArray.end(),
        [](BaseControlEMFSpecialPages* control) { return control == nullptr || control->InvalidateData(); });
}

void SPCustomSizeWndEMF::giveBackSize() {
    if (pParentPane == nullptr || m_pSubMenuList == nullptr || SPCustomSizeWidthMMTextEditCtrl == nullptr ||
        SPCustomSizeLengthMMTextEditCtrl == nullptr) {
        return;
    }
    filterHeadZero(SPCustomSizeWidthMMTextEditCtrl->GetUIData());
    filterHeadZero(SPCustomSizeLengthMMTextEditCtrl->GetUIData());
    m_pSubMenuList->setCustomPageWidth(SPCustomSizeWidthMMTextEditCtrl->GetUIData().c_str());
    m_pSubMenuList->setCustomPageLength(SPCustomSizeLengthMMTextEditCtrl->GetUIData().c_str());
    m_pSubMenuList->setCustomPageSizeLongMeasure(getCustomPageSizeLongMeasure());
}

bool SPCustomSizeOKButtonEMF::UIEventHandler() {
    auto* window = dynamic_cast<SPCustomSizeWndEMF*>(ctrlParentPanelPtr);
    if (window == nullptr) {
        return true;
    }
    window->SycValueFromUI();
    if (!window->controlsAreValid()) {
        return false;
    }
    window->SetValueFromUIToControl();
    window->giveBackSize();
    window->DeactivateWindow();
    return true;
}

} // namespace specialpages
