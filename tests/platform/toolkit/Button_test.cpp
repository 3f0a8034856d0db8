#include "ChangeLog.h"
#include "platform/toolkit/Button.h"

#include <gtest/gtest.h>

namespace specialpages::platform {
namespace {

TEST(Button, AClickFiresTheActionOnce) {
    Button button;
    int fired = 0;
    button.setTargetAction(&button, [&](View& sender) {
        EXPECT_EQ(&sender, &button);
        ++fired;
    });
    EXPECT_TRUE(button.click());
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(button.intValue(), 0);
}

TEST(Button, AClickWithoutAnActionIsTaken) {
    Button button;
    EXPECT_TRUE(button.click());
}

TEST(Button, NothingHappensWhenItTakesNoEvents) {
    Button radio(ViewKind::radio);
    radio.setTargetAction(&radio, [](View&) { ADD_FAILURE() << "fired"; });
    radio.setEnabled(false);
    EXPECT_FALSE(radio.click());
    radio.setEnabled(true);
    radio.setHidden(true);
    EXPECT_FALSE(radio.click());
    EXPECT_EQ(radio.intValue(), 0);
}

TEST(Button, ARadioButtonGoesOnBeforeItsActionFires) {
    Button radio(ViewKind::radio);
    int seen = -1;
    radio.setTargetAction(&radio, [&](View&) { seen = radio.intValue(); });
    ChangeLog log(radio);
    EXPECT_TRUE(radio.click());
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
    seen = -1;
    EXPECT_TRUE(radio.click());
    EXPECT_EQ(seen, 1) << "the action fires though the button is on already";
    EXPECT_EQ(log.take(), Changes{});
}

TEST(Button, ARadioButtonHoldsZeroOrOne) {
    Button radio(ViewKind::radio);
    ChangeLog log(radio);
    radio.setIntValue(-5);
    EXPECT_EQ(radio.intValue(), 1);
    radio.setIntValue(7);
    EXPECT_EQ(radio.intValue(), 1);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
    radio.setIntValue(0);
    EXPECT_EQ(radio.intValue(), 0);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
}

TEST(Button, APushButtonHoldsAnyNumber) {
    Button button;
    button.setIntValue(-5);
    EXPECT_EQ(button.intValue(), -5);
}

TEST(Button, AValueSetByProgramFiresNoAction) {
    Button radio(ViewKind::radio);
    radio.setTargetAction(&radio, [](View&) { ADD_FAILURE() << "fired"; });
    radio.setIntValue(1);
    radio.setTitle("Front");
}

TEST(Button, ItsTitleIsAnnouncedWhenItChanges) {
    Button button;
    ChangeLog log(button);
    button.setTitle("OK");
    button.setTitle("OK");
    EXPECT_EQ(button.title(), "OK");
    EXPECT_EQ(log.take(), Changes{ViewChange::title});
}

} // namespace
} // namespace specialpages::platform
