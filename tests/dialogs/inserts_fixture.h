// The inserts dialog on the sample printer: the real pane in the built bundle, its dialog opened by its
// buttons, and a user inside it.
#pragma once

#include "dialogs/SPAddInsertQuantityLArrEMF.h"
#include "dialogs/SPAddInsertQuantityTextEditEMF.h"
#include "dialogs/SPAddInsertWndEMF.h"
#include "dialogs/SPInsertOptionListEMF.h"
#include "dialogs/SPInsertPageTextEditEMF.h"
#include "dialogs/inserts_tags.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "plugin/pane_fixture.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/pane_tags.h"
#include "records/record_builder.h"
#include "testing/ScriptedFace.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::test {

using Brief = std::vector<std::string>;

/// Page, option, quantity; size, color, type, interposer; width, length, unit; mark.
inline std::string brief(const SpecialPageRecord& record) {
    const auto joined = [&record](std::initializer_list<RecordKey> keys) {
        std::string text;
        for (const RecordKey key : keys) {
            text += (text.empty() ? "" : ",") + record.text(key);
        }
        return text;
    };
    return joined({RecordKey::page, RecordKey::insertoption, RecordKey::insertquantity}) + " " +
           joined({RecordKey::pagesize, RecordKey::pagecolor, RecordKey::pagetype, RecordKey::interposer}) +
           " " + joined({RecordKey::width, RecordKey::length, RecordKey::longmeasure}) + " " +
           joined({RecordKey::selected});
}
inline Brief brief(const RecordList& records) {
    Brief all;
    for (const SpecialPageRecord& record : records) {
        all.push_back(brief(record));
    }
    return all;
}
/// What a new insert is besides its page, option and quantity: A4, White, Plain.
inline const std::string kDefaultPaper = " 2,0,0,false 210.0,297.0,1 false";

/// The pane's view stands in a window, as a host has it.
class InsertsDialogTest : public PaneTest {
  protected:
    using User = std::function<void(platform::Window&)>;
    static constexpr std::int64_t kSize = 2;
    static constexpr std::int64_t kColor = 3;
    static constexpr std::int64_t kType = 4;
    static constexpr std::int64_t kInterposer = 5;

    explicit InsertsDialogTest(const std::string& ppdName = "ppd/production.ppd") : PaneTest(ppdName) {}

    void open(const RecordList& records = {}) {
        pane = makePane();
        window.addSubview(std::shared_ptr<platform::View>(std::shared_ptr<void>(), pane->panelView()));
        platform::Application::shared().setMainWindow(&window);
        window.open();
        pane->restoreValuesAndReturnError(nullptr);
        pane->willShow();
        list = pane->getSPSummaryScrollViewCtrlPtr();
        hold(records);
        dialog = dynamic_cast<SPAddInsertWndEMF*>(pane->getSPAddInsertWndPtr());
        ASSERT_NE(dialog, nullptr);
    }
    /// The list holds these records and nothing is selected.
    void hold(const RecordList& records) {
        const RowSet none;
        list->undoRequest(&records, &none);
    }
    void select(const platform::RowSet& rows) {
        auto* table =
            dynamic_cast<platform::TableView*>(pane->panelView()->viewWithTag(specialPagesSPSummaryViewID));
        ASSERT_NE(table, nullptr);
        ASSERT_TRUE(table->userSelects(rows));
    }

    /// Opens the dialog to add, and lets the user act in it.
    void add(const User& user) {
        face.then(user);
        click(*pane->panelView(), specialPagesAddInsertsButID);
    }
    /// Opens it to edit the records in those rows.
    void edit(const platform::RowSet& rows, const User& user) {
        select(rows);
        face.then(user);
        click(*pane->panelView(), specialPagesSPEditButID);
    }
    void undo() { click(*pane->panelView(), specialPagesSPUndoButID); }
    bool canPress(ControlTag tag) { return pane->panelView()->viewWithTag(tag)->isEnabled(); }

    static void click(platform::View& in, ControlTag tag) {
        auto* button = dynamic_cast<platform::Button*>(in.viewWithTag(tag));
        ASSERT_NE(button, nullptr) << tag;
        EXPECT_TRUE(button->click()) << tag;
    }
    static platform::PopUpButton& popup(platform::View& in, ControlTag tag) {
        return dynamic_cast<platform::PopUpButton&>(*in.viewWithTag(tag));
    }
    static platform::TextField& field(platform::View& in, ControlTag tag) {
        return dynamic_cast<platform::TextField&>(*in.viewWithTag(tag));
    }
    static platform::TextField& pages(platform::View& in) { return field(in, SPInstWndPageNumTagID); }
    static platform::TextField& quantity(platform::View& in) { return field(in, SPInstWndQuantityEditTagID); }
    static platform::Stepper& stepper(platform::View& in) {
        return dynamic_cast<platform::Stepper&>(*in.viewWithTag(SPInstWndQuantityLArrTagID));
    }
    static platform::PopUpButton& options(platform::View& in) { return popup(in, SPInstWndInstOptionTagID); }
    static void chooseBeforePageOne(platform::View& in) {
        EXPECT_TRUE(options(in).pick(std::vector<std::int64_t>{1}));
    }
    static void chooseAfter(platform::View& in) {
        EXPECT_TRUE(options(in).pick(std::vector<std::int64_t>{0}));
    }
    static void ok(platform::View& in) { click(in, SPInstWndOKBtnTagID); }
    static void cancel(platform::View& in) { click(in, SPInstWndCancelBtnTagID); }
    static void restore(platform::View& in) { click(in, SPInstWndDefaultBtnTagID); }
    /// Position of the choice in a sub-menu of the paper menu, by its keyword; -1 for none.
    static std::int64_t position(platform::View& in, std::int64_t part, const std::string& keyword) {
        const platform::Menu* items = popup(in, SPInstWndSelePaperTagID).menu().itemAtIndex(part)->submenu();
        for (std::int64_t i = 0; i < static_cast<std::int64_t>(items->numberOfItems()); ++i) {
            if (items->itemAtIndex(i)->representedObject() == keyword) {
                return i;
            }
        }
        return -1;
    }
    static bool pickPaper(platform::View& in, std::int64_t part, const std::string& keyword) {
        return popup(in, SPInstWndSelePaperTagID)
            .pick(std::vector<std::int64_t>{part, position(in, part, keyword)});
    }
    static const std::string& paperShown(platform::View& in) {
        return field(in, SPInstWndPaperViewTagID).shownText();
    }
    static std::string message(const char* key) {
        return built_bundle()->localizedStringForKey(key, "(missing)", "");
    }
    /// The texts of all alerts so far.
    Brief warnings() const {
        Brief texts;
        for (const platform::Alert& alert : face.alerts()) {
            texts.push_back(alert.informativeText);
        }
        return texts;
    }
    const RecordList& records() const { return list->records(); }
    Brief briefRecords() const { return brief(list->records()); }

    platform::ScriptedFace face;
    std::unique_ptr<SpecialPagesPDEnvbir15> pane;
    platform::Window window; ///< the host's; it lets go of the pane's view before the pane ends
    SPSummaryScrollViewCtrl* list = nullptr;
    SPAddInsertWndEMF* dialog = nullptr;
};

/// Inserts after the pages 1 to `count`.
inline RecordList inserts_after_each(std::int32_t count) {
    RecordList records;
    for (std::int32_t page = 1; page <= count; ++page) {
        records.push_back(insert_after(page));
    }
    return records;
}

} // namespace specialpages::test
