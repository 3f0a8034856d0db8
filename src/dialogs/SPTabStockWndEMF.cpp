#include "dialogs/SPTabStockWndEMF.h"

#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "controls/custom_size_range.h"
#include "dialogs/SPInchMMRadioButtonEMF.h"
#include "dialogs/SPTabStockLittleArrowControlEMF.h"
#include "dialogs/SPTabStockOKButtonEMF.h"
#include "dialogs/SPTabStockTextEditCtrlEMF.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_buttons.h"
#include "dialogs/tab_stock_tables.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "support/input_filter.h"

namespace specialpages {

namespace {

constexpr const char* kMarginText = "Tab Margin Text";

} // namespace

SPTabStockWndEMF::SPTabStockWndEMF() = default;
SPTabStockWndEMF::~SPTabStockWndEMF() = default;

void SPTabStockWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    DialogBuilder add(*this, window);
    addNumber(add);
    addMargin(add);
    addUnits(add);
    add.button(SPTabMarginWndOKPushCtrl, SPTabMarginOKButtonID, kOkButtonTitle);
    add.button(SPTabMarginWndCancelPushCtrl, SPTabMarginCancelButtonID, kCancelButtonTitle);
    add.button(SPTabMarginWndDefaultPushCtrl, SPTabMarginDefaultButtonID, kRestoreButtonTitle);
}

void SPTabStockWndEMF::addNumber(DialogBuilder& add) {
    add.title(SPNumInSequenceSTextCtrl, SPNumInSequenceStaticTextID, "Number In Sequence Static Text");
    add.add(SPNumInSequenceWindowEtxtCtrl, SPNumInSequenceEditTextID,
            [](SPNumInSeqTextEditCtrlEMF& field, platform::View* view) {
                field.CreateControl(view, &SPNumInSequenceIniData, &SPNumInSequenceNumberEditCnstrnInfoPtr,
                                    &SPNumInSequenceTextEditAccessInfo, {}, &SPNumInSequenceFilterData,
                                    "Number In Sequence Text", &SPNumInSequenceEditValueRangeData);
            });
    add.add(SPNumInSequenceWindowLarrCtrl, SPNumInSequenceLittleArrowID,
            [](SPNumInSeqLittleArrowControlEMF& stepper, platform::View* view) {
                stepper.CreateControl(view, &SPNumInSequenceLittleArrowIniData,
                                      &SPNumInSequenceLittleArrayCnstrnInfoPtr,
                                      SPNumInSequenceLittleArrayValidateArray);
            });
}

void SPTabStockWndEMF::addMargin(DialogBuilder& add) {
    add.title(SPTabMarginListTitleCtrl, SPTabMarginListTitleID, "Tab Margin Title");
    add.add(SPTabMarginListCtrlPtr, SPTabMarginListCtrlID,
            [](SPTabMarginListCtrlEMF& list, platform::View* view) {
                list.CreateControl(view, &spTabMarginListIniData, &spTabMarginLboxCnstrnInfoPtr, nullptr, {});
            });
    add.add(SPTabMarginMMTextEditCtrl, SPTabMarginMMEditTextID,
            [](SPTabMMTextEditCtrlEMF& field, platform::View* view) {
                field.CreateControl(view, &SPTabMarginMMIniData, &SPTabMarginNumberMMEditCnstrnInfoPtr,
                                    &SPTabMarginMMTextEditAccessInfo, {}, &SPTabMarginMMFilterData,
                                    kMarginText, &SPTabMarginMMEditValueRangeData);
            });
    add.add(SPTabMarginMMLarrowCtrl, SPTabMarginMMLittleArrowID,
            [](SPTabMMLittleArrowControlEMF& stepper, platform::View* view) {
                stepper.CreateControl(view, &SPTabMarginLittleArrowMMIniData,
                                      &SPTabMarginLittleArrayMMCnstrnInfoPtr,
                                      SPTabMarginLittleArrayMMValidateArray);
            });
    add.add(SPTabMarginInchTextEditCtrl, SPTabMarginInchesEditTextID,
            [](SPTabInchesTextEditCtrlEMF& field, platform::View* view) {
                field.CreateControl(view, &SPTabMarginInchIniData, &SPTabMarginNumberInchEditCnstrnInfoPtr,
                                    &SPTabMarginInchTextEditAccessInfo, {}, &SPTabMarginInchFilterData,
                                    kMarginText, &SPTabMarginInchEditValueRangeData);
            });
    add.add(SPTabMarginInchLarrowCtrl, SPTabMarginInchesLittleArrowID,
            [](SPTabInchesLittleArrowControlEMF& stepper, platform::View* view) {
                stepper.CreateControl(view, &SPTabMarginLittleArrowInchIniData,
                                      &SPTabMarginLittleArrayInchCnstrnInfoPtr,
                                      SPTabMarginLittleArrayInchValidateArray);
            });
}

void SPTabStockWndEMF::addUnits(DialogBuilder& add) {
    SPTabMarginInchMmGroupPtr = std::make_unique<RadioGroupEMFSpecialPages>();
    SPTabMarginInchMmGroupPtr->RadioGroup();
    add.add(SPTabMarginEditWndMMRadioButPtr, SPTabMarginMMRadioButtonID,
            [](SPInchMMRadioButtonEMF& radio, platform::View* view) {
                radio.CreateControl(view, &SPtabMarginMMRdioIniData, &SPtabMarginMMRdioCnstrnInfo,
                                    SPtabMarginInchesRdioValidateArray, kLongMeasureMillimetres);
            });
    add.add(SPTabMarginEditWndInchesRadioButPtr, SPTabMarginInchesRadioButtonID,
            [](SPInchMMRadioButtonEMF& radio, platform::View* view) {
                radio.CreateControl(view, &SPtabMargininchesRdioIniData, &SPtabMargininchesRdioCnstrnInfo,
                                    SPtabMarginMMRdioValidateArray, kLongMeasureInches);
            });
    SPTabMarginInchMmGroupPtr->RunTimeAddNewControl(SPTabMarginEditWndMMRadioButPtr);
    SPTabMarginInchMmGroupPtr->RunTimeAddNewControl(SPTabMarginEditWndInchesRadioButPtr);
}

std::int32_t SPTabStockWndEMF::ActivateWindow() {
    if (windowRef == nullptr) {
        return 0;
    }
    SetCurrentValueToUI();
    if (SPTabMarginMMLarrowCtrl != nullptr) {
        // Inches are coarser than tenths of a millimetre: where they show, the hidden millimetres followed
        // them. A margin that the user does not touch stays as it was.
        SPTabMarginMMLarrowCtrl->SetControlValueToUI();
    }
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

} // namespace specialpages
