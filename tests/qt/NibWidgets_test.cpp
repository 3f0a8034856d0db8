#include "host/host_fixtures.h"
#include "platform/toolkit/Button.h"
#include "qt/Mirror.h"
#include "qt/NibWidgets.h"
#include "qt/PopUpWidget.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDialog>
#include <QWidget>
#include <string>
#include <vector>

namespace specialpages::qt::testing {
namespace {

using host::testing::error_of;

const std::string kPaneNib = paths::source_dir() + "/resources/nibs/NVSpecialPages_Default01.ui";

class NibWidgetsTest : public ::testing::Test {
  protected:
    std::filesystem::path nib(const std::string& content, const std::string& after = "") {
        return folder_.write("a.nib", "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"root\">" +
                                          content + "</widget>" + after + "</ui>");
    }
    std::string refusal(const std::filesystem::path& file) {
        QWidget parent;
        return error_of([&] { NibWidgets(platform::read_nib(file), parent); }).detail();
    }

    host::testing::TemporaryFolder folder_;
};

TEST_F(NibWidgetsTest, EveryNamedElementOfThePanesNibHasItsWidget) {
    QWidget parent;
    const NibWidgets widgets(platform::read_nib(kPaneNib), parent);
    EXPECT_NE(widgets.find("SPAddCoversButton"), nullptr);
    EXPECT_NE(dynamic_cast<PopUpWidget*>(widgets.find("spCoversOptionsList")), nullptr);
    EXPECT_TRUE(widgets.find("CoversWindowRef")->isWindow());
    EXPECT_EQ(widgets.find("nobody"), nullptr);
    EXPECT_GT(widgets.tabStops().size(), 50U);
}

TEST_F(NibWidgetsTest, AWindowIsMadeWhenItIsAskedFor) {
    QWidget parent;
    const NibWidgets widgets(platform::read_nib(kPaneNib), parent);
    const auto windows = [&] {
        std::vector<std::string> names;
        for (const auto* const dialog : widgets.root().findChildren<QDialog*>()) {
            names.push_back(dialog->objectName().toStdString());
        }
        return names;
    };
    EXPECT_EQ(windows(), std::vector<std::string>());
    EXPECT_TRUE(widgets.namedAfter("spInstPaperViewTitle").empty());
    QWidget* const text = widgets.find("spInstPaperView");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(windows(), std::vector<std::string>{"InsertWindowRef"});
    EXPECT_EQ(widgets.namedAfter("spInstPaperViewTitle"), std::vector<QWidget*>{text});
    EXPECT_EQ(text->window(), widgets.find("InsertWindowRef"));
    EXPECT_EQ(widgets.find("spInstPaperView"), text);
    EXPECT_EQ(windows().size(), 1U);
}

TEST_F(NibWidgetsTest, AWindowsWrongWidgetIsRefusedBeforeTheWindowIsMade) {
    const auto in_window = [](const std::string& content) {
        return R"(<widget class="QDialog" name="window">)" + content + "</widget>";
    };
    EXPECT_EQ(refusal(nib(in_window(R"(<widget class="Unknown" name="odd"><property name="kind" stdset="0">
        <string>button</string></property></widget>)"))),
              "expected a widget \"odd\" that can show its view, found none");
    EXPECT_EQ(refusal(nib(in_window(R"(<widget class="QFrame" name="odd"><property name="kind" stdset="0">
        <string>radio</string></property></widget>)"))),
              "expected a widget \"odd\" that can show its view, found QFrame");
    EXPECT_EQ(refusal(nib(in_window(R"(<widget class="QPlainTextEdit" name="text"><property name="nameFrom"
        stdset="0"><string>gone</string></property></widget>)"))),
              "expected a widget \"gone\", after which others are named");
}

TEST_F(NibWidgetsTest, WindowsWithoutANameAreMadeAtOnce) {
    QWidget parent;
    const NibWidgets widgets(
        platform::read_nib(
            nib(R"(<widget class="QDialog" name=""><widget class="QLineEdit" name="one"/></widget>
            <widget class="QDialog" name=""><widget class="QLineEdit" name="two"/></widget>)")),
        parent);
    EXPECT_EQ(widgets.root().findChildren<QDialog*>().size(), 2);
    EXPECT_NE(widgets.find("one"), nullptr);
    EXPECT_NE(widgets.find("two"), nullptr);
}

TEST_F(NibWidgetsTest, ThePathsOfQtsPluginsAreAsBefore) {
    const QStringList before = QCoreApplication::libraryPaths();
    QWidget parent;
    const NibWidgets widgets(platform::read_nib(nib("")), parent);
    EXPECT_EQ(QCoreApplication::libraryPaths(), before);
}

TEST_F(NibWidgetsTest, AWidgetThatQtDoesNotKnowIsNotDroppedInSilence) {
    EXPECT_EQ(refusal(nib(R"(<widget class="Unknown" name="odd"><property name="kind" stdset="0">
        <string>button</string></property></widget>)")),
              "expected a widget \"odd\" that can show its view, found none");
}

TEST_F(NibWidgetsTest, AWidgetOfAnotherKindThanItsViewIsRefused) {
    EXPECT_EQ(refusal(nib(R"(<widget class="QFrame" name="odd"><property name="kind" stdset="0">
        <string>button</string></property></widget>)")),
              "expected a widget \"odd\" that can show its view, found QFrame");
}

TEST_F(NibWidgetsTest, ATabStopThatIsNotThereIsRefused) {
    EXPECT_EQ(refusal(nib("", "<tabstops><tabstop>gone</tabstop></tabstops>")),
              "expected a widget \"gone\" for the tab stop of that name");
}

TEST_F(NibWidgetsTest, ANameThatIsTakenFromNoLabelIsRefused) {
    EXPECT_EQ(refusal(nib(R"(<widget class="QPlainTextEdit" name="text"><property name="nameFrom" stdset="0">
        <string>gone</string></property></widget>)")),
              "expected a widget \"gone\", after which others are named");
}

TEST_F(NibWidgetsTest, AViewWithoutAWidgetIsRefused) {
    QWidget parent;
    const NibWidgets widgets(platform::read_nib(nib("")), parent);
    Mirror mirror(widgets);
    platform::Button view;
    view.setName("nobody");
    EXPECT_EQ(error_of([&] { mirror.bind(view); }).detail(), "expected a widget for the view \"nobody\"");
}

} // namespace
} // namespace specialpages::qt::testing
