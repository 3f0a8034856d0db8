// What the pane's nib connects: its outlets by name, and the objects that the nib instantiates.
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/SPWarningWndEMF.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "records/SPSummaryScrollViewCtrl.h"

#include <functional>
#include <map>

namespace specialpages {

namespace {

template <typename From>
using Connections = std::map<std::string_view, std::function<bool(From&)>>;

/// Lets something of the nib become the field; false when it is of the wrong kind.
template <typename From, typename Field>
std::function<bool(From&)> into(Field*& field) {
    return [&field](From& from) {
        auto* typed = dynamic_cast<Field*>(&from);
        if (typed != nullptr) {
            field = typed;
        }
        return typed != nullptr;
    };
}

template <typename From>
bool connect(const Connections<From>& connections, std::string_view outlet, From& from) {
    const auto found = connections.find(outlet);
    return found != connections.end() && found->second(from);
}

} // namespace

bool SpecialPagesPDEnvbir15::connectOutlet(std::string_view outlet, platform::View& view) {
    const Connections<platform::View> views{
        {"SpecialPagesView", into<platform::View>(SpecialPagesView)},
        {"SPAddCoverIconView", into<platform::View>(SPAddCoverIconView)},
        {"SPAddCoversButton", into<platform::View>(SPAddCoversButton)},
        {"SPAddInsertIconView", into<platform::View>(SPAddInsertIconView)},
        {"SPAddInsertsButton", into<platform::View>(SPAddInsertsButton)},
        {"SPAddExceptionsIconView", into<platform::View>(SPAddExceptionsIconView)},
        {"SPAddExceptionsButton", into<platform::View>(SPAddExceptionsButton)},
        {"SPUpButton", into<platform::View>(SPUpButton)},
        {"SPDownButton", into<platform::View>(SPDownButton)},
        {"SPEditButton", into<platform::View>(SPEditButton)},
        {"SPDeleteButton", into<platform::View>(SPDeleteButton)},
        {"SPDeleteAllButton", into<platform::View>(SPDeleteAllButton)},
        {"SPUndoButton", into<platform::View>(SPUndoButton)},
        {"SPMainHelpButton", into<platform::View>(SPMainHelpButton)},
        {"SPSummaryTitleStaticEdit", into<platform::View>(SPSummaryTitleStaticEdit)},
        {"SPSummaryInfoTableView", into<platform::View>(SPSummaryInfoTableView)},
        {"SPVerStringSTextCtrl", into<platform::View>(SPVerStringSTextCtrl)},
        {"CoversWindowRef", into<platform::View>(CoversWindowRef)},
        {"InsertWindowRef", into<platform::View>(InsertWindowRef)},
        {"spAddExceptionsWindow", into<platform::View>(spAddExceptionsWindow)},
        {"spTabStockWindow", into<platform::View>(spTabStockWindow)},
        {"spTabStockSubWindow", into<platform::View>(spTabStockSubWindow)},
        {"spCustomSizeWindow", into<platform::View>(spCustomSizeWindow)},
        {"SPAdvSeleWndRef", into<platform::View>(SPAdvSeleWndRef)},
        {"WarningWindowRef", into<platform::View>(WarningWindowRef)},
    };
    return connect(views, outlet, view);
}

bool SpecialPagesPDEnvbir15::connectObject(std::string_view outlet, platform::NibObject& object) {
    const Connections<platform::NibObject> objects{
        {"summaryScrollViewCtrlPtr", into<platform::NibObject>(summaryScrollViewCtrlPtr)},
        {"spAddCoversWndPtr", into<platform::NibObject>(spAddCoversWndPtr)},
        {"spAddInsertWndPtr", into<platform::NibObject>(spAddInsertWndPtr)},
        {"spAddExceptionsWndPtr", into<platform::NibObject>(spAddExceptionsWndPtr)},
        {"spTabStockWndPtr", into<platform::NibObject>(spTabStockWndPtr)},
        {"spTabStockSubWndPtr", into<platform::NibObject>(spTabStockSubWndPtr)},
        {"spCustomSizeWndPtr", into<platform::NibObject>(spCustomSizeWndPtr)},
        {"SPAdvSeleWndPtr", into<platform::NibObject>(SPAdvSeleWndPtr)},
        {"spWarningWndPtr", into<platform::NibObject>(spWarningWndPtr)},
    };
    return connect(objects, outlet, object);
}

std::unique_ptr<platform::NibObject> SpecialPagesPDEnvbir15::instantiate(std::string_view className) {
    if (className == "SPSummaryScrollViewCtrl") {
        return std::make_unique<SPSummaryScrollViewCtrl>();
    }
    if (className == "SPWarningWndEMF") {
        return std::make_unique<SPWarningWndEMF>();
    }
    return nullptr;
}

} // namespace specialpages
