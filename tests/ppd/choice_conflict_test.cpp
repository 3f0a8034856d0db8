#include "index_entries.h"
#include "ppd/choice_conflict.h"
#include "ppd/ppd_access.h"
#include "ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::forbidding;
using test::PpdBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

/// Staple forbids Duplex, both trays forbid Thick.
class ChoiceConflict : public testing::Test {
  protected:
    ChoiceConflict() {
        ppd.group("Finishing").option("NVStaple").choices({"None", "Front", "Rear"});
        ppd.group("Paper").option("InputSlot").choices({"Auto", "Tray1", "Tray2"});
        ppd.option("MediaType")
            .choices({"Plain", "Thick"})
            .option("Duplex")
            .choices({"None", "DuplexTumble"});
        ppd.constraint("NVStaple", "Front", "Duplex", "DuplexTumble");
        ppd.constraint("InputSlot", "Tray1", "MediaType", "Thick")
            .constraint("InputSlot", "Tray2", "MediaType", "Thick");
        compile_constraints(ppd.file(), &index, option_keywords(ppd.file()));
    }

    bool conflicted(std::string_view option, std::string_view choice) {
        return IsPPDChoiceConflicted(ppd.file(), &index, option, choice);
    }
    bool conflicted_with(std::string_view key, std::string_view option, std::string_view choice) {
        return isChoiceConflicted(ppd.file(), &index, key, option, choice);
    }

    PpdBuilder ppd;
    ConstraintIndex index;
};

TEST_F(ChoiceConflict, WithNothingMarkedNothingConflictsWithTheMarks) {
    EXPECT_FALSE(conflicted("Duplex", "DuplexTumble"));
    EXPECT_FALSE(conflicted("MediaType", "Thick"));
}

TEST_F(ChoiceConflict, FollowsTheMarksWithoutAChangeOfTheIndex) {
    ppd.mark("NVStaple", "Front");
    EXPECT_TRUE(conflicted("Duplex", "DuplexTumble"));
    ppd.mark("NVStaple", "Rear");
    EXPECT_FALSE(conflicted("Duplex", "DuplexTumble"));
    ppd.mark("NVStaple", "Front");
    EXPECT_TRUE(conflicted("Duplex", "DuplexTumble"));
    ppd.unmark("NVStaple");
    EXPECT_FALSE(conflicted("Duplex", "DuplexTumble"));
}

TEST_F(ChoiceConflict, OneMarkedChoiceOfSeveralSuffices) {
    ppd.mark("InputSlot", "Tray1");
    EXPECT_TRUE(conflicted("MediaType", "Thick"));
    ppd.mark("InputSlot", "Tray2");
    EXPECT_TRUE(conflicted("MediaType", "Thick"));
    ppd.mark("InputSlot", "Auto");
    EXPECT_FALSE(conflicted("MediaType", "Thick"));
}

TEST_F(ChoiceConflict, AnyMarkOtherThanZeroCounts) {
    ppd.find("NVStaple").choices[1].marked = 2;
    EXPECT_TRUE(conflicted("Duplex", "DuplexTumble"));
    ppd.find("NVStaple").choices[1].marked = -1;
    EXPECT_TRUE(conflicted("Duplex", "DuplexTumble"));
}

TEST_F(ChoiceConflict, AnswersInOneDirectionOnly) {
    ppd.mark("Duplex", "DuplexTumble");
    EXPECT_FALSE(conflicted("NVStaple", "Front"));
    EXPECT_FALSE(conflicted_with("NVStaple:Front", "Duplex", "DuplexTumble"));
}

TEST_F(ChoiceConflict, AKeyWithoutEntriesConflictsWithNothing) {
    ppd.mark("NVStaple", "Front");
    EXPECT_FALSE(conflicted("Duplex", "None"));
    EXPECT_FALSE(conflicted("NoSuchOption", "x"));
    EXPECT_FALSE(conflicted("", ""));
    EXPECT_FALSE(conflicted_with("Duplex:None", "NVStaple", "Front"));
    EXPECT_FALSE(conflicted_with("", "NVStaple", "Front"));
    EXPECT_FALSE(conflicted_with("Duplex", "NVStaple", "Front"));
}

TEST_F(ChoiceConflict, AGivenChoiceIsAskedForWithoutRegardToMarks) {
    EXPECT_TRUE(conflicted_with("Duplex:DuplexTumble", "NVStaple", "Front"));
    EXPECT_FALSE(conflicted_with("Duplex:DuplexTumble", "NVStaple", "Rear"));
    EXPECT_FALSE(conflicted_with("Duplex:DuplexTumble", "InputSlot", "Front"));
    ppd.mark("NVStaple", "Rear");
    EXPECT_TRUE(conflicted_with("Duplex:DuplexTumble", "NVStaple", "Front"));
}

TEST_F(ChoiceConflict, EachOfSeveralGivenChoicesIsFound) {
    EXPECT_TRUE(conflicted_with("MediaType:Thick", "InputSlot", "Tray1"));
    EXPECT_TRUE(conflicted_with("MediaType:Thick", "InputSlot", "Tray2"));
    EXPECT_FALSE(conflicted_with("MediaType:Thick", "InputSlot", "Auto"));
}

TEST_F(ChoiceConflict, NamesInAnotherCaseAreOtherNames) {
    ppd.mark("NVStaple", "Front");
    EXPECT_FALSE(conflicted("duplex", "DuplexTumble"));
    EXPECT_FALSE(conflicted("Duplex", "duplextumble"));
    EXPECT_FALSE(conflicted_with("duplex:DuplexTumble", "NVStaple", "Front"));
    EXPECT_FALSE(conflicted_with("Duplex:DuplexTumble", "nvStaple", "Front"));
    EXPECT_FALSE(conflicted_with("Duplex:DuplexTumble", "NVStaple", "front"));
}

TEST_F(ChoiceConflict, AnOptionConflictsWithItselfOnlyInThePairGiven) {
    PpdBuilder own;
    own.option("A").choices({"x", "y", "z"}).constraint("A", "y", "A", "z");
    ConstraintIndex made;
    compile_constraints(own.file(), &made, option_keywords(own.file()));
    EXPECT_TRUE(isChoiceConflicted(own.file(), &made, "A:z", "A", "y"));
    EXPECT_FALSE(isChoiceConflicted(own.file(), &made, "A:y", "A", "z"));
    EXPECT_FALSE(isChoiceConflicted(own.file(), &made, "A:z", "A", "z"));
    own.mark("A", "y");
    EXPECT_TRUE(IsPPDChoiceConflicted(own.file(), &made, "A", "z"));
}

TEST_F(ChoiceConflict, WithoutPpdOrIndexNothingConflicts) {
    ppd.mark("NVStaple", "Front");
    EXPECT_FALSE(IsPPDChoiceConflicted(nullptr, &index, "Duplex", "DuplexTumble"));
    EXPECT_FALSE(IsPPDChoiceConflicted(ppd.file(), nullptr, "Duplex", "DuplexTumble"));
    EXPECT_FALSE(isChoiceConflicted(nullptr, &index, "Duplex:DuplexTumble", "NVStaple", "Front"));
    EXPECT_FALSE(isChoiceConflicted(ppd.file(), nullptr, "Duplex:DuplexTumble", "NVStaple", "Front"));
    const ConflictingChoices none = conflicting_choices(nullptr, nullptr, "Duplex:DuplexTumble");
    EXPECT_TRUE(none.begin() == none.end());
}

TEST_F(ChoiceConflict, EntriesThatPointOutsideThePpdConflictWithNothing) {
    ppd.mark("NVStaple", "Front");
    const std::vector<x_constraints> outside = {
        {2, 0, 0}, {0, 1, 0}, {0, 0, 3}, {65535, 0, 0}, {0, 65535, 0},        {0, 0, 65535},
        {1, 3, 0}, {1, 2, 2}, {1, 1, 2}, {1, 0, 3},     {65535, 65535, 65535}};
    for (const x_constraints place : outside) {
        index.insert("A:stale", place);
        const ConflictingChoice found = choice_at(*ppd.file(), place);
        EXPECT_EQ(found.option, nullptr) << test::place_text(place);
        EXPECT_EQ(found.choice, nullptr) << test::place_text(place);
    }
    EXPECT_FALSE(conflicted("A", "stale"));
    EXPECT_FALSE(conflicted_with("A:stale", "NVStaple", "Front"));
    EXPECT_THAT(forbidding(ppd.file(), index, "A:stale"), IsEmpty());

    index.insert("A:stale", {0, 0, 1});
    EXPECT_TRUE(conflicted("A", "stale")) << "a good entry among them still counts";
    EXPECT_THAT(forbidding(ppd.file(), index, "A:stale"), ElementsAre("NVStaple:Front"));
}

TEST_F(ChoiceConflict, APpdWithoutArraysHasNoChoices) {
    ppd_file_t bare{};
    bare.num_groups = 1;
    EXPECT_EQ(choice_at(bare, {0, 0, 0}).choice, nullptr);
    ppd_group_t group{};
    group.num_options = 1;
    bare.groups = &group;
    EXPECT_EQ(choice_at(bare, {0, 0, 0}).choice, nullptr);
    ppd_option_t option{};
    option.num_choices = 1;
    group.options = &option;
    EXPECT_EQ(choice_at(bare, {0, 0, 0}).choice, nullptr);
    ppd_choice_t choice{};
    option.choices = &choice;
    EXPECT_EQ(choice_at(bare, {0, 0, 0}).choice, &choice);
    EXPECT_EQ(choice_at(bare, {0, 0, 0}).option, &option);
}

TEST_F(ChoiceConflict, ForbiddingChoicesAreGivenOncePerConstraint) {
    EXPECT_THAT(forbidding(ppd.file(), index, "MediaType:Thick"),
                ElementsAre("InputSlot:Tray1", "InputSlot:Tray2"));
    EXPECT_THAT(forbidding(ppd.file(), index, "Duplex:DuplexTumble"), ElementsAre("NVStaple:Front"));
    EXPECT_THAT(forbidding(ppd.file(), index, "Duplex:None"), IsEmpty());
    index.insert("Duplex:DuplexTumble", {0, 0, 1});
    EXPECT_THAT(forbidding(ppd.file(), index, "Duplex:DuplexTumble"),
                ElementsAre("NVStaple:Front", "NVStaple:Front"));
}

TEST_F(ChoiceConflict, ForbiddingChoicesMayBeWalkedTwice) {
    const ConflictingChoices found = conflicting_choices(ppd.file(), &index, "MediaType:Thick");
    auto at = found.begin();
    const auto first = at++;
    EXPECT_NE(first->choice, at->choice);
    EXPECT_EQ(found.begin()->choice, first->choice);
    EXPECT_TRUE(++at == found.end());
}

TEST_F(ChoiceConflict, NamesLongerThanAnyPpdsAreLookedForWhole) {
    const std::string option(500, 'o');
    const std::string choice(500, 'c');
    index.insert(option + ":" + choice, {0, 0, 1});
    ppd.mark("NVStaple", "Front");
    EXPECT_TRUE(conflicted(option, choice));
    EXPECT_FALSE(conflicted(option, choice.substr(1)));
}

} // namespace
} // namespace specialpages
