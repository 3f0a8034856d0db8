#include "qt/ViewBinding.h"

#include "qt/text.h"
#include "qt/tips.h"

#include <QWidget>

namespace specialpages::qt {

using platform::ViewChange;

ViewBinding::ViewBinding(platform::View& view, QWidget& widget) : view_(view), widget_(widget) {}

ViewBinding::~ViewBinding() {
    if (observer_ != 0) {
        view_.removeObserver(observer_);
    }
}

void ViewBinding::follow(const TouchObserver& touched) {
    touched_ = touched;
    for (const ViewChange change : {ViewChange::enabled, ViewChange::hidden, ViewChange::toolTip}) {
        showCommon(change);
    }
    showAll();
    observer_ = view_.addObserver([this](platform::View&, ViewChange change) { changed(change); });
}

bool ViewBinding::showCommon(ViewChange change) {
    switch (change) {
    case ViewChange::enabled:
        widget_.setEnabled(view_.isEnabled());
        return true;
    case ViewChange::hidden:
        // A window is shown and hidden by its opening and closing.
        if (!widget_.isWindow()) {
            widget_.setHidden(view_.isHidden());
        }
        return !widget_.isWindow();
    case ViewChange::toolTip:
        widget_.setToolTip(literal_tip(view_.toolTip()));
        return true;
    case ViewChange::tag:
        widget_.setProperty("tag", view_.tag());
        return true;
    case ViewChange::title:
    case ViewChange::value:
    case ViewChange::items:
    case ViewChange::text:
    case ViewChange::textColor:
    case ViewChange::range:
    case ViewChange::rows:
    case ViewChange::selection:
    case ViewChange::columns:
    case ViewChange::focus:
    case ViewChange::image:
    case ViewChange::open:
    case ViewChange::display: // what changed has told so, and its widget draws itself anew
        return false;
    }
    return false;
}

void ViewBinding::changed(ViewChange change) {
    const bool common = showCommon(change);
    if ((show(change) || common) && touched_) {
        touched_(widget_, change);
    }
}

} // namespace specialpages::qt
