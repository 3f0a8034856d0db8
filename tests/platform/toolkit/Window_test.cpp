#include "ChangeLog.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

template <typename T>
T& add(View& to, std::shared_ptr<T> view) {
    return static_cast<T&>(to.addSubview(std::move(view)));
}

/// A window in front with two fields and a button.
struct Front {
    Front() { Application::shared().setMainWindow(&window); }
    Window window;
    TextField& first = add(window, std::make_shared<TextField>());
    TextField& second = add(window, std::make_shared<TextField>());
    Button& button = add(window, std::make_shared<Button>());
};

TEST(Window, OpensAndClosesOnce) {
    Window window;
    ChangeLog log(window);
    EXPECT_FALSE(window.isOpen());
    window.close();
    EXPECT_EQ(log.take(), Changes{});
    window.open();
    window.open();
    EXPECT_TRUE(window.isOpen());
    EXPECT_EQ(log.take(), Changes{ViewChange::open});
    window.close();
    window.close();
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(log.take(), Changes{ViewChange::open});
}

TEST(Window, AnnouncesItsTitleWhenItChanges) {
    Window window;
    ChangeLog log(window);
    window.setTitle("Covers");
    window.setTitle("Covers");
    EXPECT_EQ(window.title(), "Covers");
    EXPECT_EQ(log.take(), Changes{ViewChange::title});
}

TEST(Window, EscapeAndTheCloseBoxAreItsCancelButton) {
    Front f;
    EXPECT_FALSE(f.window.performCancel()) << "without one they are ignored";
    EXPECT_FALSE(f.window.performDefault());
    int pressed = 0;
    f.button.setTargetAction(&f, [&](View&) { ++pressed; });
    f.window.setCancelButton(&f.button);
    EXPECT_EQ(f.window.cancelButton(), &f.button);
    EXPECT_TRUE(f.window.performCancel());
    EXPECT_EQ(pressed, 1);
    f.window.setDefaultButton(&f.button);
    EXPECT_EQ(f.window.defaultButton(), &f.button);
    EXPECT_TRUE(f.window.performDefault());
    EXPECT_EQ(pressed, 2);
    f.button.setEnabled(false);
    EXPECT_FALSE(f.window.performCancel());
    EXPECT_FALSE(f.window.performDefault());
    f.button.setEnabled(true);
    Application::shared().setMainWindow(nullptr);
    EXPECT_FALSE(f.window.performCancel()) << "the window is not in front";
    EXPECT_EQ(pressed, 2);
}

TEST(Window, GivesTheKeyboardToAViewOfItsOwnOnly) {
    Front f;
    Window other;
    View& foreign = add(other, std::make_shared<View>());
    View alone;
    EXPECT_FALSE(f.window.makeFirstResponder(&foreign));
    EXPECT_FALSE(f.window.makeFirstResponder(&alone));
    EXPECT_EQ(f.window.firstResponder(), nullptr);
    ChangeLog log(f.window);
    EXPECT_TRUE(f.window.makeFirstResponder(&f.button));
    EXPECT_TRUE(f.window.makeFirstResponder(&f.button));
    EXPECT_EQ(f.window.firstResponder(), &f.button);
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
    EXPECT_TRUE(f.window.makeFirstResponder(nullptr));
    EXPECT_EQ(f.window.firstResponder(), nullptr);
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
}

TEST(Window, GivesTheKeyboardToNoDisabledOrHiddenView) {
    Front f;
    ASSERT_TRUE(f.window.makeFirstResponder(&f.first));
    f.second.setEnabled(false);
    EXPECT_FALSE(f.window.makeFirstResponder(&f.second));
    f.button.setHidden(true);
    EXPECT_FALSE(f.window.makeFirstResponder(&f.button));
    EXPECT_EQ(f.window.firstResponder(), &f.first);
}

TEST(Window, LeavingATextFieldEndsItsEditing) {
    Front f;
    int fired = 0;
    f.first.setTargetAction(&f, [&](View&) { ++fired; });
    ASSERT_TRUE(f.first.beginEditing());
    EXPECT_EQ(f.window.firstResponder(), &f.first);
    ASSERT_TRUE(f.first.editText("5"));
    ChangeLog log(f.window);
    EXPECT_TRUE(f.window.makeFirstResponder(&f.button));
    EXPECT_FALSE(f.first.isEditing());
    EXPECT_EQ(f.first.stringValue(), "5");
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
}

TEST(Window, AFieldThatIsLeftGivesTheKeyboardUp) {
    Front f;
    ASSERT_TRUE(f.first.beginEditing());
    ChangeLog log(f.window);
    f.first.endEditing();
    EXPECT_EQ(f.window.firstResponder(), nullptr);
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
}

TEST(Window, EditingAnotherFieldLeavesTheOneBefore) {
    Front f;
    std::string order;
    f.first.setTargetAction(&f, [&](View&) {
        order += "first ";
        EXPECT_FALSE(f.second.isEditing());
    });
    f.second.setTargetAction(&f, [&](View&) { order += "second"; });
    f.first.editText("1");
    f.second.editText("2");
    EXPECT_TRUE(f.second.isEditing());
    EXPECT_FALSE(f.first.isEditing());
    EXPECT_EQ(f.window.firstResponder(), &f.second);
    EXPECT_EQ(order, "first ");
    f.second.endEditing();
    EXPECT_EQ(order, "first second");
}

TEST(Window, TheActionOfTheFieldThatIsLeftMayKeepTheKeyboard) {
    Front f;
    f.first.setTargetAction(&f, [&](View&) { EXPECT_TRUE(f.window.makeFirstResponder(&f.first)); });
    f.first.editText("wrong");
    EXPECT_FALSE(f.second.beginEditing());
    EXPECT_FALSE(f.second.isEditing());
    EXPECT_EQ(f.window.firstResponder(), &f.first);
    EXPECT_FALSE(f.first.isEditing());
}

TEST(Window, TheActionOfTheFieldThatIsLeftMayDisableTheNextOne) {
    Front f;
    f.first.setTargetAction(&f, [&](View&) { f.second.setEnabled(false); });
    f.first.editText("1");
    EXPECT_FALSE(f.second.beginEditing());
    EXPECT_FALSE(f.second.isEditing());
    EXPECT_FALSE(f.second.type("2"));
    EXPECT_EQ(f.second.stringValue(), "");
}

TEST(Window, ClosingLeavesTheKeyboardWhereItIs) {
    Front f;
    f.window.open();
    f.first.setTargetAction(&f, [](View&) { ADD_FAILURE() << "closing is no user's event"; });
    f.first.editText("1");
    f.window.close();
    EXPECT_EQ(f.window.firstResponder(), &f.first);
    EXPECT_TRUE(f.first.isEditing());
}

} // namespace
} // namespace specialpages::platform
