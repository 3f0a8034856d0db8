#include "cli/DialogFace.h"

#include "host/HostError.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TextField.h"

#include <utility>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

HostError refused(const EntryPlace& place, std::string detail) {
    return {ErrorCode::refused, place.text(), std::move(detail)};
}

template <typename Kind>
Kind& view_in(platform::Window& window, std::int32_t tag) {
    auto* view = dynamic_cast<Kind*>(window.viewWithTag(tag));
    if (view == nullptr) {
        throw HostError(ErrorCode::other, window.title(),
                        "expected a view with the tag " + std::to_string(tag) + " in this window");
    }
    return *view;
}

/// Why an item cannot be picked.
std::string item_refusal(const platform::MenuItem& item) {
    if (item.isHidden()) {
        return "the pane does not offer \"" + item.title() + "\" here";
    }
    return "the pane does not allow \"" + item.title() + "\" here" +
           (item.toolTip().empty() ? "" : ": " + item.toolTip());
}

/// HostError when an item on the way is missing, hidden or disabled.
void check_path(const platform::PopUpButton& popup, std::span<const std::int64_t> path,
                const EntryPlace& place) {
    const platform::Menu* menu = &popup.menu();
    for (const std::int64_t position : path) {
        const platform::MenuItem* item = menu == nullptr ? nullptr : menu->itemAtIndex(position);
        if (item == nullptr) {
            throw refused(place, "the pane offers no such choice");
        }
        if (item->isHidden() || !item->isEnabled()) {
            throw refused(place, item_refusal(*item));
        }
        menu = item->submenu();
    }
}

} // namespace

platform::PopUpButton& popup_in(platform::Window& window, std::int32_t tag) {
    return view_in<platform::PopUpButton>(window, tag);
}

DialogFace::DialogFace(platform::Window& main)
    : main_(main), before_(platform::Application::shared().setFace(this)) {}

DialogFace::~DialogFace() {
    platform::Application::shared().setFace(before_);
}

void DialogFace::inDialog(std::int32_t button, const EntryPlace& place, const Script& script) {
    alerts_.clear();
    inNextDialog(
        [&] {
            if (!view_in<platform::Button>(main_, button).click()) {
                throw refused(place, "the pane takes no more of these");
            }
        },
        place, script);
}

void DialogFace::inNextDialog(const std::function<void()>& opener, const EntryPlace& place,
                              const Script& script) {
    if (!runScript(opener, script)) {
        throw refused(place, "the pane opens no window for this");
    }
}

void DialogFace::inPossibleDialog(const std::function<void()>& opener, const Script& script) {
    runScript(opener, script);
}

bool DialogFace::runScript(const std::function<void()>& opener, const Script& script) {
    failure_ = nullptr;
    script_ = &script;
    try {
        opener();
    } catch (...) {
        script_ = nullptr;
        throw;
    }
    const bool opened = std::exchange(script_, nullptr) == nullptr;
    if (failure_) {
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
    return opened;
}

void DialogFace::runEvents(platform::Window& window, const std::function<bool()>& /*stopped*/) {
    // A dialog that is left open here is given up, and the application cancels it.
    if (const Script* script = std::exchange(script_, nullptr)) {
        try {
            (*script)(window);
        } catch (...) {
            // The pane's own code is on the way out and knows no exceptions.
            failure_ = std::current_exception();
        }
    }
}

void DialogFace::commit(platform::Window& dialog, std::int32_t button, const EntryPlace& place) {
    const std::size_t said = alerts_.size();
    view_in<platform::Button>(dialog, button).click();
    if (alerts_.size() > said) {
        throw refused(place, alerts_.back());
    }
    if (dialog.isOpen()) {
        throw refused(place, "the pane keeps its window open");
    }
}

void DialogFace::choose(platform::Window& dialog, std::int32_t tag, std::span<const std::int64_t> path,
                        const EntryPlace& place) {
    platform::PopUpButton& popup = popup_in(dialog, tag);
    if (path.size() == 1 && popup.indexOfSelectedItem() == path.front()) {
        return;
    }
    if (!popup.isEnabled() || !popup.isVisible()) {
        throw refused(place, "the pane does not offer this here");
    }
    check_path(popup, path, place);
    if (!popup.pick(path)) {
        throw refused(place, "the pane does not take this choice");
    }
}

void DialogFace::press(platform::Window& dialog, std::int32_t tag, const EntryPlace& place) {
    if (!view_in<platform::Button>(dialog, tag).click()) {
        throw refused(place, "the pane does not offer this here");
    }
}

void DialogFace::type(platform::Window& dialog, std::int32_t tag, const std::string& text,
                      const EntryPlace& place) {
    auto& field = view_in<platform::TextField>(dialog, tag);
    if (!field.isEnabled() || !field.isVisible()) {
        throw refused(place, "the pane does not offer this here");
    }
    const int beeps = beeps_;
    const std::size_t said = alerts_.size();
    field.type(text);
    if (alerts_.size() > said) {
        throw refused(place, alerts_.back());
    }
    if (beeps_ > beeps) {
        throw refused(place, "the pane's field does not take \"" + text + "\"");
    }
}

} // namespace specialpages::cli
