// The covers dialog on the sample printer: the real pane in the built bundle, its dialog opened by its
// button, and a user inside it.
#pragma once

#include "dialogs/SPAddCoversWndEMF.h"
#include "paper/covers_tags.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TextField.h"
#include "plugin/pane_fixture.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/pane_tags.h"
#include "records/record_builder.h"
#include "testing/ScriptedFace.h"
#include "testing/text_picture.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::test {

/// Every nib's outlets and dialogs are there. The pane's view stands in a window, as a host has it.
class CoversDialogTest : public PaneTest {
  protected:
    static constexpr std::int64_t kSize = 2;
    static constexpr std::int64_t kColor = 3;
    static constexpr std::int64_t kType = 4;
    static constexpr std::int64_t kInterposer = 5;

    explicit CoversDialogTest(const std::string& ppdName = "ppd/production.ppd") : PaneTest(ppdName) {}

    void open(const RecordList& records = {}) {
        pane = makePane();
        window.addSubview(std::shared_ptr<platform::View>(std::shared_ptr<void>(), pane->panelView()));
        platform::Application::shared().setMainWindow(&window);
        window.open();
        pane->restoreValuesAndReturnError(nullptr);
        pane->willShow();
        list = pane->getSPSummaryScrollViewCtrlPtr();
        const RowSet none;
        list->undoRequest(&records, &none);
        dialog = dynamic_cast<SPAddCoversWndEMF*>(pane->getSPAddCoversWndPtr());
        ASSERT_NE(dialog, nullptr);
    }

    /// Opens the dialog to add, and lets the user act in it.
    void add(const std::function<void(platform::Window&)>& user) {
        face.then(user);
        click(*pane->panelView(), specialPagesAddCoversButID);
    }
    /// Opens it to edit the first record.
    void edit(const std::function<void(platform::Window&)>& user) {
        auto* table = dynamic_cast<platform::TableView*>(pane->panelView()->viewWithTag(104));
        ASSERT_NE(table, nullptr);
        ASSERT_TRUE(table->userSelects({0}));
        face.then(user);
        click(*pane->panelView(), specialPagesSPEditButID);
    }

    static void click(platform::View& window, ControlTag tag) {
        auto* button = dynamic_cast<platform::Button*>(window.viewWithTag(tag));
        ASSERT_NE(button, nullptr) << tag;
        EXPECT_TRUE(button->click()) << tag;
    }
    static platform::PopUpButton& popup(platform::View& window, ControlTag tag) {
        return dynamic_cast<platform::PopUpButton&>(*window.viewWithTag(tag));
    }
    static bool pick(platform::View& window, ControlTag tag, std::initializer_list<std::int64_t> path) {
        return popup(window, tag).pick(std::vector<std::int64_t>(path));
    }
    static void option(platform::View& window, CoverOption option) {
        EXPECT_TRUE(pick(window, spCoversWndCoverOptionListID, {static_cast<std::int64_t>(option)}));
    }
    static void ok(platform::View& window) { click(window, spCoversWndOKButtonID); }
    static void cancel(platform::View& window) { click(window, spCoversWndCancelButtonID); }
    static std::string text(platform::View& window, ControlTag tag) {
        return dynamic_cast<platform::TextField&>(*window.viewWithTag(tag)).shownText();
    }
    /// Position of the choice in a sub-menu, by its keyword; -1 for none.
    static std::int64_t position(platform::View& window, ControlTag menu, std::int64_t part,
                                 const std::string& keyword) {
        const platform::Menu* items = popup(window, menu).menu().itemAtIndex(part)->submenu();
        for (std::int64_t i = 0; i < static_cast<std::int64_t>(items->numberOfItems()); ++i) {
            if (items->itemAtIndex(i)->representedObject() == keyword) {
                return i;
            }
        }
        return -1;
    }
    static bool pickPart(platform::View& window, ControlTag menu, std::int64_t part,
                         const std::string& keyword) {
        return pick(window, menu, {part, position(window, menu, part, keyword)});
    }
    const RecordList& records() const { return list->records(); }

    platform::ScriptedFace face;
    std::unique_ptr<SpecialPagesPDEnvbir15> pane;
    platform::Window window; ///< the host's; it lets go of the pane's view before the pane ends
    SPSummaryScrollViewCtrl* list = nullptr;
    SPAddCoversWndEMF* dialog = nullptr;
};

} // namespace specialpages::test
