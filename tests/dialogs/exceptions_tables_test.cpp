// The tables of the exceptions dialog against its window, its texts and its help page.
#include "dialogs/exceptions_fixture.h"
#include "dialogs/exceptions_tables.h"
#include "paper/duplex_choices.h"
#include "records/page_list.h"
#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::ViewKind;

class ExceptionsTables : public ExceptionsDialogTest {};

TEST_F(ExceptionsTables, EveryTagHasItsViewInTheWindow) {
    open();
    const std::vector<std::pair<ControlTag, ViewKind>> views{
        {spExceptionWndPageSTxtCtrlID, ViewKind::staticText},
        {spExceptionWndPaperSTxtCtrlID, ViewKind::staticText},
        {spExceptionWndJobSTxtCtrlID, ViewKind::staticText},
        {spExceptionWnd2SideSTxtCtrlID, ViewKind::staticText},
        {spExceptionWndPageRuleSTxtCtrlID, ViewKind::staticText},
        {spExceptionWndPageETxtCtrlID, ViewKind::textField},
        {spExceptionWndPaperPopupBtnID, ViewKind::popup},
        {spExceptionWndPageInfoViewID, ViewKind::scrollText},
        {spExceptionWnd2SidePopupBtnID, ViewKind::popup},
        {spExceptionWndOKBtnID, ViewKind::button},
        {spExceptionWndCancelBtnID, ViewKind::button},
        {spExceptionWndDefaultBtnID, ViewKind::button},
        {spExceptionWndHelpBtnID, ViewKind::button},
        {spExceptWndJobSettingRefViewID, ViewKind::scrollText},
    };
    for (const auto& [tag, kind] : views) {
        const platform::View* view = dialog->window()->viewWithTag(tag);
        ASSERT_NE(view, nullptr) << tag;
        EXPECT_EQ(view->kind(), kind) << tag;
    }
    EXPECT_EQ(dialog->controlCount(), static_cast<std::int32_t>(views.size()));
    EXPECT_EQ(dialog->window()->cancelButton(), dialog->window()->viewWithTag(spExceptionWndCancelBtnID));
    EXPECT_EQ(dialog->window()->defaultButton(), dialog->window()->viewWithTag(spExceptionWndOKBtnID));
}

TEST_F(ExceptionsTables, ControlsStandInTheOrderOfTheWindowWithTheButtonsLast) {
    open();
    std::vector<ControlTag> order;
    for (const BaseControlEMFSpecialPages* control : dialog->getCtrlGroupArrayRef()) {
        order.push_back(control->GetControlPtr()->tag());
    }
    EXPECT_EQ(order, (std::vector<ControlTag>{301, 302, 303, 304, 305, 311, 312, 313, 314, 319, 318, 317, 316,
                                              315}));
}

TEST_F(ExceptionsTables, EveryKeyIsInTheLocalisedTable) {
    Texts keys{"Add Exceptions Windows",
               "Edit Exceptions Windows",
               "Add Exception Page Define Title",
               "Add Insert Paper View Title",
               "Job Setting Reference View Title",
               "Add Exception Two Side Print Static Text",
               "Add Page Rule Description",
               "Special Pages RESTORE Btn",
               "Special Pages CANCEL Btn",
               "Special Pages OK Btn",
               "Warning46",
               "Warning48",
               "Warning50",
               "Alert OK Btn",
               "No Change Infomation"};
    keys.insert(keys.end(), exceptionBevelBtnIniMenu.begin(), exceptionBevelBtnIniMenu.end());
    keys.insert(keys.end(), exceptionTwoSidePrintMenu.begin(), exceptionTwoSidePrintMenu.end());
    for (const std::string& key : keys) {
        EXPECT_NE(words(key), "(missing)") << key;
    }
}

TEST_F(ExceptionsTables, BoundsOfThePageTextAreThoseOfItsReading) {
    EXPECT_EQ(pageDefineEditRangeData.minimum, kExceptionPageList.range.first);
    EXPECT_EQ(pageDefineEditRangeData.maximum, kExceptionPageList.range.last);
    EXPECT_STREQ(pageDefineFilterData.messageKey, "Warning46");
    EXPECT_EQ(pageDefineFilterData.messageKey, kExceptionPageList.wrongTextKey);
    EXPECT_STREQ(pageDefineIniData.initialText, "");
    EXPECT_STREQ(pageDefineIniData.defaultText, "");
    EXPECT_EQ(pageDefineIniData.minimumLength, 1U);
    EXPECT_EQ(pageDefineIniData.maximumLength, 99U);
    EXPECT_EQ(pageDefineTextEditAccessInfo.ticketKey, nullptr);
    EXPECT_EQ(pageDefineTextEditAccessInfo.preferenceKey, nullptr);
}

TEST_F(ExceptionsTables, EachTwoSideItemHasItsKeyAndItsDuplexChoice) {
    EXPECT_EQ(exceptionTwoSidePrintIniData.defaultItem, 2);
    EXPECT_EQ(exceptionTwoSidePrintIniData.initial, -1);
    const std::vector<std::pair<std::string, std::string>> rows{
        {"No Change Option String", "NULL"},
        {"1 Side Print Option String", "None"},
        {"2 Side Print Option String", "DuplexTumble"},
        {"2 Side Short Edge Option String", "DuplexNoTumble"}};
    ASSERT_EQ(exceptionTwoSidePrintMenu.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(exceptionTwoSidePrintMenu[i], rows[i].first);
        ASSERT_EQ(twoSidePrintGetDuplexChoiceArray[i].size(), 1U);
        EXPECT_EQ(twoSidePrintGetDuplexChoiceArray[i][0], rows[i].second);
    }
}

TEST_F(ExceptionsTables, EveryItemOfThePaperMenuUpdatesThePaperView) {
    ASSERT_EQ(exceptionBevelBtnIniMenu.size(), 7U);
    EXPECT_EQ(exceptionBevelBtnIniData.defaultItem, 1);
    EXPECT_EQ(exceptionBevelBtnIniData.initial, -1);
    const ConstraintRows rows = addExceptSelectPaperLboxCnstrnInfoPtr.update;
    ASSERT_EQ(rows.size(), 6U);
    for (const ConstraintRow row : rows) {
        ASSERT_EQ(row.size(), 1U);
        EXPECT_EQ(row[0], spExceptionWndPageInfoViewID);
    }
}

} // namespace
} // namespace specialpages::test
