// What assistive tools are told of the pane and its dialogs.
#include "qt/DialogWidget.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/TableWidget.h"
#include "qt/qt_fixture.h"
#include "qt/widget_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <map>
#include <string>

namespace specialpages::qt::testing {
namespace {

std::string name_of(QAccessibleInterface& object) {
    return object.text(QAccessible::Name).toStdString();
}

class Accessibility : public QtPaneTest {
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
    const std::vector<std::vector<std::string>> openers{
        {R"({"do":"press","tag":100})"},
        {R"({"do":"press","tag":101})"},
        {R"({"do":"press","tag":102})"},
        {R"({"do":"press","tag":107})"},
        {R"({"do":"press","tag":101})", R"({"do":"choose","tag":3210,"item":6})"},
        {R"({"do":"press","tag":101})", R"({"do":"choose","tag":3210,"menu":2,"item":34})"}};
    std::set<std::string> seen;
    for (const auto& requests : openers) {
        QtDriver driver(pane_->widget(), face_);
        driver.atEnd([&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr) << requests.back();
            seen.insert(dialog->objectName().toStdString());
            expectNamesAndRoles(*dialog);
        });
        driver.run(requests);
    }
    EXPECT_THAT(seen,
                ::testing::ElementsAre("CoversWindowRef", "InsertWindowRef", "SPAdvSeleWndRef",
                                       "WarningWindowRef", "spAddExceptionsWindow", "spCustomSizeWindow"));
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

} // namespace
} // namespace specialpages::qt::testing
