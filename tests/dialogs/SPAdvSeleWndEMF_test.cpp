#include "dialogs/SPAddInsertWndEMF.h"
#include "dialogs/SPAdvSeleWndEMF.h"
#include "dialogs/covers_fixture.h"
#include "dialogs/inserts_tags.h"
#include "paper/SPAdvSelePaperListEMF.h"
#include "paper/advanced_tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;

/// A paper menu's three indexes.
using Indexes = std::array<std::int32_t, 3>;

/// The covers dialog, or the inserts dialog, with the window that its "Advanced" opens.
class AdvancedPaper : public CoversDialogTest {
  protected:
    static constexpr std::int64_t kAdvanced = 6;

    SPAdvSeleWndEMF& advanced() { return dynamic_cast<SPAdvSeleWndEMF&>(*pane->getAdvSeleWndPtr()); }
    SPAddInsertWndEMF& inserts() { return dynamic_cast<SPAddInsertWndEMF&>(*pane->getSPAddInsertWndPtr()); }

    /// Opens the covers dialog with a front cover, and in it the advanced window for the front paper.
    void fromFrontCover(
        const std::function<void(Window& covers)>& before, const std::function<void(Window& advanced)>& user,
        const std::function<void(Window& covers)>& after = [](Window&) {}) {
        add([&](Window& covers) {
            option(covers, CoverOption::frontOnly);
            before(covers);
            face.then(user);
            EXPECT_TRUE(pick(covers, spCoversWndFrontCoverPageListID, {kAdvanced}));
            after(covers);
            cancel(covers);
        });
    }
    void fromFrontCover(const std::function<void(Window& advanced)>& user) {
        fromFrontCover([](Window&) {}, user);
    }
    /// Opens the inserts dialog on what the list has selected.
    void fromInserts(ControlTag opener, const std::function<void(Window& inserts)>& user) {
        face.then([&](Window& inserts) {
            user(inserts);
            click(inserts, SPInstWndCancelBtnTagID);
        });
        click(*pane->panelView(), opener);
    }
    void select(const RowSet& rows) {
        auto* table = dynamic_cast<platform::TableView*>(pane->panelView()->viewWithTag(104));
        ASSERT_NE(table, nullptr);
        ASSERT_TRUE(table->userSelects(rows));
    }

    static Indexes paper(const SPSubMenuListCtrlEMF& menu) {
        return {menu.getSelectedMenuItemIndexByType(2), menu.getSelectedMenuItemIndexByType(3),
                menu.getSelectedMenuItemIndexByType(4)};
    }
    Indexes frontPaper() { return paper(*dialog->getSPCoverWndFrontSelectPaperListPtr()); }
    static Indexes positions(Window& window) {
        Indexes all{};
        for (std::size_t i = 0; i < all.size(); ++i) {
            all[i] = static_cast<std::int32_t>(
                popup(window, spAdvSeleWndPaperSizeListID + static_cast<ControlTag>(i))
                    .indexOfSelectedItem());
        }
        return all;
    }
    static platform::MenuItem& item(Window& window, ControlTag tag, const std::string& keyword) {
        platform::PopUpButton& list = popup(window, tag);
        for (std::int64_t i = 0; i < list.numberOfItems(); ++i) {
            if (list.menu().itemAtIndex(i)->representedObject() == keyword) {
                return *list.menu().itemAtIndex(i);
            }
        }
        throw std::runtime_error("no item " + keyword);
    }
    static bool choose(Window& window, ControlTag tag, const std::string& keyword) {
        return pick(window, tag, {popup(window, tag).menu().indexOfItem(&item(window, tag, keyword))});
    }
    static bool chooseSize(Window& window, const std::string& keyword) {
        return choose(window, spAdvSeleWndPaperSizeListID, keyword);
    }
    static bool chooseColor(Window& window, const std::string& keyword) {
        return choose(window, spAdvSeleWndPaperColorListID, keyword);
    }
    static bool chooseType(Window& window, const std::string& keyword) {
        return choose(window, spAdvSeleWndPaperTypeListID, keyword);
    }
    static bool offersNoChange(Window& window, ControlTag tag) {
        return !popup(window, tag).menu().itemAtIndex(0)->isHidden();
    }
    static void okAdvanced(Window& window) { click(window, spAdvSeleWndOKButtonID); }
    static void cancelAdvanced(Window& window) { click(window, spAdvSeleWndCancelButtonID); }
};

TEST_F(AdvancedPaper, OpensOnTheMenusIndexesOnePositionFurther) {
    open();
    fromFrontCover(
        [&](Window&) {
            EXPECT_EQ(frontPaper(), (Indexes{2, 0, 0}));
        },
        [&](Window& window) {
            EXPECT_EQ(window.title(), "Advanced Paper Selection");
            EXPECT_TRUE(advanced().IsActived());
            EXPECT_EQ(positions(window), (Indexes{3, 1, 1}));
            EXPECT_EQ(*advanced().GetAdvPaperSizeListPtr()->GetControlBlkPtr(), ControlValue(4))
                << "the control's value is one more than the position";
            EXPECT_EQ(popup(window, spAdvSeleWndPaperSizeListID).titleOfSelectedItem(), "A4");
            EXPECT_EQ(text(window, spAdvSeleWndSummaryViewID),
                      "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n");
            cancelAdvanced(window);
        });
    EXPECT_FALSE(advanced().IsActived());
}

TEST_F(AdvancedPaper, ListsHoldNoChangeAndEveryChoiceOfThePrinter) {
    open();
    fromFrontCover([&](Window& window) {
        platform::Menu& sizes = popup(window, spAdvSeleWndPaperSizeListID).menu();
        const auto last = static_cast<std::int64_t>(sizes.numberOfItems()) - 1;
        EXPECT_EQ(sizes.itemAtIndex(0)->title(), "No Change");
        EXPECT_EQ(sizes.itemAtIndex(0)->representedObject(), "No Change Option String");
        EXPECT_EQ(sizes.itemAtIndex(1)->title(), "A3");
        EXPECT_EQ(sizes.itemAtIndex(last)->title(), "Custom…");
        EXPECT_EQ(sizes.itemAtIndex(last)->representedObject(), "Custom");
        EXPECT_EQ(popup(window, spAdvSeleWndPaperTypeListID).menu().itemAtIndex(1)->isHidden(), false)
            << "the first type is offered here, unlike in the paper menu";
        cancelAdvanced(window);
    });
    const auto* types = advanced().GetAdvPaperTypeListPtr();
    const auto* colors = advanced().GetAdvPaperColorListPtr();
    EXPECT_EQ(types->getSelectedMenuItem(types->getTypeTransparencyIndex() - 1), "Transparency");
    EXPECT_EQ(colors->getSelectedMenuItem(colors->getColorClearIndex() - 1), "Clear");
    EXPECT_EQ(types->getColorClearIndex(), -1);
    EXPECT_EQ(colors->getTypeTransparencyIndex(), -1);
    const std::int32_t tab = types->getTypeTransparencyIndex() + 1;
    EXPECT_EQ(types->getSelectedMenuItem(tab - 1), "TabbedPaper1");
    EXPECT_FALSE(types->doTabStockSetCheckByIndex(tab - 1));
    EXPECT_TRUE(types->doTabStockSetCheckByIndex(tab));
    EXPECT_TRUE(types->doTabStockSetCheckByIndex(tab + 1));
    EXPECT_FALSE(types->doTabStockSetCheckByIndex(tab + 2));
    EXPECT_FALSE(types->doTabStockSetCheckByIndex(-1));
    EXPECT_FALSE(colors->doTabStockSetCheckByIndex(tab));
    EXPECT_EQ(types->getSelectedMenuItem(-1), std::nullopt);
    EXPECT_EQ(types->getSelectedMenuItem(1000), std::nullopt);
}

TEST_F(AdvancedPaper, OKWritesTheThreeBackAndTheViewFollows) {
    open();
    fromFrontCover([](Window&) {},
                   [&](Window& window) {
                       EXPECT_TRUE(chooseSize(window, "A3"));
                       EXPECT_TRUE(chooseColor(window, "Blue"));
                       EXPECT_TRUE(chooseType(window, "ThickPaper"));
                       EXPECT_EQ(text(window, spAdvSeleWndSummaryViewID),
                                 "Paper Size: A3\nPaper Color: Blue\nPaper Type: Thick 1\n");
                       okAdvanced(window);
                   },
                   [&](Window& covers) {
                       EXPECT_EQ(frontPaper(), (Indexes{0, 1, 8}));
                       EXPECT_EQ(text(covers, spCoversWndFrontCoverPageViewID),
                                 "Paper Size: A3\nPaper Color: Blue\nPaper Type: Thick 1\n");
                       EXPECT_EQ(text(covers, spCoversWndBackCoverPageViewID), "");
                   });
    EXPECT_FALSE(advanced().IsActived());
}

TEST_F(AdvancedPaper, CancelChangesNothing) {
    open();
    for (const bool escape : {false, true}) {
        fromFrontCover([](Window&) {},
                       [&](Window& window) {
                           EXPECT_TRUE(chooseSize(window, "A3"));
                           EXPECT_TRUE(chooseColor(window, "Blue"));
                           if (escape) {
                               EXPECT_TRUE(window.performCancel());
                           } else {
                               cancelAdvanced(window);
                           }
                       },
                       [&](Window&) {
                           EXPECT_EQ(frontPaper(), (Indexes{2, 0, 0}));
                       });
        EXPECT_FALSE(advanced().IsActived());
    }
}

TEST_F(AdvancedPaper, OKTakesTheInterposerAwayAndCancelKeepsIt) {
    host.ppd_ = ppd.get();
    open();
    SPCoversSelectPaperListCtrlEMF* menu = dialog->getSPCoverWndFrontSelectPaperListPtr();
    for (const bool keeps : {true, false}) {
        fromFrontCover([&](Window&) { menu->setInterPoser(true); },
                       [&](Window& window) { keeps ? cancelAdvanced(window) : okAdvanced(window); },
                       [&](Window&) { EXPECT_EQ(menu->getInterPoser(), keeps); });
    }
}

TEST_F(AdvancedPaper, AllAtNoChangeGiveThreeTimesMinusOne) {
    open({insert_after(3)});
    select({0});
    fromInserts(specialPagesSPEditButID, [&](Window& window) {
        EXPECT_EQ(paper(*inserts().getSPInstSelectPaperBtn()), (Indexes{0, 0, 0}));
        face.then([&](Window& opened) {
            for (SPAdvSelePaperListEMF* each :
                 {static_cast<SPAdvSelePaperListEMF*>(advanced().GetAdvPaperSizeListPtr()),
                  advanced().GetAdvPaperColorListPtr(), advanced().GetAdvPaperTypeListPtr()}) {
                each->SetSelection(0);
            }
            okAdvanced(opened);
        });
        EXPECT_TRUE(pick(window, SPInstWndSelePaperTagID, {kAdvanced}));
        EXPECT_EQ(paper(*inserts().getSPInstSelectPaperBtn()), (Indexes{-1, -1, -1}));
        EXPECT_EQ(text(window, SPInstWndPaperViewTagID), "No change: the paper stays as it is.");
    });
}

TEST_F(AdvancedPaper, NoChangeIsOfferedOnlyWhereEditedRecordsDifferOrLeaveIt) {
    open({insert_after(3).with(RecordKey::pagecolor, "1").with(RecordKey::pagetype, "-1"),
          insert_after(4).with(RecordKey::pagetype, "-1")});
    select({0, 1});
    fromInserts(specialPagesSPEditButID, [&](Window& window) {
        EXPECT_EQ(advanced().GetSizeStatus(), 0);
        EXPECT_EQ(advanced().GetColorStatus(), -1);
        EXPECT_EQ(advanced().GetTypeStatus(), -1);
        face.then([&](Window& opened) {
            EXPECT_FALSE(offersNoChange(opened, spAdvSeleWndPaperSizeListID));
            EXPECT_TRUE(offersNoChange(opened, spAdvSeleWndPaperColorListID));
            EXPECT_TRUE(offersNoChange(opened, spAdvSeleWndPaperTypeListID));
            EXPECT_EQ(positions(opened), (Indexes{1, 0, 0}));
            EXPECT_EQ(text(opened, spAdvSeleWndSummaryViewID), "Paper Size: A3\n");
            EXPECT_TRUE(chooseColor(opened, "Blue"));
            EXPECT_TRUE(pick(opened, spAdvSeleWndPaperColorListID, {0}));
            EXPECT_FALSE(pick(opened, spAdvSeleWndPaperSizeListID, {0}));
            okAdvanced(opened);
        });
        EXPECT_TRUE(pick(window, SPInstWndSelePaperTagID, {kAdvanced}));
        EXPECT_EQ(paper(*inserts().getSPInstSelectPaperBtn()), (Indexes{0, -1, -1}));
    });
    // Adding offers it nowhere, whatever the last edit left.
    fromInserts(specialPagesAddInsertsButID, [&](Window& window) {
        advanced().SetSizeStatus(-1);
        face.then([&](Window& opened) {
            for (const ControlTag tag :
                 {spAdvSeleWndPaperSizeListID, spAdvSeleWndPaperColorListID, spAdvSeleWndPaperTypeListID}) {
                EXPECT_FALSE(offersNoChange(opened, tag));
            }
            cancelAdvanced(opened);
        });
        EXPECT_TRUE(pick(window, SPInstWndSelePaperTagID, {kAdvanced}));
        EXPECT_EQ(advanced().GetSizeStatus(), 0);
    });
}

TEST_F(AdvancedPaper, CoversNeverOfferNoChange) {
    open({cover_front()});
    edit([&](Window& covers) {
        advanced().SetSizeStatus(-1);
        advanced().SetTypeStatus(-1);
        face.then([&](Window& opened) {
            EXPECT_EQ(advanced().GetSizeStatus(), -1) << "only adding clears it";
            for (const ControlTag tag :
                 {spAdvSeleWndPaperSizeListID, spAdvSeleWndPaperColorListID, spAdvSeleWndPaperTypeListID}) {
                EXPECT_FALSE(offersNoChange(opened, tag));
            }
            cancelAdvanced(opened);
        });
        EXPECT_TRUE(pick(covers, spCoversWndFrontCoverPageListID, {kAdvanced}));
        cancel(covers);
    });
}

TEST_F(AdvancedPaper, TransparencyTakesTheColorClear) {
    open();
    fromFrontCover([&](Window& window) {
        EXPECT_TRUE(chooseType(window, "Transparency"));
        EXPECT_EQ(popup(window, spAdvSeleWndPaperColorListID).titleOfSelectedItem(), "Clear");
        EXPECT_EQ(text(window, spAdvSeleWndSummaryViewID),
                  "Paper Size: A4\nPaper Color: Clear\nPaper Type: Transparency\n");
        EXPECT_TRUE(chooseType(window, "ThickPaper"));
        EXPECT_EQ(popup(window, spAdvSeleWndPaperColorListID).titleOfSelectedItem(), "Clear")
            << "nothing takes it back";
        okAdvanced(window);
    });
}

TEST_F(AdvancedPaper, AColorChosenAfterTransparencyStays) {
    open();
    fromFrontCover([&](Window& window) {
        EXPECT_TRUE(chooseType(window, "Transparency"));
        platform::PopUpButton& colors = popup(window, spAdvSeleWndPaperColorListID);
        item(window, spAdvSeleWndPaperColorListID, "Blue").setEnabled(true);
        EXPECT_TRUE(chooseColor(window, "Blue"));
        EXPECT_EQ(colors.titleOfSelectedItem(), "Blue");
        cancelAdvanced(window);
    });
}

TEST_F(AdvancedPaper, TheLastSizeFollowsConstraintsAndNotTabStock) {
    open();
    fromFrontCover(
        [&](Window& covers) {
            EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kType, "LabelPaper1"));
            EXPECT_TRUE(popup(covers, spCoversWndFrontCoverPageListID)
                            .menu()
                            .itemAtIndex(kSize)
                            ->submenu()
                            ->itemAtIndex(position(covers, spCoversWndFrontCoverPageListID, kSize, "Custom"))
                            ->isEnabled())
                << "the paper menu asks tab stock alone";
        },
        [&](Window& window) {
            platform::MenuItem& custom = item(window, spAdvSeleWndPaperSizeListID, "Custom");
            EXPECT_TRUE(advanced().isMenuItemConflicted("PageSize:Custom", ppd.get()));
            EXPECT_FALSE(custom.isEnabled());
            EXPECT_EQ(custom.toolTip(), "Not with Paper Type: Labels 1");
            EXPECT_TRUE(chooseType(window, "ThickPaper"));
            EXPECT_FALSE(advanced().isMenuItemConflicted("PageSize:Custom", ppd.get()));
            EXPECT_TRUE(custom.isEnabled());
            EXPECT_EQ(custom.toolTip(), "");
            cancelAdvanced(window);
        });
}

TEST_F(AdvancedPaper, TheSidednessBesideTheMenuForbidsTypes) {
    open();
    fromFrontCover(
        [&](Window& covers) { EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {3})); },
        [&](Window& window) {
            EXPECT_FALSE(item(window, spAdvSeleWndPaperTypeListID, "StationaryS1").isEnabled());
            EXPECT_TRUE(item(window, spAdvSeleWndPaperTypeListID, "ThickPaper").isEnabled());
            cancelAdvanced(window);
        });
    // The inserts' menu has no such list: that of the covers is not asked any more.
    fromInserts(specialPagesAddInsertsButID, [&](Window& window) {
        face.then([&](Window& opened) {
            EXPECT_TRUE(item(opened, spAdvSeleWndPaperTypeListID, "StationaryS1").isEnabled());
            cancelAdvanced(opened);
        });
        EXPECT_TRUE(pick(window, SPInstWndSelePaperTagID, {kAdvanced}));
    });
}

TEST_F(AdvancedPaper, RecordsAreAskedWhereAPopUpSaysNoChange) {
    // Both have tab stock, one of each kind; A3 goes with neither.
    open({insert_after(3).with(RecordKey::pagetype, "36").with(RecordKey::pagesize, "2"),
          insert_after(4).with(RecordKey::pagetype, "37").with(RecordKey::pagesize, "2")});
    select({0, 1});
    fromInserts(specialPagesSPEditButID, [&](Window& window) {
        face.then([&](Window& opened) {
            const auto* types = advanced().GetAdvPaperTypeListPtr();
            ASSERT_EQ(types->getSelectedMenuItem(36), "TabbedPaper1");
            EXPECT_EQ(types->getSelectedMenuItem(), "NULL");
            EXPECT_EQ(advanced().getCurrentSelections()[0], "A4");
            EXPECT_EQ(advanced().getCurrentSelections()[2], "NULL");
            EXPECT_EQ(advanced().getPpdKeyArray().size(), advanced().getCurrentSelections().size());
            EXPECT_FALSE(item(opened, spAdvSeleWndPaperSizeListID, "A3").isEnabled());
            EXPECT_TRUE(chooseType(opened, "ThickPaper"));
            EXPECT_TRUE(item(opened, spAdvSeleWndPaperSizeListID, "A3").isEnabled());
            cancelAdvanced(opened);
        });
        EXPECT_TRUE(pick(window, SPInstWndSelePaperTagID, {kAdvanced}));
    });
}

TEST_F(AdvancedPaper, TheSizeListFollowsTheMenusSizeEntry) {
    open();
    fromFrontCover(
        [&](Window& covers) { EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {1})); },
        [&](Window& window) {
            EXPECT_FALSE(popup(window, spAdvSeleWndPaperSizeListID).isEnabled());
            EXPECT_TRUE(popup(window, spAdvSeleWndPaperColorListID).isEnabled());
            EXPECT_TRUE(chooseType(window, "ThickPaper"));
            EXPECT_FALSE(popup(window, spAdvSeleWndPaperSizeListID).isEnabled());
            click(window, spAdvSeleWndDefaultsButtonID);
            EXPECT_EQ(popup(window, spAdvSeleWndPaperSizeListID).indexOfSelectedItem(), 3)
                << "a disabled list keeps its size";
            cancelAdvanced(window);
        });
    fromFrontCover([&](Window& window) {
        EXPECT_TRUE(popup(window, spAdvSeleWndPaperSizeListID).isEnabled()) << "each opening asks anew";
        cancelAdvanced(window);
    });
}

TEST_F(AdvancedPaper, DefaultsShowABareIndexForSizeAndColorAndAPositionForTheType) {
    open();
    fromFrontCover([&](Window& window) {
        EXPECT_TRUE(chooseSize(window, "A3"));
        EXPECT_TRUE(chooseColor(window, "Blue"));
        EXPECT_TRUE(chooseType(window, "ThickPaper"));
        EXPECT_EQ(advanced().GetAdvPaperSizeListPtr()->defaultPosition(), 2);
        EXPECT_EQ(advanced().GetAdvPaperColorListPtr()->defaultPosition(), 0);
        EXPECT_EQ(advanced().GetAdvPaperTypeListPtr()->defaultPosition(), 1);
        click(window, spAdvSeleWndDefaultsButtonID);
        EXPECT_EQ(positions(window), (Indexes{2, 0, 1}));
        EXPECT_EQ(text(window, spAdvSeleWndSummaryViewID), "Paper Size: B4\nPaper Type: Plain\n");
        cancelAdvanced(window);
    });
    EXPECT_EQ(frontPaper(), (Indexes{2, 0, 0}));
}

TEST_F(AdvancedPaper, AnIndexThatThePrinterDoesNotHaveShowsNoChange) {
    open();
    SPCoversSelectPaperListCtrlEMF* menu = dialog->getSPCoverWndFrontSelectPaperListPtr();
    for (const std::int32_t index : {500, -7, 2147483647, -2147483647 - 1}) {
        fromFrontCover([&](Window&) { menu->setSelectedMenuItemIndexByType(2, index); },
                       [&](Window& window) {
                           EXPECT_EQ(positions(window), (Indexes{0, 1, 1})) << index;
                           cancelAdvanced(window);
                       },
                       [&](Window&) { EXPECT_EQ(frontPaper()[0], index); });
    }
}

TEST_F(AdvancedPaper, WithoutAMenuOrAWindowNothingHappens) {
    open();
    SPAdvSeleWndEMF& window = advanced();
    window.SetSubMenuList(nullptr);
    face.then([&](Window& opened) {
        EXPECT_EQ(positions(opened), (Indexes{3, 1, 1}));
        EXPECT_TRUE(chooseSize(opened, "Custom")) << "and no custom size window opens";
        okAdvanced(opened);
    });
    window.SetPaperSize(2, 0, 0, false);
    window.ActivateWindow();
    SPAdvSeleWndEMF lone;
    lone.CreatePanel(nullptr, "Adv Paper Wnd");
    lone.SetPaperSize(1, 2, 3, true);
    EXPECT_EQ(lone.ActivateWindow(), 0);
    EXPECT_FALSE(lone.IsActived());
    lone.doTransparencyConstraint();
    lone.updateSelectionArray();
    EXPECT_EQ(lone.getCurrentSelections(), (std::vector<std::string>{"NULL", "NULL", "NULL"}));
    lone.UpdateSelfConflictsFromPPD(nullptr);
    EXPECT_FALSE(lone.isMenuItemConflicted("PageSize:A3", nullptr));
    lone.giveBackPaper();
    lone.updateOpenersViews();
}

TEST_F(AdvancedPaper, LooksAsKept) {
    open();
    fromFrontCover(
        [&](Window& covers) {
            face.then([](Window& tabs) { EXPECT_TRUE(tabs.performCancel()); });
            EXPECT_TRUE(pickPart(covers, spCoversWndFrontCoverPageListID, kType, "TabbedPaper1"));
        },
        [&](Window& window) {
            expect_picture(text_picture(window), "dialogs/golden/advanced-covers.txt");
            cancelAdvanced(window);
        });
    fromFrontCover(
        [&](Window& covers) { EXPECT_TRUE(pick(covers, spCoversWndFrontPrintingOptionListID, {3})); },
        [&](Window& window) {
            expect_picture(text_picture(window), "dialogs/golden/advanced-both-sides.txt");
            cancelAdvanced(window);
        });
}

} // namespace
} // namespace specialpages::test
