#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/control_fixtures.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<const char*, 5> kKeys{"No Covers String", "Front Only String", "Back Only String",
                                           "Front and Back Same String", "Front and Back Different String"};
constexpr PopupIniData kIniData{.defaultItem = 1, .initial = -1, .menuKeys = kKeys};

/// The list of cover options with the six controls that it disables, by its real tables.
class CoverOptions : public ::testing::Test {
  protected:
    CoverOptions()
        : disable{{204, 206, 209, 211, 203, 208}, {209, 211, 208}, {204, 206, 203}, {209, 211}, {}},
          update{{206, 204, 211, 209, 203, 208},
                 {203, 208, 206, 211},
                 {203, 208, 206, 211},
                 {206, 211, 209, 203, 208},
                 {203, 208, 206, 211}},
          record{.disable = disable.all(), .hide = {}, .update = update.all()} {
        view.setTag(201);
        list.CreateControl(&view, &kIniData, &record, nullptr, {});
        panel.RunTimeAddNewControl(&list);
        for (ControlTag tag : {203, 204, 206, 208, 209, 211}) {
            views.push_back(std::make_unique<TaggedView>(tag));
            auto control = std::make_unique<Counted>(updates);
            control->CreateControl(views.back().get());
            panel.RunTimeAddNewControl(control.get());
            controls.push_back(std::move(control));
        }
        list.InitializeCtrl(nullptr, nullptr);
        list.setTargetandAction();
        list.SetUIValueToIniData();
        list.SetControlValueToDefault();
        list.SetControlValueToUI();
        list.SimulationUIEventHandler();
        updates.clear();
    }

    /// Writes down the tag when it is updated.
    class Counted : public BaseControlEMFSpecialPages {
      public:
        explicit Counted(std::vector<ControlTag>& updates) : updates_(updates) {}
        std::int32_t Update() override {
            updates_.push_back(ControlPtr->tag());
            return 0;
        }

      private:
        std::vector<ControlTag>& updates_;
    };

    std::vector<ControlTag> disabled() const {
        std::vector<ControlTag> tags;
        for (const auto& view_ : views) {
            if (!view_->isEnabled()) {
                tags.push_back(view_->tag());
            }
        }
        return tags;
    }
    void pick(std::int64_t position) {
        const std::array<std::int64_t, 1> path{position};
        ASSERT_TRUE(view.pick(path));
    }

    Rows disable;
    Rows update;
    ConstraintRecord record;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    std::vector<std::unique_ptr<TaggedView>> views;
    std::vector<std::unique_ptr<Counted>> controls;
    std::vector<ControlTag> updates;
    TestPanel panel;
};

TEST_F(CoverOptions, TheFirstSimulationDisablesTheRowOfTheDefaultAndUndoesNone) {
    EXPECT_THAT(disabled(), ElementsAre(203, 204, 206, 208, 209, 211));
    for (const auto& control : controls) {
        EXPECT_EQ(control->constrainCount(), 1);
    }
}

TEST_F(CoverOptions, FromNoneToFrontOnlyFreesTheFrontAlone) {
    pick(1);
    EXPECT_THAT(updates, ElementsAre(203, 208, 206, 211));
    EXPECT_THAT(disabled(), ElementsAre(208, 209, 211));
    EXPECT_EQ(controls[0]->constrainCount(), 0);
    EXPECT_EQ(controls[5]->constrainCount(), 1);
}

TEST_F(CoverOptions, FromSameToDifferentFreesTheBackAndDisablesNothing) {
    pick(3);
    EXPECT_THAT(disabled(), ElementsAre(209, 211));
    pick(4);
    EXPECT_THAT(disabled(), IsEmpty());
    for (const auto& control : controls) {
        EXPECT_EQ(control->constrainCount(), 0);
    }
}

TEST_F(CoverOptions, TheSameItemAgainFiresNothing) {
    pick(1);
    updates.clear();
    pick(1);
    EXPECT_THAT(updates, IsEmpty());
    EXPECT_EQ(controls[5]->constrainCount(), 1);
}

TEST_F(CoverOptions, NoSelectionCountsAsItemOne) {
    pick(4);
    view.selectItemAtIndex(-1);
    list.SimulationUIEventHandler();
    EXPECT_THAT(disabled(), ElementsAre(203, 204, 206, 208, 209, 211));
    EXPECT_EQ(list.GetCurrentControlArrayNumber(), -1);
}

TEST_F(CoverOptions, TwoListsThatDisableOneFieldMustBothLetItGo) {
    platform::PopUpButton other;
    other.setTag(299);
    PopupControlEMFSpecialPages second;
    second.CreateControl(&other, &kIniData, &record, nullptr, {});
    panel.RunTimeAddNewControl(&second);
    second.InitializeCtrl(nullptr, nullptr);
    second.SetUIValueToIniData();
    other.selectItemAtIndex(3);
    second.SimulationUIEventHandler();
    pick(4);
    EXPECT_THAT(disabled(), ElementsAre(209, 211));
    other.selectItemAtIndex(4);
    second.SimulationUIEventHandler();
    EXPECT_THAT(disabled(), IsEmpty());
}

TEST_F(CoverOptions, AnItemPastTheRowsHasNoEffect) {
    const Rows one{{203}};
    const ConstraintRecord shortRecord{.disable = one.all(), .hide = one.all(), .update = one.all()};
    PopupControlEMFSpecialPages brief;
    platform::PopUpButton other;
    brief.CreateControl(&other, &kIniData, &shortRecord, nullptr, {});
    panel.RunTimeAddNewControl(&brief);
    brief.InitializeCtrl(nullptr, nullptr);
    brief.SetUIValueToIniData();
    other.selectItemAtIndex(4);
    brief.SimulationUIEventHandler();
    EXPECT_EQ(controls[0]->constrainCount(), 1) << "still the first list's";
    EXPECT_EQ(controls[0]->hideCount(), 0);
}

TEST(PopupControl, HidesBeforeItShowsAndAnOldItemOfZeroIsNoRow) {
    const Rows hide{{11}, {12}};
    const ConstraintRecord record{.disable = {}, .hide = hide.all(), .update = {}};
    TestPanel panel;
    platform::PopUpButton view;
    view.setTag(1);
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, &record, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    TaggedView first(11);
    TaggedView second(12);
    BaseControlEMFSpecialPages a;
    BaseControlEMFSpecialPages b;
    a.CreateControl(&first);
    b.CreateControl(&second);
    panel.RunTimeAddNewControl(&a);
    panel.RunTimeAddNewControl(&b);
    list.InitializeCtrl(nullptr, nullptr);
    view.selectItemAtIndex(0);
    list.DoControlHideConstrain();
    EXPECT_EQ(a.hideCount(), 1);
    EXPECT_EQ(b.hideCount(), 0);
    list.GetValueFromUI();
    view.selectItemAtIndex(1);
    list.DoControlHideConstrain();
    EXPECT_EQ(a.hideCount(), 0);
    EXPECT_EQ(b.hideCount(), 1);
    EXPECT_FALSE(first.isHidden());
    EXPECT_TRUE(second.isHidden());
}

TEST(PopupControl, AKeyWithoutATranslationShowsItself) {
    const platform::testing::TemporaryDirectory directory;
    write_bundle(directory.path(), "com.example.popup");
    platform::testing::write_test_file(directory.path() / "en.lproj" / "Localizable.strings",
                                       "\"Front Only String\" = \"Front only\";");
    const auto bundle = platform::Bundle::load(directory.path());
    ASSERT_NE(bundle, nullptr);
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    EXPECT_FALSE(view.menu().autoenablesItems());
    ASSERT_TRUE(list.InitializeMenu(bundle.get(), nullptr));
    ASSERT_TRUE(list.InitializeMenu(bundle.get(), nullptr)) << "the menu is made anew, not longer";
    ASSERT_EQ(view.numberOfItems(), 5);
    EXPECT_EQ(view.menu().itemAtIndex(0)->title(), "No Covers String");
    EXPECT_EQ(view.menu().itemAtIndex(1)->title(), "Front only");
    EXPECT_EQ(view.menu().itemAtIndex(1)->representedObject(), "Front Only String");
}

TEST(PopupControl, AnItemOfZeroSelectsNothingAsItsValueAndTheFirstFromOutside) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), -1);
    EXPECT_TRUE(list.SetExternalValueToUI(0, 4));
    EXPECT_EQ(view.indexOfSelectedItem(), 0);
    EXPECT_FALSE(list.SetExternalValueToUI(std::string("2"), 1));
}

TEST(PopupControl, ValueGoesFromViewToTicketTextAndBack) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    list.InitializeCtrl(nullptr, nullptr);
    view.selectItemAtIndex(2);
    ASSERT_NE(list.GetValueFromUI(), nullptr);
    std::string text;
    EXPECT_TRUE(list.ConvertToTickectData(text));
    EXPECT_EQ(text, "0") << "nothing is committed yet";
    list.SetValueFromUIToControl();
    EXPECT_TRUE(list.ConvertToTickectData(text));
    EXPECT_EQ(text, "3");
    EXPECT_TRUE(list.ConvertFromPreferenceString("5"));
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), 4);
}

TEST(PopupControl, ReadsItsValueFromThePrintSettings) {
    constexpr AccessInfo kAccess{.ticketKey = "com.example.item", .preferenceKey = nullptr};
    platform::PrintSettings settings;
    TestPanel panel;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, &kAccess, {});
    EXPECT_FALSE(list.GetValueToPreset()) << "no panel";
    panel.RunTimeAddNewControl(&list);
    EXPECT_FALSE(list.GetValueToPreset()) << "no settings";
    panel.SetCurrentPMPrintSettings(&settings);
    EXPECT_FALSE(list.GetValueToPreset()) << "no value";
    settings.setValue("com.example.item", "4", false);
    EXPECT_FALSE(list.GetValueToPreset()) << "no data block";
    list.InitializeCtrl(nullptr, nullptr);
    EXPECT_TRUE(list.GetValueToPreset());
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(4));
}

TEST(PopupControl, EverythingToleratesAMissingViewAndTable) {
    PopupControlEMFSpecialPages list;
    list.CreateControl(nullptr, nullptr, nullptr, nullptr, {});
    EXPECT_TRUE(list.InitializeCtrl(nullptr, nullptr)) << "without a table there is no menu to make";
    EXPECT_FALSE(list.SetControlValueToUI());
    EXPECT_EQ(list.GetValueFromUI(), nullptr);
    list.SetValueFromUIToControl();
    EXPECT_TRUE(list.SimulationUIEventHandler());
    EXPECT_TRUE(list.SetControlValueToDefault());
    EXPECT_FALSE(list.isChoiceConflicted("A:x", "B", "y", nullptr));
    list.CreateControl(nullptr, &kIniData, nullptr, nullptr, {});
    EXPECT_FALSE(list.InitializeMenu(nullptr, nullptr));
    EXPECT_FALSE(list.InitializeCtrl(nullptr, nullptr));
}

TEST(PopupControl, AsksThePanelsIndexForConflicts) {
    PpdBuilder ppd;
    ppd.option("A").choices({"w", "x"}).option("B").choices({"w", "y"}).constraint("A", "x", "B", "y");
    TestPanel panel;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, nullptr, nullptr, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "x", ppd.file())) << "no index";
    auto index = std::make_shared<ConstraintIndex>();
    const std::vector<std::string> keywords{"A", "B"};
    compile_constraints(ppd.file(), index.get(), keywords);
    panel.SetxppdPtr(index);
    EXPECT_TRUE(list.isChoiceConflicted("B:y", "A", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "w", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("A:x", "B", "y", ppd.file()));
}

// Every step with a piece missing.

TEST(PopupControl, WithoutBlocksAnswersFalseOrNull) {
    platform::PopUpButton view;
    view.addItemWithTitle("a");
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    EXPECT_FALSE(list.SetControlValueToUI());
    EXPECT_EQ(list.GetValueFromUI(), nullptr);
    list.SetValueFromUIToControl();
    EXPECT_FALSE(list.GetControlBlkPtr());
    std::string text = "as it was";
    EXPECT_FALSE(list.ConvertToTickectData(text));
    EXPECT_FALSE(list.ConvertToPreferenceString(text));
    EXPECT_FALSE(list.ConvertFromPreferenceString("3"));
    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(list.GetDataBlkSize(), 0U);
    EXPECT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(list.GetDataBlkSize(), 4U);
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(0));
    EXPECT_EQ(list.GetValueFromUIDataBlk(), ValueBlock(0));
}

TEST(PopupControl, WithBlocksAndNoViewKeepsItsValue) {
    const Rows rows{{11}};
    const ConstraintRecord record{.disable = rows.all(), .hide = rows.all(), .update = rows.all()};
    TaggedView noList(1);
    for (platform::View* view :
         {static_cast<platform::View*>(nullptr), static_cast<platform::View*>(&noList)}) {
        PopupControlEMFSpecialPages list;
        list.CreateControl(view, nullptr, &record, nullptr, {});
        ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
        list.GetControlBlkPtr() = 4;
        EXPECT_FALSE(list.SetControlValueToUI());
        EXPECT_FALSE(list.SetExternalValueToUI(2, 4));
        EXPECT_EQ(list.GetValueFromUI(), nullptr);
        EXPECT_EQ(list.GetCurrentControlArrayNumber(), -1);
        EXPECT_TRUE(list.SimulationUIEventHandler());
        list.RequestPopupList(nullptr);
        EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(4));
    }
}

TEST(PopupControl, CommitsWithAViewOnly) {
    PopupControlEMFSpecialPages list;
    list.CreateControl(nullptr, nullptr, nullptr, nullptr, {});
    list.InitializeCtrl(nullptr, nullptr);
    list.GetValueFromUIDataBlk() = 3;
    list.SetValueFromUIToControl();
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(0));
    platform::PopUpButton view;
    list.SetControlPtr(&view);
    list.SetValueFromUIToControl();
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(3));
}

TEST(PopupControl, AnEmptyMenuHasNoSelectionAndCountsAsItemOne) {
    constexpr PopupIniData kNoKeys{.defaultItem = 1, .initial = -1, .menuKeys = {}};
    const Rows disable{{11}, {12}};
    const ConstraintRecord record{.disable = disable.all(), .hide = {}, .update = {}};
    TestPanel panel;
    platform::PopUpButton view;
    view.addItemWithTitle("of the nib");
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kNoKeys, &record, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    TaggedView first(11);
    BaseControlEMFSpecialPages neighbour;
    neighbour.CreateControl(&first);
    panel.RunTimeAddNewControl(&neighbour);
    ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(view.numberOfItems(), 0);
    list.SetUIValueToIniData();
    list.SetControlValueToDefault();
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), -1);
    EXPECT_TRUE(list.SimulationUIEventHandler());
    EXPECT_FALSE(first.isEnabled());
    ASSERT_NE(list.GetValueFromUI(), nullptr);
    EXPECT_EQ(*list.GetValueFromUI(), ValueBlock(0)) << "the item number of no selection";
}

TEST(PopupControl, AnItemPastTheMenuKeepsTheSelection) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    view.selectItemAtIndex(2);
    for (const std::int32_t item : {6, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_TRUE(list.SetExternalValueToUI(item, 4));
        list.GetControlBlkPtr() = item;
        EXPECT_TRUE(list.SetControlValueToUI());
        EXPECT_EQ(view.indexOfSelectedItem(), 2) << item;
    }
    list.GetControlBlkPtr() = std::numeric_limits<std::int32_t>::min();
    EXPECT_TRUE(list.SetControlValueToUI());
    EXPECT_EQ(view.indexOfSelectedItem(), 2);
    EXPECT_TRUE(list.SetExternalValueToUI(std::numeric_limits<std::int32_t>::min(), 4));
    EXPECT_EQ(view.indexOfSelectedItem(), 0) << "from outside, what is negative is the first";
}

TEST(PopupControl, ATranslationThatSaysItIsNoneShowsTheKey) {
    const LocalizedBundle bundle{{"Front Only String", "no translation"}, {"Back Only String", ""}};
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    ASSERT_TRUE(list.InitializeMenu(bundle.get(), nullptr));
    EXPECT_EQ(view.menu().itemAtIndex(1)->title(), "Front Only String");
    EXPECT_EQ(view.menu().itemAtIndex(2)->title(), "") << "an empty text is a translation";
    EXPECT_EQ(view.menu().itemAtIndex(2)->representedObject(), "Back Only String");
}

TEST(PopupControl, IsGivenADefaultAndASentinelByItsTableOnly) {
    PopupControlEMFSpecialPages list;
    list.CreateControl(nullptr, nullptr, nullptr, nullptr, {});
    EXPECT_EQ(list.GetDefaultDataBlk(), std::nullopt);
    EXPECT_EQ(list.GetDefaultDataSize(), 0U);
    EXPECT_EQ(list.GetIniDataBlk(), std::nullopt);
    EXPECT_EQ(list.GetIniDataSize(), 0U);
    constexpr PopupIniData kThird{.defaultItem = 3, .initial = -1, .menuKeys = kKeys};
    list.CreateControl(nullptr, &kThird, nullptr, nullptr, {});
    EXPECT_EQ(list.GetDefaultDataBlk(), ControlValue(3));
    EXPECT_EQ(list.GetDefaultDataSize(), 4U);
    EXPECT_EQ(list.GetIniDataBlk(), ControlValue(-1));
    EXPECT_EQ(list.GetIniDataSize(), 4U);
}

TEST(PopupControl, ADialogThatReopensMakesTheMenuAloneAnew) {
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, &kIniData, nullptr, nullptr, {});
    ASSERT_TRUE(list.InitializeCtrl(nullptr, nullptr));
    list.GetControlBlkPtr() = 4;
    list.GetValueFromUIDataBlk() = 5;
    view.addItemWithTitle("surplus");
    EXPECT_TRUE(list.ReInitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(view.numberOfItems(), 5);
    EXPECT_EQ(list.GetControlBlkPtr(), ValueBlock(4));
    EXPECT_EQ(list.GetValueFromUIDataBlk(), ValueBlock(5));
}

/// A list with update rows only, by which nothing but an event writes the UI block.
class UpdatingList : public ::testing::Test {
  protected:
    UpdatingList() {
        view.setTag(1);
        list.CreateControl(&view, &kIniData, &record, nullptr, {});
        panel.RunTimeAddNewControl(&list);
        neighbour.InitializeCtrl(nullptr, nullptr);
        panel.RunTimeAddNewControl(&neighbour);
        list.InitializeCtrl(nullptr, nullptr);
        list.setTargetandAction();
        list.SetUIValueToIniData();
        list.SetControlValueToDefault();
        list.SetControlValueToUI();
        list.SimulationUIEventHandler();
    }
    void pick(std::int64_t position) {
        const std::array<std::int64_t, 1> path{position};
        ASSERT_TRUE(view.pick(path));
    }

    Rows update{{11}, {11}, {11}, {11}, {11}};
    ConstraintRecord record{.disable = {}, .hide = {}, .update = update.all()};
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    NumberView number{11};
    NumberControl neighbour{&number, 0};
    TestPanel panel;
};

TEST_F(UpdatingList, TheSameItemFiresNothingFromTheFirstEventOn) {
    EXPECT_EQ(neighbour.updates, 1) << "the simulation at the opening";
    EXPECT_EQ(list.GetValueFromUIDataBlk(), ValueBlock(-1));
    pick(0);
    EXPECT_EQ(neighbour.updates, 2) << "no event had read the view before";
    EXPECT_EQ(list.GetValueFromUIDataBlk(), ValueBlock(1));
    pick(0);
    pick(0);
    EXPECT_EQ(neighbour.updates, 2);
    pick(3);
    EXPECT_EQ(neighbour.updates, 3);
    pick(3);
    EXPECT_EQ(neighbour.updates, 3);
}

TEST_F(UpdatingList, TheBaseFormFiresAlsoWithoutAChange) {
    list.GetValueFromUI();
    EXPECT_EQ(list.DoControlUpdateConstrain(), 0);
    EXPECT_EQ(neighbour.updates, 1);
    EXPECT_EQ(list.DoBaseControlUpdateConstrain(), 0);
    EXPECT_EQ(neighbour.updates, 2);
}

TEST_F(UpdatingList, WithoutAUIBlockFiresNothing) {
    list.GetValueFromUIDataBlk().reset();
    list.SimulationUIEventHandler();
    list.RequestPopupList(&view);
    EXPECT_EQ(neighbour.updates, 1);
}

TEST(PopupControl, ConflictsOfUnknownOrEmptyChoicesAreNone) {
    PpdBuilder ppd;
    ppd.option("A").choices({"w", "x"}).option("B").choices({"w", "y"}).constraint("A", "x", "B", "y");
    TestPanel panel;
    platform::PopUpButton view;
    PopupControlEMFSpecialPages list;
    list.CreateControl(&view, nullptr, nullptr, nullptr, {});
    panel.RunTimeAddNewControl(&list);
    auto index = std::make_shared<ConstraintIndex>();
    const std::vector<std::string> keywords{"A", "B"};
    compile_constraints(ppd.file(), index.get(), keywords);
    panel.SetxppdPtr(index);
    ASSERT_TRUE(list.isChoiceConflicted("B:y", "A", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:z", "A", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("C:y", "A", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "z", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "C", "x", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "a", "x", ppd.file())) << "exact case";
    EXPECT_FALSE(list.isChoiceConflicted("", "", "", ppd.file()));
    EXPECT_FALSE(list.isChoiceConflicted("B:y", "A", "x", nullptr));
}

} // namespace
} // namespace specialpages::test
