#include "controls/BaseControlEMFSpecialPages.h"

#include "controls/ControlPanel.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/log.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/View.h"

namespace specialpages {

namespace {

/// The chain of updates that runs now: controls update each other on the dialog's thread only.
struct UpdateChain {
    int depth = 0;
    /// Set where the chain got too long; nothing more is updated until it is unwound. Without it a cycle that
    /// branches would double at each level.
    bool cutOff = false;
};

UpdateChain& updateChain() {
    static UpdateChain chain;
    return chain;
}

class UpdateLink {
  public:
    UpdateLink() { ++updateChain().depth; }
    ~UpdateLink() {
        if (--updateChain().depth == 0) {
            updateChain().cutOff = false;
        }
    }
    UpdateLink(const UpdateLink&) = delete;
    UpdateLink& operator=(const UpdateLink&) = delete;
};

} // namespace

void BaseControlEMFSpecialPages::CreateControl(platform::View* view) {
    ControlPtr = view;
    ctrlDataSize = 0;
    ctrlDataBlkPtr.reset();
    ctrlUIDataBlkPtr.reset();
    ctrlConstrainCount = 0;
    ctrlHideCount = 0;
    ctrlConstrainControlArray = nullptr;
    ctrlDataAccessInfoPtr = nullptr;
    m_paPPDChoices.clear();
    m_ptPPDOptions = nullptr;
}

void BaseControlEMFSpecialPages::setTargetandAction() {
    if (ControlPtr != nullptr) {
        ControlPtr->setTargetAction(this, [this](platform::View& sender) { RequestControlAction(&sender); });
    }
}

bool BaseControlEMFSpecialPages::InitializeCtrl(platform::Bundle*, ppd_file_s*) {
    return true;
}

bool BaseControlEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return InitializeCtrl(bundle, withPPD);
}

std::int32_t BaseControlEMFSpecialPages::ConstrainPanelControlFromPPD(ppd_file_s*) {
    return 0;
}

std::int32_t BaseControlEMFSpecialPages::UpdateConflictsPanelControlFromPPD(ppd_file_s*) {
    return 0;
}

void BaseControlEMFSpecialPages::SetValueFromUIToControl() {
    if (ctrlDataBlkPtr && ctrlUIDataBlkPtr && ctrlDataSize != 0) {
        ctrlDataBlkPtr = ctrlUIDataBlkPtr;
    }
}

bool BaseControlEMFSpecialPages::SetUIValueToIniData() {
    const auto initial = GetIniDataBlk();
    const std::uint32_t size = GetIniDataSize();
    if (initial && ctrlUIDataBlkPtr && size != 0) {
        ctrlUIDataBlkPtr = *initial;
        ctrlDataSize = size;
    }
    return true;
}

bool BaseControlEMFSpecialPages::SetControlValueToDefault() {
    const auto standard = GetDefaultDataBlk();
    const std::uint32_t size = GetDefaultDataSize();
    if (standard && ctrlDataBlkPtr && size != 0) {
        ctrlDataBlkPtr = *standard;
        ctrlDataSize = size;
    }
    return true;
}

bool BaseControlEMFSpecialPages::SetExternalValueToUI(const ControlValue&, std::uint32_t) {
    return true;
}

bool BaseControlEMFSpecialPages::setExternalValueToData(const ControlValue& value, std::uint32_t size,
                                                        std::int32_t valueType) {
    constexpr std::int32_t kTextValue = 0;
    constexpr std::int32_t kIntegerValue = 2;
    if (!ctrlDataBlkPtr) {
        return true;
    }
    if (valueType == kIntegerValue && std::holds_alternative<std::int32_t>(value)) {
        ctrlDataBlkPtr = value;
    } else if (valueType == kTextValue && std::holds_alternative<std::string>(value)) {
        ctrlDataBlkPtr = std::string(platform::utf8_prefix(std::get<std::string>(value), size));
    }
    return true;
}

bool BaseControlEMFSpecialPages::SetDefaultValueToUI() {
    const auto standard = GetDefaultDataBlk();
    if (standard && ctrlDataBlkPtr) {
        SetExternalValueToUI(*standard, GetDefaultDataSize());
    }
    return true;
}

bool BaseControlEMFSpecialPages::InvalidateDataOnPrintCommand() {
    return PreInvalidateData() && InvalidateData();
}

void BaseControlEMFSpecialPages::RequestControlAction(platform::View*) {
    UIEventHandler();
    GetValueFromUI();
}

bool BaseControlEMFSpecialPages::UIEventHandler() {
    DoControlUpdateConstrain();
    DoSelfUpdate();
    DoControlHideConstrain();
    DoControlConstrain();
    return true;
}

bool BaseControlEMFSpecialPages::SimulationUIEventHandler() {
    DoControlUpdateConstrain();
    DoSelfUpdate();
    DoControlHideConstrain();
    DoControlConstrain();
    return true;
}

std::int32_t BaseControlEMFSpecialPages::DoControlUpdateConstrain() {
    if (ctrlConstrainControlArray == nullptr || ctrlParentPanelPtr == nullptr) {
        return 0;
    }
    const UpdateLink link;
    if (updateChain().depth > kMaxUpdateDepth) {
        updateChain().cutOff = true;
        platform::NSLog("SpecialPagesPDE : controls update each other without an end; the chain is cut off");
        return 0;
    }
    const std::int64_t number = GetCurrentControlArrayNumber();
    for (const ControlTag tag : row_at(ctrlConstrainControlArray->update, number < 0 ? 0 : number)) {
        if (updateChain().cutOff) {
            break;
        }
        if (BaseControlEMFSpecialPages* control = ctrlParentPanelPtr->GetPanelControl(tag)) {
            control->Update();
        }
    }
    return 0;
}

void BaseControlEMFSpecialPages::forEachControl(ConstraintRow row,
                                                void (BaseControlEMFSpecialPages::*operation)()) {
    if (ctrlParentPanelPtr == nullptr) {
        return;
    }
    for (const ControlTag tag : row) {
        if (BaseControlEMFSpecialPages* control = ctrlParentPanelPtr->GetPanelControl(tag)) {
            (control->*operation)();
        }
    }
}

void BaseControlEMFSpecialPages::DisableControlConstrains(ConstraintRow row) {
    forEachControl(row, &BaseControlEMFSpecialPages::Disable);
}

void BaseControlEMFSpecialPages::EnableControlConstrains(ConstraintRow row) {
    forEachControl(row, &BaseControlEMFSpecialPages::Enable);
}

void BaseControlEMFSpecialPages::HideControlConstrains(ConstraintRow row) {
    forEachControl(row, &BaseControlEMFSpecialPages::Hide);
}

void BaseControlEMFSpecialPages::ShowControlConstrains(ConstraintRow row) {
    forEachControl(row, &BaseControlEMFSpecialPages::Show);
}

void BaseControlEMFSpecialPages::DisableControlConstrains() {
    if (ctrlConstrainControlArray != nullptr) {
        DisableControlConstrains(row_at(ctrlConstrainControlArray->disable, GetCurrentControlArrayNumber()));
    }
}

void BaseControlEMFSpecialPages::EnableControlConstrains() {
    if (ctrlConstrainControlArray != nullptr) {
        EnableControlConstrains(row_at(ctrlConstrainControlArray->disable, GetCurrentControlArrayNumber()));
    }
}

void BaseControlEMFSpecialPages::HideControlConstrains() {
    if (ctrlConstrainControlArray != nullptr) {
        HideControlConstrains(row_at(ctrlConstrainControlArray->hide, GetCurrentControlArrayNumber()));
    }
}

void BaseControlEMFSpecialPages::ShowControlConstrains() {
    if (ctrlConstrainControlArray != nullptr) {
        ShowControlConstrains(row_at(ctrlConstrainControlArray->hide, GetCurrentControlArrayNumber()));
    }
}

void BaseControlEMFSpecialPages::Disable() {
    if (ctrlConstrainCount++ >= 0) {
        setViewEnabled(false);
    }
}

void BaseControlEMFSpecialPages::Enable() {
    if (ctrlConstrainCount-- <= 1) {
        setViewEnabled(true);
    }
}

void BaseControlEMFSpecialPages::Hide() {
    if (ctrlHideCount++ >= 0 && ControlPtr != nullptr) {
        ControlPtr->setHidden(true);
    }
}

void BaseControlEMFSpecialPages::Show() {
    if (ctrlHideCount-- <= 1 && ControlPtr != nullptr) {
        ControlPtr->setHidden(false);
    }
}

void BaseControlEMFSpecialPages::ResetStatus() {
    ctrlConstrainCount = 0;
    ctrlHideCount = 0;
    setViewEnabled(true);
    if (ControlPtr != nullptr) {
        ControlPtr->setHidden(false);
    }
}

void BaseControlEMFSpecialPages::PPDCtrlShow() {
    if (ControlPtr != nullptr) {
        ControlPtr->setHidden(false);
    }
}

void BaseControlEMFSpecialPages::PPDCtrlHide() {
    if (ControlPtr != nullptr) {
        ControlPtr->setHidden(true);
    }
}

void BaseControlEMFSpecialPages::setViewEnabled(bool enabled) {
    if (ControlPtr != nullptr) {
        ControlPtr->setEnabled(enabled);
    }
}

std::string BaseControlEMFSpecialPages::localized(platform::Bundle& bundle, std::string_view key,
                                                  std::string_view fallback) const {
    return bundle.localizedStringForKey(key, fallback, {});
}

} // namespace specialpages
