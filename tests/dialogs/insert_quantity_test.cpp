// The quantity of the inserts dialog: its field and its stepper together.
#include "dialogs/inserts_fixture.h"
#include "dialogs/inserts_tables.h"
#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InsertQuantity : public InsertsDialogTest {
  protected:
    /// The quantity of the one insert that OK makes; 0 when it makes none.
    std::int32_t made() const {
        return records().size() == 1 ? records().front().integer(RecordKey::insertquantity) : 0;
    }
    /// Adds one insert after page 1; `user` deals with the quantity before OK.
    void addOne(const User& user) {
        open();
        add([&](Window& inserts) {
            EXPECT_TRUE(pages(inserts).type("1"));
            user(inserts);
            ok(inserts);
            if (inserts.isOpen()) {
                cancel(inserts);
            }
        });
    }
};

TEST_F(InsertQuantity, ATypedNumberMovesTheStepper) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("9999"));
        EXPECT_EQ(stepper(inserts).intValue(), 9999);
    });
    EXPECT_EQ(made(), 9999);
}

TEST_F(InsertQuantity, AStepShowsInTheField) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(stepper(inserts).step(2));
        EXPECT_TRUE(stepper(inserts).step(3));
        EXPECT_EQ(quantity(inserts).shownText(), "3");
    });
    EXPECT_EQ(made(), 3);
    EXPECT_EQ(face.beeps(), 0);
}

TEST_F(InsertQuantity, StepsGoOnFromWhatWasTyped) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("2"));
        EXPECT_TRUE(stepper(inserts).step(1));
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_TRUE(quantity(inserts).type("8"));
        EXPECT_TRUE(stepper(inserts).step(9));
        EXPECT_EQ(quantity(inserts).shownText(), "9");
    });
    EXPECT_EQ(made(), 9);
    EXPECT_EQ(face.beeps(), 0);
}

TEST_F(InsertQuantity, TheStepperStopsWithABeepAtBothEnds) {
    addOne([&](Window& inserts) {
        EXPECT_TRUE(stepper(inserts).step(0));
        EXPECT_EQ(face.beeps(), 1);
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_TRUE(quantity(inserts).type("9999"));
        EXPECT_TRUE(stepper(inserts).step(10000));
        EXPECT_EQ(face.beeps(), 2);
        EXPECT_EQ(quantity(inserts).shownText(), "9999");
    });
    EXPECT_EQ(made(), 9999);
}

TEST_F(InsertQuantity, AFifthDigitCannotBeTyped) {
    addOne([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("10000"));
        EXPECT_EQ(face.beeps(), 1);
        EXPECT_EQ(quantity(inserts).shownText(), "1000");
    });
    EXPECT_EQ(made(), 1000);
}

TEST_F(InsertQuantity, OnlyDigitsCanBeTyped) {
    addOne([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("-1.2 \xEF\xBC\x95"
                                           "e3"));
        EXPECT_EQ(quantity(inserts).shownText(), "123");
        EXPECT_EQ(face.beeps(), 5);
    });
    EXPECT_EQ(made(), 123);
}

TEST_F(InsertQuantity, LeadingZerosCount) {
    addOne([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("0012"));
        EXPECT_EQ(quantity(inserts).shownText(), "0012");
        EXPECT_EQ(stepper(inserts).intValue(), 12);
    });
    EXPECT_EQ(made(), 12);
}

TEST_F(InsertQuantity, OkRefusesWhatIsNoNumberInRange) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("1"));
        for (const char* typed : {"0", "", "0000"}) {
            EXPECT_TRUE(quantity(inserts).type(typed));
            EXPECT_EQ(quantity(inserts).shownText(), typed);
            ok(inserts);
            EXPECT_TRUE(inserts.isOpen()) << typed;
        }
        for (const char* put : {"10000", "1a", "-3", "99999999999999999999"}) {
            quantity(inserts).setStringValue(put);
            ok(inserts);
            EXPECT_TRUE(inserts.isOpen()) << put;
        }
        EXPECT_EQ(inserts.firstResponder(), &quantity(inserts));
        EXPECT_TRUE(quantity(inserts).type("2"));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_EQ(warnings(), Brief(7, message("Warning45")));
    EXPECT_EQ(made(), 2);
}

TEST_F(InsertQuantity, AStepWaitsUntilTheFieldHoldsANumber) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type(""));
        EXPECT_TRUE(stepper(inserts).step(2));
        EXPECT_THAT(warnings(), ElementsAre(message("Warning45")));
        EXPECT_EQ(face.beeps(), 0);
        EXPECT_EQ(quantity(inserts).shownText(), "");
        EXPECT_TRUE(quantity(inserts).type("5"));
        EXPECT_EQ(stepper(inserts).intValue(), 5);
        EXPECT_TRUE(stepper(inserts).step(6));
        EXPECT_EQ(quantity(inserts).shownText(), "6");
        cancel(inserts);
    });
}

TEST_F(InsertQuantity, OkReadsANumberThatIsStillBeingTyped) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).editText("4"));
        EXPECT_TRUE(quantity(inserts).editText("42"));
    });
    EXPECT_EQ(made(), 42);
}

TEST_F(InsertQuantity, ANumberTypedAgainAfterAnEmptyFieldCounts) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("7"));
        EXPECT_TRUE(quantity(inserts).type(""));
        EXPECT_TRUE(quantity(inserts).type("7"));
        EXPECT_EQ(stepper(inserts).intValue(), 7);
    });
    EXPECT_EQ(made(), 7);
}

TEST_F(InsertQuantity, DefaultsAfterNonsenseGiveOne) {
    addOne([](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("88"));
        EXPECT_TRUE(quantity(inserts).type(""));
        restore(inserts);
        EXPECT_EQ(quantity(inserts).shownText(), "1");
        EXPECT_EQ(stepper(inserts).intValue(), 1);
        EXPECT_TRUE(pages(inserts).type("1"));
    });
    EXPECT_EQ(made(), 1);
}

TEST_F(InsertQuantity, WhatAFailedOkLeftDoesNotReachTheNextOpening) {
    open({insert_after(3, 5)});
    add([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("0"));
        ok(inserts);
        cancel(inserts);
    });
    edit({0}, [&](Window& inserts) {
        EXPECT_EQ(quantity(inserts).shownText(), "5");
        EXPECT_EQ(stepper(inserts).intValue(), 5);
        EXPECT_TRUE(stepper(inserts).step(6));
        ok(inserts);
    });
    EXPECT_EQ(made(), 6);
}

TEST_F(InsertQuantity, TheFieldIsCorrectedFromTheStepper) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(quantity(inserts).type("31"));
        EXPECT_TRUE(quantity(inserts).type(""));
        EXPECT_TRUE(dialog->getSPInstQuantityEditPtr()->CorrectCtrlUI());
        EXPECT_EQ(quantity(inserts).shownText(), "31");
        EXPECT_TRUE(dialog->getSPInstQuantityEditPtr()->InvalidateDataAndReturnError());
        cancel(inserts);
    });
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(InsertQuantity, SaysWithoutAMessageWhetherItHoldsANumber) {
    open();
    add([&](Window& inserts) {
        auto& field = *dialog->getSPInstQuantityEditPtr();
        auto& arrows = *dialog->getSPInstQuantityLArrPtr();
        for (const char* text : {"", "0", "10000", "1a"}) {
            quantity(inserts).setStringValue(text);
            EXPECT_FALSE(field.InvalidateDataAndReturnError()) << text;
            EXPECT_FALSE(arrows.InvalidateRelateControlDataAndReturnError()) << text;
            EXPECT_FALSE(arrows.SetControlValueToUI()) << text;
        }
        EXPECT_THAT(warnings(), IsEmpty());
        EXPECT_FALSE(arrows.InvalidateRelateControlData());
        EXPECT_EQ(warnings().size(), 1U);
        field.Disable();
        EXPECT_TRUE(field.InvalidateDataAndReturnError() || quantity(inserts).stringValue() == "1a");
        quantity(inserts).setStringValue("0");
        EXPECT_TRUE(field.InvalidateDataAndReturnError()) << "a disabled field is not judged by its number";
        field.Enable();
        cancel(inserts);
    });
}

TEST_F(InsertQuantity, NumbersAreDigitsWithinTheRange) {
    open();
    const auto& field = *dialog->getSPInstQuantityEditPtr();
    for (const char* valid : {"1", "9999", "0001"}) {
        EXPECT_TRUE(field.IsNumberValid(valid)) << valid;
    }
    for (const char* wrong : {"", "0", "10000", "1 ", " 1", "1.0", "+1", "1e1", "99999999999"}) {
        EXPECT_FALSE(field.IsNumberValid(wrong)) << wrong;
    }
}

TEST(InsertQuantityAlone, ControlsWithoutPanelOrViewDoNothing) {
    SPAddInsertQuantityTextEditEMF field;
    field.CreateControl(nullptr, &SPInstQuantityEditIniData, &SPInstQuantityEditCnstrnInfoPtr, nullptr, {},
                        &SPInstQuantityEditFilterData, &SPInstQuantityEditRangeData);
    EXPECT_TRUE(field.InvalidateData()) << "no block";
    EXPECT_EQ(field.OnRawKeyUp("5"), 0);
    field.OnLostFocus();
    EXPECT_TRUE(field.CorrectCtrlUI());
    SPAddInsertQuantityLArrEMF arrows;
    arrows.CreateControl(nullptr, &SPInstQuantityLArrIniData, &SPInstQuantityLArrCnstrnInfoPtr, nullptr, {},
                         nullptr, SPInstQuantityLArrVlidateArray);
    EXPECT_EQ(arrows.GetQuantityValue(), 0);
    EXPECT_EQ(arrows.getLastValue(), 1);
    EXPECT_FALSE(arrows.InvalidateRelateControlData());
    arrows.RequestControlAction(nullptr);
    EXPECT_FALSE(arrows.SetControlValueToUI());
    EXPECT_EQ(arrows.DoControlUpdateConstrain(), 0);
    SummaryText text;
    std::vector<std::string> order;
    EXPECT_EQ(arrows.GetSummaryText(&text, &order), 0);
    EXPECT_THAT(order, IsEmpty());
    SPAddInsertQuantityLArrEMF free;
    free.CreateControl(nullptr, &SPInstQuantityLArrIniData, nullptr, nullptr, {}, nullptr, {});
    EXPECT_TRUE(free.InvalidateRelateControlData()) << "nobody to ask";
}

} // namespace
} // namespace specialpages::test
