// What assistive tools are told of the pane and its dialogs.
#include "qt/DialogWidget.h"
#include "qt/FieldWidget.h"
#include "qt/HelpViewer.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/pane_windows.h"
#include "qt/widget_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBrowser>
#include <map>
#include <string>

namespace specialpages::qt::testing {
namespace {

std::string name_of(QAccessibleInterface& object) {
    return object.text(QAccessible::Name).toStdString();
}

class Accessibility : public PaneWindowsTest {
  protected:
    static QAccessibleInterface& of(QObject& object) {
        auto* const found = QAccessible::queryAccessibleInterface(&object);
        if (found == nullptr) {
            throw std::runtime_error("nothing is told of it");
        }
        return *found;
    }

    /// Every control of the window has a name and the role of its kind.
    static void expectNamesAndRoles(QWidget& window) {
        static const std::map<std::string, QAccessible::Role> kRoles{
            {"button", QAccessible::Button},     {"radio", QAccessible::RadioButton},
            {"popup", QAccessible::ComboBox},    {"field", QAccessible::EditableText},
            {"static", QAccessible::StaticText}, {"text", QAccessible::EditableText},
            {"stepper", QAccessible::SpinBox},   {"table", QAccessible::Table},
            {"icon", QAccessible::StaticText}};
        int controls = 0;
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            const std::string kind = class_of(*widget);
            if (widget->property("tag").toInt() == 0 || widget->window() != window.window() ||
                !kRoles.contains(kind)) {
                continue;
            }
            ++controls;
            QAccessibleInterface& told = of(*widget);
            const bool emptyText = kind == "static" && qobject_cast<QLabel*>(widget)->text().isEmpty();
            EXPECT_TRUE(emptyText || !name_of(told).empty()) << widget->objectName().toStdString();
            EXPECT_EQ(told.role(), kRoles.at(kind)) << widget->objectName().toStdString();
            EXPECT_EQ(told.state().disabled != 0, !widget->isEnabled()) << widget->objectName().toStdString();
        }
        EXPECT_GT(controls, 3);
    }
};

TEST_F(Accessibility, EveryControlOfThePaneHasANameAndARole) {
    open(host::read_settings_file(kHandbook));
    expectNamesAndRoles(pane_->widget());
    EXPECT_EQ(name_of(of(widget<QWidget>("SPSummaryInfoTableView"))), "Special pages in this job:");
    EXPECT_EQ(name_of(of(widget<QWidget>("SPMainHelpButton"))), "Help");
    EXPECT_EQ(of(widget<QWidget>("SPUpButton")).text(QAccessible::Description).toStdString(), "Alt+Up");
}

TEST_F(Accessibility, EveryControlOfTheDialogsHasANameAndARole) {
    open(host::read_settings_file(kHandbook));
    for (const PaneWindow& window : pane_windows()) {
        SCOPED_TRACE(window.word);
        inWindow(window, [&](DialogWidget& dialog) { expectNamesAndRoles(dialog); });
    }
}

TEST_F(Accessibility, AStepperSaysItsNumberAsTheFieldShowsIt) {
    open();
    const auto expect = [&](const char* window, const char* name, const std::string& number, double value,
                            double step) {
        inWindow(windowOf(window), [&](DialogWidget&) {
            QAccessibleInterface& stepper = of(widget<QWidget>(name));
            EXPECT_EQ(stepper.text(QAccessible::Value).toStdString(), number);
            ASSERT_NE(stepper.textInterface(), nullptr);
            const int end = stepper.textInterface()->characterCount();
            EXPECT_EQ(stepper.textInterface()->text(0, end).toStdString(), number);
            EXPECT_EQ(stepper.editableTextInterface(), nullptr);
            ASSERT_NE(stepper.valueInterface(), nullptr);
            EXPECT_EQ(stepper.valueInterface()->currentValue().toDouble(), value);
            EXPECT_EQ(stepper.valueInterface()->minimumStepSize().toDouble(), step);
            EXPECT_LT(stepper.valueInterface()->minimumValue().toDouble(), value);
            EXPECT_GT(stepper.valueInterface()->maximumValue().toDouble(), value);
        });
    };
    expect("custom-size", "spCustomSizeWidthMMLittleArrow", "210.0", 210, 0.1);
    expect("custom-size", "spCustomSizeLengthMMLittleArrow", "297.0", 297, 0.1);
    expect("custom-size-inches", "spCustomSizeWidthInchLittleArrow", "8.27", 8.27, 0.01);
    expect("custom-size-inches", "spCustomSizeLengthInchLittleArrow", "11.69", 11.69, 0.01);
    expect("tab-stock", "spTabMarginMMLittleArrow", "12.7", 12.7, 0.1);
    expect("tab-stock-inches", "spTabMarginInchesLittleArrow", "0.50", 0.5, 0.01);
    expect("tab-stock", "spNumInSequenceLittleArrow", "3", 3, 1);
}

TEST_F(Accessibility, AStepperStepsByItsActionsAndTakesAValueOfItsRange) {
    open();
    inWindow(windowOf("custom-size"), [&](DialogWidget&) {
        QAccessibleInterface& stepper = of(widget<QWidget>("spCustomSizeWidthMMLittleArrow"));
        const auto& field = widget<FieldWidget>("spCustomSizeWidthMMEditText");
        EXPECT_THAT(stepper.actionInterface()->actionNames(),
                    ::testing::ElementsAre(QAccessibleActionInterface::increaseAction(),
                                           QAccessibleActionInterface::decreaseAction(),
                                           QAccessibleActionInterface::setFocusAction()));
        stepper.actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        EXPECT_EQ(field.text(), "210.1");
        stepper.actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
        stepper.actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
        EXPECT_EQ(field.text(), "209.9");
        stepper.valueInterface()->setCurrentValue(200.5);
        EXPECT_EQ(field.text(), "200.5");
        stepper.valueInterface()->setCurrentValue(1e300);
        EXPECT_EQ(field.text(), "330.0");
        EXPECT_EQ(stepper.valueInterface()->currentValue().toDouble(), 330);
    });
}

TEST_F(Accessibility, ADisabledStepperAndItsFieldLetNothingBeDone) {
    open();
    const PaneWindow noShift{
        "tab-stock",
        "spTabStockWindow",
        {R"({"do":"press","tag":102})", R"({"do":"choose","tag":312,"menu":4,"item":37})"}};
    inWindow(noShift, [&](DialogWidget&) {
        QAccessibleInterface& stepper = of(widget<QWidget>("spTabMarginMMLittleArrow"));
        auto& field = widget<FieldWidget>("spTabMarginMMEditText");
        ASSERT_TRUE(stepper.state().disabled);
        EXPECT_TRUE(stepper.actionInterface()->actionNames().isEmpty());
        stepper.actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        EXPECT_EQ(field.text(), "12.7");
        stepper.valueInterface()->setCurrentValue(20);
        EXPECT_EQ(field.text(), "12.7");
        of(field).setText(QAccessible::Value, QStringLiteral("20.0"));
        EXPECT_EQ(field.text(), "12.7");
    });
}

TEST_F(Accessibility, WhatAToolWritesCountsAsWhatIsTyped) {
    open();
    inDialog("SPAddInsertsButton", [&](QDialog& dialog) {
        auto& pages = widget<FieldWidget>("spInstPageNumEdit");
        widget<QWidget>("spInstQuantityEdit").setFocus();
        of(pages).editableTextInterface()->insertText(0, QStringLiteral("5"));
        EXPECT_EQ(dialog.focusWidget(), &pages);
        of(pages).editableTextInterface()->insertText(1, QStringLiteral("x"));
        EXPECT_EQ(pages.text(), "5") << "letters are refused as those that are typed";
        of(widget<QWidget>("spInstQuantityEdit")).setText(QAccessible::Value, QStringLiteral("3"));
        EXPECT_EQ(dialog.focusWidget(), &widget<QWidget>("spInstQuantityEdit"));
        auto& ok = widget<QPushButton>("spInstOKButton");
        of(ok).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(ok.isDown());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !ok.isDown(); }, 8000)) << "pressed for the blink of an eye";
    });
    EXPECT_TRUE(face_.alerts.empty());
    QAccessibleTableInterface* const table =
        of(widget<TableWidget>("SPSummaryInfoTableView")).tableInterface();
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(name_of(*table->cellAt(0, 0)), "Insert after page 5, 3 sheets, A4, White, Plain");
}

TEST_F(Accessibility, APressedRadioButtonTakesTheKeyboard) {
    open();
    inWindow(windowOf("custom-size"), [&](DialogWidget& dialog) {
        auto& inches = widget<QRadioButton>("spCustomSizeInchesRadioButton");
        ASSERT_EQ(dialog.focusWidget(), &widget<QWidget>("spCustomSizeWidthMMEditText"));
        of(inches).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(inches.isChecked());
        EXPECT_EQ(dialog.focusWidget(), &inches);
    });
}

TEST_F(Accessibility, ARowIsReadAsASentence) {
    open(host::read_settings_file(kHandbook));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    QAccessibleTableInterface* const told = of(table).tableInterface();
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->rowCount(), 7);
    EXPECT_EQ(name_of(*told->cellAt(0, 0)), "Front cover, page 1 on side 1, A4, Blue, Thick 1");
    EXPECT_EQ(name_of(*told->cellAt(2, 0)), "Exception, pages 5 to 7, 2-sided, long edge, A3, White, Plain");
    EXPECT_EQ(name_of(*told->cellAt(4, 0)), "Insert after page 12, 3 sheets, A4 Cover, White, Tab Stock 1");
    EXPECT_EQ(name_of(*told->cellAt(6, 0)), "Back cover, the last page on side 1, A4, Blue, Thick 1");
    EXPECT_EQ(name_of(*told->cellAt(2, 1)), "Exception");
    EXPECT_EQ(name_of(*told->cellAt(2, 2)), "2-sided, long edge; A3, White, Plain");
}

TEST_F(Accessibility, ARowIsReadInTheLanguageOfThePane) {
    open(host::read_settings_file(kHandbook), kSamplePpd, "de");
    QAccessibleTableInterface* const told =
        of(widget<TableWidget>("SPSummaryInfoTableView")).tableInterface();
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(name_of(*told->cellAt(1, 0)),
              "Einlegeblatt nach Seite 3, 1 Blatt, 210.0 x 148.0 mm, White, Plain");
}

TEST_F(Accessibility, NamesThatAreNotShownAreTranslatedToo) {
    open({}, kSamplePpd, "de");
    EXPECT_EQ(name_of(of(widget<QWidget>("SPMainHelpButton"))), "Hilfe");
}

TEST_F(Accessibility, TheHeadOfARowIsItsSentenceToo) {
    open(host::read_settings_file(kHandbook));
    QAccessibleInterface& table = of(widget<TableWidget>("SPSummaryInfoTableView"));
    std::vector<std::string> heads;
    for (int i = 0; i < table.childCount(); ++i) {
        if (table.child(i)->role() == QAccessible::RowHeader) {
            heads.push_back(name_of(*table.child(i)));
        }
    }
    ASSERT_EQ(heads.size(), 7U);
    EXPECT_EQ(heads[5], "Insert after page 20, 1 sheet, Interposer (Tray 8)");
}

TEST_F(Accessibility, ARowWithoutWordsIsReadCellByCell) {
    open(host::read_settings_file(kHandbook));
    auto& table = widget<TableWidget>("SPSummaryInfoTableView");
    const auto row_of = [&](int row) {
        return name_of(*of(table).tableInterface()->cellAt(row, 0));
    };
    table.setRowWords([](std::size_t row) { return row == 0 ? QString() : QStringLiteral("Row"); });
    EXPECT_EQ(row_of(0), "Front, Cover, Print on side 1; A4, Blue, Thick 1");
    EXPECT_EQ(row_of(1), "Row");
    table.setRowWords(nullptr);
    EXPECT_EQ(row_of(2), "5-7, Exception, 2-sided, long edge; A3, White, Plain");
}

TEST_F(Accessibility, ARadioButtonInAGroupHasItsOwnName) {
    open();
    QGroupBox group(QStringLiteral("Print range"));
    QRadioButton all(QStringLiteral("Print &all"), &group);
    EXPECT_EQ(name_of(of(all)), "Print all");
    all.setAccessibleName(QStringLiteral("All pages"));
    EXPECT_EQ(name_of(of(all)), "All pages");
}

TEST_F(Accessibility, ADisabledItemGivesItsReason) {
    open();
    inDialog("SPAddCoversButton", [&](QDialog&) {
        auto& options = widget<PopUpWidget>("spCoversOptionsList");
        for (int i = 0; i < 4; ++i) {
            press_key(options, Qt::Key_Down);
        }
        auto& popup = widget<PopUpWidget>("spCoversFrontCoverPageList");
        click(popup);
        ASSERT_NE(popup.openMenu(), nullptr);
        int disabled = 0;
        int enabled = 0;
        for (QAction* const action : popup.openMenu()->actions()) {
            if (action->menu() == nullptr || !action->isVisible()) {
                continue;
            }
            QAccessibleInterface& menu = of(*action->menu());
            EXPECT_EQ(name_of(menu), action->text().toStdString());
            EXPECT_EQ(menu.role(), QAccessible::PopupMenu);
            ASSERT_EQ(menu.childCount(), action->menu()->actions().size());
            for (int i = 0; i < menu.childCount(); ++i) {
                QAccessibleInterface& item = *menu.child(i);
                const QAction& shown = *action->menu()->actions().at(i);
                EXPECT_EQ(menu.indexOfChild(&item), i);
                EXPECT_EQ(item.parent(), &menu);
                if (!shown.isVisible()) {
                    EXPECT_TRUE(item.state().invisible);
                    continue;
                }
                EXPECT_EQ(item.state().checked != 0, shown.isChecked());
                const std::string reason = item.text(QAccessible::Description).toStdString();
                if (item.state().disabled) {
                    ++disabled;
                    EXPECT_FALSE(reason.empty()) << name_of(item);
                    EXPECT_EQ(reason, shown.toolTip().toStdString());
                    EXPECT_TRUE(item.actionInterface()->actionNames().isEmpty());
                } else {
                    ++enabled;
                    EXPECT_EQ(reason, "") << name_of(item);
                }
            }
        }
        EXPECT_GT(disabled, 0);
        EXPECT_GT(enabled, 10);
        popup.hidePopup();
    });
}

class AccessibleHelp : public Accessibility {
  protected:
    /// The first page of the help, as assistive tools are told of it.
    QAccessibleInterface& openHelp() {
        open();
        click(widget<QWidget>("SPMainHelpButton"));
        return of(browser());
    }
    QTextBrowser& browser() { return pane_->widget().help()->browser(); }

    static std::vector<std::string> linksOf(QAccessibleInterface& page) {
        std::vector<std::string> names;
        for (int i = 0; i < page.childCount(); ++i) {
            QAccessibleInterface& link = *page.child(i);
            EXPECT_EQ(link.role(), QAccessible::Link);
            EXPECT_EQ(link.parent(), &page);
            EXPECT_EQ(page.indexOfChild(&link), i);
            names.push_back(name_of(link));
        }
        return names;
    }
    static std::string textOf(QAccessibleInterface& page, int start, int length) {
        return page.textInterface()->text(start, start + length).toStdString();
    }
    void follow(QAccessibleInterface& link) {
        link.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        settle();
    }
};

TEST_F(AccessibleHelp, APageIsATextThatCanBeReadOnly) {
    QAccessibleInterface& page = openHelp();
    EXPECT_EQ(page.role(), QAccessible::Document);
    EXPECT_EQ(name_of(page), "Help");
    EXPECT_TRUE(page.state().readOnly);
    EXPECT_TRUE(page.state().multiLine);
    EXPECT_EQ(page.editableTextInterface(), nullptr);
    ASSERT_NE(page.textInterface(), nullptr);
    EXPECT_EQ(textOf(page, 0, 13), "Special pages");
    const int end = page.textInterface()->characterCount();
    const QString all = page.textInterface()->text(0, end);
    EXPECT_EQ(all.size(), end);
    EXPECT_TRUE(all.contains(QStringLiteral("Kind\nWhat it is\nFor example\nCover\n")));
    for (const QChar& character : all) {
        EXPECT_TRUE(character == u'\n' || character.isPrint()) << int{character.unicode()};
    }
}

TEST_F(AccessibleHelp, APartOfAPageCanBeMarkedFoundAndScrolledTo) {
    QAccessibleTextInterface& text = *openHelp().textInterface();
    text.setSelection(0, 0, 7);
    EXPECT_EQ(browser().textCursor().selectedText().toStdString(), "Special");
    int start = -1;
    int end = -1;
    ASSERT_EQ(text.selectionCount(), 1);
    text.selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(0, 7));
    EXPECT_EQ(text.cursorPosition(), 7);
    text.removeSelection(0);
    EXPECT_EQ(text.selectionCount(), 0);
    EXPECT_EQ(text.attributes(3, &start, &end), "font-weight:bold;");
    EXPECT_EQ(std::pair(start, end), std::pair(0, 13)) << "the heading";
    EXPECT_EQ(text.attributes(20, &start, &end), "");
    EXPECT_EQ(start, 14);
    EXPECT_EQ(text.offsetAtPoint(text.characterRect(4).center()), 4);
    const int last = text.characterCount() - 1;
    const auto shown = [&] {
        return browser()
            .rect()
            .translated(browser().mapToGlobal(QPoint(0, 0)))
            .intersects(text.characterRect(last));
    };
    EXPECT_FALSE(shown());
    text.scrollToSubstring(last, last + 1);
    EXPECT_TRUE(shown());
    text.setCursorPosition(1000000);
    EXPECT_EQ(text.cursorPosition(), text.characterCount());
}

TEST_F(AccessibleHelp, LinksLeadToOtherPagesAndEndWithTheirOwn) {
    QAccessibleInterface& page = openHelp();
    EXPECT_THAT(linksOf(page),
                ::testing::ElementsAre("Cover", "Insert", "Exception", "Special pages", "Covers", "Inserts",
                                       "Exceptions", "Advanced paper selection", "Custom size", "Tab stock"));
    QAccessibleInterface& link = *page.child(1);
    EXPECT_TRUE(link.state().linked);
    EXPECT_FALSE(link.state().offscreen);
    EXPECT_TRUE(page.child(9)->state().offscreen);
    EXPECT_EQ(page.childAt(link.rect().center().x(), link.rect().center().y()), &link);
    const QAccessible::Id id = QAccessible::uniqueId(&link);
    follow(link);
    EXPECT_EQ(browser().source().fileName(), "SpecialPagesInsert_Default01.htm");
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(textOf(page, 0, 7), "Inserts");
    EXPECT_THAT(linksOf(page),
                ::testing::ElementsAre("Advanced", "Tab stock", "Why is an item grey?", "Special pages",
                                       "Covers", "Inserts", "Exceptions", "Advanced paper selection",
                                       "Custom size", "Tab stock"));
    follow(*page.child(2));
    EXPECT_EQ(browser().source().fileName(), "SpecialPagesMain_Default01.htm");
    EXPECT_EQ(browser().source().fragment(), "grey");
    click(*pane_->widget().help()->findChild<QWidget*>("helpBack"));
    EXPECT_EQ(textOf(page, 0, 7), "Inserts");
    EXPECT_EQ(linksOf(page).front(), "Advanced");
}

TEST_F(AccessibleHelp, TheLinkWithTheKeyboardIsTold) {
    QAccessibleInterface& page = openHelp();
    activate(*pane_->widget().help());
    browser().setFocus();
    EXPECT_EQ(page.focusChild(), nullptr);
    press_key(browser(), Qt::Key_Tab);
    ASSERT_NE(page.focusChild(), nullptr);
    EXPECT_EQ(name_of(*page.focusChild()), "Cover");
    press_key(browser(), Qt::Key_Tab);
    ASSERT_NE(page.focusChild(), nullptr);
    EXPECT_EQ(name_of(*page.focusChild()), "Insert");
    EXPECT_FALSE(page.child(0)->state().focused);
}

TEST_F(AccessibleHelp, ALinkOfSeveralLooksIsOne) {
    QAccessibleInterface& page = openHelp();
    browser().setHtml(
        QStringLiteral("<p><a href='a'>one <b>link</b></a> <a href='b'>two</a><a href='c'>three</a>"
                       "<a name='place'>no link</a></p>"));
    EXPECT_THAT(linksOf(page), ::testing::ElementsAre("one link", "two", "three"));
}

} // namespace
} // namespace specialpages::qt::testing
