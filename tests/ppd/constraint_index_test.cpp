#include "index_entries.h"
#include "ppd/constraint_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using namespace std::string_view_literals;
using test::EntryText;
using test::ordered_entries;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::vector<std::string> places_of(const ConstraintIndex& index, std::string_view key) {
    std::vector<std::string> places;
    for (const x_constraints& place : index.equal_range(key)) {
        places.push_back(test::place_text(place));
    }
    return places;
}

TEST(ConstraintHash, IsFiveTimesTheSumBeforePlusTheByte) {
    static_assert(constraintHash{}("A") == 65);
    EXPECT_EQ(constraintHash{}(""), 0U);
    EXPECT_EQ(constraintHash{}("A:x"), 65U * 25 + 58U * 5 + 120);
    EXPECT_EQ(constraintHash{}("PageSize:A4"), 1020543827U);
}

TEST(ConstraintHash, TakesBytesAsSignedWhateverThePlatformsCharIs) {
    EXPECT_EQ(constraintHash{}("\x80"), 0xFFFFFFFFFFFFFF80U);
    EXPECT_EQ(constraintHash{}("\xFF\x01"), 0xFFFFFFFFFFFFFFFCU);
    EXPECT_EQ(constraintHash{}("\xE9:\xE8"), 0xFFFFFFFFFFFFFECBU);
}

TEST(ConstraintHash, WrapsAt64Bits) {
    EXPECT_EQ(constraintHash{}("NVPBindCutPositionAdjustmentTB:NVVeryLongChoiceKeywordOfFortyBytes1234"),
              0x78AE9AD50890C831U);
}

TEST(ConstraintHash, EndsAtTheFirstNul) {
    EXPECT_EQ(constraintHash{}("AB\0CD"sv), constraintHash{}("AB"));
    EXPECT_EQ(constraintHash{}("\0A"sv), 0U);
}

TEST(ChoiceKeyText, JoinsWithOneColonAndNoSpaces) {
    EXPECT_EQ(ChoiceKey("Duplex", "None").text(), "Duplex:None");
    EXPECT_EQ(ChoiceKey("", "").text(), ":");
    EXPECT_EQ(ChoiceKey("A", "b:c d").text(), "A:b:c d");
}

TEST(ChoiceKeyText, TakesNamesLongerThanAnyPpdsWhole) {
    for (const std::size_t size : {40U, 41U, 42U, 1000U}) {
        const std::string option(size, 'o');
        const std::string choice(size, 'c');
        EXPECT_EQ(ChoiceKey(option, choice).text(), option + ":" + choice) << size;
    }
}

TEST(ConstraintIndex, ANewOneHas193Buckets) {
    EXPECT_EQ(ConstraintIndex().bucket_count(), 193U);
    EXPECT_EQ(ConstraintIndex(100).bucket_count(), 193U);
}

TEST(ConstraintIndex, BucketCountsAreThePrimesOfTheList) {
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(0), 53U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(53), 53U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(54), 97U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(193), 193U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(194), 389U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(100000), 196613U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(3221225474), 4294967291U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(4294967291), 4294967291U);
    EXPECT_EQ(ConstraintIndex::prime_at_or_above(4294967292), 4294967291U);
}

TEST(ConstraintIndex, EmptyHasNothingToWalkOrFind) {
    const ConstraintIndex index;
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(index.size(), 0U);
    EXPECT_TRUE(index.begin() == index.end());
    EXPECT_TRUE(index.equal_range("A:x").empty());
    EXPECT_TRUE(index.equal_range("A:x").begin() == index.equal_range("A:x").end());
}

TEST(ConstraintIndex, FindsAllEntriesOfAKeyAndNoOther) {
    ConstraintIndex index;
    index.insert("A:x", {1, 2, 3});
    index.insert("B:y", {4, 5, 6});
    index.insert("A:x", {7, 8, 9});
    index.insert("A:x", {65535, 65535, 65535});
    EXPECT_THAT(places_of(index, "A:x"), UnorderedElementsAre("1.2.3", "7.8.9", "65535.65535.65535"));
    EXPECT_THAT(places_of(index, "B:y"), ElementsAre("4.5.6"));
    EXPECT_EQ(index.size(), 4U);
    EXPECT_EQ(index.key_count(), 2U);
}

TEST(ConstraintIndex, ComparesKeysByteForByte) {
    ConstraintIndex index;
    index.insert("Duplex:None", {});
    EXPECT_TRUE(index.equal_range("duplex:None").empty());
    EXPECT_TRUE(index.equal_range("Duplex:none").empty());
    EXPECT_TRUE(index.equal_range("Duplex:Non").empty());
    EXPECT_TRUE(index.equal_range("Duplex:None ").empty());
    EXPECT_FALSE(index.equal_range("Duplex:None").empty());
}

TEST(ConstraintIndex, KeysOfOneHashStayApart) {
    ASSERT_EQ(constraintHash{}("A5"), constraintHash{}("B0"));
    ConstraintIndex index;
    index.insert("A5", {1, 1, 1});
    EXPECT_TRUE(index.equal_range("B0").empty());
    index.insert("B0", {2, 2, 2});
    EXPECT_THAT(places_of(index, "A5"), ElementsAre("1.1.1"));
    EXPECT_THAT(places_of(index, "B0"), ElementsAre("2.2.2"));
}

TEST(ConstraintIndex, KeysAreToldApartByTheirTextInTheEnd) {
    // Equal in length, in the told hash, and in the number by which the index looks for keys.
    const std::string_view one = "A5B0B0A5B0A5A5B0A5B0B0A5B0A5B0A5A5A5";
    const std::string_view other = "B0A5A5A5B0A5B0A5B0B0B0A5A5A5B0B0A5A5";
    ASSERT_EQ(constraintHash{}(one), constraintHash{}(other));
    ConstraintIndex index;
    index.insert(one, {1, 1, 1});
    EXPECT_TRUE(index.equal_range(other).empty());
    index.insert(other, {2, 2, 2});
    EXPECT_EQ(index.key_count(), 2U);
    EXPECT_THAT(places_of(index, one), ElementsAre("1.1.1"));
}

TEST(ConstraintIndex, FindsKeysOfEveryLengthAmongThousands) {
    ConstraintIndex index;
    std::string key;
    for (std::uint16_t i = 0; i < 3000; ++i) {
        index.insert(key, {i, 0, 0});
        key += static_cast<char>('a' + i % 23);
        if (key.size() == 40) {
            key = std::to_string(i);
        }
    }
    key.clear();
    for (std::uint16_t i = 0; i < 3000; ++i) {
        ASSERT_THAT(places_of(index, key), testing::Contains(std::to_string(i) + ".0.0")) << key;
        ASSERT_TRUE(index.equal_range(key + "\n").empty()) << key;
        key += static_cast<char>('a' + i % 23);
        if (key.size() == 40) {
            key = std::to_string(i);
        }
    }
    EXPECT_EQ(index.size(), 3000U);
}

TEST(ConstraintIndex, WalkingItTwiceGivesTheSameOrder) {
    ConstraintIndex index(53);
    for (std::uint16_t i = 0; i < 500; ++i) {
        index.insert("Option" + std::to_string(i % 90) + ":x", {i, 0, 0});
    }
    const auto once = ordered_entries(index);
    EXPECT_EQ(once.size(), 500U);
    EXPECT_EQ(ordered_entries(index), once);
}

TEST(ConstraintIndex, AfterClearingItsOrderIsThatOfANewOneOfAsManyBuckets) {
    ConstraintIndex used(53);
    for (std::uint16_t i = 0; i < 150; ++i) {
        used.insert("Other" + std::to_string(i), {i, 0, 0});
    }
    ASSERT_EQ(used.bucket_count(), 193U);
    used.clear();
    ConstraintIndex fresh(193);
    for (std::uint16_t i = 0; i < 400; ++i) {
        const std::string key = "Option" + std::to_string(i % 70) + ":x";
        used.insert(key, {i, 0, 0});
        fresh.insert(key, {i, 0, 0});
    }
    EXPECT_EQ(ordered_entries(used), ordered_entries(fresh));
}

TEST(PackedPlace, HoldsThreePositionsOf16BitsEach) {
    static_assert(packed(1, 2, 3) == 0x0000'0003'0002'0001);
    static_assert(unpacked(packed(65535, 0, 65534)) == x_constraints{65535, 0, 65534});
    static_assert(unpacked(packed(65536, 65537, 131071)) == x_constraints{0, 1, 65535});
}

TEST(ConstraintIndex, KeysThatDifferBehindANulStayApart) {
    ConstraintIndex index;
    index.insert("A\0B"sv, {1, 1, 1});
    index.insert("A\0C"sv, {2, 2, 2});
    index.insert("A"sv, {3, 3, 3});
    EXPECT_THAT(places_of(index, "A\0B"sv), ElementsAre("1.1.1"));
    EXPECT_THAT(places_of(index, "A\0C"sv), ElementsAre("2.2.2"));
    EXPECT_THAT(places_of(index, "A"), ElementsAre("3.3.3"));
}

TEST(ConstraintIndex, ANewKeyGoesToTheHeadOfItsBucket) {
    ConstraintIndex index;
    index.insert("A5", {1, 0, 0});
    index.insert("B0", {2, 0, 0});
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("B0", "2.0.0"), EntryText("A5", "1.0.0")));
}

TEST(ConstraintIndex, AnEqualKeyGoesBehindTheFirstEntryOfItsKey) {
    ConstraintIndex index;
    for (std::uint16_t i = 1; i <= 4; ++i) {
        index.insert("A5", {i, 0, 0});
    }
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("A5", "1.0.0"), EntryText("A5", "4.0.0"),
                                                    EntryText("A5", "3.0.0"), EntryText("A5", "2.0.0")));
}

TEST(ConstraintIndex, IteratesFromTheLowestBucket) {
    ConstraintIndex index(53);
    index.insert("4", {});    // 52
    index.insert("5", {});    // 53: bucket 0
    index.insert("\x7F", {}); // 127: bucket 21
    EXPECT_THAT(test::keys_of(index).size(), 3U);
    EXPECT_THAT(ordered_entries(index),
                ElementsAre(EntryText("5", "0.0.0"), EntryText("\x7F", "0.0.0"), EntryText("4", "0.0.0")));
}

TEST(ConstraintIndex, GrowsOnlyWhenTheNextEntryExceedsTheBuckets) {
    ConstraintIndex index;
    for (std::uint16_t i = 0; i < 193; ++i) {
        index.insert("A:x", {i, 0, 0});
    }
    EXPECT_EQ(index.bucket_count(), 193U);
    index.insert("A:x", {});
    EXPECT_EQ(index.bucket_count(), 389U);
    EXPECT_EQ(index.size(), 194U);
    EXPECT_EQ(places_of(index, "A:x").size(), 194U);
}

TEST(ConstraintIndex, GrowthTurnsTheEntriesOfAKeyAndTheKeysOfABucketRound) {
    ConstraintIndex index(53);
    index.insert("A5", {1, 0, 0});
    index.insert("A5", {2, 0, 0});
    index.insert("A5", {3, 0, 0});
    index.insert("B0", {4, 0, 0});
    // B0 | A5: 1 3 2. Growth takes B0 first, then A5's entries, each to the head.
    index.resize(54);
    EXPECT_EQ(index.bucket_count(), 97U);
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("A5", "2.0.0"), EntryText("A5", "3.0.0"),
                                                    EntryText("A5", "1.0.0"), EntryText("B0", "4.0.0")));
    index.insert("A5", {5, 0, 0});
    index.insert("B0", {6, 0, 0});
    EXPECT_THAT(ordered_entries(index),
                ElementsAre(EntryText("A5", "2.0.0"), EntryText("A5", "5.0.0"), EntryText("A5", "3.0.0"),
                            EntryText("A5", "1.0.0"), EntryText("B0", "4.0.0"), EntryText("B0", "6.0.0")));
}

TEST(ConstraintIndex, MakingRoomNeverShrinks) {
    ConstraintIndex index;
    index.resize(10);
    EXPECT_EQ(index.bucket_count(), 193U);
    index.resize(193);
    EXPECT_EQ(index.bucket_count(), 193U);
    index.resize(1000);
    EXPECT_EQ(index.bucket_count(), 1543U);
}

TEST(ConstraintIndex, SettingMemoryAsideChangesNoOrder) {
    ConstraintIndex index;
    index.reserve(100000);
    EXPECT_EQ(index.bucket_count(), 193U);
}

TEST(ConstraintIndex, ClearingKeepsTheBuckets) {
    ConstraintIndex index;
    index.resize(1000);
    index.insert("A:x", {});
    index.insert("A:x", {});
    index.clear();
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(index.key_count(), 0U);
    EXPECT_TRUE(index.begin() == index.end());
    EXPECT_TRUE(index.equal_range("A:x").empty());
    EXPECT_EQ(index.bucket_count(), 1543U);
    index.insert("A:x", {1, 2, 3});
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("A:x", "1.2.3")));
}

TEST(ConstraintIndex, TheIdOfNoKeyInsertsNothing) {
    ConstraintIndex index;
    index.insert(ConstraintIndex::kNoKey, {});
    EXPECT_TRUE(index.empty());
}

TEST(ConstraintIndex, CopiesAreIndependent) {
    ConstraintIndex index;
    index.insert("A:x", {1, 1, 1});
    ConstraintIndex copy = index;
    copy.insert("A:x", {2, 2, 2});
    EXPECT_EQ(index.size(), 1U);
    EXPECT_THAT(places_of(copy, "A:x"), UnorderedElementsAre("1.1.1", "2.2.2"));
}

TEST(ConstraintIndex, AnEntryTakesLessThanItsPartsAsNodesOfAList) {
    // Key text, three numbers and three pointers, and half of that again.
    ConstraintIndex index;
    std::size_t plain = 0;
    for (std::uint16_t i = 0; i < 20000; ++i) {
        const std::string key = "NVFeature" + std::to_string(i % 5000) + ":Setting";
        index.insert(key, {i, 0, 0});
        plain += key.size() + 6 + 3 * sizeof(void*);
    }
    index.trim();
    EXPECT_EQ(index.key_count(), 5000U);
    EXPECT_LE(2 * index.memory_bytes(), 3 * plain);
    EXPECT_GE(index.memory_bytes(), std::size_t{20000} * sizeof(x_constraints));
}

/// The same table in its plainest form: a chain of single entries a bucket, relinked one by one.
class PlainTable {
  public:
    using Item = std::pair<std::string, x_constraints>;

    explicit PlainTable(std::size_t requested) : chains_(ConstraintIndex::prime_at_or_above(requested)) {}

    void insert(const std::string& key, x_constraints value) {
        if (size_ + 1 > chains_.size()) {
            grow(ConstraintIndex::prime_at_or_above(size_ + 1));
        }
        ++size_;
        auto& chain = chain_of(key);
        const auto first =
            std::find_if(chain.begin(), chain.end(), [&key](const Item& item) { return item.first == key; });
        chain.insert(first == chain.end() ? chain.begin() : first + 1, {key, value});
    }
    std::vector<EntryText> entries() const {
        std::vector<EntryText> all;
        for (const auto& chain : chains_) {
            for (const auto& [key, value] : chain) {
                all.emplace_back(key, test::place_text(value));
            }
        }
        return all;
    }
    std::size_t bucket_count() const { return chains_.size(); }

  private:
    std::vector<Item>& chain_of(const std::string& key) {
        return chains_[constraintHash{}(key) % chains_.size()];
    }
    void grow(std::size_t buckets) {
        const auto old = std::exchange(chains_, std::vector<std::vector<Item>>(buckets));
        for (const auto& chain : old) {
            for (const Item& item : chain) {
                auto& target = chain_of(item.first);
                target.insert(target.begin(), item);
            }
        }
    }

    std::vector<std::vector<Item>> chains_;
    std::size_t size_ = 0;
};

RC_GTEST_PROP(ConstraintIndex, KeepsTheOrderOfThePlainTableThroughEveryGrowth, ()) {
    const auto requested = *rc::gen::inRange<std::size_t>(0, 120);
    const auto inserts = *rc::gen::inRange<std::size_t>(0, 900);
    const auto keys = *rc::gen::inRange<unsigned>(1, 300);
    ConstraintIndex index(requested);
    ConstraintIndex by_id(requested);
    PlainTable plain(requested);
    std::vector<ConstraintIndex::KeyId> ids(keys, ConstraintIndex::kNoKey);
    const auto chosen =
        *rc::gen::container<std::vector<unsigned>>(inserts, rc::gen::inRange<unsigned>(0, keys));
    for (std::size_t i = 0; i < inserts; ++i) {
        // Keys of few letters: many share a hash.
        const std::string key = "A" + std::to_string(chosen[i]) + ":\xE9";
        const x_constraints place{static_cast<std::uint16_t>(i), static_cast<std::uint16_t>(chosen[i]), 0};
        plain.insert(key, place);
        index.insert(key, place);
        auto& id = ids[chosen[i]];
        if (id == ConstraintIndex::kNoKey) {
            id = by_id.insert(key, place);
        } else {
            by_id.insert(id, place);
        }
    }
    const auto expected = plain.entries();
    RC_ASSERT(index.size() == inserts);
    RC_ASSERT(index.bucket_count() == plain.bucket_count());
    RC_ASSERT(ordered_entries(index) == expected);
    RC_ASSERT(ordered_entries(by_id) == expected);
    index.trim();
    RC_ASSERT(ordered_entries(index) == expected);
    for (unsigned each = 0; each < keys; ++each) {
        const std::string key = "A" + std::to_string(each) + ":\xE9";
        std::vector<std::string> held;
        for (const auto& [entry_key, place] : expected) {
            if (entry_key == key) {
                held.push_back(place);
            }
        }
        auto found = places_of(index, key);
        std::sort(found.begin(), found.end());
        std::sort(held.begin(), held.end());
        RC_ASSERT(found == held);
    }
}

} // namespace
} // namespace specialpages
