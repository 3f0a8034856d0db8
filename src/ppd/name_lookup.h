// Names of a PPD (option keywords, choice keywords) found fast, either exactly or without regard to ASCII
// case. A table borrows the names it is given; they must outlive it and stay where they are.
#pragma once

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

/// How names of a table are told apart.
enum class NameCase : std::uint8_t { Exact, Ignored };

/// Maps each name to the number it was first added with.
class NameTable {
  public:
    /// `expected` is the number of names to make room for; more may be added.
    explicit NameTable(NameCase name_case, std::size_t expected = 0);

    /// Adds the name unless an equal one is there; answers the number that the name has then.
    std::uint32_t add(std::string_view name, std::uint32_t number);
    std::optional<std::uint32_t> find(std::string_view name) const;
    std::size_t size() const { return used_; }

  private:
    struct Slot {
        const char* text = nullptr; ///< null in a free slot
        std::uint32_t length = 0;
        std::uint32_t number = 0;
        std::uint64_t hash = 0;
    };

    std::uint64_t hash(std::string_view name) const;
    bool matches(const Slot& slot, std::string_view name, std::uint64_t hash) const;
    /// The slot that holds the name, or the free one where it belongs.
    std::size_t place(std::string_view name, std::uint64_t hash) const;
    void resize(std::size_t slots);

    NameCase name_case_;
    std::size_t used_ = 0;
    std::vector<Slot> slots_; ///< a power of two, at most half of it used
};

} // namespace specialpages
