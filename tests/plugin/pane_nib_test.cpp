// The pane's nibs and texts against what the code declares: every outlet and tag is in every nib, every title
// is in the localised table.
#include "dialogs/advanced_tables.h"
#include "dialogs/covers_tables.h"
#include "dialogs/custom_size_tables.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Nib.h"
#include "plugin/pane_fixture.h"
#include "records/record_tables.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

using platform::NibElement;
using platform::ViewKind;
using ::testing::Contains;

struct Outlet {
    const char* name;
    ViewKind kind;
    ControlTag tag; ///< 0: none
};

/// What the pane connects today; dialogs add their windows here as they come.
const std::vector<Outlet>& outlets() {
    static const std::vector<Outlet> all{
        {"SpecialPagesView", ViewKind::view, 0},
        {"SPAddCoversButton", ViewKind::button, 100},
        {"SPAddInsertsButton", ViewKind::button, 101},
        {"InsertWindowRef", ViewKind::window, 0},
        {"SPAddExceptionsButton", ViewKind::button, 102},
        {"SPSummaryTitleStaticEdit", ViewKind::staticText, 103},
        {"SPSummaryInfoTableView", ViewKind::table, 104},
        {"SPEditButton", ViewKind::button, 105},
        {"SPDeleteButton", ViewKind::button, 106},
        {"SPDeleteAllButton", ViewKind::button, 107},
        {"SPUndoButton", ViewKind::button, 108},
        {"SPUpButton", ViewKind::button, 109},
        {"SPDownButton", ViewKind::button, 110},
        {"SPAddCoverIconView", ViewKind::icon, 111},
        {"SPAddInsertIconView", ViewKind::icon, 112},
        {"SPAddExceptionsIconView", ViewKind::icon, 113},
        {"SPVerStringSTextCtrl", ViewKind::staticText, 114},
        {"SPMainHelpButton", ViewKind::button, 115},
        {"CoversWindowRef", ViewKind::window, 0},
        {"spAddExceptionsWindow", ViewKind::window, 0},
        {"spCustomSizeWindow", ViewKind::window, 0},
        {"SPAdvSeleWndRef", ViewKind::window, 0},
        {"WarningWindowRef", ViewKind::window, 0},
        {"WarningWndIconImage", ViewKind::icon, 801},
    };
    return all;
}

void collect(const NibElement& element, std::map<std::string, NibElement>& byName,
             std::multiset<ControlTag>& tags) {
    byName[element.name] = element;
    if (element.tag != 0) {
        tags.insert(element.tag);
    }
    for (const NibElement& child : element.children) {
        collect(child, byName, tags);
    }
}

class PaneNib : public ::testing::Test {
  protected:
    /// Runs the check on every nib of the bundle.
    static void eachNib(const std::function<void(const std::map<std::string, NibElement>&,
                                                 const std::multiset<ControlTag>&)>& check) {
        int nibs = 0;
        for (const auto& entry : std::filesystem::directory_iterator(paths::bundle_dir())) {
            if (entry.path().extension() != ".nib") {
                continue;
            }
            SCOPED_TRACE(entry.path().filename().string());
            std::string error;
            const auto root = platform::parse_nib(platform::testing::read_test_file(entry.path()), &error);
            ASSERT_TRUE(root.has_value()) << error;
            std::map<std::string, NibElement> byName;
            std::multiset<ControlTag> tags;
            collect(*root, byName, tags);
            check(byName, tags);
            ++nibs;
        }
        EXPECT_GE(nibs, 1);
    }
};

TEST_F(PaneNib, HasEveryOutletWithItsKindAndTag) {
    eachNib([](const auto& byName, const auto&) {
        for (const Outlet& outlet : outlets()) {
            const auto found = byName.find(outlet.name);
            ASSERT_NE(found, byName.end()) << outlet.name;
            EXPECT_EQ(found->second.kind, outlet.kind) << outlet.name;
            EXPECT_EQ(found->second.tag, outlet.tag) << outlet.name;
        }
    });
}

TEST_F(PaneNib, EveryTagStandsOnce) {
    eachNib([](const auto&, const auto& tags) {
        for (const ControlTag tag : tags) {
            EXPECT_EQ(tags.count(tag), 1U) << tag;
        }
        for (const ControlTag tag : {801, 802, 803, 804, 805}) {
            EXPECT_EQ(tags.count(tag), 1U) << tag;
        }
        for (ControlTag tag = spAdvSeleWndSummaryTitleID; tag <= spAdvSeleWndCancelButtonID; ++tag) {
            EXPECT_EQ(tags.count(tag), 1U) << tag;
        }
        for (const auto* array : {&SPcustomSizeMMHideCtrlArray, &SPcustomSizeinchesHideCtrlArray}) {
            for (const ControlTag tag : *array) {
                EXPECT_EQ(tags.count(tag), 1U) << tag;
            }
        }
        for (const ControlTag tag :
             {SPCustomSizeMMRadioButtonID, SPCustomSizeInchesRadioButtonID, SPCustomSizeOKButtonID,
              SPCustomSizeCancelButtonID, SPCustomSizeDefaultButtonID, SPCustomSizeHelpButtonID}) {
            EXPECT_EQ(tags.count(tag), 1U) << tag;
        }
        for (ControlTag tag = spCoversWndCoverOptionListTitleID; tag <= spCoversWndOKButtonID; ++tag) {
            EXPECT_EQ(tags.count(tag), 1U) << tag;
        }
    });
}

TEST_F(PaneNib, ColumnsAreIdentified) {
    eachNib([](const auto& byName, const auto&) {
        EXPECT_THAT(byName.at("SPSummaryInfoTableView").columnIdentifiers,
                    ::testing::ElementsAre("page", "type", "setup"));
    });
}

TEST_F(PaneNib, EveryOutletOfThePaneTakesItsView) {
    SpecialPagesPDEnvbir15 pane;
    built_bundle();
    pane.setPDENibFileName("NVSpecialPages_Default01");
    ASSERT_NE(pane.panelView(), nullptr);
    EXPECT_NE(pane.getSPSummaryScrollViewCtrlPtr(), nullptr);
    platform::View wrongKind;
    EXPECT_FALSE(pane.connectOutlet("SPAddCoversButton", wrongKind));
    EXPECT_FALSE(pane.connectOutlet("NoSuchOutlet", wrongKind));
    EXPECT_EQ(pane.instantiate("NoSuchClass"), nullptr);
    platform::NibObject wrongClass;
    EXPECT_FALSE(pane.connectObject("summaryScrollViewCtrlPtr", wrongClass));
}

TEST(PaneTexts, EveryKeyOfThePaneIsInTheLocalisedTable) {
    std::vector<std::string> keys{"Add Covers Btn",
                                  "Add Inserts Btn",
                                  "Add Exceptions Btn",
                                  "Special Pages Summary Scroll View Title",
                                  "Up Btn",
                                  "Down Btn",
                                  "Edit Btn",
                                  "Delete Btn",
                                  "Delete All Btn",
                                  "Undo Btn",
                                  "Add Covers Windows",
                                  "Add Inserts Windows",
                                  "Add Exceptions Windows",
                                  "Custom Size Windows",
                                  "Adv Paper Wnd",
                                  "PDE Title",
                                  "Help Viewer Title for Special Pages",
                                  "Delete Special Pages Title",
                                  "Delete Selected Special Pages",
                                  "Delete All Special Pages",
                                  "SP Warning OK Btn",
                                  "SP Warning Cancel Btn",
                                  "Alert OK Btn",
                                  "Edit Covers Windows",
                                  "Add Cover Wnd Cover Options List Title",
                                  "Add Cover Wnd Front Cover Paper Info View Title",
                                  "Add Cover Wnd Back Cover Paper Info View Title",
                                  "Add Cover Wnd Printing Options List Title",
                                  "Job Setting Reference View Title",
                                  "Special Pages RESTORE Btn",
                                  "Special Pages CANCEL Btn",
                                  "Special Pages OK Btn",
                                  "Item Conflict Tool Tip",
                                  "Add Insert Paper View Title",
                                  "Size String",
                                  "Color String",
                                  "Type String",
                                  "No Change Option String",
                                  "No Change Infomation",
                                  "Custom Size Text",
                                  "Custom Size Width Inches Static Text",
                                  "Custom Size Length Inches Static Text",
                                  "Custom Size Width MM Static Text",
                                  "Custom Size Length MM Static Text",
                                  "Custom Size MM Side Static Text",
                                  "Custom Size Inch Side Static Text",
                                  "Tab Margin MM Radio Button Title",
                                  "Tab Margin Inches Radio Button Title",
                                  "Message22_Millimeters_Width",
                                  "Message22_Millimeters_Length",
                                  "Message22_Inchs_Width",
                                  "Message22_Inchs_Length",
                                  "Quantity String",
                                  "NVUncollateSeparator-INT"};
    const auto add = [&keys](const auto& table) {
        keys.insert(keys.end(), table.begin(), table.end());
    };
    add(coverOptionListIniMenu);
    add(coverSelectPaperListIniMenu);
    add(gInsertPageTypeResourceString);
    add(gInsertPageNumResourceString);
    add(customSizeLongMeasureString);
    add(tableColumnsTitleResourceString);
    add(printingOptionListIniMenu);
    add(exceptionTowSidePrintIniMenu);
    add(insertOptionListIniMenu);
    for (const std::string& key : keys) {
        EXPECT_NE(built_bundle()->localizedStringForKey(key, "(missing)", ""), "(missing)") << key;
    }
    EXPECT_THAT(built_bundle()->localizations(), Contains("en"));
    EXPECT_EQ(built_bundle()->localizedStringForKey("PDE Title", "(missing)", "Localizable01"),
              "Special Pages");
}

TEST(PaneTexts, EveryIconOfThePaneIsInTheBundle) {
    for (const char* icon : {"AddCovers", "AddInserts", "AddExceptions", "Warning"}) {
        EXPECT_TRUE(built_bundle()->CFBundleCopyResourceURL(icon, "bmp", "").has_value()) << icon;
    }
}

} // namespace
} // namespace specialpages::test
