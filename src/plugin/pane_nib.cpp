// What the pane's nib connects: its outlets by name, and the objects that the nib instantiates.
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/SPAddCoversWndEMF.h"
#include "dialogs/SPAddExceptionWndEMF.h"
#include "dialogs/SPAddInsertWndEMF.h"
#include "dialogs/SPAdvSeleWndEMF.h"
#include "dialogs/SPCustomSizeWndEMF.h"
#include "dialogs/SPTabStockSubWndEMF.h"
#include "dialogs/SPTabStockWndEMF.h"
#include "dialogs/SPWarningWndEMF.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "records/SPSummaryScrollViewCtrl.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace specialpages {

namespace {

/// A name in the nib, and what lets something of the nib become the field of that name: false when it is of
/// the wrong kind.
template <typename From>
struct Connection {
    std::string_view name;
    bool (*connect)(SpecialPagesPDEnvbir15& pane, From& from);
};

template <typename From, auto Field>
bool become(SpecialPagesPDEnvbir15& pane, From& from) {
    auto* typed = dynamic_cast<std::remove_reference_t<decltype(pane.*Field)>>(&from);
    if (typed != nullptr) {
        pane.*Field = typed;
    }
    return typed != nullptr;
}

template <auto Field>
constexpr Connection<platform::View> outlet_of(std::string_view name) {
    return {name, become<platform::View, Field>};
}

template <auto Field>
constexpr Connection<platform::NibObject> object_of(std::string_view name) {
    return {name, become<platform::NibObject, Field>};
}

template <typename From, std::size_t Count>
bool connect(const std::array<Connection<From>, Count>& connections, SpecialPagesPDEnvbir15& pane,
             std::string_view name, From& from) {
    const auto* const found = std::ranges::find(connections, name, &Connection<From>::name);
    return found != connections.end() && found->connect(pane, from);
}

} // namespace

bool SpecialPagesPDEnvbir15::connectOutlet(std::string_view outlet, platform::View& view) {
    using Pane = SpecialPagesPDEnvbir15;
    static constexpr std::array kViews{
        outlet_of<&Pane::SpecialPagesView>("SpecialPagesView"),
        outlet_of<&Pane::SPAddCoverIconView>("SPAddCoverIconView"),
        outlet_of<&Pane::SPAddCoversButton>("SPAddCoversButton"),
        outlet_of<&Pane::SPAddInsertIconView>("SPAddInsertIconView"),
        outlet_of<&Pane::SPAddInsertsButton>("SPAddInsertsButton"),
        outlet_of<&Pane::SPAddExceptionsIconView>("SPAddExceptionsIconView"),
        outlet_of<&Pane::SPAddExceptionsButton>("SPAddExceptionsButton"),
        outlet_of<&Pane::SPUpButton>("SPUpButton"),
        outlet_of<&Pane::SPDownButton>("SPDownButton"),
        outlet_of<&Pane::SPEditButton>("SPEditButton"),
        outlet_of<&Pane::SPDeleteButton>("SPDeleteButton"),
        outlet_of<&Pane::SPDeleteAllButton>("SPDeleteAllButton"),
        outlet_of<&Pane::SPUndoButton>("SPUndoButton"),
        outlet_of<&Pane::SPMainHelpButton>("SPMainHelpButton"),
        outlet_of<&Pane::SPSummaryTitleStaticEdit>("SPSummaryTitleStaticEdit"),
        outlet_of<&Pane::SPSummaryInfoTableView>("SPSummaryInfoTableView"),
        outlet_of<&Pane::SPVerStringSTextCtrl>("SPVerStringSTextCtrl"),
        outlet_of<&Pane::CoversWindowRef>("CoversWindowRef"),
        outlet_of<&Pane::InsertWindowRef>("InsertWindowRef"),
        outlet_of<&Pane::spAddExceptionsWindow>("spAddExceptionsWindow"),
        outlet_of<&Pane::spTabStockWindow>("spTabStockWindow"),
        outlet_of<&Pane::spTabStockSubWindow>("spTabStockSubWindow"),
        outlet_of<&Pane::spCustomSizeWindow>("spCustomSizeWindow"),
        outlet_of<&Pane::SPAdvSeleWndRef>("SPAdvSeleWndRef"),
        outlet_of<&Pane::WarningWindowRef>("WarningWindowRef"),
    };
    return connect(kViews, *this, outlet, view);
}

bool SpecialPagesPDEnvbir15::connectObject(std::string_view outlet, platform::NibObject& object) {
    using Pane = SpecialPagesPDEnvbir15;
    static constexpr std::array kObjects{
        object_of<&Pane::summaryScrollViewCtrlPtr>("summaryScrollViewCtrlPtr"),
        object_of<&Pane::spAddCoversWndPtr>("spAddCoversWndPtr"),
        object_of<&Pane::spAddInsertWndPtr>("spAddInsertWndPtr"),
        object_of<&Pane::spAddExceptionsWndPtr>("spAddExceptionsWndPtr"),
        object_of<&Pane::spTabStockWndPtr>("spTabStockWndPtr"),
        object_of<&Pane::spTabStockSubWndPtr>("spTabStockSubWndPtr"),
        object_of<&Pane::spCustomSizeWndPtr>("spCustomSizeWndPtr"),
        object_of<&Pane::SPAdvSeleWndPtr>("SPAdvSeleWndPtr"),
        object_of<&Pane::spWarningWndPtr>("spWarningWndPtr"),
    };
    return connect(kObjects, *this, outlet, object);
}

std::unique_ptr<platform::NibObject> SpecialPagesPDEnvbir15::instantiate(std::string_view className) {
    if (className == "SPSummaryScrollViewCtrl") {
        return std::make_unique<SPSummaryScrollViewCtrl>();
    }
    if (className == "SPAddCoversWndEMF") {
        return std::make_unique<SPAddCoversWndEMF>();
    }
    if (className == "SPAddExceptionWndEMF") {
        return std::make_unique<SPAddExceptionWndEMF>();
    }
    if (className == "SPAddInsertWndEMF") {
        return std::make_unique<SPAddInsertWndEMF>();
    }
    if (className == "SPCustomSizeWndEMF") {
        return std::make_unique<SPCustomSizeWndEMF>();
    }
    if (className == "SPAdvSeleWndEMF") {
        return std::make_unique<SPAdvSeleWndEMF>();
    }
    if (className == "SPTabStockWndEMF") {
        return std::make_unique<SPTabStockWndEMF>();
    }
    if (className == "SPTabStockSubWndEMF") {
        return std::make_unique<SPTabStockSubWndEMF>();
    }
    if (className == "SPWarningWndEMF") {
        return std::make_unique<SPWarningWndEMF>();
    }
    return nullptr;
}

} // namespace specialpages
