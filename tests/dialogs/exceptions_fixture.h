// The exceptions dialog on the sample printer: the real pane in the built bundle, its dialog opened by the
// pane's buttons, and a user inside it.
#pragma once

#include "dialogs/SPAddExceptTextEditCtrlEMF.h"
#include "dialogs/SPAddExceptionWndEMF.h"
#include "dialogs/exceptions_tags.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "plugin/pane_fixture.h"
#include "records/list_buttons.h"
#include "records/pane_tags.h"
#include "testing/ScriptedFace.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace specialpages::test {

using Texts = std::vector<std::string>;

/// Positions in the paper menu, and in the two-side list.
inline constexpr std::int64_t kSizeMenu = 2;
inline constexpr std::int64_t kColorMenu = 3;
inline constexpr std::int64_t kTypeMenu = 4;
inline constexpr std::int64_t kOneSidedItem = 1;
inline constexpr std::int64_t kLongEdgeItem = 2;
inline constexpr std::int64_t kShortEdgeItem = 3;
/// The sample printer's choices, by their place in its PPD.
inline constexpr std::int32_t kA4 = 2;
inline constexpr std::int32_t kLetter = 11;
inline constexpr std::int32_t kCustom = 33;
inline constexpr std::int32_t kWhite = 0;
inline constexpr std::int32_t kBlue = 1;
inline constexpr std::int32_t kBuff = 2;
inline constexpr std::int32_t kPlain = 0;
inline constexpr std::int32_t kPlainOneSide = 1;
inline constexpr std::int32_t kFine = 4;

// Saved exceptions are: type, pages, size, type of paper, color, interposer, sides, width, length, unit.

/// A saved exception of A4, white, plain paper, one-sided.
inline std::string plain_exception(const std::string& pages) {
    return "2," + pages + ",2,0,0,false,1,210.0,297.0,1";
}
/// The same in that color.
inline std::string colored_exception(const std::string& pages, std::int32_t color) {
    return "2," + pages + ",2,0," + std::to_string(color) + ",false,1,210.0,297.0,1";
}
/// The same with that two-side value.
inline std::string sided_exception(const std::string& pages, std::int32_t sides) {
    return "2," + pages + ",2,0,0,false," + std::to_string(sides) + ",210.0,297.0,1";
}

/// The person at the dialog.
class User {
  public:
    explicit User(platform::Window& window) : window_(window) {}

    void press(ControlTag tag) {
        auto* button = dynamic_cast<platform::Button*>(window_.viewWithTag(tag));
        ASSERT_NE(button, nullptr) << tag;
        EXPECT_TRUE(button->click()) << tag;
    }
    void ok() { press(spExceptionWndOKBtnID); }
    void cancel() { press(spExceptionWndCancelBtnID); }
    void defaults() { press(spExceptionWndDefaultBtnID); }
    bool type(const std::string& pages) { return field().type(pages); }
    /// Picks an index of the PPD's choices in a sub-menu; -1 is "No Change".
    bool paper(std::int64_t menu, std::int32_t index) {
        return papers().pick(std::vector<std::int64_t>{menu, std::int64_t{index} + 1});
    }
    bool top(std::int64_t item) { return papers().pick(std::vector<std::int64_t>{item}); }
    bool sides(std::int64_t item) { return sidesList().pick(std::vector<std::int64_t>{item}); }
    bool isOpen() const { return window_.isOpen(); }
    std::string title() const { return window_.title(); }

    platform::TextField& field() { return view<platform::TextField>(spExceptionWndPageETxtCtrlID); }
    platform::PopUpButton& papers() { return view<platform::PopUpButton>(spExceptionWndPaperPopupBtnID); }
    platform::PopUpButton& sidesList() { return view<platform::PopUpButton>(spExceptionWnd2SidePopupBtnID); }
    std::string text(ControlTag tag) { return view<platform::TextField>(tag).shownText(); }
    std::string paperText() { return text(spExceptionWndPageInfoViewID); }
    platform::MenuItem& item(std::int64_t top) { return *papers().menu().itemAtIndex(top); }
    platform::MenuItem& item(std::int64_t top, std::int32_t index) {
        return *item(top).submenu()->itemAtIndex(std::int64_t{index} + 1);
    }
    platform::MenuItem& side(std::int64_t item) { return *sidesList().menu().itemAtIndex(item); }
    platform::Window& window() { return window_; }

  private:
    template <typename Kind>
    Kind& view(ControlTag tag) {
        return dynamic_cast<Kind&>(*window_.viewWithTag(tag));
    }
    platform::Window& window_;
};

class ExceptionsDialogTest : public PaneTest {
  public:
    ~ExceptionsDialogTest() override { platform::Application::shared().setMainWindow(nullptr); }

  protected:
    explicit ExceptionsDialogTest(const std::string& ppdName = "ppd/production.ppd") : PaneTest(ppdName) {}

    /// The pane with the records of a saved job.
    void open(const Texts& saved = {}) {
        setRecords(saved);
        pane = makePane();
        window.addSubview(std::shared_ptr<platform::View>(std::shared_ptr<void>(), pane->panelView()));
        platform::Application::shared().setMainWindow(&window);
        window.open();
        ASSERT_TRUE(pane->restoreValuesAndReturnError(nullptr));
        pane->willShow();
        list = pane->getSPSummaryScrollViewCtrlPtr();
        dialog = dynamic_cast<SPAddExceptionWndEMF*>(pane->getSPAddExceptionsWndPtr());
        ASSERT_NE(dialog, nullptr);
    }

    void press(ControlTag tag) {
        auto* button = dynamic_cast<platform::Button*>(pane->panelView()->viewWithTag(tag));
        ASSERT_NE(button, nullptr) << tag;
        EXPECT_TRUE(button->click()) << tag;
    }
    platform::TableView& table() {
        return dynamic_cast<platform::TableView&>(
            *pane->panelView()->viewWithTag(specialPagesSPSummaryViewID));
    }
    void select(const platform::RowSet& rows) { EXPECT_TRUE(table().userSelects(rows)); }

    using Acts = std::function<void(User&)>;
    /// What the user does in the next run of the dialog.
    void then(const Acts& user) {
        face.then([user](platform::Window& opened) {
            User person(opened);
            user(person);
        });
    }
    void add(const Acts& user) {
        then(user);
        press(specialPagesAddExceptionsButID);
    }
    void edit(const platform::RowSet& rows, const Acts& user) {
        select(rows);
        then(user);
        press(specialPagesSPEditButID);
    }
    /// Adds with the defaults of the dialog.
    void addPages(const std::string& pages) {
        add([&](User& user) {
            EXPECT_TRUE(user.type(pages));
            user.ok();
            EXPECT_FALSE(user.isOpen());
        });
    }

    /// The exceptions as "pages size/color/type sides", in the list's order; other records by their type.
    Texts exceptions() const {
        Texts texts;
        for (const SpecialPageRecord& record : list->records()) {
            if (record.is(RecordType::exception)) {
                texts.push_back(record.text(RecordKey::page) + " " + record.text(RecordKey::pagesize) + "/" +
                                record.text(RecordKey::pagecolor) + "/" + record.text(RecordKey::pagetype) +
                                " " + record.text(RecordKey::twoSidePrint));
            } else {
                texts.push_back("type " + record.text(RecordKey::type));
            }
        }
        return texts;
    }
    /// Their pages alone.
    Texts pages() const {
        Texts texts;
        for (const SpecialPageRecord& record : list->records()) {
            texts.push_back(record.text(RecordKey::page));
        }
        return texts;
    }
    Texts alerts() const {
        Texts texts;
        for (const platform::Alert& alert : face.alerts()) {
            texts.push_back(alert.informativeText);
        }
        return texts;
    }
    static std::string words(const std::string& key) {
        return built_bundle()->localizedStringForKey(key, "(missing)", "");
    }

    platform::ScriptedFace face;
    std::unique_ptr<SpecialPagesPDEnvbir15> pane;
    platform::Window window; ///< the host's; it lets go of the pane's view before the pane ends
    SPSummaryScrollViewCtrl* list = nullptr;
    SPAddExceptionWndEMF* dialog = nullptr;
};

} // namespace specialpages::test
