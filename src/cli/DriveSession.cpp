#include "cli/DriveSession.h"

#include "cli/drive_state.h"
#include "cli/pane_tags.h"
#include "cli/streams.h"
#include "host/HostError.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"

#include <array>
#include <istream>
#include <ostream>
#include <span>
#include <string_view>
#include <utility>

namespace specialpages::cli {

using nlohmann::ordered_json;
using platform::Application;

namespace {

/// What a request answers that has no "result".
ordered_json no_result() {
    return ordered_json(ordered_json::value_t::discarded);
}

std::string described(const platform::View& view) {
    return std::string(class_word(view.kind())) + " " + std::to_string(view.tag());
}

constexpr const char* kExpectedField = "a field";

RequestError unexpected(const platform::View& view, const char* expected) {
    return RequestError(described(view) + ": expected " + expected);
}

/// The view as one of its kind; RequestError when it is of another.
template <class Kind>
Kind& as(platform::View& view, const char* expected) {
    auto* const cast = dynamic_cast<Kind*>(&view);
    if (cast == nullptr) {
        throw unexpected(view, expected);
    }
    return *cast;
}

/// What a user's event answered; RequestError when the view did not take it.
void took_event(const platform::View& view, bool taken) {
    if (!taken) {
        throw RequestError(described(view) + ": it takes no events now");
    }
}

/// RequestError unless the user could pick the item at the path: a position in the menu, then in the sub-menu
/// of the item there. It names the item at which the path breaks off.
void check_path(const platform::PopUpButton& popup, std::span<const std::int64_t> path) {
    std::string place = described(popup);
    const platform::Menu* menu = &popup.menu();
    for (const std::int64_t position : path) {
        if (menu == nullptr) {
            throw RequestError(place + ": it has no sub-menu");
        }
        const platform::MenuItem* const item = menu->itemAtIndex(position);
        if (item == nullptr) {
            throw RequestError(place + ": no item " + std::to_string(position) + ", it has " +
                               std::to_string(menu->numberOfItems()) + " items");
        }
        place += ": item " + std::to_string(position);
        if (item->isHidden()) {
            throw RequestError(place + ": hidden");
        }
        if (!item->isEnabled()) {
            throw RequestError(place + ": disabled");
        }
        if (item->isSeparator()) {
            throw RequestError(place + ": it is a separator");
        }
        menu = item->submenu();
    }
    if (menu != nullptr) {
        throw RequestError(place + ": it opens a sub-menu");
    }
}

} // namespace

DriveSession::DriveSession(host::PrintHost& host, std::istream& in, std::ostream& out)
    : host_(host), in_(in), out_(out), faceBefore_(Application::shared().setFace(this)) {}

DriveSession::~DriveSession() {
    Application::shared().setFace(faceBefore_);
}

void DriveSession::run() {
    readRequests([] { return false; });
}

void DriveSession::runEvents(platform::Window& /*window*/, const std::function<bool()>& stopped) {
    if (!ended_) {
        answer(); // of the request that opened the window
    }
    readRequests(stopped);
}

void DriveSession::showAlert(const platform::Alert& alert) {
    if (pending_) {
        pending_->alerts.push_back(alert.informativeText);
    }
}

void DriveSession::beep() {
    if (pending_) {
        ++pending_->beeps;
    }
}

void DriveSession::readRequests(const std::function<bool()>& stopped) {
    while (!ended_ && !stopped()) {
        const auto line = read_line(in_, kMaxRequestBytes);
        if (!line) {
            ended_ = true;
            return;
        }
        handle(line->text, line->cut);
        // A request that ended this run, or the program, is answered further out, when all that follows is
        // done. At the outermost level nothing follows.
        if (Application::shared().modalDepth() == 0 || (!ended_ && !stopped())) {
            answer();
        }
    }
}

void DriveSession::handle(const std::string& line, bool cut) {
    const std::uint64_t number = ++requests_;
    pending_.emplace();
    pending_->number = number;
    ordered_json result = no_result();
    std::optional<std::string> error;
    try {
        if (cut) {
            throw RequestError("expected a request of at most " + std::to_string(kMaxRequestBytes) +
                               " bytes");
        }
        const DriveRequest request = DriveRequest::parse(line);
        if (request.id() != nullptr) {
            pending_->id = *request.id();
        }
        result = perform(request);
    } catch (const RequestError& refusal) {
        error = refusal.what();
    } catch (const host::HostError& refusal) {
        error = refusal.what();
    }
    // A request in whose course a dialog ran is answered by now; what is pending then is the one that ended
    // the dialog.
    if (pending_ && pending_->number == number) {
        pending_->result = std::move(result);
        pending_->error = std::move(error);
    }
}

ordered_json DriveSession::perform(const DriveRequest& request) {
    using Act = void (DriveSession::*)(const DriveRequest&);
    constexpr std::array<std::pair<std::string_view, Act>, 9> kActs{{
        {"press", &DriveSession::press},
        {"choose", &DriveSession::choose},
        {"type", &DriveSession::type},
        {"step", &DriveSession::step},
        {"selectRows", &DriveSession::selectRows},
        {"doubleClick", &DriveSession::doubleClick},
        {"mark", &DriveSession::mark},
        {"setting", &DriveSession::setting},
        {"quit", &DriveSession::quit},
    }};
    const std::string& what = request.text("do");
    for (const auto& [word, act] : kActs) {
        if (word == what) {
            (this->*act)(request);
            return no_result();
        }
    }
    if (what == "host") {
        return callHost(request.text("call"));
    }
    if (what == "state") {
        return window_state(frontWindow());
    }
    if (what == "settings") {
        return settings();
    }
    throw RequestError("\"do\": unknown request \"" + what + "\"");
}

ordered_json DriveSession::callHost(const std::string& call) {
    platform::PrintDialogPanel& panel = *host_.panel();
    if (call == "restore") {
        return panel.restoreValuesAndReturnError(nullptr);
    }
    if (call == "willShow") {
        panel.willShow();
        return nullptr;
    }
    if (call == "shouldHide") {
        return panel.shouldHide();
    }
    if (call == "save") {
        return panel.saveValuesAndReturnError(nullptr);
    }
    if (call == "shouldPrint") {
        return panel.shouldPrint();
    }
    if (call == "panelName") {
        return panel.panelName();
    }
    if (call == "panelKind") {
        return panel.panelKind();
    }
    if (call == "supportedPPDOptionKeys") {
        const auto keys = panel.supportedPPDOptionKeys();
        return keys ? ordered_json(*keys) : ordered_json(nullptr);
    }
    throw RequestError("\"call\": unknown call \"" + call + "\"");
}

void DriveSession::press(const DriveRequest& request) {
    auto& button = as<platform::Button>(view(request), "a button or radio");
    took_event(button, button.click());
}

void DriveSession::choose(const DriveRequest& request) {
    auto& popup = as<platform::PopUpButton>(view(request), "a popup");
    std::vector<std::int64_t> path;
    if (const auto menu = request.optionalInteger("menu")) {
        path.push_back(*menu);
    }
    path.push_back(request.integer("item"));
    check_path(popup, path);
    took_event(popup, popup.pick(path));
}

void DriveSession::type(const DriveRequest& request) {
    auto& field = as<platform::TextField>(view(request), kExpectedField);
    if (field.kind() != platform::ViewKind::textField) {
        throw unexpected(field, kExpectedField);
    }
    took_event(field, field.type(request.typed("text")));
}

void DriveSession::step(const DriveRequest& request) {
    auto& stepper = as<platform::Stepper>(view(request), "a stepper");
    took_event(stepper, stepper.step(request.integer("value")));
}

void DriveSession::selectRows(const DriveRequest& request) {
    auto& table = as<platform::TableView>(view(request), "a table");
    const platform::RowSet rows = request.rows("rows");
    if (!rows.empty() && *rows.rbegin() >= table.numberOfRows()) {
        throw RequestError(described(table) + ": no row " + std::to_string(*rows.rbegin()) + ", it has " +
                           std::to_string(table.numberOfRows()) + " rows");
    }
    took_event(table, table.userSelects(rows));
}

void DriveSession::doubleClick(const DriveRequest& request) {
    auto& table = as<platform::TableView>(view(request), "a table");
    took_event(table, table.doubleClick());
}

void DriveSession::mark(const DriveRequest& request) {
    host_.mark(request.text("option"), request.text("choice"));
}

void DriveSession::setting(const DriveRequest& request) {
    const std::string& key = request.text("key");
    auto value = request.setting("value");
    if (key.empty() || key.find('\0') != std::string::npos) {
        throw RequestError("\"key\": expected a text that is not empty and has no U+0000");
    }
    if (value) {
        host_.settings().setValue(key, std::move(*value), false);
    } else {
        host_.settings().remove(key);
    }
}

void DriveSession::quit(const DriveRequest& /*request*/) {
    ended_ = true;
}

ordered_json DriveSession::settings() const {
    ordered_json object = ordered_json::object();
    auto& members = object.get_ref<ordered_json::object_t&>();
    for (const auto& entry : host_.settings().entries()) {
        std::visit(
            [&](const auto& value) {
                members.push_back({entry.key, ordered_json(value)});
            },
            entry.value);
    }
    return object;
}

platform::View& DriveSession::view(const DriveRequest& request) const {
    const std::int32_t tag = request.integer("tag");
    platform::Window& window = frontWindow();
    // 0 is the tag of a view that was given none, so that it names no view.
    platform::View* const found = tag == 0 ? nullptr : window.viewWithTag(tag);
    if (found == nullptr) {
        throw RequestError("no view with the tag " + std::to_string(tag) + " in the window " +
                           std::string(window_word(window.name())));
    }
    if (!found->isVisible()) {
        throw RequestError(described(*found) + ": hidden");
    }
    if (!found->isEnabled()) {
        throw RequestError(described(*found) + ": disabled");
    }
    return *found;
}

platform::Window& DriveSession::frontWindow() const {
    platform::Window* const front = Application::shared().frontWindow();
    return front == nullptr ? host_.window() : *front;
}

void DriveSession::answer() {
    if (!pending_) {
        return;
    }
    const PendingAnswer done = std::move(*pending_);
    pending_.reset();
    ordered_json line;
    line["ok"] = !done.error;
    if (!done.id.is_discarded()) {
        line["id"] = done.id;
    }
    if (done.error) {
        line["error"] = *done.error;
    } else {
        if (!done.result.is_discarded()) {
            line["result"] = done.result;
        }
        line["window"] = window_word(frontWindow().name());
        line["alerts"] = done.alerts;
        line["beeps"] = done.beeps;
    }
    out_ << line.dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n' << std::flush;
    if (!out_) {
        ended_ = true;
    }
}

} // namespace specialpages::cli
