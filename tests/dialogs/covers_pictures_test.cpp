// The covers dialog in its situations, as pictures that were looked at.
#include "dialogs/covers_fixture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;

class CoversPictures : public CoversDialogTest {
  protected:
    /// The job's records with both covers; the back one from the interposer when asked.
    static RecordList covers(const char* option, bool interposer) {
        const auto front = cover_front()
                               .with(RecordKey::coversoption, option)
                               .with(RecordKey::pagesize, "2")
                               .with(RecordKey::pagecolor, "1")
                               .with(RecordKey::pagetype, "8")
                               .with(RecordKey::printingoptions, interposer ? "0" : "1")
                               .with(RecordKey::interposer, interposer ? "true" : "false");
        const auto back = front.with(RecordKey::page, "1").with(RecordKey::pagecolor, "2");
        const std::string text = option;
        return text == "1" ? RecordList{front} : text == "2" ? RecordList{back} : RecordList{front, back};
    }
};

TEST_F(CoversPictures, InAddEachOptionShowsWhatItLeavesOut) {
    open();
    for (const std::int64_t chosen : {0, 1, 2, 3, 4}) {
        add([&](Window& window) {
            if (chosen != 0) {
                EXPECT_TRUE(pick(window, spCoversWndCoverOptionListID, {chosen}));
            }
            expect_picture(text_picture(window),
                           "dialogs/golden/covers-add-" + std::to_string(chosen) + ".txt");
            cancel(window);
        });
    }
}

TEST_F(CoversPictures, InAddAnInterposerCoverCannotBePrintedOn) {
    open();
    for (const std::int64_t chosen : {1, 2, 3, 4}) {
        add([&](Window& window) {
            EXPECT_TRUE(pick(window, spCoversWndCoverOptionListID, {chosen}));
            const ControlTag menu =
                chosen == 2 ? spCoversWndBackCoverPageListID : spCoversWndFrontCoverPageListID;
            EXPECT_TRUE(pick(window, menu, {kInterposer}));
            expect_picture(text_picture(window),
                           "dialogs/golden/covers-add-" + std::to_string(chosen) + "-interposer.txt");
            cancel(window);
        });
    }
}

TEST_F(CoversPictures, InEditEachOptionShowsItsCovers) {
    open({cover_front()});
    for (const char* option : {"1", "2", "3", "4"}) {
        for (const bool interposer : {false, true}) {
            const RecordList records = covers(option, interposer);
            const RowSet none;
            list->undoRequest(&records, &none);
            edit([&](Window& window) {
                expect_picture(text_picture(window), std::string("dialogs/golden/covers-edit-") + option +
                                                         (interposer ? "-interposer" : "") + ".txt");
                cancel(window);
            });
        }
    }
}

TEST_F(CoversPictures, AForbiddenTypeGivesItsReason) {
    open();
    add([&](Window& window) {
        option(window, CoverOption::frontOnly);
        EXPECT_TRUE(pick(window, spCoversWndFrontPrintingOptionListID, {3}));
        expect_picture(text_picture(window), "dialogs/golden/covers-both-sides.txt");
        cancel(window);
    });
}

} // namespace
} // namespace specialpages::test
