#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/text_fixtures.h"
#include "testing/ScriptedFace.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::ScriptedFace;
using test::held;
using test::kNoKeys;
using test::kTicketKey;
using test::LocalizedBundle;
using test::OpenTextField;
using test::repeated;
using test::TaggedView;
using test::TestPanel;
using test::TextView;

constexpr TextEditIniData kPages{"0", "1-3", 2, 6};

class TextEdit : public testing::Test {
  protected:
    TextEdit() {
        create();
        panel_.RunTimeAddNewControl(&control_);
        panel_.InitializeUserPane(bundle_.get(), nullptr);
        window_.addSubview(view_);
        platform::Application::shared().setMainWindow(&window_);
    }

    /// A control with these tables in the panel; blocks and formatter anew.
    void create(const TextEditIniData* table = &kPages,
                const TextEditFilterData* filter = &pageDefineFilterData,
                const AccessInfo* access = &kNoKeys) {
        control_.CreateControl(view_.get(), table, nullptr, access, {}, filter);
        control_.InitializeCtrl(nullptr, nullptr);
    }
    std::string shown() const { return view_->shownText(); }
    /// Puts the text into view and UI block.
    void enter(const std::string& text) {
        view_->setStringValue(text);
        control_.GetValueFromUI();
    }

    ScriptedFace face_;
    LocalizedBundle bundle_{{"Warning46", "Not these pages."}, {"Alert OK Btn", "Understood"}};
    std::shared_ptr<TextView> view_ = std::make_shared<TextView>(7);
    platform::Window window_;
    OpenTextField control_;
    TestPanel panel_;
};

TEST_F(TextEdit, BeginsWithTwoEmptyBlocksAndTheSizeOfAWholeOne) {
    EXPECT_EQ(control_.data(), "");
    EXPECT_EQ(control_.uiText(), "");
    EXPECT_EQ(control_.GetDataBlkSize(), 256U);
}

TEST_F(TextEdit, ReInitializingKeepsTheValueAndMakesTheFormatterAnew) {
    enter("5");
    control_.SetValueFromUIToControl();
    const platform::Formatter* before = view_->formatter();
    ASSERT_NE(before, nullptr);
    EXPECT_TRUE(control_.ReInitializeCtrl(bundle_.get(), nullptr));
    EXPECT_EQ(control_.data(), "5");
    EXPECT_EQ(control_.GetDataBlkSize(), 1U);
    EXPECT_NE(view_->formatter(), nullptr);
    EXPECT_NE(view_->formatter(), before);
}

TEST_F(TextEdit, HasAFormatterOnlyWithAFilterAndATable) {
    EXPECT_NE(view_->formatter(), nullptr);
    create(nullptr);
    EXPECT_EQ(view_->formatter(), nullptr);
    create();
    create(&kPages, nullptr);
    EXPECT_EQ(view_->formatter(), nullptr);
}

TEST_F(TextEdit, TheFormatterTakesTheFilterAndTheMaximumOfTheTable) {
    EXPECT_TRUE(view_->editText("1-3, 5"));
    EXPECT_FALSE(view_->editText("1-3, 57")) << "seven columns";
    EXPECT_FALSE(view_->editText("1;3"));
    EXPECT_EQ(shown(), "1-3, 5");
    EXPECT_EQ(face_.beeps(), 2);
}

TEST_F(TextEdit, ShowsTheDataBlockAndTakesItsLengthInColumns) {
    control_.setExternalValueToData(ControlValue{"é-3"}, 4, 0);
    EXPECT_TRUE(control_.SetControlValueToUI());
    EXPECT_EQ(shown(), "é-3");
    EXPECT_EQ(control_.GetDataBlkSize(), 4U);
}

TEST_F(TextEdit, ShowsAnEmptyBlockAsAnEmptyText) {
    view_->setStringValue("3");
    EXPECT_TRUE(control_.SetControlValueToUI());
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(control_.GetDataBlkSize(), 0U);
}

TEST_F(TextEdit, WithoutAnAccessRecordTheViewIsNeitherWrittenNorRead) {
    create(&kPages, &pageDefineFilterData, nullptr);
    control_.setExternalValueToData(ControlValue{"12"}, 2, 0);
    EXPECT_FALSE(control_.SetControlValueToUI());
    EXPECT_EQ(control_.GetDataBlkSize(), 2U) << "the length is taken all the same";
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{"5"}, 1));
    EXPECT_EQ(shown(), "");
    view_->setStringValue("9");
    ASSERT_NE(control_.GetValueFromUI(), nullptr) << "the block is answered in any case";
    EXPECT_EQ(control_.uiText(), "");
}

TEST_F(TextEdit, WithoutADataBlockThereIsNothingToShow) {
    OpenTextField fresh;
    fresh.CreateControl(view_.get(), &kPages, nullptr, &kNoKeys, {}, nullptr);
    fresh.setDataBlkSize(9);
    EXPECT_FALSE(fresh.SetControlValueToUI());
    EXPECT_EQ(fresh.GetDataBlkSize(), 0U);
    EXPECT_EQ(fresh.GetValueFromUI(), nullptr);
}

TEST_F(TextEdit, ShowsAGivenTextWhole) {
    EXPECT_TRUE(control_.SetExternalValueToUI(ControlValue{"5, 6"}, 1)) << "the size does not cut it";
    EXPECT_EQ(shown(), "5, 6");
    EXPECT_FALSE(control_.SetExternalValueToUI(ControlValue{5}, 4)) << "a number is no text";
    EXPECT_EQ(shown(), "5, 6");
}

TEST_F(TextEdit, TheDefaultGivesTheSizeInBytes) {
    static constexpr TextEditIniData kAccented{"", "é", 1, 6};
    create(&kAccented);
    control_.setExternalValueToData(ControlValue{"long text"}, 9, 0);
    EXPECT_TRUE(control_.SetControlValueToDefault());
    EXPECT_EQ(control_.data(), "é");
    EXPECT_EQ(control_.GetDataBlkSize(), 2U);
    static constexpr TextEditIniData kThreeBytes{"", "カ", 1, 6};
    create(&kThreeBytes);
    control_.SetControlValueToDefault();
    EXPECT_EQ(control_.GetDataBlkSize(), 3U) << "three bytes of two columns";
}

TEST_F(TextEdit, AnEmptyDefaultEmptiesTheBlock) {
    static constexpr TextEditIniData kEmpty{"", "", 0, 6};
    create(&kEmpty);
    control_.setExternalValueToData(ControlValue{"5"}, 1, 0);
    EXPECT_TRUE(control_.SetControlValueToDefault());
    EXPECT_EQ(control_.data(), "");
    EXPECT_EQ(control_.GetDataBlkSize(), 0U);
}

TEST_F(TextEdit, WithoutATableTheDefaultLeavesTheBlockAlone) {
    create(nullptr);
    control_.setExternalValueToData(ControlValue{"5"}, 1, 0);
    EXPECT_TRUE(control_.SetControlValueToDefault());
    EXPECT_EQ(control_.data(), "5");
}

TEST_F(TextEdit, ShowsItsDefaultWithoutTakingIt) {
    EXPECT_TRUE(control_.SetDefaultValueToUI());
    EXPECT_EQ(shown(), "1-3");
    EXPECT_EQ(control_.data(), "");
}

TEST_F(TextEdit, HasNoInitialValueForTheUIBlock) {
    enter("12");
    EXPECT_TRUE(control_.SetUIValueToIniData());
    EXPECT_EQ(control_.uiText(), "12");
    EXPECT_EQ(control_.GetDataBlkSize(), 2U);
}

TEST_F(TextEdit, ReadsTheViewAndCommitsWhatIsBeingTyped) {
    ASSERT_TRUE(view_->editText("4-5"));
    const ValueBlock* block = control_.GetValueFromUI();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(held<std::string>(*block), "4-5");
    EXPECT_EQ(control_.GetDataBlkSize(), 3U);
    ASSERT_TRUE(view_->editText(""));
    control_.GetValueFromUI();
    EXPECT_EQ(control_.uiText(), "");
    EXPECT_EQ(control_.GetDataBlkSize(), 0U);
}

TEST_F(TextEdit, CommitsTheUIBlockAndAnEmptyOneToo) {
    enter("4");
    control_.SetValueFromUIToControl();
    EXPECT_EQ(control_.data(), "4");
    enter("");
    control_.SetValueFromUIToControl();
    EXPECT_EQ(control_.data(), "");
}

TEST_F(TextEdit, WithTheSizeAtZeroTheCommitEmptiesTheDataBlock) {
    enter("4");
    control_.SetValueFromUIToControl();
    control_.setDataBlkSize(0);
    control_.SetValueFromUIToControl();
    EXPECT_EQ(control_.data(), "");
}

TEST_F(TextEdit, ATextBlockHolds255BytesAndNoHalfCharacter) {
    create(&kPages, nullptr);
    enter(repeated("カ", 86)); // 258 bytes: the 86th character would end past the limit
    EXPECT_EQ(control_.uiText(), repeated("カ", 85));
    EXPECT_EQ(control_.GetDataBlkSize(), 172U) << "the columns of the whole text";
    enter("a" + repeated("\xF0\x9F\x96\xA8", 64)); // 257 bytes
    EXPECT_EQ(control_.uiText(), "a" + repeated("\xF0\x9F\x96\xA8", 63));
    enter(std::string(255, 'x'));
    EXPECT_EQ(control_.uiText().size(), 255U);
    enter(std::string(256, 'x'));
    EXPECT_EQ(control_.uiText().size(), 255U);
}

TEST_F(TextEdit, ATextOfTenThousandCharactersIsKeptByItsHeadAndRefused) {
    create(&kPages, nullptr);
    ASSERT_TRUE(view_->editText(std::string(10'000, '7'))) << "nothing restricts a field without a filter";
    control_.GetValueFromUI();
    EXPECT_EQ(control_.uiText(), std::string(255, '7'));
    EXPECT_EQ(control_.GetDataBlkSize(), 10'000U);
    EXPECT_FALSE(control_.InvalidateDataAndReturnError());
}

TEST_F(TextEdit, ATextThatIsNoUTF8CountsAsEmpty) {
    create(&kPages, nullptr);
    for (const char* text : {"\xFF", "12\xC3", "\xED\xA0\x80", "\xC0\xB1"}) {
        ASSERT_TRUE(view_->editText(text));
        control_.GetValueFromUI();
        EXPECT_EQ(control_.uiText(), "") << testing::PrintToString(std::string(text));
        EXPECT_EQ(control_.GetDataBlkSize(), 0U);
    }
    control_.setExternalValueToData(ControlValue{"12\xFF"}, 3, 0);
    EXPECT_TRUE(control_.SetControlValueToUI());
    EXPECT_EQ(shown(), "");
}

TEST_F(TextEdit, ABlockEndsAtAZeroByte) {
    create(&kPages, nullptr);
    enter(std::string("12\0003", 4));
    EXPECT_EQ(control_.uiText(), "12");
}

TEST_F(TextEdit, TextFromOutsideIsCutAtTheGivenSizeAndAtTheBlock) {
    EXPECT_TRUE(control_.setExternalValueToData(ControlValue{"1234"}, 3, 0));
    EXPECT_EQ(control_.data(), "123");
    EXPECT_TRUE(control_.setExternalValueToData(ControlValue{"aé"}, 2, 0));
    EXPECT_EQ(control_.data(), "a");
    EXPECT_TRUE(control_.setExternalValueToData(ControlValue{std::string(300, 'x')}, 300, 0));
    EXPECT_EQ(control_.data(), std::string(255, 'x'));
    EXPECT_TRUE(control_.setExternalValueToData(ControlValue{"5"}, 1, 1));
    EXPECT_EQ(control_.data(), std::string(255, 'x')) << "value type 1 changes nothing";
}

TEST_F(TextEdit, TextConversionsKeepTheBlockAndCountColumns) {
    std::string text = "before";
    control_.setExternalValueToData(ControlValue{"é5"}, 3, 0);
    EXPECT_TRUE(control_.ConvertToPreferenceString(text));
    EXPECT_EQ(text, "é5");
    EXPECT_EQ(control_.GetDataBlkSize(), 3U);
    control_.setDataBlkSize(9);
    text = "before";
    EXPECT_TRUE(control_.ConvertToTickectData(text));
    EXPECT_EQ(text, "é5");
    EXPECT_EQ(control_.GetDataBlkSize(), 9U) << "the ticket form counts nothing";
    EXPECT_TRUE(control_.ConvertFromPreferenceString("カ"));
    EXPECT_EQ(control_.data(), "カ");
    EXPECT_EQ(control_.GetDataBlkSize(), 2U);
    EXPECT_TRUE(control_.ConvertFromPreferenceString(repeated("カ", 100)));
    EXPECT_EQ(control_.data(), repeated("カ", 85));
}

TEST_F(TextEdit, TextConversionsFailWithoutABlock) {
    OpenTextField fresh;
    fresh.CreateControl(view_.get(), &kPages, nullptr, &kNoKeys, {}, nullptr);
    std::string text = "before";
    EXPECT_FALSE(fresh.ConvertToPreferenceString(text));
    EXPECT_FALSE(fresh.ConvertToTickectData(text));
    EXPECT_FALSE(fresh.ConvertFromPreferenceString("5"));
    EXPECT_EQ(text, "before");
}

TEST_F(TextEdit, ItsTicketIsTheTextInTheFormThatItNeeds) {
    create(&kPages, &pageDefineFilterData, &kTicketKey);
    platform::PrintSettings settings;
    control_.setExternalValueToData(ControlValue{"1-3"}, 3, 0);
    EXPECT_TRUE(control_.SetValueToTicket(&settings, false));
    EXPECT_EQ(test::settings_text(settings, kTicketKey.ticketKey), "1-3");
    control_.setExternalValueToData(ControlValue{"1,3"}, 3, 0);
    EXPECT_TRUE(control_.SetValueToTicket(&settings, false));
    EXPECT_EQ(test::settings_text(settings, kTicketKey.ticketKey), "/49/44/51");
}

TEST_F(TextEdit, AnEmptyFieldPassesWithoutAMessage) {
    enter("");
    EXPECT_TRUE(control_.InvalidateData());
    EXPECT_TRUE(control_.InvalidateDataAndReturnError());
    EXPECT_TRUE(face_.alerts().empty());
}

TEST_F(TextEdit, ATextOfExactlyTheMinimumOrMaximumLengthPasses) {
    for (const char* text : {"12", "123456"}) {
        enter(text);
        EXPECT_TRUE(control_.InvalidateData()) << text;
        EXPECT_TRUE(control_.InvalidateDataAndReturnError()) << text;
    }
    EXPECT_TRUE(face_.alerts().empty());
    std::size_t alerts = 0;
    for (const char* text : {"1", "1234567"}) {
        enter(text);
        EXPECT_FALSE(control_.InvalidateDataAndReturnError()) << text;
        EXPECT_EQ(face_.alerts().size(), alerts) << "no message";
        EXPECT_FALSE(control_.InvalidateData()) << text;
        EXPECT_EQ(face_.alerts().size(), ++alerts);
    }
}

TEST_F(TextEdit, ACharacterOutsideTheFilterIsRefusedAtTheEnd) {
    enter("1;3");
    EXPECT_FALSE(control_.InvalidateDataAndReturnError());
    EXPECT_FALSE(control_.InvalidateData());
    EXPECT_EQ(face_.alerts().size(), 1U);
    create(&kPages, nullptr);
    enter("1;3");
    EXPECT_TRUE(control_.InvalidateData()) << "without a filter the length decides";
}

TEST_F(TextEdit, WithoutATableEveryTextPasses) {
    create(nullptr);
    enter("no page at all");
    EXPECT_TRUE(control_.InvalidateData());
    EXPECT_TRUE(control_.InvalidateDataAndReturnError());
    EXPECT_TRUE(control_.PreInvalidateData());
}

TEST_F(TextEdit, TheMessageIsTheFiltersAndPutsTheCursorIntoTheField) {
    EXPECT_EQ(window_.firstResponder(), nullptr);
    control_.ShowErrMsg();
    ASSERT_EQ(face_.alerts().size(), 1U);
    EXPECT_EQ(face_.alerts()[0].messageText, "");
    EXPECT_EQ(face_.alerts()[0].informativeText, "Not these pages.");
    EXPECT_EQ(face_.alerts()[0].buttonTitle, "Understood");
    EXPECT_EQ(window_.firstResponder(), view_.get());
}

TEST_F(TextEdit, AMessageWithoutTranslationSaysSo) {
    create(&kPages, &SPNumInSequenceFilterData);
    control_.SetParenetPanel(&panel_);
    control_.ShowErrMsg();
    ASSERT_EQ(face_.alerts().size(), 1U);
    EXPECT_EQ(face_.alerts()[0].informativeText, "no translation");
}

TEST_F(TextEdit, WithoutFilterMessagePanelOrBundleNothingIsShown) {
    static constexpr TextEditFilterData kNoMessage{{}, {}, nullptr};
    create(&kPages, nullptr);
    control_.ShowErrMsg();
    create(&kPages, &kNoMessage);
    control_.ShowErrMsg();
    create();
    control_.SetParenetPanel(nullptr);
    control_.ShowErrMsg();
    TestPanel noBundle;
    noBundle.RunTimeAddNewControl(&control_);
    control_.ShowErrMsg();
    EXPECT_TRUE(face_.alerts().empty());
    EXPECT_EQ(window_.firstResponder(), nullptr);
}

TEST_F(TextEdit, CorrectingEmptiesViewAndUIBlockAndKeepsTheValue) {
    enter("12");
    control_.SetValueFromUIToControl();
    EXPECT_TRUE(control_.CorrectCtrlUI());
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(control_.uiText(), "");
    EXPECT_EQ(control_.GetDataBlkSize(), 0U);
    EXPECT_EQ(control_.data(), "12");
}

TEST_F(TextEdit, TheGenericFieldKeepsNoRawText) {
    TextEditCtrlEMFSpecialPages plain;
    EXPECT_EQ(plain.OnRawKeyUp("5"), 0);
    EXPECT_EQ(plain.GetUIData(), "");
    EXPECT_EQ(plain.GetCorrectedData(), nullptr);
    EXPECT_EQ(plain.GetEditMaxLength(), 0U);
    EXPECT_EQ(control_.GetEditMaxLength(), 6U);
}

TEST_F(TextEdit, AFieldThatTellsItsNeighboursTakesNoEcho) {
    control_.onRawKeyUp = [this] {
        EXPECT_TRUE(control_.SetExternalValueToUI(ControlValue{"9"}, 1));
        control_.tellNeighbours("again");
    };
    view_->setStringValue("5");
    control_.tellNeighbours("5");
    EXPECT_EQ(shown(), "5");
    EXPECT_EQ(control_.rawTexts, std::vector<std::string>{"5"});
    EXPECT_TRUE(control_.SetExternalValueToUI(ControlValue{"9"}, 1));
    EXPECT_EQ(shown(), "9") << "afterwards it takes texts again";
}

TEST_F(TextEdit, IsValidatedOnlyWhileItIsNeitherHiddenNorDisabledByItsCounts) {
    EXPECT_TRUE(control_.ToValidate());
    control_.Disable();
    EXPECT_FALSE(control_.ToValidate());
    control_.Enable();
    control_.Hide();
    EXPECT_FALSE(control_.ToValidate());
    control_.Show();
    EXPECT_TRUE(control_.ToValidate());
    control_.Enable();
    EXPECT_FALSE(control_.ToValidate()) << "a count below zero is not zero either";
}

TEST_F(TextEdit, ToldToValidateItReadsTheViewInAnyCase) {
    control_.Disable();
    view_->setStringValue("42");
    EXPECT_FALSE(control_.ToValidate());
    EXPECT_EQ(control_.uiText(), "42");
}

TEST_F(TextEdit, WithoutATextViewNothingHappens) {
    TaggedView noText(1);
    for (platform::View* view :
         {static_cast<platform::View*>(&noText), static_cast<platform::View*>(nullptr)}) {
        OpenTextField control;
        control.CreateControl(view, &kPages, nullptr, &kNoKeys, {}, &pageDefineFilterData);
        EXPECT_TRUE(control.InitializeCtrl(nullptr, nullptr));
        EXPECT_TRUE(control.ReInitializeCtrl(nullptr, nullptr));
        EXPECT_FALSE(control.SetControlValueToUI());
        EXPECT_FALSE(control.SetExternalValueToUI(ControlValue{"1"}, 1));
        EXPECT_NE(control.GetValueFromUI(), nullptr);
        EXPECT_TRUE(control.CorrectCtrlUI());
        control.SetParenetPanel(&panel_);
        control.ShowErrMsg();
    }
    EXPECT_EQ(face_.alerts().size(), 2U) << "the message needs no view";
}

TEST_F(TextEdit, RightToLeftAndCombiningTextIsShownWhole) {
    create(&kPages, nullptr);
    const std::string text = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D e\xCC\x81 \xEF\xBD\xB6\xEF\xBE\x9E";
    control_.setExternalValueToData(ControlValue{text}, 255, 0);
    EXPECT_TRUE(control_.SetControlValueToUI());
    EXPECT_EQ(shown(), text);
    control_.GetValueFromUI();
    EXPECT_EQ(control_.uiText(), text);
}

TEST(BlockText, KeepsWholeCharactersUpToAZeroByte) {
    EXPECT_EQ(block_text(""), "");
    EXPECT_EQ(block_text(std::string_view("a\0b", 3)), "a");
    EXPECT_EQ(block_text("aé", 2), "a");
    EXPECT_EQ(block_text("aé", 3), "aé");
    EXPECT_EQ(block_text(std::string(400, 'x'), 400).size(), 255U);
}

} // namespace
} // namespace specialpages
