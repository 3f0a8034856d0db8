// One change of any kind, in any situation of the list, and its undo.
#include "dialogs/whole_list_fixture.h"

#include <gtest/gtest.h>

#include <string>

namespace specialpages::test {
namespace {

class UndoProperty : public WholeListTest, public ::testing::WithParamInterface<Deed> {};

TEST_P(UndoProperty, BringsListMarksAndSelectionBack) {
    open();
    int changes = 0;
    EXPECT_TRUE(rc::check("undo after " + std::to_string(static_cast<int>(GetParam())), [&] {
        holdAnything();
        if (!perform(GetParam())) {
            return;
        }
        ++changes;
        RC_ASSERT(canPress(specialPagesSPUndoButID));
        undo();
        RC_ASSERT(state() == before);
        RC_ASSERT(!canPress(specialPagesSPUndoButID));
    }));
    EXPECT_GT(changes, 30) << "too few of these changes were made to show anything";
    EXPECT_TRUE(face.alerts().empty());
}

std::string name_of(const ::testing::TestParamInfo<Deed>& info) {
    static constexpr std::array kNames{"AddCovers",      "EditCovers",  "RemoveCovers",  "AddInserts",
                                       "EditInsert",     "EditInserts", "AddExceptions", "EditException",
                                       "EditExceptions", "MoveUp",      "MoveDown",      "DeleteSelected",
                                       "DeleteAll"};
    return kNames.at(static_cast<std::size_t>(info.param));
}

INSTANTIATE_TEST_SUITE_P(EveryChange, UndoProperty, ::testing::ValuesIn(kDeeds), name_of);

} // namespace
} // namespace specialpages::test
