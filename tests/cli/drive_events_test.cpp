// The line protocol's events on menus, fields, steppers and tables, in a window from a nib.
#include "cli/drive_fixture.h"
#include "platform/toolkit/Nib.h"
#include "support/input_filter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using platform::MenuItem;
using platform::PopUpButton;
using testing::Lines;

/// A list 401 (and an empty one 402), a field 411 with a hidden and a disabled one and two texts that nobody
/// edits, a stepper 421 from 1 to 99 with a disabled one, a table 431 with a hidden one, and Cancel 441.
constexpr const char* kNib = R"(<ui version="4.0"><widget class="QWidget" name="root">
<widget class="QDialog" name="InsertWindowRef">
 <widget class="QComboBox" name="list"><property name="tag" stdset="0"><number>401</number></property>
  <item><property name="text"><string>First</string></property></item>
  <item><property name="text"><string>Second</string></property></item>
  <item><property name="text"><string>Hidden</string></property></item>
  <item><property name="text"><string>Disabled</string></property></item>
  <item><property name="text"><string>Papers</string></property></item>
  <item><property name="text"><string>Disabled papers</string></property></item>
  <item><property name="text"><string>Dialog</string></property></item>
 </widget>
 <widget class="QComboBox" name="empty"><property name="tag" stdset="0"><number>402</number></property></widget>
 <widget class="QComboBox" name="off"><property name="tag" stdset="0"><number>403</number></property>
  <property name="enabled"><bool>false</bool></property>
  <item><property name="text"><string>Only</string></property></item></widget>
 <widget class="QLineEdit" name="field"><property name="tag" stdset="0"><number>411</number></property></widget>
 <widget class="QLineEdit" name="hiddenField"><property name="tag" stdset="0"><number>412</number></property>
  <property name="visible"><bool>false</bool></property></widget>
 <widget class="QLineEdit" name="offField"><property name="tag" stdset="0"><number>413</number></property>
  <property name="enabled"><bool>false</bool></property></widget>
 <widget class="QLabel" name="label"><property name="tag" stdset="0"><number>414</number></property></widget>
 <widget class="QPlainTextEdit" name="text"><property name="tag" stdset="0"><number>415</number></property></widget>
 <widget class="Arrows" name="stepper"><property name="tag" stdset="0"><number>421</number></property>
  <property name="kind" stdset="0"><string>stepper</string></property>
  <property name="minimum"><number>1</number></property><property name="maximum"><number>99</number></property>
  <property name="value"><number>4</number></property></widget>
 <widget class="Arrows" name="offStepper"><property name="tag" stdset="0"><number>422</number></property>
  <property name="kind" stdset="0"><string>stepper</string></property>
  <property name="enabled"><bool>false</bool></property></widget>
 <widget class="QTableWidget" name="table"><property name="tag" stdset="0"><number>431</number></property></widget>
 <widget class="QTableWidget" name="hiddenTable"><property name="tag" stdset="0"><number>432</number></property>
  <property name="visible"><bool>false</bool></property></widget>
 <widget class="QPushButton" name="cancel"><property name="tag" stdset="0"><number>441</number></property>
  <property name="role" stdset="0"><string>cancel</string></property></widget>
</widget></widget></ui>)";

/// Takes no outlets: the tags are enough.
class NoOutlets : public platform::NibOwner {
  public:
    bool connectOutlet(std::string_view /*outlet*/, platform::View& /*view*/) override { return false; }
    std::unique_ptr<platform::NibObject> instantiate(std::string_view /*className*/) override {
        return nullptr;
    }
    bool connectObject(std::string_view /*outlet*/, platform::NibObject& /*object*/) override {
        return false;
    }
};

/// Takes the digits alone, four at most, and beeps at every other key.
class FourDigits : public platform::Formatter {
  public:
    bool isPartialStringValid(const std::string& partialString, std::string& /*newString*/,
                              std::string* /*errorDescription*/) override {
        const bool valid =
            validateInput(partialString, SPInstQuantityEditFilterData) && partialString.size() <= 4;
        if (!valid) {
            platform::Application::shared().NSBeep();
        }
        return valid;
    }
};

class DriveEvents : public testing::DriveSessionTest {
  protected:
    DriveEvents() {
        std::string error;
        nib_ = platform::Nib::loadNibFile(folder_.write("Events.ui", kNib), owner_, &error);
        if (nib_ == nullptr) {
            throw std::runtime_error(error);
        }
        window_ = dynamic_cast<platform::Window*>(nib_->topLevelViews().at(0).get());
        makeMenu();
        note(view<platform::TextField>(411), [](platform::View& sender) {
            return "text " + dynamic_cast<platform::TextField&>(sender).stringValue();
        });
        note(view<platform::Stepper>(421), [](platform::View& sender) {
            return "step " + std::to_string(dynamic_cast<platform::Stepper&>(sender).intValue());
        });
        view<platform::TableView>(431).setDoubleAction(
            this, [this](platform::View&) { events_.emplace_back("double"); });
        view<platform::TableView>(432).setDoubleAction(
            this, [this](platform::View&) { events_.emplace_back("never"); });
        view<platform::Button>(441).setTargetAction(
            this, [](platform::View&) { platform::Application::shared().stopModal(); });
        script_.onPrint = [this](platform::PDEPluginCallback&) {
            platform::Application::shared().runModalForWindow(*window_);
        };
    }

    template <class Kind>
    Kind& view(std::int32_t tag) {
        return dynamic_cast<Kind&>(*window_->viewWithTag(tag));
    }

    /// The answers to requests with the window in front.
    Lines ask_window(const Lines& requests) {
        Lines all{R"({"do":"host","call":"shouldPrint"})"};
        all.insert(all.end(), requests.begin(), requests.end());
        Lines answers = drive(all);
        EXPECT_EQ(answers.size(), all.size());
        EXPECT_EQ(answers.front(), R"({"ok":true,"window":"inserts","alerts":[],"beeps":0})");
        answers.erase(answers.begin());
        return answers;
    }
    std::string ask_window(const std::string& request) { return ask_window(Lines{request}).front(); }
    /// The error of a request; the selection of the list and the notes show that nothing happened.
    std::string error_of(const std::string& request) {
        const auto answer = nlohmann::ordered_json::parse(ask_window(request));
        EXPECT_FALSE(answer.at("ok").get<bool>()) << request;
        EXPECT_EQ(answer.size(), 2U) << request;
        EXPECT_EQ(view<PopUpButton>(401).indexOfSelectedItem(), 0) << request;
        EXPECT_EQ(view<platform::Stepper>(421).intValue(), 4) << request;
        EXPECT_EQ(view<platform::TextField>(411).shownText(), "") << request;
        EXPECT_EQ(events_, Lines{}) << request;
        return answer.value("error", "");
    }

    static inline const std::string kTaken = R"({"ok":true,"window":"inserts","alerts":[],"beeps":0})";
    Lines events_;

  private:
    void note(platform::View& view, std::function<std::string(platform::View&)> event) {
        view.setTargetAction(this, [this, event = std::move(event)](platform::View& sender) {
            events_.push_back(event(sender));
        });
    }
    void makeMenu() {
        auto& list = view<PopUpButton>(401);
        note(list, [](platform::View& sender) {
            return "list " + dynamic_cast<PopUpButton&>(sender).titleOfSelectedItem();
        });
        list.menu().itemAtIndex(2)->setHidden(true);
        list.menu().itemAtIndex(3)->setEnabled(false);
        fill(*list.menu().itemAtIndex(4));
        fill(*list.menu().itemAtIndex(5));
        list.menu().itemAtIndex(5)->setEnabled(false);
        list.menu().itemAtIndex(6)->setTargetAction(this, [this](MenuItem&) {
            inner_.setName("spCustomSizeWindow");
            platform::Application::shared().runModalForWindow(inner_);
        });
        list.menu().addItem(MenuItem::separatorItem());
    }
    void fill(MenuItem& item) {
        auto papers = std::make_unique<platform::Menu>();
        for (const char* title : {"A4", "A3", "B5"}) {
            papers->addItemWithTitle(title).setTargetAction(
                this, [this](MenuItem& sender) { events_.push_back("paper " + sender.title()); });
        }
        papers->itemAtIndex(1)->setEnabled(false);
        papers->itemAtIndex(2)->setHidden(true);
        papers->addItemWithTitle("More").setSubmenu(nullptr);
        item.setSubmenu(std::move(papers));
    }

    NoOutlets owner_;
    std::unique_ptr<platform::Nib> nib_;
    platform::Window* window_ = nullptr;
    platform::Window inner_;
};

TEST_F(DriveEvents, ChoosePicksAnItemAndItsActionFires) {
    EXPECT_EQ(ask_window(R"({"do":"choose","tag":401,"item":1})"), kTaken);
    EXPECT_EQ(view<PopUpButton>(401).indexOfSelectedItem(), 1);
    EXPECT_EQ(events_, Lines{"list Second"});
}

TEST_F(DriveEvents, ChooseFiresAlsoForTheSelectedItem) {
    ask_window(Lines{R"({"do":"choose","tag":401,"item":0})", R"({"do":"choose","tag":401,"item":0})"});
    EXPECT_EQ(events_, (Lines{"list First", "list First"}));
}

TEST_F(DriveEvents, ChooseCountsHiddenItemsToo) {
    view<PopUpButton>(401).menu().itemAtIndex(3)->setEnabled(true);
    EXPECT_EQ(ask_window(R"({"do":"choose","tag":401,"item":3})"), kTaken);
    EXPECT_EQ(events_, Lines{"list Disabled"});
}

TEST_F(DriveEvents, ChooseInASubMenuFiresItsItemAndLeavesTheSelection) {
    EXPECT_EQ(ask_window(R"({"do":"choose","tag":401,"menu":4,"item":0})"), kTaken);
    EXPECT_EQ(events_, Lines{"paper A4"});
    EXPECT_EQ(view<PopUpButton>(401).indexOfSelectedItem(), 0);
}

TEST_F(DriveEvents, ChooseThatOpensADialogIsAnsweredWithTheDialogInFront) {
    EXPECT_EQ(ask_window(Lines{R"({"id":1,"do":"choose","tag":401,"item":6})",
                               R"({"id":2,"do":"choose","tag":401,"item":1})"}),
              (Lines{R"({"ok":true,"id":1,"window":"custom-size","alerts":[],"beeps":0})",
                     R"({"ok":false,"id":2,"error":"no view with the tag 401 in the window custom-size"})"}));
}

TEST_F(DriveEvents, ChooseRefusesAnItemThatIsNotThere) {
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":8})"), "popup 401: no item 8, it has 8 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":-1})"), "popup 401: no item -1, it has 8 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":2147483647})"),
              "popup 401: no item 2147483647, it has 8 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":402,"item":0})"), "popup 402: no item 0, it has 0 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":8,"item":0})"),
              "popup 401: no item 8, it has 8 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4,"item":4})"),
              "popup 401: item 4: no item 4, it has 4 items");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4,"item":-2147483648})"),
              "popup 401: item 4: no item -2147483648, it has 4 items");
}

TEST_F(DriveEvents, ChooseRefusesAnItemThatCannotBePicked) {
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":2})"), "popup 401: item 2: hidden");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":3})"), "popup 401: item 3: disabled");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":7})"), "popup 401: item 7: it is a separator");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4,"item":1})"),
              "popup 401: item 4: item 1: disabled");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4,"item":2})"),
              "popup 401: item 4: item 2: hidden");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":5,"item":0})"), "popup 401: item 5: disabled")
        << "nor one below it";
}

TEST_F(DriveEvents, ChooseRefusesASubMenuThatIsNotThereOrIsNotAskedFor) {
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":0,"item":0})"),
              "popup 401: item 0: it has no sub-menu");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":4})"), "popup 401: item 4: it opens a sub-menu");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4,"item":3})"),
              "popup 401: item 4: item 3: it opens a sub-menu");
}

TEST_F(DriveEvents, ChooseRefusesAWrongView) {
    EXPECT_EQ(error_of(R"({"do":"choose","tag":403,"item":0})"), "popup 403: disabled");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":411,"item":0})"), "field 411: expected a popup");
    EXPECT_EQ(error_of(R"({"do":"choose","tag":999,"item":0})"),
              "no view with the tag 999 in the window inserts");
}

TEST_F(DriveEvents, ChooseRefusesMissingAndWrongMembers) {
    const std::string sentence = "expected an integer of 32 bits";
    EXPECT_EQ(error_of(R"({"do":"choose","item":0})"), "\"tag\": " + sentence);
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401})"), "\"item\": " + sentence);
    EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"menu":4})"), "\"item\": " + sentence);
    for (const char* wrong : {"null", "true", "1.0", "\"1\"", "[1]", "2147483648", "-2147483649"}) {
        EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":)" + std::string(wrong) + "}"),
                  "\"item\": " + sentence);
        EXPECT_EQ(error_of(R"({"do":"choose","tag":401,"item":1,"menu":)" + std::string(wrong) + "}"),
                  "\"menu\": " + sentence);
        EXPECT_EQ(error_of(R"({"do":"choose","item":1,"tag":)" + std::string(wrong) + "}"),
                  "\"tag\": " + sentence);
    }
}

TEST_F(DriveEvents, TypeReplacesTheTextAndLeavesTheField) {
    view<platform::TextField>(411).setStringValue("old");
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":"3,7-9"})"), kTaken);
    EXPECT_EQ(view<platform::TextField>(411).shownText(), "3,7-9");
    EXPECT_FALSE(view<platform::TextField>(411).isEditing());
    EXPECT_EQ(events_, Lines{"text 3,7-9"});
}

TEST_F(DriveEvents, TypeAnEmptyTextClearsTheField) {
    view<platform::TextField>(411).setStringValue("old");
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":""})"), kTaken);
    EXPECT_EQ(view<platform::TextField>(411).shownText(), "");
    EXPECT_EQ(events_, Lines{"text "});
}

TEST_F(DriveEvents, TypeTheSameTextFiresNothing) {
    view<platform::TextField>(411).setStringValue("12");
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":"12"})"), kTaken);
    EXPECT_EQ(events_, Lines{});
}

TEST_F(DriveEvents, TypeDropsTheKeysThatTheFormatterRefusesAndCountsTheBeeps) {
    view<platform::TextField>(411).setFormatter(std::make_shared<FourDigits>());
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":"1x2-345"})"),
              R"({"ok":true,"window":"inserts","alerts":[],"beeps":3})");
    EXPECT_EQ(view<platform::TextField>(411).shownText(), "1234");
    EXPECT_EQ(events_, Lines{"text 1234"});
}

TEST_F(DriveEvents, TypeNothingButRefusedKeysKeepsTheOldText) {
    view<platform::TextField>(411).setFormatter(std::make_shared<FourDigits>());
    view<platform::TextField>(411).setStringValue("12");
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":"ab"})"),
              R"({"ok":true,"window":"inserts","alerts":[],"beeps":2})");
    EXPECT_EQ(view<platform::TextField>(411).shownText(), "12");
    EXPECT_EQ(events_, Lines{});
}

TEST_F(DriveEvents, TypeTakesAComposedCharacterForOneKey) {
    view<platform::TextField>(411).setFormatter(std::make_shared<FourDigits>());
    EXPECT_EQ(ask_window(R"({"do":"type","tag":411,"text":"1カ\uFF9E😀e\u0301"})"),
              R"({"ok":true,"window":"inserts","alerts":[],"beeps":3})");
    EXPECT_EQ(view<platform::TextField>(411).shownText(), "1");
}

TEST_F(DriveEvents, TypeRefusesAWrongView) {
    EXPECT_EQ(error_of(R"({"do":"type","tag":412,"text":"1"})"), "field 412: hidden");
    EXPECT_EQ(error_of(R"({"do":"type","tag":413,"text":"1"})"), "field 413: disabled");
    EXPECT_EQ(error_of(R"({"do":"type","tag":414,"text":"1"})"), "static 414: expected a field");
    EXPECT_EQ(error_of(R"({"do":"type","tag":415,"text":"1"})"), "text 415: expected a field");
    EXPECT_EQ(error_of(R"({"do":"type","tag":421,"text":"1"})"), "stepper 421: expected a field");
    EXPECT_EQ(error_of(R"({"do":"type","tag":0,"text":"1"})"),
              "no view with the tag 0 in the window inserts");
}

TEST_F(DriveEvents, TypeRefusesMissingAndWrongMembers) {
    EXPECT_EQ(error_of(R"({"do":"type","text":"1"})"), "\"tag\": expected an integer of 32 bits");
    EXPECT_EQ(error_of(R"({"do":"type","tag":411})"), "\"text\": expected a text");
    for (const char* wrong : {"null", "1", "true", "[\"1\"]", "{}"}) {
        EXPECT_EQ(error_of(R"({"do":"type","tag":411,"text":)" + std::string(wrong) + "}"),
                  "\"text\": expected a text");
    }
    EXPECT_EQ(error_of(R"({"do":"type","tag":411,"text":"a\u0000b"})"),
              "\"text\": expected a text without U+0000");
    EXPECT_EQ(error_of(R"({"do":"type","tag":411,"text":")" + std::string(65537, '1') + "\"}"),
              "\"text\": expected a text of at most 65536 bytes");
}

TEST_F(DriveEvents, StepMovesTheStepperAndFiresEachTime) {
    EXPECT_EQ(
        ask_window(Lines{R"({"do":"step","tag":421,"value":7})", R"({"do":"step","tag":421,"value":7})"}),
        (Lines{kTaken, kTaken}));
    EXPECT_EQ(view<platform::Stepper>(421).intValue(), 7);
    EXPECT_EQ(events_, (Lines{"step 7", "step 7"}));
}

TEST_F(DriveEvents, StepIsHeldToTheRange) {
    ask_window(Lines{R"({"do":"step","tag":421,"value":100})",
                     R"({"do":"step","tag":421,"value":-2147483648})",
                     R"({"do":"step","tag":421,"value":2147483647})"});
    EXPECT_EQ(events_, (Lines{"step 99", "step 1", "step 99"}));
}

TEST_F(DriveEvents, StepRefusesWrongViewsAndMembers) {
    EXPECT_EQ(error_of(R"({"do":"step","tag":422,"value":1})"), "stepper 422: disabled");
    EXPECT_EQ(error_of(R"({"do":"step","tag":401,"value":1})"), "popup 401: expected a stepper");
    EXPECT_EQ(error_of(R"({"do":"step","value":1})"), "\"tag\": expected an integer of 32 bits");
    EXPECT_EQ(error_of(R"({"do":"step","tag":421})"), "\"value\": expected an integer of 32 bits");
    for (const char* wrong : {"null", "\"5\"", "5.0", "2147483648", "-2147483649", "18446744073709551615"}) {
        EXPECT_EQ(error_of(R"({"do":"step","tag":421,"value":)" + std::string(wrong) + "}"),
                  "\"value\": expected an integer of 32 bits");
    }
}

TEST_F(DriveEvents, DoubleClickFiresTheDoubleActionOfAnEmptyTableToo) {
    ASSERT_EQ(view<platform::TableView>(431).numberOfRows(), 0U);
    EXPECT_EQ(ask_window(R"({"do":"doubleClick","tag":431})"), kTaken);
    EXPECT_EQ(events_, Lines{"double"});
}

TEST_F(DriveEvents, DoubleClickOfATableWithoutADoubleActionIsTaken) {
    view<platform::TableView>(431).setDoubleAction(nullptr, nullptr);
    EXPECT_EQ(ask_window(R"({"do":"doubleClick","tag":431})"), kTaken);
    EXPECT_EQ(events_, Lines{});
}

TEST_F(DriveEvents, DoubleClickRefusesWrongViewsAndMembers) {
    EXPECT_EQ(error_of(R"({"do":"doubleClick","tag":432})"), "table 432: hidden");
    EXPECT_EQ(error_of(R"({"do":"doubleClick","tag":441})"), "button 441: expected a table");
    EXPECT_EQ(error_of(R"({"do":"doubleClick"})"), "\"tag\": expected an integer of 32 bits");
    EXPECT_EQ(error_of(R"({"do":"doubleClick","tag":2147483648})"),
              "\"tag\": expected an integer of 32 bits");
    EXPECT_EQ(error_of(R"({"do":"doubleClick","tag":431.5})"), "\"tag\": expected an integer of 32 bits");
}

} // namespace
} // namespace specialpages::cli
