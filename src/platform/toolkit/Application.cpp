#include "platform/toolkit/Application.h"

#include "platform/toolkit/Window.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace specialpages::platform {

ApplicationFace::~ApplicationFace() = default;

Application& Application::shared() {
    // Never destroyed: windows of static storage may end after it would have.
    static auto* const application = new Application;
    return *application;
}

bool Application::isRunning(const Window& window) const {
    return std::ranges::find(runs_, &window, &Run::window) != runs_.end();
}

void Application::runModalForWindow(Window& window) {
    if (isRunning(window)) {
        return;
    }
    const std::size_t depth = runs_.size();
    runs_.push_back({&window, false});
    window.open();
    const auto stopped = [this, depth] {
        return runs_[depth].stopped;
    };
    if (face_ != nullptr && !stopped()) {
        face_->runEvents(window, stopped);
    }
    if (!stopped()) {
        window.performCancel();
    }
    runs_.resize(depth);
}

void Application::stopModal() {
    if (!runs_.empty()) {
        runs_.back().stopped = true;
    }
}

Window* Application::frontWindow() const {
    for (const Run& run : std::views::reverse(runs_)) {
        if (run.window != nullptr) {
            return run.window;
        }
    }
    return mainWindow_;
}

void Application::forget(const Window& window) {
    if (mainWindow_ == &window) {
        mainWindow_ = nullptr;
    }
    for (Run& run : runs_) {
        if (run.window == &window) {
            run = {nullptr, true};
        }
    }
}

void Application::NSBeep() {
    if (face_ != nullptr) {
        face_->beep();
    }
}

void Application::runAlert(const Alert& alert) {
    if (face_ != nullptr) {
        face_->showAlert(alert);
    }
}

ApplicationFace* Application::setFace(ApplicationFace* face) {
    return std::exchange(face_, face);
}

} // namespace specialpages::platform
