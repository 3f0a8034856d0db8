#include "testing/ScriptedFace.h"

#include <gtest/gtest-spi.h>

#include <memory>

namespace specialpages::platform {
namespace {

TEST(ScriptedFace, InstallsItselfAndPutsTheFaceBeforeBack) {
    ScriptedFace outer;
    {
        ScriptedFace inner;
        Application::shared().NSBeep();
        EXPECT_EQ(inner.beeps(), 1);
    }
    Application::shared().NSBeep();
    EXPECT_EQ(outer.beeps(), 1);
}

TEST(ScriptedFace, EachRunTakesTheNextStep) {
    ScriptedFace face;
    Window first;
    Window second;
    std::string order;
    face.then([&](Window& window) {
            EXPECT_EQ(&window, &first);
            order += "a(";
            Application::shared().runModalForWindow(second);
            order += ")";
            Application::shared().stopModal();
        })
        .then([&](Window& window) {
            EXPECT_EQ(&window, &second);
            order += "b";
            Application::shared().stopModal();
        })
        .then([&](Window& window) {
            EXPECT_EQ(&window, &second);
            order += "c";
            Application::shared().stopModal();
        });
    EXPECT_EQ(face.stepsLeft(), 3U);
    Application::shared().runModalForWindow(first);
    EXPECT_EQ(face.stepsLeft(), 1U);
    Application::shared().runModalForWindow(second);
    EXPECT_EQ(order, "a(b)c");
}

TEST(ScriptedFace, FailsTheTestForARunWithoutAStep) {
    static Window window;
    window.setTitle("Covers");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedFace face;
            Application::shared().runModalForWindow(window);
        },
        "no step for the modal run of  \"Covers\"");
    EXPECT_EQ(Application::shared().modalDepth(), 0U);
}

TEST(ScriptedFace, FailsTheTestForStepsThatAreLeft) {
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedFace face;
            face.then([](Window&) {}).then([](Window&) {});
        },
        "2 steps were left without a modal run");
}

} // namespace
} // namespace specialpages::platform
