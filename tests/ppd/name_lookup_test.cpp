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

using Found = NameTable::Found;

TEST(NameLookup, ExactNamesDifferInCase) {
    NameTable table(NameCase::Exact);
    EXPECT_EQ(table.add(Name("Duplex"), 1), 1U);
    EXPECT_EQ(table.add(Name("duplex"), 2), 2U);
    EXPECT_EQ(table.find(Name("Duplex")), (Found{1, true}));
    EXPECT_EQ(table.find(Name("duplex")), (Found{2, true}));
    EXPECT_EQ(table.find(Name("DUPLEX")), std::nullopt);
}

TEST(NameLookup, NamesWithoutCaseDoNot) {
    NameTable table(NameCase::Ignored);
    EXPECT_EQ(table.add(Name("Duplex"), 1), 1U);
    EXPECT_EQ(table.add(Name("dUPLEX"), 2), 1U);
    EXPECT_EQ(table.find(Name("DUPLEX")), (Found{1, false}));
    EXPECT_EQ(table.find(Name("dUPLEX")), (Found{1, false}));
    EXPECT_EQ(table.find(Name("Duplex")), (Found{1, true}));
    EXPECT_EQ(table.find(Name("Duple")), std::nullopt);
}

TEST(NameLookup, FoldsEveryByteAsTheComparisonDoes) {
    for (int byte = 1; byte < 256; ++byte) {
        for (std::size_t at = 0; at < 9; ++at) {
            std::string text(9, 'A');
            text[at] = static_cast<char>(byte);
            std::string other(9, 'a');
            for (int other_byte = 1; other_byte < 256; ++other_byte) {
                other[at] = static_cast<char>(other_byte);
                ASSERT_EQ(Name(text).equals_ignoring_case(Name(other)), equal_ignoring_case(text, other))
                    << byte << " and " << other_byte << " at " << at;
                if (equal_ignoring_case(text, other)) {
                    ASSERT_EQ(Name(text).hash(), Name(other).hash());
                }
            }
        }
    }
}

TEST(NameLookup, TheFirstNumberOfANameStays) {
    NameTable table(NameCase::Exact);
    table.add(Name("A"), 7);
    EXPECT_EQ(table.add(Name("A"), 8), 7U);
    EXPECT_EQ(table.find(Name("A")), (Found{7, true}));
}

TEST(NameLookup, TheEmptyNameIsAName) {
    NameTable table(NameCase::Ignored);
    EXPECT_EQ(table.find(Name("")), std::nullopt);
    table.add(Name(std::string_view()), 5);
    EXPECT_EQ(table.find(Name("")), (Found{5, true}));
}

TEST(NameLookup, NamesOfFieldSizeDifferInTheirLastByteAndFromLongerOnes) {
    const std::string full(PPD_MAX_NAME, 'x');
    std::string other = full;
    other.back() = 'y';
    NameTable table(NameCase::Ignored);
    table.add(Name(full), 1);
    EXPECT_EQ(table.find(Name(other)), std::nullopt);
    EXPECT_EQ(table.find(Name(full + "x")), std::nullopt);
    EXPECT_EQ(table.find(Name(full)), (Found{1, true}));
}

TEST(NameLookup, FindsEveryOneOfThousandsOfNames) {
    constexpr std::uint32_t kNames = 5000;
    NameTable table(NameCase::Ignored, 3); // far too few: it grows
    for (std::uint32_t i = 0; i < kNames; ++i) {
        ASSERT_EQ(table.add(Name("Name" + std::to_string(i)), i), i);
    }
    for (std::uint32_t i = 0; i < kNames; ++i) {
        ASSERT_EQ(table.find(Name("NAME" + std::to_string(i))), (Found{i, false}));
    }
    EXPECT_EQ(table.find(Name("Name5000")), std::nullopt);
}

} // namespace
} // namespace specialpages
