#include "ppd/ppd_builder.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/list_fixture.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using SummaryList = ListTest;
using SummaryTickets = ListTest;
using SummaryEditing = ListTest;

constexpr std::int32_t kCovers = 0;
constexpr std::int32_t kInserts = 1;
constexpr std::int32_t kExceptions = 2;

TEST_F(SummaryList, AnEmptyListShowsNothing) {
    EXPECT_TRUE(list.upDateView());
    EXPECT_EQ(list.allItemCount(), 0U);
    EXPECT_EQ(table.numberOfRows(), 0U);
    EXPECT_EQ(list.getRecordByIndex(0), nullptr);
}

TEST_F(SummaryList, WithoutABundleTheViewIsNotRebuilt) {
    fill({cover_front()});
    pane.setBundle(nullptr);
    EXPECT_FALSE(list.upDateView());
    EXPECT_EQ(table.numberOfRows(), 1U);
}

TEST_F(SummaryList, ATypeIsReplacedByItsDialogsRecordsAndTheOthersStay) {
    fill({cover_front(), insert_after(3), exception("5-7"), insert_after(9), cover_back()});
    pane.dialogs[kInserts].given = RecordList{insert_after(1), insert_after(20)};
    list.updateRequest(kInserts);
    EXPECT_EQ(stored(),
              (RecordList{cover_front(), insert_after(1), exception("5-7"), insert_after(20), cover_back()}));
    EXPECT_EQ(table.numberOfRows(), 5U);
}

TEST_F(SummaryList, CoversGoToTheEnds) {
    fill({insert_after(3), exception("5-7")});
    pane.dialogs[kCovers].given = RecordList{cover_front(), cover_back()};
    list.updateRequest(kCovers);
    EXPECT_EQ(stored(), (RecordList{cover_front(), insert_after(3), exception("5-7"), cover_back()}));
}

TEST_F(SummaryList, AnExceptionComesBeforeAnInsertAtTheSamePageWhicheverDialogWasUsedLast) {
    fill({insert_after(5)});
    pane.dialogs[kExceptions].given = RecordList{exception("5-7")};
    list.updateRequest(kExceptions);
    const RecordList expected{exception("5-7"), insert_after(5)};
    EXPECT_EQ(stored(), expected);
    pane.dialogs[kInserts].given = RecordList{insert_after(5)};
    list.updateRequest(kInserts);
    EXPECT_EQ(stored(), expected);
}

TEST_F(SummaryList, ADialogThatGivesNothingEmptiesItsType) {
    fill({cover_front(), insert_after(3)});
    pane.dialogs[kInserts].given = std::nullopt;
    list.updateRequest(kInserts);
    EXPECT_EQ(stored(), RecordList{cover_front()});
    pane.haveDialogs = false;
    list.updateRequest(kCovers);
    EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(SummaryList, AnyOtherTypeOnlyRefreshes) {
    fill({cover_front(), insert_after(3)});
    pane.dialogs[kInserts].given = RecordList{insert_after(9)};
    list.updateRequest(3);
    list.updateRequest(-1);
    EXPECT_EQ(stored(), (RecordList{cover_front(), insert_after(3)}));
    EXPECT_TRUE(list.addItemByType(7));
    EXPECT_EQ(list.allItemCount(), 2U);
}

TEST_F(SummaryList, ShowsThePaperOfTheDialogsMenuInTheSetupColumn) {
    pane.dialogs[kCovers].paper.emplace();
    pane.dialogs[kInserts].paper.emplace();
    fill({cover_front().with(RecordKey::printingoptions, "2").with(RecordKey::pagetype, "7"),
          insert_after(3, 4).with(RecordKey::pagesize, "12"), exception("4")});
    EXPECT_EQ(table.text(0, 2), "Print on side 2; size 0, color 0, type 7");
    EXPECT_EQ(table.text(1, 2), "4 sheet(s); size 12, color 0, type 0");
    EXPECT_EQ(table.text(2, 2), "") << "a dialog without a paper menu has no words";
    pane.dialogs[kExceptions].paper.emplace();
    list.upDateView();
    EXPECT_EQ(table.text(2, 2), "2-sided, long edge; size 0, color 0, type 0");
}

TEST_F(SummaryList, NamesTheInterposerAsThePpdDoesOrElseAsTheTableDoes) {
    pane.dialogs[kCovers].paper.emplace();
    const auto before = std::exchange(UncollateSeparatorSTR(), std::nullopt);
    fill({cover_front().with(RecordKey::interposer, "true")});
    EXPECT_EQ(table.text(0, 2), "Blank or preprinted; Interposer");
    UncollateSeparatorSTR() = "Cover feeder";
    list.upDateView();
    EXPECT_EQ(table.text(0, 2), "Blank or preprinted; Cover feeder");
    UncollateSeparatorSTR() = before;
}

TEST_F(SummaryList, ACustomSizeIsTheOneThatThePpdOfThePaneCallsSo) {
    PpdBuilder ppd;
    ppd.option("PageSize").choices({"A4", "Custom", "MyCustom"});
    pane.SetCurrentPPD(ppd.file());
    pane.dialogs[kInserts].paper.emplace();
    const auto custom = insert_after(3).with(RecordKey::width, "100").with(RecordKey::length, "200.5");
    fill({custom.with(RecordKey::pagesize, "1"), custom.with(RecordKey::pagesize, "2"),
          custom.with(RecordKey::pagesize, "3")});
    EXPECT_EQ(table.text(0, 2), "1 sheet(s); 100.0 x 200.5 mm, color 0, type 0");
    EXPECT_EQ(table.text(1, 2), "1 sheet(s); size 2, color 0, type 0");
    EXPECT_EQ(table.text(2, 2), "1 sheet(s); size 3, color 0, type 0") << "past the sizes of the PPD";
    pane.SetCurrentPPD(nullptr);
}

TEST_F(SummaryList, ARecordOfAnUnknownTypeShowsItsPageAndNoType) {
    fill({unknown_kind()});
    EXPECT_EQ(table.text(0, 0), "1");
    EXPECT_EQ(table.text(0, 1), "not found");
    EXPECT_EQ(table.text(0, 2), "");
}

TEST_F(SummaryList, CellsOutsideTheRowsAreNull) {
    fill({insert_after(3)});
    const platform::TableColumn page{"page", ""};
    EXPECT_EQ(list.tableView_objectValueForTableColumn(table, page, 0), "3");
    EXPECT_FALSE(list.tableView_objectValueForTableColumn(table, page, -1).has_value());
    EXPECT_FALSE(list.tableView_objectValueForTableColumn(table, page, 1).has_value());
    EXPECT_FALSE(list.tableView_objectValueForTableColumn(table, {"other", ""}, 0).has_value());
}

TEST_F(SummaryList, ColumnTitlesAreLocalised) {
    EXPECT_TRUE(list.InitializeColumnsTitle(bundle.get()));
    EXPECT_EQ(table.tableColumns()[0].headerTitle, bundle->localizedStringForKey("Page(s) Title", "?", ""));
    EXPECT_EQ(table.tableColumns()[2].headerTitle, bundle->localizedStringForKey("Setup Title", "?", ""));
    EXPECT_FALSE(list.InitializeColumnsTitle(nullptr));
    table.setTableColumns({});
    EXPECT_TRUE(list.InitializeColumnsTitle(bundle.get()));
}

TEST_F(SummaryList, TheInterposersTextComesFromThePpd) {
    UncollateSeparatorSTR().reset();
    PpdBuilder ppd;
    ppd.option("NVUncollateSeparator").choice("None").choice("INT", "From the interposer");
    EXPECT_TRUE(list.InitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_EQ(UncollateSeparatorSTR(), "From the interposer");
}

TEST_F(SummaryList, AnOptionWithoutTheInterposerLeavesItsTextUnset) {
    UncollateSeparatorSTR() = "of another printer";
    PpdBuilder ppd;
    ppd.option("NVUncollateSeparator").choice("None");
    EXPECT_TRUE(list.InitializeCtrl(bundle.get(), ppd.file()));
    EXPECT_FALSE(UncollateSeparatorSTR().has_value());
}

TEST_F(SummaryList, RecordsAreCollectedByType) {
    fill({cover_front(), insert_after(3), exception("5"), cover_back()});
    RecordList array;
    EXPECT_TRUE(list.getArrayByType(&array, kCovers));
    EXPECT_EQ(array.size(), 2U);
    EXPECT_TRUE(list.getArrayByType(&array, 3));
    EXPECT_EQ(array.size(), 6U) << "records are appended";
    EXPECT_TRUE(list.getArrayByType(&array, 4));
    EXPECT_TRUE(list.getArrayByType(&array, -1));
    EXPECT_EQ(array.size(), 6U);
    EXPECT_FALSE(list.getArrayByType(nullptr, kCovers));
}

TEST_F(SummaryList, SelectedRowsAreNumberedWithinTheirType) {
    fill({cover_front(), insert_after(3), insert_after(4), exception("5")});
    table.userSelects({2});
    EXPECT_EQ(list.getIndexSetOfCurrentSelectedRecordByType(kInserts), RowSet{1});
    EXPECT_EQ(list.getIndexSetOfCurrentSelectedRecordByType(kExceptions), RowSet{});
    std::vector<std::string> rows{"before"};
    list.getIndexArrayOfCurrentSelectedRecords(rows);
    EXPECT_THAT(rows, ElementsAre("before", "2"));
    EXPECT_EQ(list.selectedItemCount(), 1U);
    EXPECT_EQ(list.getArrayOfCurrentSelectedRecords()->size(), 1U);
}

TEST_F(SummaryList, WithoutATableThereIsNoSelection) {
    SPSummaryScrollViewCtrl bare;
    EXPECT_EQ(bare.selectedItemCount(), 0U);
    EXPECT_FALSE(bare.getIndexSetOfCurrentSelectedRecord().has_value());
    EXPECT_FALSE(bare.getArrayOfCurrentSelectedRecords().has_value());
    EXPECT_FALSE(bare.getIndexSetOfCurrentSelectedRecordByType(0).has_value());
    EXPECT_FALSE(bare.upDateView());
    EXPECT_FALSE(bare.GetValueToPreset());
    EXPECT_FALSE(bare.SetValueToTicket(&settings, false));
    bare.deleteAllItem();
    bare.deleteCurrentSelectedItem();
    bare.upSelectedItems();
    bare.downSelectedItems();
    bare.markSelectedRecord();
    bare.RequestControlDoubleAction();
    EXPECT_EQ(bare.getSummaryScrollViewStatus(), kSummaryEditing);
}

TEST_F(SummaryList, ARowStandsForItsRecordAsItsTicketHasIt) {
    fill({exception("5-7"), insert_after(3)});
    EXPECT_EQ(table.representedObject(0), encode_record(list.records()[0]));
    EXPECT_EQ(table.representedObject(1), encode_record(list.records()[1]));
    EXPECT_FALSE(table.representedObject(2).has_value());
    EXPECT_FALSE(list.tableView_representedObjectForRow(table, -1).has_value());
    EXPECT_TRUE(settings.entries().empty()) << "nothing is saved for it";
}

TEST_F(SummaryList, TheTipNamesPageTypeAndSetup) {
    pane.dialogs[kExceptions].paper.emplace();
    fill({exception("5-7"), insert_after(3)});
    const std::string title = bundle->localizedStringForKey("Page(s) Title", "?", "");
    const std::string type = bundle->localizedStringForKey("Exception String", "?", "");
    EXPECT_EQ(list.getTipInformationByRow(0),
              title + " 5-7;  " + type + ";  2-sided, long edge; size 0, color 0, type 0");
    EXPECT_EQ(list.getTipInformationByRow(1), "") << "a text is missing";
    EXPECT_FALSE(list.getTipInformationByRow(-1).has_value());
    EXPECT_FALSE(list.getTipInformationByRow(2).has_value());
    EXPECT_EQ(table.toolTipForRow(0), list.getTipInformationByRow(0));
}

/// Settings whose n-th write from now fails.
class FailingSettings : public platform::PrintSettings {
  public:
    explicit FailingSettings(int successes) : left_(successes) {}
    platform::OSStatus setValue(std::string_view key, platform::SettingsValue value, bool locked) override {
        return left_-- > 0 ? PrintSettings::setValue(key, std::move(value), locked) : platform::ioErr;
    }

  private:
    int left_;
};

TEST_F(SummaryTickets, AnEmptyListWritesItsCountAlone) {
    EXPECT_TRUE(list.SetValueToTicket(&settings, false));
    ASSERT_EQ(settings.entries().size(), 1U);
    EXPECT_EQ(settings.entries()[0].key, "com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount");
    EXPECT_EQ(std::get<std::string>(settings.entries()[0].value), "0");
}

TEST_F(SummaryTickets, NeedsSettingsAndAKey) {
    EXPECT_FALSE(list.SetValueToTicket(nullptr, false));
    SPSummaryScrollViewCtrl keyless;
    keyless.CreateControl(&table, tableColumnsTitleResourceString, nullptr, nullptr, {});
    EXPECT_FALSE(keyless.SetValueToTicket(&settings, false));
    EXPECT_THAT(settings.entries(), IsEmpty());
}

TEST_F(SummaryTickets, TheLockFlagIsPassedOn) {
    EXPECT_TRUE(list.SetValueToTicket(&settings, true));
    EXPECT_TRUE(settings.entries()[0].locked);
}

TEST_F(SummaryTickets, ARecordOfAnUnknownTypeIsCountedButNotWrittenAndThenMissesOnReading) {
    fill({insert_after(3), unknown_kind(), exception("9")});
    EXPECT_TRUE(list.SetValueToTicket(&settings, false));
    EXPECT_EQ(std::get<std::string>(*settings.value(kNPIFCommandTicketCount)), "3");
    EXPECT_EQ(settings.value(std::string(kNPIFCommandTicket) + "_1"), nullptr);
    EXPECT_FALSE(list.GetValueToPreset());
    EXPECT_EQ(stored(), RecordList{insert_after(3)}) << "the records read so far stay";
}

TEST_F(SummaryTickets, AFailedWriteEndsTheWritingAndKeepsWhatWasWritten) {
    fill({insert_after(3), insert_after(4)});
    for (int successes = 0; successes < 3; ++successes) {
        FailingSettings failing(successes);
        EXPECT_FALSE(list.SetValueToTicket(&failing, false)) << successes;
        EXPECT_EQ(failing.entries().size(), static_cast<std::size_t>(successes));
    }
    FailingSettings enough(3);
    EXPECT_TRUE(list.SetValueToTicket(&enough, false));
}

TEST_F(SummaryTickets, TheFlagsTellOfExceptionsAndTabStock) {
    pane.dialogs[kInserts].tabStock = 36;
    fill({insert_after(3).with(RecordKey::pagetype, "36"), exception("9")});
    EXPECT_FALSE(list.whetherHasExceptionRecord());
    list.SetValueToTicket(&settings, false);
    EXPECT_TRUE(list.whetherHasExceptionRecord());
    EXPECT_TRUE(list.whetherHasTabStockRecord());
    fill({insert_after(3)});
    list.SetValueToTicket(&settings, false);
    EXPECT_FALSE(list.whetherHasExceptionRecord());
    EXPECT_FALSE(list.whetherHasTabStockRecord());
}

TEST_F(SummaryTickets, AnExceptionIsToldAlsoWithoutItsDialog) {
    pane.haveDialogs = false;
    fill({exception("9")});
    EXPECT_TRUE(list.SetValueToTicket(&settings, false));
    EXPECT_TRUE(list.whetherHasExceptionRecord());
    EXPECT_FALSE(list.whetherHasTabStockRecord());
}

TEST_F(SummaryTickets, WithoutACountTheListStaysAsItWas) {
    fill({insert_after(3)});
    EXPECT_FALSE(list.GetValueToPreset());
    EXPECT_EQ(list.allItemCount(), 1U);
    settings.setValue(kNPIFCommandTicketCount, std::vector<std::string>{"1"}, false);
    EXPECT_FALSE(list.GetValueToPreset());
    EXPECT_EQ(list.allItemCount(), 1U);
}

TEST_F(SummaryTickets, ACountBelowOneEmptiesTheList) {
    for (const char* count : {"0", "-3", "none", ""}) {
        fill({insert_after(3)});
        settings.setValue(kNPIFCommandTicketCount, count, false);
        EXPECT_TRUE(list.GetValueToPreset()) << count;
        EXPECT_EQ(list.allItemCount(), 0U) << count;
    }
}

TEST_F(SummaryTickets, AnotherKindOfRecordIsSkipped) {
    settings.setValue(kNPIFCommandTicketCount, "2", false);
    settings.setValue(std::string(kNPIFCommandTicket) + "_0", "7,1,2", false);
    settings.setValue(std::string(kNPIFCommandTicket) + "_1", "2,9,2,0,0,false,2,,297.0,1", false);
    EXPECT_TRUE(list.GetValueToPreset());
    ASSERT_EQ(list.allItemCount(), 1U);
    EXPECT_EQ(list.records()[0].text(RecordKey::width), "") << "an empty field is kept";
    EXPECT_EQ(list.records()[0].find(RecordKey::selected), nullptr);
}

TEST_F(SummaryTickets, KeysAreMadeOfTheKeyAndTheIndex) {
    EXPECT_EQ(SPSummaryScrollViewCtrl::makeSummaryScrollViewCtrlTicket("a.b", 12), "a.b_12");
    EXPECT_FALSE(SPSummaryScrollViewCtrl::makeSummaryScrollViewCtrlTicket(nullptr, 0).has_value());
    EXPECT_FALSE(SPSummaryScrollViewCtrl::makeSummaryScrollViewCtrlTicket("a.b", -1).has_value());
}

TEST_F(SummaryEditing, ClickingOneCoverSelectsBothAndMarksBoth) {
    fill({cover_front(), insert_after(3), cover_back()});
    table.userSelects({0});
    EXPECT_EQ(table.selectedRowIndexes(), (RowSet{0, 2}));
    EXPECT_EQ(marked(), (RowSet{0, 2}));
    table.userSelects({1});
    EXPECT_EQ(marked(), RowSet{1});
    table.userSelects({2});
    EXPECT_EQ(table.selectedRowIndexes(), (RowSet{0, 2}));
}

TEST_F(SummaryEditing, DeselectingKeepsTheMarks) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({1});
    table.userSelects({});
    EXPECT_EQ(marked(), RowSet{1});
}

TEST_F(SummaryEditing, ARefreshSelectsTheMarkedRowsWhileAdding) {
    fill({insert_after(3), insert_after(4), insert_after(5)});
    table.userSelects({0, 2});
    list.setSummaryScrollViewStatus(kSummaryAdding);
    list.upDateView();
    EXPECT_EQ(table.selectedRowIndexes(), (RowSet{0, 2}));
    EXPECT_EQ(marked(), (RowSet{0, 2}));
}

TEST_F(SummaryEditing, ARefreshClearsSelectionAndMarksAfterEditing) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({1});
    list.setSummaryScrollViewStatus(kSummaryEditing);
    list.upDateView();
    EXPECT_THAT(table.selectedRowIndexes(), IsEmpty());
    EXPECT_EQ(list.records()[1].text(RecordKey::selected), "false");
    EXPECT_EQ(list.records()[0].text(RecordKey::selected), "false");
}

TEST_F(SummaryEditing, ARefreshOnlyClearsTheSelectionBeforeAnyAdd) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({1});
    list.upDateView();
    EXPECT_THAT(table.selectedRowIndexes(), IsEmpty());
    EXPECT_EQ(marked(), RowSet{1});
}

TEST_F(SummaryEditing, DeletingAMiddleRowWhileAddingSelectsTheFormerNext) {
    fill({insert_after(3), insert_after(4), insert_after(5)});
    list.setSummaryScrollViewStatus(kSummaryAdding);
    table.userSelects({1});
    list.deleteCurrentSelectedItem();
    EXPECT_EQ(stored(), (RecordList{insert_after(3), insert_after(5)}));
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{1});
}

TEST_F(SummaryEditing, DeletingTheLastRowWhileAddingSelectsTheRowAbove) {
    fill({insert_after(3), insert_after(4), insert_after(5)});
    list.setSummaryScrollViewStatus(kSummaryAdding);
    table.userSelects({2});
    list.deleteCurrentSelectedItem();
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{1});
}

TEST_F(SummaryEditing, DeletingAfterEditingSelectsNothing) {
    fill({insert_after(3), insert_after(4), insert_after(5)});
    list.setSummaryScrollViewStatus(kSummaryEditing);
    table.userSelects({1});
    list.deleteCurrentSelectedItem();
    EXPECT_THAT(table.selectedRowIndexes(), IsEmpty());
    EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(SummaryEditing, DeletingEveryRowLeavesAnEmptyList) {
    fill({insert_after(3), insert_after(4)});
    table.userSelects({0, 1});
    list.deleteCurrentSelectedItem();
    EXPECT_EQ(list.allItemCount(), 0U);
    EXPECT_EQ(table.numberOfRows(), 0U);
    list.deleteCurrentSelectedItem();
    EXPECT_EQ(list.allItemCount(), 0U);
}

TEST_F(SummaryEditing, NeighboursMoveAsABlock) {
    fill({insert_after(3, 1), insert_after(3, 2), insert_after(3, 3)});
    list.setSummaryScrollViewStatus(kSummaryAdding);
    table.userSelects({1, 2});
    list.upSelectedItems();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 2), insert_after(3, 3), insert_after(3, 1)}));
    EXPECT_EQ(table.selectedRowIndexes(), (RowSet{0, 1}));
    list.downSelectedItems();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 1), insert_after(3, 2), insert_after(3, 3)}));
    EXPECT_EQ(table.selectedRowIndexes(), (RowSet{1, 2}));
}

TEST_F(SummaryEditing, AMoveBeforeAnyAddLeavesTheMovedRowMarkedAndNothingSelected) {
    fill({insert_after(3, 1), insert_after(3, 2)});
    list.setSummaryScrollViewStatus(kSummaryIdle);
    table.userSelects({1});
    list.upSelectedItems();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 2), insert_after(3, 1)}));
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{});
    EXPECT_EQ(marked(), RowSet{0});
}

TEST_F(SummaryEditing, AMoveAfterAnEditLeavesNothingMarkedOrSelected) {
    fill({insert_after(3, 1), insert_after(3, 2)});
    list.setSummaryScrollViewStatus(kSummaryEditing);
    table.userSelects({0});
    list.downSelectedItems();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 2), insert_after(3, 1)}));
    EXPECT_EQ(table.selectedRowIndexes(), RowSet{});
    EXPECT_EQ(marked(), RowSet{});
}

TEST_F(SummaryEditing, MovingWithoutASelectionDoesNothing) {
    fill({insert_after(3, 1), insert_after(3, 2)});
    list.upSelectedItems();
    list.downSelectedItems();
    EXPECT_EQ(stored(), (RecordList{insert_after(3, 1), insert_after(3, 2)}));
}

TEST_F(SummaryEditing, ADoubleClickOpensTheDialogOfTheSelectedKind) {
    fill({cover_front(), insert_after(3), insert_after(4), exception("9")});
    table.userSelects({1, 2});
    ASSERT_TRUE(table.doubleClick());
    EXPECT_EQ(pane.dialogs[kInserts].openings, 1);
    table.userSelects({3});
    table.doubleClick();
    EXPECT_EQ(pane.dialogs[kExceptions].openings, 1);
    table.userSelects({0});
    table.doubleClick();
    EXPECT_EQ(pane.dialogs[kCovers].openings, 1);
}

TEST_F(SummaryEditing, ADoubleClickOnAMixedSelectionOrNothingOpensNothingAndSetsTheStatus) {
    fill({insert_after(3), exception("9")});
    table.userSelects({0, 1});
    table.doubleClick();
    EXPECT_EQ(list.getSummaryScrollViewStatus(), kSummaryEditing);
    fill({});
    list.setSummaryScrollViewStatus(kSummaryIdle);
    table.doubleClick();
    EXPECT_EQ(list.getSummaryScrollViewStatus(), kSummaryEditing);
    for (const GivenDialog& dialog : pane.dialogs) {
        EXPECT_EQ(dialog.openings, 0);
    }
}

TEST_F(SummaryEditing, InsertsBeforePageOneCanBeRemoved) {
    fill({insert_before_page_one(), insert_after(3)});
    list.doDelectBeforePageOne();
    EXPECT_EQ(stored(), RecordList{insert_after(3)});
    EXPECT_EQ(table.numberOfRows(), 2U) << "the view is not refreshed";
}

TEST_F(SummaryEditing, ASelectionIsToldToThePanesViewOnce) {
    fill({cover_front(), insert_after(3), cover_back()});
    int displays = 0;
    pane.view.addObserver([&](platform::View&, platform::ViewChange change) {
        displays += change == platform::ViewChange::display ? 1 : 0;
    });
    table.userSelects({0});
    EXPECT_EQ(displays, 1) << "pulling the other cover in tells nobody again";
}

} // namespace
} // namespace specialpages::test
