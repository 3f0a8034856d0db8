// The letters of every window as they are in front of a user, pressed with Alt.
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Button.h"
#include "qt/FieldWidget.h"
#include "qt/mnemonics.h"
#include "qt/pane_windows.h"
#include "qt/print_fixture.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabBar>
#include <map>

namespace specialpages::qt::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

std::vector<std::string> languages() {
    return platform::Bundle::load(paths::bundle_dir())->localizations();
}

/// What each letter of the window reaches, by the texts that show it.
std::map<QChar, QStringList> letters_of(QWidget& window) {
    std::map<QChar, QStringList> letters;
    const auto add = [&](const QString& text) {
        if (const QChar letter = mnemonic_of(text); !letter.isNull()) {
            letters[letter] << text;
        }
    };
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible()) {
            continue;
        }
        if (takes_letter(*widget)) {
            add(widget->property("text").toString());
        } else if (auto* const box = qobject_cast<QGroupBox*>(widget)) {
            add(box->title());
        } else if (auto* const tabs = qobject_cast<QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(tabs->tabText(i));
            }
        }
    }
    return letters;
}

void expect_unique(QWidget& window, const std::string& what) {
    for (const auto& [letter, texts] : letters_of(window)) {
        EXPECT_THAT(texts, SizeIs(1)) << what << ": " << texts.join(" / ").toStdString();
    }
}

/// Those of the window that say something with a letter in it and have none.
QStringList without_letter(QWidget& window) {
    QStringList without;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const QString text = widget->property("text").toString();
        const bool wants = widget->window() == &window && widget->isVisible() && takes_letter(*widget) &&
                           !widget->property("role").isValid() &&
                           std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
        if (wants && mnemonic_of(text).isNull()) {
            without << text;
        }
    }
    return without;
}

/// Presses Alt and the letter of each label and button of the window, and sees what it did. What clicks do is
/// cut off, so that the window stays as it is.
void press_each(QWidget& window, const std::string& what) {
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const QChar letter = mnemonic_of(widget->property("text").toString());
        if (widget->window() != &window || !widget->isVisible() || !widget->isEnabled() ||
            !takes_letter(*widget) || letter.isNull()) {
            continue;
        }
        const std::string name = what + ": " + widget->objectName().toStdString();
        const auto key = static_cast<Qt::Key>(Qt::Key_A + (letter.unicode() - u'a'));
        if (auto* const button = qobject_cast<QAbstractButton*>(widget)) {
            QSignalSpy pressed(button, &QAbstractButton::pressed);
            QObject::disconnect(button, &QAbstractButton::clicked, nullptr, nullptr);
            press_key(window, key, Qt::AltModifier);
            EXPECT_EQ(pressed.count(), 1) << name;
            ASSERT_TRUE(QTest::qWaitFor([&] { return !button->isDown(); }, 2000)) << name;
        } else {
            QWidget* const buddy = qobject_cast<QLabel*>(widget)->buddy();
            ASSERT_NE(buddy, nullptr) << name;
            if (buddy->isEnabled()) {
                press_key(window, key, Qt::AltModifier);
                EXPECT_EQ(window.focusWidget(), buddy) << name;
            }
        }
    }
}

class WindowMnemonics : public PaneWindowsTest {};

TEST_F(WindowMnemonics, AreUniqueInEveryWindowAndNobodyGoesWithout) {
    for (const std::string& language : languages()) {
        open(host::read_settings_file(kHandbook), kSamplePpd, language);
        expect_unique(*window_, language + " pane");
        EXPECT_THAT(without_letter(*window_), IsEmpty()) << language;
        for (const PaneWindow& window : pane_windows()) {
            inWindow(window, [&](DialogWidget& dialog) {
                expect_unique(dialog, language + " " + window.word);
                EXPECT_THAT(without_letter(dialog), IsEmpty()) << language << " " << window.word;
            });
        }
        close();
    }
}

TEST_F(WindowMnemonics, ReachWhatTheyStandFor) {
    for (const std::string& language : languages()) {
        for (const PaneWindow& window : pane_windows()) {
            open(host::read_settings_file(kHandbook), kSamplePpd, language);
            inWindow(window, [&](DialogWidget& dialog) { press_each(dialog, language + " " + window.word); });
            close();
        }
        open(host::read_settings_file(kHandbook), kSamplePpd, language);
        press_each(*window_, language + " pane");
        close();
    }
}

TEST_F(WindowMnemonics, OpenADialogAndLeaveItAgain) {
    open();
    EXPECT_EQ(widget<QPushButton>("SPAddInsertsButton").text(), "Add &Inserts…");
    bool opened = false;
    face_.setRun([&](const std::function<bool()>& stopped) {
        auto& dialog = *QApplication::activeModalWidget();
        opened = true;
        EXPECT_EQ(dialog.objectName(), "InsertWindowRef");
        auto& cancel = widget<QPushButton>("spInstCancelButton");
        const QChar letter = mnemonic_of(cancel.text());
        ASSERT_FALSE(letter.isNull()) << cancel.text().toStdString();
        press_key(dialog, static_cast<Qt::Key>(Qt::Key_A + (letter.unicode() - u'a')), Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(stopped, 2000));
    });
    press_key(*window_, Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened; }, 2000));
    face_.setRun(nullptr);
}

TEST_F(WindowMnemonics, FollowATextThatChangesAndAControlThatComes) {
    open();
    auto& covers = widget<QPushButton>("SPAddCoversButton");
    auto& inserts = widget<QPushButton>("SPAddInsertsButton");
    auto* const view = dynamic_cast<platform::Button*>(pane_->host().panel()->panelView()->viewWithTag(100));
    ASSERT_NE(view, nullptr);
    view->setTitle("Inserts first & last");
    EXPECT_EQ(covers.text(), "Inserts &first && last");
    expect_unique(*window_, "after the change");
    view->setHidden(true);
    EXPECT_EQ(covers.text(), "Inserts &first && last") << "nobody sees it";
    EXPECT_EQ(inserts.text(), "Add &Inserts…") << "the only one with that word now";
    view->setTitle("Inserts");
    EXPECT_EQ(covers.text(), "Inserts");
    view->setHidden(false);
    EXPECT_FALSE(mnemonic_of(covers.text()).isNull());
    expect_unique(*window_, "after it came back");
}

TEST_F(WindowMnemonics, OfALabelSelectTheFieldsText) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        auto& label = widget<QLabel>("spInstQuantityTitle");
        auto& field = widget<FieldWidget>("spInstQuantityEdit");
        widget<QWidget>("spInstOptionList").setFocus();
        press_key(dialog, static_cast<Qt::Key>(Qt::Key_A + (mnemonic_of(label.text()).unicode() - u'a')),
                  Qt::AltModifier);
        EXPECT_TRUE(field.hasFocus());
        EXPECT_EQ(field.selectedText(), "1");
    });
}

TEST_F(WindowMnemonics, AddedInBracketsAreNotReadOut) {
    open(host::read_settings_file(kHandbook), kSamplePpd, "ja");
    EXPECT_EQ(widget<QPushButton>("SPAddCoversButton").text().count("(&"), 1);
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        int seen = 0;
        for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
            if (takes_letter(*widget) && widget->property("text").toString().contains("(&")) {
                const QString plain = plain_label(widget->property("text").toString());
                ++seen;
                EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), plain);
                auto* const label = qobject_cast<QLabel*>(widget);
                if (label != nullptr && qobject_cast<QComboBox*>(label->buddy()) == nullptr) {
                    // A list is named by what it shows; that its label belongs to it is told beside.
                    EXPECT_EQ(QAccessible::queryAccessibleInterface(label->buddy())->text(QAccessible::Name),
                              plain);
                }
            }
        }
        EXPECT_GT(seen, 5);
    });
}

class PrintDialogMnemonics : public PrintProgramTest {};

TEST_F(PrintDialogMnemonics, LeaveTheDialogsOwnLettersAlone) {
    for (const std::string& language : languages()) {
        PrintOptions options;
        options.ppd = sample("production");
        options.language = language;
        start(options);
        expect_unique(dialog(), language);
        EXPECT_THAT(without_letter(*dialog().tab()), SizeIs(::testing::Le(2))) << language;
        EXPECT_FALSE(mnemonic_of(dialog().tab()->rememberBox()->text()).isNull()) << language;
        // The dialog's own buttons still have theirs.
        EXPECT_GE(letters_of(dialog()).size(), letters_of(*dialog().tab()).size() + 1);
    }
}

TEST_F(PrintDialogMnemonics, OfTheCheckBoxTurnsItOn) {
    PrintOptions options;
    options.ppd = sample("production");
    options.language = "en";
    start(options);
    auto& box = *dialog().tab()->rememberBox();
    const bool before = box.isChecked();
    press_key(dialog(), static_cast<Qt::Key>(Qt::Key_A + (mnemonic_of(box.text()).unicode() - u'a')),
              Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.isChecked() != before; }, 2000));
}

} // namespace
} // namespace specialpages::qt::testing
