// Every constraint of the sample printer that paper menus look at, one after the other in the open dialog:
// with its first half in force, the item of its second half is disabled and says why.
#include "dialogs/covers_fixture.h"
#include "paper/SPCoversSelectPaperListCtrlEMF.h"
#include "ppd/cups_ppd.h"

#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

namespace specialpages::test {
namespace {

using platform::Window;

class CoversConstraints : public CoversDialogTest {
  protected:
    static std::optional<std::int64_t> partOf(const std::string& option) {
        static const std::map<std::string, std::int64_t> kParts{
            {"PageSize", kSize}, {"NVMediaColor", kColor}, {"MediaType", kType}};
        const auto found = kParts.find(option);
        return found == kParts.end() ? std::nullopt : std::optional(found->second);
    }
    std::int32_t indexOf(const std::string& option, const std::string& choice) {
        const ppd_option_t* found = cups_find_option(ppd.get(), option.c_str());
        for (int i = 0; found != nullptr && i < found->num_choices; ++i) {
            if (choice == found->choices[i].choice) {
                return i;
            }
        }
        return -1;
    }
    /// "Not with OPTION: CHOICE", in the PPD's words.
    std::string reason(const std::string& option, const std::string& choice) {
        ppd_option_t* found = cups_find_option(ppd.get(), option.c_str());
        return std::string("Not with ") + found->text + ": " + cups_find_choice(found, choice.c_str())->text;
    }
    /// Puts the first half in force: in the menu, or as a mark. False when paper menus do not look at it.
    bool force(SPCoversSelectPaperListCtrlEMF& menu, const std::string& option, const std::string& choice) {
        if (const auto part = partOf(option)) {
            menu.setSelectedMenuItemIndexByType(static_cast<std::int32_t>(*part), indexOf(option, choice));
            return true;
        }
        if (option == "NVRegionalPaperSetting" || option == "NVSwitchPaperSize") {
            mark_option(ppd.get(), option.c_str(), choice.c_str());
            return true;
        }
        return false;
    }
    void release(SPCoversSelectPaperListCtrlEMF& menu) {
        menu.SetControlValueToDefault();
        mark_defaults(ppd.get());
    }
};

TEST_F(CoversConstraints, EachOneOfTheSamplePrinterDisablesItsItemAndIsItsReason) {
    open();
    add([&](Window& window) {
        option(window, CoverOption::frontOnly);
        SPCoversSelectPaperListCtrlEMF& menu = *dialog->getSPCoverWndFrontSelectPaperListPtr();
        int looked_at = 0;
        int exact = 0;
        for (int i = 0; i < ppd.get()->num_consts; ++i) {
            const ppd_const_t& constraint = ppd.get()->consts[i];
            const auto part = partOf(constraint.option2);
            const std::string first = constraint.option1;
            const bool ofColor = first == "NVMediaColor";
            // The last size follows tab stock alone.
            if (!part || constraint.choice1[0] == '\0' || std::string(constraint.choice2) == "Custom" ||
                !force(menu, first, constraint.choice1)) {
                continue;
            }
            menu.updateSelectionArray();
            menu.UpdateSelfConflictsFromPPD(ppd.get());
            const auto at = position(window, spCoversWndFrontCoverPageListID, *part, constraint.choice2);
            ASSERT_GE(at, 0) << constraint.choice2;
            const platform::MenuItem& item = *popup(window, spCoversWndFrontCoverPageListID)
                                                  .menu()
                                                  .itemAtIndex(*part)
                                                  ->submenu()
                                                  ->itemAtIndex(at);
            const std::string words = reason(first, constraint.choice1);
            if (ofColor) {
                EXPECT_NE(item.toolTip(), words) << "a color forbids nothing here";
            } else {
                ++looked_at;
                EXPECT_FALSE(item.isEnabled()) << words << ", item " << item.title();
                EXPECT_EQ(item.toolTip().substr(0, 9), "Not with ") << item.title();
                exact += item.toolTip() == words ? 1 : 0;
            }
            release(menu);
        }
        EXPECT_EQ(looked_at, 490) << "495, but five of them are about the size Custom";
        EXPECT_GT(exact, looked_at / 2) << "others are forbidden by something before it as well";
        cancel(window);
    });
}

TEST_F(CoversConstraints, WhatIsPrintedOnTheCoverForbidsTypesForOneSide) {
    open();
    add([&](Window& window) {
        option(window, CoverOption::frontOnly);
        int forbidden = 0;
        for (int i = 0; i < ppd.get()->num_consts; ++i) {
            const ppd_const_t& constraint = ppd.get()->consts[i];
            if (std::string(constraint.option1) != "Duplex" ||
                std::string(constraint.option2) != "MediaType" || constraint.choice1[0] != '\0') {
                continue;
            }
            const auto at = position(window, spCoversWndFrontCoverPageListID, kType, constraint.choice2);
            const auto enabled = [&] {
                return popup(window, spCoversWndFrontCoverPageListID)
                    .menu()
                    .itemAtIndex(kType)
                    ->submenu()
                    ->itemAtIndex(at)
                    ->isEnabled();
            };
            EXPECT_TRUE(pick(window, spCoversWndFrontPrintingOptionListID, {2}));
            EXPECT_FALSE(enabled()) << constraint.choice2;
            EXPECT_TRUE(pick(window, spCoversWndFrontPrintingOptionListID, {0}));
            EXPECT_TRUE(enabled()) << constraint.choice2;
            ++forbidden;
        }
        EXPECT_EQ(forbidden, 20);
        cancel(window);
    });
}

} // namespace
} // namespace specialpages::test
