#include "dialogs/SPAddExceptTextEditCtrlEMF.h"
#include "dialogs/exceptions_fixture.h"
#include "dialogs/exceptions_tables.h"
#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExceptionPageText : public ExceptionsDialogTest {
  protected:
    SPAddExceptTextEditCtrlEMF& control() { return *dialog->getAddExceptPageEditText(); }
    std::string refusals; ///< keys of the warnings of the last text
    /// What OK's check of the text answers; the text is set by program, so that no key is dropped.
    bool accepts(User& user, const std::string& text) {
        const std::size_t before = face.alerts().size();
        user.field().setStringValue(text);
        const bool valid = control().InvalidateData();
        refusals.clear();
        for (std::size_t i = before; i < face.alerts().size(); ++i) {
            for (const char* key : {"Warning46", "Warning48", "Warning50"}) {
                refusals += face.alerts()[i].informativeText == words(key) ? key : "";
            }
            EXPECT_EQ(face.alerts()[i].buttonTitle, "OK");
            EXPECT_EQ(face.alerts()[i].messageText, "");
        }
        return valid;
    }
};

/// Single pages 1 to `count`.
std::string single_pages(int count) {
    std::string text;
    for (int page = 1; page <= count; ++page) {
        text += (page == 1 ? "" : ",") + std::to_string(page);
    }
    return text;
}

TEST_F(ExceptionPageText, ReadsASetOfPages) {
    open();
    add([&](User& user) {
        const std::vector<std::pair<std::string, Texts>> cases{
            {"5", {"5"}},          {"5-7", {"5", "6", "7"}},
            {"1", {"1"}},          {"-3", {"1", "2", "3"}},
            {"65000-", {"65000"}}, {"65000", {"65000"}},
            {"7,7", {"7"}},        {"7-9,8-10,3", {"3", "7", "8", "9", "10"}},
            {"1 2", {"1", "2"}},   {" 1 - 3 , 5, ", {"1", "2", "3", "5"}},
            {",1,,2", {"1", "2"}}, {"3,1,2", {"1", "2", "3"}},
            {"007", {"7"}},
        };
        for (const auto& [text, pages] : cases) {
            EXPECT_TRUE(accepts(user, text)) << text;
            EXPECT_EQ(refusals, "") << text;
            EXPECT_EQ(control().getPageDefineArray(), pages) << text;
        }
        EXPECT_EQ(control().arrangedText(), "007,");
    });
}

TEST_F(ExceptionPageText, RefusesEachWrongTextWithItsWarning) {
    open();
    add([&](User& user) {
        ASSERT_TRUE(accepts(user, "4-5"));
        const std::vector<std::pair<std::string, std::string>> cases{
            {"", "Warning46"},      {" ", "Warning46"},       {",", "Warning46"},
            {" , ,", "Warning46"},  {"0", "Warning46"},       {"0-3", "Warning46"},
            {"65001", "Warning46"}, {"1-65001", "Warning46"}, {"99999999999999999999", "Warning46"},
            {"-", "Warning46"},     {"1-2-3", "Warning46"},   {"1, ,2", "Warning46"},
            {"a", "Warning46"},     {"1;2", "Warning46"},     {"１", "Warning46"},
            {"1\t2", "Warning46"},  {"5-3", "Warning50"},     {"2,9-7", "Warning50"},
            {"-0", "Warning46"},
        };
        for (const auto& [text, warning] : cases) {
            EXPECT_FALSE(accepts(user, text)) << '"' << text << '"';
            EXPECT_EQ(refusals, warning) << '"' << text << '"';
            EXPECT_THAT(control().getPageDefineArray(), ElementsAre("4", "5")) << '"' << text << '"';
        }
        EXPECT_EQ(user.window().firstResponder(), &user.field());
    });
}

TEST_F(ExceptionPageText, TakesNinetyNineColumnsAndNoMore) {
    open();
    const std::string longest = "1" + std::string(97, ' ') + "2";
    add([&](User& user) {
        ASSERT_EQ(longest.size(), 99U);
        EXPECT_TRUE(accepts(user, longest));
        EXPECT_FALSE(accepts(user, longest + " "));
        EXPECT_EQ(refusals, "Warning46");
    });
}

TEST_F(ExceptionPageText, AFieldRefusesEveryKeyThatNoPageListHas) {
    open();
    add([&](User& user) {
        EXPECT_TRUE(user.type("x5;-\n7!é７"));
        EXPECT_EQ(user.field().stringValue(), "5-7");
        EXPECT_EQ(face.beeps(), 6);
        EXPECT_TRUE(user.type(std::string(120, '1')));
        EXPECT_EQ(user.field().stringValue(), std::string(99, '1'));
        EXPECT_EQ(face.beeps(), 6 + 21);
    });
}

TEST_F(ExceptionPageText, LimitsPageSetsAndNotPages) {
    open();
    add([&](User&) {
        EXPECT_EQ(control().ValidatePageList("1-"), kPageListValid);
        EXPECT_EQ(page_count(control().getPageNumIndex()), 65000);
        EXPECT_EQ(control().ValidatePageList(single_pages(250)), kPageListValid);
        EXPECT_EQ(control().getPageDefineArray().size(), 250U);
        EXPECT_EQ(control().ValidatePageList(single_pages(251)), kPageListTooMany);
        EXPECT_EQ(control().ValidatePageList(std::nullopt), kPageListNull);
        EXPECT_EQ(control().getPageDefineArray().size(), 250U);
    });
}

TEST_F(ExceptionPageText, LengthIsJudgedBeforeTheNumberOfPageSets) {
    open();
    add([&](User& user) {
        std::string sets = "1";
        while (sets.size() < 501) {
            sets += ",1";
        }
        ASSERT_EQ(sets.size(), 501U);
        EXPECT_EQ(control().ValidatePageList(sets), kPageListTooMany);
        EXPECT_FALSE(accepts(user, sets));
        EXPECT_EQ(refusals, "Warning46");
    });
}

TEST_F(ExceptionPageText, AHiddenOrConstrainedFieldPassesWithoutACheckAndKeepsItsPages) {
    open();
    add([&](User& user) {
        ASSERT_TRUE(accepts(user, "8"));
        control().Hide();
        EXPECT_TRUE(accepts(user, "nonsense"));
        control().Show();
        control().Disable();
        EXPECT_TRUE(accepts(user, ""));
        control().Enable();
        EXPECT_THAT(control().getPageDefineArray(), ElementsAre("8"));
        EXPECT_FALSE(accepts(user, ""));
    });
}

TEST_F(ExceptionPageText, ADisabledViewHasNoLimitsButItsTextCounts) {
    open();
    add([&](User& user) {
        user.field().setEnabled(false);
        EXPECT_TRUE(accepts(user, single_pages(251)));
        EXPECT_EQ(control().getPageDefineArray().size(), 251U);
        EXPECT_FALSE(accepts(user, ""));
        EXPECT_EQ(refusals, "Warning46");
        EXPECT_FALSE(accepts(user, "9-7"));
        EXPECT_EQ(refusals, "Warning50");
    });
}

TEST_F(ExceptionPageText, IsDisabledWhileSeveralExceptionsAreEdited) {
    open({plain_exception("3"), colored_exception("4", kBlue), plain_exception("9")});
    edit({0, 1, 2}, [&](User& user) {
        EXPECT_FALSE(user.field().isEnabled());
        EXPECT_EQ(user.field().stringValue(), "3,4,9");
        user.defaults();
        EXPECT_EQ(user.field().stringValue(), "3,4,9");
        EXPECT_FALSE(user.field().isEnabled());
    });
    edit({1}, [&](User& user) {
        EXPECT_TRUE(user.field().isEnabled());
        user.defaults();
        EXPECT_EQ(user.field().stringValue(), "");
    });
    edit({0, 2}, [&](User& user) { EXPECT_FALSE(user.field().isEnabled()); });
    select({0, 2});
    add([&](User& user) { EXPECT_TRUE(user.field().isEnabled()); });
}

TEST_F(ExceptionPageText, WithoutAPanelItWarnsOfNothing) {
    platform::TextField view;
    SPAddExceptTextEditCtrlEMF alone;
    alone.CreateControl(&view, &pageDefineIniData, nullptr, &pageDefineTextEditAccessInfo, {},
                        &pageDefineFilterData, kMaxPageDefineNum);
    alone.InitializeCtrl(nullptr, nullptr);
    EXPECT_FALSE(alone.InvalidateData());
    alone.ShowErrMsg(2);
    EXPECT_THAT(face.alerts(), IsEmpty());
    view.setStringValue("2-4");
    EXPECT_TRUE(alone.InvalidateData());
    EXPECT_THAT(alone.getPageDefineArray(), ElementsAre("2", "3", "4"));
    EXPECT_TRUE(alone.SetControlValueToUI());
    EXPECT_TRUE(view.isEnabled());
    EXPECT_TRUE(alone.SetDefaultValueToUI());
    EXPECT_EQ(view.stringValue(), "");
}

TEST_F(ExceptionPageText, WithoutAViewOrAnAccessRecordNothingIsValid) {
    SPAddExceptTextEditCtrlEMF alone;
    alone.CreateControl(nullptr, &pageDefineIniData, nullptr, &pageDefineTextEditAccessInfo, {},
                        &pageDefineFilterData, kMaxPageDefineNum);
    EXPECT_TRUE(alone.InvalidateData()) << "it has no value yet";
    alone.InitializeCtrl(nullptr, nullptr);
    EXPECT_FALSE(alone.InvalidateData());
    platform::TextField view;
    alone.CreateControl(&view, &pageDefineIniData, nullptr, nullptr, {}, &pageDefineFilterData,
                        kMaxPageDefineNum);
    alone.InitializeCtrl(nullptr, nullptr);
    view.setStringValue("2");
    EXPECT_FALSE(alone.InvalidateData());
}

} // namespace
} // namespace specialpages::test
