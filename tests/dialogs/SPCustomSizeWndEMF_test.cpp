#include "dialogs/SPCustomSizeLittleArrowControlEMF.h"
#include "dialogs/SPCustomSizeTextEditCtrlEMF.h"
#include "dialogs/SPCustomSizeWndEMF.h"
#include "dialogs/covers_fixture.h"
#include "dialogs/custom_size_tables.h"
#include "paper/advanced_tags.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/comma_locale.h"
#include "platform/toolkit/Stepper.h"
#include "ppd/ppd_builder.h"
#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace specialpages::test {
namespace {

using platform::Stepper;
using platform::TextField;
using platform::Window;
using ::testing::ElementsAre;

constexpr ControlTag kWidthMM = SPCustomSizeWidthMMEditTextID;
constexpr ControlTag kWidthInch = SPCustomSizeWidthInchEditTextID;
constexpr ControlTag kLengthMM = SPCustomSizeLengthMMEditTextID;
constexpr ControlTag kLengthInch = SPCustomSizeLengthInchEditTextID;

/// The covers dialog, with the window that the size "Custom" of the front paper opens.
class CustomSizeTest : public CoversDialogTest {
  protected:
    using User = std::function<void(Window& custom)>;

    explicit CustomSizeTest(const std::string& ppdName = "ppd/production.ppd") : CoversDialogTest(ppdName) {}

    SPCustomSizeWndEMF& custom() { return dynamic_cast<SPCustomSizeWndEMF&>(*pane->getCustomSizeWndPtr()); }
    SPSubMenuListCtrlEMF& menu() { return *dialog->getSPCoverWndFrontSelectPaperListPtr(); }

    /// Opens the covers dialog, stores a size in the front paper menu, and picks "Custom" in it once for each
    /// user.
    void withStored(const char* width, const char* length, std::int32_t longMeasure,
                    std::initializer_list<User> users) {
        add([&](Window& covers) {
            option(covers, CoverOption::frontOnly);
            menu().setCustomPageWidth(width);
            menu().setCustomPageLength(length);
            menu().setCustomPageSizeLongMeasure(longMeasure);
            for (const User& user : users) {
                face.then(user);
                EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kSize, "Custom"));
            }
            cancel(covers);
        });
    }
    /// The same on a new cover's paper.
    void fromNewCover(std::initializer_list<User> users) { withStored("210.0", "297.0", 1, users); }

    /// Width, length and long measure of the menu.
    std::vector<std::string> stored() {
        return {menu().getCustomPageWidth(), menu().getCustomPageLength(),
                std::to_string(menu().getCustomPageSizeLongMeasure())};
    }
    static bool enter(Window& window, ControlTag tag, const std::string& text) {
        return dynamic_cast<TextField&>(*window.viewWithTag(tag)).type(text);
    }
    static void put(Window& window, ControlTag tag, const std::string& text) {
        dynamic_cast<TextField&>(*window.viewWithTag(tag)).setStringValue(text);
    }
    static Stepper& stepper(Window& window, ControlTag tag) {
        return dynamic_cast<Stepper&>(*window.viewWithTag(tag));
    }
    static bool isOn(Window& window, ControlTag radio) {
        return dynamic_cast<platform::Button&>(*window.viewWithTag(radio)).intValue() == 1;
    }
    static void inches(Window& window) { click(window, SPCustomSizeInchesRadioButtonID); }
    static void millimetres(Window& window) { click(window, SPCustomSizeMMRadioButtonID); }
    static void okCustom(Window& window) { click(window, SPCustomSizeOKButtonID); }
    static void cancelCustom(Window& window) { click(window, SPCustomSizeCancelButtonID); }
    static void defaults(Window& window) { click(window, SPCustomSizeDefaultButtonID); }
    /// The four fields: width and length in millimetres, then in inches.
    static std::vector<std::string> fields(Window& window) {
        return {text(window, kWidthMM), text(window, kLengthMM), text(window, kWidthInch),
                text(window, kLengthInch)};
    }
    static std::vector<std::int32_t> steppers(Window& window) {
        return {stepper(window, SPCustomSizeWidthMMLittleArrowID).intValue(),
                stepper(window, SPCustomSizeLengthMMLittleArrowID).intValue(),
                stepper(window, SPCustomSizeWidthInchLittleArrowID).intValue(),
                stepper(window, SPCustomSizeLengthInchLittleArrowID).intValue()};
    }
    /// Whether exactly the eight controls of that unit show.
    static void expectUnitShown(Window& window, bool inInches) {
        for (const ControlTag tag : SPcustomSizeMMHideCtrlArray) {
            EXPECT_EQ(window.viewWithTag(tag)->isHidden(), inInches) << tag;
        }
        for (const ControlTag tag : SPcustomSizeinchesHideCtrlArray) {
            EXPECT_EQ(window.viewWithTag(tag)->isHidden(), !inInches) << tag;
        }
        EXPECT_EQ(isOn(window, SPCustomSizeInchesRadioButtonID), inInches);
        EXPECT_EQ(isOn(window, SPCustomSizeMMRadioButtonID), !inInches);
    }
    /// OK is refused with that message, and the cursor goes into that field.
    void expectRefused(Window& window, const std::string& message, ControlTag tag) {
        const std::size_t before = face.alerts().size();
        okCustom(window);
        EXPECT_TRUE(window.isOpen());
        ASSERT_EQ(face.alerts().size(), before + 1);
        EXPECT_EQ(face.alerts().back().informativeText, message);
        EXPECT_EQ(face.alerts().back().messageText, "");
        EXPECT_EQ(window.firstResponder(), window.viewWithTag(tag));
    }
};

const std::string kWidthMMMessage = "This width can't be used. Enter a width from 100.0 to 330.0 mm, with at "
                                    "most one decimal, for example 210 or 210.5.";
const std::string kLengthMMMessage = "This length can't be used. Enter a length from 148.0 to 488.0 mm, with "
                                     "at most one decimal, for example 297 or 297.5.";
const std::string kWidthInchMessage = "This width can't be used. Enter a width from 3.94 to 12.99 inches, "
                                      "whole or with two decimals, for example 8 or 8.50.";
const std::string kLengthInchMessage = "This length can't be used. Enter a length from 5.83 to 19.21 inches, "
                                       "whole or with two decimals, for example 11 or 11.69.";

TEST_F(CustomSizeTest, OpensInMillimetresOnTheMenusSize) {
    open();
    fromNewCover({[&](Window& window) {
        EXPECT_EQ(window.title(), "Custom Size");
        EXPECT_THAT(fields(window), ElementsAre("210.0", "297.0", "8.27", "11.69"));
        EXPECT_THAT(steppers(window), ElementsAre(2100, 2970, 827, 1169));
        expectUnitShown(window, false);
        EXPECT_EQ(text(window, SPCustomSizeWidthMMStaticTextID), "Width (100.0 - 330.0):");
        EXPECT_EQ(text(window, SPCustomSizeLengthInchStaticTextID), "Length (5.83 - 19.21):");
        EXPECT_EQ(text(window, SPCustomSizeWidthMMSideStaticTextID), "mm");
        EXPECT_EQ(text(window, SPCustomSizeWidthInchSideStaticTextID), "in.");
        EXPECT_FALSE(custom().IsActived()) << "the window never says that it is in use";
        EXPECT_EQ(custom().GetSubMenuList(), &menu());
        cancelCustom(window);
    }});
    EXPECT_FALSE(custom().IsActived());
}

TEST_F(CustomSizeTest, OKGivesTheMenuWidthLengthAndUnitWhichTheCoverKeeps) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        face.then([&](Window& window) {
            EXPECT_TRUE(enter(window, kWidthMM, "210.5"));
            EXPECT_TRUE(enter(window, kLengthMM, "300"));
            EXPECT_EQ(text(window, kWidthInch), "8.29") << "the hidden twin follows";
            EXPECT_EQ(stepper(window, SPCustomSizeLengthMMLittleArrowID).intValue(), 3000);
            okCustom(window);
            EXPECT_FALSE(window.isOpen());
        });
        EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kSize, "Custom"));
        EXPECT_THAT(stored(), ElementsAre("210.5", "300", "1"));
        ok(covers);
    });
    ASSERT_EQ(records().size(), 1U);
    EXPECT_EQ(records()[0].text(RecordKey::width), "210.5");
    EXPECT_EQ(records()[0].text(RecordKey::length), "300");
    EXPECT_EQ(records()[0].text(RecordKey::longmeasure), "1");
}

TEST_F(CustomSizeTest, CancelLeavesTheMenuAndTheNextOpeningShowsWhatIsStored) {
    open();
    fromNewCover({[&](Window& window) {
                      EXPECT_TRUE(enter(window, kWidthMM, "250"));
                      inches(window);
                      cancelCustom(window);
                  },
                  [&](Window& window) {
                      EXPECT_THAT(stored(), ElementsAre("210.0", "297.0", "1"));
                      EXPECT_THAT(fields(window), ElementsAre("210.0", "297.0", "8.27", "11.69"));
                      EXPECT_THAT(steppers(window), ElementsAre(2100, 2970, 827, 1169));
                      expectUnitShown(window, false);
                      EXPECT_TRUE(window.performCancel()) << "Escape is Cancel";
                  },
                  [&](Window& window) {
                      okCustom(window);
                  }});
    EXPECT_THAT(stored(), ElementsAre("210.0", "297.0", "1"));
}

TEST_F(CustomSizeTest, InInchesTheMillimetreTextOfTheTwinIsStored) {
    open();
    fromNewCover({[&](Window& window) {
                      inches(window);
                      expectUnitShown(window, true);
                      EXPECT_TRUE(enter(window, kWidthInch, "8.50"));
                      EXPECT_EQ(text(window, kWidthMM), "215.9");
                      EXPECT_TRUE(enter(window, kWidthInch, "8.27"));
                      EXPECT_EQ(text(window, kWidthMM), "210.1");
                      okCustom(window);
                      EXPECT_THAT(stored(), ElementsAre("210.1", "297.0", "0"))
                          << "a length that was not touched stays as it was stored";
                  },
                  [&](Window& window) {
                      expectUnitShown(window, true);
                      EXPECT_THAT(fields(window), ElementsAre("210.1", "297.0", "8.27", "11.69"));
                      millimetres(window);
                      expectUnitShown(window, false);
                      okCustom(window);
                      EXPECT_THAT(stored(), ElementsAre("210.1", "297.0", "1"));
                  }});
}

TEST_F(CustomSizeTest, EndsOfTheRangesAreExactInTheHiddenField) {
    open();
    fromNewCover({[&](Window& window) {
        inches(window);
        EXPECT_TRUE(enter(window, kWidthInch, "3.94"));
        EXPECT_EQ(text(window, kWidthMM), "100.0");
        EXPECT_TRUE(enter(window, kWidthInch, "12.99"));
        EXPECT_EQ(text(window, kWidthMM), "330.0");
        EXPECT_TRUE(enter(window, kLengthInch, "5.83"));
        EXPECT_EQ(text(window, kLengthMM), "148.0");
        millimetres(window);
        EXPECT_TRUE(enter(window, kLengthMM, "488"));
        EXPECT_EQ(text(window, kLengthInch), "19.21");
        cancelCustom(window);
    }});
}

TEST_F(CustomSizeTest, MillimetresAreRefusedAtOKWithTheirRange) {
    open();
    fromNewCover({[&](Window& window) {
        for (const char* refused : {"210.05", ".5", "8.", "99.9", "330.1", "1.2.3", "", "0", "..."}) {
            SCOPED_TRACE(refused);
            put(window, kWidthMM, refused);
            expectRefused(window, kWidthMMMessage, kWidthMM);
        }
        EXPECT_TRUE(enter(window, kWidthMM, "210"));
        EXPECT_TRUE(enter(window, kLengthMM, "147.9"));
        expectRefused(window, kLengthMMMessage, kLengthMM);
        EXPECT_THAT(stored(), ElementsAre("210.0", "297.0", "1")) << "nothing was given back";
        EXPECT_TRUE(enter(window, kLengthMM, "148"));
        okCustom(window);
        EXPECT_THAT(stored(), ElementsAre("210", "148", "1"));
    }});
}

TEST_F(CustomSizeTest, InchesAreRefusedAtOKWithTheirRange) {
    open();
    fromNewCover({[&](Window& window) {
        inches(window);
        for (const char* refused : {"8.5", ".5", "8.", "3.93", "13.00", "8.5.0", "", "8.500"}) {
            SCOPED_TRACE(refused);
            put(window, kWidthInch, refused);
            expectRefused(window, kWidthInchMessage, kWidthInch);
        }
        EXPECT_TRUE(enter(window, kWidthInch, "8"));
        EXPECT_TRUE(enter(window, kLengthInch, "20"));
        expectRefused(window, kLengthInchMessage, kLengthInch);
        EXPECT_TRUE(enter(window, kLengthInch, "11.69"));
        okCustom(window);
        EXPECT_THAT(stored(), ElementsAre("203.2", "296.9", "0"));
    }});
}

TEST_F(CustomSizeTest, WhatIsBeingTypedCountsAtOK) {
    open();
    fromNewCover({[&](Window& window) {
                      EXPECT_TRUE(dynamic_cast<TextField&>(*window.viewWithTag(kWidthMM)).editText("222.2"));
                      okCustom(window);
                      EXPECT_THAT(stored(), ElementsAre("222.2", "297.0", "1"));
                  },
                  [&](Window& window) {
                      EXPECT_TRUE(dynamic_cast<TextField&>(*window.viewWithTag(kWidthMM)).editText("22"));
                      expectRefused(window, kWidthMMMessage, kWidthMM);
                      cancelCustom(window);
                  }});
}

TEST_F(CustomSizeTest, KeysThatAreNoDigitOrPointBeepAndTheSeventhIsTooMany) {
    open();
    fromNewCover({[&](Window& window) {
        auto& width = dynamic_cast<TextField&>(*window.viewWithTag(kWidthMM));
        for (const char* refused : {"21o", "-210", "2,1", "210.555", "٢١٠", "2 1"}) {
            const int before = face.beeps();
            EXPECT_FALSE(width.editText(refused)) << refused;
            EXPECT_EQ(face.beeps(), before + 1);
        }
        EXPECT_TRUE(width.editText("210.55")) << "six columns";
        EXPECT_FALSE(dynamic_cast<TextField&>(*window.viewWithTag(kLengthInch)).editText("1"))
            << "a hidden field takes no key";
        cancelCustom(window);
    }});
}

TEST_F(CustomSizeTest, AStoredTextShowsAsItStandsAndLeadingZerosGoAtOK) {
    open();
    withStored("0100.0", "210", 1, {[&](Window& window) {
                   EXPECT_THAT(fields(window), ElementsAre("0100.0", "210", "3.94", "8.27"));
                   EXPECT_THAT(steppers(window), ElementsAre(1000, 2100, 394, 827));
                   okCustom(window);
                   EXPECT_THAT(stored(), ElementsAre("100.0", "210", "1"));
               }});
}

TEST_F(CustomSizeTest, UndecidedSizesShowTheMinimumAndTheDefaultUnit) {
    open();
    withStored("-1", "-1", -1,
               {[&](Window& window) {
                    EXPECT_THAT(fields(window), ElementsAre("100.0", "148.0", "3.94", "5.83"));
                    EXPECT_THAT(steppers(window), ElementsAre(1000, 1480, 394, 583));
                    expectUnitShown(window, false);
                    cancelCustom(window);
                    EXPECT_THAT(stored(), ElementsAre("-1", "-1", "-1"));
                },
                [&](Window& window) {
                    okCustom(window);
                    EXPECT_THAT(stored(), ElementsAre("100.0", "148.0", "1"));
                }});
    for (const std::int32_t measure : {2, -7, 2147483647}) {
        withStored("210.0", "297.0", measure, {[&](Window& window) {
                       expectUnitShown(window, false);
                       cancelCustom(window);
                   }});
    }
}

TEST_F(CustomSizeTest, AStoredSizeOutsideTheRangeShowsButIsNotAccepted) {
    open();
    withStored("5.0", "wide", 1, {[&](Window& window) {
                   EXPECT_THAT(fields(window), ElementsAre("5.0", "wide", "3.94", "5.83"));
                   EXPECT_THAT(steppers(window), ElementsAre(1000, 1480, 394, 583));
                   expectRefused(window, kWidthMMMessage, kWidthMM);
                   inches(window);
                   EXPECT_EQ(face.alerts().back().informativeText, kWidthMMMessage);
                   expectUnitShown(window, false);
                   cancelCustom(window);
                   EXPECT_THAT(stored(), ElementsAre("5.0", "wide", "1"));
               }});
}

TEST_F(CustomSizeTest, AUnitIsLeftOnlyWithAcceptedFields) {
    open();
    fromNewCover({[&](Window& window) {
        EXPECT_TRUE(enter(window, kLengthMM, "99"));
        inches(window);
        ASSERT_EQ(face.alerts().size(), 1U);
        EXPECT_EQ(face.alerts()[0].informativeText, kLengthMMMessage);
        expectUnitShown(window, false);
        EXPECT_TRUE(enter(window, kLengthMM, "200"));
        inches(window);
        expectUnitShown(window, true);
        EXPECT_EQ(face.alerts().size(), 1U);
        inches(window);
        expectUnitShown(window, true);

        EXPECT_TRUE(enter(window, kWidthInch, "8.5"));
        millimetres(window);
        ASSERT_EQ(face.alerts().size(), 2U);
        EXPECT_EQ(face.alerts()[1].informativeText, kWidthInchMessage);
        expectUnitShown(window, true);
        EXPECT_TRUE(enter(window, kWidthInch, "8.50"));
        millimetres(window);
        expectUnitShown(window, false);
        EXPECT_THAT(fields(window), ElementsAre("215.9", "200", "8.50", "7.87"));
        for (int turn = 0; turn < 3; ++turn) {
            inches(window);
            expectUnitShown(window, true);
            millimetres(window);
            expectUnitShown(window, false);
        }
        EXPECT_EQ(text(window, kWidthMM), "215.9") << "changing the unit changes no size";
        cancelCustom(window);
    }});
}

TEST_F(CustomSizeTest, SteppersMoveFieldAndTwinAndBeepAtTheEnds) {
    open();
    fromNewCover({[&](Window& window) {
        Stepper& width = stepper(window, SPCustomSizeWidthMMLittleArrowID);
        EXPECT_TRUE(width.step(2101));
        EXPECT_EQ(text(window, kWidthMM), "210.1");
        EXPECT_EQ(text(window, kWidthInch), "8.27");
        EXPECT_TRUE(enter(window, kWidthMM, "210.2"));
        EXPECT_TRUE(width.step(2101)) << "back from what was typed";
        EXPECT_EQ(text(window, kWidthMM), "210.1");
        EXPECT_TRUE(width.step(2100));
        EXPECT_EQ(text(window, kWidthMM), "210.0");
        EXPECT_EQ(face.beeps(), 0);

        EXPECT_TRUE(enter(window, kWidthMM, "330"));
        EXPECT_TRUE(width.step(3301));
        EXPECT_EQ(face.beeps(), 1);
        EXPECT_EQ(text(window, kWidthMM), "330");
        EXPECT_EQ(width.intValue(), 3300);

        EXPECT_TRUE(enter(window, kWidthMM, "999"));
        EXPECT_TRUE(width.step(3299));
        EXPECT_EQ(face.beeps(), 1) << "a refused field has its message and no beep";
        ASSERT_EQ(face.alerts().size(), 1U);
        EXPECT_EQ(face.alerts()[0].informativeText, kWidthMMMessage);
        EXPECT_EQ(text(window, kWidthMM), "999");
        EXPECT_TRUE(enter(window, kWidthMM, "200"));
        inches(window);
        EXPECT_TRUE(stepper(window, SPCustomSizeLengthInchLittleArrowID).step(1170));
        EXPECT_EQ(text(window, kLengthInch), "11.70");
        EXPECT_EQ(text(window, kLengthMM), "297.2");
        okCustom(window);
        EXPECT_THAT(stored(), ElementsAre("200", "297.2", "0"));
    }});
}

TEST_F(CustomSizeTest, DefaultsShowTheDefaultSizeInMillimetres) {
    open();
    withStored("300.0", "400.0", 1, {[&](Window& window) {
                   EXPECT_TRUE(enter(window, kWidthMM, "7"));
                   defaults(window);
                   EXPECT_THAT(fields(window), ElementsAre("210.0", "297.0", "8.27", "11.69"));
                   EXPECT_THAT(steppers(window), ElementsAre(2100, 2970, 827, 1169));
                   expectUnitShown(window, false);
                   cancelCustom(window);
                   EXPECT_THAT(stored(), ElementsAre("300.0", "400.0", "1"));
               }});
    // From inches the hidden millimetres follow the default in inches before the unit changes.
    withStored("300.0", "400.0", 0, {[&](Window& window) {
                   expectUnitShown(window, true);
                   defaults(window);
                   expectUnitShown(window, false);
                   EXPECT_THAT(fields(window), ElementsAre("210.1", "296.9", "8.27", "11.69"));
                   cancelCustom(window);
               }});
}

TEST_F(CustomSizeTest, OpensFromTheAdvancedWindowForTheMenuThatOpenedThat) {
    open();
    add([&](Window& covers) {
        option(covers, CoverOption::frontOnly);
        face.then([&](Window& advanced) {
            face.then([&](Window& window) {
                EXPECT_EQ(custom().GetSubMenuList(), &menu());
                EXPECT_TRUE(enter(window, kWidthMM, "222"));
                okCustom(window);
            });
            const platform::PopUpButton& sizes = popup(advanced, spAdvSeleWndPaperSizeListID);
            EXPECT_TRUE(pick(advanced, spAdvSeleWndPaperSizeListID, {sizes.numberOfItems() - 1}));
            click(advanced, spAdvSeleWndOKButtonID);
        });
        EXPECT_TRUE(pick(covers, spCoversWndFrontCoverPageListID, {6}));
        ok(covers);
    });
    ASSERT_EQ(records().size(), 1U);
    EXPECT_EQ(records()[0].text(RecordKey::width), "222");
}

TEST_F(CustomSizeTest, CorrectingAFieldShowsItsSteppersNumber) {
    open();
    fromNewCover({[&](Window& window) {
        EXPECT_TRUE(enter(window, kWidthMM, "7"));
        EXPECT_TRUE(custom().getSPCustomSizeWidthMMTextEditCtrlPtr()->CorrectCtrlUI());
        EXPECT_EQ(text(window, kWidthMM), "210.0");
        EXPECT_EQ(custom().getSPCustomSizeLengthMMTextEditCtrlPtr()->GetUIData(), "297.0");
        cancelCustom(window);
    }});
}

TEST_F(CustomSizeTest, WithoutMenuOrWindowNothingIsGivenBack) {
    open();
    custom().SetSubMenuList(nullptr);
    face.then([&](Window& window) {
        put(window, kWidthMM, "200.0");
        put(window, kLengthMM, "200.0");
        okCustom(window);
        EXPECT_FALSE(window.isOpen());
    });
    custom().ActivateWindow();
    SPCustomSizeWndEMF lone;
    lone.CreatePanel(nullptr, "Custom Size Windows");
    EXPECT_EQ(lone.ActivateWindow(), 0);
    EXPECT_EQ(lone.defaultCustomWidth(), "210.0");
    EXPECT_EQ(lone.defaultCustomLength(), "297.0");
    EXPECT_EQ(lone.getCustomPageSizeLongMeasure(), 1);
    EXPECT_TRUE(lone.controlsAreValid());
    lone.giveBackSize();
}

TEST_F(CustomSizeTest, IsTheSameUnderAGermanLocale) {
    open();
    const platform::testing::CommaLocale comma;
    fromNewCover({[&](Window& window) {
                      EXPECT_THAT(fields(window), ElementsAre("210.0", "297.0", "8.27", "11.69"));
                      EXPECT_EQ(text(window, SPCustomSizeWidthInchStaticTextID), "Width (3.94 - 12.99):");
                      EXPECT_TRUE(enter(window, kWidthMM, "210.5"));
                      EXPECT_EQ(text(window, kWidthInch), "8.29");
                      put(window, kWidthMM, "210,5");
                      expectRefused(window, kWidthMMMessage, kWidthMM);
                      EXPECT_TRUE(enter(window, kWidthMM, "210.5"));
                      inches(window);
                      EXPECT_TRUE(stepper(window, SPCustomSizeLengthInchLittleArrowID).step(1170));
                      EXPECT_EQ(text(window, kLengthMM), "297.2");
                      EXPECT_TRUE(enter(window, kWidthInch, "8.50"));
                      okCustom(window);
                      EXPECT_THAT(stored(), ElementsAre("215.9", "297.2", "0"));
                  },
                  [&](Window& window) {
                      EXPECT_THAT(fields(window), ElementsAre("215.9", "297.2", "8.50", "11.70"));
                      cancelCustom(window);
                  }});
}

TEST_F(CustomSizeTest, LooksAsKeptInBothUnits) {
    open();
    fromNewCover({[&](Window& window) {
        expect_picture(text_picture(window), "dialogs/golden/custom-size-mm.txt");
        inches(window);
        expect_picture(text_picture(window), "dialogs/golden/custom-size-inches.txt");
        cancelCustom(window);
    }});
}

/// The sample printer with other lines for the custom size.
std::string printer_with(const std::string& widthAndHeight) {
    static const TemporaryFolder folder;
    static int count = 0;
    std::string text = platform::read_file(example("ppd/production.ppd")).value_or("");
    text = std::regex_replace(text, std::regex(R"(\*ParamCustomPageSize [^\n]*\n)"), "");
    const std::size_t at = text.find("*CustomPageSize True");
    if (at == std::string::npos) {
        throw std::runtime_error("no custom size in the sample printer");
    }
    text.insert(text.find('\n', at) + 1, widthAndHeight);
    return folder.write("printer" + std::to_string(count++) + ".ppd", text).string();
}

class CustomSizeOtherRange : public CustomSizeTest {
  protected:
    CustomSizeOtherRange()
        : CustomSizeTest(printer_with("*ParamCustomPageSize Width: 1 points 100 400\n"
                                      "*ParamCustomPageSize Height: 2 points 700 2000\n")) {}
};

TEST_F(CustomSizeOtherRange, RangesTitlesAndTheDefaultInMillimetresComeFromThePrinter) {
    open();
    EXPECT_EQ(custom().defaultCustomWidth(), "35.0");
    EXPECT_EQ(custom().defaultCustomLength(), "297.0");
    fromNewCover({[&](Window& window) {
        EXPECT_EQ(text(window, SPCustomSizeWidthMMStaticTextID), "Width (35.0 - 141.0):");
        EXPECT_EQ(text(window, SPCustomSizeWidthInchStaticTextID), "Width (1.40 - 5.54):");
        EXPECT_EQ(text(window, SPCustomSizeLengthMMStaticTextID), "Length (247.0 - 706.0):");
        EXPECT_EQ(stepper(window, SPCustomSizeWidthMMLittleArrowID).minValue(), 350);
        EXPECT_EQ(stepper(window, SPCustomSizeWidthMMLittleArrowID).maxValue(), 1410);
        EXPECT_EQ(stepper(window, SPCustomSizeWidthInchLittleArrowID).minValue(), 140);
        EXPECT_EQ(stepper(window, SPCustomSizeWidthInchLittleArrowID).maxValue(), 554);
        EXPECT_EQ(text(window, kWidthMM), "210.0") << "what is stored shows as it stands";
        EXPECT_EQ(stepper(window, SPCustomSizeWidthMMLittleArrowID).intValue(), 1410);
        defaults(window);
        EXPECT_EQ(text(window, kWidthMM), "35.0");
        EXPECT_EQ(text(window, kLengthMM), "297.0");
        EXPECT_TRUE(enter(window, kWidthMM, "141.1"));
        okCustom(window);
        ASSERT_EQ(face.alerts().size(), 1U);
        EXPECT_NE(face.alerts()[0].informativeText.find("from 35.0 to 141.0 mm"), std::string::npos);
        inches(window);
        EXPECT_EQ(face.alerts().size(), 2U);
        EXPECT_TRUE(enter(window, kWidthMM, "141"));
        EXPECT_EQ(text(window, kWidthInch), "5.54") << "the ends answer each other";
        okCustom(window);
        EXPECT_THAT(stored(), ElementsAre("141", "297.0", "1"));
    }});
}

class CustomSizeNoRange : public CustomSizeTest {
  protected:
    CustomSizeNoRange() : CustomSizeTest(printer_with("")) {}
};

TEST_F(CustomSizeNoRange, TheRangeOfTheTablesStays) {
    open();
    fromNewCover({[&](Window& window) {
        EXPECT_EQ(text(window, SPCustomSizeWidthMMStaticTextID), "Width ( - ):");
        EXPECT_EQ(stepper(window, SPCustomSizeWidthMMLittleArrowID).minValue(), 1000);
        EXPECT_EQ(stepper(window, SPCustomSizeLengthInchLittleArrowID).maxValue(), 1921);
        EXPECT_TRUE(enter(window, kWidthMM, "99.9"));
        expectRefused(window, kWidthMMMessage, kWidthMM);
        cancelCustom(window);
    }});
}

/// A field and a stepper alone, on a PPD that libcups would not even read.
struct LoneWidth {
    explicit LoneWidth(const std::string& value) {
        ppd.group("General").attribute("ParamCustomPageSize", "Width", value);
        field.CreateControl(&view, &SPCustomSizeWidthMMIniData, nullptr,
                            &SPCustomSizeWidthMMTextEditAccessInfo, {}, &SPCustomSizeWidthMMFilterData,
                            &SPCustomSizeWidthMMEditValueRangeData, kCustomSizeWidth);
        stepper.CreateControl(&arrows, &SPCustomSizeWidthLittleArrowMMIniData, nullptr, {}, kCustomSizeWidth);
        field.InitializeCtrl(nullptr, ppd.file());
        stepper.InitializeCtrl(nullptr, ppd.file());
    }
    std::vector<std::int32_t> range() const {
        return {field.getRangeDataPtr()->minimum, field.getRangeDataPtr()->maximum};
    }

    PpdBuilder ppd;
    TextField view;
    Stepper arrows;
    SPCustomSizeMMTextEditCtrlEMF field;
    SPCustomSizeMMLittleArrowControlEMF stepper;
};

TEST(CustomSizeRange, AValueWithTooFewFieldsKeepsTheTables) {
    for (const char* value : {"", "1", "1 points", "1 points 100"}) {
        const LoneWidth width(value);
        EXPECT_THAT(width.range(), ElementsAre(1000, 3300)) << value;
        EXPECT_EQ(width.arrows.maxValue(), 3300);
    }
}

TEST(CustomSizeRange, EachControlHasItsOwnCopy) {
    const LoneWidth narrow("1 points 100 400");
    EXPECT_THAT(narrow.range(), ElementsAre(350, 1410));
    EXPECT_EQ(narrow.field.GetDefaultDataBlk(), ControlValue(std::string("35.0")));
    EXPECT_EQ(narrow.stepper.GetDefaultDataBlk(), ControlValue(350));
    const LoneWidth plain("");
    EXPECT_THAT(plain.range(), ElementsAre(1000, 3300));
    EXPECT_EQ(plain.field.GetDefaultDataBlk(), ControlValue(std::string("210.0")));
    EXPECT_EQ(plain.stepper.GetDefaultDataBlk(), ControlValue(2100));
}

TEST(CustomSizeRange, OddRangesOfAPrinterAreHarmless) {
    for (const char* value : {"1 points 400 100", "1 points -5 x", "1 points 99999999999 99999999999"}) {
        LoneWidth width(value);
        EXPECT_TRUE(width.stepper.SetControlValueToUI()) << value;
        EXPECT_FALSE(width.field.IsNumberValid("")) << value;
    }
    LoneWidth exchanged("1 points 400 100");
    EXPECT_FALSE(exchanged.field.IsNumberValid("100.0")) << "no number lies in such a range";
}

TEST(CustomSizeTables, EveryRowNamesTagsOfTheWindow) {
    std::set<ControlTag> tags;
    for (const ControlTag base : {700, 720}) {
        for (const ControlTag offset : {1, 2, 11, 12, 13, 14, 15, 16}) {
            tags.insert(base + offset);
        }
    }
    std::set<ControlTag> hidden(SPcustomSizeMMHideCtrlArray.begin(), SPcustomSizeMMHideCtrlArray.end());
    hidden.insert(SPcustomSizeinchesHideCtrlArray.begin(), SPcustomSizeinchesHideCtrlArray.end());
    EXPECT_EQ(hidden, tags) << "the two units together hide every control once";
}

} // namespace
} // namespace specialpages::test
