#include "ChangeLog.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"

#include <gtest/gtest.h>

#include <functional>

namespace specialpages::platform {
namespace {

/// Keeps the calls in their order; what it answers can be set.
struct Recorder : Formatter {
    std::vector<std::string> calls;
    std::function<std::optional<std::string>(const std::string&)> show = [](const auto& object) {
        return std::optional(object);
    };
    std::function<std::optional<std::string>(const std::string&)> read = [](const auto& text) {
        return std::optional(text);
    };
    /// What is kept of a partial text; the same text: it stands.
    std::function<std::string(const std::string&)> partial = [](const auto& text) {
        return text;
    };

    std::optional<std::string> stringForObjectValue(const std::string& object) override {
        calls.push_back("show " + object);
        return show(object);
    }
    bool getObjectValue(std::string& object, const std::string& string,
                        std::string* /*errorDescription*/) override {
        calls.push_back("read " + string);
        const auto value = read(string);
        object = value.value_or("not used");
        return value.has_value();
    }
    bool isPartialStringValid(const std::string& partialString, std::string& newString,
                              std::string* /*errorDescription*/) override {
        calls.push_back("partial " + partialString);
        newString = partial(partialString);
        return newString == partialString;
    }
};

/// Digits only; drops the key otherwise, leaving the new string alone.
struct Digits : Formatter {
    bool isPartialStringValid(const std::string& partialString, std::string& /*newString*/,
                              std::string* errorDescription) override {
        const bool valid = partialString.find_first_not_of("0123456789") == std::string::npos;
        if (!valid) {
            *errorDescription = "digits only";
        }
        return valid;
    }
};

using Calls = std::vector<std::string>;

TEST(TextField, BeginsEmptyInPlainColor) {
    TextField field;
    EXPECT_EQ(field.kind(), ViewKind::textField);
    EXPECT_EQ(field.stringValue(), "");
    EXPECT_EQ(field.textColor(), TextColor::controlTextColor);
    EXPECT_EQ(field.formatter(), nullptr);
    EXPECT_FALSE(field.isEditing());
}

TEST(TextField, ShowsAValueSetByProgramAndFiresNoAction) {
    TextField field;
    field.setTargetAction(&field, [](View&) { ADD_FAILURE() << "fired"; });
    ChangeLog log(field);
    field.setStringValue("12");
    field.setStringValue("12");
    EXPECT_EQ(field.shownText(), "12");
    EXPECT_EQ(field.stringValue(), "12");
    EXPECT_EQ(log.take(), Changes{ViewChange::text});
}

TEST(TextField, SettingByProgramRunsTheFormatter) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    formatter->show = [](const auto& object) {
        return "<" + object + ">";
    };
    formatter->read = [](const auto& text) {
        return std::optional(text + "!");
    };
    field.setFormatter(formatter);
    field.setStringValue("7");
    EXPECT_EQ(formatter->calls, (Calls{"show 7", "read <7>"}));
    EXPECT_EQ(field.shownText(), "<7>");
    EXPECT_EQ(field.stringValue(), "<7>!");
    EXPECT_EQ(formatter->calls.size(), 2U) << "reading commits only while editing";
}

TEST(TextField, AValueThatTheFormatterDoesNotShowChangesNothing) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setFormatter(formatter);
    field.setStringValue("old");
    formatter->show = [](const auto&) {
        return std::nullopt;
    };
    ChangeLog log(field);
    field.setStringValue("new");
    EXPECT_EQ(field.shownText(), "old");
    EXPECT_EQ(field.stringValue(), "old");
    EXPECT_EQ(log.take(), Changes{});
}

TEST(TextField, AValueThatTheFormatterRefusesChangesNothing) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setFormatter(formatter);
    field.setStringValue("old");
    formatter->read = [](const auto&) {
        return std::nullopt;
    };
    field.setStringValue("new");
    EXPECT_EQ(field.shownText(), "old");
    EXPECT_EQ(field.stringValue(), "old");
}

TEST(TextField, StaticAndScrollingTextsRunTheirFormatterToo) {
    for (const ViewKind kind : {ViewKind::staticText, ViewKind::scrollText}) {
        TextField field(kind);
        const auto formatter = std::make_shared<Recorder>();
        field.setFormatter(formatter);
        field.setStringValue("text");
        EXPECT_EQ(formatter->calls, (Calls{"show text", "read text"}));
    }
}

TEST(TextField, OnlyAnEditableFieldTakesTheCursor) {
    for (const ViewKind kind : {ViewKind::staticText, ViewKind::scrollText}) {
        TextField field(kind);
        EXPECT_FALSE(field.beginEditing());
        EXPECT_FALSE(field.editText("x"));
        EXPECT_FALSE(field.type("x"));
        EXPECT_EQ(field.shownText(), "");
    }
}

TEST(TextField, AsksTheFormatterForEachKey) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setFormatter(formatter);
    EXPECT_TRUE(field.type("123"));
    EXPECT_EQ(formatter->calls, (Calls{"partial 1", "partial 12", "partial 123", "read 123", "show 123"}));
    EXPECT_EQ(field.stringValue(), "123");
}

TEST(TextField, ARefusedKeyIsDropped) {
    TextField field;
    field.setFormatter(std::make_shared<Digits>());
    ASSERT_TRUE(field.beginEditing());
    ChangeLog log(field);
    EXPECT_TRUE(field.editText("1"));
    EXPECT_FALSE(field.editText("1a"));
    EXPECT_EQ(field.shownText(), "1");
    EXPECT_EQ(log.take(), Changes{ViewChange::text});
    field.endEditing();
    EXPECT_TRUE(field.type("4x5y6"));
    EXPECT_EQ(field.stringValue(), "456");
}

TEST(TextField, TheFormatterMayPutAnotherTextInPlaceOfTheTypedOne) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    formatter->partial = [](const auto& text) {
        return text == "ab" ? std::string("X") : text;
    };
    field.setFormatter(formatter);
    EXPECT_FALSE(field.editText("ab"));
    EXPECT_EQ(field.shownText(), "X");
    formatter->partial = [](const auto& text) {
        return text == "Xy" ? std::string() : text;
    };
    EXPECT_FALSE(field.editText("Xy"));
    EXPECT_EQ(field.shownText(), "") << "an empty text is a text";
}

TEST(TextField, TypingReplacesTheWholeOldText) {
    TextField field;
    field.setStringValue("old");
    EXPECT_TRUE(field.type("new"));
    EXPECT_EQ(field.stringValue(), "new");
}

TEST(TextField, TheOldTextStaysUntilAKeyStands) {
    TextField field;
    field.setFormatter(std::make_shared<Digits>());
    field.setStringValue("12");
    EXPECT_TRUE(field.type("ab"));
    EXPECT_EQ(field.stringValue(), "12");
    EXPECT_TRUE(field.type("a5b6"));
    EXPECT_EQ(field.stringValue(), "56");
}

TEST(TextField, TypingNothingClearsTheField) {
    TextField field;
    field.setStringValue("12");
    int fired = 0;
    field.setTargetAction(&field, [&](View&) { ++fired; });
    EXPECT_TRUE(field.type(""));
    EXPECT_EQ(field.stringValue(), "");
    EXPECT_EQ(fired, 1);
}

TEST(TextField, TypesComposedCharactersWhole) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setFormatter(formatter);
    // e with a combining accent; a half-width katakana with its voicing mark; a character past 16 bits; a
    // family of three joined characters.
    const std::string accent = "e\u0301";
    const std::string kana = "\uFF76\uFF9E";
    const std::string music = "\U0001D11E";
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
    EXPECT_TRUE(field.type(accent + kana + music + family));
    EXPECT_EQ(formatter->calls,
              (Calls{"partial " + accent, "partial " + accent + kana, "partial " + accent + kana + music,
                     "partial " + accent + kana + music + family, "read " + accent + kana + music + family,
                     "show " + accent + kana + music + family}));
}

TEST(TextField, IllFormedBytesAreTypedAsTheReplacementCharacter) {
    TextField field;
    EXPECT_TRUE(field.type("a\xFF"
                           "b"));
    EXPECT_EQ(field.stringValue(), "a\uFFFD"
                                   "b");
}

TEST(TextField, LeavingCommitsThenFiresWhenTheValueChanged) {
    TextField field;
    field.setStringValue("1");
    std::string seen;
    field.setTargetAction(&field, [&](View&) {
        seen = field.stringValue();
        EXPECT_FALSE(field.isEditing());
    });
    field.editText("2");
    EXPECT_TRUE(field.isEditing());
    EXPECT_EQ(seen, "");
    field.endEditing();
    EXPECT_EQ(seen, "2");
    EXPECT_FALSE(field.isEditing());
}

TEST(TextField, LeavingAnUnchangedFieldFiresNoAction) {
    TextField field;
    field.setStringValue("1");
    field.setTargetAction(&field, [](View&) { ADD_FAILURE() << "fired"; });
    field.beginEditing();
    field.endEditing();
    field.editText("2");
    field.editText("1");
    field.endEditing();
    field.endEditing();
    EXPECT_TRUE(field.type("1"));
}

TEST(TextField, ReadingTheValueCommitsAndTheActionStillFiresLater) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setFormatter(formatter);
    int fired = 0;
    field.setTargetAction(&field, [&](View&) { ++fired; });
    field.editText("5");
    EXPECT_EQ(field.stringValue(), "5");
    EXPECT_EQ(formatter->calls, (Calls{"partial 5", "read 5", "show 5"}));
    EXPECT_TRUE(field.isEditing());
    EXPECT_EQ(fired, 0);
    field.endEditing();
    EXPECT_EQ(fired, 1);
}

TEST(TextField, ARefusedTextGivesWayToTheValueCommittedLast) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    formatter->show = [](const auto& object) {
        return object + " mm";
    };
    formatter->read = [](const auto& text) {
        return text == "bad" ? std::nullopt : std::optional(text.substr(0, 1));
    };
    field.setFormatter(formatter);
    field.setStringValue("4");
    field.setTargetAction(&field, [](View&) { ADD_FAILURE() << "fired"; });
    field.editText("bad");
    EXPECT_EQ(field.stringValue(), "4");
    EXPECT_EQ(field.shownText(), "4 mm");
    field.editText("bad");
    field.endEditing();
    EXPECT_EQ(field.stringValue(), "4");
    EXPECT_EQ(field.shownText(), "4 mm");
}

TEST(TextField, ACommitShowsTheValueAsTheFormatterDoes) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    formatter->show = [](const auto& object) {
        return object + " mm";
    };
    field.setFormatter(formatter);
    ASSERT_TRUE(field.beginEditing());
    ChangeLog log(field);
    field.editText("5");
    field.endEditing();
    EXPECT_EQ(field.shownText(), "5 mm");
    EXPECT_EQ(field.stringValue(), "5");
    EXPECT_EQ(log.take(), (Changes{ViewChange::text, ViewChange::text, ViewChange::focus}));
}

TEST(TextField, ACommittedValueThatIsNotShownLeavesTheTypedText) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    formatter->show = [](const auto&) {
        return std::nullopt;
    };
    formatter->read = [](const auto& text) {
        return text == "bad" ? std::nullopt : std::optional(text);
    };
    field.setFormatter(formatter);
    EXPECT_TRUE(field.type("good"));
    EXPECT_EQ(field.shownText(), "good");
    EXPECT_TRUE(field.type("bad"));
    EXPECT_EQ(field.shownText(), "good");
    EXPECT_EQ(field.stringValue(), "good");
}

TEST(TextField, SettingByProgramReplacesWhatIsTypedAndFiresNoActionForIt) {
    TextField field;
    field.setTargetAction(&field, [](View&) { ADD_FAILURE() << "fired"; });
    field.editText("typed");
    field.setStringValue("set");
    EXPECT_TRUE(field.isEditing());
    EXPECT_EQ(field.stringValue(), "set");
    field.endEditing();
    EXPECT_EQ(field.stringValue(), "set");
}

TEST(TextField, AFormatterMayReadItsOwnFieldWhileItCommits) {
    TextField field;
    const auto formatter = std::make_shared<Recorder>();
    field.setStringValue("before");
    field.setFormatter(formatter);
    std::string seen;
    formatter->read = [&](const auto& text) {
        seen = field.stringValue();
        return std::optional(text);
    };
    field.editText("after");
    EXPECT_EQ(field.stringValue(), "after");
    EXPECT_EQ(seen, "before");
    seen.clear();
    field.editText("last");
    field.endEditing();
    EXPECT_EQ(seen, "after");
    EXPECT_EQ(field.stringValue(), "last");
}

TEST(TextField, FormattersMayCarryAValueToAnotherFieldAndBack) {
    // Two fields that keep each other in step, as an inch and a millimetre field do.
    TextField left;
    TextField right;
    const auto leftFormatter = std::make_shared<Recorder>();
    const auto rightFormatter = std::make_shared<Recorder>();
    std::string lastLeft;
    leftFormatter->read = [&](const auto& text) {
        if (std::exchange(lastLeft, text) != text) {
            right.setStringValue(text + "0");
        }
        return std::optional(text);
    };
    std::string lastRight;
    rightFormatter->read = [&](const auto& text) {
        if (std::exchange(lastRight, text) != text) {
            left.setStringValue(text.substr(0, text.size() - 1));
        }
        return std::optional(text);
    };
    left.setFormatter(leftFormatter);
    right.setFormatter(rightFormatter);
    EXPECT_TRUE(left.type("25"));
    EXPECT_EQ(left.stringValue(), "25");
    EXPECT_EQ(right.stringValue(), "250");
    EXPECT_TRUE(right.type("70"));
    EXPECT_EQ(left.stringValue(), "7");
    EXPECT_EQ(right.stringValue(), "70");
}

TEST(TextField, AFormatterMayExchangeItselfWhileItWorks) {
    TextField field;
    auto formatter = std::make_shared<Recorder>();
    formatter->read = [&field](const auto& text) {
        field.setFormatter(nullptr);
        return std::optional(text);
    };
    field.setFormatter(std::move(formatter));
    EXPECT_TRUE(field.type("5"));
    EXPECT_EQ(field.stringValue(), "5");
    EXPECT_EQ(field.formatter(), nullptr);
}

TEST(TextField, TakesNoKeysWhenItTakesNoEvents) {
    TextField field;
    field.setEnabled(false);
    EXPECT_FALSE(field.beginEditing());
    EXPECT_FALSE(field.editText("1"));
    EXPECT_FALSE(field.type("1"));
    EXPECT_EQ(field.shownText(), "");
    Window window;
    const auto inside = std::make_shared<TextField>();
    window.addSubview(inside);
    EXPECT_FALSE(inside->type("1")) << "its window is not in front";
    Application::shared().setMainWindow(&window);
    EXPECT_TRUE(inside->type("1"));
}

TEST(TextField, AFieldDisabledWhileEditedTakesNoMoreKeysAndCanBeLeft) {
    TextField field;
    field.editText("1");
    field.setEnabled(false);
    EXPECT_FALSE(field.editText("12"));
    field.endEditing();
    EXPECT_EQ(field.stringValue(), "1");
    EXPECT_FALSE(field.isEditing());
}

TEST(TextField, AnnouncesTheBeginAndTheEndOfEditing) {
    TextField field;
    ChangeLog log(field);
    EXPECT_TRUE(field.beginEditing());
    EXPECT_TRUE(field.beginEditing());
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
    field.endEditing();
    field.endEditing();
    EXPECT_EQ(log.take(), Changes{ViewChange::focus});
}

TEST(TextField, AnnouncesAnotherTextColor) {
    TextField field;
    ChangeLog log(field);
    field.setTextColor(TextColor::lightGrayColor);
    field.setTextColor(TextColor::lightGrayColor);
    EXPECT_EQ(field.textColor(), TextColor::lightGrayColor);
    EXPECT_EQ(log.take(), Changes{ViewChange::textColor});
}

TEST(TextField, AnActionMayTypeIntoItsOwnField) {
    TextField field;
    int fired = 0;
    field.setTargetAction(&field, [&](View&) {
        if (++fired == 1) {
            field.setStringValue("corrected");
        }
    });
    EXPECT_TRUE(field.type("wrong"));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(field.stringValue(), "corrected");
}

TEST(Formatter, PassesEverythingThroughByDefault) {
    Formatter formatter;
    std::string object;
    std::string kept;
    EXPECT_EQ(formatter.stringForObjectValue("a"), "a");
    EXPECT_TRUE(formatter.getObjectValue(object, "b", nullptr));
    EXPECT_EQ(object, "b");
    EXPECT_TRUE(formatter.isPartialStringValid("c", kept, nullptr));
}

} // namespace
} // namespace specialpages::platform
