#include "platform/toolkit/nib_texts.h"

#include "platform/toolkit/Button.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"

namespace specialpages::platform {

namespace {

std::string translated(const std::string& text, const NibTextLookup& lookup) {
    return text.empty() ? text : lookup(text);
}

void translate_shown_text(View& view, const NibTextLookup& lookup) {
    switch (view.kind()) {
    case ViewKind::button:
    case ViewKind::radio: {
        auto& button = dynamic_cast<Button&>(view);
        button.setTitle(translated(button.title(), lookup));
        break;
    }
    case ViewKind::staticText: {
        auto& field = dynamic_cast<TextField&>(view);
        field.setStringValue(translated(field.stringValue(), lookup));
        break;
    }
    case ViewKind::window: {
        auto& window = dynamic_cast<Window&>(view);
        window.setTitle(translated(window.title(), lookup));
        break;
    }
    case ViewKind::view:
    case ViewKind::popup:
    case ViewKind::textField:
    case ViewKind::scrollText:
    case ViewKind::stepper:
    case ViewKind::table:
    case ViewKind::icon:
        break;
    }
}

} // namespace

void translate_nib_texts(std::span<const std::shared_ptr<View>> views, const NibTextLookup& lookup) {
    for (const std::shared_ptr<View>& view : views) {
        translate_shown_text(*view, lookup);
        view->setToolTip(translated(view->toolTip(), lookup));
        translate_nib_texts(view->subviews(), lookup);
    }
}

} // namespace specialpages::platform
