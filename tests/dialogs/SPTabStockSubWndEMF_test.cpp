// The small tab stock window, opened by a type of tab stock in the covers and inserts dialogs.
#include "dialogs/SPTabStockSubWndEMF.h"
#include "dialogs/covers_fixture.h"
#include "dialogs/inserts_fixture.h"
#include "dialogs/tab_stock_tables.h"
#include "platform/foundation/comma_locale.h"
#include "platform/toolkit/Stepper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Stepper;
using platform::TextField;
using platform::ViewKind;
using platform::Window;

constexpr ControlTag kNumber = SPNumInSequenceSubEditTextID;

std::string shown(Window& window, ControlTag tag) {
    return dynamic_cast<TextField&>(*window.viewWithTag(tag)).shownText();
}
bool enter(Window& window, const std::string& text) {
    return dynamic_cast<TextField&>(*window.viewWithTag(kNumber)).type(text);
}
void press(Window& window, ControlTag tag) {
    EXPECT_TRUE(dynamic_cast<platform::Button&>(*window.viewWithTag(tag)).click()) << tag;
}
Stepper& arrows(Window& window) {
    return dynamic_cast<Stepper&>(*window.viewWithTag(SPNumInSequenceSubLittleArrowID));
}

class TabStockSubTest : public CoversDialogTest {
  protected:
    SPTabStockSubWndEMF& tabStock() {
        return dynamic_cast<SPTabStockSubWndEMF&>(*pane->getTabStockSubWndPtr());
    }
    /// Picks tab stock for the front cover and then does what the user does in the window behind it.
    void pickTabStock(Window& covers, const std::function<void(Window&)>& user) {
        option(covers, CoverOption::frontOnly);
        face.then(user);
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kType, "TabbedPaper2"));
    }
    void withTabStock(const std::function<void(Window&)>& user) {
        add([&](Window& covers) {
            pickTabStock(covers, user);
            cancel(covers);
        });
    }
};

TEST_F(TabStockSubTest, OpensOnTheDialogsValue) {
    open();
    withTabStock([&](Window& window) {
        EXPECT_EQ(window.name(), "spTabStockSubWindow");
        EXPECT_EQ(window.title(), "Tabs in sequence");
        EXPECT_EQ(shown(window, SPNumInSequenceSubStaticTextID), "Tabs in sequence:");
        EXPECT_EQ(shown(window, kNumber), "3");
        EXPECT_EQ(arrows(window).intValue(), 3);
        press(window, SPTabMarginSubCancelButtonID);
    });
    EXPECT_FALSE(tabStock().IsActived());
}

TEST_F(TabStockSubTest, OKMovesTheNumberToTheDialogWhoseOwnOKMovesItToThePane) {
    open();
    add([&](Window& covers) {
        pickTabStock(covers, [&](Window& window) {
            EXPECT_TRUE(enter(window, "5"));
            EXPECT_EQ(dialog->getTabStockValue(), 3);
            press(window, SPTabMarginSubOKButtonID);
            EXPECT_FALSE(window.isOpen());
        });
        EXPECT_EQ(dialog->getTabStockValue(), 5);
        EXPECT_EQ(pane->getTabStockValue(), 3);
        ok(covers);
    });
    EXPECT_EQ(pane->getTabStockValue(), 5);
    ASSERT_EQ(records().size(), 1U);
    EXPECT_EQ(records()[0].text(RecordKey::pagetype), "37");
    withTabStock([&](Window& window) {
        EXPECT_EQ(shown(window, kNumber), "5");
        EXPECT_TRUE(enter(window, "6"));
        press(window, SPTabMarginSubCancelButtonID);
        EXPECT_EQ(dialog->getTabStockValue(), 5);
    });
}

TEST_F(TabStockSubTest, RefusesANumberOutsideTheRange) {
    open();
    withTabStock([&](Window& window) {
        EXPECT_TRUE(enter(window, "255"));
        press(window, SPTabMarginSubOKButtonID);
        EXPECT_TRUE(window.isOpen());
        ASSERT_EQ(face.alerts().size(), 1U);
        EXPECT_EQ(face.alerts()[0].informativeText,
                  "This number of tabs can't be used. Enter a whole number from 1 to 254.");
        EXPECT_EQ(window.firstResponder(), window.viewWithTag(kNumber));
        EXPECT_TRUE(enter(window, "254"));
        EXPECT_TRUE(arrows(window).step(255));
        EXPECT_EQ(face.beeps(), 1);
        press(window, SPTabMarginSubOKButtonID);
        EXPECT_EQ(dialog->getTabStockValue(), 254);
    });
}

TEST_F(TabStockSubTest, DefaultsShowThreeAndMoveNothing) {
    open();
    pane->setTabStockValue(9);
    withTabStock([&](Window& window) {
        EXPECT_EQ(shown(window, kNumber), "9");
        press(window, SPTabMarginSubDefaultButtonID);
        EXPECT_EQ(shown(window, kNumber), "3");
        EXPECT_EQ(arrows(window).intValue(), 3);
        EXPECT_EQ(dialog->getTabStockValue(), 9);
        press(window, SPTabMarginSubCancelButtonID);
    });
}

TEST_F(TabStockSubTest, ACoverThatFallsBackToTabStockOpensNothing) {
    open();
    // All types in front of tab stock are disabled by hand: the menu then takes tab stock by itself.
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        auto& menu = *dialog->getSPCoverWndFrontSelectPaperListPtr();
        menu.doControlAction(4001 + 36, MenuActionSender::fallback);
        EXPECT_EQ(menu.getSelectedMenuItemIndexByType(4), 36);
        cancel(covers);
    });
}

TEST_F(TabStockSubTest, IsTheSameUnderAGermanLocale) {
    open();
    const platform::testing::CommaLocale comma;
    pane->setTabStockValue(250);
    withTabStock([&](Window& window) {
        EXPECT_TRUE(arrows(window).step(251));
        EXPECT_EQ(shown(window, kNumber), "251");
        EXPECT_TRUE(enter(window, "12"));
        press(window, SPTabMarginSubOKButtonID);
        EXPECT_EQ(dialog->getTabStockValue(), 12);
    });
}

TEST_F(TabStockSubTest, LooksAsKept) {
    open();
    withTabStock([&](Window& window) {
        expect_picture(text_picture(window), "dialogs/golden/tab-stock-sub.txt");
        press(window, SPTabMarginSubCancelButtonID);
    });
}

TEST_F(TabStockSubTest, EveryTagHasItsViewAndControlsStandInTheirOrder) {
    open();
    const std::vector<std::pair<ControlTag, ViewKind>> views{
        {601, ViewKind::staticText}, {611, ViewKind::textField}, {612, ViewKind::stepper},
        {651, ViewKind::button},     {652, ViewKind::button},    {653, ViewKind::button},
        {654, ViewKind::button}};
    const auto& controls = tabStock().getCtrlGroupArrayRef();
    ASSERT_EQ(controls.size(), views.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
        EXPECT_EQ(controls[i]->GetControlPtr()->tag(), views[i].first);
        EXPECT_EQ(controls[i]->GetControlPtr()->kind(), views[i].second) << views[i].first;
    }
    const Window& window = *tabStock().window();
    EXPECT_EQ(window.defaultButton(), window.viewWithTag(SPTabMarginSubOKButtonID));
    EXPECT_EQ(window.cancelButton(), window.viewWithTag(SPTabMarginSubCancelButtonID));
}

TEST_F(TabStockSubTest, WithoutAWindowNothingOpens) {
    SPTabStockSubWndEMF lone;
    lone.CreatePanel(nullptr, "Number In Sequence Text");
    EXPECT_EQ(lone.ActivateWindow(), 0);
}

class TabStockInserts : public InsertsDialogTest {};

TEST_F(TabStockInserts, TheInsertsDialogKeepsANumberOfItsOwnUntilOK) {
    open();
    for (const bool confirmed : {false, true}) {
        add([&](Window& inserts) {
            EXPECT_TRUE(dynamic_cast<TextField&>(*inserts.viewWithTag(3207)).type("3"));
            face.then([&](Window& window) {
                EXPECT_EQ(window.name(), "spTabStockSubWindow");
                EXPECT_EQ(shown(window, kNumber), "3");
                EXPECT_TRUE(enter(window, "8"));
                press(window, SPTabMarginSubOKButtonID);
            });
            EXPECT_TRUE(popup(inserts, 3210).pick(std::vector<std::int64_t>{kType, 37}));
            EXPECT_EQ(dialog->getTabStockValue(), 8);
            click(inserts, confirmed ? 3216 : 3215);
        });
        EXPECT_EQ(pane->getTabStockValue(), confirmed ? 8 : 3);
    }
}

} // namespace
} // namespace specialpages::test
