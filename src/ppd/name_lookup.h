// Names of a PPD (option and choice keywords) found fast, as they are spelled or without regard to ASCII
// case.
#pragma once

#include <cups/ppd.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace specialpages {

/// Equality as strcasecmp has it in the C locale: only A-Z and a-z are the same letter, every byte from 0x80
/// on stands for itself, whatever the process locale says.
bool equal_ignoring_case(std::string_view left, std::string_view right);

/// The text of a fixed character field: up to its NUL, or the whole field when it has none.
template <std::size_t Size>
std::string_view field_text(const char (&field)[Size]) {
    const std::string_view whole(field, Size);
    return whole.substr(0, whole.find('\0'));
}

/// A name ready to be looked up: its bytes, none of them NUL, padded with NULs to a fixed size. Of a longer
/// text only kMaxBytes are kept; it is equal to no name that a PPD can hold.
class Name {
  public:
    /// One more than a PPD's field can hold without a terminator, so that a cut text stays apart.
    static constexpr std::size_t kMaxBytes = PPD_MAX_NAME + 1;

    Name() = default; ///< the empty name
    explicit Name(std::string_view text);
    /// The text of a PPD's field, as field_text() has it.
    explicit Name(const char (&field)[PPD_MAX_NAME]) {
        static_assert(PPD_MAX_NAME == 5 * sizeof(std::uint64_t) + 1);
        for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
            const std::uint64_t word = word_at(field + i * sizeof(std::uint64_t));
            const std::uint64_t flags = nul_flags(word);
            words_[i] = word & (((flags & (~flags + 1)) >> 7) - 1); // zeros from the first NUL on
            if (flags != 0) {
                return;
            }
        }
        words_.back() = static_cast<unsigned char>(field[PPD_MAX_NAME - 1]);
    }

    /// Equal for names that differ in nothing but the case of letters.
    std::uint64_t hash() const {
        constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
        constexpr std::uint64_t kCaseOfEach = 0x2020202020202020;
        std::uint64_t mixed = 0;
        for (std::size_t i = 0; i < words_.size() && words_[i] != 0; ++i) {
            mixed = (mixed ^ (words_[i] | kCaseOfEach)) * kMultiplier;
            mixed ^= mixed >> 32;
        }
        return mixed;
    }

    /// As equal_ignoring_case() has it.
    bool equals_ignoring_case(const Name& other) const;

    friend bool operator==(const Name& left, const Name& right) {
        std::size_t i = 0;
        while (i + 1 < left.words_.size() && left.words_[i] == right.words_[i] && left.words_[i] != 0) {
            ++i;
        }
        return left.words_[i] == right.words_[i];
    }

  private:
    friend class NameTable;

    /// Eight characters, the first in the lowest byte on every machine.
    static std::uint64_t word_at(const char* text) {
        std::uint64_t word = 0;
        std::memcpy(&word, text, sizeof word);
        if constexpr (std::endian::native == std::endian::big) {
            word = __builtin_bswap64(word);
        }
        return word;
    }
    /// The top bit of the first NUL, and perhaps of further ones; 0 without a NUL.
    static constexpr std::uint64_t nul_flags(std::uint64_t word) {
        return (word - 0x0101010101010101) & ~word & 0x8080808080808080;
    }

    // Names are short: what follows a word without a character is never looked at, and always zero.
    std::array<std::uint64_t, 6> words_{};
    static_assert(kMaxBytes <= sizeof words_);
};

enum class NameCase : std::uint8_t { Exact, Ignored };

/// Maps names to the numbers they were first added with.
class NameTable {
  public:
    struct Found {
        std::uint32_t number = 0;
        bool as_spelled = false; ///< the name is spelled exactly as it was added

        friend bool operator==(const Found&, const Found&) = default;
    };

    /// Makes room for that many names; more may be added.
    explicit NameTable(NameCase name_case, std::size_t expected = 0);

    /// Adds the name unless it is there; answers the number that it has then.
    std::uint32_t add(const Name& name, std::uint32_t number);
    std::optional<Found> find(const Name& name) const {
        const auto [slot, as_spelled] = place(name, name.hash());
        const std::uint32_t entry = slots_[slot].entry;
        return entry == kFree ? std::nullopt : std::optional<Found>({entries_[entry].number, as_spelled});
    }

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    /// Small, so that a table is walked in few cache lines.
    struct Slot {
        std::uint32_t hash = 0; ///< the upper half: the lower one says where the slot is
        std::uint32_t entry = kFree;
    };
    /// A name as it was spelled when it was added. Most end within two words; only longer ones have a tail.
    struct Entry {
        std::array<std::uint64_t, 2> head;
        std::uint32_t tail; ///< in tails_, kNoTail for none
        std::uint32_t number;
    };
    using Tail = std::array<std::uint64_t, 4>;
    static constexpr std::uint32_t kNoTail = 0xFFFFFFFF;
    static_assert(sizeof(Entry::head) + sizeof(Tail) == sizeof(Name));
    struct Place {
        std::size_t slot;
        bool as_spelled;
    };

    static constexpr std::uint32_t upper_half(std::uint64_t hash) {
        return static_cast<std::uint32_t>(hash >> 32);
    }
    bool spells(const Entry& entry, const Name& name) const {
        return entry.head[0] == name.words_[0] && entry.head[1] == name.words_[1] &&
               (entry.tail == kNoTail ? name.words_[2] == 0 : name_of(entry) == name);
    }
    Name name_of(const Entry& entry) const;
    /// The slot that holds the name, or the free one where it belongs.
    Place place(const Name& name, std::uint64_t hash) const {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
            const Slot& slot = slots_[at];
            if (slot.entry == kFree) {
                return {at, false};
            }
            if (slot.hash == upper_half(hash)) {
                const Entry& here = entries_[slot.entry];
                if (spells(here, name)) {
                    return {at, true};
                }
                if (name_case_ == NameCase::Ignored && name_of(here).equals_ignoring_case(name)) {
                    return {at, false};
                }
            }
        }
    }
    void resize(std::size_t slots);

    NameCase name_case_;
    std::vector<Entry> entries_;
    std::vector<Tail> tails_;
    std::vector<Slot> slots_; ///< a power of two, of which at most half are used
};

} // namespace specialpages
