// How the warning looks that is shown before special pages are deleted, in the real pane.
#include "dialogs/exceptions_fixture.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

class WarningPictures : public ExceptionsDialogTest {};

TEST_F(WarningPictures, AsksForTheSelectedAndForAllPages) {
    open({plain_exception("3"), plain_exception("7")});
    select({0});
    face.then([](platform::Window& window) {
        expect_picture(text_picture(window), "dialogs/golden/warning-selected.txt");
        EXPECT_TRUE(window.performCancel());
    });
    press(specialPagesSPDeleteButID);
    EXPECT_EQ(pages(), (Texts{"3", "7"}));
    face.then([](platform::Window& window) {
        expect_picture(text_picture(window), "dialogs/golden/warning-all.txt");
        EXPECT_TRUE(window.performDefault());
    });
    press(specialPagesSPDeleteAllButID);
    EXPECT_EQ(pages(), Texts{});
}

} // namespace
} // namespace specialpages::test
