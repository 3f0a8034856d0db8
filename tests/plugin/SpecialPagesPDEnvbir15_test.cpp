#include "platform/foundation/atomic_file.h"
#include "platform/foundation/preferences.h"
#include "platform/foundation/system_version.h"
#include "platform/services/help_viewer.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "plugin/SpecialPagesPDEnvbir15.h"
#include "plugin/pane_fixture.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_builder.h"
#include "records/pane_tags.h"
#include "support/settings_access.h"
#include "testing/ScriptedFace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace specialpages::test {
namespace {

using platform::Button;
using platform::ScriptedFace;
using platform::TableView;
using platform::Window;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PaneLifecycle = PaneTest;
using PaneTickets = PaneTest;

Button& button(SpecialPagesPDEnvbir15& pane, ControlTag tag) {
    auto* found = dynamic_cast<Button*>(pane.panelView()->viewWithTag(tag));
    EXPECT_NE(found, nullptr) << tag;
    return *found;
}

TableView& table(SpecialPagesPDEnvbir15& pane) {
    return dynamic_cast<TableView&>(*pane.panelView()->viewWithTag(specialPagesSPSummaryViewID));
}

TEST_F(PaneLifecycle, PrintingWithoutAnyEarlierCallBuildsThePaneAndWritesADefaultSetOfTickets) {
    auto pane = makePane();
    EXPECT_TRUE(pane->isFirstInitialzePDE());
    EXPECT_TRUE(pane->shouldPrint());
    EXPECT_FALSE(pane->isFirstInitialzePDE());
    EXPECT_EQ(pane->controlCount(), 16);
    EXPECT_EQ(pane->windowCount(), 8) << "the two of tab stock come last";
    EXPECT_EQ(get("NPIFCommandTicketCount"), "0");
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "0");
}

TEST_F(PaneLifecycle, ASecondPrintDoesNotBuildAgain) {
    auto pane = makePane();
    EXPECT_TRUE(pane->shouldPrint());
    const auto controls = pane->getCtrlGroupArrayRef();
    EXPECT_TRUE(pane->shouldPrint());
    EXPECT_EQ(pane->getCtrlGroupArrayRef(), controls);
}

TEST_F(PaneLifecycle, ControlsAreRegisteredInTheirFixedOrder) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    std::vector<ControlTag> tags;
    for (const BaseControlEMFSpecialPages* control : pane->getCtrlGroupArrayRef()) {
        tags.push_back(control->GetControlPtr()->tag());
    }
    EXPECT_THAT(tags,
                ElementsAre(111, 100, 112, 101, 113, 102, 103, 104, 114, 109, 110, 105, 106, 107, 108, 115));
}

TEST_F(PaneLifecycle, RestoringTwiceBuildsOnceAndReadsTheSettingsTwice) {
    auto pane = makePane();
    setRecords({kFrontCover});
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    const auto controls = pane->getCtrlGroupArrayRef();
    EXPECT_EQ(table(*pane).numberOfRows(), 1U);
    setRecords({kFrontCover, kInsertAfter3, kException5To7});
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_EQ(pane->getCtrlGroupArrayRef(), controls);
    EXPECT_EQ(table(*pane).numberOfRows(), 3U);
}

TEST_F(PaneLifecycle, RestoringRegistersTheHelpBook) {
    auto pane = makePane();
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_TRUE(std::filesystem::is_regular_file(platform::help_preferences_file()));
}

TEST_F(PaneLifecycle, AHelpBookThatCannotBeRegisteredFailsTheRestoreOfAPaneThatIsBuiltAllTheSame) {
    write_test_file(platform::help_preferences_file(), "this is no property list");
    auto pane = makePane();
    setRecords({kFrontCover});
    EXPECT_FALSE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_FALSE(pane->isFirstInitialzePDE());
    EXPECT_EQ(table(*pane).numberOfRows(), 1U);
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr)) << "the book is registered on the first run only";
}

TEST_F(PaneLifecycle, WithoutAPpdARestoreDoesNothingAndSucceeds) {
    auto pane = makePane();
    host.ppd_ = nullptr;
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_TRUE(pane->isFirstInitialzePDE());
    EXPECT_EQ(pane->controlCount(), 0);
}

TEST_F(PaneLifecycle, SavingBeforeAnyRestoreWritesOnlyTheArraysAndFlags) {
    auto pane = makePane();
    EXPECT_TRUE(pane->saveValuesAndReturnError(nullptr));
    std::vector<std::string> keys;
    for (const auto& entry : host.settings.entries()) {
        keys.push_back(entry.key.substr(kKey.size()));
    }
    EXPECT_THAT(keys, ElementsAre("pageSizeArrayTicket", "mediaTypeArrayTicket", "mediaColorArrayTicket",
                                  "whetherMediaTypeTabTicket", "whetherInterposerTicket",
                                  "whetherMediaSizeA5Ticket"));
}

TEST_F(PaneLifecycle, WithoutPrintSettingsSaveAndPrintAnswerFalse) {
    auto pane = makePane();
    host.lent = nullptr;
    EXPECT_FALSE(pane->saveValuesAndReturnError(nullptr));
    EXPECT_FALSE(pane->shouldPrint());
}

TEST_F(PaneLifecycle, APanelWithoutAHostSurvivesEveryCall) {
    SpecialPagesPDEnvbir15 pane;
    EXPECT_EQ(pane.panelView(), nullptr);
    EXPECT_FALSE(pane.supportedPPDOptionKeys().has_value());
    EXPECT_TRUE(pane.restoreValuesAndReturnError(nullptr));
    pane.willShow();
    EXPECT_TRUE(pane.shouldHide());
    EXPECT_FALSE(pane.saveValuesAndReturnError(nullptr));
    EXPECT_FALSE(pane.shouldPrint());
    EXPECT_TRUE(pane.shouldShowHelp());
    EXPECT_FALSE(pane.summaryInfo().has_value());
    pane.PPDOptionKeyValueDidChange("Duplex", "None");
    EXPECT_FALSE(pane.sureToMakeChange(0));
    pane.toMakeChange();
    pane.setFocusOnHelpButton();
}

TEST_F(PaneLifecycle, AnyOrderOfCallsGivesTheSameTickets) {
    setRecords({kFrontCover, kInsertAfter3, kException5To7});
    auto first = makePane();
    first->restoreValuesAndReturnError(nullptr);
    first->willShow();
    first->shouldHide();
    EXPECT_TRUE(first->shouldPrint());
    const auto usual = host.settings;

    auto second = makePane();
    EXPECT_TRUE(second->shouldHide());
    second->willShow();
    EXPECT_TRUE(second->shouldPrint());
    EXPECT_TRUE(second->saveValuesAndReturnError(nullptr));
    second->restoreValuesAndReturnError(nullptr);
    second->restoreValuesAndReturnError(nullptr);
    EXPECT_TRUE(second->saveValuesAndReturnError(nullptr));
    ASSERT_EQ(host.settings.entries().size(), usual.entries().size());
    for (std::size_t i = 0; i < usual.entries().size(); ++i) {
        EXPECT_EQ(host.settings.entries()[i].key, usual.entries()[i].key);
        EXPECT_EQ(host.settings.entries()[i].value, usual.entries()[i].value) << usual.entries()[i].key;
    }
}

TEST_F(PaneLifecycle, ShowingTakesTheWindowOfTheView) {
    auto pane = makePane();
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_EQ(pane->window(), nullptr);
    Window window;
    window.addSubview(std::shared_ptr<platform::View>(pane->panelView(), [](platform::View*) {}));
    pane->willShow();
    EXPECT_EQ(pane->window(), &window);
}

TEST_F(PaneLifecycle, ThePaneOpensItsOwnHelpAndTellsTheHostSo) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    std::string opened;
    auto before =
        platform::setHelpOpener([&](std::string_view book, std::string_view page, std::string_view) {
            opened = std::string(book) + "|" + std::string(page);
            return platform::noErr;
        });
    EXPECT_FALSE(pane->shouldShowHelp());
    platform::setHelpOpener(before);
    EXPECT_EQ(opened, "Special Pages Help|SpecialPagesMain_Default01.htm");
}

TEST_F(PaneLifecycle, TheVersionTextStaysHidden) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_TRUE(pane->panelView()->viewWithTag(specialPagesVersionID)->isHidden());
}

TEST_F(PaneLifecycle, TitlesComeFromTheLocalisedTable) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    for (ControlTag tag : {100, 101, 102, 105, 106, 107, 108, 109, 110}) {
        const std::string title = button(*pane, tag).title();
        EXPECT_NE(title, "");
        EXPECT_NE(title, "no translation") << tag;
    }
    for (const auto& column : table(*pane).tableColumns()) {
        EXPECT_NE(column.headerTitle, "not found") << column.identifier;
        EXPECT_NE(column.headerTitle, "") << column.identifier;
    }
}

TEST_F(PaneLifecycle, EveryRestoreMakesANewConstraintIndexAndHandsItToTheWindows) {
    auto pane = makePane();
    EXPECT_EQ(pane->Getxppd(), nullptr);
    pane->restoreValuesAndReturnError(nullptr);
    const auto first = pane->Getxppd();
    ASSERT_NE(first, nullptr);
    EXPECT_GT(first->size(), 100U);
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_NE(pane->Getxppd(), first);
    EXPECT_EQ(pane->Getxppd()->size(), first->size());
}

TEST_F(PaneLifecycle, TwoPanesForTwoPrintersKeepTheirOwnKeywords) {
    const OpenPpd desk = open_ppd(example("ppd/desk.ppd"));
    LendingHost deskHost(desk.get());
    auto production = makePane();
    auto panels = SpecialPagesPDEPluginnvbir15().PDEPanelsForType(platform::kDialogPanelType, &deskHost);
    ASSERT_TRUE(panels.has_value());
    panels->front()->supportedPPDOptionKeys();
    EXPECT_EQ(nxPPDKeywordList(), option_keywords(desk.get()))
        << "the process-wide list is the last printer's";
    production->restoreValuesAndReturnError(nullptr);
    const auto entries = production->Getxppd()->size();
    auto alone = makePane();
    alone->restoreValuesAndReturnError(nullptr);
    EXPECT_EQ(entries, alone->Getxppd()->size());
}

TEST_F(PaneLifecycle, AMissingCacheFileLeavesAnEmptyIndexInWhichNothingConflicts) {
    PpdBuilder cached;
    cached.attribute("NVXSpecialPagesSettings", "", "Default01-Default01")
        .attribute("NVXCDFSetting", "", config.path().string() + "/missing.cdf")
        .group("General")
        .option("A")
        .choices({"x", "y"})
        .option("B")
        .choices({"x", "y"})
        .constraint("A", "y", "B", "y");
    host.ppd_ = cached.file();
    auto pane = makePane();
    ASSERT_NE(pane->Getxppd(), nullptr);
    const auto loaded = pane->Getxppd();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_EQ(pane->Getxppd(), loaded) << "an index from a cache file is loaded once";
    EXPECT_TRUE(loaded->empty());
}

TEST_F(PaneLifecycle, RestoringWhileADialogIsOpenAnswersTrueAndDoesNothing) {
    setRecords({kFrontCover});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    const auto index = pane->Getxppd();
    ScriptedFace face;
    face.then([&](Window& window) {
        setRecords({kFrontCover, kInsertAfter3});
        EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
        EXPECT_EQ(table(*pane).numberOfRows(), 1U);
        EXPECT_EQ(pane->Getxppd(), index);
        EXPECT_TRUE(window.performCancel());
    });
    EXPECT_FALSE(pane->sureToMakeChange(1));
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_EQ(table(*pane).numberOfRows(), 2U);
}

TEST_F(PaneTickets, TheWorkedExampleGivesExactlyItsKeysAndValuesInThatOrder) {
    setRecords({kFrontCover, kInsertAfter3, kException5To7});
    auto pane = makePane();
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_TRUE(pane->shouldPrint());
    const std::vector<std::pair<std::string, platform::SettingsValue>> expected{
        {"NPIFCommandTicketCount", "3"},
        {"NPIFCommandTicket_0", "0,0,0,2,0,0,false,1,210.0,297.0,1"},
        {"NPIFCommandTicket_1", "1,3,0,1,2,0,0,false,210.0,297.0,1"},
        {"NPIFCommandTicket_2", "2,5-7,2,0,0,false,2,210.0,297.0,1"},
        {"SpecialPageRecordCountTicket", "3"},
        {"NPIFCoverCountTicket", "1"},
        {"NPIFCoverValueTicket_0", "/48/44/49/44/112/114/105/110/116/45/110/111/110/101/44/78/79/82/77/65/76/"
                                   "44/119/104/105/116/101/44/50/49/48/"
                                   "48/48/44/50/57/55/48/48"},
        {"NPIFInsertionCountTicket", "1"},
        {"NPIFInsertionValueTicket_0",
         "/49/44/51/44/49/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48/44/78/79/82/77/65/76"},
        {"NPIFExceptionCountTicket", "1"},
        {"NPIFExceptionValueTicket_0",
         "/49/44/49/44/49/44/53/44/55/44/116/119/111/45/115/105/100/101/100/45/108/111/110/103/45/101/100/"
         "103/101/44/"
         "78/79/82/77/65/76/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48"},
        {"pageSizeArrayTicket", std::vector<std::string>{"A4", "A4", "A4"}},
        {"mediaTypeArrayTicket", std::vector<std::string>{"Stationary", "Stationary", "Stationary"}},
        {"mediaColorArrayTicket", std::vector<std::string>{"White", "White", "White"}},
        {"whetherMediaTypeTabTicket", "0"},
        {"whetherInterposerTicket", "0"},
        {"whetherMediaSizeA5Ticket", "0"},
    };
    ASSERT_EQ(host.settings.entries().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(host.settings.entries()[i].key, kKey + expected[i].first);
        EXPECT_EQ(host.settings.entries()[i].value, expected[i].second) << expected[i].first;
    }
}

TEST_F(PaneTickets, WhatWasWrittenRestoresToTheSameAgain) {
    setRecords({kFrontCover, kInsertAfter3, kException5To7});
    makePane()->shouldPrint();
    const auto written = host.settings.entries();
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_TRUE(pane->shouldPrint());
    ASSERT_EQ(host.settings.entries().size(), written.size());
    for (std::size_t i = 0; i < written.size(); ++i) {
        EXPECT_EQ(host.settings.entries()[i].key, written[i].key);
        EXPECT_EQ(host.settings.entries()[i].value, written[i].value);
    }
}

TEST_F(PaneTickets, AJobWithoutRecordsWritesEmptyCountsAndEmptyArrays) {
    makePane()->shouldPrint();
    EXPECT_EQ(get("NPIFCommandTicketCount"), "0");
    EXPECT_EQ(get("NPIFCommandTicket_0"), "(none)");
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "0");
    EXPECT_EQ(get("NPIFCoverCountTicket"), "");
    EXPECT_EQ(get("NPIFInsertionCountTicket"), "");
    EXPECT_EQ(get("NPIFExceptionCountTicket"), "");
    EXPECT_EQ(get("NPIFCoverValueTicket_0"), "(none)");
    EXPECT_THAT(getArray("pageSizeArrayTicket"), IsEmpty());
    EXPECT_THAT(getArray("mediaTypeArrayTicket"), IsEmpty());
    EXPECT_THAT(getArray("mediaColorArrayTicket"), IsEmpty());
    EXPECT_EQ(get("whetherMediaTypeTabTicket"), "0");
}

TEST_F(PaneTickets, AMailboxJobWritesRecordsAndFlagsButNoCommands) {
    for (const char* type : {"5", "05", " 5x"}) {
        host.settings = platform::PrintSettings();
        setRecords({kFrontCover});
        set("PrintTypeTicketKey", type);
        makePane()->shouldPrint();
        EXPECT_EQ(get("NPIFCommandTicketCount"), "1") << type;
        EXPECT_EQ(get("SpecialPageRecordCountTicket"), "(none)") << type;
        EXPECT_EQ(get("NPIFCoverCountTicket"), "(none)") << type;
        EXPECT_THAT(getArray("pageSizeArrayTicket"), IsEmpty()) << type;
        EXPECT_EQ(get("whetherInterposerTicket"), "0") << type;
    }
}

TEST_F(PaneTickets, EveryOtherPrintTypeGetsCommands) {
    for (const platform::SettingsValue& type :
         std::vector<platform::SettingsValue>{"", "4", "55", "x5", "-5", std::vector<std::string>{"5"}}) {
        host.settings = platform::PrintSettings();
        setRecords({kFrontCover});
        set("PrintTypeTicketKey", type);
        makePane()->shouldPrint();
        EXPECT_EQ(get("NPIFCoverCountTicket"), "1");
    }
}

/// Runs on a system whose print type stands in the preferences.
class OldSystem : public PaneTest {
  protected:
    OldSystem() {
        platform::set_kernel_release_source([] { return "10.8.0"; });
        ResetGestalt_ALT();
        platform::setStandardPreferences(
            std::make_unique<platform::Preferences>(config.path() / "preferences.plist"));
    }
    ~OldSystem() override {
        platform::set_kernel_release_source(nullptr);
        ResetGestalt_ALT();
        platform::setStandardPreferences(nullptr);
    }
    static void prefer(const std::string& printer, const std::string& type) {
        platform::CFPreferencesSetValue(printer + "com.norvalen.nb.rtz.printsettings.PrintTypeReference",
                                        type, platform::kCFPreferencesAnyApplication,
                                        platform::kCFPreferencesCurrentUser,
                                        platform::kCFPreferencesCurrentHost);
    }
};

TEST_F(OldSystem, ThePrintTypeIsReadFromThePrintersPreferences) {
    EXPECT_LT(system_version(), kVersionWithoutPreferences);
    prefer("production", "5");
    makePane()->shouldPrint();
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "(none)");
}

TEST_F(OldSystem, AnotherPrintersPreferenceAndTheSettingsAreNotLookedAt) {
    prefer("desk", "5");
    set("PrintTypeTicketKey", "5");
    makePane()->shouldPrint();
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "0");
}

TEST_F(OldSystem, APreferenceThatDoesNotFitCountsAsMailbox) {
    prefer("production", std::string(256, '4'));
    makePane()->shouldPrint();
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "(none)");
    prefer("production", std::string(255, '4'));
    makePane()->shouldPrint();
    EXPECT_EQ(get("SpecialPageRecordCountTicket"), "0");
}

std::string plain(const std::string& slashDecimal) {
    std::string text;
    for (std::size_t at = 0; at < slashDecimal.size();) {
        const std::size_t next = std::min(slashDecimal.find('/', at + 1), slashDecimal.size());
        text += static_cast<char>(std::stoi(slashDecimal.substr(at + 1, next - at - 1)));
        at = next;
    }
    return text;
}

TEST_F(PaneTickets, InterposerSheetsAddNothingToTheArraysAndRaiseTheirFlagForThisSaveOnly) {
    setRecords({"0,0,2,2,0,0,true,4,210.0,297.0,1", kInsertAfter3, "0,1,1,2,1,8,false,4,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(plain(get("NPIFCoverValueTicket_0")), "0,0,print-back,interposer");
    EXPECT_EQ(plain(get("NPIFCoverValueTicket_1")), "1,1,print-front,THICK,blue,21000,29700");
    EXPECT_THAT(getArray("mediaTypeArrayTicket"), ElementsAre("ThickPaper", "Stationary"));
    EXPECT_THAT(getArray("mediaColorArrayTicket"), ElementsAre("Blue", "White"));
    EXPECT_EQ(get("whetherInterposerTicket"), "1");

    setRecords({kInsertAfter3});
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(get("whetherInterposerTicket"), "0");
}

TEST_F(PaneTickets, SavingTwiceInARowRepeatsTheInterposerFlagWhileARecordRaisesIt) {
    setRecords({"1,3,0,1,2,0,0,true,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(get("whetherInterposerTicket"), "1");
    pane->shouldPrint();
    EXPECT_EQ(get("whetherInterposerTicket"), "1");
    pane->getSPSummaryScrollViewCtrlPtr()->deleteAllItem();
    pane->shouldPrint();
    EXPECT_EQ(get("whetherInterposerTicket"), "0");
}

TEST_F(PaneTickets, TheTabAndA5FlagsStayRaisedThroughLaterSavesUntilTheNextRestore) {
    const std::int32_t tab = GetChoiceIndex(ppd.get(), "MediaType", "TabbedPaper1");
    const std::int32_t a5 = GetChoiceIndex(ppd.get(), "PageSize", "A5");
    setRecords({"1,3,0,1," + std::to_string(a5) + ",0," + std::to_string(tab) + ",false,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(get("whetherMediaTypeTabTicket"), "1");
    EXPECT_EQ(get("whetherMediaSizeA5Ticket"), "1");

    pane->getSPSummaryScrollViewCtrlPtr()->deleteAllItem();
    pane->shouldPrint();
    EXPECT_EQ(get("whetherMediaTypeTabTicket"), "1");
    EXPECT_EQ(get("whetherMediaSizeA5Ticket"), "1");

    set("NPIFCommandTicketCount", "0");
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(get("whetherMediaTypeTabTicket"), "0");
    EXPECT_EQ(get("whetherMediaSizeA5Ticket"), "0");
}

TEST_F(PaneTickets, TheJobsOwnSizeComesFromThePageFormatAndAddsNoSize) {
    const std::int32_t past = GetPPDKeyOptionCount(ppd.get(), "PageSize");
    setRecords({"0,0,3," + std::to_string(past) + ",0,0,false,1,210.0,297.0,1"});
    makePane()->shouldPrint();
    EXPECT_EQ(plain(get("NPIFCoverValueTicket_0")), "0,1,print-both,NORMAL,white,21060,29790");
    EXPECT_THAT(getArray("pageSizeArrayTicket"), IsEmpty());
    EXPECT_THAT(getArray("mediaTypeArrayTicket"), ElementsAre("Stationary"));
}

TEST_F(PaneTickets, CustomSizesAreWrittenInHundredthsOfAMillimetre) {
    const std::string custom = std::to_string(GetChoiceIndex(ppd.get(), "PageSize", "Custom"));
    setRecords(
        {"1,3,0,1," + custom + ",0,0,false,123.4,200,1", "1,4,0,1," + custom + ",0,0,false,123.,200.0,1"});
    makePane()->shouldPrint();
    EXPECT_EQ(plain(get("NPIFInsertionValueTicket_0")), "1,3,1,white,12340,20000,NORMAL");
    EXPECT_EQ(plain(get("NPIFInsertionValueTicket_1")), "1,4,1,white,1230,20000,NORMAL");
    EXPECT_THAT(getArray("pageSizeArrayTicket"), ElementsAre("Custom", "Custom"));
}

TEST_F(PaneTickets, AnIndexPastTheOptionsGivesEmptyFieldsAndEmptyEntries) {
    setRecords({"1,3,0,1,2,999,999,false,210.0,297.0,1"});
    makePane()->shouldPrint();
    EXPECT_EQ(plain(get("NPIFInsertionValueTicket_0")), "1,3,1,,21000,29700,");
    EXPECT_THAT(getArray("mediaTypeArrayTicket"), ElementsAre(""));
    EXPECT_THAT(getArray("mediaColorArrayTicket"), ElementsAre(""));
}

TEST_F(PaneTickets, WordIndexesOutsideTheirTablesGiveEmptyFields) {
    setRecords({"0,0,7,2,0,0,false,1,210.0,297.0,1", "2,9,2,0,0,false,0,210.0,297.0,1"});
    makePane()->shouldPrint();
    EXPECT_EQ(plain(get("NPIFCoverValueTicket_0")), "0,1,,NORMAL,white,21000,29700");
    EXPECT_EQ(plain(get("NPIFExceptionValueTicket_0")), "1,1,1,9,9,,NORMAL,white,21000,29700");
}

TEST_F(PaneTickets, ABrokenTicketLeavesAnEmptyList) {
    setRecords({kFrontCover, "1,3,0,1", kException5To7});
    auto pane = makePane();
    EXPECT_TRUE(pane->restoreValuesAndReturnError(nullptr));
    EXPECT_EQ(table(*pane).numberOfRows(), 0U);
    pane->shouldPrint();
    EXPECT_EQ(get("NPIFCommandTicketCount"), "0");
}

TEST_F(PaneTickets, AMissingRecordLeavesAnEmptyList) {
    setRecords({kFrontCover, kInsertAfter3});
    set("NPIFCommandTicketCount", "2147483647");
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_EQ(table(*pane).numberOfRows(), 0U);
}

TEST_F(PaneTickets, RecordsOfAFormerLongerListStayInTheSettings) {
    setRecords({kFrontCover, kInsertAfter3, kException5To7});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    pane->getSPSummaryScrollViewCtrlPtr()->deleteAllItem();
    pane->shouldPrint();
    EXPECT_EQ(get("NPIFCommandTicketCount"), "0");
    EXPECT_EQ(get("NPIFCommandTicket_2"), kException5To7);
}

TEST_F(PaneTickets, KeysOfOthersStayAsTheyAre) {
    host.settings.setValue("com.example.other", "kept", false);
    makePane()->shouldPrint();
    EXPECT_EQ(std::get<std::string>(*host.settings.value("com.example.other")), "kept");
}

TEST_F(PaneTickets, JobSettingsComeFromMarkedChoicesAndThePage) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    mark_option(ppd.get(), "MediaType", "ThickPaper");
    pane->getCurrentSystemPrintingSetting();
    host.page.unadjustedPaperRect = {0, 0, 2.53, 2.55};
    setRecords({"1,3,0,1,999,0,0,false,210.0,297.0,1"});
    pane->restoreValuesAndReturnError(nullptr);
    pane->shouldPrint();
    EXPECT_EQ(plain(get("NPIFInsertionValueTicket_0")), "1,3,1,white,90,0,NORMAL")
        << "the division is truncated before it is multiplied";
}

TEST_F(PaneTickets, AnImpossiblePageCountsAsNone) {
    host.page.unadjustedPaperRect = {0, 0, 1e300, -1e300};
    setRecords({"1,3,0,1,999,0,0,false,210.0,297.0,1"});
    makePane()->shouldPrint();
    EXPECT_EQ(plain(get("NPIFInsertionValueTicket_0")), "1,3,1,white,0,0,NORMAL");
}

using PaneList = PaneTest;

TEST_F(PaneList, ShowsPageAndTypeOfEachRecord) {
    setRecords({kFrontCover, "1,0,1,2,2,0,0,false,210.0,297.0,1", kInsertAfter3, kException5To7,
                "0,1,0,2,0,0,false,4,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    TableView& list = table(*pane);
    ASSERT_EQ(list.numberOfRows(), 5U);
    std::vector<std::string> pages;
    std::vector<std::string> types;
    for (std::size_t row = 0; row < 5; ++row) {
        pages.push_back(list.text(row, 0));
        types.push_back(list.text(row, 1));
    }
    const auto word = [](const char* key) {
        return built_bundle()->localizedStringForKey(key, "?", "");
    };
    EXPECT_THAT(pages, ElementsAre(word("Front String"), word("Before Page one String"), "3", "5-7",
                                   word("Back String")));
    EXPECT_THAT(types, ElementsAre(word("Cover String"), word("Insert String"), word("Insert String"),
                                   word("Exception String"), word("Cover String")));
}

TEST_F(PaneList, ButtonsFollowTheSelection) {
    setRecords({kFrontCover, kInsertAfter3, "1,3,0,2,2,0,0,false,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_FALSE(button(*pane, specialPagesSPEditButID).isEnabled());
    EXPECT_FALSE(button(*pane, specialPagesSPDeleteButID).isEnabled());
    EXPECT_TRUE(button(*pane, specialPagesSPDeleteAllButID).isEnabled());
    EXPECT_FALSE(button(*pane, specialPagesSPUndoButID).isEnabled());
    EXPECT_TRUE(button(*pane, specialPagesAddInsertsButID).isEnabled());

    ASSERT_TRUE(table(*pane).userSelects({1}));
    EXPECT_TRUE(button(*pane, specialPagesSPEditButID).isEnabled());
    EXPECT_TRUE(button(*pane, specialPagesSPDeleteButID).isEnabled());
    EXPECT_FALSE(button(*pane, specialPagesSPUpButID).isEnabled());
    EXPECT_TRUE(button(*pane, specialPagesSPDownButID).isEnabled());

    ASSERT_TRUE(table(*pane).userSelects({0, 1}));
    EXPECT_FALSE(button(*pane, specialPagesSPEditButID).isEnabled());
    EXPECT_FALSE(button(*pane, specialPagesSPDownButID).isEnabled());
}

TEST_F(PaneList, DownMovesTheInsertAndUndoBringsItBack) {
    setRecords({kInsertAfter3, "1,3,0,2,2,0,0,false,210.0,297.0,1"});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    table(*pane).userSelects({0});
    ASSERT_TRUE(button(*pane, specialPagesSPDownButID).click());
    pane->shouldPrint();
    EXPECT_EQ(get("NPIFCommandTicket_0"), "1,3,0,2,2,0,0,false,210.0,297.0,1");
    EXPECT_EQ(get("NPIFCommandTicket_1"), kInsertAfter3);
    ASSERT_TRUE(button(*pane, specialPagesSPUndoButID).click());
    EXPECT_FALSE(button(*pane, specialPagesSPUndoButID).isEnabled());
    pane->shouldPrint();
    EXPECT_EQ(get("NPIFCommandTicket_0"), kInsertAfter3);
}

TEST_F(PaneList, DeletingAsksAndCancelLeavesEverythingAsItWas) {
    setRecords({kFrontCover, kInsertAfter3});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    table(*pane).userSelects({1});
    ScriptedFace face;
    face.then([](Window& window) {
        EXPECT_EQ(window.title(), "");
        auto* message = dynamic_cast<platform::TextField*>(window.viewWithTag(803));
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->shownText(), "The selected special pages will be removed from this job.");
        EXPECT_TRUE(window.performCancel());
    });
    ASSERT_TRUE(button(*pane, specialPagesSPDeleteButID).click());
    EXPECT_EQ(table(*pane).numberOfRows(), 2U);
    EXPECT_FALSE(button(*pane, specialPagesSPUndoButID).isEnabled()) << "the backup was not touched";
}

TEST_F(PaneList, DeletingAllAfterTheUsersYesCanBeUndone) {
    setRecords({kFrontCover, kInsertAfter3});
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    table(*pane).userSelects({1});
    ScriptedFace face;
    face.then([](Window& window) {
        auto* message = dynamic_cast<platform::TextField*>(window.viewWithTag(803));
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->shownText(), "All special pages will be removed from this job.");
        EXPECT_TRUE(window.performDefault());
    });
    ASSERT_TRUE(button(*pane, specialPagesSPDeleteAllButID).click());
    EXPECT_EQ(table(*pane).numberOfRows(), 0U);
    EXPECT_FALSE(button(*pane, specialPagesSPDeleteAllButID).isEnabled());
    ASSERT_TRUE(button(*pane, specialPagesSPUndoButID).click());
    EXPECT_EQ(table(*pane).numberOfRows(), 2U);
    EXPECT_EQ(table(*pane).selectedRowIndexes(), RowSet{1});
}

TEST_F(PaneList, ADisabledButtonTakesNoClick) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_FALSE(button(*pane, specialPagesSPDeleteAllButID).click());
}

TEST_F(PaneList, TheSharedDefaultsCanBeReadAndSet) {
    auto pane = makePane();
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_EQ(pane->getTabStockValue(), 3);
    EXPECT_EQ(pane->getTabMarginListValue(), 1);
    EXPECT_EQ(pane->getTabMarginValue(), 127);
    pane->setTabStockValue(5);
    pane->setTabMarginListValue(2);
    pane->setTabMarginValue(254);
    pane->restoreValuesAndReturnError(nullptr);
    EXPECT_EQ(pane->getTabStockValue(), 5);
    EXPECT_EQ(pane->getTabMarginListValue(), 2);
    EXPECT_EQ(pane->getTabMarginValue(), 254);
}

} // namespace
} // namespace specialpages::test
