// The tables of the inserts dialog against its window: every tag is a control, every key is localised, and
// every default is legal.
#include "dialogs/inserts_fixture.h"
#include "dialogs/inserts_tables.h"
#include "platform/toolkit/Nib.h"
#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace specialpages::test {
namespace {

using platform::ViewKind;
using ::testing::ElementsAre;

class InsertsTables : public InsertsDialogTest {};

TEST_F(InsertsTables, ControlsStandInTheOrderInWhichTheyAreAsked) {
    open();
    std::vector<ControlTag> tags;
    for (const BaseControlEMFSpecialPages* control : dialog->getCtrlGroupArrayRef()) {
        tags.push_back(control->GetControlPtr()->tag());
    }
    EXPECT_THAT(tags, ElementsAre(3201, 3202, 3203, 3204, 3205, 3206, 3207, 3208, 3210, 3209, 3211, 3212,
                                  3217, 3213, 3214, 3215, 3216));
}

TEST_F(InsertsTables, EveryTagHasAViewOfItsKind) {
    open();
    const std::vector<std::pair<ControlTag, ViewKind>> kinds{
        {SPInstWndInstQptionStaticTagID, ViewKind::staticText},
        {SPInstWndInstOptionTagID, ViewKind::popup},
        {SPInstWndQuantityStaticTagID, ViewKind::staticText},
        {SPInstWndQuantityEditTagID, ViewKind::textField},
        {SPInstWndQuantityLArrTagID, ViewKind::stepper},
        {SPInstWndPageNumStaticTagID, ViewKind::staticText},
        {SPInstWndPageNumTagID, ViewKind::textField},
        {SPInstWndPaperViewStaticTagID, ViewKind::staticText},
        {SPInstWndPaperViewTagID, ViewKind::scrollText},
        {SPInstWndSelePaperTagID, ViewKind::popup},
        {SPInstWndIobSetRefStaticTagID, ViewKind::staticText},
        {SPInstWndJobSetRefTagID, ViewKind::scrollText},
        {SPInstWndHelpBtnTagID, ViewKind::button},
        {SPInstWndDefaultBtnTagID, ViewKind::button},
        {SPInstWndCancelBtnTagID, ViewKind::button},
        {SPInstWndOKBtnTagID, ViewKind::button},
        {SPInstWndPageRuleStaticTagID, ViewKind::staticText},
    };
    for (const auto& [tag, kind] : kinds) {
        ASSERT_NE(dialog->window()->viewWithTag(tag), nullptr) << tag;
        EXPECT_EQ(dialog->window()->viewWithTag(tag)->kind(), kind) << tag;
        EXPECT_NE(dialog->GetPanelControl(tag), nullptr) << tag;
    }
}

TEST_F(InsertsTables, EveryRowNamesControlsOfTheDialog) {
    open();
    for (const ConstraintRecord* record : {&SPInstOptionListCnstrnInfoPtr, &SPInstQuantityEditCnstrnInfoPtr,
                                           &SPInstQuantityLArrCnstrnInfoPtr, &SPInstBevelBtnCnstrnInfoPtr}) {
        for (const ConstraintRows& rows : {record->disable, record->hide, record->update}) {
            for (const ConstraintRow& row : rows) {
                for (const ControlTag tag : row) {
                    EXPECT_NE(dialog->GetPanelControl(tag), nullptr) << tag;
                }
            }
        }
    }
    EXPECT_EQ(SPInstOptionListCnstrnInfoPtr.disable.size(), insertOptionLboxIniData.menuKeys.size());
    EXPECT_EQ(SPInstBevelBtnCnstrnInfoPtr.update.size() + 1, SPInstBevelBtnIniData.menuKeys.size());
}

TEST_F(InsertsTables, EveryKeyIsLocalised) {
    std::vector<std::string> keys{"Add Inserts Windows",
                                  "Edit Inserts Windows",
                                  "Add Insert Page Define Title",
                                  "Add Insert Quantity Define Title",
                                  "Add Insert Jobsetting View Title",
                                  "Add Insert Option Define Title",
                                  "Add Insert Paper View Title",
                                  "Add Page Rule Description",
                                  "Special Pages OK Btn",
                                  "Special Pages CANCEL Btn",
                                  "Special Pages RESTORE Btn",
                                  "No Change Infomation",
                                  "Warning44",
                                  "Warning45",
                                  "Warning47",
                                  "Warning49"};
    keys.insert(keys.end(), insertOptionMenu.begin(), insertOptionMenu.end());
    keys.insert(keys.end(), SPInstBevelBtnIniMenu.begin(), SPInstBevelBtnIniMenu.end());
    for (const std::string& key : keys) {
        EXPECT_NE(message(key.c_str()), "(missing)") << key;
    }
    EXPECT_STREQ(SPInstPageNumEditFilterData.messageKey, "Warning44");
    EXPECT_STREQ(SPInstQuantityEditFilterData.messageKey, "Warning45");
    EXPECT_TRUE(
        built_bundle()->CFBundleCopyResourceURL("SpecialPagesInsert_Default01", "htm", "Help").has_value());
}

TEST_F(InsertsTables, DefaultsAreLegal) {
    EXPECT_STREQ(SPInstQuantityEditIniData.defaultText, "1");
    EXPECT_STREQ(SPInstQuantityEditIniData.initialText, "1");
    EXPECT_TRUE(validateInput(SPInstQuantityEditIniData.defaultText, SPInstQuantityEditFilterData));
    EXPECT_EQ(SPInstQuantityLArrIniData.minimum, SPInstQuantityEditRangeData.minimum);
    EXPECT_EQ(SPInstQuantityLArrIniData.maximum, SPInstQuantityEditRangeData.maximum);
    EXPECT_EQ(SPInstQuantityLArrIniData.defaultValue, 1);
    EXPECT_EQ(SPInstQuantityLArrIniData.initial, 0);
    EXPECT_STREQ(SPInstPageNumEditIniData.defaultText, "");
    EXPECT_EQ(SPInstPageNumEditIniData.minimumLength, 0U);
    EXPECT_EQ(SPInstPageNumEditIniData.maximumLength, 99U);
    EXPECT_EQ(SPInstPageNumEditValueRangeData.minimum, kInsertPageList.range.first);
    EXPECT_EQ(SPInstPageNumEditValueRangeData.maximum, kInsertPageList.range.last);
    EXPECT_EQ(insertOptionLboxIniData.defaultItem, 1);
    EXPECT_EQ(insertOptionLboxIniData.initial, -1);
    EXPECT_EQ(SPInstBevelBtnIniData.defaultItem, 1);
    EXPECT_EQ(SPInstBevelBtnIniData.initial, -1);
}

TEST_F(InsertsTables, ReturnAndEscapeStandForOkAndCancel) {
    open();
    ASSERT_NE(dialog->window()->defaultButton(), nullptr);
    ASSERT_NE(dialog->window()->cancelButton(), nullptr);
    EXPECT_EQ(dialog->window()->defaultButton()->tag(), SPInstWndOKBtnTagID);
    EXPECT_EQ(dialog->window()->cancelButton()->tag(), SPInstWndCancelBtnTagID);
}

} // namespace
} // namespace specialpages::test
