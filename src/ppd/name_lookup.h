// Names of a PPD (option and choice keywords) found fast, as they are spelled or without regard to ASCII
// case.
#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstddef>
#include <cstdint>
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
    static Name exact(std::string_view text);
    /// With A-Z turned into a-z: equal for texts that strcasecmp holds equal in the C locale.
    static Name folded(std::string_view text);

    std::uint64_t hash() const;
    friend bool operator==(const Name& left, const Name& right) {
        std::uint64_t difference = 0;
        for (std::size_t i = 0; i < left.words_.size(); ++i) {
            difference |= left.words_[i] ^ right.words_[i];
        }
        return difference == 0;
    }

  private:
    using Bytes = std::array<char, 48>;
    static_assert(kMaxBytes <= sizeof(Bytes));
    explicit Name(const Bytes& bytes);

    std::array<std::uint64_t, sizeof(Bytes) / sizeof(std::uint64_t)> words_{};
};

/// Maps names to the numbers they were first added with.
class NameTable {
  public:
    /// Makes room for that many names; more may be added.
    explicit NameTable(std::size_t expected = 0);

    /// Adds the name unless it is there; answers the number that it has then.
    std::uint32_t add(const Name& name, std::uint32_t number);
    std::optional<std::uint32_t> find(const Name& name) const;

  private:
    /// A cache line, text included: most lookups touch no other.
    struct alignas(64) Slot {
        Name name;
        std::uint32_t number = 0;
        bool used = false;
    };

    /// The slot that holds the name, or the free one where it belongs.
    std::size_t place(const Name& name) const;
    void resize(std::size_t slots);

    std::size_t used_ = 0;
    std::vector<Slot> slots_; ///< a power of two, of which at most three quarters are used
};

} // namespace specialpages
