#include "ChangeLog.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"

#include <gtest/gtest.h>

#include <memory>

namespace specialpages::platform {
namespace {

TEST(View, BeginsEnabledShownUntaggedAndAlone) {
    View view;
    EXPECT_EQ(view.kind(), ViewKind::view);
    EXPECT_EQ(view.name(), "");
    EXPECT_EQ(view.tag(), 0);
    EXPECT_TRUE(view.isEnabled());
    EXPECT_FALSE(view.isHidden());
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(view.toolTip(), "");
    EXPECT_FALSE(view.hasAction());
    EXPECT_EQ(view.superview(), nullptr);
    EXPECT_EQ(view.window(), nullptr);
    EXPECT_TRUE(view.acceptsEvents());
}

TEST(View, AnnouncesEachChangeOnceAndNoneWithoutAChange) {
    View view;
    ChangeLog log(view);
    view.setTag(7);
    view.setEnabled(false);
    view.setHidden(true);
    view.setToolTip("tip");
    EXPECT_EQ(log.take(),
              (Changes{ViewChange::tag, ViewChange::enabled, ViewChange::hidden, ViewChange::toolTip}));
    view.setTag(7);
    view.setEnabled(false);
    view.setHidden(true);
    view.setToolTip("tip");
    EXPECT_EQ(log.take(), Changes{});
    EXPECT_EQ(view.tag(), 7);
    EXPECT_FALSE(view.isEnabled());
    EXPECT_TRUE(view.isHidden());
    EXPECT_EQ(view.toolTip(), "tip");
}

TEST(View, AnnouncesDisplayAlways) {
    View view;
    ChangeLog log(view);
    view.display();
    view.display();
    EXPECT_EQ(log.take(), (Changes{ViewChange::display, ViewChange::display}));
}

TEST(View, TellsTheObserverWhichViewChangedAfterTheChange) {
    View view;
    std::int32_t seen = 0;
    view.addObserver([&](View& changed, ViewChange /*change*/) {
        EXPECT_EQ(&changed, &view);
        seen = changed.tag();
    });
    view.setTag(9);
    EXPECT_EQ(seen, 9);
}

TEST(View, TellsAllObserversInTheOrderOfTheirComing) {
    View view;
    std::string told;
    view.addObserver([&](View&, ViewChange) { told += 'a'; });
    view.addObserver([&](View&, ViewChange) { told += 'b'; });
    view.display();
    EXPECT_EQ(told, "ab");
}

TEST(View, TellsARemovedObserverNoMore) {
    View view;
    int told = 0;
    const int number = view.addObserver([&](View&, ViewChange) { ++told; });
    view.display();
    view.removeObserver(number);
    view.removeObserver(number);
    view.removeObserver(12345);
    view.display();
    EXPECT_EQ(told, 1);
}

TEST(View, LetsAnObserverRemoveItselfWhileItIsTold) {
    auto view = std::make_unique<View>();
    std::string told;
    int number = 0;
    number = view->addObserver(
        [&, text = std::string("a captured text longer than a small one")](View& sender, ViewChange) {
            sender.removeObserver(number);
            told += text.substr(0, 1);
        });
    view->addObserver([&](View&, ViewChange) { told += 'b'; });
    view->display();
    view->display();
    EXPECT_EQ(told, "abb");
    view.reset();
}

TEST(View, DoesNotTellAnObserverThatAnEarlierOneRemoved) {
    View view;
    std::string told;
    int second = 0;
    view.addObserver([&](View& sender, ViewChange) {
        told += 'a';
        sender.removeObserver(second);
    });
    second = view.addObserver([&](View&, ViewChange) { told += 'b'; });
    view.addObserver([&](View&, ViewChange) { told += 'c'; });
    view.display();
    EXPECT_EQ(told, "ac");
}

TEST(View, TellsAnObserverThatWasAddedMeanwhileFromTheNextChangeOn) {
    View view;
    std::string told;
    bool added = false;
    view.addObserver([&](View& sender, ViewChange) {
        told += 'a';
        if (!std::exchange(added, true)) {
            sender.addObserver([&](View&, ViewChange) { told += 'b'; });
        }
    });
    view.display();
    EXPECT_EQ(told, "a");
    view.display();
    EXPECT_EQ(told, "aab");
}

TEST(View, ToleratesAnEmptyObserver) {
    View view;
    view.addObserver(nullptr);
    ChangeLog log(view);
    view.setTag(1);
    EXPECT_EQ(log.take(), Changes{ViewChange::tag});
}

TEST(View, ANestedChangeIsAnnouncedOnceToo) {
    View view;
    view.addObserver([](View& sender, ViewChange change) {
        if (change == ViewChange::tag) {
            sender.setHidden(true);
        }
    });
    ChangeLog log(view);
    view.setTag(1);
    // The later observer hears of the inner change first.
    EXPECT_EQ(log.take(), (Changes{ViewChange::hidden, ViewChange::tag}));
}

TEST(View, RunsItsActionWithItselfAsTheSender) {
    View view;
    const View* sender = nullptr;
    int target = 0;
    view.setTargetAction(&target, [&](View& from) { sender = &from; });
    EXPECT_EQ(view.target(), &target);
    EXPECT_TRUE(view.hasAction());
    view.sendAction();
    EXPECT_EQ(sender, &view);
}

TEST(View, ANullActionRemovesTheTargetToo) {
    View view;
    int target = 0;
    view.setTargetAction(&target, [](View&) { ADD_FAILURE() << "removed"; });
    view.setTargetAction(&target, nullptr);
    EXPECT_EQ(view.target(), nullptr);
    EXPECT_FALSE(view.hasAction());
    view.sendAction();
}

TEST(View, AnActionMayReplaceItselfWhileItRuns) {
    View view;
    std::string ran;
    view.setTargetAction(&view, [&, text = std::string("first, longer than a small text")](View& sender) {
        sender.setTargetAction(nullptr, [&](View&) { ran += "second"; });
        ran += text.substr(0, 6);
    });
    view.sendAction();
    view.sendAction();
    EXPECT_EQ(ran, "first,second");
}

TEST(View, SettingValuesByProgramFiresNoAction) {
    View view;
    view.setTargetAction(&view, [](View&) { ADD_FAILURE() << "fired"; });
    view.setTag(3);
    view.setEnabled(false);
    view.setHidden(true);
    view.setToolTip("x");
    view.display();
}

TEST(View, IsInvisibleUnderAHiddenSuperview) {
    View top;
    View& middle = top.addSubview(std::make_shared<View>());
    View& leaf = middle.addSubview(std::make_shared<View>());
    EXPECT_TRUE(leaf.isVisible());
    top.setHidden(true);
    EXPECT_FALSE(leaf.isVisible());
    EXPECT_FALSE(leaf.isHidden());
    EXPECT_FALSE(leaf.acceptsEvents());
    top.setHidden(false);
    EXPECT_TRUE(leaf.acceptsEvents());
    leaf.setHidden(true);
    EXPECT_FALSE(leaf.isVisible());
    EXPECT_TRUE(middle.isVisible());
}

TEST(View, TakesNoEventsWhenDisabledWhateverItsSuperviewIs) {
    View top;
    View& leaf = top.addSubview(std::make_shared<View>());
    top.setEnabled(false);
    EXPECT_TRUE(leaf.acceptsEvents());
    leaf.setEnabled(false);
    EXPECT_FALSE(leaf.acceptsEvents());
}

TEST(View, FindsTheFirstViewWithATagDepthFirst) {
    View top;
    top.setTag(1);
    View& a = top.addSubview(std::make_shared<View>());
    View& b = top.addSubview(std::make_shared<View>());
    View& deep = a.addSubview(std::make_shared<View>());
    deep.setTag(5);
    b.setTag(5);
    EXPECT_EQ(top.viewWithTag(1), &top);
    EXPECT_EQ(top.viewWithTag(5), &deep);
    EXPECT_EQ(top.viewWithTag(0), &a);
    EXPECT_EQ(top.viewWithTag(6), nullptr);
    EXPECT_EQ(b.viewWithTag(1), nullptr);
}

TEST(View, DoesNotLookForATagInWindowsBelow) {
    View top;
    View& window = top.addSubview(std::make_shared<Window>());
    View& inside = window.addSubview(std::make_shared<View>());
    window.setTag(3);
    inside.setTag(4);
    EXPECT_EQ(top.viewWithTag(3), nullptr);
    EXPECT_EQ(top.viewWithTag(4), nullptr);
    EXPECT_EQ(window.viewWithTag(3), &window);
    EXPECT_EQ(window.viewWithTag(4), &inside);
}

TEST(View, KnowsItsSuperviewAndWindow) {
    Window window;
    View& middle = window.addSubview(std::make_shared<View>());
    View& leaf = middle.addSubview(std::make_shared<View>());
    EXPECT_EQ(leaf.superview(), &middle);
    EXPECT_EQ(leaf.window(), &window);
    EXPECT_EQ(window.window(), &window);
    ASSERT_EQ(middle.subviews().size(), 1U);
    EXPECT_EQ(middle.subviews()[0].get(), &leaf);
}

TEST(View, MovesASubviewFromItsFormerSuperview) {
    View from;
    View to;
    const auto view = std::make_shared<View>();
    from.addSubview(view);
    EXPECT_EQ(&to.addSubview(view), view.get());
    EXPECT_TRUE(from.subviews().empty());
    EXPECT_EQ(view->superview(), &to);
    to.addSubview(view);
    EXPECT_EQ(to.subviews().size(), 1U);
}

TEST(View, MovingTheFirstResponderOutOfItsWindowLeavesIt) {
    Window window;
    Application::shared().setMainWindow(&window);
    View other;
    const auto box = std::make_shared<View>();
    window.addSubview(box);
    const auto field = std::make_shared<TextField>();
    box->addSubview(field);
    ASSERT_TRUE(field->beginEditing());
    ASSERT_EQ(window.firstResponder(), field.get());
    other.addSubview(box);
    EXPECT_EQ(window.firstResponder(), nullptr);
    EXPECT_FALSE(field->isEditing());
}

TEST(View, NeverComesToStandInItself) {
    const auto top = std::make_shared<View>();
    const auto below = std::make_shared<View>();
    top->addSubview(below);
    below->addSubview(top);
    EXPECT_EQ(top->superview(), nullptr);
    EXPECT_TRUE(below->subviews().empty());
    top->addSubview(top);
    EXPECT_EQ(top->superview(), nullptr);
    EXPECT_EQ(top->subviews().size(), 1U);
}

TEST(View, ASubviewThatOutlivesItsSuperviewStandsAlone) {
    const auto leaf = std::make_shared<View>();
    {
        Window window;
        window.addSubview(leaf);
        ASSERT_EQ(leaf->window(), &window);
    }
    EXPECT_EQ(leaf->superview(), nullptr);
    EXPECT_EQ(leaf->window(), nullptr);
    EXPECT_TRUE(leaf->isVisible());
}

} // namespace
} // namespace specialpages::platform
