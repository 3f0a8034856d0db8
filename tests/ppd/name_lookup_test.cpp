#include "ppd/name_lookup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace specialpages {
namespace {

TEST(NameLookup, ComparesAsciiLettersWithoutCase) {
    EXPECT_TRUE(equal_ignoring_case("NVStaple", "nvsTAPLE"));
    EXPECT_TRUE(equal_ignoring_case("", ""));
    EXPECT_FALSE(equal_ignoring_case("NVStaple", "NVStaples"));
    EXPECT_FALSE(equal_ignoring_case("NVStaple", "NVStapl"));
}

TEST(NameLookup, OnlyLettersHaveTwoCases) {
    // Each pair differs in the bit that tells letter cases apart.
    EXPECT_FALSE(equal_ignoring_case("@", "`"));
    EXPECT_FALSE(equal_ignoring_case("[", "{"));
    EXPECT_FALSE(equal_ignoring_case("\x10", "0"));
    EXPECT_FALSE(equal_ignoring_case("\xC4", "\xE4")); // A and a with diaeresis in ISO Latin 1
    EXPECT_TRUE(equal_ignoring_case("\xC4", "\xC4"));
}

TEST(NameLookup, FieldTextEndsAtItsNulOrItsSize) {
    const char ended[8] = {'a', 'b', '\0', 'c', 'd', 'e', 'f', 'g'};
    EXPECT_EQ(field_text(ended), "ab");
    const char full[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(field_text(full), "abcd");
    const char empty[4] = {};
    EXPECT_EQ(field_text(empty), "");
}

TEST(NameLookup, ExactNamesDifferInCase) {
    NameTable table;
    EXPECT_EQ(table.add(Name::exact("Duplex"), 1), 1U);
    EXPECT_EQ(table.add(Name::exact("duplex"), 2), 2U);
    EXPECT_EQ(table.find(Name::exact("Duplex")), 1U);
    EXPECT_EQ(table.find(Name::exact("duplex")), 2U);
    EXPECT_EQ(table.find(Name::exact("DUPLEX")), std::nullopt);
}

TEST(NameLookup, FoldedNamesDoNot) {
    NameTable table;
    EXPECT_EQ(table.add(Name::folded("Duplex"), 1), 1U);
    EXPECT_EQ(table.add(Name::folded("dUPLEX"), 2), 1U);
    EXPECT_EQ(table.find(Name::folded("DUPLEX")), 1U);
    EXPECT_EQ(table.find(Name::folded("\xC4")), std::nullopt);
    table.add(Name::folded("\xC4"), 3);
    EXPECT_EQ(table.find(Name::folded("\xE4")), std::nullopt);
    EXPECT_EQ(table.find(Name::folded("\xC4")), 3U);
}

TEST(NameLookup, TheFirstNumberOfANameStays) {
    NameTable table;
    table.add(Name::exact("A"), 7);
    EXPECT_EQ(table.add(Name::exact("A"), 8), 7U);
    EXPECT_EQ(table.find(Name::exact("A")), 7U);
}

TEST(NameLookup, TheEmptyNameIsAName) {
    NameTable table;
    EXPECT_EQ(table.find(Name::exact("")), std::nullopt);
    table.add(Name::exact(""), 5);
    EXPECT_EQ(table.find(Name::folded("")), 5U);
}

TEST(NameLookup, NamesOfFieldSizeDifferInTheirLastByteAndFromLongerOnes) {
    const std::string full(PPD_MAX_NAME, 'x');
    std::string other = full;
    other.back() = 'y';
    NameTable table;
    table.add(Name::exact(full), 1);
    EXPECT_EQ(table.find(Name::exact(other)), std::nullopt);
    EXPECT_EQ(table.find(Name::exact(full + "x")), std::nullopt);
    EXPECT_EQ(table.find(Name::exact(full)), 1U);
}

TEST(NameLookup, FindsEveryOneOfThousandsOfNames) {
    constexpr std::uint32_t kNames = 5000;
    NameTable table(3); // far too few: it grows
    for (std::uint32_t i = 0; i < kNames; ++i) {
        ASSERT_EQ(table.add(Name::folded("Name" + std::to_string(i)), i), i);
    }
    for (std::uint32_t i = 0; i < kNames; ++i) {
        ASSERT_EQ(table.find(Name::folded("NAME" + std::to_string(i))), i);
    }
    EXPECT_EQ(table.find(Name::folded("Name5000")), std::nullopt);
}

} // namespace
} // namespace specialpages
