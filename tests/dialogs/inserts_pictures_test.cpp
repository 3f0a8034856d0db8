// The inserts dialog in its situations, as pictures that were looked at.
#include "dialogs/inserts_fixture.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using platform::Window;

class InsertsPictures : public InsertsDialogTest {
  protected:
    static void looksLike(Window& inserts, const std::string& name) {
        expect_picture(text_picture(inserts), "dialogs/golden/inserts-" + name + ".txt");
    }
};

TEST_F(InsertsPictures, AddToAnEmptyList) {
    open();
    add([](Window& inserts) {
        looksLike(inserts, "add");
        chooseBeforePageOne(inserts);
        looksLike(inserts, "add-before-page-one");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, AddBesideAFrontCover) {
    open({cover_front()});
    add([](Window& inserts) {
        looksLike(inserts, "add-front-cover");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, AddAfterASelectedInsert) {
    open({with_paper(insert_after(7, 12), 2, 1, 8)});
    select({0});
    add([](Window& inserts) {
        looksLike(inserts, "add-selected");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, EditOne) {
    open({with_paper(insert_after(7, 12), 2, 1, 8), insert_after(9)});
    edit({0}, [](Window& inserts) {
        looksLike(inserts, "edit");
        restore(inserts);
        looksLike(inserts, "edit-defaults");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, EditOneBeforePageOneFromTheInterposer) {
    open({from_interposer(with_paper(insert_before_page_one(3), 2, 0, 0))});
    edit({0}, [](Window& inserts) {
        looksLike(inserts, "edit-before-page-one");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, EditSeveralThatDiffer) {
    open({insert_before_page_one(2), with_paper(insert_after(3, 2), 2, 0, 8), insert_after(8, 5)});
    edit({0, 1, 2}, [](Window& inserts) {
        looksLike(inserts, "edit-several");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, EditSeveralSomeFromTheInterposer) {
    open({insert_after(3), from_interposer(insert_after(8))});
    edit({0, 1}, [](Window& inserts) {
        looksLike(inserts, "edit-several-interposer");
        cancel(inserts);
    });
}

TEST_F(InsertsPictures, AfterARefusal) {
    open();
    add([](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("9-7"));
        ok(inserts);
        looksLike(inserts, "refused");
        cancel(inserts);
    });
}

} // namespace
} // namespace specialpages::test
