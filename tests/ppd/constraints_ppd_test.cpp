// What the index makes of a PPD that libcups opened: tests/data/constraints.ppd, one constraint for each
// test.
#include "index_entries.h"
#include "open_ppd.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path kFile = std::filesystem::path(paths::source_dir()) / "tests/data/constraints.ppd";

class ConstraintsPpd : public testing::Test {
  protected:
    ConstraintsPpd() { compile_constraints(ppd.get(), &index, option_keywords(ppd.get())); }

    std::vector<std::string> forbidding(std::string_view key) const {
        return test::forbidding(ppd.get(), index, key);
    }

    test::OpenPpd ppd = test::open_ppd(kFile);
    ConstraintIndex index;
};

TEST_F(ConstraintsPpd, TwoUnnamedHalvesTakeEveryPairThatDoesSomething) {
    EXPECT_THAT(forbidding("Duplex:DuplexNoTumble"), ElementsAre("NVStaple:Front", "NVStaple:Rear"));
    EXPECT_THAT(forbidding("Duplex:DuplexTumble"), ElementsAre("NVStaple:Front", "NVStaple:Rear"));
    EXPECT_THAT(forbidding("Duplex:None"), IsEmpty());
    EXPECT_THAT(forbidding("NVStaple:Front"), IsEmpty()) << "a constraint answers in one direction only";
}

TEST_F(ConstraintsPpd, TheFirstChoiceIsLeftOutByItsPositionAlone) {
    EXPECT_THAT(forbidding("NVPunch:Punch2"), ElementsAre("NVFold:Beta"));
}

TEST_F(ConstraintsPpd, TrueFirstAndFalseSecondHaveNothingThatDoesSomething) {
    EXPECT_THAT(forbidding("NVPunch:Punch3"), ElementsAre("NVPunch:Punch2")) << "from another constraint";
}

TEST_F(ConstraintsPpd, AMissingFirstChoiceAddsNothing) {
    EXPECT_THAT(forbidding("NVPunch:Punch4"), IsEmpty());
}

TEST_F(ConstraintsPpd, AnUnknownSecondHalfIsAKeyThatNothingAsksFor) {
    EXPECT_THAT(forbidding("NVNoSuchOption:y"), ElementsAre("NVStaple:Front"));
}

TEST_F(ConstraintsPpd, TheFirstHalfIsFoundInAnyCase) {
    EXPECT_THAT(forbidding("MediaType:Labels"), ElementsAre("NVStaple:Rear"));
}

TEST_F(ConstraintsPpd, ANamedSecondHalfKeepsTheConstraintsCase) {
    EXPECT_THAT(forbidding("nvpunch:punch4"), ElementsAre("NVStaple:Rear"));
    EXPECT_THAT(forbidding("NVPunch:Punch4"), IsEmpty());
}

TEST_F(ConstraintsPpd, AnUnnamedSecondHalfTakesTheOptionsCase) {
    EXPECT_THAT(forbidding("NVFold:Beta"), ElementsAre("InputSlot:Manual"));
    EXPECT_THAT(forbidding("nvFOLD:Beta"), IsEmpty());
    EXPECT_THAT(forbidding("NVFold:Alpha"), IsEmpty());
}

TEST_F(ConstraintsPpd, TwoEqualConstraintsAreTwoEntries) {
    EXPECT_THAT(forbidding("MediaType:Thick"),
                ElementsAre("InputSlot:Manual", "NVStaple:Front", "NVStaple:Front"));
}

TEST_F(ConstraintsPpd, OnesThatAreNotForTheUserCountToo) {
    test::mark_option(ppd.get(), "InputSlot", "Manual");
    EXPECT_TRUE(IsPPDChoiceConflicted(ppd.get(), &index, "MediaType", "Thick"));
    test::mark_option(ppd.get(), "InputSlot", "Auto");
    EXPECT_FALSE(IsPPDChoiceConflicted(ppd.get(), &index, "MediaType", "Thick"));
}

TEST_F(ConstraintsPpd, ANamedChoiceIsTakenAsItIs) {
    EXPECT_THAT(forbidding("NVStaple:None"), ElementsAre("InputSlot:Auto"));
}

TEST_F(ConstraintsPpd, AnOptionMayForbidItself) {
    EXPECT_TRUE(isChoiceConflicted(ppd.get(), &index, "NVPunch:Punch3", "NVPunch", "Punch2"));
    EXPECT_FALSE(isChoiceConflicted(ppd.get(), &index, "NVPunch:Punch2", "NVPunch", "Punch3"));
    EXPECT_FALSE(isChoiceConflicted(ppd.get(), &index, "NVPunch:Punch3", "NVPunch", "Punch3"));
}

TEST_F(ConstraintsPpd, HoldsNoOtherKeys) {
    EXPECT_THAT(test::keys_of(index),
                ElementsAre("Duplex:DuplexNoTumble", "Duplex:DuplexTumble", "MediaType:Labels",
                            "MediaType:Thick", "NVFold:Beta", "NVNoSuchOption:y", "NVPunch:Punch2",
                            "NVPunch:Punch3", "NVStaple:None", "nvpunch:punch4"));
    EXPECT_EQ(index.size(), 14U);
}

TEST_F(ConstraintsPpd, FollowsTheMarksThatLibcupsMakes) {
    test::mark_defaults(ppd.get());
    EXPECT_TRUE(IsPPDChoiceConflicted(ppd.get(), &index, "NVStaple", "None")) << "InputSlot stands at Auto";
    EXPECT_FALSE(IsPPDChoiceConflicted(ppd.get(), &index, "Duplex", "DuplexTumble"));
    test::mark_option(ppd.get(), "NVStaple", "Rear");
    EXPECT_TRUE(IsPPDChoiceConflicted(ppd.get(), &index, "Duplex", "DuplexTumble"));
}

TEST_F(ConstraintsPpd, EveryConstraintNamesItsTest) {
    std::set<std::string> tests;
    const auto* suite = testing::UnitTest::GetInstance()->current_test_suite();
    for (int i = 0; i < suite->total_test_count(); ++i) {
        tests.insert(suite->GetTestInfo(i)->name());
    }
    std::ifstream file(kFile);
    std::string named;
    int constraints = 0;
    for (std::string line; std::getline(file, line);) {
        EXPECT_LT(line.size(), 255U) << line;
        if (line.starts_with("*% ")) {
            named = line.substr(3);
        } else if (line.find("UIConstraints:") != std::string::npos) {
            ++constraints;
            EXPECT_EQ(tests.count(named), 1U) << line << " names the test " << named;
        }
    }
    EXPECT_EQ(constraints, ppd->num_consts);
}

} // namespace
} // namespace specialpages
