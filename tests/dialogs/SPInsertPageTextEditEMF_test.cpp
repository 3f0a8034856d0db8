#include "dialogs/SPInsertPageTextEditEMF.h"
#include "dialogs/inserts_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A text, the pages that OK makes of it, or the key of its message.
struct TypedPages {
    std::string text;
    std::vector<std::string> pages;
    const char* warning = nullptr;
};

class InsertPageText : public InsertsDialogTest {
  protected:
    /// Types each text into the dialog of an empty list, or one with just a front cover, and presses OK.
    void check(const std::vector<TypedPages>& all, bool frontCover = false) {
        open();
        for (const TypedPages& each : all) {
            SCOPED_TRACE("\"" + each.text + "\"");
            hold(frontCover ? RecordList{cover_front()} : RecordList{});
            const std::size_t before = face.alerts().size();
            add([&](Window& inserts) {
                EXPECT_TRUE(pages(inserts).type(each.text));
                ok(inserts);
                EXPECT_EQ(inserts.isOpen(), each.warning != nullptr);
                if (inserts.isOpen()) {
                    cancel(inserts);
                }
            });
            std::vector<std::string> made;
            for (const SpecialPageRecord& record : records()) {
                if (record.is(RecordType::insert)) {
                    made.push_back(record.text(RecordKey::page));
                }
            }
            EXPECT_EQ(made, each.pages);
            ASSERT_EQ(face.alerts().size() - before, each.warning == nullptr ? 0U : 1U);
            if (each.warning != nullptr) {
                EXPECT_EQ(face.alerts().back().informativeText, message(each.warning));
            }
        }
    }
};

TEST_F(InsertPageText, TypedTextsBecomePagesOrAMessage) {
    check({
        {"3", {"3"}},
        {"3,1,2", {"1", "2", "3"}},
        {"3,3", {"3", "3"}},
        {"7-9", {"7", "8", "9"}},
        {"9-7", {}, "Warning49"},
        {"1 2", {"1", "2"}},
        {"1 - 2", {"1", "2"}},
        {"1- 2", {"1", "2"}},
        {"1 , 2", {"1", "2"}},
        {"1,,2", {"1", "2"}},
        {",1", {"1"}},
        {"1,", {"1"}},
        {"1, ,2", {}, "Warning44"},
        {"5-", {}, "Warning47"},
        {"-5", {"1", "2", "3", "4", "5"}},
        {"64998-", {"64998", "64999", "65000"}},
        {"0", {"0"}},
        {"0-3", {"0", "1", "2", "3"}},
        {"65000", {"65000"}},
        {"65001", {}, "Warning44"},
        {"99999999999999999999", {}, "Warning44"},
        {"4294967297", {}, "Warning44"},
        {"1-2-3", {}, "Warning44"},
        {"-", {}, "Warning44"},
        {"   ", {}, "Warning44"},
        {"", {}, "Warning44"},
        {",", {}, "Warning44"},
        {"1-251", {}, "Warning47"},
        {"007", {"7"}},
    });
}

TEST_F(InsertPageText, BesideAFrontCoverPageZeroNamesNoPage) {
    check({{"0", {}}, {"0-3", {"1", "2", "3"}}, {"0,5,0", {"5"}}}, true);
}

TEST_F(InsertPageText, CharactersThatAreNotPagesCannotBeTyped) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("a3\xEF\xBC\x95;\t-\n9\xF0\x9F\x98\x80"));
        EXPECT_EQ(pages(inserts).shownText(), "3-9");
        EXPECT_EQ(face.beeps(), 6);
        cancel(inserts);
    });
}

TEST_F(InsertPageText, TheHundredthCharacterCannotBeTypedAndIsRefusedOtherwise) {
    open();
    const std::string full = std::string(98, ' ') + "4";
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type(full + "4"));
        EXPECT_EQ(pages(inserts).shownText(), full);
        EXPECT_EQ(face.beeps(), 1);
        pages(inserts).setStringValue(full + " ");
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        pages(inserts).setStringValue("4\xEF\xBC\x95");
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        pages(inserts).setStringValue(full);
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning44"), message("Warning44")));
    EXPECT_EQ(briefRecords(), (Brief{"4,0,1" + kDefaultPaper}));
}

TEST_F(InsertPageText, BeforePageOneTheTextIsNotRead) {
    open();
    add([&](Window& inserts) {
        chooseBeforePageOne(inserts);
        pages(inserts).setStringValue(std::string(300, '9'));
        ok(inserts);
        EXPECT_FALSE(inserts.isOpen());
    });
    EXPECT_THAT(warnings(), IsEmpty());
    EXPECT_EQ(briefRecords(), (Brief{"0,1,1" + kDefaultPaper}));
}

TEST_F(InsertPageText, BeforePageOneItsCharactersStillCount) {
    open();
    add([&](Window& inserts) {
        chooseBeforePageOne(inserts);
        pages(inserts).setStringValue("x");
        ok(inserts);
        EXPECT_TRUE(inserts.isOpen());
        cancel(inserts);
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning44")));
}

TEST_F(InsertPageText, OkReadsWhatIsStillBeingTyped) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).editText("1"));
        EXPECT_TRUE(pages(inserts).editText("12"));
        EXPECT_TRUE(pages(inserts).isEditing());
        ok(inserts);
    });
    EXPECT_EQ(briefRecords(), (Brief{"12,0,1" + kDefaultPaper}));
}

TEST_F(InsertPageText, KeepsTheNormalFormAndThePagesOfTheLastValidText) {
    open();
    add([&](Window& inserts) {
        auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        EXPECT_EQ(text.arrangedText(), "");
        EXPECT_EQ(text.ValidatePageList("3 1 - 2,"), kPageListValid);
        EXPECT_EQ(text.arrangedText(), "3,1-2,");
        const PageRanges kept{{3, 3}, {1, 2}};
        EXPECT_EQ(text.GetSortedPageArray(), kept);
        EXPECT_EQ(text.ValidatePageList("9-7"), kPageListReversed);
        EXPECT_EQ(text.GetSortedPageArray(), kept) << "a failure before the pages are taken keeps them";
        EXPECT_EQ(text.ValidatePageList(std::nullopt), kPageListNull);
        EXPECT_EQ(text.arrangedText(), "3,1-2,");
        text.InitialPageArray();
        EXPECT_THAT(text.GetSortedPageArray(), IsEmpty());
        EXPECT_EQ(text.arrangedText(), "");
        cancel(inserts);
    });
}

TEST_F(InsertPageText, EachOpeningForgetsThePagesBefore) {
    open();
    add([&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("4"));
        ok(inserts);
    });
    add([&](Window& inserts) {
        EXPECT_THAT(dialog->getSPInstPageNumEditCtlPtr()->GetSortedPageArray(), IsEmpty());
        EXPECT_EQ(pages(inserts).shownText(), "");
        cancel(inserts);
    });
}

TEST_F(InsertPageText, TheLimitCountsTheInsertsThatThereAre) {
    open(inserts_after_each(248));
    add([&](Window& inserts) {
        const auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        EXPECT_FALSE(text.IsRecordExceedMaxWithAddition(2));
        EXPECT_TRUE(text.IsRecordExceedMaxWithAddition(3));
        cancel(inserts);
    });
    edit({0}, [&](Window& inserts) {
        const auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        EXPECT_FALSE(text.IsRecordExceedMaxWithAddition(3));
        EXPECT_TRUE(text.IsRecordExceedMaxWithAddition(4));
        cancel(inserts);
    });
    edit({0, 1}, [&](Window& inserts) {
        EXPECT_FALSE(dialog->getSPInstPageNumEditCtlPtr()->IsRecordExceedMaxWithAddition(1000));
        cancel(inserts);
    });
}

TEST_F(InsertPageText, AnyOtherNumberShowsTheFirstMessage) {
    open();
    add([&](Window& inserts) {
        auto& text = *dialog->getSPInstPageNumEditCtlPtr();
        for (const std::int32_t warning : {1, 2, 3, 0, 4}) {
            text.ShowErrMsg(warning);
        }
        cancel(inserts);
    });
    EXPECT_THAT(warnings(), ElementsAre(message("Warning44"), message("Warning47"), message("Warning49"),
                                        message("Warning44"), message("Warning44")));
}

TEST(InsertPageTextAlone, WithoutViewPanelOrTableNothingIsRefused) {
    SPInsertPageTextEditEMF text;
    text.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, nullptr, 250, nullptr);
    EXPECT_TRUE(text.InvalidateData());
    EXPECT_TRUE(text.PreInvalidateData());
    EXPECT_FALSE(text.BEnable());
    text.SetToDisable();
    text.SetToEnable();
    text.ShowErrMsg(1);
    EXPECT_TRUE(text.SetDefaultValueToUI());
    EXPECT_TRUE(text.SetControlValueToUI());
    EXPECT_EQ(text.valueRange().maximum, 0);
    EXPECT_FALSE(text.IsRecordExceedMaxWithAddition(1000)) << "neither adding nor editing";
}

} // namespace
} // namespace specialpages::test
