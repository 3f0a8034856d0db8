// Each dialog from its opening to the record, once with the keyboard alone and once with the mouse: alone, or
// with pages that are typed.
#include "qt/FieldWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/mnemonics.h"
#include "qt/pane_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QStyleOptionSpinBox>
#include <deque>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;

constexpr int kSize = 2;
constexpr int kColor = 3;
constexpr int kType = 4;
constexpr int kAdvanced = 6;
constexpr int kBlue = 2;
constexpr int kThick = 9;
constexpr int kDifferentCovers = 4;
constexpr int kPrintedOnSideOne = 1;
constexpr int kOwnMargin = 3;
constexpr int kCustomSize = 34;
constexpr int kTabStock = 37;

class ByHand : public PaneWindowsTest {
  protected:
    using Script = std::function<void(QWidget& dialog)>;

    /// What is done in the dialogs that open, in the order of their opening. Each script ends with its dialog
    /// closed.
    void inDialogs(std::deque<Script> scripts) {
        scripts_ = std::move(scripts);
        face_.setRun([this](const std::function<bool()>& stopped) {
            ASSERT_FALSE(scripts_.empty()) << "an unexpected dialog";
            const Script script = std::move(scripts_.front());
            scripts_.pop_front();
            script(*QApplication::activeModalWidget());
            EXPECT_TRUE(QTest::qWaitFor(stopped, 2000)) << "the dialog stays";
            if (!stopped()) {
                face_.giveUp();
            }
        });
    }
    /// Waits until every script ran and no dialog is open.
    void finish() {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return scripts_.empty() && platform::Application::shared().modalDepth() == 0; }, 5000));
        EXPECT_THAT(face_.alerts, ElementsAre());
        face_.setRun(nullptr);
        settle();
    }

    std::vector<std::string> rows() {
        std::vector<std::string> all;
        const QAbstractItemModel& model = *widget<TableWidget>("SPSummaryInfoTableView").model();
        for (int row = 0; row < model.rowCount(); ++row) {
            std::string line;
            for (int column = 0; column < model.columnCount(); ++column) {
                line += (column == 0 ? "" : " | ") + model.index(row, column).data().toString().toStdString();
            }
            all.push_back(line);
        }
        return all;
    }

    // The keyboard.

    /// Alt and the letter of the button or label.
    void alt(const std::string& name) {
        auto& labelled = widget<QWidget>(name);
        const QChar letter = mnemonic_of(labelled.property("text").toString());
        ASSERT_FALSE(letter.isNull()) << name;
        press_key(labelled, static_cast<Qt::Key>(Qt::Key_A + (letter.unicode() - u'a')), Qt::AltModifier);
        // A button is pressed for the blink of an eye.
        if (auto* const button = qobject_cast<QAbstractButton*>(&labelled)) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return !button->isDown(); }, 8000)) << name;
        }
    }
    void tabTo(QWidget& window, const std::string& name) {
        QWidget& wanted = widget<QWidget>(name);
        for (int i = 0; i < 40 && window.focusWidget() != &wanted; ++i) {
            press_key(window, Qt::Key_Tab);
        }
        ASSERT_EQ(window.focusWidget(), &wanted) << name;
    }
    static void typeText(QWidget& window, const char* text) {
        press_key(window, Qt::Key_A, Qt::ControlModifier);
        for (const char* key = text; *key != '\0'; ++key) {
            QTest::keyClick(window.windowHandle(), *key);
        }
    }
    /// Picks an item of the list that has the keyboard.
    static void pickByKeys(QWidget& window, const std::vector<int>& path) {
        auto* const popup = dynamic_cast<PopUpWidget*>(window.focusWidget());
        ASSERT_NE(popup, nullptr);
        press_key(window, Qt::Key_Space);
        QMenu* menu = popup->openMenu();
        ASSERT_NE(menu, nullptr);
        for (std::size_t level = 0; level < path.size(); ++level) {
            QAction& item = *menu->actions().at(path[level]);
            ASSERT_TRUE(go_to(*menu, item)) << path[level];
            const bool last = level + 1 == path.size();
            QTest::keyClick(menu->windowHandle(), last ? Qt::Key_Return : Qt::Key_Right);
            menu = last ? nullptr : item.menu();
        }
        settle();
    }

    /// Declares an insert after page 4 with the paper at that place of the menu.
    Script insertByKeys(const std::vector<int>& paper) {
        return [this, paper](QWidget& dialog) {
            alt("spInstPageNumTitle");
            typeText(dialog, "4");
            alt("spInstPaperViewTitle");
            pickByKeys(dialog, paper);
            press_key(dialog, Qt::Key_Return);
        };
    }

    // The mouse.

    static void pickByMouse(PopUpWidget& popup, const std::vector<int>& path) {
        click(popup);
        QMenu* menu = popup.openMenu();
        ASSERT_NE(menu, nullptr);
        for (const int place : path) {
            QAction& item = *menu->actions().at(place);
            const QPoint at = menu->actionGeometry(&item).center();
            QMenu* const below = item.menu(); // the item may end with the menu
            QTest::mouseMove(menu->windowHandle(), at);
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
            menu = below;
        }
        settle();
    }
    static void stepUp(StepperWidget& stepper, int times) {
        QStyleOptionSpinBox option;
        option.initFrom(&stepper);
        option.frame = stepper.hasFrame();
        option.subControls = QStyle::SC_All;
        const QRect up =
            stepper.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &stepper);
        for (int i = 0; i < times; ++i) {
            click(stepper, up.center());
        }
    }
    /// Puts into an empty field, by its own menu, what was copied elsewhere.
    void pasteByMouse(const std::string& name, const char* text) {
        QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
        clickOn(name);
        QWidget& field = widget<QWidget>(name);
        QTest::mouseClick(field.window()->windowHandle(), Qt::RightButton, Qt::NoModifier,
                          field.mapTo(field.window(), field.rect().center()));
        QApplication::processEvents();
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr) << name;
        const QString key = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
        QAction* paste = nullptr;
        for (QAction* const action : menu->actions()) {
            paste = action->text().endsWith(u'\t' + key) ? action : paste;
        }
        ASSERT_NE(paste, nullptr) << name;
        ASSERT_TRUE(paste->isEnabled()) << name;
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(paste).center());
        QApplication::processEvents();
    }
    void clickOn(const std::string& name) {
        QWidget& button = widget<QWidget>(name);
        click(button, QPoint(8, button.height() / 2));
    }

  private:
    std::deque<Script> scripts_;
};

TEST_F(ByHand, CoversByTheKeyboardAlone) {
    open();
    inDialogs({[&](QWidget& dialog) {
        tabTo(dialog, "spCoversOptionsList");
        press_key(dialog, Qt::Key_Down); // the front cover
        alt("spCoversFrontCoverPageViewTitle");
        EXPECT_EQ(dialog.focusWidget(), &widget<QWidget>("spCoversFrontCoverPageList"));
        pickByKeys(dialog, {kColor, kBlue});
        press_key(dialog, Qt::Key_Return);
    }});
    alt("SPAddCoversButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("Front | Cover | Blank or preprinted; A4, Blue, Plain"));
}

TEST_F(ByHand, InsertsByTheKeyboardAlone) {
    open();
    inDialogs({[&](QWidget& dialog) {
        alt("spInstPageNumTitle");
        typeText(dialog, "3");
        press_key(dialog, Qt::Key_Tab);
        tabTo(dialog, "spInstQuantityLArr");
        press_key(dialog, Qt::Key_Up);
        EXPECT_EQ(widget<FieldWidget>("spInstQuantityEdit").text(), "2");
        alt("spInstPaperViewTitle");
        pickByKeys(dialog, {kColor, kBlue});
        press_key(dialog, Qt::Key_Return);
    }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("3 | Insert | 2 sheet(s); A4, Blue, Plain"));
}

TEST_F(ByHand, ExceptionsByTheKeyboardAlone) {
    open();
    inDialogs({[&](QWidget& dialog) {
        typeText(dialog, "5-7"); // the keyboard is there
        alt("spExceptionsPaperViewTitle");
        pickByKeys(dialog, {kColor, kBlue});
        alt("spExceptionsTwoSideTitle");
        press_key(dialog, Qt::Key_Down);
        press_key(dialog, Qt::Key_Return);
    }});
    alt("SPAddExceptionsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("5-7 | Exception | 2-sided, long edge; A4, Blue, Plain"));
}

TEST_F(ByHand, TheAdvancedWindowByTheKeyboardAlone) {
    open();
    inDialogs({insertByKeys({kAdvanced}), [&](QWidget& dialog) {
                   EXPECT_EQ(dialog.objectName(), "SPAdvSeleWndRef");
                   alt("spAdvPaperColorTitle");
                   press_key(dialog, Qt::Key_Down);
                   press_key(dialog, Qt::Key_Return);
               }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("4 | Insert | 1 sheet(s); A4, Blue, Plain"));
}

TEST_F(ByHand, TheCustomSizeByTheKeyboardAlone) {
    open();
    inDialogs({insertByKeys({kSize, kCustomSize}), [&](QWidget& dialog) {
                   EXPECT_EQ(dialog.objectName(), "spCustomSizeWindow");
                   alt("spCustomSizeWidthMMStaticText");
                   typeText(dialog, "200.5");
                   alt("spCustomSizeLengthMMStaticText");
                   typeText(dialog, "300");
                   press_key(dialog, Qt::Key_Return);
               }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("4 | Insert | 1 sheet(s); 200.5 x 300.0 mm, White, Plain"));
}

TEST_F(ByHand, TheCustomSizeInInchesByTheKeyboardAlone) {
    open();
    inDialogs({insertByKeys({kSize, kCustomSize}), [&](QWidget& dialog) {
                   alt("spCustomSizeInchesRadioButton");
                   alt("spCustomSizeWidthInchStaticText");
                   typeText(dialog, "8.50");
                   alt("spCustomSizeLengthInchStaticText");
                   typeText(dialog, "11");
                   press_key(dialog, Qt::Key_Return);
               }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("4 | Insert | 1 sheet(s); 8.50 x 11.00 in., White, Plain"));
}

TEST_F(ByHand, TabStockByTheKeyboardAlone) {
    open();
    inDialogs({insertByKeys({kType, kTabStock}), [&](QWidget& dialog) {
                   EXPECT_EQ(dialog.objectName(), "spTabStockSubWindow");
                   alt("spNumInSequenceSubStaticText");
                   typeText(dialog, "7");
                   press_key(dialog, Qt::Key_Return);
               }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("4 | Insert | 1 sheet(s); A4, White, Tab Stock 1"));
    inDialogs({[&](QWidget& dialog) {
                   typeText(dialog, "9");
                   alt("spExceptionsPaperViewTitle");
                   pickByKeys(dialog, {kType, kTabStock});
                   press_key(dialog, Qt::Key_Return);
               },
               [&](QWidget& dialog) {
                   EXPECT_EQ(dialog.objectName(), "spTabStockWindow");
                   alt("spNumInSequenceStaticText");
                   typeText(dialog, "5");
                   press_key(dialog, Qt::Key_Return);
               }});
    alt("SPAddExceptionsButton");
    finish();
    EXPECT_THAT(rows().at(1), ::testing::StartsWith("9 | Exception | "));
    EXPECT_THAT(rows().at(1), ::testing::HasSubstr("Tab Stock 1"));
}

TEST_F(ByHand, DeletingAndLeavingByTheKeyboardAlone) {
    open(host::read_settings_file(kHandbook));
    ASSERT_EQ(rows().size(), 7U);
    inDialogs({[&](QWidget& dialog) {
        press_key(dialog, Qt::Key_Escape);
    }});
    alt("SPDeleteAllButton");
    finish();
    EXPECT_EQ(rows().size(), 7U) << "Escape is Cancel";
    inDialogs({[&](QWidget& dialog) {
        press_key(dialog, Qt::Key_Return);
    }});
    alt("SPDeleteAllButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre()) << "Enter is OK";
    inDialogs({[&](QWidget& dialog) {
        alt("spInstPageNumTitle");
        typeText(dialog, "3");
        press_key(dialog, Qt::Key_Escape);
    }});
    alt("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre());
}

TEST_F(ByHand, CoversByTheMouseAlone) {
    open();
    inDialogs({[&](QWidget&) {
        pickByMouse(widget<PopUpWidget>("spCoversOptionsList"), {1});
        pickByMouse(widget<PopUpWidget>("spCoversFrontCoverPageList"), {kColor, kBlue});
        clickOn("spCoversOKButton");
    }});
    clickOn("SPAddCoversButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("Front | Cover | Blank or preprinted; A4, Blue, Plain"));
}

TEST_F(ByHand, DifferentCoversByTheMouseAlone) {
    open();
    inDialogs({[&](QWidget&) {
        pickByMouse(widget<PopUpWidget>("spCoversOptionsList"), {kDifferentCovers});
        pickByMouse(widget<PopUpWidget>("spCoversFrontPrintingOptionList"), {kPrintedOnSideOne});
        pickByMouse(widget<PopUpWidget>("spCoversFrontCoverPageList"), {kType, kThick});
        pickByMouse(widget<PopUpWidget>("spCoversBackCoverPageList"), {kColor, kBlue});
        clickOn("spCoversOKButton");
    }});
    clickOn("SPAddCoversButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("Front | Cover | Print on side 1; A4, White, Thick 1",
                                    "Back | Cover | Blank or preprinted; A4, Blue, Plain"));
}

TEST_F(ByHand, InsertsAndExceptionsByTheMouseAloneWithPagesFromTheClipboard) {
    open();
    inDialogs({[&](QWidget&) {
        pasteByMouse("spInstPageNumEdit", "3,7");
        stepUp(widget<StepperWidget>("spInstQuantityLArr"), 1);
        pickByMouse(widget<PopUpWidget>("spInstSelePaper"), {kColor, kBlue});
        clickOn("spInstOKButton");
    }});
    clickOn("SPAddInsertsButton");
    finish();
    inDialogs({[&](QWidget&) {
        pasteByMouse("spExceptionsPageEdit", "5-7");
        pickByMouse(widget<PopUpWidget>("spExceptionsPaperList"), {kColor, kBlue});
        clickOn("spExceptionsOKButton");
    }});
    clickOn("SPAddExceptionsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("3 | Insert | 2 sheet(s); A4, Blue, Plain",
                                    "5-7 | Exception | 1-sided; A4, Blue, Plain",
                                    "7 | Insert | 2 sheet(s); A4, Blue, Plain"));
}

TEST_F(ByHand, InsertsByTheMouseWithTypedPages) {
    open();
    inDialogs({[&](QWidget& dialog) {
        clickOn("spInstPageNumEdit");
        typeText(dialog, "3");
        stepUp(widget<StepperWidget>("spInstQuantityLArr"), 2);
        pickByMouse(widget<PopUpWidget>("spInstSelePaper"), {kColor, kBlue});
        clickOn("spInstOKButton");
    }});
    clickOn("SPAddInsertsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("3 | Insert | 3 sheet(s); A4, Blue, Plain"));
}

TEST_F(ByHand, ExceptionsByTheMouseWithTypedPages) {
    open();
    inDialogs({[&](QWidget& dialog) {
        clickOn("spExceptionsPageEdit");
        typeText(dialog, "5");
        pickByMouse(widget<PopUpWidget>("spExceptionsTwoSideList"), {2});
        pickByMouse(widget<PopUpWidget>("spExceptionsPaperList"), {kColor, kBlue});
        clickOn("spExceptionsOKButton");
    }});
    clickOn("SPAddExceptionsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("5 | Exception | 2-sided, long edge; A4, Blue, Plain"));
}

TEST_F(ByHand, TheWindowsOfAPaperByTheMouseAlone) {
    const std::vector<std::pair<std::vector<int>, Script>> windows{
        {{kAdvanced},
         [&](QWidget&) {
             pickByMouse(widget<PopUpWidget>("spAdvPaperColorList"), {kBlue});
             clickOn("spAdvOKButton");
         }},
        {{kSize, kCustomSize},
         [&](QWidget&) {
             stepUp(widget<StepperWidget>("spCustomSizeWidthMMLittleArrow"), 1);
             clickOn("spCustomSizeOKButton");
         }},
        {{kSize, kCustomSize},
         [&](QWidget&) {
             clickOn("spCustomSizeInchesRadioButton");
             stepUp(widget<StepperWidget>("spCustomSizeLengthInchLittleArrow"), 1);
             clickOn("spCustomSizeOKButton");
         }},
        {{kType, kTabStock},
         [&](QWidget&) {
             stepUp(widget<StepperWidget>("spNumInSequenceSubLittleArrow"), 1);
             clickOn("spTabMarginSubOKButton");
         }},
    };
    open();
    for (const auto& [path, script] : windows) {
        inDialogs({[&, path = path](QWidget& dialog) {
                       clickOn("spInstPageNumEdit");
                       typeText(dialog, "4");
                       pickByMouse(widget<PopUpWidget>("spInstSelePaper"), path);
                       clickOn("spInstOKButton");
                   },
                   script});
        clickOn("SPAddInsertsButton");
        finish();
    }
    EXPECT_THAT(rows(), ElementsAre("4 | Insert | 1 sheet(s); A4, Blue, Plain",
                                    "4 | Insert | 1 sheet(s); 210.1 x 297.0 mm, White, Plain",
                                    "4 | Insert | 1 sheet(s); 8.27 x 11.70 in., White, Plain",
                                    "4 | Insert | 1 sheet(s); A4, White, Tab Stock 1"));
    inDialogs({[&](QWidget&) {
        clickOn("spWarningCancelButton");
    }});
    clickOn("SPDeleteAllButton");
    finish();
    EXPECT_EQ(rows().size(), 4U);
    inDialogs({[&](QWidget&) {
        clickOn("spWarningOKButton");
    }});
    clickOn("SPDeleteAllButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre());
}

TEST_F(ByHand, TheTabsOfAnExceptionByTheMouseAlone) {
    open();
    inDialogs({[&](QWidget& dialog) {
                   clickOn("spExceptionsPageEdit");
                   typeText(dialog, "9");
                   pickByMouse(widget<PopUpWidget>("spExceptionsPaperList"), {kType, kTabStock});
                   clickOn("spExceptionsOKButton");
               },
               [&](QWidget& dialog) {
                   EXPECT_EQ(dialog.objectName(), "spTabStockWindow");
                   stepUp(widget<StepperWidget>("spNumInSequenceLittleArrow"), 2);
                   EXPECT_EQ(widget<FieldWidget>("spNumInSequenceEditText").text(), "5");
                   pickByMouse(widget<PopUpWidget>("spTabMarginListCtrl"), {kOwnMargin});
                   clickOn("spTabMarginInchesRadioButton");
                   stepUp(widget<StepperWidget>("spTabMarginInchesLittleArrow"), 1);
                   EXPECT_EQ(widget<FieldWidget>("spTabMarginInchesEditText").text(), "0.51");
                   clickOn("spTabMarginOKButton");
               }});
    clickOn("SPAddExceptionsButton");
    finish();
    EXPECT_THAT(rows(), ElementsAre("9 | Exception | 1-sided; A4, White, Tab Stock 1"));
}

} // namespace
} // namespace specialpages::qt::testing
