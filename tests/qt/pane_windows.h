// Every window of the pane on the sample printer, and the requests that bring it to the front.
#pragma once

#include "qt/DialogWidget.h"
#include "qt/qt_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace specialpages::qt::testing {

struct PaneWindow {
    const char* word; ///< what tests and pictures call it
    const char* name; ///< the nib's
    std::vector<std::string> requests;
};

/// The pane's windows in every form that they have, for a list that is not empty.
inline const std::vector<PaneWindow>& pane_windows() {
    static const std::string kCovers = R"({"do":"press","tag":100})";
    static const std::string kInserts = R"({"do":"press","tag":101})";
    static const std::string kExceptions = R"({"do":"press","tag":102})";
    static const std::string kCustomSize = R"({"do":"choose","tag":3210,"menu":2,"item":34})";
    static const std::string kTabStock = R"({"do":"choose","tag":312,"menu":4,"item":37})";
    static const std::vector<PaneWindow> kWindows{
        {"covers", "CoversWindowRef", {kCovers, R"({"do":"choose","tag":201,"item":4})"}},
        {"inserts", "InsertWindowRef", {kInserts}},
        {"exceptions", "spAddExceptionsWindow", {kExceptions}},
        {"advanced", "SPAdvSeleWndRef", {kInserts, R"({"do":"choose","tag":3210,"item":6})"}},
        {"custom-size", "spCustomSizeWindow", {kInserts, kCustomSize}},
        {"custom-size-inches", "spCustomSizeWindow", {kInserts, kCustomSize, R"({"do":"press","tag":718})"}},
        {"tab-stock", "spTabStockWindow", {kExceptions, kTabStock, R"({"do":"choose","tag":513,"item":3})"}},
        {"tab-stock-inches",
         "spTabStockWindow",
         {kExceptions, kTabStock, R"({"do":"choose","tag":513,"item":3})", R"({"do":"press","tag":519})"}},
        {"tab-stock-sub",
         "spTabStockSubWindow",
         {kInserts, R"({"do":"choose","tag":3210,"menu":4,"item":37})"}},
        {"warning", "WarningWindowRef", {R"({"do":"press","tag":107})"}},
    };
    return kWindows;
}

class PaneWindowsTest : public QtPaneTest {
  protected:
    /// Brings the window to the front by a user's events, looks at it there, and cancels what is open.
    void inWindow(const PaneWindow& window, const std::function<void(DialogWidget& dialog)>& look) {
        bool seen = false;
        QtDriver driver(pane_->widget(), face_);
        driver.atEnd([&] {
            auto* const dialog = dynamic_cast<DialogWidget*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr) << window.word;
            ASSERT_EQ(dialog->objectName().toStdString(), window.name);
            seen = true;
            look(*dialog);
        });
        for (const std::string& answer : driver.run(window.requests)) {
            EXPECT_EQ(answer.rfind(R"({"ok":true)", 0), 0U) << window.word << ": " << answer;
        }
        EXPECT_TRUE(seen) << window.word;
    }
    const PaneWindow& windowOf(const std::string& word) {
        for (const PaneWindow& window : pane_windows()) {
            if (window.word == word) {
                return window;
            }
        }
        throw std::runtime_error("no such window: " + word);
    }
    void close() {
        pane_->widget().setParent(nullptr);
        window_.reset();
        pane_.reset();
    }
};

} // namespace specialpages::qt::testing
