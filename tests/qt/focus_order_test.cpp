// The order in which Tab goes through the pane and each dialog, kept as a golden file for each. Both faces
// have it: the nib's tab stops less the views that take no keyboard now, and the Tab key in the window.
#include "platform/toolkit/Nib.h"
#include "qt/DialogWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/qt_fixture.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <filesystem>
#include <fstream>
#include <string>

namespace specialpages::qt::testing {
namespace {

const std::filesystem::path kGolden = std::filesystem::path(paths::source_dir()) / "tests/qt/golden";

/// The nib's tab stops of one top-level view, from the source itself.
std::vector<std::string> tab_stops_of(const std::string& top) {
    pugi::xml_document document;
    document.load_file((paths::source_dir() + "/resources/nibs/NVSpecialPages_Default01.ui").c_str());
    const pugi::xml_node root = document.child("ui").child("widget");
    const auto named = [](const pugi::xml_node& in, const std::string& name) {
        return in.find_node([&](const pugi::xml_node& node) {
            return std::string(node.name()) == "widget" && node.attribute("name").value() == name;
        });
    };
    const pugi::xml_node view = named(root, top);
    std::vector<std::string> stops;
    for (const pugi::xml_node& stop : document.child("ui").child("tabstops").children("tabstop")) {
        if (named(view, stop.text().get())) {
            stops.emplace_back(stop.text().get());
        }
    }
    return stops;
}

class FocusOrder : public QtPaneTest {
  protected:
    /// Presses Tab until the focus is where it began, and answers where it was.
    static std::vector<std::string> tabbed(QWidget& window, const QWidget& within, QWidget& first) {
        std::vector<std::string> names;
        first.setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 100; ++i) {
            const QWidget* const at = window.focusWidget();
            if (at == nullptr || (i > 0 && at == &first)) {
                break;
            }
            if (within.isAncestorOf(at)) {
                names.push_back(at->objectName().toStdString());
            }
            press_key(window, Qt::Key_Tab);
        }
        return names;
    }

    void compare(const std::string& top, const std::vector<std::string>& keyboard) {
        // Headless: the nib's order, of the views that take events now.
        std::vector<std::string> headless;
        for (const std::string& name : tab_stops_of(top)) {
            QWidget& stop = widget<QWidget>(name);
            if (stop.isEnabled() && stop.isVisible()) {
                headless.push_back(name);
            }
        }
        EXPECT_EQ(keyboard, headless) << top;
        std::string lines;
        for (const std::string& name : keyboard) {
            lines += name + "\n";
        }
        const std::filesystem::path found = std::filesystem::path(paths::binary_dir()) / (top + ".focus");
        std::ofstream(found) << lines;
        EXPECT_EQ(lines, host::testing::read_bytes(kGolden / (top + ".focus"))) << "found: " << found;
    }
};

TEST_F(FocusOrder, OfThePane) {
    open(host::read_settings_file(kHandbook));
    QtDriver(pane_->widget(), face_).run({R"({"do":"selectRows","tag":104,"rows":[4]})"});
    compare("SpecialPagesView", tabbed(*window_, pane_->widget(), widget<QWidget>("SPAddCoversButton")));
}

struct Window {
    const char* name;
    const char* first;
    std::vector<std::string> requests; ///< that open it and make its views usable
};

const std::vector<Window> kWindows{
    {"CoversWindowRef",
     "spCoversOptionsList",
     {R"({"do":"press","tag":100})", R"({"do":"choose","tag":201,"item":4})"}},
    {"InsertWindowRef", "spInstOptionList", {R"({"do":"press","tag":101})"}},
    {"spAddExceptionsWindow", "spExceptionsPageEdit", {R"({"do":"press","tag":102})"}},
    {"SPAdvSeleWndRef",
     "spAdvPaperSizeList",
     {R"({"do":"press","tag":101})", R"({"do":"choose","tag":3210,"item":6})"}},
    {"WarningWindowRef", "spWarningCancelButton", {R"({"do":"press","tag":107})"}},
};

TEST_F(FocusOrder, OfEveryDialog) {
    open(host::read_settings_file(kHandbook));
    for (const Window& window : kWindows) {
        std::vector<std::string> requests = window.requests;
        int runs = 0;
        bool seen = false;
        QtDriver driver(pane_->widget(), face_);
        driver.atEnd([&] {
            auto* const dialog = dynamic_cast<DialogWidget*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr) << window.name;
            ASSERT_EQ(dialog->objectName().toStdString(), window.name);
            seen = true;
            compare(window.name, tabbed(*dialog, *dialog, widget<QWidget>(window.first)));
        });
        driver.run(requests);
        EXPECT_TRUE(seen) << window.name << runs;
    }
}

TEST_F(FocusOrder, OfTheCustomSize) {
    open();
    const auto answers =
        drive({R"({"do":"press","tag":101})", R"({"do":"state"})", R"({"do":"press","tag":3215})"});
    const auto state = nlohmann::ordered_json::parse(answers.at(1)).at("result");
    // The custom size is the last of the sizes.
    const auto& items = state.at("views").at("3210").at("items").at(2).at("menu");
    std::size_t custom = items.size();
    for (std::size_t i = 0; i < items.size(); ++i) {
        custom = items[i].at("title") == "Custom…" ? i : custom;
    }
    ASSERT_LT(custom, items.size()) << items;
    QtDriver driver(pane_->widget(), face_);
    bool seen = false;
    driver.atEnd([&] {
        auto* const dialog = dynamic_cast<DialogWidget*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        ASSERT_EQ(dialog->objectName().toStdString(), "spCustomSizeWindow");
        seen = true;
        compare("spCustomSizeWindow",
                tabbed(*dialog, *dialog, widget<QWidget>("spCustomSizeWidthMMEditText")));
    });
    driver.run({R"({"do":"press","tag":101})",
                R"({"do":"choose","tag":3210,"menu":2,"item":)" + std::to_string(custom) + "}"});
    EXPECT_TRUE(seen);
}

} // namespace
} // namespace specialpages::qt::testing
