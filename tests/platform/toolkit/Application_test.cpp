#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Window.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace specialpages::platform {
namespace {

Application& app() {
    return Application::shared();
}

Button& add_button(Window& window, View::Action action) {
    const auto button = std::make_shared<Button>();
    window.addSubview(button);
    button->setTargetAction(&window, std::move(action));
    return *button;
}

TEST(Application, RunsAWindowUntilItIsStopped) {
    ScriptedFace face;
    Window window;
    Button& ok = add_button(window, [](View&) { app().stopModal(); });
    face.then([&](Window& front) {
        EXPECT_EQ(&front, &window);
        EXPECT_TRUE(front.isOpen());
        EXPECT_EQ(app().frontWindow(), &window);
        EXPECT_EQ(app().modalDepth(), 1U);
        EXPECT_TRUE(ok.click());
    });
    app().runModalForWindow(window);
    EXPECT_EQ(app().modalDepth(), 0U);
    EXPECT_EQ(app().frontWindow(), nullptr);
}

TEST(Application, LeavesTheWindowOpenOrClosedAsTheProgramLeftIt) {
    ScriptedFace face;
    Window window;
    face.then([](Window&) { app().stopModal(); }).then([](Window& front) {
        front.close();
        app().stopModal();
    });
    app().runModalForWindow(window);
    EXPECT_TRUE(window.isOpen());
    app().runModalForWindow(window);
    EXPECT_FALSE(window.isOpen());
}

TEST(Application, StopModalEndsTheInnermostRunOnly) {
    Window outer;
    Window inner;
    std::string order;
    struct Face : ApplicationFace {
        std::function<void(const std::function<bool()>&)> onRun;
        void runEvents(Window& /*window*/, const std::function<bool()>& stopped) override {
            const auto run = std::exchange(onRun, nullptr);
            run(stopped);
        }
        void showAlert(const Alert& /*alert*/) override {}
        void beep() override {}
    } face;
    ApplicationFace* before = app().setFace(&face);
    face.onRun = [&](const std::function<bool()>& outerStopped) {
        face.onRun = [&](const std::function<bool()>& innerStopped) {
            EXPECT_EQ(app().modalDepth(), 2U);
            EXPECT_EQ(app().frontWindow(), &inner);
            app().stopModal();
            app().stopModal();
            EXPECT_TRUE(innerStopped());
            EXPECT_FALSE(outerStopped());
            EXPECT_EQ(app().frontWindow(), &inner) << "the run ends after the event";
            order += "inner ";
        };
        app().runModalForWindow(inner);
        EXPECT_EQ(app().frontWindow(), &outer);
        EXPECT_FALSE(outerStopped());
        app().stopModal();
        EXPECT_TRUE(outerStopped());
        order += "outer";
    };
    app().runModalForWindow(outer);
    app().setFace(before);
    EXPECT_EQ(order, "inner outer");
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, OnlyTheFrontWindowTakesEvents) {
    ScriptedFace face;
    Window main;
    Window dialog;
    int pressed = 0;
    Button& below = add_button(main, [&](View&) { ++pressed; });
    Button& ok = add_button(dialog, [](View&) { app().stopModal(); });
    EXPECT_FALSE(below.click()) << "no window is in front yet";
    app().setMainWindow(&main);
    EXPECT_TRUE(below.click());
    EXPECT_FALSE(ok.click());
    face.then([&](Window&) {
        EXPECT_FALSE(below.click());
        EXPECT_TRUE(ok.click());
    });
    app().runModalForWindow(dialog);
    EXPECT_TRUE(below.click());
    EXPECT_EQ(pressed, 2);
}

TEST(Application, AWindowThatRunsAlreadyIsNotRunAgain) {
    ScriptedFace face;
    Window outer;
    Window inner;
    face.then([&](Window&) {
            app().runModalForWindow(outer);
            app().runModalForWindow(inner);
            app().stopModal();
        })
        .then([&](Window& front) {
            EXPECT_EQ(&front, &inner);
            app().runModalForWindow(outer);
            app().runModalForWindow(inner);
            EXPECT_EQ(app().modalDepth(), 2U);
            app().stopModal();
        });
    app().runModalForWindow(outer);
    EXPECT_EQ(face.stepsLeft(), 0U);
}

TEST(Application, WithoutAFaceTheRunPressesCancelAndEnds) {
    ASSERT_EQ(app().setFace(nullptr), nullptr);
    Window window;
    int cancelled = 0;
    window.setCancelButton(&add_button(window, [&](View&) {
        ++cancelled;
        EXPECT_EQ(app().frontWindow(), &window);
        window.close();
        app().stopModal();
    }));
    app().runModalForWindow(window);
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, AGivenUpRunEndsWhateverTheCancelButtonDid) {
    Window none;
    app().runModalForWindow(none);
    EXPECT_EQ(app().modalDepth(), 0U);
    EXPECT_TRUE(none.isOpen());

    Window idle;
    idle.setCancelButton(&add_button(idle, nullptr));
    app().runModalForWindow(idle);
    EXPECT_EQ(app().modalDepth(), 0U);

    Window disabled;
    Button& cancel = add_button(disabled, [](View&) { ADD_FAILURE() << "disabled"; });
    cancel.setEnabled(false);
    disabled.setCancelButton(&cancel);
    app().runModalForWindow(disabled);
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, ACancelButtonThatRunsAnotherWindowEndsToo) {
    Window first;
    Window second;
    int presses = 0;
    first.setCancelButton(&add_button(first, [&](View&) {
        ++presses;
        app().runModalForWindow(second);
    }));
    second.setCancelButton(&add_button(second, [&](View&) {
        ++presses;
        app().runModalForWindow(first);
    }));
    app().runModalForWindow(first);
    EXPECT_EQ(presses, 2);
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, AFaceThatReturnsBeforeTheStopGivesTheRunUp) {
    ScriptedFace face;
    Window window;
    int cancelled = 0;
    window.setCancelButton(&add_button(window, [&](View&) { ++cancelled; }));
    face.then([](Window&) {});
    app().runModalForWindow(window);
    EXPECT_EQ(cancelled, 1);
    face.then([](Window&) { app().stopModal(); });
    app().runModalForWindow(window);
    EXPECT_EQ(cancelled, 1) << "a run that was stopped is not cancelled";
}

TEST(Application, StopModalWithoutARunDoesNotStopTheNextOne) {
    ScriptedFace face;
    Window window;
    bool ran = false;
    app().stopModal();
    face.then([&](Window&) {
        ran = true;
        app().stopModal();
    });
    app().runModalForWindow(window);
    EXPECT_TRUE(ran);
}

TEST(Application, ARunMayBeStoppedWhileItsWindowOpens) {
    ScriptedFace face;
    Window window;
    window.addObserver([](View&, ViewChange change) {
        EXPECT_EQ(change, ViewChange::open);
        app().stopModal();
    });
    app().runModalForWindow(window);
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, AWindowThatEndsInItsRunEndsTheRun) {
    ScriptedFace face;
    Window main;
    app().setMainWindow(&main);
    auto window = std::make_unique<Window>();
    window->setCancelButton(&add_button(*window, [](View&) { ADD_FAILURE() << "the window is gone"; }));
    face.then([&](Window&) {
        window.reset();
        EXPECT_EQ(app().frontWindow(), &main);
    });
    app().runModalForWindow(*window);
    EXPECT_EQ(app().modalDepth(), 0U);
}

TEST(Application, ForgetsAMainWindowThatEnds) {
    {
        Window main;
        app().setMainWindow(&main);
        EXPECT_EQ(app().frontWindow(), &main);
    }
    EXPECT_EQ(app().frontWindow(), nullptr);
}

TEST(Application, AlertsAndBeepsGoToTheFace) {
    ScriptedFace face;
    app().NSBeep();
    app().runAlert({"", "Enter a number.", "OK"});
    EXPECT_EQ(face.beeps(), 1);
    ASSERT_EQ(face.alerts().size(), 1U);
    EXPECT_EQ(face.alerts()[0].messageText, "");
    EXPECT_EQ(face.alerts()[0].informativeText, "Enter a number.");
    EXPECT_EQ(face.alerts()[0].buttonTitle, "OK");
}

TEST(Application, AlertsAndBeepsWithoutAFaceAreSilent) {
    ASSERT_EQ(app().setFace(nullptr), nullptr);
    app().NSBeep();
    app().runAlert({"a", "b", "c"});
    EXPECT_EQ(app().modalDepth(), 0U);
}

} // namespace
} // namespace specialpages::platform
