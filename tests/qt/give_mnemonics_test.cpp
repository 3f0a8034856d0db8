// Letters given to the parts of a window that the test makes up.
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GiveMnemonics : public ::testing::Test {
  protected:
    QWidget window_;
    QWidget part_{&window_};
};

TEST_F(GiveMnemonics, LeaveOutWhatIsShownAroundThePart) {
    QPushButton beside("&Alpha", &window_);
    const QGroupBox box("&Beta", &window_);
    QTabBar tabs(&window_);
    tabs.addTab("&Gamma");
    tabs.addTab("&Delta");
    const QPushButton inside("Abgde", &part_);
    EXPECT_EQ(give_mnemonics(part_).size(), 1U);
    EXPECT_EQ(inside.text(), "Abgd&e");
    EXPECT_EQ(beside.text(), "&Alpha");
    beside.hide();
    give_mnemonics(part_);
    EXPECT_EQ(inside.text(), "&Abgde");
}

TEST_F(GiveMnemonics, TakeNothingFromWindowsBelow) {
    QDialog below(&window_);
    const QPushButton there("&Add", &below);
    const QPushButton inside("Add", &part_);
    give_mnemonics(window_);
    EXPECT_EQ(inside.text(), "&Add");
    EXPECT_EQ(there.text(), "&Add");
    const QPushButton late("Apply", &below);
    give_mnemonics(below);
    EXPECT_EQ(late.text(), "A&pply");
    EXPECT_EQ(there.text(), "&Add");
}

TEST_F(GiveMnemonics, LeaveHiddenControlsAlone) {
    QPushButton hidden("Add", &part_);
    hidden.hide();
    const QPushButton shown("Add", &part_);
    give_mnemonics(part_);
    EXPECT_EQ(hidden.text(), "Add");
    EXPECT_EQ(shown.text(), "&Add");
}

TEST_F(GiveMnemonics, ReachThePartItself) {
    QPushButton itself("Add", &window_);
    EXPECT_THAT(give_mnemonics(itself), ElementsAre(&itself));
    EXPECT_EQ(itself.text(), "&Add");
}

TEST_F(GiveMnemonics, AnswerTheWidgetsWhoseTextChanged) {
    QPushButton add("Add", &part_);
    QPushButton edit("Edit", &part_);
    const QLabel alone("Summary", &part_);
    EXPECT_THAT(give_mnemonics(part_), ElementsAre(&add, &edit));
    EXPECT_THAT(give_mnemonics(part_), IsEmpty());
    edit.setText("Apply");
    EXPECT_THAT(give_mnemonics(part_), ElementsAre(&edit));
    EXPECT_EQ(edit.text(), "A&pply");
    EXPECT_EQ(alone.text(), "Summary");
}

TEST_F(GiveMnemonics, AreNotReadOutWhereTheyWereAdded) {
    QPushButton button(QString::fromUtf8("追加"), &part_);
    set_latin_text(button, "Add");
    QLabel label(QString::fromUtf8("枚数"), &part_);
    set_latin_text(label, "Quantity");
    QLineEdit field(&part_);
    label.setBuddy(&field);
    give_mnemonics(part_);
    EXPECT_EQ(button.text().toStdString(), "追加(&A)");
    EXPECT_EQ(button.accessibleName().toStdString(), "追加");
    EXPECT_EQ(label.text().toStdString(), "枚数(&Q)");
    EXPECT_EQ(label.accessibleName().toStdString(), "枚数");
    EXPECT_EQ(field.accessibleName().toStdString(), "枚数");
    button.setText(QString::fromUtf8("編集"));
    give_mnemonics(part_);
    EXPECT_EQ(button.accessibleName().toStdString(), "編集") << "the name follows the text";
    button.setText("Edit");
    give_mnemonics(part_);
    EXPECT_EQ(button.text(), "&Edit");
    EXPECT_EQ(button.accessibleName(), "Edit");
}

TEST_F(GiveMnemonics, LeaveNamesThatWereGivenOtherwise) {
    QPushButton named(QString::fromUtf8("追加"), &part_);
    set_latin_text(named, "Add");
    named.setAccessibleName("Add covers");
    give_mnemonics(part_);
    EXPECT_EQ(named.text().toStdString(), "追加(&A)");
    EXPECT_EQ(named.accessibleName(), "Add covers");
}

TEST_F(GiveMnemonics, NameNothingWhoseTextHasTheLetterInIt) {
    const QPushButton latin("Edit", &part_);
    const QPushButton bracket(literal_label(QString("Research (&D)")), &part_);
    give_mnemonics(part_);
    EXPECT_EQ(latin.accessibleName(), "");
    EXPECT_EQ(bracket.text(), "&Research (&&D)");
    EXPECT_EQ(bracket.accessibleName(), "") << "the bracket is its own";
}

TEST_F(GiveMnemonics, AreForButtonsAndForLabelsOfSomething) {
    const QRadioButton radio;
    EXPECT_TRUE(takes_letter(radio));
    QLineEdit field;
    EXPECT_FALSE(takes_letter(field));
    QLabel label;
    EXPECT_FALSE(takes_letter(label));
    label.setBuddy(&field);
    EXPECT_TRUE(takes_letter(label));
}

TEST_F(GiveMnemonics, LevelledButtonsAreAsHighAsTheHighestThatIsShown) {
    QPushButton low("Low", &part_);
    QPushButton high("High", &part_);
    QFont font = high.font();
    font.setPointSize(3 * font.pointSize());
    high.setFont(font);
    const int lows = low.sizeHint().height();
    const int highs = high.sizeHint().height();
    ASSERT_GT(highs, lows);
    level_buttons(part_);
    EXPECT_EQ(low.minimumHeight(), highs);
    EXPECT_EQ(high.minimumHeight(), highs);
    high.hide();
    level_buttons(part_);
    EXPECT_EQ(low.minimumHeight(), lows);
    EXPECT_EQ(high.minimumHeight(), highs) << "nobody sees it";
}

} // namespace
} // namespace specialpages::qt::testing
