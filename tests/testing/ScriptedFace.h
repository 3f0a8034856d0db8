// A face for tests: it has a queue of steps, and each modal run takes the next one as its user. It fails the
// test when a run finds no step, and when steps are left at its end. A step that does not end its run gives
// it up: the window's Cancel button is pressed.
#pragma once

#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::platform {

/// Installed in the shared application for as long as it lives; the face before comes back then.
class ScriptedFace : public ApplicationFace {
  public:
    using Step = std::function<void(Window& window)>;

    ScriptedFace() : before_(Application::shared().setFace(this)) {}
    ScriptedFace(const ScriptedFace&) = delete;
    ScriptedFace& operator=(const ScriptedFace&) = delete;
    ~ScriptedFace() override {
        Application::shared().setFace(before_);
        if (!steps_.empty()) {
            ADD_FAILURE() << steps_.size() << " steps were left without a modal run";
        }
    }

    /// What the user does in the next modal run that has no step yet. Runs that begin inside a step take the
    /// steps after it.
    ScriptedFace& then(Step step) {
        steps_.push_back(std::move(step));
        return *this;
    }
    std::size_t stepsLeft() const { return steps_.size(); }

    const std::vector<Alert>& alerts() const { return alerts_; }
    int beeps() const { return beeps_; }

    void runEvents(Window& window, const std::function<bool()>& /*stopped*/) override {
        if (steps_.empty()) {
            ADD_FAILURE() << "no step for the modal run of " << window.name() << " \"" << window.title()
                          << '"';
            return;
        }
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        step(window);
    }
    void showAlert(const Alert& alert) override { alerts_.push_back(alert); }
    void beep() override { ++beeps_; }

  private:
    ApplicationFace* before_;
    std::deque<Step> steps_;
    std::vector<Alert> alerts_;
    int beeps_ = 0;
};

} // namespace specialpages::platform
