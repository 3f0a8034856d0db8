// The question before a deletion, as pictures that were looked at, and what its answers do to the list.
#include "dialogs/SPWarningWndEMF.h"
#include "dialogs/inserts_fixture.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;

class WarningPictures : public InsertsDialogTest {
  protected:
    static void looksLike(Window& warning, const std::string& name) {
        expect_picture(text_picture(warning), "dialogs/golden/warning-" + name + ".txt");
    }
    void openWithTwo() { open({insert_after(3), insert_after(8)}); }
    Brief pagesLeft() const {
        Brief left;
        for (const SpecialPageRecord& record : records()) {
            left.push_back(record.text(RecordKey::page));
        }
        return left;
    }
    void deletes(ControlTag button, const User& user) {
        face.then(user);
        click(*pane->panelView(), button);
    }
};

TEST_F(WarningPictures, AskAboutTheSelectedPages) {
    openWithTwo();
    select({0});
    deletes(specialPagesSPDeleteButID, [](Window& warning) {
        looksLike(warning, "selected");
        click(warning, spWarningWndOKButID);
    });
    EXPECT_EQ(pagesLeft(), Brief{"8"});
}

TEST_F(WarningPictures, AskAboutAllPages) {
    openWithTwo();
    deletes(specialPagesSPDeleteAllButID, [](Window& warning) {
        looksLike(warning, "all");
        click(warning, spWarningWndOKButID);
    });
    EXPECT_EQ(pagesLeft(), Brief{});
}

TEST_F(WarningPictures, AskAboutTheSelectedPagesAgainAfterAllPages) {
    openWithTwo();
    deletes(specialPagesSPDeleteAllButID, [](Window& warning) { click(warning, spWarningWndCancelButID); });
    select({1});
    deletes(specialPagesSPDeleteButID, [](Window& warning) {
        looksLike(warning, "selected");
        EXPECT_TRUE(warning.performCancel());
    });
    EXPECT_EQ(pagesLeft(), (Brief{"3", "8"}));
    EXPECT_FALSE(canPress(specialPagesSPUndoButID)) << "nothing was changed";
}

TEST_F(WarningPictures, AnEarlierYesCountsForItsOwnQuestionOnly) {
    openWithTwo();
    select({0});
    deletes(specialPagesSPDeleteButID, [](Window& warning) { click(warning, spWarningWndOKButID); });
    select({0});
    deletes(specialPagesSPDeleteButID, [](Window& warning) { EXPECT_TRUE(warning.performCancel()); });
    EXPECT_EQ(pagesLeft(), Brief{"8"});
    deletes(specialPagesSPDeleteAllButID, [](Window&) { /* given up: the window's Cancel */ });
    EXPECT_EQ(pagesLeft(), Brief{"8"});
}

} // namespace
} // namespace specialpages::test
