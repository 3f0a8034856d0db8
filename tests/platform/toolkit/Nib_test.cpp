#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/Nib.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>

namespace specialpages::platform {
namespace {

using testing::ElementsAre;

const std::filesystem::path kCorpus = std::filesystem::path(paths::source_dir()) / "fuzz/corpus/nib";

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// A nib with that XML inside its root widget, which begins on line 1.
std::string nib(const std::string& inside) {
    return "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"root\">" + inside + "</widget></ui>";
}

std::string widget(const std::string& type, const std::string& name, const std::string& inside = {}) {
    return "<widget class=\"" + type + "\" name=\"" + name + "\">" + inside + "</widget>";
}

std::string property(const std::string& name, const std::string& value) {
    return "<property name=\"" + name + "\" stdset=\"0\">" + value + "</property>";
}

std::string text_property(const std::string& name, const std::string& value) {
    return property(name, "<string notr=\"true\">" + value + "</string>");
}

NibElement parsed(const std::string& xml) {
    std::string error;
    auto root = parse_nib(xml, &error);
    EXPECT_TRUE(root.has_value()) << error;
    return root ? std::move(*root) : NibElement();
}

NibElement parsed_child(const std::string& inside) {
    NibElement root = parsed(nib(inside));
    EXPECT_EQ(root.children.size(), 1U);
    return root.children.empty() ? NibElement() : std::move(root.children.front());
}

std::string error_of(const std::string& xml) {
    std::string error = "no error";
    EXPECT_FALSE(parse_nib(xml, &error).has_value());
    EXPECT_FALSE(parse_nib(xml).has_value()) << "an error needs no place to go to";
    return error;
}

struct TestObject : NibObject {
    TestObject(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}
    ~TestObject() override { log_.push_back("end of " + name_); }
    std::string name_;
    std::vector<std::string>& log_;
};

/// Knows the outlets of `known` (empty: all) and makes objects of classes that begin with "SP".
struct Owner : NibOwner {
    bool connectOutlet(std::string_view outlet, View& view) override {
        if (!known.empty() && !known.contains(std::string(outlet))) {
            return false;
        }
        log.push_back("view " + std::string(outlet));
        views[std::string(outlet)] = &view;
        return true;
    }
    std::unique_ptr<NibObject> instantiate(std::string_view className) override {
        if (!className.starts_with("SP")) {
            return nullptr;
        }
        return std::make_unique<TestObject>(std::string(className), log);
    }
    bool connectObject(std::string_view outlet, NibObject& object) override {
        log.push_back("object " + std::string(outlet) + " " + dynamic_cast<TestObject&>(object).name_);
        return outlet != "unknown";
    }
    template <typename T>
    T& view(const std::string& name) {
        return dynamic_cast<T&>(*views.at(name));
    }

    std::set<std::string> known;
    std::map<std::string, View*> views;
    std::vector<std::string> log;
};

TEST(NibParser, MapsEachClassToItsKind) {
    const std::vector<std::pair<std::string, ViewKind>> classes{
        {"QWidget", ViewKind::view},
        {"QFrame", ViewKind::view},
        {"QGroupBox", ViewKind::view},
        {"QDialog", ViewKind::window},
        {"QPushButton", ViewKind::button},
        {"QToolButton", ViewKind::button},
        {"QRadioButton", ViewKind::radio},
        {"QComboBox", ViewKind::popup},
        {"QLineEdit", ViewKind::textField},
        {"QLabel", ViewKind::staticText},
        {"QPlainTextEdit", ViewKind::scrollText},
        {"QTextEdit", ViewKind::scrollText},
        {"QTextBrowser", ViewKind::scrollText},
        {"QTableWidget", ViewKind::table},
        {"QTableView", ViewKind::table},
    };
    for (const auto& [name, kind] : classes) {
        const NibElement element = parsed_child(widget(name, "it"));
        EXPECT_EQ(element.kind, kind) << name;
        EXPECT_EQ(element.className, name);
        EXPECT_EQ(element.name, "it");
    }
}

TEST(NibParser, AKindStandsInPlaceOfTheClass) {
    const std::vector<std::pair<std::string, ViewKind>> kinds{
        {"view", ViewKind::view},
        {"window", ViewKind::window},
        {"icon", ViewKind::icon},
        {"button", ViewKind::button},
        {"radio", ViewKind::radio},
        {"popup", ViewKind::popup},
        {"textField", ViewKind::textField},
        {"staticText", ViewKind::staticText},
        {"scrollText", ViewKind::scrollText},
        {"stepper", ViewKind::stepper},
        {"table", ViewKind::table},
    };
    for (const auto& [name, kind] : kinds) {
        EXPECT_EQ(parsed_child(widget("MySpinner", "it", text_property("kind", name))).kind, kind) << name;
    }
    EXPECT_EQ(parsed_child(widget("QLabel", "it", text_property("kind", "icon"))).kind, ViewKind::icon);
}

TEST(NibParser, GivesTheDefaultsOfAWidgetWithoutProperties) {
    const NibElement element = parsed_child("<widget class=\"QPushButton\"/>");
    EXPECT_EQ(element.name, "");
    EXPECT_EQ(element.tag, 0);
    EXPECT_EQ(element.text, "");
    EXPECT_EQ(element.role, "");
    EXPECT_TRUE(element.enabled);
    EXPECT_TRUE(element.visible);
    EXPECT_EQ(element.minimum, 0);
    EXPECT_EQ(element.maximum, 100);
    EXPECT_EQ(element.singleStep, 1);
    EXPECT_EQ(element.value, 0);
    EXPECT_TRUE(element.children.empty());
}

TEST(NibParser, ReadsEveryProperty) {
    const NibElement element = parsed_child(
        widget("QSpinBox", "step",
               text_property("kind", "stepper") + property("tag", "<number>-102</number>") +
                   text_property("title", "Title") + text_property("text", "a &amp; b &lt;&#228;&gt;") +
                   text_property("toolTip", "Tip") + text_property("object", "SPStep") +
                   text_property("objectOutlet", "stepCtrl") + property("enabled", "<bool>false</bool>") +
                   property("visible", "<bool>false</bool>") + property("minimum", "<number>-5</number>") +
                   property("maximum", "<number>2147483647</number>") +
                   property("singleStep", "<number>2</number>") + property("value", "<number>7</number>") +
                   property("geometry", "<rect><x>0</x></rect>")));
    EXPECT_EQ(element.tag, -102);
    EXPECT_EQ(element.title, "Title");
    EXPECT_EQ(element.text, "a & b <\u00E4>");
    EXPECT_EQ(element.toolTip, "Tip");
    EXPECT_EQ(element.object, "SPStep");
    EXPECT_EQ(element.objectOutlet, "stepCtrl");
    EXPECT_FALSE(element.enabled);
    EXPECT_FALSE(element.visible);
    EXPECT_EQ(element.minimum, -5);
    EXPECT_EQ(element.maximum, 2147483647);
    EXPECT_EQ(element.singleStep, 2);
    EXPECT_EQ(element.value, 7);
}

TEST(NibParser, KeepsTheWholeTextOfAProperty) {
    const auto text = [](const std::string& inside) {
        return parsed_child(widget("QLabel", "it", text_property("text", inside))).text;
    };
    EXPECT_EQ(text(""), "");
    EXPECT_EQ(text("  "), "  ");
    EXPECT_EQ(text(" a "), " a ");
    EXPECT_EQ(text("a<!-- not this -->b"), "ab");
    EXPECT_EQ(text("a<![CDATA[<b>]]>"), "a<b>");
    EXPECT_EQ(text("one\ntwo"), "one\ntwo");
}

TEST(NibParser, AWindowTakesItsTitleFromTheDesigner) {
    const NibElement dialog = parsed_child(
        widget("QDialog", "covers", "<property name=\"windowTitle\"><string>Covers</string></property>"));
    EXPECT_EQ(dialog.title, "Covers");
}

TEST(NibParser, ReadsItemsOfAPopUp) {
    const NibElement popup = parsed_child(widget(
        "QComboBox", "it",
        "<item><property name=\"text\"><string>One</string></property></item><item/>"
        "<item><property name=\"icon\"/><property name=\"text\"><string>Three</string></property></item>"));
    EXPECT_THAT(popup.items, ElementsAre("One", "", "Three"));
}

TEST(NibParser, ReadsColumnsOfATable) {
    const std::string columns = "<column><property name=\"text\"><string>Page</string></property></column>"
                                "<column><property name=\"text\"><string>Kind</string></property></column>";
    const std::string identifiers =
        property("columnIdentifiers",
                 "<stringlist notr=\"true\"><string>page</string><string>kind</string></stringlist>");
    const NibElement table = parsed_child(widget("QTableWidget", "it", identifiers + columns));
    EXPECT_THAT(table.columnIdentifiers, ElementsAre("page", "kind"));
    EXPECT_THAT(table.columnTitles, ElementsAre("Page", "Kind"));
    const NibElement view = parsed_child(widget("QTableView", "it", identifiers));
    EXPECT_THAT(view.columnIdentifiers, ElementsAre("page", "kind"));
    EXPECT_TRUE(view.columnTitles.empty());
    const NibElement titled = parsed_child(widget("QTableWidget", "it", columns));
    EXPECT_TRUE(titled.columnIdentifiers.empty());
}

TEST(NibParser, LooksThroughLayoutsAndPastSpacers) {
    const NibElement root =
        parsed(nib("<layout class=\"QVBoxLayout\"><item>" + widget("QLabel", "a") +
                   "</item><item><layout class=\"QHBoxLayout\"><item><spacer/></item><item>" +
                   widget("QLabel", "b") + "</item></layout></item><item row=\"1\">" +
                   widget("QFrame", "c", widget("QLabel", "d")) + "</item></layout>"));
    ASSERT_EQ(root.children.size(), 3U);
    EXPECT_EQ(root.children[0].name, "a");
    EXPECT_EQ(root.children[1].name, "b");
    EXPECT_EQ(root.children[2].name, "c");
    ASSERT_EQ(root.children[2].children.size(), 1U);
    EXPECT_EQ(root.children[2].children[0].name, "d");
}

TEST(NibParser, ReadsAFileOfTheDesigner) {
    const NibElement root = parsed(contents(kCorpus / "designer.ui"));
    EXPECT_EQ(root.name, "SpecialPages");
    ASSERT_EQ(root.children.size(), 2U);
    const NibElement& pane = root.children[0];
    EXPECT_EQ(pane.name, "paneView");
    ASSERT_EQ(pane.children.size(), 3U);
    EXPECT_EQ(pane.children[0].name, "summaryTable");
    EXPECT_THAT(pane.children[0].columnIdentifiers, ElementsAre("page", "paper"));
    EXPECT_EQ(pane.children[1].tag, 101);
    EXPECT_EQ(pane.children[2].kind, ViewKind::icon);
    const NibElement& dialog = root.children[1];
    EXPECT_EQ(dialog.kind, ViewKind::window);
    EXPECT_EQ(dialog.title, "Covers");
    EXPECT_EQ(dialog.object, "SPAddCoversWndEMF");
    ASSERT_EQ(dialog.children.size(), 6U);
    EXPECT_THAT(dialog.children[0].items, ElementsAre("No covers", "Front only"));
    EXPECT_EQ(dialog.children[2].kind, ViewKind::stepper);
    EXPECT_EQ(dialog.children[2].maximum, 250);
    EXPECT_EQ(dialog.children[4].role, "cancel");
    EXPECT_EQ(dialog.children[5].role, "default");
}

TEST(NibParser, NamesUnknownClassesAndKindsWithTheirPlace) {
    EXPECT_EQ(error_of("<ui>\n<widget class=\"QWidget\" name=\"root\">\n" + widget("QDial", "it") +
                       "</widget></ui>"),
              "line 3: root/it: unknown class \"QDial\"");
    EXPECT_EQ(error_of("<ui>\n<widget class=\"QWidget\" name=\"root\"><widget class=\"QFrame\">\n" +
                       widget("QLabel", "it", "\n" + text_property("kind", "label")) +
                       "</widget></widget></ui>"),
              "line 4: root/QFrame/it: unknown kind \"label\"");
    EXPECT_EQ(error_of(nib("<widget/>")), "line 1: root/: unknown class \"\"");
}

TEST(NibParser, NamesValuesOfTheWrongType) {
    const auto error = [](const std::string& name, const std::string& value) {
        return error_of(nib(widget("QLabel", "it", property(name, value))));
    };
    const std::string place = "line 1: root/it: ";
    EXPECT_EQ(error("tag", "<string>7</string>"), place + "property \"tag\" needs a <number> of 32 bits");
    for (const char* number : {"", "x", "1x", " 1", "+1", "1.5", "2147483648", "-2147483649"}) {
        EXPECT_EQ(error("tag", "<number>" + std::string(number) + "</number>"),
                  place + "property \"tag\" needs a <number> of 32 bits")
            << number;
    }
    EXPECT_EQ(error("enabled", "<bool>1</bool>"), place + "property \"enabled\" needs a <bool>");
    EXPECT_EQ(error("visible", ""), place + "property \"visible\" needs a <bool>");
    EXPECT_EQ(error("text", "<number>1</number>"), place + "property \"text\" needs a <string>");
    EXPECT_EQ(error("kind", "<number>1</number>"), place + "property \"kind\" needs a <string>");
    EXPECT_EQ(error("columnIdentifiers", "<string>a</string>"),
              place + "property \"columnIdentifiers\" needs a <stringlist>");
    EXPECT_EQ(error_of(nib(widget("QComboBox", "it", "<item><property name=\"text\"/></item>"))),
              place + "property \"text\" needs a <string>");
}

TEST(NibParser, RefusesWidgetsThatDoNotFitTogether) {
    EXPECT_EQ(error_of("<ui>" + widget("QDialog", "root") + "</ui>"),
              "line 1: root: the root stands for the nib and must be a view");
    EXPECT_EQ(error_of(nib(widget("QFrame", "box", widget("QDialog", "it")))),
              "line 1: root/box/it: a window must be a child of the root");
    EXPECT_EQ(
        error_of(nib(widget("QDialog", "w", widget("QPushButton", "it", text_property("role", "help"))))),
        "line 1: root/w/it: unknown role \"help\"");
    EXPECT_EQ(error_of(nib(widget("QPushButton", "it", text_property("role", "cancel")))),
              "line 1: root/it: a role needs a button in a window");
    EXPECT_EQ(error_of(nib(widget("QDialog", "w", widget("QLabel", "it", text_property("role", "cancel"))))),
              "line 1: root/w/it: a role needs a button in a window");
    EXPECT_EQ(error_of(nib(widget("QLabel", "it", text_property("object", "SPLabel")))),
              "line 1: root/it: object and objectOutlet need each other");
    EXPECT_EQ(error_of(nib(widget("QLabel", "it", text_property("objectOutlet", "label")))),
              "line 1: root/it: object and objectOutlet need each other");
    EXPECT_EQ(
        error_of(nib(widget("QTableWidget", "it",
                            property("columnIdentifiers", "<stringlist><string>a</string></stringlist>") +
                                "<column/><column/>"))),
        "line 1: root/it: 1 column identifiers for 2 columns");
}

TEST(NibParser, RefusesDocumentsThatAreNoNib) {
    EXPECT_EQ(error_of(""), "line 1: No document element found");
    EXPECT_EQ(error_of("text"), "line 1: No document element found");
    EXPECT_EQ(error_of("<!-- a -->\n<form/>"), "line 2: the document is \"form\", not \"ui\"");
    EXPECT_EQ(error_of("<ui>\n<class>x</class></ui>"), "line 1: no root widget");
    EXPECT_EQ(error_of("<ui>" + widget("QWidget", "a") + "\n" + widget("QWidget", "b") + "</ui>"),
              "line 2: a second root widget");
    EXPECT_EQ(error_of("<ui>\n\n<widget class=\"QWidget\">\n</ui>"), "line 4: Start-end tags mismatch");
    EXPECT_EQ(error_of("<ui><widget class=\"QWidget\"/>"), "line 1: Start-end tags mismatch");
}

TEST(NibParser, RefusesBytesThatAreNoText) {
    std::string xml = nib("\n\n?");
    xml[xml.find('?')] = '\0';
    EXPECT_EQ(error_of(xml), "line 3: a zero byte");
    EXPECT_EQ(error_of(nib(widget("QLabel", "\xC3\x28"))), "not UTF-8");
    EXPECT_EQ(parsed("\xEF\xBB\xBF" + nib("")).name, "root") << "a byte-order mark is passed over";
}

TEST(NibParser, ExpandsNoEntitiesOfADocumentType) {
    const NibElement label = parsed("<?xml version=\"1.0\"?><!DOCTYPE ui [<!ENTITY a \"aaaa\"><!ENTITY f "
                                    "SYSTEM \"file:///etc/passwd\">]>" +
                                    nib(widget("QLabel", "it", text_property("text", "&a;&f;"))))
                                 .children.at(0);
    EXPECT_EQ(label.text, "&a;&f;");
}

std::string nested(int depth) {
    std::string open;
    std::string close;
    for (int i = 0; i < depth; ++i) {
        open += "<widget class=\"QFrame\">";
        close += "</widget>";
    }
    return "<ui>" + open + close + "</ui>";
}

TEST(NibParser, BoundsTheNestingOfWidgets) {
    EXPECT_EQ(parsed(nested(kMaxNibDepth)).kind, ViewKind::view);
    EXPECT_THAT(error_of(nested(kMaxNibDepth + 1)), testing::EndsWith("nested deeper than 64"));
    EXPECT_THAT(error_of(nested(200000)), testing::EndsWith("nested deeper than 64"));
}

TEST(NibParser, BoundsTheNestingOfLayouts) {
    const auto layouts = [](int count) {
        std::string open;
        std::string close;
        for (int i = 0; i < count; ++i) {
            open += "<layout class=\"QVBoxLayout\"><item>";
            close += "</item></layout>";
        }
        return nib(open + close);
    };
    // The root is the first level.
    EXPECT_EQ(parsed(layouts(kMaxNibDepth - 1)).name, "root");
    EXPECT_EQ(error_of(layouts(kMaxNibDepth)), "line 1: root: nested deeper than 64");
    EXPECT_EQ(error_of(layouts(100000)), "line 1: root: nested deeper than 64");
}

TEST(NibParser, BoundsTheSize) {
    const std::string xml = nib("");
    EXPECT_EQ(parsed(xml + std::string(kMaxNibBytes - xml.size(), ' ')).name, "root");
    EXPECT_EQ(error_of(xml + std::string(kMaxNibBytes - xml.size() + 1, ' ')), "more than 8388608 bytes");
}

TEST(Nib, MakesTheViewsOfItsElements) {
    Owner owner;
    std::string error;
    const auto nib = Nib::instantiate(parsed(contents(kCorpus / "designer.ui")), owner, &error);
    ASSERT_NE(nib, nullptr) << error;
    ASSERT_EQ(nib->topLevelViews().size(), 2U);
    auto& dialog = owner.view<Window>("coversWindow");
    EXPECT_EQ(nib->topLevelViews()[1].get(), &dialog);
    EXPECT_EQ(dialog.title(), "Covers");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_FALSE(dialog.isHidden()) << "a window that is not visible is closed, not hidden";

    auto& popup = owner.view<PopUpButton>("optionPopUp");
    EXPECT_EQ(popup.numberOfItems(), 2);
    EXPECT_EQ(popup.titleOfSelectedItem(), "No covers");
    EXPECT_EQ(popup.window(), &dialog);
    auto& radio = owner.view<Button>("frontRadio");
    EXPECT_EQ(radio.kind(), ViewKind::radio);
    EXPECT_EQ(radio.title(), "Front");
    EXPECT_EQ(radio.intValue(), 1);
    auto& stepper = owner.view<Stepper>("countStepper");
    EXPECT_EQ(stepper.minValue(), 1.0);
    EXPECT_EQ(stepper.maxValue(), 250.0);
    EXPECT_EQ(stepper.increment(), 5);
    EXPECT_EQ(stepper.intValue(), 10);
    auto& field = owner.view<TextField>("countField");
    EXPECT_EQ(field.kind(), ViewKind::textField);
    EXPECT_EQ(field.stringValue(), "10");
    EXPECT_FALSE(field.isEnabled());
    EXPECT_EQ(dialog.cancelButton(), &owner.view<Button>("cancelButton"));
    EXPECT_EQ(dialog.defaultButton(), &owner.view<Button>("okButton"));

    View& pane = *nib->topLevelViews()[0];
    EXPECT_EQ(pane.name(), "paneView");
    EXPECT_EQ(pane.superview(), nullptr);
    EXPECT_EQ(pane.window(), nullptr);
    auto& table = owner.view<TableView>("summaryTable");
    EXPECT_EQ(table.superview(), &pane);
    EXPECT_EQ(table.tableColumns(), (std::vector<TableColumn>{{"page", "Page"}, {"paper", "Paper"}}));
    EXPECT_EQ(table.toolTip(), "Special pages of this job");
    EXPECT_EQ(owner.view<TextField>("versionText").stringValue(), "Ver.");
    EXPECT_TRUE(owner.view<TextField>("versionText").isHidden());
    EXPECT_EQ(pane.viewWithTag(101), owner.views.at("versionText"));
    EXPECT_EQ(owner.view<IconView>("coversIcon").kind(), ViewKind::icon);
}

TEST(Nib, ConnectsAllOutletsInOrderThenTheObjects) {
    Owner owner;
    const NibElement root = parsed(
        nib(widget("QFrame", "pane",
                   text_property("object", "SPPane") + text_property("objectOutlet", "paneCtrl") +
                       widget("QLabel", "label")) +
            widget("QFrame", "", widget("QLabel", "nameless")) +
            widget("QDialog", "window",
                   text_property("object", "SPWindow") + text_property("objectOutlet", "windowCtrl"))));
    auto nib = Nib::instantiate(root, owner);
    ASSERT_NE(nib, nullptr);
    EXPECT_THAT(owner.log, ElementsAre("view pane", "view label", "view nameless", "view window",
                                       "object paneCtrl SPPane", "object windowCtrl SPWindow"));
    owner.log.clear();
    nib.reset();
    EXPECT_THAT(owner.log, ElementsAre("end of SPPane", "end of SPWindow"));
}

TEST(Nib, NamesThatTheOwnerDoesNotKnowAreNoError) {
    Owner owner;
    owner.known = {"b"};
    const auto nib_ = Nib::instantiate(parsed(nib(widget("QLabel", "a") + widget("QLabel", "b"))), owner);
    ASSERT_NE(nib_, nullptr);
    EXPECT_EQ(nib_->topLevelViews().size(), 2U);
    EXPECT_THAT(owner.log, ElementsAre("view b"));
}

TEST(Nib, AnEmptyNibHasNoViews) {
    Owner owner;
    const auto empty = Nib::instantiate(parsed(nib("")), owner);
    ASSERT_NE(empty, nullptr);
    EXPECT_TRUE(empty->topLevelViews().empty());
    EXPECT_TRUE(owner.log.empty()) << "the root is no outlet";
}

TEST(Nib, AnObjectThatCannotBeMadeOrConnectedIsAnError) {
    const auto error = [](const std::string& type, const std::string& outlet) {
        Owner owner;
        std::string why;
        const NibElement root = parsed(nib(
            widget("QLabel", "it", text_property("object", type) + text_property("objectOutlet", outlet))));
        EXPECT_EQ(Nib::instantiate(root, owner, &why), nullptr);
        EXPECT_EQ(Nib::instantiate(root, owner), nullptr);
        return why;
    };
    EXPECT_EQ(error("Foreign", "ctrl"), "\"it\": no object of class \"Foreign\"");
    EXPECT_EQ(error("SPLabel", "unknown"),
              "\"it\": no outlet \"unknown\" for an object of class \"SPLabel\"");
}

TEST(Nib, ASecondCancelButtonOfAWindowIsAnError) {
    const std::string cancel = text_property("role", "cancel");
    const std::string one = widget("QPushButton", "a", cancel);
    const std::string other = widget("QPushButton", "b", cancel);
    Owner owner;
    std::string error;
    EXPECT_EQ(Nib::instantiate(parsed(nib(widget("QDialog", "w", one + other))), owner, &error), nullptr);
    EXPECT_EQ(error, "\"b\" is a second cancel button of its window");
    EXPECT_NE(Nib::instantiate(parsed(nib(widget("QDialog", "v", one) + widget("QDialog", "w", other))),
                               owner, &error),
              nullptr);
}

TEST(Nib, MakesATableFromIdentifiersOrTitlesAlone) {
    Owner owner;
    const auto tables = Nib::instantiate(
        parsed(nib(widget("QTableView", "a",
                          property("columnIdentifiers", "<stringlist><string>page</string></stringlist>")) +
                   widget("QTableWidget", "b",
                          "<column><property name=\"text\"><string>Page</string></property></column>"))),
        owner);
    ASSERT_NE(tables, nullptr);
    EXPECT_EQ(owner.view<TableView>("a").tableColumns(), (std::vector<TableColumn>{{"page", ""}}));
    EXPECT_EQ(owner.view<TableView>("b").tableColumns(), (std::vector<TableColumn>{{"", "Page"}}));
}

TEST(Nib, LoadsAFile) {
    Owner owner;
    std::string error;
    EXPECT_NE(Nib::loadNibFile(kCorpus / "designer.ui", owner, &error), nullptr) << error;
    EXPECT_TRUE(owner.views.contains("okButton"));
}

TEST(Nib, NamesTheFileThatCannotBeLoaded) {
    Owner owner;
    std::string error;
    EXPECT_EQ(Nib::loadNibFile("/nowhere/a.nib", owner, &error), nullptr);
    EXPECT_EQ(error, "cannot read /nowhere/a.nib: No such file or directory");
    EXPECT_EQ(Nib::loadNibFile(kCorpus, owner, &error), nullptr);
    EXPECT_EQ(error, "cannot read " + kCorpus.string() + ": Is a directory");
    const auto broken = kCorpus / "mismatch.ui";
    EXPECT_EQ(Nib::loadNibFile(broken, owner, &error), nullptr);
    EXPECT_EQ(error, broken.string() + ": line 3: Start-end tags mismatch");
    EXPECT_EQ(Nib::loadNibFile(broken, owner), nullptr);
}

TEST(Nib, BoundsTheSizeOfAFile) {
    const auto large = std::filesystem::path(testing::TempDir()) / "specialpages-large.nib";
    std::ofstream(large) << nib("");
    std::filesystem::resize_file(large, kMaxNibBytes * 4);
    Owner owner;
    std::string error;
    EXPECT_EQ(Nib::loadNibFile(large, owner, &error), nullptr);
    EXPECT_EQ(error, "cannot read " + large.string() + ": larger than 8388608 bytes");
    std::filesystem::remove(large);
}

} // namespace
} // namespace specialpages::platform
