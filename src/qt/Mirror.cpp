#include "qt/Mirror.h"

#include "host/HostError.h"
#include "platform/toolkit/Window.h"
#include "qt/FieldWidget.h"
#include "qt/NibWidgets.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <QWidget>

namespace specialpages::qt {

namespace {

/// What a label or button says, without the mark of its letter.
QString spoken_text(const QWidget& widget) {
    return plain_label(widget.property("text").toString());
}

} // namespace

Mirror::~Mirror() {
    for (const auto& [window, observer] : focusObservers_) {
        window->removeObserver(observer);
    }
}

void Mirror::followFocus(platform::Window& window) {
    if (focusObservers_.contains(&window)) {
        return;
    }
    focusObservers_[&window] =
        window.addObserver([this, &window](platform::View&, platform::ViewChange change) {
            if (change == platform::ViewChange::focus) {
                showFocus(window);
            }
        });
}

void Mirror::bind(platform::View& view) {
    QWidget* const top = nib_.find(view.name());
    QWidget& scope = top == nullptr ? nib_.root() : *top;
    bindBelow(view, scope);
    level_buttons(scope);
    if (scope.isWindow()) { // the pane has its letters when it is shown, beside those around it
        giveLetters(scope);
    }
}

void Mirror::bindBelow(platform::View& view, QWidget& scope) {
    QWidget* const widget = view.name().empty() ? nullptr : nib_.find(view.name());
    if (widget == nullptr && !view.name().empty()) {
        throw host::HostError(host::ErrorCode::other, nib_.file(),
                              "expected a widget for the view \"" + view.name() + "\"");
    }
    if (widget != nullptr && !bindings_.contains(&view)) {
        auto binding = make_binding(view, *widget);
        binding->follow([this, &view, &scope](QWidget& touched, platform::ViewChange change) {
            changed(view, touched, change, scope);
        });
        bindings_.emplace(&view, std::move(binding));
        nameAfter(view.name());
        if (auto* const window = dynamic_cast<platform::Window*>(&view)) {
            followFocus(*window);
        }
    }
    for (const auto& subview : view.subviews()) {
        bindBelow(*subview, scope);
    }
}

void Mirror::changed(platform::View& view, QWidget& touched, platform::ViewChange change, QWidget& scope) {
    const bool says = change == platform::ViewChange::text || change == platform::ViewChange::title;
    if (says) {
        nameAfter(view.name());
    }
    if (touched_) {
        touched_(touched, change);
    }
    if ((says && takes_letter(touched)) || change == platform::ViewChange::hidden) {
        level_buttons(scope);
        giveLetters(scope);
    }
}

void Mirror::giveLetters(QWidget& scope) {
    for (QWidget* const widget : give_mnemonics(scope)) {
        if (touched_) {
            touched_(*widget, platform::ViewChange::title);
        }
    }
}

void Mirror::nameAfter(const std::string& label) {
    const QWidget* const source = nib_.find(label);
    for (QWidget* const named : nib_.namedAfter(label)) {
        named->setAccessibleName(spoken_text(*source));
    }
}

QWidget* Mirror::widgetOf(const platform::View& view) const {
    const auto found = bindings_.find(&view);
    return found == bindings_.end() ? nullptr : &found->second->widget();
}

void Mirror::showFocus(const platform::Window& window) const {
    const platform::View* const first = window.firstResponder();
    QWidget* const widget = first == nullptr ? nullptr : widgetOf(*first);
    if (widget == nullptr) {
        return;
    }
    auto* const field = dynamic_cast<FieldWidget*>(widget);
    if (field != nullptr && field->isInUse()) {
        return; // the user is in it already
    }
    // The window's own focus, which it keeps while another window is the active one.
    if (widget->window()->focusWidget() != widget) {
        widget->setFocus(Qt::OtherFocusReason);
    }
    if (field != nullptr) {
        field->selectAll();
    }
}

} // namespace specialpages::qt
