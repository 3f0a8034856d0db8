#include "index_entries.h"
#include "platform/foundation/log.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

using test::EntryText;
using test::keys_of;
using test::ordered_entries;
using test::PpdBuilder;
using test::sorted_entries;
using testing::ElementsAre;
using testing::IsEmpty;

/// The index of all of a PPD's options.
ConstraintIndex compiled(ppd_file_t* ppd) {
    ConstraintIndex index;
    compile_constraints(ppd, &index, option_keywords(ppd));
    return index;
}

/// Two options of three choices each; A.y is 0.0.1, B.z is 0.1.2.
void two_options(PpdBuilder& ppd) {
    ppd.group("General").option("A").choices({"x", "y", "z"}).option("B").choices({"x", "y", "z"});
}

TEST(ConstraintForms, NeitherChoiceNamedMakesEveryPairOfChoicesThatDoSomething) {
    PpdBuilder ppd;
    ppd.option("NVStaple").choices({"None", "Front", "Rear"});
    ppd.option("Duplex")
        .choices({"None", "DuplexNoTumble", "DuplexTumble"})
        .constraint("NVStaple", "", "Duplex", "");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("Duplex:DuplexNoTumble", "0.0.1"),
                                                                  EntryText("Duplex:DuplexNoTumble", "0.0.2"),
                                                                  EntryText("Duplex:DuplexTumble", "0.0.1"),
                                                                  EntryText("Duplex:DuplexTumble", "0.0.2")));
}

TEST(ConstraintForms, TheFirstChoiceNamedForbidsWhatDoesSomethingInTheSecondOption) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:y", "0.0.0"), EntryText("B:z", "0.0.0")));
}

TEST(ConstraintForms, TheSecondChoiceNamedIsForbiddenByWhatDoesSomethingInTheFirstOption) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "", "B", "x");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:x", "0.0.1"), EntryText("B:x", "0.0.2")));
}

TEST(ConstraintForms, BothChoicesNamedMakeOneEntry) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "y", "B", "z");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("B:z", "0.0.1")));
}

TEST(ConstraintForms, AnOptionWithoutNoneStillLeavesItsFirstChoiceOut) {
    PpdBuilder ppd;
    ppd.option("A").choices({"Alpha", "Beta"}).option("B").choices({"x"}).constraint("A", "", "B", "x");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("B:x", "0.0.1")));
}

TEST(ConstraintForms, NoneOffAndFalseAreLeftOutInAnyCaseAndPosition) {
    PpdBuilder ppd;
    ppd.option("A").choices({"First", "none", "OFF", "fAlSe", "True", "Nonesuch", "Of"});
    ppd.option("B").choices({"x"}).constraint("A", "", "B", "x");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:x", "0.0.4"), EntryText("B:x", "0.0.5"), EntryText("B:x", "0.0.6")));
}

TEST(ConstraintForms, TrueFirstAndFalseSecondContributeNothing) {
    PpdBuilder ppd;
    ppd.option("A").choices({"True", "False"}).option("B").choices({"x", "y"});
    ppd.constraint("A", "", "B", "y").constraint("B", "y", "A", "").constraint("A", "", "B", "");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, ANamedNoneOrFirstChoiceIsTakenAsItIs) {
    PpdBuilder ppd;
    ppd.option("A").choices({"None", "Off"}).option("B").choices({"False", "x"});
    ppd.constraint("A", "None", "B", "False").constraint("A", "Off", "B", "False");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:False", "0.0.0"), EntryText("B:False", "0.0.1")));
}

TEST(ConstraintForms, AFirstChoiceThatIsMissingAddsNothing) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "none", "B", "").constraint("A", "none", "B", "x").constraint("C", "x", "B", "x");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, ANamedSecondHalfIsNotLookedFor) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "NoSuchOption", "y").constraint("A", "", "B", "NoSuchChoice");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:NoSuchChoice", "0.0.1"), EntryText("B:NoSuchChoice", "0.0.2"),
                            EntryText("NoSuchOption:y", "0.0.0")));
}

TEST(ConstraintForms, AnUnnamedSecondHalfThatIsMissingAddsNothing) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "NoSuchOption", "").constraint("A", "", "NoSuchOption", "");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, CompareNamesWithoutCase) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("a", "Y", "B", "z").constraint("a", "X", "b", "");
    ConstraintIndex index;
    compile_constraints(ppd.file(), &index, std::vector<std::string>{"a"});
    EXPECT_THAT(sorted_entries(index),
                ElementsAre(EntryText("B:y", "0.0.0"), EntryText("B:z", "0.0.0"), EntryText("B:z", "0.0.1")));
}

TEST(ConstraintForms, OnlyAsciiLettersHaveACase) {
    PpdBuilder ppd;
    ppd.option("A")
        .choices({"x", "gr\xFC"
                       "n"})
        .option("B")
        .choices({"x"})
        .constraint("A",
                    "gr\xDC"
                    "n",
                    "B", "x");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, AKeyTakesItsCaseFromTheConstraintOrFromTheOption) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "b", "Y")
        .constraint("A", "x", "b", "")
        .constraint("A", "", "b", "Z")
        .constraint("A", "", "b", "");
    EXPECT_THAT(keys_of(compiled(ppd.file())), ElementsAre("B:y", "B:z", "b:Y", "b:Z"));
}

TEST(ConstraintForms, AnEntryNeedsItsExactKey) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "y");
    const ConstraintIndex index = compiled(ppd.file());
    EXPECT_TRUE(index.equal_range("b:y").empty());
    EXPECT_TRUE(index.equal_range("B:Y").empty());
    EXPECT_FALSE(index.equal_range("B:y").empty());
}

TEST(ConstraintForms, TwoEqualConstraintsAreTwoEntriesOfOneKey) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "y", "B", "z").constraint("A", "y", "B", "z");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("B:z", "0.0.1"), EntryText("B:z", "0.0.1")));
}

TEST(ConstraintForms, AnOptionMayStandOnBothSides) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "", "A", "");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("A:y", "0.0.1"), EntryText("A:y", "0.0.2"), EntryText("A:z", "0.0.1"),
                            EntryText("A:z", "0.0.2")));
}

TEST(ConstraintForms, PairsAreMadeByFirstChoiceThenBySecond) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "", "B", "");
    // Of one key, the entry made last stands behind the one made first; B:z lies in a bucket before B:y if
    // ordered so.
    ConstraintIndex expected;
    for (std::uint16_t choice = 1; choice <= 2; ++choice) {
        expected.insert("B:y", {0, 0, choice});
        expected.insert("B:z", {0, 0, choice});
    }
    EXPECT_EQ(ordered_entries(compiled(ppd.file())), ordered_entries(expected));
}

TEST(ConstraintForms, OptionsOfSubgroupsAreNeverSeen) {
    PpdBuilder ppd;
    ppd.group("General").option("B").choices({"x", "y"}).subgroup("Inner").option("A").choices({"x", "y"});
    ppd.option("C").choices({"x", "y"});
    ppd.constraint("A", "x", "B", "x").constraint("A", "", "B", "x").constraint("A", "", "B", "");
    ppd.constraint("A", "x", "C", "x").constraint("A", "", "C", "");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, AnUnnamedSecondHalfInASubgroupAddsNothingButANamedOneDoes) {
    PpdBuilder ppd;
    ppd.group("General").option("B").choices({"x", "y"}).subgroup("Inner").option("A").choices({"x", "y"});
    ppd.constraint("B", "x", "A", "").constraint("B", "", "A", "").constraint("B", "y", "A", "y");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("A:y", "0.0.1")));
}

TEST(ConstraintForms, PlacesCountGroupsOptionsAndChoicesFromZero) {
    PpdBuilder ppd;
    ppd.group("One").option("X").choices({"a"}).group("Two").option("Y").choices({"a"}).option("Z").choices(
        {"a"});
    ppd.group("Three")
        .option("A")
        .choices({"x", "y", "z"})
        .constraint("A", "z", "X", "a")
        .constraint("Z", "a", "Y", "a");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("X:a", "2.0.2"), EntryText("Y:a", "1.1.0")));
}

/// A keyword that stands in three groups, with different choices and spellings.
void keyword_in_three_groups(PpdBuilder& ppd) {
    ppd.group("One").option("A").choices({"None"}).option("B").choices({"None"});
    ppd.group("Two").option("a").choices({"None", "v", "w"}).option("b").choices({"None", "v", "w"});
    ppd.group("Three").option("A").choices({"None", "w", "V"}).option("B").choices({"None", "w", "V"});
}

TEST(ConstraintForms, WithoutChoicesEveryOptionOfAKeywordTakesPart) {
    PpdBuilder ppd;
    keyword_in_three_groups(ppd);
    ppd.constraint("A", "", "B", "");
    const ConstraintIndex index = compiled(ppd.file());
    EXPECT_EQ(index.size(), 16U);
    EXPECT_THAT(keys_of(index), ElementsAre("B:V", "B:w", "b:v", "b:w"));
    EXPECT_EQ(test::forbidding(ppd.file(), index, "b:v"), test::forbidding(ppd.file(), index, "B:w"));
    EXPECT_THAT(test::forbidding(ppd.file(), index, "B:V"), ElementsAre("A:V", "A:w", "a:v", "a:w"));
}

TEST(ConstraintForms, ANamedFirstChoiceIsLookedForInTheNextOptionOfTheKeyword) {
    PpdBuilder ppd;
    keyword_in_three_groups(ppd);
    ppd.constraint("A", "V", "X", "x").constraint("A", "W", "X", "y");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())),
                ElementsAre(EntryText("X:x", "1.0.1"), EntryText("X:y", "1.0.2")));
}

TEST(ConstraintForms, AnUnnamedFirstHalfEndsAtTheFirstOptionEvenWithNothingThatDoesSomething) {
    PpdBuilder ppd;
    keyword_in_three_groups(ppd);
    ppd.constraint("A", "", "X", "x");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, AnUnnamedSecondHalfEndsAtTheFirstOptionEvenWithNothingThatDoesSomething) {
    PpdBuilder ppd;
    keyword_in_three_groups(ppd);
    ppd.constraint("A", "v", "B", "");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, AnOptionWithoutChoicesIsPassedOver) {
    PpdBuilder ppd;
    ppd.option("A").option("B").choices({"x", "y"});
    ppd.constraint("A", "", "B", "x")
        .constraint("B", "y", "A", "")
        .constraint("A", "", "B", "")
        .constraint("A", "x", "B", "x");
    EXPECT_TRUE(compiled(ppd.file()).empty());
}

TEST(ConstraintForms, ChoicesOfOneNameAreTakenAtTheirFirstPosition) {
    PpdBuilder ppd;
    ppd.option("A").choices({"x", "Y", "y"}).option("B").choices({"x"}).constraint("A", "y", "B", "x");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("B:x", "0.0.1")));
}

TEST(ConstraintForms, FieldsFilledToTheLastByteEndThere) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "y", "B", "");
    ppd_file_t* file = ppd.file();
    std::memset(file->consts[0].option2, 'o', sizeof file->consts[0].option2);
    std::memset(file->consts[0].choice2, 'c', sizeof file->consts[0].choice2);
    EXPECT_THAT(keys_of(compiled(file)), ElementsAre(std::string(41, 'o') + ":" + std::string(41, 'c')));
}

// One constraint at a time.

using Form = void (*)(const ppd_file_t*, ConstraintIndex*, std::int32_t);
constexpr std::array<Form, 4> kForms = {xConst2Hash_O1O2, xConst2Hash_O1C1O2, xConst2Hash_O1O2C2,
                                        xConst2Hash_O1C1O2C2};

TEST(SingleConstraint, AddsTheOneAtThatPositionOnly) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "x").constraint("A", "y", "B", "y").constraint("A", "z", "B", "z");
    ConstraintIndex index;
    xConst2Hash_O1C1O2C2(ppd.file(), &index, 1);
    EXPECT_THAT(sorted_entries(index), ElementsAre(EntryText("B:y", "0.0.1")));
    xConst2Hash_O1C1O2C2(ppd.file(), &index, 2);
    EXPECT_EQ(index.size(), 2U);
}

TEST(SingleConstraint, IsReadByTheFormThatIsCalled) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "x");
    std::array<ConstraintIndex, 4> made;
    for (std::size_t form = 0; form < kForms.size(); ++form) {
        kForms[form](ppd.file(), &made[form], 0);
    }
    EXPECT_THAT(sorted_entries(made[0]), ElementsAre(EntryText("B:y", "0.0.1"), EntryText("B:y", "0.0.2"),
                                                     EntryText("B:z", "0.0.1"), EntryText("B:z", "0.0.2")));
    EXPECT_THAT(sorted_entries(made[1]), ElementsAre(EntryText("B:y", "0.0.0"), EntryText("B:z", "0.0.0")));
    EXPECT_THAT(sorted_entries(made[2]), ElementsAre(EntryText("B:x", "0.0.1"), EntryText("B:x", "0.0.2")));
    EXPECT_THAT(sorted_entries(made[3]), ElementsAre(EntryText("B:x", "0.0.0")));
}

TEST(SingleConstraint, OneByOneGivesTheSameIndexAsTheWholePpd) {
    PpdBuilder ppd;
    keyword_in_three_groups(ppd);
    ppd.constraint("A", "", "B", "")
        .constraint("A", "v", "B", "w")
        .constraint("b", "", "a", "")
        .constraint("A", "w", "A", "v");
    ConstraintIndex index;
    xConst2Hash_O1O2(ppd.file(), &index, 0);
    xConst2Hash_O1C1O2C2(ppd.file(), &index, 1);
    xConst2Hash_O1O2(ppd.file(), &index, 2);
    xConst2Hash_O1C1O2C2(ppd.file(), &index, 3);
    EXPECT_EQ(index.size(), 34U);
    EXPECT_EQ(ordered_entries(index), ordered_entries(compiled(ppd.file())));
}

TEST(SingleConstraint, NothingHappensOutsideTheListOrWithoutPpdOrIndex) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "x");
    ConstraintIndex index;
    for (const Form form : kForms) {
        form(ppd.file(), &index, -1);
        form(ppd.file(), &index, 1);
        form(nullptr, &index, 0);
        form(ppd.file(), nullptr, 0);
    }
    EXPECT_TRUE(index.empty());
}

// Whole PPDs.

TEST(CompileConstraints, OneListedOptionSuffices) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "y");
    for (const std::vector<std::string>& list :
         {std::vector<std::string>{"A"}, {"B"}, {"Z", "B"}, {"A", "B"}, {"A", "A"}}) {
        ConstraintIndex index;
        compile_constraints(ppd.file(), &index, list);
        EXPECT_EQ(index.size(), 1U) << list.front();
    }
}

TEST(CompileConstraints, AnOptionIsListedInItsExactSpellingOnly) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "y");
    for (const std::vector<std::string>& list :
         {std::vector<std::string>{}, {"a", "b"}, {"A ", " B"}, {"AB"}, {""}}) {
        ConstraintIndex index;
        compile_constraints(ppd.file(), &index, list);
        EXPECT_TRUE(index.empty());
    }
}

TEST(CompileConstraints, ASpellingThatIsNotListedIsSkippedThoughTheOptionIs) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("a", "x", "b", "y").constraint("A", "x", "b", "y").constraint("a", "x", "b", "y");
    EXPECT_THAT(sorted_entries(compiled(ppd.file())), ElementsAre(EntryText("b:y", "0.0.0")));
}

TEST(CompileConstraints, ListedNamesNeedNotBeOptions) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "Gone", "y");
    ConstraintIndex index;
    compile_constraints(ppd.file(), &index, std::vector<std::string>{"Gone"});
    EXPECT_THAT(sorted_entries(index), ElementsAre(EntryText("Gone:y", "0.0.0")));
}

TEST(CompileConstraints, ANullPpdOrIndexAndAnEmptyPpdDoNothing) {
    PpdBuilder ppd;
    ConstraintIndex index;
    const std::vector<std::string> list{"A"};
    compile_constraints(nullptr, &index, list);
    compile_constraints(ppd.file(), nullptr, list);
    compile_constraints(ppd.file(), &index, list);
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(index.bucket_count(), 193U);
}

TEST(CompileConstraints, CountsWithoutArraysAreTakenAsNone) {
    ppd_file_t bare{};
    bare.num_groups = 3;
    bare.num_consts = 3;
    ConstraintIndex index;
    compile_constraints(&bare, &index, std::vector<std::string>{"A"});
    bare.num_groups = -1;
    bare.num_consts = -1;
    compile_constraints(&bare, &index, std::vector<std::string>{"A"});
    EXPECT_TRUE(index.empty());
}

TEST(CompileConstraints, AddsToWhatTheIndexHolds) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd.constraint("A", "x", "B", "y");
    ConstraintIndex index;
    compile_constraints(ppd.file(), &index, std::vector<std::string>{"A"});
    compile_constraints(ppd.file(), &index, std::vector<std::string>{"B"});
    EXPECT_THAT(sorted_entries(index), ElementsAre(EntryText("B:y", "0.0.0"), EntryText("B:y", "0.0.0")));
}

TEST(CompileConstraints, TheLastOfMoreThan65536ConstraintsIsIndexed) {
    PpdBuilder ppd;
    two_options(ppd);
    ppd_file_t file = *ppd.file();
    std::vector<ppd_const_t> constraints(70000);
    for (ppd_const_t& each : constraints) {
        std::strcpy(each.option1, "A");
        std::strcpy(each.choice1, "x");
        std::strcpy(each.option2, "B");
        std::strcpy(each.choice2, "y");
    }
    std::strcpy(constraints.back().choice2, "z");
    file.consts = constraints.data();
    file.num_consts = static_cast<int>(constraints.size());
    ConstraintIndex index;
    compile_constraints(&file, &index, std::vector<std::string>{"A"});
    EXPECT_EQ(index.size(), 70000U);
    EXPECT_FALSE(index.equal_range("B:z").empty());
}

/// Catches the log while it lives.
class LogLines {
  public:
    LogLines() : before_(platform::setLogSink([this](std::string_view line) { lines.emplace_back(line); })) {}
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    ~LogLines() { platform::setLogSink(before_); }

    std::vector<std::string> lines;

  private:
    platform::LogSink before_;
};

/// A PPD of many groups, options or choices, with an option A at their end and constraints of A's last
/// choices.
struct LargePpd {
    LargePpd(std::size_t group_count, std::size_t option_count, std::size_t choice_count)
        : groups(group_count), options(option_count), choices(choice_count), constraints(3) {
        for (std::size_t i = 0; i < choices.size(); ++i) {
            std::strcpy(choices[i].choice, std::to_string(i).c_str());
        }
        std::strcpy(options.back().keyword, "A");
        options.back().num_choices = static_cast<int>(choices.size());
        options.back().choices = choices.data();
        groups.back().num_options = static_cast<int>(options.size());
        groups.back().options = options.data();
        for (std::size_t i = 0; i < constraints.size(); ++i) {
            std::strcpy(constraints[i].option1, "A");
            // The last three choices.
            std::strcpy(constraints[i].choice1,
                        std::to_string(choices.size() - constraints.size() + i).c_str());
            std::strcpy(constraints[i].option2, "B");
            std::strcpy(constraints[i].choice2, std::to_string(i).c_str());
        }
        file.num_groups = static_cast<int>(groups.size());
        file.groups = groups.data();
        file.num_consts = static_cast<int>(constraints.size());
        file.consts = constraints.data();
    }

    ppd_file_t file{};
    std::vector<ppd_group_t> groups;
    std::vector<ppd_option_t> options;
    std::vector<ppd_choice_t> choices;
    std::vector<ppd_const_t> constraints;
};

TEST(CompileConstraints, ChoicesBeyondPosition65535AreNotIndexedAndLoggedOnce) {
    LargePpd ppd(1, 1, 65538);
    LogLines log;
    ConstraintIndex index;
    compile_constraints(&ppd.file, &index, std::vector<std::string>{"A"});
    EXPECT_THAT(sorted_entries(index), ElementsAre(EntryText("B:0", "0.0.65535")));
    EXPECT_EQ(log.lines.size(), 1U);
}

TEST(CompileConstraints, OptionsBeyondPosition65535AreNotIndexed) {
    for (const std::size_t options : {65536U, 65537U}) {
        LargePpd ppd(1, options, 3);
        ConstraintIndex index;
        compile_constraints(&ppd.file, &index, std::vector<std::string>{"A"});
        EXPECT_EQ(index.size(), options == 65536U ? 3U : 0U);
    }
}

TEST(CompileConstraints, GroupsBeyondPosition65535AreNotIndexed) {
    for (const std::size_t groups : {65536U, 65537U}) {
        LargePpd ppd(groups, 1, 3);
        ConstraintIndex index;
        compile_constraints(&ppd.file, &index, std::vector<std::string>{"A"});
        EXPECT_EQ(index.size(), groups == 65536U ? 3U : 0U);
    }
}

TEST(CompileConstraints, AFarChoiceStillMakesAKey) {
    LargePpd ppd(1, 1, 65538);
    std::strcpy(ppd.constraints[0].choice1, "7");
    std::strcpy(ppd.constraints[0].option2, "A");
    std::strcpy(ppd.constraints[0].choice2, "");
    ppd.file.num_consts = 1;
    LogLines log;
    ConstraintIndex index;
    compile_constraints(&ppd.file, &index, std::vector<std::string>{"A"});
    EXPECT_EQ(index.size(), 65537U);
    EXPECT_FALSE(index.equal_range("A:65537").empty());
    EXPECT_THAT(log.lines, IsEmpty());
}

} // namespace
} // namespace specialpages
