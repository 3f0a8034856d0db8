// The large tab stock window, opened by a type of tab stock in the exceptions dialog.
#include "dialogs/SPTabStockTextEditCtrlEMF.h"
#include "dialogs/SPTabStockWndEMF.h"
#include "dialogs/exceptions_fixture.h"
#include "dialogs/tab_stock_tables.h"
#include "paper/advanced_tags.h"
#include "platform/foundation/comma_locale.h"
#include "platform/toolkit/Stepper.h"
#include "testing/text_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>

namespace specialpages::test {
namespace {

using platform::Stepper;
using platform::TextField;
using platform::ViewKind;
using platform::Window;
using ::testing::ElementsAre;

constexpr ControlTag kNumber = SPNumInSequenceEditTextID;
constexpr ControlTag kMM = SPTabMarginMMEditTextID;
constexpr ControlTag kInch = SPTabMarginInchesEditTextID;
/// "Tab Stock 1", by its place in the sample printer's PPD.
constexpr std::int32_t kTabStock = 36;

const std::string kNumberMessage = "This number of tabs can't be used. Enter a whole number from 1 to 254.";
const std::string kMMMessage =
    "This tab shift can't be used. Enter a shift from 0 to 15.0 mm, with at most one decimal.";
const std::string kInchMessage =
    "This tab shift can't be used. Enter a shift from 0 to 0.59 inches, whole or with two decimals.";

class TabStockTest : public ExceptionsDialogTest {
  protected:
    using Visitor = std::function<void(Window& tabs)>;

    SPTabStockWndEMF& tabStock() { return dynamic_cast<SPTabStockWndEMF&>(*pane->getTabStockWndPtr()); }

    /// Picks tab stock in the open exceptions dialog once for each user of the window behind it.
    void pickTabStock(User& exceptions, std::initializer_list<Visitor> users) {
        for (const Visitor& user : users) {
            face.then(user);
            EXPECT_TRUE(exceptions.paper(kTypeMenu, kTabStock));
        }
    }
    /// The same in a dialog that is cancelled.
    void withTabStock(std::initializer_list<Visitor> users) {
        add([&](User& user) {
            pickTabStock(user, users);
            user.cancel();
        });
    }
    /// The same with other values in the dialog.
    void withValues(std::int32_t number, std::int32_t item, std::int32_t margin,
                    std::initializer_list<Visitor> users) {
        add([&](User& user) {
            dialog->setTabStockValue(number);
            dialog->setTabMarginListValue(item);
            dialog->setTabMarginValue(margin);
            pickTabStock(user, users);
            user.cancel();
        });
    }

    /// Number, item and margin of the dialog, and of the pane.
    std::vector<std::int32_t> kept() const {
        return {dialog->getTabStockValue(), dialog->getTabMarginListValue(), dialog->getTabMarginValue()};
    }
    std::vector<std::int32_t> ofThePane() const {
        return {pane->getTabStockValue(), pane->getTabMarginListValue(), pane->getTabMarginValue()};
    }

    static bool enter(Window& window, ControlTag tag, const std::string& text) {
        return dynamic_cast<TextField&>(*window.viewWithTag(tag)).type(text);
    }
    static void put(Window& window, ControlTag tag, const std::string& text) {
        dynamic_cast<TextField&>(*window.viewWithTag(tag)).setStringValue(text);
    }
    static std::string text(Window& window, ControlTag tag) {
        return dynamic_cast<TextField&>(*window.viewWithTag(tag)).shownText();
    }
    static Stepper& stepper(Window& window, ControlTag tag) {
        return dynamic_cast<Stepper&>(*window.viewWithTag(tag));
    }
    static void click(Window& window, ControlTag tag) {
        EXPECT_TRUE(dynamic_cast<platform::Button&>(*window.viewWithTag(tag)).click()) << tag;
    }
    static void ok(Window& window) { click(window, SPTabMarginOKButtonID); }
    static void cancel(Window& window) { click(window, SPTabMarginCancelButtonID); }
    static void defaults(Window& window) { click(window, SPTabMarginDefaultButtonID); }
    static void inches(Window& window) { click(window, SPTabMarginInchesRadioButtonID); }
    static void millimetres(Window& window) { click(window, SPTabMarginMMRadioButtonID); }
    static void choose(Window& window, TabMarginItem item) {
        auto& list = dynamic_cast<platform::PopUpButton&>(*window.viewWithTag(SPTabMarginListCtrlID));
        EXPECT_TRUE(list.pick(std::vector<std::int64_t>{item - 1}));
    }
    /// Number, margin in millimetres, margin in inches.
    static Texts fields(Window& window) {
        return {text(window, kNumber), text(window, kMM), text(window, kInch)};
    }
    static std::vector<std::int32_t> steppers(Window& window) {
        return {stepper(window, SPNumInSequenceLittleArrowID).intValue(),
                stepper(window, SPTabMarginMMLittleArrowID).intValue(),
                stepper(window, SPTabMarginInchesLittleArrowID).intValue()};
    }
    static void expectUnitShown(Window& window, bool inInches) {
        for (const ControlTag tag : SPtabMarginMMHideCtrlArray) {
            EXPECT_EQ(window.viewWithTag(tag)->isHidden(), inInches) << tag;
        }
        for (const ControlTag tag : SPtabMargininchesHideCtrlArray) {
            EXPECT_EQ(window.viewWithTag(tag)->isHidden(), !inInches) << tag;
        }
        const auto isOn = [&](ControlTag tag) {
            return dynamic_cast<platform::Button&>(*window.viewWithTag(tag)).intValue() == 1;
        };
        EXPECT_EQ(isOn(SPTabMarginInchesRadioButtonID), inInches);
        EXPECT_EQ(isOn(SPTabMarginMMRadioButtonID), !inInches);
    }
    static void expectMarginEnabled(Window& window, bool enabled) {
        for (const ControlTag tag : spTabMarginListConstrainCtrlArray) {
            EXPECT_EQ(window.viewWithTag(tag)->isEnabled(), enabled) << tag;
        }
    }
    /// OK is refused with that message, and the cursor goes into that field.
    void expectRefused(Window& window, const std::string& message, ControlTag tag) {
        const std::size_t before = face.alerts().size();
        ok(window);
        EXPECT_TRUE(window.isOpen());
        ASSERT_EQ(face.alerts().size(), before + 1);
        EXPECT_EQ(face.alerts().back().informativeText, message);
        EXPECT_EQ(window.firstResponder(), window.viewWithTag(tag));
    }
};

TEST_F(TabStockTest, OpensOnTheDialogsValues) {
    open();
    withTabStock({[&](Window& window) {
        EXPECT_EQ(window.name(), "spTabStockWindow");
        EXPECT_EQ(window.title(), "Tab shift");
        EXPECT_EQ(text(window, SPNumInSequenceStaticTextID), "Tabs in sequence:");
        EXPECT_EQ(text(window, SPTabMarginListTitleID), "Tab shift:");
        EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
        EXPECT_THAT(steppers(window), ElementsAre(3, 127, 50));
        expectUnitShown(window, false);
        expectMarginEnabled(window, false);
        EXPECT_FALSE(tabStock().IsActived());
        cancel(window);
    }});
    withValues(7, kCustomShiftItem, 60, {[&](Window& window) {
                   EXPECT_THAT(fields(window), ElementsAre("7", "6.0", "0.24"));
                   EXPECT_THAT(steppers(window), ElementsAre(7, 60, 24));
                   expectUnitShown(window, false);
                   expectMarginEnabled(window, true);
                   cancel(window);
               }});
}

TEST_F(TabStockTest, OKMovesTheValuesToTheDialogWhoseOwnOKMovesThemToThePane) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.type("3"));
        pickTabStock(user, {[&](Window& window) {
                         EXPECT_TRUE(enter(window, kNumber, "5"));
                         choose(window, kCustomShiftItem);
                         EXPECT_TRUE(enter(window, kMM, "6.5"));
                         EXPECT_THAT(kept(), ElementsAre(3, 1, 127)) << "nothing moves before OK";
                         ok(window);
                         EXPECT_FALSE(window.isOpen());
                     }});
        EXPECT_THAT(kept(), ElementsAre(5, 4, 65));
        EXPECT_THAT(ofThePane(), ElementsAre(3, 1, 127));
        user.ok();
    });
    EXPECT_THAT(ofThePane(), ElementsAre(5, 4, 65));
    EXPECT_EQ(exceptions(), Texts{"3 2/0/36 1"});
    withTabStock({[&](Window& window) {
        EXPECT_THAT(fields(window), ElementsAre("5", "6.5", "0.26"));
        expectMarginEnabled(window, true);
        cancel(window);
    }});
}

TEST_F(TabStockTest, TheDialogsCancelLeavesThePaneAsItWas) {
    open();
    withTabStock({[&](Window& window) {
        EXPECT_TRUE(enter(window, kNumber, "9"));
        ok(window);
    }});
    EXPECT_THAT(ofThePane(), ElementsAre(3, 1, 127));
    withTabStock({[&](Window& window) {
        EXPECT_EQ(text(window, kNumber), "3") << "the value of the pane replaces the dialog's";
        cancel(window);
    }});
}

TEST_F(TabStockTest, CancelMovesNothing) {
    open();
    withTabStock({[&](Window& window) {
                      EXPECT_TRUE(enter(window, kNumber, "9"));
                      choose(window, kLetterShiftItem);
                      cancel(window);
                      EXPECT_FALSE(window.isOpen());
                      EXPECT_THAT(kept(), ElementsAre(3, 1, 127));
                  },
                  [&](Window& window) {
                      EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
                      expectUnitShown(window, false);
                      EXPECT_TRUE(enter(window, kNumber, "9"));
                      EXPECT_TRUE(window.performCancel()) << "Escape is Cancel";
                      EXPECT_THAT(kept(), ElementsAre(3, 1, 127));
                  }});
    EXPECT_FALSE(tabStock().IsActived());
}

TEST_F(TabStockTest, TheA4PresetSetsMillimetresAndShowsTheirSide) {
    open();
    withValues(3, kCustomShiftItem, 20, {[&](Window& window) {
                   inches(window);
                   EXPECT_TRUE(enter(window, kInch, "0.30"));
                   choose(window, kA4ShiftItem);
                   EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
                   EXPECT_THAT(steppers(window), ElementsAre(3, 127, 50));
                   expectUnitShown(window, false);
                   expectMarginEnabled(window, false);
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 3, 127));
               }});
}

TEST_F(TabStockTest, TheLetterPresetSetsInchesAndShowsTheirSide) {
    open();
    withValues(3, kCustomShiftItem, 20, {[&](Window& window) {
                   choose(window, kLetterShiftItem);
                   EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
                   EXPECT_THAT(steppers(window), ElementsAre(3, 127, 50));
                   expectUnitShown(window, true);
                   expectMarginEnabled(window, false);
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 2, 127)) << "tenths of a millimetre in either unit";
               }});
}

TEST_F(TabStockTest, NoShiftAndCustomSetNothing) {
    open();
    withValues(3, kA4ShiftItem, 20, {[&](Window& window) {
                   expectMarginEnabled(window, false);
                   choose(window, kCustomShiftItem);
                   EXPECT_THAT(fields(window), ElementsAre("3", "2.0", "0.08"));
                   expectMarginEnabled(window, true);
                   choose(window, kNoShiftItem);
                   EXPECT_THAT(fields(window), ElementsAre("3", "2.0", "0.08"));
                   expectMarginEnabled(window, false);
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 1, 20));
               }});
}

TEST_F(TabStockTest, PresetsOneAfterTheOtherKeepTheCountsRight) {
    open();
    withTabStock({[&](Window& window) {
        for (int turn = 0; turn < 3; ++turn) {
            for (const TabMarginItem item :
                 {kLetterShiftItem, kCustomShiftItem, kA4ShiftItem, kNoShiftItem, kCustomShiftItem}) {
                choose(window, item);
                expectMarginEnabled(window, item == kCustomShiftItem);
            }
            inches(window);
            expectUnitShown(window, true);
            choose(window, kA4ShiftItem);
            expectUnitShown(window, false);
        }
        choose(window, kCustomShiftItem);
        ok(window);
    }});
}

TEST_F(TabStockTest, CountsStayRightOverManyOpenings) {
    open();
    for (int turn = 0; turn < 3; ++turn) {
        withTabStock({[&](Window& window) {
                          choose(window, kLetterShiftItem);
                          cancel(window);
                      },
                      [&](Window& window) {
                          expectUnitShown(window, false);
                          expectMarginEnabled(window, false);
                          choose(window, kCustomShiftItem);
                          expectMarginEnabled(window, true);
                          inches(window);
                          expectUnitShown(window, true);
                          cancel(window);
                      }});
        ASSERT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    }
    withTabStock({[&](Window& window) {
        expectUnitShown(window, false);
        expectMarginEnabled(window, false);
        cancel(window);
    }});
}

TEST_F(TabStockTest, TheUnitIsThatOfTheLastOK) {
    open();
    withValues(3, kCustomShiftItem, 60,
               {[&](Window& window) {
                    inches(window);
                    ok(window);
                    EXPECT_THAT(kept(), ElementsAre(3, 4, 60)) << "a margin that is not touched stays";
                },
                [&](Window& window) {
                    expectUnitShown(window, true);
                    EXPECT_THAT(fields(window), ElementsAre("3", "6.0", "0.24"));
                    ok(window);
                    EXPECT_THAT(kept(), ElementsAre(3, 4, 60)) << "nor does opening in inches change it";
                },
                [&](Window& window) {
                    EXPECT_TRUE(enter(window, kInch, "0.24"));
                    ok(window);
                    EXPECT_THAT(kept(), ElementsAre(3, 4, 60)) << "what stands there already tells nothing";
                },
                [&](Window& window) {
                    EXPECT_TRUE(enter(window, kInch, "0.25"));
                    EXPECT_EQ(text(window, kMM), "6.4");
                    ok(window);
                    EXPECT_THAT(kept(), ElementsAre(3, 4, 64));
                }});
    withValues(3, kCustomShiftItem, 100, {[&](Window& window) {
                   expectUnitShown(window, true);
                   EXPECT_THAT(fields(window), ElementsAre("3", "10.0", "0.39"))
                       << "in the remembered unit, but of this dialog";
                   millimetres(window);
                   expectUnitShown(window, false);
                   EXPECT_THAT(steppers(window), ElementsAre(3, 100, 39));
                   cancel(window);
               }});
}

TEST_F(TabStockTest, MillimetresAreRefusedAtOK) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   for (const char* refused : {"15.1", "16", ".5", "5.", "1.25", "1.2.", "", "x", "-1"}) {
                       SCOPED_TRACE(refused);
                       put(window, kMM, refused);
                       expectRefused(window, kMMMessage, kMM);
                   }
                   EXPECT_THAT(kept(), ElementsAre(3, 4, 127));
                   EXPECT_TRUE(enter(window, kMM, "15.0"));
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 4, 150));
               }});
}

TEST_F(TabStockTest, InchesAreRefusedAtOK) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   inches(window);
                   for (const char* refused : {"0.60", "1", ".50", "0.", "0.5", "", "0.5.0"}) {
                       SCOPED_TRACE(refused);
                       put(window, kInch, refused);
                       expectRefused(window, kInchMessage, kInch);
                   }
                   EXPECT_TRUE(enter(window, kInch, "0.59"));
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 4, 150));
               }});
}

TEST_F(TabStockTest, TheNumberIsRefusedAtOKAndItsStepperStopsAtTheEnd) {
    open();
    withTabStock({[&](Window& window) {
        for (const char* refused : {"255", "0", "", "999", "1.5", "x", "-3"}) {
            SCOPED_TRACE(refused);
            put(window, kNumber, refused);
            expectRefused(window, kNumberMessage, kNumber);
        }
        Stepper& number = stepper(window, SPNumInSequenceLittleArrowID);
        EXPECT_TRUE(enter(window, kNumber, "254"));
        EXPECT_EQ(number.intValue(), 254);
        EXPECT_TRUE(number.step(255));
        EXPECT_EQ(face.beeps(), 1);
        EXPECT_EQ(number.intValue(), 254);
        EXPECT_EQ(text(window, kNumber), "254");
        EXPECT_TRUE(number.step(253));
        EXPECT_EQ(text(window, kNumber), "253");
        EXPECT_TRUE(enter(window, kNumber, "1"));
        EXPECT_TRUE(number.step(0));
        EXPECT_EQ(face.beeps(), 2);
        EXPECT_EQ(text(window, kNumber), "1");
        ok(window);
        EXPECT_THAT(kept(), ElementsAre(1, 1, 127));
    }});
}

TEST_F(TabStockTest, KeysThatTheFieldsDoNotTakeBeep) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   enter(window, kNumber, "1234");
                   EXPECT_EQ(text(window, kNumber), "123");
                   EXPECT_EQ(face.beeps(), 1);
                   enter(window, kNumber, "1a2");
                   EXPECT_EQ(text(window, kNumber), "12");
                   EXPECT_EQ(face.beeps(), 2);
                   enter(window, kMM, "1,5");
                   EXPECT_EQ(text(window, kMM), "15");
                   EXPECT_EQ(face.beeps(), 3);
                   cancel(window);
               }});
}

TEST_F(TabStockTest, FieldsThatAreDisabledOrHiddenAreNotChecked) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   put(window, kInch, "9");
                   put(window, kMM, "99");
                   choose(window, kNoShiftItem);
                   ok(window);
                   EXPECT_FALSE(window.isOpen());
                   EXPECT_TRUE(face.alerts().empty());
                   EXPECT_THAT(kept(), ElementsAre(3, 1, 127));
               }});
}

TEST_F(TabStockTest, AUnitIsLeftOnlyWithAnAcceptedField) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   EXPECT_TRUE(enter(window, kMM, "20"));
                   inches(window);
                   ASSERT_EQ(face.alerts().size(), 1U);
                   EXPECT_EQ(face.alerts()[0].informativeText, kMMMessage);
                   expectUnitShown(window, false);
                   EXPECT_TRUE(enter(window, kMM, "10.0"));
                   inches(window);
                   expectUnitShown(window, true);
                   EXPECT_EQ(text(window, kInch), "0.39");
                   EXPECT_TRUE(enter(window, kInch, "0.4"));
                   millimetres(window);
                   ASSERT_EQ(face.alerts().size(), 2U);
                   EXPECT_EQ(face.alerts()[1].informativeText, kInchMessage);
                   expectUnitShown(window, true);
                   EXPECT_TRUE(enter(window, kInch, "0.40"));
                   millimetres(window);
                   expectUnitShown(window, false);
                   EXPECT_EQ(text(window, kMM), "10.2");
                   cancel(window);
               }});
}

TEST_F(TabStockTest, SteppersMoveFieldAndTwin) {
    open();
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   EXPECT_TRUE(stepper(window, SPTabMarginMMLittleArrowID).step(128));
                   EXPECT_THAT(fields(window), ElementsAre("3", "12.8", "0.50"));
                   EXPECT_TRUE(enter(window, kMM, "15"));
                   EXPECT_TRUE(stepper(window, SPTabMarginMMLittleArrowID).step(151));
                   EXPECT_EQ(face.beeps(), 1);
                   inches(window);
                   EXPECT_TRUE(stepper(window, SPTabMarginInchesLittleArrowID).step(9));
                   EXPECT_THAT(fields(window), ElementsAre("3", "2.3", "0.09"));
                   put(window, kInch, "7");
                   EXPECT_TRUE(stepper(window, SPTabMarginInchesLittleArrowID).step(10));
                   ASSERT_EQ(face.alerts().size(), 1U);
                   EXPECT_EQ(face.alerts()[0].informativeText, kInchMessage);
                   EXPECT_EQ(text(window, kInch), "7") << "a click counts only on an accepted field";
                   cancel(window);
               }});
}

TEST_F(TabStockTest, DefaultsShowTheFirstPresetInMillimetresAndMoveNothing) {
    open();
    for (const bool inInches : {false, true}) {
        withValues(200, kCustomShiftItem, 20, {[&](Window& window) {
                       if (inInches) {
                           inches(window);
                       }
                       EXPECT_TRUE(enter(window, kNumber, "77"));
                       defaults(window);
                       EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
                       EXPECT_THAT(steppers(window), ElementsAre(3, 127, 50));
                       expectUnitShown(window, false);
                       expectMarginEnabled(window, false);
                       EXPECT_TRUE(window.isOpen());
                       EXPECT_THAT(kept(), ElementsAre(200, 4, 20));
                       ok(window);
                       EXPECT_THAT(kept(), ElementsAre(3, 1, 127));
                   }});
    }
}

TEST_F(TabStockTest, OddValuesOfTheDialogAreHeldToTheRanges) {
    open();
    withValues(0, 0, -5, {[&](Window& window) {
                   EXPECT_THAT(fields(window), ElementsAre("1", "0.0", "0.00"));
                   cancel(window);
               }});
    withValues(2147483647, 9, 2147483647, {[&](Window& window) {
                   EXPECT_THAT(steppers(window), ElementsAre(254, 150, 59));
                   cancel(window);
               }});
    withValues(-2147483647 - 1, -7, -2147483647 - 1, {[&](Window& window) {
        EXPECT_THAT(steppers(window), ElementsAre(1, 0, 0));
        cancel(window);
    }});
}

TEST_F(TabStockTest, CorrectingAFieldShowsItsSteppersNumber) {
    open();
    withValues(7, kCustomShiftItem, 127, {[&](Window& window) {
                   put(window, kNumber, "999");
                   put(window, kMM, "99");
                   for (const ControlTag tag : {kNumber, kMM}) {
                       auto* field = dynamic_cast<TabStockTextEditCtrl*>(tabStock().GetPanelControl(tag));
                       ASSERT_NE(field, nullptr);
                       EXPECT_TRUE(field->CorrectCtrlUI());
                   }
                   EXPECT_THAT(fields(window), ElementsAre("7", "12.7", "0.50"));
                   cancel(window);
               }});
}

TEST_F(TabStockTest, WithoutADialogInUseItShowsWhatItHeldAndMovesNothing) {
    open();
    withTabStock({[&](Window& window) {
        EXPECT_TRUE(enter(window, kNumber, "5"));
        choose(window, kCustomShiftItem);
        EXPECT_TRUE(enter(window, kMM, "1.0"));
        ok(window);
    }});
    face.then([&](Window& window) {
        EXPECT_THAT(fields(window), ElementsAre("5", "1.0", "0.04"));
        EXPECT_TRUE(enter(window, kNumber, "6"));
        ok(window);
    });
    const auto before = kept();
    tabStock().ActivateWindow();
    EXPECT_EQ(kept(), before);
    EXPECT_THAT(ofThePane(), ElementsAre(3, 1, 127));
}

TEST_F(TabStockTest, OpensForTheUsersPickAlone) {
    open();
    add([&](User& user) {
        pickTabStock(user, {[&](Window& window) {
                         cancel(window);
                     }});
        EXPECT_TRUE(user.paper(kTypeMenu, kFine)) << "no step: another type opens nothing";
        EXPECT_TRUE(user.paper(kTypeMenu, kTabStock + 3));
        user.cancel();
    });
}

TEST_F(TabStockTest, TheAdvancedWindowTakesTabStockWithoutIt) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.type("4"));
        face.then([&](Window& advanced) {
            auto& types =
                dynamic_cast<platform::PopUpButton&>(*advanced.viewWithTag(spAdvSeleWndPaperTypeListID));
            EXPECT_TRUE(types.pick(std::vector<std::int64_t>{kTabStock + 1}));
            click(advanced, spAdvSeleWndOKButtonID);
        });
        EXPECT_TRUE(user.top(6));
        user.ok();
    });
    EXPECT_EQ(exceptions(), Texts{"4 2/0/36 1"});
}

TEST_F(TabStockTest, WithoutAWindowNothingOpens) {
    open();
    SPTabStockWndEMF lone;
    lone.CreatePanel(nullptr, "Tab Margin Text");
    EXPECT_EQ(lone.ActivateWindow(), 0);
    EXPECT_EQ(lone.getTabMarginMMLArrowPtr(), nullptr);
    EXPECT_EQ(lone.getTabMarginInchLArrowPtr(), nullptr);
    EXPECT_EQ(lone.getTabMarginInchRadioButtonPtr(), nullptr);
    EXPECT_EQ(lone.getTabMarginMMRadioButtonPtr(), nullptr);
}

TEST_F(TabStockTest, ReinitialisedItBehavesAsBefore) {
    open();
    EXPECT_EQ(tabStock().ReInitializeUserPane(), 0);
    EXPECT_EQ(tabStock().window()->title(), "Tab shift");
    tabStock().SetUIDataToIniData();
    withValues(4, kCustomShiftItem, 33, {[&](Window& window) {
                   EXPECT_EQ(text(window, kNumber), "4");
                   EXPECT_EQ(text(window, kMM), "3.3");
                   expectMarginEnabled(window, true);
                   cancel(window);
               }});
}

TEST_F(TabStockTest, IsTheSameUnderAGermanLocale) {
    open();
    const platform::testing::CommaLocale comma;
    withValues(3, kCustomShiftItem, 127, {[&](Window& window) {
                   EXPECT_THAT(fields(window), ElementsAre("3", "12.7", "0.50"));
                   EXPECT_TRUE(enter(window, kMM, "6.5"));
                   EXPECT_THAT(fields(window), ElementsAre("3", "6.5", "0.26"));
                   inches(window);
                   EXPECT_TRUE(enter(window, kInch, "0.57"));
                   EXPECT_THAT(steppers(window), ElementsAre(3, 145, 57));
                   EXPECT_TRUE(stepper(window, SPTabMarginInchesLittleArrowID).step(58));
                   EXPECT_THAT(fields(window), ElementsAre("3", "14.7", "0.58"));
                   put(window, kInch, "0,58");
                   expectRefused(window, kInchMessage, kInch);
                   EXPECT_TRUE(enter(window, kInch, "0.58"));
                   ok(window);
                   EXPECT_THAT(kept(), ElementsAre(3, 4, 147));
               }});
}

TEST_F(TabStockTest, LooksAsKeptInBothUnits) {
    open();
    withTabStock({[&](Window& window) {
        expect_picture(text_picture(window), "dialogs/golden/tab-stock.txt");
        choose(window, kCustomShiftItem);
        expect_picture(text_picture(window), "dialogs/golden/tab-stock-mm.txt");
        inches(window);
        expect_picture(text_picture(window), "dialogs/golden/tab-stock-inches.txt");
        cancel(window);
    }});
}

TEST_F(TabStockTest, EveryTagHasItsViewAndControlsStandInTheirOrder) {
    open();
    const std::vector<std::pair<ControlTag, ViewKind>> views{
        {501, ViewKind::staticText}, {511, ViewKind::textField}, {512, ViewKind::stepper},
        {520, ViewKind::staticText}, {513, ViewKind::popup},     {516, ViewKind::textField},
        {517, ViewKind::stepper},    {514, ViewKind::textField}, {515, ViewKind::stepper},
        {518, ViewKind::radio},      {519, ViewKind::radio},     {551, ViewKind::button},
        {552, ViewKind::button},     {553, ViewKind::button}};
    const auto& controls = tabStock().getCtrlGroupArrayRef();
    ASSERT_EQ(controls.size(), views.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
        EXPECT_EQ(controls[i]->GetControlPtr()->tag(), views[i].first);
        EXPECT_EQ(controls[i]->GetControlPtr()->kind(), views[i].second) << views[i].first;
    }
    const Window& window = *tabStock().window();
    EXPECT_EQ(window.defaultButton(), window.viewWithTag(SPTabMarginOKButtonID));
    EXPECT_EQ(window.cancelButton(), window.viewWithTag(SPTabMarginCancelButtonID));
}

TEST_F(TabStockTest, EveryKeyIsInTheLocalisedTable) {
    open();
    for (const char* key : {"Number In Sequence Static Text", "Number In Sequence Text", "Tab Margin Title",
                            "Tab Margin Text", "Tab Margin Inches Radio Button Title",
                            "Tab Margin MM Radio Button Title", "Message22k", "Message22b", "Message22b2"}) {
        EXPECT_NE(words(key), "(missing)") << key;
    }
    for (const char* key : spTabMarginListIniMenu) {
        EXPECT_NE(words(key), "(missing)") << key;
    }
}

} // namespace
} // namespace specialpages::test
