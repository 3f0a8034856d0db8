#include "qt/Mirror.h"

#include "host/HostError.h"
#include "platform/toolkit/Window.h"
#include "qt/FieldWidget.h"
#include "qt/NibWidgets.h"

namespace specialpages::qt {

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
    if (!view.name().empty() && !bindings_.contains(&view)) {
        QWidget* const widget = nib_.find(view.name());
        if (widget == nullptr) {
            throw host::HostError(host::ErrorCode::other, view.nibFile().string(),
                                  "expected a widget for the view \"" + view.name() + "\"");
        }
        auto binding = make_binding(view, *widget);
        binding->follow([this](QWidget& touched, platform::ViewChange change) {
            if (touched_) {
                touched_(touched, change);
            }
        });
        bindings_.emplace(&view, std::move(binding));
        if (auto* const window = dynamic_cast<platform::Window*>(&view)) {
            followFocus(*window);
        }
    }
    for (const auto& subview : view.subviews()) {
        bind(*subview);
    }
}

QWidget* Mirror::widgetOf(const platform::View& view) const {
    const auto found = bindings_.find(&view);
    return found == bindings_.end() ? nullptr : &found->second->widget();
}

void Mirror::showFocus(const platform::Window& window) const {
    const platform::View* const first = window.firstResponder();
    QWidget* const widget = first == nullptr ? nullptr : widgetOf(*first);
    if (widget == nullptr || widget->hasFocus()) {
        return;
    }
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* const field = dynamic_cast<FieldWidget*>(widget)) {
        field->selectAll();
    }
}

} // namespace specialpages::qt
