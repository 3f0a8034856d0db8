// The exceptions dialog as text pictures, as it opens in each situation and after the user's choices.
#include "dialogs/exceptions_fixture.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

class ExceptionsPictures : public ExceptionsDialogTest {
  protected:
    static void expectPicture(User& user, const std::string& name) {
        expect_picture(text_picture(user.window()), "dialogs/golden/exceptions-" + name + ".txt");
    }
};

TEST_F(ExceptionsPictures, AsTheyOpenForTheFirstException) {
    open();
    add([](User& user) { expectPicture(user, "add-first"); });
}

TEST_F(ExceptionsPictures, AsTheyOpenToAddBesideASelectedOne) {
    open({"2,5-7,11,4,1,false,3,210.0,297.0,1"});
    select({0});
    add([](User& user) { expectPicture(user, "add-copy"); });
}

TEST_F(ExceptionsPictures, AsTheyOpenToEditOne) {
    open({"2,5-7,11,4,1,false,3,210.0,297.0,1"});
    edit({0}, [](User& user) { expectPicture(user, "edit-one"); });
}

TEST_F(ExceptionsPictures, AsTheyOpenToEditSeveralThatAreAlike) {
    open({"2,3,2,4,1,false,1,210.0,297.0,1", "2,7-9,2,4,1,false,1,210.0,297.0,1"});
    edit({0, 1}, [](User& user) { expectPicture(user, "edit-alike"); });
}

TEST_F(ExceptionsPictures, AsTheyOpenToEditSeveralThatDiffer) {
    open({"2,3,2,1,1,false,1,210.0,297.0,1", "2,7-9,11,4,2,false,2,210.0,297.0,1"});
    edit({0, 1}, [](User& user) { expectPicture(user, "edit-different"); });
}

TEST_F(ExceptionsPictures, AfterAPaperThatForbidsSides) {
    open();
    add([](User& user) {
        EXPECT_TRUE(user.type("5"));
        EXPECT_TRUE(user.paper(kTypeMenu, kPlainOneSide));
        expectPicture(user, "one-side-paper");
        user.defaults();
        expectPicture(user, "after-defaults");
    });
}

TEST_F(ExceptionsPictures, AfterARefusal) {
    open();
    add([](User& user) {
        user.ok();
        expectPicture(user, "refused");
    });
    EXPECT_EQ(face.alerts().size(), 1U);
}

} // namespace
} // namespace specialpages::test
