#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/text_fixtures.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::TextColor;
using platform::TextField;
using platform::ViewKind;
using test::TaggedView;

constexpr ScrollViewIniData kText{"", "All pages"};

TEST(ScrollText, GivesItsViewTheTag) {
    TextField view(ViewKind::scrollText);
    SPScrollViewCtrlEMF control;
    control.CreateControl(&view, 203, &kText);
    EXPECT_EQ(view.tag(), 203);
    EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
}

TEST(ScrollText, ShowsTheTextOfItsTable) {
    TextField view(ViewKind::scrollText);
    SPScrollViewCtrlEMF control;
    control.CreateControl(&view, 203, &kText);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_EQ(view.stringValue(), "All pages");
    control.CreateControl(&view, 203, nullptr);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    EXPECT_EQ(view.stringValue(), "All pages") << "without a table it stays";
}

TEST(ScrollText, CountsAndShowsByItsColourOnlyWhetherItIsEnabled) {
    TextField view(ViewKind::scrollText);
    SPScrollViewCtrlEMF control;
    control.CreateControl(&view, 203, &kText);
    const auto step = [&](void (BaseControlEMFSpecialPages::*operation)(), std::int32_t count,
                          TextColor color) {
        (control.*operation)();
        EXPECT_EQ(control.constrainCount(), count);
        EXPECT_EQ(view.textColor(), color);
        EXPECT_TRUE(view.isEnabled()) << "it can be scrolled all the same";
    };
    using Base = BaseControlEMFSpecialPages;
    step(&Base::Disable, 1, TextColor::disabledControlTextColor);
    step(&Base::Disable, 2, TextColor::disabledControlTextColor);
    step(&Base::Enable, 1, TextColor::disabledControlTextColor);
    step(&Base::Enable, 0, TextColor::controlTextColor);
    step(&Base::Enable, -1, TextColor::controlTextColor);
    step(&Base::Disable, 0, TextColor::controlTextColor);
    step(&Base::Disable, 1, TextColor::disabledControlTextColor);
    control.ResetStatus();
    EXPECT_EQ(control.constrainCount(), 0);
    EXPECT_EQ(view.textColor(), TextColor::controlTextColor);
}

TEST(ScrollText, HasNoAction) {
    TextField view(ViewKind::scrollText);
    SPScrollViewCtrlEMF control;
    control.CreateControl(&view, 203, &kText);
    control.setTargetandAction();
    EXPECT_FALSE(view.hasAction());
}

TEST(ScrollText, WithoutATextViewNothingHappens) {
    TaggedView noText(1);
    SPScrollViewCtrlEMF control;
    control.CreateControl(&noText, 5, &kText);
    EXPECT_EQ(noText.tag(), 5);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    control.CreateControl(nullptr, 5, &kText);
    EXPECT_TRUE(control.SetDefaultValueToUI());
    control.Disable();
    EXPECT_EQ(control.constrainCount(), 1);
}

} // namespace
} // namespace specialpages
